#include "embedding.h"

#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdlib>
#include <mutex>
#include <thread>

#include "servedcell.h"

namespace ostrelcell {

namespace {

struct Embedded {
    std::mutex mutex;
    std::condition_variable wake;
    bool ending = false;  // guarded by the mutex
    std::unique_ptr<ServedCell> cell;
    std::thread thread;
    pid_t process = 0;
};

// Stays to the end of the process, whose other threads may look at the store until then.
Embedded* embedded = nullptr;

void scan_until_end(Embedded& cell) {
    std::unique_lock lock(cell.mutex);
    while (!cell.ending) {
        lock.unlock();
        const std::chrono::nanoseconds wait(cell.cell->step());
        lock.lock();
        cell.wake.wait_for(lock, wait, [&cell] { return cell.ending; });
    }
}

void end_with_process() {
    // A forked child has the memory but not the thread.
    if (embedded == nullptr || embedded->process != getpid())
        return;
    {
        const std::lock_guard lock(embedded->mutex);
        embedded->ending = true;
    }
    embedded->wake.notify_all();
    if (embedded->thread.joinable())
        embedded->thread.join();
    embedded->cell.reset();
}

// Signals are for the threads that the program knows.
void start_thread(Embedded& cell) {
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    cell.thread = std::thread([&cell] { scan_until_end(cell); });
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

}  // namespace

bool embed_cell(const std::string& file, std::string& reasons) {
    if (embedded != nullptr) {
        reasons = "this process has a cell already";
        return false;
    }
    auto cell = ServedCell::open(file, nullptr, reasons);
    if (!cell)
        return false;
    embedded = new Embedded;
    embedded->cell = std::move(cell);
    embedded->process = getpid();
    std::atexit(end_with_process);
    start_thread(*embedded);
    return true;
}

}  // namespace ostrelcell
