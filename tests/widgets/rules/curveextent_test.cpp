#include "widgets/rules/curveextent.h"

#include <gtest/gtest.h>
#include <optional>
#include <vector>

namespace {

constexpr double kFar = 50;

LabelBox Box(double left, double top) {
    return {left, top, 10, 10};
}

CurveExtent Level(double from, double to, double y) {
    CurveExtent extent(0, 100, 1);
    extent.AddLine({from, y}, {to, y});
    return extent;
}

TEST(CurveExtent, IsAsFarFromABoxAsItsNearestPlace) {
    const CurveExtent level = Level(20, 60, 30);
    const struct {
        const char* what;
        LabelBox box;
        double distance;
    } rows[] = {{"over it", Box(30, 10), 10},      {"under it", Box(30, 37), 7},
                {"through it", Box(30, 25), 0},    {"touching it", Box(30, 20), 0},
                {"left of it", Box(2, 25), 8},     {"right of it", Box(66, 25), 5},
                {"at its corner", Box(64, 33), 5}, {"far from it", Box(30, 95), kFar}};
    for (const auto& row : rows) {
        EXPECT_NEAR(level.DistanceTo(row.box, kFar), row.distance, 1.01) << row.what;
    }
    EXPECT_EQ(level.DistanceTo(Box(30, 10), 4), 4) << "no nearer than the limit";
}

TEST(CurveExtent, HasItsHeightWhereItRuns) {
    CurveExtent extent(0, 100, 1);
    extent.AddLine({10, 0}, {50, 40});
    extent.AddLine({50, 40}, {60, 40});
    EXPECT_NEAR(extent.HeightAt(30).value(), 20, 1);
    EXPECT_NEAR(extent.HeightAt(55).value(), 40, 1e-9);
    for (const double beside : {-1.0, 5.0, 70.0, 101.0}) {
        EXPECT_EQ(extent.HeightAt(beside), std::nullopt) << beside;
    }
}

TEST(CurveExtent, TakesAColumnsWholeHeightIn) {
    CurveExtent extent(0, 100, 1);
    extent.AddLine({40.2, 10}, {40.3, 90});
    EXPECT_EQ(extent.DistanceTo(Box(36, 50), kFar), 0);
    EXPECT_NEAR(extent.HeightAt(40.5).value(), 50, 1e-9);
}

TEST(CurveExtent, LeavesOutWhatLiesBeside) {
    CurveExtent extent(0, 100, 1);
    extent.AddLine({-50, 5}, {-10, 5});
    extent.AddLine({110, 5}, {150, 5});
    extent.AddDot({-3, 5});
    EXPECT_EQ(extent.DistanceTo({0, 0, 100, 10}, kFar), kFar);
    extent.AddLine({-10, 0}, {10, 20});
    EXPECT_NEAR(extent.HeightAt(0).value(), 10.5, 1e-9);
}

TEST(CurveExtent, OfADotIsThatDot) {
    CurveExtent extent(0, 100, 1);
    extent.AddDot({50, 20});
    EXPECT_NEAR(extent.DistanceTo(Box(45, 30), kFar), 10, 1e-9);
    EXPECT_EQ(extent.HeightAt(50), 20);
}

TEST(NearestCurve, IsTheNearestWithinReach) {
    const std::vector<CurveExtent> curves{Level(0, 100, 20), Level(0, 100, 40), Level(0, 50, 40)};
    const struct {
        Point at;
        std::optional<std::size_t> nearest;
    } rows[] = {{{60, 21}, 0},
                {{60, 12}, std::nullopt},
                {{60, 29}, std::nullopt},
                {{60, 33}, 1},
                {{60, 40}, 1},
                {{20, 40}, 2},
                {{54, 42}, 1},
                {{-20, 20}, std::nullopt}};
    for (const auto& row : rows) {
        EXPECT_EQ(NearestCurve(curves, row.at, 8), row.nearest) << row.at.x << " " << row.at.y;
    }
    EXPECT_EQ(NearestCurve({}, {5, 5}, 8), std::nullopt);
}

}  // namespace
