#ifndef OSTREL_WIDGETS_ZELSIMPLEVALUEPLUGIN_H
#define OSTREL_WIDGETS_ZELSIMPLEVALUEPLUGIN_H

#include "designer/widgetplugin.h"

class Q_DECL_EXPORT ZelSimpleValuePlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelSimpleValuePlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

// The same widget, laid out in a row.
class Q_DECL_EXPORT ZelHorizontalValuePlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelHorizontalValuePlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
