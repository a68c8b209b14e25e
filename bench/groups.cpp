// Building a group of 500 read-outs anew, and reading and writing its file. The floor of a rebuild is the same number
// of pairs of plain labels in a grid.
#include <benchmark/benchmark.h>
#include <ostrel/store.h>

#include <QApplication>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QTemporaryDir>

#include "groupfile/groupfile.h"
#include "hostlink/globals.h"
#include "servedstore.h"
#include "widgets/zelgroupwidget.h"
#include "widgets/zelgroupwidget_fl.h"

namespace {

constexpr int readouts = 500;
constexpr int columns = 10;

QByteArray largeGroup() {
    QVector<GroupVariable> variables;
    for (int i = 0; i < readouts; ++i)
        variables.append({QString::fromStdString(servedName(static_cast<size_t>(i))), i / columns, i % columns});
    return writeGroup(QStringLiteral("Large"), variables);
}

template <class Group>
void rebuild(benchmark::State& state) {
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("large.grp")));
    if (!file.open(QIODevice::WriteOnly) || file.write(largeGroup()) < 0)
        state.SkipWithError("the group file cannot be written");
    file.close();
    Group group;
    group.setFileName(file.fileName());
    bool upright = false;
    for (auto _ : state) {
        upright = !upright;
        group.setOrientation(upright ? Qt::Vertical : Qt::Horizontal);
    }
    state.SetItemsProcessed(state.iterations() * readouts);
}
BENCHMARK_TEMPLATE(rebuild, ZelGroup)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(rebuild, ZelGroup_fl)->Unit(benchmark::kMillisecond);

void rebuildFloor(benchmark::State& state) {
    QWidget box;
    for (auto _ : state) {
        delete box.layout();
        qDeleteAll(box.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
        auto* grid = new QGridLayout(&box);
        for (int i = 0; i < readouts; ++i) {
            grid->addWidget(new QLabel(QStringLiteral("NAME_%1").arg(i)), i / columns, 2 * (i % columns));
            grid->addWidget(new QLabel(QStringLiteral("0")), i / columns, 2 * (i % columns) + 1);
        }
    }
    state.SetItemsProcessed(state.iterations() * readouts);
}
BENCHMARK(rebuildFloor)->Name("rebuild/floor")->Unit(benchmark::kMillisecond);

void readLargeGroup(benchmark::State& state) {
    const QByteArray text = largeGroup();
    for (auto _ : state)
        benchmark::DoNotOptimize(readGroup(text));
}
BENCHMARK(readLargeGroup)->Unit(benchmark::kMicrosecond);

void writeLargeGroup(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(largeGroup());
}
BENCHMARK(writeLargeGroup)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    // Its server is a fork of this process, so it comes before Qt.
    ServedStore store;
    store.serve(readouts);
    QApplication application(argc, argv);
    inDesigner = false;
    InitializationDone = true;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
