#include "widgets/enablevariable.h"

#include <ostrel/store.h>

#include <QWidget>

#include "variables/recordtext.h"

namespace {

bool isArray(int kind) {
    return kind == REAL_ARRAY_TYPE || kind == INT_ARRAY_TYPE || kind == STRING_ARRAY_TYPE || kind == LOGI_ARRAY_TYPE;
}

}  // namespace

EnableVariable::EnableVariable(QWidget* button, QString* name, const RECONFIG_DATA* counters)
    : m_button(button), m_name(name), m_counters(counters) {}

bool EnableVariable::setName(const QString& name) {
    if (name.isEmpty()) {
        forget();
        return true;
    }
    *m_name = name;
    if (!find())
        return false;
    apply();
    return true;
}

void EnableVariable::forget() {
    m_record = nullptr;
    m_inForce.clear();
    m_name->clear();
    m_button->setEnabled(true);
}

bool EnableVariable::find() {
    m_count = m_counters->generic_reconfig_count;
    QByteArray name = m_name->toLatin1();
    if (find_variable(name.data(), &m_handle) != 0)
        return false;
    void* const record = get_vrbl_adr(m_handle);
    if (isArray(m_handle.vari_type) && record && !m_handle.member_adr)
        m_handle.member_adr = _MEMORY_LINK_SIZE(name.constData(), nullptr);
    if (m_handle.vari_type == LOGI_TYPE && record) {
        m_record = static_cast<const LOGICAL_VARIABLE*>(record);
        m_inForce = recordText(m_record->label);
    }
    return true;
}

// The variable in force may be a former one's, whose name is kept nowhere else.
void EnableVariable::findInForce() {
    SHARED_MEMORY mem{};
    QByteArray name = m_inForce.toLatin1();
    const bool isFound = !name.isEmpty() && find_variable(name.data(), &mem) == 0 && mem.vari_type == LOGI_TYPE;
    m_record = isFound ? static_cast<const LOGICAL_VARIABLE*>(get_vrbl_adr(mem)) : nullptr;
}

// Where a reconfiguration took the variable away, its place may be another's by now.
void EnableVariable::follow() {
    if (!m_name->isEmpty() && m_count != m_counters->generic_reconfig_count) {
        m_record = nullptr;
        find();
        if (!m_record)
            findInForce();
    }
    apply();
}

void EnableVariable::apply() {
    if (m_record)
        m_button->setEnabled(m_record->value != 0);
}
