#include "scan.h"

#include <ostrel/store.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>

#include "ground/fieldtext.h"
#include "limitstate.h"
#include "names.h"

namespace ostrelcell {

namespace {

constexpr size_t noText = static_cast<size_t>(-1);

bool isLogical(SM_VARI_TYPE kind) {
    return kind == LOGI_TYPE || kind == LOGI_ARRAY_TYPE;
}

bool needsJudging(const Variable& variable) {
    if (hasMembers(variable.kind) || isText(variable.kind))
        return false;
    return variable.limits.any() || variable.limits.normalStatus != 0 ||
           (isLogical(variable.kind) && variable.states.coloured());
}

}  // namespace

Scan::Scan(const CellModel& model, Simulation& simulation, const StoreContents& contents)
    : m_model(model), m_simulation(simulation) {
    for (const Simulation::Input& input : simulation.inputs())
        m_inputs.push_back(contents.value(model, input.ref));
    for (const Simulation::Output& output : simulation.outputs()) {
        const Variable& variable = model.variables[static_cast<size_t>(output.ref.variable)];
        m_outputs.push_back(contents.value(model, output.ref));
        m_textOfOutput.push_back(variable.kind == STRING_TYPE ? m_texts.size() : noText);
        if (variable.kind == STRING_TYPE)
            m_texts.push_back({static_cast<STRING_VARIABLE*>(m_outputs.back().record()), &variable.texts, noText});
    }
    addLimited(contents);
    addStats(contents);
    std::string why;
    if (const auto reset = resolveName(model, model.latchReset, why))
        m_latchReset = static_cast<LOGICAL_VARIABLE*>(contents.placed(reset->variable).record);
}

void Scan::addLimited(const StoreContents& contents) {
    for (size_t index = 0; index < m_model.variables.size(); ++index) {
        const Variable& variable = m_model.variables[index];
        const int number = static_cast<int>(index);
        const int first = is_array(variable.kind) ? 0 : -1;
        const int end = is_array(variable.kind) ? static_cast<int>(variable.shape.elements()) : 0;
        if (isText(variable.kind) || hasMembers(variable.kind))
            continue;
        for (int part = first; part < end; ++part) {
            const RecordValue value = contents.value(m_model, {number, part});
            if (needsJudging(variable)) {
                m_limited.push_back({value, &variable, part, {}});
                continue;
            }
            // An earlier cell may have left it coloured.
            value.setStatus(0);
            value.setLimitWord(0);
        }
    }
}

void Scan::addStats(const StoreContents& contents) {
    for (size_t index = 0; index < m_model.variables.size(); ++index) {
        const Variable& variable = m_model.variables[index];
        std::string why;
        if (variable.kind != STAT_TYPE)
            continue;
        if (const auto source = resolveName(m_model, variable.stat.source, why))
            m_stats.push_back({static_cast<STAT_VARIABLE*>(contents.placed(static_cast<int>(index)).record), &variable,
                               contents.value(m_model, *source),
                               std::make_unique<StatWindow>(variable.stat.intervalS, m_model.scan_ms / 1000.0,
                                                            variable.stat.confidence)});
    }
}

void Scan::takeAgesOf(const Scan& before) {
    std::map<std::pair<std::string, int>, SampleAge> ages;
    for (const Limited& limited : before.m_limited)
        ages.emplace(std::pair(limited.variable->name, limited.part), limited.age);
    for (Limited& limited : m_limited)
        if (const auto found = ages.find({limited.variable->name, limited.part}); found != ages.end())
            limited.age = found->second;
}

void Scan::takeMemoryOf(Scan& before) {
    takeAgesOf(before);
    if (before.m_model.scan_ms != m_model.scan_ms)
        return;
    for (Stat& stat : m_stats) {
        const auto same = std::find_if(before.m_stats.begin(), before.m_stats.end(), [&stat](const Stat& old) {
            return old.window && old.variable->name == stat.variable->name &&
                   old.variable->stat.source == stat.variable->stat.source &&
                   old.variable->stat.intervalS == stat.variable->stat.intervalS &&
                   old.variable->stat.confidence == stat.variable->stat.confidence;
        });
        if (same != before.m_stats.end())
            stat.window = std::move(same->window);
    }
}

void Scan::loadInputs() {
    const auto& inputs = m_simulation.inputs();
    for (size_t index = 0; index < inputs.size(); ++index)
        *inputs[index].value = inputs[index].alarm ? m_inputs[index].alarmLevel() : m_inputs[index].load();
}

void Scan::showText(Text& text, double choice, const timespec& now) {
    const double last = static_cast<double>(text.texts->size()) - 1;
    const auto shown = static_cast<size_t>(std::isnan(choice) ? 0 : std::clamp(std::floor(choice), 0.0, last));
    std::string wanted = (*text.texts)[shown];
    if (wanted == fieldText(text.record->value))
        text.record->last_sampled_time = now;
    else
        set_string_variable(text.record, wanted.data());
}

double Scan::store(size_t output, double result, const timespec& now) {
    if (m_textOfOutput[output] == noText)
        return m_outputs[output].store(result, now);
    showText(m_texts[m_textOfOutput[output]], result, now);
    return result;
}

void Scan::resetLatches() {
    if (m_latchReset == nullptr || m_latchReset->value == 0)
        return;
    for (const Limited& limited : m_limited)
        limited.value.setLimitWord(limited.value.limitWord() & static_cast<unsigned short>(~limitLatches));
    set_logical(m_latchReset, 0);
}

void Scan::judge(const Moment& now) {
    for (Limited& limited : m_limited) {
        const Variable& variable = *limited.variable;
        const double value = limited.value.load();
        const unsigned short before = limited.value.limitWord();
        const double age = limited.age.seconds(limited.value.sampled(), now);
        const bool logical = isLogical(variable.kind);
        const unsigned short word = logical ? judgeLogical(variable.states, variable.limits, value != 0, age, before)
                                            : judgeValue(variable.limits, value, age, before);
        if (word != before)
            limited.value.setLimitWord(word);
        if (variable.kind == LOGI_TYPE)
            static_cast<LOGICAL_VARIABLE*>(limited.value.record())->alarm = alarmLevelOf(word) != 0 ? 1 : 0;
        const short status = logical ? statusForLogical(variable.states, variable.limits, value != 0, word)
                                     : statusFor(variable.limits, word);
        if (status != limited.value.status())
            limited.value.setStatus(status);
    }
}

void Scan::sampleStats(double t, const timespec& now) {
    // Members are computed once a second, those of different variables in different scans.
    const auto scans = static_cast<size_t>(std::max(1, 1000 / m_model.scan_ms));
    for (size_t index = 0; index < m_stats.size(); ++index) {
        Stat& stat = m_stats[index];
        const double value = stat.source.load();
        stat.window->add(t, value);
        stat.record->previous_value = value;
        stat.record->previous_time = t;
        stat.record->last_sampled_time = now;
        if (m_count != 0 && (m_count + index) % scans != 0)
            continue;
        const StatMembers members = stat.window->compute();
        for (size_t member = 0; member < members.size(); ++member)
            stat.record->stat[member].value = members[member];
        stat.record->sumx = stat.window->sums().x;
        stat.record->sumy = stat.window->sums().y;
        stat.record->sumxy = stat.window->sums().xy;
        stat.record->sumx2 = stat.window->sums().xx;
        stat.record->sumy2 = stat.window->sums().yy;
        stat.record->last_computed_time = now;
    }
}

void Scan::run(double t, double dt) {
    const Moment now = Moment::now();
    loadInputs();
    m_simulation.run(t, dt, [this, &now](size_t output, double result) { return store(output, result, now.day); });
    resetLatches();
    judge(now);
    sampleStats(t, now.day);
    ++m_count;
}

}  // namespace ostrelcell
