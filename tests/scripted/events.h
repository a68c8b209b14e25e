// The events of the scripted platform, and the threads that wait for them.
#ifndef OSTREL_TESTS_SCRIPTED_EVENTS_H
#define OSTREL_TESTS_SCRIPTED_EVENTS_H

#include <QByteArray>
#include <QString>
#include <QVector>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <set>

namespace scripted {

// A waiting thread gets only what a test sends it: nothing comes by itself, and a wait without anything never ends.
class Events {
public:
    // The platform has a timer of that period, under that name.
    void addTimer(int period, const QString& name);

    // Sends the event to all threads that are attached to it.
    void raise(const QString& name, const QByteArray& payload = QByteArray());
    // Sends the threads that are attached to the event another one, with that id.
    void raiseForeign(const QString& name, int eid);
    // Lets the waits of the threads that are attached to the event fail with these codes, one after the other.
    void failWaits(const QString& name, const QVector<int>& codes);

    // How many threads are attached to the event, wait, and have nothing left to get.
    int threadsWaiting(const QString& name);
    int idOf(const QString& name);

    // What the platform's functions do.
    bool findTimer(int period, QString* name, int* eid);
    int create(const QString& name);
    int attach(const QString& name);
    void detach(int eid);
    short wait(QByteArray* payload, int* eid);

private:
    struct Delivery {
        short code;
        int eid;
        QByteArray payload;
    };
    struct Waiter {
        std::set<QString> attached;
        std::deque<Delivery> pending;
        bool waiting = false;
    };

    Waiter& self();
    void deliver(const QString& name, const Delivery& delivery);

    std::mutex m_mutex;
    std::condition_variable m_arrived;
    std::map<QString, int> m_ids;
    std::map<int, QString> m_timers;
    std::map<int, Waiter> m_waiters;  // by thread
};

}  // namespace scripted

#endif
