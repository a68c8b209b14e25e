#include "storeaccess.h"

#include <cstdio>

#include "failure.h"

ostrel_store_status openStore(const std::string& name) {
    char message[512] = "";
    ostrel_store_open(name.empty() ? nullptr : name.c_str(), nullptr, message, sizeof message);
    ostrel_store_status status{};
    ostrel_store_get_status(&status);
    if (!status.found) {
        throw Failure("no store named '" + std::string(status.name) +
                      "' is running; start one with ostrel-cell FILE.toml" +
                      (name.empty() ? "" : " --store " + std::string(status.name)));
    }
    if (!status.alive) {
        std::fprintf(stderr,
                     "ostrel: store '%s': its server has died and the values stand still; start ostrel-cell again to "
                     "go on with them\n",
                     status.name);
    }
    return status;
}
