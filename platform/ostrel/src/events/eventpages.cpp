#include "events/eventpages.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>

bool takePages(void* at, size_t size) {
    static const auto page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    char* const first = static_cast<char*>(at);
    const size_t before = reinterpret_cast<uintptr_t>(first) % page;
    int result = 0;
    do
        result = madvise(first - before, before + size, MADV_POPULATE_WRITE);
    while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL;
}
