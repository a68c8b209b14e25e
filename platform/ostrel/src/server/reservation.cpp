#include "server/reservation.h"

#include <cstring>
#include <unordered_set>

#include "rawnumber.h"
#include "store/layout.h"

namespace {

bool isIdentifier(std::string_view text) {
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; };
    if (text.empty() || !isLetter(text.front()))
        return false;
    for (const char c : text)
        if (!isLetter(c) && !(c >= '0' && c <= '9'))
            return false;
    return true;
}

std::string problemOf(const ostrel_server_variable& variable, int kind) {
    if (isArray(kind) && givenShape(variable.dimensions, variable.sizes).elementCount() == 0)
        return noSuchShape;
    if (kind == ALIAS_TYPE && (!variable.target || strnlen(variable.target, nameBytes) >= nameBytes))
        return targetIsTooLong;
    return problemOfName(variable.label, hasMembers(kind));
}

}  // namespace

std::string problemOfName(std::string_view name, bool endsInPoint) {
    if (name.size() >= nameBytes)
        return "is too long for a name; it may have 79 characters";
    if (endsInPoint && !name.ends_with('.'))
        return "is no name of a variable with members; it must end in a point";
    if (endsInPoint)
        name.remove_suffix(1);
    if (!isIdentifier(name))
        return "is no name; use letters, digits and underscores, with no digit at the start";
    return "";
}

ArrayShape givenShape(int dimensions, const unsigned short* sizes) {
    ArrayShape shape;
    shape.dimensions = sizes ? dimensions : 0;
    for (int i = 0; i < shape.dimensions && i < maxDimensions; ++i)
        shape.sizes[static_cast<size_t>(i)] = sizes[i];
    return shape;
}

bool reserveVariables(ostrel_server& server, std::span<const ostrel_server_variable> variables, std::string& culprit,
                      std::string& problem) {
    std::unordered_set<std::string> names;
    std::vector<WantedVariable> wanted;
    size_t aliases = 0;
    for (const ostrel_server_variable& variable : variables) {
        const int kind = rawNumber(&variable.kind);
        const int section = sectionNumber(rawNumber(&variable.area), kind);
        culprit = variable.label ? variable.label : "";
        problem = section < 0 ? "its area has no section for its kind" : problemOf(variable, kind);
        if (problem.empty() && !names.insert(culprit).second)
            problem = nameStandsAlready;
        if (!problem.empty())
            return false;
        aliases += kind == ALIAS_TYPE;
        wanted.push_back(
            {section, culprit, isArray(kind) ? givenShape(variable.dimensions, variable.sizes) : ArrayShape{}});
    }
    if (!server.records->reserve(wanted, culprit, problem))
        return false;
    // The target of an alias may be a member or an element, with a name of its own.
    const Shortage shortage = reserveNames(server.store->objects(), variables.size() + aliases, variables.size());
    if (!shortage)
        return true;
    server.records->unreserve();
    culprit = "the names";
    problem = describe(shortage);
    return false;
}
