// Typing a name into a cell of the table.
#ifndef OSTREL_DISPLAY_GROUPCELL_H
#define OSTREL_DISPLAY_GROUPCELL_H

#include <QStyledItemDelegate>

class StoreNames;

// Completes names from the store, and takes only what a group file can hold.
class GroupCell : public QStyledItemDelegate {
    Q_OBJECT

public:
    GroupCell(const StoreNames* names, QObject* parent);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    const StoreNames* m_names;
};

#endif
