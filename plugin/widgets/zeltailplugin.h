#ifndef OSTREL_WIDGETS_ZELTAILPLUGIN_H
#define OSTREL_WIDGETS_ZELTAILPLUGIN_H

#include "designer/widgetplugin.h"

class Q_DECL_EXPORT ZelTailPlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelTailPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
