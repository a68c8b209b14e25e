#include "scripted/platform.h"

#include <algorithm>

namespace scripted {

Platform& platform() {
    static auto* const instance = new Platform;
    return *instance;
}

void Platform::reset() {
    forgetCalls();
    const std::lock_guard lock(m_mutex);
    m_answers.clear();
    m_standingAnswers.clear();
    m_firstSlot = m_slots.size();
    m_names.clear();
    m_aliases.clear();
    m_factors.clear();
    m_keywords.clear();
    m_limits.clear();
    m_areas.reset();
}

Slot& Platform::addSlot(const char* label, SM_AREA_ID area, SM_VARI_TYPE kind, size_t size) {
    auto slot = std::make_unique<Slot>();
    slot->label = QString::fromUtf8(label);
    slot->mem.code = area;
    slot->mem.index = static_cast<short>(m_slots.size());
    slot->mem.vari_type = kind;
    slot->size = size;
    slot->records.push_back(std::make_unique<char[]>(size));
    m_names[slot->label] = slot->mem;
    m_slots.push_back(std::move(slot));
    return *m_slots.back();
}

void Platform::alias(const char* alias, const char* target) {
    const SHARED_MEMORY targetHandle = handle(QString::fromUtf8(target));
    Slot& slot = addSlot(alias, ALIAS_MEM, ALIAS_TYPE, sizeof(ALIAS_VARIABLE));
    auto* record = reinterpret_cast<ALIAS_VARIABLE*>(slot.record());
    put(record->alias, alias);
    put(record->var.label, target);
    record->var.mem = targetHandle;
    m_aliases[slot.label] = &slot;
    m_names[slot.label] = targetHandle;
}

void Platform::remove(const char* name) {
    m_names.erase(QString::fromUtf8(name));
    m_aliases.erase(QString::fromUtf8(name));
}

void Platform::move(const char* label) {
    Slot* slot = slotNamed(QString::fromUtf8(label));
    auto copy = std::make_unique<char[]>(slot->size);
    std::memcpy(copy.get(), slot->record(), slot->size);
    slot->records.push_back(std::move(copy));
}

SHARED_MEMORY& Platform::handle(const QString& name) {
    return m_names[name];
}

void Platform::converts(const char* from, const char* to, double factor) {
    m_factors[QString::fromLatin1(from) + QLatin1Char('>') + QString::fromLatin1(to)] = factor;
}

void Platform::compatible(const char* units, const QStringList& keywords) {
    m_keywords[QString::fromLatin1(units)] = keywords;
}

void Platform::answer(const char* function, const QVector<int>& codes) {
    const std::lock_guard lock(m_mutex);
    std::deque<int>& queue = m_answers[QString::fromLatin1(function)];
    queue.insert(queue.end(), codes.begin(), codes.end());
}

void Platform::alwaysAnswer(const char* function, int code) {
    const std::lock_guard lock(m_mutex);
    m_standingAnswers[QString::fromLatin1(function)] = code;
}

bool Platform::hasAnswer(const char* function, int* code) {
    const std::lock_guard lock(m_mutex);
    const QString name = QString::fromLatin1(function);
    std::deque<int>& queue = m_answers[name];
    if (!queue.empty()) {
        *code = queue.front();
        queue.pop_front();
        return true;
    }
    if (!m_standingAnswers.contains(name))
        return false;
    *code = m_standingAnswers.value(name);
    return true;
}

void Platform::record(const QString& line) {
    const std::lock_guard lock(m_mutex);
    m_calls.push_back({std::this_thread::get_id() == m_testThread, line});
}

QStringList Platform::lines(bool ofTest, const QStringList& functions) const {
    const std::lock_guard lock(m_mutex);
    QStringList result;
    for (const Call& call : m_calls) {
        const QString function = call.line.section(QLatin1Char(' '), 0, 0);
        if (call.ofTest == ofTest && (functions.isEmpty() || functions.contains(function)))
            result.append(call.line);
    }
    return result;
}

QStringList Platform::calls() const {
    return lines(true, {});
}

QStringList Platform::calls(const QStringList& functions) const {
    return lines(true, functions);
}

QStringList Platform::threadCalls() const {
    return lines(false, {});
}

QStringList Platform::threadCalls(const QStringList& functions) const {
    return lines(false, functions);
}

void Platform::forgetCalls() {
    const std::lock_guard lock(m_mutex);
    m_calls.clear();
}

const SHARED_MEMORY* Platform::find(const QString& name) const {
    const auto found = m_names.find(name);
    return found == m_names.end() ? nullptr : &found->second;
}

Slot* Platform::aliasSlot(const QString& alias) {
    const auto found = m_aliases.find(alias);
    return found == m_aliases.end() ? nullptr : found->second;
}

Slot* Platform::aliasOfTarget(const QString& target) {
    for (const auto& [alias, slot] : m_aliases)
        if (target == QLatin1String(reinterpret_cast<ALIAS_VARIABLE*>(slot->record())->var.label))
            return slot;
    return nullptr;
}

Slot* Platform::slotOf(const SHARED_MEMORY& mem) {
    // A test may have given a variable a place of its own in an area.
    for (size_t i = m_firstSlot; i < m_slots.size(); ++i)
        if (m_slots[i]->mem.code == mem.code && m_slots[i]->mem.index == mem.index)
            return m_slots[i].get();
    const auto index = static_cast<size_t>(mem.index);
    if (mem.code == UNDEFINED || index < m_firstSlot || index >= m_slots.size())
        return nullptr;
    return m_slots[index].get();
}

Slot* Platform::slotAt(const void* record) {
    for (const auto& slot : m_slots)
        for (const auto& block : slot->records)
            if (block.get() == record)
                return slot.get();
    return nullptr;
}

Slot* Platform::slotNamed(const QString& label) {
    const auto found = std::find_if(m_slots.rbegin(), m_slots.rend(), [&](const auto& s) { return s->label == label; });
    return found == m_slots.rend() ? nullptr : found->get();
}

bool Platform::convert(double value, const char* from, double* result, const char* to) const {
    const auto found = m_factors.find(QString::fromLatin1(from) + QLatin1Char('>') + QString::fromLatin1(to));
    if (found == m_factors.end())
        return false;
    *result = value * found->second;
    return true;
}

const QStringList* Platform::keywords(const char* units) const {
    const auto found = m_keywords.find(QString::fromLatin1(units));
    return found == m_keywords.end() ? nullptr : &found.value();
}

}  // namespace scripted
