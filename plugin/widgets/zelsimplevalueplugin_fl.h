#ifndef OSTREL_WIDGETS_ZELSIMPLEVALUEPLUGIN_FL_H
#define OSTREL_WIDGETS_ZELSIMPLEVALUEPLUGIN_FL_H

#include "designer/widgetplugin.h"

class Q_DECL_EXPORT ZelSimpleValuePlugin_fl : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelSimpleValuePlugin_fl(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

// The same widget, laid out in a row. It stands in no collection.
class Q_DECL_EXPORT ZelHorizontalValuePlugin_fl : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelHorizontalValuePlugin_fl(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
