#include "entry/rules/pricecheck.h"

#include "base/error.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <optional>
#include <string_view>

namespace {

TEST(ReadPrice, TakesANumberAboveZero) {
    EXPECT_EQ(ReadPrice("12,5"), 12.5);
    EXPECT_EQ(ReadPrice("12.5"), 12.5);
    EXPECT_EQ(ReadPrice(" 1 234,50 "), 1234.5);
    EXPECT_EQ(ReadPrice("524287,99"), 524287.99);  // seven digits are not enough for it
}

TEST(ReadPrice, RefusesEverythingElse) {
    for (const std::string_view text :
         {"0", "0,00", "-12", "1,2,3", "abc", "", "nan", "inf", "1e99", "1e-99"}) {
        EXPECT_EQ(ReadPrice(text), std::nullopt) << text;
    }
}

TEST(ReadDayPrice, TakesAPriceThatHasAPercentage) {
    OpenHolding holding;
    holding.startPrice = 80;
    const std::optional<DayPrice> read = ReadDayPrice("100,5", holding, 46342);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->text, "100,50");
    EXPECT_EQ(read->point, (CurvePoint{46342, 26}));
    EXPECT_FALSE(ReadDayPrice("0", holding, 46342));
    holding.startPrice = 0;
    EXPECT_FALSE(ReadDayPrice("100,5", holding, 46342));
    holding.startPrice = 1e-30;
    EXPECT_FALSE(ReadDayPrice("100,5", holding, 46342)) << "too far from it";
}

TEST(Judge, AsksAbove200AndRefusesAbove1000) {
    const struct {
        std::int32_t percent;
        Verdict verdict;
    } rows[] = {
        {-100, Verdict::Accept},  {0, Verdict::Accept},      {200, Verdict::Accept},
        {201, Verdict::AskFirst}, {1000, Verdict::AskFirst}, {1001, Verdict::AskThenRefuse},
    };
    for (const auto& row : rows) EXPECT_EQ(Judge(row.percent), row.verdict) << row.percent;
}

}  // namespace
