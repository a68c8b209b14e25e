// What a command has to say, as a tree of values, and its text in JSON.
#ifndef OSTREL_TOOLS_JSON_H
#define OSTREL_TOOLS_JSON_H

#include <concepts>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

class Json {
public:
    using Array = std::vector<Json>;
    using Object = std::vector<std::pair<std::string, Json>>;  // in the order in which it was filled

    Json();
    ~Json();
    Json(const Json&);
    Json(Json&&) noexcept;
    Json& operator=(const Json&);
    Json& operator=(Json&&) noexcept;

    Json(bool value) : m_value(value) {}
    Json(double value) : m_value(value) {}
    template <std::integral Integer>
    requires(!std::same_as<Integer, bool>) Json(Integer value) : m_value(static_cast<long long>(value)) {}
    Json(std::string value) : m_value(std::move(value)) {}
    Json(std::string_view value) : m_value(std::string(value)) {}
    Json(const char* value) : m_value(std::string(value)) {}
    Json(Array value);
    Json(Object value);

    const Array* array() const { return std::get_if<Array>(&m_value); }
    const Object* object() const { return std::get_if<Object>(&m_value); }

    // One line of JSON. A number that JSON cannot hold becomes null, a byte that is no UTF-8 U+FFFD.
    std::string text() const;

    // A value as people read it: a text without quotes, yes or no; empty for null.
    std::string plainText() const;

private:
    void appendTo(std::string& text) const;

    std::variant<std::monostate, bool, long long, double, std::string, Array, Object> m_value;
};

#endif
