// Preloaded into a program: writing into the folder $HANGING_FOLDER takes until the file "hangs" in it is gone.
#include <dlfcn.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <string>

namespace {

bool isIn(int fd, const std::string& folder) {
    char path[PATH_MAX];
    const ssize_t length = readlink(("/proc/self/fd/" + std::to_string(fd)).c_str(), path, sizeof path);
    return length > 0 && std::string(path, static_cast<size_t>(length)).starts_with(folder + "/");
}

void hang(int fd) {
    const char* folder = std::getenv("HANGING_FOLDER");
    while (folder && isIn(fd, folder) && access((std::string(folder) + "/hangs").c_str(), F_OK) == 0)
        usleep(10'000);
}

template <class Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" __attribute__((visibility("default"))) ssize_t write(int fd, const void* bytes, size_t size) {
    hang(fd);
    static const auto real = next<ssize_t (*)(int, const void*, size_t)>("write");
    return real(fd, bytes, size);
}

extern "C" __attribute__((visibility("default"))) int fsync(int fd) {
    hang(fd);
    static const auto real = next<int (*)(int)>("fsync");
    return real(fd);
}
