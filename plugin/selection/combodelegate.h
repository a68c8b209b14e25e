// A cell of a table that is edited with an editable combo box.
#ifndef OSTREL_SELECTION_COMBODELEGATE_H
#define OSTREL_SELECTION_COMBODELEGATE_H

#include <QStringList>
#include <QStyledItemDelegate>
#include <memory>

class QComboBox;

// Completes what is typed from its list, and takes any other text too.
class Q_DECL_EXPORT ComboDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    ComboDelegate(const QStringList& list, QObject* parent);
    ~ComboDelegate() override;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    // A text that is not in the list selects nothing.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

private:
    std::unique_ptr<QComboBox> sizeBox;  // never shown: a cell is as large as this
    QStringList items;
};

#endif
