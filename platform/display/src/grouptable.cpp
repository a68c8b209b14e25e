#include "grouptable.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QPalette>
#include <QStyle>
#include <QUndoCommand>
#include <algorithm>

#include "groupfile/groupfile.h"
#include "storenames.h"

namespace {

// Typing in the title is one step of the history.
constexpr int titleStep = 1;

QStringList& rowAt(GroupState& state, int row) {
    if (row >= state.rows.size())
        state.rows.append(QStringList());
    return state.rows[qMin(row, state.rows.size() - 1)];
}

void dropEmptyRows(GroupState& state) {
    state.rows.erase(
        std::remove_if(state.rows.begin(), state.rows.end(), [](const QStringList& row) { return row.isEmpty(); }),
        state.rows.end());
}

}  // namespace

GroupState groupState(const GroupContents& contents) {
    GroupState state;
    state.title = contents.title;
    int row = 0;
    for (const GroupVariable& variable : contents.variables) {
        if (state.rows.isEmpty() || variable.row != row)
            state.rows.append(QStringList());
        row = variable.row;
        state.rows.last().append(variable.name);
    }
    return state;
}

QByteArray groupText(const GroupState& state) {
    QVector<GroupVariable> variables;
    for (int row = 0; row < state.rows.size(); ++row)
        for (const QString& name : state.rows[row])
            variables.append({name, row, 0});
    return writeGroup(state.title, variables);
}

QString storableText(const QString& text) {
    QString storable;
    for (const QChar character : text)
        if (character.unicode() <= 0xFF && character.isPrint() && character != QLatin1Char('"'))
            storable += character;
    return storable.trimmed();
}

class GroupTable::Step : public QUndoCommand {
public:
    Step(GroupTable* table, const QString& what, const GroupState& before, const GroupState& after, int mergeable)
        : QUndoCommand(what), m_table(table), m_before(before), m_after(after), m_mergeable(mergeable) {}

    int id() const override { return m_mergeable; }
    bool mergeWith(const QUndoCommand* next) override {
        m_after = static_cast<const Step*>(next)->m_after;
        return true;
    }
    void undo() override { m_table->apply(m_before); }
    void redo() override { m_table->apply(m_after); }

private:
    GroupTable* m_table;
    GroupState m_before;
    GroupState m_after;
    int m_mergeable;
};

GroupTable::GroupTable(const StoreNames* names, QObject* parent) : QAbstractTableModel(parent), m_names(names) {}

void GroupTable::load(const GroupState& state) {
    m_beforeDraft.reset();
    m_history.clear();
    apply(state);
}

void GroupTable::push(const QString& what, const GroupState& after, int mergeable) {
    const GroupState before = m_beforeDraft.value_or(m_state);
    m_beforeDraft.reset();
    if (after != before)
        m_history.push(new Step(this, what, before, after, mergeable));
}

void GroupTable::apply(const GroupState& state) {
    const bool otherTitle = m_state.title != state.title;
    m_state = state;
    int columns = 0;
    for (const QStringList& row : m_state.rows)
        columns = qMax(columns, row.size());
    resizeTo(m_state.rows.size() + 1, columns + 1);
    emit dataChanged(index(0, 0), index(m_rows - 1, m_columns - 1));
    if (otherTitle)
        emit titleChanged(m_state.title);
    emit changed();
}

// The table grows and shrinks at its end, so that the cursor stays where it is.
void GroupTable::resizeTo(int rows, int columns) {
    if (rows > m_rows) {
        beginInsertRows(QModelIndex(), m_rows, rows - 1);
        m_rows = rows;
        endInsertRows();
    } else if (rows < m_rows) {
        beginRemoveRows(QModelIndex(), rows, m_rows - 1);
        m_rows = rows;
        endRemoveRows();
    }
    if (columns > m_columns) {
        beginInsertColumns(QModelIndex(), m_columns, columns - 1);
        m_columns = columns;
        endInsertColumns();
    } else if (columns < m_columns) {
        beginRemoveColumns(QModelIndex(), columns, m_columns - 1);
        m_columns = columns;
        endRemoveColumns();
    }
}

int GroupTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows;
}

int GroupTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_columns;
}

bool GroupTable::hasVariable(const QModelIndex& index) const {
    return index.isValid() && index.row() < m_state.rows.size() && index.column() < m_state.rows[index.row()].size();
}

int GroupTable::variableCount() const {
    int count = 0;
    for (const QStringList& row : m_state.rows)
        count += row.size();
    return count;
}

QStringList GroupTable::missingNames() const {
    QStringList missing;
    for (const QStringList& row : m_state.rows)
        for (const QString& name : row)
            if (m_names->isMissing(name) && !missing.contains(name))
                missing.append(name);
    return missing;
}

QVariant GroupTable::data(const QModelIndex& index, int role) const {
    if (!hasVariable(index))
        return invitation(index, role);
    const QString& name = m_state.rows[index.row()][index.column()];
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return name;
    return mark(name, role);
}

QVariant GroupTable::mark(const QString& name, int role) const {
    if (!m_names->isMissing(name))
        return QVariant();
    if (role == Qt::DecorationRole)
        return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
    if (role == Qt::ToolTipRole)
        return name.isEmpty() ? tr("The file names no variable here.")
                              : tr("The store has no variable '%1' now. Press F2 for another name.").arg(name);
    return QVariant();
}

// What stands in the cells in which a name can be added.
QVariant GroupTable::invitation(const QModelIndex& index, int role) const {
    if (!(flags(index) & Qt::ItemIsEditable))
        return QVariant();
    if (role == Qt::DisplayRole)
        return index.row() == m_state.rows.size() ? tr("new row") : tr("add");
    if (role == Qt::ForegroundRole)
        return QApplication::palette().color(QPalette::Disabled, QPalette::Text);
    if (role == Qt::ToolTipRole)
        return tr("Type the name of a variable to add it here.");
    return QVariant();
}

QVariant GroupTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole)
        return QVariant();
    return orientation == Qt::Horizontal ? tr("Column %1").arg(section + 1) : tr("Row %1").arg(section + 1);
}

Qt::ItemFlags GroupTable::flags(const QModelIndex& index) const {
    const int size = index.row() < m_state.rows.size() ? m_state.rows[index.row()].size() : 0;
    if (index.column() > size)
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable;
}

bool GroupTable::setData(const QModelIndex& index, const QVariant& value, int role) {
    const QString name = storableText(value.toString());
    if (role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable))
        return false;
    if (name.isEmpty()) {
        cancelDraft();
        return false;
    }
    GroupState after = m_state;
    QStringList& row = rowAt(after, index.row());
    const bool isNew = m_beforeDraft || index.column() >= row.size();
    if (index.column() < row.size())
        row[index.column()] = name;
    else
        row.append(name);
    push(isNew ? tr("Add %1").arg(name) : tr("Rename to %1").arg(name), after);
    return true;
}

void GroupTable::setTitle(const QString& title) {
    GroupState after = m_state;
    after.title = title;
    push(tr("Change the Title"), after, titleStep);
}

void GroupTable::removeVariables(const QModelIndexList& cells) {
    QModelIndexList fromTheEnd;
    std::copy_if(cells.begin(), cells.end(), std::back_inserter(fromTheEnd),
                 [this](const QModelIndex& cell) { return hasVariable(cell); });
    std::sort(fromTheEnd.begin(), fromTheEnd.end());
    std::reverse(fromTheEnd.begin(), fromTheEnd.end());
    GroupState after = m_state;
    for (const QModelIndex& cell : qAsConst(fromTheEnd))
        after.rows[cell.row()].removeAt(cell.column());
    dropEmptyRows(after);
    push(fromTheEnd.size() == 1 ? tr("Remove %1").arg(fromTheEnd.first().data(Qt::EditRole).toString())
                                : tr("Remove %1 Variables").arg(fromTheEnd.size()),
         after);
}

QModelIndex GroupTable::moveVariable(const QModelIndex& cell, int rows, int columns) {
    if (!hasVariable(cell))
        return cell;
    GroupState after = m_state;
    const int size = after.rows[cell.row()].size();
    const int row = cell.row() + rows;
    const bool alone = size == 1 && row == after.rows.size();
    const int lastColumn = rows == 0 ? size - 1 : cell.column();
    if (row < 0 || alone || cell.column() + columns < 0 || cell.column() + columns > lastColumn)
        return cell;
    const QString name = after.rows[cell.row()].takeAt(cell.column());
    QStringList& target = rowAt(after, row);
    const int column = qMin(cell.column() + columns, target.size());
    target.insert(column, name);
    const int emptied = after.rows[cell.row()].isEmpty() && row > cell.row() ? 1 : 0;
    dropEmptyRows(after);
    push(tr("Move %1").arg(name), after);
    return index(row - emptied, column);
}

void GroupTable::removeRow(int row) {
    if (row < 0 || row >= m_state.rows.size())
        return;
    GroupState after = m_state;
    after.rows.removeAt(row);
    push(tr("Remove Row %1").arg(row + 1), after);
}

QModelIndex GroupTable::moveRow(const QModelIndex& cell, int rows) {
    const int row = cell.row() + rows;
    if (!hasVariable(index(cell.row(), 0)) || row < 0 || row >= m_state.rows.size())
        return cell;
    GroupState after = m_state;
    after.rows.move(cell.row(), row);
    push(tr("Move Row %1").arg(cell.row() + 1), after);
    return index(row, cell.column());
}

void GroupTable::arrange(int columns) {
    GroupState after{m_state.title, {}};
    for (const QStringList& row : qAsConst(m_state.rows)) {
        for (const QString& name : row) {
            if (after.rows.isEmpty() || after.rows.last().size() == columns)
                after.rows.append(QStringList());
            after.rows.last().append(name);
        }
    }
    push(tr("Arrange in %1 Columns").arg(columns), after);
}

QModelIndex GroupTable::insertNames(const QModelIndex& before, const QStringList& names) {
    GroupState after = m_state;
    QStringList& row = rowAt(after, before.isValid() ? before.row() : m_state.rows.size());
    int column = before.isValid() ? qMin(before.column(), row.size()) : 0;
    for (const QString& name : names)
        if (const QString storable = storableText(name); !storable.isEmpty())
            row.insert(column++, storable);
    dropEmptyRows(after);
    push(tr("Insert %1 Variables").arg(names.size()), after);
    return before;
}

QModelIndex GroupTable::draftVariable(const QModelIndex& before) {
    cancelDraft();
    if (!hasVariable(before))
        return before.isValid() && (flags(before) & Qt::ItemIsEditable) ? before : index(m_state.rows.size(), 0);
    GroupState draft = m_state;
    draft.rows[before.row()].insert(before.column(), QString());
    m_beforeDraft = m_state;
    apply(draft);
    return index(before.row(), before.column());
}

QModelIndex GroupTable::draftRow(int row) {
    cancelDraft();
    if (row >= m_state.rows.size())
        return index(m_state.rows.size(), 0);
    GroupState draft = m_state;
    draft.rows.insert(row, QStringList{QString()});
    m_beforeDraft = m_state;
    apply(draft);
    return index(row, 0);
}

void GroupTable::cancelDraft() {
    if (!m_beforeDraft)
        return;
    const GroupState before = *m_beforeDraft;
    m_beforeDraft.reset();
    apply(before);
}

void GroupTable::namesChanged() {
    emit dataChanged(index(0, 0), index(m_rows - 1, m_columns - 1));
    emit changed();
}
