// CPU, memory and time to the first live picture of a window full of read-outs, each as a ratio to labels; and how long
// a form with as many of them takes to load.
//
// Every kind of window runs in a process of its own, which counts its own processor time; the store is served by
// another process, which is not counted. The kinds take turns, so that a drift of the machine's speed meets all.
#include <ostrel/server.h>
#include <ostrel/store.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QTimer>
#include <QUiLoader>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

#include "hostlink/globals.h"
#include "widgets/zel_simplevalue.h"
#include "widgets/zel_value.h"

namespace {

constexpr int columns = 25;
constexpr int period = 100;

struct Result {
    double cores = 0.0;       // processor seconds per second
    double memory = 0.0;      // MiB resident
    double firstPicture = 0;  // ms from the start of main() to the first paint with values
    double load = 0;          // ms that the form took, where the window is one
};

double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& t) { return double(t.tv_sec) + double(t.tv_usec) * 1e-6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double residentMemory() {
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0.0;
    return file.readAll().split(' ').value(1).toDouble() * double(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

QByteArray variableName(int i) {
    return "READOUT_" + QByteArray::number(i);
}

double valueAt(int i, int step) {
    return 1000.0 + 100.0 * std::sin(0.1 * step + i);
}

volatile sig_atomic_t serving = 1;

// Serves `count` variables; each changes its value ten times a second when `changing`.
[[noreturn]] void serve(const QByteArray& store, int count, bool changing, int ready) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    signal(SIGTERM, [](int) { serving = 0; });
    char message[256] = "";
    ostrel_server_options options{};
    options.name = store.constData();
    ostrel_server* server = ostrel_server_open(&options, message, sizeof(message));
    if (!server) {
        std::fprintf(stderr, "onscreen: %s\n", message);
        _exit(1);
    }
    std::vector<REAL_VARIABLE*> records;
    ostrel_server_begin(server, static_cast<SM_AREA_ID>(-1));
    for (int i = 0; i < count; ++i) {
        int created = 0;
        auto* record = static_cast<REAL_VARIABLE*>(
            ostrel_server_put(server, GU_REAL_MEM, REAL_TYPE, variableName(i), &created, message, sizeof(message)));
        std::strcpy(record->units, "RPM");
        std::strcpy(record->display_format, "%8.2f");
        record->value = valueAt(i, 0);
        records.push_back(record);
    }
    ostrel_server_commit(server);
    if (write(ready, "r", 1) != 1)
        _exit(1);
    for (int step = 1; serving; ++step) {
        usleep(period * 1000);
        for (int i = 0; changing && i < count; ++i)
            records[static_cast<size_t>(i)]->value = valueAt(i, step);
        ostrel_server_beat(server);
    }
    ostrel_server_close(server);
    _exit(0);
}

class Store {
public:
    Store(int count, bool changing) {
        const QByteArray name = "onscreen-" + QByteArray::number(getpid());
        setenv("OSTREL_STORE", name.constData(), 1);
        int ready[2];
        if (pipe(ready) != 0)
            return;
        m_server = fork();
        if (m_server == 0)
            serve(name, count, changing, ready[1]);
        char byte = 0;
        if (read(ready[0], &byte, 1) != 1)
            std::fprintf(stderr, "onscreen: no store\n");
    }
    ~Store() {
        kill(m_server, SIGTERM);
        waitpid(m_server, nullptr, 0);
    }

private:
    pid_t m_server = -1;
};

template <class Field>
void showNumbers(QWidget& window, QGridLayout& grid, int count, bool changing) {
    std::vector<Field*> fields;
    for (int i = 0; i < count; ++i) {
        auto* field = new Field;
        field->setText(QString::asprintf("%8.2f", valueAt(i, 0)));
        grid.addWidget(field, i / columns, i % columns);
        fields.push_back(field);
    }
    auto* timer = new QTimer(&window);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer, &QTimer::timeout, [fields, changing] {
        static int step = 0;
        if (changing)
            ++step;
        for (size_t i = 0; i < fields.size(); ++i)
            fields[i]->setText(QString::asprintf("%8.2f", valueAt(static_cast<int>(i), step)));
    });
    timer->start(period);
}

template <class Widget>
void showValues(QGridLayout& grid, int count) {
    for (int i = 0; i < count; ++i) {
        auto* value = new Widget;
        value->setSampleRate(period);
        value->setName(QString::fromLatin1(variableName(i)));
        grid.addWidget(value, i / columns, i % columns);
    }
}

QWidget* fillWindow(const QByteArray& kind, int count, bool changing) {
    auto* window = new QWidget;
    auto* grid = new QGridLayout(window);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(2);
    if (kind == "labels")
        showNumbers<QLabel>(*window, *grid, count, changing);
    else if (kind == "edits")
        showNumbers<QLineEdit>(*window, *grid, count, changing);
    else if (kind == "simple")
        showValues<ZelSimpleValue>(*grid, count);
    else
        showValues<ZelValue>(*grid, count);
    return window;
}

QByteArray formText(const QByteArray& widgetClass, int count) {
    QByteArray text =
        "<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" name=\"Form\">"
        "<layout class=\"QGridLayout\" name=\"grid\">";
    const QByteArray property = widgetClass == "QLabel" ? "text" : "name";
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i);
        text += "<item row=\"" + QByteArray::number(i / columns) + "\" column=\"" + QByteArray::number(i % columns) +
                "\"><widget class=\"" + widgetClass + "\" name=\"w" + number + "\"><property name=\"" + property +
                "\"><string>" + variableName(i) + "</string></property></widget></item>";
    }
    return text + "</layout></widget></ui>";
}

// Loads a form as a display does; the library is loaded before, as it is for any form.
QWidget* loadForm(const QByteArray& widgetClass, int count, double& milliseconds) {
    QUiLoader loader;
    loader.clearPluginPaths();
    loader.addPluginPath(QStringLiteral(PLUGIN_FOLDER));
    QByteArray text = formText(widgetClass, count);
    QBuffer form(&text);
    form.open(QIODevice::ReadOnly);
    QElapsedTimer time;
    time.start();
    QWidget* window = loader.load(&form);
    milliseconds = double(time.nsecsElapsed()) * 1e-6;
    return window;
}

int runWindow(int argc, char** argv) {
    QElapsedTimer sinceStart;
    sinceStart.start();
    const QByteArray kind = argv[2];
    const int count = std::atoi(argv[3]);
    const bool changing = std::strcmp(argv[4], "changing") == 0;
    const int seconds = std::atoi(argv[5]);
    QApplication application(argc, argv);
    inDesigner = false;
    InitializationDone = true;
    double load = 0.0;
    QWidget& window =
        kind.startsWith("form:") ? *loadForm(kind.mid(5), count, load) : *fillWindow(kind, count, changing);
    window.resize(columns * 140, (count / columns) * 75);
    window.show();
    while (!window.isVisible() || !window.windowHandle()->isExposed())
        QApplication::processEvents(QEventLoop::AllEvents, 5);
    QApplication::processEvents();
    const double firstPicture = double(sinceStart.nsecsElapsed()) * 1e-6;
    double before = 0.0;
    QElapsedTimer measured;
    QTimer::singleShot(1000, [&] {
        before = processorSeconds();
        measured.start();
    });
    QTimer::singleShot(1000 + seconds * 1000, [&] { application.quit(); });
    QApplication::exec();
    const double cores = (processorSeconds() - before) / (double(measured.nsecsElapsed()) * 1e-9);
    std::printf("%f %f %f %f\n", cores, residentMemory(), firstPicture, load);
    std::fflush(stdout);
    // The waiting threads of the timers never end by themselves.
    _exit(0);
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

Result medianOf(const std::vector<Result>& runs) {
    const auto pick = [&](double Result::*field) {
        std::vector<double> values;
        for (const Result& run : runs)
            values.push_back(run.*field);
        return median(values);
    };
    return {pick(&Result::cores), pick(&Result::memory), pick(&Result::firstPicture), pick(&Result::load)};
}

Result measure(const QString& program, const QString& kind, int count, bool changing, int seconds) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program,
                  {QStringLiteral("--window"), kind, QString::number(count),
                   changing ? QStringLiteral("changing") : QStringLiteral("steady"), QString::number(seconds)});
    process.waitForFinished(-1);
    const QList<QByteArray> fields = process.readAllStandardOutput().simplified().split(' ');
    return {fields.value(0).toDouble(), fields.value(1).toDouble(), fields.value(2).toDouble(),
            fields.value(3).toDouble()};
}

// The medians of each kind of window; the kinds take turns.
std::vector<Result> measureAll(const QString& program, const QStringList& kinds, int count, bool changing, int seconds,
                               int rounds) {
    std::vector<std::vector<Result>> runs(static_cast<size_t>(kinds.size()));
    for (int round = 0; round < rounds; ++round)
        for (int k = 0; k < kinds.size(); ++k)
            runs[static_cast<size_t>(k)].push_back(measure(program, kinds[k], count, changing, seconds));
    std::vector<Result> medians;
    for (const auto& results : runs)
        medians.push_back(medianOf(results));
    return medians;
}

void compare(const QString& program, int count, bool changing, int seconds, int rounds) {
    const Store store(count, changing);
    const QStringList kinds = {QStringLiteral("labels"), QStringLiteral("edits"), QStringLiteral("values"),
                               QStringLiteral("simple")};
    const char* names[] = {"QLabel", "QLineEdit", "ZelValue", "ZelSimpleValue"};
    const std::vector<Result> results = measureAll(program, kinds, count, changing, seconds, rounds);
    const Result& floor = results.front();
    std::printf("\n%d fields at 10 Hz, %s (median of %d runs of %d s)\n", count,
                changing ? "all changing" : "none changing", rounds, seconds);
    std::printf("%-14s %10s %8s %10s %8s %12s %8s\n", "", "cores", "ratio", "MiB", "ratio", "first ms", "ratio");
    for (size_t k = 0; k < results.size(); ++k) {
        const Result& result = results[k];
        std::printf("%-14s %10.4f %8.2f %10.1f %8.2f %12.1f %8.2f\n", names[k], result.cores,
                    result.cores / floor.cores, result.memory, result.memory / floor.memory, result.firstPicture,
                    result.firstPicture / floor.firstPicture);
    }
    std::fflush(stdout);
}

void compareForms(const QString& program, int count, int rounds) {
    const Store store(count, false);
    const QStringList classes = {QStringLiteral("QLabel"), QStringLiteral("ZelSimpleValue"),
                                 QStringLiteral("ZelValue")};
    QStringList kinds;
    for (const QString& name : classes)
        kinds.append(QStringLiteral("form:") + name);
    const std::vector<Result> results = measureAll(program, kinds, count, false, 0, rounds);
    std::printf("\na form with %d of them (median of %d)\n", count, rounds);
    std::printf("%-14s %10s %8s %12s %8s\n", "", "load ms", "ratio", "first ms", "ratio");
    for (size_t k = 0; k < results.size(); ++k)
        std::printf("%-14s %10.1f %8.2f %12.1f %8.2f\n", qPrintable(classes[static_cast<int>(k)]), results[k].load,
                    results[k].load / results.front().load, results[k].firstPicture,
                    results[k].firstPicture / results.front().firstPicture);
    std::fflush(stdout);
}

}  // namespace

// onscreen [COUNT [SECONDS [ROUNDS]]]
int main(int argc, char** argv) {
    if (argc == 6 && std::strcmp(argv[1], "--window") == 0)
        return runWindow(argc, argv);
    const int count = argc > 1 ? std::atoi(argv[1]) : 1000;
    const int seconds = argc > 2 ? std::atoi(argv[2]) : 5;
    const int rounds = argc > 3 ? std::atoi(argv[3]) : 3;
    const QString program = QString::fromLocal8Bit(argv[0]);
    compare(program, count, true, seconds, rounds);
    compare(program, count, false, seconds, rounds);
    compareForms(program, count, rounds);
    return 0;
}
