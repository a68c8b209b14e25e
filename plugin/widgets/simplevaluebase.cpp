#include "widgets/simplevaluebase.h"

#include <ostrel/store.h>

#include <QMessageBox>
#include <QResizeEvent>
#include <algorithm>
#include <limits>

#include "fabric/timermoderator.h"
#include "variables/logicalstate.h"
#include "variables/namechoice.h"
#include "variables/names.h"
#include "variables/notfoundmark.h"
#include "variables/recordtext.h"
#include "variables/valueentry.h"

namespace {

// A label asks for a new layout with every text, all the way up to the window, and does not where it counts as hidden.
// A text that fits needs none: a screen full of values would lay itself out ten times a second for nothing.
void setTextInPlace(QLabel& label, const QString& text) {
    label.setAttribute(Qt::WA_WState_Hidden, true);
    label.setText(text);
    label.setAttribute(Qt::WA_WState_Hidden, false);
}

}  // namespace

SimpleValueBase::SimpleValueBase(QWidget* parent) : OstrelBase(parent) {}

SimpleValueBase::~SimpleValueBase() = default;

void SimpleValueBase::startAs(const QString& name) {
    _color = palette().text().color();
    setHideName(m_hideName);
    setHideUnits(m_hideUnits);
    _updateRate = 1000;
    _lastValue = -99999.0;
    _oldName = notSet;
    className.append(name);
    flashOn = false;
    _readOnlyString = true;
    // Placing the parts looked for the empty name.
    m_mark->hidePicture();
    _varType = QT_OSTREL_ANY;
}

void SimpleValueBase::useParts(const ReadoutParts& parts) {
    m_parts = &parts;
    parts.name->setTextKind(LegibleText::Kind::Name);
    m_mark = std::make_unique<NotFoundMark>(parts.iconLabel, QVector<QWidget*>{parts.frame});
}

// ---- Properties ----

void SimpleValueBase::setValueFont(const QFont& font) {
    m_parts->value->setFont(font);
    rememberFont("valueFont", font);
}

QFont SimpleValueBase::getValueFont() const {
    return m_parts->value->font();
}

void SimpleValueBase::setNameFont(const QFont& font) {
    m_parts->name->setFont(font);
    rememberFont("nameFont", font);
}

QFont SimpleValueBase::getNameFont() const {
    return m_parts->name->font();
}

void SimpleValueBase::setHideName(bool hide) {
    m_hideName = hide;
    m_parts->name->setVisible(!hide);
    remember("hideName", hide);
}

void SimpleValueBase::setHideUnits(bool hide) {
    m_hideUnits = hide;
    updateFirst_ = true;
    remember("hideUnits", hide);
}

void SimpleValueBase::setReadOnlyString(bool readOnly) {
    _readOnlyString = readOnly;
    remember("readOnlyString", readOnly);
}

void SimpleValueBase::setNameAlignment(Qt::Alignment alignment) {
    m_nameAlignment = alignment;
    m_parts->name->setAlignment(alignment);
    remember("nameAlignment", static_cast<int>(alignment));
}

int SimpleValueBase::sumOf(int one, int other) {
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp(qint64{one} + other, qint64{Limits::min()}, qint64{Limits::max()}));
}

void SimpleValueBase::setNameMaxWidth(int width) {
    m_nameMaxWidth = width;
    m_parts->name->setMaximumWidth(width);
    remember("nameMaxWidth", width);
}

void SimpleValueBase::setToolTipString(const QString& toolTip) {
    _toolTip = toolTip;
    m_mark->setToolTip(toolTip);
    if (!m_mark->isShown())
        showToolTip();
    remember("toolTip", toolTip);
}

void SimpleValueBase::set_custom_toolTip(QString& text) {
    m_parts->frame->setToolTip(text);
}

QString SimpleValueBase::getValue() const {
    return m_parts->value->text();
}

void SimpleValueBase::setRowCol(int row, int col) {
    m_row = row;
    m_col = col;
}

void SimpleValueBase::placed() {
    m_parts->value->setObjectName(QStringLiteral("value"));
    if (!RemoteDisplay)
        m_parts->value->installEventFilter(this);
    unitsChanged = true;
}

// ---- Binding ----

VariableAcceptance SimpleValueBase::isValidVarType(const QString& name) const {
    return acceptVariable(name, {REAL_TYPE, INT_TYPE, LOGI_TYPE, STRING_TYPE, STAT_TYPE, COMP_TYPE, PROP_TYPE,
                                 EMIS_TYPE, REAL_ARRAY_TYPE, INT_ARRAY_TYPE, STRING_ARRAY_TYPE, LOGI_ARRAY_TYPE});
}

void SimpleValueBase::setName(const QString& name) {
    bind(name);
}

void SimpleValueBase::bind(const QString& name) {
    const NameChoice choice = chooseName(name, _name, isValidVarType(name));
    // A mark that is not shown takes no tool tip away.
    if (choice.isMissing || m_mark->isShown())
        m_mark->show(choice.isMissing);
    VAR_FIND_STATUS status = setupVariable(choice.name);
    if (status == VARIABLE_NOTFOUND)
        showMissing(choice.name);
    else if (status == VARIABLE_FOUND && !unitsChanged && !isBoundElsewhere())
        m_parts->name->setText(_name);
    else
        status = rebind(status);
    if (_name != _oldName && !choice.name.isEmpty() && (status == VARIABLE_CHANGED || choice.name == notSet))
        tellName(choice.name);
    updateUIName(status, choice.name, false);
    resize(size());
    sampleValue(true);
    update();
}

void SimpleValueBase::showMissing(const QString& asked) {
    unbound();
    // The operator shall see what is missing. Without a name, as at an empty place, _name may be the former one.
    if (!asked.isEmpty() && asked != notSet)
        m_parts->name->setText(_name);
    m_parts->value->setText(QStringLiteral("  -"));
    clearMem();
    m_mark->showWords(true);
    _slastValue.clear();
    TimerModerator::releaseFromTimer(this, getSampleRate());
}

VAR_FIND_STATUS SimpleValueBase::rebind(VAR_FIND_STATUS status) {
    if (status == VARIABLE_CHANGED) {
        setUnits(QString());
        TimerModerator::releaseFromTimer(this);
    }
    updateFirst_ = true;
    const RecordView view = viewRecord();
    if (!view.known) {
        m_mark->showWords(true);
        return VARIABLE_NOTFOUND;
    }
    if (view.units)
        myUnits = recordText(*view.units);
    limit_status = view.limits;
    const SM_VARI_TYPE kind = _mem.vari_type;
    if (!isLogical())
        _checkLimit = kind != STRING_TYPE && kind != STRING_ARRAY_TYPE;
    showFirst();
    bound();
    TimerModerator::requestTimer(this, getSampleRate());
    return status;
}

void SimpleValueBase::showFirst() {
    m_parts->name->setText(_name);
    if (isLogical()) {
        // The states' texts are the array's; each element has its own value.
        const bool on = _mem.vari_type == LOGI_TYPE ? lptr->value != 0 : memberIsTrue();
        if (_mem.vari_type == LOGI_TYPE)
            svalue = stateText(*lptr, on);
        else
            svalue = stateText(*laptr, on);
        showValue(svalue);
        _llastValue = on;
    }
    showToolTip();
}

bool SimpleValueBase::isLogical() const {
    return _mem.vari_type == LOGI_TYPE || _mem.vari_type == LOGI_ARRAY_TYPE;
}

bool SimpleValueBase::memberIsTrue() const {
    return lamptr && lamptr->value != 0;
}

// ---- Tool tips ----

QString SimpleValueBase::nameUnit() const {
    const QString asked = getUnits();
    const QString units = asked.isEmpty() || asked == notSet ? myUnits.trimmed().toUpper() : asked;
    return _name + QLatin1Char('[') + units + QLatin1Char(']');
}

void SimpleValueBase::showToolTip() {
    m_mark->showInstead(getToolTip().isEmpty() && !isLogical() ? nameUnit() : getToolTip());
}

QString SimpleValueBase::getToolTip() const {
    return m_mark->toolTip();
}

// ---- Sampling ----

void SimpleValueBase::takeTick(int interval) {
    if (isMyTick(interval))
        sampleValue(false);
    if (interval == flashInterval)
        flash();
}

void SimpleValueBase::sampleValue(bool startup) {
    if (_cfg_in_progress || !_ptr)
        return;
    switch (_mem.vari_type) {
        case LOGI_TYPE:
            sampleState();
            break;
        case STRING_TYPE:
            sampleText(strptr->status, strptr->value);
            break;
        case STRING_ARRAY_TYPE:
            if (samptr)
                sampleText(samptr->status, samptr->value);
            break;
        default:
            sampleNumber();
            break;
    }
    checkStatus(startup);
}

void SimpleValueBase::sampleState() {
    limitColorCode = lptr->status;
    const bool on = lptr->value != 0;
    if (takeStateText(*lptr, on, &svalue)) {
        showValue(svalue);
        stateChanged(on);
    }
    _llastValue = on;
    updateFirst_ = false;
}

template <size_t length>
void SimpleValueBase::sampleText(short statusWord, const char (&text)[length]) {
    limitColorCode = statusWord;
    if (updateFirst_)
        _slastValue = QString();
    updateFirst_ = false;
    if (takeRecordText(text, &_slastValue))
        showValue(_slastValue);
}

void SimpleValueBase::sampleNumber() {
    const QString* text = sampleReal(m_hideUnits);
    if (!text)
        return;
    if (m_resolution != 0)
        showValue(QString::number(text->toDouble(), 'f', m_resolution));
    else
        showValue(*text);
}

void SimpleValueBase::showResolution(int decimals) {
    m_resolution = decimals;
    // A value that rests takes its new shape too.
    updateFirst_ = true;
    sampleValue(true);
}

void SimpleValueBase::showValue(const QString& text) {
    const QString shown = text.trimmed();
    FlashingLabel& value = *m_parts->value;
    if (shown == value.text())
        return;
    const bool fits = value.isVisible() && value.fontMetrics().horizontalAdvance(shown) <= value.contentsRect().width();
    if (fits)
        setTextInPlace(value, shown);
    else
        value.setText(shown);
}

// ---- Colours ----

void SimpleValueBase::setColor(const QColor& color) {
    _color = color;
    m_parts->value->setStatusColour(statusColour(*this, color, flashOn));
    if (m_parts->value->palette().text().color() == color)
        return;
    QPalette coloured = m_parts->value->palette();
    coloured.setBrush(QPalette::Text, QBrush(color));
    m_parts->value->setPalette(coloured);
}

QColor SimpleValueBase::switchColor(const QColor& textC) const {
    if (textC == Qt::white)
        return Qt::black;
    if (textC == Qt::black)
        return Qt::white;
    if (textC == Qt::blue)
        return Qt::darkBlue;
    if (textC == Qt::green)
        return Qt::darkGreen;
    if (textC == Qt::cyan)
        return Qt::darkCyan;
    if (textC == Qt::red)
        return Qt::darkRed;
    if (textC == Qt::magenta)
        return Qt::darkMagenta;
    if (textC == Qt::yellow)
        return Qt::darkYellow;
    return QColor();
}

void SimpleValueBase::resizeEvent(QResizeEvent* event) {
    event->accept();
}

// ---- Writing ----

bool SimpleValueBase::eventFilter(QObject* obj, QEvent* event) {
    return filterField(m_parts->value, obj, event);
}

void SimpleValueBase::handleWriteValue(QObject*) {
    if (RemoteDisplay || _readOnlyString)
        return;
    if (!_ptr) {
        tellNoVariable(this);
        return;
    }
    switch (_mem.vari_type) {
        case REAL_TYPE:
            enterReal(this, _name, _units, rptr,
                      m_resolution >= 1 ? m_resolution : formatDecimals(recordText(rptr->display_format)),
                      Unconverted::Silent);
            break;
        case INT_TYPE:
            // Kept: the target units are those of the last real variable that the widget was bound to.
            enterInteger(this, _name, _units, iptr, rptr);
            break;
        case STRING_TYPE:
            enterString(this, _name, strptr);
            break;
        case LOGI_TYPE:
            set_logical_variable(lptr, !_llastValue, 0, nullptr);
            break;
        default:
            QMessageBox::information(this, tr("Error"),
                                     tr("The variable types of: STATISTICS, EMISSIONS,\n\t\tCOMPOSITION and "
                                        "REAL_INTEGER are not editable"),
                                     QMessageBox::Ok);
            break;
    }
}
