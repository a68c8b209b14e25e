// The read-out of a channel.
#include <QAction>
#include <QComboBox>
#include <QGridLayout>
#include <QLCDNumber>
#include <QPushButton>
#include <QSignalSpy>

#include "qttests.h"
#include "readouttest.h"
#include "scripted/areas.h"
#include "selection/channelindexselectiondialog.h"
#include "widgets/zel_simplevaluechanindex.h"

namespace {

class Display : public Readout<ZelSimpleValueChanIndex> {
public:
    using Readout::Readout;
    QLCDNumber* number() const { return findChild<QLCDNumber*>("lcdNumber"); }
    QStringList menu() const {
        QStringList texts;
        for (const QAction* action : actions())
            texts.append(action->text());
        return texts;
    }
};

SYSTEM_ATTRIBUTES& attributes() {
    return platform().areas().attributes();
}

// As many channels as the test's records may be numbered.
void configureChannels() {
    platform().areas().serve();
    constexpr short many = 30000;
    for (short* count : {&attributes().logical_num_ai, &attributes().logical_num_fi, &attributes().logical_num_ci,
                         &attributes().logical_num_di, &attributes().num_do})
        *count = many;
}

// Three analog inputs, as the catalogue walks them.
void configureThreeInputs() {
    platform().areas().serve();
    attributes().logical_num_ai = 3;
    for (int i = 0; i < 3; ++i)
        platform().areas().put<REAL_VARIABLE>(AI_REAL_MEM, i, "CHANNEL");
}

int indexOf(const char* label) {
    return platform().handle(label).index;
}

// Gives a variable a place of its own in an area.
void place(const char* label, SM_AREA_ID area, short index) {
    SHARED_MEMORY& mem = platform().slotNamed(label)->mem;
    mem.code = area;
    mem.index = index;
    platform().handle(label) = mem;
}

void bindTo(Display& widget, int area, const char* label) {
    widget.setMemCode(area);
    widget.setMemIndex(indexOf(label));
}

}  // namespace

class ZelSimpleValueChanIndexTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }

    // First of all: once linked, the counts stay linked.
    void withoutAStoreThereAreNoChannels();

    void itsProperties_data();
    void itsProperties();
    void itsPropertiesStandInOrder();
    void itsSignalsAndSlots();
    void itsForm();
    void itsMenu();
    void theMenuOfARemoteDisplay();

    void anIndexAloneBindsNothing();
    void anAreaAloneBindsNothing();
    void bothBindInEitherOrder();
    void channelsOfEachArea_data();
    void channelsOfEachArea();
    void theNameIsTheStores();
    void anotherIndexBindsAtOnce();
    void theFirstAnalogInput();
    void anIndexBeyondTheCountIsMissing();
    void theNameOfTheFormerChannelGoes_data();
    void theNameOfTheFormerChannelGoes();
    void anAreaThatIsNotMappedIsMissing();
    void aNegativeIndexAsksTheStore();
    void aNegativeIndexThatTheStoreKnowsBinds();
    void anAreaWithoutAKindSaysSo();
    void areasHaveTheirCounts();
    void aStateHasNoLimits();
    void aReconfigurationBindsByPlace();
    void theChangeOfANameIsTold();

    void aTickShowsANewValue();
    void theStyleOfTheNumber();
    void theLayouts();
    void switchingTheLayoutDoesNotBind();
    void theFormLearnsEachProperty();
    void aDoubleClickFlipsALogical();

    void theOperatorChoosesAnIndex();
    void aChoiceThatIsCancelledChangesNothing();
    void whereThereIsNothingToChooseTheIndexStays_data();
    void whereThereIsNothingToChooseTheIndexStays();
};

void ZelSimpleValueChanIndexTest::withoutAStoreThereAreNoChannels() {
    platform().real("OIL_TEMP").area(AI_REAL_MEM);
    Display widget;
    QCOMPARE(widget.getLogicalNumVars(6), 0);
    bindTo(widget, AI_REAL_MEM, "OIL_TEMP");
    QVERIFY(widget.isMarkedMissing());
}

void ZelSimpleValueChanIndexTest::itsProperties_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("units") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("memCode") << QByteArray("int") << QVariant(0);
    QTest::newRow("memIndex") << QByteArray("int") << QVariant(0);
    QTest::newRow("valueFont") << QByteArray("QFont") << QVariant(QApplication::font());
    QTest::newRow("sampleRate") << QByteArray("int") << QVariant(1000);
    QTest::newRow("hideName") << QByteArray("bool") << QVariant(false);
    QTest::newRow("nameFont") << QByteArray("QFont") << QVariant(QApplication::font());
    QTest::newRow("hideUnits") << QByteArray("bool") << QVariant(true);
    QTest::newRow("group") << QByteArray("QString") << QVariant("not_set");
    QTest::newRow("readOnlyString") << QByteArray("bool") << QVariant(true);
    QTest::newRow("displayAlias") << QByteArray("bool") << QVariant(true);
    QTest::newRow("nameAlignment") << QByteArray("Qt::Alignment") << QVariant(2);
    QTest::newRow("nameMaxWidth") << QByteArray("int") << QVariant(700);
    QTest::newRow("toolTip") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("horizontal") << QByteArray("bool") << QVariant(false);
    QTest::newRow("segmentStyle") << QByteArray("SegmentStyle") << QVariant(2);
}

void ZelSimpleValueChanIndexTest::itsProperties() {
    QFETCH(QByteArray, type);
    QFETCH(QVariant, value);
    const ZelSimpleValueChanIndex widget;
    compareProperty(widget, QTest::currentDataTag(), type, value);
    const QMetaObject* meta = widget.metaObject();
    const QByteArray name = QTest::currentDataTag();
    QCOMPARE(meta->property(meta->indexOfProperty(name)).isDesignable(), name != "memCode" && name != "memIndex");
}

void ZelSimpleValueChanIndexTest::itsPropertiesStandInOrder() {
    QCOMPARE(ownProperties(ZelSimpleValueChanIndex::staticMetaObject),
             QStringList({"units", "memCode", "memIndex", "valueFont", "sampleRate", "hideName", "nameFont",
                          "hideUnits", "group", "readOnlyString", "displayAlias", "nameAlignment", "nameMaxWidth",
                          "toolTip", "horizontal", "segmentStyle"}));
}

void ZelSimpleValueChanIndexTest::itsSignalsAndSlots() {
    const QMetaObject& meta = ZelSimpleValueChanIndex::staticMetaObject;
    QCOMPARE(QByteArray(meta.superClass()->className()), QByteArray("OstrelBase"));
    QVERIFY(meta.indexOfSignal("nameChanged(QString,int,int)") >= meta.methodOffset());
    for (const char* slot : {"ostrelTimerEvent(int)", "changeEvent(QEvent*)"})
        QVERIFY2(meta.indexOfSlot(slot) >= meta.methodOffset(), slot);
    for (const char* slot : {"sample(bool)", "sample()", "changeChanIndex()"}) {
        QVERIFY2(meta.indexOfSlot(slot) >= meta.methodOffset(), slot);
        QCOMPARE(meta.method(meta.indexOfSlot(slot)).access(), QMetaMethod::Private);
    }
    const QMetaEnum styles = meta.enumerator(meta.indexOfEnumerator("SegmentStyle"));
    QCOMPARE(styles.keyToValue("Outline"), 0);
    QCOMPARE(styles.keyToValue("Filled"), 1);
    QCOMPARE(styles.keyToValue("Flat"), 2);
}

void ZelSimpleValueChanIndexTest::itsForm() {
    const Display widget;
    QCOMPARE(ZelSimpleValueChanIndex().objectName(), QString("ZelSimpleValueChanIndex"));
    QCOMPARE(widget.size(), QSize(177, 50));
    QCOMPARE(widget.shown(), QString("Value"));
    QCOMPARE(widget.label()->text(), QString("Name"));
    QVERIFY(widget.label()->wordWrap());
    QCOMPARE(widget.value()->maximumHeight(), 30);
    QCOMPARE(widget.label()->alignment(), Qt::AlignRight | Qt::AlignVCenter);
    QVERIFY(widget.icon()->isHidden());
    QCOMPARE(widget.number()->intValue(), -999);
    QCOMPARE(widget.number()->lineWidth(), 0);
    QCOMPARE(widget.number()->midLineWidth(), 0);
    QCOMPARE(widget.number()->mode(), QLCDNumber::Dec);
    QCOMPARE(widget.number()->segmentStyle(), QLCDNumber::Flat);
    QVERIFY(!widget.number()->autoFillBackground());
    QCOMPARE(int{widget._varType}, 1024);
    QCOMPARE(widget.className, QString("ZelSimpleValueChanIndex"));
}

void ZelSimpleValueChanIndexTest::itsMenu() {
    const Display widget;
    QCOMPARE(widget.menu(), QStringList({"Change Units", "Edit Properties", "Change Channel Index"}));
}

void ZelSimpleValueChanIndexTest::theMenuOfARemoteDisplay() {
    RemoteDisplay = true;
    const Display widget;
    QVERIFY(!widget.menu().contains("Change Channel Index"));
    // Nothing is taken away: the menu is that of any other widget there.
    const Probe other;
    QCOMPARE(widget.actions().size(), other.actions().size());
}

// ---- Binding ----

void ZelSimpleValueChanIndexTest::anIndexAloneBindsNothing() {
    configureChannels();
    platform().real("OIL_TEMP").area(AI_REAL_MEM);
    Display widget;
    widget.setMemIndex(indexOf("OIL_TEMP"));
    QCOMPARE(platform().calls({"find_variable", "get_vrbl_adr"}), QStringList());
    QCOMPARE(widget.shown(), QString("Value"));
    QCOMPARE(widget.number()->intValue(), -999);
}

void ZelSimpleValueChanIndexTest::anAreaAloneBindsNothing() {
    configureChannels();
    Display widget;
    widget.setMemCode(AI_REAL_MEM);
    QCOMPARE(platform().calls({"find_variable", "get_vrbl_adr"}), QStringList());
    QCOMPARE(widget.shown(), QString("Value"));
}

void ZelSimpleValueChanIndexTest::bothBindInEitherOrder() {
    configureChannels();
    platform().real("OIL_TEMP").area(AI_REAL_MEM).value(80.5).units("degc").format("%.1f");
    Display first;
    first.setMemCode(AI_REAL_MEM);
    first.setMemIndex(indexOf("OIL_TEMP"));
    Display second;
    second.setMemIndex(indexOf("OIL_TEMP"));
    second.setMemCode(AI_REAL_MEM);
    for (Display* widget : {&first, &second}) {
        QCOMPARE(widget->shown(), QString("80.5"));
        QCOMPARE(widget->label()->text(), QString("OIL_TEMP"));
        QCOMPARE(widget->tip(), QString("OIL_TEMP[DEGC]"));
        QCOMPARE(widget->number()->intValue(), indexOf("OIL_TEMP"));
        QVERIFY(widget->icon()->isHidden());
        QVERIFY(widget->isSampled());
    }
}

void ZelSimpleValueChanIndexTest::channelsOfEachArea_data() {
    QTest::addColumn<int>("area");
    QTest::addColumn<QString>("label");
    QTest::newRow("analog inputs") << 6 << "REAL";
    QTest::newRow("frequency inputs") << 22 << "REAL";
    QTest::newRow("counters in units") << 24 << "REAL";
    QTest::newRow("counters in counts") << 8 << "INTEGER";
    QTest::newRow("digital inputs") << 27 << "LOGICAL";
    QTest::newRow("digital outputs") << 28 << "LOGICAL";
}

void ZelSimpleValueChanIndexTest::channelsOfEachArea() {
    QFETCH(int, area);
    QFETCH(QString, label);
    configureChannels();
    const auto code = static_cast<SM_AREA_ID>(area);
    platform().real("REAL").area(code).value(1).format("%.3f");
    platform().integer("INTEGER").area(code).value(2).format("%d");
    platform().logical("LOGICAL").area(code).value(1).states("ON", "OFF");
    Display widget;
    bindTo(widget, area, label.toLatin1());
    QCOMPARE(widget.getName(), label);
    QCOMPARE(widget.shown(), label == "REAL" ? QString("1.000") : label == "INTEGER" ? QString("2") : QString("ON"));
    QCOMPARE(widget.number()->intValue(), indexOf(label.toLatin1()));
}

void ZelSimpleValueChanIndexTest::theNameIsTheStores() {
    configureChannels();
    platform().real("OIL_TEMP").area(AI_REAL_MEM);
    platform().real("SPEED");
    Display widget;
    bindTo(widget, AI_REAL_MEM, "OIL_TEMP");
    widget.setName("SPEED");
    QCOMPARE(widget.getName(), QString("OIL_TEMP"));
}

void ZelSimpleValueChanIndexTest::anotherIndexBindsAtOnce() {
    configureChannels();
    platform().real("OIL_TEMP").area(AI_REAL_MEM).value(1).format("%g");
    platform().real("AIR_TEMP").area(AI_REAL_MEM).value(2).format("%g");
    Display widget;
    bindTo(widget, AI_REAL_MEM, "OIL_TEMP");
    widget.setMemIndex(indexOf("AIR_TEMP"));
    QCOMPARE(widget.getName(), QString("AIR_TEMP"));
    QCOMPARE(widget.shown(), QString("2"));
    QCOMPARE(widget.number()->intValue(), indexOf("AIR_TEMP"));
}

void ZelSimpleValueChanIndexTest::theFirstAnalogInput() {
    configureChannels();
    attributes().logical_num_ai = 1;
    platform().real("OIL_TEMP").value(80.5).units("degc").format("%.1f");
    place("OIL_TEMP", AI_REAL_MEM, 0);
    Display widget;
    widget.setMemCode(6);
    widget.setMemIndex(0);
    QCOMPARE(widget.getName(), QString("OIL_TEMP"));
    QCOMPARE(widget.label()->text(), QString("OIL_TEMP"));
    QCOMPARE(widget.shown(), QString("80.5"));
    QCOMPARE(widget.number()->intValue(), 0);
    QVERIFY(widget.isSampled());
}

void ZelSimpleValueChanIndexTest::anIndexBeyondTheCountIsMissing() {
    configureChannels();
    platform().real("OIL_TEMP").area(AI_REAL_MEM);
    attributes().logical_num_ai = static_cast<short>(indexOf("OIL_TEMP"));
    Display widget;
    bindTo(widget, AI_REAL_MEM, "OIL_TEMP");
    QCOMPARE(widget.label()->text(), QString());
    QCOMPARE(widget.shown(), QString("  -"));
    QVERIFY(widget.isMarkedMissing());
    QCOMPARE(widget.number()->intValue(), -999);
    QVERIFY(!widget.isSampled());
    // One more channel, and it is there.
    attributes().logical_num_ai = static_cast<short>(indexOf("OIL_TEMP") + 1);
    widget.setName("");
    QCOMPARE(widget.getName(), QString("OIL_TEMP"));
    QVERIFY(!widget.isMarkedMissing());
}

void ZelSimpleValueChanIndexTest::theNameOfTheFormerChannelGoes_data() {
    QTest::addColumn<bool>("isAlsoAlias");
    QTest::newRow("a name of its own") << false;
    // The widget knows no other name of the variable then.
    QTest::newRow("the name of an alias") << true;
}

void ZelSimpleValueChanIndexTest::theNameOfTheFormerChannelGoes() {
    QFETCH(bool, isAlsoAlias);
    configureChannels();
    platform().real("OIL_TEMP").area(AI_REAL_MEM).value(80.5).format("%.1f");
    if (isAlsoAlias)
        platform().alwaysAnswer("find_alias_label", 0);
    Display widget;
    bindTo(widget, AI_REAL_MEM, "OIL_TEMP");
    widget.ostrelTimerEvent(1000);
    QVERIFY(widget.getInitFlag());
    QCOMPARE(widget.label()->text(), QString("OIL_TEMP"));
    QCOMPARE(widget.shown(), QString("80.5"));
    attributes().logical_num_ai = static_cast<short>(indexOf("OIL_TEMP"));
    for (const int beyond : {0, 1}) {
        widget.setMemIndex(indexOf("OIL_TEMP") + beyond);
        QCOMPARE(widget.label()->text(), QString());
        QCOMPARE(widget.shown(), QString("  -"));
        QVERIFY(widget.isMarkedMissing());
        QCOMPARE(widget.number()->intValue(), -999);
        QVERIFY(!widget.isSampled());
        QVERIFY(!widget.ptr());
    }
}

void ZelSimpleValueChanIndexTest::anAreaThatIsNotMappedIsMissing() {
    configureChannels();
    platform().real("OIL_TEMP").area(AI_REAL_MEM).value(80.5).format("%.1f");
    Display widget;
    bindTo(widget, AI_REAL_MEM, "OIL_TEMP");
    platform().alwaysAnswer("get_vrbl_adr", 1);
    QVERIFY(indexOf("OIL_TEMP") < widget.getLogicalNumVars(AI_REAL_MEM));
    widget.setMemIndex(indexOf("OIL_TEMP"));
    QCOMPARE(widget.label()->text(), QString());
    QCOMPARE(widget.shown(), QString("  -"));
    QVERIFY(widget.isMarkedMissing());
    QCOMPARE(widget.number()->intValue(), -999);
    QVERIFY(!widget.isSampled());
}

void ZelSimpleValueChanIndexTest::aNegativeIndexThatTheStoreKnowsBinds() {
    configureChannels();
    platform().real("OIL_TEMP").value(80.5).format("%.1f");
    place("OIL_TEMP", AI_REAL_MEM, -1);
    Display widget;
    widget.setMemCode(AI_REAL_MEM);
    widget.setMemIndex(-1);
    QCOMPARE(widget.label()->text(), QString("OIL_TEMP"));
    QCOMPARE(widget.shown(), QString("80.5"));
    QCOMPARE(widget.number()->intValue(), -1);
    QVERIFY(!widget.isMarkedMissing());
}

void ZelSimpleValueChanIndexTest::aNegativeIndexAsksTheStore() {
    configureChannels();
    Display widget;
    widget.setMemCode(AI_REAL_MEM);
    widget.setMemIndex(-1);
    QCOMPARE(platform().calls({"get_vrbl_adr"}), QStringList({"get_vrbl_adr -"}));
    QVERIFY(widget.isMarkedMissing());
}

void ZelSimpleValueChanIndexTest::anAreaWithoutAKindSaysSo() {
    configureChannels();
    Display widget;
    widget.setMemIndex(0);
    const DebugLines debug;
    widget.setMemCode(HZ_REAL_MEM);
    QCOMPARE(debug.lines(), QStringList({"NOT FOUND LABEL"}));
    QVERIFY(widget.isMarkedMissing());
}

void ZelSimpleValueChanIndexTest::areasHaveTheirCounts() {
    platform().areas().serve();
    attributes().logical_num_ai = 1;
    attributes().logical_num_ci = 2;
    attributes().logical_num_fi = 3;
    attributes().logical_num_di = 4;
    attributes().num_do = 5;
    const Display widget;
    const QMap<int, int> counts = {{6, 1}, {8, 2}, {24, 2}, {22, 3}, {27, 4}, {28, 5}};
    for (int code = -1; code < 90; ++code)
        QCOMPARE(widget.getLogicalNumVars(code), counts.value(code, 0));
}

void ZelSimpleValueChanIndexTest::aStateHasNoLimits() {
    configureChannels();
    platform().logical("PUMP").area(DI_LOGI_MEM).states("ON", "OFF").status(1024);
    platform().real("OIL_TEMP").area(AI_REAL_MEM);
    Display widget;
    bindTo(widget, AI_REAL_MEM, "OIL_TEMP");
    QVERIFY(widget.limit_status);
    bindTo(widget, DI_LOGI_MEM, "PUMP");
    QVERIFY(!widget.limit_status);
}

void ZelSimpleValueChanIndexTest::aReconfigurationBindsByPlace() {
    configureChannels();
    auto temperature = platform().real("OIL_TEMP").area(AI_REAL_MEM).value(1).format("%g");
    platform().real("SPARE").area(AI_REAL_MEM);
    Display widget;
    bindTo(widget, AI_REAL_MEM, "OIL_TEMP");
    widget.globalConfigEvent(1, -1);
    // The channel was given another name.
    scripted::put(temperature->label, "WATER_TEMP");
    platform().handle("WATER_TEMP") = platform().handle("OIL_TEMP");
    platform().remove("OIL_TEMP");
    widget.globalConfigEvent(0, -1);
    QCOMPARE(widget.getName(), QString("WATER_TEMP"));
    QCOMPARE(widget.label()->text(), QString("WATER_TEMP"));
    QVERIFY(!widget.isMarkedMissing());
}

void ZelSimpleValueChanIndexTest::theChangeOfANameIsTold() {
    configureChannels();
    platform().real("OIL_TEMP").area(AI_REAL_MEM);
    Display widget;
    widget.setRowCol(1, 2);
    QSignalSpy told(&widget, &ZelSimpleValueChanIndex::nameChanged);
    bindTo(widget, AI_REAL_MEM, "OIL_TEMP");
    QCOMPARE(told.size(), 1);
    QCOMPARE(told.first(), QVariantList({"OIL_TEMP", 1, 2}));
}

// ---- The rest ----

void ZelSimpleValueChanIndexTest::aTickShowsANewValue() {
    configureChannels();
    auto temperature = platform().real("OIL_TEMP").area(AI_REAL_MEM).value(1).format("%5.1f");
    Display widget;
    bindTo(widget, AI_REAL_MEM, "OIL_TEMP");
    temperature.value(2);
    widget.tick();
    QCOMPARE(widget.shown(), QString("2.0"));
}

void ZelSimpleValueChanIndexTest::theStyleOfTheNumber() {
    using Widget = ZelSimpleValueChanIndex;
    Display widget;
    widget.setSegmentStyle(Widget::Flat);
    QCOMPARE(platform().calls(), QStringList());
    widget.setSegmentStyle(Widget::Outline);
    QCOMPARE(widget.number()->segmentStyle(), QLCDNumber::Outline);
    widget.setSegmentStyle(Widget::Filled);
    QCOMPARE(widget.number()->segmentStyle(), QLCDNumber::Filled);
    widget.setSegmentStyle(static_cast<Widget::SegmentStyle>(7));
    QCOMPARE(widget.number()->segmentStyle(), QLCDNumber::Flat);
    QCOMPARE(int{widget.getSegmentStyle()}, 7);
    const QString start = "cacheProperty ZelSimpleValueChanIndex readout segmentStyle ";
    QCOMPARE(platform().calls(), QStringList({start + "0 loading", start + "1 loading", start + "7 loading"}));
}

void ZelSimpleValueChanIndexTest::theLayouts() {
    Display widget;
    QCOMPARE(widget.minimumSize(), QSize(60, 38));
    QCOMPARE(widget.frame()->maximumHeight(), 150);
    const auto* grid = widget.findChild<QGridLayout*>("gridLayout");
    const auto* inner = widget.findChild<QGridLayout*>("gridLayout_3");
    QCOMPARE(grid->contentsMargins(), QMargins(0, 0, 2, 0));
    QVERIFY(inner->itemAtPosition(1, 0)->widget() == widget.label());
    QVERIFY(inner->itemAtPosition(1, 1)->widget() == widget.icon());
    QVERIFY(inner->itemAtPosition(2, 0)->widget() == widget.value());
    QVERIFY(grid->itemAtPosition(0, 0)->widget() == widget.number());
    QCOMPARE(grid->itemAtPosition(0, 0)->alignment(), Qt::AlignRight);
    widget.setHorizontal(true);
    QCOMPARE(widget.minimumSize(), QSize(60, 45));
    QCOMPARE(widget.frame()->maximumHeight(), 60);
    QCOMPARE(grid->contentsMargins(), QMargins(0, 1, 0, 0));
    QCOMPARE(grid->itemAt(grid->indexOf(widget.label()))->alignment(), Qt::AlignLeft);
    QCOMPARE(grid->itemAt(grid->indexOf(widget.value()))->alignment(), Qt::AlignRight);
    QVERIFY(grid->itemAtPosition(0, 3)->widget() == widget.number());
    QCOMPARE(grid->itemAtPosition(0, 3)->alignment(), Qt::AlignRight);
}

void ZelSimpleValueChanIndexTest::switchingTheLayoutDoesNotBind() {
    configureChannels();
    platform().real("OIL_TEMP").area(AI_REAL_MEM).value(1).format("%g");
    Display widget;
    bindTo(widget, AI_REAL_MEM, "OIL_TEMP");
    platform().forgetCalls();
    widget.setHorizontal(true);
    QCOMPARE(platform().calls(),
             QStringList({"cacheProperty ZelSimpleValueChanIndex readout horizontal true loading"}));
    QVERIFY(widget.unitsChanged);
}

void ZelSimpleValueChanIndexTest::theFormLearnsEachProperty() {
    Display widget;
    widget.setMemCode(6);
    widget.setHideName(true);
    widget.setNameMaxWidth(80);
    const QString start = "cacheProperty ZelSimpleValueChanIndex readout ";
    QCOMPARE(platform().calls(), QStringList({start + "memCode 6 loading", start + "hideName true loading",
                                              start + "nameMaxWidth 80 loading"}));
    platform().forgetCalls();
    widget.setMemIndex(0);
    QCOMPARE(platform().calls().first(), start + "memIndex 0 loading");
}

void ZelSimpleValueChanIndexTest::aDoubleClickFlipsALogical() {
    configureChannels();
    platform().logical("PUMP").area(DO_LOGI_MEM).states("ON", "OFF");
    Display widget;
    bindTo(widget, DO_LOGI_MEM, "PUMP");
    platform().forgetCalls();
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList());
    widget.setReadOnlyString(false);
    platform().forgetCalls();
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList({"set_logical_variable PUMP 1 0 null"}));
}

void ZelSimpleValueChanIndexTest::theOperatorChoosesAnIndex() {
    configureThreeInputs();
    Display widget;
    widget.setMemCode(AI_REAL_MEM);
    widget.setMemIndex(0);
    QString group;
    whenOpened<ChannelIndexSelectionDialog>([&group](ChannelIndexSelectionDialog* dialog) {
        group = dialog->getSelectedVariableTypeText();
        auto* index = dialog->findChild<QComboBox*>("indexComboBox");
        index->setCurrentIndex(index->findText("2"));
        QTest::mouseClick(dialog->findChild<QPushButton*>("OkButton"), Qt::LeftButton);
    });
    platform().forgetCalls();
    widget.actions().last()->trigger();
    QCOMPARE(group, QString("Analog Inputs"));
    QCOMPARE(widget.getMemIndex(), 2);
    QCOMPARE(widget.getMemCode(), 6);
    // The group's name is not one that would move the area.
    QCOMPARE(platform().calls({"cacheProperty"}).filter("memCode"), QStringList());
    // Bound by the new index, and once more at the end.
    QCOMPARE(platform().calls({"get_vrbl_adr"}).size(), 2);
    QVERIFY(!widget.findChild<ChannelIndexSelectionDialog*>());
}

void ZelSimpleValueChanIndexTest::aChoiceThatIsCancelledChangesNothing() {
    configureThreeInputs();
    Display widget;
    widget.setMemCode(AI_REAL_MEM);
    widget.setMemIndex(0);
    platform().forgetCalls();
    whenOpened<ChannelIndexSelectionDialog>([](ChannelIndexSelectionDialog* dialog) { dialog->reject(); });
    widget.actions().last()->trigger();
    QCOMPARE(widget.getMemIndex(), 0);
    QCOMPARE(platform().calls({"cacheProperty"}), QStringList());
}

void ZelSimpleValueChanIndexTest::whereThereIsNothingToChooseTheIndexStays_data() {
    QTest::addColumn<QString>("emptied");
    QTest::newRow("no groups") << "groupComboBox";
    QTest::newRow("no channels") << "indexComboBox";
}

void ZelSimpleValueChanIndexTest::whereThereIsNothingToChooseTheIndexStays() {
    QFETCH(QString, emptied);
    configureThreeInputs();
    Display widget;
    widget.setMemCode(AI_REAL_MEM);
    widget.setMemIndex(2);
    platform().forgetCalls();
    whenOpened<ChannelIndexSelectionDialog>([emptied](ChannelIndexSelectionDialog* dialog) {
        dialog->findChild<QComboBox*>(emptied)->clear();
        QTest::mouseClick(dialog->findChild<QPushButton*>("OkButton"), Qt::LeftButton);
    });
    widget.actions().last()->trigger();
    QCOMPARE(widget.getMemIndex(), 2);
    QCOMPARE(platform().calls({"cacheProperty", "get_vrbl_adr"}), QStringList());
    QVERIFY(!widget.findChild<ChannelIndexSelectionDialog*>());
}

OSTREL_TEST(ZelSimpleValueChanIndexTest)
#include "zelsimplevaluechanindex_test.moc"
