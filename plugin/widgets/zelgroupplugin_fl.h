#ifndef OSTREL_WIDGETS_ZELGROUPPLUGIN_FL_H
#define OSTREL_WIDGETS_ZELGROUPPLUGIN_FL_H

#include "designer/widgetplugin.h"

class Q_DECL_EXPORT ZelGroupPlugin_fl : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelGroupPlugin_fl(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
