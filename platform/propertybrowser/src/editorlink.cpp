#include "editorlink.h"

#include <QSignalBlocker>

EditorLink::EditorLink(QtVariantPropertyManager* manager, QtProperty* property, QWidget* editor)
    : QObject(editor), m_manager(manager), m_property(property), m_editor(editor) {
    const auto changed = [this](const QtProperty* which) {
        if (which == m_property)
            refresh();
    };
    connect(manager, &QtVariantPropertyManager::valueChanged, this, changed);
    connect(manager, &QtVariantPropertyManager::attributeChanged, this, changed);
    connect(manager, &QtAbstractPropertyManager::propertyDestroyed, this, [this](const QtProperty* which) {
        if (which == m_property)
            m_property = nullptr;
    });
}

QVariant EditorLink::value() const {
    return m_manager ? m_manager->value(m_property) : QVariant();
}

QVariant EditorLink::attribute(const QString& name) const {
    return m_manager ? m_manager->attributeValue(m_property, name) : QVariant();
}

void EditorLink::apply(const QVariant& value) {
    if (m_manager && m_property)
        m_manager->setValue(m_property, value);
}

void EditorLink::showWith(std::function<void()> show) {
    m_show = std::move(show);
    refresh();
}

void EditorLink::refresh() {
    if (!m_show || !m_manager || !m_property)
        return;
    const QSignalBlocker quiet(m_editor);
    m_show();
}
