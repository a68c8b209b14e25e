// The platform's timers reach widgets through one waiting thread per period.
#include "fabric/timermoderator.h"

#include <ostrel/events.h>

#include <QPointer>
#include <QSignalSpy>
#include <memory>

#include "core/glostrelbase.h"
#include "fabric/timerwidget.h"
#include "fabric/timerwidgetplugin.h"
#include "plugintest.h"
#include "qttests.h"
#include "widgets/zel_value.h"

namespace {

class CountingValue : public ZelValue {
public:
    QString* sampleReal(bool hideUnits) override {
        ++samples;
        return ZelValue::sampleReal(hideUnits);
    }
    int samples = 0;
};

class GLProbe : public GLOstrelBase {
public:
    void ostrelTimerEvent(int interval) override { ticks.append(interval); }
    QList<int> ticks;
};

int timerCount() {
    return TimerModerator::timers->size();
}

TimerWidget* timerOf(int interval) {
    for (TimerWidget* timer : qAsConst(*TimerModerator::timers))
        if (timer->interval() == interval)
            return timer;
    return nullptr;
}

QString eventOf(int interval) {
    return QStringLiteral("tmr-%1").arg(interval);
}

bool isWaiting(int interval, int threads = 1) {
    return platform().events().threadsWaiting(eventOf(interval)) == threads;
}

// Each case has periods of its own: a thread that was told to end waits on until its next tick.
int newPeriod() {
    static int last = 20000;
    return ++last;
}

const QStringList attachCalls{"find_ms_timer", "event_create_timer", "event_attach", "event_detach"};

}  // namespace

class TimerModeratorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isRegisteredMakesNoVector();
    void init() { startAsHost(); }

    void widgetsOfOnePeriodShareAThread();
    void askingTwiceSubscribesOnce();
    void aWidgetThatAskedTwiceIsSampledOncePerTick();
    void releasingFromAnUnusedPeriodDoesNothing();
    void releasingFromAllPeriodsPassesOverTheNextEntry();
    void anEndedPeriodGetsANewThread();
    void endedThreadsAreGone();
    void aThreadThatStillWaitsIsKept();
    void aTimerOfTheHostsIsLeftToIt();
    void aWidgetWithOpenGlIsServedLikeTheOthers();
    void aWidgetAtAnOldAddressStartsUnsubscribed();
    void aForgottenSubscriberIsNeverFollowed();
    void shutDownEmptiesTheEntriesAndKeepsThem();
    void aNewModeratorStartsWithAnEmptyList();

    void nothingIsAttachedBeforeTheStoreIsReady();
    void noTickReachesADesigner();
    void anotherEventIsNoTick();
    void aRemoteDisplayRunsAtItsOwnRate();
    void theSampleRateIsTheKeyOfTheTimer();

    void anExistingTimerIsJoined();
    void joiningIsTriedElevenTimes();
    void beingAttachedAlreadyIsEnough();
    void aTimerIsMadeWhereThereIsNone();
    void aTimerThatExistsIsAttachedByName();
    void makingATimerFails_data();
    void makingATimerFails();

    void failingWaitsAreReportedOnTheSeventh();
    void aQuietSecondIsNeverReported();
    void theIntervalIsAProperty();
    void thePluginStandsForTheModerator();
};

void TimerModeratorTest::isRegisteredMakesNoVector() {
    QVERIFY(!TimerModerator::isRegistered(static_cast<OstrelBase*>(nullptr), 1000));
    QVERIFY(!TimerModerator::timers);
}

void TimerModeratorTest::widgetsOfOnePeriodShareAThread() {
    const int period = newPeriod();
    Probe first;
    Probe second;
    QVERIFY(TimerModerator::requestTimer(&first, period));
    QVERIFY(TimerModerator::requestTimer(&second, period));
    QCOMPARE(timerCount(), 1);
    TimerWidget* thread = timerOf(period);
    QTRY_VERIFY(isWaiting(period));

    platform().events().raise(eventOf(period));
    QTRY_COMPARE(second.ticks, QList<int>({period}));
    QCOMPARE(first.ticks, QList<int>({period}));

    TimerModerator::releaseFromTimer(&first, period);
    QVERIFY(!TimerModerator::isRegistered(&first, period));
    QVERIFY(TimerModerator::isRegistered(&second, period));
    QCOMPARE(timerCount(), 1);
    platform().events().raise(eventOf(period));
    QTRY_COMPARE(second.ticks.size(), 2);
    QCOMPARE(first.ticks.size(), 1);
    QVERIFY(thread->isRunning());

    TimerModerator::releaseFromTimer(&second, period);
    QCOMPARE(timerCount(), 0);
    // It ends when its wait returns, and not before.
    QTRY_VERIFY(isWaiting(period));
    QVERIFY(thread->isRunning());
    platform().events().raise(eventOf(period));
    QTRY_VERIFY(thread->isFinished());
    QCOMPARE(platform().threadCalls({"event_detach"}), QStringList());
}

void TimerModeratorTest::askingTwiceSubscribesOnce() {
    const int period = newPeriod();
    Probe widget;
    QVERIFY(TimerModerator::requestTimer(&widget, period));
    QVERIFY(TimerModerator::requestTimer(&widget, period));
    QTRY_VERIFY(isWaiting(period));
    platform().events().raise(eventOf(period));
    platform().events().raise(eventOf(period));
    QTRY_VERIFY(isWaiting(period));
    QTRY_COMPARE(widget.ticks.size(), 2);
}

void TimerModeratorTest::aWidgetThatAskedTwiceIsSampledOncePerTick() {
    const int period = newPeriod();
    platform().converts("RPM", "HZ", 0.5);
    platform().real("SPEED").value(1).units("RPM").format("%g");
    CountingValue value;
    value.setName("SPEED");
    // Only now: a binding starts the thread of its period anew, and the former one may be waiting already.
    value.setSampleRate(period);
    QVERIFY(TimerModerator::isRegistered(&value, period));
    QVERIFY(TimerModerator::requestTimer(&value, period));
    // Bound anew, it asks for its timer itself.
    value.setUnits("HZ");
    value.setName("SPEED");
    // Ticks come to the widgets in the order in which they asked.
    Probe last;
    QVERIFY(TimerModerator::requestTimer(&last, period));
    for (int tick = 1; tick <= 3; ++tick) {
        QTRY_VERIFY(isWaiting(period));
        value.samples = 0;
        platform().events().raise(eventOf(period));
        QTRY_COMPARE(last.ticks.size(), tick);
        QCOMPARE(value.samples, 1);
    }
}

void TimerModeratorTest::releasingFromAnUnusedPeriodDoesNothing() {
    const int period = newPeriod();
    Probe widget;
    TimerModerator::requestTimer(&widget, period);
    TimerModerator::releaseFromTimer(&widget, newPeriod());
    QCOMPARE(timerCount(), 1);
    QVERIFY(TimerModerator::isRegistered(&widget, period));
    QTRY_VERIFY(isWaiting(period));
}

void TimerModeratorTest::releasingFromAllPeriodsPassesOverTheNextEntry() {
    const int first = newPeriod();
    const int second = newPeriod();
    const int third = newPeriod();
    Probe widget;
    for (int period : {first, second, third})
        TimerModerator::requestTimer(&widget, period);
    for (int period : {first, second, third})
        QTRY_VERIFY(isWaiting(period));
    TimerModerator::releaseFromTimer(&widget);
    QVERIFY(!TimerModerator::isRegistered(&widget, first));
    QVERIFY(TimerModerator::isRegistered(&widget, second));
    QVERIFY(!TimerModerator::isRegistered(&widget, third));
    TimerModerator::releaseFromTimer(&widget);
    QCOMPARE(timerCount(), 0);
}

void TimerModeratorTest::anEndedPeriodGetsANewThread() {
    const int period = newPeriod();
    Probe widget;
    TimerModerator::requestTimer(&widget, period);
    TimerWidget* former = timerOf(period);
    QTRY_VERIFY(isWaiting(period));
    TimerModerator::releaseFromTimer(&widget, period);
    TimerModerator::requestTimer(&widget, period);
    QVERIFY(timerOf(period) != former);
    QTRY_VERIFY(isWaiting(period, 2));
    platform().events().raise(eventOf(period));
    QTRY_VERIFY(former->isFinished());
    QTRY_COMPARE(widget.ticks.size(), 1);
}

// As with a value that blinks now and then: the last one of them is there at most.
void TimerModeratorTest::endedThreadsAreGone() {
    const int period = newPeriod();
    Probe widget;
    QPointer<TimerWidget> former;
    for (int episode = 0; episode < 3; ++episode) {
        QVERIFY(TimerModerator::requestTimer(&widget, period));
        const QPointer<TimerWidget> timer = timerOf(period);
        QTRY_VERIFY(isWaiting(period));
        TimerModerator::releaseFromTimer(&widget, period);
        QTRY_VERIFY(!former);
        QVERIFY(timer->isRunning());
        platform().events().raise(eventOf(period));
        QVERIFY(timer->wait(10000));
        former = timer;
    }
    QVERIFY(former);
    QCOMPARE(widget.ticks, QList<int>());
}

void TimerModeratorTest::aThreadThatStillWaitsIsKept() {
    const int period = newPeriod();
    Probe widget;
    QVector<QPointer<TimerWidget>> waiting;
    for (int i = 1; i <= 3; ++i) {
        TimerModerator::requestTimer(&widget, period);
        waiting.append(timerOf(period));
        QTRY_VERIFY(isWaiting(period, i));
        TimerModerator::releaseFromTimer(&widget, period);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (const auto& timer : waiting)
        QVERIFY(timer && timer->isRunning());
    platform().events().raise(eventOf(period));
    for (const auto& timer : waiting)
        QVERIFY(timer->wait(10000));
}

void TimerModeratorTest::aTimerOfTheHostsIsLeftToIt() {
    const int period = newPeriod();
    auto timer = std::make_unique<TimerWidget>(period);
    timer->start();
    TimerModerator::registerTimer(timer.get());
    Probe widget;
    TimerModerator::requestTimer(&widget, period);
    QTRY_VERIFY(isWaiting(period));
    TimerModerator::releaseFromTimer(&widget, period);
    const QPointer<TimerWidget> watched = timer.get();
    platform().events().raise(eventOf(period));
    QVERIFY(timer->wait(10000));
    // Another one that is forgotten sweeps those before it.
    const int other = newPeriod();
    TimerModerator::requestTimer(&widget, other);
    QTRY_VERIFY(isWaiting(other));
    TimerModerator::releaseFromTimer(&widget, other);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(watched);
}

void TimerModeratorTest::aWidgetWithOpenGlIsServedLikeTheOthers() {
    const int period = newPeriod();
    GLProbe widget;
    QVERIFY(TimerModerator::requestTimer(&widget, period));
    QVERIFY(TimerModerator::isRegistered(&widget, period));
    QTRY_VERIFY(isWaiting(period));
    platform().events().raise(eventOf(period));
    QTRY_COMPARE(widget.ticks, QList<int>({period}));
    TimerModerator::releaseFromTimer(&widget, period);
    QVERIFY(!TimerModerator::isRegistered(&widget, period));
    TimerModerator::requestTimer(&widget, period);
    QTRY_VERIFY(isWaiting(period, 2));
    TimerModerator::releaseFromTimer(&widget);
    QCOMPARE(timerCount(), 0);
}

void TimerModeratorTest::aWidgetAtAnOldAddressStartsUnsubscribed() {
    const int first = newPeriod();
    const int second = newPeriod();
    alignas(Probe) char place[sizeof(Probe)];
    auto* former = new (place) Probe;
    TimerModerator::requestTimer(former, first);
    TimerModerator::requestTimer(former, second);
    QTRY_VERIFY(isWaiting(first));
    // The destructor's walk ends the first period and passes over the second.
    former->~Probe();
    auto* later = new (place) Probe;
    QVERIFY(!TimerModerator::isRegistered(later, second));
    TimerModerator::requestTimer(later, second);
    QTRY_VERIFY(isWaiting(second));
    platform().events().raise(eventOf(second));
    QTRY_COMPARE(later->ticks, QList<int>({second}));
    later->~Probe();
    QCOMPARE(timerCount(), 0);
}

void TimerModeratorTest::aForgottenSubscriberIsNeverFollowed() {
    const int period = newPeriod();
    alignas(GLProbe) char place[sizeof(GLProbe)];
    GLProbe* address = new (place) GLProbe;
    Probe widget;
    TimerModerator::requestTimer(address, period);
    TimerModerator::requestTimer(&widget, period);
    QTRY_VERIFY(isWaiting(period));
    address->~GLProbe();
    QVERIFY(TimerModerator::isRegistered(address, period));
    platform().events().raise(eventOf(period));
    QTRY_COMPARE(widget.ticks.size(), 1);
    TimerModerator::releaseFromTimer(&widget, period);
    QCOMPARE(timerCount(), 1);
    TimerModerator::forgetFormerOwner(address);
    TimerModerator::releaseFromTimer(&widget, period);
    QCOMPARE(timerCount(), 0);
}

void TimerModeratorTest::shutDownEmptiesTheEntriesAndKeepsThem() {
    const int period = newPeriod();
    Probe widget;
    TimerModerator::requestTimer(&widget, period);
    TimerWidget* thread = timerOf(period);
    QTRY_VERIFY(isWaiting(period));
    TimerModerator::shutDown();
    QVERIFY(!TimerModerator::isRegistered(&widget, period));
    QCOMPARE(timerCount(), 1);
    platform().events().raise(eventOf(period));
    QTRY_VERIFY(thread->isFinished());
    TimerModerator::releaseFromTimer(&widget);
    QCOMPARE(timerCount(), 0);
}

void TimerModeratorTest::aNewModeratorStartsWithAnEmptyList() {
    const int period = newPeriod();
    Probe widget;
    TimerModerator::requestTimer(&widget, period);
    QTRY_VERIFY(isWaiting(period));
    const TimerModerator moderator;
    QCOMPARE(timerCount(), 0);
    QVERIFY(!TimerModerator::isRegistered(&widget, period));
    platform().events().raise(eventOf(period));
    QTRY_COMPARE(widget.ticks.size(), 1);
}

void TimerModeratorTest::nothingIsAttachedBeforeTheStoreIsReady() {
    InitializationDone = false;
    const int period = newPeriod();
    Probe widget;
    QVERIFY(TimerModerator::requestTimer(&widget, period));
    QTRY_VERIFY(timerOf(period)->isRunning());
    // Told to end it stays parked as well: a thread that never attached needs no tick.
    TimerWidget* thread = timerOf(period);
    TimerModerator::releaseFromTimer(&widget, period);
    QVERIFY(!thread->wait(250));
    QCOMPARE(platform().threadCalls(), QStringList());
    InitializationDone = true;
    QVERIFY(thread->wait(5000));
    QCOMPARE(platform().threadCalls({"event_wait"}), QStringList());
}

void TimerModeratorTest::noTickReachesADesigner() {
    inDesigner = true;
    const int period = newPeriod();
    Probe widget;
    TimerModerator::requestTimer(&widget, period);
    QTRY_VERIFY(isWaiting(period));
    platform().events().raise(eventOf(period));
    QTRY_VERIFY(isWaiting(period));
    QCoreApplication::processEvents();
    QCOMPARE(widget.ticks.size(), 0);
    inDesigner = false;
    platform().events().raise(eventOf(period));
    QTRY_COMPARE(widget.ticks.size(), 1);
}

void TimerModeratorTest::anotherEventIsNoTick() {
    const int period = newPeriod();
    Probe widget;
    TimerModerator::requestTimer(&widget, period);
    QTRY_VERIFY(isWaiting(period));
    platform().events().raiseForeign(eventOf(period), 12345);
    platform().events().raise(eventOf(period));
    QTRY_COMPARE(widget.ticks, QList<int>({period}));
    QTRY_VERIFY(isWaiting(period));
    QCOMPARE(widget.ticks.size(), 1);
}

void TimerModeratorTest::aRemoteDisplayRunsAtItsOwnRate() {
    Probe widget;
    widget._updateRate = newPeriod();
    const int property = widget._updateRate;
    RemoteDisplay = true;
    RemoteUpdateRate = newPeriod();
    platform().forgetCalls();
    widget.setSampleRate(newPeriod());
    QCOMPARE(widget.getSampleRate(), RemoteUpdateRate);
    QCOMPARE(widget._updateRate, property);
    QVERIFY(TimerModerator::isRegistered(&widget, RemoteUpdateRate));
    QCOMPARE(platform().calls({"cacheProperty"}), QStringList());
    QVERIFY(!widget.isPaused());
    QTRY_VERIFY(isWaiting(RemoteUpdateRate));
}

void TimerModeratorTest::theSampleRateIsTheKeyOfTheTimer() {
    Probe widget;
    const int first = newPeriod();
    const int second = newPeriod();
    widget.setSampleRate(first);
    QVERIFY(TimerModerator::isRegistered(&widget, first));
    QTRY_VERIFY(isWaiting(first));
    widget.setSampleRate(second);
    QVERIFY(!TimerModerator::isRegistered(&widget, first));
    QVERIFY(TimerModerator::isRegistered(&widget, second));
    QCOMPARE(widget.getSampleRate(), second);
    QTRY_VERIFY(isWaiting(second));
    // The same rate once more ends the thread and begins another.
    widget.setSampleRate(second);
    QVERIFY(TimerModerator::isRegistered(&widget, second));
    QTRY_VERIFY(isWaiting(second, 2));
    QCOMPARE(platform().calls({"cacheProperty"}),
             QStringList({QStringLiteral("cacheProperty Probe probe sampleRate %1 loading").arg(first),
                          QStringLiteral("cacheProperty Probe probe sampleRate %1 loading").arg(second)}));
}

void TimerModeratorTest::anExistingTimerIsJoined() {
    const int period = newPeriod();
    platform().events().addTimer(period, "beat");
    Probe widget;
    TimerModerator::requestTimer(&widget, period);
    QTRY_COMPARE(platform().events().threadsWaiting("beat"), 1);
    QCOMPARE(platform().threadCalls(attachCalls),
             QStringList({QStringLiteral("find_ms_timer %1").arg(period), "event_attach beat 1"}));
    platform().events().raise("beat");
    QTRY_COMPARE(widget.ticks, QList<int>({period}));
}

void TimerModeratorTest::joiningIsTriedElevenTimes() {
    const int period = newPeriod();
    platform().events().addTimer(period, "shy");
    platform().alwaysAnswer("event_attach", -7);
    const DebugLines debug;
    Probe widget;
    QVERIFY(TimerModerator::requestTimer(&widget, period));
    QTRY_COMPARE_WITH_TIMEOUT(platform().threadCalls({"event_wait"}).size(), 1, 20000);
    QCOMPARE(platform().threadCalls({"event_attach"}).size(), 11);
    QCOMPARE(debug.lines(), QStringList());
}

void TimerModeratorTest::beingAttachedAlreadyIsEnough() {
    const int period = newPeriod();
    platform().events().addTimer(period, "known");
    platform().answer("event_attach", {-7, OSTREL_EVENT_ATTACHED});
    Probe widget;
    TimerModerator::requestTimer(&widget, period);
    QTRY_COMPARE(platform().events().threadsWaiting("known"), 1);
    QCOMPARE(platform().threadCalls({"event_attach"}).size(), 2);
}

void TimerModeratorTest::aTimerIsMadeWhereThereIsNone() {
    const int period = newPeriod();
    Probe widget;
    TimerModerator::requestTimer(&widget, period);
    QTRY_VERIFY(isWaiting(period));
    QCOMPARE(platform().threadCalls(),
             QStringList({QStringLiteral("find_ms_timer %1").arg(period),
                          QStringLiteral("event_create_timer tmr-%1 10 0 1 0 %1").arg(period),
                          QStringLiteral("event_attach tmr-%1 1").arg(period), "event_wait 256"}));
}

void TimerModeratorTest::aTimerThatExistsIsAttachedByName() {
    const int period = newPeriod();
    platform().answer("event_create_timer", {OSTREL_EVENT_EXISTS});
    Probe widget;
    TimerModerator::requestTimer(&widget, period);
    QTRY_VERIFY(isWaiting(period));
    platform().events().raise(eventOf(period));
    QTRY_COMPARE(widget.ticks.size(), 1);
}

void TimerModeratorTest::makingATimerFails_data() {
    QTest::addColumn<int>("created");
    QTest::addColumn<int>("attached");
    QTest::addColumn<QString>("message");
    QTest::newRow("it exists, attaching fails")
        << OSTREL_EVENT_EXISTS << -9 << "Error attaching to timer with interval %1 Error code [-9]";
    QTest::newRow("it exists, attached already") << OSTREL_EVENT_EXISTS << OSTREL_EVENT_ATTACHED
                                                 << "Error attaching to timer with interval %1 Error code [-261]";
    QTest::newRow("made, attaching fails") << 0 << -9 << "Error attaching to timer (2) Error code [-9]";
    QTest::newRow("attached already") << OSTREL_EVENT_ATTACHED << 0 << QString();
    QTest::newRow("not made") << -13 << 0 << "error creating timer (-13)";
}

void TimerModeratorTest::makingATimerFails() {
    QFETCH(int, created);
    QFETCH(int, attached);
    QFETCH(QString, message);
    const int period = newPeriod();
    if (created != 0)
        platform().answer("event_create_timer", {created});
    platform().answer("event_attach", {attached});
    const DebugLines debug;
    Probe widget;
    QVERIFY(TimerModerator::requestTimer(&widget, period));
    QTRY_COMPARE(platform().threadCalls({"event_wait"}).size(), 1);
    QStringList expected;
    if (!message.isEmpty())
        expected.append(message.contains("%1") ? message.arg(period) : message);
    QCOMPARE(debug.lines(), expected);
}

void TimerModeratorTest::failingWaitsAreReportedOnTheSeventh() {
    const int period = newPeriod();
    Probe widget;
    TimerModerator::requestTimer(&widget, period);
    QTRY_VERIFY(isWaiting(period));
    const DebugLines debug;
    platform().events().failWaits(eventOf(period), QVector<int>(6, -17));
    QTRY_VERIFY(isWaiting(period));
    QCOMPARE(debug.lines(), QStringList());
    platform().events().failWaits(eventOf(period), {-18});
    QTRY_VERIFY(isWaiting(period));
    const QString report = "<TimerError> Code -18 while waiting for timer event";
    QCOMPARE(debug.lines(), QStringList({report}));
    // A tick ends the run of failures.
    platform().events().failWaits(eventOf(period), QVector<int>(6, -17));
    platform().events().raise(eventOf(period));
    platform().events().failWaits(eventOf(period), QVector<int>(6, -17));
    QTRY_VERIFY(isWaiting(period));
    QCOMPARE(debug.lines().size(), 1);
    QTRY_COMPARE(widget.ticks.size(), 1);
}

void TimerModeratorTest::aQuietSecondIsNeverReported() {
    const int period = newPeriod();
    Probe widget;
    TimerModerator::requestTimer(&widget, period);
    QTRY_VERIFY(isWaiting(period));
    const DebugLines debug;
    platform().events().failWaits(eventOf(period), QVector<int>(14, OSTREL_EVENT_QUIET));
    QTRY_VERIFY(isWaiting(period));
    QCOMPARE(debug.lines(), QStringList());
}

void TimerModeratorTest::theIntervalIsAProperty() {
    TimerWidget timer(1234, nullptr);
    QCOMPARE(timer.property("interval").value<long>(), 1234L);
    QVERIFY(timer.setProperty("interval", QVariant::fromValue(4321L)));
    QCOMPARE(timer.interval(), 4321L);
    QSignalSpy spy(&timer, &TimerWidget::time);
    QVERIFY(spy.isValid());
}

void TimerModeratorTest::thePluginStandsForTheModerator() {
    TimerWidgetPlugin plugin;
    QCOMPARE(plugin.name(), QString("TimerModerator"));
    QVERIFY(plugin.icon().isNull());
    QCOMPARE(plugin.includeFile(), QString("stripchartwidget.h"));
    QCOMPARE(plugin.domXml(), QString("<widget class=\"TimerModerator\" name=\"timerModerator\">\n</widget>\n"));
    QCOMPARE(plugin.whatsThis(), QString("Timer that other widgets attach to"));
    QCOMPARE(plugin.toolTip(), QString());
    QCOMPARE(plugin.group(), QString("Ostrel"));
    QVERIFY(!plugin.isContainer());
    const std::unique_ptr<QWidget> built(plugin.createWidget(nullptr));
    QVERIFY(qobject_cast<TimerModerator*>(built.get()));
}

OSTREL_TEST(TimerModeratorTest)
#include "timermoderator_test.moc"
