#include "widgets/rules/stroke.h"

#include "base/error.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {

constexpr std::int32_t kStart = 38718;  // 1 January 2006
constexpr CurveStyle kStyle{7, {1, 2, 3}};

/// Points on consecutive days from `firstDay` of the window on: point number n has the value n.
std::vector<CurvePoint> Series(std::int32_t count, std::int32_t firstDay = 0) {
    std::vector<CurvePoint> points;
    for (std::int32_t n = 1; n <= count; ++n) points.push_back({kStart + firstDay + n - 1, n});
    return points;
}

std::vector<double> Values(const Drawing& drawing) {
    std::vector<double> values;
    for (const Point& at : drawing.line) values.push_back(at.y);
    return values;
}

TEST(ScreenDrawing, JoinsEveryStepAndAlwaysTheLastPoint) {
    struct Row {
        std::int32_t points, step;
        std::vector<double> joined;
    };
    const std::vector<Row> rows{
        {2, 1, {1, 2}},          {5, 1, {1, 2, 3, 4, 5}},
        {10, 7, {1, 8, 10}},     {8, 7, {1, 8}},
        {7, 7, {1, 7}},          {15, 7, {1, 8, 15}},
        {16, 7, {1, 8, 15, 16}}, {2, 30, {1, 2}},
        {31, 30, {1, 31}},       {62, 30, {1, 31, 61, 62}},
        {3, 0, {1, 2, 3}},  // a step that could never end is a step of one
        {3, -7, {1, 2, 3}},      {3, std::numeric_limits<std::int32_t>::max(), {1, 3}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Values(ScreenDrawing(Series(row.points), kStyle, kStart, row.step)), row.joined)
            << row.points << " points, step " << row.step;
    }
}

TEST(ScreenDrawing, CountsDaysFromTheWindowsStart) {
    const std::vector<CurvePoint> points{
        {kStart - 40, -3}, {kStart, 0}, {kStart + 365, 12}, {kStart + 400, 15}};
    const Drawing drawing = ScreenDrawing(points, kStyle, kStart, 1);
    EXPECT_EQ(drawing.line, (std::vector<Point>{{-40, -3}, {0, 0}, {365, 12}, {400, 15}}));
    EXPECT_EQ(drawing.colour, kStyle.colour);
}

TEST(ScreenDrawing, KeepsWhoseItIsAndAllStoredPoints) {
    const Drawing drawing = ScreenDrawing(Series(10), kStyle, kStart, 7);
    EXPECT_EQ(drawing.kontoId, 7);
    EXPECT_EQ(drawing.stored, Series(10));
}

TEST(ScreenDrawing, PutsItsNumberTwoAboveTheLastPoint) {
    const Drawing drawing = ScreenDrawing(Series(10), kStyle, kStart, 7);
    EXPECT_EQ(drawing.label, "7");
    EXPECT_EQ(drawing.labelAt, (Point{9, 12}));
}

TEST(ScreenDrawing, OneSinglePointIsOnlyANumberOneAboveIt) {
    const std::vector<CurvePoint> one{{kStart + 20, 5}};
    for (const std::int32_t step : {1, 7, 30}) {
        const Drawing drawing = ScreenDrawing(one, kStyle, kStart, step);
        EXPECT_TRUE(drawing.line.empty());
        EXPECT_EQ(drawing.label, "7");
        EXPECT_EQ(drawing.labelAt, (Point{20, 6}));
    }
}

TEST(ScreenDrawing, NoPointsLeaveNothingAndNoLabel) {
    EXPECT_EQ(ScreenDrawing({}, kStyle, kStart, 1), Drawing{});
}

TEST(ScreenDrawing, WithRealDatesNeverEndsBeforeTheLastPoint) {
    const Drawing drawing = ScreenDrawing(Series(9000), kStyle, kStart, 1);
    EXPECT_EQ(drawing.line.size(), 9000U);
}

TEST(ScreenDrawing, EndsAfterAPointBeyondTheStartDaysOwnNumber) {
    // The window day of the point is compared with the start's day number and 365.
    const std::vector<CurvePoint> points{{100, 1}, {865, 2}, {866, 3}, {867, 4}};
    const Drawing drawing = ScreenDrawing(points, kStyle, 250, 1);
    EXPECT_EQ(Values(drawing), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(drawing.labelAt.x, 365) << "where it leaves the picture";
}

TEST(ScreenDrawing, SurvivesTheWidestDayNumbers) {
    const std::vector<CurvePoint> points{{std::numeric_limits<std::int32_t>::min(), 0},
                                         {std::numeric_limits<std::int32_t>::max(), 1}};
    const Drawing drawing =
        ScreenDrawing(points, kStyle, std::numeric_limits<std::int32_t>::min(), 1);
    EXPECT_EQ(drawing.line.back().x, 4294967295.0);
}

struct LabelRow {
    const char* what;
    std::vector<CurvePoint> points;
    Point label;  // without the height over the line
};
const std::vector<LabelRow> kLabelRows = {
    {"the last point stands on the edge", {{kStart, 4}, {kStart + 365, 6}}, {365, 6}},
    {"the last point lies beyond", {{kStart, 4}, {kStart + 355, 6}, {kStart + 375, 8}}, {365, 7}},
    {"no point in the picture", {{kStart - 135, 0}, {kStart + 865, 10}}, {365, 5}},
};

TEST(ScreenDrawing, PutsItsNumberWhereItEndsOrLeavesThePicture) {
    for (const LabelRow& row : kLabelRows) {
        const Drawing drawing = ScreenDrawing(row.points, kStyle, kStart, 1);
        EXPECT_EQ(drawing.end, row.label) << row.what;
        EXPECT_EQ(drawing.labelAt, (Point{row.label.x, row.label.y + 2})) << row.what;
    }
}

TEST(ScreenDrawing, OfASeriesBesideThePictureHasItsNumberOutsideToo) {
    const std::vector<CurvePoint> before{{kStart - 20, 1}, {kStart - 10, 2}};
    EXPECT_EQ(ScreenDrawing(before, kStyle, kStart, 1).labelAt.x, -10);
    const std::vector<CurvePoint> after{{kStart + 370, 1}, {kStart + 380, 2}};
    EXPECT_EQ(ScreenDrawing(after, kStyle, kStart, 1).labelAt.x, 370);
}

TEST(PageDrawing, PutsItsNumberWhereItEndsOrLeavesTheFrame) {
    const std::vector<LabelRow> rows{
        kLabelRows[0],
        kLabelRows[1],
        {"no point in the frame but the pinned one",
         {{kStart - 135, 0}, {kStart + 730, 10}},
         {365, 5}},
    };
    for (const LabelRow& row : rows) {
        const Drawing drawing = PageDrawing(row.points, kStyle, kStart, 1, {15, -10});
        EXPECT_NEAR(drawing.labelAt.x, 3 + 0.041 * row.label.x, 1e-9) << row.what;
        EXPECT_NEAR(drawing.labelAt.y, 9.2 - (row.label.y + 2) * 0.28, 1e-9) << row.what;
    }
}

TEST(PageDrawing, SpansSevenCentimetresOverTheScale) {
    EXPECT_DOUBLE_EQ(onpage::CmPerPercent({45, -30}), 7.0 / 75);
    EXPECT_DOUBLE_EQ(onpage::CmPerPercent({15, -10}), 7.0 / 25);
    try {
        onpage::CmPerPercent({10, 10});
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), kDivisionByZero);
    }
}

TEST(PageDrawing, PutsTheTopAtFiveZeroAtNinePointTwoAndTheBottomAtTwelve) {
    const std::vector<CurvePoint> points{{kStart, 45}, {kStart + 1, 0}, {kStart + 365, -30}};
    const Drawing drawing = PageDrawing(points, kStyle, kStart, 1, {45, -30});
    ASSERT_EQ(drawing.line.size(), 3U);
    EXPECT_NEAR(drawing.line[0].x, 3, 1e-9);
    EXPECT_NEAR(drawing.line[0].y, 5.0, 1e-9);
    EXPECT_NEAR(drawing.line[1].x, 3.041, 1e-9);
    EXPECT_NEAR(drawing.line[1].y, 9.2, 1e-9);
    EXPECT_NEAR(drawing.line[2].x, 3 + 14.965, 1e-9);
    EXPECT_NEAR(drawing.line[2].y, 12.0, 1e-9);
    EXPECT_NEAR(drawing.labelAt.x, 17.965, 1e-9);
    EXPECT_NEAR(drawing.labelAt.y, 12.0 - 2 * 7.0 / 75, 1e-9);
    EXPECT_EQ(drawing.label, "7");
}

TEST(PageDrawing, MovesWhatLiesLeftOfTheDiagramToItsEdge) {
    const std::vector<CurvePoint> points{{kStart - 200, 10}, {kStart - 1, 5}, {kStart + 10, 0}};
    const Drawing drawing = PageDrawing(points, kStyle, kStart, 1, {15, -10});
    ASSERT_EQ(drawing.line.size(), 3U);
    EXPECT_EQ(drawing.line[0].x, 3.0);
    EXPECT_EQ(drawing.line[1].x, 3.0);
    EXPECT_NEAR(drawing.line[1].y, 9.2 - 5 * 0.28, 1e-9);
    EXPECT_NEAR(drawing.line[2].x, 3.41, 1e-9);
}

TEST(PageDrawing, StopsAtTheFirstPointAtTheRightEnd) {
    // 18.3 cm is day 373.17 of the window.
    const std::vector<CurvePoint> points{
        {kStart + 300, 1}, {kStart + 373, 2}, {kStart + 374, 3}, {kStart + 375, 4}};
    const Drawing drawing = PageDrawing(points, kStyle, kStart, 1, {15, -10});
    ASSERT_EQ(drawing.line.size(), 3U);
    EXPECT_NEAR(drawing.line.back().x, 3 + 0.041 * 374, 1e-9);
}

TEST(PageDrawing, ASeriesThatBeginsBeyondTheRightEndIsNotDrawn) {
    EXPECT_EQ(PageDrawing(Series(5, 374), kStyle, kStart, 1, {15, -10}), Drawing{});
}

TEST(PageDrawing, StepsAndLabelsAsTheScreenDoes) {
    EXPECT_EQ(PageDrawing(Series(10), kStyle, kStart, 7, {15, -10}).line.size(), 3U);

    const std::vector<CurvePoint> one{{kStart - 20, 5}};
    const Drawing only = PageDrawing(one, kStyle, kStart, 7, {15, -10});
    EXPECT_TRUE(only.line.empty());
    EXPECT_EQ(only.labelAt.x, 3.0);
    EXPECT_NEAR(only.labelAt.y, 9.2 - 6 * 0.28, 1e-9);

    EXPECT_EQ(PageDrawing({}, kStyle, kStart, 1, {15, -10}), Drawing{});
}

}  // namespace
