// The fund list and the fund panel.

#include "entry/texts.h"
#include "fundfile/editrow.h"
#include "fundfile/schema.h"
#include "platform/datasource.h"
#include "tests/window/windowtest.h"
#include "widgets/datagrid.h"
#include "widgets/imagebutton.h"
#include "widgets/swatch.h"

#include <QAction>
#include <QApplication>
#include <QColor>
#include <QEvent>
#include <QGroupBox>
#include <QHelpEvent>
#include <QImage>
#include <QLabel>
#include <QPoint>
#include <QRect>
#include <QToolTip>

#include <functional>
#include <utility>

namespace {

class FundListTest : public WindowTest {
  protected:
    void StartWith(const std::vector<TestHolding>& holdings) {
        MakeFile(holdings);
        Start();
    }
    /// F11 closes the list and shows the two buttons.
    void StartChoosingCurves() {
        Press(Qt::Key_F11);
        Press(Qt::Key_F12);
    }
    void StartChoosingColour() {
        Press(Qt::Key_F11);
        Press(Qt::Key_F9);
    }
};

TestHolding WithSavedValues() {
    TestHolding holding = TwoHoldings()[1];
    holding.bokfortDatum = "2026-02-10";
    holding.fondandelar = 25.5;
    holding.kursKr = 60;
    holding.sparadeVarden = "2026-01-02¶20,0000¶50¶1000¶";
    return holding;
}

}  // namespace

TEST_F(FundListTest, OpeningShowsTheHoldingAsItWasBought) {
    StartWith(TwoHoldings());
    ChooseFund(1);
    EXPECT_EQ(FraData(0), "468 024");
    EXPECT_EQ(FraData(1), "2026-01-02");
    EXPECT_EQ(FraData(2), "20,0000");
    EXPECT_EQ(FraData(3), "1000,00");
    EXPECT_EQ(FraData(4), "50");
    EXPECT_EQ(Caption(Window().fraStartData), "StartData  2. Kvarnbo Europa  Premiepension");
    EXPECT_EQ(Caption(Window().lblColorNr), "2");
    EXPECT_EQ(Window().shaPlottColor->FillColour(), QColor(0x00, 0x40, 0xA0));
}

TEST_F(FundListTest, HoldingWithoutHistoryLeavesTheSecondColumnEmpty) {
    StartWith({TwoHoldings()[0], WithSavedValues()});
    ChooseFund(1);
    ChooseFund(0);
    for (int i = 6; i <= 9; ++i) EXPECT_EQ(FraData(i), "") << i;
}

TEST_F(FundListTest, HoldingWithSavedValuesShowsThemAndThePresentOnes) {
    StartWith({TwoHoldings()[0], WithSavedValues()});
    ChooseFund(1);
    const std::vector<std::string> expected = {"468 024", "2026-01-02", "20,0000", "50",   "1000",
                                               "",        "2026-02-10", "25,5000", "1000", "50"};
    for (int i = 0; i <= 9; ++i) EXPECT_EQ(FraData(i), expected[static_cast<std::size_t>(i)]) << i;
    EXPECT_EQ(Status(3), "Startkurs : 50");
    EXPECT_DOUBLE_EQ(Window().holding->startPrice, 50);
}

TEST_F(FundListTest, EveryValueHasAHeadingAndNothingElseHas) {
    StartWith({TwoHoldings()[0], WithSavedValues()});
    for (const int row : {0, 1}) {
        ChooseFund(row);
        for (int i = 0; i <= 9; ++i) {
            EXPECT_EQ(FraData(i).empty(), Caption(Window().lblFraHeading[i]).empty())
                << row << ' ' << i;
        }
    }
}

TEST_F(FundListTest, ValueTooLongForItsPlaceIsCutOnlyWhereItIsShown) {
    auto holdings = TwoHoldings();
    holdings[1] = WithSavedValues();
    holdings[1].vardeKr = 1234567.123456789;
    StartWith(holdings);
    ChooseFund(1);
    EXPECT_EQ(FraData(8), "1234567,123456789");
    const QLabel& label = *Window().lblFraData[8];
    EXPECT_GT(label.fontMetrics().horizontalAdvance(label.text()), label.width());
    const QImage picture = Window().fraStartData->grab().toImage();
    // Nothing of it runs over the value beside it.
    const QRect gap(label.geometry().right() + 1, label.y(), 3, label.height());
    const QImage between = picture.copy(gap);
    for (int y = 1; y < between.height(); ++y) {
        for (int x = 0; x < between.width(); ++x) {
            ASSERT_EQ(between.pixel(x, y), between.pixel(0, 0));
        }
    }
}

TEST_F(FundListTest, ValueALittleTooLongIsWrittenSmallerAndOnlyALongerOneNeedsATooltip) {
    auto holdings = TwoHoldings();
    holdings[1] = WithSavedValues();
    for (const auto& [value, tip] :
         {std::pair{38584.0001488472, ""}, std::pair{1234567.8e15, "1234567800000000000000"}}) {
        holdings[1].vardeKr = value;
        StartWith(holdings);
        ChooseFund(1);
        QLabel& label = *Window().lblFraData[8];
        ASSERT_GT(label.fontMetrics().horizontalAdvance(label.text()), label.width());
        const QPoint at = label.rect().center();
        QHelpEvent help(QEvent::ToolTip, at, label.mapToGlobal(at));
        QApplication::sendEvent(&label, &help);
        EXPECT_EQ(FromQt(QToolTip::text()), tip);
        QToolTip::hideText();
    }
}

TEST_F(FundListTest, StatusBarShowsTheStoredSummary) {
    StartWith(TwoHoldings());
    ChooseFund(0);
    EXPECT_EQ(Status(2), "Vimmels Asien");
    EXPECT_EQ(Status(3), "Startkurs : 100");
    EXPECT_EQ(Window().staBar->Tag(3), "100");
    EXPECT_EQ(Status(4), "Senaste : 110,00");
    EXPECT_EQ(Status(5), "10 %");
    EXPECT_EQ(Status(6), "1100");
}

TEST_F(FundListTest, HoldingWithoutLatestPriceShowsNone) {
    auto holdings = TwoHoldings();
    holdings[1].senasteKurs = "0";
    StartWith(holdings);
    ChooseFund(1);
    EXPECT_EQ(Status(4), "Senaste :");
    EXPECT_EQ(Status(5), "%");
    EXPECT_EQ(Status(6), "-");
}

TEST_F(FundListTest, CaptionNamesTheFundAndItsLatestDay) {
    StartWith(TwoHoldings());
    ChooseFund(0);
    EXPECT_EQ(Caption(&Window()),
              "   Kvarnbo  Vimmels Asien Senaste uppdatering    Fredag 30 Oktober 2026");
}

TEST_F(FundListTest, OpeningDrawsTheFundOnItsOwnScale) {
    StartWith(TwoHoldings());
    ChooseFund(0);
    EXPECT_EQ(Window().FundScale.top, 15);
    EXPECT_EQ(Window().Scale.top, 15);
    EXPECT_EQ(Window().Scale.bottom, -10);
    ASSERT_EQ(Window().picDiagram->Drawings().size(), 1U);
    EXPECT_EQ(Window().picDiagram->Drawings()[0].label, "1");
    ChooseFund(1);
    EXPECT_EQ(Window().FundScale.top, 45);
    EXPECT_EQ(DrawnScale(), (ScaleRange{45, -30}));
}

TEST_F(FundListTest, ListOfOneLineOpensTheOnlyFundWhenClicked) {
    StartWith(ManyHoldings(1));
    Window().ClearFundPanel();
    ASSERT_EQ(FraData(0), "");
    ChooseFund(0);
    EXPECT_EQ(FraData(0), "249 995");
}

TEST_F(FundListTest, ThirdDigitOfANumberDoesNotBreakOpening) {
    StartWith(ManyHoldings(101));
    Window().lstFonder->setCurrentRow(100);
    EXPECT_EQ(Lines().back(), "101. Fond 101");
    EXPECT_EQ(Window().SelectedCurves, std::vector<std::int32_t>{101});
    EXPECT_EQ(Window().picDiagram->Drawings().size(), 1U);
}

TEST_F(FundListTest, ArrowKeysInTheListOpenTheFundTheyReach) {
    StartWith(TwoHoldings());
    Window().lstFonder->setFocus();
    Press(Qt::Key_Down);
    EXPECT_EQ(FraData(0), "468 024");
    Press(Qt::Key_Up);
    EXPECT_EQ(FraData(0), "249 995");
}

TEST_F(FundListTest, SameFundTwiceWhileCollectingIsMarkedOnce) {
    StartWith(ManyHoldings(12));
    StartChoosingCurves();
    ChooseFund(1);
    ChooseFund(1);
    ChooseFund(10);
    ChooseFund(1);
    EXPECT_EQ(Caption(Window().lblGrafNr), " 2.11.");
    EXPECT_TRUE(Window().lblGrafNr->isVisible());
    EXPECT_TRUE(Window().lblPlottInfo->isVisible());
}

TEST_F(FundListTest, EnterOpensTheFundAndGoesToThePrice) {
    StartWith(TwoHoldings());
    Window().lstFonder->setFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(FraData(0), "249 995");
    EXPECT_EQ(Window().focusWidget(), Window().txtValue);
    EXPECT_EQ(Caption(Window().panListFonder), "");
    EXPECT_TRUE(Window().lblPlottInfo->isVisible());
}

TEST_F(FundListTest, EnterWhileAColourIsChosenStoresIt) {
    StartWith(TwoHoldings());
    ChooseFund(1);
    StartChoosingColour();
    outside.dialogs.ExpectColour(Colour{0x00, 0x40, 0xA0}, Colour{10, 20, 30});
    Window().lstFonder->setFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(Holding(1, 11), std::to_string(10 + 20 * 256 + 30 * 65536));
    EXPECT_EQ(Window().shaPlottColor->FillColour(), QColor(10, 20, 30));
    EXPECT_EQ(Tag(Window().imgColor), "0");
    EXPECT_FALSE(Window().panListFonder->isVisible());
    ASSERT_EQ(Window().picDiagram->Drawings().size(), 1U);
    EXPECT_EQ(Window().picDiagram->Drawings()[0].colour, (Colour{10, 20, 30}));
    EXPECT_TRUE(Window().cmdFondList->isEnabled());
}

TEST_F(FundListTest, ColourDialogThatIsCancelledKeepsTheColour) {
    StartWith(TwoHoldings());
    ChooseFund(1);
    StartChoosingColour();
    outside.dialogs.ExpectColour(std::nullopt);
    Window().lstFonder->setFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(Holding(1, 11), std::to_string(0xA04000));
    EXPECT_EQ(Tag(Window().imgColor), "0");
}

TEST_F(FundListTest, ClearingEmptiesPanelStatusAndMarks) {
    StartWith(TwoHoldings());
    ChooseFund(1);
    SetCaption(Window().lblXCord, "24  februari 2026");
    SetCaption(Window().lblYCord, "4 %");
    SetCaption(Window().lblTotal, "summor");
    SetCaption(Window().lblGrafNr, " 1.");
    for (QWidget* shown :
         {static_cast<QWidget*>(Window().panTotal), static_cast<QWidget*>(Window().txtGrid),
          static_cast<QWidget*>(Window().lblGrafNr),
          static_cast<QWidget*>(Window().lblPlottInfo)}) {
        shown->show();
    }
    StartChoosingCurves();
    Window().ClearFundPanel();
    EXPECT_TRUE(Window().panTotal->isHidden());
    EXPECT_TRUE(Window().txtGrid->isHidden());
    EXPECT_TRUE(Window().lblGrafNr->isHidden());
    EXPECT_TRUE(Window().lblPlottInfo->isHidden());
    EXPECT_EQ(Caption(Window().lblTotal), "");
    EXPECT_EQ(Caption(Window().lblGrafNr), "");
    EXPECT_EQ(Caption(Window().fraStartData), "StartData ");
    EXPECT_EQ(Status(2), "Fond");
    EXPECT_EQ(Status(3), "Startkurs : ");
    EXPECT_EQ(Status(4), "Senaste : ");
    EXPECT_EQ(Status(5), "%");
    EXPECT_EQ(Status(6), "-");
    for (int i = 0; i <= 9; ++i) EXPECT_EQ(FraData(i), "") << i;
    EXPECT_EQ(Caption(Window().lblXCord), "");
    EXPECT_EQ(Caption(Window().lblYCord), "");
    EXPECT_EQ(Tag(Window().imgGrafNr), "0");
    EXPECT_EQ(Tag(Window().panListFonder), "");
    EXPECT_FALSE(Window().lblColorNr->isVisible());
    EXPECT_FALSE(Window().shaPlottColor->FillColour().isValid());
}

TEST_F(FundListTest, ShowAllDrawsEveryFundOneStepOut) {
    StartWith(ManyHoldings(4));
    ChooseFund(0);
    Window().mnuAll->trigger();
    EXPECT_EQ(Window().SelectedCurves, (std::vector<std::int32_t>{1, 2, 3, 4}));
    EXPECT_EQ(Window().picDiagram->Drawings().size(), 4U);
    EXPECT_EQ(Window().Scale.top, 30);
    EXPECT_EQ(Window().Scale.bottom, -20);
    EXPECT_FALSE(Window().panListFonder->isVisible());
    EXPECT_EQ(Tag(Window().panListFonder), "");
    EXPECT_EQ(FraData(0), "");
}

TEST_F(FundListTest, ScreenButtonShowsTheStoredCurvesOnTheirScale) {
    StartWith(TwoHoldings());
    ChooseFund(0);
    Click(Window().imgScreen);
    EXPECT_EQ(Window().SelectedCurves, (std::vector<std::int32_t>{1, 2}));
    EXPECT_EQ(DrawnScale(), (ScaleRange{45, -30}));
    EXPECT_EQ(Window().Scale.top, 45);
    EXPECT_EQ(FraData(0), "");
}

TEST_F(FundListTest, ScreenButtonWithOneListedCurveOpensThatFund) {
    auto holdings = TwoHoldings();
    holdings[0].skala = "2./15/-10";
    StartWith(holdings);
    ChooseFund(0);
    Click(Window().imgScreen);
    EXPECT_EQ(FraData(0), "468 024");
    EXPECT_EQ(Window().lstFonder->currentRow(), 1);
    EXPECT_EQ(Window().SelectedCurves, std::vector<std::int32_t>{2});
    EXPECT_EQ(DrawnScale(), (ScaleRange{45, -30}));
    TypePrice("60");
    EXPECT_EQ(Holding(0, 16), "2./15/-10") << "the other fund's scale is its own";
    EXPECT_EQ(PointsOf(2).back().value, 20);
}

TEST_F(FundListTest, ScreenButtonWithoutListedCurvesKeepsTheOpenFundAndItsCurve) {
    auto holdings = TwoHoldings();
    holdings[0].skala = "./15/-10";
    StartWith(holdings);
    ChooseFund(1);
    Press(Qt::Key_F8);
    EXPECT_EQ(FraData(0), "468 024");
    EXPECT_EQ(Window().SelectedCurves, std::vector<std::int32_t>{2});
    ASSERT_EQ(Window().picDiagram->Drawings().size(), 1U);
    EXPECT_EQ(Window().picDiagram->Drawings()[0].label, "2");
    EXPECT_EQ(DrawnScale(), (ScaleRange{45, -30}));
}

TEST_F(FundListTest, ScreenButtonWithNothingToDrawSaysWhatToDo) {
    auto holdings = TwoHoldings();
    holdings[0].skala = "./15/-10";
    StartWith(holdings);
    Press(Qt::Key_F8);
    EXPECT_EQ(Window().picDiagram->Placeholder(), ToQt("Inga kurvor valda: Visa, Välj kurvor"));
    ChooseFund(0);
    EXPECT_FALSE(Window().picDiagram->Drawings().empty()) << "a picture with a curve says nothing";
}

TEST_F(FundListTest, AFundWithoutPointsSaysThatItsFirstPriceIsNext) {
    auto holdings = TwoHoldings();
    holdings[1].points.clear();
    StartWith(holdings);
    ChooseFund(1);
    EXPECT_TRUE(Window().picDiagram->Drawings().empty());
    EXPECT_EQ(Window().picDiagram->Placeholder(),
              ToQt("Fonden har inga kurser ännu: skriv dagens kurs och tryck Enter"));
}

TEST_F(FundListTest, AFileWithoutHoldingsSaysWhereTheFirstIsTyped) {
    StartWith({});
    EXPECT_EQ(Window().picDiagram->Placeholder(),
              ToQt("Filen har inga innehav ännu: skriv in det första under PPM Data"));
}

TEST_F(FundListTest, AHoldingWithoutAColourIsShownAndOfferedInTheCurvesOwn) {
    auto holdings = TwoHoldings();
    StartWith(holdings);
    Window().dtaBasData->MoveTo(1);
    EditRow(*Window().dtaBasData,
            [](DataSource& row) { row.Set(schema::holding::kPlottFarg, jet::Value()); });
    ChooseFund(1);
    const Colour own = Window().picDiagram->Drawings().at(0).colour;
    EXPECT_EQ(Window().shaPlottColor->FillColour(), QColor(own.red, own.green, own.blue));
    StartChoosingColour();
    outside.dialogs.ExpectColour(Colour{own.red, own.green, own.blue}, std::nullopt);
    Press(Qt::Key_Return);
}

TEST_F(FundListTest, AHoldingWithoutANumberIsOpenedAndPriced) {
    auto holdings = TwoHoldings();
    holdings[1].fondNr = "";
    StartWith(holdings);
    ChooseFund(1);
    EXPECT_EQ(FraData(0), "-");
    TypePrice("60");
    EXPECT_EQ(PointsOf(2).back().value, 20);
    EXPECT_EQ(Status(4), "Senaste : 60,00");
}

TEST_F(FundListTest, ANewHoldingHasNoChangeAndNoValueYet) {
    auto holdings = TwoHoldings();
    holdings[1].senasteKurs = "Senaste : 50";
    holdings[1].procent = "";
    holdings[1].kursVarde = "";
    StartWith(holdings);
    ChooseFund(1);
    EXPECT_EQ(Status(4), "Senaste : 50");
    EXPECT_EQ(Status(5), "%");
    EXPECT_EQ(Status(6), "-");
}

TEST_F(FundListTest, CaptionAndReadingGoWithTheFundTheyAreOf) {
    const std::vector<std::function<void()>> events = {[this] { Press(Qt::Key_F8); },
                                                       [this] { Window().mnuAll->trigger(); },
                                                       [this] {
                                                           Press(Qt::Key_F11);
                                                           Press(Qt::Key_F11);
                                                       }};
    StartWith(TwoHoldings());
    for (const auto& event : events) {
        ChooseFund(0);
        QTest::mouseClick(Window().picDiagram, Qt::LeftButton);
        ASSERT_NE(Caption(Window().lblXCord), "");
        event();
        EXPECT_EQ(Caption(&Window()), "  Kvarnbo  ");
        EXPECT_EQ(Caption(Window().lblXCord), "");
        EXPECT_EQ(Caption(Window().lblYCord), "");
        if (Window().panListFonder->isHidden()) Press(Qt::Key_F11);
    }
}

TEST_F(FundListTest, AClickBesideTheLinesLeavesTheOpenFundChosen) {
    StartWith(TwoHoldings());
    ChooseFund(1);
    QListWidget& list = *Window().lstFonder;
    const QPoint below(10, list.viewport()->height() - 5);
    ASSERT_EQ(list.itemAt(below), nullptr);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, below);
    EXPECT_TRUE(list.item(1)->isSelected());
    EXPECT_EQ(FraData(0), "468 024");
}

TEST_F(FundListTest, NamesTooLongForTheirPlaceStandWholeInTheTooltip) {
    auto holdings = TwoHoldings();
    const std::string name =
        "En fond med ett namn som är mycket längre än en rad i listan har plats";
    holdings[1].fond = name;
    holdings[1].namn = "Ett konto vars namn inte heller får plats i ramens rubrik bredvid fonden";
    StartWith(holdings);
    ChooseFund(1);
    const auto tip = [](QWidget& widget, QPoint at) {
        QHelpEvent help(QEvent::ToolTip, at, widget.mapToGlobal(at));
        QApplication::sendEvent(&widget, &help);
        const std::string text = FromQt(QToolTip::text());
        QToolTip::hideText();
        return text;
    };
    QListWidget& list = *Window().lstFonder;
    EXPECT_EQ(tip(*list.viewport(), list.visualItemRect(list.item(0)).center()), "");
    EXPECT_EQ(tip(*list.viewport(), list.visualItemRect(list.item(1)).center()), " 2. " + name);
    EXPECT_EQ(tip(*Window().fraStartData, {20, 10}), Caption(Window().fraStartData));
    SetCaption(Window().lblRubrik, "Du arbetar med " + std::string(120, 'x'));
    EXPECT_EQ(tip(*Window().lblRubrik, {20, 10}), Caption(Window().lblRubrik));
}

TEST_F(FundListTest, WhatTheGridCoversIsNotReachedWithTab) {
    StartWith(TwoHoldings());
    ChooseFund(0);
    Window().txtValue->setFocus();  // shows the two buttons
    Click(Window().cmdPPMData);
    QWidget* const covered[] = {Window().imgColor, Window().imgGrafNr, Window().txtValue,
                                Window().picDiagram};
    for (QWidget* one : covered) {
        EXPECT_FALSE(one->isVisible() && one->isEnabled()) << FromQt(one->objectName());
    }
    Window().cmdPPMData->setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 12; ++i) {
        Press(Qt::Key_Tab);
        for (QWidget* one : covered) EXPECT_FALSE(one->hasFocus()) << FromQt(one->objectName());
    }
    EXPECT_FALSE(Window().imgColor->isVisible());
}

TEST_F(FundListTest, ScrollingForgetsTheReadingAndKeepsTheFund) {
    StartWith(TwoHoldings());
    ChooseFund(0);
    QTest::mouseClick(Window().picDiagram, Qt::LeftButton);
    Press(Qt::Key_Left);
    EXPECT_EQ(Caption(Window().lblXCord), "");
    EXPECT_NE(Caption(&Window()), "  Kvarnbo  ");
}

TEST_F(FundListTest, ScreenButtonInAnEmptyFileDoesNothing) {
    StartWith({});
    Click(Window().imgScreen);
    EXPECT_TRUE(Window().picDiagram->Drawings().empty());
}

TEST_F(FundListTest, HoldingsButtonShowsTheGridAndBack) {
    StartWith(TwoHoldings());
    ChooseFund(0);
    SetCaption(Window().txtValue, "12");
    Click(Window().cmdPPMData);
    EXPECT_TRUE(Window().panBasData->isVisible());
    EXPECT_EQ(Caption(Window().cmdPPMData), "&Diagram");
    EXPECT_FALSE(Window().cmdFondList->isEnabled());
    EXPECT_EQ(Caption(Window().txtValue), "");
    EXPECT_FALSE(Window().panListFonder->isVisible());
    EXPECT_TRUE(Window().cmdNyAndel->isEnabled());
    Window().mnuPrint->setEnabled(false);
    Window().cmdNyAndel->hide();
    Click(Window().cmdPPMData);
    EXPECT_FALSE(Window().panBasData->isVisible());
    EXPECT_EQ(Caption(Window().cmdPPMData), "&PPM Data");
    EXPECT_TRUE(Window().cmdFondList->isEnabled());
    EXPECT_FALSE(Window().cmdNyOk->isVisible());
    EXPECT_FALSE(Window().cmdNyAndel->isHidden());
    EXPECT_TRUE(Window().mnuPrint->isEnabled());
}

TEST_F(FundListTest, CurvesThatAreAskedForComeOutFromBehindTheGrid) {
    StartWith(TwoHoldings());
    Click(Window().cmdPPMData);
    Window().mnuAll->trigger();
    EXPECT_FALSE(Window().panBasData->isVisible());
    EXPECT_EQ(Window().picDiagram->Drawings().size(), 2U);
    Click(Window().cmdPPMData);
    Click(Window().imgScreen);
    EXPECT_FALSE(Window().panBasData->isVisible());
    EXPECT_EQ(Caption(Window().cmdPPMData), "&PPM Data");
}

TEST_F(FundListTest, ARowToCorrectKeepsTheGridBeforeTheCurves) {
    StartWith(TwoHoldings());
    Click(Window().cmdPPMData);
    Window().DBGrid->setFocus();
    GoToNewRow(*Window().DBGrid);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("N"));
    outside.dialogs.Expect(texts::PriceMissing);
    Window().mnuAll->trigger();
    EXPECT_TRUE(Window().panBasData->isVisible());
    EXPECT_TRUE(Window().DBGrid->RowTyped());
}

TEST_F(FundListTest, EmptyFileHasNoNewSharesButton) {
    StartWith({});
    Click(Window().cmdPPMData);
    EXPECT_FALSE(Window().cmdNyAndel->isEnabled());
}
