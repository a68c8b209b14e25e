#ifndef OSTREL_WIDGETS_ZELCMDBUTTONPLUGIN_H
#define OSTREL_WIDGETS_ZELCMDBUTTONPLUGIN_H

#include "designer/widgetplugin.h"

class Q_DECL_EXPORT ZelCmdButtonPlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelCmdButtonPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
