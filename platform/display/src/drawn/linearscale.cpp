#include "drawn/linearscale.h"

#include <algorithm>
#include <cmath>

const QString noValueText = QStringLiteral("----");

namespace {

constexpr int mostDecimals = 12;
constexpr int longestNumber = 12;

// 1, 2 or 5 times a power of ten, the smallest that is not below the given one.
double roundStep(double least) {
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (power * factor >= least * (1.0 - 1e-9))
            return power * factor;
    return power * 10.0;
}

// Steps of 2 have quarters, the others fifths.
int partsOf(double step) {
    const double power = std::pow(10.0, std::floor(std::log10(step * (1.0 + 1e-9))));
    return std::lround(step / power) == 2 ? 4 : 5;
}

// The number at a tick, or nothing where it would tell another value than the tick's.
QString numberAtTick(double value, int precision, double distance) {
    const QString text = numberText(value, precision);
    return std::abs(text.toDouble() - value) <= distance / 10.0 ? text : QString();
}

}  // namespace

bool LinearScale::hasLength() const {
    return std::isfinite(maximum - minimum) && maximum - minimum != 0.0;
}

double LinearScale::lower() const {
    return std::min(minimum, maximum);
}

double LinearScale::upper() const {
    return std::max(minimum, maximum);
}

double LinearScale::at(double value) const {
    if (!hasLength() || std::isnan(value))
        return 0.0;
    return (value - minimum) / (maximum - minimum);
}

double LinearScale::clamped(double value) const {
    return std::clamp(value, lower(), upper());
}

std::vector<Tick> evenTicks(const LinearScale& scale, int majors, int minorsBetween, int precision) {
    std::vector<Tick> ticks;
    if (!scale.hasLength() || majors < 1)
        return ticks;
    const int intervals = std::max(majors - 1, 1);
    const int parts = std::max(minorsBetween, 0) + 1;
    const double span = scale.maximum - scale.minimum;
    const int count = majors == 1 ? 1 : intervals * parts + 1;
    for (int i = 0; i < count; ++i) {
        const double at = double(i) / (intervals * parts);
        const bool isMajor = i % parts == 0;
        ticks.push_back(
            {at, isMajor,
             isMajor ? numberAtTick(scale.minimum + span * at, precision, std::abs(span) / intervals) : QString()});
    }
    return ticks;
}

std::vector<Tick> roundTicks(const LinearScale& scale, int majors, int precision) {
    std::vector<Tick> ticks;
    if (!scale.hasLength() || majors < 1)
        return ticks;
    const double span = scale.upper() - scale.lower();
    const double finest = std::pow(10.0, -std::clamp(precision, 0, mostDecimals));
    const double step = roundStep(std::max(span / std::max(majors - 1, 1), finest));
    const int parts = partsOf(step);
    const double part = step / parts;
    // Beyond this a double cannot tell one tick from the next.
    constexpr double mostParts = 1e12;
    if (std::max(std::abs(scale.lower()), std::abs(scale.upper())) / part > mostParts)
        return ticks;
    const auto first = std::llround(std::ceil(scale.lower() / part - 1e-6));
    const auto last = std::llround(std::floor(scale.upper() / part + 1e-6));
    for (auto i = first; i <= last; ++i) {
        const double value = double(i) * part;
        const bool isMajor = i % parts == 0;
        ticks.push_back({scale.at(value), isMajor, isMajor ? numberAtTick(value, precision, step) : QString()});
    }
    return ticks;
}

QString numberText(double value, int precision) {
    if (!std::isfinite(value))
        return noValueText;
    QString text = QString::number(value, 'f', std::clamp(precision, 0, mostDecimals));
    if (text.size() > longestNumber)
        text = QString::number(value, 'g', 6);
    return text.toDouble() == 0.0 && text.startsWith(QLatin1Char('-')) ? text.mid(1) : text;
}

size_t clearStep(const std::vector<QRectF>& numbers, double gap) {
    const auto areClear = [&](size_t step) {
        for (size_t i = step; i < numbers.size(); i += step)
            if (numbers[i].adjusted(-gap, -gap, gap, gap).intersects(numbers[i - step]))
                return false;
        return true;
    };
    size_t step = 1;
    while (step < numbers.size() && !areClear(step))
        ++step;
    return step;
}

int readingPrecision(const LinearScale& scale, int precision) {
    if (!scale.hasLength())
        return precision;
    const double hundredth = (scale.upper() - scale.lower()) / 100.0;
    const double decimals = std::ceil(-std::log10(hundredth) - 1e-9);
    return std::max(precision, int(std::clamp(decimals, 0.0, double(mostDecimals))));
}
