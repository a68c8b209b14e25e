#include "colours.h"

namespace ostrelcell {

namespace {

struct Colour {
    const char* name;
    short code;
};

constexpr Colour colours[] = {{"none", colourNone}, {"blue", 256},     {"green", 512},           {"cyan", colourCyan},
                              {"red", colourRed},   {"magenta", 1280}, {"yellow", colourYellow}, {"white", 1792}};

}  // namespace

std::optional<short> colourCode(const std::string& name) {
    for (const Colour& colour : colours)
        if (name == colour.name)
            return colour.code;
    return std::nullopt;
}

const std::string& colourList() {
    static const std::string list = [] {
        std::string text;
        for (const Colour& colour : colours)
            text += (text.empty() ? "" : ", ") + std::string(colour.name);
        return text;
    }();
    return list;
}

}  // namespace ostrelcell
