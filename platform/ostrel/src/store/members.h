// The names of members as they stand behind the point of a full name.
#ifndef OSTREL_STORE_MEMBERS_H
#define OSTREL_STORE_MEMBERS_H

#include <string_view>

// Members that a variable of that kind has; 0 for a kind without members.
int memberCount(int kind);

// The member of that name, or -1.
int memberNumber(int kind, std::string_view name);

#endif
