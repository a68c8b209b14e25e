#include "storeaccess.h"

#include <cstdio>

#include "failure.h"

ostrel_store_status openStore(const std::optional<std::string>& name) {
    char message[512] = "";
    if (ostrel_store_open(name ? name->c_str() : nullptr, nullptr, message, sizeof message) > 1)
        throw Failure(message);
    ostrel_store_status status{};
    ostrel_store_get_status(&status);
    if (!status.found && message[0] != '\0')
        throw Failure(message);
    if (!status.found) {
        throw Failure("no store named '" + std::string(status.name) +
                      "' is running; start one with ostrel-cell FILE.toml" +
                      (!name ? "" : " --store " + std::string(status.name)));
    }
    if (!status.alive) {
        std::fprintf(stderr,
                     "ostrel: store '%s': its server has died and the values stand still; start ostrel-cell again to "
                     "go on with them\n",
                     status.name);
    }
    return status;
}
