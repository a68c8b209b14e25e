#include "tablereader.h"

#include <ostrel/units.h>

#include <algorithm>
#include <cmath>

#include "colours.h"
#include "suggestion.h"

namespace ostrelcell {

int lineOf(const toml::node& node) {
    return static_cast<int>(node.source().begin.line);
}

int lineOf(const toml::key& key) {
    return static_cast<int>(key.source().begin.line);
}

const char* typeWords(const toml::node& node) {
    switch (node.type()) {
        case toml::node_type::table:
            return "a table";
        case toml::node_type::array:
            return "a list";
        case toml::node_type::string:
            return "a text";
        case toml::node_type::integer:
            return "a whole number";
        case toml::node_type::floating_point:
            return "a number";
        case toml::node_type::boolean:
            return "true or false";
        default:
            return "a date or time";
    }
}

TableReader::TableReader(const toml::table& table, std::string subject, Diagnostics& diagnostics)
    : m_table(table), m_subject(std::move(subject)), m_diagnostics(diagnostics) {}

const toml::node* TableReader::node(const std::string& key) {
    m_known.push_back(key);
    return m_table.get(key);
}

int TableReader::line(const std::string& key) const {
    const auto found = m_table.find(key);
    return found == m_table.end() ? lineOf(m_table) : lineOf(found->first);
}

void TableReader::fault(int line, const std::string& reason) {
    m_diagnostics.add(line, m_subject + ": " + reason);
}

void TableReader::wrongType(const std::string& key, const toml::node& found, const char* wanted) {
    fault(line(key), key + " is " + typeWords(found) + "; it must be " + wanted);
}

std::optional<double> numberIn(const toml::node& node, const std::string& key, TableReader& reader) {
    const auto value = node.is_number() ? node.value<double>() : std::nullopt;
    if (!value)
        reader.fault(lineOf(node), key + " is " + typeWords(node) + "; it must be a number");
    else if (!std::isfinite(*value))
        reader.fault(lineOf(node), key + " must be a finite number");
    else
        return value;
    return std::nullopt;
}

std::optional<std::string> textIn(const toml::node& node, const std::string& key, size_t maxLength,
                                  TableReader& reader) {
    const auto value = node.value_exact<std::string>();
    if (!value)
        reader.fault(lineOf(node), key + " is " + typeWords(node) + "; it must be a text");
    else if (value->size() > maxLength)
        reader.fault(lineOf(node), key + " has " + std::to_string(value->size()) + " characters; at most " +
                                       std::to_string(maxLength) + " are kept");
    else
        return value;
    return std::nullopt;
}

std::optional<double> TableReader::number(const std::string& key) {
    const toml::node* found = node(key);
    return found == nullptr ? std::nullopt : numberIn(*found, key, *this);
}

std::optional<int> TableReader::integer(const std::string& key, int least, int most) {
    const toml::node* found = node(key);
    if (found == nullptr)
        return std::nullopt;
    const auto value = found->value_exact<int64_t>();
    if (!value)
        wrongType(key, *found, "a whole number");
    else if (*value < least || *value > most)
        fault(line(key), key + " is " + std::to_string(*value) + "; it must lie between " + std::to_string(least) +
                             " and " + std::to_string(most));
    else
        return static_cast<int>(*value);
    return std::nullopt;
}

std::optional<bool> TableReader::boolean(const std::string& key) {
    const toml::node* found = node(key);
    if (found == nullptr)
        return std::nullopt;
    const auto value = found->value_exact<bool>();
    if (!value)
        wrongType(key, *found, "true or false");
    return value;
}

std::optional<std::string> TableReader::text(const std::string& key, size_t maxLength) {
    const toml::node* found = node(key);
    return found == nullptr ? std::nullopt : textIn(*found, key, maxLength, *this);
}

Expression TableReader::expression(const std::string& key) {
    const toml::node* found = node(key);
    if (found == nullptr)
        return {};
    const auto value = found->value_exact<std::string>();
    if (!value) {
        wrongType(key, *found, "an expression in quotes");
        return {};
    }
    if (value->find_first_not_of(" \t\r\n") == std::string::npos) {
        fault(line(key), key + " is empty");
        return {};
    }
    return {*value, line(key)};
}

std::optional<Units> TableReader::units(const std::string& key) {
    const auto keyword = text(key, 15);
    if (!keyword)
        return std::nullopt;
    if (keyword->empty())
        return Units{};
    Units result{*keyword, 0};
    if (units_keyword_to_code(result.keyword.data(), &result.code) == 0)
        return result;
    fault(line(key), "unknown units \"" + *keyword + "\"");
    return std::nullopt;
}

std::optional<short> TableReader::colour(const std::string& key) {
    const auto name = text(key, 79);
    if (!name)
        return std::nullopt;
    const auto code = colourCode(*name);
    if (!code)
        fault(line(key), "unknown colour \"" + *name + "\"; use one of " + colourList());
    return code;
}

void TableReader::reportUnknownKeys() {
    std::vector<std::string> candidates = m_known;
    candidates.insert(candidates.end(), m_suggested.begin(), m_suggested.end());
    for (const auto& [key, value] : m_table) {
        const std::string name(key.str());
        if (std::find(m_known.begin(), m_known.end(), name) == m_known.end())
            fault(lineOf(key), "unknown key \"" + name + "\"" + didYouMean(name, candidates));
    }
}

}  // namespace ostrelcell
