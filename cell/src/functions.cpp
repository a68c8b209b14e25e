#include "functions.h"

#include <muParser.h>

#include <algorithm>
#include <cmath>

namespace ostrelcell {

namespace {

thread_local CallContext* current = nullptr;

CallState* stateOf(const double* arguments) {
    if (current == nullptr)
        return nullptr;
    return &(*current->states)[static_cast<size_t>(arguments[0])];
}

// lag(x, seconds[, start])
double lag(const double* arguments, int count) {
    CallState* state = stateOf(arguments);
    if (state == nullptr)
        return 0;
    const double x = arguments[1];
    if (!state->started) {
        state->started = true;
        state->value = count > 3 ? arguments[3] : x;
    }
    const double seconds = arguments[2];
    // A value that is no number must not stay in the memory for ever.
    if (seconds <= 0 || !std::isfinite(state->value))
        state->value = x;
    else if (std::isfinite(x))
        state->value += (x - state->value) * (1 - std::exp(-current->dt / seconds));
    return state->value;
}

// ramp(target, rate[, start]): rate is per second
double ramp(const double* arguments, int count) {
    CallState* state = stateOf(arguments);
    if (state == nullptr)
        return 0;
    const double target = arguments[1];
    if (!state->started) {
        state->started = true;
        state->value = count > 3 ? arguments[3] : target;
    }
    const double step = std::fabs(arguments[2]) * current->dt;
    if (!std::isfinite(state->value))
        state->value = target;
    else if (std::isfinite(target))
        state->value += std::clamp(target - state->value, -step, step);
    return state->value;
}

// integral(x[, start])
double integral(const double* arguments, int count) {
    CallState* state = stateOf(arguments);
    if (state == nullptr)
        return 0;
    if (!state->started) {
        state->started = true;
        state->value = count > 2 ? arguments[2] : 0;
    } else if (std::isfinite(arguments[1])) {
        state->value += arguments[1] * current->dt;
    }
    return state->value;
}

// held(condition): for how many seconds it has been true
double held(const double* arguments, int) {
    CallState* state = stateOf(arguments);
    if (state == nullptr)
        return 0;
    const bool was = state->started;
    state->started = arguments[1] != 0;
    state->value = state->started && was ? state->value + current->dt : 0;
    return state->value;
}

// hysteresis(x, on, off): 1 from on to off; on below off turns it round
double hysteresis(const double* arguments, int) {
    CallState* state = stateOf(arguments);
    if (state == nullptr)
        return 0;
    const double x = arguments[1];
    const double on = arguments[2];
    const double off = arguments[3];
    if (on >= off ? x >= on : x <= on)
        state->value = 1;
    else if (on >= off ? x <= off : x >= off)
        state->value = 0;
    return state->value;
}

// A number above 0 and up to 1. The generator walks in steps of the golden ratio and mixes the bits of each.
double uniform(CallState& state) {
    state.random += 0x9E3779B97F4A7C15U;
    uint64_t bits = state.random;
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
    bits ^= bits >> 31;
    return (static_cast<double>(bits >> 11) + 1) * 0x1p-53;
}

// noise(sigma): normal, with mean 0
double noise(const double* arguments, int) {
    CallState* state = stateOf(arguments);
    if (state == nullptr)
        return 0;
    state->spareReady = !state->spareReady;
    if (!state->spareReady)
        return arguments[1] * state->spare;
    const double radius = std::sqrt(-2 * std::log(uniform(*state)));
    const double angle = 2 * M_PI * uniform(*state);
    state->spare = radius * std::sin(angle);
    return arguments[1] * radius * std::cos(angle);
}

double phase(double period) {
    const double t = current == nullptr ? 0 : current->t;
    return period > 0 ? t / period - std::floor(t / period) : 0;
}

// step(time): 1 from that second on
double step(double time) {
    return current != nullptr && current->t >= time ? 1 : 0;
}

// square(period[, duty]): 1 for the first part of each period, half of it where duty is not given
double square(const double* arguments, int count) {
    return phase(arguments[0]) < (count > 1 ? arguments[1] : 0.5) ? 1 : 0;
}

// saw(period): rises from 0 to 1
double saw(double period) {
    return phase(period);
}

// triangle(period): rises from 0 to 1 and falls back
double triangle(double period) {
    return 1 - std::fabs(2 * phase(period) - 1);
}

double clamp(double x, double low, double high) {
    return std::max(low, std::min(x, high));
}

double modulo(double x, double y) {
    return y == 0 ? 0 : x - y * std::floor(x / y);
}

// table(x, x1, y1, x2, y2, ...): straight lines between the points, level beyond them
double table(const double* arguments, int count) {
    const double x = arguments[0];
    for (int at = 1; at + 1 < count; at += 2) {
        if (x > arguments[at])
            continue;
        if (at == 1)
            return arguments[2];
        const double width = arguments[at] - arguments[at - 2];
        const double part = width > 0 ? (x - arguments[at - 2]) / width : 1;
        return arguments[at - 1] + part * (arguments[at + 1] - arguments[at - 1]);
    }
    return arguments[count - 1];
}

double floorOf(double x) {
    return std::floor(x);
}

double ceilOf(double x) {
    return std::ceil(x);
}

double negation(double x) {
    return x == 0 ? 1 : 0;
}

constexpr FunctionInfo functions[] = {
    {"lag", 2, 3, true},        {"ramp", 2, 3, true},      {"integral", 1, 2, true}, {"held", 1, 1, true},
    {"hysteresis", 3, 3, true}, {"noise", 1, 1, true},     {"step", 1, 1, false},    {"square", 1, 2, false},
    {"saw", 1, 1, false},       {"triangle", 1, 1, false}, {"clamp", 3, 3, false},   {"mod", 2, 2, false},
    {"table", 3, -1, false},    {"floor", 1, 1, false},    {"ceil", 1, 1, false},    {"sin", 1, 1, false},
    {"cos", 1, 1, false},       {"tan", 1, 1, false},      {"asin", 1, 1, false},    {"acos", 1, 1, false},
    {"atan", 1, 1, false},      {"atan2", 2, 2, false},    {"sinh", 1, 1, false},    {"cosh", 1, 1, false},
    {"tanh", 1, 1, false},      {"exp", 1, 1, false},      {"ln", 1, 1, false},      {"log10", 1, 1, false},
    {"log2", 1, 1, false},      {"sqrt", 1, 1, false},     {"sign", 1, 1, false},    {"rint", 1, 1, false},
    {"abs", 1, 1, false},       {"min", 1, -1, false},     {"max", 1, -1, false},    {"sum", 1, -1, false},
    {"avg", 1, -1, false},      {"prev", 1, 1, false},     {"alarm", 1, 1, false},
};

}  // namespace

CallContextScope::CallContextScope(CallContext& context) {
    current = &context;
}

CallContextScope::~CallContextScope() {
    current = nullptr;
}

const FunctionInfo* functionInfo(const std::string& name) {
    for (const FunctionInfo& function : functions)
        if (name == function.name)
            return &function;
    return nullptr;
}

std::vector<std::string> functionNames() {
    std::vector<std::string> names;
    for (const FunctionInfo& function : functions)
        names.emplace_back(function.name);
    return names;
}

void defineFunctions(mu::Parser& parser) {
    // No result may be computed in advance: it depends on the time, or on what the call remembers.
    constexpr bool neverConstant = false;
    parser.DefineFun("lag", lag, neverConstant);
    parser.DefineFun("ramp", ramp, neverConstant);
    parser.DefineFun("integral", integral, neverConstant);
    parser.DefineFun("held", held, neverConstant);
    parser.DefineFun("hysteresis", hysteresis, neverConstant);
    parser.DefineFun("noise", noise, neverConstant);
    parser.DefineFun("step", step, neverConstant);
    parser.DefineFun("square", square, neverConstant);
    parser.DefineFun("saw", saw, neverConstant);
    parser.DefineFun("triangle", triangle, neverConstant);
    parser.DefineFun("clamp", clamp);
    parser.DefineFun("mod", modulo);
    parser.DefineFun("table", table);
    parser.DefineFun("floor", floorOf);
    parser.DefineFun("ceil", ceilOf);
    parser.DefineInfixOprt("!", negation);
}

}  // namespace ostrelcell
