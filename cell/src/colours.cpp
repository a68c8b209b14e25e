#include "colours.h"

namespace ostrelcell {

namespace {

struct Colour {
    const char* name;
    short code;
};

constexpr Colour colours[] = {{"none", colour_none},     {"blue", 256},       {"green", 512},
                              {"cyan", colour_cyan},     {"red", colour_red}, {"magenta", 1280},
                              {"yellow", colour_yellow}, {"white", 1792}};

}  // namespace

std::optional<short> colour_code(const std::string& name) {
    for (const Colour& colour : colours)
        if (name == colour.name)
            return colour.code;
    return std::nullopt;
}

const std::string& colour_list() {
    static const std::string list = [] {
        std::string text;
        for (const Colour& colour : colours)
            text += (text.empty() ? "" : ", ") + std::string(colour.name);
        return text;
    }();
    return list;
}

}  // namespace ostrelcell
