#include "fabric/ostrel_event_moderator.h"

#include "core/glostrelbase.h"
#include "core/ostrelbase.h"
#include "fabric/forgottenthreads.h"
#include "fabric/ostrel_event.h"
#include "fabric/ostrelgblreconfigevent.h"
#include "fabric/ostrelvariabledatainput.h"

QVector<OstrelEvent*>* OstrelEventModerator::events = nullptr;
QVector<OstrelGblConfigEvent*>* OstrelEventModerator::gblCfgEvents = nullptr;

namespace {

QVector<OstrelEvent*>& knownEvents() {
    if (!OstrelEventModerator::events)
        OstrelEventModerator::events = new QVector<OstrelEvent*>;
    return *OstrelEventModerator::events;
}

}  // namespace

// What is the same for all kinds of subscribers.
struct EventModeration {
    template <class Plugin>
    static bool request(Plugin* plugin, const char* eventName, size_t dataSize, unsigned short depth) {
        for (OstrelEvent* event : qAsConst(knownEvents())) {
            if (event->name != eventName)
                continue;
            if (!event->hasPlugin(plugin))
                event->addCall(plugin);
            return true;
        }
        auto* event = new (std::nothrow) OstrelEvent(eventName, dataSize, depth, nullptr);
        if (!event)
            return false;
        ownThread(event);
        event->start(QThread::InheritPriority);
        event->addCall(plugin);
        OstrelEventModerator::registerEvent(event);
        return true;
    }

    template <class Plugin, class Matches>
    static void release(Plugin* plugin, Matches matches) {
        QVector<OstrelEvent*>& list = knownEvents();
        // Kept: the entry that moves into the place of an erased one is passed over.
        for (int i = 0; i < list.size(); ++i) {
            OstrelEvent* event = list.at(i);
            if (!matches(event->name))
                continue;
            event->removePlugin(plugin);
            if (!event->plugins->isEmpty())
                continue;
            event->shutdown();
            list.remove(i);
            forgetThread(event);
        }
    }

    template <class Event>
    static void shutDown(const QVector<Event*>& list) {
        for (OstrelEvent* event : list) {
            event->plugins->clear();
            event->shutdown();
        }
    }
};

namespace {

auto text(const char* eventName) {
    return [eventName](const QByteArray& name) { return name == eventName; };
}

auto buffer(const char* eventName) {
    return [eventName](const QByteArray& name) { return name.constData() == eventName; };
}

bool anyEvent(const QByteArray&) {
    return true;
}

}  // namespace

OstrelEventModerator::OstrelEventModerator(QWidget* parent) : QWidget(parent) {
    if (events) {
        for (OstrelEvent* event : qAsConst(*events))
            forgetThread(event);
        delete events;
    }
    events = new QVector<OstrelEvent*>;
}

bool OstrelEventModerator::requestEvent(OstrelBase* plugin, const char* eventName, size_t dataSize,
                                        unsigned short num_of_queued_events) {
    return EventModeration::request(plugin, eventName, dataSize, num_of_queued_events);
}

bool OstrelEventModerator::requestEvent(QWidget* plugin, const char* eventName, size_t dataSize,
                                        unsigned short num_of_queued_events) {
    return EventModeration::request(plugin, eventName, dataSize, num_of_queued_events);
}

bool OstrelEventModerator::requestEvent(GLOstrelBase* plugin, const char* eventName, size_t dataSize,
                                        unsigned short num_of_queued_events) {
    return EventModeration::request(plugin, eventName, dataSize, num_of_queued_events);
}

void OstrelEventModerator::releaseFromEvent(OstrelBase* plugin, const char* eventName) {
    EventModeration::release(plugin, text(eventName));
}

void OstrelEventModerator::releaseFromEvent(QWidget* plugin, const char* eventName) {
    EventModeration::release(plugin, text(eventName));
}

void OstrelEventModerator::releaseFromEvent(GLOstrelBase* plugin, const char* eventName) {
    EventModeration::release(plugin, buffer(eventName));
}

void OstrelEventModerator::releaseFromEvent(OstrelVariableDataInput* plugin, const char* eventName) {
    EventModeration::release(plugin, buffer(eventName));
}

void OstrelEventModerator::releaseFromEvent(OstrelBase* plugin) {
    EventModeration::release(plugin, anyEvent);
}

void OstrelEventModerator::releaseFromEvent(QWidget* plugin) {
    EventModeration::release(plugin, anyEvent);
}

void OstrelEventModerator::releaseFromEvent(GLOstrelBase* plugin) {
    EventModeration::release(plugin, anyEvent);
}

void OstrelEventModerator::releaseFromEvent(OstrelVariableDataInput* plugin) {
    EventModeration::release(plugin, anyEvent);
}

void OstrelEventModerator::registerEvent(OstrelEvent* event) {
    knownEvents().append(event);
}

bool OstrelEventModerator::addGblReconfigEvent(OstrelBase*, SM_AREA_ID) {
    return false;
}

bool OstrelEventModerator::addGblReconfigEvent(QWidget*, SM_AREA_ID) {
    return false;
}

bool OstrelEventModerator::addGblReconfigEvent(GLOstrelBase*, SM_AREA_ID) {
    return false;
}

bool OstrelEventModerator::addGblReconfigEvent(OstrelVariableDataInput*, SM_AREA_ID) {
    return false;
}

void OstrelEventModerator::shutDown() {
    EventModeration::shutDown(knownEvents());
    if (gblCfgEvents)
        EventModeration::shutDown(*gblCfgEvents);
}
