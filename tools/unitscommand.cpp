#include <ostrel/units.h>

#include <algorithm>
#include <cstdio>

#include "commands.h"
#include "failure.h"
#include "fieldtext.h"
#include "json.h"
#include "suggestion.h"

namespace {

// The platform numbers its own keywords below 10000; those of a site follow.
std::vector<std::string> allKeywords() {
    constexpr int lastCode = 20000;
    std::vector<std::string> keywords;
    for (int code = 1; code <= lastCode; ++code) {
        UNITS_NAME keyword = "";
        if (units_code_to_keyword(code, keyword) == 0)
            keywords.push_back(fieldText(keyword));
    }
    return keywords;
}

std::vector<std::string> compatible(std::string keyword) {
    std::vector<std::string> keywords;
    UNITS_NAME found[1024];
    short int count = std::size(found);
    if (LV_get_units(keyword.data(), &count, found) != 0) {
        throw Failure(keyword + ": no such unit keyword" +
                      didYouMean(keyword, allKeywords(), "; 'ostrel units' lists all"));
    }
    for (int i = 0; i < count; ++i)
        keywords.push_back(fieldText(found[i]));
    return keywords;
}

}  // namespace

int unitsCommand(const std::string& keyword, bool json) {
    const auto keywords = keyword.empty() ? allKeywords() : compatible(keyword);
    if (json) {
        std::puts(Json(Json::Array(keywords.begin(), keywords.end())).text().c_str());
        return 0;
    }
    for (const std::string& each : keywords)
        std::puts(each.c_str());
    return 0;
}
