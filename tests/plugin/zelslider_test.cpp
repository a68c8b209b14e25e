// A number as a bar along a scale.
#include <ostrel-display/slider.h>

#include <memory>

#include "indicatortest.h"
#include "qttests.h"
#include "widgets/zel_slider.h"
#include "widgets/zelsliderplugin.h"

namespace {

using Bar = Indicator<ZelSlider>;

Slider* slider(const Bar& bar) {
    return bar.part<Slider>("slider");
}
QLabel* label(const Bar& bar) {
    return bar.part<QLabel>("label");
}
QSpacerItem* spacer(const Bar& bar, int column) {
    return qobject_cast<QGridLayout*>(bar.layout())->itemAtPosition(3, column)->spacerItem();
}

// Brings the widget to the screen, and counts how often it is painted from then on.
class Repaints : public QObject {
public:
    explicit Repaints(QWidget* watched) {
        watched->window()->show();
        if (!QTest::qWaitForWindowExposed(watched->window()))
            qWarning("the window did not come to the screen");
        QCoreApplication::processEvents();
        watched->installEventFilter(this);
    }
    int count() {
        QCoreApplication::processEvents();
        return m_count;
    }

private:
    bool eventFilter(QObject*, QEvent* event) override {
        m_count += event->type() == QEvent::Paint;
        return false;
    }
    int m_count = 0;
};

}  // namespace

class ZelSliderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void itsProperties_data();
    void itsProperties();
    void itsPropertiesAndSlotsStandInOrder();
    void itsForm();
    void theOrderOfConstruction();
    void aNewBar();
    void aRemoteDisplaySaysSo();
    void inARemoteDisplayThePluginBuildsAMessage();

    void aRealIsShown();
    void anIntegerIsShown();
    void theBarStaysOnItsScale_data();
    void theBarStaysOnItsScale();
    void aValueBeyondTheScaleIsTakenAtEachTick();
    void theBarStandsInTheVariablesOwnUnits();
    void anIntegerInOtherUnits();
    void aFailedConversionLeavesTheBar();
    void theStatusIsNotSampled();
    void anUnknownVariableEmptiesTheBar();
    void anUnboundBarEndsItsLoading();
    void theSameNameAgain();
    void changedUnitsBindAnew();
    void aVariableThatComesBackIsShown();
    void theOrderOfAFirstBinding();

    void theScaleIsRenderedAndRemembered();
    void theColourOfTheBarNeedsNoNewScale();
    void theFontThatIsReadIsNotTheOneThatWasSet();
    void theSpacers_data();
    void theSpacers();
    void theGreatestWidthCounts();
    void theLeastAndTheGreatestWidth();
    void theToolTip();
    void theFilterLetsEventsThrough();
};

void ZelSliderTest::init() {
    startAsHost();
    platform().real("LEVEL").value(40).units("m").format("%6.2f");
}

void ZelSliderTest::itsProperties_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QVariant>("value");
    const Slider own;
    QTest::newRow("name") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("NameFont") << QByteArray("QFont") << QVariant(QApplication::font());
    QTest::newRow("sampleRate") << QByteArray("int") << QVariant(1000);
    QTest::newRow("Minimum") << QByteArray("double") << QVariant(0.0);
    QTest::newRow("Maximum") << QByteArray("double") << QVariant(100.0);
    QTest::newRow("MajorTicks") << QByteArray("int") << QVariant(own.MajorTicks);
    QTest::newRow("MinorTicks") << QByteArray("int") << QVariant(own.MinorTicks);
    QTest::newRow("DisplayAlias") << QByteArray("bool") << QVariant(true);
    QTest::newRow("Orientation") << QByteArray("Qt::Orientation") << QVariant(int{own.Orientation});
    QTest::newRow("BarColor") << QByteArray("QColor") << QVariant(own.BarColor);
    QTest::newRow("Precision") << QByteArray("int") << QVariant(own.Precision);
    QTest::newRow("toolTip") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("leftSpacerWidth") << QByteArray("int") << QVariant(5);
    QTest::newRow("rightSpacerWidth") << QByteArray("int") << QVariant(5);
}

void ZelSliderTest::itsProperties() {
    QFETCH(QByteArray, type);
    QFETCH(QVariant, value);
    compareProperty(Bar(), QTest::currentDataTag(), type, value);
}

void ZelSliderTest::itsPropertiesAndSlotsStandInOrder() {
    const QMetaObject& meta = ZelSlider::staticMetaObject;
    QCOMPARE(ownProperties(meta), QStringList({"name", "NameFont", "sampleRate", "Minimum", "Maximum", "MajorTicks",
                                               "MinorTicks", "DisplayAlias", "Orientation", "BarColor", "Precision",
                                               "toolTip", "leftSpacerWidth", "rightSpacerWidth"}));
    QCOMPARE(ownMethods(meta), QStringList({"ostrelTimerEvent(int)", "sample(bool)", "sample()"}));
}

void ZelSliderTest::itsForm() {
    const Bar bar;
    QVERIFY(bar.acceptDrops());
    auto* grid = qobject_cast<QGridLayout*>(bar.layout());
    QVERIFY(grid);
    QCOMPARE(grid->objectName(), QString("sliderLayout"));
    const auto place = [grid](QWidget* widget) {
        int row = 0;
        int column = 0;
        int rows = 0;
        int columns = 0;
        grid->getItemPosition(grid->indexOf(widget), &row, &column, &rows, &columns);
        return QList<int>{row, column, rows, columns};
    };
    auto* remote = bar.part<QLabel>("remote_label");
    QCOMPARE(place(label(bar)), QList<int>({0, 0, 1, 3}));
    QCOMPARE(place(bar.icon()), QList<int>({0, 3, 1, 1}));
    QCOMPARE(place(remote), QList<int>({2, 0, 1, 4}));
    QCOMPARE(place(slider(bar)), QList<int>({3, 1, 1, 1}));
    QCOMPARE(label(bar)->text(), QString("not_set"));
    QCOMPARE(label(bar)->textFormat(), Qt::RichText);
    QCOMPARE(label(bar)->alignment(), Qt::AlignCenter);
    QVERIFY(label(bar)->wordWrap());
    QCOMPARE(bar.icon()->maximumSize(), QSize(16, 16));
    QCOMPARE(remote->text(), QString("Slider widget does not work remotely"));
    QCOMPARE(remote->alignment(), Qt::AlignCenter);
    QCOMPARE(slider(bar)->minimumHeight(), 50);
    QCOMPARE(slider(bar)->Minimum, 0.0);
    QCOMPARE(slider(bar)->Maximum, 100.0);
    QCOMPARE(slider(bar)->Value, 50.0);
    QCOMPARE(slider(bar)->label(), QString("real_qt_1"));
}

void ZelSliderTest::theOrderOfConstruction() {
    platform().forgetCalls();
    const ZelSlider bar;
    QCOMPARE(platform().calls(), QStringList({"get_private_shrd_mem reconfig_data 28"}));
}

void ZelSliderTest::aNewBar() {
    const Bar bar;
    QCOMPARE(bar.getPreviousName(), QString("not_set"));
    QCOMPARE(int{bar._varType}, 128);
    QCOMPARE(bar._lastValue, -99999.0);
    QVERIFY(bar.icon()->isHidden());
    QVERIFY(bar.part<QLabel>("remote_label")->isHidden());
    QCOMPARE(slider(bar)->minimumWidth(), 70);
    QCOMPARE(bar.getSliderMinimumWidth(), 70);
    QCOMPARE(bar.getLabelMaximumWidth(), 50);
    QCOMPARE(label(bar)->maximumWidth(), QWIDGETSIZE_MAX);
    QCOMPARE(bar.layout()->sizeConstraint(), QLayout::SetMinimumSize);
    QCOMPARE(slider(bar)->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(slider(bar)->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    for (const int column : {0, 2}) {
        QCOMPARE(spacer(bar, column)->sizeHint(), QSize(5, 1));
        QCOMPARE(spacer(bar, column)->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
        QCOMPARE(spacer(bar, column)->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    }
    QVERIFY(bar.menu().contains("Change Units"));
}

void ZelSliderTest::aRemoteDisplaySaysSo() {
    RemoteDisplay = true;
    platform().forgetCalls();
    const ZelSlider made;
    QCOMPARE(platform().calls({"Slider::set_remote"}).size(), 1);
    Bar bar;
    QVERIFY(!bar.part<QLabel>("remote_label")->isHidden());
    QCOMPARE(bar.part<QLabel>("remote_label")->text(), QString("slider does not work remotely"));
    QVERIFY(label(bar)->isHidden());
    // Sampling goes on.
    bar.setName("LEVEL");
    QCOMPARE(slider(bar)->Value, 40.0);
    QVERIFY(bar.isSampled());
}

void ZelSliderTest::inARemoteDisplayThePluginBuildsAMessage() {
    QWidget form;
    ZelSliderPlugin plugin;
    std::unique_ptr<QWidget> built(plugin.createWidget(&form));
    QCOMPARE(QByteArray(built->metaObject()->className()), QByteArray("ZelSlider"));
    QCOMPARE(built->parentWidget(), &form);
    RemoteDisplay = true;
    built.reset(plugin.createWidget(&form));
    const auto* message = qobject_cast<QLabel*>(built.get());
    QVERIFY(message);
    QVERIFY(!message->parent());
    QCOMPARE(message->text(), QString("Strip Chart does not work remotely"));
    QCOMPARE(message->font().pointSize(), 12);
}

void ZelSliderTest::aRealIsShown() {
    const auto level = platform().real("LEVEL").value(40).format("%6.2f");
    Bar bar;
    bar.setName("LEVEL");
    QCOMPARE(label(bar)->text(), QString("LEVEL"));
    QCOMPARE(slider(bar)->Value, 40.0);
    QCOMPARE(bar.svalue.trimmed(), QString("40.00"));
    QCOMPARE(static_cast<void*>(bar.limit_status), static_cast<void*>(&level->limit_status));
    QVERIFY(!bar._checkLimit);
    QVERIFY(bar.isSampled());
    level.value(41.5);
    bar.tick();
    QCOMPARE(slider(bar)->Value, 41.5);
    QCOMPARE(bar._lastValue, 41.5);
}

void ZelSliderTest::anIntegerIsShown() {
    const auto count = platform().integer("COUNT").value(0).format("%d");
    Bar bar;
    bar.setName("COUNT");
    QCOMPARE(slider(bar)->Value, 0.0);
    QVERIFY(bar._checkLimit);
    QCOMPARE(static_cast<void*>(bar.limit_status), static_cast<void*>(&count->limit_status));
    count.value(7);
    bar.tick();
    QCOMPARE(slider(bar)->Value, 7.0);
    QCOMPARE(bar.svalue, QString("7"));
    QCOMPARE(bar._ilastValue, 7);
}

void ZelSliderTest::theBarStaysOnItsScale_data() {
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("shown");
    QTest::newRow("inside") << 0.0 << 100.0 << 99.5 << 99.5;
    QTest::newRow("above") << 0.0 << 100.0 << 100.5 << 100.0;
    QTest::newRow("below") << 0.0 << 100.0 << -0.5 << 0.0;
    QTest::newRow("at the end") << 0.0 << 100.0 << 100.0 << 100.0;
    // Turned round, the greater end is asked for first.
    QTest::newRow("turned round, inside") << 100.0 << 0.0 << 40.0 << 0.0;
    QTest::newRow("turned round, below") << 100.0 << 0.0 << -5.0 << 100.0;
}

void ZelSliderTest::theBarStaysOnItsScale() {
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, value);
    QFETCH(double, shown);
    platform().real("LEVEL").value(value).format("%g");
    Bar bar;
    bar.setMinimum(minimum);
    bar.setMaximum(maximum);
    bar.setName("LEVEL");
    QCOMPARE(slider(bar)->Value, shown);
    QCOMPARE(bar.svalue, QString::number(value));
}

void ZelSliderTest::aValueBeyondTheScaleIsTakenAtEachTick() {
    const auto level = platform().real("LEVEL").value(500).format("%g");
    Bar bar;
    bar.setName("LEVEL");
    bar.svalue = "scratched";
    bar.tick();
    QCOMPARE(bar.svalue, QString("500"));
    level.value(50);
    bar.tick();
    bar.svalue = "scratched";
    bar.tick();
    QCOMPARE(bar.svalue, QString("scratched"));
    // The bar is looked at too.
    slider(bar)->Value = 3;
    bar.tick();
    QCOMPARE(slider(bar)->Value, 50.0);
}

void ZelSliderTest::theBarStandsInTheVariablesOwnUnits() {
    const auto level = platform().real("LEVEL").value(40).units("m").format("%6.2f");
    platform().converts("m", "mm", 1000);
    Bar bar;
    bar.setName("LEVEL");
    bar.setUnits("mm");
    bar.setName("LEVEL");
    level.value(41);
    bar.tick();
    QCOMPARE(slider(bar)->Value, 41.0);
    QCOMPARE(bar.svalue, QString("41000.00"));
    QCOMPARE(bar._lastValue, 41000.0);
    // So the value is converted at each tick from now on.
    platform().forgetCalls();
    bar.tick();
    QCOMPARE(platform().calls(), QStringList({"units_get_real_keyword 41 m mm"}));
}

void ZelSliderTest::anIntegerInOtherUnits() {
    const auto count = platform().integer("COUNT").value(8).units("PARTS").format("%d");
    platform().converts("PARTS", "DOZEN", 0.25);
    Bar bar;
    bar.setName("COUNT");
    bar.setUnits("DOZEN");
    bar.setName("COUNT");
    count.value(12);
    platform().forgetCalls();
    bar.tick();
    QCOMPARE(platform().calls(), QStringList({"units_get_int_keyword 12 PARTS DOZEN"}));
    QCOMPARE(slider(bar)->Value, 12.0);
    QCOMPARE(bar.svalue, QString("3"));
    QCOMPARE(bar._ilastValue, 3);
}

void ZelSliderTest::aFailedConversionLeavesTheBar() {
    const auto level = platform().real("LEVEL").value(40).units("m").format("%g");
    Bar bar;
    bar.setName("LEVEL");
    bar.setUnits("kg");
    level.value(60);
    bar.tick();
    QCOMPARE(slider(bar)->Value, 40.0);
    QCOMPARE(bar.svalue, QString("40"));
    QCOMPARE(bar._lastValue, 40.0);
    platform().converts("m", "kg", 2);
    bar.tick();
    QCOMPARE(slider(bar)->Value, 60.0);
    QCOMPARE(bar.svalue, QString("120"));
}

void ZelSliderTest::theStatusIsNotSampled() {
    platform().real("LEVEL").status(1025);
    Bar bar;
    bar.setName("LEVEL");
    QCOMPARE(int{bar.limitColorCode}, 0);
    QCOMPARE(bar.getColor(), bar.palette().color(QPalette::Text));
}

void ZelSliderTest::anUnknownVariableEmptiesTheBar() {
    Bar bar;
    bar.setMinimum(20);
    bar.setName("LEVEL");
    bar.setName("NOBODY");
    QCOMPARE(slider(bar)->Value, 20.0);
    QCOMPARE(label(bar)->text(), QString("NOBODY"));
    bar.setMinimum(100);
    bar.setMaximum(10);
    bar.setName("not_set");
    QCOMPARE(slider(bar)->Value, 10.0);
}

void ZelSliderTest::anUnboundBarEndsItsLoading() {
    Bar bar;
    bar.setName("NOBODY");
    QVERIFY(bar.getInitFlag());
}

void ZelSliderTest::theSameNameAgain() {
    Bar bar;
    bar.setName("LEVEL");
    TimerModerator::releaseFromTimer(&bar);
    label(bar)->setText("scratched");
    bar.setName("LEVEL");
    QCOMPARE(label(bar)->text(), QString("LEVEL"));
    QVERIFY(bar.isSampled());
    QVERIFY(!bar._checkLimit);
    // It is not bound anew by that.
    bar._checkLimit = true;
    bar.setName("LEVEL");
    QVERIFY(bar._checkLimit);
}

void ZelSliderTest::changedUnitsBindAnew() {
    Bar bar;
    bar.setName("LEVEL");
    bar._checkLimit = true;
    bar.setUnits("mm");
    bar.setName("LEVEL");
    QVERIFY(!bar._checkLimit);
}

void ZelSliderTest::aVariableThatComesBackIsShown() {
    Bar bar;
    bar.setName("LEVEL");
    const SHARED_MEMORY handle = platform().handle("LEVEL");
    platform().remove("LEVEL");
    reconfigure(bar);
    QCOMPARE(slider(bar)->Value, 0.0);
    platform().addName("LEVEL", handle);
    reconfigure(bar);
    bar.tick();
    QCOMPARE(slider(bar)->Value, 40.0);
}

void ZelSliderTest::theOrderOfAFirstBinding() {
    Bar bar;
    bar.setName("LEVEL");
    QCOMPARE(platform().calls(),
             QStringList({"find_variable LEVEL", "find_variable LEVEL", "find_alias_label LEVEL",
                          "find_alias_of_target LEVEL", "find_variable LEVEL", "get_vrbl_adr LEVEL",
                          "cacheProperty ZelSlider lamp name LEVEL loading", "find_variable LEVEL"}));
    QVERIFY(!bar.getInitFlag());
    bar.tick();
    QVERIFY(bar.getInitFlag());
}

void ZelSliderTest::theScaleIsRenderedAndRemembered() {
    Bar bar;
    Repaints repaints(slider(bar));
    int painted = 0;
    const auto calls = [&](const char* property, const QVariant& value) {
        platform().forgetCalls();
        bar.setProperty(property, value);
        painted = repaints.count() - painted;
        return platform().calls();
    };
    const auto both = [](const QString& scale, const QString& line) {
        return QStringList({"Slider::render " + scale, "cacheProperty ZelSlider lamp " + line + " loading"});
    };
    QCOMPARE(calls("Minimum", -5.5), both("-5.5 100 6 4 0 1", "Minimum -5.5"));
    QVERIFY(painted > 0);
    QCOMPARE(calls("Maximum", 9.5), both("-5.5 9.5 6 4 0 1", "Maximum 9.5"));
    QCOMPARE(calls("MajorTicks", 3), both("-5.5 9.5 3 4 0 1", "MajorTicks 3"));
    QCOMPARE(calls("MinorTicks", 2), both("-5.5 9.5 3 2 0 1", "MinorTicks 2"));
    QCOMPARE(calls("Precision", 1), both("-5.5 9.5 3 2 1 1", "Precision 1"));
    QCOMPARE(calls("Orientation", QVariant::fromValue(Qt::Vertical)), both("-5.5 9.5 3 2 1 2", "Orientation 2"));
    QCOMPARE(bar.getMinimum(), -5.5);
    QCOMPARE(bar.getMaximum(), 9.5);
    QCOMPARE(bar.getMajorTicks(), 3);
    QCOMPARE(bar.getMinorTicks(), 2);
    QCOMPARE(bar.getPrecision(), 1);
    QCOMPARE(bar.getOrientation(), Qt::Vertical);
}

void ZelSliderTest::theColourOfTheBarNeedsNoNewScale() {
    Bar bar;
    Repaints repaints(slider(bar));
    bar.setBarColor(Qt::red);
    QCOMPARE(platform().calls(), QStringList({"cacheProperty ZelSlider lamp BarColor #ff0000 loading"}));
    QCOMPARE(bar.getBarColor(), QColor(Qt::red));
    QVERIFY(repaints.count() > 0);
}

void ZelSliderTest::theFontThatIsReadIsNotTheOneThatWasSet() {
    Bar bar;
    bar.setNameFont(QFont("Courier", 21));
    QCOMPARE(label(bar)->font().pointSize(), 21);
    QCOMPARE(bar.getNameFont(), QFont());
    QCOMPARE(platform().calls(), QStringList({"cachePropertyFont ZelSlider lamp NameFont Courier loading"}));
}

void ZelSliderTest::theSpacers_data() {
    QTest::addColumn<int>("sliderWidth");
    QTest::addColumn<int>("asked");
    QTest::addColumn<int>("given");
    QTest::newRow("as asked") << 200 << 74 << 74;
    QTest::newRow("no more than half, less 25") << 200 << 75 << 75;
    QTest::newRow("too much") << 200 << 90 << 75;
    QTest::newRow("an odd width") << 201 << 99 << 75;
    QTest::newRow("negative") << 200 << -3 << 0;
    QTest::newRow("a narrow slider") << 40 << 3 << -5;
    QTest::newRow("negative, but not above the limit") << 40 << -9 << 0;
    QTest::newRow("negative, at the limit") << 40 << -5 << -5;
}

void ZelSliderTest::theSpacers() {
    QFETCH(int, sliderWidth);
    QFETCH(int, asked);
    QFETCH(int, given);
    for (const int column : {0, 2}) {
        Bar bar;
        bar.setSliderMinimumWidth(1);
        slider(bar)->resize(sliderWidth, 50);
        platform().forgetCalls();
        const char* const property = column == 0 ? "leftSpacerWidth" : "rightSpacerWidth";
        bar.setProperty(property, asked);
        QCOMPARE(bar.property(property).toInt(), given);
        QCOMPARE(bar.property(column == 0 ? "rightSpacerWidth" : "leftSpacerWidth").toInt(), 5);
        QCOMPARE(spacer(bar, column)->sizeHint(), QSize(given, 1));
        QCOMPARE(spacer(bar, column)->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
        QCOMPARE(spacer(bar, column)->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(platform().calls(),
                 QStringList({QString("cacheProperty ZelSlider lamp %1 %2 loading").arg(property).arg(given)}));
    }
}

void ZelSliderTest::theGreatestWidthCounts() {
    Bar bar;
    slider(bar)->resize(300, 50);
    bar.setLeftSpacerWidth(10);
    slider(bar)->resize(100, 50);
    bar.setRightSpacerWidth(200);
    QCOMPARE(bar.getRightSpacerWidth(), 125);
}

void ZelSliderTest::theLeastAndTheGreatestWidth() {
    Bar bar;
    bar.setSliderMinimumWidth(90);
    bar.setLabelMaximumWidth(33);
    QCOMPARE(platform().calls(), QStringList({"cacheProperty ZelSlider lamp sliderMinWidth 90 loading",
                                              "cacheProperty ZelSlider lamp labelMaxWidth 33 loading"}));
    QCOMPARE(slider(bar)->minimumWidth(), 90);
    QCOMPARE(bar.getSliderMinimumWidth(), 90);
    QCOMPARE(label(bar)->maximumWidth(), 33);
    QCOMPARE(bar.getLabelMaximumWidth(), 33);
}

void ZelSliderTest::theToolTip() {
    Bar bar;
    bar.setToolTipString("tip");
    QCOMPARE(bar.toolTip(), QString("tip"));
    QCOMPARE(bar.getToolTip(), QString("tip"));
    QCOMPARE(platform().calls(), QStringList({"cacheProperty ZelSlider lamp toolTip tip loading"}));
}

void ZelSliderTest::theFilterLetsEventsThrough() {
    class Greedy : public QObject {
    public:
        bool event(QEvent*) override { return true; }
    } greedy;
    Bar bar;
    QEvent event(QEvent::User);
    QVERIFY(!bar.eventFilter(slider(bar), &event));
    QCOMPARE(bar.eventFilter(&greedy, &event), bar.QObject::eventFilter(&greedy, &event));
    RemoteDisplay = true;
    QVERIFY(!bar.eventFilter(&greedy, &event));
}

OSTREL_TEST(ZelSliderTest)
#include "zelslider_test.moc"
