// The editors in the rows of a property tree: how they open, what keys they leave to the tree, when they close.
#ifndef OSTREL_PROPERTYBROWSER_PROPERTYDELEGATE_H
#define OSTREL_PROPERTYBROWSER_PROPERTYDELEGATE_H

#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>

class PropertyTree;

class PropertyDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit PropertyDelegate(PropertyTree* tree);

    // Closes the open editor if it stands in that row or below. Text that waits in it is dropped.
    void dropEditorAt(const QModelIndex& row);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool isInEditor(const QObject* object) const;
    bool steerWith(int key);
    void close(EndEditHint hint);
    void drop();
    void followFocus(const QWidget* now);

    PropertyTree* const m_tree;
    // One editor at a time; it is made in a const operation of the base class.
    mutable QPointer<QWidget> m_editor;
    mutable QPersistentModelIndex m_edited;
};

#endif
