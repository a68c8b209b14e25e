// Threads that the cell has for itself.
#ifndef OSTREL_CELL_QUIETTHREAD_H
#define OSTREL_CELL_QUIETTHREAD_H

#include <functional>
#include <thread>

namespace ostrelcell {

// Starts a thread that takes no signals: those are for the threads that the program knows.
std::thread startQuietThread(std::function<void()> work);

}  // namespace ostrelcell

#endif
