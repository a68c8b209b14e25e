#include "json.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace {

// The length of the UTF-8 sequence at the start of `text`, 0 where there is none. Overlong forms and surrogates are
// none.
size_t sequenceLength(std::string_view text) {
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(0);
    if (first < 0x80)
        return 1;
    const size_t length = first >= 0xC2 && first < 0xE0   ? 2
                          : (first & 0xF0) == 0xE0        ? 3
                          : first >= 0xF0 && first < 0xF5 ? 4
                                                          : 0;
    if (length == 0 || text.size() < length)
        return 0;
    for (size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return 0;
    }
    const unsigned char second = byte(1);
    const bool outside = (first == 0xE0 && second < 0xA0) || (first == 0xED && second >= 0xA0) ||
                         (first == 0xF0 && second < 0x90) || (first == 0xF4 && second >= 0x90);
    return outside ? 0 : length;
}

void appendEscaped(std::string& text, unsigned char character) {
    constexpr std::string_view shortForms = "\b\f\n\r\t\"\\";
    const size_t at = shortForms.find(static_cast<char>(character));
    if (at != std::string_view::npos) {
        text += '\\';
        text += "bfnrt\"\\"[at];
    } else if (character < 0x20 || character == 0x7F) {
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\u%04x", character);
        text += escape;
    } else {
        text += static_cast<char>(character);
    }
}

void appendText(std::string& text, std::string_view value) {
    text += '"';
    while (!value.empty()) {
        const size_t length = sequenceLength(value);
        if (length == 0)
            text += "\xEF\xBF\xBD";
        else if (length == 1)
            appendEscaped(text, static_cast<unsigned char>(value[0]));
        else
            text += value.substr(0, length);
        value.remove_prefix(length == 0 ? 1 : length);
    }
    text += '"';
}

std::string shortest(double value) {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return {digits, end};
}

}  // namespace

Json::Json() = default;
Json::~Json() = default;
Json::Json(const Json&) = default;
Json::Json(Json&&) noexcept = default;
Json& Json::operator=(const Json&) = default;
Json& Json::operator=(Json&&) noexcept = default;
Json::Json(Array value) : m_value(std::move(value)) {}
Json::Json(Object value) : m_value(std::move(value)) {}

void Json::appendTo(std::string& text) const {
    if (const auto* flag = std::get_if<bool>(&m_value)) {
        text += *flag ? "true" : "false";
    } else if (const auto* integer = std::get_if<long long>(&m_value)) {
        text += std::to_string(*integer);
    } else if (const auto* real = std::get_if<double>(&m_value)) {
        text += std::isfinite(*real) ? shortest(*real) : "null";
    } else if (const auto* words = std::get_if<std::string>(&m_value)) {
        appendText(text, *words);
    } else if (const auto* items = array()) {
        const char* separator = "[";
        for (const Json& item : *items) {
            text += std::exchange(separator, ",");
            item.appendTo(text);
        }
        text += items->empty() ? "[]" : "]";
    } else if (const auto* members = object()) {
        const char* separator = "{";
        for (const auto& [name, member] : *members) {
            text += std::exchange(separator, ",");
            appendText(text, name);
            text += ':';
            member.appendTo(text);
        }
        text += members->empty() ? "{}" : "}";
    } else {
        text += "null";
    }
}

std::string Json::text() const {
    std::string text;
    appendTo(text);
    return text;
}

std::string Json::plainText() const {
    if (std::holds_alternative<std::monostate>(m_value))
        return {};
    if (const auto* words = std::get_if<std::string>(&m_value))
        return *words;
    if (const auto* flag = std::get_if<bool>(&m_value))
        return *flag ? "yes" : "no";
    if (const auto* real = std::get_if<double>(&m_value))
        return shortest(*real);
    return text();
}
