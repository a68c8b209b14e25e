/* A program of a site's own on the platform alone. */
#include <ostrel/records.h>
#include <ostrel/store.h>
#include <ostrel/units.h>
#include <stdio.h>

int main(void) {
    char name[] = "OIL_TEMP";
    char units[] = "degF";
    double value = 0;
    SHARED_MEMORY mem;
    if (find_variable(name, &mem) != 0 || mem.vari_type != REAL_TYPE) {
        fputs("platform: OIL_TEMP is not there\n", stderr);
        return 1;
    }
    if (units_get_real_keyword(&value, (REAL_VARIABLE*)get_vrbl_adr(mem), units) != 0 || value < 193.99 ||
        value > 194.01) {
        fprintf(stderr, "platform: OIL_TEMP is %g degF\n", value);
        return 1;
    }
    return 0;
}
