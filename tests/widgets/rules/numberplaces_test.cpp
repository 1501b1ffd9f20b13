#include "widgets/rules/numberplaces.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace {

constexpr LabelBox kArea{0, 0, 600, 400};
constexpr double kHigh = 10, kWide = 12, kGap = 2, kFar = 200;

using Line = std::vector<Point>;

std::vector<CurveExtent> ExtentsOf(const std::vector<Line>& lines) {
    std::vector<CurveExtent> extents;
    for (const Line& line : lines) {
        extents.emplace_back(kArea.left, kArea.Right(), 1);
        for (std::size_t at = 1; at < line.size(); ++at) {
            extents.back().AddLine(line[at - 1], line[at]);
        }
    }
    return extents;
}

/// Each number wished so high over its curve's end.
std::vector<NumberPlace> Ends(const std::vector<Line>& lines, double lift) {
    std::vector<EndNumber> wishes;
    for (std::size_t curve = 0; curve < lines.size(); ++curve) {
        const Point end = lines[curve].back();
        wishes.push_back({curve, end, end.y - lift, kWide, kHigh});
    }
    return PlaceEndNumbers(wishes, ExtentsOf(lines), kArea, kGap);
}

Line Level(double y, double to = 500) {
    return {{0, y}, {to, y}};
}

TEST(EndNumbers, ThatStandAloneStandAsWishedWithoutALine) {
    for (const double lift : {12.0, 24.0}) {
        const auto places = Ends({Level(100), Level(200)}, lift);
        ASSERT_EQ(places.size(), 2U);
        EXPECT_EQ(places[0], (NumberPlace{0, {502, 100 - lift, kWide, kHigh}, {}}));
        EXPECT_EQ(places[1], (NumberPlace{1, {502, 200 - lift, kWide, kHigh}, {}}));
    }
}

TEST(EndNumbers, ThatWouldStandNearerToAnotherCurveStandBesideTheirOwnEnd) {
    // 24 over its end the lower one's number would stand at the upper curve.
    const auto places = Ends({Level(100), Level(126)}, 24);
    EXPECT_EQ(places[1].box, (LabelBox{502, 121, kWide, kHigh}));
    EXPECT_FALSE(places[1].leader);
}

TEST(EndNumbers, ThatAreMovedHaveALineToTheirOwnEnd) {
    const auto places = Ends({Level(100), Level(103), Level(106)}, 12);
    for (const NumberPlace& place : places) {
        if (!place.leader) continue;
        EXPECT_EQ(place.leader->to, (Point{500, 100.0 + 3 * static_cast<double>(place.curve)}));
        EXPECT_EQ(place.leader->from.x, place.box.left);
        EXPECT_GT(place.box.left, 500 + 2 * kGap) << "the line is to be seen";
    }
    EXPECT_TRUE(std::any_of(places.begin(), places.end(),
                            [](const NumberPlace& place) { return place.leader.has_value(); }));
}

TEST(EndNumbers, AtTheRightEdgeStandOverTheirCurve) {
    const auto places = Ends({Level(100, 600), Level(300, 600)}, 12);
    EXPECT_EQ(places[0].box, (LabelBox{588, 88, kWide, kHigh}));
    EXPECT_FALSE(places[0].leader);
}

TEST(EndNumbers, OfCurvesWithOneEndAllHaveALine) {
    for (const NumberPlace& place : Ends({Level(100), Level(100)}, 12)) {
        EXPECT_TRUE(place.leader);
    }
}

std::vector<Line> Market(int curves, std::mt19937& random) {
    std::normal_distribution<double> step(0, 2);
    std::vector<Line> lines;
    for (int curve = 0; curve < curves; ++curve) {
        Line line{{0, 200}};
        while (line.back().x < 480) {
            line.push_back(
                {line.back().x + 2, std::clamp(line.back().y + step(random), 20.0, 380.0)});
        }
        lines.push_back(line);
    }
    return lines;
}

TEST(EndNumbers, AreNearestToTheirOwnCurveOrLedToIt) {
    std::mt19937 random(5);
    for (const int curves : {2, 3, 7, 12, 25, 40}) {
        for (int round = 0; round < 20; ++round) {
            const auto lines = Market(curves, random);
            const auto extents = ExtentsOf(lines);
            for (const NumberPlace& place : Ends(lines, 12)) {
                if (place.leader) {
                    ASSERT_EQ(place.leader->to, lines[place.curve].back());
                    continue;
                }
                const double own = extents[place.curve].DistanceTo(place.box, kFar);
                for (std::size_t other = 0; other < extents.size(); ++other) {
                    if (other == place.curve) continue;
                    ASSERT_GT(extents[other].DistanceTo(place.box, kFar), own)
                        << curves << " curves, round " << round;
                }
            }
        }
    }
}

std::vector<NumberPlace> Along(const std::vector<Line>& lines, std::vector<LabelBox> taken = {}) {
    const std::vector<NumberSize> sizes(lines.size(), {kWide, kHigh});
    return PlaceAlongCurves(sizes, ExtentsOf(lines), std::move(taken), kArea);
}

TEST(NumbersAlong, StandOnTheirOwnCurveAndFreeOfAllOthers) {
    std::mt19937 random(6);
    for (const int curves : {1, 7, 12, 40}) {
        const auto lines = Market(curves, random);
        const auto extents = ExtentsOf(lines);
        const auto places = Along(lines);
        for (std::size_t at = 0; at < places.size(); ++at) {
            const NumberPlace& place = places[at];
            EXPECT_EQ(extents[place.curve].DistanceTo(place.box, kFar), 0);
            for (std::size_t other = 0; other < extents.size(); ++other) {
                if (other == place.curve) continue;
                EXPECT_GT(extents[other].DistanceTo(place.box, kFar), 0);
            }
            for (std::size_t before = 0; before < at; ++before) {
                EXPECT_FALSE(place.box.left < places[before].box.Right() &&
                             places[before].box.left < place.box.Right() &&
                             place.box.top < places[before].box.Bottom() &&
                             places[before].box.top < place.box.Bottom());
            }
        }
    }
}

TEST(NumbersAlong, AreAFewOnEveryCurveThatHasRoom) {
    std::vector<Line> lines;
    for (int curve = 0; curve < 7; ++curve) lines.push_back(Level(30 + 50 * curve, 600));
    std::vector<int> numbers(lines.size());
    for (const NumberPlace& place : Along(lines)) ++numbers[place.curve];
    EXPECT_EQ(numbers, std::vector<int>(lines.size(), 3));
}

TEST(NumbersAlong, AreNotWhereAPlaceIsTakenOrCurvesRunTogether) {
    EXPECT_TRUE(Along({Level(100, 600)}, {kArea}).empty());
    EXPECT_TRUE(Along({Level(100, 600), Level(102, 600)}).empty());
    EXPECT_TRUE(Along({}).empty());
}

}  // namespace
