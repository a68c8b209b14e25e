// The command line of ostrel-display.
#ifndef OSTREL_HOST_OPTIONS_H
#define OSTREL_HOST_OPTIONS_H

#include <optional>
#include <string>

// A window's place on the screen; without a position the window system chooses one.
struct Geometry {
    int width = 0;
    int height = 0;
    std::optional<int> x;
    std::optional<int> y;
};

struct Options {
    std::string form;
    std::string cell;        // empty: no store of this process's own
    std::string store;       // empty: as the environment says
    std::string screenshot;  // empty: none
    std::string styleSheet;  // empty: none
    std::string values;      // empty: nothing is staged to begin with
    std::optional<Geometry> geometry;
    bool remote = false;
    bool kiosk = false;
    int updateRate = 2000;  // ms, of a remote display
    int lock = 3;
    bool lockUnits = false;
    int after = 1500;  // ms from the form being up to the screenshot
};

// Fills `options`. An exit status where the program is to end now, with everything said: 0 after --help and --version,
// 2 for wrong usage.
std::optional<int> readOptions(int argc, const char* const* argv, Options& options);

#endif
