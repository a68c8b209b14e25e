#include "widgets/dialgauge.h"

#include <ostrel/store.h>
#include <ostrel/units.h>

#include <QCloseEvent>
#include <QDebug>

#include "fabric/timermoderator.h"
#include "ui_dialgauge.h"
#include "variables/namechoice.h"
#include "variables/names.h"
#include "variables/notfoundmark.h"
#include "variables/recordtext.h"
#include "variables/statuscolour.h"
#include "variables/valuetext.h"

namespace {

constexpr double noValue = -99999.0;

// Only the low and the high limits have arcs, not the age.
constexpr int arcs = VARIABLE_AGE_LIMIT;

color3 colorize(int colorCode) {
    const StatusColour colour = statusColour(colorCode);
    return {double(colour.red), double(colour.green), double(colour.blue)};
}

}  // namespace

ZelDialGauge::ZelDialGauge(QWidget* parent) : OstrelBase(parent), ui(std::make_unique<Ui::dialgauge>()) {
    ui->setupUi(this);
    _initFlag = false;
    _unitsVis = true;
    _smartTicks = false;
    _updateRate = 1000;
    _lastValue = noValue;
    _oldName = notSet;
    _height = 120;
    _width = ui->dial->height();
    className.append(QStringLiteral("ZelDialGauge"));
    _varType = QT_OSTREL_REAL_INTEGER;
    limit_status = nullptr;
    m_mark = std::make_unique<NotFoundMark>(ui->iconLabel, QVector<QWidget*>{this});
    ui->remoteLabel->hide();
    if (RemoteDisplay) {
        ui->dial->set_remote();
        ui->remoteLabel->show();
    }
}

ZelDialGauge::~ZelDialGauge() = default;

// ---- Binding ----

VariableAcceptance ZelDialGauge::isValidVarType(const QString& name) const {
    return acceptVariable(name, {REAL_TYPE, INT_TYPE});
}

void ZelDialGauge::setName(const QString& name) {
    unitsChanged = true;
    const NameChoice choice = chooseName(name, _name, isValidVarType(name));
    m_mark->show(choice.isMissing);
    VAR_FIND_STATUS status = setupVariable(choice.name);
    if (status == VARIABLE_NOTFOUND) {
        // The former record must not go on moving the pointer under the mark.
        clearMem();
        TimerModerator::releaseFromTimer(this, getSampleRate());
    } else if (status == VARIABLE_CHANGED || unitsChanged || isBoundElsewhere()) {
        status = rebind(status, choice.name);
    }
    updateUIName(status, choice.name, false);
    sample(true);
    update();
}

VAR_FIND_STATUS ZelDialGauge::rebind(VAR_FIND_STATUS status, const QString& nameUsed) {
    if (status == VARIABLE_CHANGED) {
        setUnits(QString());
        TimerModerator::releaseFromTimer(this);
    }
    if (_mem.vari_type != REAL_TYPE && _mem.vari_type != INT_TYPE)
        return VARIABLE_NOTFOUND;
    const RecordView view = viewRecord();
    limit_status = view.limits;
    if (asksForUnits())
        setLabelUnits(nameUsed, getUnits());
    else
        setLabelUnits(_name, recordText(*view.units));
    if (unitsChanged) {
        _lastValue = noValue;
        unitsChanged = false;
    }
    // An integer has no value that stands for none.
    updateFirst_ = true;
    _pause = false;
    TimerModerator::requestTimer(this, getSampleRate());
    return status;
}

bool ZelDialGauge::asksForUnits() const {
    return *_units && getUnits() != notSet;
}

void ZelDialGauge::setLabelUnits(const QString& label, const QString& units) {
    ui->dial->setLabel(_unitsVis ? label + QLatin1Char('[') + units.toUpper() + QLatin1Char(']') : label);
}

// ---- Sampling ----

void ZelDialGauge::sample(bool startup) {
    if (_cfg_in_progress || !_ptr)
        return;
    if (_mem.vari_type == REAL_TYPE && rptr)
        sampleRecord(*rptr, &_lastValue);
    else if (_mem.vari_type == INT_TYPE && iptr)
        sampleRecord(*iptr, &_ilastValue);
    checkStatus(startup);
    if (_initFlag && !ui->dial->getInitFinished())
        ui->dial->setInitFinished(true);
}

void ZelDialGauge::sample() {
    sample(false);
}

template <class Record, class Value>
void ZelDialGauge::sampleRecord(const Record& record, Value* last) {
    // At each sample, so that a limit that was changed shows without anybody telling of it.
    updateArcs(record.units);
    const Value value = record.value;
    const bool isFirst = updateFirst_ && _mem.vari_type == INT_TYPE;
    updateFirst_ = false;
    if (value == *last && !isFirst)
        return;
    *last = value;
    showValue(record, value);
}

template <class Record, class Value>
void ZelDialGauge::showValue(const Record& record, Value value) {
    double shown = value;
    if (*_units)
        unitsConvert(value, UnitKeyword(record.units).text(), &shown, _units);
    ui->dial->setValue(shown);
    // Kept: a converted integer is formatted as a real, whatever its format says.
    tooltip = *_units ? valueText(record.display_format, shown, _name) : valueText(record.display_format, value, _name);
    ui->dial->setToolTip(tooltip.trimmed());
    if (unitsVisDirty) {
        setLabelUnits(recordText(record.label), asksForUnits() ? getUnits() : recordText(record.units));
        unitsVisDirty = false;
    }
}

void ZelDialGauge::updateArcs(const char (&recordUnits)[16]) {
    LIMIT_STATUS limits{};
    const short code = get_limit_info(_name.toUtf8().data(), &limits, limit_array, limit_exists, display);
    if (code != 0) {
        qDebug("Error getting limit info. Code <%i>.", code);
        return;
    }
    convert_limit_values(recordUnits);
    arc made[arcs];
    for (int i = 0; i < arcs; ++i) {
        if (limit_exists[i]) {
            limitColorCode = display[i];
            made[i] = ui->dial->makeArc(1, colorize(display[i]), i < HIGH_ALARM_LIMIT ? 0 : 1, limit_array[i]);
        } else {
            made[i] = ui->dial->makeArc(0, color3{}, 0, limit_array[i]);
        }
    }
    if (limit_exists[VARIABLE_AGE_LIMIT])
        limitColorCode = display[VARIABLE_AGE_LIMIT];
    ui->dial->setAllArcs(made[0], made[1], made[2], made[3], made[4], made[5]);
}

void ZelDialGauge::convert_limit_values(const char (&recordUnits)[16]) {
    if (!*_units)
        return;
    for (int i = 0; i < arcs; ++i) {
        if (!limit_exists[i])
            continue;
        // A limit that does not convert stays beside the value, which does not either.
        new_limit_array[i] = limit_array[i];
        unitsConvert(limit_array[i], UnitKeyword(recordUnits).text(), &new_limit_array[i], _units);
        limit_array[i] = new_limit_array[i];
    }
}

void ZelDialGauge::ostrelTimerEvent(int interval) {
    if (isMyTick(interval))
        sample(false);
}

// ---- Properties ----

void ZelDialGauge::setUnitsVis(bool visible) {
    if (visible != _unitsVis) {
        _unitsVis = visible;
        unitsVisDirty = true;
    }
    remember("unitsVis", visible);
}

bool ZelDialGauge::smartTicks() const {
    return ui->dial->smartTicks();
}

void ZelDialGauge::setSmartTicks(bool smart) {
    _smartTicks = smart;
    ui->dial->setSmartTicks(smart);
    remember("smartTicks", smart);
}

double ZelDialGauge::minimum() const {
    return ui->dial->minimum();
}

void ZelDialGauge::setMinimum(double minimum) {
    ui->dial->setMinimum(minimum);
    remember("minimum", minimum);
}

double ZelDialGauge::maximum() const {
    return ui->dial->maximum();
}

void ZelDialGauge::setMaximum(double maximum) {
    ui->dial->setMaximum(maximum);
    remember("maximum", maximum);
}

int ZelDialGauge::precision() const {
    return ui->dial->precision();
}

void ZelDialGauge::setPrecision(int precision) {
    ui->dial->setPrecision(precision);
    remember("precision", precision);
}

double ZelDialGauge::startAngle() const {
    return ui->dial->startAngle();
}

void ZelDialGauge::setStartAngle(double angle) {
    ui->dial->setStartAngle(angle);
    remember("startAngle", angle);
}

double ZelDialGauge::endAngle() const {
    return ui->dial->endAngle();
}

void ZelDialGauge::setEndAngle(double angle) {
    ui->dial->setEndAngle(angle);
    remember("endAngle", angle);
}

int ZelDialGauge::ticks() const {
    return ui->dial->ticks();
}

void ZelDialGauge::setTicks(int ticks) {
    ui->dial->setTicks(ticks);
    remember("ticks", ticks);
}

QColor ZelDialGauge::getBackColor() const {
    return ui->dial->getBackColor();
}

void ZelDialGauge::setBackColor(const QColor& color) {
    ui->dial->setBackColor(color);
    remember("backColor", color);
}

QColor ZelDialGauge::getBorderColor() const {
    return ui->dial->getBorderColor();
}

void ZelDialGauge::setBorderColor(const QColor& color) {
    ui->dial->setBorderColor(color);
    remember("borderColor", color);
}

QColor ZelDialGauge::getTextColor() const {
    return ui->dial->getTextColor();
}

void ZelDialGauge::setTextColor(const QColor& color) {
    ui->dial->setTextColor(color);
    remember("textColor", color);
}

QString ZelDialGauge::skin() const {
    return ui->dial->skin();
}

void ZelDialGauge::setSkin(const QString& skin) {
    ui->dial->setSkin(skin);
}

double ZelDialGauge::getValue() const {
    return ui->dial->value();
}

void ZelDialGauge::setToolTipString(const QString& toolTip) {
    remember("toolTip", toolTip);
    _toolTip = toolTip;
    m_mark->setToolTip(toolTip);
}

QString ZelDialGauge::getToolTip() const {
    return m_mark->toolTip();
}

// ---- Events ----

void ZelDialGauge::closeEvent(QCloseEvent*) {
    TimerModerator::releaseFromTimer(this);
}

void ZelDialGauge::resizeEvent(QResizeEvent* event) {
    event->ignore();
}

void ZelDialGauge::dialgauge_customContextMenuRequested(QPoint) {
    chooseVariable();
}
