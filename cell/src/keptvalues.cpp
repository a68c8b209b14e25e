#include "keptvalues.h"

#include <fcntl.h>
#include <ostrel/log.h>
#include <ostrel/units.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <optional>
#include <sstream>
#include <unordered_map>

#include "ground/quietthread.h"
#include "ground/regularfile.h"

namespace ostrelcell {

namespace {

const std::string firstLine = "ostrel-kept 1";
const std::string temporaryEnding = ".new-XXXXXX";

// ---- Texts

std::string encoded(const char* text, size_t size) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string result;
    for (const char* c = text; c != text + size; ++c) {
        const auto byte = static_cast<unsigned char>(*c);
        if (byte > ' ' && byte < 127 && byte != '%')
            result += *c;
        else
            result += {'%', digits[byte >> 4U], digits[byte & 15U]};
    }
    // An empty word could not be told from none.
    return result.empty() ? "%" : result;
}

std::optional<std::string> decoded(const std::string& word) {
    std::string result;
    for (size_t at = 0; word != "%" && at < word.size(); ++at) {
        if (word[at] != '%') {
            result += word[at];
            continue;
        }
        unsigned byte = 0;
        const char* first = word.data() + at + 1;
        if (at + 2 >= word.size() || std::from_chars(first, first + 2, byte, 16).ptr != first + 2 || byte == 0)
            return std::nullopt;
        result += static_cast<char>(byte);
        at += 2;
    }
    return result;
}

std::optional<double> numberOf(const std::string& word) {
    double value = 0;
    const char* end = word.data() + word.size();
    const auto [stopped, error] = std::from_chars(word.data(), end, value);
    return error == std::errc() && stopped == end && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

void addNumber(std::string& line, double value) {
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, value).ptr;
    line += ' ';
    line.append(text, end);
}

// ---- Reading

struct Kept {
    std::string kind;
    std::string units;
    std::vector<std::string> words;
};

using KeptByName = std::unordered_map<std::string, Kept>;

bool addLine(const std::string& line, KeptByName& kept) {
    std::istringstream words(line);
    std::string name;
    Kept entry;
    words >> entry.kind >> name >> entry.units;
    for (std::string word; words >> word;)
        entry.words.push_back(word);
    const SM_VARI_TYPE kind = kindOfWord(entry.kind);
    if (kind == UNDEFINED_VAR_TYPE || entry.words.empty())
        return false;
    for (const std::string& word : entry.words)
        if (isText(kind) ? !decoded(word).has_value() : !numberOf(word).has_value())
            return false;
    return kept.emplace(name, std::move(entry)).second;
}

// Nothing for a file that is not whole.
std::optional<KeptByName> parsed(std::istream& stream) {
    KeptByName kept;
    std::string line;
    if (!std::getline(stream, line) || line != firstLine)
        return std::nullopt;
    while (std::getline(stream, line) && line.rfind("end ", 0) != 0)
        if (!addLine(line, kept))
            return std::nullopt;
    const bool whole = !stream.eof() && line == "end " + std::to_string(kept.size());
    return whole && stream.peek() == std::istream::traits_type::eof() ? std::optional(kept) : std::nullopt;
}

std::optional<double> inUnits(double value, std::string from, std::string to) {
    if (from == to)
        return value;
    double converted = 0;
    return unitsConvert(value, from.data(), &converted, to.data()) == 0 ? std::optional(converted) : std::nullopt;
}

// Empty where all could be used, else why not; the variable then stays as it is.
std::string takeNumbers(const Kept& kept, Variable& variable) {
    std::vector<double> values;
    for (const std::string& word : kept.words) {
        const auto value = inUnits(*numberOf(word), kept.units == "-" ? "" : kept.units, variable.units.keyword);
        if (!value)
            return "its kept value is in " + kept.units;
        if (!variable.expr.given() && !variable.write.allows(*value))
            return "its kept value " + word + " lies outside min and max";
        values.push_back(*value);
    }
    if (is_array(variable.kind))
        variable.values = values;
    else
        variable.value = values.front();
    return "";
}

std::string takeTexts(const Kept& kept, Variable& variable) {
    std::vector<std::string> texts;
    for (const std::string& word : kept.words)
        texts.push_back(*decoded(word));
    if (is_array(variable.kind))
        variable.elementTexts = texts;
    else
        variable.text = texts.front();
    return "";
}

std::string take(const Kept& kept, Variable& variable) {
    if (kept.kind != kindWord(variable.kind))
        return "its kept value is of kind " + kept.kind;
    const size_t count = is_array(variable.kind) ? variable.shape.elements() : 1;
    if (kept.words.size() != count)
        return "it had " + std::to_string(kept.words.size()) + " elements";
    return isText(variable.kind) ? takeTexts(kept, variable) : takeNumbers(kept, variable);
}

std::string putAside(const std::string& file) {
    const std::string aside = file + ".broken";
    std::error_code failure;
    std::filesystem::rename(file, aside, failure);
    return file + ": is no whole file of kept values; " +
           (failure ? "it cannot be moved away (" + failure.message() + ")" : "moved to " + aside) +
           ", and the cell starts with the values of its own file";
}

// ---- Writing

template <size_t size>
std::string encodedField(const char (&field)[size]) {
    return encoded(field, strnlen(field, size));
}

// False where a value is none that could be read again.
bool addValues(const CellModel& model, const StoreContents& contents, int index, std::string& line) {
    const Variable& variable = model.variables[static_cast<size_t>(index)];
    const Placed& placed = contents.placed(index);
    if (variable.kind == STRING_TYPE) {
        line += " " + encodedField(static_cast<STRING_VARIABLE*>(placed.record)->value);
        return true;
    }
    const int end = is_array(variable.kind) ? static_cast<int>(variable.shape.elements()) : 0;
    for (int part = is_array(variable.kind) ? 0 : -1; part < end; ++part) {
        if (variable.kind == STRING_ARRAY_TYPE) {
            line += " " + encodedField(static_cast<STRING_ARRAY_MEMBER*>(placed.elements)[part].value);
            continue;
        }
        const double value = contents.value(model, {index, part}).load();
        if (!std::isfinite(value))
            return false;
        addNumber(line, value);
    }
    return true;
}

std::string failureText(const std::string& file, const char* what) {
    return file + ": " + what + ": " + std::strerror(errno);
}

// A new name is on the disk when its folder is.
void syncFolder(const std::string& file) {
    const int fd = open(std::filesystem::path(file).parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return;
    fsync(fd);
    close(fd);
}

}  // namespace

std::vector<std::string> takeKeptValues(const std::string& file, CellModel& model) {
    std::string problem;
    std::istringstream stream(readRegularFile(file, Trust::Own, problem));
    if (!problem.empty() && errno == ENOENT)
        return {};
    if (!problem.empty())
        return {file + ": kept values cannot be read: " + problem};
    const auto kept = parsed(stream);
    if (!kept)
        return {putAside(file)};
    std::vector<std::string> remarks;
    for (Variable& variable : model.variables) {
        const auto found = variable.persist ? kept->find(variable.name) : kept->end();
        const std::string why = found == kept->end() ? "" : take(found->second, variable);
        if (!why.empty())
            remarks.push_back(file + ": " + variable.name + " starts with the value of the cell file; " + why);
    }
    return remarks;
}

std::string keptText(const CellModel& model, const StoreContents& contents) {
    std::string text = firstLine + "\n";
    int count = 0;
    for (size_t index = 0; index < model.variables.size(); ++index) {
        const Variable& variable = model.variables[index];
        if (!variable.persist)
            continue;
        std::string line = std::string(kindWord(variable.kind)) + " " + variable.name + " " +
                           (variable.units.keyword.empty() ? "-" : variable.units.keyword);
        if (!addValues(model, contents, static_cast<int>(index), line))
            continue;
        text += line + "\n";
        ++count;
    }
    return text + "end " + std::to_string(count) + "\n";
}

// Why what stands under that name must not be replaced; empty where it may be, also where nothing is there.
static std::string refusalOf(const std::string& file) {
    std::string problem;
    const int fd = openRegularFile(file, O_RDONLY, 0, Trust::Own, problem);
    if (fd >= 0)
        close(fd);
    return fd < 0 && errno == ENOENT ? "" : problem;
}

std::string replaceFile(const std::string& file, const std::string& text) {
    if (const std::string refusal = refusalOf(file); !refusal.empty())
        return file + ": cannot be replaced: " + refusal;
    std::string temporary = file + temporaryEnding;
    const int fd = mkostemp(temporary.data(), O_CLOEXEC);
    if (fd < 0)
        return failureText(file, "no file can be made beside it");
    const bool written = writeAll(fd, text) == 0 && fchmod(fd, 0644) == 0 && fsync(fd) == 0;
    std::string why = written ? "" : failureText(temporary, "cannot be written");
    close(fd);
    if (written && std::rename(temporary.c_str(), file.c_str()) != 0)
        why = failureText(file, "cannot be replaced");
    if (why.empty())
        syncFolder(file);
    else
        unlink(temporary.c_str());
    return why;
}

// What a cell that was killed left of a file that it was about to put in the place of this one.
void removeLeftovers(const std::string& file) {
    const std::filesystem::path path(file);
    const std::string beginning = path.filename().string() + temporaryEnding.substr(0, temporaryEnding.find('X'));
    std::error_code failure;
    for (const auto& entry : std::filesystem::directory_iterator(path.parent_path(), failure)) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with(beginning) && name.size() == path.filename().string().size() + temporaryEnding.size())
            std::filesystem::remove(entry.path(), failure);
    }
}

// The thread's too: one that hangs in a write outlives the KeptFile.
struct KeptFile::State {
    std::string file;
    std::mutex mutex;  // guards what follows
    std::condition_variable wake;
    std::condition_variable ended;
    std::string waiting;
    bool hasWaiting = false;
    bool isEnding = false;
    bool hasEnded = false;
    bool hasFailed = false;  // told once, until it works again; of the thread alone

    void run();
    void writeNow(const std::string& text);
};

KeptFile::KeptFile(const std::string& file) : m_state(std::make_shared<State>()) {
    m_state->file = file;
    removeLeftovers(file);
    startQuietThread([state = m_state] { state->run(); }).detach();
}

KeptFile::~KeptFile() {
    constexpr std::chrono::seconds timeToEnd{3};
    std::unique_lock lock(m_state->mutex);
    m_state->isEnding = true;
    m_state->wake.notify_one();
    m_state->ended.wait_for(lock, timeToEnd, [this] { return m_state->hasEnded; });
}

void KeptFile::write(std::string text) {
    if (text == m_last)
        return;
    m_last = text;
    {
        const std::lock_guard lock(m_state->mutex);
        m_state->waiting = std::move(text);
        m_state->hasWaiting = true;
    }
    m_state->wake.notify_one();
}

void KeptFile::State::run() {
    std::unique_lock lock(mutex);
    for (;;) {
        wake.wait(lock, [this] { return hasWaiting || isEnding; });
        if (!hasWaiting)
            break;
        const std::string text = std::move(waiting);
        hasWaiting = false;
        lock.unlock();
        writeNow(text);
        lock.lock();
    }
    hasEnded = true;
    ended.notify_all();
}

void KeptFile::State::writeNow(const std::string& text) {
    const std::string why = replaceFile(file, text);
    if (!why.empty() && !hasFailed)
        log_error(__FILE__, __LINE__, 1, 0, "%s; the values that persist are not kept", why.c_str());
    hasFailed = !why.empty();
}

}  // namespace ostrelcell
