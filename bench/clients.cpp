// Clients at work on one store at the same time: each looks up names and writes to what it found. Beside it processes
// that do the same with a hash map and values of their own. The time is that of one look-up with its write, on the
// clock.
#include <benchmark/benchmark.h>
#include <ostrel/store.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "servedstore.h"

namespace {

constexpr size_t nameCount = 1000;
constexpr size_t rounds = 4000;

std::unique_ptr<ServedStore> store;

using Work = std::function<void(size_t client)>;

// Lets that many processes get ready, start at once and work; seconds from the start until the last one is done.
double timeOf(size_t clients, const Work& prepare, const Work& work) {
    int ready[2];
    int start[2];
    if (pipe(ready) != 0 || pipe(start) != 0)
        return -1;
    std::vector<pid_t> pids;
    for (size_t client = 0; client < clients; ++client) {
        pids.push_back(fork());
        if (pids.back() != 0)
            continue;
        close(start[1]);
        prepare(client);
        char byte = 'r';
        if (write(ready[1], &byte, 1) != 1 || read(start[0], &byte, 1) != 0)
            _exit(1);
        work(client);
        _exit(0);
    }
    char byte = 0;
    for (size_t client = 0; client < clients; ++client)
        if (read(ready[0], &byte, 1) != 1)
            return -1;
    const auto begin = std::chrono::steady_clock::now();
    close(start[1]);
    bool worked = true;
    for (const pid_t pid : pids) {
        int status = 0;
        worked = waitpid(pid, &status, 0) == pid && status == 0 && worked;
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    for (const int end : {ready[0], ready[1], start[0]})
        close(end);
    return worked ? taken.count() : -1;
}

void runClients(benchmark::State& state, const Work& prepare, const Work& work) {
    const auto clients = static_cast<size_t>(state.range(0));
    for (auto _ : state) {
        const double seconds = timeOf(clients, prepare, work);
        if (seconds < 0) {
            state.SkipWithError("a client failed");
            break;
        }
        state.SetIterationTime(seconds / static_cast<double>(clients * rounds));
    }
}

void onStore(benchmark::State& state) {
    std::vector<std::string> names;
    for (size_t i = 0; i < nameCount; ++i)
        names.push_back(servedName(i * 4));
    const Work look = [&](size_t) {
        SHARED_MEMORY mem{};
        if (find_variable(names[0].data(), &mem) != 0)
            _exit(1);
    };
    runClients(state, look, [&](size_t client) {
        for (size_t round = 0; round < rounds; ++round) {
            SHARED_MEMORY mem{};
            if (find_variable(names[(client * 37 + round) % nameCount].data(), &mem) != 0)
                _exit(1);
            set_real_variable(static_cast<REAL_VARIABLE*>(get_vrbl_adr(mem)), static_cast<double>(round));
        }
    });
}
BENCHMARK(onStore)->Name("clients")->Arg(1)->Arg(50)->UseManualTime()->Iterations(5)->Unit(benchmark::kNanosecond);

void onMaps(benchmark::State& state) {
    std::unordered_map<std::string, size_t> places;
    std::vector<std::string> names;
    for (size_t i = 0; i < nameCount; ++i) {
        names.push_back(servedName(i * 4));
        places.emplace(names.back(), i);
    }
    std::vector<double> values(nameCount);
    runClients(
        state, [](size_t) {},
        [&](size_t client) {
            for (size_t round = 0; round < rounds; ++round)
                values[places.at(names[(client * 37 + round) % nameCount])] = static_cast<double>(round);
            benchmark::DoNotOptimize(values.data());
        });
}
BENCHMARK(onMaps)->Name("floor")->Arg(1)->Arg(50)->UseManualTime()->Iterations(5)->Unit(benchmark::kNanosecond);

}  // namespace

int main(int argc, char** argv) {
    store = std::make_unique<ServedStore>();
    store->serve(4 * nameCount);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    store.reset();
    return 0;
}
