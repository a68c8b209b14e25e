#include "storeaccess.h"

#include <cmath>

#include "commands.h"
#include "failure.h"

namespace {

ostrel_store_status findStore(const std::optional<std::string>& name) {
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
    return status;
}

}  // namespace

ServerState serverState(const ostrel_store_status& status) {
    if (status.alive == 0)
        return ServerState::Dead;
    return status.heartbeat_age_s < OSTREL_SILENCE_S ? ServerState::Alive : ServerState::Stopped;
}

std::string standstill(const ostrel_store_status& status) {
    const std::string store = "store '" + std::string(status.name) + "': ";
    switch (serverState(status)) {
        case ServerState::Dead:
            return store + "its server has died and the values stand still; start ostrel-cell again to go on with them";
        case ServerState::Stopped:
            return store + "the cell has been silent for " + std::to_string(std::lround(status.heartbeat_age_s)) +
                   " s and the values stand still; process " + std::to_string(status.server_pid) +
                   " is stopped or stuck";
        default:
            return "";
    }
}

ostrel_store_status openStore(const std::optional<std::string>& name) {
    const ostrel_store_status status = findStore(name);
    if (const std::string why = standstill(status); !why.empty())
        complain(why);
    return status;
}

void openStoreToWrite(const std::optional<std::string>& name, bool force) {
    const ostrel_store_status status = findStore(name);
    const std::string why = standstill(status);
    if (!why.empty() && !force)
        throw Failure(why + "; nothing was written, --force writes all the same");
    if (!why.empty())
        complain(why);
}
