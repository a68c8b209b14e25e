// The base of a widget that draws with OpenGL and shows a variable of the store: binding by name and a place on the
// timers, and nothing of what OstrelBase draws.
#ifndef OSTREL_CORE_GLOSTRELBASE_H
#define OSTREL_CORE_GLOSTRELBASE_H

#include <ostrel/records.h>

#include <QGLWidget>

// A subclass that asked TimerModerator for ticks releases itself before it ends: the destructor does not.
class Q_DECL_EXPORT GLOstrelBase : public QGLWidget {
    Q_OBJECT

public:
    explicit GLOstrelBase(QWidget* parent = nullptr);

    virtual bool okToRun();
public Q_SLOTS:
    virtual void ostrelTimerEvent(int interval) = 0;
    virtual void closing(bool flag);

public:
    SHARED_MEMORY mem() const { return _mem; }
    void* ptr() const { return _ptr; }
    short int status() const { return _status; }

Q_SIGNALS:
    void saveUIfile();

protected:
    // Looks `label` up and points _mem and _ptr at its record. The result of find_variable(); _ptr stays on a failure.
    short int configureSharedMem(char* label);

    void* _member_adr = nullptr;
    char _varMember[20] = {};
    SHARED_MEMORY _mem{};
    void* _ptr = nullptr;
    short int _status = 0;
};

#endif
