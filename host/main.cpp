// ostrel-display: shows a form of live values.
#include <QApplication>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <memory>

#include "display.h"
#include "failure.h"
#include "options.h"
#include "screen.h"

namespace {

int run(int argc, char** argv) {
    Options options;
    if (const auto status = readOptions(argc, argv, options))
        return *status;
    chooseScreen(!options.screenshot.empty());
    int one = 1;  // Qt gets the program's name alone: the options are this program's own
    std::unique_ptr<QApplication> application;
    {
        const ScreenFailureGuard guard;
        application = std::make_unique<QApplication>(one, argv);
    }
    setlocale(LC_NUMERIC, "C");  // formats of records write a point, and Qt has just asked for the user's locale
    return runDisplay(options);
}

}  // namespace

int main(int argc, char** argv) {
    // A terminal or a pipe that is gone takes no screen away.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        return run(argc, argv);
    } catch (const Failure& failure) {
        for (const QString& line : QString::fromUtf8(failure.what()).split('\n'))
            std::fprintf(stderr, "ostrel-display: %s\n", line.toLocal8Bit().constData());
        return 1;
    }
}
