#include "selection/multiselectiondialog.h"

#include <QHeaderView>

#include "ui_multiselectiondialog.h"

MultiSelectionDialog::MultiSelectionDialog(QWidget* parent)
    : QDialog(parent, Qt::WindowFlags()), ui(std::make_unique<Ui::MultiSelectionDialog>()) {
    ui->setupUi(this);
    connect(ui->buttonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    // No style and no font makes the rows higher.
    constexpr int rowHeight = 20;
    ui->tableWidget->verticalHeader()->setMinimumSectionSize(rowHeight);
    ui->tableWidget->verticalHeader()->setDefaultSectionSize(rowHeight);
    // A table does not own its delegates.
    auto* delegate =
        new ComboDelegate({QStringLiteral("ONE"), QStringLiteral("TWO"), QStringLiteral("THREE")}, nullptr);
    connect(this, &QObject::destroyed, delegate, &QObject::deleteLater);
    ui->tableWidget->setItemDelegateForColumn(0, delegate);
}

MultiSelectionDialog::~MultiSelectionDialog() = default;
