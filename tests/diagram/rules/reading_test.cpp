#include "diagram/rules/reading.h"

#include "base/daynumber.h"
#include "base/error.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace {

const std::int32_t kNewYear2006 = *ParseDate("2006-01-01");

TEST(Reading, DateCountsWholeDaysFromTheWindowsStart) {
    struct Row {
        double x;
        const char* text;
    };
    const std::vector<Row> rows{
        {0, "1  januari 2006"},    {0.99, "1  januari 2006"},    {100, "11  april 2006"},
        {100.7, "11  april 2006"}, {364.9, "31  december 2006"}, {-0.5, "1  januari 2006"},
    };
    for (const Row& row : rows) EXPECT_EQ(DateReading(row.x, kNewYear2006), row.text) << row.x;
}

TEST(Reading, ADayWithoutADateIsAnOverflow) {
    EXPECT_THROW(DateReading(1, kLastDay), Error);
    EXPECT_THROW(DateReading(1e12, kNewYear2006), Error);
}

TEST(Reading, ValueIsWholePercentCutTowardZero) {
    struct Row {
        double y;
        const char* text;
    };
    const std::vector<Row> rows{{0, "0 %"},      {12.9, "12 %"}, {-0.9, "0 %"},
                                {-4.99, "-4 %"}, {-10, "-10 %"}, {990, "990 %"}};
    for (const Row& row : rows) EXPECT_EQ(ValueReading(row.y, std::nullopt), row.text) << row.y;
}

TEST(Reading, ValueWithABasePriceIsAnAmount) {
    struct Row {
        double y;
        double price;
        const char* text;
    };
    const std::vector<Row> rows{
        {0, 100.0, "100,00 kr"},    {12.5, 100.0, "112,50 kr"}, {-50, 99.5, "49,75 kr"},
        {3.333, 12.34, "12,75 kr"}, {-100, 80.0, "0,00 kr"},    {0, 524287.99, "524287,99 kr"},
        {10, 0.0, "0,00 kr"},
    };
    for (const Row& row : rows) EXPECT_EQ(ValueReading(row.y, row.price), row.text) << row.y;
}

TEST(Reading, InsideIsTwelveMonthsWideAndTheScaleHigh) {
    constexpr ScaleRange scale{15, -10};
    struct Row {
        Point at;
        bool inside;
    };
    const std::vector<Row> rows{
        {{0, 0}, true},   {{-0.1, 0}, false},  {{364.9, 0}, true}, {{365, 0}, false},
        {{10, 15}, true}, {{10, 15.1}, false}, {{10, -10}, true},  {{10, -10.1}, false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(InsideDiagram(row.at, scale), row.inside) << row.at.x << " " << row.at.y;
    }
}

}  // namespace
