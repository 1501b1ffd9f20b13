#include "fundfile/rules/scale.h"

#include "base/error.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {

constexpr std::int32_t kMaxInteger = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kMinInteger = std::numeric_limits<std::int32_t>::min();

TEST(AutomaticScale, FollowsTheLargestAndTheSmallestValue) {
    struct Row {
        std::vector<std::int32_t> values;
        ScaleRange expected;
    };
    const std::vector<Row> rows{
        {{}, {15, -10}},
        {{0}, {15, -10}},
        {{14}, {15, -10}},
        {{15}, {30, -20}},  // strictly above the largest value
        {{29}, {30, -20}},
        {{30}, {45, -30}},
        {{0, 7, 30}, {45, -30}},
        {{-1}, {15, -10}},
        {{-9}, {15, -10}},
        {{-10}, {30, -20}},  // strictly below the smallest value
        {{-20}, {45, -30}},
        {{-25}, {45, -30}},
        {{-29, 14}, {45, -30}},
        {{-30, 14}, {60, -40}},  // the bottom decides, the top follows as 3 : -2
        {{-30, 60}, {75, -50}},  // the top decides
        {{1000}, {1005, -670}},
        {{-100}, {165, -110}},
        {{-7, -3}, {15, -10}},  // no value of zero or more
    };
    for (const Row& row : rows) {
        EXPECT_EQ(AutomaticScale(row.values), row.expected) << testing::PrintToString(row.values);
    }
}

TEST(AutomaticScale, AlwaysTakesAllValuesInAndKeepsTheProportion) {
    for (std::int32_t low = -150; low <= 0; ++low) {
        for (std::int32_t high = 0; high <= 320; high += 3) {
            const std::vector<std::int32_t> values{low, high};
            const ScaleRange scale = AutomaticScale(values);
            ASSERT_GT(scale.top, high);
            ASSERT_LT(scale.bottom, low);
            ASSERT_EQ(scale.top * -2, scale.bottom * 3);
        }
    }
}

TEST(AutomaticScale, BeyondThirtyTwoBitsIsAnOverflow) {
    for (const std::int32_t value : {kMaxInteger, kMinInteger}) {
        const std::vector<std::int32_t> values{value};
        try {
            AutomaticScale(values);
            FAIL() << value;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
        }
    }
}

TEST(ScaleWithTop, TruncatesTheBottomTowardZero) {
    const std::vector<ScaleRange> rows{{15, -10},    {45, -30}, {20, -13},
                                       {16, -10},    {1, 0},    {0, 0},
                                       {1005, -670}, {-15, 10}, {kMaxInteger, -1431655764}};
    for (const ScaleRange& row : rows) EXPECT_EQ(ScaleWithTop(row.top), row);
}

TEST(Normalised, KeepsTheProportion) {
    const struct {
        ScaleRange read, expected;
    } rows[] = {
        {{15, -10}, {15, -10}},
        {{795, -530}, {795, -530}},
        {{12, -8}, {12, -8}},  // no step of ours, but six labels
        {{15, -4}, {15, -10}},
        {{1, -1}, {15, -10}},
        {{15, -11}, {30, -20}},  // the bottom decides
        {{16, -10}, {30, -20}},  // the top decides
        {{20, -13}, {30, -20}},
        {{45, -10}, {45, -30}},
        {{0, -10}, {15, -10}},
        {{15, 0}, {15, -10}},
        {{-15, 10}, {15, -10}},
        {{99990, -66660}, {99990, -66660}},
        {{99991, -1}, {15, -10}},
        {{100005, -66670}, {15, -10}},
        {{2000000000, -5}, {15, -10}},
        {{15, kMinInteger}, {15, -10}},
        {{kMaxInteger, kMinInteger}, {15, -10}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Normalised(row.read), row.expected) << row.read.top << "/" << row.read.bottom;
    }
}

TEST(WidenedFor, ChangesTheScaleOnlyForAValueOutside) {
    const struct {
        ScaleRange stored;
        std::vector<std::int32_t> values;
        ScaleRange expected;
    } rows[] = {
        {{15, -10}, {}, {15, -10}},          {{15, -10}, {0}, {15, -10}},
        {{15, -10}, {15, -10}, {15, -10}},  // on the edge is inside
        {{15, -10}, {16}, {30, -20}},        {{15, -10}, {30}, {45, -30}},
        {{15, -10}, {-11}, {30, -20}},       {{15, -10}, {-50}, {90, -60}},
        {{45, -30}, {-99, 3}, {150, -100}},  {{15, -10}, {1000}, {1005, -670}},
        {{15, -10}, {0, 25, 3}, {30, -20}},   // an earlier point that lies outside
        {{795, -530}, {0, 90}, {795, -530}},  // never narrower
        {{60, -40}, {-41, 50}, {75, -50}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(WidenedFor(row.stored, row.values), row.expected)
            << row.stored.top << "/" << row.stored.bottom << " for "
            << testing::PrintToString(row.values);
    }
}

TEST(ScaleLabels, StandAThirdOfTheTopApart) {
    struct Row {
        ScaleRange scale;
        std::vector<std::int32_t> expected;
    };
    const std::vector<Row> rows{
        {{15, -10}, {-10, -5, 0, 5, 10, 15}},
        {{30, -20}, {-20, -10, 0, 10, 20, 30}},
        {{45, -30}, {-30, -15, 0, 15, 30, 45}},
        {{990, -660}, {-660, -330, 0, 330, 660, 990}},
        {{20, -13}, {-13, -7, -1, 5, 11, 17}},
        {{30, -40}, {-40, -30, -20, -10, 0, 10}},  // more values than places
        {{30, 0}, {0, 10, 20, 30}},
        {{2, -2}, {-2}},  // a step of zero labels once
        {{-30, -10}, {}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ScaleLabels(row.scale), row.expected) << row.scale.top << "/" << row.scale.bottom;
    }
}

TEST(ScaleLabels, EndForATopBelowZero) {
    EXPECT_LE(ScaleLabels({-30, -40}).size(), 6U);
    EXPECT_LE(ScaleLabels({kMaxInteger, kMinInteger}).size(), 6U);
}

}  // namespace
