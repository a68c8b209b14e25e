#include "widgets/zeltable.h"

#include "ui_zeltable.h"

zelTable::zelTable(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::zelTable>()) {
    ui->setupUi(this);
}

zelTable::~zelTable() = default;

void zelTable::setNames(const QStringList&) {}

void zelTable::setUnitsVis(const bool&) {}
