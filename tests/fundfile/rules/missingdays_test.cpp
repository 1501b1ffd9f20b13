#include "fundfile/rules/missingdays.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

constexpr std::int32_t kToday = 46342;  // Monday 2026-11-16

TEST(IsWeekday, IsMondayToFriday) {
    for (std::int32_t day = kToday; day < kToday + 5; ++day) EXPECT_TRUE(IsWeekday(day)) << day;
    EXPECT_FALSE(IsWeekday(kToday - 1));
    EXPECT_FALSE(IsWeekday(kToday - 2));
    EXPECT_FALSE(IsWeekday(0)) << "a Saturday";
    EXPECT_FALSE(IsWeekday(-6)) << "a Sunday";
    EXPECT_TRUE(IsWeekday(-1));
}

TEST(MissingWeekdays, AreThoseBetweenTheFirstPointAndToday) {
    using Points = std::vector<CurvePoint>;
    using Days = std::vector<std::int32_t>;
    EXPECT_EQ(MissingWeekdays({}, kToday), Days{});
    EXPECT_EQ(MissingWeekdays(Points{{kToday - 3, 0}}, kToday), Days{}) << "Friday, then a weekend";
    EXPECT_EQ(MissingWeekdays(Points{{kToday - 6, 0}, {kToday - 4, 1}}, kToday),
              (Days{kToday - 5, kToday - 3}));
    EXPECT_EQ(MissingWeekdays(Points{{kToday + 2, 0}}, kToday), Days{});
    EXPECT_EQ(MissingWeekdays(Points{{kToday, 0}}, kToday), Days{});
}

TEST(MissingWeekdays, GoBackSixtyDays) {
    const std::vector<CurvePoint> old = {{kToday - 400, 0}};
    const std::vector<std::int32_t> missing = MissingWeekdays(old, kToday);
    ASSERT_FALSE(missing.empty());
    EXPECT_EQ(missing.front(), kToday - 60);
    EXPECT_EQ(missing.back(), kToday - 3);
    EXPECT_EQ(missing.size(), 42U);
}

}  // namespace
