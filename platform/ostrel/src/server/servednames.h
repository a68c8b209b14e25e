// The names of a store as its server collects them: variables, aliases, limits.
#ifndef OSTREL_SERVER_SERVEDNAMES_H
#define OSTREL_SERVER_SERVEDNAMES_H

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

#include "store/fullname.h"
#include "store/nameindex.h"

class ServedNames : public KnownNames {
public:
    struct Alias {
        std::string target;
        bool primary;
        int index;  // of its record
    };

    explicit ServedNames(const Attachment& store) : m_store(store) {}

    // The variable of that own name.
    std::optional<NameMeaning> find(std::string_view name) const override;

    // What any full name stands for, an alias aside.
    std::optional<NameMeaning> resolve(std::string_view name) const;

    bool isTaken(const std::string& name) const { return m_names.contains(name) || m_aliases.contains(name); }

    void add(const std::string& name, int section, int index);
    void addAlias(const std::string& name, Alias alias) { m_aliases[name] = std::move(alias); }
    void setLimits(const std::string& name, const Limits& limits);

    // Forgets the names of that area, or all with -1, and the limits of what they stood for.
    void forget(int area);

    // Forgets the aliases that stand for nothing, and gives their names.
    std::vector<std::string> dropDangling();

    const std::map<std::string, Alias>& aliases() const { return m_aliases; }

    // Makes all of it known.
    Shortage publish() const;

private:
    const Attachment& m_store;
    std::unordered_map<std::string, NameMeaning> m_names;
    std::map<std::string, Alias> m_aliases;
    std::unordered_map<std::string, Limits> m_limits;  // by canonical name
};

#endif
