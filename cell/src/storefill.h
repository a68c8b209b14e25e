// Puts the variables of a cell into its store.
#ifndef OSTREL_CELL_STOREFILL_H
#define OSTREL_CELL_STOREFILL_H

#include <ostrel/server.h>

#include <string>
#include <vector>

#include "cellmodel.h"
#include "recordvalue.h"

namespace ostrelcell {

// Where one variable lies in the store.
struct Placed {
    void* record = nullptr;
    void* elements = nullptr;  // of an array
    bool created = false;      // false: it was there before and keeps its value
};

class StoreContents {
public:
    // Before begin: nothing of the model will be refused. False, with the reason, where something would be; the store
    // is then as it was.
    static bool reserve(ostrel_server* server, const CellModel& model, std::string& reason);

    // Between begin and commit. False, with the reason, where the store refuses a variable.
    bool put(ostrel_server* server, const CellModel& model, std::string& reason);

    // A number of the cell; `ref` names no text.
    RecordValue value(const CellModel& model, ValueRef ref) const;
    const Placed& placed(int variable) const { return m_placed[static_cast<size_t>(variable)]; }

private:
    std::vector<Placed> m_placed;
};

}  // namespace ostrelcell

#endif
