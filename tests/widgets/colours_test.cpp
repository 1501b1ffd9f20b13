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

struct Pair {
    const char* what;
    Colour shown, ground;
};

// The ratios are those of the Web Content Accessibility Guidelines 2.1, 1.4.3 and 1.4.11.

TEST(Contrast, IsThatOfTheGuidelines) {
    EXPECT_NEAR(Contrast(colours::kWhite, {0, 0, 0}), 21, 0.001);
    EXPECT_NEAR(Contrast({119, 119, 119}, colours::kWhite), 4.48, 0.01);
}

TEST(Contrast, OfTextIsFourAndAHalf) {
    using namespace colours;
    const Pair pairs[] = {{"panel", kText, kPanel},
                          {"page", kText, kWhite},
                          {"other row", kText, kAlternateRow},
                          {"notice", kText, kNotice},
                          {"doubt", kText, kDoubt},
                          {"menu line", kPressedText, kPressed},
                          {"menu bar", kText, kPressed},
                          {"button", kText, kHover},
                          {"quiet on a panel", kQuietText, kPanel},
                          {"quiet on a page", kQuietText, kWhite},
                          {"quiet on another row", kQuietText, kAlternateRow},
                          {"title", kTitle, kPanel},
                          {"heading", kWhite, kHeading},
                          {"date", kHeadingDate, kHeading},
                          {"chosen row", kWhite, kAccent},
                          {"list", kListGreen, kListBackground},
                          {"list of curves", kListCurves, kListBackground},
                          {"chosen line", kWhite, kListChosen},
                          {"field", kFieldText, kField},
                          {"focused field", kFieldText, kFieldFocused},
                          {"hint in a field", kFieldQuietText, kField},
                          {"help", kText, kHelpMessage},
                          {"help lead", kHelpLead, kWhite},
                          {"help link", kAccent, kWhite},
                          {"help found", kText, kHelpFound}};
    for (const Pair& pair : pairs) {
        EXPECT_GE(Contrast(pair.shown, pair.ground), 4.5) << pair.what;
    }
}

TEST(Contrast, OfBordersFocusAndWhatIsChosenIsThree) {
    using namespace colours;
    const Pair pairs[] = {{"button", kButtonBorder, kWhite},
                          {"button on a panel", kButtonBorder, kPanel},
                          {"field", kButtonBorder, kField},
                          {"focus on a panel", kAccent, kPanel},
                          {"focus instead of a border", kAccent, kBorder},
                          {"focused field", kAccent, kFieldFocused},
                          {"chosen row", kAccent, kWhite},
                          {"chosen row by another", kAccent, kAlternateRow},
                          {"chosen line", kListChosen, kListBackground},
                          {"focus of the list", kListFocus, kListBackground},
                          {"the list's scroll bar", kListHandle, kListBackground},
                          {"focus of the diagram", kAccent, kDiagramBackground}};
    for (const Pair& pair : pairs) {
        EXPECT_GE(Contrast(pair.shown, pair.ground), 3) << pair.what;
    }
}

}  // namespace
