// An operator changes a form while the engine runs: with the mouse and the keys, from the menu to the saved file, and
// what others make of the file afterwards.
#include <QtTest>
#include <memory>

#include "paths.h"
#include "qttests.h"
#include "screen.h"
#include "testcell.h"

namespace {

constexpr int patience = 30000;  // ms

const QString mainWindow = QStringLiteral("Engine.*");
const QString changesField = QStringLiteral("widget:.*changesField");
const QString variableBox = QStringLiteral("widget:.*variableComboBox");

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString widget(const QString& name) {
    return QStringLiteral("widget:.*/") + name;
}

QString valueOf(const QString& name) {
    return QStringLiteral("widget:.*/%1/.*value").arg(name);
}

}  // namespace

class FormEditingTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void changesOfAnOperatorEndUpInTheFormAlone();
    void changesOfAKilledDisplayAreOfferedAndComeBack();
    void numberOfChangesIsLegibleInANarrowWindow();

private:
    bool openDisplay(const QString& size = "400x300");
    bool chooseFromMenu(const QString& name, const QString& entry);
    bool changeVariable(const QString& name, const QString& typed, const QString& chosen);
    bool changeNameFont(const QString& name, const QString& size);
    bool save();
    bool hasBothChanges(const Screen& screen);
    QStringList leftBeside() const;

    std::unique_ptr<TestCell> m_cell;
    std::unique_ptr<Screen> m_screen;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_form;
    QByteArray m_original;
};

void FormEditingTest::init() {
    m_cell = std::make_unique<TestCell>();
    QVERIFY(m_cell->start());
    m_folder = std::make_unique<QTemporaryDir>();
    m_form = m_folder->filePath("engine.ui");
    m_original = contentOf(QString(paths::sources) + "/tests/e2e/forms/engine.ui");
    QVERIFY(QFile::copy(QString(paths::sources) + "/tests/e2e/forms/engine.ui", m_form));
    m_screen = std::make_unique<Screen>();
}

void FormEditingTest::cleanup() {
    if (QTest::currentTestFailed())
        qInfo().noquote() << m_screen->toText();
    m_screen.reset();
    m_folder.reset();
    m_cell.reset();
}

bool FormEditingTest::openDisplay(const QString& size) {
    return m_screen->start(paths::display, {"--geometry", size + "+40+40", m_form});
}

bool FormEditingTest::chooseFromMenu(const QString& name, const QString& entry) {
    return m_screen->click(valueOf(name), 3) && m_screen->click("action:" + entry);
}

// Types the beginning and takes the name from the list that comes up.
bool FormEditingTest::changeVariable(const QString& name, const QString& typed, const QString& chosen) {
    return chooseFromMenu(name, "Change Variable") && m_screen->shows("window:Variable Selection") &&
           m_screen->focus(variableBox) && m_screen->key("ctrl+a") && m_screen->type(typed) &&
           m_screen->click("cell:" + chosen + ":0") && m_screen->says("widget:.*variableComboBox", chosen) &&
           m_screen->click("button:Ok") && m_screen->hides("window:Variable Selection");
}

bool FormEditingTest::changeNameFont(const QString& name, const QString& size) {
    return chooseFromMenu(name, "Edit Properties") && m_screen->shows("window:Edit Properties:") &&
           m_screen->activate("cell:nameFont:0", "Edit Properties:") && m_screen->key("Right") &&
           m_screen->click("cell:Point Size:1") && m_screen->key("ctrl+a") && m_screen->type(size) &&
           m_screen->key("Return") && m_screen->says("cell:Point Size:1", size) && m_screen->click("button:Close") &&
           m_screen->hides("window:Edit Properties:");
}

bool FormEditingTest::save() {
    return m_screen->activate("widget:.*storeField", mainWindow) && m_screen->key("ctrl+s") &&
           m_screen->hides(changesField);
}

QStringList FormEditingTest::leftBeside() const {
    return QDir(m_folder->path()).entryList({".engine.ui.unsaved-*"}, QDir::Files | QDir::Hidden);
}

bool FormEditingTest::hasBothChanges(const Screen& screen) {
    return QTest::qWaitFor(
        [&] {
            const QJsonObject speed = screen.seen(widget("speed"));
            return speed["name"] == "OIL_TEMP" && speed["nameFontSize"] == 17;
        },
        patience);
}

void FormEditingTest::changesOfAnOperatorEndUpInTheFormAlone() {
    QVERIFY(openDisplay());
    QVERIFY(m_screen->says(valueOf("speed"), "1500.2"));
    QVERIFY(changeVariable("speed", "OIL", "OIL_TEMP"));
    QVERIFY(m_screen->says(valueOf("speed"), "100.0"));
    QVERIFY(m_screen->says(changesField, "1 unsaved change"));
    QVERIFY(changeNameFont("speed", "17"));
    QVERIFY(m_screen->says(changesField, "2 unsaved changes"));
    QCOMPARE(contentOf(m_form), m_original);
    QVERIFY(save());
    QVERIFY(m_screen->key("ctrl+q"));
    QVERIFY(m_screen->endsWith(0));
    QByteArray expected = m_original;
    expected.replace("ENGINE_SPEED", "OIL_TEMP");
    expected.replace("<pointsize>11</pointsize>", "<pointsize>17</pointsize>");
    QCOMPARE(contentOf(m_form), expected);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList("engine.ui"));

    QVERIFY(openDisplay());
    QVERIFY(m_screen->says(valueOf("speed"), "100.0"));
    QVERIFY(hasBothChanges(*m_screen));
    QVERIFY(m_screen->hides(changesField));
    Screen designer;
    QVERIFY(designer.install(paths::plugin));
    QVERIFY(designer.start(paths::designer, {m_form}));
    QVERIFY2(hasBothChanges(designer), qPrintable(designer.toText()));
}

void FormEditingTest::changesOfAKilledDisplayAreOfferedAndComeBack() {
    QVERIFY(openDisplay());
    QVERIFY(m_screen->says(valueOf("speed"), "1500.2"));
    QVERIFY(changeVariable("speed", "OIL", "OIL_TEMP"));
    QVERIFY(QTest::qWaitFor([&] { return leftBeside().size() == 1; }, patience));
    m_screen->kill();
    QCOMPARE(contentOf(m_form), m_original);
    QCOMPARE(leftBeside().size(), 1);

    QVERIFY(openDisplay());
    QVERIFY(
        m_screen->says("widget:recoveryQuestion/qt_msgbox_label", "Restore the unsaved changes to \"engine\\.ui\"\\?"));
    QVERIFY(m_screen->click("button:Restore"));
    QVERIFY(m_screen->says(valueOf("speed"), "100.0"));
    QVERIFY(m_screen->says(changesField, "1 unsaved change"));
    QCOMPARE(contentOf(m_form), m_original);
    QVERIFY(save());
    QCOMPARE(contentOf(m_form), QByteArray(m_original).replace("ENGINE_SPEED", "OIL_TEMP"));
    QVERIFY(leftBeside().isEmpty());
}

void FormEditingTest::numberOfChangesIsLegibleInANarrowWindow() {
    QVERIFY(openDisplay("220x260"));
    QVERIFY(m_screen->says(valueOf("speed"), "1500.2"));
    QVERIFY(chooseFromMenu("speed", "Disable Widget"));
    QVERIFY(m_screen->says(changesField, "1 unsaved change"));
    QVERIFY(m_screen->showsWhole(changesField));
}

OSTREL_TEST_WITHOUT_SCREEN(FormEditingTest)
#include "formediting_test.moc"
