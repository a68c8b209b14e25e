// The bar: what forms and the widget library ask of it, and what somebody sees.
#include <ostrel-display/slider.h>

#include <QAccessible>
#include <QMetaProperty>
#include <QTest>
#include <cmath>
#include <functional>
#include <limits>

#include "drawn/contrast.h"
#include "listener.h"
#include "picture.h"
#include "qttests.h"

namespace {

const QColor barColour(0, 160, 0);

// A plain bar: written in place, as its owner does.
struct Bar : Slider {
    explicit Bar(Qt::Orientation orientation = Qt::Horizontal) : Slider(nullptr) {
        setPalette(lightPalette());
        BarColor = barColour;
        Orientation = orientation;
        resize(orientation == Qt::Horizontal ? QSize(300, 60) : QSize(90, 300));
    }
};

struct ShownBar {
    ShownBar() {
        bar.show();
        if (!QTest::qWaitForWindowExposed(&bar))
            qFatal("the bar does not get onto the screen");
        paints.forget();
    }

    Bar bar;
    PaintWitness paints{&bar};
};

// The rectangle of the pixels of the bar's colour, and of the track, which a full bar covers.
QRect coloured(QWidget& bar) {
    const QImage picture = pictureOf(bar);
    QRect rect;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (isAbout(picture.pixelColor(x, y), barColour, 12))
                rect |= QRect(x, y, 1, 1);
    return rect;
}

QRect track(Bar& bar) {
    const double value = bar.Value;
    bar.Value = std::max(bar.Minimum, bar.Maximum);
    const QRect rect = coloured(bar);
    bar.Value = value;
    return rect;
}

// How many dark pixels stand beside the track at that share of it: a tick, or none.
int inkAt(Bar& bar, double share) {
    const QImage picture = pictureOf(bar);
    const QRect along = track(bar);
    int ink = 0;
    for (int away = 3; away < 10; ++away) {
        const QPoint point = bar.Orientation == Qt::Horizontal
                                 ? QPoint(along.left() + qRound(share * (along.width() + 2)), along.bottom() + away)
                                 : QPoint(along.right() + away, along.bottom() - qRound(share * (along.height() + 2)));
        for (const int aside : {-1, 0, 1}) {
            const QPoint near = point + (bar.Orientation == Qt::Horizontal ? QPoint(aside, 0) : QPoint(0, aside));
            if (picture.rect().contains(near) && luminance(picture.pixelColor(near)) < 0.3) {
                ++ink;
                break;
            }
        }
    }
    return ink;
}

}  // namespace

class SliderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void atFirstItIsAnEmptyScaleToAHundred();
    void formsSetItsProperties();
    void aPropertyOfTheScaleShowsAtOnce_data();
    void aPropertyOfTheScaleShowsAtOnce();
    void whatIsSetAlreadyPaintsNothing();
    void aMoveThatNobodySeesPaintsNothing();
    void smallMovesAddUp();
    void aNewValuePaintsTheBarAlone();

    void theBarIsAsLongAsTheValue_data();
    void theBarIsAsLongAsTheValue();
    void theBarGrowsFromTheLowerEnd();
    void renderRebuildsTheScale();
    void theBarsColourNeedsNoRender();
    void theBarsEndIsSeenInAnyColour();
    void aValueBeyondTheScaleIsMarked();
    void withoutAValueThereIsNoBar();
    void equalEndsAreSafe();
    void ticksAreMarked();

    void itIsDrawnWithinItsMargin_data();
    void itIsDrawnWithinItsMargin();
    void anySizeAndAnyNumbersAreSafe();
    void theLabelIsShownWhereItIsWanted();
    void fontPaletteAndStateAreFollowed();
    void itsSizeFollowsFontAndOrientation();
    void aRemoteSliderIsPlainlyNotLive();
    void aScreenReaderIsTold();
    void aScreenReaderHearsOfEachChangeOnce();
};

void SliderTest::atFirstItIsAnEmptyScaleToAHundred() {
    const Slider bar(nullptr);
    QCOMPARE(bar.Minimum, 0.0);
    QCOMPARE(bar.Maximum, 100.0);
    QCOMPARE(bar.Value, 0.0);
    QCOMPARE(bar.MajorTicks, 6);
    QCOMPARE(bar.MinorTicks, 4);
    QCOMPARE(bar.Precision, 0);
    QCOMPARE(bar.Orientation, Qt::Horizontal);
    QCOMPARE(bar.BarColor, QColor(47, 127, 208));
    QCOMPARE(bar.label(), QString());
    QVERIFY(!bar.isLabelVisible());
}

void SliderTest::formsSetItsProperties() {
    const QVector<QPair<const char*, QVariant>> properties = {
        {"Minimum", -5.0},
        {"Maximum", 55.0},
        {"Value", 50.0},
        {"MajorTicks", 3},
        {"MinorTicks", 2},
        {"Precision", 1},
        {"Orientation", QVariant::fromValue(Qt::Vertical)},
        {"BarColor", QColor(1, 2, 3)},
        {"Label", "real_qt_1"},
        {"LabelVisible", true},
    };
    Bar bar;
    for (const auto& [name, value] : properties) {
        QVERIFY2(bar.property(name) != value, name);
        QVERIFY2(bar.setProperty(name, value), name);
    }
    for (const auto& [name, value] : properties) {
        QVERIFY2(bar.property(name) == value, name);
        QVERIFY2(bar.metaObject()->property(bar.metaObject()->indexOfProperty(name)).isDesignable(), name);
    }
    QCOMPARE(bar.Minimum, -5.0);
    QCOMPARE(bar.Maximum, 55.0);
    QCOMPARE(bar.Value, 50.0);
    QCOMPARE(bar.MajorTicks, 3);
    QCOMPARE(bar.MinorTicks, 2);
    QCOMPARE(bar.Precision, 1);
    QCOMPARE(bar.Orientation, Qt::Vertical);
    QCOMPARE(bar.BarColor, QColor(1, 2, 3));
    QVERIFY(bar.setProperty("Orientation", "Qt::Horizontal"));
    QCOMPARE(bar.Orientation, Qt::Horizontal);
}

void SliderTest::aPropertyOfTheScaleShowsAtOnce_data() {
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("Minimum") << QByteArray("Minimum") << QVariant(-50.0);
    QTest::newRow("Maximum") << QByteArray("Maximum") << QVariant(70.0);
    QTest::newRow("Value") << QByteArray("Value") << QVariant(70.0);
    QTest::newRow("MajorTicks") << QByteArray("MajorTicks") << QVariant(3);
    QTest::newRow("MinorTicks") << QByteArray("MinorTicks") << QVariant(1);
    QTest::newRow("Precision") << QByteArray("Precision") << QVariant(1);
    QTest::newRow("Orientation") << QByteArray("Orientation") << QVariant::fromValue(Qt::Vertical);
    QTest::newRow("BarColor") << QByteArray("BarColor") << QVariant(QColor(Qt::red));
    QTest::newRow("LabelVisible") << QByteArray("LabelVisible") << QVariant(true);
}

void SliderTest::aPropertyOfTheScaleShowsAtOnce() {
    QFETCH(QByteArray, name);
    QFETCH(QVariant, value);
    ShownBar shown;
    shown.bar.resize(300, 90);
    shown.bar.setLabel(QStringLiteral("SPEED"));
    shown.bar.Value = 30.0;
    const QImage before = pictureOf(shown.bar);
    shown.paints.forget();
    QVERIFY(shown.bar.setProperty(name, value));
    QCOMPARE(shown.paints.countAfterEvents(), 1);
    QVERIFY(pictureOf(shown.bar) != before);
}

void SliderTest::whatIsSetAlreadyPaintsNothing() {
    ShownBar shown;
    shown.bar.setLabelVisible(true);
    shown.bar.setLabel(QStringLiteral("SPEED"));
    shown.bar.setProperty("Value", 30.0);
    shown.paints.forget();
    for (const char* name : {"Minimum", "Maximum", "Value", "MajorTicks", "MinorTicks", "Precision", "Orientation",
                             "BarColor", "Label", "LabelVisible"}) {
        QVERIFY(shown.bar.setProperty(name, shown.bar.property(name)));
        QVERIFY2(shown.paints.countAfterEvents() == 0, name);
    }
    shown.bar.setProperty("Value", qQNaN());
    shown.paints.forget();
    shown.bar.setProperty("Value", qQNaN());
    QCOMPARE(shown.paints.countAfterEvents(), 0);
}

void SliderTest::aMoveThatNobodySeesPaintsNothing() {
    ShownBar shown;
    shown.bar.setProperty("Value", 30.0);
    shown.paints.forget();
    for (const double value : {30.02, 29.95, 30.1}) {
        shown.bar.setProperty("Value", value);
        QCOMPARE(shown.bar.Value, value);
    }
    QCOMPARE(shown.paints.countAfterEvents(), 0);
    shown.bar.setProperty("Value", 500.0);
    QCOMPARE(shown.paints.countAfterEvents(), 1);
    shown.bar.setProperty("Value", 600.0);
    QCOMPARE(shown.paints.countAfterEvents(), 1);
    // The bar stays as long, but the arrow goes.
    shown.bar.setProperty("Value", 100.0);
    QCOMPARE(shown.paints.countAfterEvents(), 2);
}

void SliderTest::smallMovesAddUp() {
    ShownBar shown;
    shown.bar.setProperty("Value", 30.0);
    shown.paints.forget();
    for (int i = 1; i <= 20; ++i) {
        shown.bar.setProperty("Value", 30.0 + i * 0.05);
        QApplication::processEvents();
    }
    QVERIFY(shown.paints.count() >= 2 && shown.paints.count() <= 6);
}

void SliderTest::aNewValuePaintsTheBarAlone() {
    ShownBar shown;
    shown.bar.setProperty("Value", 30.0);
    shown.paints.forget();
    shown.bar.setProperty("Value", 60.0);
    QCOMPARE(shown.paints.countAfterEvents(), 1);
    const QRect painted = shown.paints.region().boundingRect();
    QVERIFY(painted.contains(track(shown.bar)));
    QVERIFY(painted.height() < shown.bar.height() * 2 / 3);
}

void SliderTest::theBarIsAsLongAsTheValue_data() {
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("share");
    for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
        const char* way = orientation == Qt::Horizontal ? "across" : "upright";
        QTest::addRow("%s, at the start", way) << orientation << 0.0 << 100.0 << 0.0 << 0.0;
        QTest::addRow("%s, a quarter", way) << orientation << 0.0 << 100.0 << 25.0 << 0.25;
        QTest::addRow("%s, full", way) << orientation << 0.0 << 100.0 << 100.0 << 1.0;
        QTest::addRow("%s, below zero", way) << orientation << -50.0 << 50.0 << -25.0 << 0.25;
        QTest::addRow("%s, beyond", way) << orientation << 0.0 << 100.0 << 170.0 << 1.0;
        QTest::addRow("%s, below", way) << orientation << 0.0 << 100.0 << -170.0 << 0.0;
        QTest::addRow("%s, minimum above maximum", way) << orientation << 100.0 << 0.0 << 25.0 << 0.25;
        QTest::addRow("%s, at that maximum", way) << orientation << 100.0 << 0.0 << 0.0 << 0.0;
    }
}

void SliderTest::theBarIsAsLongAsTheValue() {
    QFETCH(Qt::Orientation, orientation);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, value);
    QFETCH(double, share);
    Bar bar(orientation);
    bar.Minimum = minimum;
    bar.Maximum = maximum;
    bar.render();
    const QRect whole = track(bar);
    bar.Value = value;
    const QRect seen = coloured(bar);
    const double length = orientation == Qt::Horizontal ? seen.width() : seen.height();
    const double full = orientation == Qt::Horizontal ? whole.width() : whole.height();
    QVERIFY2(full > 200, qPrintable(QString::number(full)));
    // The end of it is darker.
    QVERIFY2(std::abs(length - full * share) <= 3.0, qPrintable(QString::number(length)));
    QCOMPARE(bar.Value, value);
}

void SliderTest::theBarGrowsFromTheLowerEnd() {
    for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
        for (const bool isDownwards : {false, true}) {
            Bar bar(orientation);
            bar.Minimum = isDownwards ? 100.0 : 0.0;
            bar.Maximum = isDownwards ? 0.0 : 100.0;
            bar.render();
            const QRect whole = track(bar);
            bar.Value = 30.0;
            const QRect seen = coloured(bar);
            const bool isAtStart =
                orientation == Qt::Horizontal ? seen.left() == whole.left() : seen.bottom() == whole.bottom();
            QCOMPARE(isAtStart, !isDownwards);
        }
    }
}

void SliderTest::renderRebuildsTheScale() {
    Bar bar;
    bar.Value = 50.0;
    const QImage before = pictureOf(bar);
    const QRect half = coloured(bar);
    bar.Maximum = 200.0;
    // Bar and numbers stay together until both change.
    QCOMPARE(pictureOf(bar), before);
    bar.render();
    QVERIFY(std::abs(coloured(bar).width() - half.width() / 2) <= 4);
    QVERIFY(pictureOf(bar) != before);
}

void SliderTest::theBarsColourNeedsNoRender() {
    Bar bar;
    bar.Value = 50.0;
    QVERIFY(pixelsOf(pictureOf(bar), Qt::magenta, 12) == 0);
    bar.BarColor = Qt::magenta;
    QVERIFY(pixelsOf(pictureOf(bar), Qt::magenta, 12) > 500);
}

void SliderTest::theBarsEndIsSeenInAnyColour() {
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        for (const QColor& colour : {QColor(Qt::black), QColor(Qt::white), QColor(215, 215, 215), QColor(66, 69, 72)}) {
            Bar bar;
            bar.setPalette(palette);
            const QRect whole = track(bar);
            bar.BarColor = colour;
            bar.Value = 50.0;
            const QImage picture = pictureOf(bar);
            const QColor empty = picture.pixelColor(whole.right() - 10, whole.center().y());
            double best = 1.0;
            for (int x = whole.center().x() - 4; x <= whole.center().x() + 4; ++x)
                best = std::max(best, contrast(picture.pixelColor(x, whole.center().y()), empty));
            QVERIFY2(best > 2.4, qPrintable(QStringLiteral("%1 %2").arg(colour.name()).arg(best)));
        }
    }
}

void SliderTest::aValueBeyondTheScaleIsMarked() {
    for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
        Bar bar(orientation);
        for (const bool isDownwards : {false, true}) {
            bar.Minimum = isDownwards ? 100.0 : 0.0;
            bar.Maximum = isDownwards ? 0.0 : 100.0;
            bar.render();
            for (const double end : {0.0, 100.0}) {
                bar.Value = end;
                const QImage at = pictureOf(bar);
                bar.Value = end == 0.0 ? -0.001 : 100.001;
                const QImage beyond = pictureOf(bar);
                QRect arrow;
                for (int y = 0; y < at.height(); ++y)
                    for (int x = 0; x < at.width(); ++x)
                        if (!isAbout(at.pixelColor(x, y), beyond.pixelColor(x, y), 60))
                            arrow |= QRect(x, y, 1, 1);
                QVERIFY(arrow.width() >= 4 && arrow.height() >= 4);
                const bool isAtFarEnd = orientation == Qt::Horizontal ? arrow.center().x() > bar.width() / 2
                                                                      : arrow.center().y() < bar.height() / 2;
                QCOMPARE(isAtFarEnd, (end == 100.0) != isDownwards);
            }
        }
    }
}

void SliderTest::withoutAValueThereIsNoBar() {
    for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
        Bar bar(orientation);
        bar.Value = 0.0;
        const QImage empty = pictureOf(bar);
        bar.Value = qQNaN();
        const QImage none = pictureOf(bar);
        QVERIFY(none != empty);
        QVERIFY(coloured(bar).isEmpty());
        for (const double value : {qInf(), -qInf()}) {
            bar.Value = value;
            QCOMPARE(pictureOf(bar), none);
        }
    }
}

void SliderTest::equalEndsAreSafe() {
    Bar bar;
    const double largest = std::numeric_limits<double>::max();
    const QVector<QPair<double, double>> ends = {{5.0, 5.0}, {qQNaN(), 1.0}, {0.0, qInf()}, {-largest, largest}};
    for (const auto& [minimum, maximum] : ends) {
        bar.Minimum = minimum;
        bar.Maximum = maximum;
        bar.render();
        for (const double value : {5.0, 0.0, 9.0, qQNaN()}) {
            bar.Value = value;
            QVERIFY(coloured(bar).isEmpty());
        }
    }
}

void SliderTest::ticksAreMarked() {
    for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
        Bar bar(orientation);
        bar.MajorTicks = 5;
        bar.MinorTicks = 1;
        bar.render();
        for (const double share : {0.25, 0.5, 0.75})
            QVERIFY2(inkAt(bar, share) >= 4, qPrintable(QString::number(share)));
        for (const double share : {0.125, 0.375, 0.625}) {
            QVERIFY2(inkAt(bar, share) >= 1, qPrintable(QString::number(share)));
            QVERIFY2(inkAt(bar, share) < inkAt(bar, 0.5), qPrintable(QString::number(share)));
        }
        for (const double share : {0.18, 0.3, 0.44})
            QCOMPARE(inkAt(bar, share), 0);
        bar.MajorTicks = 0;
        bar.render();
        QCOMPARE(inkAt(bar, 0.5), 0);
    }
}

void SliderTest::itIsDrawnWithinItsMargin_data() {
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<QSize>("size");
    for (const auto orientation : {Qt::Horizontal, Qt::Vertical})
        for (const QSize& size : {QSize(150, 50), QSize(70, 50), QSize(50, 150), QSize(300, 300), QSize(600, 30)})
            QTest::addRow("%s %dx%d", orientation == Qt::Horizontal ? "across" : "upright", size.width(), size.height())
                << orientation << size;
}

void SliderTest::itIsDrawnWithinItsMargin() {
    QFETCH(Qt::Orientation, orientation);
    QFETCH(QSize, size);
    Bar bar(orientation);
    bar.resize(size);
    bar.Minimum = -123456.0;
    bar.Maximum = 654321.0;
    bar.Value = 400000.0;
    bar.setLabel(QStringLiteral("A_VERY_LONG_NAME_OF_A_VARIABLE_OF_THE_CELL"));
    bar.setLabelVisible(true);
    bar.render();
    for (const double ratio : {1.0, 2.0}) {
        const QImage picture = pictureOf(bar, ratio);
        const QRect drawn = drawnRect(picture, lightPalette().color(QPalette::Window));
        QVERIFY(!coloured(bar).isEmpty());
        QVERIFY2(
            picture.rect().adjusted(1, 1, -1, -1).contains(drawn),
            qPrintable(
                QStringLiteral("%1 %2 %3 %4").arg(drawn.x()).arg(drawn.y()).arg(drawn.right()).arg(drawn.bottom())));
    }
}

void SliderTest::anySizeAndAnyNumbersAreSafe() {
    for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
        Bar bar(orientation);
        for (int side = 1; side < 60; side += 3) {
            bar.resize(side, 61 - side);
            bar.MajorTicks = side * 1'000'000;
            bar.MinorTicks = side * -1'000'000;
            bar.Precision = side * 1000;
            bar.Value = side * 1e300;
            bar.render();
            pictureOf(bar);
            bar.MinorTicks = side * 1'000'000;
            bar.Value = qQNaN();
            bar.render();
            pictureOf(bar);
        }
    }
}

void SliderTest::theLabelIsShownWhereItIsWanted() {
    Bar bar;
    bar.resize(300, 90);
    const QImage without = pictureOf(bar);
    bar.setLabel(QStringLiteral("SPEED"));
    QCOMPARE(pictureOf(bar), without);
    bar.setLabelVisible(true);
    const QImage with = pictureOf(bar);
    QVERIFY(with != without);
    bar.setLabel(QStringLiteral("TORQUE"));
    QVERIFY(pictureOf(bar) != with);
}

void SliderTest::fontPaletteAndStateAreFollowed() {
    ShownBar shown;
    QFont font = shown.bar.font();
    font.setBold(true);
    const QVector<std::function<void(Bar&)>> changes = {
        [&](Bar& bar) { bar.setFont(font); },
        [](Bar& bar) { bar.setPalette(darkPalette()); },
        [](Bar& bar) { bar.setEnabled(false); },
        [](Bar& bar) { bar.resize(250, 70); },
    };
    // It shows what a bar shows that has never been another.
    for (int i = 0; i < changes.size(); ++i) {
        const QImage before = pictureOf(shown.bar);
        shown.paints.forget();
        changes[i](shown.bar);
        QVERIFY2(shown.paints.countAfterEvents() > 0, qPrintable(QString::number(i)));
        QVERIFY2(pictureOf(shown.bar) != before, qPrintable(QString::number(i)));
        Bar fresh;
        for (int k = 0; k <= i; ++k)
            changes[k](fresh);
        QVERIFY2(pictureOf(shown.bar) == pictureOf(fresh), qPrintable(QString::number(i)));
    }
    Bar disabled;
    disabled.Value = 60.0;
    disabled.setEnabled(false);
    QVERIFY(coloured(disabled).isEmpty());
}

void SliderTest::itsSizeFollowsFontAndOrientation() {
    Bar bar;
    const QSize across = bar.sizeHint();
    QVERIFY(across.width() > 2 * across.height());
    QVERIFY(bar.minimumSizeHint().width() < across.width());
    bar.setProperty("Orientation", QVariant::fromValue(Qt::Vertical));
    QCOMPARE(bar.sizeHint(), across.transposed());
    QVERIFY(bar.minimumSizeHint().height() > bar.minimumSizeHint().width());
    QFont font = bar.font();
    font.setPointSize(40);
    bar.setFont(font);
    QVERIFY(bar.sizeHint().height() > 2 * across.width());
}

void SliderTest::aRemoteSliderIsPlainlyNotLive() {
    ShownBar shown;
    shown.bar.setProperty("Value", 30.0);
    const QImage live = pictureOf(shown.bar);
    shown.bar.set_remote();
    const QImage remote = pictureOf(shown.bar);
    QVERIFY(remote != live);
    QVERIFY(coloured(shown.bar).isEmpty());
    shown.paints.forget();
    shown.bar.setProperty("Value", 80.0);
    shown.bar.setProperty("Value", qQNaN());
    shown.bar.set_remote();
    QCOMPARE(shown.paints.countAfterEvents(), 0);
    shown.bar.setProperty("Value", 70.0);
    QCOMPARE(shown.bar.Value, 70.0);
    QCOMPARE(pictureOf(shown.bar), remote);
}

void SliderTest::aScreenReaderIsTold() {
    Bar bar;
    bar.Minimum = 8000.0;
    bar.Maximum = 0.0;
    bar.Value = 3120.4;
    bar.setLabel(QStringLiteral("SPEED"));
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&bar);
    QVERIFY(spoken);
    QCOMPARE(spoken->role(), QAccessible::ProgressBar);
    QCOMPARE(spoken->text(QAccessible::Name), QString());
    bar.setLabelVisible(true);
    QCOMPARE(spoken->text(QAccessible::Name), QStringLiteral("SPEED"));
    QCOMPARE(spoken->text(QAccessible::Value), QStringLiteral("3120"));
    QVERIFY(spoken->state().readOnly && !spoken->state().checkable);
    QAccessibleValueInterface* value = spoken->valueInterface();
    QVERIFY(value);
    QCOMPARE(value->currentValue().toDouble(), 3120.4);
    QCOMPARE(value->minimumValue().toDouble(), 0.0);
    QCOMPARE(value->maximumValue().toDouble(), 8000.0);
    value->setCurrentValue(1.0);
    QCOMPARE(bar.Value, 3120.4);
    bar.Value = 9000.0;
    QCOMPARE(spoken->text(QAccessible::Description), QStringLiteral("above the scale"));
    bar.Value = -1.0;
    QCOMPARE(spoken->text(QAccessible::Description), QStringLiteral("below the scale"));
    bar.Value = qQNaN();
    QCOMPARE(spoken->text(QAccessible::Value), QStringLiteral("no value"));
    QVERIFY(std::isnan(value->currentValue().toDouble()));
    bar.setAccessibleName(QStringLiteral("Speed"));
    QCOMPARE(spoken->text(QAccessible::Name), QStringLiteral("Speed"));
    bar.Value = 1.0;
    bar.set_remote();
    QCOMPARE(spoken->text(QAccessible::Value), QStringLiteral("not live"));
    QVERIFY(std::isnan(value->currentValue().toDouble()));
}

void SliderTest::aScreenReaderHearsOfEachChangeOnce() {
    const Listener listener;
    ShownBar shown;
    shown.bar.setProperty("Value", 30.0);
    QCOMPARE(listener.heardAfterEvents(), QStringList({"value 30"}));
    shown.bar.setProperty("Value", 30.0);
    shown.bar.setProperty("Value", 30.02);
    shown.bar.update();
    QCOMPARE(listener.heardAfterEvents(), QStringList());
    shown.bar.setProperty("Value", 60.0);
    shown.bar.setProperty("Value", 70.0);
    QCOMPARE(listener.heardAfterEvents(), QStringList({"value 70"}));
    // Written in place, as its widget does.
    shown.bar.Value = 80.0;
    shown.bar.update();
    QCOMPARE(listener.heardAfterEvents(), QStringList({"value 80"}));
    shown.bar.setProperty("MajorTicks", 3);
    QCOMPARE(listener.heardAfterEvents(), QStringList());
}

OSTREL_TEST(SliderTest)

#include "slider_test.moc"
