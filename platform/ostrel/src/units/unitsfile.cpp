#include "units/unitsfile.h"

#include <ostrel/log.h>

#include <charconv>
#include <fstream>
#include <sstream>
#include <string>

#include "units/unitsdatabase.h"
#include "units/unitstable.h"

namespace {

struct Line {
    std::string keyword;
    std::string code;
    std::string group;
    std::string expression;
};

// False for a line that is empty but for blanks and a comment.
bool split(std::string text, Line& line) {
    text.erase(std::min(text.find('#'), text.size()));
    std::istringstream words(text);
    if (!(words >> line.keyword))
        return false;
    words >> line.code >> line.group >> std::ws;
    std::getline(words, line.expression);
    line.expression.erase(line.expression.find_last_not_of(" \t\r") + 1);
    return true;
}

bool isPlain(const std::string& word) {
    for (char c : word) {
        if (c <= ' ' || c > '~')
            return false;
    }
    return true;
}

// Null for an expression that fits the group, or that nobody can check because there is no database.
const char* faultOfExpression(const std::string& expression, const Unit* firstOfGroup) {
    if (!unitsDatabaseIsReadable())
        return nullptr;
    if (!isUnitExpression(expression))
        return "UDUNITS does not understand the expression; write one such as 1e-3 Pa.s";
    if (firstOfGroup && !makeConverter(expression, firstOfGroup->expression))
        return "the expression has another dimension than the group; choose the group that it converts to";
    return nullptr;
}

// Null when the line was added, else what is wrong with it.
const char* addLine(const Line& line, UnitsCatalogue& catalogue) {
    if (line.expression.empty())
        return "incomplete; write KEYWORD CODE GROUP EXPRESSION";
    if (!isPlain(line.keyword) || !isPlain(line.group))
        return "keyword and group are plain ASCII";
    int code = 0;
    const char* end = line.code.data() + line.code.size();
    const auto read = std::from_chars(line.code.data(), end, code);
    if (read.ec != std::errc() || read.ptr != end || code < firstSiteCode)
        return "the code of a site's keyword is a number from 10000 on";
    if (const char* fault = faultOfExpression(line.expression, catalogue.firstOfGroup(line.group)))
        return fault;
    return catalogue.add(line.keyword, code, line.group, line.expression);
}

}  // namespace

void addUnitsOfFile(const char* path, UnitsCatalogue& catalogue) {
    std::ifstream file(path);
    std::string text;
    if (!file || file.peek() == std::ifstream::traits_type::eof()) {
        log_error("unitsfile.cpp", __LINE__, 1, -1, "units: %s: cannot be read or is empty; correct OSTREL_UNITS",
                  path);
    }
    for (int number = 1; std::getline(file, text); ++number) {
        Line line;
        if (!split(text, line))
            continue;
        if (const char* fault = addLine(line, catalogue)) {
            log_error("unitsfile.cpp", __LINE__, 1, -1, "units: %s:%d: %s: %s", path, number, line.keyword.c_str(),
                      fault);
        }
    }
}
