#include "store/arrayshape.h"

#include <ostrel/records.h>

#include <algorithm>
#include <cstring>

namespace {

// Calls work() with the record as what it is; the four kinds keep the same fields in different places.
template <typename Work>
auto withArrayRecord(char* record, int kind, Work work) {
    switch (kind) {
        case INT_ARRAY_TYPE:
            return work(*reinterpret_cast<INTEGER_ARRAY_VARIABLE*>(record));
        case STRING_ARRAY_TYPE:
            return work(*reinterpret_cast<STRING_ARRAY_VARIABLE*>(record));
        case LOGI_ARRAY_TYPE:
            return work(*reinterpret_cast<LOGICAL_ARRAY_VARIABLE*>(record));
        default:
            return work(*reinterpret_cast<REAL_ARRAY_VARIABLE*>(record));
    }
}

std::optional<size_t> decimal(std::string_view text) {
    if (text.empty() || text.size() > 9)
        return std::nullopt;
    size_t number = 0;
    for (const char c : text) {
        if (c < '0' || c > '9')
            return std::nullopt;
        number = number * 10 + static_cast<size_t>(c - '0');
    }
    return number;
}

}  // namespace

size_t ArrayShape::elementCount() const {
    if (dimensions < 1 || dimensions > maxDimensions)
        return 0;
    size_t count = 1;
    for (int i = 0; i < dimensions; ++i) {
        const size_t size = sizes[static_cast<size_t>(i)];
        if (size < 1 || size > maxDimensionSize)
            return 0;
        count *= size;
    }
    return count;
}

std::optional<size_t> ArrayShape::position(int dimension, std::string_view text) const {
    const auto d = static_cast<size_t>(dimension);
    if (const auto number = decimal(text))
        return *number < sizes[d] ? number : std::nullopt;
    if (text.empty() || text.size() >= enumLabelBytes)
        return std::nullopt;
    const size_t known = std::min(labelCounts[d], sizes[d]);
    for (size_t i = 0; i < known; ++i) {
        const char* label = labels[d][i];
        if (text == std::string_view(label, strnlen(label, enumLabelBytes)))
            return i;
    }
    return std::nullopt;
}

ArrayShape shapeInRecord(const char* record, int kind) {
    return withArrayRecord(const_cast<char*>(record), kind, [](const auto& array) {
        ArrayShape shape;
        shape.dimensions = array.num_dimensions;
        std::memcpy(shape.sizes.data(), array.dimension_size, sizeof array.dimension_size);
        std::memcpy(shape.labelCounts.data(), array.enum_size, sizeof array.enum_size);
        shape.labels = array.enum_labels;
        return shape;
    });
}

void writeShape(char* record, int kind, const ArrayShape& shape) {
    withArrayRecord(record, kind, [&](auto& array) {
        array.num_dimensions = static_cast<unsigned short>(shape.dimensions);
        std::memcpy(array.dimension_size, shape.sizes.data(), sizeof array.dimension_size);
    });
}

std::optional<ArrayShape> arrayShape(const Attachment& store, int kind, int index) {
    const char* record = store.record(arraySectionNumber(kind), index);
    if (!record)
        return std::nullopt;
    const ArrayShape shape = shapeInRecord(record, kind);
    const size_t count = shape.elementCount();
    if (count == 0 || count > store.elements(kind, index).count)
        return std::nullopt;
    return shape;
}
