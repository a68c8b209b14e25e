#ifndef OSTREL_WIDGETS_ZELSIMPLEVALUECHANINDEXPLUGIN_H
#define OSTREL_WIDGETS_ZELSIMPLEVALUECHANINDEXPLUGIN_H

#include "designer/widgetplugin.h"

class Q_DECL_EXPORT ZelSimpleValueChanIndexPlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelSimpleValueChanIndexPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

// The same widget, laid out in a row. It stands in no collection.
class Q_DECL_EXPORT ZelHorizontalChanIndexPlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelHorizontalChanIndexPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
