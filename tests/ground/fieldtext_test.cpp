#include "ground/fieldtext.h"

#include <gtest/gtest.h>

TEST(FieldText, EndsWithItsZeroOrItsField) {
    const char ended[4] = {'a', 'b', '\0', 'c'};
    const char full[3] = {'a', 'b', 'c'};
    EXPECT_EQ(fieldText(ended), "ab");
    EXPECT_EQ(fieldText(full), "abc");
}

TEST(FieldText, IsSetWithAZeroBehindItAndTheRestCleared) {
    char field[5] = {'x', 'x', 'x', 'x', 'x'};
    setText(field, "ab");
    EXPECT_EQ(std::string(field, sizeof field), std::string("ab\0\0\0", 5));
    setText(field, "abcdefgh");
    EXPECT_STREQ(field, "abcd");
    setText(field, "");
    EXPECT_EQ(std::string(field, sizeof field), std::string(5, '\0'));
}

TEST(FieldText, OfAMessageFitsTheCallersBuffer) {
    char message[4] = {'x', 'x', 'x', 'x'};
    setMessage(message, 3, "abc");
    EXPECT_EQ(std::string(message, 4), std::string("ab\0x", 4));
    setMessage(message, 0, "no");
    setMessage(nullptr, 4, "no");
    EXPECT_STREQ(message, "ab");
}
