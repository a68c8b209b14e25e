// The plain display of one variable.
#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QMetaProperty>
#include <QTimer>

#include "plugintest.h"
#include "qttests.h"
#include "whenopened.h"
#include "widgets/flashinglabel.h"
#include "widgets/zel_value.h"

namespace {

// What an operator sees of the widget.
class Display : public ZelValue {
public:
    Display() {
        setObjectName(QStringLiteral("display"));
        platform().forgetCalls();
    }
    QString ownToolTip() const { return _toolTip; }
    QLineEdit* value() const { return findChild<QLineEdit*>("value"); }
    QLabel* label() const { return findChild<QLabel*>("name"); }
    QLabel* unitsLabel() const { return findChild<FlashingLabel*>("units_label"); }
    QLabel* icon() const { return findChild<QLabel*>("iconLabel"); }
    QFrame* frame() const { return findChild<QFrame*>("frame"); }
    QString shown() const { return value()->text(); }
    QString units() const { return unitsLabel()->isHidden() ? QString("(hidden)") : unitsLabel()->text(); }
    bool isMarkedMissing() const {
        return !icon()->isHidden() && frame()->toolTip() == QLatin1String("VARIABLE NOT FOUND");
    }
    void tick() { ostrelTimerEvent(getSampleRate()); }
    bool isSampled() { return TimerModerator::isRegistered(this, getSampleRate()); }

    using OstrelBase::_checkLimit;
    using OstrelBase::_varType;
    using OstrelBase::limit_status;
};

}  // namespace

class ZelValueTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }

    void itsProperties_data();
    void itsProperties();
    void itsForm();
    void itAcceptsEverythingButStrings();

    void aRealIsShown();
    void anIntegerIsShown();
    void aLogicalIsShownWithoutUnits();
    void aMemberIsShownInItsFormat_data();
    void aMemberIsShownInItsFormat();
    void anArrayElementIsShown();
    void theUnitsAskedForStandInTheLabel();
    void unitsCanBeHidden();

    void noVariableShowsADash();
    void anUnknownVariableIsMarked();
    void anUnknownVariableTakesTheUnitsOfTheFormerWithIt();
    void theSameNameAgainLeavesTheTimerAlone();
    void anotherUnitBindsAnew();
    void anotherVariableStartsInItsOwnUnits();
    void theOrderOfAFirstBinding();
    void aTickShowsANewValue();

    void theFormLearnsEachProperty();
    void aColourIsCachedOnce();
    void aColourLikeTheFieldIsReplaced_data();
    void aColourLikeTheFieldIsReplaced();
    void theLimitColourIsShown();
    void theBackgroundCoversTheFrame();

    void aDoubleClickWritesAReal();
    void aWidgetReaimedWhileItAsksWritesNothing();
    void aRealIsWrittenInTheUnitsShown();
    void aValueThatDoesNotConvertIsNotWritten();
    void theDecimalsFollowTheFormat_data();
    void theDecimalsFollowTheFormat();
    void aDoubleClickWritesAnInteger();
    void anIntegerInUnitsNeedsAnEarlierReal();
    void aDoubleClickFlipsALogical();
    void aDoubleClickWithoutAVariableIsAnError();
    void otherKindsAreNotWritten();
    void aReadOnlyFieldIsNotWritten();
    void aRemoteDisplayWritesNothing();
};

void ZelValueTest::itsProperties_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("units") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("nameFont") << QByteArray("QFont") << QVariant(QApplication::font());
    QTest::newRow("backColor") << QByteArray("QColor") << QVariant(QColor());
    QTest::newRow("valueFont") << QByteArray("QFont") << QVariant(QApplication::font());
    QTest::newRow("sampleRate") << QByteArray("int") << QVariant(1000);
    QTest::newRow("group") << QByteArray("QString") << QVariant("not_set");
    QTest::newRow("displayAlias") << QByteArray("bool") << QVariant(true);
    QTest::newRow("readOnly") << QByteArray("bool") << QVariant(false);
    QTest::newRow("toolTip") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("color") << QByteArray("QColor") << QVariant(QColor());
    QTest::newRow("monitorLimits") << QByteArray("bool") << QVariant(true);
    QTest::newRow("lockedVariable") << QByteArray("bool") << QVariant(false);
}

void ZelValueTest::itsProperties() {
    QFETCH(QByteArray, type);
    QFETCH(QVariant, value);
    const ZelValue widget;
    const QMetaObject* meta = widget.metaObject();
    const QMetaProperty property = meta->property(meta->indexOfProperty(QTest::currentDataTag()));
    QCOMPARE(QByteArray(property.typeName()), type);
    // Two fonts that look alike may have been resolved differently: their descriptions are compared.
    if (type == "QFont")
        QCOMPARE(property.read(&widget).toString(), value.toString());
    else
        QCOMPARE(property.read(&widget), value);
    QVERIFY(property.isWritable());
}

void ZelValueTest::itsForm() {
    const Display widget;
    // A widget that no form named yet; a form from the palette names it "not_set".
    QCOMPARE(widget.property("name").toString(), QString());
    QCOMPARE(widget.getPreviousName(), QString("not_set"));
    QCOMPARE(QByteArray(widget.metaObject()->superClass()->className()), QByteArray("OstrelBase"));
    QCOMPARE(widget.size(), QSize(135, 71));
    QCOMPARE(widget.baseSize(), QSize(120, 83));
    QVERIFY(widget.acceptDrops());
    QVERIFY(widget.autoFillBackground());
    QCOMPARE(widget.contextMenuPolicy(), Qt::ActionsContextMenu);
    QCOMPARE(widget.frame()->frameShape(), QFrame::Box);
    QCOMPARE(widget.frame()->lineWidth(), 3);
    QCOMPARE(widget.label()->text(), QString("Variable"));
    QCOMPARE(widget.unitsLabel()->text(), QString("units"));
    QCOMPARE(widget.unitsLabel()->margin(), 1);
    QVERIFY(widget.icon()->isHidden());
    QCOMPARE(widget.icon()->maximumSize(), QSize(16, 19));
    QCOMPARE(widget.value()->minimumHeight(), 23);
    QCOMPARE(widget.value()->maximumSize(), QSize(1024, 30));
    QCOMPARE(widget.value()->maxLength(), 32);
    QCOMPARE(widget.value()->focusPolicy(), Qt::NoFocus);
    QCOMPARE(widget.value()->layoutDirection(), Qt::RightToLeft);
    QVERIFY(widget.value()->alignment() & Qt::AlignRight);
    QVERIFY(widget.value()->alignment() & Qt::AlignVCenter);
    const auto* background = widget.findChild<QFrame*>("frame_bcolor");
    QCOMPARE(background->palette().color(QPalette::Window), QColor(246, 246, 246));
    QCOMPARE(background->palette().color(QPalette::Base), QColor(255, 255, 255));
    QCOMPARE(background->palette().color(QPalette::Disabled, QPalette::Base), QColor(246, 246, 246));
}

void ZelValueTest::itAcceptsEverythingButStrings() {
    const Display widget;
    QCOMPARE(int{widget._varType}, 1021);
}

void ZelValueTest::aRealIsShown() {
    const auto speed = platform().real("SPEED").value(1500).units("rpm").format("%8.1f");
    Display widget;
    widget.setName("SPEED");
    QCOMPARE(widget.shown(), QString("1500.0"));
    QCOMPARE(widget.units(), QString("RPM"));
    QCOMPARE(widget.label()->text(), QString("SPEED"));
    QVERIFY(!widget.isMarkedMissing());
    QVERIFY(widget.isSampled());
    QVERIFY(widget._checkLimit);
    QCOMPARE(static_cast<void*>(widget.limit_status), static_cast<void*>(&speed->limit_status));
}

void ZelValueTest::anIntegerIsShown() {
    platform().integer("COUNT").value(42).units("parts").format("%d");
    Display widget;
    widget.setName("COUNT");
    QCOMPARE(widget.shown(), QString("42"));
    QCOMPARE(widget.units(), QString("PARTS"));
}

void ZelValueTest::aLogicalIsShownWithoutUnits() {
    platform().logical("PUMP").value(1).states("RUNNING", "STOPPED");
    Display widget;
    widget.setName("PUMP");
    QCOMPARE(widget.shown(), QString("RUNNING"));
    QVERIFY(!widget._checkLimit);
    QCOMPARE(widget.unitsLabel()->text(), QString());
}

void ZelValueTest::aMemberIsShownInItsFormat_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("statistics") << "NOX.AV";
    QTest::newRow("composition") << "GAS.CO";
    QTest::newRow("property") << "AIR.CP";
    QTest::newRow("emission") << "EXH.CBE";
}

void ZelValueTest::aMemberIsShownInItsFormat() {
    QFETCH(QString, name);
    platform().statistics("NOX.").member("AV", AV, 1.5, "PPM", "%.3f ignored");
    platform().composition("GAS.").member("CO", CO, 1.5, "PPM", "%.3f ignored");
    platform().property("AIR.").member("CP", CP, 1.5, "PPM", "%.3f ignored");
    platform().emission("EXH.").member("CBE", CBE, 1.5, "PPM", "%.3f ignored");
    Display widget;
    widget.setName(name);
    // Seven characters of the format are taken.
    QCOMPARE(widget.shown(), QString("1.500 ig"));
    QCOMPARE(widget.units(), QString());
    QVERIFY(widget.limit_status);
}

void ZelValueTest::anArrayElementIsShown() {
    auto temps = platform().realArray("TEMPS");
    temps.format("%.1f");
    temps[2].value = 21.5;
    scripted::put(temps[2].units, "degc");
    auto steps = platform().integerArray("STEPS");
    steps.format("%d");
    steps[1].value = 9;
    platform().logicalArray("VALVES")[1].value = 1;
    Display widget;
    widget.setName("TEMPS:2");
    QCOMPARE(widget.shown(), QString("21.5"));
    QCOMPARE(widget.units(), QString("DEGC"));
    QCOMPARE(static_cast<void*>(widget.limit_status), static_cast<void*>(&temps[2].limit_status));
    widget.setName("STEPS:1");
    QCOMPARE(widget.shown(), QString("9"));
    widget.setName("VALVES:1");
    QCOMPARE(widget.shown(), QString("TRUE"));
    QVERIFY(widget._checkLimit);
}

void ZelValueTest::theUnitsAskedForStandInTheLabel() {
    platform().converts("RPM", "hz", 0.5);
    platform().real("SPEED").value(8).units("RPM").format("%g");
    Display widget;
    widget.setName("SPEED");
    widget.setUnits("hz");
    widget.setName("SPEED");
    QCOMPARE(widget.units(), QString("hz"));
    QCOMPARE(widget.shown(), QString("4"));
    // A form may say so instead of nothing.
    const DebugLines debug;
    widget.setUnits("not_set");
    widget.setName("SPEED");
    QCOMPARE(widget.units(), QString("RPM"));
}

void ZelValueTest::unitsCanBeHidden() {
    platform().real("SPEED").units("RPM").format("%g");
    Display widget;
    widget.setUnitsVis(false);
    widget.setName("SPEED");
    QCOMPARE(widget.units(), QString("(hidden)"));
}

void ZelValueTest::noVariableShowsADash() {
    platform().real("SPEED").units("RPM").format("%g");
    Display widget;
    widget.setName("SPEED");
    widget.setName("not_set");
    QCOMPARE(widget.shown(), QString("-"));
    QCOMPARE(widget.unitsLabel()->text(), QString());
    QVERIFY(widget.icon()->isHidden());
    QVERIFY(!widget.ptr());
    QVERIFY(!widget.isSampled());
}

void ZelValueTest::anUnknownVariableIsMarked() {
    Display widget;
    widget.setToolTip("speed of the shaft");
    platform().forgetCalls();
    widget.setName("NOBODY");
    QCOMPARE(widget.shown(), QString("-"));
    QCOMPARE(widget.unitsLabel()->text(), QString());
    QVERIFY(widget.isMarkedMissing());
    QCOMPARE(widget.getName(), QString("NOBODY"));
    QVERIFY(!widget.isSampled());
    widget.setToolTip("another");
    QVERIFY(widget.isMarkedMissing());
    QCOMPARE(widget.getToolTip(), QString("another"));
    // A subclass finds it there.
    QCOMPARE(widget.ownToolTip(), QString("another"));
}

void ZelValueTest::anUnknownVariableTakesTheUnitsOfTheFormerWithIt() {
    platform().real("SPEED").value(5).units("rpm").format("%g");
    Display widget;
    widget.setName("SPEED");
    QCOMPARE(widget.units(), QString("RPM"));
    widget.setName("NOBODY");
    QCOMPARE(widget.units(), QString());
    QCOMPARE(widget.shown(), QString("-"));
}

void ZelValueTest::theSameNameAgainLeavesTheTimerAlone() {
    platform().real("SPEED").value(1).format("%g");
    Display widget;
    widget.setName("SPEED");
    TimerModerator::releaseFromTimer(&widget);
    widget.label()->setText("scratched");
    widget.setName("SPEED");
    QCOMPARE(widget.label()->text(), QString("SPEED"));
    QVERIFY(!widget.isSampled());
}

void ZelValueTest::anotherUnitBindsAnew() {
    platform().converts("RPM", "HZ", 0.5);
    platform().real("SPEED").value(8).units("RPM").format("%g");
    Display widget;
    widget.setName("SPEED");
    TimerModerator::releaseFromTimer(&widget);
    widget.setUnits("HZ");
    QCOMPARE(widget.shown(), QString("8"));
    widget.setName(widget.getName());
    QCOMPARE(widget.shown(), QString("4"));
    QVERIFY(widget.isSampled());
}

void ZelValueTest::anotherVariableStartsInItsOwnUnits() {
    platform().real("SPEED").units("RPM");
    platform().real("TORQUE").units("NM").format("%g");
    Display widget;
    widget.setName("SPEED");
    widget.setUnits("HZ");
    widget.setName("TORQUE");
    QCOMPARE(widget.getUnits(), QString());
    QCOMPARE(widget.units(), QString("NM"));
}

void ZelValueTest::theOrderOfAFirstBinding() {
    platform().real("SPEED").value(1).format("%g").status(1024);
    Display widget;
    widget.setName("SPEED");
    QCOMPARE(platform().calls(),
             QStringList({"find_variable SPEED", "find_variable SPEED", "find_alias_label SPEED",
                          "find_alias_of_target SPEED", "find_variable SPEED", "get_vrbl_adr SPEED",
                          "cacheProperty ZelValue display name SPEED loading", "find_variable SPEED",
                          "cacheProperty ZelValue display color #ff0000 loading"}));
    // The name was told while the form loads; the first sample after that ends the loading.
    QVERIFY(!widget.getInitFlag());
    widget.tick();
    QVERIFY(widget.getInitFlag());
}

void ZelValueTest::aTickShowsANewValue() {
    auto speed = platform().real("SPEED").value(1).format("%g");
    Display widget;
    widget.setName("SPEED");
    speed.value(2);
    widget.tick();
    QCOMPARE(widget.shown(), QString("2"));
    speed.value(3);
    widget.sample();
    QCOMPARE(widget.shown(), QString("3"));
}

void ZelValueTest::theFormLearnsEachProperty() {
    Display widget;
    const QFont font("Courier");
    widget.setNameFont(font);
    widget.setMyFont(font);
    widget.setValueFont(font);
    widget.setBColor(Qt::blue);
    widget.setReadOnly(true);
    widget.setToolTip("tip");
    QCOMPARE(platform().calls(), QStringList({"cachePropertyFont ZelValue display nameFont Courier loading",
                                              "cachePropertyFont ZelValue display nameFont Courier loading",
                                              "cachePropertyFont ZelValue display valueFont Courier loading",
                                              "cacheProperty ZelValue display backColor #0000ff loading",
                                              "cacheProperty ZelValue display readOnly true loading",
                                              "cacheProperty ZelValue display toolTip tip loading"}));
    QCOMPARE(widget.label()->font().family(), QString("Courier"));
    QCOMPARE(widget.unitsLabel()->font().family(), QString("Courier"));
    QCOMPARE(widget.value()->font().family(), QString("Courier"));
    QVERIFY(widget.value()->isReadOnly());
    QVERIFY(widget.isReadOnly());
}

void ZelValueTest::aColourIsCachedOnce() {
    Display widget;
    widget.setColor(Qt::red);
    widget.setColor(Qt::red);
    QCOMPARE(platform().calls(), QStringList({"cacheProperty ZelValue display color #ff0000 loading"}));
    QCOMPARE(widget.value()->palette().color(QPalette::Text), QColor(Qt::red));
    // An invalid colour stands for the field's own.
    widget.setColor(QColor());
    QCOMPARE(widget.getColor(), QColor(Qt::red));
    QCOMPARE(platform().calls().size(), 1);
}

void ZelValueTest::aColourLikeTheFieldIsReplaced_data() {
    QTest::addColumn<QColor>("base");
    QTest::addColumn<QColor>("shown");
    QTest::newRow("white on white") << QColor(Qt::white) << QColor(Qt::black);
    QTest::newRow("black on black") << QColor(Qt::black) << QColor(Qt::white);
    QTest::newRow("blue on blue") << QColor(Qt::blue) << QColor(Qt::black);
}

void ZelValueTest::aColourLikeTheFieldIsReplaced() {
    QFETCH(QColor, base);
    QFETCH(QColor, shown);
    Display widget;
    QPalette palette = widget.value()->palette();
    palette.setColor(QPalette::Base, base);
    widget.value()->setPalette(palette);
    widget.setColor(base);
    QCOMPARE(widget.getColor(), base);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        QCOMPARE(widget.value()->palette().color(group, QPalette::Text), shown);
}

void ZelValueTest::theLimitColourIsShown() {
    auto speed = platform().real("SPEED").status(1024);
    Display widget;
    widget.setName("SPEED");
    QCOMPARE(widget.value()->palette().color(QPalette::Text), QColor(Qt::red));
    speed.status(1536);
    widget.tick();
    QCOMPARE(widget.value()->palette().color(QPalette::Text), QColor(Qt::yellow));
}

void ZelValueTest::theBackgroundCoversTheFrame() {
    Display widget;
    widget.setBColor(Qt::darkGreen);
    QCOMPARE(widget.getBackColor(), QColor(Qt::darkGreen));
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(widget.palette().color(group, QPalette::Window), QColor(Qt::darkGreen));
        QCOMPARE(widget.findChild<QFrame*>("frame_bcolor")->palette().color(group, QPalette::Window),
                 QColor(Qt::darkGreen));
    }
}

void ZelValueTest::aDoubleClickWritesAReal() {
    platform().real("SPEED").value(1500.5).units("rpm").format("%6.2f");
    Display widget;
    widget.setName("SPEED");
    platform().forgetCalls();
    whenOpened<QInputDialog>([](QInputDialog* dialog) {
        QCOMPARE(dialog->windowTitle(), QString("Enter new value for SPEED"));
        QCOMPARE(dialog->labelText(), QString("Enter a new value for SPEED in the form of RPM units."));
        QCOMPARE(dialog->doubleValue(), 1500.5);
        QCOMPARE(dialog->doubleDecimals(), 2);
        QCOMPARE(dialog->doubleMinimum(), -2147483647.0);
        QCOMPARE(dialog->doubleMaximum(), 2147483647.0);
        dialog->setDoubleValue(1600.25);
        dialog->accept();
    });
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList({"set_real_variable SPEED 1600.25"}));
    platform().forgetCalls();
    whenOpened<QInputDialog>([](QInputDialog* dialog) { dialog->reject(); });
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList());
}

void ZelValueTest::aWidgetReaimedWhileItAsksWritesNothing() {
    platform().real("SPEED").value(1).format("%g");
    platform().real("LOAD").value(2).format("%g");
    Display widget;
    widget.setName("SPEED");
    platform().forgetCalls();
    whenOpened<QInputDialog>([&widget](QInputDialog* dialog) {
        widget.setName("LOAD");
        dialog->setDoubleValue(9);
        dialog->accept();
    });
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls({"set_real_variable"}), QStringList());
}

void ZelValueTest::aRealIsWrittenInTheUnitsShown() {
    platform().converts("RPM", "hz", 0.5);
    platform().converts("hz", "RPM", 2);
    platform().real("SPEED").value(8).units("RPM").format("%g");
    Display widget;
    widget.setName("SPEED");
    widget.setUnits("hz");
    widget.setName("SPEED");
    platform().forgetCalls();
    whenOpened<QInputDialog>([](QInputDialog* dialog) {
        QCOMPARE(dialog->labelText(), QString("Enter a new value for SPEED in the form of HZ units."));
        // The value to start from is not converted.
        QCOMPARE(dialog->doubleValue(), 8.0);
        dialog->setDoubleValue(10);
        dialog->accept();
    });
    widget.handleWriteValue(nullptr);
    QCOMPARE(platform().calls(), QStringList({"units_dbl_keyword_convrt 10 hz RPM", "set_real_variable SPEED 20"}));
}

void ZelValueTest::aValueThatDoesNotConvertIsNotWritten() {
    platform().real("SPEED").value(8).units("RPM").format("%g");
    platform().integer("COUNT").value(8).units("PARTS").format("%d");
    Display widget;
    for (const char* name : {"SPEED", "COUNT"}) {
        widget.setName(name);
        widget.setUnits("KG");
        platform().forgetCalls();
        const DebugLines debug;
        whenOpened<QInputDialog>([](QInputDialog* dialog) { dialog->accept(); });
        widget.handleWriteValue(nullptr);
        QCOMPARE(debug.lines(), QStringList({"Error converting value"}));
        QCOMPARE(platform().calls({"set_real_variable", "set_integer"}), QStringList());
    }
}

void ZelValueTest::theDecimalsFollowTheFormat_data() {
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<int>("decimals");
    QTest::newRow("three") << QByteArray("%9.3f") << 3;
    QTest::newRow("none told") << QByteArray("%g") << 6;
    QTest::newRow("not a number") << QByteArray("%5.f") << 6;
    QTest::newRow("zero") << QByteArray("%5.0f") << 0;
    QTest::newRow("text behind") << QByteArray("%5.1f x") << 1;
}

void ZelValueTest::theDecimalsFollowTheFormat() {
    QFETCH(QByteArray, format);
    QFETCH(int, decimals);
    platform().real("SPEED").value(8).format(format);
    Display widget;
    widget.setName("SPEED");
    int found = -1;
    whenOpened<QInputDialog>([&found](QInputDialog* dialog) {
        found = dialog->doubleDecimals();
        dialog->reject();
    });
    widget.handleWriteValue(nullptr);
    QCOMPARE(found, decimals);
}

void ZelValueTest::aDoubleClickWritesAnInteger() {
    platform().integer("COUNT").value(8).units("parts").format("%d");
    Display widget;
    widget.setName("COUNT");
    platform().forgetCalls();
    whenOpened<QInputDialog>([](QInputDialog* dialog) {
        QCOMPARE(dialog->windowTitle(), QString("Enter new value for COUNT"));
        QCOMPARE(dialog->labelText(), QString("Enter a new value for COUNT in the form of PARTS units."));
        QCOMPARE(dialog->intValue(), 8);
        QCOMPARE(dialog->intMinimum(), -2147483647);
        QCOMPARE(dialog->intMaximum(), 2147483647);
        QCOMPARE(dialog->intStep(), 1);
        dialog->setIntValue(9);
        dialog->accept();
    });
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList({"set_integer COUNT 9"}));
}

void ZelValueTest::anIntegerInUnitsNeedsAnEarlierReal() {
    platform().real("LENGTH").units("M").format("%g");
    platform().integer("COUNT").value(8).units("CM").format("%d");
    platform().converts("MM", "M", 0.001);
    platform().converts("MM", "CM", 0.1);
    const auto write = [](Display& widget) {
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
    // Without one the integer's own units are the ones to write in.
    Display fresh;
    QCOMPARE(write(fresh), QStringList({"units_lng_keyword_convrt 5000 MM CM", "set_integer COUNT 500"}));
}

void ZelValueTest::aDoubleClickFlipsALogical() {
    platform().logical("PUMP").value(1).states("RUNNING", "STOPPED");
    Display widget;
    widget.setName("PUMP");
    platform().forgetCalls();
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList({"set_logical_variable PUMP 0 0 null"}));
    widget.tick();
    QCOMPARE(widget.shown(), QString("STOPPED"));
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    widget.tick();
    QCOMPARE(widget.shown(), QString("RUNNING"));
}

void ZelValueTest::aDoubleClickWithoutAVariableIsAnError() {
    Display widget;
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

void ZelValueTest::otherKindsAreNotWritten() {
    platform().statistics("NOX.").member("AV", AV, 1);
    platform().realArray("TEMPS").format("%g");
    Display widget;
    for (const char* name : {"NOX.AV", "TEMPS:1"}) {
        widget.setName(name);
        platform().forgetCalls();
        QTest::mouseDClick(widget.value(), Qt::LeftButton);
        QCOMPARE(platform().calls(), QStringList());
    }
}

void ZelValueTest::aReadOnlyFieldIsNotWritten() {
    platform().logical("PUMP").value(1);
    Display widget;
    widget.setName("PUMP");
    widget.setReadOnly(true);
    platform().forgetCalls();
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(platform().calls({"set_logical_variable"}), QStringList());
    // The name is no part of the field.
    QVERIFY(widget.allowsWriteAcess());
    QTest::mouseDClick(widget.label(), Qt::LeftButton);
    QCOMPARE(platform().calls({"set_logical_variable"}), QStringList({"set_logical_variable PUMP 0 0 null"}));
}

void ZelValueTest::aRemoteDisplayWritesNothing() {
    RemoteDisplay = true;
    platform().logical("PUMP").value(1);
    Display widget;
    widget.setName("PUMP");
    platform().forgetCalls();
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    widget.handleWriteValue(nullptr);
    QCOMPARE(platform().calls(), QStringList());
    QVERIFY(TimerModerator::isRegistered(&widget, 2000));
}

OSTREL_TEST(ZelValueTest)
#include "zelvalue_test.moc"
