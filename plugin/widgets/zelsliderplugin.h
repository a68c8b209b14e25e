#ifndef OSTREL_WIDGETS_ZELSLIDERPLUGIN_H
#define OSTREL_WIDGETS_ZELSLIDERPLUGIN_H

#include "designer/widgetplugin.h"

class Q_DECL_EXPORT ZelSliderPlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelSliderPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
