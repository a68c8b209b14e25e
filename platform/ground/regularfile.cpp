#include "ground/regularfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace {

std::string problemOf(int fd, Trust trust) {
    struct stat status {};
    if (fstat(fd, &status) != 0)
        return std::strerror(errno);
    if (S_ISDIR(status.st_mode))
        return std::strerror(EISDIR);
    if (!S_ISREG(status.st_mode))
        return "is no regular file";
    if (trust == Trust::Own && status.st_uid != geteuid() && status.st_uid != 0)
        return "belongs to another user";
    return "";
}

}  // namespace

int openRegularFile(const std::string& path, int flags, mode_t mode, Trust trust, std::string& problem) {
    problem.clear();
    const int noLink = trust == Trust::Own ? O_NOFOLLOW : 0;
    const int fd = open(path.c_str(), flags | noLink | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, mode);
    if (fd < 0) {
        // A pipe without a reader cannot be opened for writing.
        problem = errno == ELOOP && noLink ? "is a link" : errno == ENXIO ? "is no regular file" : std::strerror(errno);
        return -1;
    }
    problem = problemOf(fd, trust);
    if (problem.empty())
        return fd;
    close(fd);
    errno = EPERM;
    return -1;
}

std::string readRegularFile(const std::string& path, Trust trust, std::string& problem) {
    const int fd = openRegularFile(path, O_RDONLY, 0, trust, problem);
    if (fd < 0)
        return "";
    std::string text;
    char part[65536];
    ssize_t length = 0;
    while ((length = read(fd, part, sizeof part)) != 0) {
        if (length < 0 && errno == EINTR)
            continue;
        if (length < 0) {
            problem = std::strerror(errno);
            text.clear();
            break;
        }
        text.append(part, static_cast<size_t>(length));
    }
    close(fd);
    return text;
}

int writeAll(int fd, const std::string& text) {
    size_t done = 0;
    while (done < text.size()) {
        const ssize_t written = write(fd, text.data() + done, text.size() - done);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return written < 0 ? errno : EIO;
        done += static_cast<size_t>(written);
    }
    return 0;
}
