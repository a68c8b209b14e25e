// Reading the file again while the cell is served.
#include "servedtest.h"

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

TEST_F(Reload, ChangesTheShapeOfAnArray) {
    serve(scans + "[real_array.A]\nsize = 2\nvalue = 1\n");
    goodReload(scans + "[real_array.A]\nsize = [2, 2]\nvalue = 3\n");
    EXPECT_EQ(number("A:1:1"), 3);
    EXPECT_FALSE(exists("A:1"));
    goodReload(scans);
    EXPECT_FALSE(exists("A:1:1"));
}

}  // namespace
