#include "valuemanager/ComboBoxPlugin/ValManComboBoxTaskMenu.h"

#include <QUndoStack>

#include "valuemanager/ComboBoxPlugin/ComboBoxContentsCommand.h"
#include "valuemanager/ComboBoxPlugin/ValManComboBoxWidget.h"
#include "valuemanager/StringListEditor/StringListEditor.h"

ValManComboBoxTaskMenu::ValManComboBoxTaskMenu(ValManComboBoxWidget* widget, QObject* parent)
    : ValueManagerTaskMenuBase(parent), comboBox(widget) {}

void ValManComboBoxTaskMenu::editState() {
    m_formWindow = QDesignerFormWindowInterface::findFormWindow(comboBox);
    if (!m_formWindow)
        return;
    QStringList boxContents = comboBox->getComboBoxContentsAsList();
    StringListEditor editor(&boxContents, comboBox->window());
    const QString oldContents = comboBox->getComboBoxContents();
    if (editor.exec() != QDialog::Accepted)
        return;
    const QString newContents = editor.contents().join(comboBox->getDeliminator());
    if (newContents == oldContents)
        return;
    auto* command = new ComboBoxContentsCommand(comboBox, oldContents, newContents);
    // Whatever of it the form's own commands carry out, it is undone as one.
    QUndoStack* history = m_formWindow->commandHistory();
    history->beginMacro(command->text());
    history->push(command);
    history->endMacro();
}
