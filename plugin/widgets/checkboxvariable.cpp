#include "widgets/checkboxvariable.h"

#include <ostrel/store.h>

#include "hostlink/globals.h"

// Not every platform has these. Where they are missing they are null.
extern "C" {
__attribute__((weak)) short int ostrel_store_logical(LOGICAL_VARIABLE* var, short int value);
__attribute__((weak)) int ostrel_store_get_status(ostrel_store_status* status);
}

namespace {

const RECONFIG_DATA* reconfigurations() {
    char block[] = "reconfig_data";
    const void* data = get_private_shrd_mem(block, sizeof(RECONFIG_DATA));
    static const RECONFIG_DATA none{};
    return data ? static_cast<const RECONFIG_DATA*>(data) : &none;
}

// The library may be loaded and another platform's store be the one in use.
bool libraryKeepsStore() {
    ostrel_store_status status{};
    return ostrel_store_logical && ostrel_store_get_status && ostrel_store_get_status(&status) == 1;
}

}  // namespace

bool CheckBoxVariable::find(const QString& name) {
    if (!m_counters)
        m_counters = reconfigurations();
    m_name = name;
    m_count = m_counters->generic_reconfig_count;
    m_record = nullptr;
    SHARED_MEMORY mem{};
    if (find_variable(name.toLatin1().data(), &mem) == 0 && mem.vari_type == LOGI_TYPE)
        m_record = static_cast<LOGICAL_VARIABLE*>(get_vrbl_adr(mem));
    return isFound();
}

void CheckBoxVariable::forget() {
    m_name.clear();
    m_record = nullptr;
}

bool CheckBoxVariable::follow() {
    if (m_name.isEmpty() || (isFound() && m_count == m_counters->generic_reconfig_count))
        return false;
    find(m_name);
    return true;
}

bool CheckBoxVariable::store(bool on) {
    if (!isFound())
        return false;
    if (libraryKeepsStore())
        return !RemoteDisplay && !inDesigner && ostrel_store_logical(m_record, on ? 1 : 0) == 0;
    m_record->value = on ? 1 : 0;
    return true;
}
