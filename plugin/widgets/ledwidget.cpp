#include "widgets/ledwidget.h"

#include "fabric/timermoderator.h"
#include "ui_ledwidget.h"
#include "variables/logicalstate.h"
#include "variables/namechoice.h"
#include "variables/names.h"
#include "variables/notfoundmark.h"

namespace {

// No lamp has this value, so what is sampled next reaches it.
constexpr double noValue = -99999.0;

}  // namespace

ZelLed::ZelLed(QWidget* parent) : OstrelBase(parent), ui(std::make_unique<Ui::ZelLed>()) {
    _initFlag = false;
    ui->setupUi(this);
    _unitsVis = true;
    _smartTicks = false;
    _updateRate = 1000;
    _lastValue = noValue;
    _oldName = notSet;
    _height = 40;
    _width = ui->qLed->height();
    _varType = QT_OSTREL_LOGICAL;
    setOnColor(Green);
    setOffColor(Red);
    className.append(QStringLiteral("ZelLed"));
    if (!RemoteDisplay)
        removeAction(changeUnitsAction);
    _monitorLimit = false;
    _checkLimit = false;
    m_mark = std::make_unique<NotFoundMark>(ui->iconLabel, QVector<QWidget*>{this});
}

ZelLed::~ZelLed() = default;

VariableAcceptance ZelLed::isValidVarType(const QString& name) const {
    return acceptVariable(name, {LOGI_TYPE});
}

void ZelLed::setName(const QString& name) {
    const NameChoice choice = chooseName(name, _name, isValidVarType(name));
    m_mark->show(choice.isMissing);
    const VAR_FIND_STATUS status = setupVariable(choice.name);
    if (status == VARIABLE_CHANGED || (status == VARIABLE_FOUND && isBoundElsewhere())) {
        rebind(status);
    } else {
        ui->label->setText(_name);
        if (status == VARIABLE_NOTFOUND)
            showNothing();
    }
    updateUIName(status, choice.name, false);
    sample(true);
    update();
}

void ZelLed::showNothing() {
    ui->qLed->setValue(false);
    ui->state->hide();
    clearMem();
    TimerModerator::releaseFromTimer(this, getSampleRate());
}

void ZelLed::rebind(VAR_FIND_STATUS status) {
    if (status == VARIABLE_CHANGED) {
        setUnits(QString());
        TimerModerator::releaseFromTimer(this);
    }
    if (_mem.vari_type != LOGI_TYPE)
        return;
    viewRecord();
    const short value = lptr->value;
    ui->qLed->setValue(value != 0);
    // The lamp no longer shows what was sampled last, and the first sample may already find that value again.
    if (_lastValue != value)
        _lastValue = noValue;
    ui->label->setText(_name.trimmed());
    showState();
    TimerModerator::requestTimer(this, getSampleRate());
    update();
}

void ZelLed::sample(bool startup) {
    if (_cfg_in_progress || !_ptr || _mem.vari_type != LOGI_TYPE)
        return;
    viewRecord();
    const short value = lptr->value;
    if (m_unitsVisChanged || _lastValue != value) {
        setValue(value != 0);
        m_unitsVisChanged = false;
        _lastValue = value;
    }
    showState();
    checkStatus(startup);
}

void ZelLed::showState() {
    if (_unitsVis && takeStateText(*lptr, lptr->value != 0, &svalue))
        ui->state->setText(svalue.trimmed());
    ui->state->setVisible(_unitsVis);
}

void ZelLed::sample() {
    sample(false);
}

void ZelLed::ostrelTimerEvent(int interval) {
    if (isMyTick(interval))
        sample(false);
}

bool ZelLed::value() const {
    return ui->qLed->value();
}

void ZelLed::setValue(bool value) {
    ui->qLed->setValue(value);
    if (!_unitsVis)
        ui->state->hide();
    else if (_ptr && _mem.vari_type == LOGI_TYPE)
        ui->state->setText(stateText(*static_cast<const LOGICAL_VARIABLE*>(_ptr), value).trimmed());
}

void ZelLed::ZelLed_customContextMenuRequested(QPoint) {
    chooseVariable();
}

void ZelLed::setOnColor(ledColor color) {
    m_onColor = color;
    ui->qLed->setOnColor(static_cast<QLed::ledColor>(color));
    remember("onColor", static_cast<int>(color));
}

void ZelLed::setOffColor(ledColor color) {
    m_offColor = color;
    ui->qLed->setOffColor(static_cast<QLed::ledColor>(color));
    remember("offColor", static_cast<int>(color));
}

void ZelLed::setShape(ledShape shape) {
    m_shape = shape;
    ui->qLed->setShape(static_cast<QLed::ledShape>(shape));
    remember("shape", static_cast<int>(shape));
}

void ZelLed::setNameFont(const QFont& font) {
    ui->label->setFont(font);
    rememberFont("nameFont", font);
}

QFont ZelLed::getNameFont() const {
    return ui->label->font();
}

void ZelLed::setUnitsVis(bool visible) {
    if (visible != _unitsVis) {
        _unitsVis = visible;
        m_unitsVisChanged = true;
    }
    remember("unitsVis", visible);
}

void ZelLed::setHideName(bool hide) {
    m_hideName = hide;
    ui->label->setVisible(!hide);
    remember("hideName", hide);
}

void ZelLed::setToolTipString(const QString& toolTip) {
    _toolTip = toolTip;
    m_mark->setToolTip(toolTip);
    remember("toolTip", toolTip);
}

QString ZelLed::getToolTip() const {
    return m_mark->toolTip();
}

void ZelLed::setColor(const QColor&) {}

void ZelLed::resizeEvent(QResizeEvent*) {}
