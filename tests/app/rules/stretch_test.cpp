#include "app/rules/stretch.h"

#include <gtest/gtest.h>

namespace {

TEST(RigidScales, FollowTheWindowWhileItsTextFitsInIt) {
    const struct {
        Scales window;
        float font;
        Scales rigid;
    } rows[] = {
        {{1, 1}, 1, {1, 1}},
        {{0.8F, 0.76F}, 0.78F, {0.8F, 0.76F}},
        {{1.3333F, 1.3333F}, 1.3F, {1.3333F, 1.3333F}},
        // Larger text takes the room that the design spares, and then what it needs.
        {{1, 1}, 1.05F, {1, 1}},
        {{1, 1}, 1.5F, {1.38F, 1.26F}},
        {{2, 2}, 2, {2, 2}},
        {{2.4F, 2.4F}, 1.3F, {2.4F, 2.4F}},
        // In a wide window a box does not stand hollow around its text ...
        {{4.3F, 2.4F}, 1.3F, {2.015F, 2.015F}},
        {{2.76F, 2.4F}, 1.3F, {2.76F, 2.4F}},
        {{2.81F, 2.4F}, 1.3F, {2.7109F, 2.3573F}},
        // ... and a wide or a high one gives its length to what has no text in it.
        {{2, 1}, 1, {1.15F, 1}},
        {{1, 2}, 1, {1, 1.15F}},
    };
    for (const auto& row : rows) {
        const Scales rigid = RigidScales(row.window, row.font);
        EXPECT_NEAR(rigid.across, row.rigid.across, 0.0001) << row.window.across << ' ' << row.font;
        EXPECT_NEAR(rigid.down, row.rigid.down, 0.0001) << row.window.down << ' ' << row.font;
    }
}

TEST(Stretched, AWholePanelIsScaled) {
    EXPECT_FLOAT_EQ(Stretched(300, 1000, {}, 1500, 1), 450);
    EXPECT_FLOAT_EQ(Stretched(1000, 1000, {0, 1000}, 1500, 1), 1500);
}

TEST(Stretched, TheElasticPartTakesWhatTheOthersLeave) {
    const struct {
        float position, actual, rigid, place;
    } rows[] = {
        {0, 1000, 1, 0},           {200, 1000, 1, 200},     {500, 1000, 1, 500},
        {200, 1000, 1.25F, 250},   {500, 1000, 1.25F, 500}, {800, 1000, 1.25F, 750},
        {1000, 1000, 1.25F, 1000}, {200, 3000, 1, 200},     {500, 3000, 1, 1500},
        {800, 3000, 1, 2800},
    };
    for (const auto& row : rows) {
        EXPECT_FLOAT_EQ(Stretched(row.position, 1000, {200, 800}, row.actual, row.rigid), row.place)
            << row.position << " of " << row.actual;
    }
}

TEST(Stretched, TheElasticPartKeepsHalfOfItsShare) {
    EXPECT_FLOAT_EQ(Stretched(200, 1000, {200, 800}, 1000, 9), 350);
    EXPECT_FLOAT_EQ(Stretched(800, 1000, {200, 800}, 1000, 9), 650);
}

}  // namespace
