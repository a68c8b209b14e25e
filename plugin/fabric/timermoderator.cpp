#include "fabric/timermoderator.h"

#include <algorithm>

#include "core/glostrelbase.h"
#include "core/ostrelbase.h"
#include "fabric/forgottenthreads.h"
#include "fabric/timerwidget.h"

QVector<TimerWidget*>* TimerModerator::timers = nullptr;

namespace {

QVector<TimerWidget*>& knownTimers() {
    if (!TimerModerator::timers)
        TimerModerator::timers = new QVector<TimerWidget*>;
    return *TimerModerator::timers;
}

}  // namespace

// What is the same for widgets of both bases.
struct TimerModeration {
    template <class Plugin>
    static bool request(Plugin* plugin, int interval) {
        for (TimerWidget* timer : qAsConst(knownTimers())) {
            if (timer->_interval != interval)
                continue;
            if (!timer->hasPlugin(plugin))
                timer->addCall(plugin);
            return true;
        }
        auto* timer = new (std::nothrow) TimerWidget(interval, nullptr);
        if (!timer)
            return false;
        ownThread(timer);
        timer->start(QThread::InheritPriority);
        timer->addCall(plugin);
        TimerModerator::registerTimer(timer);
        return true;
    }

    template <class Plugin, class Matches>
    static void release(Plugin* plugin, Matches matches) {
        QVector<TimerWidget*>& list = knownTimers();
        // Kept: the entry that moves into the place of an erased one is passed over.
        for (int i = 0; i < list.size(); ++i) {
            TimerWidget* timer = list.at(i);
            if (!matches(timer->_interval))
                continue;
            timer->removePlugin(plugin);
            if (!timer->plugins->isEmpty())
                continue;
            timer->shutdown();
            list.remove(i);
            forgetThread(timer);
        }
    }

    template <class Plugin>
    static bool isRegistered(Plugin* plugin, int interval) {
        const QVector<TimerWidget*>* list = TimerModerator::timers;
        return list && std::any_of(list->cbegin(), list->cend(), [=](const TimerWidget* timer) {
                   return timer->_interval == interval && timer->hasPlugin(plugin);
               });
    }

    static void forgetFormerOwner(QObject* address) {
        if (!TimerModerator::timers)
            return;
        for (TimerWidget* timer : qAsConst(*TimerModerator::timers))
            timer->plugins->removeAll(address);
    }

    static void shutDown() {
        for (TimerWidget* timer : qAsConst(knownTimers())) {
            timer->plugins->clear();
            timer->shutdown();
        }
    }
};

namespace {

auto period(int wanted) {
    return [wanted](int interval) { return interval == wanted; };
}

bool anyPeriod(int) {
    return true;
}

}  // namespace

TimerModerator::TimerModerator(QWidget* parent) : QWidget(parent) {
    if (timers) {
        for (TimerWidget* timer : qAsConst(*timers))
            forgetThread(timer);
        delete timers;
    }
    timers = new QVector<TimerWidget*>;
}

bool TimerModerator::requestTimer(OstrelBase* plugin, int interval) {
    return TimerModeration::request(plugin, interval);
}

bool TimerModerator::requestTimer(GLOstrelBase* plugin, int interval) {
    return TimerModeration::request(plugin, interval);
}

void TimerModerator::releaseFromTimer(OstrelBase* plugin, int interval) {
    TimerModeration::release(plugin, period(interval));
}

void TimerModerator::releaseFromTimer(GLOstrelBase* plugin, int interval) {
    TimerModeration::release(plugin, period(interval));
}

void TimerModerator::releaseFromTimer(OstrelBase* plugin) {
    TimerModeration::release(plugin, anyPeriod);
}

void TimerModerator::releaseFromTimer(GLOstrelBase* plugin) {
    TimerModeration::release(plugin, anyPeriod);
}

bool TimerModerator::isRegistered(OstrelBase* plugin, int interval) {
    return TimerModeration::isRegistered(plugin, interval);
}

bool TimerModerator::isRegistered(GLOstrelBase* plugin, int interval) {
    return TimerModeration::isRegistered(plugin, interval);
}

void TimerModerator::registerTimer(TimerWidget* timer) {
    knownTimers().append(timer);
}

void TimerModerator::forgetFormerOwner(QObject* address) {
    TimerModeration::forgetFormerOwner(address);
}

void TimerModerator::shutDown() {
    TimerModeration::shutDown();
}
