// From a record to the text and the colour that a widget shows: OstrelBase.
#include <QProcess>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <clocale>
#include <cmath>

#include "plugintest.h"
#include "qttests.h"

class SamplingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }

    void anUnboundWidgetShowsNothing();
    void aRealIsShownWhenItChanges();
    void aRealCarriesItsUnits();
    void aRealIsConverted();
    void aRealThatDoesNotConvertKeepsTheOldText();
    void anIntegerIsShownWhenItChanges();
    void aConvertedIntegerIsComparedRaw();
    void anIntegerThatBecomesTheNumberOnTheScreenIsNoticed_data();
    void anIntegerThatBecomesTheNumberOnTheScreenIsNoticed();
    void anIntegerThatDoesNotConvertFailsEachTime();
    void aLogicalIsShownOnEverySample();
    void statisticsAreShownWhenTheyChange();
    void compositionsAreShownOnEverySample();
    void propertiesAreShownOnEverySample();
    void emissionsLeaveTheRefreshAsItIs();
    void aMemberIsConverted();
    void aRealArrayElementIsShown();
    void anIntegerArrayElementIsFetchedAgain();
    void aLogicalArrayElementHasWordsOfItsOwn();
    void anElementThatCannotBeReachedShowsNothing();
    void stringsAreNotSampledHere();
    void aLongNumberIsShortened_data();
    void aLongNumberIsShortened();
    void aLongIntegerIsShortened_data();
    void aLongIntegerIsShortened();
    void aTieIsRoundedToEven();
    void aNumberIsPrintedAsTheCLibraryDoes_data();
    void aNumberIsPrintedAsTheCLibraryDoes();
    void theProcesssLanguageChangesNoNumber();
    void aFormatThatDoesNotFitIsReplaced_data();
    void aFormatThatDoesNotFitIsReplaced();

    void theStatusSelectsTheColour_data();
    void theStatusSelectsTheColour();
    void aColourLikeTheBackgroundIsDarker();
    void blinkingAsksForTheFlashTimerOnce();
    void steadyColoursEndTheBlinking();
    void aBlinkingColourIsLeftToTheFlash();
    void blackIsTheTextColour();
    void unmonitoredWidgetsHaveTheTextColour_data();
    void unmonitoredWidgetsHaveTheTextColour();
    void theFlashChangesThePhase();
    void theFlashGivesAColourToAWidgetWithoutOne();

    void theFirstCheckEndsTheLoading();
    void aCheckAtTheStartAfterTheFirstWriteIsNoEnd();
};

void SamplingTest::anUnboundWidgetShowsNothing() {
    Probe widget;
    QVERIFY(!widget.sampleReal(true));
}

void SamplingTest::aRealIsShownWhenItChanges() {
    auto speed = platform().real("SPEED").value(1500).format("%6.1f").status(1024);
    Probe widget;
    widget.setName("SPEED");
    QCOMPARE(widget.text(), QString("1500.0"));
    QCOMPARE(int{widget.limitColorCode}, 1024);
    QCOMPARE(widget.text(), QString("(nothing new)"));
    speed.status(512);
    QCOMPARE(widget.text(), QString("(nothing new)"));
    QCOMPARE(int{widget.limitColorCode}, 512);
    speed.value(1501.5);
    QCOMPARE(widget.text(), QString("1501.5"));
    widget.updateFirst_ = true;
    QCOMPARE(widget.text(), QString("1501.5"));
    QVERIFY(!widget.updateFirst_);
}

void SamplingTest::aRealCarriesItsUnits() {
    platform().real("SPEED").value(2).units("rpm").format("%g");
    Probe widget;
    widget.setName("SPEED");
    QCOMPARE(widget.text(false), QString("2[rpm]"));
    QCOMPARE(platform().calls({"unitsConvert"}), QStringList());
}

void SamplingTest::aRealIsConverted() {
    platform().converts("RPM", "HZ", 0.5);
    auto speed = platform().real("SPEED").value(5).units("RPM").format("%g");
    Probe widget;
    widget.setName("SPEED");
    widget.useUnits("HZ");
    QCOMPARE(widget.text(false), QString("2.5[HZ]"));
    QCOMPARE(widget._lastValue, 5.0);
    speed.value(7);
    QCOMPARE(widget.text(true), QString("3.5"));
    QCOMPARE(platform().calls({"unitsConvert"}), QStringList({"unitsConvert 5 RPM HZ", "unitsConvert 7 RPM HZ"}));
}

void SamplingTest::aRealThatDoesNotConvertKeepsTheOldText() {
    platform().real("SPEED").value(5).units("RPM").format("%g");
    platform().alwaysAnswer("unitsConvert", 42);
    Probe widget;
    widget.setName("SPEED");
    widget.useUnits("KG");
    const DebugLines debug;
    QCOMPARE(widget.text(), QString("(nothing new)"));
    QCOMPARE(debug.lines(), QStringList({"Error retrieving units... code 42 [ from probe with units KG ]",
                                         "Atempted to lookup RPM and failed. "}));
    // The raw value counts as shown, so the same value is not tried again.
    QCOMPARE(widget._lastValue, 5.0);
    widget.text();
    QCOMPARE(debug.lines().size(), 2);
}

void SamplingTest::anIntegerIsShownWhenItChanges() {
    auto count = platform().integer("COUNT").value(7).format("%4d").units("parts").status(256);
    Probe widget;
    widget.setName("COUNT");
    QCOMPARE(widget.text(false), QString("   7"));
    QCOMPARE(int{widget.limitColorCode}, 256);
    QCOMPARE(widget.text(), QString("(nothing new)"));
    count.value(8);
    QCOMPARE(widget.text(), QString("   8"));
}

void SamplingTest::aConvertedIntegerIsComparedRaw() {
    platform().converts("M", "MM", 1000);
    platform().integer("LENGTH").value(2).units("M").format("%d");
    Probe widget;
    widget.setName("LENGTH");
    widget.useUnits("MM");
    QCOMPARE(widget.text(), QString("2000"));
    QCOMPARE(widget._ilastValue, 2000);
    QCOMPARE(widget.text(), QString("2000"));
    QCOMPARE(platform().calls({"units_get_int_keyword"}).size(), 2);
}

void SamplingTest::anIntegerThatBecomesTheNumberOnTheScreenIsNoticed_data() {
    QTest::addColumn<bool>("isElement");
    QTest::newRow("integer") << false;
    QTest::newRow("element") << true;
}

// 10 cm are 100 mm, and 100 cm are another length.
void SamplingTest::anIntegerThatBecomesTheNumberOnTheScreenIsNoticed() {
    QFETCH(bool, isElement);
    platform().converts("CM", "MM", 10);
    auto length = platform().integer("LENGTH").units("CM").format("%d");
    auto lengths = platform().integerArray("LENGTHS");
    lengths.format("%d");
    scripted::put(lengths[1].units, "CM");
    const auto set = [&](int value) {
        length->value = value;
        lengths[1].value = value;
    };
    set(10);
    Probe widget;
    widget.setName(isElement ? "LENGTHS:1" : "LENGTH");
    widget.useUnits("MM");
    QCOMPARE(widget.text(), QString("100"));
    set(100);
    QCOMPARE(widget.text(), QString("1000"));
    set(1000);
    QCOMPARE(widget.text(), QString("10000"));
    // Zero is zero in both, and rests.
    set(0);
    QCOMPARE(widget.text(), QString("0"));
    QCOMPARE(widget.text(), QString("(nothing new)"));
}

void SamplingTest::anIntegerThatDoesNotConvertFailsEachTime() {
    platform().integer("LENGTH").value(2).units("M").format("%d");
    Probe widget;
    widget.setName("LENGTH");
    QCOMPARE(widget.text(), QString("2"));
    platform().alwaysAnswer("units_get_int_keyword", -3);
    widget.useUnits("KG");
    widget.updateFirst_ = true;
    const DebugLines debug;
    QCOMPARE(widget.text(), QString("(nothing new)"));
    QCOMPARE(widget.text(), QString("(nothing new)"));
    QCOMPARE(widget._ilastValue, 2);
    const QString line = "Error retrieving units... code -3 [ from probe with units KG ]";
    QCOMPARE(debug.lines(), QStringList({line, line}));
}

void SamplingTest::aLogicalIsShownOnEverySample() {
    auto pump = platform().logical("PUMP").value(5).states("RUNNING", "STOPPED").status(1536);
    Probe widget;
    widget.setName("PUMP");
    QCOMPARE(widget.text(), QString("RUNNING"));
    QCOMPARE(widget.text(), QString("RUNNING"));
    QCOMPARE(int{widget.limitColorCode}, 1536);
    QVERIFY(!widget.updateFirst_);
    pump.value(0);
    QCOMPARE(widget.text(), QString("STOPPED"));
}

void SamplingTest::statisticsAreShownWhenTheyChange() {
    auto nox = platform().statistics("NOX.").status(512).member("SD", SD, 1.24, "PPM");
    Probe widget;
    widget.setName("NOX.SD");
    qstrcpy(widget.formatString, "%.1f");
    QCOMPARE(widget.text(false), QString("1.2"));
    QCOMPARE(int{widget.limitColorCode}, 512);
    QVERIFY(!widget.updateFirst_);
    QCOMPARE(widget.text(), QString("(nothing new)"));
    nox.member("SD", SD, 3.5);
    QCOMPARE(widget.text(), QString("3.5"));
}

void SamplingTest::compositionsAreShownOnEverySample() {
    platform().composition("GAS.").member("CO", CO, 0.5);
    Probe widget;
    widget.setName("GAS.CO");
    qstrcpy(widget.formatString, "%g");
    for (int i = 0; i < 3; ++i)
        QCOMPARE(widget.text(), QString("0.5"));
    QVERIFY(widget.updateFirst_);
}

void SamplingTest::propertiesAreShownOnEverySample() {
    platform().property("AIR.").member("CP", CP, 1005);
    Probe widget;
    widget.setName("AIR.CP");
    qstrcpy(widget.formatString, "%g");
    for (int i = 0; i < 3; ++i)
        QCOMPARE(widget.text(), QString("1005"));
    QVERIFY(widget.updateFirst_);
}

void SamplingTest::emissionsLeaveTheRefreshAsItIs() {
    platform().emission("EXH.").member("CBE", CBE, 2);
    Probe widget;
    widget.setName("EXH.CBE");
    qstrcpy(widget.formatString, "%g");
    QCOMPARE(widget.text(), QString("2"));
    QCOMPARE(widget.text(), QString("2"));
    QVERIFY(widget.updateFirst_);
    widget.updateFirst_ = false;
    QCOMPARE(widget.text(), QString("(nothing new)"));
}

void SamplingTest::aMemberIsConverted() {
    platform().converts("PPM", "PCT", 0.0001);
    platform().statistics("NOX.").member("AV", AV, 100, "PPM");
    Probe widget;
    widget.setName("NOX.AV");
    qstrcpy(widget.formatString, "%g");
    widget.useUnits("PCT");
    QCOMPARE(widget.text(false), QString("0.01"));
    QCOMPARE(widget._lastValue, 100.0);
    // A conversion that fails is not reported, and the text is built all the same.
    const DebugLines debug;
    widget.useUnits("KG");
    widget.updateFirst_ = true;
    QVERIFY(widget.sampleReal(true));
    QCOMPARE(debug.lines(), QStringList());
}

void SamplingTest::aRealArrayElementIsShown() {
    auto temps = platform().realArray("TEMPS");
    temps.format("%.2f");
    temps[3].value = 21.5;
    temps[3].status = 1792;
    scripted::put(temps[3].units, "degC");
    Probe widget;
    widget.setName("TEMPS:3");
    QCOMPARE(widget.text(false), QString("21.50[degC]"));
    QCOMPARE(int{widget.limitColorCode}, 1792);
    QCOMPARE(widget.text(), QString("(nothing new)"));
}

void SamplingTest::anIntegerArrayElementIsFetchedAgain() {
    platform().converts("M", "MM", 1000);
    auto steps = platform().integerArray("STEPS");
    steps.format("%03d");
    steps[2].value = 9;
    scripted::put(steps[2].units, "M");
    Probe widget;
    widget.setName("STEPS:2");
    platform().forgetCalls();
    QCOMPARE(widget.text(), QString("009"));
    QCOMPARE(widget.text(), QString("(nothing new)"));
    QCOMPARE(platform().calls({"get_integer_array_adr"}).size(), 2);
    widget.useUnits("MM");
    widget.updateFirst_ = true;
    QCOMPARE(widget.text(), QString("9000"));
    QCOMPARE(platform().calls({"units_lng_keyword_convrt"}), QStringList({"units_lng_keyword_convrt 9 M MM"}));
    const DebugLines debug;
    widget.useUnits("KG");
    QCOMPARE(widget.text(), QString("(nothing new)"));
    QCOMPARE(debug.lines(), QStringList({"Error retrieving units... code -1 [ from probe with units KG ]"}));
}

void SamplingTest::aLogicalArrayElementHasWordsOfItsOwn() {
    auto valves = platform().logicalArray("VALVES");
    valves[1].value = 1;
    valves[1].status = 1280;
    Probe widget;
    widget.setName("VALVES:1");
    QCOMPARE(widget.text(), QString("TRUE"));
    QCOMPARE(int{widget.limitColorCode}, 1280);
    valves[1].value = 0;
    QCOMPARE(widget.text(), QString("FALSE"));
    valves.states("OPEN", "SHUT");
    QCOMPARE(widget.text(), QString("SHUT"));
    valves[1].value = 1;
    QCOMPARE(widget.text(), QString("OPEN"));
}

void SamplingTest::anElementThatCannotBeReachedShowsNothing() {
    platform().realArray("REALS");
    platform().integerArray("INTEGERS");
    platform().logicalArray("LOGICALS");
    for (const char* function : {"get_real_array_adr", "get_integer_array_adr", "get_logical_array_adr"})
        platform().alwaysAnswer(function, 0);
    for (const char* name : {"REALS:0", "INTEGERS:0", "LOGICALS:0"}) {
        Probe widget;
        widget.setName(name);
        QVERIFY(widget.ptr());
        QVERIFY2(!widget.sampleReal(true), name);
    }
}

void SamplingTest::stringsAreNotSampledHere() {
    platform().string("TEXT").text("hello").status(512);
    platform().stringArray("TEXTS")[0].status = 1024;
    Probe widget;
    widget.setName("TEXT");
    QVERIFY(!widget.sampleReal(true));
    QVERIFY(widget.updateFirst_);
    QCOMPARE(int{widget.limitColorCode}, 512);
    widget.setName("TEXTS:0");
    QVERIFY(!widget.sampleReal(true));
    QCOMPARE(int{widget.limitColorCode}, 1024);
}

void SamplingTest::aLongNumberIsShortened_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<QString>("bare");
    QTest::addColumn<QString>("withUnits");
    QTest::newRow("16 characters") << 1234567890123456.0 << QByteArray("%.0f") << "1234567890123456"
                                   << "1234567890123456[kg]";
    QTest::newRow("17 characters") << 12345678901234567.0 << QByteArray("%.0f") << "1.23457E+16"
                                   << "1.23457E+16";
    QTest::newRow("single precision") << 16777217.0 << QByteArray("%20.0f") << "1.67772E+07"
                                      << "1.67772E+07";
    QTest::newRow("zero") << 0.0 << QByteArray("%.15f") << "0.000000000000000"
                          << "0.000000000000000[kg]";
    QTest::newRow("hexadecimal") << 0.1 << QByteArray("%a") << "0.1"
                                 << "0.1";
    QTest::newRow("negative") << -0.1 << QByteArray("%.20f") << "-0.1"
                              << "-0.1";
    QTest::newRow("exponent") << 1.5e200 << QByteArray("%.20e") << "INF"
                              << "INF";
    QTest::newRow("long zero") << 0.0 << QByteArray("%.16f") << "0.0000000000000000"
                               << "0.0000000000000000[kg]";
}

void SamplingTest::aLongNumberIsShortened() {
    QFETCH(double, value);
    QFETCH(QByteArray, format);
    QFETCH(QString, bare);
    QFETCH(QString, withUnits);
    platform().real("MASS").value(value).units("kg").format(format);
    auto masses = platform().realArray("MASSES");
    masses.format(format);
    masses[0].value = value;
    scripted::put(masses[0].units, "kg");
    for (const char* name : {"MASS", "MASSES:0"}) {
        Probe widget;
        widget.setName(name);
        QCOMPARE(widget.text(true), bare);
        widget.updateFirst_ = true;
        QCOMPARE(widget.text(false), withUnits);
    }
}

void SamplingTest::aLongIntegerIsShortened_data() {
    QTest::addColumn<bool>("isElement");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    for (const bool isElement : {false, true}) {
        const QByteArray kind = isElement ? "element, " : "integer, ";
        QTest::newRow(kind + "16 characters") << isElement << 123456789 << "%16d"
                                              << "       123456789";
        // Single precision is what is left of it.
        QTest::newRow(kind + "17 characters") << isElement << 123456789 << "%17d"
                                              << "1.23457E+08";
        QTest::newRow(kind + "short in a long form") << isElement << -42 << "%017d"
                                                     << "-42";
        QTest::newRow(kind + "zero") << isElement << 0 << "%17d"
                                     << "                0";
    }
}

void SamplingTest::aLongIntegerIsShortened() {
    QFETCH(bool, isElement);
    QFETCH(int, value);
    QFETCH(QString, format);
    QFETCH(QString, text);
    if (isElement) {
        auto steps = platform().integerArray("STEPS");
        steps.format(format.toLatin1());
        steps[1].value = value;
    } else {
        platform().integer("COUNT").value(value).format(format.toLatin1());
    }
    Probe widget;
    widget.setName(isElement ? "STEPS:1" : "COUNT");
    QCOMPARE(widget.text(), text);
    // The value itself counts as shown, not its shortened text.
    QCOMPARE(widget._ilastValue, value);
    QCOMPARE(widget.text(), QString("(nothing new)"));
}

void SamplingTest::aTieIsRoundedToEven() {
    platform().real("SPEED").value(1500.25).format("%.1f");
    Probe widget;
    widget.setName("SPEED");
    QCOMPARE(widget.text(), QString("1500.2"));
}

void SamplingTest::aNumberIsPrintedAsTheCLibraryDoes_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<QString>("text");
    QTest::newRow("tie to even") << 2.5 << QByteArray("%.0f") << "2";
    QTest::newRow("tie to even upwards") << 3.5 << QByteArray("%.0f") << "4";
    QTest::newRow("hexadecimal") << 2.5 << QByteArray("%a") << "0x1.4p+1";
    QTest::newRow("alternative form") << 2.0 << QByteArray("%#.0f") << "2.";
    QTest::newRow("not a number") << std::nan("") << QByteArray("%.1f") << "nan";
    QTest::newRow("infinite") << -HUGE_VAL << QByteArray("%.1F") << "-INF";
}

void SamplingTest::aNumberIsPrintedAsTheCLibraryDoes() {
    QFETCH(double, value);
    QFETCH(QByteArray, format);
    QFETCH(QString, text);
    platform().real("SPEED").value(value).format(format);
    Probe widget;
    widget.setName("SPEED");
    QCOMPARE(widget.text(), text);
}

// With a comma as its decimal sign, and groups of three digits.
void SamplingTest::theProcesssLanguageChangesNoNumber() {
    const QTemporaryDir folder;
    const QString german = folder.filePath("de_DE");
    QCOMPARE(QProcess::execute("localedef", {"-i", "de_DE", "-f", "ISO-8859-1", german}), 0);
    qputenv("LOCPATH", folder.path().toLocal8Bit());
    const auto language = qScopeGuard([] {
        setlocale(LC_ALL, "C");
        qunsetenv("LOCPATH");
    });
    QVERIFY(setlocale(LC_ALL, "de_DE"));
    QCOMPARE(QString::asprintf("%s", localeconv()->decimal_point), QString(","));
    auto speed = platform().real("SPEED").value(1234.5).format("%.1f");
    Probe widget;
    widget.setName("SPEED");
    QCOMPARE(widget.text(), QString("1234.5"));
    speed.value(0.1).format("%.17f");
    QCOMPARE(widget.text(), QString("0.1"));
}

void SamplingTest::aFormatThatDoesNotFitIsReplaced_data() {
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<QString>("real");
    QTest::addColumn<QString>("integer");
    QTest::newRow("string") << QByteArray("%s") << "2.5"
                            << "3";
    QTest::newRow("count") << QByteArray("%n") << "2.5"
                           << "3";
    QTest::newRow("empty") << QByteArray("") << "2.5"
                           << "3";
    QTest::newRow("two conversions") << QByteArray("%g %g") << "2.5"
                                     << "3";
    QTest::newRow("star") << QByteArray("%*g") << "2.5"
                          << "3";
    QTest::newRow("unterminated") << QByteArray("%1.3f ab") << "2.500 ab"
                                  << "3";
    QTest::newRow("percent sign") << QByteArray("%.1f%%") << "2.5%"
                                  << "3";
    QTest::newRow("integer") << QByteArray("%4d") << "2.5"
                             << "   3";
    QTest::newRow("hexadecimal") << QByteArray("0x%04x") << "2.5"
                                 << "0x0003";
}

void SamplingTest::aFormatThatDoesNotFitIsReplaced() {
    QFETCH(QByteArray, format);
    QFETCH(QString, real);
    QFETCH(QString, integer);
    platform().real("REAL").value(2.5).format(format);
    platform().integer("INTEGER").value(3).format(format);
    Probe widget;
    widget.setName("REAL");
    QCOMPARE(widget.text(), real);
    widget.setName("INTEGER");
    widget.updateFirst_ = true;
    QCOMPARE(widget.text(), integer);
}

void SamplingTest::theStatusSelectsTheColour_data() {
    QTest::addColumn<int>("status");
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<bool>("blinks");
    const QColor text(10, 20, 30);
    QTest::newRow("0") << 0 << text << false;
    QTest::newRow("1") << 1 << text << true;
    QTest::newRow("256") << 256 << QColor(Qt::blue) << false;
    QTest::newRow("512") << 512 << QColor(Qt::green) << false;
    QTest::newRow("768") << 768 << QColor(Qt::cyan) << false;
    QTest::newRow("1024") << 1024 << QColor(Qt::red) << false;
    QTest::newRow("1025") << 1025 << QColor(Qt::red) << true;
    QTest::newRow("1280") << 1280 << QColor(Qt::magenta) << false;
    QTest::newRow("1536") << 1536 << QColor(Qt::yellow) << false;
    QTest::newRow("1792") << 1792 << QColor(Qt::white) << false;
    QTest::newRow("4") << 4 << QColor(Qt::transparent) << false;
    QTest::newRow("2048") << 2048 << QColor(Qt::transparent) << false;
    QTest::newRow("-1") << -1 << QColor(Qt::transparent) << true;
}

void SamplingTest::theStatusSelectsTheColour() {
    QFETCH(int, status);
    QFETCH(QColor, colour);
    QFETCH(bool, blinks);
    Probe widget;
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Text, QColor(10, 20, 30));
    palette.setColor(QPalette::Window, QColor(200, 200, 200));
    widget.setPalette(palette);
    widget.limitColorCode = static_cast<short>(status);
    bool blink = !blinks;
    QCOMPARE(widget.getOstrelLimitColors(blink), colour);
    QCOMPARE(blink, blinks);
}

void SamplingTest::aColourLikeTheBackgroundIsDarker() {
    Probe widget;
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, Qt::red);
    widget.setPalette(palette);
    widget.limitColorCode = 1024;
    bool blink = false;
    QCOMPARE(widget.getOstrelLimitColors(blink), QColor(Qt::red).darker(200));
}

void SamplingTest::blinkingAsksForTheFlashTimerOnce() {
    Probe widget;
    widget.limitColorCode = 1025;
    QVERIFY(!TimerModerator::isRegistered(&widget, 498));
    widget.checkStatus(false);
    QVERIFY(TimerModerator::isRegistered(&widget, 498));
    QVERIFY(widget._requestedFlashTimer);
    // Who is registered already is not asked for again, and so does not take it away later.
    widget._requestedFlashTimer = false;
    widget.checkStatus(false);
    QVERIFY(!widget._requestedFlashTimer);
    widget.limitColorCode = 1024;
    widget.checkStatus(false);
    QVERIFY(TimerModerator::isRegistered(&widget, 498));
}

void SamplingTest::steadyColoursEndTheBlinking() {
    Probe widget;
    widget.limitColorCode = 1025;
    widget.checkStatus(false);
    widget.limitColorCode = 1024;
    widget.checkStatus(false);
    QVERIFY(!TimerModerator::isRegistered(&widget, 498));
    QVERIFY(!widget._requestedFlashTimer);
    QCOMPARE(widget.getColor(), QColor(Qt::red));
}

void SamplingTest::aBlinkingColourIsLeftToTheFlash() {
    Probe widget;
    widget.limitColorCode = 1025;
    widget.checkStatus(false);
    widget.checkStatus(false);
    QCOMPARE(widget.colors, QList<QColor>());
}

void SamplingTest::blackIsTheTextColour() {
    Probe widget;
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::Window, Qt::black);
    widget.setPalette(palette);
    // Black on black, darker, is black again and becomes the text colour.
    widget.checkStatus(false);
    QCOMPARE(widget.getColor(), QColor(Qt::black));
    // So does what is nearly black, of which darker is black: here the two can be told apart.
    const QColor nearlyBlack = QColor::fromRgba64(1, 1, 1);
    palette.setColor(QPalette::Text, nearlyBlack);
    palette.setColor(QPalette::Window, nearlyBlack);
    widget.setPalette(palette);
    widget.checkStatus(false);
    QCOMPARE(widget.getColor(), nearlyBlack);
    palette.setColor(QPalette::Text, QColor(1, 2, 3));
    palette.setColor(QPalette::Window, Qt::white);
    widget.setPalette(palette);
    widget.limitColorCode = 4;
    widget.checkStatus(false);
    QCOMPARE(widget.getColor(), QColor(1, 2, 3));
}

void SamplingTest::unmonitoredWidgetsHaveTheTextColour_data() {
    QTest::addColumn<bool>("monitors");
    QTest::addColumn<bool>("hasLimits");
    QTest::addColumn<bool>("red");
    QTest::newRow("neither") << false << false << false;
    QTest::newRow("monitored") << true << false << true;
    QTest::newRow("with limits") << false << true << true;
    QTest::newRow("both") << true << true << true;
}

void SamplingTest::unmonitoredWidgetsHaveTheTextColour() {
    QFETCH(bool, monitors);
    QFETCH(bool, hasLimits);
    QFETCH(bool, red);
    Probe widget;
    widget.setMonitorLimits(monitors);
    widget._checkLimit = hasLimits;
    widget.limitColorCode = 1024;
    widget.checkStatus(false);
    QCOMPARE(widget.getColor(), red ? QColor(Qt::red) : widget.palette().text().color());
}

void SamplingTest::theFlashChangesThePhase() {
    QWidget parent;
    QPalette palette = parent.palette();
    palette.setColor(QPalette::Window, QColor(11, 22, 33));
    parent.setPalette(palette);
    Probe widget(&parent);
    widget._color = Qt::green;
    widget.limitColorCode = 1025;
    widget.flash();
    widget.flash();
    widget.flash();
    QCOMPARE(widget.colors, QList<QColor>({Qt::red, QColor(11, 22, 33), Qt::red}));
    QVERIFY(widget.flashOn);
    // Without a parent there is no background to vanish into.
    Probe alone;
    alone._color = Qt::green;
    alone.flashOn = true;
    alone.limitColorCode = 1025;
    alone.flash();
    QCOMPARE(alone.colors, QList<QColor>({Qt::green}));
}

void SamplingTest::theFlashGivesAColourToAWidgetWithoutOne() {
    Probe widget;
    widget.limitColorCode = 1025;
    widget.flash();
    QCOMPARE(widget.colors, QList<QColor>({widget.palette().text().color()}));
    widget._color = Qt::green;
    widget.limitColorCode = 4;
    widget.flashOn = false;
    widget.flash();
    QCOMPARE(widget.colors.last(), widget.palette().text().color());
}

void SamplingTest::theFirstCheckEndsTheLoading() {
    platform().real("SPEED");
    Probe widget;
    widget.setName("SPEED");
    platform().forgetCalls();
    widget.checkStatus(true);
    QVERIFY(widget.getInitFlag());
    QVERIFY(widget._first_write);
    QVERIFY(!widget._temp_ignore);
    QCOMPARE(platform().calls({"cacheProperty"}), QStringList({"cacheProperty Probe probe name SPEED changed"}));
    platform().forgetCalls();
    widget.checkStatus(false);
    QCOMPARE(platform().calls({"cacheProperty"}), QStringList());
}

void SamplingTest::aCheckAtTheStartAfterTheFirstWriteIsNoEnd() {
    Probe widget;
    widget._first_write = true;
    widget.checkStatus(true);
    QVERIFY(!widget.getInitFlag());
    widget.checkStatus(false);
    QVERIFY(widget.getInitFlag());
}

OSTREL_TEST(SamplingTest)
#include "sampling_test.moc"
