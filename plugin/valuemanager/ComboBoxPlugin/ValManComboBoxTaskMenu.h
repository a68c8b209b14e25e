// "Edit State..." of the editor with a list: a dialog that edits the list.
#ifndef OSTREL_VALUEMANAGER_COMBOBOXPLUGIN_VALMANCOMBOBOXTASKMENU_H
#define OSTREL_VALUEMANAGER_COMBOBOXPLUGIN_VALMANCOMBOBOXTASKMENU_H

#include "valuemanager/ValueManagerTaskMenuBase.h"

class ValManComboBoxWidget;

class Q_DECL_EXPORT ValManComboBoxTaskMenu : public ValueManagerTaskMenuBase {
    Q_OBJECT

public:
    ValManComboBoxTaskMenu(ValManComboBoxWidget* widget, QObject* parent);

private Q_SLOTS:
    void editState() override;

private:
    ValManComboBoxWidget* comboBox;
};

#endif
