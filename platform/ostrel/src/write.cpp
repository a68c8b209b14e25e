#include <algorithm>
#include <atomic>
#include <climits>
#include <cmath>
#include <cstring>
#include <ctime>

#include <ostrel/events.h>
#include <ostrel/records.h>
#include <ostrel/store.h>

#include "currentstore.h"
#include "processidentity.h"

namespace {

constexpr short kStored = 0;
constexpr short kNoRecord = 1;  // the address is no record of a store
constexpr short kNoValue = 2;   // the value is not one that the variable can hold
constexpr short kReadOnly = 3;  // this process may not write to the store

// A field in one store instruction, so that no reader sees half of it where the field is aligned. Records are packed:
// a field is reached through its member pointer, never by a reference that would promise an alignment.
template <typename Record, typename Field, typename Value>
void put(Record& record, Field Record::*field, const Value& value) {
    Field whole = static_cast<Field>(value);
    void* address = &(record.*field);
    if constexpr (sizeof(Field) <= 8) {
        if (reinterpret_cast<uintptr_t>(address) % sizeof(Field) == 0) {
            __atomic_store(static_cast<Field*>(address), &whole, __ATOMIC_RELAXED);
            return;
        }
    }
    std::memcpy(address, &whole, sizeof whole);
}

timespec timeOr(const timespec* given) {
    timespec now{};
    if (given)
        return *given;
    clock_gettime(CLOCK_REALTIME, &now);
    return now;
}

// What every record and every element of an array has: who wrote it, and when.
template <typename Record>
void sign(Record& record, const timespec& time) {
    const ProcessIdentity self = processIdentity();
    put(record, &Record::last_sampled_time, time);
    put(record, &Record::last_pid, self.pid);
    static_assert(sizeof record.last_process_name == sizeof self.name);
    std::memcpy(record.last_process_name, self.name, sizeof self.name);
}

template <size_t size>
void raise(const char (&eventName)[size]) {
    char name[size + 1] = "";
    std::memcpy(name, eventName, size);
    if (name[0] != '\0')
        event_set_name(name, nullptr, 0);
}

// Whether `record` may be written. Every write passes here first: what a store allows is decided in this place.
template <typename Record>
short admit(const Record* record, int kind) {
    RecordPlace place{};
    const Attachment* store = record ? ownerOfRecord(record, kind, place) : nullptr;
    if (!store)
        return kNoRecord;
    return store->isWritable() ? kStored : kReadOnly;
}

// The same for an element: it must be one of the array as it stands now.
short admitElement(const SHARED_MEMORY& mem) {
    const Attachment* store =
        isArray(mem.vari_type) && mem.member_adr ? ownerOfElement(mem.member_adr, elementSize(mem.vari_type)) : nullptr;
    const ElementBlock block = store ? store->elements(mem.vari_type, mem.index) : ElementBlock{};
    const auto distance = reinterpret_cast<uintptr_t>(mem.member_adr) - reinterpret_cast<uintptr_t>(block.data);
    if (!block.data || distance % elementSize(mem.vari_type) != 0 ||
        distance / elementSize(mem.vari_type) >= block.count)
        return kNoRecord;
    return store->isWritable() ? kStored : kReadOnly;
}

short storeReal(REAL_VARIABLE& record, double value) {
    if (!std::isfinite(value)) {
        put(record, &REAL_VARIABLE::NAN_trapped, 1);
        return kNoValue;
    }
    const double former = record.value;
    const bool changed = former != value;
    const timespec now = timeOr(nullptr);
    put(record, &REAL_VARIABLE::value, value);
    put(record, &REAL_VARIABLE::last_sampled_value, value);
    put(record, &REAL_VARIABLE::NAN_trapped, 0);
    sign(record, now);
    if (changed) {
        put(record, &REAL_VARIABLE::last_delta_value, former);
        put(record, &REAL_VARIABLE::last_delta_time, now);
    }
    put(record, &REAL_VARIABLE::update_count, record.update_count + 1);
    if (changed && record.event_active)
        raise(record.event_name);
    return kStored;
}

short storeElement(REAL_ARRAY_MEMBER& element, double value) {
    if (!std::isfinite(value)) {
        put(element, &REAL_ARRAY_MEMBER::NAN_trapped, 1);
        return kNoValue;
    }
    put(element, &REAL_ARRAY_MEMBER::value, value);
    put(element, &REAL_ARRAY_MEMBER::NAN_trapped, 0);
    sign(element, timeOr(nullptr));
    return kStored;
}

short storeElement(INTEGER_ARRAY_MEMBER& element, double value) {
    const double rounded = std::round(value);
    if (!(rounded >= INT_MIN && rounded <= INT_MAX)) {
        put(element, &INTEGER_ARRAY_MEMBER::NAN_trapped, 1);
        return kNoValue;
    }
    put(element, &INTEGER_ARRAY_MEMBER::value, rounded);
    put(element, &INTEGER_ARRAY_MEMBER::NAN_trapped, 0);
    sign(element, timeOr(nullptr));
    return kStored;
}

short storeElement(LOGICAL_ARRAY_MEMBER& element, double value, const SHARED_MEMORY& mem) {
    if (!std::isfinite(value))
        return kNoValue;
    const short state = value != 0;
    const bool changed = (element.value != 0) != (state != 0);
    put(element, &LOGICAL_ARRAY_MEMBER::value, state);
    sign(element, timeOr(nullptr));
    const Attachment* store = ownerOfElement(&element, sizeof element);
    const auto* array = reinterpret_cast<const LOGICAL_ARRAY_VARIABLE*>(
        store ? store->record(arraySectionNumber(mem.vari_type), mem.index) : nullptr);
    if (array && changed && state && array->signal_on_true)
        raise(array->true_event_name);
    if (array && changed && !state && array->signal_on_false)
        raise(array->false_event_name);
    return kStored;
}

short storeElement(STRING_ARRAY_MEMBER& element, const char* text) {
    if (!text)
        return kNoValue;
    char value[sizeof element.value] = "";
    std::memcpy(value, text, strnlen(text, sizeof value - 1));
    std::memcpy(element.value, value, sizeof value);
    sign(element, timeOr(nullptr));
    return kStored;
}

}  // namespace

void set_real_variable(REAL_VARIABLE* var, double value) {
    if (admit(var, REAL_TYPE) == kStored)
        storeReal(*var, value);
}

short int set_integer(INTEGER_VARIABLE* var, int value) {
    if (const short refusal = admit(var, INT_TYPE))
        return refusal;
    const int former = var->value;
    const timespec now = timeOr(nullptr);
    put(*var, &INTEGER_VARIABLE::value, value);
    put(*var, &INTEGER_VARIABLE::last_sampled_value, value);
    put(*var, &INTEGER_VARIABLE::NAN_trapped, 0);
    sign(*var, now);
    if (former == value)
        return kStored;
    put(*var, &INTEGER_VARIABLE::last_delta_value, former);
    put(*var, &INTEGER_VARIABLE::last_delta_time, now);
    if (var->event_active)
        raise(var->event_name);
    return kStored;
}

short int set_logical(LOGICAL_VARIABLE* var, short int value) {
    return set_logical_variable(var, value, 0, nullptr);
}

short int set_logical_variable(LOGICAL_VARIABLE* var, short int value, short int flags, struct timespec* time) {
    if (flags != 0)
        return kNoValue;
    if (const short refusal = admit(var, LOGI_TYPE))
        return refusal;
    const short state = value != 0;
    const bool changed = (var->value != 0) != (state != 0);
    put(*var, &LOGICAL_VARIABLE::value, state);
    sign(*var, timeOr(time));
    if (changed && state && var->signal_on_true)
        raise(var->true_event_name);
    if (changed && !state && var->signal_on_false)
        raise(var->false_event_name);
    return kStored;
}

short int set_string_variable(STRING_VARIABLE* var, char* value) {
    if (!value)
        return kNoValue;
    if (const short refusal = admit(var, STRING_TYPE))
        return refusal;
    char text[sizeof var->value] = "";
    std::memcpy(text, value, strnlen(value, sizeof text));
    const bool changed = std::memcmp(var->value, text, sizeof text) != 0;
    std::memcpy(var->value, text, sizeof text);
    sign(*var, timeOr(nullptr));
    if (changed && var->event_active)
        raise(var->event_name);
    return kStored;
}

short int ostrel_set_array_element(const SHARED_MEMORY* mem, double number, const char* text) {
    if (!mem)
        return kNoRecord;
    if (const short refusal = admitElement(*mem))
        return refusal;
    switch (mem->vari_type) {
        case REAL_ARRAY_TYPE:
            return storeElement(*static_cast<REAL_ARRAY_MEMBER*>(mem->member_adr), number);
        case INT_ARRAY_TYPE:
            return storeElement(*static_cast<INTEGER_ARRAY_MEMBER*>(mem->member_adr), number);
        case LOGI_ARRAY_TYPE:
            return storeElement(*static_cast<LOGICAL_ARRAY_MEMBER*>(mem->member_adr), number, *mem);
        default:
            return storeElement(*static_cast<STRING_ARRAY_MEMBER*>(mem->member_adr), text);
    }
}
