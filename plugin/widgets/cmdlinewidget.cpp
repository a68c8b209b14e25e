#include "widgets/cmdlinewidget.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSet>
#include <QSettings>
#include <algorithm>

#include "hostlink/globals.h"
#include "ui_cmdlinewidget.h"
#include "widgets/commandlauncher.h"

namespace {

// What is kept of one command line of one display.
class HistoryFile {
public:
    explicit HistoryFile(const QString& commandLine) : m_settings(open(commandLine)) {
        m_settings->beginGroup(QStringLiteral("CmdLineCombobox"));
    }

    // At most the ten first.
    QStringList read() const {
        constexpr int mostRead = 10;
        const int count = std::min(m_settings->value(countKey(), 0).toInt(), mostRead);
        QStringList lines;
        for (int i = 0; i < count; ++i)
            lines.append(m_settings->value(itemKey(i), QString()).toString());
        return lines;
    }

    // Kept: the lines go out in the order of the set, and lines of a longer history before stay behind the last.
    void write(const QSet<QString>& lines) {
        m_settings->setValue(countKey(), lines.size());
        int i = 0;
        for (const QString& line : lines)
            m_settings->setValue(itemKey(i++), line);
    }

private:
    static std::unique_ptr<QSettings> open(const QString& commandLine) {
        QSettings::setPath(QSettings::NativeFormat, QSettings::SystemScope, QStringLiteral("/specs/qt"));
        return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::SystemScope,
                                           QString::fromUtf8(OperatorDisplayDir), commandLine);
    }
    static QString countKey() { return QStringLiteral("item_count"); }
    static QString itemKey(int i) { return QStringLiteral("item%1").arg(i); }

    std::unique_ptr<QSettings> m_settings;
};

}  // namespace

ZelCmdLine::ZelCmdLine(QWidget* parent) : OstrelBase(parent), ui(std::make_unique<Ui::CmdLine>()) {
    ui->setupUi(this);
    className = QStringLiteral("ZelCmdLine");
    if (!RemoteDisplay) {
        connect(ui->commandBox->lineEdit(), &QLineEdit::returnPressed, this, &ZelCmdLine::onReturnPressed);
        connect(ui->executeButton, &QPushButton::clicked, this, &ZelCmdLine::onExecutePressed);
        ui->commandBox->installEventFilter(this);
    }
    setFocusPolicy(Qt::StrongFocus);
    setFocus(Qt::OtherFocusReason);
    // Kept: the blank line stays, above what is loaded.
    ui->commandBox->addItem(QString());
    // As a property: there is no other way left to switch it off for good.
    ui->commandBox->setProperty("autoCompletion", false);
    // None of them makes sense without a variable. A remote display has none of them.
    if (!RemoteDisplay)
        for (QAction* action :
             {changeUnitsAction, changeVariableAction, copyVariableName, pasteVariableName, disableAction})
            removeAction(action);
}

ZelCmdLine::~ZelCmdLine() = default;

void ZelCmdLine::setName(const QString&) {}

void ZelCmdLine::ostrelTimerEvent(int) {}

// By the names of the display's signals: its object is known by nothing else.
void ZelCmdLine::connectToDisplay(bool isOn, const char* signal, const char* slot) {
    if (!runQtUIWindow)
        return;
    if (isOn)
        connect(runQtUIWindow, signal, this, slot);
    else
        disconnect(runQtUIWindow, signal, this, slot);
}

void ZelCmdLine::setShortcutEnabled(const bool& enabled) {
    m_shortcutEnabled = enabled;
    connectToDisplay(enabled, SIGNAL(ctrlLPressed()), SLOT(setComboBoxFocus()));
    remember("shortcutEnabled", enabled);
}

void ZelCmdLine::setSaveHistory(const bool& save) {
    m_saveHistory = save;
    connectToDisplay(save, SIGNAL(saveConfig()), SLOT(writeSettings()));
    if (runQtUIWindow && save)
        readSettings();
    remember("saveHistory", save);
}

void ZelCmdLine::setComboBoxFocus() {
    ui->commandBox->setFocus(Qt::OtherFocusReason);
}

void ZelCmdLine::onReturnPressed() {
    QLineEdit* edit = ui->commandBox->lineEdit();
    const QStringList pieces = commandPieces(edit->text());
    for (int i = 0; i < pieces.size(); ++i) {
        const QStringList words = commandWords(pieces[i]);
        BUTTON_ARGS vector;
        if (!words.isEmpty() && fillArguments(words, &vector) == Allocated::All)
            tellWhenFinished(startCommand(vector, Child::AllAwaited), i, this, SLOT(futureFinished()));
    }
    if (!history.contains(edit->text()))
        history.prepend(edit->text());
    edit->clear();
    historyPos = -1;
}

// The combo box inserts by itself what is entered with Enter.
void ZelCmdLine::onExecutePressed() {
    const QString line = ui->commandBox->lineEdit()->text().trimmed();
    if (line.isEmpty())
        return;
    // Kept: the box is asked nothing, so that a line may stand in it twice.
    if (!history.contains(line))
        ui->commandBox->insertItem(0, line);
    onReturnPressed();
}

void ZelCmdLine::futureFinished() {
    if (m_saveHistory)
        writeSettings();
}

void ZelCmdLine::writeSettings() {
    QSet<QString> lines;
    for (int i = 0; i < ui->commandBox->count(); ++i)
        if (!ui->commandBox->itemText(i).isEmpty())
            lines.insert(ui->commandBox->itemText(i));
    HistoryFile(objectName()).write(lines);
}

void ZelCmdLine::readSettings() {
    QSet<QString> known;
    for (const QString& line : HistoryFile(objectName()).read()) {
        if (known.contains(line))
            continue;
        known.insert(line);
        ui->commandBox->insertItem(ui->commandBox->count(), line);
        history.append(line);
    }
}

bool ZelCmdLine::eventFilter(QObject* obj, QEvent* event) {
    if (obj != ui->commandBox)
        return OstrelBase::eventFilter(obj, event);
    if (event->type() != QEvent::KeyPress || history.isEmpty())
        return false;
    switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Up:
            browse(+1);
            return true;
        case Qt::Key_Down:
            browse(-1);
            return true;
        default:
            return false;
    }
}

// Kept: the rows of the box are shown, as many as the history has lines, though the two differ.
void ZelCmdLine::browse(int step) {
    const int next = historyPos + step;
    if (step > 0 && next >= history.size())
        return;
    historyPos = std::max(next, -1);
    ui->commandBox->setCurrentIndex(historyPos < 0 ? ui->commandBox->count() - 1 : historyPos);
}
