#include "selection/variablemaplist.h"

#include <ostrel/store.h>

#include <cstdlib>
#include <type_traits>

#include "selection/cataloguewalk.h"
#include "variables/recordtext.h"

namespace {

struct Channels {
    const char* label;
    SM_AREA_ID area;
};

// The groups of QT_OSTREL_IO_MEM. The blank behind the digital inputs has always been there: forms know the group by
// it.
constexpr Channels channelGroups[] = {
    {"Analog Inputs", AI_REAL_MEM},
    {"Frequency Inputs (engineering units)", FI_REAL_MEM},
    {"Counter Inputs (engineering units)", CI_REAL_MEM},
    {"Counter Inputs (counts)", CI_INTG_MEM},
    {"Digital Input (logical) ", DI_LOGI_MEM},
    {"Digital Output (logical)", DO_LOGI_MEM},
};

const CatalogueSection& sectionOf(SM_AREA_ID area) {
    const CatalogueSection* found = catalogueSections().data();
    while (found->area != area)
        ++found;
    return *found;
}

const SYSTEM_ATTRIBUTES& linkedAttributes() {
    const SYSTEM_ATTRIBUTES* attributes = linkSystemAttributes();
    if (!attributes)
        std::exit(0);
    return *attributes;
}

// Their aliases are not in the catalogue.
template <class Record>
constexpr bool hasMembers = std::is_same_v<Record, STAT_VARIABLE> || std::is_same_v<Record, COMP_VARIABLE> ||
                            std::is_same_v<Record, PROP_VARIABLE> || std::is_same_v<Record, EMIS_VARIABLE>;

}  // namespace

VariableMapList::VariableMapList(QMap<QString, QStringList>* variables, QT_OSTREL_VAR_TYPE varType, QObject* parent)
    : QObject(parent), m_variables_keys(variables) {
    retrieveData(true, varType);
}

VariableMapList::VariableMapList(QMap<QString, QString>* variables, QT_OSTREL_VAR_TYPE varType, QObject* parent)
    : QObject(parent), m_variables(variables) {
    retrieveData(false, varType);
}

void VariableMapList::retrieveData(bool useKeys, QT_OSTREL_VAR_TYPE varType) {
    const SYSTEM_ATTRIBUTES& attributes = linkedAttributes();
    if (useKeys)
        m_variables_keys->clear();
    else
        m_variables->clear();
    walkCatalogue(
        m_areas, [varType](const CatalogueSection& section) { return section.isTakenBy(varType); },
        [&](const CatalogueSection& section, void* base) {
            retrieveSection(section, base, section.count(attributes), section.label, useKeys, false);
        });
    if (varType == QT_OSTREL_VAR_TYPE(QT_OSTREL_IO_MEM))
        retrieveChannels(attributes, useKeys);
}

void VariableMapList::retrieveChannels(const SYSTEM_ATTRIBUTES& attributes, bool useKeys) {
    for (const Channels& group : channelGroups) {
        void* base = nullptr;
        if (!local_link_to_memory(group.area, &base))
            continue;
        const CatalogueSection& section = sectionOf(group.area);
        retrieveSection(section, base, section.count(attributes), group.label, useKeys, true);
        local_fre_shrd_mem(group.area);
    }
}

void VariableMapList::retrieveSection(const CatalogueSection& section, void* base, short n, const char* label,
                                      bool useKeys, bool useIndexNumber) {
    visitRecords(section, base, [&](const auto* records) {
        if constexpr (hasMembers<std::decay_t<decltype(*records)>>)
            other_label(records, n, label, useKeys);
        else
            x_label(records, n, label, useKeys, useIndexNumber);
    });
}

template <class T>
QStringList VariableMapList::activeEntries(const T* ptr, short n, const QString& group, bool useKeys,
                                           bool useIndexNumber) {
    QStringList list;
    for (short i = 0; i < n; ++i) {
        if (!ptr[i].active)
            continue;
        if (!useKeys)
            m_variables->insert(recordText(ptr[i].label), group);
        else
            list.append(useIndexNumber ? QStringLiteral("%1").arg(i) : recordText(ptr[i].label));
    }
    return list;
}

template <class T>
void VariableMapList::appendAliases(const T* ptr, short n, const QString& group, bool useKeys, QStringList* list) {
    for (short i = 0; i < n; ++i) {
        if (!ptr[i].active)
            continue;
        const QString name = recordText(ptr[i].label);
        SHARED_MEMORY mem{};
        char* alias_label = nullptr;
        if (find_alias_of_target(name.toUtf8().data(), &mem, &alias_label) != 0)
            continue;
        if (!useKeys)
            m_variables->insert(name, group);
        else if (alias_label)
            list->append(QString::fromUtf8(alias_label));
    }
}

template <class T>
void VariableMapList::x_label(const T* ptr, short n, const char* section_label, bool useKeys, bool useIndexNumber) {
    const QString group = QString::fromLatin1(section_label);
    QStringList list = activeEntries(ptr, n, group, useKeys, useIndexNumber);
    QStringList aliases;
    appendAliases(ptr, n, group, useKeys, &aliases);
    if (!useIndexNumber)
        list.append(aliases);
    if (useKeys && !list.isEmpty())
        m_variables_keys->insert(group, list);
}

template <class T>
void VariableMapList::other_label(const T* ptr, short n, const char* section_label, bool useKeys) {
    const QString group = QString::fromLatin1(section_label);
    const QStringList list = activeEntries(ptr, n, group, useKeys, false);
    if (useKeys && !list.isEmpty())
        m_variables_keys->insert(group, list);
}
