// A logical variable as a lamp.
#include <ostrel-display/qled.h>

#include <QMetaEnum>

#include "indicatortest.h"
#include "qttests.h"
#include "widgets/ledwidget.h"

namespace {

using Lamp = Indicator<ZelLed>;

const QStringList lampCalls{"QLed::setValue", "QLed::setOnColor", "QLed::setOffColor", "QLed::setShape"};

FlashingLabel* state(const Lamp& lamp) {
    return lamp.part<FlashingLabel>("state");
}
FlashingLabel* label(const Lamp& lamp) {
    return lamp.part<FlashingLabel>("label");
}
QString shownState(const Lamp& lamp) {
    return state(lamp)->isHidden() ? QStringLiteral("(hidden)") : state(lamp)->text();
}

}  // namespace

class ZelLedTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void itsProperties_data();
    void itsProperties();
    void itsPropertiesAndSlotsStandInOrder();
    void itsEnumerations();
    void itsForm();
    void theOrderOfConstruction();
    void aNewLamp();
    void aRemoteDisplayHasNoMenu();

    void theLampTheNameAndTheStateAreShown();
    void theFirstSampleReachesTheLamp();
    void aLampThatRestsIsLeftAlone();
    void theStateIsComparedWithItsBlanks();
    void withoutTheStateItIsHidden();
    void switchingTheStateRedrawsOnce();
    void anUnknownVariableTurnsTheLampOff();
    void anUnknownVariableAtFirst();
    void anotherKindKeepsTheOldBinding();
    void theSameNameAgainWritesTheNameOnly();
    void anotherVariableWithTheSameValue();
    void aVariableThatChangesWhileItIsBound();
    void aVariableThatComesBackLightsTheLamp();
    void aMovedRecordIsBoundAnew();
    void theOrderOfAFirstBinding();
    void noAlarmColoursIt();

    void theHostMaySetTheLamp();
    void theFormLearnsEachProperty();
    void aHiddenName();
    void theFontIsThatOfTheName();
    void theNotFoundTipStandsBeforeItsOwn();
    void theOperatorChoosesAVariable();
    void resizingIsNothingToTheLamp();
    void theLampGrowsWithItsWidget();
};

void ZelLedTest::init() {
    startAsHost();
    lampIsSet = nullptr;
    platform().logical("PUMP").value(1).states("RUNNING", "STOPPED");
}

void ZelLedTest::itsProperties_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("onColor") << QByteArray("ledColor") << QVariant(1);
    QTest::newRow("offColor") << QByteArray("ledColor") << QVariant(0);
    QTest::newRow("shape") << QByteArray("ledShape") << QVariant(0);
    QTest::newRow("name") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("nameFont") << QByteArray("QFont") << QVariant(QApplication::font());
    QTest::newRow("unitsVis") << QByteArray("bool") << QVariant(true);
    QTest::newRow("sampleRate") << QByteArray("int") << QVariant(1000);
    QTest::newRow("toolTip") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("displayAlias") << QByteArray("bool") << QVariant(true);
    QTest::newRow("hideName") << QByteArray("bool") << QVariant(false);
}

void ZelLedTest::itsProperties() {
    QFETCH(QByteArray, type);
    QFETCH(QVariant, value);
    compareProperty(Lamp(), QTest::currentDataTag(), type, value);
}

void ZelLedTest::itsPropertiesAndSlotsStandInOrder() {
    const QMetaObject& meta = ZelLed::staticMetaObject;
    QCOMPARE(ownProperties(meta), QStringList({"onColor", "offColor", "shape", "name", "nameFont", "unitsVis",
                                               "sampleRate", "toolTip", "displayAlias", "hideName"}));
    QCOMPARE(ownMethods(meta), QStringList({"ostrelTimerEvent(int)", "ZelLed_customContextMenuRequested(QPoint)",
                                            "sample(bool)", "sample()"}));
}

void ZelLedTest::itsEnumerations() {
    const auto keys = [](const char* name) {
        const QMetaObject& meta = ZelLed::staticMetaObject;
        const QMetaEnum values = meta.enumerator(meta.indexOfEnumerator(name));
        QStringList list;
        for (int i = 0; i < values.keyCount(); ++i)
            list << QStringLiteral("%1=%2").arg(values.key(i)).arg(values.value(i));
        return list;
    };
    QCOMPARE(keys("ledColor"),
             QStringList({"Red=0", "Green=1", "Yellow=2", "Grey=3", "Orange=4", "Purple=5", "Blue=6"}));
    QCOMPARE(keys("ledShape"), QStringList({"Circle=0", "Square=1", "Triangle=2", "Rounded=3", "Triangle_90=4",
                                            "Triangle_180=5", "Triangle_270=6"}));
}

void ZelLedTest::itsForm() {
    const Lamp lamp;
    QCOMPARE(lamp.minimumSize(), QSize(50, 67));
    QCOMPARE(lamp.baseSize(), QSize(50, 67));
    QCOMPARE(lamp.contextMenuPolicy(), Qt::ActionsContextMenu);
    QVERIFY(lamp.acceptDrops());
    QCOMPARE(lamp.whatsThis(), QString("Led widget"));
    QCOMPARE(lamp.layout()->objectName(), QString("verticalLayout"));
    QCOMPARE(lamp.layout()->contentsMargins(), QMargins());
    const auto* column = lamp.part<QWidget>("baseWidget")->layout();
    QCOMPARE(column->objectName(), QString("verticalLayout_2"));
    QCOMPARE(column->contentsMargins(), QMargins());
    QStringList rows;
    for (int i = 0; i < column->count(); ++i) {
        QStringList cells{column->itemAt(i)->layout()->objectName()};
        for (int k = 0; k < column->itemAt(i)->layout()->count(); ++k) {
            const QWidget* widget = column->itemAt(i)->layout()->itemAt(k)->widget();
            cells << (widget ? widget->objectName() : QString("-"));
        }
        rows << cells.join(' ');
    }
    QCOMPARE(rows, QStringList({"horizontalLayout_2 - label iconLabel -", "horizontalLayout - qLed -",
                                "horizontalLayout_3 - state -"}));
    QCOMPARE(label(lamp)->alignment(), Qt::AlignCenter);
    QCOMPARE(label(lamp)->margin(), -1);
    QCOMPARE(state(lamp)->alignment(), Qt::AlignCenter);
    QCOMPARE(lamp.icon()->maximumSize(), QSize(16, 16));
    const auto* led = lamp.part<QLed>("qLed");
    QCOMPARE(led->minimumSize(), QSize(28, 28));
    QCOMPARE(led->baseSize(), QSize(20, 20));
    QVERIFY(led->value());
}

void ZelLedTest::theOrderOfConstruction() {
    platform().forgetCalls();
    const ZelLed lamp;
    QStringList calls = platform().calls();
    calls.removeAll("get_private_shrd_mem reconfig_data 28");
    // The colours are told before the lamp has its name; the shape is the lamp's own until one is set.
    QCOMPARE(calls, QStringList({"QLed::setValue 1", "QLed::setOnColor 1", "cacheProperty  ZelLed onColor 1 loading",
                                 "QLed::setOffColor 0", "cacheProperty  ZelLed offColor 0 loading"}));
}

void ZelLedTest::aNewLamp() {
    const Lamp lamp;
    QCOMPARE(lamp.getPreviousName(), QString("not_set"));
    QCOMPARE(int{lamp._varType}, 1);
    QVERIFY(!lamp.smartTicks());
    QVERIFY(!lamp._monitorLimit);
    QVERIFY(!lamp._checkLimit);
    QVERIFY(lamp.icon()->isHidden());
    QCOMPARE(lamp._lastValue, -99999.0);
    QCOMPARE(lamp.menu(), QStringList({"Change Variable", "Edit Properties", "Copy Variable Name",
                                       "Paste Variable Name", "Disable Widget"}));
}

void ZelLedTest::aRemoteDisplayHasNoMenu() {
    RemoteDisplay = true;
    const Lamp lamp;
    QVERIFY(lamp.actions().isEmpty());
    QVERIFY(!lamp._monitorLimit);
    QVERIFY(!lamp._checkLimit);
}

void ZelLedTest::theLampTheNameAndTheStateAreShown() {
    const auto valve = platform().logical("VALVE").value(-3).states("  OPEN ", "SHUT");
    Lamp lamp;
    lamp.setName("VALVE");
    QVERIFY(lamp.value());
    QCOMPARE(label(lamp)->text(), QString("VALVE"));
    QCOMPARE(shownState(lamp), QString("OPEN"));
    QVERIFY(lamp.isSampled());
    valve.value(0);
    lamp.tick();
    QVERIFY(!lamp.value());
    QCOMPARE(shownState(lamp), QString("SHUT"));
}

void ZelLedTest::theFirstSampleReachesTheLamp() {
    platform().logical("VALVE").value(0);
    Lamp lamp;
    lamp.setName("VALVE");
    // Once while binding, once as the first sample.
    QCOMPARE(platform().calls(lampCalls), QStringList({"QLed::setValue 0", "QLed::setValue 0"}));
}

void ZelLedTest::aLampThatRestsIsLeftAlone() {
    const auto valve = platform().logical("VALVE").value(1).states("OPEN", "SHUT");
    Lamp lamp;
    lamp.setName("VALVE");
    platform().forgetCalls();
    state(lamp)->setText("scratched");
    lamp.tick();
    QCOMPARE(platform().calls(lampCalls), QStringList());
    QCOMPARE(shownState(lamp), QString("scratched"));
    // Another number for the same truth is another value.
    valve.value(2);
    lamp.tick();
    QCOMPARE(platform().calls(lampCalls), QStringList({"QLed::setValue 1"}));
    QCOMPARE(shownState(lamp), QString("OPEN"));
}

void ZelLedTest::theStateIsComparedWithItsBlanks() {
    const auto valve = platform().logical("VALVE").value(1).states("OPEN ", "SHUT");
    Lamp lamp;
    lamp.setName("VALVE");
    QCOMPARE(lamp.svalue, QString("OPEN "));
    QCOMPARE(shownState(lamp), QString("OPEN"));
    // The texts of a state may change while its value rests.
    valve.states("WIDE OPEN", "SHUT");
    lamp.tick();
    QCOMPARE(shownState(lamp), QString("WIDE OPEN"));
}

void ZelLedTest::withoutTheStateItIsHidden() {
    const auto valve = platform().logical("VALVE").value(1).states("OPEN", "SHUT");
    Lamp lamp;
    lamp.setUnitsVis(false);
    lamp.setName("VALVE");
    QCOMPARE(shownState(lamp), QString("(hidden)"));
    valve.value(0);
    lamp.tick();
    QCOMPARE(shownState(lamp), QString("(hidden)"));
    QVERIFY(!lamp.value());
    state(lamp)->show();
    lamp.setValue(true);
    QCOMPARE(shownState(lamp), QString("(hidden)"));
}

void ZelLedTest::switchingTheStateRedrawsOnce() {
    Lamp lamp;
    lamp.setName("PUMP");
    platform().forgetCalls();
    lamp.setUnitsVis(true);
    lamp.tick();
    QCOMPARE(platform().calls(lampCalls), QStringList());
    lamp.setUnitsVis(false);
    QCOMPARE(shownState(lamp), QString("RUNNING"));
    lamp.tick();
    lamp.tick();
    QCOMPARE(platform().calls(lampCalls), QStringList({"QLed::setValue 1"}));
    QCOMPARE(shownState(lamp), QString("(hidden)"));
    lamp.setUnitsVis(true);
    lamp.tick();
    QCOMPARE(platform().calls(lampCalls).size(), 2);
    QCOMPARE(shownState(lamp), QString("RUNNING"));
}

void ZelLedTest::anUnknownVariableTurnsTheLampOff() {
    Lamp lamp;
    lamp.setName("PUMP");
    platform().forgetCalls();
    lamp.setName("NOBODY");
    QCOMPARE(platform().calls(lampCalls), QStringList({"QLed::setValue 0"}));
    QCOMPARE(shownState(lamp), QString("(hidden)"));
    QCOMPARE(label(lamp)->text(), QString("NOBODY"));
}

void ZelLedTest::anUnknownVariableAtFirst() {
    Lamp lamp;
    QVERIFY(lamp.value());
    lamp.setName("not_set");
    QVERIFY(!lamp.value());
    QVERIFY(lamp.icon()->isHidden());
    QCOMPARE(label(lamp)->text(), QString("not_set"));
    QCOMPARE(platform().calls({"cacheProperty"}), QStringList({"cacheProperty ZelLed lamp name not_set loading"}));
}

void ZelLedTest::anotherKindKeepsTheOldBinding() {
    platform().real("SPEED");
    Lamp lamp;
    lamp.setName("PUMP");
    lamp.setName("NOBODY");
    lamp.setName("SPEED");
    // What was missing is looked for again, but the mark is gone.
    QCOMPARE(lamp.getName(), QString("NOBODY"));
    QVERIFY(lamp.icon()->isHidden());
    QVERIFY(!lamp.value());
}

void ZelLedTest::theSameNameAgainWritesTheNameOnly() {
    Lamp lamp;
    lamp.setName("PUMP");
    TimerModerator::releaseFromTimer(&lamp);
    platform().forgetCalls();
    label(lamp)->setText("scratched");
    lamp.setName("PUMP");
    QCOMPARE(label(lamp)->text(), QString("PUMP"));
    QVERIFY(!lamp.isSampled());
    QCOMPARE(platform().calls(lampCalls), QStringList());
}

void ZelLedTest::anotherVariableWithTheSameValue() {
    platform().logical("FAN").value(1).states("BLOWING", "STILL");
    Lamp lamp;
    lamp.setName("PUMP");
    platform().forgetCalls();
    lamp.setName("FAN");
    QCOMPARE(platform().calls(lampCalls), QStringList({"QLed::setValue 1"}));
    QCOMPARE(shownState(lamp), QString("BLOWING"));
    QVERIFY(lamp.isSampled());
}

// Another process writes it between the two looks at it.
void ZelLedTest::aVariableThatChangesWhileItIsBound() {
    const auto valve = platform().logical("VALVE").value(0);
    Lamp lamp;
    lamp.setName("PUMP");
    lampIsSet = [&] {
        lampIsSet = nullptr;
        valve.value(1);
    };
    lamp.setName("VALVE");
    QVERIFY(lamp.value());
}

void ZelLedTest::aVariableThatComesBackLightsTheLamp() {
    Lamp lamp;
    lamp.setName("PUMP");
    const SHARED_MEMORY handle = platform().handle("PUMP");
    platform().remove("PUMP");
    reconfigure(lamp);
    QVERIFY(!lamp.value());
    platform().addName("PUMP", handle);
    reconfigure(lamp);
    QVERIFY(lamp.value());
    QCOMPARE(shownState(lamp), QString("RUNNING"));
    // The same where the lamp is bound again by hand.
    lamp.setName("not_set");
    lamp.setName("PUMP");
    QVERIFY(lamp.value());
}

void ZelLedTest::aMovedRecordIsBoundAnew() {
    const auto pump = platform().logical("PUMP").value(0).states("RUNNING", "STOPPED");
    Lamp lamp;
    lamp.setName("PUMP");
    platform().move("PUMP");
    pump.value(1);
    reconfigure(lamp);
    QVERIFY(lamp.value());
    QCOMPARE(shownState(lamp), QString("RUNNING"));
    QVERIFY(lamp.isSampled());
}

void ZelLedTest::theOrderOfAFirstBinding() {
    Lamp lamp;
    lamp.setName("PUMP");
    QCOMPARE(platform().calls(),
             QStringList({"find_variable PUMP", "find_variable PUMP", "find_alias_label PUMP",
                          "find_alias_of_target PUMP", "find_variable PUMP", "get_vrbl_adr PUMP", "QLed::setValue 1",
                          "cacheProperty ZelLed lamp name PUMP loading", "find_variable PUMP", "QLed::setValue 1"}));
    QVERIFY(!lamp.getInitFlag());
    lamp.tick();
    QVERIFY(lamp.getInitFlag());
}

void ZelLedTest::noAlarmColoursIt() {
    platform().logical("VALVE").status(1025);
    Lamp lamp;
    lamp.setName("VALVE");
    QVERIFY(!lamp.getColor().isValid());
    QVERIFY(!TimerModerator::isRegistered(&lamp, 498));
    QCOMPARE(int{lamp.limitColorCode}, 0);
}

void ZelLedTest::theHostMaySetTheLamp() {
    platform().logical("VALVE").value(1).states("OPEN ", "SHUT ");
    Lamp lamp;
    lamp.setValue(false);
    QVERIFY(!lamp.value());
    lamp.setName("VALVE");
    lamp.setValue(false);
    QVERIFY(!lamp.value());
    QCOMPARE(shownState(lamp), QString("SHUT"));
    QCOMPARE(lamp.svalue, QString("OPEN "));
}

void ZelLedTest::theFormLearnsEachProperty() {
    Lamp lamp;
    lamp.setOnColor(ZelLed::Blue);
    lamp.setOffColor(ZelLed::Orange);
    lamp.setShape(ZelLed::Triangle_270);
    lamp.setNameFont(QFont("Courier"));
    lamp.setUnitsVis(true);
    lamp.setToolTipString("tip");
    lamp.setHideName(false);
    lamp.finishLoading();
    lamp.setUnitsVis(false);
    QCOMPARE(
        platform().calls(),
        QStringList(
            {"QLed::setOnColor 6", "cacheProperty ZelLed lamp onColor 6 loading", "QLed::setOffColor 4",
             "cacheProperty ZelLed lamp offColor 4 loading", "QLed::setShape 6",
             "cacheProperty ZelLed lamp shape 6 loading", "cachePropertyFont ZelLed lamp nameFont Courier loading",
             "cacheProperty ZelLed lamp unitsVis true loading", "cacheProperty ZelLed lamp toolTip tip loading",
             "cacheProperty ZelLed lamp hideName false loading", "cacheProperty ZelLed lamp unitsVis false changed"}));
    QCOMPARE(lamp.onColor(), ZelLed::Blue);
    QCOMPARE(lamp.offColor(), ZelLed::Orange);
    QCOMPARE(lamp.shape(), ZelLed::Triangle_270);
}

void ZelLedTest::aHiddenName() {
    Lamp lamp;
    lamp.setName("PUMP");
    lamp.setHideName(true);
    QVERIFY(lamp.getHideName());
    QVERIFY(label(lamp)->isHidden());
    lamp.setName("NOBODY");
    QVERIFY(label(lamp)->isHidden());
    QVERIFY(!lamp.icon()->isHidden());
    lamp.setHideName(false);
    QVERIFY(!label(lamp)->isHidden());
}

void ZelLedTest::theFontIsThatOfTheName() {
    Lamp lamp;
    lamp.setNameFont(QFont("Courier", 19));
    QCOMPARE(label(lamp)->font().pointSize(), 19);
    QCOMPARE(lamp.getNameFont().pointSize(), 19);
    QVERIFY(state(lamp)->font().pointSize() != 19);
}

void ZelLedTest::theNotFoundTipStandsBeforeItsOwn() {
    Lamp lamp;
    lamp.setToolTipString("first");
    QCOMPARE(lamp.toolTip(), QString("first"));
    lamp.setName("NOBODY");
    QCOMPARE(lamp.toolTip(), QString("VARIABLE NOT FOUND"));
    lamp.setToolTipString("second");
    QCOMPARE(lamp.toolTip(), QString("VARIABLE NOT FOUND"));
    QCOMPARE(lamp.getToolTip(), QString("second"));
    lamp.setName("not_set");
    QCOMPARE(lamp.toolTip(), QString("second"));
}

void ZelLedTest::theOperatorChoosesAVariable() {
    UserInterfaceLock = 1;
    serveSmallStore();
    Ostrel_Plugins_Master_variables_dirty = true;
    Lamp lamp;
    chooseBySlot(&lamp, "ZelLed_customContextMenuRequested", "RUN");
    QCOMPARE(lamp.getName(), QString("RUN"));
    QVERIFY(lamp.isSampled());
    chooseBySlot(&lamp, "ZelLed_customContextMenuRequested", QString());
    QCOMPARE(lamp.getName(), QString("RUN"));
}

void ZelLedTest::resizingIsNothingToTheLamp() {
    Lamp lamp;
    lamp.resize(300, 200);
    QCOMPARE(platform().calls(), QStringList());
}

void ZelLedTest::theLampGrowsWithItsWidget() {
    Lamp lamp;
    lamp.resize(200, 200);
    lamp.show();
    QVERIFY(QTest::qWaitForWindowExposed(&lamp));
    const QWidget* drawn = lamp.part<QLed>("qLed");
    QVERIFY2(drawn->width() >= 90 && drawn->height() >= 90, qPrintable(QString::number(drawn->width())));
    QCOMPARE(drawn->x() + drawn->width() / 2, 100);
}

OSTREL_TEST(ZelLedTest)
#include "zelled_test.moc"
