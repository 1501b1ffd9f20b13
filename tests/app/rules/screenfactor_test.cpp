#include "app/rules/screenfactor.h"

#include <cstdint>
#include <gtest/gtest.h>

namespace {

TEST(ScreenFactor, IsOneOnTheScreenDesignedFor) {
    EXPECT_EQ(ScreenFactor(ScreenWidthTwips(800, 600)), 1.0F);
    EXPECT_EQ(ScreenFactor(ScreenWidthTwips(1366, 600)), 1.0F);
    EXPECT_EQ(ScreenFactor(ScreenWidthTwips(800, 1280)), 1.0F);
    EXPECT_EQ(ScreenFactor(ScreenWidthTwips(0, 0)), 1.0F);
}

TEST(ScreenFactor, FollowsTheLargestFourToThreeArea) {
    const struct {
        std::int32_t width, height;
        float widthTwips;
    } rows[] = {
        {640, 480, 9600},   {1024, 768, 15360},  {1920, 1080, 21600}, {1280, 1024, 19200},
        {1366, 768, 15360}, {3440, 1440, 28800}, {1080, 1920, 16200},
    };
    for (const auto& row : rows) {
        EXPECT_FLOAT_EQ(ScreenWidthTwips(row.width, row.height), row.widthTwips) << row.width;
    }
}

TEST(ScreenFactor, OfASmallScreenFillsItsWidth) {
    const TwipRect window = ScaledWindow({300, 150, 12000, 9000}, ScreenFactor(9600));
    EXPECT_FLOAT_EQ(window.width, 9600);
    EXPECT_FLOAT_EQ(window.height, 6840);
    EXPECT_EQ(window.left, 0.0F);
    EXPECT_EQ(window.top, 0.0F);
}

TEST(ScreenFactor, OfALargeScreenScalesEverySide) {
    const TwipRect window = ScaledWindow({300, 150, 12000, 9000}, ScreenFactor(16000));
    EXPECT_FLOAT_EQ(window.left, 400);
    EXPECT_FLOAT_EQ(window.top, 200);
    EXPECT_FLOAT_EQ(window.width, 16000);
    EXPECT_FLOAT_EQ(window.height, 12000);
}

TEST(FontFactor, FollowsItsBands) {
    const struct {
        float factor, font;
    } rows[] = {
        {0.4F, 0.78F},  {0.8F, 0.78F},  {0.999F, 0.78F}, {1.0F, 1.0F},
        {1.01F, 1.01F}, {1.02F, 1.02F}, {1.1F, 1.1F},    {1.199F, 1.199F},
        {1.2F, 1.3F},   {1.333F, 1.3F}, {3.0F, 1.3F},
    };
    for (const auto& row : rows) EXPECT_EQ(FontFactor(row.factor), row.font) << row.factor;
}

TEST(FontFactor, OfAControlNeverOutgrowsTheControlOnASmallScreen) {
    EXPECT_EQ(ControlFontFactor(0.8F), 0.78F);
    EXPECT_EQ(ControlFontFactor(0.6F), 0.6F);
    EXPECT_EQ(ControlFontFactor(1.333F), 1.3F);
}

TEST(SmallestPoints, AreEightOnEveryScreenDesignedFor) {
    const struct { float factor, points; } rows[] = {{0.4F, 4}, {0.8F, 8}, {1.0F, 8}, {1.333F, 8}};
    for (const auto& row : rows) EXPECT_EQ(SmallestPoints(row.factor), row.points) << row.factor;
}

TEST(FontFactor, OfListsAndGridsStaysReadableAndGrowsLess) {
    const struct {
        float factor, list, grid;
    } rows[] = {
        {0.4F, 0.5F, 0.5F}, {0.6F, 0.6F, 0.6F}, {0.8F, 0.78F, 0.78F},
        {1.0F, 1.0F, 1.0F}, {1.1F, 1.1F, 1.1F}, {1.5F, 1.25F, 1.2F},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ListFontFactor(row.factor), row.list) << row.factor;
        EXPECT_EQ(GridFontFactor(row.factor), row.grid) << row.factor;
    }
}

}  // namespace
