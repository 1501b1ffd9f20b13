#include "fundfile/rules/summary.h"

#include "base/error.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <optional>
#include <string_view>

namespace {

TEST(Summary, ChangeIsRoundedToTheEvenNeighbour) {
    const struct {
        double start, next;
        std::int32_t percent;
    } rows[] = {
        {100, 105, 5},  {200, 201, 0},   {200, 203, 2},     {200, 205, 2},
        {100, 100, 0},  {100, 50, -50},  {100, 1, -99},     {200, 199, 0},
        {200, 197, -2}, {12.5, 25, 100}, {100, 1100, 1000},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ChangeSinceStart(row.start, row.next), row.percent)
            << row.start << " " << row.next;
    }
}

TEST(Summary, ChangeIsReckonedInDoublePrecision) {
    // 59.4999999 % and 108.5000000 %; single precision makes the first 59.5 and the second 108.5.
    EXPECT_EQ(ChangeSinceStart(10.0, 15.95), 59);
    EXPECT_EQ(ChangeSinceStart(10.0, 20.85), 109);
}

TEST(Summary, ChangeHasNoAnswerForSome) {
    Skipping skip;
    skip([] { ChangeSinceStart(0, 100); });
    EXPECT_EQ(skip.Number(), kDivisionByZero);
    skip([] { ChangeSinceStart(1e-30, 100); });
    EXPECT_EQ(skip.Number(), ErrorNumber::Overflow);
}

TEST(Summary, ChangeTextHasABlankBeforeTheSign) {
    EXPECT_EQ(ChangeText(5), "5 %");
    EXPECT_EQ(ChangeText(-50), "-50 %");
}

TEST(Summary, PriceKeepsTheDigitsThatWereTyped) {
    EXPECT_EQ(PriceText(524287.99), "524287,99");
    EXPECT_EQ(PriceText(12.5), "12,50");
    EXPECT_EQ(PriceText(16777217), "16777217,00");
    EXPECT_EQ(LatestPriceText("12,50"), "Senaste : 12,50");
}

OpenHolding Holding(std::string_view fondNr, double startPrice, double shares) {
    OpenHolding holding;
    holding.fondNr = fondNr;
    holding.startPrice = startPrice;
    holding.shares = shares;
    return holding;
}

TEST(Summary, ValueIsInWholeKronorAndADashForASummaryRow) {
    const struct {
        std::string_view fondNr;
        double shares, price;
        std::string_view value;
    } rows[] = {
        {"751 062", 2010.0489, 33.64, "67618"},  {"751 062", 10, 12.25, "122"},
        {"751 062", 10, 12.35, "124"},           {"751 062", 0, 12.35, "0"},
        {"751 062", 100, 524287.99, "52428799"}, {"999 999", 1, 12.35, "-"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(SummaryAfter(Holding(row.fondNr, 10, row.shares), row.price, 46342).value,
                  row.value)
            << row.shares << " " << row.price;
    }
}

TEST(Summary, IsThatOfTheNewPrice) {
    EXPECT_EQ(SummaryAfter(Holding("751 062", 524287.99, 2), 524288.99, 46342),
              (HoldingSummary{46342, "Senaste : 524288,99", "0 %", "1048578"}));
}

TEST(DayPrice, HasAllThatFollowsFromThePrice) {
    const DayPrice made = DayPriceOf(Holding("751 062", 100, 10), 120.5, 46342);
    EXPECT_EQ(made.price, 120.5);
    EXPECT_EQ(made.text, "120,50");
    EXPECT_EQ(made.point, (CurvePoint{46342, 20}));
    EXPECT_EQ(made.summary, (HoldingSummary{46342, "Senaste : 120,50", "20 %", "1205"}));
}

TEST(DayPrice, HasNoSummaryWhereTheValueIsBeyond32Bits) {
    const DayPrice made = DayPriceOf(Holding("751 062", 100, 1e9), 120.5, 46342);
    EXPECT_EQ(made.point.value, 20);
    EXPECT_EQ(made.summary, std::nullopt);
}

TEST(DayPrice, IsNoneWithoutAPercentage) {
    Skipping skip;
    skip([] { DayPriceOf(Holding("751 062", 0, 1), 12, 46342); });
    EXPECT_EQ(skip.Number(), kDivisionByZero);
}

}  // namespace
