// The legend under the picture, and what stands beside the lines of the fund list.

#include "fundfile/rules/curvecolour.h"
#include "fundfile/schema.h"
#include "tests/window/windowtest.h"
#include "widgets/legendview.h"
#include "widgets/listlines.h"

#include <QColor>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPoint>
#include <QRect>

#include <optional>
#include <string>
#include <vector>

namespace {

class LegendTest : public WindowTest {
  protected:
    LegendTest() { SetToday(2026, 3, 10); }

    void StartWith(std::vector<TestHolding> holdings) {
        MakeFile(std::move(holdings));
        Start();
    }
    LegendView& Legend() { return *Window().lstLegend; }
    std::optional<std::int32_t> Lit() {
        const auto& lit = Window().picDiagram->Lit();
        return lit ? std::optional(lit->kontoId) : std::nullopt;
    }
    QPoint EntryPlace(int row) { return Legend().visualItemRect(Legend().item(row)).center(); }
    QRect LinePlace(int row) {
        return Window().lstFonder->visualItemRect(Window().lstFonder->item(row));
    }
    void ChooseCurves() {
        Press(Qt::Key_F11);
        Press(Qt::Key_F12);
    }
};

}  // namespace

TEST_F(LegendTest, ListsTheCurvesThatShowTogether) {
    StartWith(TwoHoldings());
    ASSERT_TRUE(Legend().isVisible());
    EXPECT_FALSE(Window().lblFraHint->isVisible());
    const std::vector<LegendEntry> expected{
        {1, ColourFromValue(0x0000C0), ToQt("1"), ToQt("Vimmels Asien"), ToQt("10 %")},
        {2, ColourFromValue(0xA04000), ToQt("2"), ToQt("Kvarnbo Europa"), ToQt("10 %")}};
    EXPECT_EQ(Legend().Entries(), expected);
    EXPECT_EQ(FromQt(Legend().item(1)->text()), "2. Kvarnbo Europa 10 %") << "as it is spoken";
    EXPECT_EQ(Legend().visualItemRect(Legend().item(0)).top(),
              Legend().visualItemRect(Legend().item(1)).top() - Legend().gridSize().height());
}

TEST_F(LegendTest, GivesWayToTheStartDataOfAnOpenFund) {
    StartWith(TwoHoldings());
    ChooseFund(1);
    EXPECT_FALSE(Legend().isVisible());
    EXPECT_EQ(FraData(0), "468 024");
    Press(Qt::Key_F8);
    EXPECT_TRUE(Legend().isVisible());
    EXPECT_EQ(FraData(0), "");
}

TEST_F(LegendTest, IsNotThereWithoutCurves) {
    auto holdings = TwoHoldings();
    holdings[0].skala = "./15/-10";
    StartWith(holdings);
    EXPECT_FALSE(Legend().isVisible());
    EXPECT_TRUE(Window().lblFraHint->isVisible());
}

TEST_F(LegendTest, EmptiesWhileCurvesAreChosenAndComesBack) {
    StartWith(TwoHoldings());
    ChooseCurves();
    EXPECT_FALSE(Legend().isVisible());
    Press(Qt::Key_Escape);
    EXPECT_TRUE(Legend().isVisible());
}

TEST_F(LegendTest, PointingAtAnEntryBringsItsCurveForward) {
    StartWith(TwoHoldings());
    QTest::mouseMove(Legend().viewport(), EntryPlace(1));
    EXPECT_EQ(Lit(), 2);
    QTest::mouseMove(Legend().viewport(), EntryPlace(0));
    EXPECT_EQ(Lit(), 1);
    EXPECT_EQ(Window().picDiagram->Drawings().size(), 2U) << "drawn once";
}

TEST_F(LegendTest, AClickOpensTheFund) {
    StartWith(TwoHoldings());
    QTest::mouseClick(Legend().viewport(), Qt::LeftButton, {}, EntryPlace(1));
    EXPECT_EQ(FraData(0), "468 024");
    EXPECT_EQ(Window().lstFonder->currentRow(), 1);
}

TEST_F(LegendTest, TheKeysBringCurvesForwardAndEnterOpensTheFund) {
    StartWith(TwoHoldings());
    Legend().setFocus();
    EXPECT_EQ(Lit(), 1);
    Press(Qt::Key_Down);
    EXPECT_EQ(Lit(), 2);
    Press(Qt::Key_Down);
    EXPECT_EQ(Lit(), 2) << "the last one";
    Press(Qt::Key_Up);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(FraData(0), "468 024");
    EXPECT_EQ(Lit(), std::nullopt);
    EXPECT_EQ(Window().focusWidget(), Window().txtValue) << "the price can be typed";
}

TEST_F(LegendTest, LeavingItEndsTheLight) {
    StartWith(TwoHoldings());
    Legend().setFocus();
    ASSERT_EQ(Lit(), 1);
    Window().picDiagram->setFocus();
    EXPECT_EQ(Lit(), std::nullopt);
}

TEST_F(LegendTest, ManyCurvesStandInColumnsAndTheRestIsScrolledTo) {
    auto holdings = ManyHoldings(40);
    std::string list;
    for (int n = 1; n <= 40; ++n) list += std::to_string(n) + ".";
    holdings[0].skala = list + "/15/-10";
    StartWith(holdings);
    ASSERT_EQ(Legend().count(), 40);
    const QRect room = Legend().viewport()->rect();
    EXPECT_TRUE(room.contains(Legend().visualItemRect(Legend().item(0))));
    EXPECT_FALSE(room.intersects(Legend().visualItemRect(Legend().item(39))));
    Legend().setFocus();
    for (int n = 1; n < 40; ++n) Press(Qt::Key_Down);
    EXPECT_EQ(Lit(), 40);
    EXPECT_TRUE(room.contains(Legend().visualItemRect(Legend().item(39))));
}

TEST_F(LegendTest, FollowsAStoredPrice) {
    StartWith(TwoHoldings());
    ChooseFund(0);
    TypePrice("120");
    Press(Qt::Key_F8);
    ASSERT_TRUE(Legend().isVisible());
    EXPECT_EQ(FromQt(Legend().Entries()[0].value), "20 %");
}

class ListLooksTest : public LegendTest {
  protected:
    QImage Line(int row) { return Window().lstFonder->viewport()->grab(LinePlace(row)).toImage(); }
    QColor Dot(int row) {
        const QRect whole(QPoint(0, 0), LinePlace(row).size());
        return Line(row).pixelColor(ListLines::DotPlace(whole).center());
    }
    void ClickTick(int row) {
        QTest::mouseClick(Window().lstFonder->viewport(), Qt::LeftButton, {},
                          ListLines::DotPlace(LinePlace(row)).center());
    }
    std::vector<std::int32_t> Chosen() { return Window().chosenCurves; }
};

TEST_F(ListLooksTest, EachLineHasItsCurvesColourAndItsTextAsGiven) {
    StartWith(TwoHoldings());
    EXPECT_EQ(Dot(0), QColor(0xC0, 0, 0));
    EXPECT_EQ(Dot(1), QColor(0, 0x40, 0xA0));
    EXPECT_EQ(Lines(), (std::vector<std::string>{" 1. Vimmels Asien", " 2. Kvarnbo Europa"}));
}

TEST_F(ListLooksTest, TheLatestChangeStandsAtTheRightEndAndFollowsAPrice) {
    StartWith(TwoHoldings());
    ChooseFund(0);
    const QImage before = Line(0);
    TypePrice("120");
    ASSERT_EQ(Holding(0, schema::holding::kProcent), "20 %");
    const QImage after = Line(0);
    const QRect end(after.width() - 45, 2, 43, after.height() - 4);
    EXPECT_NE(after.copy(end), before.copy(end));
    const QRect text(30, 2, 60, after.height() - 4);
    EXPECT_EQ(after.copy(text), before.copy(text));
}

TEST_F(ListLooksTest, ANewColourShowsAtOnce) {
    StartWith(TwoHoldings());
    ChooseFund(0);
    Press(Qt::Key_F11);
    Press(Qt::Key_F9);
    outside.dialogs.ExpectColour(Colour{0, 200, 0});
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);
    Press(Qt::Key_F11);
    EXPECT_EQ(Dot(Window().lstFonder->currentRow()), QColor(0, 200, 0));
}

TEST_F(ListLooksTest, AChosenLineHasATickWhichTakesItAway) {
    StartWith(TwoHoldings());
    ChooseCurves();
    const QImage before = Line(1);
    ChooseFund(0);
    ChooseFund(1);
    ChooseFund(1);
    ASSERT_EQ(Chosen(), (std::vector<std::int32_t>{1, 2})) << "a second click leaves it chosen";
    ChooseFund(0);
    const QRect dot = ListLines::DotPlace(QRect(QPoint(0, 0), LinePlace(1).size()));
    EXPECT_NE(Line(1).copy(dot), before.copy(dot));
    ClickTick(1);
    EXPECT_EQ(Chosen(), std::vector<std::int32_t>{1});
    EXPECT_EQ(Caption(Window().lblGrafNr), " 1.");
    EXPECT_EQ(Line(1).copy(dot), before.copy(dot));
}

TEST_F(ListLooksTest, DeleteTakesTheMarkedLineAway) {
    StartWith(TwoHoldings());
    ChooseCurves();
    Press(Qt::Key_Space);
    QTest::keyClick(Window().lstFonder, Qt::Key_Down, Qt::ControlModifier);
    Press(Qt::Key_Space);
    ASSERT_EQ(Chosen(), (std::vector<std::int32_t>{1, 2}));
    Press(Qt::Key_Delete);
    EXPECT_EQ(Chosen(), std::vector<std::int32_t>{1});
    Press(Qt::Key_F12);
    EXPECT_EQ(Window().SelectedCurves, std::vector<std::int32_t>{1});
}

TEST_F(ListLooksTest, ClickingADotOtherwiseOpensItsFund) {
    StartWith(TwoHoldings());
    ClickTick(1);
    EXPECT_EQ(FraData(0), "468 024");
    ChooseCurves();
    ClickTick(1);
    EXPECT_EQ(Chosen(), std::vector<std::int32_t>{2}) << "not chosen yet: it is now";
}
