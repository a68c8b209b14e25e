// The shape of an array, read from its record and checked against the elements that it has.
#ifndef OSTREL_STORE_ARRAYSHAPE_H
#define OSTREL_STORE_ARRAYSHAPE_H

#include <array>
#include <optional>
#include <string_view>

#include "store/attachment.h"

inline constexpr int maxDimensions = 3;
inline constexpr size_t maxDimensionSize = 2500;
inline constexpr size_t enumLabelBytes = 48;

struct ArrayShape {
    int dimensions = 0;
    std::array<unsigned short, maxDimensions> sizes{};
    std::array<unsigned short, maxDimensions> labelCounts{};  // enumeration labels that a dimension has
    const char (*labels)[maxDimensionSize][enumLabelBytes] = nullptr;

    // The number of elements, or 0 for sizes that no array can have.
    size_t elementCount() const;

    // The position in one dimension that `text` names, by a decimal number or a label; nothing for none.
    std::optional<size_t> position(int dimension, std::string_view text) const;
};

// Nothing where the slot holds no array, or one whose sizes do not fit its elements.
std::optional<ArrayShape> arrayShape(const Attachment& store, int kind, int index);

// The shape that stands in a record, unchecked.
ArrayShape shapeInRecord(const char* record, int kind);
void writeShape(char* record, int kind, const ArrayShape& shape);

#endif
