#include "selection/variablemaplist.h"

#include <ostrel/store.h>

#include <cstdio>
#include <cstdlib>

#include "selection/cataloguesections.h"
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
    void* Sys_attr = nullptr;
    if (link_to_memory(SYS_ATTR_MEM, &Sys_attr) != 0 || !Sys_attr) {
        std::printf("\n %s must be running to use this command\n", "Ostrel");
        std::exit(0);
    }
    return *static_cast<const SYSTEM_ATTRIBUTES*>(Sys_attr);
}

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
    retrieveGeneralUse(attributes, useKeys, varType);
    retrieveOtherAreas(attributes, useKeys, varType);
    if (varType == QT_OSTREL_VAR_TYPE(QT_OSTREL_IO_MEM))
        retrieveChannels(attributes, useKeys);
}

// The area of the reals, linked last, decides for all four; where it does not link the others stay linked.
void VariableMapList::retrieveGeneralUse(const SYSTEM_ATTRIBUTES& attributes, bool useKeys,
                                         QT_OSTREL_VAR_TYPE varType) {
    void* bases[generalUseSections] = {};
    for (const size_t i : {1, 2, 3, 0})
        local_link_to_memory(catalogueSections()[i].area, &bases[i]);
    if (!bases[0])
        return;
    for (size_t i = 0; i < generalUseSections; ++i) {
        const CatalogueSection& section = catalogueSections()[i];
        if (section.isTakenBy(varType))
            retrieveSection(section, bases[i], section.count(attributes), section.label, useKeys, false);
    }
    for (size_t i = 0; i < generalUseSections; ++i)
        local_fre_shrd_mem(catalogueSections()[i].area);
}

// Each area is linked once for all sections in it, whether the filter takes one or not.
void VariableMapList::retrieveOtherAreas(const SYSTEM_ATTRIBUTES& attributes, bool useKeys,
                                         QT_OSTREL_VAR_TYPE varType) {
    const auto end = catalogueSections().end();
    for (auto section = catalogueSections().begin() + generalUseSections; section != end;) {
        const SM_AREA_ID area = section->area;
        void* base = nullptr;
        const bool isLinked = local_link_to_memory(area, &base);
        for (; section != end && section->area == area; ++section)
            if (isLinked && section->isTakenBy(varType))
                retrieveSection(*section, base, section->count(attributes), section->label, useKeys, false);
        if (isLinked)
            local_fre_shrd_mem(area);
    }
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
    void* const start = base ? static_cast<char*>(base) + section.start : nullptr;
    switch (section.kind) {
        case REAL_TYPE:
            return x_label(static_cast<REAL_VARIABLE*>(start), n, label, useKeys, useIndexNumber);
        case INT_TYPE:
            return x_label(static_cast<INTEGER_VARIABLE*>(start), n, label, useKeys, useIndexNumber);
        case LOGI_TYPE:
            return x_label(static_cast<LOGICAL_VARIABLE*>(start), n, label, useKeys, useIndexNumber);
        case STRING_TYPE:
            return x_label(static_cast<STRING_VARIABLE*>(start), n, label, useKeys, useIndexNumber);
        case REAL_ARRAY_TYPE:
            return x_label(static_cast<REAL_ARRAY_VARIABLE*>(start), n, label, useKeys, useIndexNumber);
        case INT_ARRAY_TYPE:
            return x_label(static_cast<INTEGER_ARRAY_VARIABLE*>(start), n, label, useKeys, useIndexNumber);
        case LOGI_ARRAY_TYPE:
            return x_label(static_cast<LOGICAL_ARRAY_VARIABLE*>(start), n, label, useKeys, useIndexNumber);
        case STRING_ARRAY_TYPE:
            return x_label(static_cast<STRING_ARRAY_VARIABLE*>(start), n, label, useKeys, useIndexNumber);
        case STAT_TYPE:
            return other_label(static_cast<STAT_VARIABLE*>(start), n, label, useKeys);
        case COMP_TYPE:
            return other_label(static_cast<COMP_VARIABLE*>(start), n, label, useKeys);
        case PROP_TYPE:
            return other_label(static_cast<PROP_VARIABLE*>(start), n, label, useKeys);
        default:
            return other_label(static_cast<EMIS_VARIABLE*>(start), n, label, useKeys);
    }
}

template <class T>
QStringList VariableMapList::activeEntries(const T* ptr, short n, const QString& group, bool useKeys,
                                           bool useIndexNumber) {
    QStringList list;
    for (short i = 0; ptr && i < n; ++i) {
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
    for (short i = 0; ptr && i < n; ++i) {
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
void VariableMapList::x_label(T* ptr, short n, const char* section_label, bool useKeys, bool useIndexNumber) {
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
void VariableMapList::other_label(T* ptr, short n, const char* section_label, bool useKeys) {
    const QString group = QString::fromLatin1(section_label);
    const QStringList list = activeEntries(ptr, n, group, useKeys, false);
    if (useKeys && !list.isEmpty())
        m_variables_keys->insert(group, list);
}
