#include "events/eventregistry.h"

#include <map>
#include <mutex>
#include <vector>

namespace {

struct Registry {
    std::mutex mutex;
    std::map<EventName, int> ids;  // under mutex, as `names`
    std::vector<EventName> names;  // by id - 1
    std::atomic<int> forks = 0;

    Registry();
};

// Never destroyed: threads may still detach while the process ends.
Registry& registry() {
    static Registry& instance = *new Registry;
    return instance;
}

Registry::Registry() {
    pthread_atfork([] { registry().mutex.lock(); }, [] { registry().mutex.unlock(); },
                   [] {
                       ++registry().forks;
                       registry().mutex.unlock();
                   });
}

}  // namespace

int idOfEvent(const EventName& name) {
    Registry& known = registry();
    const std::lock_guard guard(known.mutex);
    const auto found = known.ids.find(name);
    if (found != known.ids.end())
        return found->second;
    known.names.push_back(name);
    const int id = static_cast<int>(known.names.size());
    known.ids.emplace(name, id);
    return id;
}

std::optional<EventName> nameOfEvent(int id) {
    Registry& known = registry();
    const std::lock_guard guard(known.mutex);
    if (id < 1 || static_cast<size_t>(id) > known.names.size())
        return std::nullopt;
    return known.names[static_cast<size_t>(id) - 1];
}

int forkCount() {
    // Relaxed: it changes only in the one thread of a new process.
    return registry().forks.load(std::memory_order_relaxed);
}
