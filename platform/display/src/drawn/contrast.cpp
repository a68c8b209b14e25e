#include "drawn/contrast.h"

#include <algorithm>
#include <cmath>

namespace {

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

}  // namespace

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

bool isDark(const QColor& ground) {
    return contrast(ground, Qt::white) > contrast(ground, Qt::black);
}

QColor legible(const QColor& wanted, const QColor& ground, double leastContrast) {
    if (wanted.isValid() && contrast(wanted, ground) >= leastContrast)
        return wanted;
    return isDark(ground) ? Qt::white : Qt::black;
}

QColor mixed(const QColor& first, const QColor& second, double share) {
    const auto between = [share](double from, double to) { return std::clamp(from + (to - from) * share, 0.0, 1.0); };
    return QColor::fromRgbF(between(first.redF(), second.redF()), between(first.greenF(), second.greenF()),
                            between(first.blueF(), second.blueF()));
}

QColor withoutHue(const QColor& colour) {
    const int grey = qGray(colour.rgb());
    return QColor(grey, grey, grey);
}
