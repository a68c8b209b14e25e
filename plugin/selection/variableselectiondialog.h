// Chooses one variable of the store: by group, by typing, and its member where it has some.
#ifndef OSTREL_SELECTION_VARIABLESELECTIONDIALOG_H
#define OSTREL_SELECTION_VARIABLESELECTIONDIALOG_H

#include <ostrel/records.h>

#include <QDialog>
#include <QMap>
#include <QStringList>
#include <memory>

#include "variables/kinds.h"

class NameOrder;

namespace Ui {
class VariableSelectionDialog;
}

// The catalogue that it offers is kept for the next dialog with the same filter; it is read again after a
// reconfiguration of the store. Without a store, reading it ends the process (see VariableMapList).
//
// "Ok" accepts whatever stands in the boxes. A caller takes the choice when indexOfSelectedVarName() is not -1; the
// name is text() with subText() right behind it.
class Q_DECL_EXPORT VariableSelectionDialog : public QDialog {
    Q_OBJECT

public:
    VariableSelectionDialog(QWidget* parent, QT_OSTREL_VAR_TYPE type, const QString& inName);
    ~VariableSelectionDialog() override;

    QString text() const;     // of the variable box
    QString subText() const;  // of the box with the members
    // The row of the typed name, without what stands behind its first colon; -1 where the list has no such name.
    int indexOfSelectedVarName() const;

Q_SIGNALS:
    void closeDialog();
    void mapParent();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private Q_SLOTS:
    void groupIndexChanged(QString item);
    void variableEditTextChanged(const QString& stext);
    void mapDialog();

private:
    void setUpVariableBox();
    void connectSlots();
    QStringList namesOfAllGroups() const;
    bool selectVariable(const QString& listed, const QString& shown);
    void selectMember(const QString& member);
    void showOriginalName();
    bool findMembers(const QString& stext, QStringList* list) const;
    void offerMembers(const QStringList& list);

    std::unique_ptr<Ui::VariableSelectionDialog> ui;
    QT_OSTREL_VAR_TYPE varType;
    QString origVarName_;
    QMap<QString, QStringList>* variables = nullptr;  // the kept catalogue
    NameOrder* proxy_ = nullptr;
    QStringList subVariables;  // the members that were offered last, in any dialog
    char default_units[16] = {};
    bool initializingClass = false;
};

#endif
