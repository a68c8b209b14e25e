// Translates an expression of a cell file into the language of the expression library.
//
// Names stand in an expression as find_variable() takes them, members and elements included, which the library could
// not read: BASE.EXT has a point, ARRAY:1 a colon. Each becomes a plain identifier of its own here. In the same pass
// calls are counted and given their states, and mistakes are told in terms of what was written.
#ifndef OSTREL_CELL_EXPRESSION_H
#define OSTREL_CELL_EXPRESSION_H

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace ostrelcell {

class ExpressionError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// How a name is meant.
enum class NameUse {
    value,     // NAME
    previous,  // prev(NAME): as the scan found it
    alarm,     // alarm(NAME): 0 none, 1 alarm, 2 abort, 3 emergency
};

struct ExpressionNames {
    // The identifier for a full name; throws ExpressionError for a name that does not stand for a number.
    std::function<std::string(const std::string& fullName, NameUse use)> identifier;
    std::function<bool(const std::string& name)> is_array;
    // The number of a fresh state for a call.
    std::function<int()> new_state;
    // The value of an index variable of an array's expression, or -1.
    std::function<int(const std::string& name)> indexValue;
};

// Throws ExpressionError.
std::string translateExpression(const std::string& text, const ExpressionNames& names);

}  // namespace ostrelcell

#endif
