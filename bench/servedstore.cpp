#include "servedstore.h"

#include <ostrel/server.h>
#include <ostrel/store.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>

namespace {

[[noreturn]] void giveUp(const char* what) {
    std::fprintf(stderr, "servedstore: %s\n", what);
    std::_Exit(1);
}

struct Section {
    SM_AREA_ID area;
    SM_VARI_TYPE kind;
};

constexpr std::array<Section, 4> servedSections = {
    {{GU_REAL_MEM, REAL_TYPE}, {GU_INTEGER_MEM, INT_TYPE}, {GU_LOGICAL_MEM, LOGI_TYPE}, {GU_STRING_MEM, STRING_TYPE}}};
constexpr size_t variables = 80000;  // what these sections have room for; further names are aliases

void putName(ostrel_server* server, size_t index) {
    char message[256] = "";
    int created = 0;
    const std::string name = servedName(index);
    const Section& section = servedSections[index % servedSections.size()];
    const bool put = index < variables
                         ? ostrel_server_put(server, section.area, section.kind, name.c_str(), &created, message,
                                             sizeof message) != nullptr
                         : ostrel_server_put_alias(server, name.c_str(), servedName(index - variables).c_str(), 1,
                                                   message, sizeof message) != nullptr;
    if (!put)
        giveUp(message);
}

[[noreturn]] void runServer(const char* store, int wishes, int answers) {
    ostrel_server_options options{};
    options.name = store;
    char message[256] = "";
    ostrel_server* server = ostrel_server_open(&options, message, sizeof message);
    if (!server)
        giveUp(message);
    for (;;) {
        pollfd wish{wishes, POLLIN, 0};
        ostrel_server_beat(server);
        if (poll(&wish, 1, 200) <= 0)
            continue;
        size_t count = 0;
        if (read(wishes, &count, sizeof count) != sizeof count) {
            ostrel_server_close(server);  // the benchmark has ended
            std::_Exit(0);
        }
        ostrel_server_begin(server, static_cast<SM_AREA_ID>(-1));
        for (size_t i = 0; i < count; ++i)
            putName(server, i);
        ostrel_server_commit(server);
        if (write(answers, &count, sizeof count) != sizeof count)
            giveUp("the benchmark cannot be told that its variables are served");
    }
}

}  // namespace

std::string servedName(size_t index) {
    static constexpr std::array<const char*, 8> places = {"ENG", "DYNO", "OIL", "COOL", "FUEL", "EXH", "AIR", "CYL"};
    static constexpr std::array<const char*, 7> quantities = {"SPEED", "TRQ", "P", "T", "FLOW", "SETPOINT", "STATE"};
    return std::string(places[index % places.size()]) + "_" + quantities[index % quantities.size()] + "_" +
           std::to_string(index);
}

ServedStore::ServedStore() {
    const std::string name = "bench-" + std::to_string(getpid());
    int wishes[2];
    int answers[2];
    if (pipe(wishes) != 0 || pipe(answers) != 0)
        giveUp("no pipes to the server");
    m_server = fork();
    if (m_server == 0) {
        close(wishes[1]);
        close(answers[0]);
        runServer(name.c_str(), wishes[0], answers[1]);
    }
    close(wishes[0]);
    close(answers[1]);
    m_wishes = wishes[1];
    m_answers = answers[0];
    setenv("OSTREL_STORE", name.c_str(), 1);
    serve(1);
}

ServedStore::~ServedStore() {
    close(m_wishes);
    close(m_answers);
    waitpid(m_server, nullptr, 0);
}

void ServedStore::serve(size_t count) {
    size_t served = 0;
    if (write(m_wishes, &count, sizeof count) != sizeof count ||
        read(m_answers, &served, sizeof served) != sizeof served || served != count) {
        giveUp("the server has ended");
    }
}
