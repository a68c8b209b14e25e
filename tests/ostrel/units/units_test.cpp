#include <gtest/gtest.h>
#include <ostrel/units.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <latch>
#include <limits>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "paths.h"
#include "units/unitstable.h"
#include "unitsphysics.h"

namespace {

constexpr double untouched = -777.25;

// The platform takes its texts as char* and does not write to them.
char* text(const std::string& keyword) {
    return const_cast<char*>(keyword.c_str());
}

double converted(double value, const std::string& from, const std::string& to) {
    double result = untouched;
    EXPECT_EQ(unitsConvert(value, text(from), &result, text(to)), 0) << from << " to " << to;
    return result;
}

testing::AssertionResult refuses(const std::string& from, const std::string& to) {
    double result = untouched;
    const int status = unitsConvert(1, text(from), &result, text(to));
    if (status == 0)
        return testing::AssertionFailure() << from << " to " << to << " was converted";
    if (result != untouched)
        return testing::AssertionFailure() << from << " to " << to << " changed the result";
    return testing::AssertionSuccess();
}

testing::AssertionResult isClose(double value, double wanted, double scale) {
    const double tolerance = 1e-9 * std::max(std::fabs(wanted), scale);
    if (std::fabs(value - wanted) <= tolerance)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << value << " where " << wanted << " is right";
}

std::vector<std::string> compatible(const std::string& keyword, short int capacity = 30) {
    std::vector<UNITS_NAME> names(static_cast<size_t>(capacity));
    EXPECT_EQ(LV_get_units(text(keyword), &capacity, names.data()), 0) << keyword;
    std::vector<std::string> list;
    for (short int i = 0; i < capacity; ++i)
        list.emplace_back(names[static_cast<size_t>(i)]);
    return list;
}

const UnitPhysics& physicsOf(const std::string& keyword) {
    static const UnitPhysics unknown{"unknown", 0, 1, 0};
    for (const UnitPhysics& row : unitPhysics) {
        if (keyword == row.keyword)
            return row;
    }
    ADD_FAILURE() << keyword << " is missing in unitsphysics.h";
    return unknown;
}

// Compares with what the definitions of the two units say.
void expectAsDefined(double value, const UnitPhysics& from, const UnitPhysics& to) {
    const double wanted = (value * from.factor + from.offset - to.offset) / to.factor;
    const double scale = std::max(std::fabs(to.offset / to.factor), std::fabs(from.offset / to.factor));
    EXPECT_TRUE(isClose(converted(value, from.keyword, to.keyword), wanted, scale))
        << value << " " << from.keyword << " in " << to.keyword;
}

// Ends a process that was made for one case; the case fails where an expectation in it did.
[[noreturn]] void endCase() {
    std::_Exit(testing::Test::HasFailure() ? 1 : 0);
}

// Cases that need an environment of their own run in a process that has not converted anything yet.
class UnitsInNewProcess : public testing::Test {
protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

// A file of a site's keywords for this process, gone at the end of the scope.
class SiteFile {
public:
    explicit SiteFile(const std::string& lines)
        : m_path(testing::TempDir() + "ostrel-units-" + std::to_string(getpid()) + ".txt") {
        std::ofstream(m_path) << lines;
        setenv("OSTREL_UNITS", m_path.c_str(), 1);
    }
    ~SiteFile() { std::remove(m_path.c_str()); }
    SiteFile(const SiteFile&) = delete;
    SiteFile& operator=(const SiteFile&) = delete;

private:
    std::string m_path;
};

}  // namespace

TEST(Units, EveryKeywordIsWhatItsDefinitionSays) {
    for (const UnitPhysics& from : unitPhysics) {
        for (const std::string& keyword : compatible(from.keyword)) {
            for (double value : {0.0, 1.0, -40.0, 12345.678})
                expectAsDefined(value, from, physicsOf(keyword));
        }
    }
}

TEST(Units, EveryConversionLeadsBack) {
    for (const UnitPhysics& from : unitPhysics) {
        for (const std::string& keyword : compatible(from.keyword)) {
            const double there = converted(37.5, from.keyword, keyword);
            EXPECT_TRUE(isClose(converted(there, keyword, from.keyword), 37.5, std::fabs(from.offset / from.factor)))
                << from.keyword << " to " << keyword << " and back";
        }
    }
}

TEST(Units, CodesAreThoseOfOldAndKeywordsFitTheirField) {
    std::set<int> codes;
    for (const UnitPhysics& row : unitPhysics) {
        int code = -5;
        EXPECT_EQ(units_keyword_to_code(text(row.keyword), &code), 0) << row.keyword;
        EXPECT_EQ(code, row.code) << row.keyword;
        EXPECT_TRUE(codes.insert(code).second) << row.keyword;
        EXPECT_LE(std::strlen(row.keyword), 15U);
        char keyword[16] = "untouched";
        EXPECT_EQ(units_code_to_keyword(row.code, keyword), 0) << row.keyword;
        EXPECT_STREQ(keyword, row.keyword);
    }
    for (int code = -1; code < 100000; ++code) {
        char keyword[16] = "untouched";
        if (codes.count(code) == 0) {
            EXPECT_NE(units_code_to_keyword(code, keyword), 0) << code;
            EXPECT_STREQ(keyword, "untouched");
        }
    }
}

TEST(Units, UpperAndLowerCaseAreTheSame) {
    EXPECT_DOUBLE_EQ(converted(2, "kPa", "pa"), 2000);
    EXPECT_EQ(converted(2, "kPa", "KPA"), 2);
    int code = 0;
    EXPECT_EQ(units_keyword_to_code(text("lbf-ft"), &code), 0);
    EXPECT_EQ(code, 2102);
}

TEST(Units, EqualKeywordsGiveTheVeryValue) {
    for (const UnitPhysics& row : unitPhysics)
        EXPECT_EQ(converted(0.1, row.keyword, row.keyword), 0.1);
    EXPECT_TRUE(refuses("FURLONGS", "FURLONGS"));
    EXPECT_EQ(converted(0.1, "", ""), 0.1);
    EXPECT_EQ(converted(0.1, "", "none"), 0.1);
}

TEST(Units, ValuesThatAreNoNumberPass) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(std::isnan(converted(nan, "KPAG", "PSI")));
    EXPECT_TRUE(std::isnan(converted(nan, "RPM", "RPM")));
    EXPECT_EQ(converted(infinity, "RPM", "RAD/S"), infinity);
    EXPECT_EQ(converted(-infinity, "DEGC", "DEGF"), -infinity);
}

TEST(Units, GaugePressuresCountFromOneAtmosphere) {
    EXPECT_NEAR(converted(0, "KPAG", "KPA"), 101.325, 1e-12);
    EXPECT_NEAR(converted(101.325, "KPA", "PSIG"), 0, 1e-12);
    EXPECT_NEAR(converted(1, "BARG", "BAR"), 2.01325, 1e-12);
    EXPECT_NEAR(converted(100, "KPAG", "BARG"), 1, 1e-12);
    EXPECT_NEAR(converted(1, "PSID", "PAD"), psi, 1e-9);
}

TEST(Units, WhatOnlyLooksAlikeIsKeptApart) {
    EXPECT_TRUE(refuses("NM", "J"));
    EXPECT_TRUE(refuses("KPA", "KPAD"));
    EXPECT_TRUE(refuses("KPAG", "PSID"));
    EXPECT_TRUE(refuses("DEGC", "DELTAC"));
    EXPECT_TRUE(refuses("COUNTS", "RATIO"));
    EXPECT_TRUE(refuses("COUNTS", "CYL"));
    EXPECT_TRUE(refuses("PPM", "PPMC1"));
    EXPECT_TRUE(refuses("L/MIN", "SLPM"));
    EXPECT_TRUE(refuses("W", "VA"));
    EXPECT_TRUE(refuses("MPG", "L/100KM"));
    EXPECT_TRUE(refuses("DEG", "RATIO"));
    EXPECT_TRUE(refuses("NONE", "RATIO"));
    EXPECT_TRUE(refuses("", "RPM"));
    EXPECT_TRUE(refuses("RPM", ""));
}

TEST(Units, GroupsDoNotConvertToEachOther) {
    std::map<std::string, std::string> firstOfGroup;
    for (const UnitPhysics& row : unitPhysics)
        firstOfGroup.emplace(compatible(row.keyword).front(), row.keyword);
    EXPECT_GE(firstOfGroup.size(), 50U);
    for (const auto& [from, anyOfFrom] : firstOfGroup) {
        for (const auto& [to, anyOfTo] : firstOfGroup) {
            if (from != to) {
                EXPECT_TRUE(refuses(from, to));
            }
        }
    }
}

TEST(Units, UnknownKeywordsAreRefused) {
    EXPECT_TRUE(refuses("FURLONGS", "M"));
    EXPECT_TRUE(refuses("M", "FURLONGS"));
    EXPECT_TRUE(refuses("RPM ", "RPM"));
    EXPECT_TRUE(refuses(" RPM", "RPM"));
    EXPECT_TRUE(refuses("KP", "KPA"));
    EXPECT_TRUE(refuses("SIXTEENLETTERSXX", "M"));
    EXPECT_TRUE(refuses("M", std::string(1000, 'M')));
    EXPECT_TRUE(refuses("\xb5m", "M"));
    int code = -5;
    EXPECT_NE(units_keyword_to_code(text("FURLONGS"), &code), 0);
    EXPECT_EQ(code, -5);
}

TEST(Units, NullIsRefused) {
    double real = untouched;
    int integer = -5;
    short int count = 5;
    REAL_VARIABLE var{};
    UNITS_NAME names[5];
    EXPECT_NE(unitsConvert(1, nullptr, &real, text("M")), 0);
    EXPECT_NE(unitsConvert(1, text("M"), &real, nullptr), 0);
    EXPECT_NE(unitsConvert(1, text("M"), nullptr, text("M")), 0);
    EXPECT_NE(units_dbl_keyword_convrt(1, nullptr, &real, text("M")), 0);
    EXPECT_NE(units_lng_keyword_convrt(1, text("M"), nullptr, text("MM")), 0);
    EXPECT_NE(units_lng_keyword_convrt(1, text("M"), &integer, nullptr), 0);
    EXPECT_NE(units_get_int_keyword(&integer, nullptr, text("M")), 0);
    EXPECT_NE(units_get_real_keyword(&real, nullptr, text("M")), 0);
    EXPECT_NE(units_get_real_keyword(nullptr, &var, text("M")), 0);
    EXPECT_NE(units_get_real_keyword(&real, &var, nullptr), 0);
    EXPECT_NE(units_code_to_keyword(2101, nullptr), 0);
    EXPECT_NE(units_keyword_to_code(nullptr, &integer), 0);
    EXPECT_NE(units_keyword_to_code(text("M"), nullptr), 0);
    EXPECT_NE(LV_get_units(text("M"), nullptr, names), 0);
    EXPECT_NE(LV_get_units2(text("M"), nullptr, names), 0);
    EXPECT_EQ(LV_get_units2(text("M"), &count, nullptr), -1);
    EXPECT_EQ(count, 0);
    count = 5;
    EXPECT_EQ(LV_get_units(nullptr, &count, names), -1);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(real, untouched);
    EXPECT_EQ(integer, -5);
}

TEST(Units, IntegersAreRoundedToTheNearest) {
    struct {
        int value;
        const char *from, *to;
        int wanted;
    } const cases[] = {
        {1, "IN", "MM", 25},     {1, "IN", "CM", 3},         {2, "IN", "CM", 5},      {-1, "IN", "CM", -3},
        {5, "MM", "CM", 1},      {4, "MM", "CM", 0},         {0, "DEGC", "DEGF", 32}, {100, "DEGC", "DEGF", 212},
        {1500, "RPM", "HZ", 25}, {-40, "DEGF", "DEGC", -40}, {7, "M", "M", 7},
    };
    for (const auto& c : cases) {
        int result = -777;
        EXPECT_EQ(units_lng_keyword_convrt(c.value, text(c.from), &result, text(c.to)), 0);
        EXPECT_EQ(result, c.wanted) << c.value << " " << c.from << " in " << c.to;
    }
}

TEST(Units, IntegersThatDoNotFitAreRefused) {
    const int greatest = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    int result = -777;
    EXPECT_NE(units_lng_keyword_convrt(greatest, text("CM"), &result, text("MM")), 0);
    EXPECT_NE(units_lng_keyword_convrt(least, text("CM"), &result, text("MM")), 0);
    EXPECT_NE(units_lng_keyword_convrt(1, text("CM"), &result, text("KG")), 0);
    EXPECT_NE(units_lng_keyword_convrt(1, text("CM"), &result, text("FURLONGS")), 0);
    EXPECT_EQ(result, -777);
    EXPECT_EQ(units_lng_keyword_convrt(greatest, text("CC"), &result, text("ML")), 0);
    EXPECT_EQ(result, greatest);
    EXPECT_EQ(units_lng_keyword_convrt(least, text("CM3"), &result, text("CC")), 0);
    EXPECT_EQ(result, least);
}

TEST(Units, VariablesAreReadInGivenUnits) {
    REAL_VARIABLE real{};
    real.value = 2;
    std::strcpy(real.units, "bar");
    double value = untouched;
    EXPECT_EQ(units_get_real_keyword(&value, &real, text("KPA")), 0);
    EXPECT_DOUBLE_EQ(value, 200);
    EXPECT_EQ(real.value, 2);
    INTEGER_VARIABLE integer{};
    integer.value = 3;
    std::strcpy(integer.units, "IN");
    int whole = -777;
    EXPECT_EQ(units_get_int_keyword(&whole, &integer, text("MM")), 0);
    EXPECT_EQ(whole, 76);
    EXPECT_NE(units_get_int_keyword(&whole, &integer, text("KG")), 0);
    EXPECT_EQ(whole, 76);
}

TEST(Units, AUnitsFieldWithoutItsZeroIsRefused) {
    REAL_VARIABLE real{};
    std::memset(real.units, 'M', sizeof real.units);
    std::memset(real.display_format, 0, sizeof real.display_format);
    double value = untouched;
    EXPECT_NE(units_get_real_keyword(&value, &real, text("M")), 0);
    EXPECT_EQ(value, untouched);
}

TEST(Units, ListsWhatAKeywordConvertsTo) {
    const std::vector<std::string> rates{"NM/S", "NM/MIN", "LBF-FT/S"};
    EXPECT_EQ(compatible("NM/S"), rates);
    EXPECT_EQ(compatible("lbf-ft/s"), rates);
    EXPECT_EQ(compatible("LBF-FT/S", 3), rates);
    EXPECT_EQ(compatible("NM/S", 2), std::vector<std::string>({"NM/S", "NM/MIN"}));
    EXPECT_EQ(compatible("LBF-FT/S", 2), std::vector<std::string>({"NM/S", "LBF-FT/S"}));
    EXPECT_EQ(compatible("LBF-FT/S", 1), std::vector<std::string>({"LBF-FT/S"}));
    EXPECT_EQ(compatible("RPM").front(), "RPM");
}

TEST(Units, AMenuOfThirtyShowsEveryGroupWhole) {
    for (const UnitPhysics& row : unitPhysics)
        EXPECT_EQ(compatible(row.keyword), compatible(row.keyword, 200)) << row.keyword;
}

TEST(Units, ListsNothingWhereNothingFits) {
    UNITS_NAME names[30];
    for (int capacity : {0, -1, -32768}) {
        auto count = static_cast<short int>(capacity);
        EXPECT_EQ(LV_get_units(text("RPM"), &count, names), -1);
        EXPECT_EQ(count, 0);
    }
    short int count = 30;
    EXPECT_EQ(LV_get_units(text("FURLONGS"), &count, names), -1);
    EXPECT_EQ(count, 0);
    count = 30;
    EXPECT_EQ(LV_get_units2(text("FURLONGS"), &count, names), -1);
    EXPECT_EQ(count, 0);
}

TEST(Units, NoDimensionHasNoMenu) {
    UNITS_NAME names[30];
    for (const char* keyword : {"", "NONE", "unitless"}) {
        short int count = 30;
        EXPECT_EQ(LV_get_units2(text(keyword), &count, names), -1);
        EXPECT_EQ(count, 0);
        EXPECT_EQ(compatible(keyword), std::vector<std::string>({"NONE", "UNITLESS"}));
    }
    short int count = 30;
    EXPECT_EQ(LV_get_units2(text("PCT"), &count, names), 0);
    EXPECT_EQ(count, 7);
}

TEST_F(UnitsInNewProcess, SitesAddKeywords) {
    const auto run = [] {
        SiteFile file(
            "# our own\n"
            "\n"
            "inlbf-m   10001 torque  0.0254 lbf.m   # odd but ours\n"
            "\tSHIFT 10002 SHIFTS 8 h\r\n"
            "DAYS 10003 SHIFTS day\n"
            "DBM 10004 POWER 0.1 lg(re 1 mW)\n"
            "FIRST 10000 POWER W");
        EXPECT_EQ(converted(1, "FIRST", "W"), 1) << "the first code of a site";
        EXPECT_NEAR(converted(1, "INLBF-M", "NM"), 0.0254 * lbf, 1e-12);
        EXPECT_DOUBLE_EQ(converted(3, "SHIFT", "DAYS"), 1);
        EXPECT_TRUE(refuses("SHIFT", "HR"));
        EXPECT_NEAR(converted(30, "DBM", "W"), 1, 1e-9);
        EXPECT_NEAR(converted(20, "W", "DBM"), 43.010299957, 1e-6);
        EXPECT_EQ(compatible("DAYS"), std::vector<std::string>({"SHIFT", "DAYS"}));
        EXPECT_EQ(compatible("NM").back(), "INLBF-M");
        char keyword[16] = "";
        EXPECT_EQ(units_code_to_keyword(10001, keyword), 0);
        EXPECT_STREQ(keyword, "INLBF-M");
    };
    EXPECT_EXIT((run(), endCase()), testing::ExitedWithCode(0), "^$");
}

TEST_F(UnitsInNewProcess, BadLinesOfASiteAreNamedAndLeftOut) {
    const auto run = [] {
        SiteFile file(
            "PSI 10001 PRESSURE 2 psi\n"
            "LOW 9999 PRESSURE psi\n"
            "TEXT ten PRESSURE psi\n"
            "LESS 10003\n"
            "GREEK 10004 PRESSURE kapsi\n"
            "HEAVY 10005 PRESSURE kg\n"
            "SIXTEENLETTERSXX 10006 PRESSURE psi\n"
            "GOOD 10007 PRESSURE 2 psi\n"
            "GOOD 10008 PRESSURE psi\n"
            "AGAIN 10007 PRESSURE psi\n"
            "M\xc3\xbc 10009 PRESSURE psi\n");
        EXPECT_DOUBLE_EQ(converted(1, "PSI", "PSIA"), 1);
        EXPECT_DOUBLE_EQ(converted(1, "GOOD", "PSI"), 2);
        for (const char* leftOut : {"LOW", "TEXT", "LESS", "GREEK", "HEAVY", "AGAIN"})
            EXPECT_TRUE(refuses(leftOut, "PSI"));
        EXPECT_EQ(compatible("GOOD", 200).back(), "GOOD");
    };
    EXPECT_EXIT((run(), endCase()), testing::ExitedWithCode(0),
                "txt:1: PSI.*txt:2: LOW.*txt:3: TEXT.*txt:4: LESS.*txt:5: GREEK.*txt:6: HEAVY.*txt:7: SIXTEEN.*txt:9: "
                "GOOD.*txt:10: AGAIN.*txt:11: ");
}

TEST_F(UnitsInNewProcess, AMissingFileOfASiteIsNamed) {
    const auto run = [] {
        setenv("OSTREL_UNITS", "/nowhere/units.txt", 1);
        EXPECT_DOUBLE_EQ(converted(1, "BAR", "KPA"), 100);
    };
    EXPECT_EXIT((run(), endCase()), testing::ExitedWithCode(0), "/nowhere/units.txt: cannot be read");
}

TEST_F(UnitsInNewProcess, WithoutDatabaseOnlyEqualKeywordsConvert) {
    const auto run = [] {
        setenv("UDUNITS2_XML_PATH", "/nowhere/udunits2.xml", 1);
        EXPECT_TRUE(refuses("BAR", "KPA"));
        EXPECT_TRUE(refuses("BAR", "KPA"));
        EXPECT_TRUE(refuses("RPM", "HZ"));
        EXPECT_EQ(converted(3, "BAR", "bar"), 3);
        int code = 0;
        EXPECT_EQ(units_keyword_to_code(text("BAR"), &code), 0);
        EXPECT_EQ(compatible("RPM/S").size(), 5U);
    };
    EXPECT_EXIT((run(), endCase()), testing::ExitedWithCode(0), "^[^\n]*database cannot be read[^\n]*\n$");
}

TEST_F(UnitsInNewProcess, ThreadsConvertAtOnce) {
    const auto run = [] {
        constexpr int threadCount = 8;
        std::latch start(threadCount);
        std::vector<std::thread> threads;
        for (int i = 0; i < threadCount; ++i) {
            threads.emplace_back([&start] {
                start.arrive_and_wait();
                for (const UnitPhysics& from : unitPhysics) {
                    for (const std::string& keyword : compatible(from.keyword))
                        expectAsDefined(250, from, physicsOf(keyword));
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
    };
    EXPECT_EXIT((run(), endCase()), testing::ExitedWithCode(0), "^$");
}

namespace {

constexpr const char* pageMark = "<!-- from here on made from the table of keywords -->\n";

std::string tablesOfThePage() {
    std::ostringstream page;
    page.precision(7);
    for (const UnitGroup& group : unitGroups) {
        std::string first;
        for (const UnitKeyword& row : unitKeywords) {
            if (row.group != group.name)
                continue;
            const std::string keyword(row.keyword);
            if (first.empty()) {
                first = keyword;
                page << "\n## " << group.title << " (`" << group.name << "`)\n\n"
                     << "| Keyword | Code | 1 of it in " << first << " | UDUNITS |\n|---|---|---|---|\n";
            }
            page << "| `" << keyword << "` | " << row.code << " | " << converted(1, keyword, first) << " | `"
                 << row.expression << "` |\n";
        }
    }
    return page.str();
}

}  // namespace

TEST(Units, ThePageForCellEngineersShowsTheTable) {
    std::ifstream file(std::string(paths::sources) + "/docs/units.md");
    std::stringstream content;
    content << file.rdbuf();
    const std::string page = content.str();
    const size_t mark = page.find(pageMark);
    ASSERT_NE(mark, std::string::npos) << std::string(paths::sources) + "/docs/units.md"
                                       << " has no mark where the tables start";
    const std::string head = page.substr(0, mark + std::strlen(pageMark));
    const std::string right = head + tablesOfThePage();
    if (page != right) {
        const std::string copy = testing::TempDir() + "ostrel-units.md";
        std::ofstream(copy) << right;
        ADD_FAILURE() << std::string(paths::sources) + "/docs/units.md"
                      << " is not as the table; copy " << copy << " over it";
    }
}
