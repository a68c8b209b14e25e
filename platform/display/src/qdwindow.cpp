#include "ostrel-display/qdwindow.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>

#include "groupeditor.h"

QDWindow::QDWindow(QWidget* parent) : QMainWindow(parent), m_editor(new GroupEditor(this)) {
    setCentralWidget(m_editor);
    addActions();
    auto* summary = new QLabel;
    summary->setObjectName(QStringLiteral("summary"));
    statusBar()->addWidget(summary, 1);
    connect(m_editor, &GroupEditor::summaryChanged, summary, &QLabel::setText);
    connect(m_editor, &GroupEditor::modifiedChanged, this, &QDWindow::tellTitle);
    resize(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 34);
}

QDWindow::~QDWindow() = default;

void QDWindow::addActions() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    QAction* open = file->addAction(style()->standardIcon(QStyle::SP_DialogOpenButton), tr("&Open..."), this,
                                    &QDWindow::openFile, QKeySequence::Open);
    QAction* save = file->addAction(style()->standardIcon(QStyle::SP_DialogSaveButton), tr("&Save"), this,
                                    &QDWindow::saveFile, QKeySequence::Save);
    file->addAction(tr("Save &As..."), this, &QDWindow::saveFileAs, QKeySequence(tr("Ctrl+Shift+S")));
    file->addSeparator();
    QAction* close = file->addAction(
        style()->standardIcon(QStyle::SP_DialogCloseButton), tr("&Close"), this, [this] { QWidget::close(); },
        QKeySequence(tr("Ctrl+W")));
    menuBar()->addMenu(tr("&Edit"))->addActions(m_editor->editActions());
    menuBar()->addMenu(tr("&Row"))->addActions(m_editor->rowActions());

    QToolBar* bar = addToolBar(tr("Chief actions"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->addActions({open, save});
    bar->addSeparator();
    bar->addActions(m_editor->chiefActions());
    bar->addSeparator();
    bar->addAction(close);
}

void QDWindow::show(QString fileName) {
    if (isVisible() && !mayLeave())
        return;
    m_editor->open(fileName);
    QMainWindow::show();
    raise();
    activateWindow();
}

void QDWindow::tellTitle() {
    const QString path = m_editor->path();
    setWindowTitle(tr("%1[*] - Group").arg(path.isEmpty() ? tr("New group") : QFileInfo(path).fileName()));
    setWindowModified(m_editor->isModified());
}

void QDWindow::openFile() {
    if (!mayLeave())
        return;
    const QString path = QFileDialog::getOpenFileName(this, tr("Open a Group"), QFileInfo(m_editor->path()).path());
    if (!path.isEmpty())
        m_editor->open(path);
}

bool QDWindow::saveFile() {
    m_editor->finishEditing();
    if (m_editor->path().isEmpty())
        return saveFileAs();
    if (!maySave())
        return false;
    QString reason;
    if (m_editor->save(m_editor->path(), &reason))
        return true;
    QMessageBox::warning(this, tr("Group"), tr("%1 cannot be saved: %2").arg(m_editor->path(), reason));
    return false;
}

bool QDWindow::saveFileAs() {
    m_editor->finishEditing();
    const QString path = QFileDialog::getSaveFileName(this, tr("Save the Group"), m_editor->path());
    if (path.isEmpty())
        return false;
    QString reason;
    if (m_editor->save(path, &reason))
        return true;
    QMessageBox::warning(this, tr("Group"), tr("%1 cannot be saved: %2").arg(path, reason));
    return false;
}

// A display writes the file too, when an operator gave a read-out of the group another variable.
bool QDWindow::maySave() {
    if (!m_editor->changedOnDisk())
        return true;
    return QMessageBox::question(this, tr("Group"),
                                 tr("%1 was changed by another program since it was opened here.\n\n"
                                    "Save anyway and lose that change?")
                                     .arg(m_editor->path()),
                                 QMessageBox::Save | QMessageBox::Cancel) == QMessageBox::Save;
}

bool QDWindow::mayLeave() {
    m_editor->finishEditing();
    if (!m_editor->isModified())
        return true;
    const auto answer = QMessageBox::question(this, tr("Group"), tr("Save the changes of this group?"),
                                              QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    if (answer == QMessageBox::Save)
        return saveFile();
    return answer == QMessageBox::Discard;
}

void QDWindow::closeEvent(QCloseEvent* event) {
    if (!isVisible())
        return;
    if (!mayLeave()) {
        event->ignore();
        return;
    }
    m_editor->discard();
    QMainWindow::closeEvent(event);
    emit closed(m_editor->path());
}
