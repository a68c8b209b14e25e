#include "straycharacter.h"

#include <algorithm>
#include <cstddef>

namespace ostrelcell {

namespace {

// The place behind the quotes that open at `at`, or behind the line or text that they are not closed in.
size_t skipQuoted(const std::string& text, size_t at) {
    const char quote = text[at];
    const bool longText = text.compare(at, 3, std::string(3, quote)) == 0;
    const std::string end(longText ? 3 : 1, quote);
    at += end.size();
    while (at < text.size() && text.compare(at, end.size(), end) != 0) {
        if (text[at] == '\n' && !longText)
            return at;
        at += quote == '"' && text[at] == '\\' ? 2 : 1;
    }
    at = std::min(at + end.size(), text.size());
    // A long text may end in up to two quotes of its own before those that close it.
    while (longText && at < text.size() && text[at] == quote)
        ++at;
    return at;
}

}  // namespace

int lineOfStrayCharacter(const std::string& text) {
    const std::string byteOrderMark = "\xEF\xBB\xBF";
    size_t at = text.rfind(byteOrderMark, 0) == 0 ? byteOrderMark.size() : 0;
    while (at < text.size()) {
        const char c = text[at];
        if (c == '"' || c == '\'')
            at = skipQuoted(text, at);
        else if (c == '#')
            at = std::min(text.find('\n', at), text.size());
        else if (static_cast<unsigned char>(c) >= 0x80)
            return 1 + static_cast<int>(std::count(text.begin(), text.begin() + static_cast<ptrdiff_t>(at), '\n'));
        else
            ++at;
    }
    return 0;
}

}  // namespace ostrelcell
