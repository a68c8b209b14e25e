// The everyday read-out.
#include <QBoxLayout>
#include <QGridLayout>
#include <QSignalSpy>

#include "qttests.h"
#include "readouttest.h"
#include "widgets/zel_simplevalue.h"

namespace {

using Display = Readout<ZelSimpleValue>;

// Every kind of variable, with a value that can be told from the others'.
void fillStore() {
    platform().real("SPEED").value(1500).units("rpm").format("%8.1f");
    platform().integer("COUNT").value(42).units("parts").format("%d");
    platform().logical("PUMP").value(1).states("  RUNNING ", "STOPPED");
    platform().string("TEXT").text(" hello ");
    platform().statistics("NOX.").member("AV", AV, 1.5, "PPM", "%.3f ignored");
    platform().composition("GAS.").member("CO", CO, 2.5, "PPM", "%.3f ignored");
    platform().property("AIR.").member("CP", CP, 3.5, "PPM", "%.3f ignored");
    platform().emission("EXH.").member("CBE", CBE, 4.5, "PPM", "%.3f ignored");
    auto temps = platform().realArray("TEMPS");
    temps.format("%.1f");
    temps[2].value = 21.5;
    scripted::put(temps[2].units, "degc");
    auto steps = platform().integerArray("STEPS");
    steps.format("%d");
    steps[1].value = 9;
    scripted::put(steps[1].units, "n");
    scripted::put(platform().stringArray("TEXTS")[3].value, " third ");
    auto valves = platform().logicalArray("VALVES");
    valves.states("OPEN", "SHUT");
    valves[1].value = 1;
}

}  // namespace

class ZelSimpleValueTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }

    void itsProperties_data();
    void itsProperties();
    void itsPropertiesStandInOrder();
    void itsSignalsAndSlots();
    void itsForm();
    void aNewWidgetShowsNoVariable();
    void theConstructorTellsTheFormWriter();

    void everyKindIsShown_data();
    void everyKindIsShown();
    void whichKindsHaveLimits_data();
    void whichKindsHaveLimits();
    void otherKindsAreRefusedWithoutAWord();
    void anUnknownVariableIsMarked();
    void noVariableHasNoMark();
    void theToolTip();
    void theToolTipOfAState();
    void theToolTipOfAMissingVariableStays();
    void anotherVariableStartsInItsOwnUnits();
    void theOrderOfAFirstBinding();
    void theChangeOfANameIsTold();
    void aTextThatWasShownBeforeIsShownAgain();

    void aTickShowsANewValue();
    void anUnchangedValueIsNotShownAgain();
    void aTextIsShownWhenItChanges();
    void aStateIsShownWhenItChanges();
    void theElementOfALogicalArrayIsSampledAsANumber();
    void theUnitsStandBehindTheValue();
    void theResolutionOverridesTheFormat();
    void aResolutionWithUnitsShowsZero();
    void aLongerTextIsShownWhole();

    void itIsLaidOutInAColumn();
    void itIsLaidOutInARow();
    void theHeightIsLocked();
    void anUnlockedHeightStaysAsItWas();
    void theHeightsOfTheLabels();
    void switchingTheLayoutBindsAnew();
    void theNameIsHidden();
    void theFormLearnsEachProperty();
    void aPropertyThatChangesLaterIsAChange();

    void onlyTheValueTakesTheLimitColour();
    void theColourIsSetOnce();
    void aStatusThatBlinks();
    void itFollowsTheParentsText();
    void colours_data();
    void colours();

    void aNewWidgetIsReadOnly();
    void aReadOnlyWidgetFlipsNoLogical();
    void aDoubleClickWritesAReal();
    void aRealIsWrittenInTheUnitsShown();
    void aRealThatDoesNotConvertIsDroppedInSilence();
    void anIntegerThatDoesNotConvertIsDropped();
    void theDecimalsFollowTheFormatOrTheResolution_data();
    void theDecimalsFollowTheFormatOrTheResolution();
    void aDoubleClickWritesAnInteger();
    void anIntegerIsWrittenInTheUnitsOfTheLastReal();
    void aDoubleClickWritesAString();
    void aDoubleClickFlipsALogical();
    void aDoubleClickFlipsTheStateThatTheOperatorSees();
    void aDoubleClickWithoutAVariableIsAnError();
    void otherKindsCannotBeEdited_data();
    void otherKindsCannotBeEdited();
    void aDoubleClickOnTheNameDoesNothing();
    void aRemoteDisplayWritesNothing();
    void aWidgetReaimedWhileItAsksWritesNothing();
};

// ---- What it is ----

void ZelSimpleValueTest::itsProperties_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("units") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("valueFont") << QByteArray("QFont") << QVariant(QApplication::font());
    QTest::newRow("sampleRate") << QByteArray("int") << QVariant(1000);
    QTest::newRow("hideName") << QByteArray("bool") << QVariant(false);
    QTest::newRow("nameFont") << QByteArray("QFont") << QVariant(QApplication::font());
    QTest::newRow("hideUnits") << QByteArray("bool") << QVariant(true);
    QTest::newRow("group") << QByteArray("QString") << QVariant("not_set");
    QTest::newRow("readOnlyString") << QByteArray("bool") << QVariant(true);
    QTest::newRow("displayAlias") << QByteArray("bool") << QVariant(true);
    QTest::newRow("horizontal") << QByteArray("bool") << QVariant(false);
    QTest::newRow("nameAlignment") << QByteArray("Qt::Alignment") << QVariant(2);
    QTest::newRow("nameMaxWidth") << QByteArray("int") << QVariant(700);
    QTest::newRow("toolTip") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("nameMaxHeight") << QByteArray("int") << QVariant(30);
    QTest::newRow("valueMaxHeight") << QByteArray("int") << QVariant(30);
    QTest::newRow("resolution") << QByteArray("int") << QVariant(0);
    QTest::newRow("lockMaxHeight") << QByteArray("bool") << QVariant(true);
    QTest::newRow("monitorLimits") << QByteArray("bool") << QVariant(true);
    QTest::newRow("lockedVariable") << QByteArray("bool") << QVariant(false);
}

void ZelSimpleValueTest::itsProperties() {
    QFETCH(QByteArray, type);
    QFETCH(QVariant, value);
    const ZelSimpleValue widget;
    compareProperty(widget, QTest::currentDataTag(), type, value);
}

void ZelSimpleValueTest::itsPropertiesStandInOrder() {
    QCOMPARE(ownProperties(ZelSimpleValue::staticMetaObject),
             QStringList({"units", "name", "valueFont", "sampleRate", "hideName", "nameFont", "hideUnits", "group",
                          "readOnlyString", "displayAlias", "horizontal", "nameAlignment", "nameMaxWidth", "toolTip",
                          "nameMaxHeight", "valueMaxHeight", "resolution", "lockMaxHeight"}));
}

void ZelSimpleValueTest::itsSignalsAndSlots() {
    const QMetaObject& meta = ZelSimpleValue::staticMetaObject;
    QCOMPARE(QByteArray(meta.superClass()->className()), QByteArray("OstrelBase"));
    QVERIFY(meta.indexOfSignal("nameChanged(QString,int,int)") >= meta.methodOffset());
    for (const char* slot : {"ostrelTimerEvent(int)", "changeEvent(QEvent*)"}) {
        QVERIFY2(meta.indexOfSlot(slot) >= meta.methodOffset(), slot);
        QCOMPARE(meta.method(meta.indexOfSlot(slot)).access(), QMetaMethod::Public);
    }
    for (const char* slot : {"sample(bool)", "sample()"}) {
        QVERIFY2(meta.indexOfSlot(slot) >= meta.methodOffset(), slot);
        QCOMPARE(meta.method(meta.indexOfSlot(slot)).access(), QMetaMethod::Private);
    }
}

void ZelSimpleValueTest::itsForm() {
    const ZelSimpleValue widget;
    QCOMPARE(widget.objectName(), QString("ZelSimpleValue"));
    QCOMPARE(widget.size(), QSize(112, 50));
    QCOMPARE(widget.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QVERIFY(widget.acceptDrops());
    QCOMPARE(widget.contextMenuPolicy(), Qt::ActionsContextMenu);
    QCOMPARE(widget.layout()->objectName(), QString("horizontalLayout"));
    QCOMPARE(widget.layout()->sizeConstraint(), QLayout::SetMaximumSize);
    const QSizePolicy tall(QSizePolicy::Preferred, QSizePolicy::MinimumExpanding);
    const auto* frame = widget.findChild<QFrame*>("frame");
    QCOMPARE(frame->lineWidth(), 0);
    QCOMPARE(frame->sizePolicy(), tall);
    for (const char* name : {"name", "value"}) {
        const auto* label = widget.findChild<FlashingLabel*>(name);
        QVERIFY2(label, name);
        // A label that wraps says besides that its height depends on its width.
        QCOMPARE(label->sizePolicy().horizontalPolicy(), tall.horizontalPolicy());
        QCOMPARE(label->sizePolicy().verticalPolicy(), tall.verticalPolicy());
        QCOMPARE(label->maximumHeight(), 30);
        QCOMPARE(label->lineWidth(), 0);
        QCOMPARE(label->textFormat(), Qt::PlainText);
        QCOMPARE(label->alignment(), Qt::AlignRight | Qt::AlignVCenter);
        QCOMPARE(label->contextMenuPolicy(), Qt::ActionsContextMenu);
        QCOMPARE(label->wordWrap(), QByteArray(name) == "name");
    }
    const auto* icon = widget.findChild<QLabel*>("iconLabel");
    QCOMPARE(icon->maximumSize(), QSize(16, 16));
    QCOMPARE(icon->margin(), 1);
    for (const char* grid : {"gridLayout", "gridLayout_2", "gridLayout_3"})
        QVERIFY2(widget.findChild<QGridLayout*>(grid), grid);
}

void ZelSimpleValueTest::aNewWidgetShowsNoVariable() {
    const Display widget;
    QCOMPARE(widget.shown(), QString("  -"));
    QVERIFY(widget.icon()->isHidden());
    QCOMPARE(widget.getName(), QString());
    QCOMPARE(widget._oldName, QString("not_set"));
    QCOMPARE(widget._lastValue, -99999.0);
    QCOMPARE(widget.className, QString("ZelSimpleValue"));
    QCOMPARE(int{widget._varType}, 1023);
    QCOMPARE(widget.getColor(), widget.palette().text().color());
    QCOMPARE(widget.label()->text(), QString("Name"));
}

void ZelSimpleValueTest::theConstructorTellsTheFormWriter() {
    const ZelSimpleValue first;
    platform().forgetCalls();
    const ZelSimpleValue widget;
    // The first placing comes before the widget has its class.
    QCOMPARE(platform().calls({"cacheProperty"}),
             QStringList({"cacheProperty  ZelSimpleValue horizontal false loading",
                          "cacheProperty  ZelSimpleValue hideName false loading",
                          "cacheProperty  ZelSimpleValue hideUnits true loading"}));
}

// ---- Binding ----

void ZelSimpleValueTest::everyKindIsShown_data() {
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("tip");
    QTest::newRow("SPEED") << "1500.0"
                           << "SPEED[RPM]";
    QTest::newRow("COUNT") << "42"
                           << "COUNT[PARTS]";
    QTest::newRow("PUMP") << "RUNNING"
                          << "";
    QTest::newRow("TEXT") << "hello"
                          << "TEXT[]";
    // Seven characters of a member's format are taken.
    QTest::newRow("NOX.AV") << "1.500 ig"
                            << "NOX.AV[]";
    QTest::newRow("GAS.CO") << "2.500 ig"
                            << "GAS.CO[]";
    QTest::newRow("AIR.CP") << "3.500 ig"
                            << "AIR.CP[]";
    QTest::newRow("EXH.CBE") << "4.500 ig"
                             << "EXH.CBE[]";
    QTest::newRow("TEMPS:2") << "21.5"
                             << "TEMPS:2[DEGC]";
    QTest::newRow("STEPS:1") << "9"
                             << "STEPS:1[N]";
    QTest::newRow("TEXTS:3") << "third"
                             << "TEXTS:3[]";
    QTest::newRow("VALVES:1") << "OPEN"
                              << "";
}

void ZelSimpleValueTest::everyKindIsShown() {
    QFETCH(QString, shown);
    QFETCH(QString, tip);
    fillStore();
    Display widget;
    widget.setName(QTest::currentDataTag());
    QCOMPARE(widget.shown(), shown);
    QCOMPARE(widget.getValue(), shown);
    QCOMPARE(widget.label()->text(), QString(QTest::currentDataTag()));
    QCOMPARE(widget.tip(), tip);
    QVERIFY(widget.icon()->isHidden());
    QVERIFY(widget.isSampled());
}

void ZelSimpleValueTest::whichKindsHaveLimits_data() {
    QTest::addColumn<bool>("bits");
    QTest::addColumn<bool>("checked");
    for (const char* name : {"SPEED", "COUNT", "NOX.AV", "GAS.CO", "AIR.CP", "EXH.CBE", "TEMPS:2", "STEPS:1"})
        QTest::newRow(name) << true << true;
    QTest::newRow("TEXT") << false << false;
    QTest::newRow("TEXTS:3") << true << false;
    // What the variable before had stays.
    QTest::newRow("PUMP") << true << true;
    QTest::newRow("VALVES:1") << true << true;
}

void ZelSimpleValueTest::whichKindsHaveLimits() {
    QFETCH(bool, bits);
    QFETCH(bool, checked);
    fillStore();
    Display widget;
    widget.setName(QTest::currentDataTag());
    QCOMPARE(widget.limit_status != nullptr, bits);
    QCOMPARE(widget._checkLimit, checked);
    if (QByteArray(QTest::currentDataTag()) == "PUMP") {
        widget.setName("TEXT");
        widget.setName("PUMP");
        QVERIFY(!widget._checkLimit);
    }
}

void ZelSimpleValueTest::otherKindsAreRefusedWithoutAWord() {
    fillStore();
    platform().other("SIGNAL", SIGNAL_TYPE, 200);
    Display widget;
    widget.setName("SPEED");
    widget.setName("SIGNAL");
    QCOMPARE(widget.getName(), QString("SPEED"));
    QCOMPARE(widget.shown(), QString("1500.0"));
    QVERIFY(!widget.isMarkedMissing());
    QVERIFY(widget.isSampled());
}

void ZelSimpleValueTest::anUnknownVariableIsMarked() {
    Display widget;
    widget.setName("NOBODY");
    QCOMPARE(widget.shown(), QString("  -"));
    QVERIFY(widget.isMarkedMissing());
    QVERIFY(widget.icon()->pixmap(Qt::ReturnByValue).width() > 0);
    QCOMPARE(widget.getName(), QString("NOBODY"));
    QCOMPARE(widget.label()->text(), QString("NOBODY"));
    QVERIFY(!widget.isSampled());
    QVERIFY(!widget.ptr());
}

void ZelSimpleValueTest::noVariableHasNoMark() {
    fillStore();
    Display widget;
    for (const char* before : {"SPEED", "NOBODY"}) {
        widget.setName(before);
        widget.setName("not_set");
        QCOMPARE(widget.shown(), QString("  -"));
        QVERIFY(widget.icon()->isHidden());
        QCOMPARE(widget.tip(), QString("VARIABLE NOT FOUND"));
        QVERIFY(!widget.isSampled());
    }
}

void ZelSimpleValueTest::theToolTip() {
    fillStore();
    platform().converts("rpm", "hz", 0.5);
    Display widget;
    widget.setName("SPEED");
    widget.setUnits("hz");
    widget.setName("SPEED");
    QCOMPARE(widget.tip(), QString("SPEED[hz]"));
    widget.setToolTipString("speed of the shaft");
    QCOMPARE(widget.tip(), QString("speed of the shaft"));
    QCOMPARE(widget.getToolTip(), QString("speed of the shaft"));
    widget.setName("COUNT");
    QCOMPARE(widget.tip(), QString("speed of the shaft"));
    widget.setToolTipString("");
    QCOMPARE(widget.tip(), QString("COUNT[PARTS]"));
    QString own("for once");
    widget.set_custom_toolTip(own);
    QCOMPARE(widget.tip(), QString("for once"));
    QCOMPARE(widget.getToolTip(), QString());
}

void ZelSimpleValueTest::theToolTipOfAState() {
    fillStore();
    Display widget;
    for (const char* name : {"PUMP", "VALVES:1"}) {
        widget.setName(name);
        widget.setToolTipString("of the cooling circuit");
        QCOMPARE(widget.tip(), QString("of the cooling circuit"));
        widget.setToolTipString("");
        QCOMPARE(widget.tip(), QString());
    }
}

void ZelSimpleValueTest::theToolTipOfAMissingVariableStays() {
    Display widget;
    widget.setName("NOBODY");
    widget.setToolTipString("help");
    QVERIFY(widget.isMarkedMissing());
    QCOMPARE(widget.getToolTip(), QString("help"));
}

void ZelSimpleValueTest::anotherVariableStartsInItsOwnUnits() {
    fillStore();
    Display widget;
    widget.setName("SPEED");
    widget.setUnits("hz");
    widget.setName("COUNT");
    QCOMPARE(widget.getUnits(), QString());
}

void ZelSimpleValueTest::theOrderOfAFirstBinding() {
    fillStore();
    Display widget;
    widget.setName("SPEED");
    QCOMPARE(platform().calls(),
             QStringList({"find_variable SPEED", "find_variable SPEED", "find_alias_label SPEED",
                          "find_alias_of_target SPEED", "find_variable SPEED", "get_vrbl_adr SPEED",
                          "cacheProperty ZelSimpleValue readout name SPEED loading", "find_variable SPEED"}));
}

void ZelSimpleValueTest::theChangeOfANameIsTold() {
    fillStore();
    Display widget;
    widget.setRowCol(2, 5);
    QSignalSpy told(&widget, &ZelSimpleValue::nameChanged);
    widget.setName("SPEED");
    QCOMPARE(told.takeFirst(), QVariantList({"SPEED", 2, 5}));
    widget.setName("SPEED");
    widget.setName("NOBODY");
    QCOMPARE(told.size(), 0);
    widget.setName("not_set");
    QCOMPARE(told.takeFirst(), QVariantList({"not_set", 2, 5}));
    widget.setName("not_set");
    QCOMPARE(told.size(), 0);
}

void ZelSimpleValueTest::aTextThatWasShownBeforeIsShownAgain() {
    fillStore();
    platform().string("OTHER").text(" hello ");
    Display widget;
    widget.setName("TEXT");
    widget.setName("SPEED");
    widget.setName("OTHER");
    QCOMPARE(widget.shown(), QString("hello"));
    // An empty text is one too.
    platform().string("EMPTY");
    widget.setName("NOBODY");
    widget.setName("EMPTY");
    QCOMPARE(widget.shown(), QString());
}

// ---- Sampling ----

void ZelSimpleValueTest::aTickShowsANewValue() {
    auto speed = platform().real("SPEED").value(1).format("%g");
    Display widget;
    widget.setName("SPEED");
    speed.value(2);
    widget.tick();
    QCOMPARE(widget.shown(), QString("2"));
    speed.value(3);
    QVERIFY(QMetaObject::invokeMethod(&widget, "sample"));
    QCOMPARE(widget.shown(), QString("3"));
    speed.value(4);
    QVERIFY(QMetaObject::invokeMethod(&widget, "sample", Q_ARG(bool, false)));
    QCOMPARE(widget.shown(), QString("4"));
}

void ZelSimpleValueTest::anUnchangedValueIsNotShownAgain() {
    fillStore();
    Display widget;
    for (const char* name : {"SPEED", "TEXT", "TEXTS:3", "PUMP"}) {
        widget.setName(name);
        widget.value()->setText("scratched");
        widget.tick();
        QCOMPARE(widget.shown(), QString("scratched"));
    }
}

void ZelSimpleValueTest::aTextIsShownWhenItChanges() {
    auto text = platform().string("TEXT").text("first").status(1024);
    auto texts = platform().stringArray("TEXTS");
    scripted::put(texts[0].value, "one");
    Display widget;
    widget.setName("TEXT");
    QCOMPARE(widget.colour(), QColor(Qt::red));
    text.text(" second ").status(0);
    widget.tick();
    QCOMPARE(widget.shown(), QString("second"));
    QCOMPARE(widget.colour(), widget.palette().color(QPalette::Text));
    text.text(
        "d\xc3\xa9"
        "bit");
    widget.tick();
    QCOMPARE(widget.shown(), QString::fromUtf8("d\xc3\xa9"
                                               "bit"));
    widget.setName("TEXTS:0");
    texts[0].status = 1024;
    scripted::put(texts[0].value, "two");
    widget.tick();
    QCOMPARE(widget.shown(), QString("two"));
    QCOMPARE(widget.colour(), QColor(Qt::red));
}

void ZelSimpleValueTest::aStateIsShownWhenItChanges() {
    auto pump = platform().logical("PUMP").value(0).states("RUNNING", " STOPPED ").status(1024);
    Display widget;
    widget.setName("PUMP");
    QCOMPARE(widget.shown(), QString("STOPPED"));
    QCOMPARE(widget.colour(), QColor(Qt::red));
    pump.value(7);
    widget.tick();
    QCOMPARE(widget.shown(), QString("RUNNING"));
}

void ZelSimpleValueTest::theElementOfALogicalArrayIsSampledAsANumber() {
    auto valves = platform().logicalArray("VALVES");
    valves.states("", "SHUT");
    valves[1].value = 1;
    Display widget;
    widget.setName("VALVES:1");
    // The binding shows the array's text, the sample a word where there is none.
    QCOMPARE(widget.shown(), QString("TRUE"));
    valves[1].value = 0;
    widget.tick();
    QCOMPARE(widget.shown(), QString("SHUT"));
}

void ZelSimpleValueTest::theUnitsStandBehindTheValue() {
    fillStore();
    Display widget;
    widget.setName("SPEED");
    widget.setHideUnits(false);
    QCOMPARE(widget.shown(), QString("1500.0"));
    widget.tick();
    QCOMPARE(widget.shown(), QString("1500.0[rpm]"));
}

void ZelSimpleValueTest::theResolutionOverridesTheFormat() {
    auto speed = platform().real("SPEED").value(3.14159).format("%8.1f");
    Display widget;
    widget.setName("SPEED");
    speed->display_format[3] = '4';
    widget.setResolution(2);
    QCOMPARE(widget.shown(), QString("3.14"));
    speed.value(2.71828);
    widget.tick();
    QCOMPARE(widget.shown(), QString("2.72"));
    QCOMPARE(widget.getResolution(), 2);
    widget.setResolution(0);
    QCOMPARE(widget.shown(), QString("2.7183"));
}

void ZelSimpleValueTest::aResolutionWithUnitsShowsZero() {
    fillStore();
    Display widget;
    widget.setName("SPEED");
    widget.setHideUnits(false);
    widget.setResolution(2);
    QCOMPARE(widget.shown(), QString("0.00"));
}

void ZelSimpleValueTest::aLongerTextIsShownWhole() {
    auto speed = platform().real("SPEED").value(1).format("%.0f");
    QWidget form;
    auto* row = new QHBoxLayout(&form);
    auto* widget = new Display(&form);
    widget->setHorizontal(true);
    widget->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    widget->setName("SPEED");
    row->addWidget(widget);
    row->addStretch();
    form.resize(600, 60);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    const QFontMetrics metrics = widget->value()->fontMetrics();
    QVERIFY(widget->value()->width() < metrics.horizontalAdvance("123456789012"));
    speed.value(123456789012.0);
    widget->tick();
    QTRY_VERIFY(widget->value()->width() >= metrics.horizontalAdvance("123456789012"));
    // A shorter one leaves what else stands on the form where it is.
    const int wide = widget->value()->width();
    speed.value(1);
    widget->tick();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(widget->shown(), QString("1"));
    QCOMPARE(widget->value()->width(), wide);
}

// ---- Layout and properties ----

void ZelSimpleValueTest::itIsLaidOutInAColumn() {
    Display widget;
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QVERIFY(widget.label()->geometry().bottom() < widget.value()->geometry().top());
    QCOMPARE(widget.minimumSize(), QSize(60, 38));
    const auto* grid = widget.findChild<QGridLayout*>("gridLayout");
    QCOMPARE(grid->contentsMargins(), QMargins(0, 0, 2, 0));
    QCOMPARE(grid->horizontalSpacing() + grid->verticalSpacing(), 0);
    QVERIFY(widget.findChild<QGridLayout*>("gridLayout_2")->itemAtPosition(0, 0)->widget() == widget.label());
    QVERIFY(widget.findChild<QGridLayout*>("gridLayout_2")->itemAtPosition(0, 1)->widget() == widget.icon());
    QVERIFY(widget.findChild<QGridLayout*>("gridLayout_3")->itemAtPosition(1, 0)->widget() == widget.value());
}

void ZelSimpleValueTest::itIsLaidOutInARow() {
    Display widget;
    widget.setHorizontal(true);
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QVERIFY(widget.label()->geometry().right() < widget.value()->geometry().left());
    QCOMPARE(widget.label()->y(), widget.value()->y());
    QCOMPARE(widget.minimumSize(), QSize(60, 20));
    const auto* grid = widget.findChild<QGridLayout*>("gridLayout");
    QCOMPARE(grid->contentsMargins(), QMargins(0, 1, 0, 0));
    QVERIFY(grid->itemAtPosition(0, 2)->widget() == widget.value());
    // And back.
    widget.setHorizontal(false);
    QTRY_VERIFY(widget.label()->geometry().bottom() < widget.value()->geometry().top());
}

void ZelSimpleValueTest::theHeightIsLocked() {
    Display widget;
    QCOMPARE(widget.frame()->maximumHeight(), 38);
    widget.setHorizontal(true);
    QCOMPARE(widget.frame()->maximumHeight(), 20);
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QCOMPARE(widget.maximumHeight(), 20);
    QCOMPARE(widget.height(), 20);
}

void ZelSimpleValueTest::anUnlockedHeightStaysAsItWas() {
    Display widget;
    widget.setLockMaxHeight(false);
    QVERIFY(!widget.getLockMaxHeight());
    QCOMPARE(widget.frame()->maximumHeight(), 38);
    widget.setHorizontal(true);
    QCOMPARE(widget.frame()->maximumHeight(), 38);
    widget.setLockMaxHeight(true);
    QCOMPARE(widget.frame()->maximumHeight(), 20);
}

void ZelSimpleValueTest::theHeightsOfTheLabels() {
    Display widget;
    widget.setNameMaxHeight(40);
    QCOMPARE(widget.label()->maximumHeight(), 40);
    QCOMPARE(widget.frame()->maximumHeight(), 70);
    widget.setValueMaxHeight(50);
    QCOMPARE(widget.value()->maximumHeight(), 50);
    QCOMPARE(widget.frame()->maximumHeight(), 90);
    QCOMPARE(widget.getNameMaxHeight(), 40);
    QCOMPARE(widget.getValueMaxHeight(), 50);
    widget.setHorizontal(true);
    QCOMPARE(widget.frame()->maximumHeight(), 20);
}

void ZelSimpleValueTest::switchingTheLayoutBindsAnew() {
    fillStore();
    Display widget;
    widget.setName("SPEED");
    TimerModerator::releaseFromTimer(&widget);
    widget.value()->setText("scratched");
    widget.setHorizontal(true);
    QCOMPARE(widget.shown(), QString("1500.0"));
    QVERIFY(widget.isSampled());
    TimerModerator::releaseFromTimer(&widget);
    widget.setLockMaxHeight(false);
    QCOMPARE(widget.shown(), QString("1500.0"));
    QVERIFY(widget.isSampled());
}

void ZelSimpleValueTest::theNameIsHidden() {
    Display widget;
    widget.setHideName(true);
    QVERIFY(widget.label()->isHidden());
    widget.setHideName(false);
    QVERIFY(!widget.label()->isHidden());
}

void ZelSimpleValueTest::theFormLearnsEachProperty() {
    Display widget;
    const QFont font("Courier");
    widget.setValueFont(font);
    widget.setHideName(true);
    widget.setNameFont(font);
    widget.setHideUnits(false);
    widget.setReadOnlyString(false);
    widget.setNameAlignment(Qt::AlignLeft | Qt::AlignTop);
    widget.setNameMaxWidth(80);
    widget.setToolTipString("tip");
    widget.setNameMaxHeight(21);
    widget.setValueMaxHeight(22);
    widget.setResolution(3);
    const QString start = "cacheProperty ZelSimpleValue readout ";
    QCOMPARE(platform().calls(), QStringList({"cachePropertyFont ZelSimpleValue readout valueFont Courier loading",
                                              start + "hideName true loading",
                                              "cachePropertyFont ZelSimpleValue readout nameFont Courier loading",
                                              start + "hideUnits false loading", start + "readOnlyString false loading",
                                              start + "nameAlignment 33 loading", start + "nameMaxWidth 80 loading",
                                              start + "toolTip tip loading", start + "nameMaxHeight 21 loading",
                                              start + "valueMaxHeight 22 loading", start + "resolution 3 loading"}));
    QCOMPARE(widget.label()->font().family(), QString("Courier"));
    QCOMPARE(widget.value()->font().family(), QString("Courier"));
    QCOMPARE(widget.label()->alignment(), Qt::AlignLeft | Qt::AlignTop);
    QCOMPARE(widget.label()->maximumWidth(), 80);
    platform().forgetCalls();
    widget.setHorizontal(true);
    widget.setLockMaxHeight(false);
    QCOMPARE(platform().calls({"cacheProperty"}),
             QStringList({start + "horizontal true loading", start + "lockMaxHeight false loading"}));
}

void ZelSimpleValueTest::aPropertyThatChangesLaterIsAChange() {
    fillStore();
    Display widget;
    widget.setName("SPEED");
    widget.tick();
    platform().forgetCalls();
    widget.setNameMaxWidth(80);
    QCOMPARE(platform().calls(), QStringList({"cacheProperty ZelSimpleValue readout nameMaxWidth 80 changed"}));
}

// ---- Colours ----

void ZelSimpleValueTest::onlyTheValueTakesTheLimitColour() {
    auto speed = platform().real("SPEED").status(1024);
    Display widget;
    const QColor own = widget.palette().color(QPalette::Text);
    widget.setName("SPEED");
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        QCOMPARE(widget.value()->palette().color(group, QPalette::Text), QColor(Qt::red));
    QCOMPARE(widget.label()->palette().color(QPalette::Text), own);
    QCOMPARE(widget.getColor(), QColor(Qt::red));
    speed.status(0);
    widget.tick();
    QCOMPARE(widget.colour(), own);
    QCOMPARE(platform().calls({"cacheProperty"}).filter("color"), QStringList());
}

void ZelSimpleValueTest::theColourIsSetOnce() {
    Display widget;
    widget.setColor(Qt::red);
    const qint64 before = widget.value()->palette().cacheKey();
    widget.setColor(Qt::red);
    QCOMPARE(widget.value()->palette().cacheKey(), before);
}

void ZelSimpleValueTest::aStatusThatBlinks() {
    platform().real("SPEED").status(1025).format("%g");
    QWidget form;
    Display widget(&form);
    widget.setName("SPEED");
    QVERIFY(!widget.flashing());
    widget.ostrelTimerEvent(498);
    QCOMPARE(widget.colour(), QColor(Qt::red));
    QVERIFY(widget.flashing());
    widget.ostrelTimerEvent(498);
    QCOMPARE(widget.colour(), form.palette().color(QPalette::Window));
    QVERIFY(!widget.flashing());
}

void ZelSimpleValueTest::itFollowsTheParentsText() {
    QWidget form;
    Display widget(&form);
    QPalette palette = form.palette();
    palette.setColor(QPalette::Text, Qt::darkCyan);
    form.setPalette(palette);
    QCOMPARE(widget.getColor(), QColor(Qt::darkCyan));
    QCOMPARE(widget._lastPreFlashColor, QColor(Qt::darkCyan));
    // One without a parent keeps its own.
    Display alone;
    const QColor before = alone.getColor();
    alone.setPalette(palette);
    QCOMPARE(alone.getColor(), before);
}

void ZelSimpleValueTest::colours_data() {
    QTest::addColumn<QColor>("text");
    QTest::addColumn<QColor>("other");
    QTest::newRow("white") << QColor(Qt::white) << QColor(Qt::black);
    QTest::newRow("black") << QColor(Qt::black) << QColor(Qt::white);
    QTest::newRow("blue") << QColor(Qt::blue) << QColor(Qt::darkBlue);
    QTest::newRow("green") << QColor(Qt::green) << QColor(Qt::darkGreen);
    QTest::newRow("cyan") << QColor(Qt::cyan) << QColor(Qt::darkCyan);
    QTest::newRow("red") << QColor(Qt::red) << QColor(Qt::darkRed);
    QTest::newRow("magenta") << QColor(Qt::magenta) << QColor(Qt::darkMagenta);
    QTest::newRow("yellow") << QColor(Qt::yellow) << QColor(Qt::darkYellow);
    QTest::newRow("grey") << QColor(Qt::gray) << QColor();
}

void ZelSimpleValueTest::colours() {
    QFETCH(QColor, text);
    QFETCH(QColor, other);
    QCOMPARE(ZelSimpleValue().switchColor(text), other);
}

// ---- Writing ----

void ZelSimpleValueTest::aNewWidgetIsReadOnly() {
    fillStore();
    Display widget;
    for (const char* name : {"SPEED", "COUNT", "TEXT", "NOX.AV", "not_set"}) {
        widget.setName(name);
        platform().forgetCalls();
        QTest::mouseDClick(widget.value(), Qt::LeftButton);
        QCOMPARE(platform().calls(), QStringList());
    }
}

void ZelSimpleValueTest::aReadOnlyWidgetFlipsNoLogical() {
    fillStore();
    Display widget;
    widget.setName("PUMP");
    platform().forgetCalls();
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList());
}

void ZelSimpleValueTest::aDoubleClickWritesAReal() {
    platform().real("SPEED").value(1500.5).units("rpm").format("%6.2f");
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("SPEED");
    platform().forgetCalls();
    whenOpened<QInputDialog>([](QInputDialog* dialog) {
        QCOMPARE(dialog->windowTitle(), QString("Enter new value for SPEED"));
        QCOMPARE(dialog->labelText(), QString("Enter a new value for SPEED in the form of RPM units."));
        QCOMPARE(dialog->doubleValue(), 1500.5);
        QCOMPARE(dialog->doubleMinimum(), -2147483647.0);
        QCOMPARE(dialog->doubleMaximum(), 2147483647.0);
        // As an operator does it.
        QTest::keyClick(dialog->focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(dialog->focusWidget(), "1600.25");
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    });
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList({"set_real_variable SPEED 1600.25"}));
    platform().forgetCalls();
    whenOpened<QInputDialog>([](QInputDialog* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList());
}

void ZelSimpleValueTest::aRealIsWrittenInTheUnitsShown() {
    platform().converts("RPM", "hz", 0.5);
    platform().converts("hz", "RPM", 2);
    platform().real("SPEED").value(8).units("RPM").format("%g");
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("SPEED");
    widget.setUnits("hz");
    widget.setName("SPEED");
    platform().forgetCalls();
    whenOpened<QInputDialog>([](QInputDialog* dialog) {
        QCOMPARE(dialog->labelText(), QString("Enter a new value for SPEED in the form of HZ units."));
        QCOMPARE(dialog->doubleValue(), 8.0);
        dialog->setDoubleValue(10);
        dialog->accept();
    });
    widget.handleWriteValue(nullptr);
    QCOMPARE(platform().calls(), QStringList({"units_dbl_keyword_convrt 10 hz RPM", "set_real_variable SPEED 20"}));
}

void ZelSimpleValueTest::aRealThatDoesNotConvertIsDroppedInSilence() {
    platform().real("SPEED").value(8).units("RPM").format("%g");
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("SPEED");
    widget.setUnits("KG");
    const DebugLines debug;
    whenOpened<QInputDialog>([](QInputDialog* dialog) { dialog->accept(); });
    widget.handleWriteValue(nullptr);
    QCOMPARE(debug.lines(), QStringList());
    QCOMPARE(platform().calls({"set_real_variable"}), QStringList());
}

void ZelSimpleValueTest::anIntegerThatDoesNotConvertIsDropped() {
    platform().integer("COUNT").value(8).units("PARTS").format("%d");
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("COUNT");
    widget.setUnits("KG");
    const DebugLines debug;
    whenOpened<QInputDialog>([](QInputDialog* dialog) { dialog->accept(); });
    widget.handleWriteValue(nullptr);
    QCOMPARE(debug.lines(), QStringList({"Error converting value"}));
    QCOMPARE(platform().calls({"set_integer"}), QStringList());
}

void ZelSimpleValueTest::theDecimalsFollowTheFormatOrTheResolution_data() {
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<int>("resolution");
    QTest::addColumn<int>("decimals");
    QTest::newRow("three") << QByteArray("%9.3f") << 0 << 3;
    QTest::newRow("none told") << QByteArray("%g") << 0 << 6;
    QTest::newRow("not a number") << QByteArray("%5.f") << 0 << 6;
    QTest::newRow("by the resolution") << QByteArray("%9.3f") << 1 << 1;
    QTest::newRow("no resolution") << QByteArray("%9.3f") << -1 << 3;
}

void ZelSimpleValueTest::theDecimalsFollowTheFormatOrTheResolution() {
    QFETCH(QByteArray, format);
    QFETCH(int, resolution);
    QFETCH(int, decimals);
    platform().real("SPEED").value(8).format(format);
    Display widget;
    widget.setReadOnlyString(false);
    widget.setResolution(resolution);
    widget.setName("SPEED");
    int found = -1;
    whenOpened<QInputDialog>([&found](QInputDialog* dialog) {
        found = dialog->doubleDecimals();
        dialog->reject();
    });
    widget.handleWriteValue(nullptr);
    QCOMPARE(found, decimals);
}

void ZelSimpleValueTest::aDoubleClickWritesAnInteger() {
    platform().integer("COUNT").value(8).units("parts").format("%d");
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("COUNT");
    platform().forgetCalls();
    whenOpened<QInputDialog>([](QInputDialog* dialog) {
        QCOMPARE(dialog->windowTitle(), QString("Enter new value for COUNT"));
        QCOMPARE(dialog->labelText(), QString("Enter a new value for COUNT in the form of PARTS units."));
        QCOMPARE(dialog->intValue(), 8);
        QCOMPARE(dialog->intMinimum(), -2147483647);
        QCOMPARE(dialog->intMaximum(), 2147483647);
        QCOMPARE(dialog->intStep(), 1);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Up);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    });
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList({"set_integer COUNT 9"}));
}

void ZelSimpleValueTest::anIntegerIsWrittenInTheUnitsOfTheLastReal() {
    platform().real("LENGTH").units("M").format("%g");
    platform().integer("COUNT").value(8).units("CM").format("%d");
    platform().converts("MM", "M", 0.001);
    platform().converts("MM", "CM", 0.1);
    const auto write = [](Display& widget) {
        widget.setReadOnlyString(false);
        widget.setName("COUNT");
        widget.setUnits("MM");
        platform().forgetCalls();
        whenOpened<QInputDialog>([](QInputDialog* dialog) {
            dialog->setIntValue(5000);
            dialog->accept();
        });
        widget.handleWriteValue(nullptr);
        return platform().calls({"units_lng_keyword_convrt", "set_integer"});
    };
    Display afterReal;
    afterReal.setName("LENGTH");
    QCOMPARE(write(afterReal), QStringList({"units_lng_keyword_convrt 5000 MM M", "set_integer COUNT 5"}));
    Display fresh;
    QCOMPARE(write(fresh), QStringList({"units_lng_keyword_convrt 5000 MM CM", "set_integer COUNT 500"}));
}

void ZelSimpleValueTest::aDoubleClickWritesAString() {
    platform().string("TEXT").text("before");
    platform().alwaysAnswer("set_string_variable", -1);
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("TEXT");
    platform().forgetCalls();
    whenOpened<QInputDialog>([](QInputDialog* dialog) {
        QCOMPARE(dialog->windowTitle(), QString("Enter new string for TEXT"));
        QCOMPARE(dialog->labelText(), QString("Enter a new string for TEXT."));
        QCOMPARE(dialog->textValue(), QString("before"));
        QCOMPARE(dialog->textEchoMode(), QLineEdit::Normal);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(dialog->focusWidget(), "after");
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    });
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    // That the store refuses it is not shown.
    QCOMPARE(platform().calls(), QStringList({"set_string_variable TEXT after"}));
    QVERIFY(!QApplication::activeModalWidget());
    platform().forgetCalls();
    whenOpened<QInputDialog>([](QInputDialog* dialog) { dialog->reject(); });
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList());
}

void ZelSimpleValueTest::aDoubleClickFlipsALogical() {
    platform().logical("PUMP").value(1).states("RUNNING", "STOPPED");
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("PUMP");
    platform().forgetCalls();
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList({"set_logical_variable PUMP 0 0 null"}));
    widget.tick();
    QCOMPARE(widget.shown(), QString("STOPPED"));
    platform().forgetCalls();
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList({"set_logical_variable PUMP 1 0 null"}));
}

// Who clicks on "RUNNING" wants it stopped, and not started again where it stopped a moment ago.
void ZelSimpleValueTest::aDoubleClickFlipsTheStateThatTheOperatorSees() {
    auto pump = platform().logical("PUMP").value(1).states("RUNNING", "STOPPED");
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("PUMP");
    pump.value(0);
    platform().forgetCalls();
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList({"set_logical_variable PUMP 0 0 null"}));
}

void ZelSimpleValueTest::aDoubleClickWithoutAVariableIsAnError() {
    Display widget;
    widget.setReadOnlyString(false);
    QString title;
    QString text;
    whenOpened<QMessageBox>([&](QMessageBox* box) {
        title = box->windowTitle();
        text = box->text();
        box->accept();
    });
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(title, QString("Error"));
    QCOMPARE(text, QString("Please select a variable first."));
}

void ZelSimpleValueTest::otherKindsCannotBeEdited_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"NOX.AV", "GAS.CO", "AIR.CP", "EXH.CBE", "TEMPS:2", "STEPS:1", "TEXTS:3", "VALVES:1"})
        QTest::newRow(name) << name;
}

void ZelSimpleValueTest::otherKindsCannotBeEdited() {
    QFETCH(QString, name);
    fillStore();
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName(name);
    platform().forgetCalls();
    QString title;
    QString text;
    whenOpened<QMessageBox>([&](QMessageBox* box) {
        title = box->windowTitle();
        text = box->text();
        box->accept();
    });
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(title, QString("Error"));
    QCOMPARE(text, QString("The variable types of: STATISTICS, EMISSIONS,\n\t\tCOMPOSITION and REAL_INTEGER are not "
                           "editable"));
    QCOMPARE(platform().calls(), QStringList());
}

void ZelSimpleValueTest::aDoubleClickOnTheNameDoesNothing() {
    fillStore();
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("PUMP");
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    platform().forgetCalls();
    QTest::mouseDClick(widget.label(), Qt::LeftButton);
    QCOMPARE(platform().calls({"set_logical_variable"}), QStringList());
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls({"set_logical_variable"}).size(), 1);
}

void ZelSimpleValueTest::aRemoteDisplayWritesNothing() {
    RemoteDisplay = true;
    fillStore();
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("PUMP");
    platform().forgetCalls();
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    widget.handleWriteValue(nullptr);
    QCOMPARE(platform().calls(), QStringList());
    QVERIFY(TimerModerator::isRegistered(&widget, 2000));
    // No filter stands on the value: what comes later finds none either.
    RemoteDisplay = false;
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList());
}

void ZelSimpleValueTest::aWidgetReaimedWhileItAsksWritesNothing() {
    platform().string("TEXT").text("one");
    platform().string("OTHER").text("two");
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("TEXT");
    whenOpened<QInputDialog>([&widget](QInputDialog* dialog) {
        widget.setName("OTHER");
        dialog->accept();
    });
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls({"set_string_variable"}), QStringList());
}

OSTREL_TEST(ZelSimpleValueTest)
#include "zelsimplevalue_test.moc"
