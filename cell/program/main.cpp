// ostrel-cell: serves a store from a cell file until it is told to end.
#include <ostrelcell/cell.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#include "ground/printable.h"

namespace {

// Names and texts in it may be anybody's.
void complain(const std::string& text) {
    std::fprintf(stderr, "%s\n", printableLines(text).c_str());
}

constexpr int exitFailure = 1;
constexpr int exitUsage = 2;
constexpr size_t message_size = 1 << 20;  // a large file may have many mistakes

struct Arguments {
    std::string file;
    std::string store;
    bool check = false;
};

int parse(CLI::App& app, int argc, char** argv, Arguments& arguments) {
    const char* environment = std::getenv("OSTREL_STORE");
    arguments.store = environment != nullptr && *environment != '\0' ? environment : "cell";
    app.add_option("FILE", arguments.file, "Cell file, such as cell.toml")->required();
    app.add_option("--store", arguments.store, "Name of the store; else OSTREL_STORE, else \"cell\"");
    app.add_flag("--check", arguments.check, "Say what is wrong with the file and serve nothing");
    app.set_version_flag("--version", "ostrel-cell " OSTREL_VERSION);
    app.footer(
        "SIGHUP reads the file again, SIGTERM and SIGINT end the cell.\n"
        "Exit status: 0 a clean end, 1 a mistake in the file or a store that cannot be served, 2 wrong usage.");
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& wanted) {
        app.exit(wanted);
        return 0;
    } catch (const CLI::ParseError& error) {
        complain(std::string("ostrel-cell: ") + error.what() + "; see ostrel-cell --help");
        return exitUsage;
    }
    return -1;
}

int check(const Arguments& arguments) {
    std::vector<char> message(message_size);
    ostrel_cell_summary summary{};
    if (ostrel_cell_check(arguments.file.c_str(), &summary, message.data(), message.size()) != 0) {
        complain(message.data());
        return exitFailure;
    }
    std::printf("ostrel-cell: %s: no mistakes; cell %s, %d variables, %d aliases\n", printable(arguments.file).c_str(),
                printable(summary.name).c_str(), summary.variables, summary.aliases);
    return 0;
}

sigset_t blockSignals() {
    sigset_t wanted;
    sigemptyset(&wanted);
    for (int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&wanted, signal);
    sigprocmask(SIG_BLOCK, &wanted, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    return wanted;
}

void say(const ostrel_cell* cell, const char* what, const std::string& store) {
    ostrel_cell_summary summary{};
    ostrel_cell_get_summary(cell, &summary);
    std::printf("ostrel-cell: %s: %s store %s, %d variables, %d aliases, scan %d ms\n", printable(summary.name).c_str(),
                what, store.c_str(), summary.variables, summary.aliases, summary.scan_ms);
    std::fflush(stdout);
}

void reload(ostrel_cell* cell, const Arguments& arguments) {
    std::vector<char> message(message_size);
    if (ostrel_cell_reload(cell, message.data(), message.size()) != 0) {
        complain(message.data() + ("\nostrel-cell: " + arguments.file) + ": not reloaded; the cell goes on as it was");
        return;
    }
    if (message[0] != '\0')
        complain("ostrel-cell: " + arguments.file + ": " + message.data());
    say(cell, "reloaded", arguments.store);
}

int serve(const Arguments& arguments) {
    const sigset_t wanted = blockSignals();
    std::vector<char> message(message_size);
    ostrel_cell* cell =
        ostrel_cell_open(arguments.file.c_str(), arguments.store.c_str(), message.data(), message.size());
    if (cell == nullptr) {
        // What is wrong in the file starts with its name; what is wrong with the store does not.
        const bool ofFile = std::string(message.data()).rfind(arguments.file + ":", 0) == 0;
        complain((ofFile ? "" : "ostrel-cell: ") + std::string(message.data()));
        return exitFailure;
    }
    ostrel_cell_summary summary{};
    ostrel_cell_get_summary(cell, &summary);
    say(cell, summary.adopted != 0 ? "serving adopted" : "serving new", arguments.store);
    int signal = 0;
    while (signal != SIGTERM && signal != SIGINT) {
        const long long wait = ostrel_cell_step(cell);
        const timespec timeout{static_cast<time_t>(wait / 1'000'000'000), static_cast<long>(wait % 1'000'000'000)};
        signal = sigtimedwait(&wanted, nullptr, &timeout);
        if (signal == SIGHUP)
            reload(cell, arguments);
    }
    ostrel_cell_close(cell);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Serves a variable store from a cell file and simulates the test cell that it describes.");
    Arguments arguments;
    const int status = parse(app, argc, argv, arguments);
    if (status >= 0)
        return status;
    return arguments.check ? check(arguments) : serve(arguments);
}
