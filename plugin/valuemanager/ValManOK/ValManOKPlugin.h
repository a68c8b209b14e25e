#ifndef OSTREL_VALUEMANAGER_VALMANOK_VALMANOKPLUGIN_H
#define OSTREL_VALUEMANAGER_VALMANOK_VALMANOKPLUGIN_H

#include "valuemanager/ValueManagerPluginBase.h"

class Q_DECL_EXPORT ValManOKPlugin : public ValueManagerPluginBase {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ValManOKPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
    QIcon icon() const override;
};

#endif
