#include "servedcell.h"

#include <fcntl.h>
#include <grp.h>
#include <ostrel/events.h>
#include <ostrel/log.h>
#include <ostrel/store.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <vector>

#include "cellfile.h"
#include "diagnostics.h"
#include "ground/monotonic.h"
#include "ground/regularfile.h"

namespace ostrelcell {

namespace {

// A server has to show twice a second that it lives, also where it scans less often.
constexpr int64_t beatNs = 400 * nanosecondsPerMs;

// Values that persist are written so often at most.
constexpr int64_t keepNs = nanosecondsPerSecond;

int64_t periodOf(const CellModel& model) {
    return model.scan_ms * nanosecondsPerMs;
}

// A file without a folder lies beside the cell file.
std::string besideCell(const CellModel& model, const std::string& file) {
    return (std::filesystem::absolute(model.file).parent_path() / file).lexically_normal().string();
}

std::string logPath(const CellModel& model) {
    return model.log.empty() ? "" : besideCell(model, model.log);
}

// Beside the log, which is where people look for what has happened.
std::string auditPath(const CellModel& model, const std::string& store) {
    if (model.audit)
        return model.audit->empty() ? "" : besideCell(model, *model.audit);
    const std::string log = logPath(model);
    return log.empty() ? besideCell(model, store + ".audit")
                       : (std::filesystem::path(log).parent_path() / (store + ".audit")).string();
}

size_t bytes(int megabytes) {
    return static_cast<size_t>(megabytes) << 20U;
}

// Empty where the file can be appended to, which it then is there for.
std::string appendFault(const std::string& file) {
    std::string problem;
    const int fd = openRegularFile(file, O_WRONLY | O_APPEND | O_CREAT, 0640, Trust::Own, problem);
    if (fd >= 0)
        close(fd);
    return problem.empty() ? "" : file + ": the audit file cannot be written: " + problem;
}

bool anythingPersists(const CellModel& model) {
    return std::any_of(model.variables.begin(), model.variables.end(), [](const Variable& v) { return v.persist; });
}

void createEvents(const CellModel& model) {
    std::vector<std::string> names = model.events;
    for (const Variable& variable : model.variables)
        names.insert(names.end(), {variable.event, variable.trueEvent, variable.falseEvent});
    for (const std::string& name : names)
        if (!name.empty())
            ostrel_event_create(name.c_str(), nullptr);
}

void remark(std::string& remarks, bool changed, const char* key) {
    if (changed)
        remarks += (remarks.empty() ? "" : "\n") + std::string(key) + " takes effect at the next start";
}

}  // namespace

std::unique_ptr<ServedCell::Content> ServedCell::read(const std::string& file, std::string& reasons) {
    auto content = std::make_unique<Content>();
    content->model = std::make_unique<CellModel>();
    content->simulation = std::make_unique<Simulation>();
    Diagnostics diagnostics(file);
    readCellFile(file, *content->model, *content->simulation, diagnostics);
    if (!diagnostics.empty()) {
        reasons = diagnostics.text();
        return nullptr;
    }
    return content;
}

bool ServedCell::openServer(const char* store_name, std::string& reasons) {
    const CellModel& model = *m_content->model;
    const std::string file = std::filesystem::absolute(m_file).lexically_normal().string();
    ostrel_server_options options{};
    options.name = store_name;
    options.cell_file = file.c_str();
    options.mode = model.mode;
    if (const group* entry = model.group.empty() ? nullptr : getgrnam(model.group.c_str())) {
        options.group = entry->gr_gid;
        options.group_given = 1;
    }
    char message[1024] = "";
    m_server = ostrel_server_open(&options, message, sizeof message);
    if (m_server == nullptr)
        reasons = message;
    return m_server != nullptr;
}

// A configuration that has outgrown the store gets a larger one, to which the clients go over.
bool ServedCell::makeRoom(const CellModel& model, std::string& reasons) {
    std::map<const ostrel_section*, int> needed;
    for (const Variable& variable : model.variables)
        ++needed[variable.section];
    needed[ostrel_section_of(ALIAS_MEM, ALIAS_TYPE)] = static_cast<int>(model.aliases.size());
    std::vector<ostrel_server_room> rooms;
    for (const auto& [section, variables] : needed)
        if (section != nullptr)
            rooms.push_back({section->area, section->kind, variables});
    char message[1024] = "";
    if (ostrel_server_make_room(m_server, rooms.data(), static_cast<int>(rooms.size()), message, sizeof message) >= 0)
        return true;
    reasons = message;
    return false;
}

// Everything that the store can refuse it refuses here, before any of it has changed.
bool ServedCell::fill(Content& content, std::string& reasons) {
    if (!makeRoom(*content.model, reasons) || !StoreContents::reserve(m_server, *content.model, reasons))
        return false;
    ostrel_server_begin(m_server, static_cast<SM_AREA_ID>(-1));
    if (!content.contents.put(m_server, *content.model, reasons))
        return false;
    content.scan = std::make_unique<Scan>(*content.model, *content.simulation, content.contents);
    return true;
}

std::unique_ptr<ServedCell> ServedCell::open(const std::string& file, const char* store_name, std::string& reasons) {
    std::unique_ptr<ServedCell> cell(new ServedCell);
    cell->m_file = file;
    cell->m_content = read(file, reasons);
    if (!cell->m_content)
        return nullptr;
    // What this process does with the store itself, such as making events, has to go to the store that it serves.
    if (store_name != nullptr)
        ostrel_store_open(store_name, nullptr, nullptr, 0);
    cell->m_store = store_name != nullptr ? store_name : "";
    if (!cell->openServer(store_name, reasons))
        return nullptr;
    if (!cell->chooseAuditFile(reasons))
        return nullptr;
    cell->chooseKeptFile();
    if (cell->m_kept)
        for (const std::string& line : takeKeptValues(cell->m_keptPath, *cell->m_content->model))
            log_error(__FILE__, __LINE__, 1, 0, "%s", line.c_str());
    if (!cell->fill(*cell->m_content, reasons))
        return nullptr;
    const int64_t now = monotonicNow();
    cell->m_clock = std::make_unique<ScanClock>(periodOf(cell->model()), now);
    // Whoever sees the store sees it alive.
    const ScanClock::Tick first = cell->m_clock->take(now);
    cell->m_content->scan->run(first.t, first.dt);
    ostrel_server_commit(cell->m_server);
    createEvents(cell->model());
    cell->beat(now);
    return cell;
}

ServedCell::~ServedCell() {
    // A cell that could not be filled has nothing to keep.
    if (m_kept && m_clock)
        m_kept->write(keptText(model(), m_content->contents));
    m_kept.reset();
    recordWrites();
    writeLog();
    if (m_server == nullptr)
        return;
    // A cell that did not come up takes nothing away that another one had left.
    if (!m_clock && adopted())
        ostrel_server_leave(m_server);
    else
        ostrel_server_close(m_server);
}

void ServedCell::beat(int64_t now) {
    ostrel_server_beat(m_server);
    m_lastBeat = now;
}

// Private stores keep nothing: several processes may simulate the same cell, each for itself.
void ServedCell::chooseKeptFile() {
    const std::string file = model().kept.empty() ? m_store + ".kept" : model().kept;
    const std::string path = besideCell(model(), file);
    if (m_store.empty() || !anythingPersists(model())) {
        m_kept.reset();
    } else if (!m_kept || path != m_keptPath) {
        m_keptPath = path;
        m_kept = std::make_unique<KeptFile>(path);
    }
}

// A file that was asked for by name has to be there before anybody writes.
bool ServedCell::chooseAuditFile(std::string& reason) {
    const std::string path = m_store.empty() ? "" : auditPath(model(), m_store);
    if (path == m_auditPath)
        return true;
    if (!path.empty() && model().audit)
        reason = appendFault(path);
    if (reason.empty())
        m_auditPath = path;
    return reason.empty();
}

void ServedCell::recordWrites() {
    if (m_server == nullptr || m_auditPath.empty())
        return;
    char why[512] = "";
    const bool good =
        ostrel_server_drain_writes(m_server, m_auditPath.c_str(), bytes(model().auditMegabytes), why, sizeof why) == 0;
    if (!good && !m_auditFailed)
        log_error(__FILE__, __LINE__, 1, 0, "%s; what clients write is not recorded", why);
    m_auditFailed = !good;
}

void ServedCell::writeLog() {
    const std::string path = m_server == nullptr ? "" : logPath(model());
    if (path.empty())
        return;
    char why[512] = "";
    const bool good =
        ostrel_server_drain_log(m_server, path.c_str(), bytes(model().logMegabytes), why, sizeof why) == 0;
    if (!good && !m_logFailed)
        log_error(__FILE__, __LINE__, 1, 0, "%s; the log is on standard error alone", why);
    m_logFailed = !good;
}

void ServedCell::keepValues(int64_t now) {
    if (!m_kept || now - m_lastKept < keepNs)
        return;
    m_lastKept = now;
    m_kept->write(keptText(model(), m_content->contents));
}

int64_t ServedCell::step() {
    int64_t now = monotonicNow();
    if (m_clock->due(now)) {
        const ScanClock::Tick tick = m_clock->take(now);
        // First, since it makes what this thread writes the cell's own.
        beat(now);
        m_content->scan->run(tick.t, tick.dt);
        recordWrites();
        writeLog();
        keepValues(now);
        now = monotonicNow();
    } else if (now - m_lastBeat >= beatNs) {
        beat(now);
    }
    return std::max<int64_t>(0, std::min(m_clock->next(), m_lastBeat + beatNs) - now);
}

bool ServedCell::reload(std::string& reasons, std::string& remarks) {
    std::unique_ptr<Content> content = read(m_file, reasons);
    if (!content)
        return false;
    content->simulation->takeMemoryOf(*m_content->simulation);
    if (!fill(*content, reasons))
        return false;
    content->scan->takeMemoryOf(*m_content->scan);
    content->scan->run(m_clock->t(), 0);
    ostrel_server_commit(m_server);
    remark(remarks, content->model->mode != model().mode, "mode");
    remark(remarks, content->model->group != model().group, "group");
    m_content = std::move(content);
    createEvents(model());
    chooseKeptFile();
    std::string reason;
    if (!chooseAuditFile(reason))
        remarks += (remarks.empty() ? "" : "\n") + reason;
    m_clock->setPeriod(periodOf(model()));
    return true;
}

}  // namespace ostrelcell
