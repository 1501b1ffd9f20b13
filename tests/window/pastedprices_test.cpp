// A column of prices pasted into the page of the day's round.

#include "tests/window/dayprices.h"

using PastedPricesTest = DayPricesTest;

TEST_F(PastedPricesTest, APastedColumnIsShownFirstAndStoredAfterOneEnter) {
    Open();
    const std::string before = Bytes();
    Paste("Fond 3\t113\r\nfond 1\t111,5\r\nOkänd fond\t12\r\nFond 2\tabc\r\nFond 4\t1200\r\n");
    EXPECT_EQ(Bytes(), before);
    EXPECT_EQ(Rows(), 5U);
    EXPECT_EQ(Cell(0, 1), "Fond 3");
    EXPECT_EQ(Cell(0, kPriceColumn), "113,00");
    EXPECT_EQ(Cell(0, kChangeColumn), "13 %, +2,7 %");
    EXPECT_EQ(Cell(1, kPriceColumn), "111,50");
    EXPECT_EQ(Cell(2, 1), "Okänd fond");
    EXPECT_EQ(Cell(2, kChangeColumn), "Sparas inte: ingen fond heter så");
    EXPECT_EQ(Cell(3, kChangeColumn), "Sparas inte: ingen kurs");
    EXPECT_EQ(Cell(4, kChangeColumn), "Sparas inte: mer än 1000 % ökning");
    EXPECT_EQ(Note(), "Enter sparar 2 kurser. 3 rader sparas inte. Esc ångrar.");
    EXPECT_TRUE(Window().grdKurser->hasFocus());
    Press(Qt::Key_Return);
    EXPECT_EQ(Rows(), 10U);
    EXPECT_EQ(Done(), "2 av 10 klara");
    EXPECT_EQ(Holding(2, 13), "Senaste : 113,00");
    EXPECT_EQ(Holding(0, 13), "Senaste : 111,50");
    EXPECT_EQ(TodaysPoints(), 2);
    EXPECT_TRUE(Window().txtNyKurs->hasFocus());
    EXPECT_TRUE(Faults().empty());
}

TEST_F(PastedPricesTest, PricesWithoutNamesAreForTheHoldingsFromTheFieldOn) {
    Open();
    Press(Qt::Key_Down);
    Paste("112\n\n114\n");
    EXPECT_EQ(Cell(0, 1), "Fond 2");
    EXPECT_EQ(Cell(1, 1), "Fond 4");
    Press(Qt::Key_Return);
    EXPECT_EQ(Holding(1, 13), "Senaste : 112,00");
    EXPECT_EQ(Holding(2, 13), "Senaste : 110,00");
    EXPECT_EQ(Holding(3, 13), "Senaste : 114,00");
}

TEST_F(PastedPricesTest, EscGivesAPastedColumnUpAndWhatWasTypedIsStillThere) {
    Open();
    Type("11");
    const std::string before = Bytes();
    Paste("111\n112");
    Press(Qt::Key_Escape);
    EXPECT_TRUE(Shown());
    EXPECT_EQ(Rows(), 10U);
    EXPECT_EQ(Field(), "11");
    EXPECT_EQ(Bytes(), before);
    Press(Qt::Key_End);
    Paste("3,5 kr");
    EXPECT_EQ(Field(), "113,5") << "one price goes into the field";
}

TEST_F(PastedPricesTest, APastedPriceAsksAsATypedOneDoes) {
    Open();
    Paste("Fond 1\t301\nFond 2\t112");
    EXPECT_EQ(Cell(0, kChangeColumn), "Stämmer det? mer än 200 % ökning");
    outside.dialogs
        .Expect("Kontrollera din inmatning !\r\nmer än 200 % ökning ?", Buttons::OkCancel,
                Icon::Question)
        .Answer(Answer::Cancel);
    Press(Qt::Key_Return);
    EXPECT_EQ(Holding(0, 13), "Senaste : 110,00");
    EXPECT_EQ(Holding(1, 13), "Senaste : 112,00");
}
