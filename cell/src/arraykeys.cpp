// Arrays: shape, labels, values.
#include <algorithm>
#include <cctype>

#include "limitkeys.h"
#include "variablekeys.h"

namespace ostrelcell {

namespace {

constexpr int maxDimensions = 3;
constexpr int maxSize = 2500;
constexpr size_t maxElements = 4'000'000;
constexpr size_t maxLabel = 47;
constexpr size_t maxElementText = 255;

std::optional<unsigned short> readOneSize(const toml::node& node, TableReader& reader) {
    const auto size = node.value_exact<int64_t>();
    if (size && *size >= 1 && *size <= maxSize)
        return static_cast<unsigned short>(*size);
    reader.fault(lineOf(node), "size must be whole numbers between 1 and " + std::to_string(maxSize));
    return std::nullopt;
}

bool readSizes(TableReader& reader, ArrayShape& shape) {
    const toml::node* node = reader.node("size");
    if (node == nullptr) {
        reader.fault(reader.line("size"), "an array needs a size, as in size = 6 or size = [2, 3]");
        return false;
    }
    const toml::array* list = node->as_array();
    if (list == nullptr) {
        const auto size = readOneSize(*node, reader);
        shape.sizes.assign(1, size.value_or(1));
        return size.has_value();
    }
    if (list->empty() || list->size() > maxDimensions) {
        reader.fault(reader.line("size"), "an array has 1 to " + std::to_string(maxDimensions) + " dimensions, not " +
                                              std::to_string(list->size()));
        return false;
    }
    bool good = true;
    for (const toml::node& item : *list) {
        const auto size = readOneSize(item, reader);
        good = good && size.has_value();
        shape.sizes.push_back(size.value_or(1));
    }
    if (good && shape.elements() > maxElements)
        reader.fault(reader.line("size"), "an array has at most " + std::to_string(maxElements) + " elements");
    return good && shape.elements() <= maxElements;
}

void checkLabel(const std::string& label, const std::vector<std::string>& before, int line, TableReader& reader) {
    const std::string quoted = "label \"" + label + "\"";
    if (label.empty() || label.find_first_of(":. ") != std::string::npos)
        reader.fault(line, quoted + " must have at least one character, and no colon, point or blank");
    else if (std::all_of(label.begin(), label.end(), [](char c) { return c >= '0' && c <= '9'; }))
        reader.fault(line, quoted + " reads as a number; an index is a number or a label");
    else if (std::find(before.begin(), before.end(), label) != before.end())
        reader.fault(line, quoted + " stands twice");
}

void readDimensionLabels(const toml::array& list, size_t dimension, TableReader& reader, ArrayShape& shape) {
    if (!list.empty() && list.size() != shape.sizes[dimension]) {
        reader.fault(lineOf(list), "there are " + std::to_string(list.size()) + " labels for " +
                                       std::to_string(shape.sizes[dimension]) + " elements");
        return;
    }
    auto& labels = shape.labels[dimension];
    for (const toml::node& item : list) {
        const auto label = textIn(item, "labels", maxLabel, reader);
        if (!label)
            continue;
        checkLabel(*label, labels, lineOf(item), reader);
        labels.push_back(*label);
    }
}

// A list of labels, or with more than one dimension a list of such lists.
void readLabels(TableReader& reader, ArrayShape& shape) {
    shape.labels.resize(shape.sizes.size());
    const toml::node* node = reader.node("labels");
    if (node == nullptr)
        return;
    const toml::array* list = node->as_array();
    const bool nested = list != nullptr && !list->empty() && list->is_homogeneous(toml::node_type::array);
    if (list == nullptr || (nested && list->size() != shape.sizes.size()) || (!nested && shape.sizes.size() != 1)) {
        reader.fault(reader.line("labels"), "labels must be a list of texts, or one such list for each dimension");
        return;
    }
    if (!nested) {
        readDimensionLabels(*list, 0, reader, shape);
        return;
    }
    for (size_t dimension = 0; dimension < list->size(); ++dimension)
        readDimensionLabels(*(*list)[dimension].as_array(), dimension, reader, shape);
}

double readElementNumber(const toml::node& node, SM_VARI_TYPE kind, TableReader& reader) {
    if (kind == LOGI_ARRAY_TYPE) {
        const auto flag = node.value_exact<bool>();
        if (!flag)
            reader.fault(lineOf(node), std::string("value is ") + typeWords(node) + "; it must be true or false");
        return flag.value_or(false) ? 1 : 0;
    }
    if (kind == INT_ARRAY_TYPE) {
        const auto number = node.value_exact<int64_t>();
        if (!number || *number < INT_MIN || *number > INT_MAX)
            reader.fault(lineOf(node),
                         std::string("value is ") + typeWords(node) + "; it must be a whole number of 32 bits");
        return static_cast<double>(number.value_or(0));
    }
    return numberIn(node, "value", reader).value_or(0);
}

void collectElements(const toml::node& node, std::vector<const toml::node*>& elements) {
    const toml::array* list = node.as_array();
    if (list == nullptr) {
        elements.push_back(&node);
        return;
    }
    for (const toml::node& item : *list)
        collectElements(item, elements);
}

// One value for all elements, or a list of all in row-major order, nested or not.
void readValues(TableReader& reader, Variable& variable) {
    const size_t count = variable.shape.elements();
    const bool texts = variable.kind == STRING_ARRAY_TYPE;
    const toml::node* node = reader.node("value");
    std::vector<const toml::node*> given;
    if (node != nullptr)
        collectElements(*node, given);
    if (node != nullptr && node->is_array() && given.size() != count) {
        reader.fault(reader.line("value"),
                     "value has " + std::to_string(given.size()) + " elements; size asks for " + std::to_string(count));
        given.clear();
    }
    for (const toml::node* item : given) {
        if (texts)
            variable.elementTexts.push_back(textIn(*item, "value", maxElementText, reader).value_or(""));
        else
            variable.values.push_back(readElementNumber(*item, variable.kind, reader));
    }
    if (texts)
        variable.elementTexts.resize(count, given.size() == 1 ? variable.elementTexts.front() : "");
    else
        variable.values.resize(count, given.size() == 1 ? variable.values.front() : 0);
}

}  // namespace

void readArray(TableReader& reader, Variable& variable) {
    if (!readSizes(reader, variable.shape))
        variable.shape.sizes.assign(1, 1);
    readLabels(reader, variable.shape);
    readValues(reader, variable);
    readFormat(reader, variable);
    if (variable.kind == STRING_ARRAY_TYPE)
        return;
    variable.expr = reader.expression("expr");
    if (variable.kind == LOGI_ARRAY_TYPE) {
        readLogicalStates(reader, variable.states);
        return;
    }
    variable.units = reader.units("units").value_or(Units{});
    readRange(reader, variable);
    readValueLimits(reader, variable.limits);
    readAgeLimit(reader, variable.limits);
}

}  // namespace ostrelcell
