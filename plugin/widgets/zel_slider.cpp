#include "widgets/zel_slider.h"

#include <ostrel/units.h>

#include <algorithm>

#include "fabric/timermoderator.h"
#include "ui_zel_slider.h"
#include "variables/namechoice.h"
#include "variables/names.h"
#include "variables/notfoundmark.h"
#include "variables/valuetext.h"

ZelSlider::ZelSlider(QWidget* parent) : OstrelBase(parent), ui(std::make_unique<Ui::ZelSlider>()) {
    ui->setupUi(this);
    _initFlag = false;
    _updateRate = 1000;
    _lastValue = -99999.0;
    _oldName = notSet;
    _varType = QT_OSTREL_REAL_INTEGER;
    className.append(QStringLiteral("ZelSlider"));
    m_mark = std::make_unique<NotFoundMark>(ui->iconLabel, QVector<QWidget*>{this});
    ui->slider->setMinimumWidth(sliderMinWidth);
    ui->sliderLayout->setSizeConstraint(QLayout::SetMinimumSize);
    ui->slider->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    placeSpacer(ui->leftSpacer, LspacerWidth);
    placeSpacer(ui->rightSpacer, RspacerWidth);
    ui->remote_label->hide();
    if (RemoteDisplay) {
        ui->remote_label->show();
        ui->label->hide();
        ui->slider->set_remote();
        ui->remote_label->setText(tr("slider does not work remotely"));
    }
}

ZelSlider::~ZelSlider() = default;

// ---- Binding ----

VariableAcceptance ZelSlider::isValidVarType(const QString& name) const {
    return acceptVariable(name, {REAL_TYPE, INT_TYPE});
}

void ZelSlider::setName(const QString& name) {
    const NameChoice choice = chooseName(name, _name, isValidVarType(name));
    m_mark->show(choice.isMissing);
    VAR_FIND_STATUS status = setupVariable(choice.name);
    if (status == VARIABLE_CHANGED || (status == VARIABLE_FOUND && (unitsChanged || isBoundElsewhere()))) {
        status = rebind(status);
    } else {
        ui->label->setText(_name);
        if (status == VARIABLE_NOTFOUND)
            showNothing();
        else if (_ptr == rptr || _ptr == iptr)
            TimerModerator::requestTimer(this, getSampleRate());
    }
    updateUIName(status, choice.name, false);
    resize(size());
    sample(true);
    update();
}

void ZelSlider::showNothing() {
    ui->slider->Value = std::min(ui->slider->Minimum, ui->slider->Maximum);
    ui->slider->update();
    clearMem();
    TimerModerator::releaseFromTimer(this, getSampleRate());
}

VAR_FIND_STATUS ZelSlider::rebind(VAR_FIND_STATUS status) {
    if (status == VARIABLE_CHANGED) {
        setUnits(QString());
        TimerModerator::releaseFromTimer(this);
    }
    if (_mem.vari_type != REAL_TYPE && _mem.vari_type != INT_TYPE)
        return VARIABLE_NOTFOUND;
    limit_status = viewRecord().limits;
    // Kept: only an integer has limits to colour by.
    _checkLimit = _mem.vari_type == INT_TYPE;
    ui->label->setText(_name);
    TimerModerator::requestTimer(this, getSampleRate());
    update();
    return status;
}

// ---- Sampling ----

void ZelSlider::sample(bool startup) {
    if (_cfg_in_progress)
        return;
    if (_ptr) {
        if (_mem.vari_type == REAL_TYPE && rptr)
            sampleRecord(rptr, &_lastValue, units_get_real_keyword);
        else if (_mem.vari_type == INT_TYPE && iptr)
            sampleRecord(iptr, &_ilastValue, units_get_int_keyword);
        update();
    }
    checkStatus(startup);
}

void ZelSlider::sample() {
    sample(false);
}

template <class Record, class Value>
void ZelSlider::sampleRecord(Record* record, Value* last, short (*convert)(Value*, Record*, char*)) {
    const Value value = record->value;
    if (*last == value && value == ui->slider->Value)
        return;
    Value shown = value;
    if (*_units && convert(&shown, record, _units) != 0)
        return;
    svalue = valueText(record->display_format, shown, _name);
    // Kept: whatever the units, the bar stands on the scale of the form, which is in the variable's own.
    ui->slider->Value = clamped(value);
    *last = shown;
    ui->slider->update();
}

double ZelSlider::clamped(double value) const {
    if (value > ui->slider->Maximum)
        return ui->slider->Maximum;
    return ui->slider->Minimum > value ? ui->slider->Minimum : value;
}

void ZelSlider::ostrelTimerEvent(int interval) {
    if (isMyTick(interval))
        sample(false);
}

bool ZelSlider::eventFilter(QObject* obj, QEvent* event) {
    if (RemoteDisplay || obj == ui->slider)
        return false;
    return QObject::eventFilter(obj, event);
}

// ---- The scale ----

void ZelSlider::scaleChanged(const char* property, const QVariant& value) {
    ui->slider->render();
    ui->slider->update();
    remember(property, value);
}

double ZelSlider::getMinimum() const {
    return ui->slider->Minimum;
}

void ZelSlider::setMinimum(double minimum) {
    ui->slider->Minimum = minimum;
    scaleChanged("Minimum", minimum);
}

double ZelSlider::getMaximum() const {
    return ui->slider->Maximum;
}

void ZelSlider::setMaximum(double maximum) {
    ui->slider->Maximum = maximum;
    scaleChanged("Maximum", maximum);
}

int ZelSlider::getMajorTicks() const {
    return ui->slider->MajorTicks;
}

void ZelSlider::setMajorTicks(int ticks) {
    ui->slider->MajorTicks = ticks;
    scaleChanged("MajorTicks", ticks);
}

int ZelSlider::getMinorTicks() const {
    return ui->slider->MinorTicks;
}

void ZelSlider::setMinorTicks(int ticks) {
    ui->slider->MinorTicks = ticks;
    scaleChanged("MinorTicks", ticks);
}

Qt::Orientation ZelSlider::getOrientation() const {
    return ui->slider->Orientation;
}

void ZelSlider::setOrientation(Qt::Orientation orientation) {
    ui->slider->Orientation = orientation;
    scaleChanged("Orientation", static_cast<int>(orientation));
}

int ZelSlider::getPrecision() const {
    return ui->slider->Precision;
}

void ZelSlider::setPrecision(int precision) {
    ui->slider->Precision = precision;
    scaleChanged("Precision", precision);
}

QColor ZelSlider::getBarColor() const {
    return ui->slider->BarColor;
}

void ZelSlider::setBarColor(const QColor& color) {
    ui->slider->BarColor = color;
    ui->slider->update();
    remember("BarColor", color);
}

// ---- Looks ----

void ZelSlider::setNameFont(const QFont& font) {
    ui->label->setFont(font);
    rememberFont("NameFont", font);
}

void ZelSlider::setToolTipString(const QString& toolTip) {
    _toolTip = toolTip;
    m_mark->setToolTip(toolTip);
    remember("toolTip", toolTip);
}

QString ZelSlider::getToolTip() const {
    return m_mark->toolTip();
}

void ZelSlider::setLeftSpacerWidth(int width) {
    LspacerWidth = allowedSpacer(width);
    placeSpacer(ui->leftSpacer, LspacerWidth);
    remember("leftSpacerWidth", LspacerWidth);
}

void ZelSlider::setRightSpacerWidth(int width) {
    RspacerWidth = allowedSpacer(width);
    placeSpacer(ui->rightSpacer, RspacerWidth);
    remember("rightSpacerWidth", RspacerWidth);
}

int ZelSlider::allowedSpacer(int width) {
    const int w = ui->slider->width() - 1;
    if (maxslidersize <= w)
        maxslidersize = w + 1;
    const int limit = maxslidersize / 2 - 25;
    return limit > width ? std::max(width, 0) : limit;
}

void ZelSlider::placeSpacer(QSpacerItem* spacer, int width) {
    spacer->changeSize(width, 1, QSizePolicy::Fixed, QSizePolicy::Expanding);
    layout()->invalidate();
}

void ZelSlider::setSliderMinimumWidth(int width) {
    sliderMinWidth = width;
    ui->slider->setMinimumWidth(width);
    remember("sliderMinWidth", width);
}

void ZelSlider::setLabelMaximumWidth(int width) {
    labelMaxWidth = width;
    ui->label->setMaximumWidth(width);
    remember("labelMaxWidth", width);
}
