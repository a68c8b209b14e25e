// The scripted platform: what stands in its store, how its functions answer, and which of them were called.
//
// A test speaks to it as in
//     platform().real("SPEED").value(1500).units("RPM").format("%6.1f");
//     platform().answer("find_alias_label", -1);
//     QCOMPARE(platform().calls(), QStringList({"find_variable SPEED"}));
#ifndef OSTREL_TESTS_SCRIPTED_PLATFORM_H
#define OSTREL_TESTS_SCRIPTED_PLATFORM_H

#include <ostrel/records.h>

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>
#include <array>
#include <cstring>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "scripted/areas.h"
#include "scripted/events.h"

namespace scripted {

// One variable. Its records stay in memory to the end of the process, so that a stale pointer shows old values.
struct Slot {
    QString label;
    SHARED_MEMORY mem{};
    size_t size = 0;
    std::vector<std::unique_ptr<char[]>> records;  // the last one is the one in use
    std::unique_ptr<char[]> elements;
    size_t elementSize = 0;
    QMap<int, QByteArray> formats;

    char* record() const { return records.back().get(); }
};

template <size_t size>
void put(char (&field)[size], const char* text) {
    std::memset(field, 0, size);
    std::memcpy(field, text, strnlen(text, size));
}

// What get_limit_info() tells of a variable.
struct Limits {
    std::array<double, NUM_LIMIT_TYPES> values{};
    std::array<short, NUM_LIMIT_TYPES> exists{};
    std::array<short, NUM_LIMIT_TYPES> display{};

    Limits& set(LIMIT_ARRAY_INDEXES limit, double value, int colour) {
        values[limit] = value;
        exists[limit] = 1;
        display[limit] = static_cast<short>(colour);
        return *this;
    }
};

class Platform;

// A variable as a test describes it. What a kind does not have does not compile.
template <class Record>
class Variable {
public:
    Variable(Platform& platform, Slot& slot) : m_platform(platform), m_slot(slot) {}

    Record* operator->() const { return reinterpret_cast<Record*>(m_slot.record()); }

    template <class Number>
    const Variable& value(Number number) const {
        (*this)->value = static_cast<decltype((*this)->value)>(number);
        return *this;
    }
    const Variable& text(const char* text) const {
        put((*this)->value, text);
        return *this;
    }
    const Variable& units(const char* text) const {
        put((*this)->units, text);
        return *this;
    }
    const Variable& format(const char* text) const {
        put((*this)->display_format, text);
        return *this;
    }
    const Variable& states(const char* whenTrue, const char* whenFalse) const {
        put((*this)->true_state, whenTrue);
        put((*this)->false_state, whenFalse);
        return *this;
    }
    const Variable& status(int word) const {
        (*this)->status = static_cast<short>(word);
        return *this;
    }
    const Variable& area(SM_AREA_ID code) const;
    // A member, found by the label with the extension behind it.
    const Variable& member(const char* extension, int number, double value, const char* units = "",
                           const char* format = "%g") const;

private:
    Platform& m_platform;
    Slot& m_slot;
};

// An array with up to 16 elements, found by the label with ":NUMBER" behind it.
template <class Record, class Element>
class Array : public Variable<Record> {
public:
    static constexpr size_t elements = 16;

    Array(Platform& platform, Slot& slot) : Variable<Record>(platform, slot), m_slot(slot) {}
    Element& operator[](size_t number) const { return reinterpret_cast<Element*>(m_slot.elements.get())[number]; }

private:
    Slot& m_slot;
};

class Platform {
public:
    // Empties the store, forgets calls and answers. Records that widgets may still point to stay in memory.
    void reset();

    Variable<REAL_VARIABLE> real(const char* label) { return add<REAL_VARIABLE>(label, GU_REAL_MEM, REAL_TYPE); }
    Variable<INTEGER_VARIABLE> integer(const char* label) {
        return add<INTEGER_VARIABLE>(label, GU_INTEGER_MEM, INT_TYPE);
    }
    Variable<LOGICAL_VARIABLE> logical(const char* label) {
        return add<LOGICAL_VARIABLE>(label, GU_LOGICAL_MEM, LOGI_TYPE);
    }
    Variable<STRING_VARIABLE> string(const char* label) {
        return add<STRING_VARIABLE>(label, GU_STRING_MEM, STRING_TYPE);
    }
    Variable<STAT_VARIABLE> statistics(const char* label) { return add<STAT_VARIABLE>(label, GU_STAT_MEM, STAT_TYPE); }
    Variable<COMP_VARIABLE> composition(const char* label) {
        return add<COMP_VARIABLE>(label, PROPERTIES_MEM, COMP_TYPE);
    }
    Variable<PROP_VARIABLE> property(const char* label) { return add<PROP_VARIABLE>(label, PROPERTIES_MEM, PROP_TYPE); }
    Variable<EMIS_VARIABLE> emission(const char* label) { return add<EMIS_VARIABLE>(label, PROPERTIES_MEM, EMIS_TYPE); }
    Array<REAL_ARRAY_VARIABLE, REAL_ARRAY_MEMBER> realArray(const char* label) {
        return addArray<REAL_ARRAY_VARIABLE, REAL_ARRAY_MEMBER>(label, REAL_ARRAY_MEM, REAL_ARRAY_TYPE);
    }
    Array<INTEGER_ARRAY_VARIABLE, INTEGER_ARRAY_MEMBER> integerArray(const char* label) {
        return addArray<INTEGER_ARRAY_VARIABLE, INTEGER_ARRAY_MEMBER>(label, INT_ARRAY_MEM, INT_ARRAY_TYPE);
    }
    Array<STRING_ARRAY_VARIABLE, STRING_ARRAY_MEMBER> stringArray(const char* label) {
        return addArray<STRING_ARRAY_VARIABLE, STRING_ARRAY_MEMBER>(label, STRING_ARRAY_MEM, STRING_ARRAY_TYPE);
    }
    Array<LOGICAL_ARRAY_VARIABLE, LOGICAL_ARRAY_MEMBER> logicalArray(const char* label) {
        return addArray<LOGICAL_ARRAY_VARIABLE, LOGICAL_ARRAY_MEMBER>(label, LOGI_ARRAY_MEM, LOGI_ARRAY_TYPE);
    }
    // A variable of any kind, as a record of zero bytes.
    Slot& other(const char* label, SM_VARI_TYPE kind, size_t size) { return addSlot(label, GU_REAL_MEM, kind, size); }

    void alias(const char* alias, const char* target);
    void remove(const char* name);
    // Gives the variable another record with the same contents.
    void move(const char* label);
    // The handle that find_variable() gives for the name.
    SHARED_MEMORY& handle(const QString& name);
    RECONFIG_DATA& reconfiguration() { return m_reconfiguration; }

    // The limits of the variable, none at first.
    Limits& limits(const char* label) { return m_limits[QString::fromUtf8(label)]; }

    // One unit of `from` is `factor` units of `to`. What was not told does not convert.
    void converts(const char* from, const char* to, double factor);
    // What LV_get_units2() and LV_get_units() list for these units; -1 for others.
    void compatible(const char* units, const QStringList& keywords);

    // The next calls of that function give these results and do nothing else; then it works as usual again.
    void answer(const char* function, const QVector<int>& codes);
    // The same for each call from now on.
    void alwaysAnswer(const char* function, int code);

    // The calls so far, a line each: function and arguments. Those of the test's own thread, all, or of some functions
    // only; and those of the threads that wait for events.
    QStringList calls() const;
    QStringList calls(const QStringList& functions) const;
    QStringList threadCalls() const;
    QStringList threadCalls(const QStringList& functions) const;
    void forgetCalls();

    Events& events() { return m_events; }
    Areas& areas() { return m_areas; }

    // ---- for the functions of the platform ----

    void record(const QString& line);
    // True when a test told what the next call answers.
    bool hasAnswer(const char* function, int* code);
    const SHARED_MEMORY* find(const QString& name) const;
    Slot* aliasSlot(const QString& alias);
    Slot* aliasOfTarget(const QString& target);
    Slot* slotOf(const SHARED_MEMORY& mem);
    Slot* slotAt(const void* record);
    Slot* slotNamed(const QString& label);
    bool convert(double value, const char* from, double* result, const char* to) const;
    const QStringList* keywords(const char* units) const;
    void addName(const QString& name, const SHARED_MEMORY& mem) { m_names[name] = mem; }

private:
    friend Platform& platform();
    Platform() : m_testThread(std::this_thread::get_id()) {}

    struct Call {
        bool ofTest;
        QString line;
    };

    Slot& addSlot(const char* label, SM_AREA_ID area, SM_VARI_TYPE kind, size_t size);
    QStringList lines(bool ofTest, const QStringList& functions) const;

    template <class Record>
    Variable<Record> add(const char* label, SM_AREA_ID area, SM_VARI_TYPE kind) {
        Slot& slot = addSlot(label, area, kind, sizeof(Record));
        Variable<Record> variable(*this, slot);
        put(variable->label, label);
        return variable;
    }
    template <class Record, class Element>
    Array<Record, Element> addArray(const char* label, SM_AREA_ID area, SM_VARI_TYPE kind) {
        using ArrayOf = Array<Record, Element>;
        Slot& slot = addSlot(label, area, kind, sizeof(Record));
        slot.elementSize = sizeof(Element);
        slot.elements = std::make_unique<char[]>(ArrayOf::elements * sizeof(Element));
        ArrayOf array(*this, slot);
        put(array->label, label);
        for (size_t i = 0; i < ArrayOf::elements; ++i) {
            SHARED_MEMORY element = slot.mem;
            element.offset = static_cast<short>(i);
            addName(slot.label + QStringLiteral(":%1").arg(i), element);
        }
        return array;
    }

    const std::thread::id m_testThread;
    mutable std::mutex m_mutex;  // guards calls and answers; the rest belongs to the test's thread
    std::vector<Call> m_calls;
    QMap<QString, std::deque<int>> m_answers;
    QMap<QString, int> m_standingAnswers;
    std::vector<std::unique_ptr<Slot>> m_slots;
    size_t m_firstSlot = 0;  // of those since the last reset
    std::map<QString, SHARED_MEMORY> m_names;
    std::map<QString, Slot*> m_aliases;
    std::map<QString, double> m_factors;
    QMap<QString, QStringList> m_keywords;
    QMap<QString, Limits> m_limits;
    RECONFIG_DATA m_reconfiguration{};
    Events m_events;
    Areas m_areas;
};

// The platform of this process; it is never destroyed, since threads go on waiting for it.
Platform& platform();

template <class Record>
const Variable<Record>& Variable<Record>::area(SM_AREA_ID code) const {
    m_slot.mem.code = code;
    m_platform.handle(m_slot.label).code = code;
    return *this;
}

inline STAT_MEMBER& memberOf(STAT_VARIABLE& variable, int number) {
    return variable.stat[number];
}
inline COMPOSITION_MEMBER& memberOf(COMP_VARIABLE& variable, int number) {
    return variable.fraction[number];
}
inline PROPERTY_MEMBER& memberOf(PROP_VARIABLE& variable, int number) {
    return variable.properties[number];
}
inline EMISSION_MEMBER& memberOf(EMIS_VARIABLE& variable, int number) {
    return variable.emission[number];
}

template <class Record>
const Variable<Record>& Variable<Record>::member(const char* extension, int number, double value, const char* units,
                                                 const char* format) const {
    auto& member = memberOf(*operator->(), number);
    member.value = value;
    put(member.units, units);
    m_slot.formats[number] = format;
    SHARED_MEMORY mem = m_slot.mem;
    mem.offset = static_cast<short>(number);
    m_platform.addName(m_slot.label + QLatin1String(extension), mem);
    return *this;
}

}  // namespace scripted

#endif
