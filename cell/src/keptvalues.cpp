#include "keptvalues.h"

#include <fcntl.h>
#include <ostrel/log.h>
#include <ostrel/units.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <unordered_map>

#include "quietthread.h"

namespace ostrelcell {

namespace {

const std::string firstLine = "ostrel-kept 1";

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

bool writeAll(int fd, const std::string& text) {
    size_t done = 0;
    while (done < text.size()) {
        const ssize_t size = ::write(fd, text.data() + done, text.size() - done);
        if (size < 0 && errno != EINTR)
            return false;
        done += static_cast<size_t>(std::max<ssize_t>(size, 0));
    }
    return true;
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
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    if (!stream && errno == ENOENT)
        return {};
    if (!stream)
        return {failureText(file, "kept values cannot be read")};
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

std::string replaceFile(const std::string& file, const std::string& text) {
    const std::string temporary = file + ".new";
    const int fd = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0)
        return failureText(temporary, "cannot be written");
    const bool written = writeAll(fd, text) && fsync(fd) == 0;
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

KeptFile::KeptFile(std::string file) : m_file(std::move(file)), m_thread(startQuietThread([this] { run(); })) {}

KeptFile::~KeptFile() {
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

void KeptFile::write(std::string text) {
    if (text == m_last)
        return;
    m_last = text;
    {
        const std::lock_guard lock(m_mutex);
        m_waiting = std::move(text);
        m_hasWaiting = true;
    }
    m_wake.notify_one();
}

void KeptFile::run() {
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_wake.wait(lock, [this] { return m_hasWaiting || m_ending; });
        if (!m_hasWaiting)
            return;
        const std::string text = std::move(m_waiting);
        m_hasWaiting = false;
        lock.unlock();
        writeNow(text);
        lock.lock();
    }
}

void KeptFile::writeNow(const std::string& text) {
    const std::string why = replaceFile(m_file, text);
    if (!why.empty() && !m_failed)
        log_error(__FILE__, __LINE__, 1, 0, "%s; the values that persist are not kept", why.c_str());
    m_failed = !why.empty();
}

}  // namespace ostrelcell
