// The window's own keys, whatever control has the focus.

#include "base/daynumber.h"
#include "tests/window/windowtest.h"
#include "widgets/imagebutton.h"

#include <QAction>
#include <QColor>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QListView>
#include <QPalette>
#include <QRect>

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

TEST_F(KeyboardTest, CurvesThatDoNotStandTogetherAreChosenWithoutTheMouse) {
    MakeFile(ManyHoldings(6));
    Start();
    Press(Qt::Key_F11);  // closes the list and shows the buttons
    Press(Qt::Key_F12);
    ASSERT_EQ(Window().focusWidget(), Window().lstFonder);
    Press(Qt::Key_Space);
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(Window().lstFonder, Qt::Key_Down, Qt::ControlModifier);
    }
    EXPECT_EQ(Caption(Window().lblGrafNr), " 1.") << "moving chooses nothing";
    Press(Qt::Key_Space);
    EXPECT_EQ(Caption(Window().lblGrafNr), " 1. 4.");
    QTest::keyClick(Window().lstFonder, Qt::Key_Up, Qt::ControlModifier);
    Press(Qt::Key_F12);
    EXPECT_EQ(Window().SelectedCurves, (std::vector<std::int32_t>{1, 4}));
}

TEST_F(KeyboardTest, SpaceOpensTheLineThatTheMarkStandsOn) {
    Window().lstFonder->setFocus();
    QTest::keyClick(Window().lstFonder, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(FraData(0), "");
    Press(Qt::Key_Space);
    EXPECT_EQ(FraData(0), "468 024");
    EXPECT_TRUE(Window().lstFonder->currentItem()->isSelected());
}

TEST_F(KeyboardTest, TheLineThatTheMarkStandsOnHasAFrame) {
    QListWidget& list = *Window().lstFonder;
    list.setFocus();
    const auto corner = [&](int row) {
        const QRect line = list.visualItemRect(list.item(row));
        return list.viewport()->grab().toImage().pixelColor(line.topLeft());
    };
    const QColor before = corner(1);
    QTest::keyClick(&list, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(corner(1), list.palette().color(QPalette::Text));
    EXPECT_NE(corner(1), before);
}

TEST_F(KeyboardTest, KeysAreLeftAloneWhileAGridShows) {
    Window().mnuPEdit->trigger();
    Press(Qt::Key_Left);
    EXPECT_EQ(Month(), "2025-04-01");
    Press(Qt::Key_F11);
    EXPECT_FALSE(Window().panListFonder->isVisible());
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
    EXPECT_EQ(Window().Scale.top, 30);
    EXPECT_EQ(Caption(Window().txtValue), "");
    Type("+");
    EXPECT_EQ(Window().Scale.top, 15);
}

TEST_F(KeyboardTest, MinusCanBeTypedInThePlotDataButPlusZooms) {
    Window().mnuPEdit->trigger();
    Window().txtTranslate->setFocus();
    SetCaption(Window().txtTranslate, "");
    Type("1-2");
    EXPECT_EQ(Caption(Window().txtTranslate), "1-2");
    const int top = Window().Scale.top;
    Type("+");
    EXPECT_EQ(Caption(Window().txtTranslate), "1-2");
    EXPECT_EQ(Window().Scale.top, top) << "already at the automatic scale";
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
    const int top = Window().Scale.top;
    for (const Qt::Key key :
         {Qt::Key_F11, Qt::Key_Left, Qt::Key_F8, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Escape}) {
        Press(key);
    }
    EXPECT_FALSE(Window().panListFonder->isVisible());
    EXPECT_EQ(Month(), "2025-04-01");
    EXPECT_EQ(Window().Scale.top, top);
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
