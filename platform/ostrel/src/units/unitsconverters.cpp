#include "units/unitsconverters.h"

#include <cmath>
#include <utility>

namespace {

bool isStraight(const cv_converter* curve, double slope, double offset) {
    if (!std::isfinite(slope) || !std::isfinite(offset))
        return false;
    for (double x : {1.0, -3.5, 1e3, -1e9}) {
        const double error = cv_convert_double(curve, x) - (slope * x + offset);
        // written so that a value that is no number makes it false
        if (!(std::fabs(error) <= 1e-12 * (std::fabs(slope * x) + std::fabs(offset))))
            return false;
    }
    return true;
}

UnitsConverter converterOf(ConverterPtr curve) {
    UnitsConverter converter;
    if (!curve)
        return converter;
    converter.possible = true;
    converter.offset = cv_convert_double(curve.get(), 0);
    // Beside an offset the slope is taken far away from zero, where the offset no longer takes digits from it.
    const double x = converter.offset == 0 ? 1 : 0x1p40;
    converter.slope = (cv_convert_double(curve.get(), x) - converter.offset) / x;
    if (!isStraight(curve.get(), converter.slope, converter.offset))
        converter.curve = std::move(curve);
    return converter;
}

}  // namespace

UnitsConverters::UnitsConverters(const UnitsCatalogue& catalogue) {
    for (size_t group = 0; group < catalogue.groupCount(); ++group) {
        const size_t side = catalogue.group(group).size();
        m_grids.push_back({side, std::vector<std::atomic<const UnitsConverter*>>(side * side)});
    }
}

const UnitsConverter& UnitsConverters::make(const Unit& from, const Unit& to,
                                            std::atomic<const UnitsConverter*>& cell) {
    std::lock_guard lock(m_mutex);
    if (const UnitsConverter* made = cell.load(std::memory_order_relaxed)) {
        return *made;  // by another thread; the lock ordered it before us
    }
    m_made.push_back(converterOf(makeConverter(from.expression, to.expression)));
    cell.store(&m_made.back(), std::memory_order_release);
    return m_made.back();
}
