#include "server/linefile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <condition_variable>
#include <cstdio>
#include <cstring>
#include <deque>
#include <mutex>
#include <utility>

#include "ground/quietthread.h"
#include "ground/regularfile.h"
#include "server/linetime.h"

namespace {

constexpr size_t mostWaiting = size_t{4} << 20;
constexpr int mostFormer = 9;
constexpr std::chrono::seconds timeToEnd{3};
constexpr std::chrono::seconds betweenTries{1};

struct Place {
    std::string path;
    size_t mostBytes = 0;
};

struct Lines {
    std::string text;
    uint64_t count = 0;
    std::function<void()> written;
};

void moveFormer(const std::string& path) {
    const auto former = [&](int number) { return path + "." + std::to_string(number); };
    for (int number = mostFormer; number > 1; --number)
        std::rename(former(number - 1).c_str(), former(number).c_str());
    std::rename(path.c_str(), former(1).c_str());
}

std::string appendTo(int fd, const std::string& text) {
    struct stat before {};
    if (fstat(fd, &before) != 0)
        return std::strerror(errno);
    const int error = writeAll(fd, text);
    if (error == 0)
        return "";
    // The next try writes all of it again: no half lines, no lines twice.
    [[maybe_unused]] const int cut = ftruncate(fd, before.st_size);
    return std::strerror(error);
}

// Empty, or why the lines are not in the file.
std::string appendTo(const Place& place, const std::string& text) {
    std::string problem;
    struct stat status {};
    if (place.mostBytes > 0 && lstat(place.path.c_str(), &status) == 0 && status.st_size > 0 &&
        static_cast<size_t>(status.st_size) + text.size() > place.mostBytes)
        moveFormer(place.path);
    const int fd = openRegularFile(place.path, O_WRONLY | O_APPEND | O_CREAT, 0640, Trust::Own, problem);
    if (fd < 0)
        return problem;
    problem = appendTo(fd, text);
    close(fd);
    return problem;
}

}  // namespace

struct LineFile::State {
    mutable std::mutex mutex;  // guards what follows
    std::condition_variable wake;
    std::condition_variable progress;
    std::string what;
    Place place;
    std::deque<Lines> waiting;
    size_t waitingBytes = 0;
    uint64_t dropped = 0;
    std::string problem;
    bool isEnding = false;
    bool hasEnded = false;

    void run();
    void writeFirst(std::unique_lock<std::mutex>& lock);
};

// The lines stay first in the queue until they are in the file.
void LineFile::State::writeFirst(std::unique_lock<std::mutex>& lock) {
    const Place to = place;
    const uint64_t missing = dropped;
    const std::string text = (missing == 0 ? "" : missingLines(missing, what)) + waiting.front().text;
    lock.unlock();
    std::string why = appendTo(to, text);
    lock.lock();
    problem = std::move(why);
    if (problem.empty()) {
        dropped -= missing;
        waitingBytes -= waiting.front().text.size();
        waiting.front().written();
        waiting.pop_front();
    }
    progress.notify_all();
}

void LineFile::State::run() {
    std::unique_lock lock(mutex);
    for (;;) {
        wake.wait(lock, [this] { return isEnding || !waiting.empty(); });
        if (waiting.empty())
            break;
        writeFirst(lock);
        if (problem.empty())
            continue;
        if (isEnding)
            break;
        wake.wait_for(lock, betweenTries);
    }
    hasEnded = true;
    progress.notify_all();
}

LineFile::LineFile(std::string what) : m_state(std::make_shared<State>()) {
    m_state->what = std::move(what);
    startQuietThread([state = m_state] { state->run(); }).detach();
}

LineFile::~LineFile() {
    std::unique_lock lock(m_state->mutex);
    m_state->isEnding = true;
    m_state->wake.notify_all();
    m_state->progress.wait_for(lock, timeToEnd, [this] { return m_state->hasEnded; });
}

void LineFile::setPlace(const std::string& path, size_t mostBytes) {
    const std::lock_guard lock(m_state->mutex);
    if (path != m_state->place.path)
        m_state->problem.clear();
    m_state->place = {path, mostBytes};
}

void LineFile::append(std::string lines, uint64_t count, std::function<void()> written) {
    const std::lock_guard lock(m_state->mutex);
    if (m_state->waitingBytes + lines.size() > mostWaiting) {
        m_state->dropped += count;
        written();
    } else {
        m_state->waitingBytes += lines.size();
        m_state->waiting.push_back({std::move(lines), count, std::move(written)});
    }
    m_state->wake.notify_all();
}

std::string LineFile::problem() const {
    const std::lock_guard lock(m_state->mutex);
    return m_state->problem;
}

bool LineFile::flush(std::chrono::milliseconds limit) {
    std::unique_lock lock(m_state->mutex);
    // A failure of long ago is none of now.
    m_state->problem.clear();
    m_state->wake.notify_all();
    m_state->progress.wait_for(lock, limit, [this] { return m_state->waiting.empty() || !m_state->problem.empty(); });
    return m_state->waiting.empty();
}
