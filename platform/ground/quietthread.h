// Threads that a library has for itself.
#ifndef OSTREL_GROUND_QUIETTHREAD_H
#define OSTREL_GROUND_QUIETTHREAD_H

#include <functional>
#include <thread>

// Starts a thread that takes no signals: those are for the threads that the program knows.
std::thread startQuietThread(std::function<void()> work);

#endif
