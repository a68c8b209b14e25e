#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>

#include "paths.h"
#include "program.h"
#include "toolstest.h"

namespace {

Outcome units(const Arguments& words) {
    Arguments all{paths::command, "units"};
    all.insert(all.end(), words.begin(), words.end());
    return run(all);
}

bool contains(const std::vector<std::string>& lines, const std::string& line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

}  // namespace

TEST(Units, ListsWhatAKeywordConvertsTo) {
    const auto lines = units({"bar"}).lines();
    EXPECT_TRUE(contains(lines, "BAR"));
    EXPECT_TRUE(contains(lines, "KPA"));
    EXPECT_FALSE(contains(lines, "RPM"));
}

TEST(Units, ListsAllKeywordsWithoutOne) {
    const auto lines = units({}).lines();
    EXPECT_TRUE(contains(lines, "BAR"));
    EXPECT_TRUE(contains(lines, "RPM"));
}

TEST(Units, TellsMachinesAList) {
    const Outcome outcome = units({"bar", "--json"});
    const auto list = QJsonDocument::fromJson(QByteArray::fromStdString(outcome.output)).array();
    EXPECT_TRUE(list.contains("KPA"));
}

TEST(Units, NamesTheNearestOfAnUnknownKeyword) {
    const Outcome outcome = units({"KPAX"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.errors.starts_with("ostrel: KPAX: no such unit keyword; did you mean KPA")) << outcome.errors;
}

using UnitsBesideACell = ToolsTest;

// A line in the log looks for the store's log file; the cell that is embedded where no store runs asks for units
// itself.
TEST_F(UnitsBesideACell, TellMistakesOfTheirFilesWhereACellCouldBeEmbedded) {
    setenv("OSTREL_STORE", freshStoreName().c_str(), 1);
    setenv("OSTREL_CELL", cellFile().c_str(), 1);
    const auto tells = [](const std::string& mistake) {
        const Outcome list = units({"rpm"});
        EXPECT_EQ(list.status, 0) << mistake;
        EXPECT_NE(list.errors.find(mistake), std::string::npos) << list.errors;
    };
    setenv("OSTREL_UNITS", "/nowhere/units.txt", 1);
    tells("/nowhere/units.txt: cannot be read");
    EXPECT_EQ(run({paths::command, "get", "OIL_PRESSURE", "--units", "kPa"}).output, "OIL_PRESSURE 350.00 kPa\n");
    const std::string site = (cellFile().parent_path() / "units.txt").string();
    std::ofstream(site) << "REV 10001 rotation 1\n";
    setenv("OSTREL_UNITS", site.c_str(), 1);
    setenv("UDUNITS2_XML_PATH", "/nowhere/udunits2.xml", 1);
    tells("UDUNITS2_XML_PATH");
    for (const char* variable : {"OSTREL_UNITS", "UDUNITS2_XML_PATH", "OSTREL_CELL", "OSTREL_STORE"})
        unsetenv(variable);
}
