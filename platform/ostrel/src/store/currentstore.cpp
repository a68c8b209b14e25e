#include "store/currentstore.h"

#include <dlfcn.h>
#include <ostrel/log.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <mutex>
#include <utility>

#include "ground/fieldtext.h"

namespace {

// What an attachment in use hangs on. The list only grows: addresses that were handed out stay good.
struct Link {
    std::unique_ptr<Attachment> attachment;
    const Link* older;
};

// `current` and `newest` are read without the lock, released by who writes them; all else is guarded by it.
struct Choice {
    std::mutex mutex;
    std::atomic<Attachment*> current{nullptr};
    std::atomic<const Link*> newest{nullptr};
    std::optional<std::string> name;
    std::optional<std::string> cellFile;
    bool embeddingTried = false;
    std::string problem;  // that the last look found
    bool callerTells = false;
    void* reconfigPage = nullptr;
};

Choice& choice() {
    // Never destroyed: threads may still use the store while the process ends.
    static auto* const theChoice = new Choice;
    return *theChoice;
}

std::string environment(const char* variable) {
    const char* value = std::getenv(variable);
    return value ? value : "";
}

std::string chosenName(const Choice& c) {
    if (c.name)
        return *c.name;
    const std::string name = environment("OSTREL_STORE");
    return name.empty() ? "cell" : name;
}

std::string chosenCellFile(const Choice& c) {
    return c.name || c.cellFile ? c.cellFile.value_or("") : environment("OSTREL_CELL");
}

size_t pageSize() {
    static const auto size = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    return size;
}

void showCounters(Choice& c, const Attachment& used) {
    if (c.reconfigPage)
        used.objects().header.mapOver(c.reconfigPage, reconfigOffset, pageSize());
}

Attachment* use(Choice& c, std::unique_ptr<Attachment> fresh) {
    Attachment* used = fresh.get();
    c.newest.store(new Link{std::move(fresh), c.newest.load(std::memory_order_relaxed)}, std::memory_order_release);
    c.current.store(used, std::memory_order_release);
    showCounters(c, *used);
    return used;
}

void noteProblem(Choice& c, const std::string& name, const std::string& problem) {
    const bool isTold = problem == std::exchange(c.problem, problem) || std::exchange(c.callerTells, false);
    if (!isTold && !problem.empty())
        log_error(__FILE__, __LINE__, 1, 0, "store %s: %s", name.c_str(), problem.c_str());
}

bool refuses(Choice& c, const std::string& name) {
    const std::string problem = problemOfStoreName(name);
    if (!problem.empty())
        noteProblem(c, name, problem);
    return !problem.empty();
}

std::unique_ptr<Attachment> openStore(Choice& c, const std::string& name) {
    std::string problem;
    StoreObjects objects;
    const StoreLook look = openStoreObjects(objects, name, problem);
    noteProblem(c, name, look == StoreLook::Absent ? "" : problem);
    return look == StoreLook::Usable ? std::make_unique<Attachment>(std::move(objects), name) : nullptr;
}

// Set while this thread looks for the store, so that a log line about it does not look for it again.
thread_local bool isAttaching = false;

struct Attaching {
    Attaching() { isAttaching = true; }
    ~Attaching() { isAttaching = false; }
    Attaching(const Attaching&) = delete;
    Attaching& operator=(const Attaching&) = delete;
};

void embedOnce(std::unique_lock<std::mutex>& lock, Choice& c, const std::string& cellFile) {
    c.embeddingTried = true;
    // The cell calls this library while it starts, from threads of its own as well.
    lock.unlock();
    char message[4096] = "";
    if (embedCell(cellFile, message, sizeof message) != 0)
        log_error(__FILE__, __LINE__, 1, 0, "%s: cannot be served: %s", cellFile.c_str(), message);
    lock.lock();
}

enum class Embedding { Allowed, Forbidden };

Attachment* attachSlowly(Embedding embedding) {
    Choice& c = choice();
    if (isAttaching)
        return c.current.load(std::memory_order_acquire);
    const Attaching attaching;
    std::unique_lock lock(c.mutex);
    Attachment* current = c.current.load(std::memory_order_relaxed);
    if (current && current->isLive())
        return current;
    // Whoever asked for something that cannot be had gets that and no other store.
    const std::string name = chosenName(c);
    if (c.cellFile || refuses(c, name))
        return current;
    if (std::unique_ptr<Attachment> fresh = openStore(c, name))
        return use(c, std::move(fresh));
    const std::string cellFile = chosenCellFile(c);
    if (embedding == Embedding::Allowed && !current && !cellFile.empty() && !c.embeddingTried)
        embedOnce(lock, c, cellFile);
    return c.current.load(std::memory_order_relaxed);
}

std::string folderOfThisLibrary() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&embedCell), &info) == 0 || !info.dli_fname)
        return "";
    const std::string path = info.dli_fname;
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? "" : path.substr(0, slash + 1);
}

}  // namespace

Attachment* attachment() {
    Attachment* current = knownAttachment();
    return current && current->isLive() ? current : attachSlowly(Embedding::Allowed);
}

Attachment* runningStore() {
    Attachment* current = knownAttachment();
    return current && current->isLive() ? current : attachSlowly(Embedding::Forbidden);
}

Attachment* knownAttachment() {
    return choice().current.load(std::memory_order_acquire);
}

Attachment* useAttachment(std::unique_ptr<Attachment> served) {
    Choice& c = choice();
    const std::lock_guard lock(c.mutex);
    if (!served->name().empty())
        c.name = served->name();
    return use(c, std::move(served));
}

Attachment* ownerOfRecord(const void* record, int kind, RecordPlace& place) {
    for (const Link* link = choice().newest.load(std::memory_order_acquire); link; link = link->older) {
        if (const auto found = link->attachment->placeOf(record, kind)) {
            place = *found;
            return link->attachment.get();
        }
    }
    return nullptr;
}

Attachment* ownerOfElement(const void* address, size_t size) {
    for (const Link* link = choice().newest.load(std::memory_order_acquire); link; link = link->older)
        if (link->attachment->holdsElement(address, size))
            return link->attachment.get();
    return nullptr;
}

void chooseStore(const char* name, const char* cellFile, bool callerTells) {
    Choice& c = choice();
    const std::lock_guard lock(c.mutex);
    c.problem.clear();
    c.callerTells = callerTells;
    c.name = name ? std::optional<std::string>(name) : std::nullopt;
    c.cellFile = cellFile ? std::optional<std::string>(cellFile) : std::nullopt;
    const Attachment* current = c.current.load(std::memory_order_relaxed);
    if (current && (cellFile || current->name().empty() || current->name() != chosenName(c)))
        c.current.store(nullptr, std::memory_order_release);
    // The caller embeds the cell itself, and hears of a failure.
    c.embeddingTried = c.embeddingTried || cellFile;
}

std::string problemOfStore() {
    Choice& c = choice();
    const std::lock_guard lock(c.mutex);
    return c.problem;
}

std::string storeName() {
    Choice& c = choice();
    const std::lock_guard lock(c.mutex);
    const Attachment* current = c.current.load(std::memory_order_relaxed);
    return current && !current->name().empty() ? current->name() : chosenName(c);
}

void* reconfigPage() {
    Choice& c = choice();
    const std::lock_guard lock(c.mutex);
    if (c.reconfigPage)
        return c.reconfigPage;
    void* page = mmap(nullptr, pageSize(), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    static char lastResort[sizeof(uint64_t) * 8];
    if (page == MAP_FAILED)
        return lastResort;
    c.reconfigPage = page;
    if (const Attachment* current = c.current.load(std::memory_order_relaxed))
        showCounters(c, *current);
    return page;
}

int embedCell(const std::string& cellFile, char* message, size_t messageSize) {
    using Embed = int (*)(const char*, char*, size_t);
    const std::string name = "libostrelcell.so.1";
    void* library = dlopen((folderOfThisLibrary() + name).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library)
        library = dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL);
    const auto embed = library ? reinterpret_cast<Embed>(dlsym(library, "ostrel_cell_embed")) : nullptr;
    if (!embed) {
        const char* reason = dlerror();
        setMessage(message, messageSize, name + ": " + (reason ? reason : "has no ostrel_cell_embed"));
        return 1;
    }
    return embed(cellFile.c_str(), message, messageSize);
}
