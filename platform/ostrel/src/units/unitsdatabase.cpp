#include "units/unitsdatabase.h"

#include <ostrel/log.h>

#include <mutex>

namespace {

struct FreeUnit {
    void operator()(ut_unit* unit) const { ut_free(unit); }
};
using UnitPtr = std::unique_ptr<ut_unit, FreeUnit>;

std::mutex mutex;

// Read once and kept to the end of the process; null where it cannot be read. Called with the lock.
ut_system* database() {
    static ut_system* const system = [] {
        ut_set_error_message_handler(ut_ignore);
        ut_system* read = ut_read_xml(nullptr);
        if (!read) {
            log_error(
                "unitsdatabase.cpp", __LINE__, 1, ut_get_status(),
                "units: the UDUNITS database cannot be read, so no unit is converted; install libudunits2-data or "
                "set UDUNITS2_XML_PATH");
        }
        return read;
    }();
    return system;
}

UnitPtr parse(const std::string& expression) {
    return UnitPtr(database() ? ut_parse(database(), expression.c_str(), UT_ASCII) : nullptr);
}

}  // namespace

bool unitsDatabaseIsReadable() {
    std::lock_guard lock(mutex);
    return database() != nullptr;
}

bool isUnitExpression(const std::string& expression) {
    std::lock_guard lock(mutex);
    return parse(expression) != nullptr;
}

ConverterPtr makeConverter(const std::string& from, const std::string& to) {
    std::lock_guard lock(mutex);
    UnitPtr source = parse(from);
    UnitPtr target = parse(to);
    return ConverterPtr(source && target ? ut_get_converter(source.get(), target.get()) : nullptr);
}
