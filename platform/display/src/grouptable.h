// A group as an editable table, with its history.
#ifndef OSTREL_DISPLAY_GROUPTABLE_H
#define OSTREL_DISPLAY_GROUPTABLE_H

#include <QAbstractTableModel>
#include <QStringList>
#include <QUndoStack>
#include <QVector>
#include <optional>

class StoreNames;
struct GroupContents;

// What a group file says. No row is empty.
struct GroupState {
    QString title;
    QVector<QStringList> rows;

    bool operator==(const GroupState&) const = default;
};

GroupState groupState(const GroupContents& contents);
QByteArray groupText(const GroupState& state);

// What can stand in a group file: Latin-1 without a double quote.
QString storableText(const QString& text);

// Rows are rows of the group. Behind the last variable of each row is one more cell, and below the last row one more
// row: a name that is entered there is added. Every operation is one step of the history; it gives the cell to go on
// from.
class GroupTable : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit GroupTable(const StoreNames* names, QObject* parent);

    // Starts again with that group and an empty history.
    void load(const GroupState& state);
    const GroupState& state() const { return m_state; }
    QUndoStack* history() { return &m_history; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    bool hasVariable(const QModelIndex& index) const;
    int variableCount() const;
    QStringList missingNames() const;

    void setTitle(const QString& title);
    void removeVariables(const QModelIndexList& cells);
    // To the cell that lies so many rows and columns away; into a new row behind the last one.
    QModelIndex moveVariable(const QModelIndex& cell, int rows, int columns);
    void removeRow(int row);
    QModelIndex moveRow(const QModelIndex& cell, int rows);
    // Lets the variables flow into that many columns.
    void arrange(int columns);
    QModelIndex insertNames(const QModelIndex& before, const QStringList& names);

    // Makes room for a name that is still to be typed, in a row or as a new row. setData() on the cell makes it a step;
    // cancelDraft() takes it away, unless that has happened.
    QModelIndex draftVariable(const QModelIndex& before);
    QModelIndex draftRow(int row);
    void cancelDraft();

    // The store has other variables: marks may have changed.
    void namesChanged();

Q_SIGNALS:
    void titleChanged(QString title);
    void changed();

private:
    class Step;

    void push(const QString& what, const GroupState& after, int mergeable = -1);
    void apply(const GroupState& state);
    void resizeTo(int rows, int columns);
    QVariant mark(const QString& name, int role) const;
    QVariant invitation(const QModelIndex& index, int role) const;

    const StoreNames* m_names;
    GroupState m_state;
    std::optional<GroupState> m_beforeDraft;
    int m_rows = 1;
    int m_columns = 1;
    QUndoStack m_history;
};

#endif
