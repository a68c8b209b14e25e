// The contract of all bound widgets: the same cases for each.
#include <QAction>
#include <memory>

#include "boundwidgetcontract.h"
#include "fabric/signalslotsingleton.h"
#include "plugintest.h"
#include "qttests.h"

namespace {

const QString notFound = QStringLiteral("VARIABLE NOT FOUND");
constexpr int flashInterval = 498;

// Every kind, in the order of the contract's columns.
const QVector<SM_VARI_TYPE> everyKind{REAL_TYPE,       INT_TYPE,       LOGI_TYPE,         STRING_TYPE,
                                      STAT_TYPE,       COMP_TYPE,      PROP_TYPE,         EMIS_TYPE,
                                      REAL_ARRAY_TYPE, INT_ARRAY_TYPE, STRING_ARRAY_TYPE, LOGI_ARRAY_TYPE};

// A variable of one kind, and the two states that it can be put into.
struct Variable {
    QString name;  // to bind
    std::function<void(bool)> put;
};

Variable numberLike(const char* label, SM_VARI_TYPE kind) {
    const auto member = [label](auto record, const char* extension, int number) {
        record.member(extension, number, 1, "PPM", "%g");
        return Variable{QLatin1String(label) + QLatin1String(extension), [record, number](bool on) {
                            auto copy = record;
                            scripted::memberOf(*copy.operator->(), number).value = on ? 2 : 1;
                        }};
    };
    switch (kind) {
        case STAT_TYPE:
            return member(platform().statistics(label), "AV", AV);
        case COMP_TYPE:
            return member(platform().composition(label), "CO", CO);
        case PROP_TYPE:
            return member(platform().property(label), "CP", CP);
        default:
            return member(platform().emission(label), "CBE", CBE);
    }
}

Variable element(const QByteArray& label, SM_VARI_TYPE kind) {
    const QString name = QString::fromLatin1(label) + QLatin1String(":1");
    switch (kind) {
        case REAL_ARRAY_TYPE: {
            const auto array = platform().realArray(label);
            array.format("%g");
            return {name, [array](bool on) { array[1].value = on ? 2 : 1; }};
        }
        case INT_ARRAY_TYPE: {
            const auto array = platform().integerArray(label);
            array.format("%d");
            return {name, [array](bool on) { array[1].value = on ? 2 : 1; }};
        }
        case STRING_ARRAY_TYPE: {
            const auto array = platform().stringArray(label);
            return {name, [array](bool on) { scripted::put(array[1].value, on ? "second" : "first"); }};
        }
        default: {
            const auto array = platform().logicalArray(label);
            array.states("RUNNING", "STOPPED");
            return {name, [array](bool on) { array[1].value = on ? 1 : 0; }};
        }
    }
}

Variable make(const QByteArray& label, SM_VARI_TYPE kind) {
    const QString name = QString::fromLatin1(label);
    switch (kind) {
        case REAL_TYPE: {
            const auto real = platform().real(label).units("RPM").format("%g");
            return {name, [real](bool on) { real.value(on ? 2 : 1); }};
        }
        case INT_TYPE: {
            const auto integer = platform().integer(label).units("RPM").format("%d");
            return {name, [integer](bool on) { integer.value(on ? 2 : 1); }};
        }
        case LOGI_TYPE: {
            const auto logical = platform().logical(label).states("RUNNING", "STOPPED");
            return {name, [logical](bool on) { logical.value(on ? 1 : 0); }};
        }
        case STRING_TYPE: {
            const auto string = platform().string(label);
            return {name, [string](bool on) { string.text(on ? "second" : "first"); }};
        }
        case STAT_TYPE:
        case COMP_TYPE:
        case PROP_TYPE:
        case EMIS_TYPE:
            return numberLike(label + '.', kind);
        default:
            return element(label, kind);
    }
}

Variable make(const char* label, const BoundWidget& entry) {
    Variable variable = make(QByteArray(label), entry.kinds.first());
    variable.put(false);
    return variable;
}

bool isMarked(OstrelBase& widget, const BoundWidget& entry) {
    if (!entry.hasMark())
        return true;
    for (const QWidget* owner : entry.tipOwners(widget))
        if (owner->toolTip() != notFound)
            return false;
    return !widget.findChild<QWidget*>("iconLabel")->isHidden();
}

bool hasNoMark(OstrelBase& widget, const BoundWidget& entry) {
    if (!entry.hasMark())
        return true;
    for (const QWidget* owner : entry.tipOwners(widget))
        if (owner->toolTip() == notFound)
            return false;
    return widget.findChild<QWidget*>("iconLabel")->isHidden();
}

bool isSampled(OstrelBase& widget) {
    return TimerModerator::isRegistered(&widget, widget.getSampleRate());
}

}  // namespace

class BoundWidgetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() {
        QTest::addColumn<int>("index");
        for (int i = 0; i < boundWidgets().size(); ++i)
            QTest::newRow(boundWidgets()[i].name) << i;
    }
    void init();
    void cleanup() { m_widget.reset(); }

    void everyAcceptedKindIsShown();
    void everyOtherKindIsRefusedInSilence();
    void anUnknownNameIsMarkedAndNotSampled();
    void noVariableHasNoMark();
    void theMarkGoesWithTheNextVariable();
    void theToolTipComesBackWithTheVariable();
    void aToolTipThatIsSetMeanwhileWaits();
    void itsOwnTickSamples();
    void anotherTickDoesNot();
    void aPausedWidgetDoesNotSample();
    void aReconfiguringWidgetDoesNotSample();
    void theFlashTimerIsFollowedOrNot();
    void aVariableThatMovedIsFollowed();
    void aVariableThatComesIsBoundAndSampled();
    void aVariableThatGoesIsMarked();
    void aVariableThatComesBackIsShown();
    void aRemoteDisplayForcesTheRateAndHasNoMenu();
    void theNameReachesTheFormOnce();
    void aWidgetBehindAnotherBaseTicksAndGoes();
    void aWidgetThatDiesWhileTicksAreUnderWayIsLeftAlone();

private:
    QString face() const { return m_entry.face(*m_widget); }
    // Lets it read its variable.
    void refresh(OstrelBase& widget) const {
        if (m_entry.hasTimer)
            widget.ostrelTimerEvent(widget.getSampleRate());
        else
            emit SignalSlotSingleton::getInstance().readFromOstrel();
    }
    void bind(const Variable& variable) {
        m_widget->setName(variable.name);
        if (!m_entry.hasTimer)
            refresh(*m_widget);
    }
    // Starts and ends a reconfiguration of everything.
    void reconfigure() {
        m_widget->globalConfigEvent(1, -1);
        m_widget->globalConfigEvent(0, -1);
    }

    BoundWidget m_entry;
    std::unique_ptr<OstrelBase> m_widget;
};

void BoundWidgetTest::init() {
    startAsHost();
    QFETCH_GLOBAL(int, index);
    m_entry = boundWidgets()[index];
    m_widget.reset(m_entry.make(nullptr));
    m_widget->setObjectName("widget");
    platform().forgetCalls();
}

void BoundWidgetTest::everyAcceptedKindIsShown() {
    for (const SM_VARI_TYPE kind : m_entry.kinds) {
        const Variable variable = make("V" + QByteArray::number(kind), kind);
        variable.put(false);
        bind(variable);
        const QString before = face();
        variable.put(true);
        refresh(*m_widget);
        // An element of a logical array is told apart by its value alone.
        QVERIFY2(face() != before || kind == LOGI_ARRAY_TYPE, qPrintable(variable.name + " shows " + before));
        QCOMPARE(m_widget->getName(), variable.name);
        QVERIFY(hasNoMark(*m_widget, m_entry));
        QCOMPARE(isSampled(*m_widget), m_entry.hasTimer);
    }
}

void BoundWidgetTest::everyOtherKindIsRefusedInSilence() {
    if (!m_entry.refuses)
        QSKIP("takes the name of every variable");
    const Variable kept = make("KEPT", m_entry);
    bind(kept);
    const void* record = m_widget->ptr();
    const QString before = face();
    for (const SM_VARI_TYPE kind : everyKind) {
        if (m_entry.kinds.contains(kind))
            continue;
        const Variable other = make("OTHER" + QByteArray::number(kind), kind);
        m_widget->setName(other.name);
        QCOMPARE(m_widget->getName(), kept.name);
        QCOMPARE(m_widget->ptr(), record);
        QCOMPARE(face(), before);
        QVERIFY(hasNoMark(*m_widget, m_entry));
        QCOMPARE(isSampled(*m_widget), m_entry.hasTimer);
        QVERIFY(!QApplication::activeModalWidget());
    }
}

void BoundWidgetTest::anUnknownNameIsMarkedAndNotSampled() {
    const Variable known = make("KNOWN", m_entry);
    bind(known);
    m_widget->setName("NOBODY");
    QVERIFY(isMarked(*m_widget, m_entry));
    QVERIFY(!m_widget->ptr());
    QCOMPARE(!isSampled(*m_widget), m_entry.leavesTheTimer);
    // The former variable no longer reaches the screen.
    const QString before = face();
    known.put(true);
    refresh(*m_widget);
    QCOMPARE(face(), before);
}

void BoundWidgetTest::noVariableHasNoMark() {
    m_widget->setName(make("KNOWN", m_entry).name);
    m_widget->setName("not_set");
    QVERIFY(!m_entry.hasMark() || m_widget->findChild<QWidget*>("iconLabel")->isHidden());
    QVERIFY(!m_widget->ptr());
    QCOMPARE(!isSampled(*m_widget), m_entry.leavesTheTimer);
}

void BoundWidgetTest::theMarkGoesWithTheNextVariable() {
    m_widget->setName("NOBODY");
    m_widget->setName(make("KNOWN", m_entry).name);
    QVERIFY(hasNoMark(*m_widget, m_entry));
    QCOMPARE(isSampled(*m_widget), m_entry.hasTimer);
}

void BoundWidgetTest::theToolTipComesBackWithTheVariable() {
    if (!m_entry.hasMark())
        QSKIP("has no mark");
    m_widget->setProperty("toolTip", "speed of the shaft");
    m_widget->setName("NOBODY");
    QVERIFY(isMarked(*m_widget, m_entry));
    m_widget->setName(make("KNOWN", m_entry).name);
    for (const QWidget* owner : m_entry.tipOwners(*m_widget))
        QCOMPARE(owner->toolTip(), QString("speed of the shaft"));
    QCOMPARE(m_widget->property("toolTip").toString(), QString("speed of the shaft"));
}

void BoundWidgetTest::aToolTipThatIsSetMeanwhileWaits() {
    if (!m_entry.hasMark())
        QSKIP("has no mark");
    m_widget->setName("NOBODY");
    m_widget->setProperty("toolTip", "speed of the shaft");
    QVERIFY(isMarked(*m_widget, m_entry));
    m_widget->setName(make("KNOWN", m_entry).name);
    for (const QWidget* owner : m_entry.tipOwners(*m_widget))
        QCOMPARE(owner->toolTip(), QString("speed of the shaft"));
}

void BoundWidgetTest::itsOwnTickSamples() {
    if (!m_entry.hasTimer)
        QSKIP("a tick is nothing to it");
    const Variable variable = make("V", m_entry);
    bind(variable);
    const QString before = face();
    variable.put(true);
    QCOMPARE(face(), before);
    refresh(*m_widget);
    QVERIFY(face() != before);
}

void BoundWidgetTest::anotherTickDoesNot() {
    const Variable variable = make("V", m_entry);
    bind(variable);
    const QString before = face();
    variable.put(true);
    m_widget->ostrelTimerEvent(m_widget->getSampleRate() + 1);
    QCOMPARE(face(), before);
}

void BoundWidgetTest::aPausedWidgetDoesNotSample() {
    if (!m_entry.hasTimer)
        QSKIP("reads when it is asked to");
    const Variable variable = make("V", m_entry);
    bind(variable);
    const QString before = face();
    m_widget->setPaused(true);
    variable.put(true);
    refresh(*m_widget);
    QCOMPARE(face(), before);
    m_widget->setPaused(false);
    refresh(*m_widget);
    QVERIFY(face() != before);
}

void BoundWidgetTest::aReconfiguringWidgetDoesNotSample() {
    if (!m_entry.hasTimer)
        QSKIP("reads when it is asked to");
    const Variable variable = make("V", m_entry);
    bind(variable);
    const QString before = face();
    m_widget->globalConfigEvent(1, -1);
    variable.put(true);
    refresh(*m_widget);
    QCOMPARE(face(), before);
    m_widget->globalConfigEvent(0, -1);
    refresh(*m_widget);
    QVERIFY(face() != before);
}

void BoundWidgetTest::theFlashTimerIsFollowedOrNot() {
    const Variable variable = make("V", m_entry);
    bind(variable);
    const QColor before = m_widget->getColor();
    m_widget->setColor(Qt::red);
    const QColor set = m_widget->getColor();
    m_widget->ostrelTimerEvent(flashInterval);
    m_widget->ostrelTimerEvent(flashInterval);
    // Without a parent the two phases of blinking have one colour, which is not the one set.
    if (m_entry.flashes)
        QVERIFY(m_widget->getColor() != set || before == set);
    else
        QCOMPARE(m_widget->getColor(), set);
}

void BoundWidgetTest::aVariableThatMovedIsFollowed() {
    for (const SM_VARI_TYPE kind : m_entry.kinds) {
        const QByteArray label = "V" + QByteArray::number(kind);
        const Variable variable = make(label, kind);
        variable.put(false);
        bind(variable);
        const QString before = face();
        const void* place = m_widget->ptr();
        const bool hasMembers = kind >= STAT_TYPE && kind <= EMIS_TYPE;
        platform().move(hasMembers ? QByteArray(label + '.') : label);
        reconfigure();
        QVERIFY(m_widget->ptr() != place);
        // The former record may stand still for ever; the new one counts.
        variable.put(true);
        refresh(*m_widget);
        QVERIFY2(face() != before || kind == LOGI_ARRAY_TYPE, qPrintable(variable.name));
    }
}

void BoundWidgetTest::aVariableThatComesIsBoundAndSampled() {
    const SM_VARI_TYPE kind = m_entry.kinds.first();
    m_widget->setName("LATE");
    QVERIFY(isMarked(*m_widget, m_entry));
    const Variable variable = make("LATE", kind);
    variable.put(false);
    reconfigure();
    QVERIFY(hasNoMark(*m_widget, m_entry));
    QVERIFY(m_widget->ptr());
    QCOMPARE(isSampled(*m_widget), m_entry.hasTimer);
    const QString before = face();
    variable.put(true);
    refresh(*m_widget);
    QVERIFY(face() != before);
}

void BoundWidgetTest::aVariableThatGoesIsMarked() {
    const Variable variable = make("GOING", m_entry);
    bind(variable);
    platform().remove("GOING");
    reconfigure();
    QVERIFY(isMarked(*m_widget, m_entry));
    QVERIFY(!m_widget->ptr());
    QCOMPARE(!isSampled(*m_widget), m_entry.leavesTheTimer);
}

// Its record stands where it stood, with the value that it had.
void BoundWidgetTest::aVariableThatComesBackIsShown() {
    for (const SM_VARI_TYPE kind : m_entry.kinds) {
        const QByteArray label = "V" + QByteArray::number(kind);
        const Variable variable = make(label, kind);
        variable.put(true);
        bind(variable);
        const QString before = face();
        const SHARED_MEMORY handle = platform().handle(variable.name);
        platform().remove(qPrintable(variable.name));
        reconfigure();
        QVERIFY(!m_widget->ptr());
        platform().addName(variable.name, handle);
        reconfigure();
        refresh(*m_widget);
        QVERIFY(m_widget->ptr());
        QVERIFY2(face() == before, qPrintable(variable.name + " shows " + face()));
        QVERIFY(hasNoMark(*m_widget, m_entry));
        QCOMPARE(isSampled(*m_widget), m_entry.hasTimer);
    }
}

void BoundWidgetTest::aRemoteDisplayForcesTheRateAndHasNoMenu() {
    RemoteDisplay = true;
    RemoteUpdateRate = 3000;
    m_widget.reset(m_entry.make(nullptr));
    const Variable variable = make("V", m_entry);
    if (m_entry.hasTimer)
        m_widget->setSampleRate(100);
    bind(variable);
    QCOMPARE(m_widget->getSampleRate(), 3000);
    QCOMPARE(TimerModerator::isRegistered(m_widget.get(), 3000), m_entry.hasTimer);
    QVERIFY(!TimerModerator::isRegistered(m_widget.get(), 100));
    QVERIFY(m_widget->actions().isEmpty());
}

void BoundWidgetTest::theNameReachesTheFormOnce() {
    if (!m_entry.hasTimer)
        QSKIP("a change of variable is none of its form");
    const Variable variable = make("V", m_entry);
    bind(variable);
    bind(variable);
    const QString line = QString("cacheProperty %1 widget name %2 loading").arg(m_entry.name, variable.name);
    QVERIFY2(platform().calls({"cacheProperty"}).count(line) == 1,
             qPrintable(platform().calls({"cacheProperty"}).join('\n')));
}

void BoundWidgetTest::aWidgetBehindAnotherBaseTicksAndGoes() {
    std::unique_ptr<OstrelBase> widget(m_entry.makeBehindAnotherBase());
    const Variable variable = make("V", m_entry);
    widget->setName(variable.name);
    QCOMPARE(isSampled(*widget), m_entry.hasTimer);
    const QString before = m_entry.face(*widget);
    variable.put(true);
    refresh(*widget);
    QVERIFY(m_entry.face(*widget) != before);
    const OstrelBase* address = widget.get();
    widget.reset();
    QVERIFY(!TimerModerator::isRegistered(const_cast<OstrelBase*>(address), 1000));
}

void BoundWidgetTest::aWidgetThatDiesWhileTicksAreUnderWayIsLeftAlone() {
    if (!m_entry.hasTimer)
        QSKIP("no tick is sent to it");
    static int period = 7000;
    ++period;
    const QString event = QString("tick%1").arg(period);
    platform().events().addTimer(period, event);
    const Variable variable = make("V", m_entry);
    bind(variable);
    m_widget->setSampleRate(period);
    QTRY_VERIFY(platform().events().threadsWaiting(event) == 1);
    const QString before = face();
    variable.put(true);
    platform().events().raise(event);
    QTRY_VERIFY(face() != before);
    QTRY_VERIFY(platform().events().threadsWaiting(event) == 1);
    // Queued to the widget, which is gone when they would arrive.
    for (int i = 0; i < 20; ++i)
        platform().events().raise(event);
    QTRY_VERIFY(platform().events().threadsWaiting(event) <= 1);
    m_widget.reset();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
}

OSTREL_TEST(BoundWidgetTest)
#include "boundwidget_test.moc"
