#ifndef OSTREL_VALUEMANAGER_LOGICALPLUGIN_VALMANLOGICALPLUGIN_H
#define OSTREL_VALUEMANAGER_LOGICALPLUGIN_VALMANLOGICALPLUGIN_H

#include "valuemanager/ValueManagerPluginBase.h"

class Q_DECL_EXPORT ValManLogicalPlugin : public ValueManagerPluginBase {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ValManLogicalPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
    QIcon icon() const override;
    void initialize(QDesignerFormEditorInterface* formEditor) override;
};

#endif
