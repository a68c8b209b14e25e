#include "propertydelegate.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QKeyEvent>
#include <QPainter>

#include "propertytree.h"

PropertyDelegate::PropertyDelegate(PropertyTree* tree) : QStyledItemDelegate(tree), m_tree(tree) {
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { followFocus(now); });
}

QWidget* PropertyDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const {
    if (index.column() != PropertyTree::ValueColumn || !(index.flags() & Qt::ItemIsEnabled))
        return nullptr;
    QWidget* editor = m_tree->makeEditor(index, parent);
    if (!editor)
        return nullptr;
    // With and without a style sheet the editor covers the row's selection.
    editor->setAutoFillBackground(true);
    editor->setAttribute(Qt::WA_StyledBackground);
    // Keys reach the widget inside that has the focus; the tree itself adds the filter to the editor alone.
    const QList<QWidget*> inside = editor->findChildren<QWidget*>();
    for (QWidget* widget : inside)
        widget->installEventFilter(const_cast<PropertyDelegate*>(this));
    m_editor = editor;
    m_edited = index;
    return editor;
}

void PropertyDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const {
    if (editor == m_editor)
        m_editor = nullptr;
    QStyledItemDelegate::destroyEditor(editor, index);
}

// Editor and property keep each other up to date; the rows follow the property.
void PropertyDelegate::setEditorData(QWidget*, const QModelIndex&) const {}

void PropertyDelegate::setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const {}

void PropertyDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                            const QModelIndex&) const {
    editor->setGeometry(option.rect.adjusted(0, 0, 0, -1));  // the grid line stays
}

void PropertyDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->state &= ~QStyle::State_HasFocus;
    if (index.column() == PropertyTree::NameColumn && index.data(PropertyTree::ModifiedRole).toBool())
        option->font.setBold(true);
    option->fontMetrics = QFontMetrics(option->font);
    const QColor background = m_tree->rowBackground(index);
    if (background.isValid())
        option->backgroundBrush = background;
    if (m_tree->isHeading(index))
        option->palette.setBrush(QPalette::Text, option->palette.brightText());
    if (m_editor && m_edited == index) {
        option->text.clear();
        option->icon = QIcon();
    }
}

void PropertyDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    if (m_tree->hasOwnBranchMark(index)) {
        const int width = PropertyTree::BranchMarkWidth;
        const QColor background = m_tree->rowBackground(index);
        painter->fillRect(cell.rect, background);
        QStyleOption mark = cell;
        mark.rect = QRect(cell.rect.left(), cell.rect.top(), width, cell.rect.height());
        mark.palette.setBrush(QPalette::Text, mark.palette.brightText());
        mark.state |= QStyle::State_Children;
        mark.state.setFlag(QStyle::State_Open, m_tree->isExpanded(index));
        m_tree->style()->drawPrimitive(QStyle::PE_IndicatorBranch, &mark, painter, m_tree);
        cell.rect.adjust(width, 0, 0, 0);
    }
    QStyledItemDelegate::paint(painter, cell, index);
}

QSize PropertyDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(3, 4);
}

bool PropertyDelegate::isInEditor(const QObject* object) const {
    for (; m_editor && object; object = object->parent()) {
        if (object == m_editor)
            return true;
    }
    return false;
}

bool PropertyDelegate::eventFilter(QObject* object, QEvent* event) {
    if (!isInEditor(object))
        return false;
    const auto key = [event] { return static_cast<QKeyEvent*>(event)->key(); };
    if (event->type() == QEvent::ShortcutOverride && key() == Qt::Key_Escape)
        event->accept();
    return event->type() == QEvent::KeyPress && steerWith(key());
}

bool PropertyDelegate::steerWith(int key) {
    switch (key) {
        case Qt::Key_Tab:
            close(EditNextItem);
            return true;
        case Qt::Key_Backtab:
            close(EditPreviousItem);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            close(NoHint);
            return true;
        case Qt::Key_Escape:
            drop();
            return true;
        default:
            return false;
    }
}

void PropertyDelegate::close(EndEditHint hint) {
    QWidget* editor = m_editor;
    if (auto* spinBox = qobject_cast<QAbstractSpinBox*>(editor))
        spinBox->interpretText();
    // What the property's new value leads to may have closed the editor already.
    if (!m_editor)
        return;
    m_editor = nullptr;
    Q_EMIT closeEditor(editor, hint);
}

// A spin box would apply typed text when it loses the focus or is hidden.
void PropertyDelegate::drop() {
    m_editor->blockSignals(true);
    QWidget* editor = m_editor;
    m_editor = nullptr;
    Q_EMIT closeEditor(editor, NoHint);
}

void PropertyDelegate::dropEditorAt(const QModelIndex& row) {
    if (!m_editor)
        return;
    for (QModelIndex index = m_edited; index.isValid(); index = index.parent()) {
        if (index.row() == row.row() && index.parent() == row.parent()) {
            drop();
            return;
        }
    }
}

// A dialog of the editor, its drop-down list, and another window that becomes active leave the editor open.
void PropertyDelegate::followFocus(const QWidget* now) {
    if (m_editor && now && now->window() == m_editor->window() && !isInEditor(now))
        close(NoHint);
}
