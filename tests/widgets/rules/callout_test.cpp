#include "widgets/rules/callout.h"

#include <gtest/gtest.h>

namespace {

constexpr LabelBox kArea{0, 0, 400, 300};

TEST(CalloutPlace, IsRightOverThePlaceAndOnItsOtherSidesAtTheEdges) {
    const struct {
        Point at;
        LabelBox place;
    } rows[] = {{{100, 150}, {108, 102, 120, 40}}, {{390, 150}, {262, 102, 120, 40}},
                {{100, 20}, {108, 28, 120, 40}},   {{390, 20}, {262, 28, 120, 40}},
                {{-50, 150}, {0, 102, 120, 40}},   {{100, 400}, {108, 260, 120, 40}}};
    for (const auto& row : rows) {
        EXPECT_EQ(CalloutPlace(row.at, 120, 40, kArea, 8), row.place)
            << row.at.x << " " << row.at.y;
    }
}

TEST(CalloutPlace, NeverCoversThePlaceItIsAbout) {
    for (double x = 0; x <= 400; x += 10) {
        for (double y = 0; y <= 300; y += 10) {
            const LabelBox box = CalloutPlace({x, y}, 150, 40, kArea, 8);
            const bool covers = x > box.left && x < box.Right() && y > box.top && y < box.Bottom();
            ASSERT_FALSE(covers) << x << " " << y;
        }
    }
}

}  // namespace
