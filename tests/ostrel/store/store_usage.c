// The public headers serve a program in C, which finds a variable and writes it in a store of its own.
#include <ostrel/areas.h>
#include <ostrel/events.h>
#include <ostrel/log.h>
#include <ostrel/records.h>
#include <ostrel/server.h>
#include <ostrel/store.h>
#include <ostrel/units.h>
#include <stdio.h>
#include <string.h>

static int failed(const char* step) {
    fprintf(stderr, "store_usage: %s failed\n", step);
    return 1;
}

int main(void) {
    char message[200] = "";
    ostrel_server_options options;
    memset(&options, 0, sizeof options);
    ostrel_server* server = ostrel_server_open(&options, message, sizeof message);
    if (!server)
        return failed(message);
    int created = 0;
    ostrel_server_begin(server, (SM_AREA_ID)-1);
    if (!ostrel_server_put(server, GU_REAL_MEM, REAL_TYPE, "SPEED", &created, message, sizeof message))
        return failed(message);
    ostrel_server_commit(server);

    SHARED_MEMORY mem;
    char name[] = "SPEED";
    if (find_variable(name, &mem) != 0)
        return failed("find_variable");
    REAL_VARIABLE* speed = get_vrbl_adr(mem);
    set_real_variable(speed, 1500);
    if (speed->value != 1500)
        return failed("set_real_variable");
    ostrel_server_close(server);
    return 0;
}
