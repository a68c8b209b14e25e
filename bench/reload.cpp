// A reconfiguration through the server's functions, from begin to commit, all names staying; beside putting the same
// names into a hash map.
#include <benchmark/benchmark.h>
#include <ostrel/server.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <unordered_map>
#include <vector>

#include "servedstore.h"

namespace {

ostrel_server* server = nullptr;

std::vector<std::string> names(benchmark::State& state) {
    std::vector<std::string> result;
    for (size_t i = 0; i < static_cast<size_t>(state.range(0)); ++i)
        result.push_back(servedName(i));
    return result;
}

void reload(benchmark::State& state) {
    const std::vector<std::string> all = names(state);
    for (auto _ : state) {
        ostrel_server_begin(server, static_cast<SM_AREA_ID>(-1));
        for (const std::string& name : all)
            if (!ostrel_server_put(server, GU_REAL_MEM, REAL_TYPE, name.c_str(), nullptr, nullptr, 0))
                state.SkipWithError("a name was refused");
        ostrel_server_commit(server);
    }
}
BENCHMARK(reload)->Arg(20000)->Unit(benchmark::kMillisecond);

void fillMap(benchmark::State& state) {
    const std::vector<std::string> all = names(state);
    for (auto _ : state) {
        std::unordered_map<std::string, size_t> map;
        for (const std::string& name : all)
            map.emplace(name, map.size());
        benchmark::DoNotOptimize(map);
    }
}
BENCHMARK(fillMap)->Name("floor")->Arg(20000)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    const ostrel_server_options options{};
    char message[256] = "";
    server = ostrel_server_open(&options, message, sizeof message);
    if (!server) {
        std::fprintf(stderr, "reload: %s\n", message);
        return EXIT_FAILURE;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    ostrel_server_close(server);
    return 0;
}
