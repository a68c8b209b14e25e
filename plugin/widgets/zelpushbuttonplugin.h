#ifndef OSTREL_WIDGETS_ZELPUSHBUTTONPLUGIN_H
#define OSTREL_WIDGETS_ZELPUSHBUTTONPLUGIN_H

#include "designer/widgetplugin.h"

class Q_DECL_EXPORT ZelPushButtonPlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelPushButtonPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
