#ifndef OSTREL_WIDGETS_ZELTOGGLEBUTTONPLUGIN_H
#define OSTREL_WIDGETS_ZELTOGGLEBUTTONPLUGIN_H

#include "designer/widgetplugin.h"

class Q_DECL_EXPORT ZelToggleButtonPlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelToggleButtonPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
