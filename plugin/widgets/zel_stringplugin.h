#ifndef OSTREL_WIDGETS_ZEL_STRINGPLUGIN_H
#define OSTREL_WIDGETS_ZEL_STRINGPLUGIN_H

#include "designer/widgetplugin.h"

class Q_DECL_EXPORT zel_stringPlugin : public WidgetPlugin {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit zel_stringPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
};

#endif
