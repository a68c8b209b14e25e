#include "simulation.h"

#include <muParser.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "expression.h"
#include "names.h"

namespace ostrelcell {

namespace {

// The library takes expressions of 10000 characters, and one compiled expression costs it some ten kilobytes of
// tables. So expressions that do not depend on each other are compiled together, separated by commas.
constexpr std::size_t max_batch_text = 8000;
constexpr std::size_t max_elements = 10'000;

std::uint64_t key_of(ValueRef ref) {
    return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(ref.variable)) << 32U) |
           static_cast<std::uint32_t>(ref.part);
}

// Reproducible for each call, whatever else stands in the file.
std::uint64_t random_start(std::uint64_t seed, const std::string& key) {
    return seed ^ (std::hash<std::string>{}(key)*0x9E3779B97F4A7C15U);
}

std::string input_name(std::size_t number) {
    return "i" + std::to_string(number);
}

std::string output_name(std::size_t number) {
    return "o" + std::to_string(number);
}

std::string library_reason(const mu::Parser::exception_type& error, const std::string& text) {
    switch (error.GetCode()) {
        case mu::ecUNEXPECTED_EOF:
            return "it ends too early";
        case mu::ecMISSING_PARENS:
            return "a bracket is not closed";
        case mu::ecMISSING_ELSE_CLAUSE:
        case mu::ecMISPLACED_COLON:
        case mu::ecUNEXPECTED_CONDITIONAL:
            return "a choice is written condition ? value : value";
        default:
            break;
    }
    const std::string rest = text.substr(std::min(text.size(), static_cast<std::size_t>(std::max(0, error.GetPos()))));
    if (error.GetCode() == mu::ecUNEXPECTED_OPERATOR || error.GetCode() == mu::ecUNEXPECTED_PARENS)
        return "unexpected \"" + (error.GetToken().empty() ? rest.substr(0, 1) : error.GetToken()) + "\"";
    return "two values stand together without an operator";
}

}  // namespace

struct Simulation::Target {
    ValueRef ref;
    const Variable* variable;
    const Expression* expr;
    std::string subject;
    std::vector<int> indexes;         // of the element of an array
    std::string text;                 // translated
    std::vector<std::size_t> needs;   // targets that have to be evaluated before
    std::vector<std::size_t> inputs;  // that it reads beside them
    int depth = -1;
};

struct Simulation::Batch {
    std::unique_ptr<mu::Parser> parser;
    std::vector<std::size_t> outputs;
};

// Everything that is needed only while the simulation is built.
struct Simulation::Builder {
    Simulation& simulation;
    const CellModel& model;
    Diagnostics& diagnostics;
    mu::Parser prototype;
    std::vector<Target> targets;
    std::unordered_map<std::uint64_t, std::size_t> target_of;
    std::map<std::pair<std::uint64_t, bool>, std::size_t> input_of;
    std::size_t current = 0;
    int calls = 0;
    std::set<std::pair<int, std::string>> reported;

    Builder(Simulation& built, const CellModel& cell, Diagnostics& out)
        : simulation(built), model(cell), diagnostics(out) {}

    void prepare(mu::Parser& parser);
    void collect();
    void add(ValueRef ref, const Expression& expr, std::vector<int> indexes);
    void translate_all();
    void translate(Target& target);
    void compile_alone(Target& target);
    void report(const Target& target, const std::string& reason);
    std::string identifier(const std::string& full_name, NameUse use);
    std::string input(ValueRef ref, bool alarm);
    int new_state();
    int index_value(const std::string& name) const;
    int depth_of(std::size_t index, std::vector<std::size_t>& path);
    void report_cycle(const std::vector<std::size_t>& path, std::size_t again);
    void compile_batches();
    void finish_batch(std::string& text, Batch& batch);
};

void Simulation::Builder::add(ValueRef ref, const Expression& expr, std::vector<int> indexes) {
    const Variable& variable = model.variables[static_cast<std::size_t>(ref.variable)];
    target_of.emplace(key_of(ref), targets.size());
    targets.push_back(
        {ref, &variable, &expr, std::string(kind_word(variable.kind)) + "." + variable.name, indexes, "", {}, {}, -1});
    simulation.m_values.push_back(0);
    simulation.m_outputs.push_back({ref, &simulation.m_values.back()});
    prototype.DefineVar(output_name(targets.size() - 1), simulation.m_outputs.back().value);
}

void Simulation::Builder::prepare(mu::Parser& parser) {
    define_functions(parser);
    parser.DefineVar("t_", &simulation.m_t);
    parser.DefineVar("dt_", &simulation.m_dt);
}

void Simulation::Builder::collect() {
    for (std::size_t index = 0; index < model.variables.size(); ++index) {
        const Variable& variable = model.variables[index];
        const int number = static_cast<int>(index);
        for (const Member& member : variable.members)
            if (member.expr.given())
                add({number, member.index}, member.expr, {});
        if (!variable.expr.given())
            continue;
        if (!is_array(variable.kind)) {
            add({number, -1}, variable.expr, {});
            continue;
        }
        const std::size_t elements = variable.shape.elements();
        if (elements > max_elements)
            diagnostics.add(variable.expr.line, std::string(kind_word(variable.kind)) + "." + variable.name +
                                                    ": an array with expr has at most " + std::to_string(max_elements) +
                                                    " elements");
        for (std::size_t element = 0; element < std::min(elements, max_elements); ++element)
            add({number, static_cast<int>(element)}, variable.expr, variable.shape.indexes(element));
    }
}

// All elements of an array share one text; its mistakes are told once.
void Simulation::Builder::report(const Target& target, const std::string& reason) {
    const std::string text = target.subject + ": expr: " + reason;
    if (reported.emplace(target.expr->line, text).second)
        diagnostics.add(target.expr->line, text);
}

int Simulation::Builder::new_state() {
    const Target& target = targets[current];
    const std::string key = model.full_name(target.ref) + " " + std::to_string(calls++) + " " + target.expr->text;
    CallState state;
    state.random = random_start(model.seed, key);
    simulation.m_states.push_back(state);
    simulation.m_state_keys.push_back(key);
    return static_cast<int>(simulation.m_states.size()) - 1;
}

int Simulation::Builder::index_value(const std::string& name) const {
    static const std::string letters[] = {"i", "j", "k"};
    const auto& indexes = targets[current].indexes;
    for (std::size_t dimension = 0; dimension < indexes.size(); ++dimension)
        if (name == letters[dimension])
            return indexes[dimension];
    return -1;
}

std::string Simulation::Builder::input(ValueRef ref, bool alarm) {
    const auto [place, fresh] = input_of.emplace(std::pair(key_of(ref), alarm), simulation.m_inputs.size());
    const std::size_t number = place->second;
    targets[current].inputs.push_back(number);
    const std::string name = input_name(number);
    if (!fresh)
        return name;
    simulation.m_values.push_back(0);
    simulation.m_inputs.push_back({ref, alarm, &simulation.m_values.back()});
    prototype.DefineVar(name, simulation.m_inputs.back().value);
    return name;
}

std::string Simulation::Builder::identifier(const std::string& full_name, NameUse use) {
    std::string why;
    const auto ref = resolve_name(model, full_name, why);
    if (!ref)
        throw ExpressionError(why);
    const Variable& variable = model.variables[static_cast<std::size_t>(ref->variable)];
    if (is_text(variable.kind))
        throw ExpressionError("\"" + full_name + "\" is a text; expressions compute with numbers");
    if (use == NameUse::alarm) {
        if (has_members(variable.kind))
            throw ExpressionError("\"" + full_name + "\" is a member; members have no limits");
        return input(*ref, true);
    }
    const auto target = target_of.find(key_of(*ref));
    // An expression that names its own variable means what that holds before the scan.
    if (use == NameUse::previous || target == target_of.end() || target->second == current)
        return input(*ref, false);
    targets[current].needs.push_back(target->second);
    return output_name(target->second);
}

void Simulation::Builder::translate(Target& target) {
    calls = 0;
    const ExpressionNames names{
        [this](const std::string& name, NameUse use) { return identifier(name, use); },
        [this](const std::string& name) {
            const auto found = model.variable_by_label.find(name);
            return found != model.variable_by_label.end() &&
                   is_array(model.variables[static_cast<std::size_t>(found->second)].kind);
        },
        [this] { return new_state(); },
        [this](const std::string& name) { return index_value(name); },
    };
    try {
        target.text = translate_expression(target.expr->text, names);
        compile_alone(target);
    } catch (const ExpressionError& error) {
        report(target, error.what());
    }
}

void Simulation::Builder::compile_alone(Target& target) {
    try {
        prototype.SetExpr(target.text);
        prototype.Eval();
    } catch (const mu::Parser::exception_type& error) {
        report(target, library_reason(error, target.text));
    }
}

void Simulation::Builder::translate_all() {
    for (current = 0; current < targets.size(); ++current)
        translate(targets[current]);
}

void Simulation::Builder::report_cycle(const std::vector<std::size_t>& path, std::size_t again) {
    const auto first = std::find(path.begin(), path.end(), again);
    std::string text;
    for (auto step = first; step != path.end(); ++step)
        text += model.full_name(targets[*step].ref) + " -> ";
    report(targets[again], "expressions go in a circle: " + text + model.full_name(targets[again].ref) +
                               "; prev(NAME) takes the value of the last scan");
}

// How many expressions have to be evaluated one after the other before this one.
int Simulation::Builder::depth_of(std::size_t index, std::vector<std::size_t>& path) {
    constexpr int being_visited = -2;
    Target& target = targets[index];
    if (target.depth == being_visited) {
        report_cycle(path, index);
        return 0;
    }
    if (target.depth >= 0)
        return target.depth;
    target.depth = being_visited;
    path.push_back(index);
    int depth = 0;
    for (std::size_t need : target.needs)
        depth = std::max(depth, depth_of(need, path) + 1);
    path.pop_back();
    target.depth = depth;
    return depth;
}

void Simulation::Builder::finish_batch(std::string& text, Batch& batch) {
    if (batch.outputs.empty())
        return;
    batch.parser = std::make_unique<mu::Parser>();
    prepare(*batch.parser);
    for (std::size_t output : batch.outputs) {
        for (std::size_t need : targets[output].needs)
            batch.parser->DefineVar(output_name(need), simulation.m_outputs[need].value);
        for (std::size_t input : targets[output].inputs)
            batch.parser->DefineVar(input_name(input), simulation.m_inputs[input].value);
    }
    batch.parser->SetExpr(text);
    int count = 0;
    batch.parser->Eval(count);
    simulation.m_batches.push_back(std::move(batch));
    batch = Batch();
    text.clear();
}

void Simulation::Builder::compile_batches() {
    std::vector<std::size_t> order(targets.size());
    for (std::size_t index = 0; index < order.size(); ++index)
        order[index] = index;
    std::stable_sort(order.begin(), order.end(),
                     [this](std::size_t a, std::size_t b) { return targets[a].depth < targets[b].depth; });
    std::string text;
    Batch batch;
    for (std::size_t place = 0; place < order.size(); ++place) {
        const Target& target = targets[order[place]];
        const bool deeper = place > 0 && target.depth != targets[order[place - 1]].depth;
        if (deeper || text.size() + target.text.size() > max_batch_text)
            finish_batch(text, batch);
        text += (text.empty() ? "(" : ",(") + target.text + ")";
        batch.outputs.push_back(order[place]);
    }
    finish_batch(text, batch);
}

Simulation::Simulation() = default;
Simulation::~Simulation() = default;

void Simulation::build(const CellModel& model, Diagnostics& diagnostics) {
    const int before = diagnostics.count();
    Builder builder(*this, model, diagnostics);
    builder.prepare(builder.prototype);
    builder.collect();
    builder.translate_all();
    std::vector<std::size_t> path;
    for (std::size_t index = 0; index < builder.targets.size(); ++index)
        builder.depth_of(index, path);
    if (diagnostics.count() == before)
        builder.compile_batches();
}

void Simulation::take_memory_of(const Simulation& before) {
    std::unordered_map<std::string, std::size_t> old;
    for (std::size_t index = 0; index < before.m_state_keys.size(); ++index)
        old.emplace(before.m_state_keys[index], index);
    for (std::size_t index = 0; index < m_state_keys.size(); ++index) {
        const auto found = old.find(m_state_keys[index]);
        if (found != old.end())
            m_states[index] = before.m_states[found->second];
    }
}

void Simulation::run(double t, double dt, const Store& store) {
    m_t = t;
    m_dt = dt;
    CallContext context{&m_states, t, dt};
    const CallContextScope scope(context);
    for (Batch& batch : m_batches) {
        int count = 0;
        const double* results = batch.parser->Eval(count);
        for (std::size_t index = 0; index < batch.outputs.size(); ++index) {
            const std::size_t output = batch.outputs[index];
            *m_outputs[output].value = store(output, results[index]);
        }
    }
}

}  // namespace ostrelcell
