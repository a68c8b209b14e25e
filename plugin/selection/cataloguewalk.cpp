#include "selection/cataloguewalk.h"

#include <ostrel/store.h>

#include <cstdio>

namespace {

using IsTaken = std::function<bool(const CatalogueSection&)>;
using Visit = std::function<void(const CatalogueSection&, void*)>;

// The area of the reals, linked last, decides for all four; where it does not link the others stay linked.
void walkGeneralUse(AreaLinks& areas, const IsTaken& isTaken, const Visit& visit) {
    void* bases[generalUseSections] = {};
    for (const size_t i : {1, 2, 3, 0})
        areas.local_link_to_memory(catalogueSections()[i].area, &bases[i]);
    if (!bases[0])
        return;
    for (size_t i = 0; i < generalUseSections; ++i)
        if (bases[i] && isTaken(catalogueSections()[i]))
            visit(catalogueSections()[i], bases[i]);
    for (size_t i = 0; i < generalUseSections; ++i)
        areas.local_fre_shrd_mem(catalogueSections()[i].area);
}

// Each area is linked once for all sections in it, whether one of them is taken or not.
void walkOtherAreas(AreaLinks& areas, const IsTaken& isTaken, const Visit& visit) {
    const auto end = catalogueSections().end();
    for (auto section = catalogueSections().begin() + generalUseSections; section != end;) {
        const SM_AREA_ID area = section->area;
        void* base = nullptr;
        const bool isLinked = areas.local_link_to_memory(area, &base);
        for (; section != end && section->area == area; ++section)
            if (isLinked && isTaken(*section))
                visit(*section, base);
        if (isLinked)
            areas.local_fre_shrd_mem(area);
    }
}

}  // namespace

const SYSTEM_ATTRIBUTES* linkSystemAttributes() {
    void* Sys_attr = nullptr;
    if (link_to_memory(SYS_ATTR_MEM, &Sys_attr) != 0 || !Sys_attr) {
        std::printf("\n %s must be running to use this command\n", "Ostrel");
        return nullptr;
    }
    return static_cast<const SYSTEM_ATTRIBUTES*>(Sys_attr);
}

void walkCatalogue(AreaLinks& areas, const IsTaken& isTaken, const Visit& visit) {
    walkGeneralUse(areas, isTaken, visit);
    walkOtherAreas(areas, isTaken, visit);
}
