// The window's own keys, whatever control has the focus.

#include "app/imagebutton.h"
#include "base/daynumber.h"
#include "tests/window/windowtest.h"

#include <QGroupBox>

namespace {

class KeyboardTest : public WindowTest {
  protected:
    void SetUp() override {
        MakeFile(TwoHoldings());
        SetToday(2026, 3, 10);
        Start();
    }
    std::string Month() { return FormatDay(Window().WindowStartDay); }
};

}  // namespace

TEST_F(KeyboardTest, ArrowsScrollAQuarterWhenTheyAreLetGo) {
    Window().lstFonder->setFocus();
    QTest::keyPress(Window().lstFonder, Qt::Key_Left);
    EXPECT_EQ(Month(), "2025-04-01");
    QTest::keyRelease(Window().lstFonder, Qt::Key_Left);
    EXPECT_EQ(Month(), "2025-01-01");
    Press(Qt::Key_Right);
    EXPECT_EQ(Month(), "2025-04-01");
}

TEST_F(KeyboardTest, ArrowsInTheListNeverMoveTheSelection) {
    // Side by side the lines could be reached by these keys.
    Window().lstFonder->setFlow(QListView::LeftToRight);
    ChooseFund(0);
    PressIn(Window().lstFonder, Qt::Key_Right);
    EXPECT_EQ(Window().lstFonder->currentRow(), 0);
    ChooseFund(1);
    PressIn(Window().lstFonder, Qt::Key_Left);
    EXPECT_EQ(Window().lstFonder->currentRow(), 1);
}

TEST_F(KeyboardTest, KeysAreLeftAloneWhileAGridShows) {
    Window().panPlottData->show();
    Press(Qt::Key_Left);
    EXPECT_EQ(Month(), "2025-04-01");
    Press(Qt::Key_F11);
    EXPECT_TRUE(Window().panListFonder->isVisible());
}

TEST_F(KeyboardTest, F11OpensAndClosesTheFundList) {
    Press(Qt::Key_F11);
    EXPECT_FALSE(Window().panListFonder->isVisible());
    Press(Qt::Key_F11);
    EXPECT_TRUE(Window().panListFonder->isVisible());
    EXPECT_EQ(Window().focusWidget(), Window().lstFonder);
}

TEST_F(KeyboardTest, F8ShowsTheListedCurvesAgain) {
    ChooseFund(0);
    EXPECT_EQ(Window().SelectedCurves.size(), 1U);
    Press(Qt::Key_F8);
    EXPECT_EQ(Window().SelectedCurves.size(), 2U);
    EXPECT_EQ(Window().picDiagram->Drawings().size(), 2U);
    EXPECT_EQ(FraData(0), "");
}

TEST_F(KeyboardTest, PlusAndMinusZoomEverywhere) {
    ChooseFund(0);
    Window().txtValue->setFocus();
    Type("-");
    EXPECT_EQ(Window().ScaleTop, 30);
    EXPECT_EQ(Caption(Window().txtValue), "");
    Type("+");
    EXPECT_EQ(Window().ScaleTop, 15);
}

TEST_F(KeyboardTest, MinusCanBeTypedInThePlotDataButPlusZooms) {
    Window().panPlottData->show();
    Window().txtTranslate->setFocus();
    Type("1-2");
    EXPECT_EQ(Caption(Window().txtTranslate), "1-2");
    const int top = Window().ScaleTop;
    Type("+");
    EXPECT_EQ(Caption(Window().txtTranslate), "1-2");
    EXPECT_EQ(Window().ScaleTop, top) << "already at the automatic scale";
}

TEST_F(KeyboardTest, EscapeInTheHoldingsGridGoesBackToTheDiagram) {
    Click(Window().cmdPPMData);
    ASSERT_TRUE(Window().panBasData->isVisible());
    PressIn(Window().cmdPPMData, Qt::Key_Escape);
    // The grid has the focus: the key goes to it.
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Window().panBasData->isVisible());
    EXPECT_EQ(Caption(Window().cmdPPMData), "&PPM Data");
}

TEST_F(KeyboardTest, KeysDoNothingUntilTheStartUpPauseHasEnded) {
    Create();
    Show();
    const int top = Window().ScaleTop;
    for (const Qt::Key key :
         {Qt::Key_F11, Qt::Key_Left, Qt::Key_F8, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Escape}) {
        Press(key);
    }
    EXPECT_FALSE(Window().panListFonder->isVisible());
    EXPECT_EQ(Month(), "2025-04-01");
    EXPECT_EQ(Window().ScaleTop, top);
    PassPause();
    Press(Qt::Key_F11);
    EXPECT_FALSE(Window().panListFonder->isVisible()) << "F11 closes the list that came up";
}

TEST_F(KeyboardTest, KeysOfOtherWindowsAreNotSeen) {
    QWidget other;
    other.show();
    QTest::keyClick(&other, Qt::Key_Left);
    EXPECT_EQ(Month(), "2025-04-01");
}
