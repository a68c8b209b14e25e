// Puts widgets on named platform events: one waiting thread per event, shared by all its subscribers. For hosts.
#ifndef OSTREL_FABRIC_OSTREL_EVENT_MODERATOR_H
#define OSTREL_FABRIC_OSTREL_EVENT_MODERATOR_H

#include <ostrel/areas.h>

#include <QVector>
#include <QWidget>

class GLOstrelBase;
class OstrelBase;
class OstrelEvent;
class OstrelGblConfigEvent;
class OstrelVariableDataInput;

// GUI thread only. No object of this class is needed for the operations to work.
class Q_DECL_EXPORT OstrelEventModerator : public QWidget {
    Q_OBJECT

public:
    // Starts with an empty list: the events known until then go on arriving, but nobody joins or leaves them any more.
    explicit OstrelEventModerator(QWidget* parent = nullptr);

    // Subscribes to the event; once, however often it is asked. The subscriber's slot ostrelEvent(int, const char*,
    // size_t) gets each event. The first request for an event decides on the size of its payload and the depth of its
    // queue. False only when no thread could be made.
    static bool requestEvent(OstrelBase* plugin, const char* eventName, size_t dataSize,
                             unsigned short num_of_queued_events);
    static bool requestEvent(QWidget* plugin, const char* eventName, size_t dataSize,
                             unsigned short num_of_queued_events);
    static bool requestEvent(GLOstrelBase* plugin, const char* eventName, size_t dataSize,
                             unsigned short num_of_queued_events);

    // Ends the subscription; an event that lost its last subscriber is waited for no longer. The latter two find the
    // event only by the very buffer of its name, which OstrelEvent::getName() shares.
    static void releaseFromEvent(OstrelBase* plugin, const char* eventName);
    static void releaseFromEvent(QWidget* plugin, const char* eventName);
    static void releaseFromEvent(GLOstrelBase* plugin, const char* eventName);
    static void releaseFromEvent(OstrelVariableDataInput* plugin, const char* eventName);

    // Ends the subscriptions to all events, but for an event that stands right behind one which ends by this call.
    static void releaseFromEvent(OstrelBase* plugin);
    static void releaseFromEvent(QWidget* plugin);
    static void releaseFromEvent(GLOstrelBase* plugin);
    static void releaseFromEvent(OstrelVariableDataInput* plugin);

    static void registerEvent(OstrelEvent* event);

    // Does nothing and gives false: a host makes its OstrelGblConfigEvent by itself.
    static bool addGblReconfigEvent(OstrelBase* plugin, SM_AREA_ID mem_code);
    static bool addGblReconfigEvent(QWidget* plugin, SM_AREA_ID mem_code);
    static bool addGblReconfigEvent(GLOstrelBase* plugin, SM_AREA_ID mem_code);
    static bool addGblReconfigEvent(OstrelVariableDataInput* plugin, SM_AREA_ID mem_code);

    // For a host that ends: no thread passes anything on again. The lists keep their entries.
    static void shutDown();

    static QVector<OstrelEvent*>* events;                 // null until one of the operations needs it
    static QVector<OstrelGblConfigEvent*>* gblCfgEvents;  // for a host that wants its threads in shutDown()
};

#endif
