#include "events/eventpages.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>

bool takePages(void* at, size_t size) {
    static const auto page = static_cast<uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto start = reinterpret_cast<uintptr_t>(at) / page * page;
    const uintptr_t length = reinterpret_cast<uintptr_t>(at) + size - start;
    int result = 0;
    do
        result = madvise(reinterpret_cast<void*>(start), length, MADV_POPULATE_WRITE);
    while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL;
}
