// The plain C face of the library.
#include <ostrelcell/cell.h>

#include <exception>
#include <memory>
#include <string>

#include "cellfile.h"
#include "embedding.h"
#include "ground/fieldtext.h"
#include "servedcell.h"

struct ostrel_cell {
    std::unique_ptr<ostrelcell::ServedCell> served;
};

namespace {

void summarise(const ostrelcell::CellModel& model, bool adopted, ostrel_cell_summary* summary) {
    *summary = {};
    setText(summary->name, model.name);
    summary->variables = static_cast<int>(model.variables.size());
    summary->aliases = static_cast<int>(model.aliases.size());
    summary->scan_ms = model.scan_ms;
    summary->adopted = adopted ? 1 : 0;
}

// Nothing is thrown across the border: what fails here is memory, or the file system under our feet.
template <typename Result, typename Work>
Result guarded(Result onFailure, char* message, size_t message_size, Work work) {
    try {
        return work();
    } catch (const std::exception& error) {
        setMessage(message, message_size, error.what());
    }
    return onFailure;
}

}  // namespace

#define OSTREL_CELL_PUBLIC extern "C" __attribute__((visibility("default")))

OSTREL_CELL_PUBLIC int ostrel_cell_check(const char* cell_file, ostrel_cell_summary* summary, char* message,
                                         size_t message_size) {
    if (cell_file == nullptr)
        return 1;
    return guarded(1, message, message_size, [&] {
        ostrelcell::CellModel model;
        ostrelcell::Simulation simulation;
        ostrelcell::Diagnostics diagnostics(cell_file);
        ostrelcell::readCellFile(cell_file, model, simulation, diagnostics);
        setMessage(message, message_size, diagnostics.text());
        if (diagnostics.empty() && summary != nullptr)
            summarise(model, false, summary);
        return diagnostics.empty() ? 0 : 1;
    });
}

OSTREL_CELL_PUBLIC ostrel_cell* ostrel_cell_open(const char* cell_file, const char* store_name, char* message,
                                                 size_t message_size) {
    if (cell_file == nullptr)
        return nullptr;
    return guarded(static_cast<ostrel_cell*>(nullptr), message, message_size, [&]() -> ostrel_cell* {
        std::string reasons;
        auto served = ostrelcell::ServedCell::open(cell_file, store_name, reasons);
        setMessage(message, message_size, reasons);
        return served ? new ostrel_cell{std::move(served)} : nullptr;
    });
}

OSTREL_CELL_PUBLIC void ostrel_cell_get_summary(const ostrel_cell* cell, ostrel_cell_summary* summary) {
    summarise(cell->served->model(), cell->served->adopted(), summary);
}

OSTREL_CELL_PUBLIC long long ostrel_cell_step(ostrel_cell* cell) {
    constexpr long long retryNs = 100'000'000;
    return guarded(retryNs, nullptr, 0, [&] { return static_cast<long long>(cell->served->step()); });
}

OSTREL_CELL_PUBLIC int ostrel_cell_reload(ostrel_cell* cell, char* message, size_t message_size) {
    return guarded(1, message, message_size, [&] {
        std::string reasons;
        std::string remarks;
        const bool good = cell->served->reload(reasons, remarks);
        setMessage(message, message_size, good ? remarks : reasons);
        return good ? 0 : 1;
    });
}

OSTREL_CELL_PUBLIC void ostrel_cell_close(ostrel_cell* cell) {
    delete cell;
}

OSTREL_CELL_PUBLIC int ostrel_cell_embed(const char* cell_file, char* message, size_t message_size) {
    if (cell_file == nullptr)
        return 1;
    return guarded(1, message, message_size, [&] {
        std::string reasons;
        const bool good = ostrelcell::embedCell(cell_file, reasons);
        setMessage(message, message_size, reasons);
        return good ? 0 : 1;
    });
}
