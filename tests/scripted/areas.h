// The scripted platform's memory areas, as a catalogue walks them: records by area, position and slot.
//
// A test speaks to them as in
//     platform().areas().serve();
//     platform().areas().put<REAL_VARIABLE>(AI_REAL_MEM, 0, "SPEED");
#ifndef OSTREL_TESTS_SCRIPTED_AREAS_H
#define OSTREL_TESTS_SCRIPTED_AREAS_H

#include <ostrel/records.h>

#include <QtGlobal>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <set>

namespace scripted {

class Areas {
public:
    // Empties all areas; none can be linked until serve(). Their memory stays, for whoever still points to it.
    void reset();
    // From now on every area can be linked, but for those refused.
    void serve() { m_isServed = true; }
    void refuse(SM_AREA_ID area) { m_refused.insert(area); }

    SYSTEM_ATTRIBUTES& attributes() {
        return *reinterpret_cast<SYSTEM_ATTRIBUTES*>(memory(SYS_ATTR_MEM, sizeof(SYSTEM_ATTRIBUTES)));
    }

    // An active record in a slot of the section that begins at byte `start` of the area.
    template <class Record>
    Record& put(SM_AREA_ID area, int slot, const char* label, size_t start = 0) {
        const size_t offset = start + static_cast<size_t>(slot) * sizeof(Record);
        Q_ASSERT(offset + sizeof(Record) <= areaSize);
        auto& record = *reinterpret_cast<Record*>(memory(area, offset + sizeof(Record)) + offset);
        std::memset(record.label, 0, sizeof(record.label));
        std::memcpy(record.label, label, strnlen(label, sizeof(record.label)));
        record.active = 1;
        return record;
    }

    // How often this process has the area linked.
    int links(SM_AREA_ID area) const;

    // ---- for the functions of the platform ----

    void* link(SM_AREA_ID area);
    void release(SM_AREA_ID area);

private:
    struct Free {
        void operator()(char* block) const { std::free(block); }
    };
    struct Memory {
        std::unique_ptr<char, Free> block;
        size_t written = 0;  // bytes from the base that a test may have written to
    };

    static constexpr size_t areaSize = 1 << 21;

    char* memory(SM_AREA_ID area, size_t written = 0);

    bool m_isServed = false;
    std::set<int> m_refused;
    std::map<int, Memory> m_memory;
    std::map<int, int> m_links;
};

}  // namespace scripted

#endif
