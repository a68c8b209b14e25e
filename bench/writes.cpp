// Writing a variable with all its book-keeping, beside the plain store of the value into the same record.
#include <benchmark/benchmark.h>
#include <ostrel/store.h>

#include <memory>
#include <string>

#include "servedstore.h"

namespace {

std::unique_ptr<ServedStore> store;

// Of the four names, one of each kind.
template <typename Record>
Record* served(size_t number) {
    SHARED_MEMORY mem{};
    std::string name = servedName(number);
    return find_variable(name.data(), &mem) == 0 ? static_cast<Record*>(get_vrbl_adr(mem)) : nullptr;
}

void setReal(benchmark::State& state) {
    auto* record = served<REAL_VARIABLE>(0);
    double value = 0;
    for (auto _ : state)
        set_real_variable(record, value += 1);
}
BENCHMARK(setReal)->Name("set_real_variable/8");

void storeReal(benchmark::State& state) {
    volatile double* value = reinterpret_cast<volatile double*>(served<REAL_VARIABLE>(0));
    double next = 0;
    for (auto _ : state)
        *value = next += 1;
}
BENCHMARK(storeReal)->Name("floor/8");

void setText(benchmark::State& state) {
    auto* record = served<STRING_VARIABLE>(3);
    char text[81] = "the quick brown fox jumps over the lazy dog and the quick brown fox jumps again";
    for (auto _ : state) {
        text[0] = static_cast<char>('a' + (text[0] - 'a' + 1) % 26);
        set_string_variable(record, text);
    }
}
BENCHMARK(setText)->Name("set_string_variable/80");

void storeText(benchmark::State& state) {
    auto* record = served<STRING_VARIABLE>(3);
    char text[81] = "the quick brown fox jumps over the lazy dog and the quick brown fox jumps again";
    for (auto _ : state) {
        text[0] = static_cast<char>('a' + (text[0] - 'a' + 1) % 26);
        __builtin_memcpy(record->value, text, sizeof record->value);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(storeText)->Name("floor/80");

}  // namespace

int main(int argc, char** argv) {
    store = std::make_unique<ServedStore>();
    store->serve(4);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    store.reset();
    return 0;
}
