#include "core/ostrelbase.h"

#include <ostrel-display/uifilewriter.h>
#include <ostrel/store.h>

#include <QDebug>
#include <QEvent>
#include <QVariant>

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
    remember("units", units);
}

void OstrelBase::setSampleRate(int rate) {
    if (RemoteDisplay)
        rate = RemoteUpdateRate;
    _pause = true;
    TimerModerator::releaseFromTimer(this, _updateRate);
    if (_updateRate != rate && !RemoteDisplay) {
        _updateRate = rate;
        remember("sampleRate", rate);
    }
    TimerModerator::requestTimer(this, rate);
    _pause = false;
}

void OstrelBase::remember(const char* property, const QVariant& value) {
    writer->cacheProperty(className, objectName(), QString::fromLatin1(property), value, _initFlag);
}

void OstrelBase::rememberFont(const char* property, const QFont& font) {
    writer->cachePropertyFont(className, objectName(), QString::fromLatin1(property), font, _initFlag);
}

void OstrelBase::takeParentColor(const QEvent* event) {
    if (event->type() != QEvent::PaletteChange || !parentWidget())
        return;
    _color = parentWidget()->palette().text().color();
    _lastPreFlashColor = _color;
}

QString OstrelBase::getGroup() const {
    return _group;
}

void OstrelBase::setGroup(const QString& group) {
    if (group == _group)
        return;
    _group = group;
    remember("group", group);
}

bool OstrelBase::okToRun() {
    return true;
}

void OstrelBase::setDDEnabled(const bool& enabled) {
    _dragAndDropEnabled = enabled;
    remember("dragAndDropEnabled", enabled);
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
    remember("displayAlias", shown);
}

void OstrelBase::setLockVariable(bool lock) {
    remember("lockedVariable", lock);
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
