// The order of the names in a combo box that lists the variables of a store.
#ifndef OSTREL_SELECTION_NAMEORDER_H
#define OSTREL_SELECTION_NAMEORDER_H

#include <QSortFilterProxyModel>
#include <QStringList>

class QComboBox;

// Sorts names, and knows when its source holds them in order already: the comparison of names is what a long list takes
// its time for.
class NameOrder : public QSortFilterProxyModel {
public:
    // Comes between the box and its model; the box owns it, and it the model.
    explicit NameOrder(QComboBox* box);

    // Fills the empty box. The names go into the model behind the sorting one all at once: the box itself would hand
    // them over one by one, each to be sorted in, which takes half a minute for tens of thousands.
    void fill(QStringList names);

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    bool m_sourceIsInOrder = false;
};

// For an editable box with its completer: what keeps it quick and true with tens of thousands of names.
void prepareForManyNames(QComboBox* box);

#endif
