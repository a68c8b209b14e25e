// What the push button and the toggle button have in common.
#include <functional>

#include "logicalbuttontest.h"
#include "qttests.h"
#include "readouttest.h"
#include "widgets/ZelToggleButton.h"
#include "widgets/zel_pushbutton.h"

namespace {

struct Kind {
    const char* name;
    std::function<OstrelBase*()> make;
    QString drawn;  // the name of the drawn button
    QString rows;   // of its name and its button
};

const QVector<Kind>& kinds() {
    static const QVector<Kind> all{
        {"ZelPushButton", [] { return new ZelPushButton; }, "qtSvgButton", "horizontalLayout horizontalLayout_2"},
        {"ZelToggleButton", [] { return new ZelToggleButton; }, "qtSvgToggleSwitch",
         "horizontalLayout_2 horizontalLayout"},
    };
    return all;
}

}  // namespace

class LogicalButtonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();

    void theirForm();
    void aNewButton();
    void nothingIsToldToTheFormWhileItIsMade();
    void theNameAndTheStateAreShown();
    void aTickShowsANewState();
    void aStateThatRestsTouchesNoLabel();
    void blanksAreNotShownButCompared();
    void anUnknownVariableShowsADash();
    void aVariableThatBecomesAnotherKindIsNotWritten();
    void theOrderOfAFirstBinding();

    void aClickWritesTheOppositeOfTheMoment();
    void whatIsWrittenShowsWithTheNextSample();
    void aRefusedWriteIsNotTold();
    void withoutItsVariableNothingIsWritten();
    void noLockStandsBefore();
    void aDoubleClickOnTheStateFlips();
    void otherEventsReachTheState();
    void aRemoteDisplayWritesNothing();
    void keysAndScreenReadersAreHeard();

    void theEnableVariableEnables();
    void anEmptyNameEnables();
    void anUnknownEnableVariableChangesNothing();
    void anEnableVariableOfAnotherKindChangesNothing_data();
    void anEnableVariableOfAnotherKindChangesNothing();
    void anEnableVariableThatTheStoreMovesIsFollowed();
    void anEnableVariableThatTheStoreTakesAwayIsLeft();
    void anEnableVariableThatComesLaterIsFound();
    void theEnableVariableInForceSurvivesAReconfiguration();
    void withoutAVariableTheEnableVariableIsNotFollowed();

    void theFontIsThatOfBothLabels();
    void theFormLearnsEachProperty();

private:
    Kind m_kind;
};

void LogicalButtonTest::initTestCase_data() {
    QTest::addColumn<int>("kind");
    for (int i = 0; i < kinds().size(); ++i)
        QTest::newRow(kinds()[i].name) << i;
}

void LogicalButtonTest::init() {
    QFETCH_GLOBAL(int, kind);
    m_kind = kinds()[kind];
    startAsHost();
    platform().logical("PUMP").value(1).states("RUNNING", "STOPPED");
    platform().logical("READY").value(1);
}

void LogicalButtonTest::theirForm() {
    const Operated panel(m_kind.make());
    QVERIFY(panel.widget->acceptDrops());
    const auto* column = panel.widget->layout();
    QCOMPARE(column->objectName(), QString("verticalLayout"));
    QCOMPARE(column->spacing(), 0);
    QCOMPARE(column->contentsMargins(), QMargins());
    const QStringList rows = m_kind.rows.split(' ');
    QCOMPARE(rowsOf(*column),
             QStringList({rows[0] + " - name iconLabel -", rows[1] + " - " + m_kind.drawn + " -", "value"}));
    for (const QLabel* label : {panel.name(), panel.value()}) {
        QCOMPARE(label->text(), QString("TextLabel"));
        QCOMPARE(label->textFormat(), Qt::PlainText);
        QCOMPARE(label->alignment(), Qt::AlignCenter);
        QCOMPARE(label->maximumHeight(), 30);
    }
    QCOMPARE(panel.widget->findChild<QLabel*>("iconLabel")->maximumSize(), QSize(16, 16));
}

void LogicalButtonTest::aNewButton() {
    const Operated panel(m_kind.make());
    QCOMPARE(panel.widget->getPreviousName(), QString("not_set"));
    QVERIFY(!panel.isMarkedMissing());
    QVERIFY(panel.button->isEnabled());
    QCOMPARE(panel.menu(), QStringList({"Change Variable", "Edit Properties", "Copy Variable Name",
                                        "Paste Variable Name", "Disable Widget"}));
}

void LogicalButtonTest::nothingIsToldToTheFormWhileItIsMade() {
    platform().forgetCalls();
    const std::unique_ptr<OstrelBase> made(m_kind.make());
    QCOMPARE(platform().calls({"cacheProperty", "cachePropertyFont"}), QStringList());
}

void LogicalButtonTest::theNameAndTheStateAreShown() {
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    QCOMPARE(panel.name()->text(), QString("PUMP"));
    QCOMPARE(panel.shown(), QString("RUNNING"));
    QVERIFY(panel.isSampled());
}

void LogicalButtonTest::aTickShowsANewState() {
    const auto pump = platform().logical("PUMP").value(1).states("RUNNING", "STOPPED");
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    pump.value(0);
    QCOMPARE(panel.shown(), QString("RUNNING"));
    panel.widget->ostrelTimerEvent(498);
    QCOMPARE(panel.shown(), QString("RUNNING"));
    panel.tick();
    QCOMPARE(panel.shown(), QString("STOPPED"));
}

void LogicalButtonTest::aStateThatRestsTouchesNoLabel() {
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    panel.value()->setText("scratched");
    panel.tick();
    QCOMPARE(panel.shown(), QString("scratched"));
}

void LogicalButtonTest::blanksAreNotShownButCompared() {
    const auto valve = platform().logical("VALVE").value(1).states("  OPEN ", "SHUT");
    Operated panel(m_kind.make());
    panel.widget->setName("VALVE");
    QCOMPARE(panel.shown(), QString("OPEN"));
    panel.value()->setText("scratched");
    valve.states("OPEN", "SHUT");
    panel.tick();
    QCOMPARE(panel.shown(), QString("OPEN"));
}

void LogicalButtonTest::anUnknownVariableShowsADash() {
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    for (const QString& gone : {QString("NOBODY"), QString("not_set")}) {
        panel.widget->setName(gone);
        QCOMPARE(panel.shown(), QString("-"));
        QCOMPARE(panel.name()->text(), gone);
        QCOMPARE(panel.isMarkedMissing(), gone == "NOBODY");
        QVERIFY(!panel.isSampled());
    }
    panel.widget->setName("PUMP");
    QCOMPARE(panel.shown(), QString("RUNNING"));
}

// The same name, in the place of which a reconfiguration puts a number.
void LogicalButtonTest::aVariableThatBecomesAnotherKindIsNotWritten() {
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    platform().remove("PUMP");
    const auto speed = platform().integer("PUMP").value(1500);
    panel.widget->globalConfigEvent(1, -1);
    panel.widget->globalConfigEvent(0, -1);
    QVERIFY(panel.widget->ptr());
    QCOMPARE(panel.shown(), QString("-"));
    panel.tick();
    panel.click();
    panel.doubleClickState();
    QCOMPARE(writes(), QStringList());
    QCOMPARE(speed->value, 1500);
}

void LogicalButtonTest::theOrderOfAFirstBinding() {
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    QCOMPARE(platform().calls().mid(0, 6),
             QStringList({"find_variable PUMP", "find_variable PUMP", "find_alias_label PUMP",
                          "find_alias_of_target PUMP", "find_variable PUMP", "get_vrbl_adr PUMP"}));
    QCOMPARE(platform().calls({"cacheProperty"}).first(),
             QStringLiteral("cacheProperty %1 button name PUMP loading").arg(QLatin1String(m_kind.name)));
}

// ---- Writing ----

void LogicalButtonTest::aClickWritesTheOppositeOfTheMoment() {
    const auto pump = platform().logical("PUMP").value(1);
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    panel.click();
    QCOMPARE(writes(), QStringList("set_logical_variable PUMP 0 0 null"));
    // Somebody else has written it since the last sample.
    pump.value(7);
    panel.click();
    QCOMPARE(writes(), QStringList({"set_logical_variable PUMP 0 0 null", "set_logical_variable PUMP 0 0 null"}));
    panel.click();
    QCOMPARE(writes().last(), QString("set_logical_variable PUMP 1 0 null"));
}

void LogicalButtonTest::whatIsWrittenShowsWithTheNextSample() {
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    panel.click();
    QCOMPARE(panel.shown(), QString("RUNNING"));
    panel.tick();
    QCOMPARE(panel.shown(), QString("STOPPED"));
}

void LogicalButtonTest::aRefusedWriteIsNotTold() {
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    platform().alwaysAnswer("set_logical_variable", -1);
    const DebugLines said;
    panel.click();
    panel.tick();
    QCOMPARE(writes().size(), 1);
    QCOMPARE(panel.shown(), QString("RUNNING"));
    QCOMPARE(said.lines(), QStringList());
    QVERIFY(!QApplication::activeModalWidget());
}

void LogicalButtonTest::withoutItsVariableNothingIsWritten() {
    Operated panel(m_kind.make());
    panel.widget->setName("not_set");
    panel.click();
    panel.doubleClickState();
    QCOMPARE(writes(), QStringList());
    QCOMPARE(panel.shown(), QString("-"));
    panel.widget->setName("PUMP");
    panel.widget->setName("NOBODY");
    panel.click();
    panel.doubleClickState();
    QCOMPARE(writes(), QStringList());
}

void LogicalButtonTest::noLockStandsBefore() {
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    panel.widget->setLockVariable(true);
    UserInterfaceLock = 1;
    panel.click();
    panel.doubleClickState();
    QCOMPARE(writes().size(), 2);
}

void LogicalButtonTest::aDoubleClickOnTheStateFlips() {
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    panel.doubleClickState();
    QCOMPARE(writes(), QStringList("set_logical_variable PUMP 0 0 null"));
    // The name and the place beside it are no field to write into.
    QTest::mouseDClick(panel.name(), Qt::LeftButton);
    QTest::mouseDClick(panel.widget, Qt::LeftButton);
    QCOMPARE(writes().size(), 1);
}

void LogicalButtonTest::otherEventsReachTheState() {
    Operated panel(m_kind.make());
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(2, 2), Qt::LeftButton, Qt::LeftButton, {});
    QVERIFY(!panel.widget->eventFilter(panel.value(), &press));
    QMouseEvent twice(QEvent::MouseButtonDblClick, QPointF(2, 2), Qt::LeftButton, Qt::LeftButton, {});
    QVERIFY(panel.widget->eventFilter(panel.value(), &twice));
    QVERIFY(!panel.widget->eventFilter(panel.name(), &twice));
}

void LogicalButtonTest::aRemoteDisplayWritesNothing() {
    RemoteDisplay = true;
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    QVERIFY(panel.widget->actions().isEmpty());
    panel.click();
    panel.doubleClickState();
    QTest::keyClick(panel.button, Qt::Key_Space);
    QCOMPARE(writes(), QStringList());
    panel.tick();
    QCOMPARE(panel.shown(), QString("RUNNING"));
}

void LogicalButtonTest::keysAndScreenReadersAreHeard() {
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    panel.button->setFocus();
    QTest::keyClick(panel.button, Qt::Key_Space);
    QCOMPARE(writes(), QStringList("set_logical_variable PUMP 0 0 null"));
    QTest::keyClick(panel.button, Qt::Key_Return);
    QCOMPARE(writes().size(), 2);
}

// ---- The enable variable ----

void LogicalButtonTest::theEnableVariableEnables() {
    const auto ready = platform().logical("READY").value(0);
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    panel.setEnableVariable("READY");
    QCOMPARE(panel.enableVariable(), QString("READY"));
    QVERIFY(!panel.button->isEnabled());
    QVERIFY(panel.widget->isEnabled());
    panel.click();
    QCOMPARE(writes(), QStringList());
    ready.value(-1);
    QVERIFY(!panel.button->isEnabled());
    panel.tick();
    QVERIFY(panel.button->isEnabled());
    ready.value(0);
    panel.tick();
    QVERIFY(!panel.button->isEnabled());
}

void LogicalButtonTest::anEmptyNameEnables() {
    platform().logical("READY").value(0);
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    panel.setEnableVariable("READY");
    platform().forgetCalls();
    panel.setEnableVariable("");
    QVERIFY(panel.button->isEnabled());
    QCOMPARE(panel.enableVariable(), QString());
    QCOMPARE(
        platform().calls(),
        QStringList(
            QStringLiteral("cacheProperty %1 button enableVariableName  loading").arg(QLatin1String(m_kind.name))));
    panel.tick();
    QVERIFY(panel.button->isEnabled());
}

void LogicalButtonTest::anUnknownEnableVariableChangesNothing() {
    const auto ready = platform().logical("READY").value(0);
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    const DebugLines debug;
    panel.setEnableVariable("NOBODY");
    QCOMPARE(debug.lines(), QStringList());
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(panel.button->isEnabled());
    QCOMPARE(panel.enableVariable(), QString("NOBODY"));
    panel.setEnableVariable("READY");
    QVERIFY(!panel.button->isEnabled());
    platform().forgetCalls();
    panel.setEnableVariable("NOBODY");
    QVERIFY(!panel.button->isEnabled());
    QCOMPARE(panel.enableVariable(), QString("NOBODY"));
    QCOMPARE(platform().calls(), QStringList("find_variable NOBODY"));
    // The former one stays in force.
    ready.value(1);
    panel.tick();
    QVERIFY(panel.button->isEnabled());
}

void LogicalButtonTest::anEnableVariableOfAnotherKindChangesNothing_data() {
    QTest::addColumn<QString>("label");
    for (const char* label : {"SPEED", "CYCLES", "TITLE", "SPEEDS:1", "STATES:1"})
        QTest::newRow(label) << QString(label);
}

void LogicalButtonTest::anEnableVariableOfAnotherKindChangesNothing() {
    QFETCH(QString, label);
    platform().real("SPEED").value(0);
    platform().integer("CYCLES").value(0);
    platform().string("TITLE").text("");
    platform().realArray("SPEEDS")[1].value = 0;
    platform().logicalArray("STATES")[1].value = 0;
    const auto ready = platform().logical("READY").value(0);
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    const DebugLines debug;
    panel.setEnableVariable(label);
    panel.tick();
    QVERIFY(panel.button->isEnabled());
    QCOMPARE(panel.enableVariable(), label);
    QCOMPARE(debug.lines(), QStringList());
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(
        platform().calls({"cacheProperty"}).last(),
        QStringLiteral("cacheProperty %1 button enableVariableName %2 loading").arg(QLatin1String(m_kind.name), label));
    // With one in force before, that one stays.
    panel.setEnableVariable("READY");
    panel.setEnableVariable(label);
    QVERIFY(!panel.button->isEnabled());
    ready.value(1);
    panel.tick();
    QVERIFY(panel.button->isEnabled());
}

void LogicalButtonTest::anEnableVariableThatTheStoreMovesIsFollowed() {
    const auto ready = platform().logical("READY").value(1);
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    panel.setEnableVariable("READY");
    platform().move("READY");
    ++platform().reconfiguration().generic_reconfig_count;
    ready.value(0);
    panel.tick();
    QVERIFY(!panel.button->isEnabled());
}

void LogicalButtonTest::anEnableVariableThatTheStoreTakesAwayIsLeft() {
    const auto ready = platform().logical("READY").value(1);
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    panel.setEnableVariable("READY");
    platform().remove("READY");
    ++platform().reconfiguration().generic_reconfig_count;
    // Its place is another variable's now.
    ready.value(0);
    panel.tick();
    QVERIFY(panel.button->isEnabled());
}

void LogicalButtonTest::anEnableVariableThatComesLaterIsFound() {
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    panel.setEnableVariable("LATER");
    panel.tick();
    QVERIFY(panel.button->isEnabled());
    platform().logical("LATER").value(0);
    panel.tick();
    QVERIFY(panel.button->isEnabled());
    ++platform().reconfiguration().generic_reconfig_count;
    panel.tick();
    QVERIFY(!panel.button->isEnabled());
}

// Under the name of one that the store does not know.
void LogicalButtonTest::theEnableVariableInForceSurvivesAReconfiguration() {
    const auto ready = platform().logical("READY").value(1);
    Operated panel(m_kind.make());
    panel.widget->setName("PUMP");
    panel.setEnableVariable("READY");
    panel.setEnableVariable("UNKNOWN");
    ++platform().reconfiguration().generic_reconfig_count;
    panel.tick();
    ready.value(0);
    panel.tick();
    QVERIFY(!panel.button->isEnabled());
}

void LogicalButtonTest::withoutAVariableTheEnableVariableIsNotFollowed() {
    const auto ready = platform().logical("READY").value(0);
    Operated panel(m_kind.make());
    panel.setEnableVariable("READY");
    QVERIFY(!panel.button->isEnabled());
    QVERIFY(!panel.isSampled());
    ready.value(1);
    QVERIFY(!panel.button->isEnabled());
}

// ---- What the form gives ----

void LogicalButtonTest::theFontIsThatOfBothLabels() {
    Operated panel(m_kind.make());
    QFont font("Courier");
    font.setPointSize(17);
    panel.widget->setProperty("nameFont", font);
    QCOMPARE(panel.name()->font().pointSize(), 17);
    QCOMPARE(panel.value()->font().pointSize(), 17);
    QCOMPARE(panel.widget->property("nameFont").value<QFont>().pointSize(), 17);
    QCOMPARE(
        platform().calls(),
        QStringList(
            QStringLiteral("cachePropertyFont %1 button nameFont Courier loading").arg(QLatin1String(m_kind.name))));
}

void LogicalButtonTest::theFormLearnsEachProperty() {
    Operated panel(m_kind.make());
    panel.finishLoading();
    panel.widget->setProperty("btnType", 1 - panel.widget->property("btnType").toInt());
    panel.widget->setProperty("toolTip", "tip");
    panel.setEnableVariable("READY");
    panel.widget->setProperty("nameFont", QFont("Courier"));
    panel.widget->setProperty("sampleRate", 500);
    panel.widget->setProperty("displayAlias", false);
    QStringList told;
    for (const QString& line : platform().calls({"cacheProperty", "cachePropertyFont"}))
        told << line.section(' ', 3, 3) + ' ' + line.section(' ', -1);
    QCOMPARE(told, QStringList({"btnType changed", "toolTip changed", "enableVariableName changed", "nameFont changed",
                                "sampleRate changed", "displayAlias changed"}));
}

OSTREL_TEST(LogicalButtonTest)
#include "logicalbutton_test.moc"
