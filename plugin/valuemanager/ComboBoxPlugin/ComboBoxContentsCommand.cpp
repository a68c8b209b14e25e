#include "valuemanager/ComboBoxPlugin/ComboBoxContentsCommand.h"

#include <QCoreApplication>
#include <QDesignerFormWindowCursorInterface>
#include <QDesignerFormWindowInterface>
#include <QUndoStack>

#include "valuemanager/ComboBoxPlugin/ValManComboBoxWidget.h"

namespace {

// Those of an open macro too.
int commandsIn(const QUndoStack& history) {
    const QUndoCommand* last = history.command(history.count() - 1);
    return history.count() + (last ? last->childCount() : 0);
}

}  // namespace

ComboBoxContentsCommand::ComboBoxContentsCommand(ValManComboBoxWidget* comboBox, const QString& oldState,
                                                 const QString& newState)
    : QUndoCommand(QCoreApplication::translate("ComboBoxContentsCommand", "Change Combobox Contents")),
      m_comboBox(comboBox),
      m_oldItemsState(oldState),
      m_newItemsState(newState) {}

void ComboBoxContentsCommand::redo() {
    setContents(m_newItemsState);
}

void ComboBoxContentsCommand::undo() {
    setContents(m_oldItemsState);
}

// Qt Designer's cursor makes a command of its own for that and puts it on the same history. That one then undoes the
// change by itself, and this one leaves: carried out again from the history, it would make the history drop the very
// command that is running.
void ComboBoxContentsCommand::setContents(const QString& contents) {
    QDesignerFormWindowInterface* form = QDesignerFormWindowInterface::findFormWindow(m_comboBox);
    if (!form)
        return;
    const int before = commandsIn(*form->commandHistory());
    form->cursor()->setProperty(QStringLiteral("comboBoxContents"), contents);
    if (commandsIn(*form->commandHistory()) != before)
        setObsolete(true);
}
