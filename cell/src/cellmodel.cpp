#include "cellmodel.h"

#include <ostrel/store.h>

#include <algorithm>

namespace ostrelcell {

namespace {

struct KindWord {
    const char* word;
    SM_VARI_TYPE kind;
};

constexpr KindWord kinds[] = {
    {"real", REAL_TYPE},
    {"integer", INT_TYPE},
    {"logical", LOGI_TYPE},
    {"string", STRING_TYPE},
    {"stat", STAT_TYPE},
    {"composition", COMP_TYPE},
    {"property", PROP_TYPE},
    {"emission", EMIS_TYPE},
    {"real_array", REAL_ARRAY_TYPE},
    {"integer_array", INT_ARRAY_TYPE},
    {"logical_array", LOGI_ARRAY_TYPE},
    {"string_array", STRING_ARRAY_TYPE},
};

}  // namespace

bool Limits::any() const {
    return std::any_of(rules.begin(), rules.end(), [](const LimitRule& rule) { return rule.exists; });
}

bool WriteRule::allows(double number) const {
    return (!least || number >= *least) && (!most || number <= *most);
}

size_t ArrayShape::elements() const {
    size_t count = 1;
    for (unsigned short size : sizes)
        count *= size;
    return count;
}

std::vector<int> ArrayShape::indexes(size_t position) const {
    std::vector<int> result(sizes.size());
    for (size_t dimension = sizes.size(); dimension-- > 0;) {
        result[dimension] = static_cast<int>(position % sizes[dimension]);
        position /= sizes[dimension];
    }
    return result;
}

std::string Variable::label() const {
    return hasMembers(kind) ? name + "." : name;
}

std::string CellModel::fullName(ValueRef ref) const {
    const Variable& variable = variables[static_cast<size_t>(ref.variable)];
    std::string text = variable.label();
    if (ref.part < 0)
        return text;
    if (hasMembers(variable.kind))
        return text + ostrel_member_name(variable.kind, ref.part);
    for (int index : variable.shape.indexes(static_cast<size_t>(ref.part)))
        text += ":" + std::to_string(index);
    return text;
}

bool hasMembers(SM_VARI_TYPE kind) {
    return kind == STAT_TYPE || kind == COMP_TYPE || kind == PROP_TYPE || kind == EMIS_TYPE;
}

bool is_array(SM_VARI_TYPE kind) {
    return kind == REAL_ARRAY_TYPE || kind == INT_ARRAY_TYPE || kind == LOGI_ARRAY_TYPE || kind == STRING_ARRAY_TYPE;
}

bool isText(SM_VARI_TYPE kind) {
    return kind == STRING_TYPE || kind == STRING_ARRAY_TYPE;
}

const char* kindWord(SM_VARI_TYPE kind) {
    for (const KindWord& entry : kinds)
        if (entry.kind == kind)
            return entry.word;
    return "";
}

SM_VARI_TYPE kindOfWord(const std::string& word) {
    for (const KindWord& entry : kinds)
        if (word == entry.word)
            return entry.kind;
    return UNDEFINED_VAR_TYPE;
}

const std::vector<std::string>& kindWords() {
    static const std::vector<std::string> words = [] {
        std::vector<std::string> list;
        for (const KindWord& entry : kinds)
            list.emplace_back(entry.word);
        return list;
    }();
    return words;
}

}  // namespace ostrelcell
