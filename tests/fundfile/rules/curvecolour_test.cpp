#include "fundfile/rules/curvecolour.h"

#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {

/// How different two colours look: the weighted distance of their parts, 0 to about 765.
double Difference(Colour one, Colour other) {
    const double meanRed = (one.red + other.red) / 2.0;
    const double red = one.red - other.red, green = one.green - other.green,
                 blue = one.blue - other.blue;
    return std::sqrt((2 + meanRed / 256) * red * red + 4 * green * green +
                     (2 + (255 - meanRed) / 256) * blue * blue);
}

TEST(Colour, IsStoredWithRedInTheLowestByte) {
    struct Row {
        std::int32_t value;
        Colour colour;
    };
    const std::vector<Row> rows{
        {0, {0, 0, 0}},          {255, {255, 0, 0}},          {65280, {0, 255, 0}},
        {16711680, {0, 0, 255}}, {0xFFFFFF, {255, 255, 255}}, {0x80FF80, {128, 255, 128}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ColourFromValue(row.value), row.colour) << row.value;
        EXPECT_EQ(ColourValue(row.colour), row.value);
    }
}

TEST(Colour, IgnoresTheHighestByteOfAValue) {
    EXPECT_EQ(ColourFromValue(-1), (Colour{255, 255, 255}));
    EXPECT_EQ(ColourFromValue(std::numeric_limits<std::int32_t>::min()), (Colour{0, 0, 0}));
}

TEST(Colour, ContrastOfBlackOnWhiteIsTwentyOne) {
    EXPECT_NEAR(Contrast({0, 0, 0}, {255, 255, 255}), 21, 1e-9);
    EXPECT_NEAR(Contrast({255, 255, 255}, {0, 0, 0}), 21, 1e-9);
    EXPECT_NEAR(Contrast({90, 90, 90}, {90, 90, 90}), 1, 1e-9);
}

TEST(NewCurveColour, CanBeReadOnTheDiagramsBackground) {
    for (std::int32_t kontoId = 1; kontoId <= 2000; ++kontoId) {
        ASSERT_GE(Contrast(NewCurveColour(kontoId), kDiagramBackground), 4.5) << kontoId;
    }
}

TEST(NewCurveColour, TellsTwentyHoldingsInARowApart) {
    for (std::int32_t first = 1; first <= 200; ++first) {
        for (std::int32_t other = first + 1; other < first + 20; ++other) {
            ASSERT_GE(Difference(NewCurveColour(first), NewCurveColour(other)), 25)
                << first << " and " << other;
        }
    }
}

TEST(NewCurveColour, HasAnAnswerForEveryKontoId) {
    for (const std::int32_t kontoId : {0, -1, std::numeric_limits<std::int32_t>::max(),
                                       std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_GE(Contrast(NewCurveColour(kontoId), kDiagramBackground), 4.5) << kontoId;
    }
}

TEST(EdgeColour, IsForColoursTooPaleForTheGroundOnly) {
    const struct {
        Colour colour;
        bool edged;
    } rows[] = {{{255, 255, 255}, true},  {{255, 255, 0}, true}, {{0, 255, 255}, true},
                {{255, 200, 200}, true},  {{255, 0, 0}, false},  {{0, 0, 255}, false},
                {{128, 128, 128}, false}, {{0, 0, 0}, false}};
    for (const auto& row : rows) {
        const auto edge = EdgeColour(row.colour);
        EXPECT_EQ(edge.has_value(), row.edged);
        if (edge) EXPECT_GE(Contrast(*edge, kDiagramBackground), 3);
    }
    for (std::int32_t kontoId = 1; kontoId <= 60; ++kontoId) {
        EXPECT_FALSE(EdgeColour(NewCurveColour(kontoId))) << kontoId;
    }
}

}  // namespace
