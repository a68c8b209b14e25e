#include <ostrel/store.h>
#include <signal.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>

#include "commands.h"
#include "failure.h"
#include "fieldtext.h"
#include "interrupt.h"
#include "json.h"

namespace {

constexpr std::chrono::seconds patience{20};

int reconfigurations() {
    char name[] = "reconfig_data";
    return static_cast<const RECONFIG_DATA*>(get_private_shrd_mem(name, sizeof(RECONFIG_DATA)))->generic_reconfig_count;
}

void askServer(const ostrel_store_status& store) {
    const std::string name = fieldText(store.name);
    if (store.embedded || !store.alive)
        throw Failure(name + ": no server that could read its cell file again");
    if (kill(store.server_pid, SIGHUP) != 0) {
        throw Failure(name + ": its server, process " + std::to_string(store.server_pid) +
                      ", cannot be asked: " + std::strerror(errno));
    }
}

}  // namespace

int reconfigCommand(const ostrel_store_status& store, bool json) {
    using std::chrono::steady_clock;
    const Interrupt interrupt;
    const int before = reconfigurations();
    askServer(store);
    const auto end = steady_clock::now() + patience;
    while (reconfigurations() == before) {
        if (steady_clock::now() >= end)
            throw Failure(fieldText(store.name) + ": was not reconfigured; ostrel-cell says what is wrong with " +
                          fieldText(store.cell_file));
        if (interrupt.comesBefore(steady_clock::now() + std::chrono::milliseconds(20)))
            throw Failure(fieldText(store.name) + ": was asked, but nobody waited for the end");
    }
    ostrel_store_status now{};
    ostrel_store_get_status(&now);
    if (json)
        std::puts(Json(Json::Object{{"store", fieldText(now.name)}, {"variables", now.variables}}).text().c_str());
    else
        std::printf("%s: reconfigured, %d names\n", fieldText(now.name).c_str(), now.variables);
    return 0;
}
