// An operator acts: holds a horn, switches, starts commands, with the mouse and the keys of a real screen. What the
// buttons have written is read off the screen again, and their display keeps its history where the test says.
#include <QSettings>
#include <QtTest>
#include <memory>

#include "paths.h"
#include "qttests.h"
#include "screen.h"
#include "settingsfolder.h"
#include "testcell.h"

namespace {

constexpr int patience = 30000;  // ms

constexpr auto cellFile = R"(
[cell]
name = "controls"
scan_ms = 20

[logical.HORN]
true_state = "SOUNDING"
false_state = "QUIET"

[logical.READY]
value = true
true_state = "ENABLED"
false_state = "LOCKED"

[logical.PUMP_ON]
true_state = "RUNNING"
false_state = "STOPPED"
)";

QString stateOf(const QString& widget) {
    return QStringLiteral("widget:.*/%1/value").arg(widget);
}

const QString hornButton = QStringLiteral("widget:.*/horn/qtSvgButton");
const QString pumpButton = QStringLiteral("widget:.*/pump/qtSvgButton");
const QString readySwitch = QStringLiteral("widget:.*/ready/qtSvgToggleSwitch");
const QString line = QStringLiteral("widget:.*/line/.*commandBox/.*");

}  // namespace

class ControlsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aHornSoundsWhileItIsHeld();
    void aHornIsQuietWhenItsDisplayIsClosed();
    void aHornIsQuietWhenItIsLocked();
    void aPressFlipsAndADoubleClickFlipsOnce();
    void keysWork();
    void theHistoryStandsInTheSettings();
    void theEventButtonLeavesTheForm();

private:
    bool openDisplay();
    QString settingsFile() const { return m_folder->filePath("settings/controls/line.conf"); }

    std::unique_ptr<TestCell> m_cell;
    std::unique_ptr<Screen> m_screen;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void ControlsTest::init() {
    m_cell = std::make_unique<TestCell>();
    m_cell->write(cellFile);
    QVERIFY(m_cell->start());
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_folder->path()).mkdir("settings"));
    QVERIFY(QFile::copy(QString(paths::sources) + "/tests/e2e/forms/controls.ui", m_folder->filePath("controls.ui")));
    m_screen = std::make_unique<Screen>();
    m_screen->setVariable("LD_PRELOAD", paths::settingsFolder);
    m_screen->setVariable(settingsFolderVariable, m_folder->filePath("settings"));
}

void ControlsTest::cleanup() {
    if (QTest::currentTestFailed())
        qInfo().noquote() << m_screen->toText();
    m_screen->release();
    m_screen.reset();
    m_folder.reset();
    m_cell.reset();
}

bool ControlsTest::openDisplay() {
    return m_screen->start(paths::display, {"--geometry", "420x620+40+40", m_folder->filePath("controls.ui")}) &&
           m_screen->says(stateOf("horn"), "QUIET") && m_screen->says(stateOf("ready"), "ENABLED|LOCKED");
}

void ControlsTest::aHornSoundsWhileItIsHeld() {
    QVERIFY(openDisplay());
    QVERIFY(m_screen->press(hornButton));
    QVERIFY(m_screen->says(stateOf("horn"), "SOUNDING"));
    // Slid off, the hand still holds it.
    QVERIFY(m_screen->pointAt(stateOf("pump")));
    QVERIFY(m_cell->set("PUMP_ON", "1"));
    QVERIFY(m_screen->says(stateOf("pump"), "RUNNING"));
    QVERIFY(m_screen->says(stateOf("horn"), "SOUNDING"));
    QVERIFY(m_screen->release());
    QVERIFY(m_screen->says(stateOf("horn"), "QUIET"));
}

void ControlsTest::aHornIsQuietWhenItsDisplayIsClosed() {
    QVERIFY(openDisplay());
    QVERIFY(m_screen->press(hornButton));
    QVERIFY(m_screen->says(stateOf("horn"), "SOUNDING"));
    QVERIFY(m_screen->key("ctrl+q"));
    QVERIFY(m_screen->endsWith(0));
    QVERIFY(m_screen->release());
    QVERIFY(openDisplay());
}

void ControlsTest::aHornIsQuietWhenItIsLocked() {
    QVERIFY(openDisplay());
    QVERIFY(m_screen->press(hornButton));
    QVERIFY(m_screen->says(stateOf("horn"), "SOUNDING"));
    QVERIFY(m_cell->set("READY", "0"));
    QVERIFY(m_screen->says(stateOf("horn"), "QUIET"));
    QVERIFY(m_screen->release());
    QVERIFY(m_screen->click(hornButton));
    // The state of a disabled button can still be flipped.
    QVERIFY(m_screen->click(stateOf("horn"), 1, 2));
    QVERIFY(m_screen->says(stateOf("horn"), "SOUNDING"));
}

void ControlsTest::aPressFlipsAndADoubleClickFlipsOnce() {
    QVERIFY(openDisplay());
    QVERIFY(m_screen->says(stateOf("pump"), "STOPPED"));
    QVERIFY(m_screen->click(pumpButton, 1, 2));
    QVERIFY(m_screen->says(stateOf("pump"), "RUNNING"));
    QVERIFY(m_screen->click(readySwitch));
    QVERIFY(m_screen->says(stateOf("ready"), "LOCKED"));
    QVERIFY(m_screen->says(stateOf("pump"), "RUNNING"));
}

void ControlsTest::keysWork() {
    QVERIFY(openDisplay());
    QVERIFY(m_screen->focus(readySwitch));
    QVERIFY(m_screen->says(stateOf("ready"), "LOCKED"));
    QVERIFY(m_screen->key("space"));
    QVERIFY(m_screen->says(stateOf("ready"), "ENABLED"));
    QVERIFY(m_screen->key("Return"));
    QVERIFY(m_screen->says(stateOf("ready"), "LOCKED"));
    QVERIFY(m_screen->key("shift+Tab"));
    QVERIFY(m_screen->key("space"));
    QVERIFY(m_screen->says(stateOf("pump"), "RUNNING"));
}

// Ctrl+L brings the keys to the line, the command runs, and the next display of the form knows it.
void ControlsTest::theHistoryStandsInTheSettings() {
    const QString made = m_folder->filePath("made");
    QVERIFY(openDisplay());
    QVERIFY(m_screen->focus(readySwitch));
    QVERIFY(m_screen->key("ctrl+l"));
    QVERIFY(m_screen->type("touch " + made));
    QVERIFY(m_screen->key("Return"));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(made), patience);
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(settingsFile()), patience);
    QTRY_COMPARE_WITH_TIMEOUT(QSettings(settingsFile(), QSettings::IniFormat).value("CmdLineCombobox/item0").toString(),
                              "touch " + made, patience);
    QVERIFY(m_screen->key("ctrl+q"));
    QVERIFY(m_screen->endsWith(0));
    QVERIFY(QFile::remove(settingsFile()));

    // What is typed but has not ended, or nothing, is saved with the form.
    QSettings(settingsFile(), QSettings::IniFormat).setValue("CmdLineCombobox/item_count", 1);
    QSettings(settingsFile(), QSettings::IniFormat).setValue("CmdLineCombobox/item0", "true");
    QVERIFY(openDisplay());
    QVERIFY(QFile::remove(settingsFile()));
    QVERIFY(m_screen->activate("widget:.*storeField", "Controls.*"));
    QVERIFY(m_screen->key("ctrl+s"));
    QTRY_COMPARE_WITH_TIMEOUT(QSettings(settingsFile(), QSettings::IniFormat).value("CmdLineCombobox/item0").toString(),
                              QString("true"), patience);
}

// Kept: the click that closes the button does not yet close the display.
void ControlsTest::theEventButtonLeavesTheForm() {
    QVERIFY(openDisplay());
    QVERIFY(m_screen->click("button:Leave"));
    QVERIFY(m_screen->hides("button:Leave"));
    QVERIFY(m_screen->says(stateOf("horn"), "QUIET"));
    QVERIFY(m_screen->key("ctrl+q"));
    QVERIFY(m_screen->endsWith(0));
}

OSTREL_TEST(ControlsTest)
#include "controls_test.moc"
