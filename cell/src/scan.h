// One scan of a cell: expressions, texts, limits, statistics.
#ifndef OSTREL_CELL_SCAN_H
#define OSTREL_CELL_SCAN_H

#include <ctime>
#include <memory>
#include <vector>

#include "cellmodel.h"
#include "recordvalue.h"
#include "sampleage.h"
#include "simulation.h"
#include "statistics.h"
#include "storefill.h"

namespace ostrelcell {

class Scan {
public:
    // All three outlive the scan.
    Scan(const CellModel& model, Simulation& simulation, const StoreContents& contents);

    // Windows of statistics go on where a variable watches the same value for the same time, and ages of samples.
    void takeMemoryOf(Scan& before);

    // `t` is the time since the start of the cell, `dt` since the scan before.
    void run(double t, double dt);

private:
    struct Text {
        STRING_VARIABLE* record;
        const std::vector<std::string>* texts;
        size_t shown;
    };
    struct Limited {
        RecordValue value;
        const Variable* variable;
        int part;  // of an array, -1 for a scalar
        SampleAge age;
    };
    struct Stat {
        STAT_VARIABLE* record;
        const Variable* variable;
        RecordValue source;
        std::unique_ptr<StatWindow> window;
    };

    const CellModel& m_model;
    Simulation& m_simulation;
    std::vector<RecordValue> m_inputs;
    std::vector<RecordValue> m_outputs;
    std::vector<size_t> m_textOfOutput;  // an index into m_texts, or noText
    std::vector<Text> m_texts;
    std::vector<Limited> m_limited;
    std::vector<Stat> m_stats;
    LOGICAL_VARIABLE* m_latchReset = nullptr;
    size_t m_count = 0;

    void addLimited(const StoreContents& contents);
    void takeAgesOf(const Scan& before);
    void addStats(const StoreContents& contents);
    void loadInputs();
    double store(size_t output, double result, const timespec& now);
    void showText(Text& text, double choice, const timespec& now);
    void resetLatches();
    void judge(const Moment& now);
    void sampleStats(double t, const timespec& now);
};

}  // namespace ostrelcell

#endif
