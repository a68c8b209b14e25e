#ifndef OSTREL_WIDGETS_ZELGROUPPLUGIN_H
#define OSTREL_WIDGETS_ZELGROUPPLUGIN_H

#include "designer/widgetplugin.h"

class Q_DECL_EXPORT ZelGroupPlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelGroupPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
