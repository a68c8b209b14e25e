// A change of the list of an editor, as a command of the form on which the editor stands in Qt Designer.
#ifndef OSTREL_VALUEMANAGER_COMBOBOXPLUGIN_COMBOBOXCONTENTSCOMMAND_H
#define OSTREL_VALUEMANAGER_COMBOBOXPLUGIN_COMBOBOXCONTENTSCOMMAND_H

#include <QUndoCommand>

class ValManComboBoxWidget;

// Both states are lists as one text. They are set on what is selected on the form, which is that editor.
class Q_DECL_EXPORT ComboBoxContentsCommand : public QUndoCommand {
public:
    ComboBoxContentsCommand(ValManComboBoxWidget* comboBox, const QString& oldState, const QString& newState);

    void redo() override;
    void undo() override;

private:
    void setContents(const QString& contents);

    ValManComboBoxWidget* m_comboBox;
    QString m_oldItemsState;
    QString m_newItemsState;
};

#endif
