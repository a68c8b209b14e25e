// What one tick costs a read-out: of a value that did not change, and of one that gets a new text.
#include <benchmark/benchmark.h>
#include <ostrel/server.h>
#include <ostrel/store.h>
#include <unistd.h>

#include <QApplication>
#include <QLabel>
#include <cstdio>
#include <cstring>

#include "hostlink/globals.h"
#include "widgets/zel_simplevalue.h"
#include "widgets/zel_value.h"

namespace {

REAL_VARIABLE* record = nullptr;

// The store is this process's own: a sample reads memory, whoever serves it.
bool serveOneVariable() {
    char message[256] = "";
    ostrel_server_options options{};
    ostrel_server* server = ostrel_server_open(&options, message, sizeof(message));
    if (!server) {
        std::fprintf(stderr, "sample: %s\n", message);
        return false;
    }
    ostrel_server_begin(server, static_cast<SM_AREA_ID>(-1));
    int created = 0;
    record = static_cast<REAL_VARIABLE*>(
        ostrel_server_put(server, GU_REAL_MEM, REAL_TYPE, "SPEED", &created, message, sizeof(message)));
    std::strcpy(record->units, "RPM");
    std::strcpy(record->display_format, "%8.2f");
    record->value = 1000.0;
    ostrel_server_commit(server);
    return true;
}

template <class Widget>
void unchangedSample(benchmark::State& state) {
    Widget widget;
    widget.setName("SPEED");
    for (auto _ : state)
        widget.ostrelTimerEvent(widget.getSampleRate());
}
BENCHMARK_TEMPLATE(unchangedSample, ZelValue)->Name("unchanged_sample");
BENCHMARK_TEMPLATE(unchangedSample, ZelSimpleValue)->Name("unchanged_sample_simple");

template <class Widget>
void changedSample(benchmark::State& state) {
    Widget widget;
    widget.setName("SPEED");
    double value = 1000.0;
    for (auto _ : state) {
        record->value = value += 0.37;
        widget.ostrelTimerEvent(widget.getSampleRate());
    }
}
BENCHMARK_TEMPLATE(changedSample, ZelValue)->Name("changed_sample");
BENCHMARK_TEMPLATE(changedSample, ZelSimpleValue)->Name("changed_sample_simple");

void changedSampleInOtherUnits(benchmark::State& state) {
    ZelValue widget;
    widget.setName("SPEED");
    widget.setUnits("HZ");
    widget.setName("SPEED");
    double value = 1000.0;
    for (auto _ : state) {
        record->value = value += 0.37;
        widget.sample(false);
    }
}
BENCHMARK(changedSampleInOtherUnits);

// A new text for a label, without any variable behind it.
void floor(benchmark::State& state) {
    QLabel label;
    double value = 1000.0;
    for (auto _ : state)
        label.setText(QString::asprintf("%8.2f", value += 0.37));
}
BENCHMARK(floor);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    inDesigner = false;
    if (!serveOneVariable())
        return 1;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    std::fflush(stdout);
    // The waiting threads of the timers never end by themselves.
    _exit(0);
}
