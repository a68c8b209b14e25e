// The converters between the keywords of each group, made when they are first asked for and kept to the end of the
// process. Every displayed value of a widget with units of its own passes here at each sample, from any thread.
#ifndef OSTREL_UNITS_UNITSCONVERTERS_H
#define OSTREL_UNITS_UNITSCONVERTERS_H

#include <atomic>
#include <cstddef>
#include <deque>
#include <mutex>
#include <vector>

#include "units/unitscatalogue.h"
#include "units/unitsdatabase.h"

// A straight line, as nearly every conversion is, or a curve that UDUNITS computes, such as a logarithm.
struct UnitsConverter {
    bool possible = false;
    double slope = 1;
    double offset = 0;
    ConverterPtr curve;

    double operator()(double value) const {
        return curve ? cv_convert_double(curve.get(), value) : value * slope + offset;
    }
};

class UnitsConverters {
public:
    explicit UnitsConverters(const UnitsCatalogue& catalogue);

    // Both units must be of one group. The result is constant and stays good.
    const UnitsConverter& between(const Unit& from, const Unit& to) {
        Grid& grid = m_grids[from.group];
        std::atomic<const UnitsConverter*>& cell = grid.cells[from.position * grid.side + to.position];
        // acquire: the converter was filled in by the thread that stored its address
        const UnitsConverter* known = cell.load(std::memory_order_acquire);
        return known ? *known : make(from, to, cell);
    }

private:
    // One cell for each pair of keywords of a group.
    struct Grid {
        size_t side;
        std::vector<std::atomic<const UnitsConverter*>> cells;
    };

    const UnitsConverter& make(const Unit& from, const Unit& to, std::atomic<const UnitsConverter*>& cell);

    std::vector<Grid> m_grids;  // by group
    std::mutex m_mutex;
    std::deque<UnitsConverter> m_made;  // under the mutex; each is constant once it stands in a cell
};

#endif
