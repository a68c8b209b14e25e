#include "valuemanager/ComboBoxPlugin/ValManComboBoxPlugin.h"

#include "valuemanager/ComboBoxPlugin/ValManComboBoxTaskMenu.h"
#include "valuemanager/ComboBoxPlugin/ValManComboBoxWidget.h"

ValManComboBoxPlugin::ValManComboBoxPlugin(QObject* parent)
    : ValueManagerPluginBase(parent, "ValManComboBoxWidget",
                             "ValManComboBoxWidget is used to display the value of a ostrel variable and select new "
                             "values through a combobox") {}

QWidget* ValManComboBoxPlugin::createWidget(QWidget* parent) {
    return new ValManComboBoxWidget(parent);
}

QIcon ValManComboBoxPlugin::icon() const {
    return QIcon(QStringLiteral(":resources/valmancomboboxwidget.png"));
}

void ValManComboBoxPlugin::initialize(QDesignerFormEditorInterface* formEditor) {
    initializeWithTaskMenu<ValManComboBoxWidget, ValManComboBoxTaskMenu>(formEditor);
}
