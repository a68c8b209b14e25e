#include "procstat.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cinttypes>
#include <cstdio>
#include <cstring>

std::optional<ProcStat> readProcStat(const char* path) {
    const int file = open(path, O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return std::nullopt;
    std::array<char, 1024> text{};
    const ssize_t length = read(file, text.data(), text.size() - 1);
    close(file);
    if (length <= 0)
        return std::nullopt;
    // The second field is the program's name in brackets and may hold anything; fields count from the last bracket.
    const char* afterName = std::strrchr(text.data(), ')');
    ProcStat result{};
    const bool isRead = afterName && std::sscanf(afterName,
                                                 ") %c %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s "
                                                 "%*s %*s %*s %" SCNu64,
                                                 &result.state, &result.started) == 2;
    return isRead ? std::optional(result) : std::nullopt;
}

std::string programName(int pid) {
    const int file = open(("/proc/" + std::to_string(pid) + "/comm").c_str(), O_RDONLY | O_CLOEXEC);
    std::array<char, 32> name{};
    const ssize_t length = file < 0 ? 0 : read(file, name.data(), name.size());
    if (file >= 0)
        close(file);
    return length > 1 ? std::string(name.data(), static_cast<size_t>(length) - 1) : "?";
}
