// A store of a benchmark's own, served by a process of its own as in the test cell.
#ifndef OSTREL_BENCH_SERVEDSTORE_H
#define OSTREL_BENCH_SERVEDSTORE_H

#include <sys/types.h>

#include <cstddef>
#include <string>

// The names of the variables that a store of `count` variables has, in the order of their slots.
std::string servedName(size_t index);

class ServedStore {
public:
    // Starts the server and makes its store the one that this process uses. Before any other use of the platform:
    // the server is a fork of this process. Ends the program where it cannot.
    ServedStore();

    // Ends the server, and with it the store.
    ~ServedStore();
    ServedStore(const ServedStore&) = delete;
    ServedStore& operator=(const ServedStore&) = delete;

    // Lets the store have that many variables, at most 100,000, and waits until it has.
    void serve(size_t count);

private:
    pid_t m_server = -1;
    int m_wishes = -1;   // write: number of variables
    int m_answers = -1;  // read: the number that is served
};

#endif
