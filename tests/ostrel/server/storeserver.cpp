// Serves a store for the tests: one command per line of standard input, one answer per line of standard output. Ends
// with its input, leaving the store as a server leaves it that died.
#include <ostrel/server.h>
#include <ostrel/store.h>

#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

ostrel_server* server = nullptr;
char message[1000] = "";

std::string failed() {
    return std::string("error ") + message;
}

std::string open(std::istream& words) {
    std::string name;
    std::string mode;
    words >> name >> mode;
    ostrel_server_options options{};
    options.name = name.c_str();
    options.cell_file = "engine.toml";
    options.mode = mode.empty() ? 0 : std::stoi(mode, nullptr, 8);
    server = ostrel_server_open(&options, message, sizeof message);
    return server ? "ok " + std::to_string(ostrel_server_adopted(server)) : failed();
}

std::string put(std::istream& words) {
    int area = 0;
    int kind = 0;
    std::string label;
    words >> area >> kind >> label;
    int created = 0;
    const void* record = ostrel_server_put(server, static_cast<SM_AREA_ID>(area), static_cast<SM_VARI_TYPE>(kind),
                                           label.c_str(), &created, message, sizeof message);
    return record ? "ok " + std::to_string(created) : failed();
}

std::string putArray(std::istream& words) {
    int kind = 0;
    std::string label;
    words >> kind >> label;
    unsigned short sizes[3] = {};
    int dimensions = 0;
    for (unsigned short size = 0; words >> size; ++dimensions)
        if (dimensions < 3)
            sizes[dimensions] = size;
    void* elements = nullptr;
    int created = 0;
    const void* record = ostrel_server_put_array(server, static_cast<SM_VARI_TYPE>(kind), label.c_str(), dimensions,
                                                 sizes, &elements, &created, message, sizeof message);
    return record ? "ok " + std::to_string(created) : failed();
}

std::string putAlias(std::istream& words) {
    std::string alias;
    std::string target;
    int primary = 0;
    words >> alias >> target >> primary;
    return ostrel_server_put_alias(server, alias.c_str(), target.c_str(), primary, message, sizeof message) ? "ok"
                                                                                                            : failed();
}

// Limit i has the given value + i; all exist but the last; colours go up from 256.
std::string setLimits(std::istream& words) {
    std::string label;
    double first = 0;
    words >> label >> first;
    double limits[NUM_LIMIT_TYPES];
    short exists[NUM_LIMIT_TYPES];
    short display[NUM_LIMIT_TYPES];
    for (short i = 0; i < NUM_LIMIT_TYPES; ++i) {
        limits[i] = first + i;
        exists[i] = i + 1 < NUM_LIMIT_TYPES;
        display[i] = static_cast<short>(256 * (i + 1));
    }
    ostrel_server_set_limits(server, label.c_str(), limits, exists, display);
    return "ok";
}

// "rule LABEL 0|1 MIN MAX", where "-" is no limit.
std::string setRule(std::istream& words) {
    std::string label;
    std::string min;
    std::string max;
    ostrel_write_rule rule{};
    words >> label >> rule.writable >> min >> max;
    rule.has_min = min != "-";
    rule.has_max = max != "-";
    rule.min = rule.has_min ? std::stod(min) : 0;
    rule.max = rule.has_max ? std::stod(max) : 0;
    return ostrel_server_set_write_rule(server, label.c_str(), &rule) == 0 ? "ok" : "error no such variable";
}

using Drain = int (*)(ostrel_server*, const char*, size_t, char*, size_t);

std::string drain(std::istream& words, Drain function) {
    std::string file;
    size_t mostBytes = 0;
    words >> file >> mostBytes;
    function(server, file.c_str(), mostBytes, message, sizeof message);
    ostrel_server_flush(server, 10'000);
    return function(server, file.c_str(), mostBytes, message, sizeof message) == 0 ? "ok" : failed();
}

std::string makeRoom(std::istream& words) {
    int area = 0;
    int kind = 0;
    ostrel_server_room room{};
    words >> area >> kind >> room.variables;
    room.area = static_cast<SM_AREA_ID>(area);
    room.kind = static_cast<SM_VARI_TYPE>(kind);
    const int made = ostrel_server_make_room(server, &room, 1, message, sizeof message);
    return made < 0 ? failed() : "ok " + std::to_string(made);
}

// "reserve AREA KIND LABEL SIZE..." for one variable that shall be put, "reserve AREA KIND LABEL TARGET" for an alias.
std::string reserve(std::istream& words) {
    int area = 0;
    int kind = 0;
    std::string label;
    std::string target;
    words >> area >> kind >> label;
    std::vector<unsigned short> sizes;
    if (kind == ALIAS_TYPE)
        words >> target;
    for (unsigned short size = 0; words >> size;)
        sizes.push_back(size);
    const ostrel_server_variable variable{static_cast<SM_AREA_ID>(area),
                                          static_cast<SM_VARI_TYPE>(kind),
                                          label.c_str(),
                                          target.c_str(),
                                          static_cast<int>(sizes.size()),
                                          sizes.data()};
    return ostrel_server_reserve(server, &variable, 1, message, sizeof message) == 0 ? "ok" : failed();
}

// The server's own write of a real variable.
std::string set(std::istream& words) {
    std::string label;
    double value = 0;
    words >> label >> value;
    SHARED_MEMORY mem{};
    if (find_variable(label.data(), &mem) != 0)
        return "error no such variable";
    set_real_variable(static_cast<REAL_VARIABLE*>(get_vrbl_adr(mem)), value);
    return "ok";
}

std::string begin(std::istream& words) {
    int area = 0;
    words >> area;
    ostrel_server_begin(server, static_cast<SM_AREA_ID>(area));
    return "ok";
}

// Many reconfigurations one after the other, each with the variables V0 to V(count-1), every second one with EXTRA.
std::string churn(std::istream& words) {
    int rounds = 0;
    int count = 0;
    words >> rounds >> count;
    for (int round = 0; round < rounds; ++round) {
        ostrel_server_begin(server, static_cast<SM_AREA_ID>(-1));
        for (int i = 0; i < count; ++i)
            ostrel_server_put(server, GU_REAL_MEM, REAL_TYPE, ("V" + std::to_string(i)).c_str(), nullptr, nullptr, 0);
        if (round % 2 == 0)
            ostrel_server_put(server, GU_REAL_MEM, REAL_TYPE, "EXTRA", nullptr, nullptr, 0);
        ostrel_server_commit(server);
    }
    return "ok";
}

std::string obey(const std::string& command, std::istream& words) {
    if (command == "open")
        return open(words);
    if (!server)
        return "error no server";
    if (command == "begin")
        return begin(words);
    if (command == "put")
        return put(words);
    if (command == "array")
        return putArray(words);
    if (command == "alias")
        return putAlias(words);
    if (command == "limits")
        return setLimits(words);
    if (command == "rule")
        return setRule(words);
    if (command == "drain")
        return drain(words, ostrel_server_drain_writes);
    if (command == "drain_log")
        return drain(words, ostrel_server_drain_log);
    if (command == "room")
        return makeRoom(words);
    if (command == "reserve")
        return reserve(words);
    if (command == "set")
        return set(words);
    if (command == "churn")
        return churn(words);
    if (command == "beat")
        ostrel_server_beat(server);
    else if (command == "commit")
        ostrel_server_commit(server);
    else if (command == "close") {
        ostrel_server_close(server);
        server = nullptr;
    } else
        return "error unknown command";
    return "ok";
}

}  // namespace

int main() {
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line);
        std::string command;
        words >> command;
        std::cout << obey(command, words) << std::endl;
    }
    // Like a kill: a store that was not closed stays for the next server.
    _Exit(0);
}
