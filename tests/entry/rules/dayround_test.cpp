#include "entry/rules/dayround.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

constexpr std::int32_t kToday = 46342;  // 2026-11-16
constexpr std::int32_t kBefore = 46339;

RoundLine Line(std::int32_t latestDay, std::vector<CurvePoint> points) {
    RoundLine line;
    line.holding.kontoId = 3;
    line.holding.fond = "Vimmels Asien";
    line.holding.account = "Premiepension";
    line.holding.startPrice = 100;
    line.holding.summary = {latestDay, "Senaste : 110,00", "10 %", "1100"};
    line.points = std::move(points);
    return line;
}

using Cells = std::vector<std::string>;

TEST(RoundCells, ShowWhatIsKnownOfEachHolding) {
    const RoundLine open = Line(kBefore, {{kBefore, 10}});
    EXPECT_EQ(RoundCells(open, kToday),
              (Cells{"3", "Vimmels Asien", "Premiepension", "110,00", "2026-11-13", "", ""}));

    RoundLine done = Line(kToday, {{kBefore, 9}, {kToday, 10}});
    EXPECT_EQ(RoundCells(done, kToday), (Cells{"3", "Vimmels Asien", "Premiepension", "110,00",
                                               "2026-11-16", "110,00", "10 % sedan start"}));
    done.before = 109.5;
    EXPECT_EQ(RoundCells(done, kToday).back(), "+0,5 %");

    EXPECT_EQ(RoundCells(done, kBefore), (Cells{"3", "Vimmels Asien", "Premiepension", "110,00",
                                                "2026-11-16", "", "9 % sedan start"}))
        << "the price of a day that is not the latest is known in percent only";

    RoundLine never = Line(kToday, {});
    never.holding.summary.latestPrice = "0";
    EXPECT_EQ(RoundCells(never, kToday),
              (Cells{"3", "Vimmels Asien", "Premiepension", "", "", "", ""}));
}

TEST(RoundCells, ANewHoldingsFirstPriceIsNoPriceOfTheDay) {
    // Typed today, booked before: the summary's day is today's, the point is not.
    const RoundLine line = Line(kToday, {{kBefore, 0}});
    EXPECT_EQ(RoundCells(line, kToday)[roundcolumn::kPrice], "");
    EXPECT_EQ(PriceOn(line, kToday), std::nullopt);
}

TEST(DoneText, CountsTheHoldingsWithAPointOnTheDay) {
    const std::vector<RoundLine> lines = {Line(kToday, {{kToday, 10}}),
                                          Line(kBefore, {{kBefore, 10}}), Line(kBefore, {})};
    EXPECT_EQ(DoneText(lines, kToday), "1 av 3 klara");
    EXPECT_EQ(DoneText(lines, kBefore), "1 av 3 klara");
    EXPECT_EQ(DoneText(lines, kBefore - 1), "0 av 3 klara");
    EXPECT_EQ(DoneText({}, kToday), "0 av 0 klara");
}

TEST(WithPrice, RemembersThePriceBeforeTheRoundAndReplacesTheDaysPoint) {
    OpenHolding stored = Line(kToday, {}).holding;
    stored.summary.latestPrice = "Senaste : 111,00";
    RoundLine line = WithPrice(Line(kBefore, {{kBefore, 10}}), stored, {kToday, 11});
    EXPECT_EQ(line.before, 110);
    EXPECT_EQ(line.points, (std::vector<CurvePoint>{{kBefore, 10}, {kToday, 11}}));
    EXPECT_EQ(line.holding, stored);

    stored.summary.latestPrice = "Senaste : 121,00";
    line = WithPrice(line, stored, {kToday, 21});
    EXPECT_EQ(line.before, 110) << "mended: the change is still the day's";
    EXPECT_EQ(line.points, (std::vector<CurvePoint>{{kBefore, 10}, {kToday, 21}}));
    EXPECT_EQ(RoundCells(line, kToday).back(), "+10,0 %");
}

TEST(WithPrice, AnEarlierDaysPriceIsNotTheOneBefore) {
    const RoundLine before = Line(kToday, {{kToday, 10}});
    const RoundLine line = WithPrice(before, before.holding, {kBefore, 8});
    EXPECT_EQ(line.before, std::nullopt);
    EXPECT_EQ(PercentOn(line.points, kBefore), 8);
}

}  // namespace
