#include "app/rules/keys.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

const ShownPanels kDiagram{.colourButton = true, .curvesButton = true};
const ShownPanels kPriceList{};  // the price list hides both buttons
const ShownPanels kHoldings{.holdings = true};
const ShownPanels kPlotData{.plotData = true, .colourButton = true, .curvesButton = true};
const ShownPanels kPage{.page = true};

TEST(KeyUp, ActsOnTheDiagram) {
    const struct {
        FunctionKey key;
        KeyAction action;
    } rows[] = {
        {FunctionKey::Left, KeyAction::ScrollLeft}, {FunctionKey::Right, KeyAction::ScrollRight},
        {FunctionKey::F8, KeyAction::RedrawFunds},  {FunctionKey::F9, KeyAction::ChooseColour},
        {FunctionKey::F11, KeyAction::EnterPrice},  {FunctionKey::F12, KeyAction::ChooseCurves},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(OnKeyUp(row.key, kDiagram), row.action);
        EXPECT_EQ(OnKeyUp(row.key, kHoldings), KeyAction::None);
        EXPECT_EQ(OnKeyUp(row.key, kPlotData), KeyAction::None);
    }
}

TEST(KeyUp, InThePictureHomeGoesToTheStartAndShiftedArrowsGoByAYear) {
    const struct {
        FunctionKey key;
        bool inPicture, withShift;
        KeyAction action;
    } rows[] = {
        {FunctionKey::Home, false, false, KeyAction::None},
        {FunctionKey::Home, false, true, KeyAction::None},
        {FunctionKey::Home, true, false, KeyAction::ShowMonthsOfStart},
        {FunctionKey::Home, true, true, KeyAction::ShowMonthsOfStart},
        {FunctionKey::Left, false, false, KeyAction::ScrollLeft},
        {FunctionKey::Left, false, true, KeyAction::ScrollLeft},
        {FunctionKey::Left, true, false, KeyAction::ScrollLeft},
        {FunctionKey::Left, true, true, KeyAction::ScrollYearLeft},
        {FunctionKey::Right, false, false, KeyAction::ScrollRight},
        {FunctionKey::Right, false, true, KeyAction::ScrollRight},
        {FunctionKey::Right, true, false, KeyAction::ScrollRight},
        {FunctionKey::Right, true, true, KeyAction::ScrollYearRight},
    };
    for (const auto& row : rows) {
        ShownPanels shown = kDiagram;
        shown.inPicture = row.inPicture;
        shown.withShift = row.withShift;
        EXPECT_EQ(OnKeyUp(row.key, shown), row.action);
        shown.plotData = true;
        EXPECT_EQ(OnKeyUp(row.key, shown), KeyAction::None);
    }
}

TEST(KeyUp, OfF1ShowsHelpEverywhere) {
    for (const auto& shown : {kDiagram, kPriceList, kHoldings, kPlotData}) {
        EXPECT_EQ(OnKeyUp(FunctionKey::F1, shown), KeyAction::ShowHelp);
    }
}

TEST(KeyUp, OfF9AndF12NeedsTheirButtons) {
    EXPECT_EQ(OnKeyUp(FunctionKey::F9, kPriceList), KeyAction::None);
    EXPECT_EQ(OnKeyUp(FunctionKey::F12, kPriceList), KeyAction::None);
    EXPECT_EQ(OnKeyUp(FunctionKey::F11, kPriceList), KeyAction::EnterPrice);
}

TEST(KeyUp, OfF6AndF7LeadToTheirPagesFromEverywhere) {
    for (const auto& shown : {kDiagram, kPriceList, kHoldings, kPlotData, kPage}) {
        EXPECT_EQ(OnKeyUp(FunctionKey::F6, shown), KeyAction::DayPrices);
        EXPECT_EQ(OnKeyUp(FunctionKey::F7, shown), KeyAction::Overview);
    }
}

TEST(KeyUp, OnAPageLeavesTheCoveredPictureAlone) {
    EXPECT_EQ(OnKeyUp(FunctionKey::Left, kPage), KeyAction::None);
    EXPECT_EQ(OnKeyUp(FunctionKey::Right, kPage), KeyAction::None);
    EXPECT_EQ(OnKeyUp(FunctionKey::F8, kPage), KeyAction::RedrawFunds);
    EXPECT_EQ(OnKeyUp(FunctionKey::F11, kPage), KeyAction::EnterPrice);
    EXPECT_EQ(OnKeyUp(FunctionKey::F9, kPage), KeyAction::None);
    EXPECT_EQ(OnKeyUp(FunctionKey::F12, kPage), KeyAction::None);
}

TEST(KeyPress, OfEscapeAlwaysLeadsToTheDiagram) {
    EXPECT_EQ(OnKeyPress(27, kDiagram), KeyAction::ToDiagram);
    EXPECT_EQ(OnKeyPress(27, kPlotData), KeyAction::ToDiagram);
    EXPECT_EQ(OnKeyPress(27, kHoldings), KeyAction::ToDiagramFromGrid);
    EXPECT_EQ(OnKeyPress(27, kPage), KeyAction::ToDiagramFromPage);
}

TEST(KeyPress, OfPlusZoomsInEverywhere) {
    for (const auto& shown : {kDiagram, kPriceList, kHoldings, kPlotData}) {
        EXPECT_EQ(OnKeyPress(U'+', shown), KeyAction::ZoomIn);
    }
}

TEST(KeyPress, OfMinusZoomsOutExceptInTheGrids) {
    EXPECT_EQ(OnKeyPress(U'-', kDiagram), KeyAction::ZoomOut);
    EXPECT_EQ(OnKeyPress(U'-', kPriceList), KeyAction::ZoomOut);
    EXPECT_EQ(OnKeyPress(U'-', kHoldings), KeyAction::None);
    EXPECT_EQ(OnKeyPress(U'-', kPlotData), KeyAction::None);
}

TEST(KeyPress, OfAnyOtherKeyBelongsToTheControl) {
    for (const char32_t typed : {U'a', U'0', U' ', U',', U'\r', U'\b', U'ö'}) {
        EXPECT_EQ(OnKeyPress(typed, kDiagram), KeyAction::None);
        EXPECT_EQ(OnKeyPress(typed, kHoldings), KeyAction::None);
    }
}

}  // namespace
