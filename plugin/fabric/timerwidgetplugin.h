#ifndef OSTREL_FABRIC_TIMERWIDGETPLUGIN_H
#define OSTREL_FABRIC_TIMERWIDGETPLUGIN_H

#include "designer/widgetplugin.h"

// Stands in no collection: a form has no use for a moderator of its own.
class Q_DECL_EXPORT TimerWidgetPlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit TimerWidgetPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
