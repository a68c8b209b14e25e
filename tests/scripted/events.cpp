#include "scripted/events.h"

#include <atomic>

namespace scripted {

void Events::addTimer(int period, const QString& name) {
    create(name);
    const std::lock_guard lock(m_mutex);
    m_timers[period] = name;
}

// A number of our own: the system gives the id of an ended thread to another one.
Events::Waiter& Events::self() {
    static std::atomic<int> threads{0};
    thread_local const int number = ++threads;
    return m_waiters[number];
}

void Events::deliver(const QString& name, const Delivery& delivery) {
    const std::lock_guard lock(m_mutex);
    for (auto& [thread, waiter] : m_waiters)
        if (waiter.attached.count(name))
            waiter.pending.push_back(delivery);
    m_arrived.notify_all();
}

void Events::raise(const QString& name, const QByteArray& payload) {
    deliver(name, {0, idOf(name), payload});
}

void Events::raiseForeign(const QString& name, int eid) {
    deliver(name, {0, eid, QByteArray()});
}

void Events::failWaits(const QString& name, const QVector<int>& codes) {
    for (int code : codes)
        deliver(name, {static_cast<short>(code), -1, QByteArray()});
}

int Events::threadsWaiting(const QString& name) {
    const std::lock_guard lock(m_mutex);
    int count = 0;
    for (const auto& [thread, waiter] : m_waiters)
        count += waiter.attached.count(name) && waiter.waiting && waiter.pending.empty();
    return count;
}

int Events::idOf(const QString& name) {
    const std::lock_guard lock(m_mutex);
    const auto found = m_ids.find(name);
    return found == m_ids.end() ? -1 : found->second;
}

bool Events::findTimer(int period, QString* name, int* eid) {
    const std::lock_guard lock(m_mutex);
    const auto found = m_timers.find(period);
    if (found == m_timers.end())
        return false;
    *name = found->second;
    *eid = m_ids[found->second];
    return true;
}

int Events::create(const QString& name) {
    const std::lock_guard lock(m_mutex);
    return m_ids.emplace(name, static_cast<int>(m_ids.size()) + 1).first->second;
}

int Events::attach(const QString& name) {
    const int eid = create(name);
    const std::lock_guard lock(m_mutex);
    self().attached.insert(name);
    return eid;
}

void Events::detach(int eid) {
    const std::lock_guard lock(m_mutex);
    for (const auto& [name, id] : m_ids)
        if (id == eid)
            self().attached.erase(name);
}

short Events::wait(QByteArray* payload, int* eid) {
    std::unique_lock lock(m_mutex);
    Waiter& waiter = self();
    waiter.waiting = true;
    m_arrived.wait(lock, [&] { return !waiter.pending.empty(); });
    waiter.waiting = false;
    const Delivery delivery = waiter.pending.front();
    waiter.pending.pop_front();
    *payload = delivery.payload;
    if (delivery.code == 0)
        *eid = delivery.eid;
    return delivery.code;
}

}  // namespace scripted
