// The dial: what forms and the widget library ask of it, what somebody sees, and what a new value repaints.
#include <ostrel-display/qtsvgdialgauge.h>

#include <QAccessible>
#include <QMetaProperty>
#include <QScreen>
#include <QTest>
#include <QtMath>
#include <cmath>
#include <functional>
#include <limits>

#include "drawn/contrast.h"
#include "listener.h"
#include "picture.h"
#include "qttests.h"

namespace {

constexpr color3 red{1.0, 0.0, 0.0};
constexpr color3 yellow{1.0, 1.0, 0.0};
constexpr color3 magenta{1.0, 0.0, 1.0};
constexpr color3 black{0.0, 0.0, 0.0};

const QStringList skins = {QStringLiteral("Speedometer1"), QStringLiteral("Speedometer2"),
                           QStringLiteral("Speedometer3")};

struct Dial : QtSvgDialGauge {
    explicit Dial(int side = 200) : QtSvgDialGauge(nullptr) {
        setPalette(lightPalette());
        resize(side, side);
    }

    void setArcs(const QVector<arc>& arcs) { setAllArcs(arcs[0], arcs[1], arcs[2], arcs[3], arcs[4], arcs[5]); }
    void setLowAlarm(double limit, color3 colour) {
        const arc none = makeArc(0, black, 0, 0.0);
        setAllArcs(makeArc(1, colour, 0, limit), none, none, none, none, none);
    }
};

// A dial on the screen, that was painted.
struct ShownDial {
    ShownDial() {
        dial.show();
        if (!QTest::qWaitForWindowExposed(&dial))
            qFatal("the dial does not get onto the screen");
        paints.forget();
    }

    Dial dial;
    PaintWitness paints{&dial};
};

// Degrees clockwise from the top, at that share of the dial's radius.
QPoint pointAt(const QImage& picture, double degrees, double share) {
    const double radians = qDegreesToRadians(degrees);
    const QPointF middle(picture.width() / 2.0, picture.height() / 2.0);
    const double radius = std::min(picture.width(), picture.height()) / 2.0 * share;
    return (middle + QPointF(std::sin(radians), -std::cos(radians)) * radius - QPointF(0.5, 0.5)).toPoint();
}

QColor arcColour(QWidget& dial, double degrees) {
    const QImage picture = pictureOf(dial);
    return picture.pixelColor(pointAt(picture, degrees, 0.835));
}

// Where the needle's tip is, in degrees from -180 to 180; nothing where no needle is drawn.
double tipAngle(QtSvgDialGauge& dial) {
    const QImage with = pictureOf(dial);
    const double value = dial.value();
    dial.setValue(qQNaN());
    const QImage without = pictureOf(dial);
    dial.setValue(value);
    const QPointF middle(with.width() / 2.0 - 0.5, with.height() / 2.0 - 0.5);
    double farthest = 0.0;
    double angle = qQNaN();
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
            const QPointF way = QPointF(x, y) - middle;
            const QPointF share = way / (with.width() / 2.0);
            const bool isNumber = std::abs(share.x()) < 0.34 && share.y() > 0.15 && share.y() < 0.78;
            if (isAbout(with.pixelColor(x, y), without.pixelColor(x, y), 30) || isNumber)
                continue;
            const double distance = std::hypot(share.x(), share.y());
            if (distance > farthest) {
                farthest = distance;
                angle = qRadiansToDegrees(std::atan2(way.x(), -way.y()));
            }
        }
    }
    return angle;
}

double between(double one, double other) {
    return std::abs(std::remainder(one - other, 360.0));
}

double mostSaturated(const QImage& picture) {
    int saturation = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixelColor(x, y).value() > 60)
                saturation = std::max(saturation, picture.pixelColor(x, y).hsvSaturation());
    return saturation;
}

}  // namespace

class QtSvgDialGaugeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void atFirstItIsAPlainScaleToAHundred();
    void formsSetItsProperties();
    void numbersThatAreNoneAreRefused();
    void decimalsAndTicksStayWithinBounds();
    void theLatchDoesNotGoBack();

    void whatIsSetAlreadyPaintsNothing();
    void aNewValuePaintsTheNeedleAlone();
    void aMoveThatNobodySeesPaintsNothing();
    void smallMovesAddUp();
    void thePrintedNumberIsNeverStale();
    void whatIsOnTheScreenIsWhatAWholePaintShows();

    void theNeedlePointsToTheValue_data();
    void theNeedlePointsToTheValue();
    void aValueBeyondTheScaleIsPinnedVisibly();
    void withoutAValueThereIsNoNeedle();
    void equalEndsAreSafe();

    void anArcRunsFromTheEndToTheLimit_data();
    void anArcRunsFromTheEndToTheLimit();
    void arcsStandAtTheirAngles();
    void theShorterArcIsOnTop();
    void arcsThatAreTheSamePaintNothing();
    void anArcIsSeenOnAFaceOfItsColour();
    void anArcOfAnyNumbersIsSafe();

    void itIsDrawnWithinItsMargin_data();
    void itIsDrawnWithinItsMargin();
    void anySizeIsSafe();
    void skinsAreApart();
    void itIsSharpAtRatioTwo();
    void ticksAreMarked();
    void theLabelStandsOnTheFace();
    void coloursFollowThePaletteUntilTheyAreSet();
    void textIsLegibleOnEveryFace();
    void fontPaletteAndStateAreFollowed();
    void aRemoteDialIsPlainlyNotLive();
    void aScreenReaderIsTold();
    void aScreenReaderHearsOfEachChangeOnce();
};

void QtSvgDialGaugeTest::atFirstItIsAPlainScaleToAHundred() {
    const QtSvgDialGauge dial(nullptr);
    QCOMPARE(dial.value(), 0.0);
    QCOMPARE(dial.minimum(), 0.0);
    QCOMPARE(dial.maximum(), 100.0);
    QCOMPARE(dial.precision(), 0);
    QCOMPARE(dial.startAngle(), -135.0);
    QCOMPARE(dial.endAngle(), 135.0);
    QCOMPARE(dial.ticks(), 11);
    QCOMPARE(dial.smartTicks(), false);
    QCOMPARE(dial.skin(), QStringLiteral("Speedometer3"));
    QCOMPARE(dial.label(), QString());
    QCOMPARE(dial.getInitFinished(), false);
}

void QtSvgDialGaugeTest::formsSetItsProperties() {
    const QVector<QPair<const char*, QVariant>> properties = {
        {"skin", QStringLiteral("Speedometer1")},
        {"value", 12.5},
        {"minimum", -20.0},
        {"maximum", 55.5},
        {"precision", 2},
        {"startAngle", -90.0},
        {"endAngle", 45.0},
        {"ticks", 5},
        {"smartTicks", true},
        {"backColor", QColor(1, 2, 3)},
        {"borderColor", QColor(4, 5, 6)},
        {"textColor", QColor(7, 8, 9)},
        {"label", QStringLiteral("SPEED[RPM]")},
    };
    Dial dial;
    for (const auto& [name, value] : properties) {
        QVERIFY2(dial.property(name) != value, name);
        QVERIFY2(dial.setProperty(name, value), name);
    }
    for (const auto& [name, value] : properties) {
        QVERIFY2(dial.property(name) == value, name);
        QVERIFY2(dial.metaObject()->property(dial.metaObject()->indexOfProperty(name)).isDesignable(), name);
    }
    QCOMPARE(dial.getBackColor(), QColor(1, 2, 3));
    QCOMPARE(dial.getBorderColor(), QColor(4, 5, 6));
    QCOMPARE(dial.getTextColor(), QColor(7, 8, 9));
}

void QtSvgDialGaugeTest::numbersThatAreNoneAreRefused() {
    Dial dial;
    for (const double number : {qQNaN(), qInf(), -qInf()}) {
        dial.setMinimum(number);
        dial.setMaximum(number);
        dial.setStartAngle(number);
        dial.setEndAngle(number);
    }
    QCOMPARE(dial.minimum(), 0.0);
    QCOMPARE(dial.maximum(), 100.0);
    QCOMPARE(dial.startAngle(), -135.0);
    QCOMPARE(dial.endAngle(), 135.0);
}

void QtSvgDialGaugeTest::decimalsAndTicksStayWithinBounds() {
    Dial dial;
    dial.setPrecision(-3);
    QCOMPARE(dial.precision(), 0);
    dial.setPrecision(400);
    QCOMPARE(dial.precision(), 12);
    dial.setTicks(-3);
    QCOMPARE(dial.ticks(), 0);
    dial.setTicks(1'000'000);
    QCOMPARE(dial.ticks(), 101);
}

void QtSvgDialGaugeTest::theLatchDoesNotGoBack() {
    Dial dial;
    dial.setInitFinished(false);
    QVERIFY(!dial.getInitFinished());
    dial.setInitFinished(true);
    dial.setInitFinished(false);
    QVERIFY(dial.getInitFinished());
}

void QtSvgDialGaugeTest::whatIsSetAlreadyPaintsNothing() {
    ShownDial shown;
    Dial& dial = shown.dial;
    const auto setAll = [&] {
        dial.setValue(40.0);
        dial.setMinimum(10.0);
        dial.setMaximum(90.0);
        dial.setPrecision(1);
        dial.setStartAngle(-120.0);
        dial.setEndAngle(120.0);
        dial.setTicks(9);
        dial.setSmartTicks(true);
        dial.setBackColor(Qt::lightGray);
        dial.setBorderColor(Qt::darkGray);
        dial.setTextColor(Qt::black);
        dial.setSkin(QStringLiteral("Speedometer1"));
        dial.setLabel(QStringLiteral("SPEED"));
    };
    setAll();
    QCOMPARE(shown.paints.countAfterEvents(), 1);
    setAll();
    QCOMPARE(shown.paints.countAfterEvents(), 1);
    dial.setValue(qQNaN());
    QCOMPARE(shown.paints.countAfterEvents(), 2);
    dial.setValue(qQNaN());
    QCOMPARE(shown.paints.countAfterEvents(), 2);
}

void QtSvgDialGaugeTest::aNewValuePaintsTheNeedleAlone() {
    ShownDial shown;
    shown.dial.setValue(10.0);
    shown.paints.forget();
    shown.dial.setValue(12.0);
    QCOMPARE(shown.paints.countAfterEvents(), 1);
    const QRegion painted = shown.paints.region();
    // Neither the upper right nor the rim.
    QVERIFY(!painted.intersects(QRect(120, 20, 60, 60)));
    QVERIFY(!painted.intersects(QRect(0, 0, 200, 15)));
    QVERIFY(painted.contains(QRect(60, 110, 10, 10)));
    QVERIFY(painted.contains(QRect(90, 160, 20, 5)));
}

void QtSvgDialGaugeTest::aMoveThatNobodySeesPaintsNothing() {
    ShownDial shown;
    shown.dial.setValue(50.0);
    shown.paints.forget();
    for (const double value : {50.01, 49.99, 50.05, 50.0}) {
        shown.dial.setValue(value);
        QCOMPARE(shown.dial.value(), value);
    }
    QCOMPARE(shown.paints.countAfterEvents(), 0);
    shown.dial.setValue(-1000.0);
    shown.paints.forget();
    shown.dial.setValue(-1000.4);
    QCOMPARE(shown.paints.countAfterEvents(), 0);
}

void QtSvgDialGaugeTest::smallMovesAddUp() {
    ShownDial shown;
    shown.dial.setValue(50.0);
    shown.paints.forget();
    for (int i = 1; i <= 40; ++i)
        shown.dial.setValue(50.0 + i * 0.01);
    QCOMPARE(shown.paints.countAfterEvents(), 1);
}

void QtSvgDialGaugeTest::thePrintedNumberIsNeverStale() {
    ShownDial shown;
    shown.dial.setPrecision(3);
    shown.dial.setValue(50.0);
    shown.paints.forget();
    const QImage before = pictureOf(shown.dial);
    shown.paints.forget();
    shown.dial.setValue(50.004);
    QCOMPARE(shown.paints.countAfterEvents(), 1);
    const QRect plate = shown.paints.region().boundingRect();
    QVERIFY(plate.height() < 40 && plate.top() > 120);
    const QImage after = pictureOf(shown.dial);
    QVERIFY(after.copy(plate) != before.copy(plate));
    // Both are beyond the end, where the needle does not move.
    shown.dial.setValue(200.0);
    shown.paints.forget();
    shown.dial.setValue(300.0);
    QCOMPARE(shown.paints.countAfterEvents(), 1);
}

void QtSvgDialGaugeTest::whatIsOnTheScreenIsWhatAWholePaintShows() {
    ShownDial shown;
    for (const double value : {0.0, 3.0, 57.0, 57.4, 120.0, 99.0, qQNaN(), 42.0, -4.0, 71.5}) {
        shown.dial.setValue(value);
        QApplication::processEvents();
        const QImage screen = QApplication::primaryScreen()->grabWindow(shown.dial.winId()).toImage();
        const QImage whole = shown.dial.grab().toImage();
        QCOMPARE(screen.size(), whole.size());
        // A turned picture is rounded by the region that it is painted in.
        for (int y = 0; y < whole.height(); ++y)
            for (int x = 0; x < whole.width(); ++x)
                QVERIFY2(isAbout(screen.pixelColor(x, y), whole.pixelColor(x, y), 30),
                         qPrintable(QStringLiteral("%1 at %2, %3").arg(value).arg(x).arg(y)));
    }
}

void QtSvgDialGaugeTest::theNeedlePointsToTheValue_data() {
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("end");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("angle");
    QTest::newRow("start") << 0.0 << 100.0 << -135.0 << 135.0 << 0.0 << -135.0;
    QTest::newRow("quarter") << 0.0 << 100.0 << -135.0 << 135.0 << 25.0 << -67.5;
    QTest::newRow("half") << 0.0 << 100.0 << -135.0 << 135.0 << 50.0 << 0.0;
    QTest::newRow("end") << 0.0 << 100.0 << -135.0 << 135.0 << 100.0 << 135.0;
    QTest::newRow("below zero") << -200.0 << 200.0 << -135.0 << 135.0 << -100.0 << -67.5;
    QTest::newRow("minimum above maximum") << 100.0 << 0.0 << -135.0 << 135.0 << 75.0 << -67.5;
    QTest::newRow("part of a circle") << 0.0 << 10.0 << -60.0 << 60.0 << 7.5 << 30.0;
    QTest::newRow("anticlockwise") << 0.0 << 100.0 << 90.0 << -90.0 << 25.0 << 45.0;
    QTest::newRow("whole turn") << 0.0 << 360.0 << 0.0 << 360.0 << 45.0 << 45.0;
    QTest::newRow("no more than a turn") << 0.0 << 100.0 << 0.0 << 720.0 << 25.0 << 90.0;
    QTest::newRow("pinned below") << 0.0 << 100.0 << -135.0 << 135.0 << -50.0 << -140.0;
    QTest::newRow("pinned above") << 0.0 << 100.0 << -135.0 << 135.0 << 1e300 << 140.0;
    QTest::newRow("pinned, anticlockwise") << 0.0 << 100.0 << 90.0 << -90.0 << 200.0 << -95.0;
    QTest::newRow("pinned, minimum above maximum") << 100.0 << 0.0 << -135.0 << 135.0 << 200.0 << -140.0;
}

void QtSvgDialGaugeTest::theNeedlePointsToTheValue() {
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, start);
    QFETCH(double, end);
    QFETCH(double, value);
    QFETCH(double, angle);
    for (const QString& skin : skins) {
        Dial dial;
        dial.setSkin(skin);
        dial.setMinimum(minimum);
        dial.setMaximum(maximum);
        dial.setStartAngle(start);
        dial.setEndAngle(end);
        dial.setValue(value);
        const double seen = tipAngle(dial);
        QVERIFY2(between(seen, angle) < 2.5, qPrintable(QStringLiteral("%1 at %2").arg(skin).arg(seen)));
        QCOMPARE(dial.value(), value);
    }
}

void QtSvgDialGaugeTest::aValueBeyondTheScaleIsPinnedVisibly() {
    Dial dial;
    const QRect plate(80, 155, 40, 15);
    dial.setValue(100.0);
    const double within = meanLuminance(pictureOf(dial), plate);
    dial.setValue(100.4);
    // The same text, on a plate of the other brightness.
    const double above = meanLuminance(pictureOf(dial), plate);
    QVERIFY2(within > above + 0.5, qPrintable(QString::number(above)));
    dial.setValue(-0.4);
    QVERIFY(meanLuminance(pictureOf(dial), plate) < within - 0.5);
}

void QtSvgDialGaugeTest::withoutAValueThereIsNoNeedle() {
    Dial dial;
    dial.setValue(qQNaN());
    const QImage none = pictureOf(dial);
    QVERIFY(std::isnan(dial.value()));
    QVERIFY(std::isnan(tipAngle(dial)));
    for (const double value : {qInf(), -qInf()}) {
        dial.setValue(value);
        QCOMPARE(dial.value(), value);
        QCOMPARE(pictureOf(dial), none);
    }
    dial.setValue(0.0);
    QVERIFY(pictureOf(dial) != none);
}

void QtSvgDialGaugeTest::equalEndsAreSafe() {
    Dial dial;
    dial.setMinimum(5.0);
    dial.setMaximum(5.0);
    dial.setLowAlarm(7.0, red);
    for (const bool smart : {false, true}) {
        dial.setSmartTicks(smart);
        for (const double value : {5.0, 0.0, 9.0}) {
            dial.setValue(value);
            QVERIFY(between(tipAngle(dial), -135.0) < 2.5);
        }
    }
    QCOMPARE(pixelsOf(pictureOf(dial), Qt::red, 20), 0);
    dial.setMaximum(std::numeric_limits<double>::max());
    dial.setMinimum(-std::numeric_limits<double>::max());
    QVERIFY(between(tipAngle(dial), -135.0) < 2.5);
}

void QtSvgDialGaugeTest::anArcRunsFromTheEndToTheLimit_data() {
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<int>("side");
    QTest::addColumn<double>("limit");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("end");
    QTest::newRow("low") << 0.0 << 100.0 << 0 << 20.0 << 0.0 << 20.0;
    QTest::newRow("high") << 0.0 << 100.0 << 1 << 80.0 << 80.0 << 100.0;
    QTest::newRow("low below the scale") << 0.0 << 100.0 << 0 << -5.0 << 0.0 << 0.0;
    QTest::newRow("low above the scale") << 0.0 << 100.0 << 0 << 105.0 << 0.0 << 100.0;
    QTest::newRow("high below the scale") << 0.0 << 100.0 << 1 << -5.0 << 0.0 << 100.0;
    QTest::newRow("high above the scale") << 0.0 << 100.0 << 1 << 105.0 << 100.0 << 100.0;
    QTest::newRow("infinite low") << 0.0 << 100.0 << 0 << qInf() << 0.0 << 100.0;
    QTest::newRow("infinite high") << 0.0 << 100.0 << 1 << qInf() << 100.0 << 100.0;
    QTest::newRow("low, minimum above maximum") << 100.0 << 0.0 << 0 << 20.0 << 0.0 << 20.0;
    QTest::newRow("high, minimum above maximum") << 100.0 << 0.0 << 1 << 80.0 << 80.0 << 100.0;
    QTest::newRow("equal ends") << 5.0 << 5.0 << 1 << 80.0 << 5.0 << 5.0;
}

void QtSvgDialGaugeTest::anArcRunsFromTheEndToTheLimit() {
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(int, side);
    QFETCH(double, limit);
    QFETCH(double, start);
    QFETCH(double, end);
    Dial dial;
    dial.setMinimum(minimum);
    dial.setMaximum(maximum);
    const arc piece = dial.makeArc(1, magenta, side, limit);
    QCOMPARE(piece.visible, 1);
    QCOMPARE(piece.start, start);
    QCOMPARE(piece.end, end);
    QCOMPARE(piece.color.red, 1.0);
    QCOMPARE(piece.color.green, 0.0);
    QCOMPARE(piece.color.blue, 1.0);
    QCOMPARE(dial.makeArc(0, black, side, limit).visible, 0);
    QCOMPARE(dial.makeArc(1, black, side, qQNaN()).visible, 0);
}

void QtSvgDialGaugeTest::arcsStandAtTheirAngles() {
    Dial dial;
    const arc none = dial.makeArc(0, black, 0, 50.0);
    dial.setAllArcs(dial.makeArc(1, yellow, 0, 20.0), none, none, dial.makeArc(1, red, 1, 90.0), none, none);
    for (const double value : {1.0, 10.0, 19.0})
        QVERIFY2(isAbout(arcColour(dial, -135.0 + value * 2.7), Qt::yellow), qPrintable(QString::number(value)));
    for (const double value : {22.0, 50.0, 88.0})
        QVERIFY2(isAbout(arcColour(dial, -135.0 + value * 2.7), Qt::white), qPrintable(QString::number(value)));
    for (const double value : {91.0, 95.0, 99.0})
        QVERIFY2(isAbout(arcColour(dial, -135.0 + value * 2.7), Qt::red), qPrintable(QString::number(value)));
    // Beyond both ends.
    QVERIFY(isAbout(arcColour(dial, -140.0), Qt::white));
    QVERIFY(isAbout(arcColour(dial, 140.0), Qt::white));
    dial.setAllArcs(none, none, none, none, none, none);
    QCOMPARE(pixelsOf(pictureOf(dial), Qt::red, 20), 0);
    QCOMPARE(pixelsOf(pictureOf(dial), Qt::yellow, 20), 0);
}

void QtSvgDialGaugeTest::theShorterArcIsOnTop() {
    Dial dial;
    const arc longer = dial.makeArc(1, yellow, 0, 40.0);
    const arc shorter = dial.makeArc(1, red, 0, 20.0);
    const arc none = dial.makeArc(0, black, 0, 0.0);
    for (const bool isShorterFirst : {false, true}) {
        dial.setAllArcs(isShorterFirst ? shorter : longer, isShorterFirst ? longer : shorter, none, none, none, none);
        QVERIFY(isAbout(arcColour(dial, -135.0 + 10.0 * 2.7), Qt::red));
        QVERIFY(isAbout(arcColour(dial, -135.0 + 30.0 * 2.7), Qt::yellow));
    }
    // Of two that are the same, the graver one.
    dial.setAllArcs(longer, dial.makeArc(1, red, 0, 40.0), none, none, none, none);
    QVERIFY(isAbout(arcColour(dial, -135.0 + 30.0 * 2.7), Qt::red));
}

void QtSvgDialGaugeTest::arcsThatAreTheSamePaintNothing() {
    ShownDial shown;
    Dial& dial = shown.dial;
    QVector<arc> arcs(6, dial.makeArc(0, black, 0, 1.0));
    dial.setArcs(arcs);
    QCOMPARE(shown.paints.countAfterEvents(), 0);
    arcs[3] = dial.makeArc(1, red, 1, 80.0);
    dial.setArcs(arcs);
    QCOMPARE(shown.paints.countAfterEvents(), 1);
    // What is not seen may differ.
    arcs[0] = dial.makeArc(0, yellow, 1, 70.0);
    dial.setArcs(arcs);
    QCOMPARE(shown.paints.countAfterEvents(), 1);
    for (int i = 0; i < 6; ++i) {
        for (const arc& other :
             {dial.makeArc(1, red, 1, 81.0), dial.makeArc(1, magenta, 1, 81.0), dial.makeArc(1, magenta, 0, 81.0),
              dial.makeArc(1, magenta, 0, 80.0), dial.makeArc(0, magenta, 0, 81.0)}) {
            const int before = shown.paints.count();
            arcs[i] = other;
            dial.setArcs(arcs);
            QCOMPARE(shown.paints.countAfterEvents(), before + 1);
            dial.setArcs(arcs);
            QCOMPARE(shown.paints.countAfterEvents(), before + 1);
        }
    }
}

void QtSvgDialGaugeTest::anArcIsSeenOnAFaceOfItsColour() {
    for (const QColor& face : {QColor(Qt::black), QColor(Qt::white), QColor(Qt::yellow)}) {
        Dial dial;
        dial.setBackColor(face);
        const QImage without = pictureOf(dial);
        dial.setLowAlarm(50.0, {face.redF(), face.greenF(), face.blueF()});
        const QImage with = pictureOf(dial);
        double best = 1.0;
        for (double share = 0.80; share < 0.88; share += 0.005) {
            const QPoint point = pointAt(with, -80.0, share);
            best = std::max(best, contrast(with.pixelColor(point), without.pixelColor(point)));
        }
        QVERIFY2(best > 3.0, qPrintable(QStringLiteral("%1 %2").arg(face.name()).arg(best)));
    }
}

void QtSvgDialGaugeTest::anArcOfAnyNumbersIsSafe() {
    ShownDial shown;
    const double numbers[] = {qQNaN(), qInf(), -qInf(), -1e300, 1e300, 50.0};
    for (const double start : numbers) {
        for (const double end : numbers) {
            const arc odd{-7, start, end, {start, end, 1e308}};
            shown.dial.setAllArcs(odd, odd, odd, odd, odd, odd);
            pictureOf(shown.dial);
            shown.paints.forget();
            shown.dial.setAllArcs(odd, odd, odd, odd, odd, odd);
            QCOMPARE(shown.paints.countAfterEvents(), 0);
        }
    }
    // From below the scale to above it: it stays on the scale.
    const arc wide{1, -1e300, 1e300, red};
    shown.dial.setAllArcs(wide, wide, wide, wide, wide, wide);
    QVERIFY(isAbout(arcColour(shown.dial, 0.0), Qt::red));
    QVERIFY(!isAbout(arcColour(shown.dial, 160.0), Qt::red));
}

void QtSvgDialGaugeTest::itIsDrawnWithinItsMargin_data() {
    QTest::addColumn<QString>("skin");
    QTest::addColumn<QSize>("size");
    for (const QString& skin : skins)
        for (const QSize& size : {QSize(60, 60), QSize(161, 160), QSize(600, 600), QSize(341, 261), QSize(100, 300)})
            QTest::addRow("%s %dx%d", qPrintable(skin), size.width(), size.height()) << skin << size;
}

void QtSvgDialGaugeTest::itIsDrawnWithinItsMargin() {
    QFETCH(QString, skin);
    QFETCH(QSize, size);
    Dial dial;
    dial.setSkin(skin);
    dial.setBackColor(Qt::darkBlue);
    dial.resize(size);
    dial.setLabel(QStringLiteral("A_VERY_LONG_NAME_OF_A_VARIABLE_OF_THE_CELL[KILOGRAMS PER SECOND]"));
    dial.setMinimum(-123456.0);
    dial.setMaximum(654321.0);
    dial.setPrecision(4);
    dial.setValue(-98765.4321);
    const int side = std::min(size.width(), size.height());
    for (const double ratio : {1.0, 2.0}) {
        const QImage picture = pictureOf(dial, ratio);
        const QRect drawn = drawnRect(picture, lightPalette().color(QPalette::Window));
        const QRect square(QPoint(int((size.width() - side) / 2 * ratio), int((size.height() - side) / 2 * ratio)),
                           QSize(side, side) * ratio);
        QVERIFY(square.contains(drawn));
        QVERIFY(drawn.width() > square.width() * 9 / 10 && drawn.height() > square.height() * 9 / 10);
        // The corners of the square belong to the window.
        QVERIFY(
            isAbout(picture.pixelColor(square.topLeft() + QPoint(2, 2)), lightPalette().color(QPalette::Window), 4));
    }
}

void QtSvgDialGaugeTest::anySizeIsSafe() {
    for (const QString& skin : skins) {
        Dial dial;
        dial.setSkin(skin);
        dial.setLabel(QStringLiteral("SPEED[RPM]"));
        dial.setLowAlarm(30.0, red);
        for (int side = 1; side < 60; side += 3) {
            dial.resize(side, 61 - side);
            for (const double value : {0.0, 500.0, qQNaN()}) {
                dial.setValue(value);
                pictureOf(dial);
            }
        }
    }
}

void QtSvgDialGaugeTest::skinsAreApart() {
    Dial dial;
    QVector<QImage> pictures;
    for (const QString& skin : skins) {
        dial.setSkin(skin);
        QCOMPARE(dial.skin(), skin);
        pictures.append(pictureOf(dial));
    }
    QVERIFY(pictures[0] != pictures[1] && pictures[1] != pictures[2] && pictures[0] != pictures[2]);
    for (const auto other : {"Speedometer99", "../led", ""}) {
        dial.setSkin(QLatin1String(other));
        QCOMPARE(dial.skin(), QLatin1String(other));
        QCOMPARE(pictureOf(dial), pictures[2]);
    }
}

void QtSvgDialGaugeTest::itIsSharpAtRatioTwo() {
    Dial dial(160);
    dial.setLabel(QStringLiteral("SPEED[RPM]"));
    pictureOf(dial);
    const QImage picture = pictureOf(dial, 2.0);
    QCOMPARE(picture.size(), QSize(320, 320));
    // In a picture that was only enlarged, each block of two by two is of one colour.
    int fine = 0;
    for (int y = 0; y < 320; y += 2)
        for (int x = 0; x < 320; x += 2)
            fine += !isAbout(picture.pixelColor(x, y), picture.pixelColor(x + 1, y + 1), 60);
    QVERIFY2(fine > 500, qPrintable(QString::number(fine)));
}

void QtSvgDialGaugeTest::ticksAreMarked() {
    Dial dial;
    dial.setTicks(5);
    const QImage five = pictureOf(dial);
    const auto isMarked = [](const QImage& picture, double value, double share) {
        return luminance(picture.pixelColor(pointAt(picture, -135.0 + value * 2.7, share))) < 0.4;
    };
    for (const double value : {25.0, 50.0, 75.0})
        QVERIFY2(isMarked(five, value, 0.72), qPrintable(QString::number(value)));
    for (const double value : {20.0, 40.0, 62.5})
        QVERIFY2(!isMarked(five, value, 0.72), qPrintable(QString::number(value)));
    // 5 lies between 0 and 25 as a minor tick.
    QVERIFY(isMarked(five, 5.0, 0.77));
    dial.setSmartTicks(true);
    dial.setTicks(6);
    const QImage smart = pictureOf(dial);
    for (const double value : {20.0, 40.0, 60.0, 80.0})
        QVERIFY2(isMarked(smart, value, 0.72), qPrintable(QString::number(value)));
    QVERIFY(!isMarked(smart, 25.0, 0.72));
    dial.setTicks(0);
    QVERIFY(!isMarked(pictureOf(dial), 20.0, 0.72));
}

void QtSvgDialGaugeTest::theLabelStandsOnTheFace() {
    Dial dial;
    const QImage none = pictureOf(dial);
    dial.setLabel(QStringLiteral("SPEED"));
    const QImage named = pictureOf(dial);
    QVERIFY(named != none);
    dial.setLabel(QStringLiteral("SPEED[RPM]"));
    QVERIFY(pictureOf(dial) != named);
    dial.setLabel(QString());
    QCOMPARE(pictureOf(dial), none);
    // Units are not shortened to nothing, on a scale without a gap either.
    for (const double start : {-135.0, 135.0 - 360.0}) {
        dial.setStartAngle(start);
        dial.setLabel(QStringLiteral("SPEED[DEG_C]"));
        const QImage celsius = pictureOf(dial);
        dial.setLabel(QStringLiteral("SPEED[DEG_F]"));
        QVERIFY(pictureOf(dial) != celsius);
        dial.setLabel(QStringLiteral("SPEED[DEGREE]"));
        const QImage degree = pictureOf(dial);
        dial.setLabel(QStringLiteral("SPEED[DETREE]"));
        QVERIFY(pictureOf(dial) != degree);
    }
}

void QtSvgDialGaugeTest::coloursFollowThePaletteUntilTheyAreSet() {
    Dial dial;
    const QColor border = dial.getBorderColor();
    QCOMPARE(dial.getBackColor(), lightPalette().color(QPalette::Base));
    dial.setPalette(darkPalette());
    QCOMPARE(dial.getBackColor(), darkPalette().color(QPalette::Base));
    QCOMPARE(dial.getTextColor(), darkPalette().color(QPalette::Text));
    QVERIFY(dial.getBorderColor() != border);
    dial.setBackColor(Qt::yellow);
    dial.setTextColor(Qt::blue);
    dial.setBorderColor(Qt::green);
    QCOMPARE(dial.getBackColor(), QColor(Qt::yellow));
    QCOMPARE(dial.getTextColor(), QColor(Qt::blue));
    QCOMPARE(dial.getBorderColor(), QColor(Qt::green));
    QVERIFY(pixelsOf(pictureOf(dial), Qt::yellow) > 5000);
    dial.setBackColor(QColor());
    dial.setTextColor(QColor());
    dial.setBorderColor(QColor());
    QCOMPARE(dial.getBackColor(), darkPalette().color(QPalette::Base));
    QCOMPARE(dial.getTextColor(), darkPalette().color(QPalette::Text));
    QVERIFY(dial.getBorderColor() != QColor(Qt::green));
}

void QtSvgDialGaugeTest::textIsLegibleOnEveryFace() {
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        Dial dial;
        dial.setPalette(palette);
        for (const QColor& back : {QColor(), QColor(Qt::white), QColor(Qt::black), QColor(Qt::gray), QColor(Qt::red),
                                   QColor(Qt::yellow), QColor(Qt::blue)}) {
            dial.setBackColor(back);
            QVERIFY2(contrast(dial.getTextColor(), dial.getBackColor()) >= 4.5, qPrintable(back.name()));
        }
    }
}

void QtSvgDialGaugeTest::fontPaletteAndStateAreFollowed() {
    ShownDial shown;
    QFont font = shown.dial.font();
    font.setBold(true);
    const QVector<std::function<void(Dial&)>> changes = {
        [&](Dial& dial) { dial.setFont(font); },
        [](Dial& dial) { dial.setPalette(darkPalette()); },
        [](Dial& dial) { dial.setEnabled(false); },
        [](Dial& dial) { dial.resize(150, 150); },
    };
    // It shows what a dial shows that has never been another.
    for (int i = 0; i < changes.size(); ++i) {
        const QImage before = pictureOf(shown.dial);
        shown.paints.forget();
        changes[i](shown.dial);
        QVERIFY2(shown.paints.countAfterEvents() > 0, qPrintable(QString::number(i)));
        QVERIFY2(pictureOf(shown.dial) != before, qPrintable(QString::number(i)));
        Dial fresh;
        for (int k = 0; k <= i; ++k)
            changes[k](fresh);
        QVERIFY2(pictureOf(shown.dial) == pictureOf(fresh), qPrintable(QString::number(i)));
    }
    const QSize hint = shown.dial.sizeHint();
    font.setPointSize(40);
    shown.dial.setFont(font);
    QVERIFY(shown.dial.sizeHint().width() > hint.width());
    QVERIFY(hint.width() >= 160 && shown.dial.minimumSizeHint().width() < hint.width());
}

void QtSvgDialGaugeTest::aRemoteDialIsPlainlyNotLive() {
    ShownDial shown;
    Dial& dial = shown.dial;
    dial.setValue(40.0);
    dial.setLowAlarm(30.0, red);
    const QImage live = pictureOf(dial);
    dial.set_remote();
    const QImage remote = pictureOf(dial);
    QVERIFY(remote != live);
    QVERIFY2(mostSaturated(remote) < 60, qPrintable(QString::number(mostSaturated(remote))));
    shown.paints.forget();
    dial.setValue(80.0);
    dial.setLowAlarm(60.0, yellow);
    QCOMPARE(shown.paints.countAfterEvents(), 0);
    QCOMPARE(dial.value(), 80.0);
    QCOMPARE(pictureOf(dial), remote);
    shown.paints.forget();
    dial.set_remote();
    QCOMPARE(shown.paints.countAfterEvents(), 0);
}

void QtSvgDialGaugeTest::aScreenReaderIsTold() {
    Dial dial;
    dial.setLabel(QStringLiteral("SPEED[RPM]"));
    dial.setMinimum(8000.0);
    dial.setMaximum(0.0);
    dial.setValue(3120.4);
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&dial);
    QVERIFY(spoken);
    QCOMPARE(spoken->role(), QAccessible::Dial);
    QCOMPARE(spoken->text(QAccessible::Name), QStringLiteral("SPEED[RPM]"));
    QCOMPARE(spoken->text(QAccessible::Value), QStringLiteral("3120"));
    QVERIFY(spoken->state().readOnly && !spoken->state().checkable && !spoken->state().disabled);
    QAccessibleValueInterface* value = spoken->valueInterface();
    QVERIFY(value);
    QCOMPARE(value->currentValue().toDouble(), 3120.4);
    QCOMPARE(value->minimumValue().toDouble(), 0.0);
    QCOMPARE(value->maximumValue().toDouble(), 8000.0);
    value->setCurrentValue(1.0);
    QCOMPARE(dial.value(), 3120.4);

    dial.setValue(9000.0);
    QCOMPARE(spoken->text(QAccessible::Description), QStringLiteral("above the scale"));
    dial.setValue(-1.0);
    QCOMPARE(spoken->text(QAccessible::Description), QStringLiteral("below the scale"));
    dial.setValue(qQNaN());
    QCOMPARE(spoken->text(QAccessible::Value), QStringLiteral("no value"));
    QVERIFY(std::isnan(value->currentValue().toDouble()));
    dial.setAccessibleName(QStringLiteral("Speed"));
    QCOMPARE(spoken->text(QAccessible::Name), QStringLiteral("Speed"));
    dial.setValue(1.0);
    dial.set_remote();
    QCOMPARE(spoken->text(QAccessible::Value), QStringLiteral("not live"));
    QVERIFY(std::isnan(value->currentValue().toDouble()));
}

void QtSvgDialGaugeTest::aScreenReaderHearsOfEachChangeOnce() {
    const Listener listener;
    ShownDial shown;
    Dial& dial = shown.dial;
    dial.setValue(20.0);
    QCOMPARE(listener.heardAfterEvents(), QStringList({"value 20"}));
    dial.setValue(20.0);
    dial.setValue(20.001);
    QCOMPARE(listener.heardAfterEvents(), QStringList());
    // The number stays at the end of the scale; that it lies beyond is news.
    dial.setValue(500.0);
    QCOMPARE(listener.heardAfterEvents(), QStringList({"value 500"}));
    dial.setMaximum(1000.0);
    dial.setValue(700.0);
    dial.setValue(800.0);
    QCOMPARE(listener.heardAfterEvents(), QStringList({"value 800"}));
    dial.setTicks(4);
    QCOMPARE(listener.heardAfterEvents(), QStringList());
}

OSTREL_TEST(QtSvgDialGaugeTest)

#include "qtsvgdialgauge_test.moc"
