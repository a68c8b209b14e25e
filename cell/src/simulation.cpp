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
constexpr size_t maxBatchText = 8000;
constexpr size_t maxElements = 10'000;

uint64_t keyOf(ValueRef ref) {
    return (static_cast<uint64_t>(static_cast<uint32_t>(ref.variable)) << 32U) | static_cast<uint32_t>(ref.part);
}

// Reproducible for each call, whatever else stands in the file.
uint64_t randomStart(uint64_t seed, const std::string& key) {
    return seed ^ (std::hash<std::string>{}(key)*0x9E3779B97F4A7C15U);
}

std::string inputName(size_t number) {
    return "i" + std::to_string(number);
}

std::string outputName(size_t number) {
    return "o" + std::to_string(number);
}

std::string libraryReason(const mu::Parser::exception_type& error, const std::string& text) {
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
    const std::string rest = text.substr(std::min(text.size(), static_cast<size_t>(std::max(0, error.GetPos()))));
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
    std::vector<int> indexes;    // of the element of an array
    std::string text;            // translated
    std::vector<size_t> needs;   // targets that have to be evaluated before
    std::vector<size_t> inputs;  // that it reads beside them
    int depth = -1;
};

struct Simulation::Batch {
    std::unique_ptr<mu::Parser> parser;
    std::vector<size_t> outputs;
};

// Everything that is needed only while the simulation is built.
struct Simulation::Builder {
    Simulation& simulation;
    const CellModel& model;
    Diagnostics& diagnostics;
    mu::Parser prototype;
    std::vector<Target> targets;
    std::unordered_map<uint64_t, size_t> targetOf;
    std::map<std::pair<uint64_t, bool>, size_t> inputOf;
    size_t current = 0;
    int calls = 0;
    std::set<std::pair<int, std::string>> reported;

    Builder(Simulation& built, const CellModel& cell, Diagnostics& out)
        : simulation(built), model(cell), diagnostics(out) {}

    void prepare(mu::Parser& parser);
    void collect();
    void add(ValueRef ref, const Expression& expr, std::vector<int> indexes);
    void translateAll();
    void translate(Target& target);
    void compileAlone(Target& target);
    void report(const Target& target, const std::string& reason);
    std::string identifier(const std::string& fullName, NameUse use);
    std::string input(ValueRef ref, bool alarm);
    int new_state();
    int indexValue(const std::string& name) const;
    int depthOf(size_t index, std::vector<size_t>& path);
    void reportCycle(const std::vector<size_t>& path, size_t again);
    void compileBatches();
    void finishBatch(std::string& text, Batch& batch);
};

void Simulation::Builder::add(ValueRef ref, const Expression& expr, std::vector<int> indexes) {
    const Variable& variable = model.variables[static_cast<size_t>(ref.variable)];
    targetOf.emplace(keyOf(ref), targets.size());
    targets.push_back(
        {ref, &variable, &expr, std::string(kindWord(variable.kind)) + "." + variable.name, indexes, "", {}, {}, -1});
    simulation.m_values.push_back(0);
    simulation.m_outputs.push_back({ref, &simulation.m_values.back()});
    prototype.DefineVar(outputName(targets.size() - 1), simulation.m_outputs.back().value);
}

void Simulation::Builder::prepare(mu::Parser& parser) {
    defineFunctions(parser);
    parser.DefineVar("t_", &simulation.m_t);
    parser.DefineVar("dt_", &simulation.m_dt);
}

void Simulation::Builder::collect() {
    for (size_t index = 0; index < model.variables.size(); ++index) {
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
        const size_t elements = variable.shape.elements();
        if (elements > maxElements)
            diagnostics.add(variable.expr.line, std::string(kindWord(variable.kind)) + "." + variable.name +
                                                    ": an array with expr has at most " + std::to_string(maxElements) +
                                                    " elements");
        for (size_t element = 0; element < std::min(elements, maxElements); ++element)
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
    const std::string key = model.fullName(target.ref) + " " + std::to_string(calls++) + " " + target.expr->text;
    CallState state;
    state.random = randomStart(model.seed, key);
    simulation.m_states.push_back(state);
    simulation.m_stateKeys.push_back(key);
    return static_cast<int>(simulation.m_states.size()) - 1;
}

int Simulation::Builder::indexValue(const std::string& name) const {
    static const std::string letters[] = {"i", "j", "k"};
    const auto& indexes = targets[current].indexes;
    for (size_t dimension = 0; dimension < indexes.size(); ++dimension)
        if (name == letters[dimension])
            return indexes[dimension];
    return -1;
}

std::string Simulation::Builder::input(ValueRef ref, bool alarm) {
    const auto [place, fresh] = inputOf.emplace(std::pair(keyOf(ref), alarm), simulation.m_inputs.size());
    const size_t number = place->second;
    targets[current].inputs.push_back(number);
    const std::string name = inputName(number);
    if (!fresh)
        return name;
    simulation.m_values.push_back(0);
    simulation.m_inputs.push_back({ref, alarm, &simulation.m_values.back()});
    prototype.DefineVar(name, simulation.m_inputs.back().value);
    return name;
}

std::string Simulation::Builder::identifier(const std::string& fullName, NameUse use) {
    std::string why;
    const auto ref = resolveName(model, fullName, why);
    if (!ref)
        throw ExpressionError(why);
    const Variable& variable = model.variables[static_cast<size_t>(ref->variable)];
    if (isText(variable.kind))
        throw ExpressionError("\"" + fullName + "\" is a text; expressions compute with numbers");
    if (use == NameUse::alarm) {
        if (hasMembers(variable.kind))
            throw ExpressionError("\"" + fullName + "\" is a member; members have no limits");
        return input(*ref, true);
    }
    const auto target = targetOf.find(keyOf(*ref));
    // An expression that names its own variable means what that holds before the scan.
    if (use == NameUse::previous || target == targetOf.end() || target->second == current)
        return input(*ref, false);
    targets[current].needs.push_back(target->second);
    return outputName(target->second);
}

void Simulation::Builder::translate(Target& target) {
    calls = 0;
    const ExpressionNames names{
        [this](const std::string& name, NameUse use) { return identifier(name, use); },
        [this](const std::string& name) {
            const auto found = model.variableByLabel.find(name);
            return found != model.variableByLabel.end() &&
                   is_array(model.variables[static_cast<size_t>(found->second)].kind);
        },
        [this] { return new_state(); },
        [this](const std::string& name) { return indexValue(name); },
    };
    try {
        target.text = translateExpression(target.expr->text, names);
        compileAlone(target);
    } catch (const ExpressionError& error) {
        report(target, error.what());
    }
}

void Simulation::Builder::compileAlone(Target& target) {
    try {
        prototype.SetExpr(target.text);
        prototype.Eval();
    } catch (const mu::Parser::exception_type& error) {
        report(target, libraryReason(error, target.text));
    }
}

void Simulation::Builder::translateAll() {
    for (current = 0; current < targets.size(); ++current)
        translate(targets[current]);
}

void Simulation::Builder::reportCycle(const std::vector<size_t>& path, size_t again) {
    const auto first = std::find(path.begin(), path.end(), again);
    std::string text;
    for (auto step = first; step != path.end(); ++step)
        text += model.fullName(targets[*step].ref) + " -> ";
    report(targets[again], "expressions go in a circle: " + text + model.fullName(targets[again].ref) +
                               "; prev(NAME) takes the value of the last scan");
}

// How many expressions have to be evaluated one after the other before this one.
int Simulation::Builder::depthOf(size_t index, std::vector<size_t>& path) {
    constexpr int beingVisited = -2;
    Target& target = targets[index];
    if (target.depth == beingVisited) {
        reportCycle(path, index);
        return 0;
    }
    if (target.depth >= 0)
        return target.depth;
    target.depth = beingVisited;
    path.push_back(index);
    int depth = 0;
    for (size_t need : target.needs)
        depth = std::max(depth, depthOf(need, path) + 1);
    path.pop_back();
    target.depth = depth;
    return depth;
}

void Simulation::Builder::finishBatch(std::string& text, Batch& batch) {
    if (batch.outputs.empty())
        return;
    batch.parser = std::make_unique<mu::Parser>();
    prepare(*batch.parser);
    for (size_t output : batch.outputs) {
        for (size_t need : targets[output].needs)
            batch.parser->DefineVar(outputName(need), simulation.m_outputs[need].value);
        for (size_t input : targets[output].inputs)
            batch.parser->DefineVar(inputName(input), simulation.m_inputs[input].value);
    }
    batch.parser->SetExpr(text);
    int count = 0;
    batch.parser->Eval(count);
    simulation.m_batches.push_back(std::move(batch));
    batch = Batch();
    text.clear();
}

void Simulation::Builder::compileBatches() {
    std::vector<size_t> order(targets.size());
    for (size_t index = 0; index < order.size(); ++index)
        order[index] = index;
    std::stable_sort(order.begin(), order.end(),
                     [this](size_t a, size_t b) { return targets[a].depth < targets[b].depth; });
    std::string text;
    Batch batch;
    for (size_t place = 0; place < order.size(); ++place) {
        const Target& target = targets[order[place]];
        const bool deeper = place > 0 && target.depth != targets[order[place - 1]].depth;
        if (deeper || text.size() + target.text.size() > maxBatchText)
            finishBatch(text, batch);
        text += (text.empty() ? "(" : ",(") + target.text + ")";
        batch.outputs.push_back(order[place]);
    }
    finishBatch(text, batch);
}

Simulation::Simulation() = default;
Simulation::~Simulation() = default;

void Simulation::build(const CellModel& model, Diagnostics& diagnostics) {
    const int before = diagnostics.count();
    Builder builder(*this, model, diagnostics);
    builder.prepare(builder.prototype);
    builder.collect();
    builder.translateAll();
    std::vector<size_t> path;
    for (size_t index = 0; index < builder.targets.size(); ++index)
        builder.depthOf(index, path);
    if (diagnostics.count() == before)
        builder.compileBatches();
}

void Simulation::takeMemoryOf(const Simulation& before) {
    std::unordered_map<std::string, size_t> old;
    for (size_t index = 0; index < before.m_stateKeys.size(); ++index)
        old.emplace(before.m_stateKeys[index], index);
    for (size_t index = 0; index < m_stateKeys.size(); ++index) {
        const auto found = old.find(m_stateKeys[index]);
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
        for (size_t index = 0; index < batch.outputs.size(); ++index) {
            const size_t output = batch.outputs[index];
            *m_outputs[output].value = store(output, results[index]);
        }
    }
}

}  // namespace ostrelcell
