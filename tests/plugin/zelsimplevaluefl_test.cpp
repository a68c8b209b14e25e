// The read-out of free layout: where it differs from the everyday one.
#include <QGridLayout>
#include <QSignalSpy>
#include <memory>

#include "qttests.h"
#include "readouttest.h"
#include "widgets/zel_simplevalue_fl.h"
#include "widgets/zelgroupwidget.h"
#include "widgets/zelgroupwidget_fl.h"
#include "widgets/zelsimplevalueplugin_fl.h"

namespace {

using Display = Readout<ZelSimpleValue_fl>;

constexpr int unlimited = QWIDGETSIZE_MAX;

void limit(Display& widget, QSize name, QSize value, QSize frame) {
    widget.label()->setMaximumSize(name);
    widget.value()->setMaximumSize(value);
    widget.frame()->setMaximumSize(frame);
}

}  // namespace

// A container of that name part; what it does otherwise is of no concern here.
class ZelGroupLike : public QWidget {
    Q_OBJECT
};

class ZelSimpleValueFlTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }

    void itsProperties_data();
    void itsProperties();
    void itsPropertiesStandInOrder();
    void itsSignalsAndSlots();
    void itsForm();
    void theConstructorTellsTheFormWriter();
    void aNewWidgetStandsAsItsFormHasIt();
    void itShowsAVariable();
    void otherKindsAreRefusedWithoutAWord();

    void theFrameFollowsTheWidthOfTheName_data();
    void theFrameFollowsTheWidthOfTheName();
    void theFrameFollowsTheHeights_data();
    void theFrameFollowsTheHeights();
    void theFrameFollowsTheLayout_data();
    void theFrameFollowsTheLayout();
    void theLayoutAlignsTheValue();
    void theHeightIsLocked();
    void aWideNameMovesItsLimit();
    void aNameThatFitsGetsRoom();
    void theLeastWidthOfTheName();
    void theLeastWidthOfTheValue();
    void theSameLeastWidthChangesNothing();

    void theColour();
    void anInvalidColour();
    void theSameColourIsSetOnce();
    void aColourThatWasScratchedIsSetAgain();
    void theLimitColourIsShown();
    void theColourOfTheName();
    void anInvalidColourOfTheName();
    void otherChangesReachTheWidget();

    void aFalseStateBringsTheAlignmentBack();
    void theFormLearnsEachProperty();
    void aDoubleClickWritesOnceItIsLaidOut();

    void inAGroupItWritesInTheGroupsColour_data();
    void inAGroupItWritesInTheGroupsColour();
    void elsewhereItKeepsItsColours();
};

void ZelSimpleValueFlTest::itsProperties_data() {
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
    QTest::newRow("nameMaxHeight") << QByteArray("int") << QVariant(20);
    QTest::newRow("valueMaxHeight") << QByteArray("int") << QVariant(12);
    QTest::newRow("resolution") << QByteArray("int") << QVariant(0);
    QTest::newRow("lockMaxHeight") << QByteArray("bool") << QVariant(true);
    QTest::newRow("valueAlignment") << QByteArray("Qt::Alignment") << QVariant(2);
    QTest::newRow("nameMinWidth") << QByteArray("int") << QVariant(0);
    QTest::newRow("valueMinWidth") << QByteArray("int") << QVariant(0);
    QTest::newRow("nameColor") << QByteArray("QColor") << QVariant(QColor());
    QTest::newRow("color") << QByteArray("QColor") << QVariant(QApplication::palette().color(QPalette::Text));
}

void ZelSimpleValueFlTest::itsProperties() {
    QFETCH(QByteArray, type);
    QFETCH(QVariant, value);
    const ZelSimpleValue_fl widget;
    compareProperty(widget, QTest::currentDataTag(), type, value);
}

void ZelSimpleValueFlTest::itsPropertiesStandInOrder() {
    QCOMPARE(ownProperties(ZelSimpleValue_fl::staticMetaObject),
             QStringList({"units",          "name",          "valueFont",     "sampleRate",     "hideName",
                          "nameFont",       "hideUnits",     "group",         "readOnlyString", "displayAlias",
                          "horizontal",     "nameAlignment", "nameMaxWidth",  "toolTip",        "nameMaxHeight",
                          "valueMaxHeight", "resolution",    "lockMaxHeight", "valueAlignment", "nameMinWidth",
                          "valueMinWidth",  "nameColor",     "color"}));
}

void ZelSimpleValueFlTest::itsSignalsAndSlots() {
    const QMetaObject& meta = ZelSimpleValue_fl::staticMetaObject;
    QCOMPARE(QByteArray(meta.superClass()->className()), QByteArray("OstrelBase"));
    QVERIFY(meta.indexOfSignal("nameChanged(QString,int,int)") >= meta.methodOffset());
    for (const char* slot : {"ostrelTimerEvent(int)", "changeEvent(QEvent*)", "sample(bool)", "sample()"})
        QVERIFY2(meta.indexOfSlot(slot) >= meta.methodOffset(), slot);
}

void ZelSimpleValueFlTest::itsForm() {
    const Display widget;
    QCOMPARE(ZelSimpleValue_fl().objectName(), QString("ZelSimpleValue_fl"));
    QCOMPARE(widget.size(), QSize(112, 50));
    const QSizePolicy least(QSizePolicy::Minimum, QSizePolicy::Minimum);
    QCOMPARE(widget.sizePolicy(), least);
    QCOMPARE(widget.frame()->sizePolicy(), least);
    QCOMPARE(widget.label()->alignment(), Qt::AlignRight);
    QCOMPARE(widget.value()->alignment(), Qt::AlignRight);
    QCOMPARE(widget.label()->maximumHeight(), 30);
    QCOMPARE(widget.value()->maximumHeight(), 30);
    QVERIFY(widget.icon()->isHidden());
    QCOMPARE(widget.tip(), QString());
    QCOMPARE(widget.className, QString("ZelSimpleValue_fl"));
    QCOMPARE(int{widget._varType}, 1023);
}

void ZelSimpleValueFlTest::theConstructorTellsTheFormWriter() {
    const ZelSimpleValue_fl first;
    platform().forgetCalls();
    const ZelSimpleValue_fl widget;
    const QString start = "cacheProperty ZelSimpleValue_fl ZelSimpleValue_fl ";
    QCOMPARE(platform().calls({"cacheProperty", "find_variable"}),
             QStringList({"cacheProperty  ZelSimpleValue_fl hideName false loading",
                          "cacheProperty  ZelSimpleValue_fl hideUnits true loading", start + "valueAlignment 2 loading",
                          start + "nameAlignment 2 loading"}));
}

void ZelSimpleValueFlTest::aNewWidgetStandsAsItsFormHasIt() {
    const Display widget;
    QCOMPARE(widget.shown(), QString("Value"));
    QVERIFY(!widget.unitsChanged);
    QVERIFY(widget.findChild<QGridLayout*>("gridLayout_2")->itemAtPosition(0, 0)->widget() == widget.label());
    QVERIFY(widget.findChild<QGridLayout*>("gridLayout_3")->itemAtPosition(1, 0)->widget() == widget.value());
    QCOMPARE(widget.frame()->maximumHeight(), unlimited);
    QCOMPARE(widget.minimumSize(), QSize(112, 50));
}

void ZelSimpleValueFlTest::itShowsAVariable() {
    auto speed = platform().real("SPEED").value(1500).units("rpm").format("%8.1f");
    Display widget;
    QSignalSpy told(&widget, &ZelSimpleValue_fl::nameChanged);
    widget.setName("SPEED");
    QCOMPARE(widget.shown(), QString("1500.0"));
    QCOMPARE(widget.tip(), QString("SPEED[RPM]"));
    QCOMPARE(told.size(), 1);
    speed.value(2);
    widget.tick();
    QCOMPARE(widget.shown(), QString("2.0"));
    widget.setResolution(3);
    QCOMPARE(widget.shown(), QString("2.000"));
    // The same name again leaves all as it is.
    TimerModerator::releaseFromTimer(&widget);
    widget.setName("SPEED");
    QVERIFY(!widget.isSampled());
    QCOMPARE(widget.tip(), QString("SPEED[RPM]"));
    widget.setName("NOBODY");
    QVERIFY(widget.isMarkedMissing());
    QCOMPARE(widget.shown(), QString("  -"));
}

void ZelSimpleValueFlTest::otherKindsAreRefusedWithoutAWord() {
    platform().real("SPEED").value(1500).format("%8.1f");
    platform().other("SIGNAL", SIGNAL_TYPE, 200);
    Display widget;
    widget.setName("SPEED");
    QSignalSpy told(&widget, &ZelSimpleValue_fl::nameChanged);
    widget.setName("SIGNAL");
    QCOMPARE(widget.getName(), QString("SPEED"));
    QCOMPARE(widget.label()->text(), QString("SPEED"));
    QCOMPARE(widget.shown(), QString("1500.0"));
    QVERIFY(!widget.isMarkedMissing());
    QVERIFY(widget.isSampled());
    QVERIFY(told.isEmpty());
    // The mark of a name that was missing goes.
    widget.setName("NOBODY");
    QVERIFY(widget.isMarkedMissing());
    widget.setName("SIGNAL");
    QVERIFY(widget.icon()->isHidden());
}

// ---- Sizes ----

void ZelSimpleValueFlTest::theFrameFollowsTheWidthOfTheName_data() {
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("frame");
    QTest::newRow("column, the value is wider") << false << 300 << 80;
    QTest::newRow("row, the sum fits") << true << 300 << 130;
    QTest::newRow("row, the sum does not fit") << true << 100 << 100;
}

void ZelSimpleValueFlTest::theFrameFollowsTheWidthOfTheName() {
    QFETCH(bool, horizontal);
    QFETCH(int, before);
    QFETCH(int, frame);
    Display widget;
    widget.setHorizontal(horizontal);
    limit(widget, {700, 30}, {80, 30}, {before, 60});
    widget.setNameMaxWidth(50);
    QCOMPARE(widget.label()->maximumWidth(), 50);
    QCOMPARE(widget.getNameMaxWidth(), 50);
    QCOMPARE(widget.frame()->maximumWidth(), frame);
}

void ZelSimpleValueFlTest::theFrameFollowsTheHeights_data() {
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("byName");
    QTest::addColumn<int>("byValue");
    // In a column the value counts with the height that the form gave the name.
    QTest::newRow("column with room") << false << 300 << 70 << 65;
    QTest::newRow("column without room") << false << 50 << 50 << 50;
    QTest::newRow("row") << true << 300 << 40 << 40;
}

void ZelSimpleValueFlTest::theFrameFollowsTheHeights() {
    QFETCH(bool, horizontal);
    QFETCH(int, before);
    QFETCH(int, byName);
    QFETCH(int, byValue);
    Display widget;
    widget.setHorizontal(horizontal);
    limit(widget, {700, 30}, {80, 30}, {300, before});
    widget.setNameMaxHeight(40);
    QCOMPARE(widget.label()->maximumHeight(), 40);
    QCOMPARE(widget.frame()->maximumHeight(), byName);
    widget.setValueMaxHeight(25);
    QCOMPARE(widget.value()->maximumHeight(), 25);
    QCOMPARE(widget.frame()->maximumHeight(), byValue);
}

void ZelSimpleValueFlTest::theFrameFollowsTheLayout_data() {
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<QSize>("before");
    QTest::addColumn<QSize>("frame");
    QTest::newRow("row with room") << true << QSize(300, 300) << QSize(190, 30);
    QTest::newRow("row without room") << true << QSize(100, 10) << QSize(100, 30);
    QTest::newRow("column with room") << false << QSize(300, 300) << QSize(110, 55);
    QTest::newRow("column without room") << false << QSize(100, 10) << QSize(110, 10);
}

void ZelSimpleValueFlTest::theFrameFollowsTheLayout() {
    QFETCH(bool, horizontal);
    QFETCH(QSize, before);
    QFETCH(QSize, frame);
    Display widget;
    limit(widget, {110, 30}, {80, 25}, before);
    widget.setHorizontal(horizontal);
    QCOMPARE(widget.frame()->maximumSize(), frame);
    QCOMPARE(widget.minimumSize(), horizontal ? QSize(60, 20) : QSize(60, 38));
    const auto* grid = widget.findChild<QGridLayout*>("gridLayout");
    QCOMPARE(grid->contentsMargins(), horizontal ? QMargins(0, 1, 0, 0) : QMargins());
}

void ZelSimpleValueFlTest::theLayoutAlignsTheValue() {
    Display widget;
    widget.setHorizontal(true);
    QCOMPARE(widget.value()->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    widget.setHorizontal(false);
    QCOMPARE(widget.value()->alignment(), Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(widget.getValueAlignment(), Qt::AlignRight);
}

void ZelSimpleValueFlTest::theHeightIsLocked() {
    Display widget;
    widget.setLockMaxHeight(true);
    QCOMPARE(widget.frame()->maximumHeight(), 38);
    widget.setLockMaxHeight(false);
    QCOMPARE(widget.frame()->maximumHeight(), 38);
    // The labels' limits come after the lock.
    widget.setHorizontal(true);
    QCOMPARE(widget.frame()->maximumHeight(), 30);
    widget.setLockMaxHeight(true);
    QCOMPARE(widget.frame()->maximumHeight(), 20);
}

void ZelSimpleValueFlTest::aWideNameMovesItsLimit() {
    platform().real("A_NAME_THAT_IS_RATHER_LONG");
    Display widget;
    widget.setName("A_NAME_THAT_IS_RATHER_LONG");
    widget.setNameMaxWidth(50);
    QFont font = widget.font();
    font.setPointSize(20);
    widget.setNameFont(font);
    const int width = QFontMetrics(font).horizontalAdvance(widget.getName());
    QVERIFY(width > 50);
    QCOMPARE(widget.getNameMaxWidth(), width);
    QCOMPARE(widget.label()->maximumWidth(), width);
    QCOMPARE(widget.label()->minimumWidth(), 0);
}

void ZelSimpleValueFlTest::aNameThatFitsGetsRoom() {
    platform().real("SPEED");
    Display widget;
    widget.setName("SPEED");
    const QFont font("Courier", 14);
    widget.setNameFont(font);
    const int width = QFontMetrics(font).horizontalAdvance("SPEED");
    QCOMPARE(widget.label()->minimumWidth(), width);
    QCOMPARE(widget.getNameMaxWidth(), 700);
    QCOMPARE(widget.getNameMinWidth(), 0);
    Display exact;
    exact.setName("SPEED");
    exact.setNameMinWidth(width);
    exact.label()->setMinimumWidth(1);
    exact.setNameFont(font);
    QCOMPARE(exact.label()->minimumWidth(), 1);
}

void ZelSimpleValueFlTest::theLeastWidthOfTheName() {
    Display widget;
    widget.value()->setMinimumWidth(40);
    widget.setNameMinWidth(70);
    QCOMPARE(widget.label()->minimumWidth(), 70);
    QCOMPARE(widget.frame()->minimumWidth(), 70);
    widget.setNameMinWidth(30);
    QCOMPARE(widget.frame()->minimumWidth(), 40);
    widget.setHorizontal(true);
    widget.setNameMinWidth(70);
    QCOMPARE(widget.frame()->minimumWidth(), 40);
    widget.setHideName(true);
    widget.setNameMinWidth(70);
    QCOMPARE(widget.frame()->minimumWidth(), 110);
    QCOMPARE(widget.getNameMinWidth(), 70);
}

void ZelSimpleValueFlTest::theLeastWidthOfTheValue() {
    Display widget;
    widget.label()->setMinimumWidth(70);
    widget.icon()->setMinimumWidth(16);
    widget.setValueMinWidth(40);
    QCOMPARE(widget.value()->minimumWidth(), 40);
    QCOMPARE(widget.frame()->minimumWidth(), 70);
    widget.setName("NOBODY");
    widget.setValueMinWidth(41);
    QCOMPARE(widget.frame()->minimumWidth(), 86);
    widget.setHorizontal(true);
    widget.setValueMinWidth(42);
    QCOMPARE(widget.frame()->minimumWidth(), 128);
    QCOMPARE(widget.getValueMinWidth(), 42);
    QCOMPARE(platform().calls({"cacheProperty"}).filter("valueMinWidth"), QStringList());
}

void ZelSimpleValueFlTest::theSameLeastWidthChangesNothing() {
    Display widget;
    widget.setValueMinWidth(40);
    widget.frame()->setMinimumWidth(5);
    widget.value()->setMinimumWidth(45);
    widget.setValueMinWidth(45);
    QCOMPARE(widget.frame()->minimumWidth(), 5);
    QCOMPARE(widget.getValueMinWidth(), 40);
}

// ---- Colours ----

void ZelSimpleValueFlTest::theColour() {
    Display widget;
    widget.setColor(QColor(10, 20, 30));
    QCOMPARE(widget.getColor(), QColor(10, 20, 30));
    QCOMPARE(widget.colour(), QColor(10, 20, 30));
    QCOMPARE(widget.value()->styleSheet(), QString("QLabel { color: rgb(10,20,30);}"));
    QCOMPARE(platform().calls(), QStringList());
}

void ZelSimpleValueFlTest::anInvalidColour() {
    Display widget;
    widget.setColor(Qt::red);
    widget.setColor(QColor());
    QCOMPARE(widget.getColor(), QColor(Qt::red));
    QCOMPARE(widget.value()->styleSheet(), QString("QLabel { color: rgb(0,0,0);}"));
}

void ZelSimpleValueFlTest::theSameColourIsSetOnce() {
    Display widget;
    widget.setColor(Qt::red);
    struct Counter : QObject {
        int changes = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            changes += event->type() == QEvent::StyleChange || event->type() == QEvent::PaletteChange;
            return false;
        }
    } counter;
    widget.value()->installEventFilter(&counter);
    for (int i = 0; i < 10; ++i)
        widget.setColor(Qt::red);
    QCOMPARE(counter.changes, 0);
    widget.setColor(Qt::blue);
    QVERIFY(counter.changes > 0);
}

void ZelSimpleValueFlTest::aColourThatWasScratchedIsSetAgain() {
    Display widget;
    widget.setColor(Qt::red);
    widget.value()->setStyleSheet(QString());
    widget.setColor(Qt::red);
    QCOMPARE(widget.value()->styleSheet(), QString("QLabel { color: rgb(255,0,0);}"));
}

void ZelSimpleValueFlTest::theLimitColourIsShown() {
    auto speed = platform().real("SPEED").status(1024).format("%g");
    Display widget;
    widget.setName("SPEED");
    QCOMPARE(widget.value()->styleSheet(), QString("QLabel { color: rgb(255,0,0);}"));
    QCOMPARE(widget.colour(), QColor(Qt::red));
    speed.status(256);
    widget.tick();
    QCOMPARE(widget.colour(), QColor(Qt::blue));
    speed.status(0);
    widget.tick();
    QCOMPARE(widget.colour(), widget.palette().color(QPalette::Text));
}

void ZelSimpleValueFlTest::theColourOfTheName() {
    Display widget;
    widget.setNameColor(QColor(10, 20, 30));
    QCOMPARE(widget.getNameColor(), QColor(10, 20, 30));
    QCOMPARE(widget.label()->styleSheet(), QString("QLabel{ color: rgb(10,20,30);}"));
    for (const auto role : {QPalette::Text, QPalette::WindowText}) {
        QCOMPARE(widget.palette().color(role), QColor(10, 20, 30));
        QCOMPARE(widget.label()->palette().color(role), QColor(10, 20, 30));
    }
    QCOMPARE(platform().calls(), QStringList());
    // The same colour is no change.
    widget.label()->setStyleSheet(QString());
    widget.setNameColor(QColor(10, 20, 30));
    QCOMPARE(widget.label()->styleSheet(), QString());
}

void ZelSimpleValueFlTest::anInvalidColourOfTheName() {
    Display widget;
    const QColor own = widget.label()->palette().color(QPalette::Text);
    widget.setNameColor(QColor());
    QCOMPARE(widget.getNameColor(), own);
    QCOMPARE(widget.label()->styleSheet(), QString("QLabel{ color: rgb(0,0,0);}"));
}

void ZelSimpleValueFlTest::otherChangesReachTheWidget() {
    QWidget form;
    Display widget(&form);
    QPalette palette = form.palette();
    palette.setColor(QPalette::Text, Qt::darkCyan);
    form.setPalette(palette);
    QCOMPARE(widget.getColor(), QColor(Qt::darkCyan));
    QCOMPARE(widget._lastPreFlashColor, QColor(Qt::darkCyan));
    form.setEnabled(false);
    QVERIFY(!widget.isEnabled());
}

// ---- The rest ----

void ZelSimpleValueFlTest::aFalseStateBringsTheAlignmentBack() {
    auto pump = platform().logical("PUMP").value(0).states("RUNNING", "STOPPED");
    Display widget;
    widget.setHorizontal(true);
    widget.setName("PUMP");
    QString own("for once");
    widget.set_custom_toolTip(own);
    pump.value(1);
    widget.tick();
    QCOMPARE(widget.shown(), QString("RUNNING"));
    QCOMPARE(widget.value()->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(widget.tip(), QString("for once"));
    pump.value(0);
    widget.tick();
    QCOMPARE(widget.shown(), QString("STOPPED"));
    QCOMPARE(widget.value()->alignment(), Qt::AlignRight);
    QCOMPARE(widget.tip(), QString());
}

void ZelSimpleValueFlTest::theFormLearnsEachProperty() {
    Display widget;
    const QFont font("Courier");
    widget.setNameFont(font);
    widget.setNameMaxWidth(80);
    widget.setNameMaxHeight(21);
    widget.setValueMaxHeight(22);
    widget.setNameMinWidth(23);
    widget.setValueMinWidth(24);
    widget.setValueAlignment(Qt::AlignHCenter);
    const QString start = "cacheProperty ZelSimpleValue_fl readout ";
    QCOMPARE(platform().calls(), QStringList({"cachePropertyFont ZelSimpleValue_fl readout nameFont Courier loading",
                                              start + "nameMaxWidth 80 loading", start + "nameMaxHeight 21 loading",
                                              start + "valueMaxHeight 22 loading", start + "nameMinWidth 23 loading",
                                              start + "valueAlignment 4 loading"}));
    QCOMPARE(widget.value()->alignment(), Qt::AlignHCenter);
    platform().forgetCalls();
    widget.setHorizontal(true);
    // Told before the binding.
    QCOMPARE(platform().calls().first(), start + "horizontal true loading");
}

void ZelSimpleValueFlTest::aDoubleClickWritesOnceItIsLaidOut() {
    platform().logical("PUMP").states("RUNNING", "STOPPED");
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("PUMP");
    platform().forgetCalls();
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList());
    widget.setHorizontal(false);
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls({"set_logical_variable"}), QStringList({"set_logical_variable PUMP 1 0 null"}));
}

void ZelSimpleValueFlTest::inAGroupItWritesInTheGroupsColour_data() {
    QTest::addColumn<int>("kind");
    QTest::newRow("a group") << 0;
    QTest::newRow("a group of free layout") << 1;
    QTest::newRow("a container of that name") << 2;
}

void ZelSimpleValueFlTest::inAGroupItWritesInTheGroupsColour() {
    QFETCH(int, kind);
    const QColor blue(10, 20, 30);
    std::unique_ptr<QWidget> group;
    if (kind == 0) {
        auto zelGroup = std::make_unique<ZelGroup>();
        zelGroup->setTextColor(blue);
        group = std::move(zelGroup);
    } else if (kind == 1) {
        auto zelGroup = std::make_unique<ZelGroup_fl>();
        zelGroup->setTextColor(blue);
        group = std::move(zelGroup);
    } else {
        group = std::make_unique<ZelGroupLike>();
        QPalette palette = group->palette();
        palette.setColor(QPalette::Text, blue);
        group->setPalette(palette);
    }
    ZelSimpleValuePlugin_fl plugin;
    auto* widget = qobject_cast<ZelSimpleValue_fl*>(plugin.createWidget(group.get()));
    QVERIFY(widget);
    QCOMPARE(widget->parentWidget(), group.get());
    QCOMPARE(widget->getNameColor(), blue);
    QCOMPARE(widget->getColor(), blue);
    const auto* value = widget->findChild<QLabel*>("value");
    const auto* name = widget->findChild<QLabel*>("name");
    QCOMPARE(value->styleSheet(), QString("QLabel { color: rgb(10,20,30);}"));
    QCOMPARE(name->styleSheet(), QString("QLabel{ color: rgb(10,20,30);}"));
    QCOMPARE(value->palette().color(QPalette::Text), blue);
    QCOMPARE(name->palette().color(QPalette::Text), blue);
}

void ZelSimpleValueFlTest::elsewhereItKeepsItsColours() {
    QWidget form;
    ZelSimpleValuePlugin_fl plugin;
    const std::unique_ptr<QWidget> alone(plugin.createWidget(nullptr));
    for (QWidget* widget : {alone.get(), plugin.createWidget(&form)}) {
        QVERIFY(!qobject_cast<ZelSimpleValue_fl*>(widget)->getNameColor().isValid());
        QCOMPARE(widget->findChild<QLabel*>("value")->styleSheet(), QString());
    }
}

OSTREL_TEST(ZelSimpleValueFlTest)
#include "zelsimplevaluefl_test.moc"
