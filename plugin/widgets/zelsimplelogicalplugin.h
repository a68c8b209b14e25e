#ifndef OSTREL_WIDGETS_ZELSIMPLELOGICALPLUGIN_H
#define OSTREL_WIDGETS_ZELSIMPLELOGICALPLUGIN_H

#include "designer/widgetplugin.h"

// Stands in no collection: forms use the other read-outs.
class Q_DECL_EXPORT ZelSimpleLogicalPlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelSimpleLogicalPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
