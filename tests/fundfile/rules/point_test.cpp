#include "fundfile/rules/point.h"

#include "base/error.h"

#include <cstdint>
#include <gtest/gtest.h>

namespace {

TEST(PercentChange, IsRoundedToTheEvenNeighbour) {
    const struct {
        double price, start;
        std::int32_t percent;
    } rows[] = {
        {100, 100, 0},   {50, 100, -50},    {1, 100, -99},     {300, 100, 200},
        {301, 100, 201}, {1100, 100, 1000}, {1101, 100, 1001}, {201, 200, 0},
        {203, 200, 2},   {4, 3, 33},        {9, 8, 12},        {0.5, 0.25, 100},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(PercentChange(row.price, row.start), row.percent) << row.price;
    }
}

TEST(PercentChange, IsReckonedInSinglePrecision) {
    // The singles nearest to these prices are 59.4999981 % apart; single precision makes it 59.5,
    // which goes to the even 60.
    EXPECT_EQ(PercentChange(15.95, 10.0), 60);
    EXPECT_EQ(PercentChange(20.85, 10.0), 108);  // 108.5000038 in double precision
}

TEST(PercentChange, HasNoAnswerForSome) {
    Skipping skip;
    skip([] { PercentChange(12, 0); });
    EXPECT_EQ(skip.Number(), kDivisionByZero);
    skip([] { PercentChange(3e38, 1e-3); });
    EXPECT_EQ(skip.Number(), ErrorNumber::Overflow);
    for (const double price : {1e39, -1e39}) {
        skip([price] { PercentChange(price, 1); });
        EXPECT_EQ(skip.Number(), ErrorNumber::Overflow) << price;
    }
}

}  // namespace
