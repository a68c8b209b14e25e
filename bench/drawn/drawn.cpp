// What a window full of dials, sliders or lamps costs at 10 Hz, as a ratio to as many widgets that fill a rectangle of
// their size; and what it costs while no value changes, as a ratio to a loop that compares as many values.
//
// Every kind of window runs in a process of its own, which counts its own processor time; that of the X server is not
// counted. The kinds take turns, so that a drift of the machine's speed meets all.
#include <ostrel-display/qled.h>
#include <ostrel-display/qtsvgdialgauge.h>
#include <ostrel-display/slider.h>
#include <sys/resource.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QPainter>
#include <QProcess>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

namespace {

constexpr int period = 100;

struct Kind {
    const char* name;
    int count;
    int columns;
    QSize size;
};

constexpr Kind kinds[] = {
    {"dials", 100, 10, {160, 160}}, {"sliders", 100, 10, {160, 60}}, {"lamps", 500, 25, {40, 40}}};

const Kind& kindOf(const QByteArray& name) {
    return *std::find_if(std::begin(kinds), std::end(kinds), [&](const Kind& kind) { return name == kind.name; });
}

double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& t) { return double(t.tv_sec) + double(t.tv_usec) * 1e-6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

class Rectangle : public QWidget {
public:
    void setValue(double value) {
        if (value == m_value)
            return;
        m_value = value;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(rect(), QColor::fromRgbF(0.2, 0.5, m_value / 100.0));
    }

private:
    double m_value = 0.0;
};

using Show = std::function<void(double)>;

// A dial as the widget library drives it: the arcs of all limits at every tick.
Show makeDial(QWidget*& widget) {
    auto* dial = new QtSvgDialGauge(nullptr);
    dial->setLabel(QStringLiteral("SPEED[RPM]"));
    widget = dial;
    return [dial](double value) {
        const color3 red{1.0, 0.0, 0.0};
        dial->setAllArcs(dial->makeArc(1, red, 0, 15.0), dial->makeArc(1, red, 0, 10.0), dial->makeArc(1, red, 0, 5.0),
                         dial->makeArc(1, red, 1, 85.0), dial->makeArc(1, red, 1, 90.0),
                         dial->makeArc(1, red, 1, 95.0));
        dial->setValue(value);
    };
}

Show makeSlider(QWidget*& widget) {
    auto* slider = new Slider(nullptr);
    widget = slider;
    return [slider](double value) {
        if (value == slider->Value)
            return;
        slider->Value = value;
        slider->update();
    };
}

Show makeLamp(QWidget*& widget) {
    auto* lamp = new QLed(nullptr);
    widget = lamp;
    return [lamp, isOn = false](double) mutable {
        isOn = !isOn;
        lamp->setValue(isOn);
    };
}

Show makeSteadyLamp(QWidget*& widget) {
    auto* lamp = new QLed(nullptr);
    widget = lamp;
    return [lamp](double value) { lamp->setValue(value > 20.0); };
}

Show makeRectangle(QWidget*& widget) {
    auto* rectangle = new Rectangle;
    widget = rectangle;
    return [rectangle](double value) { rectangle->setValue(value); };
}

Show makeOne(const QByteArray& what, bool changing, QWidget*& widget) {
    if (what == "dials")
        return makeDial(widget);
    if (what == "sliders")
        return makeSlider(widget);
    if (what == "lamps")
        return changing ? makeLamp(widget) : makeSteadyLamp(widget);
    return makeRectangle(widget);
}

// drawn --window KIND rectangles|drawn changing|steady SECONDS
int runWindow(int argc, char** argv) {
    const Kind& kind = kindOf(argv[2]);
    const bool drawn = std::strcmp(argv[3], "drawn") == 0;
    const bool changing = std::strcmp(argv[4], "changing") == 0;
    const int seconds = std::atoi(argv[5]);
    QApplication application(argc, argv);
    QWidget window;
    auto* grid = new QGridLayout(&window);
    grid->setSpacing(0);
    grid->setContentsMargins(0, 0, 0, 0);
    std::vector<Show> shows;
    for (int i = 0; i < kind.count; ++i) {
        QWidget* widget = nullptr;
        shows.push_back(makeOne(drawn ? kind.name : "rectangles", changing, widget));
        widget->setFixedSize(kind.size);
        grid->addWidget(widget, i / kind.columns, i % kind.columns);
    }
    window.show();
    while (!window.isVisible() || !window.windowHandle()->isExposed())
        QApplication::processEvents(QEventLoop::AllEvents, 5);
    int tick = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        const double value = changing ? 50.0 + 40.0 * std::sin(++tick * 0.3) : 30.0;
        for (const Show& show : shows)
            show(value);
    });
    timer.start(period);
    double before = 0.0;
    QElapsedTimer measured;
    QTimer::singleShot(1000, [&] {
        before = processorSeconds();
        measured.start();
    });
    QTimer::singleShot(1000 + seconds * 1000, [&] { application.quit(); });
    QApplication::exec();
    const double cores = (processorSeconds() - before) / (double(measured.nsecsElapsed()) * 1e-9);
    std::printf("%.9f\n", cores);
    return 0;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double measure(const QString& program, const char* kind, const char* what, const char* mode, int seconds) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, {QStringLiteral("--window"), QLatin1String(kind), QLatin1String(what), QLatin1String(mode),
                            QString::number(seconds)});
    process.waitForFinished(-1);
    return process.readAllStandardOutput().trimmed().toDouble();
}

void compare(const QString& program, const char* mode, int seconds, int rounds) {
    std::printf("\nwindows at %d Hz, %s (median of %d runs of %d s)\n", 1000 / period, mode, rounds, seconds);
    std::printf("%-14s %8s %14s %14s %8s\n", "", "count", "us per update", "rectangle us", "ratio");
    for (const Kind& kind : kinds) {
        std::vector<double> drawn;
        std::vector<double> plain;
        for (int round = 0; round < rounds; ++round) {
            drawn.push_back(measure(program, kind.name, "drawn", mode, seconds));
            plain.push_back(measure(program, kind.name, "rectangles", mode, seconds));
        }
        const double perUpdate = 1e6 / (kind.count * (1000.0 / period));
        std::printf("%-14s %8d %14.3f %14.3f %8.2f\n", kind.name, kind.count, median(drawn) * perUpdate,
                    median(plain) * perUpdate, median(drawn) / median(plain));
        std::fflush(stdout);
    }
}

}  // namespace

// drawn [SECONDS [ROUNDS]]
int main(int argc, char** argv) {
    if (argc == 6 && std::strcmp(argv[1], "--window") == 0)
        return runWindow(argc, argv);
    const int seconds = argc > 1 ? std::atoi(argv[1]) : 5;
    const int rounds = argc > 2 ? std::atoi(argv[2]) : 3;
    const QString program = QString::fromLocal8Bit(argv[0]);
    compare(program, "changing", seconds, rounds);
    compare(program, "steady", seconds, rounds);
    return 0;
}
