// The daily price, typed with real key strokes.

#include "platform/datasource.h"
#include "tests/window/windowtest.h"
#include "widgets/imagebutton.h"

#include <QClipboard>
#include <QColor>
#include <QGroupBox>
#include <QGuiApplication>
#include <QKeySequence>
#include <QLabel>
#include <QPalette>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

constexpr std::int32_t kToday = 46342;  // 2026-11-16

class PriceEntryTest : public WindowTest {
  protected:
    void SetUp() override {
        MakeFile(TwoHoldings());
        Start();
    }
    void ExpectQuestion(Answer answer) {
        outside.dialogs
            .Expect("Kontrollera din inmatning !\r\nmer än 200 % ökning ?", Buttons::OkCancel,
                    Icon::Question)
            .Answer(answer);
    }
    void ExpectRefusal() {
        outside.dialogs.Expect("Mer än 1000 % ökning\r\nEj tillåtet", Buttons::Ok,
                               Icon::Exclamation);
    }
    std::vector<CurvePoint> TodaysPoints(std::int32_t kontoId) {
        std::vector<CurvePoint> today;
        for (const CurvePoint point : PointsOf(kontoId)) {
            if (point.day == kToday) today.push_back(point);
        }
        return today;
    }
    std::string Price() { return Caption(Window().txtValue); }
};

}  // namespace

TEST_F(PriceEntryTest, PointIsShownAsCommaAndThePriceWithTwoDecimals) {
    ChooseFund(0);
    Window().txtValue->setFocus();
    Type("112.5");
    EXPECT_EQ(Price(), "112,5");
    Press(Qt::Key_Return);
    EXPECT_EQ(Status(4), "Senaste : 112,50");
    EXPECT_EQ(Price(), "") << "ready for the next fund";
}

TEST_F(PriceEntryTest, WithoutAHoldingNothingCanBeTyped) {
    Window().txtValue->setFocus();
    Type("12");
    EXPECT_EQ(Price(), "");
    QGuiApplication::clipboard()->setText(QStringLiteral("12"));
    QTest::keySequence(Window().txtValue, QKeySequence::Paste);
    EXPECT_EQ(Price(), "");
}

TEST_F(PriceEntryTest, LettersAndTheDeleteKeyHaveNoEffect) {
    ChooseFund(0);
    Window().txtValue->setFocus();
    Type("1a2 b%3");
    EXPECT_EQ(Price(), "123");
    Press(Qt::Key_Home);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Price(), "123");
    Press(Qt::Key_End);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Price(), "12");
}

TEST_F(PriceEntryTest, PriceEqualToTheStartPriceStoresZero) {
    ChooseFund(0);
    TypePrice("100");
    EXPECT_EQ(TodaysPoints(1), (std::vector<CurvePoint>{{kToday, 0}}));
    EXPECT_EQ(Status(5), "0 %");
}

TEST_F(PriceEntryTest, FallsAreNeverQuestioned) {
    ChooseFund(0);
    TypePrice("50");
    EXPECT_EQ(TodaysPoints(1), (std::vector<CurvePoint>{{kToday, -50}}));
    TypePrice("0,01");
    EXPECT_EQ(TodaysPoints(1), (std::vector<CurvePoint>{{kToday, -100}}));
}

TEST_F(PriceEntryTest, TwoHundredPercentIsAccepted) {
    ChooseFund(0);
    TypePrice("300");
    EXPECT_EQ(TodaysPoints(1), (std::vector<CurvePoint>{{kToday, 200}}));
}

TEST_F(PriceEntryTest, MoreThanTwoHundredPercentAsksAndCancelStoresNothing) {
    ChooseFund(0);
    const std::string before = Bytes();
    ExpectQuestion(Answer::Cancel);
    TypePrice("301");
    EXPECT_EQ(Price(), "");
    EXPECT_TRUE(TodaysPoints(1).empty());
    EXPECT_EQ(Bytes(), before);
}

TEST_F(PriceEntryTest, MoreThanTwoHundredPercentIsStoredAfterOk) {
    ChooseFund(0);
    ExpectQuestion(Answer::Ok);
    TypePrice("301");
    EXPECT_EQ(TodaysPoints(1), (std::vector<CurvePoint>{{kToday, 201}}));
}

TEST_F(PriceEntryTest, ThousandPercentIsAcceptedAfterOk) {
    ChooseFund(0);
    ExpectQuestion(Answer::Ok);
    TypePrice("1100");
    EXPECT_EQ(TodaysPoints(1), (std::vector<CurvePoint>{{kToday, 1000}}));
}

TEST_F(PriceEntryTest, MoreThanThousandPercentIsAskedThenRefused) {
    ChooseFund(0);
    const std::string before = Bytes();
    ExpectQuestion(Answer::Ok);
    ExpectRefusal();
    TypePrice("1101");
    EXPECT_EQ(Price(), "");
    EXPECT_EQ(Bytes(), before);
}

TEST_F(PriceEntryTest, MoreThanThousandPercentIsNotRefusedAfterCancel) {
    ChooseFund(0);
    ExpectQuestion(Answer::Cancel);
    TypePrice("1101");
    EXPECT_EQ(Price(), "");
}

TEST_F(PriceEntryTest, TextThatIsNoPriceIsRefused) {
    ChooseFund(0);
    const std::string before = Bytes();
    for (const char* text : {"0", "0,00", "1,2,3", ","}) {
        outside.dialogs.Expect("Felaktig inmatning");
        TypePrice(text);
        EXPECT_EQ(Price(), "") << text;
    }
    EXPECT_EQ(Bytes(), before);
}

TEST_F(PriceEntryTest, APastedTextThatIsNoPriceDoesNotGetIn) {
    ChooseFund(0);
    Window().txtValue->setFocus();
    for (const char* text : {"-105", "\u2212105", "10x5", "2026-11-20", "1 12,50", "1,234.50"}) {
        QGuiApplication::clipboard()->setText(ToQt(text));
        QTest::keySequence(Window().txtValue, QKeySequence::Paste);
        EXPECT_EQ(Price(), "") << text;
    }
}

TEST_F(PriceEntryTest, APriceIsPastedWithoutTheWordsAroundIt) {
    ChooseFund(0);
    Window().txtValue->setFocus();
    QGuiApplication::clipboard()->setText(QStringLiteral("Kurs: 112.50 kr\n"));
    QTest::keySequence(Window().txtValue, QKeySequence::Paste);
    EXPECT_EQ(Price(), "112,50");
}

TEST_F(PriceEntryTest, EmptyFieldDoesNothing) {
    ChooseFund(0);
    const std::string before = Bytes();
    TypePrice("");
    EXPECT_EQ(Bytes(), before);
}

TEST_F(PriceEntryTest, SecondPriceOfTheDayReplacesTheFirst) {
    ChooseFund(0);
    TypePrice("105");
    TypePrice("107");
    EXPECT_EQ(TodaysPoints(1), (std::vector<CurvePoint>{{kToday, 7}}));
    EXPECT_EQ(PointsOf(1).size(), 3U);
    EXPECT_EQ(PointsOf(2).size(), 2U);
}

TEST_F(PriceEntryTest, PointCarriesTheFundNumberAndKonto) {
    ChooseFund(1);
    TypePrice("55");
    const auto rows = Window().FundDb->OpenRecordSet("SELECT * FROM PLOTTDATA WHERE XCord = 46342");
    ASSERT_EQ(rows->RecordCount(), 1);
    EXPECT_EQ(rows->At(0, 0).Text(), "468 024");
    EXPECT_EQ(rows->At(0, 2).Integer(), 10);
    EXPECT_EQ(rows->At(0, 3).Integer(), 2);
}

TEST_F(PriceEntryTest, PriceInsideTheScaleLeavesItAsItIs) {
    ChooseFund(0);
    TypePrice("114");
    EXPECT_EQ(Holding(0, 16), "1.2./15/-10");
    EXPECT_EQ(Window().Scale.top, 15);
}

TEST_F(PriceEntryTest, PriceAboveTheScaleWidensItAndTheFirstRowKeepsItsList) {
    ChooseFund(0);
    TypePrice("120");
    EXPECT_EQ(Holding(0, 16), "1.2./30/-20");
    EXPECT_EQ(Window().Scale.top, 30);
    EXPECT_EQ(Window().Scale.bottom, -20);
    EXPECT_EQ(Window().FundScale.top, 30);
    EXPECT_EQ(Caption(Window().lblVertical[6]), "30");
    EXPECT_EQ(DrawnScale(), (ScaleRange{30, -20}));
}

TEST_F(PriceEntryTest, PriceBelowTheScaleWidensItInAnotherRowWithoutAList) {
    ChooseFund(1);
    TypePrice("30");
    EXPECT_EQ(TodaysPoints(2), (std::vector<CurvePoint>{{kToday, -40}}));
    EXPECT_EQ(Holding(1, 16), "75/-50");
    EXPECT_EQ(Holding(0, 16), "1.2./15/-10");
    EXPECT_EQ(Caption(Window().lblVertical[1]), "-50");
}

TEST_F(PriceEntryTest, ScaleZoomedOutBeyondThePictureIsNotStored) {
    ChooseFund(1);
    while (Window().Scale.top <= 1000) Window().mnuMinus_Click();
    ASSERT_NE(Caption(Window().lblVertical[1]), std::to_string(Window().Scale.bottom));
    TypePrice("55");
    EXPECT_EQ(Holding(1, 16), "45/-30");
}

TEST_F(PriceEntryTest, AMistypedPriceThatIsCorrectedLeavesNoTraceInTheScale) {
    auto holdings = TwoHoldings();
    holdings[1].kursKr = 157.5;
    holdings[1].skala = "15/-10";
    holdings[1].points = {{46024, 0}};
    MakeFile(holdings);
    Start();
    ChooseFund(1);
    ExpectQuestion(Answer::Ok);
    TypePrice("1402,9");
    EXPECT_EQ(Holding(1, 16), "795/-530");
    EXPECT_EQ(DrawnScale(), (ScaleRange{795, -530}));
    TypePrice("190,29");
    EXPECT_EQ(Holding(1, 16), "30/-20");
    EXPECT_EQ(DrawnScale(), (ScaleRange{30, -20}));
    EXPECT_EQ(Window().Scale.top, 30);
    EXPECT_EQ(Window().FundScale.top, 30);
    EXPECT_EQ(Caption(Window().lblVertical[6]), "30");
    Window().imgScreen_Click();
    EXPECT_EQ(Window().AllScale.top, 30);
}

TEST_F(PriceEntryTest, ScaleThatIsZoomedOutIsNotTakenForTheStoredOne) {
    ChooseFund(0);
    Window().mnuMinus_Click();
    Window().mnuMinus_Click();
    ASSERT_EQ(Window().Scale.top, 45);
    TypePrice("120");
    EXPECT_EQ(Holding(0, 16), "1.2./30/-20");
    EXPECT_EQ(Window().FundScale.top, 30);
    EXPECT_EQ(DrawnScale(), (ScaleRange{30, -20}));
}

TEST_F(PriceEntryTest, PriceInsideAZoomedOutPictureLeavesTheZoom) {
    ChooseFund(0);
    Window().mnuMinus_Click();
    TypePrice("105");
    EXPECT_EQ(Holding(0, 16), "1.2./15/-10");
    EXPECT_EQ(DrawnScale(), (ScaleRange{30, -20}));
}

TEST_F(PriceEntryTest, NewDayNeverNarrowsTheStoredScale) {
    auto holdings = TwoHoldings();
    holdings[1].skala = "60/-40";
    MakeFile(holdings);
    Start();
    ChooseFund(1);
    TypePrice("55");
    EXPECT_EQ(Holding(1, 16), "60/-40");
}

TEST_F(PriceEntryTest, EveryDigitOfALargePriceIsKept) {
    auto holdings = TwoHoldings();
    holdings[1].kursKr = 500000;
    holdings[1].fondandelar = 100;
    MakeFile(holdings);
    Start();
    ChooseFund(1);
    TypePrice("524287,99");
    EXPECT_EQ(Status(4), "Senaste : 524287,99");
    EXPECT_EQ(Status(6), "52428799");
    EXPECT_EQ(Holding(1, 13), "Senaste : 524287,99");
    EXPECT_EQ(TodaysPoints(2), (std::vector<CurvePoint>{{kToday, 5}}));
}

TEST_F(PriceEntryTest, APriceAfterMidnightIsOfTheNewDay) {
    ChooseFund(0);
    TypePrice("105");
    SetToday(2026, 11, 17);
    TypePrice("107");
    EXPECT_EQ(PointsOf(1).back(), (CurvePoint{kToday + 1, 7}));
    EXPECT_EQ(TodaysPoints(1), (std::vector<CurvePoint>{{kToday, 5}}));
    EXPECT_EQ(Holding(0, 12), std::to_string(kToday + 1));
    EXPECT_EQ(Window().TodayDay, kToday + 1);
    EXPECT_EQ(Caption(Window().lblPanDatum), "Tisdag 17 November 2026");
    EXPECT_EQ(Caption(&Window()),
              "  Kvarnbo  Vimmels Asien Senaste uppdatering    Tisdag 17 November 2026");
}

TEST_F(PriceEntryTest, AQuestionThatStaysOpenOverMidnightKeepsTheDayOfEnter) {
    ChooseFund(0);
    outside.dialogs
        .Expect("Kontrollera din inmatning !\r\nmer än 200 % ökning ?", Buttons::OkCancel,
                Icon::Question)
        .Answer(Answer::Ok)
        .Meanwhile([this] {
            SetToday(2026, 11, 17);
            Window().BringTodayUpToDate();
        });
    TypePrice("301");
    EXPECT_EQ(TodaysPoints(1), (std::vector<CurvePoint>{{kToday, 201}}));
    EXPECT_EQ(Holding(0, 12), std::to_string(kToday));
}

TEST_F(PriceEntryTest, NewPointIsDrawnAtOnce) {
    ChooseFund(0);
    TypePrice("108");
    ASSERT_EQ(Window().picDiagram->Drawings().size(), 1U);
    const Drawing& curve = Window().picDiagram->Drawings()[0];
    EXPECT_DOUBLE_EQ(curve.line.back().x, kToday - Window().WindowStartDay);
    EXPECT_DOUBLE_EQ(curve.line.back().y, 8);
}

TEST_F(PriceEntryTest, SummaryIsShownStoredAndReadAgain) {
    ChooseFund(0);
    TypePrice("105");
    EXPECT_EQ(Window().ChangePercent, 5);
    EXPECT_EQ(Status(5), "5 %");
    EXPECT_EQ(Status(6), "1050");
    EXPECT_EQ(Caption(&Window()),
              "  Kvarnbo  Vimmels Asien Senaste uppdatering    Måndag 16 November 2026");
    EXPECT_EQ(Holding(0, 12), std::to_string(kToday));
    EXPECT_EQ(Holding(0, 13), "Senaste : 105,00");
    EXPECT_EQ(Holding(0, 14), "5 %");
    EXPECT_EQ(Holding(0, 15), "1050");
    ChooseFund(1);
    ChooseFund(0);
    EXPECT_EQ(Status(4), "Senaste : 105,00");
    EXPECT_EQ(Status(5), "5 %");
    EXPECT_EQ(Status(6), "1050");
    EXPECT_EQ(Caption(&Window()),
              "   Kvarnbo  Vimmels Asien Senaste uppdatering    Måndag 16 November 2026");
}

TEST_F(PriceEntryTest, HalvesGoToTheEvenPercent) {
    auto holdings = TwoHoldings();
    holdings[0].kursKr = 200;
    MakeFile(holdings);
    Start();
    ChooseFund(0);
    TypePrice("201");
    EXPECT_EQ(Status(5), "0 %");
    TypePrice("203");
    EXPECT_EQ(Status(5), "2 %");
    EXPECT_EQ(TodaysPoints(1), (std::vector<CurvePoint>{{kToday, 2}}));
}

TEST_F(PriceEntryTest, SummaryRowShowsNoValue) {
    auto holdings = TwoHoldings();
    holdings[1].fondNr = "999 999";
    MakeFile(holdings);
    Start();
    ChooseFund(1);
    TypePrice("55");
    EXPECT_EQ(Status(6), "-");
    EXPECT_EQ(Holding(1, 15), "-");
    EXPECT_EQ(Status(5), "10 %");
}

TEST_F(PriceEntryTest, ValueUsesThePresentSharesOfAHoldingThatChanged) {
    auto holdings = TwoHoldings();
    holdings[1].fondandelar = 30;
    holdings[1].sparadeVarden = "2026-01-02¶20,0000¶50¶1000¶";
    MakeFile(holdings);
    Start();
    ChooseFund(1);
    TypePrice("55");
    EXPECT_EQ(Status(6), "1650");
}

TEST_F(PriceEntryTest, StartPriceOfZeroIsRefused) {
    auto holdings = TwoHoldings();
    holdings[1].kursKr = 0;
    MakeFile(holdings);
    Start();
    ChooseFund(1);
    const std::string before = Bytes();
    outside.dialogs.Expect("Felaktig inmatning");
    TypePrice("55");
    EXPECT_EQ(Bytes(), before);
}

TEST_F(PriceEntryTest, FailureHalfWayLeavesTheFileAndTheTypedText) {
    ChooseFund(0);
    const std::string before = Bytes();
    const std::string caption = Caption(&Window());
    // Somebody else writes the file: it is not overwritten.
    std::filesystem::last_write_time(
        SamplePath(), std::filesystem::last_write_time(SamplePath()) + std::chrono::hours(1));
    outside.dialogs.Expect("Fel i SQLPlott");
    TypePrice("120");
    EXPECT_EQ(Price(), "120,00");
    EXPECT_EQ(Bytes(), before);
    EXPECT_EQ(Status(4), "Senaste : 110,00");
    EXPECT_EQ(Status(5), "10 %");
    EXPECT_EQ(Caption(&Window()), caption);
    EXPECT_EQ(Window().Scale.top, 15);
    EXPECT_TRUE(TodaysPoints(1).empty());
    std::ifstream log(Folder() / "FonderLogg.txt", std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(log)), {});
    EXPECT_EQ(text, "26-11-16\r\nFel i SQLPlott  3197\r\n");
}

TEST_F(PriceEntryTest, OpeningTheListClearsTheFundPanelAndThePrice) {
    ChooseFund(0);
    Window().txtValue->setFocus();
    Type("12");
    Click(Window().cmdFondList);
    EXPECT_FALSE(Window().panListFonder->isVisible());
    EXPECT_TRUE(Window().imgColor->isVisible());
    EXPECT_TRUE(Window().imgGrafNr->isVisible());
    Click(Window().cmdFondList);
    EXPECT_TRUE(Window().panListFonder->isVisible());
    EXPECT_EQ(Caption(Window().panListFonder), "Ny DagsKurs för...");
    EXPECT_EQ(Window().lstFonder->palette().color(QPalette::Text), QColor(128, 255, 128));
    EXPECT_EQ(Window().focusWidget(), Window().lstFonder);
    EXPECT_EQ(Price(), "");
    EXPECT_EQ(FraData(0), "");
    EXPECT_FALSE(Window().imgColor->isVisible());
    EXPECT_FALSE(Window().imgGrafNr->isVisible());
}

TEST_F(PriceEntryTest, ClosingTheListShowsTheModeButtons) {
    ASSERT_TRUE(Window().panListFonder->isVisible());
    ASSERT_FALSE(Window().imgColor->isVisible());
    ASSERT_FALSE(Window().imgGrafNr->isVisible());
    Click(Window().cmdFondList);
    EXPECT_FALSE(Window().panListFonder->isVisible());
    EXPECT_TRUE(Window().imgColor->isVisible());
    EXPECT_TRUE(Window().imgGrafNr->isVisible());
}

TEST_F(PriceEntryTest, OpeningTheListAfterAChoiceOfCurvesMakesItGreenAgain) {
    Press(Qt::Key_F11);
    Press(Qt::Key_F12);
    ASSERT_NE(Window().lstFonder->palette().color(QPalette::Text), QColor(128, 255, 128));
    Press(Qt::Key_F12);
    Press(Qt::Key_F11);
    EXPECT_EQ(Window().lstFonder->palette().color(QPalette::Text), QColor(128, 255, 128));
}

TEST_F(PriceEntryTest, FieldShowsItsFocusByColourAndShowsTheModeButtons) {
    const auto back = [&] { return Window().txtValue->palette().color(QPalette::Base); };
    EXPECT_EQ(back(), QColor(239, 239, 222));
    Window().txtValue->setFocus();
    EXPECT_EQ(back(), QColor(211, 240, 254));
    EXPECT_TRUE(Window().imgGrafNr->isVisible());
    EXPECT_TRUE(Window().imgColor->isVisible());
    Window().lstFonder->setFocus();
    EXPECT_EQ(back(), QColor(239, 239, 222));
}

TEST_F(PriceEntryTest, TabGoesFromTheListToThePriceAndBack) {
    Window().lstFonder->setFocus();
    Press(Qt::Key_Tab);
    EXPECT_EQ(Window().focusWidget(), Window().txtValue);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Window().focusWidget(), Window().lstFonder);
}

TEST_F(PriceEntryTest, AfterAStoredPriceTheNextFundIsOneKeyAway) {
    Window().lstFonder->setFocus();
    Press(Qt::Key_Return);
    Type("105");
    Press(Qt::Key_Return);
    Press(Qt::Key_Down);
    EXPECT_EQ(FraData(0), "468 024");
    Press(Qt::Key_Return);
    Type("55");
    Press(Qt::Key_Return);
    EXPECT_EQ(TodaysPoints(1).size(), 1U);
    EXPECT_EQ(TodaysPoints(2).size(), 1U);
}

TEST_F(PriceEntryTest, APriceTypedForAnotherFundIsNotTheNextOnes) {
    Window().lstFonder->setFocus();
    Press(Qt::Key_Return);
    Type("105");
    Press(Qt::Key_Tab);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(Price(), "");
    Type("55");
    EXPECT_EQ(Price(), "55");
}

TEST_F(PriceEntryTest, PriceGoesToTheOpenFundWhereverTheCurrentRowStands) {
    ChooseFund(1);
    Window().dtaBasData->MoveFirst();
    TypePrice("55");
    EXPECT_EQ(TodaysPoints(2).size(), 1U);
    EXPECT_TRUE(TodaysPoints(1).empty());
    EXPECT_EQ(Holding(1, 13), "Senaste : 55,00");
    EXPECT_EQ(Holding(0, 13), "Senaste : 110,00");
}

TEST_F(PriceEntryTest, FileIsSoundAfterManyPrices) {
    for (int i = 0; i < 10; ++i) {
        ChooseFund(i % 2);
        TypePrice(std::to_string(60 + i));
    }
    EXPECT_EQ(Faults(), std::vector<std::string>{});
}

TEST_F(PriceEntryTest, SaysWhatEnterWouldMakeOfThePriceWhileItIsTyped) {
    ChooseFund(0);
    Window().txtValue->setFocus();
    EXPECT_FALSE(Window().lblForhand->isVisible());
    Type("112");
    EXPECT_TRUE(Window().lblForhand->isVisible());
    EXPECT_EQ(Caption(Window().lblForhand), "112,00 kr = 12 %, +1,8 % sedan 110,00 (30 okt)");
    EXPECT_EQ(FromQt(Window().txtValue->accessibleDescription()), Caption(Window().lblForhand));
    EXPECT_FALSE(Window().lblForhand->autoFillBackground());
    Type("0");
    EXPECT_EQ(Caption(Window().lblForhand),
              "Stämmer det? 1120,00 kr = 1020 %, +918,2 % sedan 110,00 (30 okt)");
    EXPECT_TRUE(Window().lblForhand->autoFillBackground());
    for (int i = 0; i < 4; ++i) Press(Qt::Key_Backspace);
    EXPECT_FALSE(Window().lblForhand->isVisible());
}

TEST_F(PriceEntryTest, SaysNothingMoreOfAPriceThatIsStoredOrGone) {
    ChooseFund(0);
    TypePrice("112");
    EXPECT_FALSE(Window().lblForhand->isVisible());
    Window().txtValue->setFocus();
    Type("113");
    EXPECT_EQ(Caption(Window().lblForhand), "113,00 kr = 13 %, +0,9 % sedan 112,00 (idag)");
    ChooseFund(1);
    EXPECT_FALSE(Window().lblForhand->isVisible());
    EXPECT_EQ(Price(), "");
}

TEST_F(PriceEntryTest, NeverStopsWhoDoesNotReadWhatItSays) {
    ChooseFund(0);
    const std::string before = Bytes();
    Window().txtValue->setFocus();
    Type("20");
    EXPECT_TRUE(Window().lblForhand->autoFillBackground());
    EXPECT_EQ(Bytes(), before);
    Press(Qt::Key_Return);
    EXPECT_EQ(TodaysPoints(1), (std::vector<CurvePoint>{{kToday, -80}}));
}
