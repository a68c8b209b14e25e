#include "straycharacter.h"

#include <algorithm>

namespace ostrelcell {

namespace {

// The place behind the quotes that open at `at`, or behind the line or text that they are not closed in.
std::size_t skip_quoted(const std::string& text, std::size_t at) {
    const char quote = text[at];
    const bool long_text = text.compare(at, 3, std::string(3, quote)) == 0;
    const std::string end(long_text ? 3 : 1, quote);
    at += end.size();
    while (at < text.size() && text.compare(at, end.size(), end) != 0) {
        if (text[at] == '\n' && !long_text)
            return at;
        at += quote == '"' && text[at] == '\\' ? 2 : 1;
    }
    at = std::min(at + end.size(), text.size());
    // A long text may end in up to two quotes of its own before those that close it.
    while (long_text && at < text.size() && text[at] == quote)
        ++at;
    return at;
}

}  // namespace

int line_of_stray_character(const std::string& text) {
    const std::string byte_order_mark = "\xEF\xBB\xBF";
    std::size_t at = text.rfind(byte_order_mark, 0) == 0 ? byte_order_mark.size() : 0;
    while (at < text.size()) {
        const char c = text[at];
        if (c == '"' || c == '\'')
            at = skip_quoted(text, at);
        else if (c == '#')
            at = std::min(text.find('\n', at), text.size());
        else if (static_cast<unsigned char>(c) >= 0x80)
            return 1 + static_cast<int>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
        else
            ++at;
    }
    return 0;
}

}  // namespace ostrelcell
