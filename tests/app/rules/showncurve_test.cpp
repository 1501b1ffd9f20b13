#include "app/rules/showncurve.h"

#include "base/daynumber.h"
#include "base/error.h"

#include <gtest/gtest.h>

namespace {

TEST(ShownCurve, HasTheRowsNameColourAndChange) {
    HoldingRow row;
    row.kontoId = 7;
    row.fond = "Vimmels Asien";
    row.plottFarg = 0x0000FF;
    row.kursKr = 158.6;
    row.senasteKurs = "Senaste : 190,32";
    row.procent = "20 %";
    EXPECT_EQ(ShownCurveOf(row),
              (ShownCurve{7, {255, 0, 0}, "Vimmels Asien", "20 %", 158.6, "190,32"}));
    row.plottFarg.reset();
    EXPECT_EQ(ShownCurveOf(row).colour, NewCurveColour(7));
}

TEST(ShownCurve, OfAHoldingWithoutAPriceHasNoChange) {
    HoldingRow row;
    row.procent = "20 %";
    for (const char* none : {"", "0"}) {
        row.senasteKurs = none;
        EXPECT_EQ(ChangeOf(row), "");
    }
    row.senasteKurs = "Senaste : 10";
    EXPECT_EQ(ChangeOf(row), "20 %");
}

TEST(PointText, SaysDatePercentAndKronor) {
    const std::int32_t day = *ParseDate("2026-11-03");
    EXPECT_EQ(PointText({.startPrice = 158.6}, {day, 20}), "3 november 2026   20 %   190,32 kr");
    EXPECT_EQ(PointText({.startPrice = 100}, {day, -7}), "3 november 2026   -7 %   93,00 kr");
    EXPECT_EQ(PointText({}, {day, 20}), "3 november 2026   20 %") << "no start price";
    EXPECT_THROW(PointText({}, {kLastDay + 1, 20}), Error);
}

}  // namespace
