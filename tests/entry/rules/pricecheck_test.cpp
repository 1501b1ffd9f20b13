#include "entry/rules/pricecheck.h"

#include "base/error.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <optional>
#include <string_view>

namespace {

TEST(ReadPrice, TakesANumberAboveZero) {
    EXPECT_EQ(ReadPrice("12,5"), 12.5);
    EXPECT_EQ(ReadPrice("12.5"), 12.5);
    EXPECT_EQ(ReadPrice(" 1 234,50 "), 1234.5);
    EXPECT_EQ(ReadPrice("524287,99"), 524287.99);  // seven digits are not enough for it
}

TEST(ReadPrice, RefusesEverythingElse) {
    for (const std::string_view text :
         {"0", "0,00", "-12", "1,2,3", "abc", "", "nan", "inf", "1e99", "1e-99"}) {
        EXPECT_EQ(ReadPrice(text), std::nullopt) << text;
    }
}

TEST(PastedPrice, IsTheNumberWithoutTheWordsAroundIt) {
    const struct {
        std::string_view copied, pasted;
    } rows[] = {
        {"12,50", "12,50"},           {" 12.50\r\n", "12,50"},      {"12,50 kr.", "12,50"},
        {"NAV: 1 234,50", "1234,50"}, {"1\u00A0234,50", "1234,50"}, {",5", ",5"},
    };
    for (const auto& row : rows) EXPECT_EQ(PastedPrice(row.copied), row.pasted) << row.copied;
}

// A sign or a letter that was left out would make another price of it.
TEST(PastedPrice, KeepsWhatMakesItNoPrice) {
    const struct {
        std::string_view copied, pasted;
    } rows[] = {
        {"-5", "-5"},     {"\u2212 5", "-5"},           {"1,234.50", "1,234,50"},
        {"12x3", "12x3"}, {"2026-11-20", "2026-11-20"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(PastedPrice(row.copied), row.pasted);
        EXPECT_EQ(ReadPrice(row.pasted), std::nullopt) << row.pasted;
    }
}

TEST(PastedPrice, IsEmptyWithoutADigit) {
    for (const std::string_view text : {"", "kr", "-", ",.", "å"}) {
        EXPECT_EQ(PastedPrice(text), "") << text;
    }
}

TEST(Judge, AsksAbove200AndRefusesAbove1000) {
    const struct {
        std::int32_t percent;
        Verdict verdict;
    } rows[] = {
        {-100, Verdict::Accept},  {0, Verdict::Accept},      {200, Verdict::Accept},
        {201, Verdict::AskFirst}, {1000, Verdict::AskFirst}, {1001, Verdict::AskThenRefuse},
    };
    for (const auto& row : rows) EXPECT_EQ(Judge(row.percent), row.verdict) << row.percent;
}

}  // namespace
