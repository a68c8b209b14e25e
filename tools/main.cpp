// ostrel: asks and writes the variables and events of a running store.
#include <CLI/CLI.hpp>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <functional>
#include <optional>
#include <string>

#include "commands.h"
#include "failure.h"
#include "ground/printable.h"
#include "storeaccess.h"
#include "suggestion.h"

namespace {

constexpr int failed = 1;
constexpr int wronglyUsed = 2;

struct Arguments {
    std::optional<std::string> store;
    bool json = false;
    bool namesOnly = false;
    bool force = false;
    std::string pattern, name, value, units, payload;
    std::vector<std::string> names;
    WatchRequest watch;
    EventWaitRequest wait;
    std::function<int()> command;  // the one that was asked for
};

// Names `run` as what the command does once everything is read.
void runs(CLI::App* command, Arguments& arguments, std::function<int()> run) {
    command->callback([&arguments, run = std::move(run)] { arguments.command = run; });
}

std::function<int()> inStore(Arguments& a, std::function<int()> run) {
    return [&a, run = std::move(run)] {
        openStore(a.store);
        return run();
    };
}

void addListAndInfo(CLI::App& app, Arguments& a) {
    auto* list =
        app.add_subcommand("list", "Lists variables with kind, value, units, section and aliases, section by section");
    list->add_option("PATTERN", a.pattern, "Names to list, such as 'OIL*'; case does not count");
    list->add_flag("--names", a.namesOnly, "Prints names and aliases alone, a line each");
    runs(list, a, inStore(a, [&a] { return (a.namesOnly ? namesCommand : listCommand)(a.pattern, a.json); }));

    auto* info = app.add_subcommand("info", "Shows every field of a variable, its limits and aliases");
    info->add_option("NAME", a.name, "Variable, member (BASE.AV) or array element (ARRAY:2)")->required();
    runs(info, a, inStore(a, [&a] { return infoCommand(a.name, a.json); }));
}

void addGetAndSet(CLI::App& app, Arguments& a) {
    auto* get = app.add_subcommand("get", "Shows values");
    get->add_option("NAME", a.names, "Variables, members (BASE.AV), array elements (ARRAY:2) or patterns ('OIL*')")
        ->required();
    get->add_option("--units", a.units, "Shows them in these units");
    runs(get, a, inStore(a, [&a] { return getCommand(a.names, a.units, a.json); }));

    auto* set = app.add_subcommand("set", "Writes a value");
    set->footer("Put -- before a VALUE that starts with a dash and is no number: ostrel set NAME -- -text");
    set->add_option("NAME", a.name, "Variable or array element")->required();
    set->add_option("VALUE", a.value, "Number, text, or state: its own words, 0, 1, false, true, off, on")->required();
    set->add_option("UNITS", a.units, "Units of VALUE; the variable's own where they are not given");
    set->add_flag("--force", a.force, "Writes also where the cell has died or is silent");
    runs(set, a, [&a] {
        openStoreToWrite(a.store, a.force);
        return setCommand(a.name, a.value, a.units, a.json);
    });
}

void addWatch(CLI::App& app, Arguments& a) {
    auto* watch = app.add_subcommand("watch", "Shows values again and again, until Ctrl+C");
    watch->add_option("NAME", a.watch.names, "Variables, members, array elements or patterns")->required();
    watch->add_option("--units", a.watch.units, "Shows them in these units");
    watch->add_option("--rate", a.watch.rateMs, "Milliseconds from one look to the next")
        ->capture_default_str()
        ->check(CLI::Range(10, 3'600'000));
    watch->add_flag("--changes", a.watch.changesOnly, "Shows a variable only when its text has changed");
    watch->add_option("--count", a.watch.count, "Ends after that many rounds")->check(CLI::Range(1, 1'000'000'000));
    runs(watch, a, inStore(a, [&a] { return watchCommand(a.watch, a.json); }));
}

void addEvent(CLI::App& app, Arguments& a) {
    auto* event = app.add_subcommand("event", "Raises an event or waits for one");
    event->require_subcommand(1);
    auto* raise = event->add_subcommand("raise", "Raises an event");
    raise->add_option("NAME", a.name, "Event")->required();
    raise->add_option("--payload", a.payload, "Text that goes with it");
    runs(raise, a, inStore(a, [&a] { return eventRaiseCommand(a.name, a.payload, a.json); }));

    auto* wait = event->add_subcommand("wait", "Waits until an event is raised");
    wait->add_option("NAME", a.wait.name, "Event")->required();
    wait->add_option("--timeout", a.wait.timeoutSeconds, "Fails after that many quiet seconds")
        ->check(CLI::Range(1, 1'000'000));
    wait->add_option("--count", a.wait.count, "Events to wait for; 0 for all until Ctrl+C")
        ->capture_default_str()
        ->check(CLI::Range(0, 1'000'000'000));
    runs(wait, a, inStore(a, [&a] { return eventWaitCommand(a.wait, a.json); }));
}

void addUnitsAndServer(CLI::App& app, Arguments& a) {
    auto* units = app.add_subcommand("units", "Lists the units that a unit keyword can be converted to");
    units->add_option("KEYWORD", a.units, "Such as rpm; without it all keywords");
    runs(units, a, [&a] { return unitsCommand(a.units, a.json); });

    auto* writes = app.add_subcommand("writes", "Lists who wrote what, the last 4096 writes");
    writes->add_option("PATTERN", a.pattern, "Variables, such as 'OIL*'; case does not count");
    runs(writes, a, inStore(a, [&a] { return writesCommand(a.pattern, a.json); }));

    auto* reconfig = app.add_subcommand("reconfig", "Makes the server read its cell file again");
    runs(reconfig, a, [&a] { return reconfigCommand(openStore(a.store), a.json); });

    auto* status = app.add_subcommand("status", "Shows the store, its server and its events");
    runs(status, a, [&a] { return statusCommand(openStore(a.store), a.json); });
}

void addAll(CLI::App& app, Arguments& a) {
    app.set_version_flag("--version", "ostrel " OSTREL_VERSION);
    app.add_option("--store", a.store, "Store to use; else OSTREL_STORE from the environment, else 'cell'");
    app.add_flag("--json", a.json, "Prints JSON");
    app.require_subcommand(1);
    app.fallthrough();
    app.footer(
        "Exit status: 0 done, 1 failed, 2 wrong usage.\n"
        "Examples:\n"
        "  ostrel list 'OIL*'\n"
        "  ostrel get ENGINE_SPEED --units Hz\n"
        "  ostrel set SPEED_SP 1500 rpm\n"
        "  ostrel watch ENGINE_SPEED OIL_TEMP --rate 500 --changes");
    addListAndInfo(app, a);
    addGetAndSet(app, a);
    addWatch(app, a);
    addEvent(app, a);
    addUnitsAndServer(app, a);
}

// What is wrong with the command line, with the word that is no command named.
std::string usageText(const CLI::App& app, const CLI::ParseError& error) {
    const auto left = app.remaining();
    if (!app.get_subcommands().empty() || left.empty())
        return std::string(error.what()) + "; see ostrel --help";
    std::vector<std::string> commands;
    for (const CLI::App* command : app.get_subcommands({}))
        commands.push_back(command->get_name());
    return left.front() + ": no such command" + didYouMean(left.front(), commands, "; see ostrel --help");
}

int run(int argc, char** argv) {
    CLI::App app("Asks and writes the variables and events of a running store.", "ostrel");
    Arguments arguments;
    addAll(app, arguments);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success))
            return app.exit(error);
        complain(usageText(app, error));
        return wronglyUsed;
    }
    return arguments.command();
}

}  // namespace

void complain(const std::string& message) {
    std::fflush(stdout);
    std::fprintf(stderr, "ostrel: %s\n", printableLines(message).c_str());
}

int main(int argc, char** argv) {
    // Whoever reads no further ends no write in the middle.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        const int status = run(argc, argv);
        if (std::fflush(stdout) != 0 && errno != EPIPE)
            throw Failure("standard output: cannot be written");
        return status;
    } catch (const std::exception& failure) {
        complain(failure.what());
        return failed;
    }
}
