#include "selection/channelindexselectiondialog.h"

#include "selection/variablemaplist.h"
#include "ui_channelindexselectiondialog.h"

ChannelIndexSelectionDialog::ChannelIndexSelectionDialog(QWidget* parent, QT_OSTREL_VAR_TYPE type, QString inName)
    : QDialog(parent, Qt::WindowFlags()),
      ui(std::make_unique<Ui::ChannelIndexSelectionDialog>()),
      varType(type),
      origVarName_(QString::fromLatin1(inName.toLatin1())),
      variables(std::make_unique<QMap<QString, QStringList>>()) {
    ui->setupUi(this);
    connect(ui->OkButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->Cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->groupComboBox, SIGNAL(currentIndexChanged(QString)), this, SLOT(groupIndexChanged(QString)));
}

ChannelIndexSelectionDialog::~ChannelIndexSelectionDialog() = default;

QString ChannelIndexSelectionDialog::getSelectedVariableTypeText() const {
    return ui->groupComboBox->currentText();
}

QString ChannelIndexSelectionDialog::getSelectedChannelIndexNumber() const {
    return ui->indexComboBox->currentText();
}

void ChannelIndexSelectionDialog::showEvent(QShowEvent* evt) {
    variables = std::make_unique<QMap<QString, QStringList>>();
    const VariableMapList reader(variables.get(), varType, nullptr);
    ui->groupComboBox->clear();
    ui->indexComboBox->clear();
    // Fills the box of the indexes as well, with those of the first group.
    ui->groupComboBox->insertItems(0, variables->keys());
    if (!origVarName_.isEmpty()) {
        const int row = ui->indexComboBox->findData(origVarName_, Qt::DisplayRole, Qt::MatchCaseSensitive);
        if (row >= 0)
            ui->indexComboBox->setCurrentIndex(row);
    }
    QDialog::showEvent(evt);
}

void ChannelIndexSelectionDialog::groupIndexChanged(QString item) {
    QComboBox* const box = ui->indexComboBox;
    box->clear();
    box->insertItems(0, variables->value(item));
    if (ui->groupComboBox->currentIndex() != 0 && !variables->isEmpty())
        box->setEnabled(true);
    box->setCurrentIndex(0);
}
