#include "widgets/indexuimanager.h"

#include "ui_zel_simplevaluechanindex.h"

IndexUiManager::IndexUiManager(QWidget* owner) : ui(std::make_unique<Ui::ZelSimpleValueChanIndex>()) {
    ui->setupUi(owner);
    widget = owner;
    name = ui->name;
    value = ui->value;
    frame = ui->frame;
    iconLabel = ui->iconLabel;
    lcdNumber = ui->lcdNumber;
}

IndexUiManager::~IndexUiManager() = default;

void IndexUiManager::setupUi(bool horizontal) {
    for (QWidget* part : {static_cast<QWidget*>(name), static_cast<QWidget*>(iconLabel), static_cast<QWidget*>(value),
                          static_cast<QWidget*>(lcdNumber)})
        ui->gridLayout->removeWidget(part);
    ui->gridLayout->setSpacing(0);
    if (horizontal)
        placeInRow();
    else
        placeInColumn();
    ui->gridLayout->invalidate();
    widget->updateGeometry();
}

void IndexUiManager::placeInRow() {
    frame->setMaximumHeight(60);
    ui->gridLayout->addWidget(name, 0, 0, Qt::AlignLeft);
    ui->gridLayout->addWidget(iconLabel, 0, 1);
    ui->gridLayout->addWidget(value, 0, 2, Qt::AlignRight);
    // Keeps the value from running into its name.
    value->setContentsMargins(4, 0, 0, 0);
    ui->gridLayout->addWidget(lcdNumber, 0, 3, Qt::AlignRight);
    ui->gridLayout->setContentsMargins(0, 1, 0, 0);
    widget->setMinimumSize(60, 45);
}

void IndexUiManager::placeInColumn() {
    frame->setMaximumHeight(150);
    ui->gridLayout_3->addWidget(name, 1, 0);
    ui->gridLayout_3->addWidget(iconLabel, 1, 1);
    ui->gridLayout_3->addWidget(value, 2, 0);
    value->setContentsMargins(0, 0, 0, 0);
    ui->gridLayout->addWidget(lcdNumber, 0, 0, Qt::AlignRight);
    ui->gridLayout->setContentsMargins(0, 0, 2, 0);
    widget->setMinimumSize(60, 38);
}
