#include "selection/unitsdialog.h"

#include <QCompleter>
#include <QLineEdit>

#include "ui_unitsdialog.h"

UnitsDialog::UnitsDialog(QWidget* parent)
    : QDialog(parent, Qt::WindowFlags(Qt::Popup)), ui(std::make_unique<Ui::UnitsDialog>()) {
    ui->setupUi(this);
    ui->comboBox->lineEdit()->setReadOnly(true);
    connect(ui->buttonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

UnitsDialog::~UnitsDialog() = default;

QString UnitsDialog::value() const {
    return ui->comboBox->currentText();
}

void UnitsDialog::setItems(QStringList list) {
    ui->comboBox->clear();
    ui->comboBox->insertItems(0, list);
    ui->comboBox->setCompleter(new QCompleter(ui->comboBox->model(), ui->comboBox));
}
