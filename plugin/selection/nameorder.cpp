#include "selection/nameorder.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QListView>
#include <QStandardItemModel>
#include <algorithm>

NameOrder::NameOrder(QComboBox* box) : QSortFilterProxyModel(box) {
    setSourceModel(box->model());
    box->model()->setParent(this);
    box->setModel(this);
    setFilterCaseSensitivity(Qt::CaseInsensitive);
}

void NameOrder::fill(QStringList names) {
    std::stable_sort(names.begin(), names.end(), [this](const QString& left, const QString& right) {
        return left.compare(right, sortCaseSensitivity()) < 0;
    });
    QList<QStandardItem*> items;
    items.reserve(names.size());
    for (const QString& name : qAsConst(names))
        items.append(new QStandardItem(name));
    m_sourceIsInOrder = true;
    static_cast<QStandardItemModel*>(sourceModel())->invisibleRootItem()->appendRows(items);
    sort(0, Qt::AscendingOrder);
    m_sourceIsInOrder = false;
}

bool NameOrder::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    return m_sourceIsInOrder ? left.row() < right.row() : QSortFilterProxyModel::lessThan(left, right);
}

void prepareForManyNames(QComboBox* box) {
    // Every row is a line of text: none of the lists needs to measure all of them.
    for (QAbstractItemView* view : {box->view(), box->completer()->popup()})
        if (auto* list = qobject_cast<QListView*>(view))
            list->setUniformItemSizes(true);
    // The Return key would put a name that is not in the list into it, at its place in the alphabet, and then take the
    // name that it finds there: another variable than was typed.
    QObject::disconnect(box->lineEdit(), SIGNAL(returnPressed()), box, nullptr);
}
