#include "valuemanager/StringListEditor/StringListEditor.h"

#include <QFile>

#include "ui_StringListEditor.h"

StringListEditor::StringListEditor(QStringList* contents, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::StringListEditor>()), m_newItemText(tr("New Item")) {
    ui->setupUi(this);
    QMetaObject::connectSlotsByName(this);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    ui->newListItemButton->setIcon(createIconSet(QStringLiteral("plus.png")));
    ui->deleteListItemButton->setIcon(createIconSet(QStringLiteral("minus.png")));
    ui->moveListItemUpButton->setIcon(createIconSet(QStringLiteral("up.png")));
    ui->moveListItemDownButton->setIcon(createIconSet(QStringLiteral("down.png")));
    for (const QString& text : *contents)
        ui->listWidget->addItem(text);
    if (ui->listWidget->count() > 0)
        ui->listWidget->setCurrentRow(0);
    else
        updateEditor();
}

StringListEditor::~StringListEditor() = default;

// Qt Designer's own pictures; elsewhere, and in a release that keeps them in another place, the buttons have their
// texts.
QIcon StringListEditor::createIconSet(const QString& name) const {
    for (const char* place : {":/trolltech/formeditor/images/", ":/trolltech/formeditor/images/win/",
                              ":/trolltech/formeditor/images/designer_"})
        if (QFile::exists(QLatin1String(place) + name))
            return QIcon(QLatin1String(place) + name);
    return QIcon();
}

QStringList StringListEditor::contents() const {
    QStringList texts;
    for (int row = 0; row < ui->listWidget->count(); ++row)
        texts.append(ui->listWidget->item(row)->text());
    return texts;
}

QListWidget* StringListEditor::listWidget() const {
    return ui->listWidget;
}

void StringListEditor::setCurrentIndex(int idx) {
    m_updating = true;
    ui->listWidget->setCurrentRow(idx);
    m_updating = false;
}

void StringListEditor::updateEditor() {
    const QListWidget* list = ui->listWidget;
    const bool hasCurrent = list->currentItem() != nullptr;
    ui->moveListItemUpButton->setEnabled(hasCurrent && list->currentRow() > 0);
    ui->moveListItemDownButton->setEnabled(hasCurrent && list->currentRow() < list->count() - 1);
    ui->deleteListItemButton->setEnabled(hasCurrent);
}

void StringListEditor::on_newListItemButton_clicked() {
    auto* item = new QListWidgetItem(m_newItemText);
    item->setData(Qt::DisplayPropertyRole, m_newItemText);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    const int row = ui->listWidget->currentRow() + 1;
    ui->listWidget->insertItem(row, item);
    emit itemInserted(row);
    ui->listWidget->setCurrentItem(item);
    ui->listWidget->editItem(item);
}

void StringListEditor::on_deleteListItemButton_clicked() {
    int row = ui->listWidget->currentRow();
    if (row >= 0) {
        delete ui->listWidget->takeItem(row);
        emit itemDeleted(row);
    }
    if (row == ui->listWidget->count())
        --row;
    if (row >= 0)
        ui->listWidget->setCurrentRow(row);
    // The list moves its current row before the deleted one is gone, and then has nothing more to tell.
    updateEditor();
}

void StringListEditor::moveItem(int from, int to) {
    QListWidgetItem* item = ui->listWidget->takeItem(from);
    ui->listWidget->insertItem(to, item);
    ui->listWidget->setCurrentRow(to);
}

void StringListEditor::on_moveListItemUpButton_clicked() {
    const int row = ui->listWidget->currentRow();
    if (row <= 0)
        return;
    moveItem(row, row - 1);
    emit itemMovedUp(row);
}

void StringListEditor::on_moveListItemDownButton_clicked() {
    const int row = ui->listWidget->currentRow();
    if (row < 0 || row == ui->listWidget->count() - 1)
        return;
    moveItem(row, row + 1);
    emit itemMovedDown(row);
}

void StringListEditor::on_listWidget_currentRowChanged() {
    updateEditor();
    if (!m_updating)
        emit indexChanged(ui->listWidget->currentRow());
}

void StringListEditor::on_listWidget_itemChanged(QListWidgetItem* item) {
    emit itemChanged(ui->listWidget->currentRow(), Qt::DisplayPropertyRole, item->text());
}

void StringListEditor::keyPressEvent(QKeyEvent* event) {
    if (isWindow())
        QDialog::keyPressEvent(event);
    else
        QWidget::keyPressEvent(event);  // NOLINT(bugprone-parent-virtual-call): a dialog would take Return and Escape
}
