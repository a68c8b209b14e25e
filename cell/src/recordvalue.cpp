#include "recordvalue.h"

#include <ostrel/store.h>
#include <unistd.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <type_traits>

#include "ground/fieldtext.h"
#include "limitstate.h"

namespace ostrelcell {

namespace {

int toInteger(double value) {
    if (value >= INT_MAX)
        return INT_MAX;
    return value <= INT_MIN ? INT_MIN : static_cast<int>(std::lround(value));
}

double storeReal(REAL_VARIABLE& record, double value, const timespec& now) {
    if (value == record.value && record.NAN_trapped == 0) {
        record.last_sampled_time = now;
        record.update_count++;
        return value;
    }
    set_real_variable(&record, value);
    return record.value;
}

double storeInteger(INTEGER_VARIABLE& record, double value, const timespec& now) {
    if (!std::isfinite(value)) {
        record.NAN_trapped = 1;
        return record.value;
    }
    const int rounded = toInteger(value);
    if (rounded == record.value && record.NAN_trapped == 0)
        record.last_sampled_time = now;
    else
        set_integer(&record, rounded);
    return record.value;
}

double storeLogical(LOGICAL_VARIABLE& record, double value, const timespec& now) {
    const short state = value != 0 && !std::isnan(value) ? 1 : 0;
    if (state == record.value)
        record.last_sampled_time = now;
    else
        set_logical(&record, state);
    return record.value;
}

// Members and elements have no write operation of their own in the platform; the record is written as it stands.
template <typename Member>
double storeMember(Member& member, double value) {
    if (!std::isfinite(value)) {
        member.NAN_trapped = 1;
        return member.value;
    }
    member.value = value;
    member.NAN_trapped = 0;
    return value;
}

template <typename Element>
double storeElement(Element& element, double value, const timespec& now) {
    if (!std::isfinite(value))
        return element.value;
    element.value = static_cast<std::remove_reference_t<decltype(element.value)>>(value);
    element.last_sampled_time = now;
    if (element.last_pid != getpid()) {
        element.last_pid = getpid();
        setText(element.last_process_name, writerName());
    }
    return element.value;
}

// Calls `work` with the record as what it is, where it is one that has a status; else gives `otherwise`.
template <typename Result, typename Work>
Result withStatusRecord(SM_VARI_TYPE kind, void* record, Result otherwise, Work work) {
    switch (kind) {
        case REAL_TYPE:
            return work(*static_cast<REAL_VARIABLE*>(record));
        case INT_TYPE:
            return work(*static_cast<INTEGER_VARIABLE*>(record));
        case LOGI_TYPE:
            return work(*static_cast<LOGICAL_VARIABLE*>(record));
        case REAL_ARRAY_TYPE:
            return work(*static_cast<REAL_ARRAY_MEMBER*>(record));
        case INT_ARRAY_TYPE:
            return work(*static_cast<INTEGER_ARRAY_MEMBER*>(record));
        case LOGI_ARRAY_TYPE:
            return work(*static_cast<LOGICAL_ARRAY_MEMBER*>(record));
        default:
            return otherwise;
    }
}

}  // namespace

const char* writerName() {
    return program_invocation_short_name;
}

double RecordValue::load() const {
    switch (m_kind) {
        case STAT_TYPE:
            return static_cast<STAT_VARIABLE*>(m_record)->stat[m_member].value;
        case COMP_TYPE:
            return static_cast<COMP_VARIABLE*>(m_record)->fraction[m_member].value;
        case PROP_TYPE:
            return static_cast<PROP_VARIABLE*>(m_record)->properties[m_member].value;
        case EMIS_TYPE:
            return static_cast<EMIS_VARIABLE*>(m_record)->emission[m_member].value;
        default:
            return withStatusRecord(m_kind, m_record, 0.0,
                                    [](auto& record) { return static_cast<double>(record.value); });
    }
}

double RecordValue::store(double value, const timespec& now) const {
    switch (m_kind) {
        case REAL_TYPE:
            return storeReal(*static_cast<REAL_VARIABLE*>(m_record), value, now);
        case INT_TYPE:
            return storeInteger(*static_cast<INTEGER_VARIABLE*>(m_record), value, now);
        case LOGI_TYPE:
            return storeLogical(*static_cast<LOGICAL_VARIABLE*>(m_record), value, now);
        case COMP_TYPE:
            return storeMember(static_cast<COMP_VARIABLE*>(m_record)->fraction[m_member], value);
        case PROP_TYPE:
            static_cast<PROP_VARIABLE*>(m_record)->last_sampled_time = now;
            return storeMember(static_cast<PROP_VARIABLE*>(m_record)->properties[m_member], value);
        case EMIS_TYPE:
            static_cast<EMIS_VARIABLE*>(m_record)->last_sampled_time = now;
            static_cast<EMIS_VARIABLE*>(m_record)->emission[m_member].data_written = 1;
            return storeMember(static_cast<EMIS_VARIABLE*>(m_record)->emission[m_member], value);
        case REAL_ARRAY_TYPE:
            static_cast<REAL_ARRAY_MEMBER*>(m_record)->NAN_trapped = std::isfinite(value) ? 0 : 1;
            return storeElement(*static_cast<REAL_ARRAY_MEMBER*>(m_record), value, now);
        case INT_ARRAY_TYPE:
            static_cast<INTEGER_ARRAY_MEMBER*>(m_record)->NAN_trapped = std::isfinite(value) ? 0 : 1;
            return storeElement(*static_cast<INTEGER_ARRAY_MEMBER*>(m_record),
                                std::isfinite(value) ? toInteger(value) : value, now);
        case LOGI_ARRAY_TYPE:
            return storeElement(*static_cast<LOGICAL_ARRAY_MEMBER*>(m_record), value != 0 && !std::isnan(value) ? 1 : 0,
                                now);
        default:
            return 0;
    }
}

unsigned short RecordValue::limitWord() const {
    return withStatusRecord(m_kind, m_record, static_cast<unsigned short>(0),
                            [](auto& record) { return wordOf(record.limit_status); });
}

void RecordValue::setLimitWord(unsigned short word) const {
    withStatusRecord(m_kind, m_record, false, [word](auto& record) {
        record.limit_status = statusOf(word);
        return true;
    });
}

short RecordValue::status() const {
    return withStatusRecord(m_kind, m_record, static_cast<short>(0),
                            [](auto& record) { return static_cast<short>(record.status); });
}

void RecordValue::setStatus(short status) const {
    withStatusRecord(m_kind, m_record, false, [status](auto& record) {
        record.status = status;
        return true;
    });
}

timespec RecordValue::sampled() const {
    return withStatusRecord(m_kind, m_record, timespec{},
                            [](auto& record) { return timespec(record.last_sampled_time); });
}

int RecordValue::alarmLevel() const {
    return alarmLevelOf(limitWord());
}

}  // namespace ostrelcell
