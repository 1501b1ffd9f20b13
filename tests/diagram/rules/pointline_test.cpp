// The point that is looked at, in percent and in kronor.

#include "diagram/rules/pointline.h"

#include "base/daynumber.h"

#include <gtest/gtest.h>

namespace {

TEST(PointLine, SaysDayAndPercent) {
    EXPECT_EQ(PointLine(ParseDate("2026-11-13").value(), 20), "2026-11-13 = 20 % =");
    EXPECT_EQ(PointLine(ParseDate("2026-11-13").value(), -3), "2026-11-13 = -3 % =");
    EXPECT_EQ(PointLine(2147483647, 20), "");
}

TEST(PointLine, SaysThePriceThatThePercentageStandsFor) {
    OpenHolding holding;
    holding.startPrice = 158.6;
    EXPECT_EQ(PointPrice(46000, 20, holding), "190,32");
    EXPECT_EQ(PointPrice(46000, 0, holding), "158,60");
    EXPECT_EQ(PointPrice(46000, -100, holding), "0,00");
}

TEST(PointLine, SaysTheLatestPriceAsItWasTyped) {
    OpenHolding holding;
    holding.startPrice = 158.6;
    holding.summary = {46000, "Senaste : 190,55", "20 %", "1906"};
    EXPECT_EQ(PointPrice(46000, 20, holding), "190,55");
    EXPECT_EQ(PointPrice(45999, 20, holding), "190,32");
    EXPECT_EQ(PointPrice(46000, 19, holding), "188,73")
        << "the point is another than the summary's";
}

}  // namespace
