#ifndef OSTREL_WIDGETS_ZELCMDLINEPLUGIN_H
#define OSTREL_WIDGETS_ZELCMDLINEPLUGIN_H

#include "designer/widgetplugin.h"

class Q_DECL_EXPORT ZelCmdLinePlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZelCmdLinePlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
