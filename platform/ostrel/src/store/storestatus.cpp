#include <ostrel/store.h>

#include <algorithm>
#include <string>

#include "ground/fieldtext.h"
#include "ground/monotonic.h"
#include "processidentity.h"
#include "store/currentstore.h"
#include "store/nameindex.h"

namespace {

double secondsSince(int64_t monotonic) {
    return std::max(0.0, static_cast<double>(monotonicNow() - monotonic) * 1e-9);
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
    setText(status.cell_file, fieldText(header.cellFile));
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
    setMessage(message, messageSize, reasons);
    return 2;
}

}  // namespace

int ostrel_store_open(const char* name, const char* cell_file, char* message, size_t message_size) {
    setMessage(message, message_size, "");
    chooseStore(name, cell_file, message && message_size > 0);
    const std::string chosen = storeName();
    const std::string problem = name || !cell_file ? problemOfStoreName(chosen) : "";
    const auto tell = [&](const std::string& reason) {
        if (!reason.empty())
            setMessage(message, message_size, "'" + chosen.substr(0, 80) + "': " + reason);
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
    setText(status->name, storeName());
    if (store)
        describe(*store, *status);
    return status->found;
}
