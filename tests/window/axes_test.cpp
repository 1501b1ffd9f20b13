#include "base/daynumber.h"
#include "tests/window/windowtest.h"
#include "widgets/imagebutton.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>

#include <optional>

namespace {

std::int32_t Day(const char* date) {
    return *ParseDate(date);
}

class AxesTest : public WindowTest {
  protected:
    AxesTest() {
        SetToday(2026, 3, 10);
        MakeFile(TwoHoldings());
        Start();
    }

    void ShowFrom(const char* date) { Window().WindowStartDay = Day(date); }
    std::string ShownFrom() { return FormatDay(Window().WindowStartDay); }
    void SetScale(ScaleRange scale) {
        Window().SetVerticalScale(scale);
        Window().Scale.top = scale.top;
        Window().Scale.bottom = scale.bottom;
    }
    ScaleRange StoredScale() { return {Window().Scale.top, Window().Scale.bottom}; }
    std::vector<std::string> ScaleCaptions() {
        std::vector<std::string> captions;
        for (QLabel* label : Window().lblVertical) captions.push_back(Caption(label));
        return captions;
    }
    std::vector<std::string> MonthCaptions() {
        std::vector<std::string> captions;
        for (QLabel* label : Window().lblMonth) captions.push_back(Caption(label));
        return captions;
    }
    /// Takes the curves away, so that a redraw shows.
    void Wipe() { Window().picDiagram->Clear(); }
    bool Redrawn() { return !Window().picDiagram->Drawings().empty(); }
};

TEST_F(AxesTest, ScaleIsLabelledFromBottomToTop) {
    SetScale({45, -30});
    EXPECT_EQ(ScaleCaptions(), (std::vector<std::string>{"-30", "-15", "0", "15", "30", "45"}));
    EXPECT_EQ(DrawnScale(), (ScaleRange{45, -30}));
    SetScale({990, -660});
    EXPECT_EQ(ScaleCaptions(),
              (std::vector<std::string>{"-660", "-330", "0", "330", "660", "990"}));
}

TEST_F(AxesTest, ALabelWithoutAValueIsBlank) {
    Window().SetVerticalScale({.top = 15, .bottom = -10});
    Window().SetVerticalScale({.top = 30, .bottom = 0});
    EXPECT_EQ(Caption(Window().lblVertical[1]), "0");
    EXPECT_EQ(Caption(Window().lblVertical[4]), "30");
    EXPECT_EQ(Caption(Window().lblVertical[5]), "");
    EXPECT_EQ(Caption(Window().lblVertical[6]), "");
}

TEST_F(AxesTest, AScaleTextOutsideTheProportionIsDrawnOnTheScaleThatTakesItIn) {
    auto holdings = TwoHoldings();
    const struct {
        const char *text, *top;
    } rows[] = {{"15/-4", "15"}, {"1/-1", "15"}, {"2000000000/-5", "15"}, {"45/-40", "60"}};
    for (const auto& [text, top] : rows) {
        holdings[1].skala = text;
        MakeFile(holdings);
        Start();
        ChooseFund(1);
        EXPECT_EQ(Caption(Window().lblVertical[6]), top) << text;
        EXPECT_EQ(Caption(Window().lblVertical[3]), "0") << text;
    }
}

TEST_F(AxesTest, SettingTheScaleDrawsTheCurvesAnew) {
    Wipe();
    Window().SetVerticalScale({.top = 45, .bottom = -30});
    EXPECT_EQ(Window().picDiagram->Drawings().size(), 2U);
}

TEST_F(AxesTest, SettingTheScaleLeavesTheStoredOneToTheCaller) {
    const ScaleRange before = StoredScale();
    Window().SetVerticalScale({.top = 300, .bottom = -200});
    EXPECT_EQ(StoredScale(), before);
}

TEST_F(AxesTest, AScaleThatCannotBeDrawnIsIgnoredAndTheCurvesAreDrawn) {
    SetScale({45, -30});
    Wipe();
    Window().SetVerticalScale({.top = 0, .bottom = 0});
    EXPECT_EQ(DrawnScale(), (ScaleRange{45, -30}));
    EXPECT_TRUE(Redrawn());
}

TEST_F(AxesTest, AQuarterBackFromMarchIsDecember) {
    ShowFrom("2005-03-01");
    Press(Qt::Key_Left);
    EXPECT_EQ(ShownFrom(), "2004-12-01");
}

TEST_F(AxesTest, AQuarterAheadFromDecemberIsMarch) {
    ShowFrom("2004-12-01");
    Press(Qt::Key_Right);
    EXPECT_EQ(ShownFrom(), "2005-03-01");
}

TEST_F(AxesTest, TheScrollButtonsMoveAQuarterWithTheLeftAndAYearWithTheRightButton) {
    struct Row {
        bool ahead;
        Qt::MouseButton button;
        const char* expected;
    };
    const std::vector<Row> rows{
        {false, Qt::LeftButton, "2005-02-01"},  {false, Qt::MiddleButton, "2005-02-01"},
        {false, Qt::RightButton, "2004-05-01"}, {true, Qt::LeftButton, "2005-08-01"},
        {true, Qt::MiddleButton, "2005-08-01"}, {true, Qt::RightButton, "2006-05-01"}};
    for (const Row& row : rows) {
        ShowFrom("2005-05-01");
        Wipe();
        QWidget* button = row.ahead ? Window().Image5 : Window().Image4;
        Click(button, row.button);
        EXPECT_EQ(ShownFrom(), row.expected) << row.ahead << " " << row.button;
        EXPECT_TRUE(Redrawn());
    }
}

TEST_F(AxesTest, AYearAheadOverALeapDayMovesElevenMonths) {
    ShowFrom("2004-01-01");
    Click(Window().Image5, Qt::RightButton);
    EXPECT_EQ(ShownFrom(), "2004-12-01");
}

TEST_F(AxesTest, AYearAheadAfterTheLeapDayMovesTwelveMonths) {
    ShowFrom("2004-03-01");
    Click(Window().Image5, Qt::RightButton);
    EXPECT_EQ(ShownFrom(), "2005-03-01");
}

TEST_F(AxesTest, InThePictureShiftAndAnArrowMoveAYear) {
    ShowFrom("2005-05-01");
    Window().picDiagram->setFocus();
    Wipe();
    QTest::keyClick(Window().picDiagram, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(ShownFrom(), "2004-05-01");
    EXPECT_TRUE(Redrawn());
    QTest::keyClick(Window().picDiagram, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(ShownFrom(), "2005-05-01");
}

TEST_F(AxesTest, ElsewhereShiftAndAnArrowMoveAQuarterAsTheArrowDoes) {
    ShowFrom("2005-05-01");
    ASSERT_EQ(Window().focusWidget(), Window().lstFonder);
    QTest::keyClick(Window().lstFonder, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(ShownFrom(), "2005-02-01");
}

TEST_F(AxesTest, InThePictureHomeGoesBackToTheMonthsOfTheStart) {
    const std::string start = ShownFrom();
    for (int n = 0; n < 3; ++n) Press(Qt::Key_Left);
    ASSERT_NE(ShownFrom(), start);
    ASSERT_EQ(Window().focusWidget(), Window().picDiagram);
    Wipe();
    Press(Qt::Key_Home);
    EXPECT_EQ(ShownFrom(), start);
    EXPECT_EQ(MonthCaptions().front(), "April");
    EXPECT_TRUE(Redrawn());
}

TEST_F(AxesTest, HomeInTheListIsTheLists) {
    ChooseFund(1);
    ShowFrom("2005-05-01");
    PressIn(Window().lstFonder, Qt::Key_Home);
    EXPECT_EQ(ShownFrom(), "2005-05-01");
    EXPECT_EQ(Window().lstFonder->currentRow(), 0);
}

TEST_F(AxesTest, TodayIsMarkedInThePictureThatHoldsIt) {
    EXPECT_EQ(Window().picDiagram->MarkedDay(), Day("2026-03-10") - Day("2025-04-01"));
    Press(Qt::Key_Left);
    EXPECT_EQ(Window().picDiagram->MarkedDay(), std::nullopt);
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    EXPECT_EQ(Window().picDiagram->MarkedDay(), Day("2026-03-10") - Day("2025-07-01"));
}

TEST_F(AxesTest, AJanuaryStartShowsTheSameYearUnderBothHalves) {
    ShowFrom("2006-04-01");
    Press(Qt::Key_Left);
    EXPECT_EQ(ShownFrom(), "2006-01-01");
    EXPECT_EQ(Caption(Window().lbLeftYear), "2006");
    EXPECT_EQ(Caption(Window().lblRightYear), "2006");
    EXPECT_EQ(MonthCaptions(),
              (std::vector<std::string>{"Jan", "Feb", "Mars", "April", "Maj", "Juni", "Juli", "Aug",
                                        "Sep", "Okt", "Nov", "Dec"}));
}

TEST_F(AxesTest, AnyOtherStartShowsConsecutiveYears) {
    ShowFrom("2006-01-01");
    Press(Qt::Key_Right);
    EXPECT_EQ(ShownFrom(), "2006-04-01");
    EXPECT_EQ(Caption(Window().lbLeftYear), "2006");
    EXPECT_EQ(Caption(Window().lblRightYear), "2007");
    EXPECT_EQ(MonthCaptions().front(), "April");
    EXPECT_EQ(MonthCaptions().back(), "Mars");
}

TEST_F(AxesTest, ScrollingClosesTheSidePanels) {
    ASSERT_TRUE(Window().panListFonder->isVisible());
    Press(Qt::Key_Left);
    EXPECT_FALSE(Window().panListFonder->isVisible());
}

TEST_F(AxesTest, AdvancingAMonthLabelsAndDoesNotDraw) {
    ShowFrom("2006-12-01");
    Wipe();
    Window().AdvanceOneMonth();
    EXPECT_EQ(ShownFrom(), "2007-01-01");
    EXPECT_EQ(MonthCaptions().front(), "Jan");
    EXPECT_FALSE(Redrawn());
}

TEST_F(AxesTest, ZoomOutBeyondAThousandIsStoredAndNotDrawnAndZoomInDrawsAgain) {
    SetScale({990, -660});
    Wipe();
    Type("-");
    EXPECT_EQ(StoredScale(), (ScaleRange{1005, -670}));
    EXPECT_EQ(DrawnScale(), (ScaleRange{990, -660}));
    EXPECT_FALSE(Redrawn());

    SetScale({975, -650});
    Window().Scale.top = 1005;
    Window().Scale.bottom = -670;
    Wipe();
    Type("+");
    EXPECT_EQ(StoredScale(), (ScaleRange{990, -660}));
    EXPECT_EQ(DrawnScale(), (ScaleRange{990, -660}));
    EXPECT_TRUE(Redrawn());
}

TEST_F(AxesTest, TheStoredScaleKeepsGrowingBeyondAThousand) {
    SetScale({990, -660});
    for (int n = 0; n < 3; ++n) Type("-");
    EXPECT_EQ(StoredScale(), (ScaleRange{1035, -690}));
    EXPECT_EQ(DrawnScale(), (ScaleRange{990, -660}));
}

TEST_F(AxesTest, ZoomInFromTheAutomaticScaleOfSeveralCurvesChangesNothing) {
    const ScaleRange automatic{Window().AllScale.top, Window().AllScale.bottom};
    ASSERT_EQ(automatic, (ScaleRange{45, -30}));
    ASSERT_EQ(StoredScale(), automatic);
    Wipe();
    Type("+");
    EXPECT_EQ(StoredScale(), automatic);
    EXPECT_EQ(DrawnScale(), automatic);
    EXPECT_FALSE(Redrawn());
}

TEST_F(AxesTest, ZoomInFromTheAutomaticScaleOfOneFundChangesNothing) {
    ChooseFund(1);
    ASSERT_EQ(StoredScale(), (ScaleRange{45, -30}));
    Wipe();
    Type("+");
    EXPECT_EQ(StoredScale(), (ScaleRange{45, -30}));
    EXPECT_FALSE(Redrawn());
}

TEST_F(AxesTest, ZoomOutAndInAreInverse) {
    for (int n = 0; n < 3; ++n) Type("-");
    EXPECT_EQ(DrawnScale(), (ScaleRange{90, -60}));
    for (int n = 0; n < 3; ++n) Type("+");
    EXPECT_EQ(DrawnScale(), (ScaleRange{45, -30}));
    EXPECT_EQ(ScaleCaptions().front(), "-30");
}

TEST_F(AxesTest, OneFundAndSeveralCurvesHaveTheirOwnNarrowestScale) {
    ChooseFund(0);  // its own scale is 15/-10, that of both together 45/-30
    Type("-");
    EXPECT_EQ(DrawnScale(), (ScaleRange{30, -20}));
    Type("+");
    EXPECT_EQ(DrawnScale(), (ScaleRange{15, -10}));
    Press(Qt::Key_F8);
    EXPECT_EQ(DrawnScale(), (ScaleRange{45, -30}));
}

TEST_F(AxesTest, ABottomThatWouldPassMinusTenResetsOneFundWithoutDrawing) {
    ChooseFund(0);
    Window().Scale.top = 30;
    Window().Scale.bottom = -10;
    Wipe();
    Type("+");
    EXPECT_EQ(StoredScale(), (ScaleRange{15, -10}));
    EXPECT_FALSE(Redrawn());
}

TEST_F(AxesTest, TheMenuItemsZoomToo) {
    Window().mnuMinus->trigger();
    EXPECT_EQ(DrawnScale(), (ScaleRange{60, -40}));
    Window().mnuPlus->trigger();
    EXPECT_EQ(DrawnScale(), (ScaleRange{45, -30}));
    EXPECT_EQ(Caption(Window().mnuPlus), "Zoom in..   +   Procent Skala");
    EXPECT_EQ(Caption(Window().mnuMinus), "Zoom ut..   --   Procent Skala");
}

TEST_F(AxesTest, WeekViewFollowedByMonthViewReturnsToDayView) {
    Window().mnuVeckor->trigger();
    EXPECT_EQ(Window().DayStep, 7);
    EXPECT_EQ(Caption(Window().mnuVeckor), "Visa Dag för Dag");
    EXPECT_EQ(Caption(Window().mnuMonth), "Visa Dag för Dag");

    Wipe();
    Window().mnuMonth->trigger();
    EXPECT_EQ(Window().DayStep, 1);
    EXPECT_EQ(Caption(Window().mnuVeckor), "Visa Vecka för Vecka");
    EXPECT_EQ(Caption(Window().mnuMonth), "Visa Månad för Månad");
    EXPECT_TRUE(Redrawn());
}

TEST_F(AxesTest, MonthViewTogglesWithEitherEntry) {
    Window().mnuMonth->trigger();
    EXPECT_EQ(Window().DayStep, 30);
    Window().mnuVeckor->trigger();
    EXPECT_EQ(Window().DayStep, 1);
}

TEST_F(AxesTest, AnOddStepCountsAsDayView) {
    Window().DayStep = 5;
    Window().mnuVeckor->trigger();
    EXPECT_EQ(Window().DayStep, 7);
}

TEST_F(AxesTest, TheStepSurvivesScrollingAndZooming) {
    Window().mnuVeckor->trigger();
    Press(Qt::Key_Left);
    Type("-");
    EXPECT_EQ(Window().DayStep, 7);
}

TEST_F(AxesTest, GridLinesStayWhereTheyAre) {
    std::vector<double> before;
    for (const GridLine* line : Window().Line) before.push_back(line->X1() + line->Y1());
    Type("-");
    Press(Qt::Key_Left);
    for (int n = 1; n <= 20; ++n) {
        EXPECT_EQ(Window().Line[n]->X1() + Window().Line[n]->Y1(),
                  before[static_cast<std::size_t>(n - 1)]);
    }
}

}  // namespace
