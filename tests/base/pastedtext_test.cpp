#include "base/pastedtext.h"

#include <gtest/gtest.h>
#include <optional>
#include <string_view>

namespace {

TEST(PastedNumber, IsTheNumberWithoutTheWordsAroundIt) {
    const struct {
        std::string_view copied, pasted;
    } rows[] = {
        {"12,50", "12,50"},
        {" 12.50\r\n", "12,50"},
        {"12,50 kr.", "12,50"},
        {"1 234,50 kr", "1234,50"},
        {"NAV: 1 234,50", "1234,50"},
        {"1\u00A0234,50", "1234,50"},
        {"12\u2009345\u202F678", "12345678"},
        {",5", ",5"},
        {"Kurs .5", ",5"},
        {"kr.175", "175"},
        {"kr. 175", "175"},
        {"175:-", "175"},
        {"175,-", "175"},
        {"175.", "175"},
        {"1234,5678", "1234,5678"},
        {"123456789012,123456789", "123456789012,123456789"},
        {"12 %", "12"},
        {"+12", "12"},
    };
    for (const auto& row : rows) EXPECT_EQ(PastedNumber(row.copied), row.pasted) << row.copied;
}

// A sign that was left out would make another number of it.
TEST(PastedNumber, KeepsItsSign) {
    for (const std::string_view text : {"-5", "\u2212 5", "Kurs - 5 kr", "Fond-5"}) {
        EXPECT_EQ(PastedNumber(text), "-5") << text;
    }
}

TEST(PastedNumber, IsThatOfTheFirstLine) {
    EXPECT_EQ(PastedNumber("175,50\n12"), "175,50");
    EXPECT_EQ(PastedNumber("175,50\r\n12"), "175,50");
    EXPECT_EQ(PastedNumber("\n \n175,50\n12"), "175,50");
}

// Each of these, with its blanks or signs left out, would be ten or a hundred times a number in it.
TEST(PastedNumber, IsRefusedWhereThereMayBeTwo) {
    for (const std::string_view text :
         {"1 12,50", "1234 567", "12 345 67", "1  234", "175,50\t12", "1,234.50", "1.234,50",
          "1,2,3", "12x3", "1e5", "12-13", "2026-11-20", "kl 10: 175,50"}) {
        EXPECT_EQ(PastedNumber(text), std::nullopt) << text;
    }
}

TEST(PastedNumber, IsNothingWithoutADigit) {
    for (const std::string_view text : {"", " ", "kr", "-", ",.", "å", "\n\n"}) {
        EXPECT_EQ(PastedNumber(text), std::nullopt) << text;
    }
}

TEST(PastedLine, IsTheFirstOneWithoutTheBlanksAroundIt) {
    const struct {
        std::string_view copied, pasted;
    } rows[] = {
        {"Granvassa Ränta", "Granvassa Ränta"},
        {"  Granvassa \r\nRänta", "Granvassa"},
        {"\r\n\nGranvassa\n", "Granvassa"},
        {"Granvassa\tRänta", "Granvassa Ränta"},
        {"468\u00A0024", "468\u00A0024"},
        {"", ""},
        {"\n", ""},
    };
    for (const auto& row : rows) EXPECT_EQ(PastedLine(row.copied), row.pasted) << row.copied;
}

TEST(PastedDate, IsWrittenAsTheProgramWritesIt) {
    EXPECT_EQ(PastedDate(" 2026-11-20\n"), "2026-11-20");
    EXPECT_EQ(PastedDate("2026/11/20"), "2026-11-20");
    EXPECT_EQ(PastedDate("01-12-31"), "2001-12-31");
    for (const std::string_view text : {"", "20 november", "2026-13-01", "175,50"}) {
        EXPECT_EQ(PastedDate(text), std::nullopt) << text;
    }
}

}  // namespace
