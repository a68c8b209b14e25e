// One scan of a cell: expressions, texts, limits, statistics.
#pragma once

#include <ctime>
#include <memory>
#include <vector>

#include "cellmodel.h"
#include "recordvalue.h"
#include "simulation.h"
#include "statistics.h"
#include "storefill.h"

namespace ostrelcell {

class Scan {
public:
    // All three outlive the scan.
    Scan(const CellModel& model, Simulation& simulation, const StoreContents& contents);

    // Windows of statistics go on where a variable watches the same value for the same time.
    void take_memory_of(Scan& before);

    // `t` is the time since the start of the cell, `dt` since the scan before.
    void run(double t, double dt);

private:
    struct Text {
        STRING_VARIABLE* record;
        const std::vector<std::string>* texts;
        std::size_t shown;
    };
    struct Limited {
        RecordValue value;
        const Variable* variable;
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
    std::vector<std::size_t> m_text_of_output;  // an index into m_texts, or no_text
    std::vector<Text> m_texts;
    std::vector<Limited> m_limited;
    std::vector<Stat> m_stats;
    LOGICAL_VARIABLE* m_latch_reset = nullptr;
    std::size_t m_count = 0;

    void add_limited(const StoreContents& contents);
    void add_stats(const StoreContents& contents);
    void load_inputs();
    double store(std::size_t output, double result, const timespec& now);
    void show_text(Text& text, double choice, const timespec& now);
    void reset_latches();
    void judge(const timespec& now);
    void sample_stats(double t, const timespec& now);
};

}  // namespace ostrelcell
