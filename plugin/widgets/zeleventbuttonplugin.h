#ifndef OSTREL_WIDGETS_ZELEVENTBUTTONPLUGIN_H
#define OSTREL_WIDGETS_ZELEVENTBUTTONPLUGIN_H

#include "designer/widgetplugin.h"

class Q_DECL_EXPORT ZelEventButtonPlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelEventButtonPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
