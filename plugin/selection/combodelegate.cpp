#include "selection/combodelegate.h"

#include <QComboBox>
#include <QCompleter>

ComboDelegate::ComboDelegate(const QStringList& list, QObject* parent)
    : QStyledItemDelegate(parent), sizeBox(std::make_unique<QComboBox>()), items(list) {
    sizeBox->addItems(list);
}

ComboDelegate::~ComboDelegate() = default;

void ComboDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
}

QSize ComboDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return sizeBox->sizeHint();
}

QWidget* ComboDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const {
    auto* editor = new QComboBox(parent);
    editor->addItems(items);
    editor->setEditable(true);
    editor->setCompleter(new QCompleter(editor->model(), editor));
    return editor;
}

void ComboDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* box = qobject_cast<QComboBox*>(editor);
    if (!box)
        return;
    const QString cellData = index.data(Qt::EditRole).toString();
    box->setCurrentIndex(box->findData(cellData, Qt::DisplayRole, Qt::MatchCaseSensitive));
}

void ComboDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    if (const auto* box = qobject_cast<QComboBox*>(editor))
        model->setData(index, box->currentText(), Qt::EditRole);
}
