#ifndef OSTREL_VALUEMANAGER_NUMERICPLUGIN_VALMANNUMERICPLUGIN_H
#define OSTREL_VALUEMANAGER_NUMERICPLUGIN_VALMANNUMERICPLUGIN_H

#include "valuemanager/ValueManagerPluginBase.h"

class Q_DECL_EXPORT ValManNumericPlugin : public ValueManagerPluginBase {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ValManNumericPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
    QIcon icon() const override;
    void initialize(QDesignerFormEditorInterface* formEditor) override;
};

#endif
