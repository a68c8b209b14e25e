#include "fabric/ostrel_event.h"

#include <ostrel/events.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QDebug>
#include <QMutex>
#include <QMutexLocker>
#include <cstdlib>

#include "core/glostrelbase.h"
#include "core/ostrelbase.h"
#include "fabric/ostrelvariabledatainput.h"
#include "fabric/waitingloop.h"

// Two threads never attach at once.
Q_DECL_EXPORT QMutex OstrelEventMutex;

OstrelEvent::OstrelEvent(const char* eventName, size_t event_data_size, unsigned short num_of_queued_events,
                         QObject* parent)
    : QThread(parent),
      status(0),
      eventBuffer(static_cast<char*>(calloc(1, event_data_size))),
      closeShop(false),
      eventBufferSize(event_data_size),
      eventId(-1),
      maxNumEvents(num_of_queued_events),
      name(eventName),
      plugins(new QVector<QObject*>) {
    qRegisterMetaType<size_t>("size_t");
}

OstrelEvent::~OstrelEvent() {
    free(eventBuffer);
    delete plugins;
}

// By name, since a subscriber that is no bound widget brings the slot with its own class.
void OstrelEvent::add(QObject* plugin) {
    if (!plugin)
        return;
    connect(this, SIGNAL(ostrelEvent(int, const char*, size_t)), plugin, SLOT(ostrelEvent(int, const char*, size_t)));
    plugins->append(plugin);
}

void OstrelEvent::remove(QObject* plugin) {
    if (!hasPlugin(plugin))
        return;
    disconnect(this, nullptr, plugin, nullptr);
    plugins->removeAll(plugin);
}

void OstrelEvent::addCall(OstrelBase* plugin) {
    add(plugin);
}

void OstrelEvent::addCall(QWidget* plugin) {
    add(plugin);
}

void OstrelEvent::addCall(GLOstrelBase* plugin) {
    add(plugin);
}

void OstrelEvent::removePlugin(OstrelBase* plugin) {
    remove(plugin);
}

void OstrelEvent::removePlugin(QWidget* plugin) {
    remove(plugin);
}

void OstrelEvent::removePlugin(GLOstrelBase* plugin) {
    remove(plugin);
}

void OstrelEvent::removePlugin(OstrelVariableDataInput* plugin) {
    remove(plugin);
}

bool OstrelEvent::hasPlugin(const QObject* plugin) const {
    return plugins->contains(const_cast<QObject*>(plugin));
}

void OstrelEvent::shutdown() {
    closeShop = true;
}

void OstrelEvent::run() {
    execute();
    if (!closeShop)
        exec();
}

void OstrelEvent::execute() {
    while (!isRunning())
        msleep(100);
    attachToEvent();
    waitForEvents(
        {closeShop, status, eventBuffer, eventBufferSize, eventId},
        [this] { Q_EMIT ostrelEvent(eventId, eventBuffer, eventBufferSize); },
        [] { qDebug("event_wait failed %lu", static_cast<unsigned long>(syscall(SYS_gettid))); },
        [](int code) { qDebug("received %i while waiting for timer event", code); });
}

void OstrelEvent::attachToEvent() {
    const QMutexLocker locker(&OstrelEventMutex);
    if (eventId != -1) {
        if (eventId > 0)
            event_detach(eventId);
        eventId = -1;
    }
    constexpr int lastAttempt = 10;
    for (int count = 0; count <= lastAttempt; ++count) {
        status = event_attach(name.constData(), maxNumEvents, &eventId);
        if (status == 0 || status == OSTREL_EVENT_ATTACHED)
            return;
        qDebug("event name: %s", name.constData());
        qDebug("status = %i count %i", status, count);
        msleep(250);
    }
}
