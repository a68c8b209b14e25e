#include "server/writefile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <utility>

#include "ground/monotonic.h"
#include "processidentity.h"

namespace {

// A writer needs a microsecond. One that was killed or stopped is not waited for longer than this.
constexpr int64_t patience = nanosecondsPerSecond;

std::string timeText(const timespec& time) {
    tm local{};
    localtime_r(&time.tv_sec, &local);
    char day[40] = "";
    char zone[8] = "";
    strftime(day, sizeof day, "%Y-%m-%dT%H:%M:%S", &local);
    strftime(zone, sizeof zone, "%z", &local);
    char text[64] = "";
    snprintf(text, sizeof text, "%s.%03ld%s", day, std::clamp(time.tv_nsec, 0L, 999999999L) / 1000000, zone);
    return text;
}

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

std::string missingLine(uint64_t count) {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return "# " + timeText(now) + " " + std::to_string(count) +
           (count == 1 ? " write is missing here\n" : " writes are missing here\n");
}

int appendAll(int fd, const std::string& lines) {
    struct stat status {};
    const bool isKnown = fstat(fd, &status) == 0 && S_ISREG(status.st_mode);
    size_t done = 0;
    while (done < lines.size()) {
        const ssize_t written = write(fd, lines.data() + done, lines.size() - done);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0) {
            const int error = errno;
            // The next time writes all of it again: no half lines, no lines twice.
            [[maybe_unused]] const int cut = isKnown ? ftruncate(fd, status.st_size) : 0;
            return error;
        }
        done += static_cast<size_t>(written);
    }
    return 0;
}

int appendTo(const std::string& path, const std::string& lines) {
    const int fd = open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0640);
    if (fd < 0)
        return errno;
    const int error = appendAll(fd, lines);
    close(fd);
    return error;
}

}  // namespace

bool WriteFile::isGivenUp(uint64_t number, uint64_t taken) {
    const int64_t now = monotonicNow();
    if (number > m_waitedFor) {
        m_waitedFor = taken;
        m_waitingSince = now;
    }
    return now - m_waitingSince > patience;
}

std::string WriteFile::lineOf(uint64_t number, const WriteNote& note) {
    const ostrel_write write = describeNote(number, note);
    const auto [user, isNew] = m_users.try_emplace(write.uid);
    if (isNew)
        user->second = userName(write.uid);
    std::string line = timeText(write.time);
    for (const std::string& text :
         {std::to_string(number), field(write.program), std::to_string(write.pid), field(user->second.c_str()),
          field(write.variable), field(write.old_value), field(write.new_value), std::string(outcome(write.refusal))})
        line.append("\t").append(text);
    return line + "\n";
}

WriteFile::Batch WriteFile::take(const WriteMemory& memory, uint64_t from, uint64_t to) {
    Batch batch{"", from - 1};
    uint64_t missing = 0;
    const auto noteMissing = [&] {
        if (missing > 0)
            batch.lines += missingLine(std::exchange(missing, 0));
    };
    const uint64_t oldest = oldestKept(memory);
    if (from < oldest) {
        missing = oldest - from;
        batch.upTo = oldest - 1;
    }
    while (batch.upTo < to) {
        const uint64_t number = batch.upTo + 1;
        WriteNote note{};
        const NoteState state = readNote(memory, number, note);
        if (state == NoteState::UnderWay && !isGivenUp(number, to))
            break;
        batch.upTo = number;
        if (state != NoteState::Whole) {
            ++missing;
            continue;
        }
        noteMissing();
        batch.lines += lineOf(number, note);
    }
    noteMissing();
    return batch;
}

bool WriteFile::drain(WriteMemory& memory, const std::string& path, std::string& problem) {
    const uint64_t taken = memory.taken.load(std::memory_order_acquire);
    const uint64_t drained = std::min(memory.drained.load(std::memory_order_relaxed), taken);
    if (drained == taken)
        return true;
    const Batch batch = take(memory, drained + 1, taken);
    if (!batch.lines.empty()) {
        if (const int error = appendTo(path, batch.lines)) {
            problem = "cannot be written: " + std::string(std::strerror(error));
            return false;
        }
    }
    memory.drained.store(batch.upTo, std::memory_order_release);
    return true;
}
