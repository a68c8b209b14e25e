#include "fabric/timerwidget.h"

#include <ostrel/events.h>

#include <QDebug>
#include <QMutex>
#include <QMutexLocker>
#include <cstdio>
#include <cstring>

#include "core/glostrelbase.h"
#include "core/ostrelbase.h"
#include "fabric/waitingloop.h"
#include "hostlink/hostflags.h"

// Two threads never attach at once.
Q_DECL_EXPORT QMutex TimerWidgetMutex;

TimerWidget::TimerWidget(int interval, QObject* parent)
    : QThread(parent),
      status(0),
      name{},
      eid(-1),
      _interval(interval),
      closeShop(false),
      plugins(new QVector<QObject*>) {}

TimerWidget::~TimerWidget() {
    delete plugins;
}

template <class Plugin>
void TimerWidget::add(Plugin* plugin) {
    if (!plugin)
        return;
    connect(this, &TimerWidget::time, plugin, &Plugin::ostrelTimerEvent);
    plugins->append(plugin);
}

template <class Plugin>
void TimerWidget::remove(Plugin* plugin) {
    if (!hasPlugin(plugin))
        return;
    disconnect(this, &TimerWidget::time, plugin, &Plugin::ostrelTimerEvent);
    plugins->removeAll(plugin);
}

void TimerWidget::addCall(OstrelBase* plugin) {
    add(plugin);
}

void TimerWidget::addCall(GLOstrelBase* plugin) {
    add(plugin);
}

void TimerWidget::removePlugin(OstrelBase* plugin) {
    remove(plugin);
}

void TimerWidget::removePlugin(GLOstrelBase* plugin) {
    remove(plugin);
}

bool TimerWidget::hasPlugin(OstrelBase* plugin) const {
    return plugins->contains(plugin);
}

bool TimerWidget::hasPlugin(GLOstrelBase* plugin) const {
    return plugins->contains(plugin);
}

void TimerWidget::shutdown() {
    closeShop = true;
}

void TimerWidget::run() {
    execute();
    if (!closeShop)
        exec();
}

void TimerWidget::execute() {
    while (!isRunning() || !storeIsReady())
        msleep(100);
    attachToTimer();
    char buffer[256];
    waitForEvents(
        {closeShop, status, buffer, sizeof(buffer), eid}, [this] { Q_EMIT time(_interval); }, [] {},
        [](int code) { qDebug("<TimerError> Code %i while waiting for timer event", code); });
}

void TimerWidget::attachToTimer() {
    const QMutexLocker locker(&TimerWidgetMutex);
    if (eid != -1) {
        if (eid > 0)
            event_detach(eid);
        eid = -1;
    }
    char _name[sizeof(name)] = {};
    int _eid = -1;
    status = find_ms_timer(_interval, _name, &_eid);
    std::memcpy(name, _name, sizeof(name) - 1);
    if (status == 0 && _eid != -1) {
        eid = _eid;
        attachByName();
    } else {
        makeTimer();
    }
}

void TimerWidget::attachByName() {
    constexpr int lastAttempt = 10;
    for (int attempt = 0; attempt <= lastAttempt; ++attempt) {
        status = event_attach(name, 1, &eid);
        if (status == 0 || status == OSTREL_EVENT_ATTACHED)
            return;
        msleep(250);
    }
}

void TimerWidget::makeTimer() {
    std::snprintf(name, sizeof(name), "%s%i", "tmr-", _interval);
    status = event_create_timer(name, 10, 0, 1, 0, &_interval, &eid);
    switch (status) {
        case OSTREL_EVENT_EXISTS:
            status = event_attach(name, 1, &eid);
            if (status != 0)
                qDebug("Error attaching to timer with interval %i Error code [%i]", _interval, status);
            break;
        case OSTREL_EVENT_ATTACHED:
            break;
        case 0: {
            // The timer keeps the id that its making gave it.
            int attached = -1;
            status = event_attach(name, 1, &attached);
            if (status != 0)
                qDebug("Error attaching to timer (2) Error code [%i]", status);
            break;
        }
        default:
            qDebug("error creating timer (%i)", status);
    }
}
