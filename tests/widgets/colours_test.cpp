#include "widgets/colours.h"

#include "platform/qttext.h"

#include <gtest/gtest.h>

namespace {

TEST(Colours, StandInStyleSheetsByTheirNames) {
    EXPECT_EQ(FromQt(Coloured(ToQt("a { color: $white; background: $panel }"))),
              "a { color: #ffffff; background: #f7f9fa }");
    EXPECT_EQ(FromQt(Coloured(ToQt("$accent"))), "#1f5c7d");
    EXPECT_EQ(FromQt(Coloured(ToQt("b { margin: 0 }"))), "b { margin: 0 }");
}

TEST(Colours, AreThoseOfQt) {
    EXPECT_EQ(ToQColor({1, 2, 3}), QColor(1, 2, 3));
    EXPECT_EQ(colours::Hex(0x010203), (Colour{1, 2, 3}));
}

}  // namespace
