#include "app/errortexts.h"
#include "fundfile/schema.h"
#include "tests/window/windowtest.h"
#include "widgets/colours.h"
#include "widgets/imagebutton.h"

#include <QAction>
#include <QColor>
#include <QGroupBox>
#include <QLabel>
#include <QPalette>

#include <chrono>
#include <functional>
#include <set>

namespace {

class CurveSelectionTest : public WindowTest {
  protected:
    CurveSelectionTest() {
        SetToday(2026, 3, 10);
        auto holdings = TwoHoldings();
        TestHolding third;
        third.fond = "Rusken Kina";
        third.skala = "90/-60";
        third.plottFarg = 0x00A000;
        holdings.push_back(third);
        holdings[0].skala = "1./15/-10";
        MakeFile(holdings);
        Start();
        Press(Qt::Key_F11);  // closes the list; the two picture buttons show
    }

    std::string ListCaption() { return Caption(Window().panListFonder); }
    bool ListShown() { return Window().panListFonder->isVisible(); }
    std::string ColourTag() { return Tag(Window().imgColor); }
    std::string CurvesTag() { return Tag(Window().imgGrafNr); }
    std::vector<std::string> Labels() {
        std::vector<std::string> labels;
        for (const Drawing& drawing : Window().picDiagram->Drawings()) {
            labels.push_back(drawing.label);
        }
        return labels;
    }
};

TEST_F(CurveSelectionTest, F9StartsColourMode) {
    Press(Qt::Key_F9);
    EXPECT_TRUE(ListShown());
    EXPECT_EQ(ListCaption(), "Välj Färg för Fond  <Enter>");
    EXPECT_EQ(ColourTag(), "2");
    EXPECT_EQ(CurvesTag(), "0");
    EXPECT_FALSE(Window().cmdFondList->isEnabled());
    EXPECT_EQ(Window().focusWidget(), Window().lstFonder);
    EXPECT_FALSE(Window().lblGrafNr->isVisible());
    EXPECT_TRUE(Window().lblPlottInfo->isVisible());
    EXPECT_EQ(Caption(Window().lblPlottInfo),
              "Välj ovan vilken plottfärg du vill ändra. Tryck <Enter> när du gjort ditt val");
}

TEST_F(CurveSelectionTest, TheColourButtonStartsAndEndsColourMode) {
    QWidget* button = Window().imgColor;
    Click(button);
    EXPECT_EQ(ColourTag(), "2");
    Click(button);
    EXPECT_FALSE(ListShown());
    EXPECT_EQ(ListCaption(), "");
    EXPECT_EQ(ColourTag(), "0");
    EXPECT_EQ(CurvesTag(), "0");
    EXPECT_TRUE(Window().cmdFondList->isEnabled());
    EXPECT_FALSE(Window().lblPlottInfo->isVisible());
}

TEST_F(CurveSelectionTest, EnterGivesTheChosenFundsCurveTheColourOfTheDialog) {
    Press(Qt::Key_F9);
    Press(Qt::Key_Down);
    outside.dialogs.ExpectColour(Colour{1, 2, 3});
    Press(Qt::Key_Return);
    EXPECT_EQ(Holding(1, schema::holding::kPlottFarg), "197121");  // 1 + 2 x 256 + 3 x 65536
    EXPECT_EQ(Holding(0, schema::holding::kPlottFarg), "192");
    EXPECT_EQ(ColourTag(), "0");
    ASSERT_FALSE(Window().picDiagram->Drawings().empty());
    EXPECT_EQ(Window().picDiagram->Drawings().back().colour, (Colour{1, 2, 3}));
    EXPECT_TRUE(Faults().empty());
}

TEST_F(CurveSelectionTest, ACancelledColourChangesNothing) {
    const std::string before = Bytes();
    Press(Qt::Key_F9);
    outside.dialogs.ExpectColour(std::nullopt);
    Press(Qt::Key_Return);
    EXPECT_EQ(Bytes(), before);
    EXPECT_EQ(ColourTag(), "0");
}

TEST_F(CurveSelectionTest, F12StartsTheChoiceOfCurves) {
    SetCaption(Window().lblGrafNr, " 2.");
    Press(Qt::Key_F12);
    EXPECT_TRUE(ListShown());
    EXPECT_EQ(ListCaption(), "Välj Fonder att rita");
    EXPECT_EQ(CurvesTag(), "1");
    EXPECT_EQ(ColourTag(), "0");
    EXPECT_EQ(Caption(Window().lblGrafNr), "");
    EXPECT_TRUE(Window().picDiagram->Drawings().empty());
    EXPECT_FALSE(Window().cmdFondList->isEnabled());
    EXPECT_TRUE(Window().lblPlottInfo->isVisible());
    EXPECT_EQ(
        Caption(Window().lblPlottInfo),
        "Välj ovan vilka kurvor du vill plotta.Tryck Diagramknappen eller F12 när du är färdig");
    EXPECT_EQ(Window().lstFonder->palette().color(QPalette::Text), ToQColor(colours::kListCurves));
}

TEST_F(CurveSelectionTest, ChoosingAFundTwiceRecordsItOnce) {
    Press(Qt::Key_F12);
    ChooseFund(1);
    ChooseFund(2);
    ChooseFund(1);
    EXPECT_EQ(Caption(Window().lblGrafNr), " 2. 3.");
    EXPECT_TRUE(Window().lblGrafNr->isVisible());
}

TEST_F(CurveSelectionTest, TwoChosenFundsAreDrawnInTheOrderChosen) {
    Press(Qt::Key_F12);
    ChooseFund(2);
    ChooseFund(1);
    Press(Qt::Key_F12);
    EXPECT_EQ(Window().SelectedCurves, (std::vector<std::int32_t>{3, 2}));
    EXPECT_EQ(Labels(), (std::vector<std::string>{"3", "2"}));
    EXPECT_FALSE(ListShown());
    EXPECT_EQ(CurvesTag(), "0");
    EXPECT_TRUE(Window().cmdFondList->isEnabled());
    EXPECT_FALSE(Window().lblGrafNr->isVisible());
    EXPECT_FALSE(Window().lblPlottInfo->isVisible());
}

TEST_F(CurveSelectionTest, TheChoiceIsStoredInTheFirstRowAndItsScaleStays) {
    Press(Qt::Key_F12);
    ChooseFund(2);
    ChooseFund(1);
    Press(Qt::Key_F12);
    EXPECT_EQ(Holding(0, schema::holding::kSkala), "3.2./15/-10");
    EXPECT_EQ(Holding(1, schema::holding::kSkala), "45/-30");
    EXPECT_TRUE(Faults().empty());
}

TEST_F(CurveSelectionTest, TheChoiceIsThereAtTheNextStart) {
    Press(Qt::Key_F12);
    ChooseFund(2);
    ChooseFund(0);
    Press(Qt::Key_F12);
    CloseWindow();
    Start();
    EXPECT_EQ(Labels(), (std::vector<std::string>{"3", "1"}));
    EXPECT_EQ(Window().Scale.top, 90);
}

TEST_F(CurveSelectionTest, TheSeveralCurvesViewTakesTheLargestScaleOfTheChosen) {
    Press(Qt::Key_F12);
    ChooseFund(1);
    ChooseFund(2);
    Press(Qt::Key_F12);
    EXPECT_EQ(DrawnScale(), (ScaleRange{90, -60}));
    EXPECT_EQ(Tag(Window().panListFonder), "");
}

TEST_F(CurveSelectionTest, EndingWithoutAChoiceStoresNothing) {
    const std::string before = Bytes();
    Press(Qt::Key_F12);
    Press(Qt::Key_F12);
    EXPECT_FALSE(ListShown());
    EXPECT_EQ(CurvesTag(), "0");
    EXPECT_EQ(Bytes(), before);
    EXPECT_EQ(Labels(), std::vector<std::string>{"1"}) << "the curves that were there are back";
}

TEST_F(CurveSelectionTest, EscBeforeAnyChoiceBringsTheCurvesBack) {
    Press(Qt::Key_F12);
    ASSERT_TRUE(Labels().empty());
    Press(Qt::Key_Escape);
    EXPECT_EQ(Labels(), std::vector<std::string>{"1"});
}

TEST_F(CurveSelectionTest, AChoiceThatCannotBeStoredIsToldAndDrawnAllTheSame) {
    // Another program has written the file since it was opened.
    std::filesystem::last_write_time(
        SamplePath(), std::filesystem::last_write_time(SamplePath()) + std::chrono::hours(1));
    const std::string before = Bytes();
    Press(Qt::Key_F12);
    ChooseFund(1);
    ChooseFund(2);
    outside.dialogs.Expect(UntrappedText(Error{ErrorNumber::ChangedByOther, "test"}));
    Press(Qt::Key_F12);
    EXPECT_EQ(Labels(), (std::vector<std::string>{"2", "3"}));
    EXPECT_EQ(Bytes(), before);
}

TEST_F(CurveSelectionTest, EnterInTheListEndsTheChoiceToo) {
    Press(Qt::Key_F12);
    ChooseFund(1);
    ChooseFund(2);
    PressIn(Window().lstFonder, Qt::Key_Return);
    EXPECT_EQ(Window().SelectedCurves, (std::vector<std::int32_t>{2, 3}));
}

TEST_F(CurveSelectionTest, StartingColourModeWhileCurvesAreChosenSwitchesOver) {
    Press(Qt::Key_F12);
    Press(Qt::Key_F9);
    EXPECT_EQ(ListCaption(), "Välj Färg för Fond  <Enter>");
    EXPECT_EQ(ColourTag(), "2");
    EXPECT_EQ(CurvesTag(), "0");
    EXPECT_FALSE(Window().lblGrafNr->isVisible());
}

TEST_F(CurveSelectionTest, EscEndsEitherModeForGood) {
    for (const Qt::Key key : {Qt::Key_F9, Qt::Key_F12}) {
        Press(key);
        Press(Qt::Key_Escape);
        EXPECT_FALSE(ListShown());
        EXPECT_EQ(ColourTag(), "0");
        EXPECT_EQ(CurvesTag(), "0");
        EXPECT_TRUE(Window().cmdFondList->isEnabled());
        Press(Qt::Key_F11);  // opens the list for prices, and closes it: the buttons show again
        Press(Qt::Key_F11);
    }
}

TEST_F(CurveSelectionTest, WhateverEndsAModeLeavesThePriceButtonUsable) {
    for (const Qt::Key key : {Qt::Key_F9, Qt::Key_F12}) {
        Press(key);
        EXPECT_FALSE(Window().cmdFondList->isEnabled());
        Press(Qt::Key_F11);
        EXPECT_FALSE(ListShown());
        EXPECT_TRUE(Window().cmdFondList->isEnabled());
        Press(key);
        Window().mnuTotal->trigger();
        EXPECT_FALSE(ListShown());
        EXPECT_TRUE(Window().cmdFondList->isEnabled());
    }
}

TEST_F(CurveSelectionTest, TheHoldingsGridEndsAModeAndBlocksThePriceButton) {
    Press(Qt::Key_F9);
    Click(Window().cmdPPMData);
    EXPECT_EQ(ColourTag(), "0");
    EXPECT_FALSE(Window().cmdFondList->isEnabled());
    Click(Window().cmdPPMData);
    EXPECT_TRUE(Window().cmdFondList->isEnabled());
}

TEST_F(CurveSelectionTest, EveryWayOutOfAModeEndsAllOfIt) {
    const std::vector<std::function<void()>> ways = {
        [this] { Press(Qt::Key_F8); },
        [this] { Click(Window().imgScreen); },
        [this] {
            Press(Qt::Key_F9);
            Press(Qt::Key_F9);
        },
        [this] {
            Window().lstFonder->setFocus();
            Press(Qt::Key_Return);
        },
        [this] { Press(Qt::Key_F11); },
        [this] { Press(Qt::Key_Escape); },
        [this] { Press(Qt::Key_Left); },
        [this] { Window().mnuTotal->trigger(); },
        [this] { Window().mnuPEdit->trigger(); },
        [this] { Window().mnuAll->trigger(); },
        [this] { Click(Window().cmdPPMData); },
    };
    for (std::size_t way = 0; way < ways.size(); ++way) {
        for (const int chosen : {0, 1, 2}) {
            Start();
            Press(Qt::Key_F11);
            Press(Qt::Key_F12);
            for (int row = 1; row <= chosen; ++row) ChooseFund(row);
            ways[way]();
            const std::string what = "way " + std::to_string(way) + ", " + std::to_string(chosen);
            EXPECT_FALSE(Labels().empty()) << what;
            EXPECT_FALSE(ListShown()) << what;
            EXPECT_EQ(ListCaption(), "") << what;
            EXPECT_EQ(CurvesTag(), "0") << what;
            EXPECT_EQ(ColourTag(), "0") << what;
            EXPECT_EQ(Caption(Window().lblGrafNr), "") << what;
            EXPECT_TRUE(Window().lblPlottInfo->isHidden()) << what;
            EXPECT_EQ(Window().lstFonder->palette().color(QPalette::Text),
                      ToQColor(colours::kListGreen))
                << what;
            EXPECT_EQ(Window().cmdFondList->isEnabled(), !Window().panBasData->isVisible()) << what;
        }
    }
}

TEST_F(CurveSelectionTest, TheKeysDoNothingWhileTheButtonsAreHidden) {
    Press(Qt::Key_Escape);
    Press(Qt::Key_F9);
    Press(Qt::Key_F12);
    EXPECT_FALSE(ListShown());
    EXPECT_EQ(ColourTag(), "0");
    EXPECT_EQ(CurvesTag(), "0");
}

TEST_F(CurveSelectionTest, TheButtonsSayWhatTheyDo) {
    EXPECT_EQ(FromQt(Window().imgColor->toolTip()), "Färgknapp  Välj färg till Fondkurva  ");
    EXPECT_EQ(FromQt(Window().imgGrafNr->toolTip()), "Diagramknapp  Välj Fonder att visa      ");
}

}  // namespace
