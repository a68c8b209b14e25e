// A number on a round dial.
#include <ostrel-display/qtsvgdialgauge.h>

#include <QCloseEvent>

#include "indicatortest.h"
#include "qttests.h"
#include "ui_dialgauge.h"
#include "widgets/dialgauge.h"

namespace {

using Dial = Indicator<ZelDialGauge>;

// The calls to the drawn dial, without its class.
QStringList dialCalls() {
    QStringList calls = platform().calls().filter("QtSvgDialGauge::");
    return calls.replaceInStrings("QtSvgDialGauge::", QString());
}
QStringList dialCalls(const char* function) {
    return platform().calls({QStringLiteral("QtSvgDialGauge::") + QLatin1String(function)});
}
QString arcs() {
    return dialCalls("setAllArcs").last().section(' ', 1);
}
QString tip(const Dial& dial) {
    return dial.getDial()->dial->toolTip();
}
QString face(const Dial& dial) {
    return dial.getDial()->dial->label();
}

const QString noArc = "makeArc 0 0 0 0 0 0";

}  // namespace

class ZelDialGaugeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void itsProperties_data();
    void itsProperties();
    void itsPropertiesAndSlotsStandInOrder();
    void itsForm();
    void theOrderOfConstruction();
    void aNewDial();
    void aRemoteDisplaySaysSo();

    void aRealIsShown();
    void anIntegerIsShown();
    void aNewIntegerIsShownWhateverItIs();
    void theUnitsStandBehindTheName();
    void theUnitsAskedForStandBehindTheNameAskedFor();
    void theUnitsMayBeLeftOut();
    void switchingTheUnitsWaitsForANewValue();
    void anUnknownVariableIsUnbound();
    void anotherKindKeepsTheOldBinding();
    void theSameNameShowsTheValueAgain();
    void aRebindingEndsAPause();
    void theOrderOfAFirstBinding();

    void aValueThatRestsTouchesTheArcsAlone();
    void aValueIsConverted();
    void aConvertedIntegerIsFormattedAsAReal();
    void aValueThatDoesNotConvertIsShownAsItIs();

    void aVariableWithoutLimitsHasSixInvisibleArcs();
    void eachLimitHasItsArc();
    void aLimitThatMovesMovesItsArc();
    void limitsAreConverted();
    void limitsThatCannotBeReadLeaveTheArcs();
    void theColourOfALimit_data();
    void theColourOfALimit();
    void theLastLimitColoursTheWidget();

    void theDialIsToldOnceThatLoadingIsOver();
    void theFormLearnsEachProperty();
    void theDialIsAskedForItsProperties();
    void theToolTipIsToldBeforeItIsSet();
    void aClosedDialIsNotSampled();
    void resizingIsIgnored();
    void theOperatorChoosesAVariable();
};

void ZelDialGaugeTest::init() {
    startAsHost();
    platform().real("SPEED").value(1500).units("rpm").format("%8.1f");
}

void ZelDialGaugeTest::itsProperties_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("name") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("unitsVis") << QByteArray("bool") << QVariant(true);
    // The dial's own, which is not the base's.
    QTest::newRow("smartTicks") << QByteArray("bool") << QVariant(true);
    QTest::newRow("sampleRate") << QByteArray("int") << QVariant(1000);
    QTest::newRow("minimum") << QByteArray("double") << QVariant(-1.5);
    QTest::newRow("maximum") << QByteArray("double") << QVariant(1.5);
    QTest::newRow("precision") << QByteArray("int") << QVariant(3);
    QTest::newRow("startAngle") << QByteArray("double") << QVariant(-90.0);
    QTest::newRow("endAngle") << QByteArray("double") << QVariant(90.0);
    QTest::newRow("ticks") << QByteArray("int") << QVariant(4);
    QTest::newRow("backColor") << QByteArray("QColor") << QVariant(QColor(Qt::darkRed));
    QTest::newRow("borderColor") << QByteArray("QColor") << QVariant(QColor(Qt::darkGreen));
    QTest::newRow("textColor") << QByteArray("QColor") << QVariant(QColor(Qt::darkBlue));
    QTest::newRow("displayAlias") << QByteArray("bool") << QVariant(true);
    QTest::newRow("units") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("toolTip") << QByteArray("QString") << QVariant(QString());
}

void ZelDialGaugeTest::itsProperties() {
    QFETCH(QByteArray, type);
    QFETCH(QVariant, value);
    compareProperty(Dial(), QTest::currentDataTag(), type, value);
}

void ZelDialGaugeTest::itsPropertiesAndSlotsStandInOrder() {
    const QMetaObject& meta = ZelDialGauge::staticMetaObject;
    QCOMPARE(ownProperties(meta), QStringList({"name", "unitsVis", "smartTicks", "sampleRate", "minimum", "maximum",
                                               "precision", "startAngle", "endAngle", "ticks", "backColor",
                                               "borderColor", "textColor", "displayAlias", "units", "toolTip"}));
    QCOMPARE(ownMethods(meta),
             QStringList({"ostrelTimerEvent(int)", "closeEvent(QCloseEvent*)",
                          "dialgauge_customContextMenuRequested(QPoint)", "sample(bool)", "sample()"}));
}

void ZelDialGaugeTest::itsForm() {
    const ZelDialGauge widget;
    QCOMPARE(widget.objectName(), QString("dialgauge"));
    QCOMPARE(widget.windowTitle(), QString("Form"));
    QCOMPARE(widget.maximumSize(), QSize(341, 261));
    QCOMPARE(widget.contextMenuPolicy(), Qt::ActionsContextMenu);
    QVERIFY(widget.acceptDrops());
    const Dial dial;
    auto* column = dial.part<QVBoxLayout>("verticalLayout");
    QCOMPARE(column, dial.layout());
    QCOMPARE(column->spacing(), 0);
    QCOMPARE(column->contentsMargins(), QMargins());
    auto* remote = dial.part<QLabel>("remoteLabel");
    QCOMPARE(column->itemAt(0)->widget(), dial.part<QtSvgDialGauge>("dial"));
    QCOMPARE(column->itemAt(1)->widget(), remote);
    QCOMPARE(column->itemAt(2)->widget(), dial.icon());
    QCOMPARE(dial.part<QWidget>("dial")->minimumSize(), QSize(160, 160));
    QCOMPARE(dial.skin(), QString("Speedometer3"));
    QCOMPARE(remote->text(), QString("Dial Gauge does display remotely"));
    QVERIFY(remote->wordWrap());
    QCOMPARE(dial.icon()->alignment(), Qt::AlignCenter);
}

void ZelDialGaugeTest::theOrderOfConstruction() {
    platform().forgetCalls();
    const ZelDialGauge dial;
    QCOMPARE(platform().calls(),
             QStringList({"get_private_shrd_mem reconfig_data 28", "QtSvgDialGauge::setSkin Speedometer3"}));
}

void ZelDialGaugeTest::aNewDial() {
    const Dial dial;
    QCOMPARE(dial.getPreviousName(), QString("not_set"));
    QCOMPARE(int{dial._varType}, 128);
    QCOMPARE(dial._lastValue, -99999.0);
    QVERIFY(!dial.limit_status);
    QVERIFY(dial.icon()->isHidden());
    QVERIFY(dial.part<QLabel>("remoteLabel")->isHidden());
    QCOMPARE(dial.getValue(), 7.5);
    QVERIFY(dial.menu().contains("Change Units"));
}

void ZelDialGaugeTest::aRemoteDisplaySaysSo() {
    RemoteDisplay = true;
    platform().forgetCalls();
    ZelDialGauge remote;
    QCOMPARE(dialCalls(), QStringList({"setSkin Speedometer3", "set_remote"}));
    Dial dial;
    QVERIFY(!dial.part<QLabel>("remoteLabel")->isHidden());
    // Everything else goes on.
    dial.setName("SPEED");
    QCOMPARE(dial.getValue(), 1500.0);
    QVERIFY(TimerModerator::isRegistered(&dial, 2000));
}

void ZelDialGaugeTest::aRealIsShown() {
    const auto speed = platform().real("SPEED").value(1500).units("rpm").format("%8.1f");
    Dial dial;
    dial.setName("SPEED");
    QCOMPARE(dial.getValue(), 1500.0);
    QCOMPARE(tip(dial), QString("1500.0"));
    QCOMPARE(static_cast<void*>(dial.limit_status), static_cast<void*>(&speed->limit_status));
    QVERIFY(dial.isSampled());
    speed.value(1600);
    dial.tick();
    QCOMPARE(dial.getValue(), 1600.0);
    QCOMPARE(tip(dial), QString("1600.0"));
    QCOMPARE(dial._lastValue, 1600.0);
}

void ZelDialGaugeTest::anIntegerIsShown() {
    const auto count = platform().integer("COUNT").value(12).units("parts").format("%5d");
    Dial dial;
    dial.setName("COUNT");
    QCOMPARE(dial.getValue(), 12.0);
    QCOMPARE(tip(dial), QString("12"));
    QCOMPARE(face(dial), QString("COUNT[PARTS]"));
    QCOMPARE(static_cast<void*>(dial.limit_status), static_cast<void*>(&count->limit_status));
    count.value(13);
    dial.tick();
    QCOMPARE(dial.getValue(), 13.0);
    QCOMPARE(dial._ilastValue, 13);
}

void ZelDialGaugeTest::aNewIntegerIsShownWhateverItIs() {
    platform().integer("ZERO").value(0).format("%d");
    platform().integer("COUNT").value(8).units("PARTS").format("%d");
    platform().converts("PARTS", "DOZEN", 0.125);
    Dial dial;
    dial.setName("SPEED");
    dial.setName("ZERO");
    QCOMPARE(dial.getValue(), 0.0);
    // The number rests, but not what it is shown in.
    dial.setName("COUNT");
    dial.setUnits("DOZEN");
    dial.setName("COUNT");
    QCOMPARE(dial.getValue(), 1.0);
}

void ZelDialGaugeTest::theUnitsStandBehindTheName() {
    Dial dial;
    dial.setName("SPEED");
    QCOMPARE(face(dial), QString("SPEED[RPM]"));
    dial.setUnits("not_set");
    dial.setName("SPEED");
    QCOMPARE(face(dial), QString("SPEED[RPM]"));
}

void ZelDialGaugeTest::theUnitsAskedForStandBehindTheNameAskedFor() {
    platform().converts("rpm", "hz", 0.5);
    platform().alias("N", "SPEED");
    Dial dial;
    dial.setName("SPEED");
    // The name of the variable's own units is the alias, that of others the one that was asked for.
    QCOMPARE(face(dial), QString("N[RPM]"));
    dial.setUnits("hz");
    dial.setName("SPEED");
    QCOMPARE(face(dial), QString("SPEED[HZ]"));
    QCOMPARE(dial.getValue(), 750.0);
}

void ZelDialGaugeTest::theUnitsMayBeLeftOut() {
    Dial dial;
    dial.setUnitsVis(false);
    dial.setName("SPEED");
    QCOMPARE(face(dial), QString("SPEED"));
}

void ZelDialGaugeTest::switchingTheUnitsWaitsForANewValue() {
    const auto speed = platform().real("SPEED").value(1500).units("rpm").format("%g");
    platform().alias("N", "SPEED");
    Dial dial;
    dial.setName("SPEED");
    dial.setUnitsVis(false);
    dial.tick();
    QCOMPARE(face(dial), QString("N[RPM]"));
    speed.value(1501);
    dial.tick();
    // The record's own label by then.
    QCOMPARE(face(dial), QString("SPEED"));
    platform().forgetCalls();
    speed.value(1502);
    dial.tick();
    QCOMPARE(dialCalls("setLabel"), QStringList());
}

void ZelDialGaugeTest::anUnknownVariableIsUnbound() {
    const auto speed = platform().real("SPEED").value(1500).format("%g");
    Dial dial;
    dial.setName("SPEED");
    platform().forgetCalls();
    dial.setName("NOBODY");
    QVERIFY(!dial.ptr());
    QVERIFY(!dial.isSampled());
    speed.value(99);
    dial.tick();
    QCOMPARE(dialCalls(), QStringList());
}

void ZelDialGaugeTest::anotherKindKeepsTheOldBinding() {
    platform().logical("PUMP");
    Dial dial;
    dial.setName("SPEED");
    dial.setName("PUMP");
    QCOMPARE(face(dial), QString("SPEED[RPM]"));
    QVERIFY(dial.isSampled());
    // The name that was kept is bound anew, so the value is shown again.
    QCOMPARE(dialCalls("setValue").size(), 2);
}

void ZelDialGaugeTest::theSameNameShowsTheValueAgain() {
    Dial dial;
    dial.setName("SPEED");
    platform().forgetCalls();
    dial.setName("SPEED");
    QCOMPARE(dialCalls("setLabel").size(), 1);
    QCOMPARE(dialCalls("setValue").size(), 1);
}

void ZelDialGaugeTest::aRebindingEndsAPause() {
    Dial dial;
    dial.setName("SPEED");
    dial.setPaused(true);
    dial.setName("SPEED");
    QVERIFY(!dial.isPaused());
}

void ZelDialGaugeTest::theOrderOfAFirstBinding() {
    Dial dial;
    dial.setName("SPEED");
    const QString arc = "QtSvgDialGauge::" + noArc;
    QCOMPARE(
        platform().calls(),
        QStringList({"find_variable SPEED", "find_variable SPEED", "find_alias_label SPEED",
                     "find_alias_of_target SPEED", "find_variable SPEED", "get_vrbl_adr SPEED",
                     "QtSvgDialGauge::setLabel SPEED[RPM]", "cacheProperty ZelDialGauge lamp name SPEED loading",
                     "find_variable SPEED", "get_limit_info SPEED", arc, arc, arc, arc, arc, arc,
                     "QtSvgDialGauge::setAllArcs none none none none none none", "QtSvgDialGauge::setValue 1500"}));
}

void ZelDialGaugeTest::aValueThatRestsTouchesTheArcsAlone() {
    Dial dial;
    dial.setName("SPEED");
    dial.tick();
    platform().forgetCalls();
    dial.getDial()->dial->setToolTip("scratched");
    dial.tick();
    QCOMPARE(dialCalls(),
             QStringList({noArc, noArc, noArc, noArc, noArc, noArc, "setAllArcs none none none none none none"}));
    QCOMPARE(tip(dial), QString("scratched"));
}

void ZelDialGaugeTest::aValueIsConverted() {
    const auto speed = platform().real("SPEED").value(1500).units("rpm").format("%.1f");
    platform().converts("rpm", "hz", 0.5);
    Dial dial;
    dial.setName("SPEED");
    dial.setUnits("hz");
    dial.setName("SPEED");
    QCOMPARE(dial.getValue(), 750.0);
    QCOMPARE(tip(dial), QString("750.0"));
    QCOMPARE(dial._lastValue, 1500.0);
    speed.value(1600);
    dial.tick();
    QCOMPARE(dial.getValue(), 800.0);
}

void ZelDialGaugeTest::aConvertedIntegerIsFormattedAsAReal() {
    platform().integer("COUNT").value(9).units("PARTS").format("%.2f");
    platform().converts("PARTS", "DOZEN", 0.25);
    Dial dial;
    dial.setName("COUNT");
    // The format does not fit an integer.
    QCOMPARE(tip(dial), QString("9"));
    dial.setUnits("DOZEN");
    dial.setName("COUNT");
    QCOMPARE(dial.getValue(), 2.25);
    QCOMPARE(tip(dial), QString("2.25"));
    QCOMPARE(dial._ilastValue, 9);
}

void ZelDialGaugeTest::aValueThatDoesNotConvertIsShownAsItIs() {
    platform().limits("SPEED").set(HIGH_ALARM_LIMIT, 1800, 1024);
    Dial dial;
    dial.setName("SPEED");
    dial.setUnits("kg");
    dial.setName("SPEED");
    QCOMPARE(dial.getValue(), 1500.0);
    QCOMPARE(arcs(), QString("none none none 1800..1.5#100 none none"));
}

void ZelDialGaugeTest::aVariableWithoutLimitsHasSixInvisibleArcs() {
    platform().limits("SPEED").values = {1, 2, 3, 4, 5, 6, 7};
    Dial dial;
    dial.setName("SPEED");
    // The side is that of a low limit for all of them.
    QStringList expected;
    for (int i = 1; i <= 6; ++i)
        expected << QStringLiteral("QtSvgDialGauge::makeArc 0 0 0 0 0 %1").arg(i);
    QCOMPARE(dialCalls("makeArc"), expected);
}

void ZelDialGaugeTest::eachLimitHasItsArc() {
    platform()
        .limits("SPEED")
        .set(LOW_ALARM_LIMIT, 600, 256)
        .set(LOW_ABORT_LIMIT, 500, 512)
        .set(LOW_EMERGENCY_LIMIT, 400, 768)
        .set(HIGH_ALARM_LIMIT, 5000, 1024)
        .set(HIGH_ABORT_LIMIT, 5500, 1280)
        .set(HIGH_EMERGENCY_LIMIT, 6000, 1536)
        .set(VARIABLE_AGE_LIMIT, 9, 1792);
    Dial dial;
    dial.setName("SPEED");
    QCOMPARE(dialCalls("makeArc"),
             QStringList({"QtSvgDialGauge::makeArc 1 0 0 1 0 600", "QtSvgDialGauge::makeArc 1 0 1 0 0 500",
                          "QtSvgDialGauge::makeArc 1 0 1 1 0 400", "QtSvgDialGauge::makeArc 1 1 0 0 1 5000",
                          "QtSvgDialGauge::makeArc 1 1 0 1 1 5500", "QtSvgDialGauge::makeArc 1 1 1 0 1 6000"}));
    QCOMPARE(arcs(), QString("-1.5..600#001 -1.5..500#010 -1.5..400#011 5000..1.5#100 5500..1.5#101 6000..1.5#110"));
}

void ZelDialGaugeTest::aLimitThatMovesMovesItsArc() {
    auto& limits = platform().limits("SPEED").set(HIGH_ALARM_LIMIT, 5000, 1024);
    Dial dial;
    dial.setName("SPEED");
    platform().forgetCalls();
    limits.set(HIGH_ALARM_LIMIT, 1400, 1024);
    dial.tick();
    QCOMPARE(arcs(), QString("none none none 1400..1.5#100 none none"));
    QCOMPARE(dialCalls("setValue"), QStringList());
}

void ZelDialGaugeTest::limitsAreConverted() {
    platform().converts("rpm", "hz", 0.5);
    auto& limits = platform()
                       .limits("SPEED")
                       .set(LOW_ABORT_LIMIT, 600, 512)
                       .set(VARIABLE_AGE_LIMIT, 9, 0)
                       .set(HIGH_ALARM_LIMIT, 5000, 1024);
    limits.values[HIGH_ABORT_LIMIT] = 7;
    Dial dial;
    dial.setName("SPEED");
    QCOMPARE(platform().calls({"unitsConvert"}), QStringList());
    dial.setUnits("hz");
    platform().forgetCalls();
    dial.setName("SPEED");
    // Only limits that exist, and not the age, before the value.
    QCOMPARE(platform().calls({"unitsConvert"}),
             QStringList({"unitsConvert 600 rpm hz", "unitsConvert 5000 rpm hz", "unitsConvert 1500 rpm hz"}));
    QCOMPARE(arcs(), QString("none -1.5..300#010 none 2500..1.5#100 none none"));
    QCOMPARE(dialCalls("makeArc").at(4), QString("QtSvgDialGauge::makeArc 0 0 0 0 0 7"));
}

void ZelDialGaugeTest::limitsThatCannotBeReadLeaveTheArcs() {
    const auto speed = platform().real("SPEED").value(1500).format("%g");
    Dial dial;
    dial.setName("SPEED");
    platform().alwaysAnswer("get_limit_info", -7);
    platform().forgetCalls();
    const DebugLines debug;
    dial.tick();
    speed.value(1501);
    dial.tick();
    QCOMPARE(debug.lines(),
             QStringList({"Error getting limit info. Code <-7>.", "Error getting limit info. Code <-7>."}));
    QCOMPARE(dialCalls("setAllArcs"), QStringList());
    QCOMPARE(dialCalls("makeArc"), QStringList());
    QCOMPARE(dial.getValue(), 1501.0);
}

void ZelDialGaugeTest::theColourOfALimit_data() {
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("colour");
    QTest::newRow("black") << 0 << "000";
    QTest::newRow("blue") << 256 << "001";
    QTest::newRow("green") << 512 << "010";
    QTest::newRow("cyan") << 768 << "011";
    QTest::newRow("red") << 1024 << "100";
    QTest::newRow("magenta") << 1280 << "101";
    QTest::newRow("yellow") << 1536 << "110";
    QTest::newRow("white") << 1792 << "111";
    QTest::newRow("blinking red") << 1025 << "100";
    QTest::newRow("blinking black") << 1 << "000";
    QTest::newRow("none of them") << 2 << "000";
}

void ZelDialGaugeTest::theColourOfALimit() {
    QFETCH(int, code);
    QFETCH(QString, colour);
    platform().limits("SPEED").set(LOW_ALARM_LIMIT, 3, code);
    Dial dial;
    dial.setName("SPEED");
    QCOMPARE(arcs().section(' ', 0, 0), "-1.5..3#" + colour);
}

void ZelDialGaugeTest::theLastLimitColoursTheWidget() {
    auto& limits = platform().limits("SPEED").set(LOW_ALARM_LIMIT, 600, 256).set(HIGH_ABORT_LIMIT, 5500, 1024);
    Dial dial;
    dial.setName("SPEED");
    QCOMPARE(int{dial.limitColorCode}, 1024);
    QCOMPARE(dial.getColor(), QColor(Qt::red));
    limits.set(VARIABLE_AGE_LIMIT, 5, 513);
    dial.tick();
    QCOMPARE(int{dial.limitColorCode}, 513);
}

void ZelDialGaugeTest::theDialIsToldOnceThatLoadingIsOver() {
    Dial dial;
    dial.setName("SPEED");
    QCOMPARE(dialCalls("setInitFinished"), QStringList());
    dial.tick();
    dial.tick();
    QCOMPARE(dialCalls("setInitFinished"), QStringList({"QtSvgDialGauge::setInitFinished 1"}));
}

void ZelDialGaugeTest::theFormLearnsEachProperty() {
    Dial dial;
    const QList<QPair<const char*, QVariant>> values{{"smartTicks", false},
                                                     {"minimum", 1.5},
                                                     {"maximum", 2.5},
                                                     {"precision", 2},
                                                     {"startAngle", -30.5},
                                                     {"endAngle", 45.5},
                                                     {"ticks", 9},
                                                     {"backColor", QColor(Qt::red)},
                                                     {"borderColor", QColor(Qt::green)},
                                                     {"textColor", QColor(Qt::blue)}};
    for (const auto& [name, value] : values) {
        platform().forgetCalls();
        QVERIFY(dial.setProperty(name, value));
        QString setter = QString::fromLatin1(name);
        setter[0] = setter[0].toUpper();
        const QString told = value.type() == QVariant::Bool ? QString::number(value.toInt()) : value.toString();
        QCOMPARE(platform().calls(),
                 QStringList({"QtSvgDialGauge::set" + setter + ' ' + told,
                              QString("cacheProperty ZelDialGauge lamp %1 %2 loading").arg(name, value.toString())}));
        QCOMPARE(dial.property(name), value);
    }
    platform().forgetCalls();
    dial.setUnitsVis(true);
    dial.setSkin("Speedometer1");
    dial.finishLoading();
    dial.setTicks(8);
    QCOMPARE(platform().calls(), QStringList({"cacheProperty ZelDialGauge lamp unitsVis true loading",
                                              "QtSvgDialGauge::setSkin Speedometer1", "QtSvgDialGauge::setTicks 8",
                                              "cacheProperty ZelDialGauge lamp ticks 8 changed"}));
    QCOMPARE(dial.skin(), QString("Speedometer1"));
}

void ZelDialGaugeTest::theDialIsAskedForItsProperties() {
    Dial dial;
    dial.getDial()->dial->setMinimum(42);
    QCOMPARE(dial.minimum(), 42.0);
    dial.setSmartTicks(true);
    QVERIFY(static_cast<const OstrelBase&>(dial).smartTicks());
    dial.getDial()->dial->setSmartTicks(false);
    QVERIFY(!dial.smartTicks());
}

void ZelDialGaugeTest::theToolTipIsToldBeforeItIsSet() {
    class Watch : public QObject {
    public:
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::ToolTipChange)
                cached = platform().calls({"cacheProperty"});
            return false;
        }
        QStringList cached;
    } watch;
    Dial dial;
    dial.installEventFilter(&watch);
    dial.setToolTipString("tip");
    QCOMPARE(watch.cached, QStringList({"cacheProperty ZelDialGauge lamp toolTip tip loading"}));
    QCOMPARE(dial.toolTip(), QString("tip"));
    QCOMPARE(dial.getToolTip(), QString("tip"));
}

void ZelDialGaugeTest::aClosedDialIsNotSampled() {
    Dial dial;
    dial.setName("SPEED");
    dial.show();
    dial.close();
    QVERIFY(!dial.isSampled());
}

void ZelDialGaugeTest::resizingIsIgnored() {
    Dial dial;
    QResizeEvent event(QSize(1, 1), QSize(2, 2));
    event.accept();
    QCoreApplication::sendEvent(&dial, &event);
    QVERIFY(!event.isAccepted());
}

void ZelDialGaugeTest::theOperatorChoosesAVariable() {
    UserInterfaceLock = 1;
    serveSmallStore();
    Ostrel_Plugins_Master_variables_dirty = true;
    Dial dial;
    chooseBySlot(&dial, "dialgauge_customContextMenuRequested", "MAP");
    QCOMPARE(dial.getName(), QString("MAP"));
    QVERIFY(dial.isSampled());
    chooseBySlot(&dial, "dialgauge_customContextMenuRequested", QString());
    QCOMPARE(dial.getName(), QString("MAP"));
}

OSTREL_TEST(ZelDialGaugeTest)
#include "zeldialgauge_test.moc"
