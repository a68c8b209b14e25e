#include "drawn/accessibledrawing.h"

AccessibleDrawing::AccessibleDrawing(QWidget* widget, QAccessible::Role role, Speech speech)
    : QAccessibleWidget(widget, role), m_speech(std::move(speech)) {}

void* AccessibleDrawing::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ValueInterface && !m_speech().checked)
        return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString AccessibleDrawing::text(QAccessible::Text part) const {
    const QString given = QAccessibleWidget::text(part);
    if (part == QAccessible::Value)
        return m_speech().value;
    if (part == QAccessible::Name && given.isEmpty())
        return m_speech().name;
    if (part == QAccessible::Description && given.isEmpty())
        return m_speech().description;
    return given;
}

QAccessible::State AccessibleDrawing::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    if (const std::optional<bool> checked = m_speech().checked) {
        state.checkable = true;
        state.checked = *checked;
    }
    return state;
}

QVariant AccessibleDrawing::currentValue() const {
    return m_speech().current;
}

void AccessibleDrawing::setCurrentValue(const QVariant&) {}

QVariant AccessibleDrawing::maximumValue() const {
    return m_speech().maximum;
}

QVariant AccessibleDrawing::minimumValue() const {
    return m_speech().minimum;
}

QVariant AccessibleDrawing::minimumStepSize() const {
    return 0.0;
}

AccessibleFactory::AccessibleFactory(QAccessible::InterfaceFactory factory) : m_factory(factory) {
    QAccessible::installFactory(m_factory);
}

AccessibleFactory::~AccessibleFactory() {
    QAccessible::removeFactory(m_factory);
}
