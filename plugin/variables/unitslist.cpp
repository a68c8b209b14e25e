#include "variables/unitslist.h"

#include <ostrel/units.h>

#include <array>
#include <cstring>
#include <vector>

#include "variables/recordtext.h"

bool listCompatibleUnits(const char (&units)[16], QStringList* list) {
    constexpr short room = 30;
    std::vector<std::array<char, sizeof(UNITS_NAME)>> keywords(room);
    short count = room;
    if (LV_get_units2(UnitKeyword(units).text(), &count, reinterpret_cast<UNITS_NAME*>(keywords.data())) == -1)
        return false;
    for (size_t i = 0; i < keywords.size() && static_cast<short>(i) < count; ++i)
        list->append(
            QString::fromLatin1(keywords[i].data(), static_cast<int>(strnlen(keywords[i].data(), sizeof(UNITS_NAME)))));
    return true;
}
