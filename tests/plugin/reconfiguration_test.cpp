// What bound widgets do while the store is reconfigured, told by the thread or noticed while sampling.
#include <ostrel/events.h>

#include <memory>

#include "core/glostrelbase.h"
#include "fabric/ostrel_event_moderator.h"
#include "fabric/ostrelgblreconfigevent.h"
#include "fabric/ostrelvariabledatainput.h"
#include "plugintest.h"
#include "qttests.h"
#include "widgets/zel_value.h"

namespace {

class GLListener : public GLOstrelBase {
    Q_OBJECT

public:
    void ostrelTimerEvent(int) override {}
    int phases = 0;

public Q_SLOTS:
    void globalConfigEvent(short, short) { ++phases; }
};

class Feeder : public OstrelVariableDataInput {
    Q_OBJECT

public:
    int phases = 0;

public Q_SLOTS:
    void globalConfigEvent(short, short) { ++phases; }
};

constexpr auto allAreas = static_cast<SM_AREA_ID>(-1);

QByteArray payload(unsigned int state, int area) {
    GLOBAL_CONFIG_EVENT event{};
    event.new_state = state;
    event.memcode = static_cast<SM_AREA_ID>(area);
    return QByteArray(reinterpret_cast<const char*>(&event), sizeof(event));
}

QString shownValue(const ZelValue& widget) {
    return widget.findChild<QWidget*>("value")->property("text").toString();
}

QWidget* mark(const ZelValue& widget) {
    return widget.findChild<QWidget*>("iconLabel");
}

}  // namespace

class ReconfigurationTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theThreadAttachesWhenTheStoreIsReady();
    void aStartIsReportedForTheThreadsAreasOnly();
    void anEndIsReportedForAnyArea();
    void aStartBeyondTheLastAreaIsDropped();
    void otherStatesAreNoPhases();
    void aSubscriberAddsItsAreaAndTheAliases();
    void aSubscriberOfAllAreasAddsThemAll();
    void aWidgetWithOpenGlDoesNotAddTheAliases();
    void aDataInputIsConnectedOnce();
    void nothingReachesADesigner();
    void failingWaitsAreLoggedOnTheSeventh();

    void aStartConcernsAWidget_data();
    void aStartConcernsAWidget();
    void anEndWithoutAStartOnlyMarksTheCatalogue();
    void otherStatesDoNothingToAWidget();
    void theCounterIsPolledWhileSampling();
    void anEndBindsByTheVariablesOwnName();

    void aValueStandsStillDuringAReconfiguration();
    void aVariableThatVanishedIsMarkedAndComesBack();
    void aVariableThatCameBackKeepsTheUnitsAskedFor();
    void aVariableThatCameBackUnderItsAliasKeepsThemToo();
    void aVariableThatMovedIsFollowed();
    void aBoundWidgetFollowsTheToldStepsAlone();

private:
    void start(SM_AREA_ID area);
    bool isWaiting() const { return platform().events().threadsWaiting("config") == 1; }
    void raise(unsigned int state, int area) { platform().events().raise("config", payload(state, area)); }

    std::unique_ptr<OstrelGblConfigEvent> m_thread;
    QStringList m_phases;  // as the thread told them
};

void ReconfigurationTest::init() {
    startAsHost();
    Ostrel_Plugins_Master_variables_dirty = false;
    platform().reconfiguration().generic_reconfig_count = 0;
}

// Makes the thread as a host does.
void ReconfigurationTest::start(SM_AREA_ID area) {
    m_phases.clear();
    m_thread = std::make_unique<OstrelGblConfigEvent>(area, nullptr);
    connect(m_thread.get(), &OstrelGblConfigEvent::gblConfigEvent, this,
            [this](short state, short code) { m_phases.append(QStringLiteral("%1 %2").arg(state).arg(code)); });
    m_thread->start();
}

// Ends the thread of the case, so that the next one is alone with the event.
void ReconfigurationTest::cleanup() {
    if (!m_thread)
        return;
    InitializationDone = true;
    QVector<OstrelGblConfigEvent*> threads{m_thread.get()};
    OstrelEventModerator::gblCfgEvents = &threads;
    OstrelEventModerator::shutDown();
    OstrelEventModerator::gblCfgEvents = nullptr;
    raise(7, 0);
    QVERIFY(m_thread->wait(5000));
    m_thread.reset();
}

void ReconfigurationTest::theThreadAttachesWhenTheStoreIsReady() {
    InitializationDone = false;
    start(allAreas);
    QTRY_VERIFY(m_thread->isRunning());
    QVERIFY(!m_thread->wait(250));
    QCOMPARE(platform().threadCalls(), QStringList());
    InitializationDone = true;
    QTRY_VERIFY(isWaiting());
    QCOMPARE(platform().threadCalls(), QStringList({"event_attach config 1", "event_wait 40"}));
}

void ReconfigurationTest::aStartIsReportedForTheThreadsAreasOnly() {
    start(GU_REAL_MEM);
    QTRY_VERIFY(isWaiting());
    raise(1, GU_INTEGER_MEM);
    raise(1, GU_REAL_MEM);
    raise(1, -1);
    QTRY_COMPARE(m_phases, QStringList({"1 54", "1 -1"}));
}

void ReconfigurationTest::anEndIsReportedForAnyArea() {
    start(GU_REAL_MEM);
    QTRY_VERIFY(isWaiting());
    raise(0, GU_INTEGER_MEM);
    raise(0, 300);
    QTRY_COMPARE(m_phases, QStringList({"0 55", "0 300"}));
}

void ReconfigurationTest::aStartBeyondTheLastAreaIsDropped() {
    start(allAreas);
    QTRY_VERIFY(isWaiting());
    for (int area : {-2, 85, 3000, 84, 0})
        raise(1, area);
    QTRY_COMPARE(m_phases, QStringList({"1 84", "1 0"}));
}

void ReconfigurationTest::otherStatesAreNoPhases() {
    start(allAreas);
    QTRY_VERIFY(isWaiting());
    raise(2, -1);
    raise(0, -1);
    QTRY_COMPARE(m_phases, QStringList({"0 -1"}));
}

void ReconfigurationTest::aSubscriberAddsItsAreaAndTheAliases() {
    start(UNDEFINED);
    Probe widget;
    m_thread->addCallGRC(&widget, GU_STRING_MEM);
    QTRY_VERIFY(isWaiting());
    for (int area : {GU_REAL_MEM, GU_STRING_MEM, ALIAS_MEM})
        raise(1, area);
    QTRY_COMPARE(m_phases, QStringList({"1 57", "1 63"}));
    QTRY_VERIFY(widget.cfg_in_progress());
    QVERIFY(m_thread->hasPlugin(&widget));
}

void ReconfigurationTest::aSubscriberOfAllAreasAddsThemAll() {
    start(UNDEFINED);
    m_thread->addCallGRC(static_cast<OstrelBase*>(nullptr), GU_REAL_MEM);
    Probe widget;
    m_thread->addCallGRC(static_cast<QWidget*>(&widget), allAreas);
    QTRY_VERIFY(isWaiting());
    for (int area : {GU_REAL_MEM, DP_STAT_MEM, ALIAS_MEM})
        raise(1, area);
    QTRY_COMPARE(m_phases, QStringList({"1 54", "1 70", "1 63"}));
    QTRY_VERIFY(widget.cfg_in_progress());
}

void ReconfigurationTest::aWidgetWithOpenGlDoesNotAddTheAliases() {
    start(UNDEFINED);
    GLListener widget;
    m_thread->addCallGRC(&widget, GU_REAL_MEM);
    QTRY_VERIFY(isWaiting());
    raise(1, ALIAS_MEM);
    raise(1, GU_REAL_MEM);
    QTRY_COMPARE(m_phases, QStringList({"1 54"}));
    QTRY_COMPARE(widget.phases, 1);
}

void ReconfigurationTest::aDataInputIsConnectedOnce() {
    start(UNDEFINED);
    Feeder once;
    m_thread->addCallGRC(&once, GU_REAL_MEM);
    m_thread->addCallGRC(&once, GU_INTEGER_MEM);
    GLListener twice;
    m_thread->addCallGRC(&twice, GU_REAL_MEM);
    m_thread->addCallGRC(&twice, GU_REAL_MEM);
    QTRY_VERIFY(isWaiting());
    for (int area : {GU_INTEGER_MEM, ALIAS_MEM})
        raise(1, area);
    QTRY_COMPARE(m_phases.size(), 2);
    QTRY_COMPARE(twice.phases, 4);
    QCOMPARE(once.phases, 2);
}

void ReconfigurationTest::nothingReachesADesigner() {
    inDesigner = true;
    start(allAreas);
    QTRY_VERIFY(isWaiting());
    raise(1, -1);
    QTRY_VERIFY(isWaiting());
    inDesigner = false;
    raise(0, -1);
    QTRY_COMPARE(m_phases, QStringList({"0 -1"}));
}

void ReconfigurationTest::failingWaitsAreLoggedOnTheSeventh() {
    start(allAreas);
    QTRY_VERIFY(isWaiting());
    const DebugLines debug;
    platform().events().failWaits("config", {-17, -17, -17, -17, -17, -17, -18});
    QTRY_VERIFY(isWaiting());
    const QStringList logged{"log_error ostrelgblreconfigevent.cpp 66 1 -18 received -18 while waiting for event"};
    QCOMPARE(platform().threadCalls({"log_error"}), logged);
    platform().events().failWaits("config", QVector<int>(7, OSTREL_EVENT_QUIET));
    QTRY_VERIFY(isWaiting());
    QCOMPARE(platform().threadCalls({"log_error"}), logged);
    QCOMPARE(debug.lines(), QStringList());
}

void ReconfigurationTest::aStartConcernsAWidget_data() {
    QTest::addColumn<int>("own");
    QTest::addColumn<int>("started");
    QTest::addColumn<bool>("concerned");
    QTest::newRow("its own area") << int{GU_REAL_MEM} << int{GU_REAL_MEM} << true;
    QTest::newRow("another area") << int{GU_REAL_MEM} << int{GU_INTEGER_MEM} << false;
    QTest::newRow("the aliases") << int{GU_REAL_MEM} << int{ALIAS_MEM} << true;
    QTest::newRow("all areas") << int{GU_REAL_MEM} << -1 << true;
    QTest::newRow("unbound, any area") << 0 << int{GU_INTEGER_MEM} << true;
    QTest::newRow("missing, any area") << -1 << int{GU_INTEGER_MEM} << false;
    QTest::newRow("missing, the aliases") << -1 << int{ALIAS_MEM} << true;
    QTest::newRow("missing, all areas") << -1 << -1 << true;
}

void ReconfigurationTest::aStartConcernsAWidget() {
    QFETCH(int, own);
    QFETCH(int, started);
    QFETCH(bool, concerned);
    Probe widget;
    widget._mem.code = static_cast<SM_AREA_ID>(own);
    widget.globalConfigEvent(1, static_cast<short>(started));
    QCOMPARE(widget.cfg_in_progress(), concerned);
    QVERIFY(!Ostrel_Plugins_Master_variables_dirty);
}

void ReconfigurationTest::anEndWithoutAStartOnlyMarksTheCatalogue() {
    platform().real("SPEED");
    Probe widget;
    widget.setName("SPEED");
    platform().remove("SPEED");
    platform().forgetCalls();
    widget.names.clear();
    widget.globalConfigEvent(0, GU_REAL_MEM);
    QVERIFY(Ostrel_Plugins_Master_variables_dirty);
    QCOMPARE(widget.names, QStringList());
    QCOMPARE(platform().calls(), QStringList());
    QVERIFY(widget.ptr());
}

void ReconfigurationTest::otherStatesDoNothingToAWidget() {
    Probe widget;
    widget.globalConfigEvent(2, -1);
    QVERIFY(!widget.cfg_in_progress());
    QVERIFY(!Ostrel_Plugins_Master_variables_dirty);
}

void ReconfigurationTest::theCounterIsPolledWhileSampling() {
    platform().real("SPEED").value(5).format("%g");
    Probe widget;
    widget.setName("SPEED");
    QCOMPARE(widget.text(), QString("5"));
    void* const before = widget.ptr();
    platform().move("SPEED");
    ++platform().reconfiguration().generic_reconfig_count;
    QCOMPARE(widget.text(), QString("(nothing new)"));
    QVERIFY(Ostrel_Plugins_Master_variables_dirty);
    // Without a start the widget keeps its pointer.
    QCOMPARE(widget.ptr(), before);
    Ostrel_Plugins_Master_variables_dirty = false;
    widget.text();
    QVERIFY(!Ostrel_Plugins_Master_variables_dirty);
}

void ReconfigurationTest::anEndBindsByTheVariablesOwnName() {
    platform().real("SPEED");
    platform().alias("RPM_NOW", "SPEED");
    Probe widget;
    widget.setName("SPEED");
    QCOMPARE(widget.getName(), QString("RPM_NOW"));
    widget.names.clear();
    widget.globalConfigEvent(1, -1);
    widget.globalConfigEvent(0, -1);
    QCOMPARE(widget.names, QStringList({"SPEED"}));
    QVERIFY(!widget.cfg_in_progress());
    Probe unnamed;
    unnamed._real_name = QString();
    unnamed._name = "WISH";
    unnamed.set_cfg_in_progress();
    unnamed.globalConfigEvent(0, -1);
    QCOMPARE(unnamed.names, QStringList({"WISH"}));
}

void ReconfigurationTest::aValueStandsStillDuringAReconfiguration() {
    auto speed = platform().real("SPEED").value(1).format("%g");
    ZelValue widget;
    widget.setName("SPEED");
    QCOMPARE(shownValue(widget), QString("1"));
    widget.globalConfigEvent(1, GU_REAL_MEM);
    speed.value(2);
    widget.ostrelTimerEvent(widget.getSampleRate());
    QCOMPARE(shownValue(widget), QString("1"));
    widget.globalConfigEvent(0, GU_REAL_MEM);
    QVERIFY(!widget.cfg_in_progress());
    widget.ostrelTimerEvent(widget.getSampleRate());
    QCOMPARE(shownValue(widget), QString("2"));
}

void ReconfigurationTest::aVariableThatVanishedIsMarkedAndComesBack() {
    platform().real("SPEED").value(1).format("%g");
    ZelValue widget;
    widget.setName("SPEED");
    widget.globalConfigEvent(1, -1);
    platform().remove("SPEED");
    widget.globalConfigEvent(0, -1);
    QCOMPARE(shownValue(widget), QString("-"));
    QCOMPARE(widget.getName(), QString("SPEED"));
    QVERIFY(!widget.ptr());
    QVERIFY(!mark(widget)->isHidden());
    QVERIFY(!TimerModerator::isRegistered(&widget, 1000));

    widget.globalConfigEvent(1, -1);
    platform().real("SPEED").value(3).format("%g");
    widget.globalConfigEvent(0, -1);
    QVERIFY(widget.ptr());
    QVERIFY(mark(widget)->isHidden());
    QVERIFY(TimerModerator::isRegistered(&widget, 1000));
    // The value shows at the next tick.
    widget.ostrelTimerEvent(1000);
    QCOMPARE(shownValue(widget), QString("3"));
}

void ReconfigurationTest::aVariableThatCameBackKeepsTheUnitsAskedFor() {
    platform().converts("RPM", "HZ", 1.0 / 60.0);
    platform().real("SPEED").value(60).units("RPM").format("%g");
    ZelValue widget;
    widget.setName("SPEED");
    widget.setUnits("HZ");
    widget.setName("SPEED");
    QCOMPARE(shownValue(widget), QString("1"));
    widget.globalConfigEvent(1, -1);
    platform().remove("SPEED");
    widget.globalConfigEvent(0, -1);
    widget.globalConfigEvent(1, -1);
    platform().real("SPEED").value(120).units("RPM").format("%g");
    widget.globalConfigEvent(0, -1);
    widget.ostrelTimerEvent(1000);
    QCOMPARE(widget.getUnits(), QString("HZ"));
    QCOMPARE(shownValue(widget), QString("2"));
}

void ReconfigurationTest::aVariableThatCameBackUnderItsAliasKeepsThemToo() {
    platform().converts("RPM", "HZ", 1.0 / 60.0);
    platform().real("SPEED").value(60).units("RPM").format("%g");
    platform().alias("RPM_NOW", "SPEED");
    ZelValue widget;
    widget.setName("SPEED");
    widget.setUnits("HZ");
    widget.setName("SPEED");
    QCOMPARE(widget.getName(), QString("RPM_NOW"));
    widget.globalConfigEvent(1, -1);
    platform().remove("SPEED");
    widget.globalConfigEvent(0, -1);
    QCOMPARE(shownValue(widget), QString("-"));
    widget.globalConfigEvent(1, -1);
    platform().real("SPEED").value(120).units("RPM").format("%g");
    platform().alias("RPM_NOW", "SPEED");
    widget.globalConfigEvent(0, -1);
    widget.ostrelTimerEvent(1000);
    QCOMPARE(widget.getUnits(), QString("HZ"));
    QCOMPARE(shownValue(widget), QString("2"));
}

void ReconfigurationTest::aVariableThatMovedIsFollowed() {
    auto speed = platform().real("SPEED").value(1).format("%g");
    ZelValue widget;
    widget.setName("SPEED");
    void* const before = widget.ptr();
    widget.globalConfigEvent(1, -1);
    platform().move("SPEED");
    widget.globalConfigEvent(0, -1);
    QVERIFY(widget.ptr() != before);
    speed.value(8);
    widget.ostrelTimerEvent(1000);
    QCOMPARE(shownValue(widget), QString("8"));
}

void ReconfigurationTest::aBoundWidgetFollowsTheToldStepsAlone() {
    platform().real("SPEED").value(1).format("%g");
    ZelValue widget;
    widget.setName("SPEED");
    TimerModerator::releaseFromTimer(&widget);
    widget.globalConfigEvent(1, -1);
    widget.globalConfigEvent(0, -1);
    // It was bound all along: nothing asks for its timer anew.
    QVERIFY(!TimerModerator::isRegistered(&widget, 1000));
}

OSTREL_TEST(ReconfigurationTest)
#include "reconfiguration_test.moc"
