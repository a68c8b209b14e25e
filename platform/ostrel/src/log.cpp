#include <ostrel/log.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <string>

#include "ground/printable.h"
#include "processidentity.h"
#include "store/currentstore.h"
#include "store/writelayout.h"

namespace {

constexpr size_t longestLine = 1000;

size_t writtenLength(int result, size_t room) {
    return result < 0 ? 0 : std::min(static_cast<size_t>(result), room - 1);
}

size_t putTime(char* line, size_t room) {
    timeval now{};
    gettimeofday(&now, nullptr);
    tm local{};
    localtime_r(&now.tv_sec, &local);
    const size_t length = strftime(line, room, "%Y-%m-%d %H:%M:%S", &local);
    return length + writtenLength(snprintf(line + length, room - length, ".%03ld", now.tv_usec / 1000), room - length);
}

// The cell puts it into the log file: a path that stands in memory which others may write leads anywhere.
void give(const Attachment& store, const char* text, size_t length) {
    WriteMemory* memory = store.writes();
    if (!memory || !store.isWritable())
        return;
    LogLine line{};
    line.length = static_cast<uint32_t>(std::min(length, sizeof line.text));
    std::memcpy(line.text, text, line.length);
    memory->log.publish(std::bit_cast<LogRing::Words>(line));
}

}  // namespace

void log_error(const char* file, int line, int level, int status, const char* format, ...) {
    char text[longestLine + 1];
    const ProcessIdentity self = processIdentity();
    size_t length = putTime(text, sizeof text);
    length +=
        writtenLength(snprintf(text + length, sizeof text - length, " %s[%d] %.200s:%d level %d status %d: ", self.name,
                               self.pid, file ? file : "?", line, level, status),
                      sizeof text - length);
    va_list arguments;
    va_start(arguments, format);
    if (format)
        length +=
            writtenLength(vsnprintf(text + length, sizeof text - length, format, arguments), sizeof text - length);
    va_end(arguments);
    std::replace_if(
        text, text + length, [](char c) { return c == '\n' || c == '\r'; }, ' ');
    // Of the same length; names and file names in it may be anybody's.
    const std::string shown = printable({text, length});
    std::memcpy(text, shown.data(), length);
    text[length++] = '\n';
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, text, length);

    if (const Attachment* store = runningStore())
        give(*store, text, length - 1);
}
