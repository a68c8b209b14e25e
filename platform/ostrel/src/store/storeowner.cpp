#include "store/storeowner.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>

#include "processidentity.h"
#include "store/sharedobject.h"

namespace {

std::optional<uid_t> userOf(const std::string& text) {
    passwd entry{};
    passwd* found = nullptr;
    char buffer[4096];
    if (getpwnam_r(text.c_str(), &entry, buffer, sizeof buffer, &found) == 0 && found)
        return found->pw_uid;
    uid_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

std::optional<struct stat> statusOf(const std::string& name) {
    struct stat status {};
    return lstat((objectFolder + name).c_str(), &status) == 0 ? std::optional(status) : std::nullopt;
}

}  // namespace

bool mayOwnStores(uid_t owner) {
    if (owner == geteuid() || owner == 0)
        return true;
    const char* named = std::getenv("OSTREL_OWNER");
    return named && *named != '\0' && userOf(named) == owner;
}

std::string foreignOwner(uid_t owner) {
    return "belongs to " + userName(owner) +
           "; used are stores of one's own user, of root and of the user that OSTREL_OWNER names";
}

std::string ownershipOf(const std::string& name) {
    const auto status = statusOf(name);
    if (!status)
        return "it belongs to another user";
    char mode[8] = "";
    std::snprintf(mode, sizeof mode, "%04o", status->st_mode & 07777U);
    return "it belongs to " + userName(status->st_uid) + " and has mode " + mode;
}

std::string problemOfObject(const std::string& name, int error) {
    const auto status = statusOf(name);
    const bool isSquatted = status && !mayOwnStores(status->st_uid);
    if (isSquatted)
        return objectFolder + name + " " + foreignOwner(status->st_uid);
    return objectFolder + name + ": " + std::strerror(error);
}
