#include "valuemanager/ValueManagerWidgetBase.h"

#include <ostrel/store.h>
#include <ostrel/units.h>

#include <limits>

#include "fabric/signalslotsingleton.h"
#include "variables/names.h"
#include "variables/recordtext.h"

namespace {

template <class Record>
void point(void* at, Record** record, QString* label) {
    *record = static_cast<Record*>(at);
    *label = *record ? recordText((*record)->label) : QString();
}

template <class Record>
bool isStill(const Record* record, const QString& label) {
    return record && isRecordText(label, record->label);
}

// 0 where the units do not convert.
template <class Record>
double inUnitsOf(Record* record, double value, const QString& units) {
    double converted = 0.0;
    unitsConvert(value, units.toLatin1().data(), &converted, UnitKeyword(record->units).text());
    return converted;
}

bool fitsInteger(double value) {
    return value > std::numeric_limits<int>::min() - 1.0 && value < std::numeric_limits<int>::max() + 1.0;
}

}  // namespace

ValueManagerWidgetBase::ValueManagerWidgetBase(QWidget* parent, bool from_btn) : OstrelBase(parent) {
    _unitsVis = true;
    _smartTicks = false;
    _updateRate = 1000;
    _lastValue = -99999.0;
    _oldName = notSet;
    followsTimer = false;
    // A remote display has none of them.
    for (QAction* action : {changeUnitsAction, changeVariableAction, viewPropertiesAction})
        removeAction(action);
    if (from_btn)
        for (QAction* action : {copyVariableName, pasteVariableName, disableAction})
            removeAction(action);
    auto& hub = SignalSlotSingleton::getInstance();
    connect(&hub, &SignalSlotSingleton::commitToOstrel, this, QOverload<>::of(&ValueManagerWidgetBase::commitValue));
    connect(&hub, &SignalSlotSingleton::readFromOstrel, this, &ValueManagerWidgetBase::sample);
    connect(&hub, &SignalSlotSingleton::writeToFile, this, &ValueManagerWidgetBase::writeToFile);
    connect(&hub, &SignalSlotSingleton::readFromFile, this, &ValueManagerWidgetBase::readFromFile);
}

ValueManagerWidgetBase::~ValueManagerWidgetBase() = default;

void ValueManagerWidgetBase::setOstrelVariable(const QString& namev) {
    linkOstrelVariable(namev);
}

void ValueManagerWidgetBase::setName(const QString& namev) {
    setOstrelVariable(namev);
}

void ValueManagerWidgetBase::ostrelTimerEvent(int) {}

// Kept: the name is taken before it is looked up, so a plain change of variable is no change for the form.
void ValueManagerWidgetBase::linkOstrelVariable(const QString& varToLink) {
    _name = varToLink;
    const VAR_FIND_STATUS status = setupVariable(varToLink);
    if (status == VARIABLE_NOTFOUND) {
        _ptr = nullptr;
        return;
    }
    // At the end of a reconfiguration the base has already found where the variable's record stands now.
    const bool stays = status == VARIABLE_FOUND && recordOfKind() == _ptr;
    // Also where it stays: its place may have been given another label.
    const bool hasPointer = pointAtRecord();
    if (stays)
        return;
    if (hasPointer)
        update();
    updateUIName(status, varToLink, false);
}

bool ValueManagerWidgetBase::pointAtRecord() {
    switch (_mem.vari_type) {
        case REAL_TYPE:
            point(_ptr, &rptr, &m_labels.real);
            break;
        case INT_TYPE:
            point(_ptr, &iptr, &m_labels.integer);
            break;
        case LOGI_TYPE:
            point(_ptr, &lptr, &m_labels.logical);
            break;
        case STRING_TYPE:
            point(_ptr, &sptr, &m_labels.string);
            break;
        default:
            return false;
    }
    return true;
}

// What the pointer of the bound variable's kind leads to.
const void* ValueManagerWidgetBase::recordOfKind() const {
    switch (_mem.vari_type) {
        case REAL_TYPE:
            return rptr;
        case INT_TYPE:
            return iptr;
        case LOGI_TYPE:
            return lptr;
        case STRING_TYPE:
            return sptr;
        default:
            return _ptr;
    }
}

// Kept: six decimals, whatever format and resolution the variable has.
void ValueManagerWidgetBase::sample() {
    if (!_ptr)
        return;
    switch (_mem.vari_type) {
        case REAL_TYPE:
            if (!isStill(rptr, m_labels.real))
                return;
            _lastValue = rptr->value;
            emit valueChanged(QString::asprintf("%f", _lastValue));
            emit unitsChanged(recordText(rptr->units));
            break;
        case INT_TYPE:
            if (!isStill(iptr, m_labels.integer))
                return;
            _ilastValue = iptr->value;
            emit valueChanged(QString::number(_ilastValue));
            emit unitsChanged(recordText(iptr->units));
            break;
        case LOGI_TYPE:
            if (!isStill(lptr, m_labels.logical))
                return;
            _llastValue = lptr->value != 0;
            emit valueChanged(_llastValue);
            break;
        case STRING_TYPE:
            if (!isStill(sptr, m_labels.string))
                return;
            _slastValue = recordText(sptr->value);
            emit valueChanged(_slastValue);
            break;
        default:
            break;
    }
}

void ValueManagerWidgetBase::commitValue() {}

void ValueManagerWidgetBase::readFromFile(QDomDocument) {}

void ValueManagerWidgetBase::writeToFile(QDomDocument) {}

// Kept: no string is ever made empty.
void ValueManagerWidgetBase::commitValue(QString value) {
    if (!value.isEmpty() && !RemoteDisplay && isStill(sptr, m_labels.string))
        set_string_variable(sptr, value.toLatin1().data());
}

void ValueManagerWidgetBase::commitValue(bool value) {
    if (!RemoteDisplay && isStill(lptr, m_labels.logical))
        set_logical(lptr, value ? 1 : 0);
}

void ValueManagerWidgetBase::commitValue(double value, QString units) {
    if (!RemoteDisplay && isStill(rptr, m_labels.real))
        set_real_variable(rptr, inUnitsOf(rptr, value, units));
}

void ValueManagerWidgetBase::commitValue(int value, QString units) {
    if (RemoteDisplay || !isStill(iptr, m_labels.integer))
        return;
    const double converted = inUnitsOf(iptr, value, units);
    // What is no integer of this size has no nearest one that could stand for it.
    if (fitsInteger(converted))
        set_integer(iptr, static_cast<int>(converted));
}
