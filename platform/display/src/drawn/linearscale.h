// The numbers along a scale: where a value stands, where the ticks are, what is printed.
#ifndef OSTREL_DISPLAY_DRAWN_LINEARSCALE_H
#define OSTREL_DISPLAY_DRAWN_LINEARSCALE_H

#include <QRectF>
#include <QString>
#include <vector>

// Runs from its minimum to its maximum, upwards or, with the minimum above the maximum, downwards. Ends that are equal,
// no numbers, or too far apart for a difference make a scale without a length: everything stands at its start.
struct LinearScale {
    double minimum = 0.0;
    double maximum = 100.0;

    bool hasLength() const;
    double lower() const;
    double upper() const;

    // From 0 at the minimum to 1 at the maximum; outside of them beyond the ends. 0 for what is no number.
    double at(double value) const;

    // Between the ends. What is no number stays what it is.
    double clamped(double value) const;

    bool operator==(const LinearScale& other) const = default;
};

struct Tick {
    double at;  // of the scale's length
    bool isMajor;
    QString text;  // empty at a tick without a number
};

// So many major ticks, the ends among them, and so many minor ones between each two. A number stands where it tells the
// tick's value: one that the decimals would round by more than a tenth of the way to the next tick is left out.
std::vector<Tick> evenTicks(const LinearScale& scale, int majors, int minorsBetween, int precision);

// Major ticks at round numbers, 1, 2 or 5 times a power of ten apart, which the decimals can tell; as many as are
// wanted at most, and one more at most.
std::vector<Tick> roundTicks(const LinearScale& scale, int majors, int precision);

// What stands where there is no value.
extern const QString noValueText;

// With so many decimals; a number too long to be read at a glance with six digits and an exponent. Zero has no sign.
QString numberText(double value, int precision);

// 1 where all numbers keep clear of each other, 2 where every second one does, and so on. They stand in the order of
// the scale; a step that is their count leaves the first alone.
size_t clearStep(const std::vector<QRectF>& numbers, double gap);

// The decimals that tell a hundredth of the scale, and no fewer than those given.
int readingPrecision(const LinearScale& scale, int precision);

#endif
