#include "widgets/zel_pushbutton.h"

#include <ostrel/store.h>

#include <QMouseEvent>
#include <utility>

#include "fabric/timermoderator.h"
#include "ui_zel_pushbutton.h"
#include "widgets/enablevariable.h"

namespace {

QString skinOf(ZelPushButton::BtnType type) {
    switch (type) {
        case ZelPushButton::BerylSquare:
            return QStringLiteral("BerylSquare");
        case ZelPushButton::MetallicBrush:
            return QStringLiteral("MetallicBrush");
        default:
            return QStringLiteral("Beryl");
    }
}

// After such an event no release is sure to come, or to be heard.
bool endsHolding(const QWidget& button, const QEvent& event) {
    switch (event.type()) {
        case QEvent::FocusOut:
        case QEvent::Hide:
        case QEvent::WindowBlocked:
        case QEvent::WindowDeactivate:
        case QEvent::TouchCancel:
        case QEvent::UngrabMouse:
            return true;
        case QEvent::EnabledChange:
            return !button.isEnabled();
        default:
            return false;
    }
}

}  // namespace

ZelPushButton::ZelPushButton(QWidget* parent) : LogicalButton(parent), ui(std::make_unique<Ui::ZelPushButton>()) {
    ui->setupUi(this);
    startAs(QStringLiteral("ZelPushButton"),
            {ui->name, ui->value, ui->iconLabel, ui->qtSvgButton, {this, ui->name, ui->qtSvgButton, ui->value}});
    _dragAndDropEnabled = false;
    if (!RemoteDisplay) {
        ui->value->installEventFilter(this);
        ui->qtSvgButton->installEventFilter(this);
    }
}

ZelPushButton::~ZelPushButton() {
    letGo();
}

void ZelPushButton::setName(const QString& name) {
    const Binding binding = bind(name);
    // The hand holds a variable, whatever it is called now.
    if (m_held != variable())
        letGo();
    if (binding.status == VARIABLE_NOTFOUND) {
        showNothing();
        TimerModerator::releaseFromTimer(this, getSampleRate());
        clearMem();
        enableVariable().forget();
    }
    showBinding(binding);
    sample(true);
    update();
}

void ZelPushButton::sample(bool) {
    if (_cfg_in_progress)
        return;
    lptr = record();
    if (lptr)
        showState(*lptr);
    enableVariable().follow();
}

void ZelPushButton::sample() {
    sample(false);
}

void ZelPushButton::ostrelTimerEvent(int interval) {
    if (isMyTick(interval))
        sample(false);
}

// ---- The operator ----

bool ZelPushButton::eventFilter(QObject* obj, QEvent* event) {
    if (obj != ui->qtSvgButton)
        return filterField(ui->value, obj, event);
    // The second press of a double click is none.
    if (event->type() == QEvent::MouseButtonDblClick)
        return false;
    if (event->type() == QEvent::MouseButtonPress && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
        pressed();
    else if (event->type() == QEvent::MouseButtonRelease)
        released();
    else if (endsHolding(*ui->qtSvgButton, *event))
        letGo();
    return QObject::eventFilter(obj, event);
}

void ZelPushButton::pressed() {
    if (!ui->qtSvgButton->isEnabled() || !_ptr)
        return;
    if (m_toggleType == Toggle) {
        handleWriteValue(nullptr);
        return;
    }
    LOGICAL_VARIABLE* const bound = recordToWrite();
    if (!bound)
        return;
    m_held = variable();
    set_logical_variable(bound, 1, 0, nullptr);
}

// Kept: of whichever mouse button.
void ZelPushButton::released() {
    if (!ui->qtSvgButton->isEnabled() || m_toggleType != Momentary)
        return;
    m_held.clear();
    if (LOGICAL_VARIABLE* const bound = recordToWrite())
        set_logical_variable(bound, 0, 0, nullptr);
}

// The widget may show another variable by now, or none, and the store may have moved the record.
void ZelPushButton::letGo() {
    if (m_held.isEmpty())
        return;
    if (LOGICAL_VARIABLE* const held = recordOf(std::exchange(m_held, QString())))
        set_logical_variable(held, 0, 0, nullptr);
}

// ---- What the form gives ----

void ZelPushButton::setBtnType(BtnType type) {
    if (type == m_buttonType)
        return;
    m_buttonType = type >= Beryl && type <= MetallicBrush ? type : Beryl;
    ui->qtSvgButton->setSkin(skinOf(m_buttonType));
    remember("btnType", static_cast<int>(m_buttonType));
}

void ZelPushButton::setToggleType(ToggleType type) {
    if (type == m_toggleType)
        return;
    letGo();
    m_toggleType = type == Momentary ? Momentary : Toggle;
    remember("toggleType", static_cast<int>(m_toggleType));
}
