// A view that follows a file which another process writes: the longest time in which the event loop did nothing else,
// processor time and memory, for lines that come faster and faster, and for each of the odd files.
#include <ostrel-display/tailwidget.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <functional>
#include <string>

namespace {

constexpr int seconds = 6;

double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto inSeconds = [](const timeval& t) { return double(t.tv_sec) + double(t.tv_usec) * 1e-6; };
    return inSeconds(usage.ru_utime) + inSeconds(usage.ru_stime);
}

double residentMemory() {
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0.0;
    return file.readAll().split(' ').value(1).toDouble() * double(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

// Appends so many lines of that length each second, in a hundred portions, until it is killed.
[[noreturn]] void write(const QByteArray& path, int linesPerSecond, int length) {
    FILE* file = std::fopen(path.constData(), "a");
    long number = 0;
    for (;;) {
        for (int i = 0; i < linesPerSecond / 100; ++i)
            std::fprintf(file, "%010ld %s\n", ++number, std::string(static_cast<size_t>(length), 'x').c_str());
        std::fflush(file);
        usleep(10000);
    }
}

// The time between two turns of the event loop, on the clock and on the processor: the former is the longer one on a
// machine that has other work too.
class Gaps {
public:
    Gaps() {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { turn(); });
        m_since.start();
        m_spent = threadMs();
        m_timer.start(0);
    }
    double longest() const { return m_longest; }
    double mostSpent() const { return m_mostSpent; }

private:
    static double threadMs() {
        timespec now{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
        return double(now.tv_sec) * 1e3 + double(now.tv_nsec) * 1e-6;
    }
    void turn() {
        const double spent = threadMs();
        m_longest = std::max(m_longest, double(m_since.nsecsElapsed()) * 1e-6);
        m_mostSpent = std::max(m_mostSpent, spent - m_spent);
        m_spent = spent;
        m_since.start();
    }

    QTimer m_timer;
    QElapsedTimer m_since;
    double m_longest = 0.0;
    double m_mostSpent = 0.0;
    double m_spent = 0.0;
};

void runFor(int ms) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

void tell(const char* name, const Gaps& gaps, double cores) {
    std::printf("tail       %-30s gap %6.1f ms, at work %6.1f ms %6.1f %% of a core %6.1f MiB\n", name, gaps.longest(),
                gaps.mostSpent(), cores * 100, residentMemory());
    std::fflush(stdout);
}

// What the view itself takes, without the timer that looks for gaps; and then the gaps.
void follow(const char* name, const QString& path, const std::function<void(TailWidget*)>& during = {}) {
    TailWidget tail(nullptr);
    tail.resize(900, 600);
    tail.show();
    tail.setFileName(path);
    runFor(1500);
    const double before = processorSeconds();
    runFor(seconds * 1000);
    const double cores = (processorSeconds() - before) / seconds;
    const Gaps gaps;
    tail.setFileName(path);
    if (during)
        during(&tail);
    runFor(seconds * 1000);
    tell(name, gaps, cores);
}

void followWriter(const char* name, int linesPerSecond, int length,
                  const std::function<void(TailWidget*)>& during = {}) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("growing.log");
    const pid_t writer = fork();
    if (writer == 0)
        write(QFile::encodeName(path), linesPerSecond, length);
    follow(name, path, during);
    kill(writer, SIGKILL);
    waitpid(writer, nullptr, 0);
}

// A file that is odd from the beginning, and gets the same once more.
void followFile(const char* name, const std::function<void(QFile*)>& fill) {
    const QTemporaryDir folder;
    QFile file(folder.filePath("odd.log"));
    const auto fillBeside = [&] {
        if (fork() > 0)
            return;
        if (file.open(QIODevice::WriteOnly | QIODevice::Append))
            fill(&file);
        file.close();
        _exit(0);
    };
    fillBeside();
    wait(nullptr);
    follow(name, file.fileName(), [&](TailWidget* tail) { QTimer::singleShot(1000, tail, fillBeside); });
    wait(nullptr);
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    followWriter("100 lines/s", 100, 80);
    followWriter("10,000 lines/s", 10000, 80);
    followWriter("10,000 lines/s, wrapped", 10000, 200, [](TailWidget* tail) { tail->setWrapText(true); });
    followWriter("10,000 lines/s, after a pause", 10000, 80, [](TailWidget* tail) {
        tail->pause(true);
        QTimer::singleShot(3000, tail, [tail] { tail->pause(false); });
    });
    followWriter("100,000 lines/s", 100000, 80);
    followWriter("2,000 lines/s of 3,000 bytes", 2000, 3000);
    followFile("2 GiB of nothing", [](QFile* file) { file->resize(file->size() + (2LL << 30)); });
    followFile("a line of 10 MiB", [](QFile* file) { file->write(QByteArray(10 << 20, 'x') + '\n'); });
    followFile("4 MiB of no UTF-8", [](QFile* file) {
        QByteArray bytes(4 << 20, '\xFE');
        for (int i = 0; i < bytes.size(); i += 97)
            bytes[i] = i % 3 == 0 ? '\n' : '\0';
        file->write(bytes);
    });
    return 0;
}
