// From the record to what the operator sees: the value's text, and the colour of its status.
#include <ostrel/store.h>
#include <ostrel/units.h>

#include <QDebug>
#include <QPalette>

#include "core/ostrelbase.h"
#include "fabric/timermoderator.h"
#include "variables/logicalstate.h"
#include "variables/names.h"
#include "variables/recordtext.h"
#include "variables/statuscolour.h"
#include "variables/valuetext.h"

namespace {

// Compared on every sample, so made once.
const QColor transparent = Qt::transparent;
const QColor black = Qt::black;

// A read-out shows this many characters of a number, units left out.
constexpr int widestNumber = 16;

bool isMember(int member, int count) {
    return member >= 0 && member < count;
}

QColor limitColor(int word, const QPalette& palette) {
    const StatusColour colour = statusColour(word);
    if (!colour.isKnown)
        return transparent;
    if (!colour.red && !colour.green && !colour.blue)
        return palette.text().color();
    constexpr int full = 255;
    return QColor(colour.red ? full : 0, colour.green ? full : 0, colour.blue ? full : 0);
}

// The length of the number, without the units behind it.
int numberLength(const QString& text, bool hideUnits) {
    const int bracket = hideUnits ? -1 : text.indexOf(QLatin1Char('['));
    return bracket < 0 ? text.size() : bracket;
}

}  // namespace

short OstrelBase::getStatus() const {
    if (!_ptr)
        return -1;
    switch (_mem.vari_type) {
        case REAL_TYPE:
            return static_cast<const REAL_VARIABLE*>(_ptr)->status;
        case INT_TYPE:
            return static_cast<const INTEGER_VARIABLE*>(_ptr)->status;
        case LOGI_TYPE:
            return static_cast<const LOGICAL_VARIABLE*>(_ptr)->status;
        case STRING_TYPE:
            return static_cast<const STRING_VARIABLE*>(_ptr)->status;
        case STAT_TYPE:
            return static_cast<const STAT_VARIABLE*>(_ptr)->status;
        case COMP_TYPE:
            return static_cast<const COMP_VARIABLE*>(_ptr)->status;
        case EMIS_TYPE:
            return static_cast<const EMIS_VARIABLE*>(_ptr)->status;
        case REAL_ARRAY_TYPE:
            return ramptr ? ramptr->status : static_cast<short>(-1);
        case INT_ARRAY_TYPE:
            return iamptr ? iamptr->status : static_cast<short>(-1);
        case STRING_ARRAY_TYPE:
            return samptr ? samptr->status : static_cast<short>(-1);
        case LOGI_ARRAY_TYPE:
            return lamptr ? lamptr->status : static_cast<short>(-1);
        default:
            return -1;
    }
}

QString* OstrelBase::sampleReal(bool hideUnits) {
    // Polled on every sample: so a widget notices a reconfiguration without any thread that waits for it.
    if (Reconfig_data->generic_reconfig_count != Reconfig_count) {
        Reconfig_count = Reconfig_data->generic_reconfig_count;
        globalConfigEvent(0, -1);
    }
    if (!_ptr)
        return nullptr;
    QString* text = sampleByKind(hideUnits);
    const SM_VARI_TYPE kind = _mem.vari_type;
    const bool isNumber = kind == REAL_TYPE || kind == INT_TYPE || kind == REAL_ARRAY_TYPE || kind == INT_ARRAY_TYPE;
    if (text && isNumber && numberLength(*text, hideUnits) > widestNumber)
        shortenNumber(*text);
    return text;
}

QString* OstrelBase::sampleByKind(bool hideUnits) {
    switch (_mem.vari_type) {
        case REAL_TYPE:
            return rptr ? sampleReal(rptr->status, rptr->value, rptr->display_format, rptr->units, hideUnits) : nullptr;
        case REAL_ARRAY_TYPE:
            return ramptr && raptr
                       ? sampleReal(ramptr->status, ramptr->value, raptr->display_format, ramptr->units, hideUnits)
                       : nullptr;
        case INT_TYPE:
            return iptr ? sampleInteger() : nullptr;
        case INT_ARRAY_TYPE:
            return iamptr ? sampleIntegerElement() : nullptr;
        case LOGI_TYPE:
            return lptr ? sampleLogical() : nullptr;
        case LOGI_ARRAY_TYPE:
            return lamptr && laptr ? sampleLogicalElement() : nullptr;
        case STAT_TYPE:
            return sptr && isMember(_mem.stat_member, NUM_MEMBER_TYPES)
                       ? sampleMember(sptr->status, sptr->stat[_mem.stat_member], Refresh::Done)
                       : nullptr;
        case COMP_TYPE:
            return cptr && isMember(_mem.comp_member, NUM_COMPOSITION_TYPES)
                       ? sampleMember(cptr->status, cptr->fraction[_mem.comp_member], Refresh::Again)
                       : nullptr;
        case PROP_TYPE:
            return prptr && isMember(_mem.prop_member, NUM_PROPERTY_TYPES)
                       ? sampleMember(prptr->status, prptr->properties[_mem.prop_member], Refresh::Again)
                       : nullptr;
        case EMIS_TYPE:
            return eptr && isMember(_mem.emis_member, NUM_EMISSION_TYPES)
                       ? sampleMember(eptr->status, eptr->emission[_mem.emis_member], Refresh::AsBefore)
                       : nullptr;
        case STRING_TYPE:
            limitColorCode = static_cast<const STRING_VARIABLE*>(_ptr)->status;
            return nullptr;
        case STRING_ARRAY_TYPE:
            limitColorCode = samptr ? samptr->status : limitColorCode;
            return nullptr;
        default:
            return nullptr;
    }
}

QString* OstrelBase::sampleReal(short statusWord, double value, char (&format)[8], char (&units)[16], bool hideUnits) {
    limitColorCode = statusWord;
    if (value == _lastValue && !updateFirst_)
        return nullptr;
    updateFirst_ = false;
    return getUpdatedStrValue(hideUnits, format, UnitKeyword(units).text(), value);
}

template <class Member>
QString* OstrelBase::sampleMember(short statusWord, Member& member, Refresh refresh) {
    limitColorCode = statusWord;
    const double value = member.value;
    if (value == _lastValue && !updateFirst_)
        return nullptr;
    // Kept: composition and property members give their text on every sample, changed or not.
    if (refresh != Refresh::AsBefore)
        updateFirst_ = refresh == Refresh::Again;
    double shown = value;
    if (_units[0] != '\0')
        unitsConvert(value, UnitKeyword(member.units).text(), &shown, _units);
    svalue = valueText(formatString, shown, _name);
    _lastValue = value;
    return &svalue;
}

// The number on the screen may be that of other units, so it alone does not tell.
bool OstrelBase::rests(int value) const {
    return value == _ilastValue && value == m_lastInteger && !updateFirst_;
}

QString* OstrelBase::sampleInteger() {
    limitColorCode = iptr->status;
    const int value = iptr->value;
    if (rests(value))
        return nullptr;
    int shown = value;
    if (_units[0] != '\0' && !converted(units_get_int_keyword(&shown, iptr, _units)))
        return nullptr;
    updateFirst_ = false;
    svalue = valueText(iptr->display_format, shown, _name);
    _ilastValue = shown;
    m_lastInteger = value;
    return &svalue;
}

QString* OstrelBase::sampleIntegerElement() {
    // An array may have been given new elements since the last sample.
    iaptr = static_cast<INTEGER_ARRAY_VARIABLE*>(_ptr);
    iamptr = get_integer_array_adr(iaptr, &_mem);
    if (!iamptr)
        return nullptr;
    limitColorCode = iamptr->status;
    const int value = iamptr->value;
    if (rests(value))
        return nullptr;
    int shown = value;
    UnitKeyword own(iamptr->units);
    if (_units[0] != '\0' && !converted(units_lng_keyword_convrt(value, own.text(), &shown, _units)))
        return nullptr;
    updateFirst_ = false;
    svalue = valueText(iaptr->display_format, shown, _name);
    _ilastValue = shown;
    m_lastInteger = value;
    return &svalue;
}

bool OstrelBase::converted(int code) const {
    if (code == 0)
        return true;
    qDebug("Error retrieving units... code %i [ from %s with units %s ]", code, qPrintable(objectName()), _units);
    return false;
}

QString* OstrelBase::sampleLogical() {
    limitColorCode = lptr->status;
    const bool value = lptr->value != 0;
    updateFirst_ = false;
    takeStateText(*lptr, value, &svalue);
    _llastValue = value;
    return &svalue;
}

QString* OstrelBase::sampleLogicalElement() {
    limitColorCode = lamptr->status;
    const bool value = lamptr->value != 0;
    updateFirst_ = false;
    svalue = stateText(*laptr, value);
    if (svalue.isEmpty())
        svalue = value ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
    _llastValue = value;
    return &svalue;
}

QString* OstrelBase::getUpdatedStrValue(bool hideUnits, char* display_format, char* units, double cValue) {
    _lastValue = cValue;
    double shown = cValue;
    if (_units[0] != '\0') {
        const int code = unitsConvert(cValue, units, &shown, _units);
        if (!converted(code)) {
            qDebug("Atempted to lookup %s and failed. ", units);
            return nullptr;
        }
    }
    svalue = valueText(display_format, sizeof(REAL_VARIABLE::display_format), shown, _name);
    if (hideUnits)
        return &svalue;
    const char* unitsShown = _units[0] != '\0' ? _units : units;
    const int length = static_cast<int>(strnlen(unitsShown, sizeof(_units)));
    svalueUnit = svalue + QLatin1Char('[') + QString::fromUtf8(unitsShown, length) + QLatin1Char(']');
    return &svalueUnit;
}

QColor OstrelBase::getOstrelLimitColors(bool& blink) {
    blink = asksForBlinking(limitColorCode);
    // Asked for once: a widget works its palette's group out anew each time.
    const QPalette& colors = palette();
    const QColor color = limitColor(limitColorCode, colors);
    // A limit colour must never vanish into the background.
    return color == colors.window().color() ? color.darker(200) : color;
}

void OstrelBase::checkStatus(bool startup) {
    bool blink = false;
    const QColor color = getOstrelLimitColors(blink);
    if ((!_monitorLimit && !_checkLimit) || color == transparent) {
        setColor(palette().text().color());
    } else if (!blink) {
        if (_requestedFlashTimer) {
            TimerModerator::releaseFromTimer(this, flashInterval);
            _requestedFlashTimer = false;
        }
        setColor(color == black ? palette().text().color() : color);
    } else if (!TimerModerator::isRegistered(this, flashInterval)) {
        // The colour stays for flash() to handle.
        _requestedFlashTimer = TimerModerator::requestTimer(this, flashInterval);
    }
    finishFirstLoad(startup);
    _temp_ignore = false;
}

void OstrelBase::finishFirstLoad(bool startup) {
    if (_initFlag)
        return;
    if (_first_write) {
        _initFlag = !startup;
        return;
    }
    _initFlag = true;
    updateUIName(VARIABLE_FOUND, _name, true);
}

void OstrelBase::flash() {
    bool blink = false;
    QColor color = getOstrelLimitColors(blink);
    if (color == transparent || !_color.isValid()) {
        _color = palette().text().color();
        color = _color;
    }
    // The off phase is the parent's background.
    if (flashOn)
        color = parentWidget() ? parentWidget()->palette().window().color() : _color;
    setColor(color);
    flashOn = !flashOn;
    update();
}
