// One scan of a cell: the demo, and 20,000 variables that all move. The floor evaluates the same expressions as
// compiled code and writes value and time into the same records.
#include "scan.h"

#include <benchmark/benchmark.h>
#include <ostrel/server.h>
#include <ostrel/store.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "cellfile.h"

namespace {

using namespace ostrelcell;

constexpr int many = 20'000;
constexpr double period = 0.05;

std::string demoText() {
    std::ostringstream text;
    text << std::ifstream(DEMO_CELL_FILE).rdbuf();
    return text.str();
}

std::string name(int number) {
    return "CHANNEL_" + std::to_string(number);
}

// Each channel looks at the time and at the one before it of ten, as channels that are computed from others do.
std::string manyText() {
    std::string text = "[cell]\nname = \"many\"\nscan_ms = 50\n";
    for (int number = 0; number < many; ++number)
        text += "[real." + name(number) + "]\nhigh_alarm = 1000\nexpr = \"" +
                (number % 10 == 0 ? "100 + sin(t)" : name(number - 1) + " * 0.99 + 1") + "\"\n";
    return text;
}

// A cell with a store of its own that is scanned as often as is asked for.
class ScannedCell {
public:
    explicit ScannedCell(const std::string& text) {
        Diagnostics diagnostics("cell.toml");
        readCellText(text, m_model, m_simulation, diagnostics);
        std::string reason = diagnostics.text();
        const std::string store = "bench-scan-" + std::to_string(getpid());
        ostrel_store_open(store.c_str(), nullptr, nullptr, 0);
        ostrel_server_options options{};
        options.name = store.c_str();
        char message[256] = "";
        m_server = ostrel_server_open(&options, message, sizeof message);
        if (!reason.empty() || m_server == nullptr)
            giveUp(reason + message);
        ostrel_server_begin(m_server, static_cast<SM_AREA_ID>(-1));
        if (!m_contents.put(m_server, m_model, reason))
            giveUp(reason);
        m_scan = std::make_unique<Scan>(m_model, m_simulation, m_contents);
        ostrel_server_commit(m_server);
    }

    ~ScannedCell() { ostrel_server_close(m_server); }
    ScannedCell(const ScannedCell&) = delete;
    ScannedCell& operator=(const ScannedCell&) = delete;

    void scan() {
        ostrel_server_beat(m_server);
        m_scan->run(m_t, period);
        m_t += period;
    }

    REAL_VARIABLE* real(int variable) { return static_cast<REAL_VARIABLE*>(m_contents.placed(variable).record); }

private:
    CellModel m_model;
    Simulation m_simulation;
    StoreContents m_contents;
    std::unique_ptr<Scan> m_scan;
    ostrel_server* m_server = nullptr;
    double m_t = 0;

    [[noreturn]] static void giveUp(const std::string& why) {
        std::fprintf(stderr, "scan: %s\n", why.c_str());
        std::exit(1);
    }
};

void scanDemo(benchmark::State& state) {
    ScannedCell cell(demoText());
    for (auto _ : state)
        cell.scan();
}
BENCHMARK(scanDemo)->Name("scan_demo")->Unit(benchmark::kMicrosecond);

void scanMany(benchmark::State& state) {
    ScannedCell cell(manyText());
    for (auto _ : state)
        cell.scan();
    state.SetItemsProcessed(state.iterations() * many);
}
BENCHMARK(scanMany)->Name("scan")->Arg(many)->Unit(benchmark::kMicrosecond);

void computeMany(benchmark::State& state) {
    ScannedCell cell(manyText());
    std::vector<REAL_VARIABLE*> records;
    for (int number = 0; number < many; ++number)
        records.push_back(cell.real(number));
    double t = 0;
    for (auto _ : state) {
        timespec now{};
        clock_gettime(CLOCK_REALTIME, &now);
        double value = 0;
        for (int number = 0; number < many; ++number) {
            value = number % 10 == 0 ? 100 + std::sin(t) : value * 0.99 + 1;
            records[static_cast<size_t>(number)]->value = value;
            records[static_cast<size_t>(number)]->last_sampled_time = now;
        }
        t += period;
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * many);
}
BENCHMARK(computeMany)->Name("floor")->Arg(many)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
