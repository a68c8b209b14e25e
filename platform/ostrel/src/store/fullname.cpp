#include "store/fullname.h"

#include "store/arrayshape.h"
#include "store/members.h"

namespace {

std::optional<NameMeaning> baseMeaning(const KnownNames& names, std::string_view base) {
    auto meaning = names.find(base);
    // What is known only as somebody's target is no variable of its own.
    if (!meaning || (meaning->flags & (isName | isAlias)) == 0)
        return std::nullopt;
    return meaning;
}

// The part of a variable has limits and an alias of its own, or none.
NameMeaning part(NameMeaning whole) {
    whole.flags = 0;
    whole.alias = 0;
    whole.limits = 0;
    return whole;
}

std::optional<NameMeaning> memberMeaning(const KnownNames& names, std::string_view name, size_t point) {
    auto base = baseMeaning(names, name.substr(0, point + 1));
    if (!base)
        base = baseMeaning(names, name.substr(0, point));
    if (!base || !hasMembers(base->kind) || (base->flags & isMember) != 0)
        return std::nullopt;
    const int member = memberNumber(base->kind, name.substr(point + 1));
    if (member < 0)
        return std::nullopt;
    NameMeaning meaning = part(*base);
    meaning.flags = isMember;
    meaning.member = static_cast<uint8_t>(member);
    return meaning;
}

// The array that a name with indexes begins with.
std::optional<NameMeaning> arrayMeaning(const KnownNames& names, std::string_view name) {
    const size_t colon = name.find(':');
    if (colon == std::string_view::npos)
        return std::nullopt;
    auto base = baseMeaning(names, name.substr(0, colon));
    return base && isArray(base->kind) && base->element == 0 ? base : std::nullopt;
}

// Cuts the text behind the array's name into positions, one for each dimension.
bool positions(const ArrayShape& shape, std::string_view indexes, size_t (&found)[maxDimensions]) {
    for (int i = 0; i < shape.dimensions; ++i) {
        if (indexes.empty() || indexes.front() != ':')
            return false;
        indexes.remove_prefix(1);
        const std::string_view text = indexes.substr(0, indexes.find(':'));
        const auto position = shape.position(i, text);
        if (!position)
            return false;
        found[i] = *position;
        indexes.remove_prefix(text.size());
    }
    return indexes.empty();
}

std::optional<NameMeaning> elementMeaning(const Attachment& store, const KnownNames& names, std::string_view name) {
    const auto base = arrayMeaning(names, name);
    const auto shape = base ? arrayShape(store, base->kind, base->index) : std::nullopt;
    size_t at[maxDimensions] = {};
    if (!shape || !positions(*shape, name.substr(name.find(':')), at))
        return std::nullopt;
    size_t number = 0;
    for (int i = 0; i < shape->dimensions; ++i)
        number = number * shape->sizes[static_cast<size_t>(i)] + at[i];
    NameMeaning meaning = part(*base);
    meaning.element = static_cast<uint32_t>(number + 1);
    return meaning;
}

}  // namespace

std::optional<NameMeaning> composedMeaning(const Attachment& store, const KnownNames& names, std::string_view name) {
    if (name.size() >= nameBytes)
        return std::nullopt;
    const size_t mark = name.find_first_of(".:");
    if (mark == 0 || mark == std::string_view::npos)
        return std::nullopt;
    return name[mark] == '.' ? memberMeaning(names, name, mark) : elementMeaning(store, names, name);
}

std::string canonicalName(const Attachment& store, const KnownNames& names, std::string_view name) {
    const auto base = arrayMeaning(names, name);
    const auto shape = base ? arrayShape(store, base->kind, base->index) : std::nullopt;
    size_t at[maxDimensions] = {};
    if (!shape || !positions(*shape, name.substr(name.find(':')), at))
        return std::string(name);
    std::string canonical(name.substr(0, name.find(':')));
    for (int i = 0; i < shape->dimensions; ++i)
        canonical.append(":").append(std::to_string(at[i]));
    return canonical;
}
