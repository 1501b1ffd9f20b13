// The totals of an account, in the panel and as the report's line.

#include "platform/datasource.h"
#include "tests/window/windowtest.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>

namespace {

TestHolding Row(const char* account, const char* procent, const char* kursVarde, double varde) {
    TestHolding holding;
    holding.namn = account;
    holding.procent = procent;
    holding.kursVarde = kursVarde;
    holding.vardeKr = varde;
    return holding;
}

class TotalsTest : public WindowTest {
  protected:
    void StartWith(std::vector<TestHolding> holdings) {
        if (!holdings.empty()) holdings[0].skala = "./15/-10";
        MakeFile(holdings);
        Start();
        Window().mnuTotal->trigger();
    }
    std::vector<std::string> Accounts() {
        std::vector<std::string> names;
        for (int i = 0; i < Window().lstTotal->count(); ++i) {
            names.push_back(FromQt(Window().lstTotal->item(i)->text()));
        }
        return names;
    }
    std::string Choose(int row) {
        QListWidget& list = *Window().lstTotal;
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                          list.visualItemRect(list.item(row)).center());
        return Caption(Window().lblTotal);
    }
    static std::string Panel(const std::string& name, const std::string& start,
                             const std::string& latest) {
        return name + "\r\n\r\nStartvärde\r\n\r\n" + start +
               "  kr\r\n\r\nSenaste Totalvärde\r\n\r\n" + latest + "   kr";
    }
};

}  // namespace

TEST_F(TotalsTest, ListsEveryAccountOnceInTheOrderOfTheRows) {
    StartWith({Row("Beta", "1", "1", 1), Row(" Alfa ", "1", "1", 1), Row("Beta", "1", "1", 1),
               Row("Alfa", "1", "1", 1), Row("alfa", "1", "1", 1), Row("", "1", "1", 1)});
    EXPECT_EQ(Accounts(), (std::vector<std::string>{"Beta", "Alfa", "alfa"}));
    EXPECT_TRUE(Window().panTotal->isVisible());
    EXPECT_EQ(Window().focusWidget(), Window().lstTotal);
    EXPECT_EQ(Caption(Window().lblTotal), "") << "nothing is chosen by filling the list";
}

TEST_F(TotalsTest, SumsStartAndLatestValues) {
    StartWith(
        {Row("A", "10 %", "1100", 1000.25), Row("B", "0 %", "5", 5), Row("A", "20 %", "240", 200)});
    EXPECT_EQ(Choose(0), Panel("A", "1200,25", "1340,00"));
    EXPECT_EQ(Choose(1), Panel("B", "5,00", "5,00"));
}

TEST_F(TotalsTest, AccountWithoutRowsShowsZero) {
    StartWith({Row("A", "10 %", "1100", 1000)});
    Window().lstTotal->addItem(QStringLiteral("Borta"));
    EXPECT_EQ(Choose(1), Panel("Borta", "0,00", "0,00"));
    EXPECT_EQ(Window().BuildAccountTotals("Borta"),
              "Borta/Startvärde/0 kr/Senaste Totalvärde/0 kr/0 %");
}

TEST_F(TotalsTest, NamesThatDifferOnlyInBlanksAroundThemAreOneAccount) {
    StartWith({Row("Alfa", "1", "1", 1), Row("  Alfa", "1", "1", 1), Row("Alfa ", "1", "1", 1)});
    EXPECT_EQ(Accounts(), std::vector<std::string>{"Alfa"});
}

TEST_F(TotalsTest, NamesThatDifferInLetterCaseAreTwoAccounts) {
    StartWith({Row("Alfa", "1", "1", 1), Row("ALFA", "1", "1", 1)});
    EXPECT_EQ(Accounts(), (std::vector<std::string>{"Alfa", "ALFA"}));
}

TEST_F(TotalsTest, SummaryRowAloneSpeaksForTheAccountInThePanel) {
    TestHolding summary = Row("A", "7 %", "-", 3);
    summary.fondNr = "999 999";
    summary.kursKr = 500;
    summary.senasteKurs = "2026-02-24:1234,5";
    StartWith({summary, Row("A", "9 %", "100", 50)});
    EXPECT_EQ(Choose(0), Panel("A", "500,00", "1234,50"));
}

TEST_F(TotalsTest, ReportSumsTheSummaryRowLikeAnyOther) {
    TestHolding summary = Row("A", "7 %", "-", 3);
    summary.fondNr = "999 999";
    summary.kursKr = 500;
    summary.senasteKurs = "2026-02-24:1234,5";
    StartWith({summary, Row("A", "9 %", "100", 50)});
    EXPECT_EQ(Window().BuildAccountTotals("A"), "A/Startvärde/53 kr/Senaste Totalvärde/100 kr/8 %");
}

TEST_F(TotalsTest, SummaryRowWithoutAColonHasNoLatestTotal) {
    TestHolding summary = Row("A", "7 %", "-", 3);
    summary.fondNr = "999 999";
    summary.kursKr = 500;
    summary.senasteKurs = "1234,5";
    StartWith({summary});
    EXPECT_EQ(Choose(0), Panel("A", "500,00", "0,00"));
}

TEST_F(TotalsTest, PercentsAreRoundedRowByRow) {
    StartWith({Row("A", "2.5", "0", 0), Row("A", "2.5", "0", 0), Row("A", "1", "0", 0)});
    EXPECT_EQ(Window().BuildAccountTotals("A"), "A/Startvärde/0 kr/Senaste Totalvärde/0 kr/1 %");
}

TEST_F(TotalsTest, NegativeMeanIsTruncatedTowardZero) {
    StartWith({Row("A", "-3 %", "0", 0), Row("A", "-4 %", "0", 0)});
    EXPECT_EQ(Window().BuildAccountTotals("A"), "A/Startvärde/0 kr/Senaste Totalvärde/0 kr/-3 %");
}

TEST_F(TotalsTest, ReportLineShowsPlainNumbers) {
    StartWith({Row("Konto A", "7 %", "11020", 10234.5)});
    EXPECT_EQ(Window().BuildAccountTotals("Konto A"),
              "Konto A/Startvärde/10234,5 kr/Senaste Totalvärde/11020 kr/7 %");
}

TEST_F(TotalsTest, ApostropheInTheNameBreaksTheQueryAndShowsZeros) {
    StartWith({Row("Anna's", "7 %", "100", 100)});
    EXPECT_EQ(Choose(0), Panel("Anna's", "0,00", "0,00"));
    EXPECT_THROW(Window().BuildAccountTotals("Anna's"), Error);
}

TEST_F(TotalsTest, AnAmountThatCannotBeAddedLeavesTheOthersInTheSum) {
    StartWith({Row("A", "1 %", "100", 10), Row("A", "1 %", std::string(39, '9').c_str(), 20),
               Row("A", "1 %", "300", 30)});
    EXPECT_EQ(Choose(0), Panel("A", "60,00", "400,00"));
}

TEST_F(TotalsTest, ClickOnTheResultClearsIt) {
    StartWith({Row("A", "7 %", "100", 100)});
    ASSERT_NE(Choose(0), "");
    Click(Window().lblTotal);
    EXPECT_EQ(Caption(Window().lblTotal), "");
    EXPECT_EQ(Choose(0), Panel("A", "100,00", "100,00")) << "choosing it again shows it again";
}

TEST_F(TotalsTest, OpenedAgainTheListIsFilledAnew) {
    StartWith({Row("A", "7 %", "100", 100), Row("B", "7 %", "100", 100)});
    Window().mnuTotal->trigger();
    EXPECT_EQ(Accounts(), (std::vector<std::string>{"A", "B"}));
}

TEST_F(TotalsTest, FillingTheListLeavesTheFirstHoldingCurrent) {
    StartWith({Row("A", "7 %", "100", 100), Row("B", "7 %", "100", 100)});
    Window().dtaBasData->MoveLast();
    Window().mnuTotal->trigger();
    EXPECT_EQ(Window().dtaBasData->Position(), 0);
}

TEST_F(TotalsTest, AfterwardsTheQuerySourceIsEmpty) {
    StartWith({Row("A", "7 %", "100", 100)});
    Choose(0);
    EXPECT_FALSE(Window().dtaSQL->IsAttached());
    Window().BuildAccountTotals("A");
    EXPECT_FALSE(Window().dtaSQL->IsAttached());
}

TEST_F(TotalsTest, ChoosingAnAccountShowsTheResult) {
    StartWith({Row("A", "7 %", "100", 100)});
    Window().lblTotal->hide();
    Choose(0);
    EXPECT_TRUE(Window().lblTotal->isVisible());
}

TEST_F(TotalsTest, EmptyFileHasNoAccounts) {
    StartWith({});
    EXPECT_TRUE(Accounts().empty());
    EXPECT_TRUE(Window().panTotal->isVisible());
}

TEST_F(TotalsTest, TakesThePlaceOfTheFundListAndGivesItBack) {
    StartWith({Row("A", "7 %", "100", 100), Row("B", "7 %", "100", 100)});
    EXPECT_FALSE(Window().panListFonder->isVisible());
    Press(Qt::Key_F11);
    EXPECT_TRUE(Window().panListFonder->isVisible());
    EXPECT_FALSE(Window().panTotal->isVisible());
}

TEST_F(TotalsTest, TakesThePlaceOfThePlotData) {
    StartWith({Row("A", "7 %", "100", 100)});
    Window().mnuPEdit->trigger();
    EXPECT_FALSE(Window().panTotal->isVisible());
    Window().mnuTotal->trigger();
    EXPECT_FALSE(Window().panPlottData->isVisible());
    EXPECT_TRUE(Window().panTotal->isVisible());
}

TEST_F(TotalsTest, EscapeClosesThePanel) {
    StartWith({Row("A", "7 %", "100", 100)});
    Choose(0);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Window().panTotal->isVisible());
    EXPECT_EQ(Caption(Window().lblTotal), "");
}
