// A cell served by this process under a name of its own, scanned by hand.
#ifndef OSTREL_TESTS_CELL_SERVEDTEST_H
#define OSTREL_TESTS_CELL_SERVEDTEST_H

#include <ostrelcell/cell.h>

#include "celltest.h"

class ServedTest : public CellTest {
protected:
    ~ServedTest() override { stop(); }

    void serve(const std::string& lines) {
        char message[4096] = "";
        m_cell = ostrel_cell_open(write(lines).c_str(), m_store.c_str(), message, sizeof message);
        ASSERT_NE(m_cell, nullptr) << message;
    }

    // Reads the file again with other lines; the reasons or remarks, and in `status` what came of it.
    std::string reload(const std::string& lines, int& status) {
        char message[4096] = "";
        write(lines);
        status = ostrel_cell_reload(m_cell, message, sizeof message);
        return message;
    }

    // Goes on scanning until the condition holds.
    bool scanUntil(const std::function<bool()>& condition) {
        return eventually([&] {
            ostrel_cell_step(m_cell);
            return condition();
        });
    }

    // At least so many more scans, counted by a variable that each scan updates.
    void scan(unsigned count = 2) {
        const auto& clock = record<REAL_VARIABLE>("SCANS");
        const unsigned start = clock.update_count;
        ASSERT_TRUE(scanUntil([&] { return clock.update_count - start >= count; }));
    }

    void stop() {
        ostrel_cell_close(m_cell);
        m_cell = nullptr;
    }

    const std::string& store() const { return m_store; }
    ostrel_cell* cell() { return m_cell; }

private:
    std::string m_store = uniqueStoreName();
    ostrel_cell* m_cell = nullptr;
};

// Every file of these tests has it, so that scans can be counted.
inline const std::string scans = "[real.SCANS]\nexpr = \"SCANS + 1\"\n";

#endif
