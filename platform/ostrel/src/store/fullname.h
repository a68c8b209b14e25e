// What a full name stands for: the forms BASE.EXT and ARRAY:i[:j[:k]] on top of the names that are known as a whole.
#ifndef OSTREL_STORE_FULLNAME_H
#define OSTREL_STORE_FULLNAME_H

#include <optional>
#include <string>
#include <string_view>

#include "store/attachment.h"

// Who knows whole names: the index of a store, or what a server is about to put there.
class KnownNames {
public:
    virtual ~KnownNames() = default;
    virtual std::optional<NameMeaning> find(std::string_view name) const = 0;
};

// The meaning of a name that is not known as a whole: a member of a variable, or an element of an array.
std::optional<NameMeaning> composedMeaning(const Attachment& store, const KnownNames& names, std::string_view name);

// The name with its indexes as plain decimal numbers, however it was written; itself where it is no array element.
std::string canonicalName(const Attachment& store, const KnownNames& names, std::string_view name);

#endif
