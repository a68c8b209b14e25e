// Finding a variable by name, beside the hash map of a program that has all names and handles in its own memory: the
// same names, asked for in the same random order.
#include <benchmark/benchmark.h>
#include <ostrel/store.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

#include "servedstore.h"

namespace {

std::unique_ptr<ServedStore> store;

// What the benchmarks of one size work on; made again when the size changes.
struct Names {
    std::vector<std::string> queries;
    std::unordered_map<std::string, SHARED_MEMORY> handles;
};

const Names& names(size_t count) {
    static Names served;
    if (served.queries.size() == count)
        return served;
    store->serve(count);
    served = Names{};
    for (size_t i = 0; i < count; ++i)
        served.queries.push_back(servedName(i));
    for (std::string& name : served.queries)
        find_variable(name.data(), &served.handles[name]);
    std::shuffle(served.queries.begin(), served.queries.end(), std::mt19937(20));
    return served;
}

void findVariable(benchmark::State& state) {
    // A copy lies in memory in the order of the queries, so that reading them costs nothing of note.
    std::vector<std::string> queries = names(static_cast<size_t>(state.range(0))).queries;
    size_t next = 0;
    for (auto _ : state) {
        SHARED_MEMORY handle;
        if (find_variable(queries[next].data(), &handle) != 0) {
            state.SkipWithError("a served name was not found");
            break;
        }
        benchmark::DoNotOptimize(handle);
        next = next + 1 < queries.size() ? next + 1 : 0;
    }
}
BENCHMARK(findVariable)->Name("find_variable")->Arg(1000)->Arg(100000);

void findInMap(benchmark::State& state) {
    const Names& served = names(static_cast<size_t>(state.range(0)));
    const std::vector<std::string> queries = served.queries;
    size_t next = 0;
    for (auto _ : state) {
        const auto found = served.handles.find(queries[next]);
        if (found == served.handles.end()) {
            state.SkipWithError("a name was not found");
            break;
        }
        SHARED_MEMORY handle = found->second;
        benchmark::DoNotOptimize(handle);
        next = next + 1 < queries.size() ? next + 1 : 0;
    }
}
BENCHMARK(findInMap)->Name("floor")->Arg(1000)->Arg(100000);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    store = std::make_unique<ServedStore>();
    benchmark::RunSpecifiedBenchmarks();
    store.reset();
}
