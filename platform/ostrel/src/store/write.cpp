#include <ostrel/events.h>
#include <ostrel/records.h>
#include <ostrel/store.h>

#include <atomic>
#include <bit>
#include <climits>
#include <cmath>
#include <cstring>
#include <ctime>
#include <optional>

#include "processidentity.h"
#include "rawnumber.h"
#include "store/currentstore.h"
#include "store/writelog.h"

namespace {

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

std::optional<WriteTarget> targetOf(const void* record, int kind) {
    RecordPlace place{};
    const Attachment* store = record ? ownerOfRecord(record, kind, place) : nullptr;
    return store ? std::optional(WriteTarget{store, place.section, place.index, 0}) : std::nullopt;
}

// The same for an element: it must be one of the array as it stands now.
std::optional<WriteTarget> targetOf(const SHARED_MEMORY& mem) {
    const int kind = kindIn(mem);
    const Attachment* store =
        isArray(kind) && mem.member_adr ? ownerOfElement(mem.member_adr, elementSize(kind)) : nullptr;
    const ElementBlock block = store ? store->elements(kind, mem.index) : ElementBlock{};
    if (!block.data)
        return std::nullopt;
    const auto distance = reinterpret_cast<uintptr_t>(mem.member_adr) - reinterpret_cast<uintptr_t>(block.data);
    const size_t number = distance / elementSize(kind);
    if (distance % elementSize(kind) != 0 || number >= block.count)
        return std::nullopt;
    return WriteTarget{store, arraySectionNumber(kind), mem.index, static_cast<uint32_t>(number + 1)};
}

bool isServersOwn(const WriteTarget& target) {
    return target.store->isServersThread();
}

// Whether anything may be written there. Every write passes here first: what a store allows is decided in this place.
short admit(const WriteTarget& target) {
    if (!target.store->isWritable())
        return OSTREL_READ_ONLY;
    if (isServersOwn(target))
        return OSTREL_STORED;
    const uint64_t flags = target.store->rule(target.section, target.index).flags.load(std::memory_order_acquire);
    return (flags & ruleLocked) != 0 ? OSTREL_NOT_WRITABLE : OSTREL_STORED;
}

short admit(const WriteTarget& target, double value) {
    const short refusal = admit(target);
    if (refusal != OSTREL_STORED || isServersOwn(target))
        return refusal;
    const WriteRule& rule = target.store->rule(target.section, target.index);
    const uint64_t flags = rule.flags.load(std::memory_order_acquire);
    const auto min = std::bit_cast<double>(rule.min.load(std::memory_order_relaxed));
    const auto max = std::bit_cast<double>(rule.max.load(std::memory_order_relaxed));
    const bool isOutside = ((flags & ruleMin) != 0 && value < min) || ((flags & ruleMax) != 0 && value > max);
    return isOutside ? OSTREL_OUTSIDE : OSTREL_STORED;
}

// Stores `value` where the rules allow it, and notes what was tried. `former` is what the variable held.
template <typename Store>
short writeNumber(const WriteTarget& target, double former, double value, Store store) {
    short result = admit(target, value);
    if (result == OSTREL_STORED)
        result = store();
    if (!isServersOwn(target))
        noteWrite(target, writtenNumber(former), writtenNumber(value), result);
    return result;
}

template <typename Store>
short writeText(const WriteTarget& target, const WrittenBytes& former, const WrittenBytes& value, Store store) {
    short result = admit(target);
    if (result == OSTREL_STORED)
        result = store();
    if (!isServersOwn(target))
        noteWrite(target, former, value, result);
    return result;
}

short storeReal(REAL_VARIABLE& record, double value) {
    if (!std::isfinite(value)) {
        put(record, &REAL_VARIABLE::NAN_trapped, 1);
        return OSTREL_NO_VALUE;
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
    return OSTREL_STORED;
}

short storeElement(REAL_ARRAY_MEMBER& element, double value) {
    if (!std::isfinite(value)) {
        put(element, &REAL_ARRAY_MEMBER::NAN_trapped, 1);
        return OSTREL_NO_VALUE;
    }
    put(element, &REAL_ARRAY_MEMBER::value, value);
    put(element, &REAL_ARRAY_MEMBER::NAN_trapped, 0);
    sign(element, timeOr(nullptr));
    return OSTREL_STORED;
}

short storeElement(INTEGER_ARRAY_MEMBER& element, double whole) {
    if (!(whole >= INT_MIN && whole <= INT_MAX)) {
        put(element, &INTEGER_ARRAY_MEMBER::NAN_trapped, 1);
        return OSTREL_NO_VALUE;
    }
    put(element, &INTEGER_ARRAY_MEMBER::value, whole);
    put(element, &INTEGER_ARRAY_MEMBER::NAN_trapped, 0);
    sign(element, timeOr(nullptr));
    return OSTREL_STORED;
}

short storeElement(LOGICAL_ARRAY_MEMBER& element, double value, const WriteTarget& target) {
    if (!std::isfinite(value))
        return OSTREL_NO_VALUE;
    const short state = value != 0;
    const bool changed = (element.value != 0) != (state != 0);
    put(element, &LOGICAL_ARRAY_MEMBER::value, state);
    sign(element, timeOr(nullptr));
    const auto* array =
        reinterpret_cast<const LOGICAL_ARRAY_VARIABLE*>(target.store->record(target.section, target.index));
    if (array && changed && state && array->signal_on_true)
        raise(array->true_event_name);
    if (array && changed && !state && array->signal_on_false)
        raise(array->false_event_name);
    return OSTREL_STORED;
}

short storeInteger(INTEGER_VARIABLE& record, int value) {
    const int former = record.value;
    const timespec now = timeOr(nullptr);
    put(record, &INTEGER_VARIABLE::value, value);
    put(record, &INTEGER_VARIABLE::last_sampled_value, value);
    put(record, &INTEGER_VARIABLE::NAN_trapped, 0);
    sign(record, now);
    if (former == value)
        return OSTREL_STORED;
    put(record, &INTEGER_VARIABLE::last_delta_value, former);
    put(record, &INTEGER_VARIABLE::last_delta_time, now);
    if (record.event_active)
        raise(record.event_name);
    return OSTREL_STORED;
}

short storeLogical(LOGICAL_VARIABLE& record, short state, const timespec& time) {
    const bool changed = (record.value != 0) != (state != 0);
    put(record, &LOGICAL_VARIABLE::value, state);
    sign(record, time);
    if (changed && state && record.signal_on_true)
        raise(record.true_event_name);
    if (changed && !state && record.signal_on_false)
        raise(record.false_event_name);
    return OSTREL_STORED;
}

short storeText(STRING_VARIABLE& record, const WrittenBytes& text) {
    const bool changed = std::memcmp(record.value, text.data(), sizeof record.value) != 0;
    std::memcpy(record.value, text.data(), sizeof record.value);
    sign(record, timeOr(nullptr));
    if (changed && record.event_active)
        raise(record.event_name);
    return OSTREL_STORED;
}

short writeStringElement(const WriteTarget& target, STRING_ARRAY_MEMBER& element, const char* text) {
    if (!text)
        return OSTREL_NO_VALUE;
    char value[sizeof element.value] = "";
    std::memcpy(value, text, strnlen(text, sizeof value - 1));
    const WrittenBytes former = writtenText(element.value, sizeof element.value);
    return writeText(target, former, writtenText(value, sizeof value), [&] {
        std::memcpy(element.value, value, sizeof value);
        sign(element, timeOr(nullptr));
        return OSTREL_STORED;
    });
}

}  // namespace

short int ostrel_set_real(REAL_VARIABLE* var, double value) {
    const auto target = targetOf(var, REAL_TYPE);
    if (!target)
        return OSTREL_NO_RECORD;
    return writeNumber(*target, var->value, value, [&] { return storeReal(*var, value); });
}

void set_real_variable(REAL_VARIABLE* var, double value) {
    ostrel_set_real(var, value);
}

short int set_integer(INTEGER_VARIABLE* var, int value) {
    const auto target = targetOf(var, INT_TYPE);
    if (!target)
        return OSTREL_NO_RECORD;
    return writeNumber(*target, var->value, value, [&] { return storeInteger(*var, value); });
}

short int set_logical(LOGICAL_VARIABLE* var, short int value) {
    return set_logical_variable(var, value, 0, nullptr);
}

short int set_logical_variable(LOGICAL_VARIABLE* var, short int value, short int flags, struct timespec* time) {
    if (flags != 0)
        return OSTREL_NO_VALUE;
    const auto target = targetOf(var, LOGI_TYPE);
    if (!target)
        return OSTREL_NO_RECORD;
    const short state = value != 0;
    return writeNumber(*target, var->value != 0, state, [&] { return storeLogical(*var, state, timeOr(time)); });
}

short int ostrel_store_logical(LOGICAL_VARIABLE* var, short int value) {
    const auto target = targetOf(var, LOGI_TYPE);
    if (!target)
        return OSTREL_NO_RECORD;
    const short state = value != 0;
    return writeNumber(*target, var->value != 0, state, [&] {
        put(*var, &LOGICAL_VARIABLE::value, state);
        return OSTREL_STORED;
    });
}

short int set_string_variable(STRING_VARIABLE* var, char* value) {
    if (!value)
        return OSTREL_NO_VALUE;
    const auto target = targetOf(var, STRING_TYPE);
    if (!target)
        return OSTREL_NO_RECORD;
    const WrittenBytes text = writtenText(value, sizeof var->value);
    return writeText(*target, writtenText(var->value, sizeof var->value), text, [&] { return storeText(*var, text); });
}

short int ostrel_set_array_element(const SHARED_MEMORY* mem, double number, const char* text) {
    const auto target = mem ? targetOf(*mem) : std::nullopt;
    if (!target)
        return OSTREL_NO_RECORD;
    switch (kindIn(*mem)) {
        case REAL_ARRAY_TYPE: {
            auto& element = *static_cast<REAL_ARRAY_MEMBER*>(mem->member_adr);
            return writeNumber(*target, element.value, number, [&] { return storeElement(element, number); });
        }
        case INT_ARRAY_TYPE: {
            auto& element = *static_cast<INTEGER_ARRAY_MEMBER*>(mem->member_adr);
            const double whole = std::round(number);
            return writeNumber(*target, element.value, whole, [&] { return storeElement(element, whole); });
        }
        case LOGI_ARRAY_TYPE: {
            auto& element = *static_cast<LOGICAL_ARRAY_MEMBER*>(mem->member_adr);
            return writeNumber(*target, element.value != 0, number,
                               [&] { return storeElement(element, number, *target); });
        }
        default:
            return writeStringElement(*target, *static_cast<STRING_ARRAY_MEMBER*>(mem->member_adr), text);
    }
}
