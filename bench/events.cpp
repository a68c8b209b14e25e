// An event there and another one back between two processes, beside the same with two words of shared memory and the
// kernel's futex alone. One iteration is a whole turn: two events raised and two received.
#include <benchmark/benchmark.h>
#include <linux/futex.h>
#include <ostrel/events.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "servedstore.h"

namespace {

using Word = std::atomic<uint32_t>;
static_assert(sizeof(Word) == 4 && Word::is_always_lock_free);

// Memory that this process and the partner share.
struct Shared {
    Word ping;
    Word pong;
    std::atomic<bool> partnerIsAttached;
};
Shared* shared = nullptr;

long futex(Word& word, int operation, uint32_t value) {
    return syscall(SYS_futex, &word, operation, value, nullptr, nullptr, 0);
}

void raise(Word& word) {
    word.fetch_add(1, std::memory_order_release);  // release: what was written before is seen by the woken one
    futex(word, FUTEX_WAKE, 1);
}

// Sleeps while the word is `seen`, and gives what it is then.
uint32_t waitForNext(Word& word, uint32_t seen) {
    while (word.load(std::memory_order_acquire) == seen)
        futex(word, FUTEX_WAIT, seen);
    return seen + 1;
}

[[noreturn]] void answerFutex() {
    for (uint32_t seen = 0;;) {
        seen = waitForNext(shared->ping, seen);
        raise(shared->pong);
    }
}

char pingName[] = "bench_ping";
char pongName[] = "bench_pong";

// Makes both events, attaches to `wanted`, and gives the id of the other one.
int attachTo(const char* wanted, const char* other) {
    int id = 0;
    int otherId = 0;
    if (ostrel_event_create(wanted, &id) != 0 || ostrel_event_create(other, &otherId) != 0 ||
        event_attach(wanted, 10, &id) != 0) {
        std::fprintf(stderr, "events: %s: cannot be made or attached to\n", wanted);
        std::_Exit(1);
    }
    return otherId;
}

// The next event that comes; false when none came in a second.
bool receive() {
    char payload[8];
    int id = 0;
    return event_wait(payload, sizeof payload, &id) == 0;
}

[[noreturn]] void answerEvents() {
    const int pong = attachTo(pingName, pongName);
    shared->partnerIsAttached = true;
    for (;;) {
        if (receive())
            event_set(pong, nullptr, 0);
    }
}

// A process that answers until it is ended; it ends with this one too.
class Partner {
public:
    explicit Partner(void (*answer)()) : m_pid(fork()) {
        if (m_pid == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            answer();
        }
    }
    ~Partner() {
        kill(m_pid, SIGKILL);
        waitpid(m_pid, nullptr, 0);
    }
    Partner(const Partner&) = delete;
    Partner& operator=(const Partner&) = delete;

private:
    pid_t m_pid;
};

void pingPongOfEvents(benchmark::State& state) {
    static const int ping = attachTo(pongName, pingName);
    for (auto _ : state) {
        event_set(ping, nullptr, 0);
        if (!receive()) {
            state.SkipWithError("no answer within a second");
            break;
        }
    }
}
BENCHMARK(pingPongOfEvents)->Name("ping_pong")->UseRealTime();

void pingPongOfFutexes(benchmark::State& state) {
    uint32_t seen = shared->pong.load();
    for (auto _ : state) {
        raise(shared->ping);
        seen = waitForNext(shared->pong, seen);
    }
}
BENCHMARK(pingPongOfFutexes)->Name("floor")->UseRealTime();

void* memoryForBoth() {
    void* memory = mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        std::perror("events: shared memory");
        std::exit(1);
    }
    return memory;
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    shared = new (memoryForBoth()) Shared{};
    ServedStore store;
    // Forked before this process uses the platform: each of the three attaches to the store by itself.
    Partner futexes(answerFutex);
    Partner events(answerEvents);
    for (int waitedMs = 0; !shared->partnerIsAttached; ++waitedMs) {
        if (waitedMs > 10000) {
            std::fprintf(stderr, "events: the partner does not attach to its event\n");
            return 1;
        }
        usleep(1000);
    }
    benchmark::RunSpecifiedBenchmarks();
}
