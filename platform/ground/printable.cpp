#include "ground/printable.h"

#include <algorithm>
#include <cstddef>

namespace {

bool isContinuation(unsigned char byte) {
    return (byte & 0xC0U) == 0x80U;
}

// The bytes of the character that begins there; 0 where none does.
size_t lengthAt(const std::string& text, size_t at) {
    const auto byte = [&](size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
    const unsigned first = byte(at);
    const size_t length = first < 0x80 ? 1 : first >= 0xF0 && first < 0xF5 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first >= 0x80 && (first < 0xC2 || first >= 0xF5))
        return 0;
    for (size_t i = 1; i < length; ++i)
        if (!isContinuation(static_cast<unsigned char>(byte(at + i))))
            return 0;
    return length;
}

bool isControl(const std::string& text, size_t at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    return byte < 0x20 || byte == 0x7F || (byte == 0xC2 && static_cast<unsigned char>(text[at + 1]) < 0xA0);
}

}  // namespace

std::string printable(std::string text) {
    for (size_t at = 0; at < text.size();) {
        const size_t length = lengthAt(text, at);
        if (length == 0 || isControl(text, at))
            for (size_t i = 0; i < (length == 0 ? 1 : length); ++i)
                text[at + i] = '?';
        at += length == 0 ? 1 : length;
    }
    return text;
}

std::string printableLines(const std::string& text) {
    std::string result;
    for (size_t start = 0; start <= text.size();) {
        const size_t end = std::min(text.find('\n', start), text.size());
        result += printable(text.substr(start, end - start));
        if (end < text.size())
            result += '\n';
        start = end + 1;
    }
    return result;
}
