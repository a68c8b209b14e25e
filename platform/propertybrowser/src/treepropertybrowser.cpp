#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>

#include "propertytree.h"
#include "qttreepropertybrowser.h"

struct QtTreePropertyBrowser::Private {
    explicit Private(QtTreePropertyBrowser* browser);

    void showRow(QTreeWidgetItem* row, QtBrowserItem* item);
    void enableRows(QTreeWidgetItem* row, QtBrowserItem* item);
    void showCurrent(QtBrowserItem* item);

    QtTreePropertyBrowser* const q;
    PropertyTree* tree;
    QHash<QtBrowserItem*, QTreeWidgetItem*> rows;
    QHash<QTreeWidgetItem*, QtBrowserItem*> items;
};

QtTreePropertyBrowser::Private::Private(QtTreePropertyBrowser* browser) : q(browser) {
    const auto makeEditor = [this](QTreeWidgetItem* row, QWidget* parent) -> QWidget* {
        const QtBrowserItem* item = items.value(row);
        return item && item->property()->hasValue() ? q->createEditor(item->property(), parent) : nullptr;
    };
    tree = new PropertyTree(makeEditor, q);
    tree->setHeaderLabels({QtTreePropertyBrowser::tr("Property"), QtTreePropertyBrowser::tr("Value")});
    connect(tree, &QTreeWidget::currentItemChanged, q,
            [this](QTreeWidgetItem* row) { q->setCurrentItem(items.value(row)); });
    connect(q, &QtAbstractPropertyBrowser::currentItemChanged, tree,
            [this](QtBrowserItem* item) { showCurrent(item); });
    connect(tree, &QTreeWidget::itemExpanded, q,
            [this](QTreeWidgetItem* row) { Q_EMIT q->expanded(items.value(row)); });
    connect(tree, &QTreeWidget::itemCollapsed, q,
            [this](QTreeWidgetItem* row) { Q_EMIT q->collapsed(items.value(row)); });
}

void QtTreePropertyBrowser::Private::showCurrent(QtBrowserItem* item) {
    QTreeWidgetItem* row = rows.value(item);
    if (row == tree->currentItem())
        return;
    if (row)
        tree->setCurrentItem(row);
    else
        tree->selectionModel()->clear();
}

void QtTreePropertyBrowser::Private::showRow(QTreeWidgetItem* row, QtBrowserItem* item) {
    const QtProperty* property = item->property();
    row->setText(PropertyTree::NameColumn, property->propertyName());
    row->setToolTip(PropertyTree::NameColumn, property->propertyName());
    row->setStatusTip(PropertyTree::NameColumn, property->statusTip());
    row->setWhatsThis(PropertyTree::NameColumn, property->whatsThis());
    row->setData(PropertyTree::NameColumn, PropertyTree::ModifiedRole, property->isModified());
    const bool hasValue = property->hasValue();
    row->setFirstColumnSpanned(!hasValue);
    if (hasValue) {
        const QString display = property->displayText();
        const QString text = display.isEmpty() ? property->valueText() : display;
        row->setText(PropertyTree::ValueColumn, text);
        row->setIcon(PropertyTree::ValueColumn, property->valueIcon());
        row->setToolTip(PropertyTree::ValueColumn, property->toolTip().isEmpty() ? text : property->toolTip());
    }
    enableRows(row, item);
}

// A row is enabled when its property and those of all its ancestors are; properties keep their own flags.
void QtTreePropertyBrowser::Private::enableRows(QTreeWidgetItem* row, QtBrowserItem* item) {
    const QTreeWidgetItem* parent = row->parent();
    const bool enable = item->property()->isEnabled() && (!parent || (parent->flags() & Qt::ItemIsEnabled));
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEditable;
    flags.setFlag(Qt::ItemIsEnabled, enable);
    if (row->flags() != flags) {
        if (!enable)
            tree->dropEditorAt(row);
        row->setFlags(flags);
    }
    const QList<QtBrowserItem*> children = item->children();
    for (QtBrowserItem* child : children) {
        if (QTreeWidgetItem* childRow = rows.value(child))
            enableRows(childRow, child);
    }
}

QtTreePropertyBrowser::QtTreePropertyBrowser(QWidget* parent)
    : QtAbstractPropertyBrowser(parent), d(std::make_unique<Private>(this)) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(d->tree);
    setFocusProxy(d->tree);
}

// The tree goes first: what it says on its way out concerns nobody.
QtTreePropertyBrowser::~QtTreePropertyBrowser() {
    d->tree->disconnect(this);
    disconnect(d->tree);
    delete d->tree;
}

int QtTreePropertyBrowser::indentation() const {
    return d->tree->indentation();
}

void QtTreePropertyBrowser::setIndentation(int pixels) {
    d->tree->setIndentation(pixels);
}

bool QtTreePropertyBrowser::rootIsDecorated() const {
    return d->tree->rootIsDecorated();
}

void QtTreePropertyBrowser::setRootIsDecorated(bool show) {
    d->tree->setRootIsDecorated(show);
}

bool QtTreePropertyBrowser::alternatingRowColors() const {
    return d->tree->alternatingRowColors();
}

void QtTreePropertyBrowser::setAlternatingRowColors(bool enable) {
    d->tree->setAlternatingRowColors(enable);
}

bool QtTreePropertyBrowser::isHeaderVisible() const {
    return !d->tree->isHeaderHidden();
}

void QtTreePropertyBrowser::setHeaderVisible(bool visible) {
    d->tree->setHeaderHidden(!visible);
}

// The modes stand for those of the header, in the same order.
QtTreePropertyBrowser::ResizeMode QtTreePropertyBrowser::resizeMode() const {
    return static_cast<ResizeMode>(d->tree->header()->sectionResizeMode(PropertyTree::NameColumn));
}

void QtTreePropertyBrowser::setResizeMode(ResizeMode mode) {
    d->tree->header()->setSectionResizeMode(static_cast<QHeaderView::ResizeMode>(mode));
}

int QtTreePropertyBrowser::splitterPosition() const {
    return d->tree->header()->sectionSize(PropertyTree::NameColumn);
}

void QtTreePropertyBrowser::setSplitterPosition(int position) {
    d->tree->header()->resizeSection(PropertyTree::NameColumn, position);
}

void QtTreePropertyBrowser::setExpanded(QtBrowserItem* item, bool expanded) {
    if (QTreeWidgetItem* row = d->rows.value(item))
        row->setExpanded(expanded);
}

bool QtTreePropertyBrowser::isExpanded(QtBrowserItem* item) const {
    const QTreeWidgetItem* row = d->rows.value(item);
    return row && row->isExpanded();
}

bool QtTreePropertyBrowser::isItemVisible(QtBrowserItem* item) const {
    const QTreeWidgetItem* row = d->rows.value(item);
    return row && !row->isHidden();
}

void QtTreePropertyBrowser::setItemVisible(QtBrowserItem* item, bool visible) {
    if (QTreeWidgetItem* row = d->rows.value(item))
        row->setHidden(!visible);
}

void QtTreePropertyBrowser::setBackgroundColor(QtBrowserItem* item, const QColor& color) {
    if (QTreeWidgetItem* row = d->rows.value(item)) {
        row->setData(PropertyTree::NameColumn, PropertyTree::BackgroundRole, color);
        d->tree->viewport()->update();
    }
}

QColor QtTreePropertyBrowser::backgroundColor(QtBrowserItem* item) const {
    const QTreeWidgetItem* row = d->rows.value(item);
    return row ? row->data(PropertyTree::NameColumn, PropertyTree::BackgroundRole).value<QColor>() : QColor();
}

QColor QtTreePropertyBrowser::calculatedBackgroundColor(QtBrowserItem* item) const {
    return PropertyTree::inheritedBackground(d->rows.value(item));
}

bool QtTreePropertyBrowser::propertiesWithoutValueMarked() const {
    return d->tree->headingsMarked();
}

void QtTreePropertyBrowser::setPropertiesWithoutValueMarked(bool mark) {
    d->tree->setHeadingsMarked(mark);
}

void QtTreePropertyBrowser::editItem(QtBrowserItem* item) {
    if (QTreeWidgetItem* row = d->rows.value(item))
        d->tree->openEditor(row);
}

void QtTreePropertyBrowser::itemInserted(QtBrowserItem* item, QtBrowserItem* after) {
    auto* row = new QTreeWidgetItem;
    QTreeWidgetItem* parent = item->parent() ? d->rows.value(item->parent()) : d->tree->invisibleRootItem();
    parent->insertChild(after ? parent->indexOfChild(d->rows.value(after)) + 1 : 0, row);
    d->rows.insert(item, row);
    d->items.insert(row, item);
    {
        // That a new row stands open is no change of a row.
        const QSignalBlocker quiet(d->tree);
        row->setExpanded(true);
    }
    d->showRow(row, item);
}

void QtTreePropertyBrowser::itemRemoved(QtBrowserItem* item) {
    QTreeWidgetItem* row = d->rows.take(item);
    d->tree->dropEditorAt(row);
    d->items.remove(row);
    delete row;
}

void QtTreePropertyBrowser::itemChanged(QtBrowserItem* item) {
    if (QTreeWidgetItem* row = d->rows.value(item))
        d->showRow(row, item);
}
