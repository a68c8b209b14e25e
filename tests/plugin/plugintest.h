// What the tests of the plug-in library have in common: a bound widget without a face, the host's flags, debug lines.
#ifndef OSTREL_TESTS_PLUGIN_PLUGINTEST_H
#define OSTREL_TESTS_PLUGIN_PLUGINTEST_H

#include <QMutex>
#include <QStringList>
#include <QTest>

#include "core/ostrelbase.h"
#include "fabric/timermoderator.h"
#include "scripted/platform.h"

using scripted::platform;

// A host that shows a form: the store is there, nothing is locked.
inline void startAsHost() {
    inDesigner = false;
    RemoteDisplay = false;
    UserInterfaceLock = 3;
    changeUnitsLk = false;
    RemoteUpdateRate = 2000;
    InitializationDone = true;
    platform().reset();
}

// Collects what the library says with qDebug() while it lives.
class DebugLines {
public:
    DebugLines() {
        s_current = this;
        m_former = qInstallMessageHandler(collect);
    }
    ~DebugLines() {
        qInstallMessageHandler(m_former);
        s_current = nullptr;
    }
    QStringList lines() const {
        const QMutexLocker locker(&m_mutex);
        return m_lines;
    }
    int count(const QString& line) const { return lines().count(line); }

private:
    static void collect(QtMsgType type, const QMessageLogContext& context, const QString& text) {
        if (type != QtDebugMsg) {
            s_current->m_former(type, context, text);
            return;
        }
        const QMutexLocker locker(&s_current->m_mutex);
        s_current->m_lines.append(text);
    }

    static inline DebugLines* s_current = nullptr;
    QtMessageHandler m_former;
    mutable QMutex m_mutex;
    QStringList m_lines;
};

// The least a bound widget can be. It shows what the base keeps for subclasses.
class Probe : public OstrelBase {
    Q_OBJECT

public:
    explicit Probe(QWidget* parent = nullptr) : OstrelBase(parent) {
        className = QStringLiteral("Probe");
        setObjectName(QStringLiteral("probe"));
        _updateRate = 1000;
        _lastValue = -99999.0;
    }

    // Binds, and points the typed pointers as a value widget does; nothing more.
    void setName(const QString& name) override {
        names.append(name);
        result = setupVariable(name);
        if (_ptr && bindsTypedPointers)
            viewRecord();
    }
    void setColor(const QColor& color) override {
        colors.append(color);
        OstrelBase::setColor(color);
    }
    void setUnits(const QString& units) override {
        unitsAsked.append(units);
        OstrelBase::setUnits(units);
    }
    void ostrelTimerEvent(int interval) override { ticks.append(interval); }

    QString text(bool hideUnits = true) {
        const QString* shown = sampleReal(hideUnits);
        return shown ? *shown : QStringLiteral("(nothing new)");
    }
    void useUnits(const char* units) { qstrncpy(_units, units, sizeof(_units)); }

    using OstrelBase::_backupName;
    using OstrelBase::_cfg_in_progress;
    using OstrelBase::_checkLimit;
    using OstrelBase::_color;
    using OstrelBase::_first_write;
    using OstrelBase::_ilastValue;
    using OstrelBase::_initFlag;
    using OstrelBase::_lastValue;
    using OstrelBase::_mem;
    using OstrelBase::_member_adr;
    using OstrelBase::_monitorLimit;
    using OstrelBase::_name;
    using OstrelBase::_oldName;
    using OstrelBase::_ptr;
    using OstrelBase::_real_name;
    using OstrelBase::_requestedFlashTimer;
    using OstrelBase::_temp_ignore;
    using OstrelBase::_units;
    using OstrelBase::_updateRate;
    using OstrelBase::_varMember;
    using OstrelBase::_varType;
    using OstrelBase::checkStatus;
    using OstrelBase::configureSharedMem;
    using OstrelBase::flash;
    using OstrelBase::flashOn;
    using OstrelBase::formatString;
    using OstrelBase::iamptr;
    using OstrelBase::iaptr;
    using OstrelBase::iptr;
    using OstrelBase::limitColorCode;
    using OstrelBase::lptr;
    using OstrelBase::ramptr;
    using OstrelBase::rptr;
    using OstrelBase::setupVariable;
    using OstrelBase::sptr;
    using OstrelBase::unitsChanged;
    using OstrelBase::updateFirst_;

    bool bindsTypedPointers = true;
    VAR_FIND_STATUS result = VARIABLE_NOTFOUND;
    QStringList names;
    QList<QColor> colors;
    QStringList unitsAsked;
    QList<int> ticks;
};

#endif
