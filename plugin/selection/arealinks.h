// Memory areas of the store, linked for a walk: what the process had linked before stays linked.
#ifndef OSTREL_SELECTION_AREALINKS_H
#define OSTREL_SELECTION_AREALINKS_H

#include <ostrel/records.h>

class AreaLinks {
public:
    // False for a null `addr`, and where the area does not link; *addr is null then.
    bool local_link_to_memory(SM_AREA_ID memcode, void** addr);
    // Releases an area that was not in use when it was linked here.
    void local_fre_shrd_mem(SM_AREA_ID memcode) const;

private:
    bool mem_handles[MAX_NUM_SHRD_MEM] = {};  // true: in use by this process before
};

#endif
