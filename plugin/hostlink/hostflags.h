// The host's flags as a waiting thread reads them: the GUI thread may set them at any moment.
#ifndef OSTREL_HOSTLINK_HOSTFLAGS_H
#define OSTREL_HOSTLINK_HOSTFLAGS_H

#include <atomic>

#include "hostlink/globals.h"

// What the host did to the store before it said so is seen by the thread that reads this.
inline bool storeIsReady() {
    return std::atomic_ref<bool>(InitializationDone).load(std::memory_order_acquire);
}

inline bool formIsBeingDesigned() {
    return std::atomic_ref<bool>(inDesigner).load(std::memory_order_relaxed);
}

#endif
