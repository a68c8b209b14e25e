// The store's functions.
#include "scripted/calls.h"

#include <ostrel/log.h>
#include <ostrel/store.h>

#include <algorithm>
#include <cstdarg>
#include <cstdlib>

using namespace scripted;

namespace {

constexpr short unknown = -1;

short findMembers(const char* function, SM_VARI_TYPE kind, char* label, SHARED_MEMORY* mem) {
    called(function, label);
    short code = 0;
    if (answered(function, &code))
        return code;
    const SHARED_MEMORY* found = platform().find(QString::fromLatin1(label));
    if (!found)
        found = platform().find(QString::fromLatin1(label) + QLatin1Char('.'));
    if (!found || found->vari_type != kind)
        return unknown;
    *mem = *found;
    return 0;
}

template <class Element>
Element* elementAddress(const char* function, const void* array, const SHARED_MEMORY* mem) {
    called(function, labelAt(array));
    short code = 0;
    Slot* slot = platform().slotAt(array);
    if (answered(function, &code) || !slot || !slot->elements)
        return nullptr;
    return reinterpret_cast<Element*>(slot->elements.get()) + mem->offset;
}

char* memberFormat(const char* function, const void* record, int member) {
    called(function, labelAt(record), member);
    static char none[] = "%g";
    Slot* slot = platform().slotAt(record);
    return slot && slot->formats.contains(member) ? slot->formats[member].data() : none;
}

void* arrayElements(const char* name) {
    Slot* slot = platform().slotNamed(QString::fromLatin1(name).section(QLatin1Char(':'), 0, 0));
    return slot ? slot->elements.get() : nullptr;
}

template <class Record, class Value>
short write(const char* function, Record* var, Value value) {
    short code = 0;
    if (answered(function, &code))
        return code;
    var->value = value;
    return 0;
}

}  // namespace

short int find_variable(char* label, SHARED_MEMORY* mem) {
    called("find_variable", label);
    short code = 0;
    if (answered("find_variable", &code))
        return code;
    const SHARED_MEMORY* found = platform().find(QString::fromLatin1(label));
    if (!found)
        return unknown;
    *mem = *found;
    return 0;
}

short int find_alias_label(char* label, SHARED_MEMORY* mem, short int* index) {
    called("find_alias_label", label);
    short code = 0;
    if (answered("find_alias_label", &code))
        return code;
    const Slot* slot = platform().aliasSlot(QString::fromLatin1(label));
    if (!slot)
        return unknown;
    *mem = slot->mem;
    if (index)
        *index = slot->mem.index;
    return 0;
}

short int find_alias_of_target(char* target, SHARED_MEMORY* mem, char** alias) {
    called("find_alias_of_target", target);
    short code = 0;
    if (answered("find_alias_of_target", &code))
        return code;
    const Slot* slot = platform().aliasOfTarget(QString::fromLatin1(target));
    if (!slot)
        return unknown;
    *mem = slot->mem;
    *alias = reinterpret_cast<ALIAS_VARIABLE*>(slot->record())->alias;
    return 0;
}

short int find_stat_label(char* label, SHARED_MEMORY* mem) {
    return findMembers("find_stat_label", STAT_TYPE, label, mem);
}

short int find_comp_label(char* label, SHARED_MEMORY* mem) {
    return findMembers("find_comp_label", COMP_TYPE, label, mem);
}

short int find_prop_label(char* label, SHARED_MEMORY* mem) {
    return findMembers("find_prop_label", PROP_TYPE, label, mem);
}

short int find_emis_label(char* label, SHARED_MEMORY* mem) {
    return findMembers("find_emis_label", EMIS_TYPE, label, mem);
}

void* get_vrbl_adr(SHARED_MEMORY mem) {
    const Slot* slot = platform().slotOf(mem);
    called("get_vrbl_adr", slot ? slot->label : QStringLiteral("-"));
    short code = 0;
    if (answered("get_vrbl_adr", &code))
        return nullptr;
    return slot ? slot->record() : nullptr;
}

char* get_variable_units(SHARED_MEMORY mem) {
    const Slot* slot = platform().slotOf(mem);
    called("get_variable_units", slot ? slot->label : QStringLiteral("-"));
    static char none[] = "";
    if (!slot)
        return none;
    switch (mem.vari_type) {
        case REAL_TYPE:
        case INT_TYPE:
            // At the same place in both.
            return reinterpret_cast<REAL_VARIABLE*>(slot->record())->units;
        case STAT_TYPE:
            return reinterpret_cast<STAT_VARIABLE*>(slot->record())->stat[mem.offset].units;
        case REAL_ARRAY_TYPE:
            return reinterpret_cast<REAL_ARRAY_MEMBER*>(slot->elements.get())[mem.offset].units;
        default:
            return none;
    }
}

REAL_ARRAY_MEMBER* get_real_array_adr(REAL_ARRAY_VARIABLE* array, SHARED_MEMORY* mem) {
    return elementAddress<REAL_ARRAY_MEMBER>("get_real_array_adr", array, mem);
}

INTEGER_ARRAY_MEMBER* get_integer_array_adr(INTEGER_ARRAY_VARIABLE* array, SHARED_MEMORY* mem) {
    return elementAddress<INTEGER_ARRAY_MEMBER>("get_integer_array_adr", array, mem);
}

STRING_ARRAY_MEMBER* get_string_array_adr(STRING_ARRAY_VARIABLE* array, SHARED_MEMORY* mem) {
    return elementAddress<STRING_ARRAY_MEMBER>("get_string_array_adr", array, mem);
}

LOGICAL_ARRAY_MEMBER* get_logical_array_adr(LOGICAL_ARRAY_VARIABLE* array, SHARED_MEMORY* mem) {
    return elementAddress<LOGICAL_ARRAY_MEMBER>("get_logical_array_adr", array, mem);
}

char* get_stat_format(STAT_VARIABLE* var, STAT_MEMBER_TYPE member) {
    return memberFormat("get_stat_format", var, member);
}

char* get_comp_format(COMP_VARIABLE* var, COMPOSITION_MEMBER_TYPE member) {
    return memberFormat("get_comp_format", var, member);
}

char* get_prop_format(PROP_VARIABLE* var, PROPERTY_MEMBER_TYPE member) {
    return memberFormat("get_prop_format", var, member);
}

char* get_emis_format(EMIS_VARIABLE* var, EMISSION_MEMBER_TYPE member) {
    return memberFormat("get_emis_format", var, member);
}

short int get_limit_info(char* label, LIMIT_STATUS*, double* values, short int* exists, short int* display) {
    called("get_limit_info", label);
    short code = 0;
    if (answered("get_limit_info", &code) || !platform().find(QString::fromUtf8(label)))
        return code != 0 ? code : unknown;
    const Limits& limits = platform().limits(label);
    std::copy(limits.values.begin(), limits.values.end(), values);
    std::copy(limits.exists.begin(), limits.exists.end(), exists);
    std::copy(limits.display.begin(), limits.display.end(), display);
    return 0;
}

void* get_private_shrd_mem(char* name, size_t size) {
    called("get_private_shrd_mem", name, size);
    return &platform().reconfiguration();
}

void* link_to_array_mem(char* name, size_t*) {
    called("link_to_array_mem", name);
    return arrayElements(name);
}

void* _MEMORY_LINK_SIZE(const char* name, size_t*) {
    called("_MEMORY_LINK_SIZE", name);
    return arrayElements(name);
}

short int link_to_memory(short int area, void** base) {
    called("link_to_memory", area);
    *base = nullptr;
    short code = 0;
    if (answered("link_to_memory", &code) && code != 0)
        return code;
    *base = platform().areas().link(static_cast<SM_AREA_ID>(area));
    return *base ? short{0} : unknown;
}

short int shrd_mem_in_use(SM_AREA_ID area) {
    called("shrd_mem_in_use", static_cast<int>(area));
    short code = platform().areas().links(area) > 0;
    answered("shrd_mem_in_use", &code);
    return code;
}

void* get_shrd_mem(SM_AREA_ID area, size_t size) {
    called("get_shrd_mem", static_cast<int>(area), size);
    return platform().areas().link(area);
}

void fre_shrd_mem(SM_AREA_ID area) {
    called("fre_shrd_mem", static_cast<int>(area));
    platform().areas().release(area);
}

void set_real_variable(REAL_VARIABLE* var, double value) {
    called("set_real_variable", labelAt(var), value);
    write("set_real_variable", var, value);
}

short int set_integer(INTEGER_VARIABLE* var, int value) {
    called("set_integer", labelAt(var), value);
    return write("set_integer", var, value);
}

short int set_logical(LOGICAL_VARIABLE* var, short int value) {
    called("set_logical", labelAt(var), value);
    return write("set_logical", var, value);
}

short int set_logical_variable(LOGICAL_VARIABLE* var, short int value, short int flags, struct timespec* time) {
    called("set_logical_variable", labelAt(var), value, flags, time ? "time" : "null");
    return write("set_logical_variable", var, value);
}

short int set_string_variable(STRING_VARIABLE* var, char* value) {
    called("set_string_variable", labelAt(var), value);
    short code = 0;
    if (!answered("set_string_variable", &code))
        put(var->value, value);
    return code;
}

void log_error(const char* file, int line, int level, int status, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const QString text = QString::vasprintf(format, arguments);
    va_end(arguments);
    called("log_error", QString::fromLatin1(file).section(QLatin1Char('/'), -1), line, level, status, text);
}
