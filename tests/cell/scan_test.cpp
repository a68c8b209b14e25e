// What a scan does to the store, seen as any client sees it.
#include <ostrel/events.h>
#include <unistd.h>

#include <cmath>
#include <cstring>

#include "servedtest.h"

namespace {

class Scan : public ServedTest {};

TEST_F(Scan, FillsARealFromItsFile) {
    serve(scans + "[real.P]\nvalue = 2.5\nunits = \"bar\"\nformat = \"%.3f\"\nrange = [-1, 12]\n");
    const auto& p = record<REAL_VARIABLE>("P");
    EXPECT_EQ(+p.value, 2.5);
    EXPECT_STREQ(p.units, "bar");
    EXPECT_GT(+p.units_code, 0);
    EXPECT_STREQ(p.display_format, "%.3f");
    EXPECT_EQ(+p.display_resolution, 3);
    EXPECT_EQ(+p.min_plot_range, -1);
    EXPECT_EQ(+p.max_plot_range, 12);
    EXPECT_STREQ(p.label, "P");
    EXPECT_STREQ(p.owner.name, "test");
    EXPECT_EQ(+p.active, 1);
    EXPECT_EQ(+p.last_pid, getpid());
    EXPECT_GT(+p.last_sampled_time.tv_sec, 1'000'000'000);
}

TEST_F(Scan, TellsDisplaysWhichLabelsFitEverywhere) {
    serve(scans + "[real.SIXTEEN_LETTERS_]\n[real.SEVENTEEN_LETTERS]\nevent = \"E\"\n");
    EXPECT_EQ(+record<REAL_VARIABLE>("SIXTEEN_LETTERS_").label_type, SHORT_LABEL_TYPE);
    EXPECT_EQ(+record<REAL_VARIABLE>("SEVENTEEN_LETTERS").label_type, LONG_LABEL_TYPE);
    EXPECT_EQ(+record<REAL_VARIABLE>("SIXTEEN_LETTERS_").event_active, 0);
    EXPECT_EQ(+record<REAL_VARIABLE>("SEVENTEEN_LETTERS").event_active, 1);
}

TEST_F(Scan, FillsTheOtherScalars) {
    serve(scans +
          "[integer.I]\nvalue = -7\nunits = \"rpm\"\n[logical.L]\nvalue = true\ntrue_state = \"ON\"\n"
          "false_state = \"OFF\"\nalarm = \"false\"\n[string.S]\nvalue = \"hello\"\n");
    EXPECT_EQ(number("I"), -7);
    EXPECT_STREQ(record<INTEGER_VARIABLE>("I").units, "rpm");
    EXPECT_STREQ(record<INTEGER_VARIABLE>("I").display_format, "%d");
    const auto& l = record<LOGICAL_VARIABLE>("L");
    EXPECT_EQ(+l.value, 1);
    EXPECT_STREQ(l.true_state, "ON");
    EXPECT_STREQ(l.false_state, "OFF");
    EXPECT_EQ(static_cast<int>(l.which_state_is_alarm), FALSE_IS_ALARM);
    EXPECT_EQ(text("S"), "hello");
}

TEST_F(Scan, IsAliveBeforeTheFirstStep) {
    serve(scans + "[real.A]\nvalue = 3\n[real.B]\nexpr = \"A * 2\"\nhigh_alarm = 5\n");
    EXPECT_EQ(number("B"), 6);
    EXPECT_EQ(+record<REAL_VARIABLE>("B").status, 1536);
}

TEST_F(Scan, FollowsASetpoint) {
    serve(scans +
          "[real.SP]\n[real.Y]\nexpr = \"SP * 2\"\n[integer.N]\nexpr = \"SP + 0.6\"\n"
          "[logical.ON]\nexpr = \"SP > 5\"\n");
    set_real_variable(&record<REAL_VARIABLE>("SP"), 10);
    ASSERT_TRUE(scanUntil([] { return number("Y") == 20; }));
    EXPECT_EQ(number("N"), 11);
    EXPECT_EQ(number("ON"), 1);
}

TEST_F(Scan, TakesBackWhatAClientWroteOverAnExpression) {
    serve(scans + "[real.Y]\nexpr = \"4\"\n");
    set_real_variable(&record<REAL_VARIABLE>("Y"), 99);
    EXPECT_EQ(number("Y"), 99);
    EXPECT_TRUE(scanUntil([] { return number("Y") == 4; }));
}

TEST_F(Scan, CountsUpdatesAndSetsTheTimeOfWhatStaysTheSame) {
    serve(scans + "[real.Y]\nexpr = \"4\"\n[real.SP]\nvalue = 1\n");
    const auto& y = record<REAL_VARIABLE>("Y");
    const unsigned before = y.update_count;
    const auto spBefore = record<REAL_VARIABLE>("SP").update_count;
    scan(3);
    EXPECT_GE(y.update_count - before, 3U);
    EXPECT_EQ(+record<REAL_VARIABLE>("SP").update_count, spBefore) << "nobody writes a setpoint but clients";
}

TEST_F(Scan, TrapsWhatIsNoNumber) {
    serve(scans + "[real.X]\nvalue = 1\n[real.Y]\nexpr = \"sqrt(X)\"\n[integer.I]\nexpr = \"sqrt(X)\"\n");
    EXPECT_EQ(number("Y"), 1);
    set_real_variable(&record<REAL_VARIABLE>("X"), -1);
    ASSERT_TRUE(scanUntil([] { return record<REAL_VARIABLE>("Y").NAN_trapped == 1; }));
    EXPECT_EQ(number("Y"), 1) << "the last good value stays";
    EXPECT_EQ(number("I"), 1);
    set_real_variable(&record<REAL_VARIABLE>("X"), 1);
    ASSERT_TRUE(scanUntil([] { return record<REAL_VARIABLE>("Y").NAN_trapped == 0; }));
}

TEST_F(Scan, KeepsIntegersWithinTheirRange) {
    serve(scans + "[integer.HIGH]\nexpr = \"1e12\"\n[integer.LOW]\nexpr = \"-1e12\"\n");
    EXPECT_EQ(number("HIGH"), 2147483647);
    EXPECT_EQ(number("LOW"), -2147483648.0);
}

TEST_F(Scan, ColoursAndLatchesUntilReset) {
    serve("[cell]\nname = \"test\"\nscan_ms = 10\nlatch_reset = \"RESET\"\n" + scans +
          "[logical.RESET]\n[real.X]\nhigh_alarm = 5\nhigh_emergency = 10\n");
    const auto& x = record<REAL_VARIABLE>("X");
    EXPECT_EQ(+x.status, 0);
    set_real_variable(&record<REAL_VARIABLE>("X"), 6);
    ASSERT_TRUE(scanUntil([&] { return x.status == 1536; }));
    EXPECT_EQ(x.limit_status.high_alarm, 1);
    set_real_variable(&record<REAL_VARIABLE>("X"), 11);
    ASSERT_TRUE(scanUntil([&] { return x.status == 1025; })) << "red and blinking";
    set_real_variable(&record<REAL_VARIABLE>("X"), 1);
    ASSERT_TRUE(scanUntil([&] { return x.status == 0; }));
    EXPECT_EQ(x.limit_status.high_alarm, 0);
    EXPECT_EQ(x.limit_status.high_alarm_latch, 1);
    EXPECT_EQ(x.limit_status.high_emergency_latch, 1);
    set_logical(&record<LOGICAL_VARIABLE>("RESET"), 1);
    ASSERT_TRUE(scanUntil([&] { return number("RESET") == 0; }));
    EXPECT_EQ(x.limit_status.high_alarm_latch, 0);
    EXPECT_EQ(x.limit_status.high_emergency_latch, 0);
}

TEST_F(Scan, ColoursALogicalInItsAlarmState) {
    serve(scans + "[logical.L]\nalarm = true\ncolour = \"magenta\"\nblink = true\nfalse_colour = \"green\"\n");
    const auto& l = record<LOGICAL_VARIABLE>("L");
    EXPECT_EQ(+l.status, 512);
    EXPECT_EQ(+l.alarm, 0);
    set_logical(&record<LOGICAL_VARIABLE>("L"), 1);
    ASSERT_TRUE(scanUntil([&] { return l.status == 1281; }));
    EXPECT_EQ(+l.alarm, 1);
    EXPECT_EQ(l.limit_status.high_alarm, 1);
}

TEST_F(Scan, SeesAValueGrowOld) {
    serve(scans + "[real.X]\nage = 0.05\n[real.Y]\nage = 0.05\nexpr = \"1\"\n");
    const auto& x = record<REAL_VARIABLE>("X");
    ASSERT_TRUE(scanUntil([&] { return x.limit_status.variable_age == 1; }));
    EXPECT_EQ(+x.status, 768);
    ASSERT_TRUE(scanUntil([&] {
        set_real_variable(&record<REAL_VARIABLE>("X"), 1);
        ostrel_cell_step(cell());
        return x.limit_status.variable_age == 0;
    }));
    EXPECT_EQ(x.limit_status.variable_age_latch, 1);
}

// As after the clock was set back by an hour: the record has a time that lies in the future.
TEST_F(Scan, SeesAValueGrowOldWhateverTheClockSays) {
    serve(scans + "[real.X]\nage = 0.05\n");
    auto& x = record<REAL_VARIABLE>("X");
    for (const int hours : {1, -1, 2}) {
        set_real_variable(&x, hours);
        timespec time = x.last_sampled_time;
        time.tv_sec += hours * 3600;
        x.last_sampled_time = time;
        ASSERT_TRUE(scanUntil([&] { return x.limit_status.variable_age == 0; })) << hours;
        ASSERT_TRUE(scanUntil([&] { return x.limit_status.variable_age == 1; })) << hours;
    }
}

TEST_F(Scan, TellsItsLimitsToClients) {
    serve(scans + "[real.X]\nlow_abort = 1\nhigh_alarm = { value = 9, colour = \"blue\" }\nage = 60\n");
    char name[] = "X";
    LIMIT_STATUS status;
    double limits[NUM_LIMIT_TYPES];
    short found[NUM_LIMIT_TYPES];
    short display[NUM_LIMIT_TYPES];
    ASSERT_EQ(get_limit_info(name, &status, limits, found, display), 0);
    EXPECT_EQ(limits[LOW_ABORT_LIMIT], 1);
    EXPECT_EQ(limits[HIGH_ALARM_LIMIT], 9);
    EXPECT_EQ(limits[VARIABLE_AGE_LIMIT], 60);
    EXPECT_EQ(found[HIGH_ALARM_LIMIT], 1);
    EXPECT_EQ(found[LOW_ALARM_LIMIT], 0);
    EXPECT_EQ(display[HIGH_ALARM_LIMIT], 256);
    EXPECT_EQ(display[LOW_ABORT_LIMIT], 1024);
}

TEST_F(Scan, ShowsOneOfSeveralTexts) {
    serve(scans + "[integer.N]\n[string.S]\ntexts = [\"zero\", \"one\", \"two\"]\nexpr = \"N\"\n");
    EXPECT_EQ(text("S"), "zero");
    set_integer(&record<INTEGER_VARIABLE>("N"), 1);
    EXPECT_TRUE(scanUntil([] { return text("S") == "one"; }));
    set_integer(&record<INTEGER_VARIABLE>("N"), 50);
    EXPECT_TRUE(scanUntil([] { return text("S") == "two"; }));
    set_integer(&record<INTEGER_VARIABLE>("N"), -3);
    EXPECT_TRUE(scanUntil([] { return text("S") == "zero"; }));
}

TEST_F(Scan, FillsAndDrivesArrays) {
    serve(scans +
          "[real.X]\nvalue = 1\n"
          "[real_array.R]\nsize = [2, 2]\nlabels = [[\"IN\", \"OUT\"], [\"A\", \"B\"]]\nunits = \"bar\"\n"
          "value = [[1, 2], [3, 4]]\nhigh_alarm = 3.5\n"
          "[real_array.E]\nsize = 3\nexpr = \"X * 10 + i\"\nhigh_abort = 11.5\n"
          "[integer_array.I]\nsize = 2\nvalue = 5\n[logical_array.L]\nsize = 3\nexpr = \"i == 1\"\n"
          "alarm = true\n[string_array.S]\nsize = 2\nvalue = [\"a\", \"b\"]\n");
    EXPECT_EQ(number("R:0:1"), 2);
    EXPECT_EQ(number("R:OUT:A"), 3);
    EXPECT_EQ(number("E:2"), 12);
    EXPECT_EQ(number("I:1"), 5);
    EXPECT_EQ(number("L:0"), 0);
    EXPECT_EQ(number("L:1"), 1);
    EXPECT_EQ(text("S:1"), "b");
    const auto element = [](const std::string& name) {
        return static_cast<REAL_ARRAY_MEMBER*>(handleOf(name).member_adr);
    };
    EXPECT_STREQ(element("R:0:0")->units, "bar");
    EXPECT_EQ(+element("R:OUT:B")->status, 1536);
    EXPECT_EQ(+element("R:OUT:A")->status, 0);
    EXPECT_EQ(+element("E:2")->status, 1024);
    EXPECT_EQ(element("E:2")->limit_status.high_abort, 1);
    EXPECT_EQ(+element("E:1")->status, 0);
    EXPECT_EQ(+static_cast<LOGICAL_ARRAY_MEMBER*>(handleOf("L:1").member_adr)->status, 1024);
    set_real_variable(&record<REAL_VARIABLE>("X"), 2);
    EXPECT_TRUE(scanUntil([] { return number("E:0") == 20; }));
    EXPECT_EQ(+element("E:0")->status, 1024);
    REAL_ARRAY_MEMBER& stolen = *element("E:0");
    stolen.last_pid = 1;
    std::strcpy(stolen.last_process_name, "somebody");
    EXPECT_TRUE(scanUntil([&] { return stolen.last_pid == getpid(); }));
    EXPECT_STRNE(stolen.last_process_name, "somebody");
}

TEST_F(Scan, FillsAndDrivesMembers) {
    serve(scans +
          "[real.X]\nvalue = 2\n[composition.AIR]\nfluid = \"gas\"\nunits = \"%\"\nN2 = 78.1\n"
          "O2 = \"10 * X\"\nAR = { value = 0.9, units = \"ppm\", decimals = 1 }\n"
          "[property.P]\ncomposition = \"AIR\"\nfluid = \"liquid\"\nAT = { expr = \"X + 1\", units = \"degC\" }\n"
          "[emission.E]\ncomposition = \"AIR\"\nMF_CO2 = \"X * 3\"\n");
    EXPECT_EQ(number("AIR.N2"), 78.1);
    EXPECT_EQ(number("AIR.O2"), 20);
    EXPECT_EQ(number("P.AT"), 3);
    EXPECT_EQ(number("E.MF_CO2"), 6);
    auto& air = record<COMP_VARIABLE>("AIR.AR");
    EXPECT_STREQ(air.fraction[AR].units, "ppm");
    EXPECT_STREQ(air.fraction[N2].units, "%");
    EXPECT_STREQ(get_comp_format(&air, AR), "%.1f");
    EXPECT_EQ(static_cast<int>(air.fluid_type), GAS_STREAM);
    EXPECT_STREQ(air.label, "AIR.");
    EXPECT_EQ(static_cast<int>(record<PROP_VARIABLE>("P.AT").fluid_type), LIQUID_STREAM);
    EXPECT_STREQ(record<PROP_VARIABLE>("P.AT").comp_label, "AIR.");
    EXPECT_STREQ(record<EMIS_VARIABLE>("E.MF_CO2").comp_label, "AIR.");
    set_real_variable(&record<REAL_VARIABLE>("X"), 3);
    EXPECT_TRUE(scanUntil([] { return number("AIR.O2") == 30; }));
    EXPECT_EQ(number("E.MF_CO2"), 9);
    auto& property = record<PROP_VARIABLE>("P.AT");
    auto& emission = record<EMIS_VARIABLE>("E.MF_CO2");
    property.last_sampled_time = {};
    emission.last_sampled_time = {};
    EXPECT_TRUE(scanUntil([&] { return property.last_sampled_time.tv_sec > 0; })) << "each scan is a sample";
    EXPECT_GT(emission.last_sampled_time.tv_sec, 0);
}

TEST_F(Scan, ComputesStatistics) {
    serve(scans + "[real.X]\nvalue = 4\nunits = \"bar\"\nformat = \"%.1f\"\n[stat.S]\nsource = \"X\"\ninterval = 60\n");
    const auto& stat = record<STAT_VARIABLE>("S.AV");
    EXPECT_EQ(number("S.AV"), 4);
    EXPECT_STREQ(stat.source_label, "X");
    EXPECT_STREQ(stat.stat[AV].units, "bar");
    EXPECT_STREQ(stat.stat[ST].units, "s");
    EXPECT_STREQ(stat.stat[NM].units, "");
    EXPECT_EQ(+stat.stat[AV].display_resolution, 1);
    EXPECT_EQ(+stat.process_interval, 60);
    set_real_variable(&record<REAL_VARIABLE>("X"), 8);
    ASSERT_TRUE(scanUntil([] { return number("S.MX") == 8; }));
    EXPECT_EQ(number("S.MN"), 4);
    EXPECT_EQ(number("S.FV"), 8);
    EXPECT_GT(number("S.AV"), 4);
    EXPECT_LT(number("S.AV"), 8);
    EXPECT_GT(number("S.NM"), 10);
}

TEST_F(Scan, WatchesElementsAndMembers) {
    serve(scans +
          "[real_array.A]\nsize = 2\nvalue = [1, 7]\nlabels = [\"P\", \"Q\"]\n[stat.S]\nsource = \"A:Q\"\n"
          "[composition.C]\nN2 = { value = 5, units = \"%\", decimals = 4 }\n[stat.T]\nsource = \"C.N2\"\n");
    EXPECT_EQ(number("S.AV"), 7);
    EXPECT_EQ(number("T.AV"), 5);
    EXPECT_STREQ(record<STAT_VARIABLE>("S.AV").source_label, "A:1");
    EXPECT_EQ(+record<STAT_VARIABLE>("T.AV").stat[AV].display_resolution, 4);
}

TEST_F(Scan, KnowsAliases) {
    serve(scans +
          "[real.X]\nvalue = 4\n[real_array.A]\nsize = 2\nvalue = [1, 2]\nlabels = [\"P\", \"Q\"]\n"
          "[alias]\nQ = \"PP\"\nPP = \"X\"\nE = \"A:Q\"\nW = { target = \"X\", primary = true }\n");
    EXPECT_EQ(number("Q"), 4);
    EXPECT_EQ(number("PP"), 4);
    EXPECT_EQ(number("E"), 2);
    char target[] = "X";
    SHARED_MEMORY mem;
    char* alias = nullptr;
    ASSERT_EQ(find_alias_of_target(target, &mem, &alias), 0);
    EXPECT_STREQ(alias, "W");
}

TEST_F(Scan, MakesItsEventsAndRaisesThemOnChange) {
    serve("[cell]\nname = \"test\"\nscan_ms = 10\nevents = [\"GO\"]\n" + scans +
          "[real.SP]\n[real.Y]\nexpr = \"SP\"\nevent = \"Y_CHANGED\"\n[logical.L]\nexpr = \"SP > 5\"\n"
          "true_event = \"L_ON\"\n");
    char go[] = "GO";
    int id = 0;
    EXPECT_EQ(event_get_id(go, &id), 0);
    int changed = 0;
    int on = 0;
    ASSERT_EQ(event_attach("Y_CHANGED", 5, &changed), 0);
    ASSERT_EQ(event_attach("L_ON", 5, &on), 0);
    set_real_variable(&record<REAL_VARIABLE>("SP"), 10);
    scan(2);
    int first = 0;
    int second = 0;
    EXPECT_EQ(event_wait(nullptr, 0, &first), 0);
    EXPECT_EQ(event_wait(nullptr, 0, &second), 0);
    EXPECT_TRUE((first == changed && second == on) || (first == on && second == changed));
}

TEST_F(Scan, RefusesASecondServer) {
    serve(scans);
    char message[1024] = "";
    EXPECT_EQ(ostrel_cell_open(path("cell.toml").c_str(), store().c_str(), message, sizeof message), nullptr);
    EXPECT_NE(std::string(message).find(store()), std::string::npos) << message;
    EXPECT_EQ(std::strchr(message, '\n'), nullptr);
}

TEST_F(Scan, LoadsNothingFromAFileWithAMistake) {
    char message[1024] = "";
    const std::string file = write("[real.A]\n[real.B]\nunits = \"furlong\"\n");
    EXPECT_EQ(ostrel_cell_open(file.c_str(), store().c_str(), message, sizeof message), nullptr);
    EXPECT_EQ(message, file + ":6: real.B: unknown units \"furlong\"");
    EXPECT_NE(access(("/dev/shm/ostrel-" + store()).c_str(), F_OK), 0);
}

TEST_F(Scan, TellsWhatItServes) {
    serve(scans + "[real.A]\n[alias]\nB = \"A\"\n");
    ostrel_cell_summary summary{};
    ostrel_cell_get_summary(cell(), &summary);
    EXPECT_STREQ(summary.name, "test");
    EXPECT_EQ(summary.variables, 2);
    EXPECT_EQ(summary.aliases, 1);
    EXPECT_EQ(summary.scan_ms, 10);
    EXPECT_EQ(summary.adopted, 0);
    ostrel_store_status status{};
    EXPECT_EQ(ostrel_store_get_status(&status), 1);
    EXPECT_EQ(std::string(status.cell_file), path("cell.toml"));
    EXPECT_EQ(status.server_pid, getpid());
}

}  // namespace
