#include "options.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <regex>

namespace {

constexpr auto footer = R"(
Examples:
  ostrel-display overview.ui                        shows the store that OSTREL_STORE names, or "cell"
  ostrel-display --cell cell.toml overview.ui       simulates the cell inside the display, no other program needed
  ostrel-display --screenshot now.png overview.ui   writes a picture of the form and ends

Exit status: 0 fine, 1 the form, the store or a file cannot be used, 2 wrong usage.)";

int number(const std::string& text) {
    return std::stoi(text);
}

// WIDTHxHEIGHT[+X+Y], as X programs have it; X and Y may be negative on a screen left of the first one.
Geometry parseGeometry(const std::string& text) {
    static const std::regex pattern(R"((\d{1,5})x(\d{1,5})(?:\+(-?\d{1,5})\+(-?\d{1,5}))?)");
    std::smatch part;
    if (!std::regex_match(text, part, pattern) || number(part[1]) == 0 || number(part[2]) == 0)
        throw CLI::ValidationError("--geometry",
                                   "\"" + text + "\" is no geometry; write WIDTHxHEIGHT or WIDTHxHEIGHT+X+Y");
    Geometry geometry{number(part[1]), number(part[2]), {}, {}};
    if (part[3].matched) {
        geometry.x = number(part[3]);
        geometry.y = number(part[4]);
    }
    return geometry;
}

// A store's name becomes part of the name of a shared memory object.
std::string storeNameFault(const std::string& name) {
    static const std::regex pattern(R"([A-Za-z0-9_][A-Za-z0-9_.-]{0,62})");
    if (std::regex_match(name, pattern))
        return {};
    return "\"" + name + "\" is no name of a store; use up to 63 letters, digits, '_', '-' and '.'";
}

void addStoreOptions(CLI::App& app, Options& options) {
    auto* cell = app.add_option("--cell", options.cell, "Serve this cell file inside the display, simulation included")
                     ->type_name("FILE");
    app.add_option("--store", options.store, "Name of the store to show")
        ->type_name("NAME")
        ->check(CLI::Validator(storeNameFault, ""))
        ->excludes(cell);
}

void addOperatorOptions(CLI::App& app, Options& options) {
    auto* remote = app.add_flag("--remote", options.remote, "Show only: no context menus, no writing, one update rate");
    app.add_option("--update-rate", options.updateRate, "Sample period of a remote display")
        ->type_name("MS")
        ->check(CLI::Range(10, 3600000))
        ->capture_default_str()
        ->needs(remote);
    app.add_option("--lock", options.lock, "1 locks every widget, 2 and 4 those that the form locks, 3 none")
        ->type_name("LEVEL")
        ->check(CLI::Range(1, 4))
        ->capture_default_str();
    app.add_option("--values", options.values, "Put the staged values of this file into the form's editors")
        ->type_name("FILE");
    app.add_flag("--lock-units", options.lockUnits, "Forbid changing units");
}

void addWindowOptions(CLI::App& app, Options& options, std::string& geometry) {
    auto* screenshot =
        app.add_option("--screenshot", options.screenshot, "Write a picture of the form to this file and end")
            ->type_name("FILE");
    app.add_option("--after", options.after, "Time from the form being up to the screenshot")
        ->type_name("MS")
        ->check(CLI::Range(0, 3600000))
        ->capture_default_str()
        ->needs(screenshot);
    app.add_option("--geometry", geometry, "Size and place of the window")->type_name("WxH[+X+Y]");
    app.add_flag("--kiosk", options.kiosk, "Full screen, no menu, and no questions")->excludes(screenshot);
    app.add_option("--style-sheet", options.styleSheet, "Qt style sheet for the whole display")->type_name("FILE");
}

}  // namespace

std::optional<int> readOptions(int argc, const char* const* argv, Options& options) {
    CLI::App app("Shows a form of live values of an engine test cell.", "ostrel-display");
    app.set_version_flag("--version", "ostrel-display " OSTREL_VERSION);
    app.get_formatter()->column_width(30);
    app.footer(footer);
    std::string geometry;
    app.add_option("FORM", options.form, "The form, a file made with Qt Designer")->type_name(".ui")->required();
    addStoreOptions(app, options);
    addOperatorOptions(app, options);
    addWindowOptions(app, options, geometry);
    try {
        app.parse(argc, argv);
        if (!geometry.empty())
            options.geometry = parseGeometry(geometry);
    } catch (const CLI::Success& done) {
        return app.exit(done);
    } catch (const CLI::ParseError& wrong) {
        std::cerr << "ostrel-display: " << wrong.what() << "; see ostrel-display --help" << std::endl;
        return 2;
    }
    return std::nullopt;
}
