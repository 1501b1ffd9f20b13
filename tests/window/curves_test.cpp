#include "base/daynumber.h"
#include "diagram/texts.h"
#include "fundfile/schema.h"
#include "jet/database.h"
#include "platform/datasource.h"
#include "tests/window/windowtest.h"

#include <QAction>

#include <fstream>
#include <iterator>
#include <utility>

namespace {

class CurvesTest : public WindowTest {
  protected:
    CurvesTest() { SetToday(2026, 3, 10); }  // the window starts on 1 April 2025

    static std::vector<CurvePoint> Series(int count, const char* first) {
        std::vector<CurvePoint> points;
        for (int n = 0; n < count; ++n) points.push_back({*ParseDate(first) + n, n});
        return points;
    }
    void StartWith(std::vector<TestHolding> holdings) {
        MakeFile(holdings);
        Start();
    }
    const std::vector<Drawing>& Drawings() { return Window().picDiagram->Drawings(); }
    std::string Log() {
        std::ifstream file(Folder() / "FonderLogg.txt", std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(CurvesTest, OneStoredPointDrawsNoLineOnlyItsNumberOneAboveIt) {
    TestHolding one;
    one.skala = "1./15/-10";
    one.points = {{*ParseDate("2025-07-10"), 4}};
    StartWith({one, TestHolding{}});
    ASSERT_EQ(Drawings().size(), 1U);
    EXPECT_TRUE(Drawings()[0].line.empty());
    EXPECT_EQ(Drawings()[0].label, "1");
    EXPECT_EQ(Drawings()[0].labelAt, (Point{100, 5}));
}

TEST_F(CurvesTest, AFundWithoutPointsIsSkippedWithoutALabel) {
    auto holdings = TwoHoldings();
    holdings[0].points.clear();
    StartWith(holdings);
    ASSERT_EQ(Drawings().size(), 1U);
    EXPECT_EQ(Drawings()[0].label, "2");
}

TEST_F(CurvesTest, WeekViewJoinsTheFirstEverySeventhAndTheLastPoint) {
    TestHolding holding;
    holding.skala = "1./15/-10";
    holding.points = Series(10, "2025-07-01");
    StartWith({holding, TestHolding{}});
    Window().mnuVeckor->trigger();
    ASSERT_EQ(Drawings().size(), 1U);
    EXPECT_EQ(Drawings()[0].line, (std::vector<Point>{{91, 0}, {98, 7}, {100, 9}}));
    Window().mnuVeckor->trigger();
    EXPECT_EQ(Drawings()[0].line.size(), 10U);
}

TEST_F(CurvesTest, PointsBeforeTheWindowLieLeftOfThePicture) {
    TestHolding holding;
    holding.skala = "1./15/-10";
    holding.points = {{*ParseDate("2025-03-02"), 1}, {*ParseDate("2025-04-11"), 2}};
    StartWith({holding, TestHolding{}});
    EXPECT_EQ(Drawings()[0].line, (std::vector<Point>{{-30, 1}, {10, 2}}));
}

TEST_F(CurvesTest, AreDrawnInTheOrderOfTheChoiceInTheirStoredColours) {
    auto holdings = TwoHoldings();
    holdings[0].skala = "2.1./15/-10";
    holdings[0].plottFarg = 0x0000FF;
    holdings[1].plottFarg = 0xFF0000;
    StartWith(holdings);
    ASSERT_EQ(Drawings().size(), 2U);
    EXPECT_EQ(Drawings()[0].label, "2");
    EXPECT_EQ(Drawings()[0].colour, (Colour{0, 0, 255}));
    EXPECT_EQ(Drawings()[1].label, "1");
    EXPECT_EQ(Drawings()[1].colour, (Colour{255, 0, 0}));
}

TEST_F(CurvesTest, AreDrawnFromUnsortedRowsInDayOrder) {
    TestHolding holding;
    holding.skala = "1./15/-10";
    holding.points = {{*ParseDate("2025-04-21"), 3}, {*ParseDate("2025-04-11"), 2}};
    StartWith({holding, TestHolding{}});
    EXPECT_EQ(Drawings()[0].line, (std::vector<Point>{{10, 2}, {20, 3}}));
}

TEST_F(CurvesTest, DrawingLeavesTheHoldingsRowAndEmptiesTheQuerySource) {
    StartWith(TwoHoldings());
    Window().dtaBasData->MoveLast();
    Window().PlotCurves();
    EXPECT_EQ(Window().dtaBasData->Position(), 1);
    EXPECT_FALSE(Window().dtaSQL->IsAttached());
}

TEST_F(CurvesTest, AnEmptyFileDrawsNothingAndSaysNothing) {
    StartWith({});
    Window().SelectedCurves = {1, 2};
    Window().PlotCurves();
    EXPECT_TRUE(Drawings().empty());
}

TEST_F(CurvesTest, WithoutAFileNothingIsDrawnAndNothingSaid) {
    Start();
    Window().SelectedCurves = {1};
    Window().PlotCurves();
    EXPECT_TRUE(Drawings().empty());
}

TEST_F(CurvesTest, AFailureIsShownAndLoggedWithItsNumber) {
    StartWith(TwoHoldings());
    Window().picDiagram->Clear();
    Window().FundDb->Close();
    outside.dialogs.Expect("Fel i Plottingrutinen\r\nGör omstart på programmet");
    Window().PlotCurves();
    EXPECT_TRUE(Drawings().empty());
    EXPECT_NE(Log().find("Fel i Plottingrutinen 3420"), std::string::npos) << Log();
}

TEST_F(CurvesTest, AFailureWhilePrintingIsShownAndLoggedWithItsNumber) {
    StartWith(TwoHoldings());
    const auto page = outside.printing.Begin("test");
    Window().FundDb->Close();
    outside.dialogs.Expect("Fel i PrintPlotta\r\nGör omstart på programmet");
    Window().PrintCurves(*page);
    EXPECT_NE(Log().find("Fel i Print Plottingrutinen 3420"), std::string::npos) << Log();
}

TEST_F(CurvesTest, ThePlottedNumbersAreToldToThoseWhoDoNotSeeThem) {
    StartWith(TwoHoldings());
    const auto spoken = [this] { return FromQt(Window().picDiagram->accessibleDescription()); };
    EXPECT_EQ(spoken().substr(spoken().find('.')),
              ". 1. Vimmels Asien, 110,00 kr, 10 %. 2. Kvarnbo Europa, 110,00 kr, 10 %");
    Window().SelectedCurves = {};
    Window().picDiagram->Clear();
    Window().PlotCurves();
    EXPECT_EQ(spoken(), "Inga kurvor valda: Visa, Välj kurvor");
}

class FundScaleTest : public CurvesTest {
  protected:
    std::string ScaleAfter(std::vector<std::int32_t> values, std::string before, bool replace,
                           int row = 1) {
        std::vector<TestHolding> holdings(2);
        holdings[0].skala = "./15/-10";
        TestHolding& holding = holdings[static_cast<std::size_t>(row)];
        holding.skala = std::move(before);
        holding.points.clear();
        for (std::size_t n = 0; n < values.size(); ++n) {
            holding.points.push_back({46000 + static_cast<std::int32_t>(n), values[n]});
        }
        StartWith(holdings);
        Window().dtaBasData->MoveTo(row);
        Window().ComputeFundScale(row + 1, replace);
        return Holding(row, schema::holding::kSkala);
    }
};

TEST_F(FundScaleTest, ALargestValueOfThirtyGivesFortyFive) {
    EXPECT_EQ(ScaleAfter({0, 12, 30}, "15/-10", true), "45/-30");
    EXPECT_TRUE(Faults().empty());
}

TEST_F(FundScaleTest, AFallDecidesWhereItIsDeeper) {
    EXPECT_EQ(ScaleAfter({0, -25, 14}, "15/-10", true), "45/-30");
}

TEST_F(FundScaleTest, NoPointsGiveTheSmallestScale) {
    EXPECT_EQ(ScaleAfter({}, "90/-60", true), "15/-10");
}

TEST_F(FundScaleTest, ReplacingOverwritesWhatStoodThere) {
    EXPECT_EQ(ScaleAfter({70}, " ", true), "75/-50");
}

TEST_F(FundScaleTest, RebuildingKeepsTheCurveListInFront) {
    EXPECT_EQ(ScaleAfter({70}, "1.2./15/-10", false, 0), "1.2./75/-50");
}

TEST_F(FundScaleTest, RebuildingKeepsAListThatStandsAlone) {
    // Without a scale in the first row the start finds all scales; this is the same once more.
    EXPECT_EQ(ScaleAfter({70}, "2.1.", false, 0), "2.1./75/-50");
}

TEST_F(FundScaleTest, WithoutAFileThereIsNoScaleToStore) {
    Start();
    EXPECT_THROW(Window().ComputeFundScale(1, true), Error);
}

}  // namespace
