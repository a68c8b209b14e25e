// What an operator waits for with 20,000 variables in the store: the selection dialog on the screen, the first time and
// again, a group chosen, the next key typed, the list dropped down; the box of a form filled and on the screen, and its
// look-ups without a screen.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <memory>

#include "hostlink/globals.h"
#include "selection/variableselectiondialog.h"
#include "servedstore.h"
#include "widgets/zelvariablewidget.h"

namespace {

constexpr int variables = 20000;

// A dialog as a widget opens it, painted.
class Opened {
public:
    Opened() : dialog(&parent, QT_OSTREL_ANY, QString::fromStdString(servedName(variables / 2))) {
        dialog.show();
        if (!QTest::qWaitForWindowExposed(&dialog))
            std::abort();
        dialog.repaint();
    }

    QWidget parent;
    VariableSelectionDialog dialog;
    QComboBox* group = dialog.findChild<QComboBox*>("groupComboBox");
    QComboBox* variable = dialog.findChild<QComboBox*>("variableComboBox");
};

void open(benchmark::State& state, bool isFirst) {
    { const Opened before; }
    for (auto _ : state) {
        Ostrel_Plugins_Master_variables_dirty = isFirst;
        Opened opened;
        if (opened.variable->count() != variables)
            state.SkipWithError("the dialog does not list all variables");
    }
}
BENCHMARK_CAPTURE(open, first, true)->Name("open_first")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(open, again, false)->Name("open_again")->Unit(benchmark::kMillisecond);

void chooseGroup(benchmark::State& state) {
    Opened opened;
    int group = 0;
    for (auto _ : state) {
        group = (group + 1) % 2;  // all variables, and a group of them
        opened.group->setCurrentIndex(group);
        QCoreApplication::processEvents();
    }
}
BENCHMARK(chooseGroup)->Name("choose_group")->Unit(benchmark::kMillisecond);

// One key at a time from the first character of a name to the last, with the completer's list on the screen.
void type(benchmark::State& state) {
    Opened opened;
    opened.dialog.activateWindow();
    opened.variable->setFocus();
    QLineEdit* const edit = opened.variable->lineEdit();
    const QString name = QString::fromStdString(servedName(variables - 1));
    int typed = name.size();
    for (auto _ : state) {
        if (typed == name.size()) {
            state.PauseTiming();
            edit->clear();
            typed = 0;
            state.ResumeTiming();
        }
        QTest::keyClick(edit, name.at(typed++).toLatin1());
        QCoreApplication::processEvents();
    }
}
BENCHMARK(type)->Name("type_key")->Unit(benchmark::kMillisecond);

void dropDown(benchmark::State& state) {
    Opened opened;
    for (auto _ : state) {
        opened.variable->showPopup();
        QCoreApplication::processEvents();
        opened.variable->hidePopup();
    }
}
BENCHMARK(dropDown)->Name("drop_down")->Unit(benchmark::kMillisecond);

void fillBox(benchmark::State& state) {
    for (auto _ : state) {
        ZelVariable box(QT_OSTREL_ANY, nullptr, true, false);
        box.setVariableTypes(QT_OSTREL_ANY);
        if (box.comboBox()->count() != variables + 1)
            state.SkipWithError("the box does not list all variables");
    }
}
BENCHMARK(fillBox)->Name("fill_box")->Unit(benchmark::kMillisecond);

void showBox(benchmark::State& state) {
    for (auto _ : state) {
        ZelVariable box(QT_OSTREL_ANY, nullptr, true, false);
        box.setVariableTypes(QT_OSTREL_ANY);
        box.show();
        if (!QTest::qWaitForWindowExposed(&box))
            std::abort();
        box.repaint();
    }
}
BENCHMARK(showBox)->Name("show_box")->Unit(benchmark::kMillisecond);

void lookUp(benchmark::State& state) {
    for (auto _ : state) {
        const std::unique_ptr<QHash<QString, QString>> units(ZelVariable::GetVariablesAndUnitsForType(QT_OSTREL_ANY));
        if (units->size() != variables)
            state.SkipWithError("the table does not hold all variables");
    }
}
BENCHMARK(lookUp)->Name("look_up_units")->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    // The server is a fork of this process, so it comes before the threads of Qt.
    auto store = std::make_unique<ServedStore>();
    store->serve(variables);
    const QApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
