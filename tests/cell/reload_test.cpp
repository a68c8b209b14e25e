// Reading the file again while the cell is served.
#include <ostrel/events.h>
#include <unistd.h>

#include <cmath>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <thread>

#include "servedtest.h"
#include "smallmemory.h"

namespace {

class Reload : public ServedTest {
protected:
    std::string goodReload(const std::string& lines) {
        int status = -1;
        const std::string remarks = reload(lines, status);
        EXPECT_EQ(status, 0) << remarks;
        return remarks;
    }
};

TEST_F(Reload, AddsAndRemovesAndKeepsTheRest) {
    serve(scans + "[real.STAYS]\nvalue = 1\n[real.GOES]\n");
    REAL_VARIABLE* address = &record<REAL_VARIABLE>("STAYS");
    set_real_variable(address, 42);
    EXPECT_EQ(goodReload(scans + "[integer.COMES]\nvalue = 7\n[real.STAYS]\nvalue = 1\nformat = \"%.5f\"\n"), "");
    EXPECT_EQ(number("STAYS"), 42);
    EXPECT_EQ(&record<REAL_VARIABLE>("STAYS"), address);
    EXPECT_STREQ(address->display_format, "%.5f");
    EXPECT_EQ(number("COMES"), 7);
    EXPECT_FALSE(exists("GOES"));
}

TEST_F(Reload, CountsItself) {
    serve(scans);
    char block[] = "reconfig_data";
    const auto* data = static_cast<RECONFIG_DATA*>(get_private_shrd_mem(block, sizeof(RECONFIG_DATA)));
    const int before = data->generic_reconfig_count;
    goodReload(scans + "[real.A]\n");
    EXPECT_GT(data->generic_reconfig_count, before);
}

TEST_F(Reload, KeepsTheOldCellWhereTheFileHasMistakes) {
    serve(scans + "[real.A]\nvalue = 5\nexpr = \"5\"\n");
    int status = 0;
    const std::string reasons = reload(scans + "[real.A]\nunit = 5\n[real.B]\n", status);
    EXPECT_NE(status, 0);
    EXPECT_EQ(reasons, path("cell.toml") + ":7: real.A: unknown key \"unit\"; did you mean \"units\"?");
    EXPECT_EQ(number("A"), 5);
    EXPECT_FALSE(exists("B"));
    scan(2);
}

TEST_F(Reload, ConvertsAValueThatGetsOtherUnits) {
    serve(scans + "[real.P]\nvalue = 2\nunits = \"bar\"\n[real.Q]\nvalue = 2\nunits = \"bar\"\n");
    goodReload(scans + "[real.P]\nvalue = 2\nunits = \"kPa\"\n[real.Q]\nvalue = 3\nunits = \"rpm\"\n");
    EXPECT_NEAR(number("P"), 200, 1e-9);
    EXPECT_EQ(number("Q"), 3) << "no way from bar to rpm: the value of the file";
}

TEST_F(Reload, ChangesExpressionsLimitsAndScan) {
    serve(scans + "[real.A]\nexpr = \"1\"\nhigh_alarm = 0\n");
    EXPECT_EQ(+record<REAL_VARIABLE>("A").status, 1536);
    goodReload("[cell]\nname = \"test\"\nscan_ms = 20\n" + scans + "[real.A]\nexpr = \"2\"\n");
    EXPECT_EQ(number("A"), 2);
    EXPECT_EQ(+record<REAL_VARIABLE>("A").status, 0);
    EXPECT_EQ(record<REAL_VARIABLE>("A").limit_status.high_alarm, 0);
    ostrel_cell_summary summary{};
    ostrel_cell_get_summary(cell(), &summary);
    EXPECT_EQ(summary.scan_ms, 20);
    scan(2);
}

TEST_F(Reload, SaysWhatWaitsForTheNextStart) {
    serve(scans);
    EXPECT_EQ(goodReload("[cell]\nname = \"test\"\nmode = \"0660\"\n" + scans), "mode takes effect at the next start");
}

TEST_F(Reload, KeepsTheWindowOfAStatistic) {
    const std::string lines = scans + "[real.X]\n[stat.S]\nsource = \"X\"\ninterval = 60\n";
    serve(lines);
    ASSERT_TRUE(scanUntil([] { return number("S.NM") > 20; }));
    goodReload(lines + "[real.NEW]\n");
    EXPECT_GT(number("S.NM"), 20);
}

TEST_F(Reload, StartsTheWindowOfAStatisticThatBecameAnotherOne) {
    const std::string watched = scans + "[real.X]\n[real.OTHER]\n";
    const std::string stat = "[stat.S]\nsource = \"X\"\ninterval = 60\nconfidence = 95\n";
    for (const char* other : {"[stat.S]\nsource = \"OTHER\"\ninterval = 60\nconfidence = 95\n",
                              "[stat.S]\nsource = \"X\"\ninterval = 50\nconfidence = 95\n",
                              "[stat.S]\nsource = \"X\"\ninterval = 60\nconfidence = 90\n"}) {
        serve(watched + stat);
        scan(10);
        goodReload(watched + stat);
        EXPECT_GT(number("S.NM"), 10) << "the same goes on";
        goodReload(watched + other);
        EXPECT_LT(number("S.NM"), 5) << other;
        stop();
    }
    serve(watched + stat);
    scan(10);
    goodReload("[cell]\nname = \"test\"\nscan_ms = 20\n" + watched + stat);
    EXPECT_LT(number("S.NM"), 5) << "its samples are taken at another pace";
}

TEST_F(Reload, KeepsWhatExpressionsRemember) {
    const std::string lines = scans + "[real.SUM]\nexpr = \"integral(1, 1000)\"\n";
    serve(lines);
    ASSERT_TRUE(scanUntil([] { return number("SUM") > 1000.05; }));
    const double before = number("SUM");
    goodReload(lines + "[real.NEW]\n");
    EXPECT_GE(number("SUM"), before);
    goodReload(scans + "[real.SUM]\nexpr = \"integral(1, 500)\"\n");
    EXPECT_LT(number("SUM"), before) << "another expression starts anew";
}

TEST_F(Reload, MakesTheEventsThatTheFileNamesNow) {
    serve(scans + "[real.X]\n");
    char listed[] = "FROM_LIST";
    char named[] = "FROM_VARIABLE";
    int id = 0;
    EXPECT_NE(event_get_id(listed, &id), 0);
    goodReload("[cell]\nname = \"test\"\nevents = [\"FROM_LIST\"]\n" + scans + "[real.X]\nevent = \"FROM_VARIABLE\"\n");
    EXPECT_EQ(event_get_id(listed, &id), 0);
    EXPECT_EQ(event_get_id(named, &id), 0);
}

TEST_F(Reload, ScansAtThePaceOfTheFileFromThenOn) {
    const std::string pace = "[real.DT]\nexpr = \"dt\"\n";
    serve(scans + pace);
    goodReload("[cell]\nname = \"test\"\nscan_ms = 70\n" + scans + pace);
    scan(2);
    for (int i = 0; i < 3; ++i) {
        scan(1);
        // However late a scan is, it stands on the grid.
        EXPECT_NEAR(std::remainder(number("DT"), 0.07), 0, 1e-6) << number("DT");
    }
}

TEST_F(Reload, ChangesTheShapeOfAnArray) {
    serve(scans + "[real_array.A]\nsize = 2\nvalue = 1\n");
    goodReload(scans + "[real_array.A]\nsize = [2, 2]\nvalue = 3\n");
    EXPECT_EQ(number("A:1:1"), 3);
    EXPECT_FALSE(exists("A:1"));
    goodReload(scans);
    EXPECT_FALSE(exists("A:1:1"));
}

// What a store holds that a refused reload must leave as it is.
class RefusedReload : public Reload {
protected:
    // A cell that has lost a variable, so that there is a slot that a new one could take.
    void serveBase() {
        serve(base + "[integer.GONE]\nvalue = 3\n");
        m_gone = &record<INTEGER_VARIABLE>("GONE");
        goodReload(base);
        set_real_variable(&record<REAL_VARIABLE>("SP"), 42);
        scan(2);
        ASSERT_TRUE(scanUntil([this] { return kept().find("real SP bar 42") != std::string::npos; })) << kept();
        m_index = handleOf("SP").index;
        m_field = handleOf("FIELD:1:2").member_adr;
        m_generation = generation();
        m_raised = configRaised();
        m_count = counters().generic_reconfig_count;
    }

    // A reason without the number of bytes that were missing, which depends on what was there before.
    static std::string withoutBytes(const std::string& reason) {
        static const std::regex bytes(", [1-9][0-9]* bytes of shared memory");
        return std::regex_replace(reason, bytes, "");
    }

    void refuses(const std::string& lines, const std::string& reason) {
        int status = 0;
        EXPECT_EQ(withoutBytes(reload(lines, status)), reason);
        EXPECT_NE(status, 0);
        EXPECT_EQ(number("SP"), 42);
        EXPECT_EQ(handleOf("SP").index, m_index);
        EXPECT_EQ(handleOf("FIELD:1:2").member_adr, m_field);
        EXPECT_EQ(number("FIELD:1:2"), 7);
        EXPECT_EQ(number("NICK"), 42);
        EXPECT_STREQ(record<REAL_VARIABLE>("SP").display_format, "%.1f");
        EXPECT_STREQ(m_gone->label, "GONE");
        EXPECT_EQ(+m_gone->value, 3);
        EXPECT_FALSE(exists("NEW"));
        EXPECT_FALSE(exists("GONE"));
        double limits[NUM_LIMIT_TYPES] = {};
        char name[] = "SP";
        EXPECT_EQ(get_limit_info(name, nullptr, limits, nullptr, nullptr), 0);
        EXPECT_EQ(limits[HIGH_ABORT_LIMIT], 90);
        // By a client: what this thread writes is the cell's own.
        std::thread([] { set_real_variable(&record<REAL_VARIABLE>("SP"), 101); }).join();
        EXPECT_EQ(number("SP"), 42) << "the rule holds";
        EXPECT_EQ(generation(), m_generation);
        EXPECT_EQ(configRaised(), m_raised) << "nobody was told of a reconfiguration";
        EXPECT_EQ(counters().generic_reconfig_count, m_count);
        const unsigned before = record<REAL_VARIABLE>("SCANS").update_count;
        EXPECT_TRUE(scanUntil([before] { return record<REAL_VARIABLE>("SCANS").update_count >= before + 3; }));
        EXPECT_NE(kept().find("real SP bar 42"), std::string::npos) << kept();
    }

    std::string kept() const {
        std::ostringstream text;
        text << std::ifstream(path(store() + ".kept")).rdbuf();
        return text.str();
    }

    static uint32_t generation() {
        ostrel_store_status status{};
        ostrel_store_get_status(&status);
        return status.generation;
    }

    static unsigned long long configRaised() {
        ostrel_event_info_t info{};
        for (int i = 0; ostrel_event_info(i, &info) == 0; ++i)
            if (std::string(info.name) == "config")
                return info.raised;
        return 0;
    }

    static const RECONFIG_DATA& counters() {
        char block[] = "reconfig_data";
        return *static_cast<const RECONFIG_DATA*>(get_private_shrd_mem(block, sizeof(RECONFIG_DATA)));
    }

    static std::string huge(const std::string& name) { return "[real_array." + name + "]\nsize = [1900, 1900]\n"; }
    // More arrays than the store was made for.
    static std::string many() {
        std::string lines;
        for (int i = 0; i < 70; ++i)
            lines += "[real_array.M" + std::to_string(i) + "]\nsize = 2\n";
        return lines;
    }

    static inline const std::string base =
        scans +
        "[real.SP]\nvalue = 1\nunits = \"bar\"\nformat = \"%.1f\"\npersist = true\nmax = 100\nhigh_abort = 90\n"
        "[real_array.FIELD]\nsize = [2, 3]\nvalue = 7\n[alias]\nNICK = \"SP\"\n";
    // The same names with other units, another rule, another shape and one more variable.
    static inline const std::string other =
        scans +
        "[real.SP]\nvalue = 1\nunits = \"kPa\"\nformat = \"%.3f\"\npersist = true\nmax = 500\nhigh_abort = 80\n"
        "[integer.NEW]\n[real_array.FIELD]\nsize = [3, 3]\nvalue = 9\n[alias]\nNICK = \"NEW\"\n";
    static inline const std::string noMemory = ": there is no memory left for it; free some in /dev/shm";

private:
    const INTEGER_VARIABLE* m_gone = nullptr;
    int m_index = 0;
    const void* m_field = nullptr;
    uint32_t m_generation = 0;
    unsigned long long m_raised = 0;
    int m_count = 0;
};

TEST_F(RefusedReload, LeavesTheStoreAsItWas) {
    withSharedMemoryOf(64, [this] {
        serveBase();
        refuses(other + huge("HUGE"), "HUGE" + noMemory);
        refuses(huge("HUGE") + other, "HUGE" + noMemory);
        EXPECT_EQ(goodReload(other), "");
        EXPECT_NEAR(number("SP"), 4200, 1e-9);
        EXPECT_EQ(number("FIELD:2:2"), 9);
        EXPECT_TRUE(exists("NEW"));
    });
}

TEST_F(RefusedReload, LeavesTheStoreAsItWasWhereItHadToGrow) {
    withSharedMemoryOf(64, [this] {
        serveBase();
        refuses(other + many() + huge("HUGE"), "HUGE" + noMemory);
        refuses(other + many() + huge("HUGE"), "HUGE" + noMemory);
        EXPECT_EQ(goodReload(other + many()), "");
        EXPECT_NEAR(number("SP"), 4200, 1e-9);
        EXPECT_TRUE(exists("M69:1"));
    });
}

// Whatever it is that the memory does not suffice for: records, what clients may write to them, or their names.
TEST_F(RefusedReload, LeavesTheStoreAsItWasHoweverMuchIsLeft) {
    withSharedMemoryOf(128, [this] {
        serveBase();
        std::string many;
        for (int i = 0; i < 19990; ++i)
            many += "[integer.N" + std::to_string(i) + "]\n";
        std::set<std::string> culprits;
        for (const double left : {0.5, 3.0, 7.0, 1.0, 40.0}) {
            const Filler filler(left);
            int status = 0;
            const std::string reason = withoutBytes(reload(many + other, status));
            if (status == 0)
                break;
            EXPECT_NE(reason.find(noMemory), std::string::npos) << reason;
            culprits.insert(reason.substr(0, reason.find(':')));
            write(base);
            refuses(many + other, reason);
        }
        EXPECT_TRUE(culprits.contains("N0")) << testing::PrintToString(culprits);
        EXPECT_TRUE(culprits.contains("the names")) << testing::PrintToString(culprits);
        EXPECT_TRUE(exists("N19989"));
        EXPECT_NEAR(number("SP"), 4200, 1e-9);
    });
}

TEST_F(RefusedReload, GivesBackTheMemoryThatItHadTaken) {
    withSharedMemoryOf(64, [this] {
        serveBase();
        const double before = freeMegabytes();
        refuses(base + "[real_array.LARGE]\nsize = [400, 500]\n" + huge("HUGE"), "HUGE" + noMemory);
        EXPECT_NEAR(freeMegabytes(), before, 5) << "the large one would take 20";
        goodReload(base + "[real_array.LARGE]\nsize = [400, 500]\n");
        EXPECT_TRUE(exists("LARGE:399:499"));
    });
}

}  // namespace
