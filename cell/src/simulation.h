// The expressions of a cell, compiled, in the order in which they depend on each other.
#ifndef OSTREL_CELL_SIMULATION_H
#define OSTREL_CELL_SIMULATION_H

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "cellmodel.h"
#include "diagnostics.h"
#include "functions.h"

namespace mu {
class Parser;
}

namespace ostrelcell {

class Simulation {
public:
    // A number that expressions use and that is read from the store before each scan.
    struct Input {
        ValueRef ref;
        bool alarm;     // the alarm level of the value, not the value
        double* value;  // where the expressions look
    };

    // A value that an expression gives.
    struct Output {
        ValueRef ref;
        double* value;
    };

    Simulation();
    ~Simulation();
    Simulation(const Simulation&) = delete;
    Simulation& operator=(const Simulation&) = delete;

    // Compiles every expression. Mistakes go into `diagnostics`; then the simulation must not be run. Once per object.
    void build(const CellModel& model, Diagnostics& diagnostics);

    // What calls remember goes on where an expression stayed as it was.
    void takeMemoryOf(const Simulation& before);

    const std::vector<Input>& inputs() const { return m_inputs; }
    const std::vector<Output>& outputs() const { return m_outputs; }

    // Stores what an expression gave and returns what the store kept of it: rounded, or the old value.
    using Store = std::function<double(size_t output, double result)>;

    // Evaluates everything once. The inputs hold the values of the moment.
    void run(double t, double dt, const Store& store);

private:
    struct Target;
    struct Batch;
    struct Builder;

    std::vector<Input> m_inputs;
    std::vector<Output> m_outputs;
    std::deque<double> m_values;  // what inputs, outputs and the library point to; never moves
    std::vector<CallState> m_states;
    std::vector<std::string> m_stateKeys;  // which call of which expression
    std::vector<Batch> m_batches;
    double m_t = 0;
    double m_dt = 0;
};

}  // namespace ostrelcell

#endif
