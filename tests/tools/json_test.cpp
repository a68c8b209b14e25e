#include "json.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>
#include <limits>

namespace {

// The text as an independent parser reads it back.
QJsonValue parsed(const Json& value) {
    const std::string text = Json(Json::Array{value}).text();
    QJsonParseError error{};
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(text), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << text;
    return document.array()[0];
}

}  // namespace

TEST(JsonText, IsReadBackAsItWas) {
    EXPECT_EQ(parsed("plain"), QJsonValue("plain"));
    EXPECT_EQ(parsed("a\"b\\c/d"), QJsonValue("a\"b\\c/d"));
    EXPECT_EQ(parsed("line\nnext\ttab\rback\b\f"), QJsonValue("line\nnext\ttab\rback\b\f"));
    EXPECT_EQ(parsed(std::string("nul\0in", 6)).toString().toStdString(), std::string("nul\0in", 6));
    EXPECT_EQ(parsed("\x01\x1f\x7f").toString().toStdString(), "\x01\x1f\x7f");
    EXPECT_EQ(parsed("50 \xC2\xB0"
                     "C \xE2\x82\xAC \xF0\x9F\x98\x80")
                  .toString()
                  .toStdString(),
              "50 \xC2\xB0"
              "C \xE2\x82\xAC \xF0\x9F\x98\x80");
}

TEST(JsonText, ReplacesBytesThatAreNoText) {
    const std::string mark = "\xEF\xBF\xBD";
    EXPECT_EQ(parsed("a\xFF"
                     "b")
                  .toString()
                  .toStdString(),
              "a" + mark + "b");
    EXPECT_EQ(parsed("cut \xE2\x82").toString().toStdString(), "cut " + mark + mark);
    EXPECT_EQ(parsed("\xC0\xAF").toString().toStdString(), mark + mark);
    EXPECT_EQ(parsed("\xED\xA0\x80").toString().toStdString(), mark + mark + mark);
    EXPECT_EQ(parsed("\xF4\x90\x80\x80").toString().toStdString(), mark + mark + mark + mark);
}

TEST(JsonText, KeepsNumbersToTheLastDigit) {
    for (const double value : {0.1, 1500.25, -1e-300, 1.7976931348623157e308, 5e-324, 123456789012345680.0})
        EXPECT_EQ(parsed(value).toDouble(), value);
    EXPECT_EQ(Json(std::numeric_limits<int>::min()).text(), "-2147483648");
    EXPECT_EQ(Json(0.0).text(), "0");
}

TEST(JsonText, MakesNullOfWhatIsNoNumber) {
    EXPECT_TRUE(parsed(std::nan("")).isNull());
    EXPECT_TRUE(parsed(HUGE_VAL).isNull());
    EXPECT_TRUE(parsed(Json()).isNull());
}

TEST(JsonText, NestsAndKeepsTheOrder) {
    const Json tree = Json::Object{{"b", Json::Array{1, true, Json()}}, {"a", Json::Object{}}, {"c", Json::Array{}}};
    EXPECT_EQ(tree.text(), R"({"b":[1,true,null],"a":{},"c":[]})");
}

TEST(PlainText, IsForPeople) {
    EXPECT_EQ(Json("say \"hi\"").plainText(), "say \"hi\"");
    EXPECT_EQ(Json(true).plainText(), "yes");
    EXPECT_EQ(Json(0.5).plainText(), "0.5");
    EXPECT_EQ(Json(std::nan("")).plainText(), "nan");
    EXPECT_EQ(Json().plainText(), "");
}
