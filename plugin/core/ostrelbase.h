// The base of every bound widget: a name in a form becomes a pointer into a record of the variable store.
//
// A widget holds raw pointers into shared memory and never owns or copies a record. Everything here runs on the GUI
// thread; ticks and events reach it as queued signals of the fabric's threads.
#ifndef OSTREL_CORE_OSTRELBASE_H
#define OSTREL_CORE_OSTRELBASE_H

#include <ostrel/records.h>

#include <QAction>
#include <QColor>
#include <QFont>
#include <QPoint>
#include <QString>
#include <QWidget>

#include "hostlink/globals.h"
#include "variables/kinds.h"
#include "variables/recordview.h"

// Result of a binding.
enum VAR_FIND_STATUS {
    VARIABLE_NOTFOUND = 0,
    VARIABLE_FOUND = 1,    // bound, to the same variable as before
    VARIABLE_CHANGED = 2,  // bound, to another variable than before
};

class Q_DECL_EXPORT OstrelBase : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor color READ getColor WRITE setColor)
    Q_PROPERTY(bool monitorLimits READ monitorLimits WRITE setMonitorLimits)
    Q_PROPERTY(bool lockedVariable READ lockVariable WRITE setLockVariable)

public:
    explicit OstrelBase(QWidget* parent = nullptr);
    ~OstrelBase() override;

    // The order of the virtual operations is part of the binary interface.

    // Binds the widget to another variable; "not_set" unbinds it. The one entry for every change of binding.
    virtual void setName(const QString& name) = 0;
    virtual void setColor(const QColor& color);
    virtual void setBColor(QColor color);
    virtual void setMyFont(const QFont& font);
    virtual void setValueFont(const QFont& font);
    // Units to show the value in, at most 15 characters; empty for the variable's own. Takes effect with setName().
    virtual void setUnits(const QString& units);
    // Hands the name to the form writer where a form must remember it.
    virtual void updateUIName(VAR_FIND_STATUS status, const QString& name, bool FORCE);
    // Sample period in ms, the key of the timer that the widget hangs on.
    virtual void setSampleRate(int rate);
    // The value as text, or null when nothing changed. The text belongs to the widget and is good until the next call.
    virtual QString* sampleReal(bool hideUnits);
    virtual QString getGroup() const;
    virtual void setGroup(const QString& group);
    virtual bool okToRun();
    // Switches dragging the name out of the widget; drops stay possible.
    virtual void setDDEnabled(const bool& enabled);
    virtual bool allowsWriteAcess();
    virtual void set_custom_toolTip(QString& text);
    // Asks the operator for a new value and writes it.
    virtual void handleWriteValue(QObject* source);
public Q_SLOTS:
    virtual void ostrelTimerEvent(int interval) = 0;

public:
    virtual void initContextMenu();

    SHARED_MEMORY mem() const { return _mem; }
    void* ptr() const { return _ptr; }
    short status() const { return _status; }
    int getSampleRate() const { return RemoteDisplay ? RemoteUpdateRate : _updateRate; }
    QString getName() const { return _name; }
    bool getUnitsVis() const { return _unitsVis; }
    bool smartTicks() const { return _smartTicks; }
    QColor getColor() const { return _color; }
    QColor getBColor() const { return _bcolor; }
    bool monitorLimits() const { return _monitorLimit; }
    bool lockVariable() const { return _lockVariable; }
    bool isPaused() const { return _pause; }
    QString getUnits() const { return QString::fromLatin1(_units); }
    void setUnitsVis(bool visible) { _unitsVis = visible; }
    void setSmartTicks(bool smart) { _smartTicks = smart; }
    QString getPreviousName() const { return _oldName; }
    void setPaused(bool paused) { _pause = paused; }
    void setMonitorLimits(bool monitor) { _monitorLimit = monitor; }
    QWidget* getChangeVariable() const { return changeVar; }
    void setInitFlag(bool flag) { _initFlag = flag; }
    bool getInitFlag() const { return _initFlag; }
    bool cfg_in_progress() const { return _cfg_in_progress; }
    void clr_cfg_in_progress() { _cfg_in_progress = false; }
    void set_cfg_in_progress() { _cfg_in_progress = true; }
    QString getRealName() const { return _real_name; }
    bool displayAlias() const { return _displayAlias; }
    bool dragAndDropEnabled() const { return _dragAndDropEnabled; }

    // The record's status word, or -1 where there is none to tell.
    short getStatus() const;
    // Shows the alias of a variable, or its own name. A bound widget follows at once.
    void setDisplayAlias(const bool& shown);
    void setLockVariable(bool lock);
    // The label of the record that a handle leads to; "unsupported" for a kind without one.
    QString getNameFromShmem(SHARED_MEMORY* mem) const;
    // Forgets the record, but for rptr and ramptr: a write in display units goes on using the former. Where a record
    // comes back, even at its former place, the widget binds anew.
    void clearOstrelPtrs();
    void clearMem();
    // True when the store moved the record under the widget.
    bool ptrToOstrelVarChanged() const;
    bool userInterfaceLock() const;
    bool changeUnitsLock() const { return changeUnitsLk; }
    // The colour that the last sampled status asks for; transparent for a status without one.
    QColor getOstrelLimitColors(bool& blink);

Q_SIGNALS:
    void saveUIfile();

public Q_SLOTS:
    void ostrelEvent(int eventId, const char* buffer, size_t size);
    // A reconfiguration of the store starts (1) or ended (0) in an area, -1 for all.
    void globalConfigEvent(short newState, short memCode);
    void changeColor();
    void changeBColor();
    void changeVariable();
    void changeUnits();
    void changeFont();
    void changeValueFont();
    void viewProperties();
    void groupProperties();
    void copyVarName();
    void pasteVarName();
    void disable();

protected Q_SLOTS:
    // One step of the blinking.
    void flash();

protected:
    void dropEvent(QDropEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

    // Looks `label` up and points _mem and _ptr at its record. The result of find_variable().
    short configureSharedMem(char* label);
    // Resolves a name, its alias and the variable's own name, and binds.
    VAR_FIND_STATUS setupVariable(const QString& name);
    // Formats a real value; null when it cannot be converted to the units asked for.
    QString* getUpdatedStrValue(bool hideUnits, char* display_format, char* units, double cValue);
    // Applies the limit colour, and finishes the first load of the widget.
    void checkStatus(bool startup);
    // Points the typed pointer of the bound record's kind at it, and takes the format of a selected member. In a
    // designer it may take back the units that the form gave.
    RecordView viewRecord();
    // True when the widget's typed pointers were made of another record than the present one: it must bind again.
    bool isBoundElsewhere() const;
    // Whether a tick is for sampling, and now.
    bool isMyTick(int interval) const { return interval == getSampleRate() && !_pause && !_cfg_in_progress; }
    // Hand a property to the form writer, as the operator's change once the widget has finished its first loading.
    void remember(const char* property, const QVariant& value);
    void rememberFont(const char* property, const QFont& font);
    // Lets the operator choose another variable of the accepted kinds, whatever is locked.
    void chooseVariable();
    // The event filter of a widget whose part `field` writes at a double click. The field never sees that click.
    bool filterField(const QObject* field, QObject* obj, QEvent* event);
    // At a change of the palette takes the parent's text colour as the widget's own, for the next sample.
    void takeParentColor(const QEvent* event);

    int _updateRate = 0;
    QColor _color;
    QColor _bcolor;
    QString _oldName;
    QString _name;
    QString _backupName;
    QFont _font;
    QFont _valuefont;
    QColor _lastPreFlashColor;
    char _units[16] = {};
    bool _unitsVis = false;
    bool _smartTicks = false;
    double _lastValue = 0.0;
    int _ilastValue = 0;
    bool _llastValue = false;
    bool updateFirst_ = true;
    QString _slastValue;
    bool _checkLimit = true;
    int _height = 0;
    int _width = 0;
    bool _monitorLimit = true;
    bool _exceedsLimit = false;
    QT_OSTREL_FLAGS _varType = QT_OSTREL_ANY;
    void* _member_adr = nullptr;
    bool _initFlag = false;
    bool _readOnlyString = false;
    QString _toolTip;
    QString _enableVariableName;
    bool _cfg_in_progress = false;
    bool _link_need = false;
    bool _displayAlias = true;
    bool _lockVariable = false;
    bool _requestedFlashTimer = false;
    char _varMember[20] = {};
    double limit_array[7] = {};
    short int limit_exists[7] = {};
    short int display[7] = {};
    bool updateLimitInfo = true;
    QString className;
    bool unitsChanged = false;
    QString svalue;
    QString svalueUnit;
    QString _group;
    bool flashOn = false;
    char formatString[8] = {};
    REAL_VARIABLE* rptr = nullptr;
    STAT_VARIABLE* sptr = nullptr;
    EMIS_VARIABLE* eptr = nullptr;
    COMP_VARIABLE* cptr = nullptr;
    INTEGER_VARIABLE* iptr = nullptr;
    LOGICAL_VARIABLE* lptr = nullptr;
    STRING_VARIABLE* strptr = nullptr;
    REAL_ARRAY_VARIABLE* raptr = nullptr;
    INTEGER_ARRAY_VARIABLE* iaptr = nullptr;
    STRING_ARRAY_VARIABLE* saptr = nullptr;
    LOGICAL_ARRAY_VARIABLE* laptr = nullptr;
    PROP_VARIABLE* prptr = nullptr;
    REAL_ARRAY_MEMBER* ramptr = nullptr;
    INTEGER_ARRAY_MEMBER* iamptr = nullptr;
    STRING_ARRAY_MEMBER* samptr = nullptr;
    LOGICAL_ARRAY_MEMBER* lamptr = nullptr;
    LIMIT_STATUS* limit_status = nullptr;
    RECONFIG_DATA* Reconfig_data = nullptr;
    int Reconfig_count = 0;
    short limitColorCode = 0;
    QAction* changeVariableAction = nullptr;
    QAction* changeUnitsAction = nullptr;
    QAction* viewPropertiesAction = nullptr;
    QAction* copyVariableName = nullptr;
    QAction* pasteVariableName = nullptr;
    QAction* disableAction = nullptr;
    QPoint _dragStartPosition;
    bool _dragAndDropEnabled = true;
    SHARED_MEMORY _mem{};
    void* _ptr = nullptr;
    short _status = 0;
    bool _pause = false;
    QWidget* changeVar = nullptr;
    bool _temp_ignore = true;
    bool _first_write = false;
    QString _real_name;
    bool followsTimer = true;  // false for a widget that reads its variable only when it is asked to

private:
    int m_lastInteger = 0;                 // of the last sample, in the variable's own units
    const void* m_viewedRecord = nullptr;  // of the last viewRecord(); to compare, never to follow
    SHARED_MEMORY m_viewedPart{};          // the same
    QString m_unitsOfForm;                 // in a designer, to be given back by the next viewRecord()

    // What a sample leaves in updateFirst_.
    enum class Refresh { Done, Again, AsBefore };

    QString ownNameOf(const QString& name, SHARED_MEMORY* mem) const;
    bool namesDifferInMember() const;
    void endReconfiguration();
    void takeMemberFormat(const char* format);
    QString* sampleByKind(bool hideUnits);
    QString* sampleReal(short statusWord, double value, char (&format)[8], char (&units)[16], bool hideUnits);
    template <class Member>
    QString* sampleMember(short statusWord, Member& member, Refresh refresh);
    bool rests(int value) const;
    QString* sampleInteger();
    QString* sampleIntegerElement();
    QString* sampleLogical();
    QString* sampleLogicalElement();
    bool converted(int code) const;
    void finishFirstLoad(bool startup);
    bool canShowIn(char* units) const;
};

#endif
