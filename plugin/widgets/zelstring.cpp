#include "widgets/zelstring.h"

#include "fabric/timermoderator.h"
#include "ui_zelstring.h"
#include "variables/namechoice.h"
#include "variables/names.h"
#include "variables/notfoundmark.h"
#include "variables/recordtext.h"
#include "variables/valueentry.h"
#include "widgets/coloursheet.h"

ZelString::ZelString(QWidget* parent) : OstrelBase(parent), ui(std::make_unique<Ui::ZelString>()) {
    _initFlag = false;
    ui->setupUi(this);
    _unitsVis = true;
    _smartTicks = false;
    _updateRate = 1000;
    _lastValue = -99999.0;
    _oldName = notSet;
    _height = ui->frame->height();
    _width = ui->frame->width();
    _varType = QT_OSTREL_STRING;
    _readOnlyString = true;
    className.append(QStringLiteral("ZelString"));
    m_mark = std::make_unique<NotFoundMark>(ui->iconLabel, QVector<QWidget*>{this});
    flashOn = false;
    if (!RemoteDisplay) {
        removeAction(changeUnitsAction);
        ui->value->installEventFilter(this);
    }
}

ZelString::~ZelString() = default;

VariableAcceptance ZelString::isValidVarType(const QString& name) const {
    return acceptVariable(name, {STRING_TYPE});
}

void ZelString::setName(const QString& name) {
    const NameChoice choice = chooseName(name, _name, isValidVarType(name));
    m_mark->show(choice.isMissing);
    VAR_FIND_STATUS status = setupVariable(choice.name);
    if (status == VARIABLE_CHANGED || (status == VARIABLE_FOUND && _ptr != strptr)) {
        status = rebind(status);
    } else {
        ui->name->setText(_name);
        if (status == VARIABLE_NOTFOUND)
            showNothing();
    }
    updateUIName(status, choice.name, false);
    resize(size());
    sample(true);
    update();
}

VAR_FIND_STATUS ZelString::rebind(VAR_FIND_STATUS status) {
    TimerModerator::releaseFromTimer(this);
    if (_mem.vari_type != STRING_TYPE)
        return VARIABLE_NOTFOUND;
    viewRecord();
    ui->name->setText(_name);
    TimerModerator::requestTimer(this, getSampleRate());
    return status;
}

void ZelString::showNothing() {
    showText(QStringLiteral("-"));
    // The text that comes next is shown, also where it is the last one again.
    _slastValue.clear();
    clearMem();
    TimerModerator::releaseFromTimer(this, getSampleRate());
}

void ZelString::showText(const QString& text) {
    ui->value->setText(text);
    // Where the field is too short for the text, its beginning is seen.
    ui->value->setCursorPosition(0);
}

void ZelString::sample(bool startup) {
    if (_cfg_in_progress || !_ptr)
        return;
    if (_mem.vari_type == STRING_TYPE) {
        viewRecord();
        limitColorCode = strptr->status;
        if (takeRecordText(strptr->value, &_slastValue))
            showText(_slastValue.trimmed());
    }
    checkStatus(startup);
}

void ZelString::sample() {
    sample(false);
}

void ZelString::ostrelTimerEvent(int interval) {
    if (isMyTick(interval))
        sample(false);
    if (interval == flashInterval)
        flash();
}

bool ZelString::eventFilter(QObject* obj, QEvent* event) {
    return filterField(ui->value, obj, event);
}

void ZelString::handleWriteValue(QObject*) {
    if (RemoteDisplay || _readOnlyString)
        return;
    if (!_ptr)
        tellNoVariable(this);
    else if (_mem.vari_type == STRING_TYPE)
        enterString(this, _name, strptr);
}

void ZelString::setColor(const QColor& color) {
    _color = color;
    QPalette coloured = ui->value->palette();
    coloured.setBrush(QPalette::Text, QBrush(color));
    // Asked for on every sample, and setting a palette is not cheap.
    if (coloured != ui->value->palette())
        ui->value->setPalette(coloured);
    if (!backColorSet) {
        setBackColor(QColor(_bcolor));
        backColorSet = true;
    }
}

void ZelString::setBackColor(const QColor& color) {
    if (color != _bcolor) {
        _bcolor = color;
        ui->value->setStyleSheet(colourSheet("background-color: rgb(%1, %2, %3);", color));
    }
    remember("backColor", color);
}

void ZelString::changeEvent(QEvent* event) {
    takeParentColor(event);
}

void ZelString::setNameFont(const QFont& font) {
    ui->name->setFont(font);
    rememberFont("nameFont", font);
}

QFont ZelString::getNameFont() const {
    return ui->name->font();
}

void ZelString::setValueFont(const QFont& font) {
    ui->value->setFont(font);
    rememberFont("valueFont", font);
}

QFont ZelString::getValueFont() const {
    return ui->value->font();
}

void ZelString::setReadOnlyString(bool readOnly) {
    _readOnlyString = readOnly;
    ui->value->setReadOnly(readOnly);
    remember("readOnlyString", readOnly);
}

void ZelString::setToolTipString(const QString& toolTip) {
    _toolTip = toolTip;
    m_mark->setToolTip(toolTip);
    remember("toolTip", toolTip);
}

QString ZelString::getToolTip() const {
    return m_mark->toolTip();
}
