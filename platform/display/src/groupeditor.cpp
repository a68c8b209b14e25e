#include "groupeditor.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "groupcell.h"
#include "groupfile/groupfile.h"

namespace {

constexpr int storePeriod = 2000;  // ms between two looks at the store while the editor is on the screen

QByteArray contentsOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QIcon icon(QStyle::StandardPixmap pixmap) {
    return QApplication::style()->standardIcon(pixmap);
}

}  // namespace

GroupEditor::GroupEditor(QWidget* parent)
    : QWidget(parent),
      m_table(new GroupTable(&m_names, this)),
      m_title(new QLineEdit),
      m_view(new QTableView),
      m_remarksLabel(new QLabel),
      m_remarks(new QListWidget) {
    layOut();
    makeHistoryActions();
    makeVariableActions();
    makeRowActions();
    connect(m_title, &QLineEdit::textEdited, m_table, &GroupTable::setTitle);
    connect(m_table, &GroupTable::titleChanged, this, [this](const QString& title) {
        if (m_title->text() != title)
            m_title->setText(title);
    });
    connect(m_table, &GroupTable::changed, this, &GroupEditor::tell);
    connect(m_table->history(), &QUndoStack::cleanChanged, this, &GroupEditor::modifiedChanged);
    connect(m_view->itemDelegate(), &QAbstractItemDelegate::closeEditor, m_table, &GroupTable::cancelDraft);
}

void GroupEditor::layOut() {
    m_title->setObjectName(QStringLiteral("titleLine"));
    m_title->setPlaceholderText(tr("The text above the group"));
    m_title->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[\\x20-\\x21\\x23-\\x7E\\xA0-\\xFF]*")), m_title));
    m_title->installEventFilter(this);
    auto* titleLabel = new QLabel(tr("&Title:"));
    titleLabel->setBuddy(m_title);
    auto* titleRow = new QHBoxLayout;
    titleRow->addWidget(titleLabel);
    titleRow->addWidget(m_title);

    m_view->setObjectName(QStringLiteral("groupTable"));
    m_view->setAccessibleName(tr("Variables of the group"));
    m_view->setModel(m_table);
    m_view->setItemDelegate(new GroupCell(&m_names, m_view));
    m_view->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::AnyKeyPressed);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_view->horizontalHeader()->setDefaultSectionSize(fontMetrics().averageCharWidth() * 26);
    m_view->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 2);
    m_view->setTabKeyNavigation(true);

    m_remarks->setObjectName(QStringLiteral("remarks"));
    m_remarks->setAccessibleName(tr("What is odd in the file"));
    m_remarks->setWordWrap(true);
    m_remarks->setMaximumHeight(fontMetrics().height() * 9);
    m_remarksLabel->setBuddy(m_remarks);

    auto* column = new QVBoxLayout(this);
    column->addLayout(titleRow);
    column->addWidget(m_view, 1);
    column->addWidget(m_remarksLabel);
    column->addWidget(m_remarks);
}

template <class Operation>
QAction* GroupEditor::action(const QString& text, const QList<QKeySequence>& keys, Operation operation) {
    auto* made = new QAction(text, this);
    made->setShortcuts(keys);
    // Keys such as Del belong to the line that is being typed in as long as there is one.
    made->setShortcutContext(Qt::WidgetShortcut);
    connect(made, &QAction::triggered, this, [this, operation] {
        finishEditing();
        operation();
    });
    m_view->addAction(made);
    return made;
}

void GroupEditor::makeHistoryActions() {
    QUndoStack* history = m_table->history();
    QAction* undo = action(tr("&Undo"), {QKeySequence::Undo}, [history] { history->undo(); });
    QAction* redo = action(tr("&Redo"), {QKeySequence(tr("Ctrl+Shift+Z")), QKeySequence(tr("Ctrl+Y"))},
                           [history] { history->redo(); });
    // In the title too.
    undo->setShortcutContext(Qt::WindowShortcut);
    redo->setShortcutContext(Qt::WindowShortcut);
    undo->setEnabled(false);
    redo->setEnabled(false);
    connect(history, &QUndoStack::canUndoChanged, undo, &QAction::setEnabled);
    connect(history, &QUndoStack::canRedoChanged, redo, &QAction::setEnabled);
    connect(history, &QUndoStack::undoTextChanged, undo,
            [undo](const QString& what) { undo->setToolTip(tr("Undo: %1").arg(what)); });
    connect(history, &QUndoStack::redoTextChanged, redo,
            [redo](const QString& what) { redo->setToolTip(tr("Redo: %1").arg(what)); });
    undo->setIcon(icon(QStyle::SP_ArrowBack));
    redo->setIcon(icon(QStyle::SP_ArrowForward));
    m_editActions << undo << redo;
    m_chiefActions << undo << redo;
}

void GroupEditor::makeVariableActions() {
    QAction* add = action(tr("&Add Variable"), {QKeySequence(Qt::Key_Insert)}, [this] { addVariable(); });
    QAction* rename = action(tr("Re&name"), {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter},
                             [this] { m_view->edit(m_view->currentIndex()); });
    QAction* remove = action(tr("&Remove"), {QKeySequence(Qt::Key_Delete)},
                             [this] { m_table->removeVariables(m_view->selectionModel()->selectedIndexes()); });
    QAction* copyNames = action(tr("&Copy Names"), {QKeySequence::Copy}, [this] { copy(); });
    QAction* pasteNames = action(tr("&Paste Names"), {QKeySequence::Paste}, [this] { paste(); });
    QAction* left = action(tr("Move &Left"), {QKeySequence(tr("Alt+Left"))}, [this] { move(0, -1); });
    QAction* right = action(tr("Move R&ight"), {QKeySequence(tr("Alt+Right"))}, [this] { move(0, 1); });
    QAction* up = action(tr("Move &Up"), {QKeySequence(tr("Alt+Up"))}, [this] { move(-1, 0); });
    QAction* down = action(tr("Move &Down"), {QKeySequence(tr("Alt+Down"))}, [this] { move(1, 0); });
    add->setIcon(icon(QStyle::SP_FileDialogNewFolder));
    remove->setIcon(icon(QStyle::SP_TrashIcon));
    m_editActions << add << rename << remove << copyNames << pasteNames << left << right << up << down;
    m_chiefActions << add << remove;
}

void GroupEditor::makeRowActions() {
    QAction* add = action(tr("&Insert Row"), {QKeySequence(tr("Ctrl+Ins")), QKeySequence(tr("Ctrl+Return"))},
                          [this] { addRow(); });
    QAction* remove = action(tr("&Remove Row"), {QKeySequence(tr("Ctrl+Del"))},
                             [this] { m_table->removeRow(m_view->currentIndex().row()); });
    QAction* up = action(tr("Move Row &Up"), {QKeySequence(tr("Ctrl+Shift+Up"))},
                         [this] { goTo(m_table->moveRow(m_view->currentIndex(), -1)); });
    QAction* down = action(tr("Move Row &Down"), {QKeySequence(tr("Ctrl+Shift+Down"))},
                           [this] { goTo(m_table->moveRow(m_view->currentIndex(), 1)); });
    QAction* columns = action(tr("&Arrange in Columns..."), {QKeySequence(tr("Ctrl+R"))}, [this] { arrange(); });
    add->setIcon(icon(QStyle::SP_FileDialogDetailedView));
    m_rowActions << add << remove << up << down << columns;
    m_chiefActions << add;
}

void GroupEditor::goTo(const QModelIndex& cell) {
    m_view->setCurrentIndex(cell);
}

void GroupEditor::finishEditing() {
    m_view->setFocus();
}

void GroupEditor::addVariable() {
    const QModelIndex cell = m_table->draftVariable(m_view->currentIndex());
    goTo(cell);
    m_view->edit(cell);
}

void GroupEditor::addRow() {
    const QModelIndex current = m_view->currentIndex();
    const QModelIndex cell = m_table->draftRow(current.isValid() ? current.row() : m_table->rowCount());
    goTo(cell);
    m_view->edit(cell);
}

void GroupEditor::move(int rows, int columns) {
    goTo(m_table->moveVariable(m_view->currentIndex(), rows, columns));
}

void GroupEditor::arrange() {
    bool accepted = false;
    const int columns =
        QInputDialog::getInt(this, tr("Arrange in Columns"), tr("Number of columns:"),
                             qMax(1, m_table->columnCount() - 1), 1, qMax(1, m_table->variableCount()), 1, &accepted);
    if (accepted)
        m_table->arrange(columns);
}

void GroupEditor::copy() {
    QModelIndexList cells = m_view->selectionModel()->selectedIndexes();
    std::sort(cells.begin(), cells.end());
    QStringList names;
    for (const QModelIndex& cell : qAsConst(cells))
        if (m_table->hasVariable(cell))
            names.append(cell.data(Qt::EditRole).toString());
    if (!names.isEmpty())
        QApplication::clipboard()->setText(names.join(QLatin1Char('\n')));
}

void GroupEditor::paste() {
    const QStringList names = QApplication::clipboard()->text().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (!names.isEmpty())
        goTo(m_table->insertNames(m_view->currentIndex(), names));
}

void GroupEditor::open(const QString& path) {
    m_path = path;
    m_names.refresh();
    QFile file(path);
    QVector<GroupRemark> remarks;
    m_onDisk.clear();
    if (!path.isEmpty() && !file.open(QIODevice::ReadOnly) && QFileInfo::exists(path))
        remarks.append({0, tr("The file cannot be read: %1").arg(file.errorString())});
    if (file.isOpen())
        m_onDisk = file.readAll();
    m_table->load(groupState(readGroup(m_onDisk, &remarks)));
    showRemarks(remarks);
    goTo(m_table->index(0, 0));
    m_view->setFocus();
    emit modifiedChanged();
}

bool GroupEditor::save(const QString& path, QString* reason) {
    const QByteArray text = groupText(m_table->state());
    if (!saveGroup(path, text, reason))
        return false;
    m_path = path;
    m_onDisk = text;
    m_table->history()->setClean();
    showRemarks({});
    emit modifiedChanged();
    return true;
}

bool GroupEditor::isModified() const {
    return !m_table->history()->isClean();
}

void GroupEditor::discard() {
    m_table->history()->clear();
}

bool GroupEditor::changedOnDisk() const {
    return QFileInfo(m_path).isFile() && contentsOf(m_path) != m_onDisk;
}

void GroupEditor::showRemarks(const QVector<GroupRemark>& remarks) {
    m_remarks->clear();
    for (const GroupRemark& remark : remarks) {
        const QString text = remark.line > 0 ? tr("line %1: %2").arg(remark.line).arg(remark.text) : remark.text;
        new QListWidgetItem(icon(QStyle::SP_MessageBoxWarning), text, m_remarks);
    }
    m_remarksLabel->setText(tr("What is odd in the &file (%1):").arg(remarks.size()));
    m_remarksLabel->setVisible(!remarks.isEmpty());
    m_remarks->setVisible(!remarks.isEmpty());
}

void GroupEditor::tell() {
    const int rows = m_table->state().rows.size();
    const int variables = m_table->variableCount();
    QString summary = variables == 1 ? tr("1 variable") : tr("%1 variables").arg(variables);
    summary += rows == 1 ? tr(" in 1 row") : tr(" in %1 rows").arg(rows);
    QStringList missing = m_table->missingNames();
    missing.replaceInStrings(QRegularExpression(QStringLiteral("^$")), tr("(no name)"));
    if (!m_names.hasStore())
        summary += tr("; no store is running, so names are not checked");
    else if (!missing.isEmpty())
        summary += tr("; not in the store: %1").arg(missing.join(QStringLiteral(", ")));
    emit summaryChanged(summary);
}

void GroupEditor::lookAtStore() {
    if (m_names.refresh())
        m_table->namesChanged();
}

// Undoing in the title is undoing in the group: the line has no history of its own.
bool GroupEditor::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo))
            return true;
    }
    return QWidget::eventFilter(watched, event);
}

void GroupEditor::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    lookAtStore();
    startTimer(storePeriod);
}

void GroupEditor::timerEvent(QTimerEvent* event) {
    if (isVisible())
        lookAtStore();
    else
        killTimer(event->timerId());
}
