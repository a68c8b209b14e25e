#ifndef OSTREL_WIDGETS_ZELVALUEPLUGIN_H
#define OSTREL_WIDGETS_ZELVALUEPLUGIN_H

#include "designer/widgetplugin.h"

class Q_DECL_EXPORT ZelValuePlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelValuePlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
