#include "core/ostrelbase.h"

#include <ostrel-display/uifilewriter.h>
#include <ostrel/store.h>

#include <QDebug>

#include "fabric/timermoderator.h"
#include "hostlink/formwriter.h"
#include "variables/names.h"
#include "variables/recordtext.h"

OstrelBase::OstrelBase(QWidget* parent) : QWidget(parent) {
    qRegisterMetaType<size_t>("size_t");
    TimerModerator::forgetFormerOwner(this);
    ensureFormWriter();
    _group = notSet;
    _backupName = notSet;
    _real_name = notSet;
    char block[] = "reconfig_data";
    Reconfig_data = static_cast<RECONFIG_DATA*>(get_private_shrd_mem(block, sizeof(RECONFIG_DATA)));
    if (!Reconfig_data) {
        static RECONFIG_DATA none{};
        Reconfig_data = &none;
    }
    Reconfig_count = Reconfig_data->generic_reconfig_count;
    // A remote display changes nothing, so it has no menu. The call reaches this class's own version: a subclass that
    // has another menu builds it in its own constructor.
    if (!RemoteDisplay)
        OstrelBase::initContextMenu();
}

OstrelBase::~OstrelBase() {
    TimerModerator::releaseFromTimer(this);
}

void OstrelBase::setColor(const QColor& color) {
    _color = color;
}

void OstrelBase::setBColor(QColor color) {
    _bcolor = color;
}

void OstrelBase::setMyFont(const QFont& font) {
    _font = font;
}

void OstrelBase::setValueFont(const QFont& font) {
    _valuefont = font;
}

void OstrelBase::setUnits(const QString& units) {
    if (units == getUnits())
        return;
    unitsChanged = true;
    copyText(_units, units.toLatin1());
    writer->cacheProperty(className, objectName(), "units", units, _initFlag);
}

void OstrelBase::setSampleRate(int rate) {
    if (RemoteDisplay)
        rate = RemoteUpdateRate;
    _pause = true;
    TimerModerator::releaseFromTimer(this, _updateRate);
    if (_updateRate != rate && !RemoteDisplay) {
        _updateRate = rate;
        writer->cacheProperty(className, objectName(), "sampleRate", rate, _initFlag);
    }
    TimerModerator::requestTimer(this, rate);
    _pause = false;
}

QString OstrelBase::getGroup() const {
    return _group;
}

void OstrelBase::setGroup(const QString& group) {
    if (group == _group)
        return;
    _group = group;
    writer->cacheProperty(className, objectName(), "group", group, _initFlag);
}

bool OstrelBase::okToRun() {
    return true;
}

void OstrelBase::setDDEnabled(const bool& enabled) {
    _dragAndDropEnabled = enabled;
    writer->cacheProperty(className, objectName(), "dragAndDropEnabled", enabled, _initFlag);
}

bool OstrelBase::allowsWriteAcess() {
    return false;
}

void OstrelBase::set_custom_toolTip(QString& text) {
    QWidget::setToolTip(text);
}

void OstrelBase::handleWriteValue(QObject*) {}

void OstrelBase::setDisplayAlias(const bool& shown) {
    _displayAlias = shown;
    if (_ptr)
        setName(_name);
    writer->cacheProperty(className, objectName(), "displayAlias", shown, _initFlag);
}

void OstrelBase::setLockVariable(bool lock) {
    writer->cacheProperty(className, objectName(), "lockedVariable", lock, _initFlag);
    _lockVariable = lock;
}

bool OstrelBase::userInterfaceLock() const {
    switch (UserInterfaceLock) {
        case 1:
            return true;
        case 2:
        case 4:
            return _lockVariable;
        default:
            return false;
    }
}

void OstrelBase::ostrelEvent(int eventId, const char*, size_t) {
    qDebug("%i", eventId);
}

void OstrelBase::groupProperties() {}
