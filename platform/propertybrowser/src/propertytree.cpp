#include "propertytree.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "propertydelegate.h"

PropertyTree::PropertyTree(EditorMaker maker, QWidget* parent)
    : QTreeWidget(parent), m_maker(std::move(maker)), m_delegate(new PropertyDelegate(this)) {
    setItemDelegate(m_delegate);
    setColumnCount(2);
    setIconSize(QSize(18, 18));
    setAlternatingRowColors(true);
    setEditTriggers(EditKeyPressed);
    header()->setSectionsMovable(false);
    header()->setSectionResizeMode(QHeaderView::Stretch);
    connect(header(), &QHeaderView::sectionDoubleClicked, this, &QTreeView::resizeColumnToContents);
}

bool PropertyTree::openEditor(QTreeWidgetItem* row) {
    setCurrentItem(row, ValueColumn);
    return edit(indexFromItem(row, ValueColumn), AllEditTriggers, nullptr);
}

QWidget* PropertyTree::makeEditor(const QModelIndex& index, QWidget* parent) const {
    return m_maker(itemFromIndex(index), parent);
}

void PropertyTree::dropEditorAt(QTreeWidgetItem* row) {
    m_delegate->dropEditorAt(indexFromItem(row));
}

void PropertyTree::setHeadingsMarked(bool mark) {
    m_headingsMarked = mark;
    viewport()->update();
}

bool PropertyTree::isHeading(const QModelIndex& index) const {
    return m_headingsMarked && itemFromIndex(index)->isFirstColumnSpanned();
}

bool PropertyTree::hasOwnBranchMark(const QModelIndex& index) const {
    return index.column() == NameColumn && !rootIsDecorated() && !index.parent().isValid() && isHeading(index) &&
           model()->hasChildren(index);
}

QColor PropertyTree::inheritedBackground(const QTreeWidgetItem* row) {
    for (; row; row = row->parent()) {
        const auto color = row->data(NameColumn, BackgroundRole).value<QColor>();
        if (color.isValid())
            return color;
    }
    return QColor();
}

bool PropertyTree::isAlternateRow(const QModelIndex& index) const {
    bool alternate = false;
    for (QModelIndex above = indexAbove(index); above.isValid(); above = indexAbove(above))
        alternate = !alternate;
    return alternate;
}

QColor PropertyTree::rowBackground(const QModelIndex& index) const {
    const QColor color = inheritedBackground(itemFromIndex(index));
    if (color.isValid())
        return alternatingRowColors() && isAlternateRow(index) ? color.lighter(112) : color;
    return isHeading(index) ? palette().color(QPalette::Dark) : QColor();
}

void PropertyTree::mousePressEvent(QMouseEvent* event) {
    QTreeWidget::mousePressEvent(event);
    QTreeWidgetItem* row = itemAt(event->pos());
    if (!row || event->button() != Qt::LeftButton)
        return;
    const int column = header()->logicalIndexAt(event->pos().x());
    if (column == ValueColumn && !row->isFirstColumnSpanned())
        openEditor(row);
    else if (event->pos().x() + header()->offset() < BranchMarkWidth && hasOwnBranchMark(indexFromItem(row)))
        row->setExpanded(!row->isExpanded());
}

void PropertyTree::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            // Taken in any case: a dialog around the tree would close.
            if (QTreeWidgetItem* row = currentItem()) {
                openEditor(row);
                event->accept();
                return;
            }
            break;
        default:
            break;
    }
    QTreeWidget::keyPressEvent(event);
}

void PropertyTree::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QTreeWidget::drawRow(painter, option, index);
    const QRect row = option.rect;
    const int hint = style()->styleHint(QStyle::SH_Table_GridLineColor, &option, this);
    painter->save();
    painter->setPen(QColor(static_cast<QRgb>(hint)));
    painter->drawLine(row.left(), row.bottom(), row.right(), row.bottom());
    if (!itemFromIndex(index)->isFirstColumnSpanned()) {
        const int edge = columnViewportPosition(ValueColumn) - 1;
        painter->drawLine(edge, row.top(), edge, row.bottom());
    }
    painter->restore();
}

void PropertyTree::drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const {
    const QColor background = rowBackground(index);
    if (background.isValid())
        painter->fillRect(rect, background);
    QTreeWidget::drawBranches(painter, rect, index);
}
