#include "ground/printable.h"

#include <gtest/gtest.h>

namespace {

TEST(Printable, TextsStay) {
    for (const char* text : {"", "ENGINE_SPEED 1500 rpm", "°C Öl 排 🚀 ě", "a?b"})
        EXPECT_EQ(printable(text), text);
}

TEST(Printable, WhatATerminalObeysIsReplaced) {
    EXPECT_EQ(printable("\x1b[2J"), "?[2J");
    EXPECT_EQ(printable("a\nb\tc\rd\x7f"), "a?b?c?d?");
    EXPECT_EQ(printable("\x9b"
                        "2J"),
              "?2J")
        << "the one byte that begins a command in other codes";
    EXPECT_EQ(printable("\xC2\x9b"
                        "2J"),
              "??2J");
    EXPECT_EQ(printable("\xC2\xA0"), "\xC2\xA0");
    EXPECT_EQ(printable(std::string("a\0b", 3)), "a?b");
}

TEST(Printable, LineFeedsStayInLines) {
    EXPECT_EQ(printableLines("one\n\ntwo\x1b\n"), "one\n\ntwo?\n");
    EXPECT_EQ(printableLines(""), "");
}

TEST(Printable, BytesOfNoCharacterAreReplaced) {
    EXPECT_EQ(printable("\xff\xfe"), "??");
    EXPECT_EQ(printable("\xC3"), "?");
    EXPECT_EQ(printable("\xE2\x82"), "??");
    EXPECT_EQ(printable("\xF0\x9F\x9A"
                        "a"),
              "???a");
    EXPECT_EQ(printable("\xC0\x80"), "??");
}

}  // namespace
