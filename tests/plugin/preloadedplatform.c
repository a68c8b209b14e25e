// A platform function that a site loads before everything else.
#include <ostrel/store.h>
#include <stdio.h>

short int find_variable(char* label, SHARED_MEMORY* mem) {
    (void)mem;
    printf("find_variable preloaded: %s\n", label);
    return -1;
}
