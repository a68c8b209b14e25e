// The lamp: what forms and the widget library ask of it, and what somebody sees.
#include <ostrel-display/qled.h>

#include <QAccessible>
#include <QMetaEnum>
#include <QTest>

#include "drawn/contrast.h"
#include "listener.h"
#include "picture.h"
#include "qttests.h"

namespace {

const QMetaEnum colours = QMetaEnum::fromType<QLed::ledColor>();
const QMetaEnum shapes = QMetaEnum::fromType<QLed::ledShape>();

QImage lampPicture(int colour, int shape, bool value, int side, const QPalette& palette = lightPalette(),
                   double ratio = 1.0, bool isEnabled = true) {
    QLed led;
    led.setPalette(palette);
    led.setOnColor(QLed::ledColor(colour));
    led.setOffColor(QLed::ledColor(colour));
    led.setShape(QLed::ledShape(shape));
    led.setValue(value);
    led.setEnabled(isEnabled);
    led.resize(side, side);
    return pictureOf(led, ratio);
}

QRect middle(const QImage& picture, double share) {
    const int side = std::max(1, int(picture.width() * share));
    return {(picture.width() - side) / 2, (picture.height() - side) / 2, side, side};
}

// A lamp of the default colours on the screen.
struct ShownLamp {
    ShownLamp() {
        led.resize(40, 40);
        led.show();
        if (!QTest::qWaitForWindowExposed(&led))
            qFatal("the lamp does not get onto the screen");
        paints.forget();
    }

    QLed led;
    PaintWitness paints{&led};
};

}  // namespace

class QLedTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void itIsGreenRedRoundAndDarkAtFirst();
    void coloursAndShapesHaveTheNumbersOfForms();
    void formsSetItsProperties();
    void numbersThatAreNoneChangeNothing();
    void whatIsSetAlreadyPaintsNothing();
    void aChangePaintsOnce();
    void theColourThatDoesNotShowPaintsNothing();
    void everyLampIsDrawnWithinItsMargin_data();
    void everyLampIsDrawnWithinItsMargin();
    void anyColourShinesBrighterThanAnyIsDark_data();
    void anyColourShinesBrighterThanAnyIsDark();
    void aDarkLampIsHollow();
    void coloursAreApart();
    void trianglesPointWhereTheirNamesSay();
    void aDisabledLampIsFaintAndStillTells();
    void itStandsOutFromEveryWindow();
    void itIsSharpAtRatioTwo();
    void itStaysRoundAndInTheMiddle();
    void withoutRoomNothingIsDrawn();
    void itsSizeFollowsTheFont();
    void aScreenReaderIsTold();
    void aScreenReaderHearsOfEachChangeOnce();
};

void QLedTest::itIsGreenRedRoundAndDarkAtFirst() {
    const QLed led(nullptr);
    QCOMPARE(led.value(), false);
    QCOMPARE(led.onColor(), QLed::Green);
    QCOMPARE(led.offColor(), QLed::Red);
    QCOMPARE(led.shape(), QLed::Circle);
}

void QLedTest::coloursAndShapesHaveTheNumbersOfForms() {
    const char* colourNames[] = {"Red", "Green", "Yellow", "Grey", "Orange", "Purple", "Blue"};
    const char* shapeNames[] = {"Circle",      "Square",       "Triangle",    "Rounded",
                                "Triangle_90", "Triangle_180", "Triangle_270"};
    QCOMPARE(colours.keyCount(), 7);
    QCOMPARE(shapes.keyCount(), 7);
    for (int i = 0; i < 7; ++i) {
        QCOMPARE(colours.keyToValue(colourNames[i]), i);
        QCOMPARE(shapes.keyToValue(shapeNames[i]), i);
    }
}

void QLedTest::formsSetItsProperties() {
    QLed led;
    QVERIFY(led.setProperty("value", true));
    QVERIFY(led.setProperty("onColor", "Purple"));
    QVERIFY(led.setProperty("offColor", QLed::Blue));
    QVERIFY(led.setProperty("shape", "Triangle_180"));
    QCOMPARE(led.value(), true);
    QCOMPARE(led.onColor(), QLed::Purple);
    QCOMPARE(led.offColor(), QLed::Blue);
    QCOMPARE(led.shape(), QLed::Triangle_180);
    for (const char* name : {"value", "onColor", "offColor", "shape"})
        QVERIFY2(led.metaObject()->property(led.metaObject()->indexOfProperty(name)).isDesignable(), name);
}

void QLedTest::numbersThatAreNoneChangeNothing() {
    QLed led;
    for (const int number : {-1, 7, 99}) {
        led.setOnColor(QLed::ledColor(number));
        led.setOffColor(QLed::ledColor(number));
        led.setShape(QLed::ledShape(number));
    }
    QCOMPARE(led.onColor(), QLed::Green);
    QCOMPARE(led.offColor(), QLed::Red);
    QCOMPARE(led.shape(), QLed::Circle);
}

void QLedTest::whatIsSetAlreadyPaintsNothing() {
    ShownLamp lamp;
    lamp.led.setValue(false);
    lamp.led.setOnColor(QLed::Green);
    lamp.led.setOffColor(QLed::Red);
    lamp.led.setShape(QLed::Circle);
    QCOMPARE(lamp.paints.countAfterEvents(), 0);
}

void QLedTest::aChangePaintsOnce() {
    ShownLamp lamp;
    lamp.led.setValue(true);
    lamp.led.setShape(QLed::Square);
    lamp.led.setOnColor(QLed::Blue);
    QCOMPARE(lamp.paints.countAfterEvents(), 1);
}

void QLedTest::theColourThatDoesNotShowPaintsNothing() {
    ShownLamp lamp;
    lamp.led.setOnColor(QLed::Blue);
    QCOMPARE(lamp.paints.countAfterEvents(), 0);
    lamp.led.setOffColor(QLed::Blue);
    QCOMPARE(lamp.paints.countAfterEvents(), 1);
}

void QLedTest::everyLampIsDrawnWithinItsMargin_data() {
    QTest::addColumn<int>("shape");
    for (int shape = 0; shape < 7; ++shape)
        QTest::newRow(shapes.key(shape)) << shape;
}

void QLedTest::everyLampIsDrawnWithinItsMargin() {
    QFETCH(int, shape);
    for (int colour = 0; colour < 7; ++colour) {
        for (const bool value : {false, true}) {
            for (const int side : {28, 60, 100}) {
                const QRect drawn =
                    drawnRect(lampPicture(colour, shape, value, side), lightPalette().color(QPalette::Window));
                QVERIFY2(drawn.width() > side / 2 && drawn.height() > side / 2, colours.key(colour));
                QVERIFY2(QRect(1, 1, side - 2, side - 2).contains(drawn), colours.key(colour));
            }
        }
    }
}

void QLedTest::anyColourShinesBrighterThanAnyIsDark_data() {
    everyLampIsDrawnWithinItsMargin_data();
}

// A lamp of 20 pixels, for an eye that tells no hues at all and for one that does not tell red from green.
void QLedTest::anyColourShinesBrighterThanAnyIsDark() {
    QFETCH(int, shape);
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        double darkestShining = 1.0;
        double brightestDark = 0.0;
        for (int colour = 0; colour < 7; ++colour) {
            for (const auto eye : {+[](const QColor& seen) { return seen; }, withoutRedAndGreen}) {
                const QImage on = seenBy(lampPicture(colour, shape, true, 20, palette), eye);
                const QImage off = seenBy(lampPicture(colour, shape, false, 20, palette), eye);
                darkestShining = std::min(darkestShining, meanLuminance(on, middle(on, 0.45)));
                brightestDark = std::max(brightestDark, meanLuminance(off, middle(off, 0.45)));
            }
        }
        QVERIFY2(darkestShining > brightestDark + 0.15,
                 qPrintable(QStringLiteral("shining %1, dark %2").arg(darkestShining).arg(brightestDark)));
    }
}

void QLedTest::aDarkLampIsHollow() {
    for (int colour = 0; colour < 7; ++colour) {
        const QImage off = lampPicture(colour, QLed::Circle, false, 100);
        const QImage on = lampPicture(colour, QLed::Circle, true, 100);
        QVERIFY(luminance(off.pixelColor(50, 50)) * 3 < luminance(off.pixelColor(50, 80)));
        QVERIFY(luminance(on.pixelColor(50, 50)) > luminance(on.pixelColor(50, 80)));
    }
}

void QLedTest::coloursAreApart() {
    for (const bool value : {false, true}) {
        QVector<QRgb> seen;
        for (int colour = 0; colour < 7; ++colour) {
            const QRgb pixel = lampPicture(colour, QLed::Circle, value, 100).pixel(50, value ? 83 : 80);
            for (const QRgb other : seen)
                QVERIFY2(!isAbout(pixel, other, 25), colours.key(colour));
            seen.append(pixel);
        }
    }
}

void QLedTest::trianglesPointWhereTheirNamesSay() {
    const QPoint up(50, 20);
    const QPoint right(80, 50);
    const QPoint down(50, 80);
    const QPoint left(20, 50);
    const QVector<QPair<int, QPoint>> tips = {
        {QLed::Triangle, up}, {QLed::Triangle_90, right}, {QLed::Triangle_180, down}, {QLed::Triangle_270, left}};
    const auto luminanceAround = [](const QImage& picture, const QPoint& tip) {
        // Left and right of the tip, seen along the way to it.
        const QPoint aside = tip.x() == 50 ? QPoint(22, 0) : QPoint(0, 22);
        return std::max(contrast(picture.pixelColor(tip + aside), picture.pixelColor(1, 1)),
                        contrast(picture.pixelColor(tip - aside), picture.pixelColor(1, 1)));
    };
    for (const auto& [shape, tip] : tips) {
        const QImage picture = lampPicture(QLed::Blue, shape, false, 100);
        QVERIFY2(luminanceAround(picture, tip) < 1.1, shapes.key(shape));
        for (const QPoint& other : {up, right, down, left}) {
            if (other == QPoint(100, 100) - tip)
                QVERIFY2(luminanceAround(picture, other) > 3.0, shapes.key(shape));
        }
    }
}

void QLedTest::aDisabledLampIsFaintAndStillTells() {
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        const QImage enabled = lampPicture(QLed::Green, QLed::Circle, true, 40, palette);
        const QImage on = lampPicture(QLed::Green, QLed::Circle, true, 40, palette, 1.0, false);
        const QImage off = lampPicture(QLed::Green, QLed::Circle, false, 40, palette, 1.0, false);
        QVERIFY(on.pixelColor(20, 32).hsvSaturation() < enabled.pixelColor(20, 32).hsvSaturation() * 4 / 5);
        QVERIFY(meanLuminance(on, middle(on, 0.45)) > meanLuminance(off, middle(off, 0.45)) + 0.1);
    }
}

void QLedTest::itStandsOutFromEveryWindow() {
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        const QColor window = palette.color(QPalette::Window);
        for (int colour = 0; colour < 7; ++colour) {
            for (const bool value : {false, true}) {
                const QImage picture = lampPicture(colour, QLed::Circle, value, 100, palette);
                double best = 1.0;
                for (int y = 8; y < 20; ++y)
                    best = std::max(best, contrast(picture.pixelColor(50, y), window));
                QVERIFY2(best >= 3.0, colours.key(colour));
            }
        }
    }
}

void QLedTest::itIsSharpAtRatioTwo() {
    QImage twice = lampPicture(QLed::Orange, QLed::Triangle, true, 40, lightPalette(), 2.0);
    twice.setDevicePixelRatio(1.0);
    QCOMPARE(twice, lampPicture(QLed::Orange, QLed::Triangle, true, 80));
}

void QLedTest::itStaysRoundAndInTheMiddle() {
    QLed led;
    led.setPalette(lightPalette());
    led.resize(120, 40);
    const QRect drawn = drawnRect(pictureOf(led), lightPalette().color(QPalette::Window));
    QCOMPARE(drawn.width(), drawn.height());
    QCOMPARE(drawn.center(), QPoint(59, 19));
}

void QLedTest::withoutRoomNothingIsDrawn() {
    QLed led;
    led.setPalette(lightPalette());
    for (const QSize& size : {QSize(1, 1), QSize(1, 20), QSize(20, 1)}) {
        led.resize(size);
        pictureOf(led);
    }
    led.resize(3, 200);
    QVERIFY(drawnRect(pictureOf(led), lightPalette().color(QPalette::Window)).height() <= 3);
}

void QLedTest::itsSizeFollowsTheFont() {
    QLed led;
    const QSize before = led.sizeHint();
    QCOMPARE(before.width(), before.height());
    QVERIFY(before.width() >= led.minimumSizeHint().width());
    QFont font = led.font();
    font.setPointSize(40);
    led.setFont(font);
    QVERIFY(led.sizeHint().width() > 2 * before.width());
}

void QLedTest::aScreenReaderIsTold() {
    QLed led;
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&led);
    QVERIFY(spoken);
    QCOMPARE(spoken->role(), QAccessible::Indicator);
    QCOMPARE(spoken->text(QAccessible::Name), QStringLiteral("Lamp"));
    QCOMPARE(spoken->text(QAccessible::Value), QStringLiteral("off"));
    QCOMPARE(spoken->text(QAccessible::Description), QStringLiteral("Red"));
    QVERIFY(spoken->state().checkable && spoken->state().readOnly && !spoken->state().checked);
    QVERIFY(!spoken->valueInterface());
    led.setValue(true);
    QCOMPARE(spoken->text(QAccessible::Value), QStringLiteral("on"));
    QCOMPARE(spoken->text(QAccessible::Description), QStringLiteral("Green"));
    QVERIFY(spoken->state().checked);
    led.setAccessibleName(QStringLiteral("Oil pump"));
    led.setEnabled(false);
    QCOMPARE(spoken->text(QAccessible::Name), QStringLiteral("Oil pump"));
    QVERIFY(spoken->state().disabled);
}

void QLedTest::aScreenReaderHearsOfEachChangeOnce() {
    const Listener listener;
    QLed led;
    led.show();
    led.setValue(true);
    QCOMPARE(listener.heardAfterEvents(), QStringList({"checked"}));
    led.setValue(true);
    led.setShape(QLed::Square);
    QCOMPARE(listener.heardAfterEvents(), QStringList());
    led.setValue(false);
    QCOMPARE(listener.heardAfterEvents(), QStringList({"not checked"}));
}

OSTREL_TEST(QLedTest)

#include "qled_test.moc"
