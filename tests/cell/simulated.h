// Runs the expressions of a cell without a store.
#ifndef OSTREL_TESTS_CELL_SIMULATED_H
#define OSTREL_TESTS_CELL_SIMULATED_H

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "cellfile.h"
#include "names.h"

class Simulated {
public:
    explicit Simulated(const std::string& lines) {
        ostrelcell::Diagnostics diagnostics("cell.toml");
        ostrelcell::readCellText("[cell]\nname = \"test\"\n" + lines, model, simulation, diagnostics);
        EXPECT_EQ(diagnostics.text(), "");
    }

    // What a client has written, or the file says.
    void set(const std::string& name, double value) { m_values[name] = value; }

    // One scan, `dt` seconds after the one before.
    void run(double dt) {
        m_t += m_count++ == 0 ? 0 : dt;
        for (const auto& input : simulation.inputs())
            *input.value = m_values[model.fullName(input.ref) + (input.alarm ? "!" : "")];
        simulation.run(m_t, m_count == 1 ? 0 : dt, [this](size_t output, double result) {
            order.push_back(model.fullName(simulation.outputs()[output].ref));
            return m_values[order.back()] = result;
        });
    }

    double operator[](const std::string& name) { return m_values[name]; }

    ostrelcell::CellModel model;
    ostrelcell::Simulation simulation;
    std::vector<std::string> order;

private:
    std::map<std::string, double> m_values;
    double m_t = 0;
    int m_count = 0;
};

// The value of one expression at the time `t`.
inline double valueOf(const std::string& expression, double t = 0) {
    Simulated simulated("[real.RESULT]\nexpr = \"" + expression + "\"\n");
    simulated.run(0);
    if (t > 0)
        simulated.run(t);
    return simulated["RESULT"];
}

#endif
