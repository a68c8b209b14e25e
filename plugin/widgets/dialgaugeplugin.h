#ifndef OSTREL_WIDGETS_DIALGAUGEPLUGIN_H
#define OSTREL_WIDGETS_DIALGAUGEPLUGIN_H

#include "designer/widgetplugin.h"

class Q_DECL_EXPORT dialgaugePlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit dialgaugePlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
