#include "widgets/rules/labelplaces.h"

#include <gtest/gtest.h>
#include <random>
#include <set>
#include <vector>

namespace {

constexpr LabelBox kArea{0, 0, 400, 300};

LabelBox Label(double left, double top) {
    return {left, top, 16, 10};
}

bool Overlap(const LabelBox& one, const LabelBox& other) {
    constexpr double touch = 1e-6;
    return one.left < other.Right() - touch && other.left < one.Right() - touch &&
           one.top < other.Bottom() - touch && other.top < one.Bottom() - touch;
}

/// All inside the area, and none over another.
void ExpectApart(const std::vector<LabelBox>& places) {
    constexpr double touch = 1e-6;
    for (std::size_t one = 0; one < places.size(); ++one) {
        ASSERT_GE(places[one].left, -touch);
        ASSERT_LE(places[one].Right(), kArea.width + touch);
        ASSERT_GE(places[one].top, -touch);
        ASSERT_LE(places[one].Bottom(), kArea.height + touch);
        for (std::size_t other = 0; other < one; ++other) {
            ASSERT_FALSE(Overlap(places[one], places[other])) << one << " over " << other;
        }
    }
}

TEST(LabelPlaces, LabelsWithRoomStayWhereTheyAre) {
    const std::vector<LabelBox> wanted{Label(300, 50), Label(300, 60), Label(100, 55),
                                       Label(316, 52)};
    EXPECT_EQ(PlaceLabels(wanted, kArea), wanted);
    EXPECT_TRUE(PlaceLabels({}, kArea).empty());
}

TEST(LabelPlaces, TwoAtOnePlacePartBothWays) {
    const std::vector<LabelBox> wanted{Label(300, 100), Label(300, 100)};
    EXPECT_EQ(PlaceLabels(wanted, kArea), (std::vector<LabelBox>{Label(300, 95), Label(300, 105)}));
}

TEST(LabelPlaces, KeepTheOrderOfTheirHeights) {
    const std::vector<LabelBox> wanted{Label(300, 104), Label(300, 100), Label(300, 102)};
    EXPECT_EQ(PlaceLabels(wanted, kArea),
              (std::vector<LabelBox>{Label(300, 112), Label(300, 92), Label(300, 102)}));
}

TEST(LabelPlaces, StayInsideTheArea) {
    const std::vector<LabelBox> wanted{Label(395, 297), Label(395, 299), Label(-5, -8)};
    EXPECT_EQ(PlaceLabels(wanted, kArea),
              (std::vector<LabelBox>{Label(384, 280), Label(384, 290), Label(0, 0)}));
}

TEST(LabelPlaces, AMovedStackPushesTheNextOne) {
    const std::vector<LabelBox> wanted{Label(0, 0), Label(0, 0), Label(0, 0), Label(0, 12)};
    EXPECT_EQ(PlaceLabels(wanted, kArea),
              (std::vector<LabelBox>{Label(0, 0), Label(0, 10), Label(0, 20), Label(0, 30)}));
}

TEST(LabelPlaces, NeverOverlapWhereThereIsRoom) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> left(330, 400), top(0, 300);
    for (int round = 0; round < 200; ++round) {
        std::vector<LabelBox> wanted;
        for (int n = 0; n < 25; ++n) wanted.push_back(Label(left(random), top(random)));
        ExpectApart(PlaceLabels(wanted, kArea));
        if (testing::Test::HasFailure()) FAIL() << "round " << round;
    }
}

TEST(LabelPlaces, TooManyForTheHeightStandInColumns) {
    const std::vector<LabelBox> wanted(70, Label(380, 150));
    const std::vector<LabelBox> places = PlaceLabels(wanted, kArea);
    ExpectApart(places);
    std::set<double> columns;
    for (const LabelBox& place : places) columns.insert(place.left);
    EXPECT_EQ(columns.size(), 3U);
}

TEST(LabelPlaces, ColumnsLeaveNoLabelBesideThemCovered) {
    // Most curves end today; a few that nobody follows any more end some days earlier or later.
    for (const double beside : {330.0, 345.0, 350.0, 365.0, 384.0}) {
        std::vector<LabelBox> wanted(70, Label(330, 150));
        for (int n = 0; n < 4; ++n) wanted.push_back(Label(beside, 140 + 5 * n));
        ExpectApart(PlaceLabels(wanted, kArea));
    }
}

TEST(LabelPlaces, NeverOverlapHoweverTheyAreSpread) {
    std::mt19937 random(11);
    std::uniform_int_distribution<int> count(1, 150), width(6, 24);
    std::uniform_real_distribution<double> left(0, 400), top(0, 300);
    for (int round = 0; round < 300; ++round) {
        std::vector<LabelBox> wanted;
        for (int n = count(random); n > 0; --n) {
            const bool today = n % 3 != 0;
            wanted.push_back({today ? 350 : left(random), top(random),
                              static_cast<double>(width(random)), 10.5});
        }
        ExpectApart(PlaceLabels(wanted, kArea));
        if (testing::Test::HasFailure()) FAIL() << "round " << round;
    }
}

TEST(LabelPlaces, TooManyForHeightAndWidthShareTheHeight) {
    constexpr LabelBox narrow{0, 0, 20, 300};
    const std::vector<LabelBox> wanted(60, Label(2, 150));
    const std::vector<LabelBox> places = PlaceLabels(wanted, narrow);
    EXPECT_EQ(places.front().top, 0);
    EXPECT_NEAR(places[1].top, 5, 1e-9);
    EXPECT_NEAR(places.back().top, 295, 1e-9);
}

}  // namespace
