#include "server/logfile.h"

#include <algorithm>
#include <bit>
#include <string>

#include "ground/printable.h"
#include "server/linetime.h"

namespace {

// Any process that may write to the store may put anything there.
std::string textOf(const LogLine& line) {
    return printable({line.text, std::min<size_t>(line.length, sizeof line.text)}) + "\n";
}

}  // namespace

void LogFile::drain(LogRing& ring) {
    std::string lines;
    uint64_t count = 0;
    const uint64_t upTo = m_reader.read(
        ring,
        [&](uint64_t, const LogRing::Words& words) {
            lines += textOf(std::bit_cast<LogLine>(words));
            ++count;
        },
        [&](uint64_t lost) { lines += missingLines(lost, "line"); });
    if (!lines.empty())
        m_file.append(std::move(lines), count, [&ring, upTo] { ring.drained.store(upTo, std::memory_order_release); });
    else
        ring.drained.store(upTo, std::memory_order_release);
}
