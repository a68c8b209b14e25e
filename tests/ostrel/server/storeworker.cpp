// The processes of the test of kills: "storeworker server STORE BOARD FILE" or "storeworker client STORE BOARD ID
// SEED". Each works until the board says stop, or until it is killed.
#include <ostrel/events.h>
#include <ostrel/server.h>
#include <ostrel/store.h>
#include <signal.h>
#include <sys/prctl.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <random>
#include <thread>

#include "killboard.h"

namespace {

KillBoard* board = nullptr;

void fail(const std::string& what) {
    if (board->failures.fetch_add(1) == 0)
        snprintf(board->firstFailure, sizeof board->firstFailure, "%s", what.c_str());
}

void mustBe(bool condition, const std::string& what) {
    if (!condition)
        fail(what);
}

char* text(const std::string& s) {
    return const_cast<char*>(s.c_str());
}

void rest() {
    std::this_thread::sleep_for(std::chrono::microseconds(500));
}

// ---- The server

struct Served {
    ostrel_server* server = nullptr;
    REAL_VARIABLE* count = nullptr;
    char message[300] = "";

    void* put(SM_AREA_ID area, SM_VARI_TYPE kind, const std::string& label, bool& isNew) {
        int created = 0;
        void* record = ostrel_server_put(server, area, kind, label.c_str(), &created, message, sizeof message);
        mustBe(record != nullptr, message);
        isNew = created != 0;
        board->server.progress.fetch_add(1);
        return record;
    }

    void putLocked() {
        bool isNew = false;
        auto* locked = static_cast<REAL_VARIABLE*>(put(GU_REAL_MEM, REAL_TYPE, "LOCKED", isNew));
        if (isNew)
            locked->value = lockedValue;
        const ostrel_write_rule rule{0, 0, 0, 0, 0};
        ostrel_server_set_write_rule(server, "LOCKED", &rule);
    }

    // Every second configuration has one more variable.
    void configure(int round) {
        ostrel_server_begin(server, static_cast<SM_AREA_ID>(-1));
        bool isNew = false;
        count = static_cast<REAL_VARIABLE*>(put(GU_REAL_MEM, REAL_TYPE, "COUNT", isNew));
        putLocked();
        for (int id = 0; id < clientCount; ++id) {
            put(GU_REAL_MEM, REAL_TYPE, realName(id), isNew);
            put(GU_INTEGER_MEM, INT_TYPE, integerName(id), isNew);
            put(GU_STRING_MEM, STRING_TYPE, textName(id), isNew);
            ostrel_server_put_alias(server, ("NICK" + std::to_string(id)).c_str(), realName(id).c_str(), 1, message,
                                    sizeof message);
        }
        const unsigned short size = clientCount;
        void* elements = nullptr;
        ostrel_server_put_array(server, REAL_ARRAY_TYPE, "FIELD", 1, &size, &elements, nullptr, message,
                                sizeof message);
        if (round % 2 == 0)
            put(GU_REAL_MEM, REAL_TYPE, "EXTRA", isNew);
        ostrel_server_commit(server);
    }

    void countUp() {
        const uint64_t next = board->server.done.load() + 1;
        board->server.intent.store(next);
        set_real_variable(count, realOf(next));
        board->server.done.store(next);
    }
};

int serve(const std::string& store, const std::string& file) {
    Served served;
    ostrel_server_options options{};
    options.name = store.c_str();
    served.server = ostrel_server_open(&options, served.message, sizeof served.message);
    if (!served.server) {
        fail(served.message);
        return 1;
    }
    // The one before may have been killed between writing and counting.
    board->server.done.store(board->server.intent.load());
    const bool isAdopted = ostrel_server_adopted(served.server) != 0;
    served.configure(0);
    ostrel_event_create("shout", nullptr);
    board->adopted.fetch_add(isAdopted);
    board->servers.fetch_add(1);
    for (int round = 1; board->stop.load() == 0; ++round) {
        served.countUp();
        ostrel_server_beat(served.server);
        mustBe(ostrel_server_drain_writes(served.server, file.c_str(), 0, served.message, sizeof served.message) == 0,
               served.message);
        if (round % 5 == 0)
            served.configure(round / 5);
        board->server.progress.fetch_add(1);
        rest();
    }
    // The store stays as it is for the test to look at.
    std::_Exit(0);
}

// ---- A client

struct Shout {
    uint64_t number;
    uint64_t inverted;
};

// Receives what the clients raise, and ticks, until the end.
void listen(ClientRow& row) {
    int shout = 0;
    int timer = 0;
    int period = 10;
    mustBe(event_attach("shout", 16, &shout) == 0, "shout: cannot be attached to");
    event_create_timer(text("tick"), 10, 0, 1, 0, &period, &timer);
    mustBe(event_attach("tick", 4, &timer) == 0, "tick: cannot be attached to");
    while (board->stop.load() == 0) {
        Shout heard{};
        int eid = 0;
        if (event_wait(&heard, sizeof heard, &eid) != 0)
            continue;
        mustBe(eid == timer || eid == shout, "an event came that nobody attached to");
        mustBe(eid != shout || heard.number == ~heard.inverted, "a message came in pieces");
        (eid == timer ? row.ticks : row.events).fetch_add(1);
    }
    event_detach(shout);
    event_detach(timer);
}

class Client {
public:
    Client(int id, uint64_t seed) : m_id(id), m_row(board->clients[static_cast<size_t>(id)]), m_random(seed) {
        m_real = static_cast<REAL_VARIABLE*>(look(realName(id)));
        m_integer = static_cast<INTEGER_VARIABLE*>(look(integerName(id)));
        m_text = static_cast<STRING_VARIABLE*>(look(textName(id)));
        m_locked = static_cast<REAL_VARIABLE*>(look("LOCKED"));
        m_count = static_cast<REAL_VARIABLE*>(look("COUNT"));
        find_variable(text(elementName(id)), &m_element);
        m_row.done.store(m_row.intent.load());
    }

    bool hasAll() const { return m_real && m_integer && m_text && m_locked && m_count && m_element.member_adr; }

    void step() {
        switch (m_random() % 5) {
            case 0:
                write();
                break;
            case 1:
                lookUp();
                break;
            case 2:
                raise();
                break;
            case 3:
                tryLocked();
                break;
            default:
                watchServer();
        }
        m_row.progress.fetch_add(1);
    }

private:
    static void* look(const std::string& name) {
        SHARED_MEMORY mem{};
        return find_variable(text(name), &mem) == 0 ? get_vrbl_adr(mem) : nullptr;
    }

    void write() {
        const uint64_t n = m_row.done.load() + 1;
        m_row.intent.store(n);
        set_real_variable(m_real, realOf(n));
        mustBe(set_integer(m_integer, integerOf(n)) == 0, "an integer was refused");
        mustBe(set_string_variable(m_text, text(textOf(n))) == 0, "a text was refused");
        mustBe(ostrel_set_array_element(&m_element, realOf(n), nullptr) == 0, "an element was refused");
        mustBe(m_real->value == realOf(n) && m_integer->value == integerOf(n), "a value is not what was written");
        m_row.done.store(n);
    }

    void lookUp() {
        mustBe(look(realName(m_id)) == m_real, realName(m_id) + " is gone or elsewhere");
        mustBe(look("NICK" + std::to_string(m_id)) == m_real, "an alias is gone or leads elsewhere");
        mustBe(look(textName(m_id)) == m_text, textName(m_id) + " is gone or elsewhere");
        SHARED_MEMORY mem{};
        mustBe(find_variable(text(elementName(m_id)), &mem) == 0 && mem.member_adr == m_element.member_adr,
               elementName(m_id) + " is gone or elsewhere");
        mustBe(look("NOBODY") == nullptr, "a name was found that nobody put");
    }

    void raise() {
        Shout shout{m_random(), 0};
        shout.inverted = ~shout.number;
        mustBe(event_set_name(text("shout"), &shout, sizeof shout) == 0, "shout: cannot be raised");
    }

    void tryLocked() {
        set_real_variable(m_locked, 1);
        mustBe(m_locked->value == lockedValue, "what is not writable was written");
    }

    void watchServer() {
        const double now = m_count->value;
        mustBe(now >= m_lastCount, "the server counts backwards");
        m_lastCount = now;
    }

    int m_id;
    ClientRow& m_row;
    std::mt19937_64 m_random;
    REAL_VARIABLE* m_real = nullptr;
    INTEGER_VARIABLE* m_integer = nullptr;
    STRING_VARIABLE* m_text = nullptr;
    REAL_VARIABLE* m_locked = nullptr;
    REAL_VARIABLE* m_count = nullptr;
    SHARED_MEMORY m_element{};
    double m_lastCount = 0;
};

int work(const std::string& store, int id, uint64_t seed) {
    mustBe(ostrel_store_open(store.c_str(), nullptr, nullptr, 0) == 0, "a client found no store");
    Client client(id, seed);
    if (!client.hasAll()) {
        fail("a client did not find its variables");
        return 1;
    }
    std::thread listener(listen, std::ref(board->clients[static_cast<size_t>(id)]));
    while (board->stop.load() == 0) {
        client.step();
        rest();
    }
    listener.join();
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (argc < 5)
        return 2;
    board = &mapBoard(argv[3]);
    const std::string role = argv[1];
    if (role == "server")
        return serve(argv[2], argv[4]);
    return argc == 6 ? work(argv[2], std::stoi(argv[4]), std::stoull(argv[5])) : 2;
}
