#include "scan.h"

#include <ostrel/store.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "limitstate.h"
#include "names.h"

namespace ostrelcell {

namespace {

constexpr std::size_t no_text = static_cast<std::size_t>(-1);

double seconds_between(const timespec& from, const timespec& to) {
    return static_cast<double>(to.tv_sec - from.tv_sec) + static_cast<double>(to.tv_nsec - from.tv_nsec) * 1e-9;
}

bool is_logical(SM_VARI_TYPE kind) {
    return kind == LOGI_TYPE || kind == LOGI_ARRAY_TYPE;
}

bool needs_judging(const Variable& variable) {
    if (has_members(variable.kind) || is_text(variable.kind))
        return false;
    return variable.limits.any() || variable.limits.normal_status != 0 ||
           (is_logical(variable.kind) && variable.states.coloured());
}

}  // namespace

Scan::Scan(const CellModel& model, Simulation& simulation, const StoreContents& contents)
    : m_model(model), m_simulation(simulation) {
    for (const Simulation::Input& input : simulation.inputs())
        m_inputs.push_back(contents.value(model, input.ref));
    for (const Simulation::Output& output : simulation.outputs()) {
        const Variable& variable = model.variables[static_cast<std::size_t>(output.ref.variable)];
        m_outputs.push_back(contents.value(model, output.ref));
        m_text_of_output.push_back(variable.kind == STRING_TYPE ? m_texts.size() : no_text);
        if (variable.kind == STRING_TYPE)
            m_texts.push_back({static_cast<STRING_VARIABLE*>(m_outputs.back().record()), &variable.texts, no_text});
    }
    add_limited(contents);
    add_stats(contents);
    std::string why;
    if (const auto reset = resolve_name(model, model.latch_reset, why))
        m_latch_reset = static_cast<LOGICAL_VARIABLE*>(contents.placed(reset->variable).record);
}

void Scan::add_limited(const StoreContents& contents) {
    for (std::size_t index = 0; index < m_model.variables.size(); ++index) {
        const Variable& variable = m_model.variables[index];
        const int number = static_cast<int>(index);
        const int first = is_array(variable.kind) ? 0 : -1;
        const int end = is_array(variable.kind) ? static_cast<int>(variable.shape.elements()) : 0;
        if (is_text(variable.kind) || has_members(variable.kind))
            continue;
        for (int part = first; part < end; ++part) {
            const RecordValue value = contents.value(m_model, {number, part});
            if (needs_judging(variable)) {
                m_limited.push_back({value, &variable});
                continue;
            }
            // An earlier cell may have left it coloured.
            value.set_status(0);
            value.set_limit_word(0);
        }
    }
}

void Scan::add_stats(const StoreContents& contents) {
    for (std::size_t index = 0; index < m_model.variables.size(); ++index) {
        const Variable& variable = m_model.variables[index];
        std::string why;
        if (variable.kind != STAT_TYPE)
            continue;
        if (const auto source = resolve_name(m_model, variable.stat.source, why))
            m_stats.push_back({static_cast<STAT_VARIABLE*>(contents.placed(static_cast<int>(index)).record), &variable,
                               contents.value(m_model, *source),
                               std::make_unique<StatWindow>(variable.stat.interval_s, m_model.scan_ms / 1000.0,
                                                            variable.stat.confidence)});
    }
}

void Scan::take_memory_of(Scan& before) {
    if (before.m_model.scan_ms != m_model.scan_ms)
        return;
    for (Stat& stat : m_stats) {
        const auto same = std::find_if(before.m_stats.begin(), before.m_stats.end(), [&stat](const Stat& old) {
            return old.window && old.variable->name == stat.variable->name &&
                   old.variable->stat.source == stat.variable->stat.source &&
                   old.variable->stat.interval_s == stat.variable->stat.interval_s &&
                   old.variable->stat.confidence == stat.variable->stat.confidence;
        });
        if (same != before.m_stats.end())
            stat.window = std::move(same->window);
    }
}

void Scan::load_inputs() {
    const auto& inputs = m_simulation.inputs();
    for (std::size_t index = 0; index < inputs.size(); ++index)
        *inputs[index].value = inputs[index].alarm ? m_inputs[index].alarm_level() : m_inputs[index].load();
}

void Scan::show_text(Text& text, double choice, const timespec& now) {
    const double last = static_cast<double>(text.texts->size()) - 1;
    const auto shown = static_cast<std::size_t>(std::isnan(choice) ? 0 : std::clamp(std::floor(choice), 0.0, last));
    std::string wanted = (*text.texts)[shown];
    if (wanted.compare(0, std::string::npos, text.record->value,
                       strnlen(text.record->value, sizeof text.record->value)) == 0)
        text.record->last_sampled_time = now;
    else
        set_string_variable(text.record, wanted.data());
}

double Scan::store(std::size_t output, double result, const timespec& now) {
    if (m_text_of_output[output] == no_text)
        return m_outputs[output].store(result, now);
    show_text(m_texts[m_text_of_output[output]], result, now);
    return result;
}

void Scan::reset_latches() {
    if (m_latch_reset == nullptr || m_latch_reset->value == 0)
        return;
    for (const Limited& limited : m_limited)
        limited.value.set_limit_word(limited.value.limit_word() & static_cast<unsigned short>(~limit_latches));
    set_logical(m_latch_reset, 0);
}

void Scan::judge(const timespec& now) {
    for (const Limited& limited : m_limited) {
        const Variable& variable = *limited.variable;
        const double value = limited.value.load();
        const unsigned short before = limited.value.limit_word();
        const double age = seconds_between(limited.value.sampled(), now);
        const bool logical = is_logical(variable.kind);
        const unsigned short word = logical ? judge_logical(variable.states, variable.limits, value != 0, age, before)
                                            : judge_value(variable.limits, value, age, before);
        if (word != before)
            limited.value.set_limit_word(word);
        if (variable.kind == LOGI_TYPE)
            static_cast<LOGICAL_VARIABLE*>(limited.value.record())->alarm = alarm_level_of(word) != 0 ? 1 : 0;
        const short status = logical ? status_for_logical(variable.states, variable.limits, value != 0, word)
                                     : status_for(variable.limits, word);
        if (status != limited.value.status())
            limited.value.set_status(status);
    }
}

void Scan::sample_stats(double t, const timespec& now) {
    // Members are computed once a second, those of different variables in different scans.
    const auto scans = static_cast<std::size_t>(std::max(1, 1000 / m_model.scan_ms));
    for (std::size_t index = 0; index < m_stats.size(); ++index) {
        Stat& stat = m_stats[index];
        const double value = stat.source.load();
        stat.window->add(t, value);
        stat.record->previous_value = value;
        stat.record->previous_time = t;
        stat.record->last_sampled_time = now;
        if (m_count != 0 && (m_count + index) % scans != 0)
            continue;
        const StatMembers members = stat.window->compute();
        for (std::size_t member = 0; member < members.size(); ++member)
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
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    load_inputs();
    m_simulation.run(t, dt, [this, &now](std::size_t output, double result) { return store(output, result, now); });
    reset_latches();
    judge(now);
    sample_stats(t, now);
    ++m_count;
}

}  // namespace ostrelcell
