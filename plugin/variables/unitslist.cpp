#include "variables/unitslist.h"

#include <ostrel/units.h>

#include <array>
#include <cstring>
#include <vector>

#include "variables/recordtext.h"

namespace {

// Asks one of the units service's two functions.
template <class List>
bool listUnitsWith(List* ask, const char (&units)[16], QStringList* list) {
    constexpr short room = 30;
    std::vector<std::array<char, sizeof(UNITS_NAME)>> keywords(room);
    short count = room;
    if (ask(UnitKeyword(units).text(), &count, reinterpret_cast<UNITS_NAME*>(keywords.data())) == -1)
        return false;
    for (size_t i = 0; i < keywords.size() && static_cast<short>(i) < count; ++i)
        list->append(
            QString::fromLatin1(keywords[i].data(), static_cast<int>(strnlen(keywords[i].data(), sizeof(UNITS_NAME)))));
    return true;
}

}  // namespace

bool listCompatibleUnits(const char (&units)[16], QStringList* list) {
    return listUnitsWith(LV_get_units2, units, list);
}

bool listUnits(const char (&units)[16], QStringList* list) {
    return listUnitsWith(LV_get_units, units, list);
}
