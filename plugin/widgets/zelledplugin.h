#ifndef OSTREL_WIDGETS_ZELLEDPLUGIN_H
#define OSTREL_WIDGETS_ZELLEDPLUGIN_H

#include "designer/widgetplugin.h"

class Q_DECL_EXPORT ZelLedPlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelLedPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
