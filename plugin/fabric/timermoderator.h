// Puts widgets on the platform's periodic timers: one waiting thread per period, shared by all widgets of that period.
#ifndef OSTREL_FABRIC_TIMERMODERATOR_H
#define OSTREL_FABRIC_TIMERMODERATOR_H

#include <QVector>
#include <QWidget>

class GLOstrelBase;
class OstrelBase;
class TimerWidget;

// GUI thread only. No object of this class is needed for the operations to work; it is a widget so that a form can hold
// one. Intervals are in milliseconds.
class Q_DECL_EXPORT TimerModerator : public QWidget {
    Q_OBJECT

public:
    // Starts with an empty list: the timers known until then go on ticking, but nobody joins or leaves them any more.
    explicit TimerModerator(QWidget* parent = nullptr);

    // Subscribes the widget to that period; once, however often it is asked. From then on the widget's slot
    // ostrelTimerEvent(int) gets the period at each tick. False only when no thread could be made.
    static bool requestTimer(OstrelBase* plugin, int interval);
    static bool requestTimer(GLOstrelBase* plugin, int interval);

    // Ends the subscription. A tick that is under way may still arrive. A period that lost its last subscriber ends.
    static void releaseFromTimer(OstrelBase* plugin, int interval);
    static void releaseFromTimer(GLOstrelBase* plugin, int interval);

    // Ends the subscriptions to all periods, but for a period that stands right behind one which ends by this call.
    static void releaseFromTimer(OstrelBase* plugin);
    static void releaseFromTimer(GLOstrelBase* plugin);

    static bool isRegistered(OstrelBase* plugin, int interval);
    static bool isRegistered(GLOstrelBase* plugin, int interval);

    static void registerTimer(TimerWidget* timer);

    // Drops a subscription that an earlier object left at the address of one which is being built.
    static void forgetFormerOwner(QObject* address);

    // For a host that ends: no thread ticks again. The list keeps its entries.
    static void shutDown();

    // Null until one of the operations needs it.
    static QVector<TimerWidget*>* timers;
};

#endif
