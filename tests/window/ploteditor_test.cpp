#include "jet/database.h"
#include "jet/recordset.h"
#include "platform/datasource.h"
#include "tests/window/windowtest.h"
#include "widgets/datagrid.h"
#include "widgets/imagebutton.h"

#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QPoint>
#include <QTableView>
#include <QWidget>

#include <utility>

namespace {

class PlotEditorTest : public WindowTest {
  protected:
    enum { FondNr, XCord, YCord, KontoId };

    void StartWith(const std::vector<TestHolding>& holdings) {
        MakeFile(holdings);
        Start();
    }
    void Open() { Window().mnuPEdit->trigger(); }
    DataGrid& Grid() { return *Window().GridPlott; }
    void Go(int row, int column) {
        Grid().View().setCurrentIndex(Grid().View().model()->index(row, column));
    }
    void Keys(const std::string& text) {
        for (const QChar character : ToQt(text)) {
            const auto key = static_cast<Qt::Key>(character.toUpper().unicode());
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), key, character,
                                Qt::NoModifier);
        }
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    TestHolding With(std::vector<CurvePoint> points) {
        TestHolding holding;
        holding.points = std::move(points);
        return holding;
    }
};

TEST_F(PlotEditorTest, ShowsAllPointsAndTheirCount) {
    StartWith({With({{38718, 0}, {38719, 3}}), With({{38720, 5}})});
    Open();
    EXPECT_TRUE(Window().panPlottData->isVisible());
    EXPECT_EQ(Caption(Window().lblRecCount), "Listan innehåller 3 poster");
    EXPECT_EQ(Grid().View().model()->rowCount(), 4);
    EXPECT_EQ(Grid().CellText(1, XCord), "38719");
    EXPECT_EQ(Grid().CellText(1, YCord), "3");
    EXPECT_EQ(Grid().CellText(2, KontoId), "2");
    EXPECT_EQ(Caption(Window().GridPlott), "X och Y koordinater för plotting");
}

TEST_F(PlotEditorTest, AnEmptyTableHasNoRows) {
    StartWith({With({})});
    Open();
    EXPECT_EQ(Caption(Window().lblRecCount), "Listan innehåller 0 poster");
    EXPECT_EQ(Grid().View().model()->rowCount(), 1);
}

TEST_F(PlotEditorTest, OpenedAgainItShowsThePointsThatCameMeanwhile) {
    StartWith({With({{38718, 0}})});
    Open();
    Key(Qt::Key_Escape);
    const auto points = Window().FundDb->OpenRecordSet("PLOTTDATA");
    points->AddNew();
    points->Set(FondNr, "249 995");
    points->Set(XCord, 38719);
    points->Set(YCord, 3);
    points->Set(KontoId, 1);
    points->Update();
    Open();
    EXPECT_EQ(Caption(Window().lblRecCount), "Listan innehåller 2 poster");
    EXPECT_EQ(Grid().CellText(1, XCord), "38719");
}

TEST_F(PlotEditorTest, BeginsInTheDayColumn) {
    StartWith({With({{38718, 0}})});
    Open();
    EXPECT_EQ(Grid().CurrentColumn(), XCord);
    EXPECT_TRUE(Grid().hasFocus());
}

TEST_F(PlotEditorTest, TheDayUnderTheCursorIsShownAsADate) {
    StartWith({With({{38718, 0}, {38719, 3}})});
    Open();
    EXPECT_EQ(Caption(Window().txtTranslate), "2006-01-02");
    Key(Qt::Key_Up);
    EXPECT_EQ(Caption(Window().txtTranslate), "2006-01-01");
}

TEST_F(PlotEditorTest, AnotherColumnLeavesTheDate) {
    StartWith({With({{38718, 0}, {38719, 3}})});
    Open();
    SetCaption(Window().txtTranslate, "orörd");
    Key(Qt::Key_Right);
    Key(Qt::Key_Down);
    EXPECT_EQ(Caption(Window().txtTranslate), "orörd");
}

TEST_F(PlotEditorTest, AnEmptyDayLeavesTheDate) {
    StartWith({With({{38718, 0}})});
    Open();
    SetCaption(Window().txtTranslate, "orörd");
    Key(Qt::Key_Down);
    EXPECT_TRUE(Grid().OnNewRow());
    EXPECT_EQ(Caption(Window().txtTranslate), "orörd");
}

TEST_F(PlotEditorTest, ACorrectedPointIsStoredAndDrawnAtOnce) {
    StartWith({With({{46024, 0}, {46325, 10}})});
    ChooseFund(0);
    Open();
    Go(1, YCord);
    Keys("14");
    const QImage before = Window().picDiagram->grab().toImage();
    Key(Qt::Key_Up);
    EXPECT_EQ(PointsOf(1)[1].value, 14);
    EXPECT_NE(Window().picDiagram->grab().toImage(), before);
    EXPECT_EQ(Window().picDiagram->Drawings().size(), 1U);
}

TEST_F(PlotEditorTest, ACorrectedPointTakesScaleAndPictureWithIt) {
    StartWith({With({{46024, 0}, {46325, 10}}), With({{46024, 0}})});
    ChooseFund(0);
    Open();
    Go(1, YCord);
    Keys("90");
    Key(Qt::Key_Up);
    EXPECT_EQ(Holding(0, 16), "./105/-70");
    EXPECT_EQ(DrawnScale(), (ScaleRange{105, -70}));
    EXPECT_EQ(Window().FundScale.top, 105);
    Go(1, YCord);
    Keys("12");
    Key(Qt::Key_Up);
    EXPECT_EQ(Holding(0, 16), "./15/-10");
    EXPECT_EQ(DrawnScale(), (ScaleRange{15, -10}));
    EXPECT_EQ(Caption(Window().lblVertical[6]), "15");
}

TEST_F(PlotEditorTest, ADeletedPointNarrowsTheScale) {
    TestHolding holding = With({{46024, 0}, {46325, 50}});
    holding.skala = "./60/-40";
    StartWith({holding});
    Open();
    Go(1, XCord);
    Key(Qt::Key_Space, Qt::ShiftModifier);
    Key(Qt::Key_Delete);
    EXPECT_EQ(Holding(0, 16), "./15/-10");
    EXPECT_EQ(DrawnScale(), (ScaleRange{15, -10}));
}

TEST_F(PlotEditorTest, TheSeveralCurvesViewFollowsACorrectedPointToo) {
    auto holdings = TwoHoldings();
    StartWith(holdings);
    Press(Qt::Key_F8);
    const ScaleRange before = DrawnScale();
    Open();
    Go(1, YCord);
    Keys("190");
    Key(Qt::Key_Up);
    EXPECT_EQ(Holding(0, 16), "1.2./195/-130");
    EXPECT_NE(DrawnScale(), before);
    EXPECT_EQ(DrawnScale(), (ScaleRange{195, -130}));
    EXPECT_EQ(Window().picDiagram->Drawings().size(), 2U);
}

TEST_F(PlotEditorTest, WhileTheGridIsHeldNothingIsDrawn) {
    StartWith({With({{46024, 0}, {46325, 10}})});
    ChooseFund(0);
    Open();
    Window().storingPoint = true;
    Go(1, YCord);
    Keys("14");
    const QImage before = Window().picDiagram->grab().toImage();
    Key(Qt::Key_Up);
    EXPECT_EQ(PointsOf(1)[1].value, 14);
    EXPECT_EQ(Window().picDiagram->grab().toImage(), before);
}

TEST_F(PlotEditorTest, APointIsAddedOnTheLastRow) {
    StartWith({With({{38718, 0}})});
    Open();
    Go(1, FondNr);
    for (const char* text : {"249 995", "38720", "5", "1"}) {
        Keys(text);
        Key(Qt::Key_Return);
    }
    Key(Qt::Key_Up);
    ASSERT_EQ(PointsOf(1).size(), 2U);
    EXPECT_EQ(PointsOf(1)[1].day, 38720);
    EXPECT_EQ(Caption(Window().lblRecCount), "Listan innehåller 2 poster");
}

TEST_F(PlotEditorTest, OpensOnTheOpenFundsLastPoint) {
    StartWith({With({{38718, 0}}), With({{38718, 0}, {38719, 3}, {38725, 4}}), With({{38720, 5}})});
    ChooseFund(1);
    Open();
    EXPECT_EQ(Grid().CurrentRow(), 3);
    EXPECT_EQ(Grid().CurrentColumn(), XCord);
    EXPECT_EQ(Grid().CellText(3, XCord), "38725");
    EXPECT_EQ(Window().dtaPlott->Position(), 3);
}

TEST_F(PlotEditorTest, ANewPointTakesFundNumberAndHoldingOfTheRowAbove) {
    StartWith({With({{38718, 0}})});
    Open();
    Go(1, XCord);
    Keys("38720");
    Key(Qt::Key_Return);
    EXPECT_EQ(Grid().CellText(1, FondNr), "249 995");
    EXPECT_EQ(Grid().CellText(1, KontoId), "1");
    Keys("5");
    Key(Qt::Key_Down);
    ASSERT_EQ(PointsOf(1).size(), 2U);
    EXPECT_EQ(PointsOf(1)[1].value, 5);
}

TEST_F(PlotEditorTest, AnIncompletePointIsRefusedWithTheCursorWhereItIsMissing) {
    StartWith({With({{38718, 0}})});
    Open();
    Go(1, YCord);
    Keys("5");
    outside.dialogs.Expect(
        "XCord saknas\r\nEn punkt har FondNr, XCord, YCord och KontoId\r\n"
        "Fyll i, eller tryck <Esc>");
    Key(Qt::Key_Up);
    EXPECT_EQ(Grid().CurrentRow(), 1);
    EXPECT_EQ(Grid().CurrentColumn(), XCord);
    EXPECT_EQ(PointsOf(1).size(), 1U);
    Keys("38720");
    Key(Qt::Key_Up);
    EXPECT_EQ(PointsOf(1).size(), 2U);
}

TEST_F(PlotEditorTest, ANumberThatItsColumnCannotHoldIsToldWithTheColumnsName) {
    StartWith({With({{38718, 0}, {38719, 3}})});
    Open();
    Go(1, YCord);
    Keys("3000000000");
    outside.dialogs.Expect("YCord: Talet är för stort för fältet.");
    Key(Qt::Key_Up);
    EXPECT_EQ(Grid().CurrentRow(), 1);
    EXPECT_EQ(Grid().CurrentColumn(), YCord);
    EXPECT_EQ(Grid().CellText(1, YCord), "3000000000");
    Keys("4");
    Go(1, XCord);
    Keys("x");
    outside.dialogs.Expect("XCord: Värdet passar inte i fältet.");
    Key(Qt::Key_Up);
    EXPECT_EQ(Grid().CurrentColumn(), XCord);
    Keys("38720");
    Key(Qt::Key_Up);
    EXPECT_EQ(PointsOf(1)[1].value, 4);
}

TEST_F(PlotEditorTest, APointIsDeletedByItsMark) {
    StartWith({With({{38718, 0}, {38719, 3}})});
    Open();
    Key(Qt::Key_Space, Qt::ShiftModifier);
    Key(Qt::Key_Delete);
    ASSERT_EQ(PointsOf(1).size(), 1U);
    EXPECT_EQ(PointsOf(1)[0].day, 38718);
    EXPECT_EQ(Caption(Window().lblRecCount), "Listan innehåller 1 poster");
}

TEST_F(PlotEditorTest, EscClosesThePanelAndGivesUpTheRow) {
    StartWith({With({{38718, 0}})});
    Open();
    Keys("5");
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Window().panPlottData->isVisible());
    EXPECT_EQ(PointsOf(1)[0].day, 38718);
}

TEST_F(PlotEditorTest, EscHidesTheModeButtonsHereToo) {
    StartWith({With({{38718, 0}})});
    Open();
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Window().imgColor->isVisible());
    EXPECT_FALSE(Window().imgGrafNr->isVisible());
    EXPECT_TRUE(Window().picDiagram->hasFocus());
}

TEST_F(PlotEditorTest, ScrollingTheDiagramStoresTheRowThatIsTyped) {
    StartWith({With({{38718, 0}})});
    Open();
    Go(0, YCord);
    Keys("7");
    Click(Window().Image4);
    EXPECT_EQ(PointsOf(1)[0].value, 7);
    EXPECT_FALSE(Window().panPlottData->isVisible());
}

TEST_F(PlotEditorTest, ARowThatCannotBeStoredKeepsThePanelOpen) {
    StartWith({With({{38718, 0}})});
    const std::int32_t start = Window().WindowStartDay;
    Open();
    Keys("abc");
    outside.dialogs.Expect("XCord: Värdet passar inte i fältet.");
    Click(Window().Image4);
    EXPECT_TRUE(Window().panPlottData->isVisible());
    EXPECT_EQ(Grid().CellText(0, XCord), "abc");
    EXPECT_EQ(Window().WindowStartDay, start);
}

TEST_F(PlotEditorTest, ARowThatKeepsTheWindowOpenHasTheFocus) {
    StartWith({With({{38718, 0}})});
    Open();
    Keys("abc");
    outside.dialogs
        .Expect(
            "Det här är inte sparat:\r\n\r\nPunkten i plottdata för fond 249 995\r\n"
            "    XCord: Värdet passar inte i fältet.\r\n\r\nVill du gå vidare utan det ?",
            Buttons::YesNo, Icon::Question, DefaultButton::Second)
        .Answer(Answer::No);
    CloseWindow();
    EXPECT_TRUE(Window().isVisible());
    EXPECT_TRUE(Grid().View().hasFocus());
    EXPECT_FALSE(Window().imgColor->isVisible()) << "the price field never had the focus";
    Keys("38720");
    CloseWindow();
    EXPECT_FALSE(Window().isVisible());
}

TEST_F(PlotEditorTest, OpeningItOnceMoreStoresTheRowThatIsTyped) {
    StartWith({With({{38718, 0}})});
    Open();
    Go(0, YCord);
    Keys("7");
    Open();
    EXPECT_EQ(PointsOf(1)[0].value, 7);
}

TEST_F(PlotEditorTest, AMinusSignCanBeTyped) {
    StartWith({With({{38718, 0}})});
    Open();
    Go(0, YCord);
    Keys("-5");
    Key(Qt::Key_Down);
    EXPECT_EQ(PointsOf(1)[0].value, -5);
}

TEST_F(PlotEditorTest, ADayThatIsNoNumberStaysTypedAndItsColumnIsNamed) {
    StartWith({With({{38718, 0}, {38719, 3}})});
    Open();
    Keys("abc");
    outside.dialogs.Expect("XCord: Värdet passar inte i fältet.");
    Key(Qt::Key_Up);
    EXPECT_EQ(Grid().CurrentRow(), 1);
    EXPECT_EQ(Grid().CellText(1, XCord), "abc");
}

TEST_F(PlotEditorTest, TheFundListThatIsAskedForStandsOverIt) {
    StartWith({With({{38718, 0}})});
    const auto onTop = [&] {
        QWidget& client = *Window().centralWidget();
        const QWidget* at = client.childAt(Window().lstFonder->mapTo(&client, QPoint(20, 60)));
        return at != nullptr && Window().panListFonder->isAncestorOf(at);
    };
    Open();
    EXPECT_FALSE(onTop());
    Click(Window().cmdFondList);
    EXPECT_TRUE(onTop());
    EXPECT_FALSE(Window().panPlottData->isVisible());
    Press(Qt::Key_F11);  // the window's keys are the list's again
    EXPECT_FALSE(Window().panListFonder->isVisible());
}

TEST_F(PlotEditorTest, ARowToCorrectKeepsItBeforeTheFundList) {
    StartWith({With({{38718, 0}})});
    Open();
    Keys("abc");
    outside.dialogs.Expect("XCord: Värdet passar inte i fältet.");
    Click(Window().cmdFondList);
    EXPECT_FALSE(Window().panListFonder->isVisible());
    EXPECT_EQ(Grid().CellText(0, XCord), "abc");
}

TEST_F(PlotEditorTest, ARowToCorrectKeepsItBeforeTheHoldingsGrid) {
    StartWith({With({{38718, 0}})});
    Open();
    Keys("abc");
    outside.dialogs.Expect("XCord: Värdet passar inte i fältet.");
    Click(Window().cmdPPMData);
    EXPECT_FALSE(Window().panBasData->isVisible());
    EXPECT_EQ(Caption(Window().cmdPPMData), "&PPM Data");
    EXPECT_EQ(Grid().CellText(0, XCord), "abc");
}

TEST_F(PlotEditorTest, TheFundListStoresTheRowThatIsTyped) {
    StartWith({With({{38718, 0}})});
    Open();
    Go(0, YCord);
    Keys("7");
    Click(Window().cmdFondList);
    EXPECT_EQ(PointsOf(1)[0].value, 7);
    EXPECT_TRUE(Window().panListFonder->isVisible());
}

TEST_F(PlotEditorTest, OpenedFromTheHoldingsGridItTakesItsPlace) {
    StartWith({With({{38718, 0}})});
    Click(Window().cmdPPMData);
    Open();
    EXPECT_FALSE(Window().panBasData->isVisible());
    EXPECT_TRUE(Window().panPlottData->isVisible());
}

}  // namespace
