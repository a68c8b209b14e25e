#include "widgets/ZelToggleButton.h"

#include <QEvent>

#include "fabric/timermoderator.h"
#include "ui_ZelToggleButton.h"
#include "widgets/enablevariable.h"

ZelToggleButton::ZelToggleButton(QWidget* parent) : LogicalButton(parent), ui(std::make_unique<Ui::ZelToggleButton>()) {
    ui->setupUi(this);
    startAs(QStringLiteral("ZelToggleButton"), {ui->name, ui->value, ui->iconLabel, ui->qtSvgToggleSwitch, {this}});
    if (!RemoteDisplay) {
        ui->value->installEventFilter(this);
        connect(ui->qtSvgToggleSwitch, &QtSvgToggleSwitch::clicked, this, &ZelToggleButton::buttonClicked);
    }
}

ZelToggleButton::~ZelToggleButton() = default;

void ZelToggleButton::unbind() {
    showNothing();
    clearMem();
    TimerModerator::releaseFromTimer(this, getSampleRate());
}

void ZelToggleButton::setName(const QString& name) {
    const Binding binding = bind(name);
    if (binding.isRebound)
        updateFirst_ = true;
    else if (binding.status == VARIABLE_NOTFOUND)
        unbind();
    showBinding(binding);
    sample(true);
    update();
}

void ZelToggleButton::sample(bool startup) {
    if (_cfg_in_progress)
        return;
    if (_ptr) {
        lptr = record();
        if (lptr) {
            updateFirst_ = false;
            // Each time: a click moves the switch whether or not the store takes what it writes.
            ui->qtSvgToggleSwitch->setChecked(lptr->value != 0);
            showState(*lptr);
        }
        checkStatus(startup);
    }
    enableVariable().follow();
    update();
}

void ZelToggleButton::sample() {
    sample(false);
}

void ZelToggleButton::ostrelTimerEvent(int interval) {
    if (isMyTick(interval))
        sample(false);
}

void ZelToggleButton::buttonClicked() {
    if (_ptr)
        handleWriteValue(nullptr);
}

bool ZelToggleButton::eventFilter(QObject* obj, QEvent* event) {
    if (obj == ui->value && !ui->qtSvgToggleSwitch->isEnabled())
        return false;
    return filterField(ui->value, obj, event);
}

void ZelToggleButton::setBtnType(BtnType type) {
    if (type == m_buttonType)
        return;
    m_buttonType = type == BerylSquare ? BerylSquare : Beryl;
    ui->qtSvgToggleSwitch->setSkin(m_buttonType == BerylSquare ? QStringLiteral("BerylSquare")
                                                               : QStringLiteral("Beryl"));
    remember("btnType", static_cast<int>(m_buttonType));
}
