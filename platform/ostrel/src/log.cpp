#include <fcntl.h>
#include <ostrel/log.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <ctime>

#include "processidentity.h"
#include "store/currentstore.h"

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

void appendTo(const char* path, const char* line, size_t length) {
    const int fd = open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY, 0640);
    if (fd < 0)
        return;
    // One write, so that lines of several processes do not mix. There is nobody to tell when it fails.
    [[maybe_unused]] const ssize_t written = write(fd, line, length);
    close(fd);
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
    text[length++] = '\n';
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, text, length);

    char path[sizeof StoreHeader::logFile] = "";
    if (const Attachment* store = runningStore())
        std::memcpy(path, store->header()->logFile, sizeof path - 1);
    if (path[0] != '\0')
        appendTo(path, text, length);
}
