#include "entry/texts.h"
#include "fundfile/schema.h"
#include "tests/window/windowtest.h"
#include "widgets/boundfield.h"
#include "widgets/datagrid.h"

#include <QApplication>
#include <QClipboard>
#include <QColor>
#include <QGroupBox>
#include <QGuiApplication>
#include <QKeySequence>
#include <QPalette>
#include <QTableView>

namespace {

using namespace schema::holding;

class NewSharesTest : public WindowTest {
  protected:
    enum { Fond, FondNr, Datum, Andelar, Kurs, Varde, Andel };

    void StartWith(const std::string& saved) {
        std::vector<TestHolding> holdings(2);
        holdings[1].fond = "Rusken Kina";
        holdings[1].sparadeVarden = saved;
        MakeFile(holdings);
        Start();
        Click(Window().cmdPPMData);
        Window().DBGrid->setFocus();
        QTableView& view = Window().DBGrid->View();
        view.setCurrentIndex(view.model()->index(1, 0));
    }
    void OpenRow(Answer answer = Answer::Yes) {
        outside.dialogs
            .Expect(texts::AskNewShares, Buttons::YesNo, Icon::Information, DefaultButton::Second)
            .Answer(answer);
        Click(Window().cmdNyAndel);
    }
    void Keys(const std::string& text) {
        QTest::keyClicks(QApplication::focusWidget(), ToQt(text));
    }
    void Key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    BoundField& Box(int index) { return *Window().txtNyAndel[index]; }
    void Fill(int index, const std::string& text) {
        Box(index).setFocus();
        Box(index).selectAll();
        Key(Qt::Key_Backspace);
        Keys(text);
    }
    void FillAll() {
        Fill(Datum, "2026-02-16");
        Fill(Andelar, "10");
        Fill(Kurs, "123.4567");
        Fill(Andel, "33");
    }
    bool RowOpen() {
        bool all = Window().cmdNyOk->isVisible() && !Window().cmdNyAndel->isVisible();
        for (int i = 0; i <= 6; ++i) all = all && Box(i).isVisible();
        return all;
    }
    bool RowClosed() {
        bool any = Window().cmdNyOk->isVisible() || !Window().cmdNyAndel->isVisible();
        for (int i = 0; i <= 6; ++i) any = any || Box(i).isVisible();
        return !any;
    }
};

TEST_F(NewSharesTest, TheExplanationIsShownToTheLetter) {
    StartWith("x");
    outside.dialogs
        .Expect(
            "Den här funktionen skall du bara använda\r\nnär du fått meddeland om Nya Andelar "
            "för\r\n"
            "Fond som redan finns här ovan\r\n\r\nDessa meddelande kommer normalt i "
            "Februari\r\n\r\n"
            "Nya Fonder skriver du direkt i boxen ovan\r\n\r\n"
            "Vill du ändra Datum, Andelar, Kurs Kr, Andel% ?",
            Buttons::YesNo, Icon::Information, DefaultButton::Second)
        .Answer(Answer::No);
    Click(Window().cmdNyAndel);
    EXPECT_TRUE(RowClosed());
    EXPECT_TRUE(Window().DBGrid->hasFocus());
}

TEST_F(NewSharesTest, YesOpensTheRowOnTheCurrentHolding) {
    StartWith("x");
    EXPECT_TRUE(RowClosed());
    OpenRow();
    EXPECT_TRUE(RowOpen());
    EXPECT_EQ(QApplication::focusWidget(), &Box(Datum));
    EXPECT_EQ(Caption(&Box(Fond)), "Rusken Kina");
    EXPECT_EQ(Caption(&Box(Kurs)), "100");
}

TEST_F(NewSharesTest, APointBecomesACommaAndLettersAreDropped) {
    StartWith("x");
    OpenRow();
    for (int i = Datum; i <= Andel; ++i) {
        Fill(i, "a12.5");
        EXPECT_EQ(Caption(&Box(i)), "12,5") << i;
    }
}

TEST_F(NewSharesTest, TheHoldingsNameAndNumberTakeNoTyping) {
    StartWith("x");
    OpenRow();
    for (const int i : {Fond, FondNr}) {
        const std::string before = Caption(&Box(i));
        Fill(i, "7");
        EXPECT_EQ(Caption(&Box(i)), before);
        QGuiApplication::clipboard()->setText(QStringLiteral("7"));
        Key(Qt::Key_End);
        QTest::keySequence(&Box(i), QKeySequence::Paste);
        EXPECT_EQ(Caption(&Box(i)), before);
        Box(i).selectAll();
        QTest::keySequence(&Box(i), QKeySequence::Copy);
        EXPECT_EQ(FromQt(QGuiApplication::clipboard()->text()), before);
    }
}

TEST_F(NewSharesTest, NumbersArePastedAsTheyWouldBeTyped) {
    StartWith("x");
    OpenRow();
    const struct {
        int box;
        const char *copied, *pasted;
    } rows[] = {{Datum, "2026/02/16\n", "2026-02-16"},
                {Andelar, "1 234.5678 st", "1234,5678"},
                {Kurs, "1 12,50", ""},
                {Kurs, "524 287,99 kr", "524287,99"},
                {Andel, "33 %", "33"}};
    for (const auto& row : rows) {
        Fill(row.box, "");
        QGuiApplication::clipboard()->setText(ToQt(row.copied));
        QTest::keySequence(&Box(row.box), QKeySequence::Paste);
        EXPECT_EQ(Caption(&Box(row.box)), row.pasted) << row.copied;
    }
}

TEST_F(NewSharesTest, LosesNoDigitOfTheSharesAndThePrice) {
    StartWith("x");
    OpenRow();
    FillAll();
    Fill(Andelar, "1234,5678");
    Fill(Kurs, "524287,99");
    Click(Window().cmdNyOk);
    EXPECT_EQ(Holding(1, kFondandelar), "1234.5678");
    EXPECT_EQ(Holding(1, kKursKr), "524287.99");
}

TEST_F(NewSharesTest, EnterMovesToTheNextBox) {
    StartWith("x");
    OpenRow();
    for (int i = Datum; i < Andel; ++i) {
        EXPECT_EQ(QApplication::focusWidget(), &Box(i));
        Key(Qt::Key_Return);
    }
    Key(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), Window().cmdNyOk);
}

TEST_F(NewSharesTest, TheValueIsSharesTimesPriceWhenTheFocusComes) {
    StartWith("x");
    OpenRow();
    Fill(Andelar, "10");
    Fill(Kurs, "123.4567");
    SetCaption(&Box(Varde), "7");
    Key(Qt::Key_Return);
    EXPECT_EQ(Caption(&Box(Varde)), "1234,57");
}

TEST_F(NewSharesTest, TheValueIsLeftWhileAFactorIsMissing) {
    StartWith("x");
    OpenRow();
    Fill(Andelar, "");
    SetCaption(&Box(Varde), "7");
    Box(Varde).setFocus();
    EXPECT_EQ(Caption(&Box(Varde)), "7");
}

TEST_F(NewSharesTest, TheValueIsLeftWhileAFactorIsNoNumber) {
    StartWith("x");
    OpenRow();
    Fill(Andelar, "-");
    SetCaption(&Box(Varde), "7");
    Box(Varde).setFocus();
    EXPECT_EQ(Caption(&Box(Varde)), "7");
}

TEST_F(NewSharesTest, OkWritesTheNoticeOverTheHoldingAndKeepsTheOldValuesOnce) {
    StartWith("x");
    OpenRow();
    FillAll();
    Click(Window().cmdNyOk);
    EXPECT_EQ(Holding(1, kBokfortDatum), "2026-02-16");
    EXPECT_EQ(Holding(1, kFondandelar), "10");
    EXPECT_EQ(Holding(1, kKursKr), "123.4567");
    EXPECT_EQ(Holding(1, kVardeKr), "1234.567");
    EXPECT_EQ(Holding(1, kAndel), "33");
    EXPECT_EQ(Holding(1, kSparadeVarden), "2026-01-02¶10¶100¶1000¶");
    EXPECT_EQ(Holding(0, kKursKr), "100");
    EXPECT_EQ(Holding(0, kSparadeVarden), "x");
    EXPECT_TRUE(RowClosed());
    EXPECT_TRUE(Window().DBGrid->hasFocus());
    EXPECT_EQ(Window().DBGrid->CellText(1, Kurs), "123,4567");
    for (int i = 0; i <= 6; ++i) EXPECT_EQ(Caption(&Box(i)), "") << i;

    OpenRow();
    Fill(Kurs, "200");
    Click(Window().cmdNyOk);
    EXPECT_EQ(Holding(1, kKursKr), "200");
    EXPECT_EQ(Holding(1, kSparadeVarden), "2026-01-02¶10¶100¶1000¶");
}

class OtherSavedValues : public NewSharesTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(OtherSavedValues, AreNotReplaced) {
    StartWith(GetParam());
    OpenRow();
    FillAll();
    Click(Window().cmdNyOk);
    EXPECT_EQ(Holding(1, kKursKr), "123.4567");
    EXPECT_EQ(Holding(1, kSparadeVarden), GetParam());
}
INSTANTIATE_TEST_SUITE_P(All, OtherSavedValues, ::testing::Values("", "X", "annat"));

class EmptyBoxes : public NewSharesTest, public ::testing::WithParamInterface<int> {};

TEST_P(EmptyBoxes, StoreNothing) {
    StartWith("x");
    OpenRow();
    FillAll();
    SetCaption(&Box(GetParam()), "");
    outside.dialogs.Expect(
        "Alla Fält på denna rad skall vara ifyllda\r\n\r\n Ok och <Esc> tar dig ur denna Funktion");
    Click(Window().cmdNyOk);
    EXPECT_TRUE(RowOpen());
    EXPECT_EQ(Holding(1, kKursKr), "100");
    EXPECT_EQ(Holding(1, kSparadeVarden), "x");
}
INSTANTIATE_TEST_SUITE_P(All, EmptyBoxes, ::testing::Values(2, 3, 4, 5, 6));

class BadBoxes : public NewSharesTest, public ::testing::WithParamInterface<int> {};

TEST_P(BadBoxes, StoreNothing) {
    StartWith("x");
    OpenRow();
    FillAll();
    Fill(GetParam(), "-");
    outside.dialogs.Expect(texts::NoNumbers);
    Click(Window().cmdNyOk);
    EXPECT_TRUE(RowOpen());
    EXPECT_EQ(Holding(1, kBokfortDatum), "2026-01-02");
    EXPECT_EQ(Holding(1, kKursKr), "100");
    EXPECT_EQ(Holding(1, kSparadeVarden), "x");
}
INSTANTIATE_TEST_SUITE_P(All, BadBoxes, ::testing::Values(2, 3, 4, 6));

TEST_F(NewSharesTest, EscClosesTheRowAndStoresNothing) {
    StartWith("x");
    OpenRow();
    FillAll();
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Window().cmdNyOk->isVisible());
    EXPECT_EQ(Holding(1, kKursKr), "100");
    EXPECT_EQ(Holding(1, kBokfortDatum), "2026-01-02");
    Click(Window().cmdPPMData);
    EXPECT_TRUE(RowClosed());
    EXPECT_EQ(Caption(&Box(Kurs)), "100");
}

TEST_F(NewSharesTest, TheWholeNoticeIsEnteredWithTheKeyboardAlone) {
    StartWith("x");
    outside.dialogs
        .Expect(texts::AskNewShares, Buttons::YesNo, Icon::Information, DefaultButton::Second)
        .Answer(Answer::Yes);
    Window().cmdNyAndel->setFocus();
    Key(Qt::Key_Space);
    for (const char* text : {"2026-02-16", "12.5", "80", "", "41"}) {
        Keys(text);
        Key(Qt::Key_Return);
    }
    ASSERT_EQ(QApplication::focusWidget(), Window().cmdNyOk);
    Key(Qt::Key_Return);
    EXPECT_TRUE(RowClosed());
    EXPECT_EQ(Holding(1, kBokfortDatum), "2026-02-16");
    EXPECT_EQ(Holding(1, kFondandelar), "12.5");
    EXPECT_EQ(Holding(1, kKursKr), "80");
    EXPECT_EQ(Holding(1, kVardeKr), "1000");
    EXPECT_EQ(Holding(1, kAndel), "41");
}

TEST_F(NewSharesTest, AValueLongerThanItsBoxShowsItsBeginning) {
    std::vector<TestHolding> holdings(2);
    holdings[1].vardeKr = 38584.0001488472;
    MakeFile(holdings);
    Start();
    Click(Window().cmdPPMData);
    QTableView& view = Window().DBGrid->View();
    view.setCurrentIndex(view.model()->index(1, 0));
    OpenRow();
    EXPECT_EQ(Caption(&Box(Varde)), "38584,0001488472");
    EXPECT_EQ(Box(Varde).cursorPosition(), 0);
}

TEST_F(NewSharesTest, EscGivesUpWhatIsTypedOnTheFirstRowToo) {
    StartWith("x");
    QTableView& view = Window().DBGrid->View();
    view.setCurrentIndex(view.model()->index(0, 0));
    OpenRow();
    Fill(Kurs, "5");
    Key(Qt::Key_Escape);
    EXPECT_EQ(Caption(&Box(Kurs)), "100");
    EXPECT_EQ(Holding(0, kKursKr), "100");
}

TEST_F(NewSharesTest, LeavingABoxStoresNothingYet) {
    StartWith("x");
    OpenRow();
    Fill(Kurs, "5");
    Box(Andel).setFocus();
    EXPECT_EQ(Holding(1, kKursKr), "100");
    EXPECT_EQ(Caption(&Box(Kurs)), "5");
}

TEST_F(NewSharesTest, OnTheEmptyRowTheLastHoldingIsMeant) {
    StartWith("x");
    QTableView& view = Window().DBGrid->View();
    view.setCurrentIndex(view.model()->index(2, 0));
    OpenRow();
    EXPECT_EQ(Caption(&Box(Fond)), "Rusken Kina");
}

TEST_F(NewSharesTest, TheOpenHoldingsPanelShowsTheNewValues) {
    std::vector<TestHolding> holdings(2);
    MakeFile(holdings);
    Start();
    ChooseFund(1);
    Click(Window().cmdPPMData);
    OpenRow();
    FillAll();
    Click(Window().cmdNyOk);
    EXPECT_EQ(FraData(6), "2026-02-16");
    EXPECT_EQ(Status(3), "Startkurs : 100");
}

TEST_F(NewSharesTest, TheBoxesHaveTheirHints) {
    StartWith("x");
    const char* hints[] = {
        "", "", "Nytt Datum ", "Nya Fondandelar ", "Ny Kurs Kr ", "Nya värdet ", "Ny Andel i % "};
    for (int i = 0; i <= 6; ++i) EXPECT_EQ(FromQt(Box(i).toolTip()), hints[i]);
    EXPECT_EQ(Caption(Window().fraNyAndel), "UppDatera Nya Andelar ");
}

TEST_F(NewSharesTest, TheBoxesShowTheFocus) {
    StartWith("x");
    OpenRow();
    EXPECT_EQ(Box(Datum).palette().color(QPalette::Base), QColor(211, 240, 254));
    EXPECT_EQ(Box(Andelar).palette().color(QPalette::Base), QColor(239, 239, 222));
}

}  // namespace
