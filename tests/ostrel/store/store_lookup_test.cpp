// Finding variables by name, and what a handle leads to.
#include <array>
#include <cstring>

#include "ostrel/storefixture.h"

namespace {

char* text(const std::string& s) {
    return const_cast<char*>(s.c_str());
}

class Lookup : public StoreTest {
protected:
    void SetUp() override {
        StoreTest::SetUp();
        configure({"put 54 1 SPEED",           "put 54 1 TORQUE",
                   "put 55 2 CYCLES",          "put 56 3 RUNNING",
                   "put 57 7 OPERATOR",        "put 11 2 PASSES",
                   "put 58 9 SPD_STAT.",       "put 53 10 EXHAUST.",
                   "put 53 11 FUEL.",          "put 53 12 EMIS.",
                   "array 15 GRID 3 4",        "array 16 COUNTS 5",
                   "array 17 NOTES 2",         "array 18 FLAGS 2 3 4",
                   "alias N_ENGINE SPEED 0",   "alias ENGINE_SPEED SPEED 1",
                   "alias MEAN SPD_STAT.AV 0", "alias CORNER GRID:1:3 0",
                   "alias MATRIX GRID 0",      "alias SPD SPD_STAT. 0",
                   "limits SPEED 100",         "limits SPD_STAT.MX 200",
                   "limits GRID:2:1 300"});
        auto* grid = record<REAL_ARRAY_VARIABLE>("GRID");
        ASSERT_NE(grid, nullptr);
        std::strcpy(grid->enum_labels[0][0], "idle");
        std::strcpy(grid->enum_labels[0][1], "part");
        std::strcpy(grid->enum_labels[0][2], "full");
        grid->enum_size[0] = 3;
    }

    static std::string aliasOf(const std::string& target) {
        SHARED_MEMORY mem{};
        char* alias = nullptr;
        if (find_alias_of_target(text(target), &mem, &alias) != 0)
            return alias ? "changed" : "none";
        EXPECT_EQ(+mem.vari_type, ALIAS_TYPE);
        EXPECT_STREQ(static_cast<ALIAS_VARIABLE*>(get_vrbl_adr(mem))->alias, alias);
        return alias;
    }
};

TEST_F(Lookup, OfSeveralAliasesThePrimaryOneIsGiven) {
    configure({"put 54 1 A", "put 54 1 B", "alias A_FIRST A 0", "alias A_SECOND A 1", "alias A_THIRD A 0",
               "alias B_FIRST B 1", "alias B_SECOND B 0"});
    EXPECT_EQ(aliasOf("A"), "A_SECOND");
    EXPECT_EQ(aliasOf("B"), "B_FIRST");
}

TEST_F(Lookup, APlainNameLeadsToItsRecord) {
    const SHARED_MEMORY mem = handle("TORQUE");
    EXPECT_EQ(+mem.code, GU_REAL_MEM);
    EXPECT_EQ(+mem.vari_type, REAL_TYPE);
    EXPECT_EQ(mem.index, 1);
    EXPECT_EQ(mem.offset, 0);
    EXPECT_EQ(mem.member_adr, nullptr);
    const auto* torque = record<REAL_VARIABLE>("TORQUE");
    ASSERT_NE(torque, nullptr);
    EXPECT_STREQ(torque->label, "TORQUE");
    EXPECT_EQ(+torque->active, 1);
    EXPECT_EQ(+torque->shm_id, GU_REAL_MEM);
    EXPECT_EQ(+torque->index, 1);
}

TEST_F(Lookup, EveryKindIsFoundInItsArea) {
    const struct {
        const char* label;
        SM_AREA_ID area;
        SM_VARI_TYPE kind;
    } rows[] = {{"CYCLES", GU_INTEGER_MEM, INT_TYPE},      {"RUNNING", GU_LOGICAL_MEM, LOGI_TYPE},
                {"OPERATOR", GU_STRING_MEM, STRING_TYPE},  {"SPD_STAT.", GU_STAT_MEM, STAT_TYPE},
                {"EXHAUST.", PROPERTIES_MEM, COMP_TYPE},   {"FUEL.", PROPERTIES_MEM, PROP_TYPE},
                {"EMIS.", PROPERTIES_MEM, EMIS_TYPE},      {"GRID", REAL_ARRAY_MEM, REAL_ARRAY_TYPE},
                {"COUNTS", INT_ARRAY_MEM, INT_ARRAY_TYPE}, {"NOTES", STRING_ARRAY_MEM, STRING_ARRAY_TYPE},
                {"FLAGS", LOGI_ARRAY_MEM, LOGI_ARRAY_TYPE}};
    for (const auto& row : rows) {
        const SHARED_MEMORY mem = handle(row.label);
        EXPECT_EQ(+mem.code, row.area) << row.label;
        EXPECT_EQ(+mem.vari_type, row.kind) << row.label;
        EXPECT_EQ(mem.member_adr, nullptr) << row.label;
        EXPECT_NE(get_vrbl_adr(mem), nullptr) << row.label;
    }
}

TEST_F(Lookup, ASecondSectionOfAnAreaBeginsAtItsOwnPlace) {
    void* base = nullptr;
    ASSERT_EQ(link_to_memory(ENGINE_PERF_MEM, &base), 0);
    EXPECT_EQ(static_cast<char*>(get_vrbl_adr(handle("PASSES"))), static_cast<char*>(base) + 39000);
}

TEST_F(Lookup, AMemberIsSelectedByTheTextBehindThePoint) {
    EXPECT_EQ(+handle("SPD_STAT.AV").stat_member, AV);
    EXPECT_EQ(+handle("SPD_STAT.CI").stat_member, CONF_INT);
    EXPECT_EQ(+handle("SPD_STAT.NR").stat_member, NR);
    EXPECT_EQ(+handle("EXHAUST.IP").comp_member, ISOP);
    EXPECT_EQ(+handle("FUEL.UT").prop_member, PROP_UPDATE_TIME);
    EXPECT_EQ(+handle("EMIS.CO2_ERR").emis_member, CO2_ERR);
    EXPECT_EQ(get_vrbl_adr(handle("SPD_STAT.MX")), get_vrbl_adr(handle("SPD_STAT.")));
}

TEST_F(Lookup, NamesOfMembersAreToldByKindAndNumber) {
    EXPECT_STREQ(ostrel_member_name(STAT_TYPE, CONF_INT), "CI");
    EXPECT_STREQ(ostrel_member_name(EMIS_TYPE, EMISSION_UPDATE_TIME), "UT");
    EXPECT_EQ(ostrel_member_name(STAT_TYPE, NUM_MEMBER_TYPES), nullptr);
    EXPECT_EQ(ostrel_member_name(STAT_TYPE, -1), nullptr);
    EXPECT_EQ(ostrel_member_name(REAL_TYPE, 0), nullptr);
}

TEST_F(Lookup, AnElementIsSelectedByNumbersOrLabels) {
    auto* elements = static_cast<REAL_ARRAY_MEMBER*>(link_to_array_mem(text("GRID"), nullptr));
    ASSERT_NE(elements, nullptr);
    EXPECT_EQ(handle("GRID:0:0").member_adr, elements);
    EXPECT_EQ(handle("GRID:1:2").member_adr, elements + 6);
    EXPECT_EQ(handle("GRID:full:3").member_adr, elements + 11);
    EXPECT_EQ(handle("GRID:02:003").member_adr, elements + 11);
    auto* flags = static_cast<LOGICAL_ARRAY_MEMBER*>(link_to_array_mem(text("FLAGS"), nullptr));
    EXPECT_EQ(handle("FLAGS:1:2:3").member_adr, flags + 23);
    auto* counts = static_cast<INTEGER_ARRAY_MEMBER*>(link_to_array_mem(text("COUNTS"), nullptr));
    EXPECT_EQ(handle("COUNTS:4").member_adr, counts + 4);
}

TEST_F(Lookup, AnAliasGivesTheHandleOfWhatItStandsFor) {
    EXPECT_EQ(handle("ENGINE_SPEED").index, handle("SPEED").index);
    EXPECT_EQ(+handle("ENGINE_SPEED").vari_type, REAL_TYPE);
    EXPECT_EQ(+handle("MEAN").vari_type, STAT_TYPE);
    EXPECT_EQ(handle("CORNER").member_adr, handle("GRID:1:3").member_adr);
    EXPECT_EQ(handle("MATRIX").member_adr, nullptr);
    EXPECT_EQ(handle("MATRIX:2:0").member_adr, handle("GRID:2:0").member_adr);
    EXPECT_EQ(+handle("SPD.MX").stat_member, MX);
}

TEST_F(Lookup, OnlyAnAliasIsAnAliasLabel) {
    SHARED_MEMORY mem{};
    short index = -1;
    ASSERT_EQ(find_alias_label(text("CORNER"), &mem, &index), 0);
    EXPECT_EQ(+mem.code, ALIAS_MEM);
    EXPECT_EQ(mem.index, index);
    EXPECT_STREQ(static_cast<ALIAS_VARIABLE*>(get_vrbl_adr(mem))->var.label, "GRID:1:3");
    EXPECT_EQ(find_alias_label(text("CORNER"), &mem, nullptr), 0);
    for (const char* name : {"SPEED", "SPD_STAT.AV", "GRID:1:3", "MATRIX:0:0", "UNKNOWN", ""})
        EXPECT_NE(find_alias_label(text(name), &mem, &index), 0) << name;
}

TEST_F(Lookup, ATargetTellsItsPrimaryAlias) {
    EXPECT_EQ(aliasOf("SPEED"), "ENGINE_SPEED");
    EXPECT_EQ(aliasOf("SPD_STAT.AV"), "MEAN");
    EXPECT_EQ(aliasOf("GRID:1:3"), "CORNER");
    EXPECT_EQ(aliasOf("GRID:part:03"), "CORNER");
    EXPECT_EQ(aliasOf("GRID"), "MATRIX");
    for (const char* name : {"TORQUE", "SPD_STAT.MX", "GRID:0:0", "ENGINE_SPEED", "UNKNOWN", ""})
        EXPECT_EQ(aliasOf(name), "none") << name;
}

TEST_F(Lookup, BaseNamesAreFoundWithAndWithoutTheirPoint) {
    SHARED_MEMORY mem{};
    EXPECT_EQ(find_stat_label(text("SPD_STAT"), &mem), 0);
    EXPECT_EQ(find_stat_label(text("SPD_STAT."), &mem), 0);
    EXPECT_EQ(+mem.vari_type, STAT_TYPE);
    EXPECT_EQ(find_comp_label(text("EXHAUST"), &mem), 0);
    EXPECT_EQ(find_prop_label(text("FUEL"), &mem), 0);
    EXPECT_EQ(find_emis_label(text("EMIS"), &mem), 0);
    EXPECT_NE(find_comp_label(text("SPD_STAT"), &mem), 0);
    EXPECT_NE(find_stat_label(text("SPD_STAT.AV"), &mem), 0);
    EXPECT_NE(find_stat_label(text("SPEED"), &mem), 0);
    EXPECT_NE(find_stat_label(text(""), &mem), 0);
    EXPECT_NE(find_stat_label(nullptr, &mem), 0);
    EXPECT_NE(find_stat_label(text("SPD_STAT"), nullptr), 0);
}

TEST_F(Lookup, AlmostRightNamesAreNotFound) {
    for (const char* name : {"",
                             " ",
                             ".",
                             ":",
                             "SPEED.",
                             ".SPEED",
                             "SPEED.AV",
                             "SPEED:",
                             "SPEED:0",
                             "speed",
                             "SPEED ",
                             " SPEED",
                             "SPD_STAT",
                             "SPD_STAT.av",
                             "SPD_STAT.XX",
                             "SPD_STAT.AV.",
                             "SPD_STAT.AV:0",
                             "SPD_STAT..AV",
                             "SPD.",
                             "MEAN.MX",
                             "GRID:",
                             "GRID:1",
                             "GRID:1:",
                             "GRID:1:2:",
                             "GRID:1:2:0",
                             "GRID:-1:0",
                             "GRID:+1:0",
                             "GRID:3:0",
                             "GRID:0:4",
                             "GRID:1.0:0",
                             "GRID::0",
                             "GRID:idl:0",
                             "GRID:0:idle",
                             "GRID.AV",
                             "GRID:99999999999999999999:0",
                             "CORNER:0:0",
                             ":1:2"})
        EXPECT_NE(find(name), 0) << '"' << name << '"';
    for (const size_t length : {79u, 80u, 81u, 5000u}) {
        EXPECT_NE(find(std::string(length, 'A')), 0);
        EXPECT_NE(find("GRID:" + std::string(length, '0')), 0);
    }
}

TEST_F(Lookup, AFailureLeavesTheHandleAsItWas) {
    SHARED_MEMORY mem{};
    std::memset(&mem, 0x5a, sizeof mem);
    const SHARED_MEMORY before = mem;
    EXPECT_NE(find_variable(text("UNKNOWN"), &mem), 0);
    EXPECT_EQ(std::memcmp(&mem, &before, sizeof mem), 0);
    EXPECT_NE(find_variable(nullptr, &mem), 0);
    EXPECT_NE(find_variable(text("SPEED"), nullptr), 0);
}

TEST_F(Lookup, AHandleThatLeadsNowhereHasNoAddress) {
    SHARED_MEMORY mem{};
    EXPECT_EQ(get_vrbl_adr(mem), nullptr);
    for (const short index : {short{-1}, short{2}, short{32767}}) {
        mem = handle("SPEED");
        mem.index = index;
        EXPECT_EQ(get_vrbl_adr(mem), nullptr) << index;
    }
    mem = handle("SPEED");
    mem.vari_type = INT_TYPE;
    EXPECT_EQ(get_vrbl_adr(mem), nullptr);
    mem.code = static_cast<SM_AREA_ID>(-1);
    EXPECT_EQ(get_vrbl_adr(mem), nullptr);
    mem.code = MAX_NUM_SHRD_MEM;
    mem.vari_type = static_cast<SM_VARI_TYPE>(19);
    EXPECT_EQ(get_vrbl_adr(mem), nullptr);
}

TEST_F(Lookup, UnitsComeFromRecordMemberOrElement) {
    std::strcpy(record<REAL_VARIABLE>("SPEED")->units, "rpm");
    std::strcpy(record<STAT_VARIABLE>("SPD_STAT.")->stat[SD].units, "Hz");
    std::strcpy(static_cast<REAL_ARRAY_MEMBER*>(handle("GRID:1:1").member_adr)->units, "degC");
    EXPECT_STREQ(get_variable_units(handle("SPEED")), "rpm");
    EXPECT_STREQ(get_variable_units(handle("SPD_STAT.SD")), "Hz");
    EXPECT_STREQ(get_variable_units(handle("SPD_STAT.AV")), "");
    EXPECT_STREQ(get_variable_units(handle("GRID:1:1")), "degC");
    EXPECT_STREQ(get_variable_units(handle("GRID")), "");
    EXPECT_STREQ(get_variable_units(handle("RUNNING")), "");
    EXPECT_STREQ(get_variable_units(SHARED_MEMORY{}), "");
}

TEST_F(Lookup, UnitsWithoutAZeroAtTheirEndAreCutAtTheField) {
    std::memset(record<REAL_VARIABLE>("SPEED")->units, 'm', 16);
    EXPECT_EQ(std::string(get_variable_units(handle("SPEED"))), std::string(16, 'm'));
}

TEST_F(Lookup, AnElementIsReachedThroughItsArray) {
    auto* grid = record<REAL_ARRAY_VARIABLE>("GRID");
    SHARED_MEMORY element = handle("GRID:1:2");
    SHARED_MEMORY whole = handle("GRID");
    EXPECT_EQ(get_real_array_adr(grid, &element), element.member_adr);
    EXPECT_EQ(get_real_array_adr(grid, &whole), handle("GRID:0:0").member_adr);
    EXPECT_EQ(get_real_array_adr(nullptr, &whole), nullptr);
    EXPECT_EQ(get_real_array_adr(grid, nullptr), nullptr);
    EXPECT_EQ(get_integer_array_adr(reinterpret_cast<INTEGER_ARRAY_VARIABLE*>(grid), &whole), nullptr);
    element.member_adr = &element;
    EXPECT_EQ(get_real_array_adr(grid, &element), nullptr);

    SHARED_MEMORY counts = handle("COUNTS:3");
    EXPECT_EQ(get_integer_array_adr(record<INTEGER_ARRAY_VARIABLE>("COUNTS"), &counts), counts.member_adr);
    SHARED_MEMORY notes = handle("NOTES:1");
    EXPECT_EQ(get_string_array_adr(record<STRING_ARRAY_VARIABLE>("NOTES"), &notes), notes.member_adr);
    SHARED_MEMORY flags = handle("FLAGS:0:0:1");
    EXPECT_EQ(get_logical_array_adr(record<LOGICAL_ARRAY_VARIABLE>("FLAGS"), &flags), flags.member_adr);
}

TEST_F(Lookup, FormatsOfMembersFollowTheirResolution) {
    auto* stat = record<STAT_VARIABLE>("SPD_STAT.");
    stat->stat[AV].display_resolution = 3;
    stat->stat[MX].display_resolution = 10;
    EXPECT_STREQ(get_stat_format(stat, AV), "%.3f");
    EXPECT_STREQ(get_stat_format(stat, MN), "%.0f");
    EXPECT_STREQ(get_stat_format(stat, MX), "%g");
    EXPECT_STREQ(get_stat_format(stat, NUM_MEMBER_TYPES), "%g");
    EXPECT_STREQ(get_stat_format(nullptr, AV), "%g");
    EXPECT_STREQ(get_comp_format(record<COMP_VARIABLE>("EXHAUST."), CO), "%.0f");
    EXPECT_STREQ(get_prop_format(record<PROP_VARIABLE>("FUEL."), AP), "%.0f");
    EXPECT_STREQ(get_emis_format(record<EMIS_VARIABLE>("EMIS."), CBE), "%.0f");
}

TEST_F(Lookup, LimitsAreToldWithTheirStatus) {
    record<REAL_VARIABLE>("SPEED")->limit_status.high_alarm = 1;
    LIMIT_STATUS status{};
    std::array<double, NUM_LIMIT_TYPES> limits{};
    std::array<short, NUM_LIMIT_TYPES> exists{};
    std::array<short, NUM_LIMIT_TYPES> display{};
    const auto ask = [&](const char* label) {
        return get_limit_info(text(label), &status, limits.data(), exists.data(), display.data());
    };
    for (const char* name : {"SPEED", "ENGINE_SPEED"}) {
        ASSERT_EQ(ask(name), 0);
        EXPECT_EQ(status.high_alarm, 1);
        EXPECT_EQ(limits[LOW_ALARM_LIMIT], 100);
        EXPECT_EQ(limits[VARIABLE_AGE_LIMIT], 106);
        EXPECT_EQ(exists[HIGH_EMERGENCY_LIMIT], 1);
        EXPECT_EQ(exists[VARIABLE_AGE_LIMIT], 0);
        EXPECT_EQ(display[HIGH_ALARM_LIMIT], 1024);
    }
    ASSERT_EQ(ask("SPD_STAT.MX"), 0);
    EXPECT_EQ(limits[LOW_ALARM_LIMIT], 200);
    ASSERT_EQ(ask("GRID:full:01"), 0);
    EXPECT_EQ(limits[LOW_ALARM_LIMIT], 300);
    ASSERT_EQ(ask("TORQUE"), 0);
    EXPECT_EQ(exists, (std::array<short, NUM_LIMIT_TYPES>{}));
    EXPECT_EQ(get_limit_info(text("SPEED"), nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_NE(ask("UNKNOWN"), 0);
    EXPECT_NE(get_limit_info(nullptr, &status, nullptr, nullptr, nullptr), 0);
}

TEST_F(Lookup, LimitsChangeWhileTheCellRuns) {
    std::array<double, NUM_LIMIT_TYPES> limits{};
    ASSERT_EQ(server.tell("limits SPEED 500"), "ok");
    ASSERT_EQ(get_limit_info(text("ENGINE_SPEED"), nullptr, limits.data(), nullptr, nullptr), 0);
    EXPECT_EQ(limits[LOW_ALARM_LIMIT], 500);
    ASSERT_EQ(server.tell("limits TORQUE 600"), "ok");
    ASSERT_EQ(get_limit_info(text("TORQUE"), nullptr, limits.data(), nullptr, nullptr), 0);
    EXPECT_EQ(limits[LOW_ALARM_LIMIT], 600);
}

}  // namespace
