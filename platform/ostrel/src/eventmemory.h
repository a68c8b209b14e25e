// The memory of the events as the store sees it: bytes that lie in a shared object of their own.
#pragma once

#include <cstddef>

namespace ostrel {

// Bytes that the events of one store need.
size_t eventMemorySize();

// Makes zeroed memory of that size ready for use, before any other process can see it.
void formatEventMemory(void* memory);

}  // namespace ostrel
