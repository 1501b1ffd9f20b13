#include "widgets/rules/legendcolumns.h"

#include <gtest/gtest.h>

namespace {

TEST(LegendColumns, AreAsWideAsTheirEntriesNeedWhereThereIsRoom) {
    const struct {
        const char* what;
        std::size_t entries;
        LegendEntrySize size;
        LegendRoom room;
        int width;
    } rows[] = {
        {"one entry is no wider than it is", 1, {80, 150, 15}, {540, 80}, 150},
        {"all in one column", 5, {80, 150, 15}, {540, 80}, 150},
        {"in three columns with room to spare", 12, {80, 150, 15}, {540, 80}, 150},
        {"long names share the width", 12, {80, 400, 15}, {540, 80}, 180},
        {"a single column has all of the width", 3, {80, 900, 15}, {540, 80}, 540},
        {"more than fit: as many as can be read", 40, {80, 150, 15}, {540, 80}, 90},
        {"an entry wider than the room", 2, {700, 900, 15}, {540, 80}, 540},
        {"a room lower than an entry", 2, {80, 150, 15}, {540, 4}, 150},
        {"no room at all", 3, {80, 150, 15}, {0, 0}, 1},
        {"no entries", 0, {1, 1, 15}, {540, 80}, 1},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(LegendColumnWidth(row.entries, row.size, row.room), row.width) << row.what;
    }
}

TEST(LegendColumns, FitWhereNothingIsScrolled) {
    EXPECT_TRUE(LegendFits(12, {80, 400, 15}, {540, 80}));
    EXPECT_TRUE(LegendFits(30, {80, 150, 15}, {540, 80}));
    EXPECT_FALSE(LegendFits(31, {80, 150, 15}, {540, 80}));
    EXPECT_TRUE(LegendFits(0, {1, 1, 15}, {540, 80}));
}

TEST(LegendColumns, AreNeverNarrowerThanCanBeReadUnlessTheRoomIs) {
    for (std::size_t entries = 1; entries <= 60; ++entries) {
        for (int width = 100; width <= 2000; width += 37) {
            const int column = LegendColumnWidth(entries, {90, 240, 16}, {width, 80});
            ASSERT_GE(column, 90);
            ASSERT_LE(column, 240);
        }
    }
}

}  // namespace
