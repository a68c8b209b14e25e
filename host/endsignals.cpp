#include "endsignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <cerrno>
#include <csignal>

namespace {

// A pipe: within a signal handler little else is allowed than write().
int ends[2] = {-1, -1};

void onSignal(int) {
    const int saved = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(ends[1], &byte, 1);
    errno = saved;
}

void handle(int number) {
    struct sigaction action {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    sigaction(number, &action, nullptr);
}

}  // namespace

EndSignals::EndSignals(QObject* parent) : QObject(parent) {
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto* notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        while (read(ends[0], &byte, 1) > 0) {
        }
        emit endAsked();
    });
    handle(SIGTERM);
    handle(SIGINT);
}
