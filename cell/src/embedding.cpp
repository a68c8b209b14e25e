#include "embedding.h"

#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <thread>

#include "ground/quietthread.h"
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

void scanUntilEnd(Embedded& cell) {
    std::unique_lock lock(cell.mutex);
    while (!cell.ending) {
        lock.unlock();
        const std::chrono::nanoseconds wait(cell.cell->step());
        lock.lock();
        cell.wake.wait_for(lock, wait, [&cell] { return cell.ending; });
    }
}

void endWithProcess() {
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

}  // namespace

bool embedCell(const std::string& file, std::string& reasons) {
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
    std::atexit(endWithProcess);
    embedded->thread = startQuietThread([] { scanUntilEnd(*embedded); });
    return true;
}

}  // namespace ostrelcell
