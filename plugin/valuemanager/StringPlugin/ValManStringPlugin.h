#ifndef OSTREL_VALUEMANAGER_STRINGPLUGIN_VALMANSTRINGPLUGIN_H
#define OSTREL_VALUEMANAGER_STRINGPLUGIN_VALMANSTRINGPLUGIN_H

#include "valuemanager/ValueManagerPluginBase.h"

class Q_DECL_EXPORT ValManStringPlugin : public ValueManagerPluginBase {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ValManStringPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
    QIcon icon() const override;
    void initialize(QDesignerFormEditorInterface* formEditor) override;
};

#endif
