#include "diagram/rules/zoom.h"

#include "base/error.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {

TEST(Zoom, InTakesBackOneStepOutAndStopsAtTheAutomaticScale) {
    struct Row {
        ScaleRange stored, automatic;
        CurveView view;
        Zoomed expected;
    };
    using enum CurveView;
    const std::vector<Row> rows{
        {{60, -40}, {45, -30}, Single, {{45, -30}, true}},
        {{60, -40}, {45, -30}, Several, {{45, -30}, true}},
        {{75, -50}, {15, -10}, Several, {{60, -40}, true}},
        // from the automatic scale: reset to it, nothing is drawn
        {{45, -30}, {45, -30}, Single, {{45, -30}, false}},
        {{45, -30}, {45, -30}, Several, {{45, -30}, false}},
        {{15, -10}, {15, -10}, Single, {{15, -10}, false}},
        {{15, -10}, {15, -10}, Several, {{15, -10}, false}},
        {{30, -20}, {45, -30}, Several, {{45, -30}, false}},
        {{1005, -670}, {15, -10}, Several, {{990, -660}, true}},
        // a bottom that would pass -10 while the top still may fall
        {{30, -10}, {15, -10}, Single, {{15, -10}, false}},
        {{30, -10}, {15, -10}, Several, {{15, 0}, true}},
        {{45, -15}, {15, -10}, Single, {{15, -10}, false}},
        // the bottom is exactly -10
        {{30, -20}, {15, -10}, Single, {{15, -10}, true}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ZoomIn(row.stored, row.automatic, row.view), row.expected)
            << row.stored.top << "/" << row.stored.bottom << " automatic " << row.automatic.top;
    }
}

TEST(Zoom, OutGrowsAndTheDrawnScaleStopsAtAThousand) {
    struct Row {
        ScaleRange stored;
        Zoomed expected;
    };
    const std::vector<Row> rows{
        {{15, -10}, {{30, -20}, true}},        {{975, -650}, {{990, -660}, true}},
        {{985, -657}, {{1000, -667}, true}},   {{990, -660}, {{1005, -670}, false}},
        {{1005, -670}, {{1020, -680}, false}},
    };
    for (const Row& row : rows) EXPECT_EQ(ZoomOut(row.stored), row.expected) << row.stored.top;
}

TEST(Zoom, InAfterAnOutThatWasNotDrawnDrawsAgain) {
    const Zoomed out = ZoomOut({990, -660});
    const Zoomed in = ZoomIn(out.scale, {15, -10}, CurveView::Several);

    EXPECT_EQ(out, (Zoomed{{1005, -670}, false}));
    EXPECT_EQ(in, (Zoomed{{990, -660}, true}));
}

TEST(Zoom, BeyondThirtyTwoBitsIsAnOverflow) {
    constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();
    EXPECT_THROW(ZoomOut({highest - 14, -10}), Error);
    EXPECT_NO_THROW(ZoomOut({highest - 15, -10}));
}

}  // namespace
