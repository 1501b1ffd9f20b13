#include "diagram/rules/curvewalk.h"

#include <gtest/gtest.h>
#include <optional>
#include <vector>

namespace {

const std::vector<CurvePoint> kStored = {{90, 1}, {100, 2}, {101, 3}, {110, 4}, {130, 5}};
constexpr ShownDays kShown{95, 120};

TEST(NearestPoint, IsTheNearestInDays) {
    const struct {
        double day;
        std::int32_t nearest;
    } rows[] = {{-5, 90},     {90, 90},     {94.9, 90}, {95, 90},     {95.1, 100},
                {100.4, 100}, {100.6, 101}, {120, 110}, {120.1, 130}, {900, 130}};
    for (const auto& row : rows) {
        EXPECT_EQ(NearestPoint(kStored, row.day).value().day, row.nearest) << row.day;
    }
    EXPECT_EQ(NearestPoint({}, 100), std::nullopt);
}

TEST(LastShownPoint, IsWhereAWalkBegins) {
    EXPECT_EQ(LastShownPoint(kStored, kShown), (CurvePoint{110, 4}));
    EXPECT_EQ(LastShownPoint(kStored, {95, 200}), (CurvePoint{130, 5}));
    EXPECT_EQ(LastShownPoint(kStored, {111, 129}), std::nullopt);
    EXPECT_EQ(LastShownPoint(kStored, {0, 89}), std::nullopt);
    EXPECT_EQ(LastShownPoint({}, kShown), std::nullopt);
}

TEST(NextPoint, WalksTheStoredDaysAndEndsWithThePicture) {
    const struct {
        std::int32_t from;
        std::optional<std::int32_t> back, ahead;
    } rows[] = {{100, std::nullopt, 101}, {101, 100, 110},          {110, 101, std::nullopt},
                {105, 101, 110},          {130, 110, std::nullopt}, {90, std::nullopt, 100}};
    for (const auto& row : rows) {
        const auto back = NextPoint(kStored, kShown, row.from, Walk::Back);
        const auto ahead = NextPoint(kStored, kShown, row.from, Walk::Ahead);
        EXPECT_EQ(back ? std::optional(back->day) : std::nullopt, row.back) << row.from;
        EXPECT_EQ(ahead ? std::optional(ahead->day) : std::nullopt, row.ahead) << row.from;
    }
}

TEST(NextPoint, PassesSeveralPointsOfOneDayAtOnce) {
    const std::vector<CurvePoint> twice = {{100, 1}, {101, 2}, {101, 3}, {102, 4}};
    EXPECT_EQ(NextPoint(twice, kShown, 101, Walk::Ahead), (CurvePoint{102, 4}));
    EXPECT_EQ(NextPoint(twice, kShown, 101, Walk::Back), (CurvePoint{100, 1}));
}

TEST(NextCurve, IsTheNextOneAboveOrBelow) {
    const std::vector<std::optional<std::int32_t>> values = {5, 20, std::nullopt, 5, -3};
    const struct {
        std::size_t from;
        std::optional<std::size_t> up, down;
    } rows[] = {{0, 3, 4},
                {1, std::nullopt, 3},
                {2, std::nullopt, std::nullopt},
                {3, 1, 0},
                {4, 0, std::nullopt}};
    for (const auto& row : rows) {
        EXPECT_EQ(NextCurve(values, row.from, Walk::Up), row.up) << row.from;
        EXPECT_EQ(NextCurve(values, row.from, Walk::Down), row.down) << row.from;
    }
}

TEST(NextCurve, MeetsEachCurveOnceFromTheLowestUp) {
    const std::vector<std::optional<std::int32_t>> values = {7, 7, -1, 7, 0};
    std::vector<std::size_t> met{2};
    while (const auto next = NextCurve(values, met.back(), Walk::Up)) met.push_back(*next);
    EXPECT_EQ(met, (std::vector<std::size_t>{2, 4, 0, 1, 3}));
}

}  // namespace
