#ifndef OSTREL_VALUEMANAGER_COMBOBOXPLUGIN_VALMANCOMBOBOXPLUGIN_H
#define OSTREL_VALUEMANAGER_COMBOBOXPLUGIN_VALMANCOMBOBOXPLUGIN_H

#include "valuemanager/ValueManagerPluginBase.h"

class Q_DECL_EXPORT ValManComboBoxPlugin : public ValueManagerPluginBase {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ValManComboBoxPlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
    QIcon icon() const override;
    void initialize(QDesignerFormEditorInterface* formEditor) override;
};

#endif
