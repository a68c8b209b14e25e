// A cell that is being served: its store, what is in it, and when it is scanned.
#ifndef OSTREL_CELL_SERVEDCELL_H
#define OSTREL_CELL_SERVEDCELL_H

#include <ostrel/server.h>

#include <memory>
#include <string>

#include "cellmodel.h"
#include "keptvalues.h"
#include "scan.h"
#include "scanclock.h"
#include "simulation.h"
#include "storefill.h"

namespace ostrelcell {

class ServedCell {
public:
    // Null, with all reasons. A null store name makes a store that is private to this process.
    static std::unique_ptr<ServedCell> open(const std::string& file, const char* store_name, std::string& reasons);
    ~ServedCell();
    ServedCell(const ServedCell&) = delete;
    ServedCell& operator=(const ServedCell&) = delete;

    // Does what is due, and returns the nanoseconds to the next.
    int64_t step();

    // False, with the reasons, where the file has mistakes; else `remarks` may say what waits for the next start.
    bool reload(std::string& reasons, std::string& remarks);

    const CellModel& model() const { return *m_content->model; }
    bool adopted() const { return ostrel_server_adopted(m_server) != 0; }

private:
    // Everything that one reading of the file gives.
    struct Content {
        std::unique_ptr<CellModel> model;
        std::unique_ptr<Simulation> simulation;
        StoreContents contents;
        std::unique_ptr<Scan> scan;
    };

    std::string m_file;
    std::string m_store;  // empty: private to this process
    ostrel_server* m_server = nullptr;
    std::unique_ptr<Content> m_content;
    std::unique_ptr<ScanClock> m_clock;
    int64_t m_lastBeat = 0;
    std::string m_keptPath;
    std::unique_ptr<KeptFile> m_kept;  // null where nothing persists
    int64_t m_lastKept = 0;
    std::string m_auditPath;     // empty where writes are not recorded
    bool m_auditFailed = false;  // told once, until it works again
    bool m_logFailed = false;

    ServedCell() = default;
    static std::unique_ptr<Content> read(const std::string& file, std::string& reasons);
    bool openServer(const char* store_name, std::string& reasons);
    bool makeRoom(const CellModel& model, std::string& reasons);
    bool fill(Content& content, std::string& reasons);
    void beat(int64_t now);
    void chooseKeptFile();
    void keepValues(int64_t now);
    bool chooseAuditFile(std::string& reason);
    void recordWrites();
    void writeLog();
};

}  // namespace ostrelcell

#endif
