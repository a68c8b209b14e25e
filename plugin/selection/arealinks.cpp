#include "selection/arealinks.h"

#include <ostrel/store.h>

bool AreaLinks::local_link_to_memory(SM_AREA_ID memcode, void** addr) {
    if (!addr)
        return false;
    mem_handles[memcode] = shrd_mem_in_use(memcode) != 0;
    *addr = get_shrd_mem(memcode, 0);
    return *addr != nullptr;
}

void AreaLinks::local_fre_shrd_mem(SM_AREA_ID memcode) const {
    if (!mem_handles[memcode])
        fre_shrd_mem(memcode);
}
