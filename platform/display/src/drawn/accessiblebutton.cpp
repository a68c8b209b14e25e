#include "drawn/accessiblebutton.h"

#include "drawn/buttonface.h"

AccessibleButton::AccessibleButton(QAbstractButton* button, QAccessible::Role role, QString kind)
    : QAccessibleWidget(button, role), m_kind(std::move(kind)) {}

QAbstractButton* AccessibleButton::button() const {
    return static_cast<QAbstractButton*>(object());
}

QString AccessibleButton::text(QAccessible::Text part) const {
    const QString given = QAccessibleWidget::text(part);
    if (part == QAccessible::Name && given.isEmpty())
        return button()->text().isEmpty() ? m_kind : button()->text();
    if (part == QAccessible::Value && button()->isCheckable())
        return button()->isChecked() ? QAbstractButton::tr("on") : QAbstractButton::tr("off");
    return given;
}

QAccessible::State AccessibleButton::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.pressed = button()->isDown();
    state.checkable = button()->isCheckable();
    state.checked = button()->isChecked();
    return state;
}

QString AccessibleButton::pressing() const {
    return button()->isCheckable() ? toggleAction() : pressAction();
}

QStringList AccessibleButton::actionNames() const {
    return button()->isEnabled() ? QStringList(pressing()) + QAccessibleWidget::actionNames() : QStringList();
}

void AccessibleButton::doAction(const QString& action) {
    if (!button()->isEnabled())
        return;
    if (action == pressing())
        clickAsMouse(button());
    else
        QAccessibleWidget::doAction(action);
}
