// Reads the keys of one TOML table with the types that are wanted, and says what does not fit.
#ifndef OSTREL_CELL_TABLEREADER_H
#define OSTREL_CELL_TABLEREADER_H

#include <toml++/toml.h>

#include <climits>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "cellmodel.h"
#include "diagnostics.h"

namespace ostrelcell {

int lineOf(const toml::node& node);
int lineOf(const toml::key& key);

class TableReader {
public:
    // `subject` stands before every reason, such as "real.OIL_TEMP".
    TableReader(const toml::table& table, std::string subject, Diagnostics& diagnostics);

    // Each gives nothing where the key is absent, and where it does not fit, which is then reported.
    std::optional<double> number(const std::string& key);
    std::optional<int> integer(const std::string& key, int least = INT_MIN, int most = INT_MAX);
    std::optional<bool> boolean(const std::string& key);
    std::optional<std::string> text(const std::string& key, size_t maxLength);
    Expression expression(const std::string& key);
    std::optional<Units> units(const std::string& key);
    // A status word of colour and blinking from the name of a colour.
    std::optional<short> colour(const std::string& key);

    // The value of a key as it stands, or null.
    const toml::node* node(const std::string& key);
    // The line of a key, or of the table where it has none such.
    int line(const std::string& key) const;

    // Keys that may stand here too and that a mistyped one may be meant for.
    void suggest(const std::vector<std::string>& keys) { m_suggested = keys; }

    void fault(int line, const std::string& reason);
    // Reports each key that was not asked for.
    void reportUnknownKeys();

    const toml::table& table() const { return m_table; }
    const std::string& subject() const { return m_subject; }
    Diagnostics& diagnostics() { return m_diagnostics; }

private:
    const toml::table& m_table;
    std::string m_subject;
    Diagnostics& m_diagnostics;
    std::vector<std::string> m_known;
    std::vector<std::string> m_suggested;

    void wrongType(const std::string& key, const toml::node& found, const char* wanted);
};

// The same for values that stand in a list. Reports under `key` of `reader`.
std::optional<double> numberIn(const toml::node& node, const std::string& key, TableReader& reader);
std::optional<std::string> textIn(const toml::node& node, const std::string& key, size_t maxLength,
                                  TableReader& reader);

// What a TOML value is, in words.
const char* typeWords(const toml::node& node);

}  // namespace ostrelcell

#endif
