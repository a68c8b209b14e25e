// A thread that waits for one named platform event and passes it on to its subscribers.
#ifndef OSTREL_FABRIC_OSTREL_EVENT_H
#define OSTREL_FABRIC_OSTREL_EVENT_H

#include <QByteArray>
#include <QThread>
#include <QVector>
#include <atomic>
#include <cstddef>

class GLOstrelBase;
class OstrelBase;
class OstrelVariableDataInput;

// Made and ended by OstrelEventModerator. The list of subscribers belongs to the GUI thread; status, eventBuffer and
// eventId belong to this one.
class Q_DECL_EXPORT OstrelEvent : public QThread {
    Q_OBJECT

public:
    // `event_data_size` is the size of the payload to take, `num_of_queued_events` the depth of the queue to ask for.
    OstrelEvent(const char* eventName, size_t event_data_size, unsigned short num_of_queued_events,
                QObject* parent = nullptr);
    // The thread must have ended.
    ~OstrelEvent() override;

    // Connects ostrelEvent() to the subscriber's slot of the same name and remembers the subscriber. Null is ignored.
    virtual void addCall(OstrelBase* plugin);
    virtual void addCall(QWidget* plugin);
    virtual void addCall(GLOstrelBase* plugin);

    bool hasPlugin(const QObject* plugin) const;

    void setName(QByteArray& eventName) { name = eventName; }
    QByteArray getName() const { return name; }

Q_SIGNALS:
    // `event_data` is the buffer of the thread itself, which the next event overwrites: a subscriber that is slower
    // than its event may find the later payload there.
    void ostrelEvent(int eventId, const char* event_data, size_t eventDataSize);
    void gblConfigEvent(short newState, short memCode);

protected:
    void run() override;
    // Attaches and emits ostrelEvent() at each event until shutdown().
    virtual void execute();
    void attachToEvent();
    // Ends the thread at the next event it gets.
    void shutdown();

    short int status;
    char* eventBuffer;  // from calloc()
    std::atomic<bool> closeShop;
    size_t eventBufferSize;
    int eventId;
    unsigned short maxNumEvents;
    QByteArray name;
    QVector<QObject*>* plugins;  // owned; addresses only: one that outlived its widget is never followed

private:
    friend class OstrelEventModerator;
    friend struct EventModeration;

    void removePlugin(OstrelBase* plugin);
    void removePlugin(QWidget* plugin);
    void removePlugin(GLOstrelBase* plugin);
    void removePlugin(OstrelVariableDataInput* plugin);
    void add(QObject* plugin);
    void remove(QObject* plugin);
};

#endif
