#ifndef OSTREL_VALUEMANAGER_VMPUSHBUTTONCANCELPLUGIN_VALMANCANCELPLUGIN_H
#define OSTREL_VALUEMANAGER_VMPUSHBUTTONCANCELPLUGIN_VALMANCANCELPLUGIN_H

#include "valuemanager/ValueManagerPluginBase.h"

class Q_DECL_EXPORT ValManCancelPlugin : public ValueManagerPluginBase {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ValManCancelPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
    QIcon icon() const override;
};

#endif
