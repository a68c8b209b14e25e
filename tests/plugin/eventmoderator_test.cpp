// Named platform events reach their subscribers through one waiting thread per event.
#include <ostrel/events.h>

#include <QRegularExpression>

#include "core/glostrelbase.h"
#include "fabric/ostrel_event.h"
#include "fabric/ostrel_event_moderator.h"
#include "fabric/ostrelgblreconfigevent.h"
#include "fabric/ostrelvariabledatainput.h"
#include "plugintest.h"
#include "qttests.h"

namespace {

// A subscriber that is no bound widget. It takes the payload out of the thread's buffer at once.
class Listener : public QWidget {
    Q_OBJECT

public:
    QList<int> ids;
    QList<QByteArray> payloads;
    QList<size_t> sizes;

public Q_SLOTS:
    void ostrelEvent(int eventId, const char* buffer, size_t length) {
        ids.append(eventId);
        payloads.append(QByteArray(buffer));
        sizes.append(length);
    }
};

class GLListener : public GLOstrelBase {
    Q_OBJECT

public:
    void ostrelTimerEvent(int) override {}
    int count = 0;

public Q_SLOTS:
    void ostrelEvent(int, const char*, size_t) { ++count; }
};

int eventCount() {
    return OstrelEventModerator::events->size();
}

bool isWaiting(const QString& name, int threads = 1) {
    return platform().events().threadsWaiting(name) == threads;
}

void raise(const QString& name, const QByteArray& payload = QByteArray()) {
    platform().events().raise(name, payload);
}

}  // namespace

class EventModeratorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }

    void subscribersOfOneEventShareAThread();
    void askingTwiceSubscribesOnce();
    void aLaterRequestKeepsTheFirstBuffer();
    void aBoundWidgetWritesTheIdOnly();
    void aReleasedEventEndsAtItsNextEvent();
    void releasingByNameComparesTextOrBuffer();
    void aNullNameMatchesAnEmptyOne();
    void releasingFromAllEventsPassesOverTheNextEntry();
    void attachingDoesNotWaitForTheStore();
    void nothingReachesADesigner();
    void anotherEventIsIgnored();
    void attachingIsTriedElevenTimesAndReported();
    void failingWaitsAreReportedOnTheSeventh();
    void aQuietSecondIsNeverReported();
    void shutDownEmptiesTheEntriesAndKeepsThem();
    void shutDownEndsTheHostsReconfigurationThreads();
    void theModeratorHandsOutNoReconfigurationThread();
    void aNewModeratorStartsWithAnEmptyList();
    void anEventCanBeRenamed();
};

void EventModeratorTest::subscribersOfOneEventShareAThread() {
    Listener first;
    Listener second;
    QVERIFY(OstrelEventModerator::requestEvent(&first, "shared", 16, 4));
    QVERIFY(OstrelEventModerator::requestEvent(&second, "shared", 16, 4));
    QCOMPARE(eventCount(), 1);
    QTRY_VERIFY(isWaiting("shared"));
    QCOMPARE(platform().threadCalls(), QStringList({"event_attach shared 4", "event_wait 16"}));
    raise("shared", "hello");
    QTRY_COMPARE(second.payloads, QList<QByteArray>({"hello"}));
    QCOMPARE(first.payloads, QList<QByteArray>({"hello"}));
    QCOMPARE(first.ids, QList<int>({platform().events().idOf("shared")}));
    QCOMPARE(first.sizes, QList<size_t>({16}));
    OstrelEventModerator::releaseFromEvent(&first, "shared");
    QCOMPARE(eventCount(), 1);
    OstrelEventModerator::releaseFromEvent(&second, "shared");
    QCOMPARE(eventCount(), 0);
}

void EventModeratorTest::askingTwiceSubscribesOnce() {
    Listener listener;
    OstrelEventModerator::requestEvent(&listener, "twice", 8, 1);
    OstrelEventModerator::requestEvent(&listener, "twice", 8, 1);
    QTRY_VERIFY(isWaiting("twice"));
    raise("twice");
    raise("twice");
    QTRY_VERIFY(isWaiting("twice"));
    QTRY_COMPARE(listener.ids.size(), 2);
    OstrelEventModerator::releaseFromEvent(&listener);
}

void EventModeratorTest::aLaterRequestKeepsTheFirstBuffer() {
    Listener first;
    Listener second;
    OstrelEventModerator::requestEvent(&first, "sized", 8, 2);
    OstrelEventModerator::requestEvent(&second, "sized", 200, 9);
    QTRY_VERIFY(isWaiting("sized"));
    QCOMPARE(platform().threadCalls(), QStringList({"event_attach sized 2", "event_wait 8"}));
    raise("sized");
    QTRY_COMPARE(second.sizes, QList<size_t>({8}));
    OstrelEventModerator::releaseFromEvent(&first);
    OstrelEventModerator::releaseFromEvent(&second);
}

void EventModeratorTest::aBoundWidgetWritesTheIdOnly() {
    const DebugLines debug;
    Probe widget;
    OstrelEventModerator::requestEvent(&widget, "plain", 8, 1);
    QTRY_VERIFY(isWaiting("plain"));
    raise("plain");
    QTRY_COMPARE(debug.lines(), QStringList({QString::number(platform().events().idOf("plain"))}));
    OstrelEventModerator::releaseFromEvent(&widget);
}

void EventModeratorTest::aReleasedEventEndsAtItsNextEvent() {
    Listener listener;
    OstrelEventModerator::requestEvent(&listener, "ending", 8, 1);
    OstrelEvent* thread = OstrelEventModerator::events->first();
    QTRY_VERIFY(isWaiting("ending"));
    OstrelEventModerator::releaseFromEvent(&listener, "ending");
    QVERIFY(thread->isRunning());
    OstrelEventModerator::requestEvent(&listener, "ending", 8, 1);
    QVERIFY(OstrelEventModerator::events->first() != thread);
    QTRY_VERIFY(isWaiting("ending", 2));
    raise("ending");
    QTRY_VERIFY(thread->isFinished());
    QTRY_COMPARE(listener.ids.size(), 1);
    OstrelEventModerator::releaseFromEvent(&listener);
}

void EventModeratorTest::releasingByNameComparesTextOrBuffer() {
    Listener listener;
    GLListener withOpenGl;
    OstrelVariableDataInput input;
    OstrelEventModerator::requestEvent(&listener, "letters", 8, 1);
    OstrelEventModerator::requestEvent(&withOpenGl, "letters", 8, 1);
    const QByteArray sameText("letters");
    OstrelEventModerator::releaseFromEvent(&listener, sameText.constData());
    OstrelEventModerator::releaseFromEvent(&withOpenGl, sameText.constData());
    OstrelEventModerator::releaseFromEvent(&input, sameText.constData());
    OstrelEvent* thread = OstrelEventModerator::events->first();
    QVERIFY(!thread->hasPlugin(&listener));
    QVERIFY(thread->hasPlugin(&withOpenGl));
    const QByteArray sameBuffer = thread->getName();
    QTRY_VERIFY(isWaiting("letters"));
    raise("letters");
    QTRY_COMPARE(withOpenGl.count, 1);
    OstrelEventModerator::releaseFromEvent(&withOpenGl, sameBuffer.constData());
    QCOMPARE(eventCount(), 0);
}

void EventModeratorTest::aNullNameMatchesAnEmptyOne() {
    Listener listener;
    OstrelEventModerator::requestEvent(&listener, "", 8, 1);
    OstrelEventModerator::requestEvent(&listener, "named", 8, 1);
    QTRY_VERIFY(isWaiting("named") && isWaiting(""));
    OstrelEventModerator::releaseFromEvent(&listener, nullptr);
    QCOMPARE(eventCount(), 1);
    QCOMPARE(OstrelEventModerator::events->first()->getName(), QByteArray("named"));
    OstrelEventModerator::releaseFromEvent(&listener);
    QCOMPARE(eventCount(), 0);
}

void EventModeratorTest::releasingFromAllEventsPassesOverTheNextEntry() {
    Listener listener;
    for (const char* name : {"one", "two", "three"})
        OstrelEventModerator::requestEvent(&listener, name, 8, 1);
    QTRY_VERIFY(isWaiting("one") && isWaiting("two") && isWaiting("three"));
    OstrelEventModerator::releaseFromEvent(&listener);
    QCOMPARE(eventCount(), 1);
    QCOMPARE(OstrelEventModerator::events->first()->getName(), QByteArray("two"));
    OstrelEventModerator::releaseFromEvent(&listener);
    QCOMPARE(eventCount(), 0);
}

void EventModeratorTest::attachingDoesNotWaitForTheStore() {
    InitializationDone = false;
    Listener listener;
    OstrelEventModerator::requestEvent(&listener, "early", 8, 1);
    QTRY_VERIFY(isWaiting("early"));
    raise("early");
    QTRY_COMPARE(listener.ids.size(), 1);
    OstrelEventModerator::releaseFromEvent(&listener);
}

void EventModeratorTest::nothingReachesADesigner() {
    inDesigner = true;
    InitializationDone = false;
    Listener listener;
    OstrelEventModerator::requestEvent(&listener, "designed", 8, 1);
    QTRY_VERIFY(isWaiting("designed"));
    raise("designed");
    QTRY_VERIFY(isWaiting("designed"));
    QCoreApplication::processEvents();
    QCOMPARE(listener.ids.size(), 0);
    OstrelEventModerator::releaseFromEvent(&listener);
}

void EventModeratorTest::anotherEventIsIgnored() {
    Listener listener;
    OstrelEventModerator::requestEvent(&listener, "mine", 8, 1);
    QTRY_VERIFY(isWaiting("mine"));
    platform().events().raiseForeign("mine", 98765);
    raise("mine");
    QTRY_COMPARE(listener.ids.size(), 1);
    QTRY_VERIFY(isWaiting("mine"));
    QCOMPARE(listener.ids.size(), 1);
    OstrelEventModerator::releaseFromEvent(&listener);
}

void EventModeratorTest::attachingIsTriedElevenTimesAndReported() {
    platform().alwaysAnswer("event_attach", -7);
    const DebugLines debug;
    Listener listener;
    QVERIFY(OstrelEventModerator::requestEvent(&listener, "shy", 8, 1));
    QTRY_COMPARE_WITH_TIMEOUT(platform().threadCalls({"event_wait"}).size(), 1, 20000);
    QCOMPARE(platform().threadCalls({"event_attach"}).size(), 11);
    QStringList expected;
    for (int count = 0; count < 11; ++count)
        expected << "event name: shy" << QStringLiteral("status = -7 count %1").arg(count);
    QCOMPARE(debug.lines(), expected);
    OstrelEventModerator::releaseFromEvent(&listener);
}

void EventModeratorTest::failingWaitsAreReportedOnTheSeventh() {
    Listener listener;
    OstrelEventModerator::requestEvent(&listener, "broken", 8, 1);
    QTRY_VERIFY(isWaiting("broken"));
    const DebugLines debug;
    platform().events().failWaits("broken", QVector<int>(4, -17));
    QTRY_VERIFY(isWaiting("broken"));
    QCOMPARE(debug.lines(), QStringList());
    platform().events().failWaits("broken", {-17, -17, -18});
    QTRY_VERIFY(isWaiting("broken"));
    QCOMPARE(debug.lines().size(), 2);
    QVERIFY(QRegularExpression("^event_wait failed [0-9]+$").match(debug.lines().first()).hasMatch());
    QCOMPARE(debug.lines().last(), QString("received -18 while waiting for timer event"));
    OstrelEventModerator::releaseFromEvent(&listener);
}

void EventModeratorTest::aQuietSecondIsNeverReported() {
    Listener listener;
    OstrelEventModerator::requestEvent(&listener, "quiet", 8, 1);
    QTRY_VERIFY(isWaiting("quiet"));
    const DebugLines debug;
    platform().events().failWaits("quiet", QVector<int>(7, OSTREL_EVENT_QUIET));
    QTRY_VERIFY(isWaiting("quiet"));
    // The pause of a run of failures is told of all the same.
    QCOMPARE(debug.lines().size(), 1);
    QVERIFY(debug.lines().first().startsWith("event_wait failed "));
    OstrelEventModerator::releaseFromEvent(&listener);
}

void EventModeratorTest::shutDownEmptiesTheEntriesAndKeepsThem() {
    Listener listener;
    OstrelEventModerator::requestEvent(&listener, "closing", 8, 1);
    OstrelEvent* thread = OstrelEventModerator::events->first();
    QTRY_VERIFY(isWaiting("closing"));
    QVERIFY(!OstrelEventModerator::gblCfgEvents);
    OstrelEventModerator::shutDown();
    QVERIFY(!thread->hasPlugin(&listener));
    QCOMPARE(eventCount(), 1);
    raise("closing");
    QTRY_VERIFY(thread->isFinished());
    OstrelEventModerator::releaseFromEvent(&listener);
    QCOMPARE(eventCount(), 0);
}

void EventModeratorTest::shutDownEndsTheHostsReconfigurationThreads() {
    auto* thread = new OstrelGblConfigEvent(static_cast<SM_AREA_ID>(-1), this);
    thread->start();
    QTRY_VERIFY(isWaiting("config"));
    QVector<OstrelGblConfigEvent*> threads{thread};
    OstrelEventModerator::gblCfgEvents = &threads;
    OstrelEventModerator::shutDown();
    OstrelEventModerator::gblCfgEvents = nullptr;
    raise("config");
    QTRY_VERIFY(thread->isFinished());
}

void EventModeratorTest::theModeratorHandsOutNoReconfigurationThread() {
    Probe widget;
    Listener listener;
    GLListener withOpenGl;
    OstrelVariableDataInput input;
    QVERIFY(!OstrelEventModerator::addGblReconfigEvent(&widget, GU_REAL_MEM));
    QVERIFY(!OstrelEventModerator::addGblReconfigEvent(&listener, GU_REAL_MEM));
    QVERIFY(!OstrelEventModerator::addGblReconfigEvent(&withOpenGl, GU_REAL_MEM));
    QVERIFY(!OstrelEventModerator::addGblReconfigEvent(&input, GU_REAL_MEM));
    QVERIFY(!OstrelEventModerator::gblCfgEvents);
    QCOMPARE(platform().threadCalls(), QStringList());
}

void EventModeratorTest::aNewModeratorStartsWithAnEmptyList() {
    Listener listener;
    OstrelEventModerator::requestEvent(&listener, "older", 8, 1);
    QTRY_VERIFY(isWaiting("older"));
    const OstrelEventModerator moderator;
    QCOMPARE(eventCount(), 0);
    raise("older");
    QTRY_COMPARE(listener.ids.size(), 1);
}

void EventModeratorTest::anEventCanBeRenamed() {
    OstrelEvent event("before", 8, 1, nullptr);
    QByteArray after("after");
    event.setName(after);
    QCOMPARE(event.getName(), QByteArray("after"));
}

OSTREL_TEST(EventModeratorTest)
#include "eventmoderator_test.moc"
