#include <ostrel/records.h>
#include <ostrel/store.h>

#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "store/arrayshape.h"
#include "store/currentstore.h"

namespace {

uint64_t blockHash(std::string_view name) {
    uint64_t hash = 0xcbf29ce484222325;
    for (const char c : name)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    return hash == 0 ? 1 : hash;
}

// Blocks are claimed in their order, each by one exchange of a word: two processes that ask for the same name get the
// same block, and one that dies on the way leaves nothing half-made.
void* sharedBlock(const Attachment& store, std::string_view name, size_t size) {
    const uint64_t hash = blockHash(name);
    auto& claims = store.header()->privateBlocks;
    for (size_t i = 0; i < privateBlockCount; ++i) {
        uint64_t owner = claims[i].load(std::memory_order_acquire);
        if (owner == 0 && store.isWritable() && claims[i].compare_exchange_strong(owner, hash))
            owner = hash;
        if (owner != hash)
            continue;
        const SharedObject& blocks = store.objects().blocks;
        const size_t start = i * privateBlockBytes;
        if (size > 0 && store.isWritable() && blocks.reserve(start, size))
            return nullptr;
        return blocks.data() + start;
    }
    return nullptr;
}

struct Free {
    void operator()(void* block) const { std::free(block); }
};

void* blockOfThisProcess(std::string_view name) {
    static std::mutex mutex;
    static auto* const blocks = new std::map<std::string, std::unique_ptr<void, Free>, std::less<>>;
    const std::lock_guard lock(mutex);
    const auto found = blocks->find(name);
    if (found != blocks->end())
        return found->second.get();
    void* block = std::calloc(1, privateBlockBytes);
    blocks->emplace(std::string(name), block);
    return block;
}

void* areaBase(int area, size_t size, Attachment*& store) {
    store = attachment();
    if (!store || area <= 0 || area >= MAX_NUM_SHRD_MEM)
        return nullptr;
    const auto id = static_cast<SM_AREA_ID>(area);
    return size <= store->areaSize(id) ? store->base(id) : nullptr;
}

}  // namespace

int ostrel_section_capacity(SM_AREA_ID area, SM_VARI_TYPE kind) {
    const Attachment* store = attachment();
    const int section = sectionNumber(area, kind);
    return store && section >= 0 ? store->capacity(section) : 0;
}

int ostrel_section_used(SM_AREA_ID area, SM_VARI_TYPE kind) {
    const Attachment* store = attachment();
    const int section = sectionNumber(area, kind);
    return store && section >= 0 ? store->used(section) : 0;
}

void* get_private_shrd_mem(char* name, size_t size) {
    if (!name || size > privateBlockBytes)
        return nullptr;
    const Attachment* store = attachment();
    if (std::string_view(name) == "reconfig_data" && size <= sizeof(RECONFIG_DATA))
        return reconfigPage();
    void* block = store ? sharedBlock(*store, name, size) : nullptr;
    return block ? block : blockOfThisProcess(name);
}

void* _MEMORY_LINK_SIZE(const char* name, size_t* size) {
    SHARED_MEMORY mem{};
    if (!name || find_variable(const_cast<char*>(name), &mem) != 0 || !isArray(mem.vari_type))
        return nullptr;
    const Attachment* store = attachment();
    const ElementBlock block = store ? store->elements(mem.vari_type, mem.index) : ElementBlock{};
    if (block.data && size)
        *size = block.count * elementSize(mem.vari_type);
    return block.data;
}

void* link_to_array_mem(char* name, size_t* size) {
    SHARED_MEMORY mem{};
    if (!name || find_variable(name, &mem) != 0 || mem.member_adr)
        return nullptr;
    return _MEMORY_LINK_SIZE(name, size);
}

short int link_to_memory(short int area, void** base) {
    Attachment* store = nullptr;
    void* start = base ? areaBase(area, 0, store) : nullptr;
    if (!start)
        return 1;
    store->links(static_cast<SM_AREA_ID>(area)).fetch_add(1, std::memory_order_relaxed);
    *base = start;
    return 0;
}

short int shrd_mem_in_use(SM_AREA_ID area) {
    Attachment* store = nullptr;
    return areaBase(area, 0, store) && store->links(area).load(std::memory_order_relaxed) > 0;
}

void* get_shrd_mem(SM_AREA_ID area, size_t size) {
    Attachment* store = nullptr;
    void* start = areaBase(area, size, store);
    if (start)
        store->links(area).fetch_add(1, std::memory_order_relaxed);
    return start;
}

void fre_shrd_mem(SM_AREA_ID area) {
    Attachment* store = nullptr;
    if (!areaBase(area, 0, store))
        return;
    std::atomic<int>& links = store->links(area);
    int count = links.load(std::memory_order_relaxed);
    while (count > 0 && !links.compare_exchange_weak(count, count - 1, std::memory_order_relaxed)) {
    }
}
