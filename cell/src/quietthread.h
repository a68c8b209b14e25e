// Threads that the cell has for itself.
#pragma once

#include <functional>
#include <thread>

namespace ostrelcell {

// Starts a thread that takes no signals: those are for the threads that the program knows.
std::thread start_quiet_thread(std::function<void()> work);

}  // namespace ostrelcell
