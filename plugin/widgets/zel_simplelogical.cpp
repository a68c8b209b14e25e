#include "widgets/zel_simplelogical.h"

#include <ostrel/store.h>

#include <QResizeEvent>

#include "fabric/timermoderator.h"
#include "ui_zel_simplelogical.h"
#include "variables/logicalstate.h"
#include "variables/names.h"

ZelSimpleLogical::ZelSimpleLogical(QWidget* parent) : OstrelBase(parent), ui(std::make_unique<Ui::ZelSimpleLogical>()) {
    ui->setupUi(this);
    _initFlag = false;
    _updateRate = 1000;
    _llastValue = false;
    _oldName = notSet;
    _varType = QT_OSTREL_LOGICAL;
    className.append(QStringLiteral("ZelSimpleLogical"));
    if (!RemoteDisplay) {
        ui->state->installEventFilter(this);
        removeAction(changeUnitsAction);
    }
}

ZelSimpleLogical::~ZelSimpleLogical() = default;

void ZelSimpleLogical::setName(const QString& name) {
    VAR_FIND_STATUS status = setupVariable(name);
    if (status == VARIABLE_NOTFOUND)
        showNothing();
    else if (status == VARIABLE_CHANGED || _ptr != lptr)
        status = rebind(status);
    updateUIName(status, name, false);
    resize(size());
    sample(true);
    update();
}

void ZelSimpleLogical::showNothing() {
    ui->name->setText(_name);
    ui->state->setText(QStringLiteral("-"));
    // The state that comes next is shown, also where it is the last one again.
    svalue.clear();
    clearMem();
}

VAR_FIND_STATUS ZelSimpleLogical::rebind(VAR_FIND_STATUS status) {
    TimerModerator::releaseFromTimer(this);
    if (_mem.vari_type != LOGI_TYPE) {
        // Nor is the former variable written any more.
        lptr = nullptr;
        return VARIABLE_NOTFOUND;
    }
    viewRecord();
    // Kept: where the store moved the record of the same variable, only the last step of setName() samples it.
    if (status == VARIABLE_CHANGED) {
        ui->name->setText(_name);
        _llastValue = lptr->value != 0;
        svalue = stateText(*lptr, _llastValue);
        ui->state->setText(svalue.trimmed());
        TimerModerator::requestTimer(this, getSampleRate());
    }
    return status;
}

void ZelSimpleLogical::sample(bool startup) {
    if (!_ptr)
        return;
    if (_mem.vari_type == LOGI_TYPE) {
        const auto& record = *static_cast<const LOGICAL_VARIABLE*>(_ptr);
        limitColorCode = record.status;
        const bool on = record.value != 0;
        if (takeStateText(record, on, &svalue))
            ui->state->setText(svalue.trimmed());
        _llastValue = on;
    }
    checkStatus(startup);
}

void ZelSimpleLogical::sample() {
    sample(false);
}

void ZelSimpleLogical::ostrelTimerEvent(int interval) {
    if (isMyTick(interval))
        sample(false);
}

bool ZelSimpleLogical::eventFilter(QObject* obj, QEvent* event) {
    return filterField(ui->state, obj, event);
}

void ZelSimpleLogical::handleWriteValue(QObject*) {
    if (lptr)
        set_logical_variable(lptr, !_llastValue, 0, nullptr);
}

void ZelSimpleLogical::setNameFont(const QFont& font) {
    ui->name->setFont(font);
    ui->state->setFont(font);
    rememberFont("nameFont", font);
}

QFont ZelSimpleLogical::getNameFont() const {
    return ui->name->font();
}

void ZelSimpleLogical::resizeEvent(QResizeEvent* event) {
    event->accept();
}
