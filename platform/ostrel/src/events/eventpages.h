// Taking the memory of a part of the event memory before it is written to.
#ifndef OSTREL_EVENTS_EVENTPAGES_H
#define OSTREL_EVENTS_EVENTPAGES_H

#include <cstddef>

// Whether `size` bytes from `at` on can be written without running out of memory; they are taken with this. Memory that
// the kernel cannot give kills who writes to it, so it is asked for first. A kernel older than 5.14 cannot be asked:
// then it is always true.
bool takePages(void* at, size_t size);

#endif
