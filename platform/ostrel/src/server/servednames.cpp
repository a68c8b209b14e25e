#include "server/servednames.h"

namespace {

// The next table while it is put together.
class Draft {
public:
    NameMeaning& entry(const std::string& name, const NameMeaning& meaning) {
        const auto [place, isNew] = m_places.emplace(name, m_names.size());
        if (isNew)
            m_names.push_back({name, meaning});
        return m_names[place->second].meaning;
    }

    const std::vector<NewName>& names() const { return m_names; }

private:
    std::vector<NewName> m_names;
    std::unordered_map<std::string, size_t> m_places;
};

}  // namespace

std::optional<NameMeaning> ServedNames::find(std::string_view name) const {
    const auto found = m_names.find(std::string(name));
    return found == m_names.end() ? std::nullopt : std::optional(found->second);
}

std::optional<NameMeaning> ServedNames::resolve(std::string_view name) const {
    const auto whole = find(name);
    return whole ? whole : composedMeaning(m_store, *this, name);
}

void ServedNames::add(const std::string& name, int section, int index) {
    const ostrel_section& row = ostrel_sections(nullptr)[section];
    NameMeaning meaning;
    meaning.area = static_cast<uint8_t>(row.area);
    meaning.kind = static_cast<uint8_t>(row.kind);
    meaning.index = static_cast<uint16_t>(index);
    meaning.flags = isName;
    m_names[name] = meaning;
}

void ServedNames::setLimits(const std::string& name, const Limits& limits) {
    const auto alias = m_aliases.find(name);
    m_limits[canonicalName(m_store, *this, alias == m_aliases.end() ? name : alias->second.target)] = limits;
}

void ServedNames::forget(int area) {
    const auto isMeant = [area](const NameMeaning& meaning) { return area == -1 || meaning.area == area; };
    std::erase_if(m_limits, [&](const auto& entry) {
        const auto meaning = resolve(entry.first);
        return !meaning || isMeant(*meaning);
    });
    std::erase_if(m_names, [&](const auto& entry) { return isMeant(entry.second); });
    if (area == -1 || area == ALIAS_MEM)
        m_aliases.clear();
}

std::vector<std::string> ServedNames::dropDangling() {
    std::vector<std::string> dropped;
    std::erase_if(m_aliases, [&](const auto& entry) {
        if (resolve(entry.second.target))
            return false;
        dropped.push_back(entry.first);
        return true;
    });
    return dropped;
}

Shortage ServedNames::publish() const {
    Draft draft;
    std::vector<Limits> limits;
    for (const auto& [name, meaning] : m_names)
        draft.entry(name, meaning);
    for (const auto& [name, ofName] : m_limits) {
        if (const auto meaning = resolve(name)) {
            limits.push_back(ofName);
            draft.entry(canonicalName(m_store, *this, name), *meaning).limits = static_cast<uint32_t>(limits.size());
        }
    }
    for (const auto& [name, alias] : m_aliases) {
        const auto meaning = resolve(alias.target);
        if (!meaning)
            continue;
        NameMeaning& target = draft.entry(canonicalName(m_store, *this, alias.target), *meaning);
        const auto record = static_cast<uint16_t>(alias.index + 1);
        if (target.alias == 0 || alias.primary)
            target.alias = record;
        NameMeaning own = target;
        own.flags = static_cast<uint8_t>(isAlias | (target.flags & isMember));
        own.alias = record;
        draft.entry(name, own);
    }
    return publishNames(m_store.objects(), draft.names(), limits);
}
