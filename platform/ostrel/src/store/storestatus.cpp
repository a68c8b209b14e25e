#include <ostrel/store.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>

#include "processidentity.h"
#include "store/currentstore.h"
#include "store/nameindex.h"

namespace {

template <size_t size>
void copyText(char (&to)[size], const char* from) {
    const size_t length = strnlen(from, size - 1);
    std::memcpy(to, from, length);
    to[length] = '\0';
}

double secondsSince(int64_t monotonic) {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const double age = static_cast<double>(now.tv_sec * 1000000000 + now.tv_nsec - monotonic) * 1e-9;
    return std::max(0.0, age);
}

bool isServed(const Attachment& store) {
    const StoreHeader& header = *store.header();
    const pid_t pid = header.serverPid.load(std::memory_order_acquire);
    const uint64_t start = processStart(pid);
    return store.isLive() && start != 0 && start == header.serverStart.load(std::memory_order_acquire);
}

// The store in use. One whose objects were removed behind its back looks live for ever, so its name is tried here.
Attachment* attachmentByName() {
    Attachment* store = attachment();
    if (!store || store->name().empty() || isServed(*store) ||
        store->objects().header.isNamed(headerObject(store->name())))
        return store;
    store->abandon();
    return attachment();
}

void describe(const Attachment& store, ostrel_store_status& status) {
    const StoreHeader& header = *store.header();
    status.found = 1;
    status.embedded = store.name().empty();
    status.alive = isServed(store);
    copyText(status.cell_file, header.cellFile);
    status.server_pid = header.serverPid.load(std::memory_order_acquire);
    status.instance = store.instance();
    status.generation = header.generation;
    status.heartbeat_age_s = secondsSince(header.heartbeat.load(std::memory_order_acquire));
    status.variables = static_cast<int>(knownNames(store.objects()));
}

int openEmbedded(const char* cellFile, char* message, size_t messageSize) {
    char reasons[4096] = "";
    if (embedCell(cellFile, reasons, sizeof reasons) == 0)
        return 0;
    if (message && messageSize > 0)
        snprintf(message, messageSize, "%s", reasons);
    return 2;
}

}  // namespace

int ostrel_store_open(const char* name, const char* cell_file, char* message, size_t message_size) {
    if (message && message_size > 0)
        message[0] = '\0';
    chooseStore(name, cell_file, message && message_size > 0);
    const std::string chosen = storeName();
    const std::string problem = name || !cell_file ? problemOfStoreName(chosen) : "";
    const auto tell = [&](const std::string& reason) {
        if (message && message_size > 0 && !reason.empty())
            snprintf(message, message_size, "'%.80s': %s", chosen.c_str(), reason.c_str());
    };
    if (!problem.empty()) {
        tell(problem);
        return 3;
    }
    if (cell_file)
        return openEmbedded(cell_file, message, message_size);
    if (attachment())
        return 0;
    tell(problemOfStore());
    return 1;
}

int ostrel_store_get_status(ostrel_store_status* status) {
    const Attachment* store = attachmentByName();
    if (!status)
        return store != nullptr;
    *status = {};
    status->heartbeat_age_s = -1;
    copyText(status->name, storeName().c_str());
    if (store)
        describe(*store, *status);
    return status->found;
}
