// A table in which several variables are chosen at once.
#ifndef OSTREL_SELECTION_MULTISELECTIONDIALOG_H
#define OSTREL_SELECTION_MULTISELECTIONDIALOG_H

#include <QDialog>
#include <memory>

#include "selection/combodelegate.h"

namespace Ui {
class MultiSelectionDialog;
}

// For hosts: no widget of the library opens it.
class Q_DECL_EXPORT MultiSelectionDialog : public QDialog {
    Q_OBJECT

public:
    explicit MultiSelectionDialog(QWidget* parent);
    ~MultiSelectionDialog() override;

private:
    std::unique_ptr<Ui::MultiSelectionDialog> ui;
};

#endif
