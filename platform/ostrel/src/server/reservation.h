// What a reconfiguration will put, checked and with its memory taken before anything of the store changes.
#ifndef OSTREL_SERVER_RESERVATION_H
#define OSTREL_SERVER_RESERVATION_H

#include <span>
#include <string>
#include <string_view>

#include "server/serverstate.h"

inline constexpr const char* nameStandsAlready = "stands already; a name can be given once";
inline constexpr const char* targetIsTooLong = "its target is too long for a name; it may have 79 characters";
inline constexpr const char* noSuchShape = "has no size that an array can have; use 1 to 3 dimensions of 1 to 2500";

// Empty for a name that a variable can have, with a point at its end where its kind has members; else why not.
std::string problemOfName(std::string_view name, bool endsInPoint);

// The shape as a caller gives it, with no elements where no array can have it.
ArrayShape givenShape(int dimensions, const unsigned short* sizes);

// False: the culprit and what is wrong with it; only memory that nobody uses may have changed hands then.
bool reserveVariables(ostrel_server& server, std::span<const ostrel_server_variable> variables, std::string& culprit,
                      std::string& problem);

#endif
