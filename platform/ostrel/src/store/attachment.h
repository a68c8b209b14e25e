// The store that this process uses, as mapped memory.
//
// An Attachment is never destroyed once it was handed out, so every address in it stays good to the end of the process.
// All functions here may be called from any thread. Whatever is read from the shared memory is checked here before it
// becomes an address.
#ifndef OSTREL_STORE_ATTACHMENT_H
#define OSTREL_STORE_ATTACHMENT_H

#include <ostrel/areas.h>
#include <sys/types.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "store/storeobjects.h"
#include "store/writelayout.h"

// Where a record of the store stands.
struct RecordPlace {
    int section;
    int index;
};

// The elements of one array.
struct ElementBlock {
    char* data = nullptr;
    size_t count = 0;
};

class Attachment {
public:
    // `name` is empty for the private store of this process.
    Attachment(StoreObjects objects, std::string name);

    // The header of the store in shared memory. Never null.
    StoreHeader* header() const { return m_header; }

    const StoreObjects& objects() const { return m_objects; }
    const std::string& name() const { return m_name; }
    bool isLive() const {
        return m_header->state.load(std::memory_order_acquire) == Live && !m_abandoned.load(std::memory_order_relaxed);
    }

    // Takes the store for ended, in this process: nobody serves it and its name leads elsewhere.
    void abandon() { m_abandoned.store(true, std::memory_order_relaxed); }

    // Tells this store from every other one that was ever made.
    uint64_t instance() const { return m_instance; }

    // False where this process may only read the store.
    bool isWritable() const { return m_objects.header.isWritable(); }

    // Makes the calling thread the one whose writes are the server's own; isServersThread() is true there.
    void takeServersThread();
    bool isServersThread() const;

    // The memory of the events, formatted by formatEventMemory(); null where it cannot be mapped for writing.
    void* eventMemory() const { return m_objects.events.isWritable() ? m_objects.events.data() : nullptr; }

    // The start of an area; null where the store has no such area.
    char* base(SM_AREA_ID area) const;

    // Bytes of that area, 0 for none.
    size_t areaSize(SM_AREA_ID area) const;

    int capacity(int section) const { return m_capacity[static_cast<size_t>(section)]; }

    // Slots of a section that were ever taken, at most its capacity.
    int used(int section) const;

    // The record in a slot that was taken; null for every other number.
    char* record(int section, int index) const;

    // The place of a record of that kind; nothing for an address that is not the start of one.
    std::optional<RecordPlace> placeOf(const void* record, int kind) const;

    // The elements of the array in that slot of its kind's section.
    ElementBlock elements(int arrayKind, int index) const;

    // The list of writes; null where the store is not whole.
    WriteMemory* writes() const { return reinterpret_cast<WriteMemory*>(m_objects.writes.data()); }

    // What clients may write to the variable in that slot, which is in range.
    WriteRule& rule(int section, int index) const;

    // True for an address in the memory of the elements that leaves room for `size` bytes.
    bool holdsElement(const void* address, size_t size) const;

    // How often this process has linked the area.
    std::atomic<int>& links(SM_AREA_ID area) { return m_links[static_cast<size_t>(area)]; }

private:
    StoreObjects m_objects;
    std::string m_name;
    StoreHeader* m_header;
    uint64_t m_instance;
    std::array<int, storeSections> m_capacity;  // as it was when attaching: the shared words may be overwritten
    std::array<std::atomic<int>, MAX_NUM_SHRD_MEM> m_links{};
    std::array<size_t, storeSections> m_rules{};  // where the rules of each section begin in the object of writes
    std::atomic<pid_t> m_server{0};
    std::atomic<const void*> m_serversThread{nullptr};
    std::atomic<bool> m_abandoned{false};
};

// The store in use, attaching to it where that has become possible; null for no store. Where the store in use has ended
// and another one of its name is there, that one is given from then on. Costs three atomic loads while nothing changes.
Attachment* attachment();

#endif
