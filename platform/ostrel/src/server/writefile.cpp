#include "server/writefile.h"

#include <bit>
#include <cstdio>

#include "processidentity.h"
#include "server/linetime.h"

namespace {

// A field of a line: what would break the line or the field is written as an escape.
std::string field(const char* text) {
    std::string result;
    for (; *text != '\0'; ++text) {
        const auto byte = static_cast<unsigned char>(*text);
        char escape[8] = "";
        if (byte == '\t')
            result += "\\t";
        else if (byte == '\n')
            result += "\\n";
        else if (byte == '\\')
            result += "\\\\";
        else if (byte < ' ' || byte == 0x7f)
            result.append(escape, static_cast<size_t>(snprintf(escape, sizeof escape, "\\x%02x", byte)));
        else
            result += *text;
    }
    return result;
}

const char* outcome(short refusal) {
    switch (refusal) {
        case OSTREL_STORED:
            return "stored";
        case OSTREL_NO_VALUE:
            return "refused: no value for it";
        case OSTREL_NOT_WRITABLE:
            return "refused: not writable";
        case OSTREL_OUTSIDE:
            return "refused: outside its limits";
        default:
            return "refused";
    }
}

}  // namespace

std::string WriteFile::lineOf(uint64_t number, const WriteNote& note) {
    const ostrel_write write = describeNote(number, note);
    const auto [user, isNew] = m_users.try_emplace(write.uid);
    if (isNew)
        user->second = userName(write.uid);
    std::string line = lineTime(write.time);
    for (const std::string& text :
         {std::to_string(number), field(write.program), std::to_string(write.pid), field(user->second.c_str()),
          field(write.variable), field(write.old_value), field(write.new_value), std::string(outcome(write.refusal))})
        line.append("\t").append(text);
    return line + "\n";
}

void WriteFile::drain(WriteRing& ring) {
    std::string lines;
    uint64_t count = 0;
    const uint64_t upTo = m_reader.read(
        ring,
        [&](uint64_t number, const WriteRing::Words& words) {
            lines += lineOf(number, std::bit_cast<WriteNote>(words));
            ++count;
        },
        [&](uint64_t lost) { lines += missingLines(lost, "write"); });
    if (!lines.empty())
        m_file.append(std::move(lines), count, [&ring, upTo] { ring.drained.store(upTo, std::memory_order_release); });
    else
        ring.drained.store(upTo, std::memory_order_release);
}
