// The page of the day's round, by keys and mouse.

#include "tests/window/dayprices.h"

#include "jet/database.h"
#include "widgets/diagramview.h"

#include <QAction>
#include <QRect>

#include <chrono>
#include <filesystem>
#include <string>

TEST_F(DayPricesTest, F6ShowsAllHoldingsAndTheFieldStandsInTheFirst) {
    Open();
    EXPECT_TRUE(Shown());
    EXPECT_EQ(FromQt(Window().panKurser->title()), "Dagens kurser  Måndag 16 November 2026");
    EXPECT_EQ(Rows(), 10U);
    EXPECT_EQ(Done(), "0 av 10 klara");
    EXPECT_TRUE(Window().txtNyKurs->hasFocus());
    EXPECT_EQ(Row(), 0);
    EXPECT_EQ(Cell(0, 1), "Fond 1");
    EXPECT_EQ(Cell(0, 3), "110,00");
    EXPECT_EQ(Cell(0, 4), "2026-10-30");
    EXPECT_EQ(Cell(0, kPriceColumn), "");
    EXPECT_EQ(FromQt(Window().txtNyKurs->accessibleName()),
              "Ny kurs för Fond 1, senaste 110,00 2026-10-30");
    const QRect cell = Window().grdKurser->CellArea(0, kPriceColumn);
    EXPECT_EQ(Window().txtNyKurs->geometry(), cell);
}

TEST_F(DayPricesTest, TheMenuLeadsThereToo) {
    Window().mnuKurser->trigger();
    EXPECT_TRUE(Shown());
}

TEST_F(DayPricesTest, ARoundOfTenTakesOneKeyAFundBesideTheDigits) {
    Open();
    int keys = 0;
    for (int fund = 0; fund < 10; ++fund) {
        Type("112,5");
        Press(Qt::Key_Return);
        ++keys;
    }
    EXPECT_EQ(keys, 10);
    EXPECT_EQ(TodaysPoints(), 10);
    EXPECT_EQ(Done(), "10 av 10 klara");
    for (int fund = 0; fund < 10; ++fund) {
        EXPECT_EQ(Cell(fund, kPriceColumn), "112,50");
        EXPECT_EQ(Cell(fund, kChangeColumn), "+2,3 %");
        EXPECT_EQ(Holding(fund, 13), "Senaste : 112,50");
        EXPECT_EQ(Holding(fund, 14), "12 %");
        EXPECT_EQ(Holding(fund, 12), "46342");
    }
    EXPECT_TRUE(Faults().empty());
}

// Through the price field and through the page: the same rows and points, byte for byte of text.
TEST_F(DayPricesTest, StoresWhatThePriceFieldWouldHaveStored) {
    const auto rows = [this] {
        std::string all;
        for (int row = 0; row < 2; ++row) {
            for (std::size_t column = 1; column < 18; ++column) all += Holding(row, column) + "|";
        }
        for (const CurvePoint& point : PointsOf(1)) all += std::to_string(point.value) + ";";
        for (const CurvePoint& point : PointsOf(2)) all += std::to_string(point.value) + ";";
        return all;
    };
    MakeFile(TwoHoldings());
    Start();
    for (const int fund : {0, 1}) {
        ChooseFund(fund);
        TypePrice("149,995");
    }
    const std::string byField = rows();
    MakeFile(TwoHoldings());
    Start();
    Open();
    TypeAndEnter("149.995");
    TypeAndEnter("149,995");
    EXPECT_EQ(rows(), byField);
}

TEST_F(DayPricesTest, AsksAndRefusesAsThePriceFieldDoes) {
    Open();
    const std::string before = Bytes();
    outside.dialogs.Expect("Felaktig inmatning");
    TypeAndEnter("0");
    EXPECT_EQ(Field(), "");
    EXPECT_EQ(Row(), 0);
    outside.dialogs
        .Expect("Kontrollera din inmatning !\r\nmer än 200 % ökning ?", Buttons::OkCancel,
                Icon::Question)
        .Answer(Answer::Cancel);
    TypeAndEnter("301");
    EXPECT_EQ(Field(), "");
    outside.dialogs
        .Expect("Kontrollera din inmatning !\r\nmer än 200 % ökning ?", Buttons::OkCancel,
                Icon::Question)
        .Answer(Answer::Ok);
    outside.dialogs.Expect("Mer än 1000 % ökning\r\nEj tillåtet", Buttons::Ok, Icon::Exclamation);
    TypeAndEnter("1101");
    EXPECT_EQ(Bytes(), before);
    outside.dialogs
        .Expect("Kontrollera din inmatning !\r\nmer än 200 % ökning ?", Buttons::OkCancel,
                Icon::Question)
        .Answer(Answer::Ok);
    TypeAndEnter("301");
    EXPECT_EQ(Row(), 1);
    EXPECT_EQ(TodaysPoints(), 1);
}

TEST_F(DayPricesTest, SaysOfATypedPriceWhatEnterWouldMakeOfIt) {
    Open();
    Type("112");
    EXPECT_EQ(Note(), "112,00 kr = 12 %, +1,8 % sedan 110,00 (30 okt)");
    EXPECT_FALSE(Window().lblKursBesked->autoFillBackground());
    EXPECT_EQ(FromQt(Window().txtNyKurs->accessibleDescription()), Note());
    Type("0");
    EXPECT_TRUE(Window().lblKursBesked->autoFillBackground());
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Return);
    EXPECT_EQ(Note(), "");
}

TEST_F(DayPricesTest, UpAndTabLeadBackToAPriceThatIsMended) {
    Open();
    TypeAndEnter("112");
    TypeAndEnter("113");
    Press(Qt::Key_Up);
    EXPECT_EQ(Row(), 1);
    EXPECT_EQ(Field(), "113,00");
    EXPECT_TRUE(Window().txtNyKurs->hasSelectedText());
    TypeAndEnter("114");
    EXPECT_EQ(Row(), 2);
    EXPECT_EQ(Cell(1, kPriceColumn), "114,00");
    EXPECT_EQ(Cell(1, kChangeColumn), "+3,6 %") << "since the price before the round";
    EXPECT_EQ(PointsOf(2).back().value, 14);
    EXPECT_EQ(TodaysPoints(), 2);
    QTest::keyClick(Window().txtNyKurs, Qt::Key_Backtab);
    EXPECT_EQ(Row(), 1);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Row(), 2);
    const std::string before = Bytes();
    Press(Qt::Key_Up);
    Press(Qt::Key_Return);
    EXPECT_EQ(Row(), 2) << "a price that is left as it stands is not stored again";
    EXPECT_EQ(Bytes(), before);
}

TEST_F(DayPricesTest, EnterInAnEmptyFieldLeavesTheHoldingOut) {
    Open();
    const std::string before = Bytes();
    Press(Qt::Key_Return);
    EXPECT_EQ(Row(), 1);
    EXPECT_EQ(Bytes(), before);
    for (int i = 0; i < 20; ++i) Press(Qt::Key_Down);
    EXPECT_EQ(Row(), 9);
    Press(Qt::Key_PageUp);
    EXPECT_EQ(Row(), 0);
}

TEST_F(DayPricesTest, AClickOnALineLeadsThere) {
    Open();
    const QRect cell = Window().grdKurser->CellArea(3, 1);
    QTest::mouseClick(Window().grdKurser->viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(Row(), 3);
    EXPECT_TRUE(Window().txtNyKurs->hasFocus());
    TypeAndEnter("101");
    EXPECT_EQ(Holding(3, 13), "Senaste : 101,00");
}

TEST_F(DayPricesTest, F6AgainHidesWhatIsDoneAndShowsItAgain) {
    Open();
    TypeAndEnter("112");
    Press(Qt::Key_F6);
    EXPECT_EQ(Rows(), 9U);
    EXPECT_EQ(Cell(0, 1), "Fond 2");
    EXPECT_EQ(Row(), 0);
    TypeAndEnter("113");
    EXPECT_EQ(Rows(), 8U);
    EXPECT_EQ(Cell(Row(), 1), "Fond 3") << "the next one took its place";
    EXPECT_EQ(Done(), "2 av 10 klara");
    for (int i = 0; i < 8; ++i) TypeAndEnter("114");
    EXPECT_EQ(Rows(), 0U);
    EXPECT_EQ(Done(), "10 av 10 klara");
    Type("1");
    Press(Qt::Key_Return);
    Press(Qt::Key_F6);
    EXPECT_EQ(Rows(), 10U);
    EXPECT_EQ(TodaysPoints(), 10);
}

TEST_F(DayPricesTest, TheFieldComesUpAtTheFirstHoldingWithoutAPrice) {
    ChooseFund(0);
    TypePrice("105");
    Open();
    EXPECT_EQ(Row(), 1);
    EXPECT_EQ(Done(), "1 av 10 klara");
    EXPECT_EQ(Cell(0, kPriceColumn), "105,00");
    EXPECT_EQ(Cell(0, kChangeColumn), "5 % sedan start");
}

TEST_F(DayPricesTest, WhatIsTypedStaysWithItsHoldingWhateverCoversThePage) {
    Open();
    Type("11");
    Press(Qt::Key_Down);
    EXPECT_EQ(Cell(0, kPriceColumn), "11");
    EXPECT_EQ(Cell(0, kChangeColumn), "inte sparad");
    Type("12");
    const std::string before = Bytes();
    Press(Qt::Key_F11);
    EXPECT_FALSE(Shown());
    EXPECT_TRUE(Window().panListFonder->isVisible());
    Press(Qt::Key_F6);
    EXPECT_EQ(Row(), 0);
    EXPECT_EQ(Field(), "11");
    Press(Qt::Key_Down);
    EXPECT_EQ(Field(), "12");
    EXPECT_EQ(Bytes(), before);
    Press(Qt::Key_Escape);
    EXPECT_EQ(Field(), "") << "given up";
    EXPECT_TRUE(Shown());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Shown());
    EXPECT_EQ(Bytes(), before);
}

TEST_F(DayPricesTest, ClosingAsksForWhatIsTypedAndNotStored) {
    Open();
    Type("112");
    Press(Qt::Key_F11);
    outside.dialogs
        .Expect(
            "Det här är inte sparat:\r\n\r\nKursen 112 för Fond 1\r\n\r\n"
            "Vill du gå vidare utan det ?",
            Buttons::YesNo, Icon::Question, DefaultButton::Second)
        .Answer(Answer::No);
    CloseWindow();
    EXPECT_TRUE(Window().isVisible());
    EXPECT_TRUE(Shown());
    EXPECT_TRUE(Window().txtNyKurs->hasFocus());
    EXPECT_EQ(Field(), "112");
    Press(Qt::Key_Return);
    EXPECT_EQ(TodaysPoints(), 1);
    CloseWindow();
    EXPECT_FALSE(Window().isVisible());
}

TEST_F(DayPricesTest, APriceThatCannotBeStoredStays) {
    Open();
    Type("112");
    // Somebody else has written the file meanwhile.
    const auto written = std::filesystem::last_write_time(SamplePath());
    std::filesystem::last_write_time(SamplePath(), written + std::chrono::hours(1));
    outside.dialogs.Expect("Fel i SQLPlott");
    Press(Qt::Key_Return);
    EXPECT_EQ(Row(), 0);
    EXPECT_EQ(Field(), "112,00");
    EXPECT_EQ(Window().round.typed.at(1).text, "112,00");
}

TEST_F(DayPricesTest, EscLeadsBackToTheDiagramWithTheNewPoints) {
    ChooseFund(2);
    Open();
    for (const char* price : {"112", "113", "150"}) TypeAndEnter(price);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Shown());
    EXPECT_TRUE(Window().picDiagram->hasFocus());
    EXPECT_EQ(Status(4), "Senaste : 150,00") << "the open holding's summary has followed";
    EXPECT_EQ(Window().Scale.top, 60);
    ASSERT_EQ(Window().picDiagram->Drawings().size(), 1U);
}

TEST_F(DayPricesTest, ThePriceIsOfTheDayOnWhichEnterIsPressed) {
    Open();
    TypeAndEnter("112");
    Type("113");
    SetToday(2026, 11, 17);
    Press(Qt::Key_Return);
    EXPECT_EQ(PointsOf(2).back(), (CurvePoint{kRoundDay + 1, 13}));
    EXPECT_EQ(Done(), "1 av 10 klara");
    EXPECT_EQ(FromQt(Window().panKurser->title()), "Dagens kurser  Tisdag 17 November 2026");
}

TEST_F(DayPricesTest, WithoutAHoldingThereIsNoPage) {
    MakeFile({});
    Start();
    Press(Qt::Key_F6);
    EXPECT_FALSE(Shown());
}

TEST_F(DayPricesTest, AnotherFileTakesAlongNothingOfThePage) {
    WriteFundFile(Folder() / "andra.mdb", TwoHoldings());
    Open();
    TypeAndEnter("112");
    outside.dialogs.ExpectFile(FileChoice::Open, "      Öppna FondFil")
        .Pick((Folder() / "andra.mdb").string());
    Window().mnuOpen->trigger();
    EXPECT_FALSE(Shown());
    Open();
    EXPECT_EQ(Rows(), 2U);
    EXPECT_EQ(Done(), "0 av 2 klara");
}

TEST_F(DayPricesTest, FollowsAPriceThatIsStoredThroughThePriceField) {
    ChooseFund(1);
    Open();
    TypePrice("105");
    EXPECT_TRUE(Shown());
    EXPECT_EQ(Done(), "1 av 10 klara");
    EXPECT_EQ(Cell(1, kPriceColumn), "105,00");
}
