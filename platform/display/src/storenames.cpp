#include "storenames.h"

#include <ostrel/records.h>
#include <ostrel/store.h>

#include <cstring>

namespace {

// Arrays can have millions of elements; nobody looks for one by scrolling.
constexpr int elementsShown = 1000;

template <size_t size>
QString fieldText(const char (&field)[size]) {
    return QString::fromLatin1(field, static_cast<int>(strnlen(field, size)));
}

template <class Record>
QString activeLabel(const void* slot) {
    const auto& record = *static_cast<const Record*>(slot);
    return record.active != 0 ? fieldText(record.label) : QString();
}

void addMembers(QStringList& names, SM_VARI_TYPE kind, const QString& label) {
    if (label.isEmpty())
        return;
    for (int member = 0; const char* extension = ostrel_member_name(kind, member); ++member)
        names.append(label + QLatin1String(extension));
}

template <class Record>
void addElements(QStringList& names, const void* slot) {
    const QString label = activeLabel<Record>(slot);
    if (label.isEmpty())
        return;
    const auto& array = *static_cast<const Record*>(slot);
    QStringList elements{label};
    for (int dimension = 0; dimension < qMin(int{array.num_dimensions}, 3); ++dimension) {
        QStringList longer;
        for (const QString& element : qAsConst(elements)) {
            for (int i = 0; i < int{array.dimension_size[dimension]} && longer.size() < elementsShown; ++i) {
                const QString named = i < 2500 ? fieldText(array.enum_labels[dimension][i]) : QString();
                longer.append(element + QLatin1Char(':') + (named.isEmpty() ? QString::number(i) : named));
            }
        }
        elements = longer;
    }
    names.append(elements);
}

void addAlias(QStringList& names, const void* slot) {
    const auto& record = *static_cast<const ALIAS_VARIABLE*>(slot);
    if (record.active != 0)
        names.append(fieldText(record.alias));
}

void addNames(QStringList& names, SM_VARI_TYPE kind, const void* slot) {
    switch (kind) {
        case REAL_TYPE:
            names.append(activeLabel<REAL_VARIABLE>(slot));
            break;
        case INT_TYPE:
            names.append(activeLabel<INTEGER_VARIABLE>(slot));
            break;
        case LOGI_TYPE:
            names.append(activeLabel<LOGICAL_VARIABLE>(slot));
            break;
        case STRING_TYPE:
            names.append(activeLabel<STRING_VARIABLE>(slot));
            break;
        case STAT_TYPE:
            addMembers(names, kind, activeLabel<STAT_VARIABLE>(slot));
            break;
        case COMP_TYPE:
            addMembers(names, kind, activeLabel<COMP_VARIABLE>(slot));
            break;
        case PROP_TYPE:
            addMembers(names, kind, activeLabel<PROP_VARIABLE>(slot));
            break;
        case EMIS_TYPE:
            addMembers(names, kind, activeLabel<EMIS_VARIABLE>(slot));
            break;
        case REAL_ARRAY_TYPE:
            addElements<REAL_ARRAY_VARIABLE>(names, slot);
            break;
        case INT_ARRAY_TYPE:
            addElements<INTEGER_ARRAY_VARIABLE>(names, slot);
            break;
        case LOGI_ARRAY_TYPE:
            addElements<LOGICAL_ARRAY_VARIABLE>(names, slot);
            break;
        case STRING_ARRAY_TYPE:
            addElements<STRING_ARRAY_VARIABLE>(names, slot);
            break;
        case ALIAS_TYPE:
            addAlias(names, slot);
            break;
        default:
            break;
    }
}

}  // namespace

bool StoreNames::refresh() {
    ostrel_store_status status{};
    const bool found = ostrel_store_get_status(&status) != 0;
    if (found == m_found && status.instance == m_instance && status.generation == m_generation &&
        status.variables == m_variables)
        return false;
    m_found = found;
    m_instance = status.instance;
    m_generation = status.generation;
    m_variables = status.variables;
    read();
    return true;
}

void StoreNames::read() {
    m_all.clear();
    int count = 0;
    const ostrel_section* sections = ostrel_sections(&count);
    for (int i = 0; i < count && m_found; ++i) {
        const ostrel_section& section = sections[i];
        void* base = nullptr;
        if (link_to_memory(static_cast<short>(section.area), &base) != 0)
            continue;
        const int used = ostrel_section_used(section.area, section.kind);
        const char* slot = static_cast<const char*>(base) + section.start;
        for (int k = 0; k < used; ++k, slot += section.record_size)
            addNames(m_all, section.kind, slot);
        fre_shrd_mem(section.area);
    }
    m_all.removeAll(QString());
    m_all.removeDuplicates();
    m_all.sort();
}

bool StoreNames::isMissing(const QString& name) const {
    SHARED_MEMORY mem{};
    return m_found && find_variable(name.toLatin1().data(), &mem) != 0;
}
