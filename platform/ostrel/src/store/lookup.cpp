#include <ostrel/records.h>
#include <ostrel/store.h>

#include <cstring>
#include <string>

#include "rawnumber.h"
#include "store/arrayshape.h"
#include "store/currentstore.h"
#include "store/fullname.h"
#include "store/members.h"
#include "store/nameindex.h"

namespace {

constexpr short nameFound = 0;
constexpr short nameNotFound = 1;

class IndexedNames : public KnownNames {
public:
    explicit IndexedNames(const IndexTable& table) : m_table(table) {}
    std::optional<NameMeaning> find(std::string_view name) const override { return findName(m_table, NameKey(name)); }

private:
    const IndexTable& m_table;
};

// One longer than a name may be, so that a name that is too long is seen as such.
std::string_view textOf(const char* label) {
    return {label, strnlen(label, nameBytes)};
}

std::optional<NameMeaning> meaningIn(const Attachment& store, const IndexTable& table, std::string_view name,
                                     const NameKey& key) {
    if (const auto meaning = findName(table, key))
        return meaning;
    return composedMeaning(store, IndexedNames(table), name);
}

std::optional<NameMeaning> meaningOf(const Attachment& store, const char* label) {
    const std::string_view name = textOf(label);
    const NameKey key(name);
    return lookInIndex(store.objects(), [&](const IndexTable& table) { return meaningIn(store, table, name, key); });
}

SHARED_MEMORY handle(SM_AREA_ID area, SM_VARI_TYPE kind, int index) {
    SHARED_MEMORY mem{};
    mem.code = area;
    mem.vari_type = kind;
    mem.index = static_cast<short>(index);
    return mem;
}

bool fillHandle(const Attachment& store, const NameMeaning& meaning, SHARED_MEMORY& mem) {
    const auto area = static_cast<SM_AREA_ID>(meaning.area);
    const auto kind = static_cast<SM_VARI_TYPE>(meaning.kind);
    if (!store.record(sectionNumber(area, kind), meaning.index))
        return false;
    SHARED_MEMORY found = handle(area, kind, meaning.index);
    found.offset = meaning.member;
    if (meaning.element != 0) {
        const ElementBlock block = store.elements(kind, meaning.index);
        if (meaning.element > block.count)
            return false;
        found.member_adr = block.data + (meaning.element - 1) * elementSize(kind);
    }
    mem = found;
    return true;
}

ALIAS_VARIABLE* aliasRecord(const Attachment& store, unsigned number) {
    if (number == 0)
        return nullptr;
    return reinterpret_cast<ALIAS_VARIABLE*>(
        store.record(sectionNumber(ALIAS_MEM, ALIAS_TYPE), static_cast<int>(number) - 1));
}

short findBase(int kind, const char* label, SHARED_MEMORY* mem) {
    const Attachment* store = attachment();
    if (!store || !label || !mem)
        return nameNotFound;
    std::string name(textOf(label));
    if (!name.empty() && name.back() != '.')
        name += '.';
    const NameKey key(name);
    const auto meaning = lookInIndex(store->objects(), [&](const IndexTable& table) { return findName(table, key); });
    if (!meaning || meaning->kind != kind || (meaning->flags & isName) == 0)
        return nameNotFound;
    return fillHandle(*store, *meaning, *mem) ? nameFound : nameNotFound;
}

// Text of a record as a C string: the field itself, or a copy where somebody filled it without a zero at its end.
template <size_t size>
char* terminated(char (&field)[size]) {
    if (memchr(field, '\0', size))
        return field;
    thread_local char copy[size + 1];
    std::memcpy(copy, field, size);
    copy[size] = '\0';
    return copy;
}

char* noText() {
    thread_local char empty[1];
    empty[0] = '\0';
    return empty;
}

template <typename Member, typename Record, size_t count>
char* memberUnits(Member (Record::*members)[count], void* record, short member) {
    if (member < 0 || static_cast<size_t>(member) >= count)
        return noText();
    return terminated((static_cast<Record*>(record)->*members)[member].units);
}

template <typename Element>
char* elementUnits(const SHARED_MEMORY& mem) {
    Element* element = static_cast<Element*>(mem.member_adr);
    if (element)
        return ownerOfElement(element, sizeof(Element)) ? terminated(element->units) : noText();
    const Attachment* store = attachment();
    const ElementBlock block = store ? store->elements(mem.vari_type, mem.index) : ElementBlock{};
    return block.data ? terminated(reinterpret_cast<Element*>(block.data)->units) : noText();
}

template <typename Element, typename Array>
Element* elementAddress(Array* array, int kind, const SHARED_MEMORY* mem) {
    RecordPlace place{};
    if (!array || !mem || kindIn(*mem) != kind)
        return nullptr;
    const Attachment* store = ownerOfRecord(array, kind, place);
    if (!store)
        return nullptr;
    if (mem->member_adr)
        return store->holdsElement(mem->member_adr, sizeof(Element)) ? static_cast<Element*>(mem->member_adr) : nullptr;
    return reinterpret_cast<Element*>(store->elements(kind, place.index).data);
}

// The decimals that the configuration gave the member.
char* formatFor(unsigned short resolution) {
    static char formats[10][8] = {"%.0f", "%.1f", "%.2f", "%.3f", "%.4f", "%.5f", "%.6f", "%.7f", "%.8f", "%.9f"};
    static char general[8] = "%g";
    return resolution < 10 ? formats[resolution] : general;
}

template <typename Member, size_t count>
char* memberFormat(const Member (&members)[count], int member) {
    return member >= 0 && static_cast<size_t>(member) < count ? formatFor(members[member].display_resolution)
                                                              : formatFor(UINT16_MAX);
}

LIMIT_STATUS limitStatus(const Attachment& store, const NameMeaning& meaning) {
    const char* record = store.record(sectionNumber(meaning.area, meaning.kind), meaning.index);
    LIMIT_STATUS none{};
    SHARED_MEMORY mem{};
    if (!record || !fillHandle(store, meaning, mem))
        return none;
    const char* element = static_cast<const char*>(mem.member_adr);
    if (isArray(meaning.kind) && !element)
        return none;
    switch (meaning.kind) {
        case REAL_TYPE:
            return reinterpret_cast<const REAL_VARIABLE*>(record)->limit_status;
        case INT_TYPE:
            return reinterpret_cast<const INTEGER_VARIABLE*>(record)->limit_status;
        case LOGI_TYPE:
            return reinterpret_cast<const LOGICAL_VARIABLE*>(record)->limit_status;
        case STAT_TYPE:
            return reinterpret_cast<const STAT_VARIABLE*>(record)->limit_status;
        case COMP_TYPE:
            return reinterpret_cast<const COMP_VARIABLE*>(record)->limit_status;
        case PROP_TYPE:
            return reinterpret_cast<const PROP_VARIABLE*>(record)->limit_status;
        case EMIS_TYPE:
            return reinterpret_cast<const EMIS_VARIABLE*>(record)->limit_status;
        case REAL_ARRAY_TYPE:
            return reinterpret_cast<const REAL_ARRAY_MEMBER*>(element)->limit_status;
        case INT_ARRAY_TYPE:
            return reinterpret_cast<const INTEGER_ARRAY_MEMBER*>(element)->limit_status;
        case STRING_ARRAY_TYPE:
            return reinterpret_cast<const STRING_ARRAY_MEMBER*>(element)->limit_status;
        case LOGI_ARRAY_TYPE:
            return reinterpret_cast<const LOGICAL_ARRAY_MEMBER*>(element)->limit_status;
        default:
            return none;
    }
}

}  // namespace

short int find_variable(char* label, SHARED_MEMORY* mem) {
    const Attachment* store = attachment();
    if (!store || !label || !mem)
        return nameNotFound;
    const auto meaning = meaningOf(*store, label);
    return meaning && fillHandle(*store, *meaning, *mem) ? nameFound : nameNotFound;
}

short int find_alias_label(char* label, SHARED_MEMORY* mem, short int* index) {
    const Attachment* store = attachment();
    if (!store || !label || !mem)
        return nameNotFound;
    const auto meaning = meaningOf(*store, label);
    if (!meaning || (meaning->flags & isAlias) == 0 || !aliasRecord(*store, meaning->alias))
        return nameNotFound;
    *mem = handle(ALIAS_MEM, ALIAS_TYPE, meaning->alias - 1);
    if (index)
        *index = mem->index;
    return nameFound;
}

short int find_alias_of_target(char* target, SHARED_MEMORY* mem, char** alias) {
    const Attachment* store = attachment();
    if (!store || !target || !mem || !alias)
        return nameNotFound;
    const std::string_view name = textOf(target);
    const auto meaning = lookInIndex(store->objects(), [&](const IndexTable& table) {
        auto found = findName(table, NameKey(name));
        if (!found && name.find(':') != std::string_view::npos)
            found = findName(table, NameKey(canonicalName(*store, IndexedNames(table), name)));
        return found;
    });
    if (!meaning || (meaning->flags & isAlias) != 0)
        return nameNotFound;
    ALIAS_VARIABLE* record = aliasRecord(*store, meaning->alias);
    if (!record)
        return nameNotFound;
    *mem = handle(ALIAS_MEM, ALIAS_TYPE, meaning->alias - 1);
    *alias = terminated(record->alias);
    return nameFound;
}

short int find_stat_label(char* label, SHARED_MEMORY* mem) {
    return findBase(STAT_TYPE, label, mem);
}

short int find_comp_label(char* label, SHARED_MEMORY* mem) {
    return findBase(COMP_TYPE, label, mem);
}

short int find_prop_label(char* label, SHARED_MEMORY* mem) {
    return findBase(PROP_TYPE, label, mem);
}

short int find_emis_label(char* label, SHARED_MEMORY* mem) {
    return findBase(EMIS_TYPE, label, mem);
}

void* get_vrbl_adr(SHARED_MEMORY mem) {
    const Attachment* store = attachment();
    return store ? store->record(sectionNumber(areaIn(mem), kindIn(mem)), mem.index) : nullptr;
}

char* get_variable_units(SHARED_MEMORY mem) {
    const int kind = kindIn(mem);
    if (kind == REAL_ARRAY_TYPE)
        return elementUnits<REAL_ARRAY_MEMBER>(mem);
    if (kind == INT_ARRAY_TYPE)
        return elementUnits<INTEGER_ARRAY_MEMBER>(mem);
    void* record = get_vrbl_adr(mem);
    if (!record)
        return noText();
    switch (kind) {
        case REAL_TYPE:
            return terminated(static_cast<REAL_VARIABLE*>(record)->units);
        case INT_TYPE:
            return terminated(static_cast<INTEGER_VARIABLE*>(record)->units);
        case STAT_TYPE:
            return memberUnits(&STAT_VARIABLE::stat, record, mem.offset);
        case COMP_TYPE:
            return memberUnits(&COMP_VARIABLE::fraction, record, mem.offset);
        case PROP_TYPE:
            return memberUnits(&PROP_VARIABLE::properties, record, mem.offset);
        case EMIS_TYPE:
            return memberUnits(&EMIS_VARIABLE::emission, record, mem.offset);
        default:
            return noText();
    }
}

REAL_ARRAY_MEMBER* get_real_array_adr(REAL_ARRAY_VARIABLE* array, SHARED_MEMORY* mem) {
    return elementAddress<REAL_ARRAY_MEMBER>(array, REAL_ARRAY_TYPE, mem);
}

INTEGER_ARRAY_MEMBER* get_integer_array_adr(INTEGER_ARRAY_VARIABLE* array, SHARED_MEMORY* mem) {
    return elementAddress<INTEGER_ARRAY_MEMBER>(array, INT_ARRAY_TYPE, mem);
}

STRING_ARRAY_MEMBER* get_string_array_adr(STRING_ARRAY_VARIABLE* array, SHARED_MEMORY* mem) {
    return elementAddress<STRING_ARRAY_MEMBER>(array, STRING_ARRAY_TYPE, mem);
}

LOGICAL_ARRAY_MEMBER* get_logical_array_adr(LOGICAL_ARRAY_VARIABLE* array, SHARED_MEMORY* mem) {
    return elementAddress<LOGICAL_ARRAY_MEMBER>(array, LOGI_ARRAY_TYPE, mem);
}

char* get_stat_format(STAT_VARIABLE* var, STAT_MEMBER_TYPE member) {
    return var ? memberFormat(var->stat, member) : formatFor(UINT16_MAX);
}

char* get_comp_format(COMP_VARIABLE* var, COMPOSITION_MEMBER_TYPE member) {
    return var ? memberFormat(var->fraction, member) : formatFor(UINT16_MAX);
}

char* get_prop_format(PROP_VARIABLE* var, PROPERTY_MEMBER_TYPE member) {
    return var ? memberFormat(var->properties, member) : formatFor(UINT16_MAX);
}

char* get_emis_format(EMIS_VARIABLE* var, EMISSION_MEMBER_TYPE member) {
    return var ? memberFormat(var->emission, member) : formatFor(UINT16_MAX);
}

short int get_limit_info(char* label, LIMIT_STATUS* status, double* limits, short int* exists, short int* display) {
    const Attachment* store = attachment();
    if (!store || !label)
        return nameNotFound;
    const std::string_view name = textOf(label);
    const NameKey key(name);
    Limits found;
    const auto meaning = lookInIndex(store->objects(), [&](const IndexTable& table) {
        auto result = meaningIn(*store, table, name, key);
        if (result && result->limits == 0 && name.find(':') != std::string_view::npos) {
            const auto named = findName(table, NameKey(canonicalName(*store, IndexedNames(table), name)));
            result->limits = named ? named->limits : 0;
        }
        found = result ? readLimits(table, result->limits).value_or(Limits{}) : Limits{};
        return result;
    });
    if (!meaning)
        return nameNotFound;
    if (status)
        *status = limitStatus(*store, *meaning);
    if (limits)
        std::memcpy(limits, found.values.data(), sizeof found.values);
    if (exists)
        std::memcpy(exists, found.exists.data(), sizeof found.exists);
    if (display)
        std::memcpy(display, found.display.data(), sizeof found.display);
    return nameFound;
}
