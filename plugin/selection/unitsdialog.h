// Offers the units in which a value can be shown.
#ifndef OSTREL_SELECTION_UNITSDIALOG_H
#define OSTREL_SELECTION_UNITSDIALOG_H

#include <QDialog>
#include <QStringList>
#include <memory>

namespace Ui {
class UnitsDialog;
}

class Q_DECL_EXPORT UnitsDialog : public QDialog {
    Q_OBJECT

public:
    explicit UnitsDialog(QWidget* parent);
    ~UnitsDialog() override;

    // The keyword chosen: one of the list, the first to begin with.
    QString value() const;

public Q_SLOTS:
    void setItems(QStringList list);

private:
    std::unique_ptr<Ui::UnitsDialog> ui;
};

#endif
