// The overview of all holdings: its page, and its short form in the left column.

#include "platform/datasource.h"
#include "tests/window/windowtest.h"
#include "widgets/texttable.h"

#include <QAction>
#include <QGroupBox>
#include <QHeaderView>

#include <cstddef>
#include <string>
#include <vector>

namespace {

using Cells = std::vector<std::string>;

class OverviewTest : public WindowTest {
  protected:
    void SetUp() override {
        std::vector<TestHolding> holdings = ManyHoldings(3);
        holdings[0].fond = "Cedervall";
        holdings[1].fond = "Ask";
        holdings[1].kursVarde = "3300";
        holdings[2].fond = "Björk";
        holdings[2].namn = "Eget";
        holdings[2].kursVarde = "500";
        holdings[2].procent = "-5 %";
        MakeFile(holdings);
        Start();
    }
    const std::vector<TextRow>& Rows() { return Window().grdOversikt->Rows(); }
    const std::vector<TextRow>& Short() { return Window().grdKort->Rows(); }
    std::vector<std::string> Funds() {
        std::vector<std::string> funds;
        for (const TextRow& row : Rows()) funds.push_back(row.cells.at(1));
        return funds;
    }
    bool Shown() { return Window().panOversikt->isVisible(); }
};

}  // namespace

TEST_F(OverviewTest, F7ShowsEveryHoldingAndTheSums) {
    Press(Qt::Key_F7);
    EXPECT_TRUE(Shown());
    EXPECT_TRUE(Window().grdOversikt->hasFocus());
    ASSERT_EQ(Rows().size(), 6U);
    EXPECT_EQ(Rows()[0].cells, (Cells{"1", "Cedervall", "Premiepension", "110,00", "2026-10-30",
                                      "+10", "10 %", "1100,00", "25,0 %"}));
    EXPECT_EQ(Rows()[2].cells.back(), "100,0 %");
    EXPECT_EQ(Rows()[3].cells,
              (Cells{"", "Summa Premiepension", "", "", "", "", "10 %", "4400,00", ""}));
    EXPECT_EQ(Rows()[5].cells,
              (Cells{"", "Summa alla konton", "", "", "", "", "5 %", "4900,00", ""}));
    EXPECT_EQ(Rows()[5].tone, RowTone::Sum);
    Press(Qt::Key_F7);
    EXPECT_FALSE(Shown());
    EXPECT_TRUE(Window().picDiagram->hasFocus());
    Window().mnuOversikt->trigger();
    EXPECT_TRUE(Shown());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Shown());
}

TEST_F(OverviewTest, ACaptionOrItsDigitSortsAndTurnsRound) {
    Press(Qt::Key_F7);
    QHeaderView& captions = *Window().grdOversikt->horizontalHeader();
    const QPoint fund(captions.sectionViewportPosition(1) + 5, captions.height() / 2);
    QTest::mouseClick(captions.viewport(), Qt::LeftButton, {}, fund);
    using Names = std::vector<std::string>;
    const Names sums = {"Summa Premiepension", "Summa Eget", "Summa alla konton"};
    const auto with = [&](Names funds) {
        funds.insert(funds.end(), sums.begin(), sums.end());
        return funds;
    };
    EXPECT_EQ(Funds(), with({"Ask", "Björk", "Cedervall"}));
    EXPECT_EQ(captions.sortIndicatorSection(), 1);
    Press(Qt::Key_2);
    EXPECT_EQ(Funds(), with({"Cedervall", "Björk", "Ask"}));
    Press(Qt::Key_8);
    EXPECT_EQ(Funds(), with({"Björk", "Cedervall", "Ask"}));
    Press(Qt::Key_Escape);
    Press(Qt::Key_F7);
    EXPECT_EQ(Funds(), with({"Björk", "Cedervall", "Ask"})) << "the order is kept";
}

TEST_F(OverviewTest, EnterOpensTheFundWithTheKeysInThePrice) {
    Press(Qt::Key_F7);
    Press(Qt::Key_2);
    Press(Qt::Key_Home);
    Window().grdOversikt->SetCurrentRow(0);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_FALSE(Shown());
    EXPECT_EQ(Status(2), "Björk");
    EXPECT_TRUE(Window().txtValue->hasFocus());
    EXPECT_EQ(Window().SelectedCurves, std::vector<std::int32_t>{3});
    Press(Qt::Key_F7);
    Window().grdOversikt->SetCurrentRow(4);
    Press(Qt::Key_Return);
    EXPECT_TRUE(Shown()) << "a sum is no fund";
}

TEST_F(OverviewTest, ADoubleClickOpensTheFundToo) {
    Press(Qt::Key_F7);
    const QRect cell = Window().grdOversikt->CellArea(1, 1);
    QTest::mouseClick(Window().grdOversikt->viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_TRUE(Shown()) << "one click only leads to the line";
    QTest::mouseDClick(Window().grdOversikt->viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(Status(2), "Ask");
}

TEST_F(OverviewTest, ItsShortFormFillsTheEmptyLeftColumn) {
    EXPECT_FALSE(Window().panKort->isVisible()) << "the list of funds stands there";
    Press(Qt::Key_Escape);
    EXPECT_TRUE(Window().panKort->isVisible());
    EXPECT_TRUE(Window().picDiagram->hasFocus());
    ASSERT_EQ(Short().size(), 4U);
    EXPECT_EQ(Short()[1].cells, (Cells{"2", "Ask", "10 %", "3300"}));
    EXPECT_EQ(Short()[3].cells, (Cells{"", "Summa", "5 %", "4900"}));
    const QRect cell = Window().grdKort->CellArea(2, 1);
    QTest::mouseClick(Window().grdKort->viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(Status(2), "Björk");
    EXPECT_TRUE(Window().txtValue->hasFocus());
    Type("105");
    Press(Qt::Key_Return);
    EXPECT_EQ(Short()[2].cells, (Cells{"3", "Björk", "5 %", "1050"})) << "it follows the price";
    Press(Qt::Key_F11);
    EXPECT_FALSE(Window().panKort->isVisible());
}

TEST_F(OverviewTest, AFileWithoutHoldingsHasNone) {
    MakeFile({});
    Start();
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Window().panKort->isVisible());
    Press(Qt::Key_F7);
    EXPECT_FALSE(Shown());
}

TEST_F(OverviewTest, IsReachedFromTheHoldingsGridWhenItsRowIsStored) {
    Click(Window().cmdPPMData);
    EXPECT_TRUE(Window().panBasData->isVisible());
    Press(Qt::Key_F7);
    EXPECT_FALSE(Window().panBasData->isVisible());
    EXPECT_TRUE(Shown());
}
