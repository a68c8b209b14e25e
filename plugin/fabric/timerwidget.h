// A thread that waits for one platform timer and passes its ticks on to widgets.
#ifndef OSTREL_FABRIC_TIMERWIDGET_H
#define OSTREL_FABRIC_TIMERWIDGET_H

#include <QThread>
#include <QVector>
#include <atomic>

class GLOstrelBase;
class OstrelBase;

// Made and ended by TimerModerator. The list of subscribers belongs to the GUI thread; status, name and eid belong to
// this one.
class Q_DECL_EXPORT TimerWidget : public QThread {
    Q_OBJECT
    Q_PROPERTY(long interval READ interval WRITE setInterval)

public:
    // `interval` is the period in milliseconds.
    explicit TimerWidget(int interval, QObject* parent = nullptr);
    ~TimerWidget() override;

    // Connects time() to the widget's slot ostrelTimerEvent(int) and remembers the widget. Null is ignored.
    void addCall(OstrelBase* plugin);
    void addCall(GLOstrelBase* plugin);

    bool hasPlugin(OstrelBase* plugin) const;
    bool hasPlugin(GLOstrelBase* plugin) const;

    long interval() const { return _interval; }
    void setInterval(long interval) { _interval = static_cast<int>(interval); }

Q_SIGNALS:
    void time(int interval);

protected:
    void run() override;
    // Waits until the host has the store, attaches, and emits time() at each tick until shutdown().
    void execute();
    // Joins the platform's timer of this period, or makes one.
    void attachToTimer();
    // Ends the thread at the next event it gets.
    void shutdown();

private:
    friend struct TimerModeration;

    void removePlugin(OstrelBase* plugin);
    void removePlugin(GLOstrelBase* plugin);
    template <class Plugin>
    void add(Plugin* plugin);
    template <class Plugin>
    void remove(Plugin* plugin);
    void attachByName();
    void makeTimer();

    short int status;
    char name[32];
    int eid;
    int _interval;
    std::atomic<bool> closeShop;
    QVector<QObject*>* plugins;  // addresses only: one that outlived its widget is never followed
};

#endif
