// Ctrl+C, a termination request or a vanished terminal as a condition that a command waits for, so that it can end
// cleanly. The signals are blocked for good from the making of an Interrupt on.
#ifndef OSTREL_TOOLS_INTERRUPT_H
#define OSTREL_TOOLS_INTERRUPT_H

#include <chrono>
#include <csignal>

class Interrupt {
public:
    Interrupt() {
        sigemptyset(&m_signals);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP})
            sigaddset(&m_signals, signal);
        pthread_sigmask(SIG_BLOCK, &m_signals, nullptr);
    }

    // Waits until `time` at most; true as soon as a signal has come.
    bool comesBefore(std::chrono::steady_clock::time_point time) const {
        using namespace std::chrono;
        for (;;) {
            const auto left = std::max(duration_cast<nanoseconds>(time - steady_clock::now()), nanoseconds(0));
            const timespec limit{static_cast<time_t>(left.count() / 1'000'000'000), left.count() % 1'000'000'000};
            if (sigtimedwait(&m_signals, nullptr, &limit) > 0)
                return true;
            if (steady_clock::now() >= time)
                return false;
        }
    }

    bool hasCome() const { return comesBefore(std::chrono::steady_clock::now()); }

private:
    sigset_t m_signals;
};

#endif
