#ifndef OSTREL_WIDGETS_ZELVARIABLEPLUGIN_H
#define OSTREL_WIDGETS_ZELVARIABLEPLUGIN_H

#include "designer/widgetplugin.h"

// Stands in no collection: its widget is filled by code, so a form has no use for it.
class Q_DECL_EXPORT ZelVariablePlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelVariablePlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
