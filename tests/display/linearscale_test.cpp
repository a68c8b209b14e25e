// Where a value stands on a scale, where the ticks are and what is printed at them.
#include "drawn/linearscale.h"

#include <QTest>
#include <cmath>
#include <limits>

#include "qttests.h"

namespace {

QString majorsOf(const std::vector<Tick>& ticks) {
    QStringList texts;
    for (const Tick& tick : ticks)
        if (tick.isMajor)
            texts.append(tick.text.isEmpty() ? QStringLiteral("-") : tick.text);
    return texts.join(QLatin1Char(' '));
}

}  // namespace

class LinearScaleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aValueStandsBetweenTheEnds();
    void aScaleRunsTheOtherWay();
    void aScaleWithoutLengthIsSafe();
    void evenTicksIncludeTheEnds();
    void aNumberThatWouldLieIsLeftOut();
    void roundTicks_data();
    void roundTicks();
    void roundTicksAreNeverTooMany();
    void minorTicksDivideEvenly();
    void numbers_data();
    void numbers();
    void numbersKeepClearOfEachOther();
    void aReadingTellsAHundredthOfTheScale();
};

void LinearScaleTest::aValueStandsBetweenTheEnds() {
    const LinearScale scale{-50.0, 150.0};
    QCOMPARE(scale.at(-50.0), 0.0);
    QCOMPARE(scale.at(0.0), 0.25);
    QCOMPARE(scale.at(150.0), 1.0);
    QCOMPARE(scale.at(350.0), 2.0);
    QCOMPARE(scale.at(qQNaN()), 0.0);
    QCOMPARE(scale.clamped(200.0), 150.0);
    QCOMPARE(scale.clamped(-qInf()), -50.0);
    QVERIFY(std::isnan(scale.clamped(qQNaN())));
}

void LinearScaleTest::aScaleRunsTheOtherWay() {
    const LinearScale scale{100.0, 0.0};
    QVERIFY(scale.hasLength());
    QCOMPARE(scale.at(100.0), 0.0);
    QCOMPARE(scale.at(25.0), 0.75);
    QCOMPARE(scale.lower(), 0.0);
    QCOMPARE(scale.upper(), 100.0);
    QCOMPARE(scale.clamped(130.0), 100.0);
    QCOMPARE(majorsOf(evenTicks(scale, 3, 0, 0)), QStringLiteral("100 50 0"));
    const std::vector<Tick> ticks = ::roundTicks(scale, 3, 0);
    QCOMPARE(majorsOf(ticks), QStringLiteral("0 50 100"));
    QCOMPARE(ticks.front().at, 1.0);
}

void LinearScaleTest::aScaleWithoutLengthIsSafe() {
    const double largest = std::numeric_limits<double>::max();
    for (const LinearScale& scale :
         {LinearScale{5.0, 5.0}, LinearScale{qQNaN(), 1.0}, LinearScale{0.0, qInf()}, LinearScale{-largest, largest}}) {
        QVERIFY(!scale.hasLength());
        QCOMPARE(scale.at(7.0), 0.0);
        QVERIFY(evenTicks(scale, 11, 4, 0).empty());
        QVERIFY(::roundTicks(scale, 11, 0).empty());
        QCOMPARE(readingPrecision(scale, 2), 2);
    }
}

void LinearScaleTest::evenTicksIncludeTheEnds() {
    const std::vector<Tick> ticks = evenTicks({0.0, 100.0}, 6, 4, 0);
    QCOMPARE(majorsOf(ticks), QStringLiteral("0 20 40 60 80 100"));
    QCOMPARE(ticks.size(), size_t(26));
    QCOMPARE(ticks.front().at, 0.0);
    QCOMPARE(ticks.back().at, 1.0);
    QCOMPARE(majorsOf(evenTicks({0.0, 100.0}, 1, 4, 0)), QStringLiteral("0"));
    QVERIFY(evenTicks({0.0, 100.0}, 0, 4, 0).empty());
    QVERIFY(evenTicks({0.0, 100.0}, -3, -3, 0).empty());
    QCOMPARE(evenTicks({0.0, 100.0}, 2, -3, 0).size(), size_t(2));
}

void LinearScaleTest::aNumberThatWouldLieIsLeftOut() {
    QCOMPARE(majorsOf(evenTicks({0.0, 1.0}, 5, 0, 0)), QStringLiteral("0 - - - 1"));
    QCOMPARE(majorsOf(evenTicks({0.0, 1.0}, 5, 0, 1)), QStringLiteral("0.0 - 0.5 - 1.0"));
    QCOMPARE(majorsOf(evenTicks({0.0, 1.0}, 5, 0, 2)), QStringLiteral("0.00 0.25 0.50 0.75 1.00"));
    QCOMPARE(majorsOf(evenTicks({0.0, 100.0}, 8, 0, 0)), QStringLiteral("0 14 29 43 57 71 86 100"));
}

void LinearScaleTest::roundTicks_data() {
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<int>("precision");
    QTest::addColumn<QString>("numbers");
    QTest::newRow("round ends") << 0.0 << 100.0 << 0 << "0 20 40 60 80 100";
    QTest::newRow("odd ends") << 3.0 << 97.0 << 0 << "20 40 60 80";
    QTest::newRow("below zero") << -37.0 << 12.0 << 0 << "-30 -20 -10 0 10";
    QTest::newRow("speed") << 0.0 << 8000.0 << 0 << "0 2000 4000 6000 8000";
    QTest::newRow("small") << 0.0 << 0.3 << 1 << "0.0 0.1 0.2 0.3";
    QTest::newRow("finer than the decimals") << 0.0 << 2.0 << 0 << "0 1 2";
    QTest::newRow("between two numbers") << 0.2 << 0.8 << 0 << "";
    QTest::newRow("large") << 0.0 << 4e12 << 0 << "0 1e+12 2e+12 3e+12 4e+12";
    QTest::newRow("more digits than are printed") << 3e12 << 3e12 + 500.0 << 0 << "3e+12 - - - - -";
    QTest::newRow("too fine for a double") << 1e15 << 1e15 + 1.0 << 3 << "";
}

void LinearScaleTest::roundTicks() {
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(int, precision);
    QFETCH(QString, numbers);
    QCOMPARE(majorsOf(::roundTicks({minimum, maximum}, 6, precision)), numbers);
}

void LinearScaleTest::roundTicksAreNeverTooMany() {
    for (double span = 1e-9; span < 1e12; span *= 1.37) {
        for (const int majors : {1, 2, 5, 11, 40}) {
            const std::vector<Tick> ticks = ::roundTicks({-span / 3, span * 2 / 3}, majors, 12);
            const auto count = std::count_if(ticks.begin(), ticks.end(), [](const Tick& t) { return t.isMajor; });
            QVERIFY2(count <= majors + 1, qPrintable(QString::number(span)));
            QVERIFY2(majors < 5 || count >= majors / 3, qPrintable(QString::number(span)));
            for (const Tick& tick : ticks)
                QVERIFY(tick.at > -1e-6 && tick.at < 1.0 + 1e-6);
        }
    }
}

void LinearScaleTest::minorTicksDivideEvenly() {
    QCOMPARE(::roundTicks({0.0, 100.0}, 11, 0).size(), size_t(51));
    QCOMPARE(::roundTicks({0.0, 100.0}, 6, 0).size(), size_t(21));
    QCOMPARE(::roundTicks({0.0, 100.0}, 3, 0).size(), size_t(11));
}

void LinearScaleTest::numbers_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("precision");
    QTest::addColumn<QString>("text");
    QTest::newRow("whole") << 42.0 << 0 << "42";
    QTest::newRow("rounded") << 41.96 << 1 << "42.0";
    QTest::newRow("no negative zero") << -0.04 << 1 << "0.0";
    QTest::newRow("negative") << -0.06 << 1 << "-0.1";
    QTest::newRow("too long") << 1234567890123.0 << 0 << "1.23457e+12";
    QTest::newRow("just not too long") << 123456789012.0 << 0 << "123456789012";
    QTest::newRow("negative decimals") << 3.7 << -2 << "4";
    QTest::newRow("not a number") << qQNaN() << 2 << "----";
    QTest::newRow("infinite") << -qInf() << 2 << "----";
}

void LinearScaleTest::numbers() {
    QFETCH(double, value);
    QFETCH(int, precision);
    QFETCH(QString, text);
    QCOMPARE(numberText(value, precision), text);
}

void LinearScaleTest::numbersKeepClearOfEachOther() {
    std::vector<QRectF> numbers;
    QCOMPARE(clearStep(numbers, 1.0), size_t(1));
    for (int i = 0; i < 12; ++i)
        numbers.emplace_back(i * 10.0, 0.0, 8.0, 5.0);
    QCOMPARE(clearStep(numbers, 1.0), size_t(1));
    QCOMPARE(clearStep(numbers, 3.0), size_t(2));
    QCOMPARE(clearStep(numbers, 13.0), size_t(3));
    QCOMPARE(clearStep(numbers, 1000.0), size_t(12));
}

void LinearScaleTest::aReadingTellsAHundredthOfTheScale() {
    QCOMPARE(readingPrecision({0.0, 100.0}, 0), 0);
    QCOMPARE(readingPrecision({0.0, 8000.0}, 0), 0);
    QCOMPARE(readingPrecision({0.0, 99.0}, 0), 1);
    QCOMPARE(readingPrecision({0.0, 1.0}, 0), 2);
    QCOMPARE(readingPrecision({1.0, 0.0}, 0), 2);
    QCOMPARE(readingPrecision({0.0, 100.0}, 3), 3);
    QCOMPARE(readingPrecision({0.0, 1e-30}, 0), 12);
}

OSTREL_TEST_WITHOUT_SCREEN(LinearScaleTest)

#include "linearscale_test.moc"
