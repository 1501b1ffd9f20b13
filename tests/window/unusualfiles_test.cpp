// Files at the ends of what there may be: no holding, one,
// a hundred and more, none or strange points.

#include "base/daynumber.h"
#include "fundfile/schema.h"
#include "tests/window/windowtest.h"
#include "widgets/diagramview.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>

#include <utility>

namespace {

constexpr std::int32_t kToday = 46342;  // 2026-11-16

class UnusualFiles : public WindowTest {
  protected:
    void StartWith(const std::vector<TestHolding>& holdings) {
        MakeFile(holdings);
        Start();
    }
    static TestHolding With(std::vector<CurvePoint> points) {
        TestHolding holding;
        holding.skala = "./15/-10";
        holding.points = std::move(points);
        return holding;
    }
    void GoToLine(int row) {
        Window().lstFonder->scrollToItem(Window().lstFonder->item(row));
        ChooseFund(row);
    }
    const std::vector<Drawing>& Drawings() { return Window().picDiagram->Drawings(); }

    /// Every command that needs no answer; the dialogs fail the test for any message.
    void RunEveryCommand() {
        for (QAction* command :
             {Window().mnuAll, Window().mnuPlus, Window().mnuMinus, Window().mnuVeckor,
              Window().mnuVeckor, Window().mnuMonth, Window().mnuMonth, Window().mnuTotal}) {
            command->trigger();
        }
        Press(Qt::Key_Escape);
        Window().mnuPEdit->trigger();
        Press(Qt::Key_Escape);
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_F8, Qt::Key_F11, Qt::Key_F11,
                                  Qt::Key_F9, Qt::Key_F9, Qt::Key_F12, Qt::Key_F12}) {
            Press(key);
        }
        Click(Window().cmdPPMData);
        Press(Qt::Key_Escape);
    }
};

TEST_F(UnusualFiles, EveryCommandWorksWithoutAHolding) {
    StartWith({});
    RunEveryCommand();
    EXPECT_TRUE(Drawings().empty());
    EXPECT_EQ(Faults(), std::vector<std::string>{});
}

TEST_F(UnusualFiles, EveryCommandWorksWithOneHolding) {
    StartWith({With({{46024, 0}, {46325, 10}})});
    RunEveryCommand();
    EXPECT_EQ(Faults(), std::vector<std::string>{});
}

TEST_F(UnusualFiles, EveryCommandWorksWithoutAnyPoint) {
    StartWith({With({}), With({})});
    RunEveryCommand();
    EXPECT_TRUE(Drawings().empty());
}

TEST_F(UnusualFiles, TheHundredAndTwentiethLineIsOpenedAndTakesAPrice) {
    StartWith(ManyHoldings(120));
    ASSERT_EQ(Lines().size(), 120U);
    EXPECT_EQ(Lines()[8], " 9. Fond 9");
    EXPECT_EQ(Lines()[99], "100. Fond 100");
    GoToLine(119);
    EXPECT_EQ(Caption(Window().lblColorNr), "120");
    TypePrice("112");
    EXPECT_EQ(PointsOf(120).back(), (CurvePoint{kToday, 12}));
    EXPECT_EQ(PointsOf(12).size(), 2U);
    ASSERT_EQ(Drawings().size(), 1U);
    EXPECT_EQ(Drawings()[0].label, "120");
}

TEST_F(UnusualFiles, ThreeDigitCurvesAreChosenTogetherAndThereAtTheNextStart) {
    StartWith(ManyHoldings(120));
    Window().txtValue->setFocus();  // the two mode buttons show
    Press(Qt::Key_Escape);
    Press(Qt::Key_F11);
    Window().txtValue->setFocus();
    Press(Qt::Key_F11);
    Press(Qt::Key_F12);
    GoToLine(119);
    GoToLine(99);
    EXPECT_EQ(Caption(Window().lblGrafNr), "120.100.");
    Press(Qt::Key_F12);
    EXPECT_EQ(Holding(0, schema::holding::kSkala), "120.100./15/-10");
    CloseWindow();
    Start();
    EXPECT_EQ(Window().SelectedCurves, (std::vector<std::int32_t>{120, 100}));
}

TEST_F(UnusualFiles, AllCurvesOfAHundredAndTwentyHoldingsAreDrawn) {
    StartWith(ManyHoldings(120));
    Window().mnuAll->trigger();
    ASSERT_EQ(Drawings().size(), 120U);
    EXPECT_EQ(Drawings()[0].label, "1");
    EXPECT_EQ(Drawings()[119].label, "120");
}

TEST_F(UnusualFiles, AHoldingWithoutPointsGetsItsFirstFromAPrice) {
    StartWith({With({}), With({})});
    ChooseFund(1);
    EXPECT_TRUE(Drawings().empty());
    TypePrice("105");
    EXPECT_EQ(PointsOf(2), (std::vector<CurvePoint>{{kToday, 5}}));
    ASSERT_EQ(Drawings().size(), 1U);
    EXPECT_TRUE(Drawings()[0].line.empty());
}

TEST_F(UnusualFiles, PointsInTheFutureStayBehindTodaysPoint) {
    StartWith({With({{46024, 0}, {kToday + 400, 10}}), With({})});
    ChooseFund(0);
    TypePrice("105");
    EXPECT_EQ(PointsOf(1), (std::vector<CurvePoint>{{46024, 0}, {kToday, 5}, {kToday + 400, 10}}));
    ASSERT_EQ(Drawings().size(), 1U);
    EXPECT_EQ(Drawings()[0].line.size(), 3U);
    EXPECT_GT(Drawings()[0].line.back().x, DiagramView::kDays);
}

TEST_F(UnusualFiles, AFallOfAlmostEverythingIsTakenIntoTheScale) {
    StartWith({With({{46024, 0}}), With({})});
    ChooseFund(0);
    TypePrice("1");
    EXPECT_EQ(PointsOf(1).back(), (CurvePoint{kToday, -99}));
    EXPECT_EQ(Holding(0, schema::holding::kSkala), "./150/-100");
    EXPECT_EQ(Caption(Window().lblVertical[1]), "-100");
    EXPECT_EQ(Caption(Window().lblVertical[6]), "150");
}

TEST_F(UnusualFiles, ASteepScaleIsShownAndWidenedBeyondAThousand) {
    TestHolding steep = With({{46024, 0}, {46325, 980}});
    steep.skala = "./990/-660";
    StartWith({steep, With({})});
    ChooseFund(0);
    EXPECT_EQ(Caption(Window().lblVertical[6]), "990");
    outside.dialogs
        .Expect("Kontrollera din inmatning !\r\nmer än 200 % ökning ?", Buttons::OkCancel,
                Icon::Question)
        .Answer(Answer::Ok);
    TypePrice("1100");
    EXPECT_EQ(Holding(0, schema::holding::kSkala), "./1005/-670");
    EXPECT_EQ(DrawnScale(), (ScaleRange{1005, -670}));
    EXPECT_EQ(Caption(Window().lblVertical[6]), "1005");
}

}  // namespace
