#include "widgets/zel_value.h"

#include <ostrel/store.h>

#include <QApplication>

#include "fabric/timermoderator.h"
#include "ui_zel_value.h"
#include "variables/namechoice.h"
#include "variables/names.h"
#include "variables/notfoundmark.h"
#include "variables/recordtext.h"
#include "variables/valueentry.h"

ZelValue::ZelValue(QWidget* parent) : OstrelBase(parent), ui(std::make_unique<Ui::ZelValue>()) {
    // Before there are children that would have to follow.
    setFont(QApplication::font());
    ui->setupUi(this);
    _initFlag = false;
    _unitsVis = true;
    _smartTicks = false;
    _updateRate = 1000;
    _lastValue = -99999.0;
    _oldName = notSet;
    _height = ui->frame->height();
    _width = ui->frame->width();
    className.append(QStringLiteral("ZelValue"));
    ui->units_label->setTextKind(LegibleText::Kind::Words);
    QPalette blackText = ui->value->palette();
    blackText.setBrush(QPalette::Text, QBrush(Qt::black));
    ui->value->setToldPalette(blackText);
    flashOn = false;
    _varType = static_cast<QT_OSTREL_FLAGS>(QT_OSTREL_ANY & ~QT_OSTREL_STRING);
    if (!RemoteDisplay)
        ui->value->installEventFilter(this);
    limit_status = nullptr;
    m_mark = std::make_unique<NotFoundMark>(ui->iconLabel, QVector<QWidget*>{ui->frame});
}

ZelValue::~ZelValue() = default;

VariableAcceptance ZelValue::isValidVarType(const QString& name) const {
    return acceptVariable(name, {REAL_TYPE, INT_TYPE, LOGI_TYPE, STAT_TYPE, COMP_TYPE, PROP_TYPE, EMIS_TYPE,
                                 REAL_ARRAY_TYPE, INT_ARRAY_TYPE, LOGI_ARRAY_TYPE});
}

void ZelValue::setName(const QString& name) {
    const NameChoice choice = chooseName(name, _name, isValidVarType(name));
    m_mark->show(choice.isMissing);
    VAR_FIND_STATUS status = setupVariable(choice.name);
    if (status == VARIABLE_NOTFOUND)
        showNothing();
    else if (status == VARIABLE_FOUND && !unitsChanged && !isBoundElsewhere())
        ui->name->setText(_name);
    else
        status = rebind(status);
    updateUIName(status, choice.name, false);
    resize(size());
    sample(true);
    update();
}

void ZelValue::showNothing() {
    ui->value->setText(QStringLiteral("-"));
    ui->units_label->setText(QString());
    clearMem();
    TimerModerator::releaseFromTimer(this, getSampleRate());
}

VAR_FIND_STATUS ZelValue::rebind(VAR_FIND_STATUS status) {
    if (status == VARIABLE_CHANGED) {
        setUnits(QString());
        TimerModerator::releaseFromTimer(this);
    }
    updateFirst_ = true;
    switch (_mem.vari_type) {
        case STRING_TYPE:
            _checkLimit = false;
            ui->units_label->setText(QString());
            break;
        case STRING_ARRAY_TYPE:
            limit_status = nullptr;
            _checkLimit = false;
            status = VARIABLE_NOTFOUND;
            break;
        default: {
            const RecordView view = viewRecord();
            if (!view.known) {
                status = VARIABLE_NOTFOUND;
                break;
            }
            limit_status = view.limits;
            _checkLimit = _mem.vari_type != LOGI_TYPE;
            showNameAndUnits(view);
            break;
        }
    }
    unitsChanged = false;
    TimerModerator::requestTimer(this, getSampleRate());
    return status;
}

void ZelValue::showNameAndUnits(const RecordView& view) {
    const bool hasUnits = _unitsVis && _mem.vari_type != LOGI_TYPE;
    ui->units_label->setVisible(hasUnits);
    if (hasUnits) {
        const QString asked = getUnits();
        const QString own = view.units ? recordText(*view.units).toUpper() : QString();
        ui->units_label->setText(asked.isEmpty() || asked == notSet ? own : asked);
    }
    ui->name->setText(_name);
    if (_mem.vari_type == LOGI_TYPE)
        ui->units_label->setText(QString());
}

void ZelValue::ostrelTimerEvent(int interval) {
    if (isMyTick(interval))
        sample(false);
    if (interval == flashInterval)
        flash();
}

void ZelValue::sample(bool startup) {
    if (_cfg_in_progress)
        return;
    if (updateFirst_ && _unitsVis)
        ui->units_label->show();
    // The units have a label of their own.
    if (const QString* text = sampleReal(true)) {
        const QString shown = text->trimmed();
        if (shown != ui->value->text())
            ui->value->setText(shown);
    }
    if (_ptr)
        checkStatus(startup);
}

void ZelValue::sample() {
    sample(false);
}

void ZelValue::setColor(const QColor& color) {
    const QColor wanted = color.isValid() ? color : ui->value->palette().color(QPalette::Text);
    StatusColour status = statusColour(*this, wanted, flashOn);
    if (status.isHiding)
        status.colour = readableOnField(wanted);
    ui->value->setStatusColour(status);
    if (wanted == _color)
        return;
    QPalette palette = ui->value->palette();
    palette.setColor(QPalette::Text, readableOnField(wanted));
    _color = wanted;
    ui->value->setToldPalette(palette);
    remember("color", wanted);
}

QColor ZelValue::readableOnField(const QColor& color) const {
    if (color != ui->value->palette().color(QPalette::Base))
        return color;
    return color == Qt::black ? Qt::white : Qt::black;
}

void ZelValue::setBColor(QColor color) {
    _bcolor = color;
    QPalette own = palette();
    own.setColor(QPalette::Window, color);
    setPalette(own);
    ui->frame_bcolor->setPalette(own);
    remember("backColor", color);
}

void ZelValue::setMyFont(const QFont& font) {
    setNameFont(font);
}

void ZelValue::setNameFont(const QFont& font) {
    ui->name->setFont(font);
    ui->units_label->setFont(font);
    rememberFont("nameFont", font);
}

QFont ZelValue::getNameFont() const {
    return ui->name->font();
}

void ZelValue::setValueFont(const QFont& font) {
    ui->value->setFont(font);
    rememberFont("valueFont", font);
}

QFont ZelValue::getValueFont() const {
    return ui->value->font();
}

void ZelValue::setReadOnly(bool readOnly) {
    ui->value->setReadOnly(readOnly);
    m_readOnly = readOnly;
    remember("readOnly", readOnly);
}

void ZelValue::setToolTip(const QString& toolTip) {
    _toolTip = toolTip;
    m_mark->setToolTip(toolTip);
    remember("toolTip", toolTip);
}

QString ZelValue::getToolTip() const {
    return m_mark->toolTip();
}

bool ZelValue::eventFilter(QObject* obj, QEvent* event) {
    if (!RemoteDisplay && obj == ui->value && event->type() == QEvent::MouseButtonDblClick && !m_readOnly)
        handleWriteValue(nullptr);
    return QObject::eventFilter(obj, event);
}

bool ZelValue::allowsWriteAcess() {
    return true;
}

void ZelValue::handleWriteValue(QObject*) {
    if (RemoteDisplay)
        return;
    if (!_ptr) {
        tellNoVariable(this);
        return;
    }
    switch (_mem.vari_type) {
        case REAL_TYPE:
            enterReal(this, _name, _units, rptr, formatDecimals(recordText(rptr->display_format)));
            break;
        case INT_TYPE:
            // Kept: the target units are those of the last real variable that the widget was bound to.
            enterInteger(this, _name, _units, iptr, rptr);
            break;
        case LOGI_TYPE:
            set_logical_variable(lptr, !_llastValue, 0, nullptr);
            break;
        default:
            break;
    }
}
