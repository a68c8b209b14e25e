#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>

#include "paths.h"
#include "program.h"

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
