// The rows of a property browser: their look, and what mouse and keyboard do to them.
#ifndef OSTREL_PROPERTYBROWSER_PROPERTYTREE_H
#define OSTREL_PROPERTYBROWSER_PROPERTYTREE_H

#include <QTreeWidget>
#include <functional>

class PropertyDelegate;

class PropertyTree : public QTreeWidget {
    Q_OBJECT

public:
    enum Column { NameColumn, ValueColumn };
    // Kept with the name.
    enum Role {
        ModifiedRole = Qt::UserRole,
        BackgroundRole,  // the row's own colour
    };
    static constexpr int BranchMarkWidth = 20;

    using EditorMaker = std::function<QWidget*(QTreeWidgetItem* row, QWidget* parent)>;

    PropertyTree(EditorMaker maker, QWidget* parent);

    // Makes the row's value current and opens its editor, if it has one.
    bool openEditor(QTreeWidgetItem* row);
    QWidget* makeEditor(const QModelIndex& index, QWidget* parent) const;
    void dropEditorAt(QTreeWidgetItem* row);

    bool headingsMarked() const { return m_headingsMarked; }
    void setHeadingsMarked(bool mark);
    // A row without value, where those are marked.
    bool isHeading(const QModelIndex& index) const;
    // Where the tree draws no marks at top level, a heading has one of its own.
    bool hasOwnBranchMark(const QModelIndex& index) const;
    // Invalid where the row has none of its own kind.
    QColor rowBackground(const QModelIndex& index) const;
    static QColor inheritedBackground(const QTreeWidgetItem* row);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const override;

private:
    bool isAlternateRow(const QModelIndex& index) const;

    const EditorMaker m_maker;
    PropertyDelegate* const m_delegate;
    bool m_headingsMarked = false;
};

#endif
