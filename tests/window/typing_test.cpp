// Where typing goes, and that it stays there: in the fund list, through a minimised window, and
// when a file is left.

#include "app/texts.h"
#include "entry/texts.h"
#include "fundfile/schema.h"
#include "fundfile/texts.h"
#include "platform/datasource.h"
#include "tests/window/windowtest.h"
#include "widgets/boundfield.h"
#include "widgets/datagrid.h"
#include "widgets/imagebutton.h"

#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QTableView>

namespace {

using namespace schema::holding;

class TypingTest : public WindowTest {
  protected:
    void StartWith(const std::vector<TestHolding>& holdings) {
        MakeFile(holdings);
        SetToday(2026, 11, 16);
        Start();
    }
    /// A key press with its character, wherever the focus is.
    void Stroke(const QString& text, Qt::KeyboardModifiers held = Qt::NoModifier) {
        const auto key = static_cast<Qt::Key>(text.front().toUpper().unicode());
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), key, text, held);
    }
    void Keys(const std::string& text) {
        for (const QChar character : ToQt(text)) Stroke(character);
    }
    void Key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    std::string Price() { return Caption(Window().txtValue); }
    std::string Open() { return Window().holding ? Status(2) : ""; }
};

/// Ten funds, so that a number is the beginning of another one's.
std::vector<TestHolding> TenFunds() {
    std::vector<TestHolding> ten = ManyHoldings(10);
    const char* names[] = {"Asp",    "Björk", "Ceder",     "Druvfläder", "Ek",
                           "Fläder", "Gran",  "Granvassa", "Hassel",     "Idegran"};
    for (std::size_t i = 0; i < ten.size(); ++i) ten[i].fond = names[i];
    return ten;
}

// ---- In the fund list ----

TEST_F(TypingTest, APriceTypedInTheListIsThatOfTheFundThatIsOpen) {
    StartWith(TenFunds());
    Window().lstFonder->setFocus();
    Key(Qt::Key_Down);
    ASSERT_EQ(Open(), "Björk");
    Keys("175.5");
    EXPECT_EQ(QApplication::focusWidget(), Window().txtValue);
    EXPECT_EQ(Price(), "175,5");
    Key(Qt::Key_Return);
    EXPECT_EQ(Open(), "Björk");
    EXPECT_EQ(Status(4), "Senaste : 175,50");
    EXPECT_EQ(Holding(1, kSenasteKurs), "Senaste : 175,50");
    EXPECT_NE(Holding(9, kSenasteKurs), "Senaste : 175,50");
    EXPECT_EQ(QApplication::focusWidget(), Window().lstFonder) << "for the next fund";
}

TEST_F(TypingTest, ACommaInTheListBeginsAPriceToo) {
    StartWith(TenFunds());
    ChooseFund(1);
    Keys(",5");
    EXPECT_EQ(Price(), ",5");
}

TEST_F(TypingTest, APriceTypedInTheListReplacesTheOneThatWasLeftInTheField) {
    StartWith(TenFunds());
    ChooseFund(1);
    Keys("18");
    Window().lstFonder->setFocus();
    Keys("5");
    EXPECT_EQ(Price(), "5");
}

TEST_F(TypingTest, WithoutAnOpenFundANumberInTheListDoesNothing) {
    StartWith(TenFunds());
    Window().lstFonder->setFocus();
    Keys("1");
    EXPECT_EQ(Open(), "");
    EXPECT_EQ(Price(), "");
    EXPECT_EQ(Window().lstFonder->currentRow(), 0);
}

TEST_F(TypingTest, WhereAColourOrCurvesAreChosenANumberDoesNothing) {
    StartWith(TenFunds());
    for (const Qt::Key mode : {Qt::Key_F9, Qt::Key_F12}) {
        Window().lstFonder->setFocus();
        ChooseFund(1);
        Key(Qt::Key_F11);  // closes the list and shows the buttons
        Key(mode);
        ASSERT_EQ(QApplication::focusWidget(), Window().lstFonder);
        const int row = Window().lstFonder->currentRow();
        Keys("1,5");
        EXPECT_EQ(QApplication::focusWidget(), Window().lstFonder);
        EXPECT_EQ(Window().lstFonder->currentRow(), row);
        EXPECT_EQ(Caption(Window().lblGrafNr), "");
        EXPECT_EQ(Price(), "");
        Key(mode);
        Key(Qt::Key_F11);
    }
}

TEST_F(TypingTest, LettersFindAFundByItsName) {
    StartWith(TenFunds());
    Window().lstFonder->setFocus();
    Keys("G");
    EXPECT_EQ(Open(), "Gran");
    Keys("g");
    EXPECT_EQ(Open(), "Granvassa");
    EXPECT_EQ(Window().lstFonder->currentRow(), 7);
    EXPECT_TRUE(Window().lstFonder->currentItem()->isSelected());
}

TEST_F(TypingTest, ALetterOpensTheLineThatIsMarkedButNotOpen) {
    StartWith(TenFunds());
    Window().lstFonder->setFocus();
    Keys("a");
    EXPECT_EQ(Open(), "Asp");
}

TEST_F(TypingTest, WhileCurvesAreChosenALetterMovesTheMarkAlone) {
    StartWith(TenFunds());
    Key(Qt::Key_F11);
    Key(Qt::Key_F12);
    Keys("h");
    EXPECT_EQ(Window().lstFonder->currentRow(), 8);
    EXPECT_EQ(Caption(Window().lblGrafNr), "");
    Key(Qt::Key_Space);
    EXPECT_EQ(Caption(Window().lblGrafNr), " 9.");
}

TEST_F(TypingTest, ALetterWithAltFindsNothing) {
    StartWith(TenFunds());
    Window().lstFonder->setFocus();
    for (const auto held : {Qt::AltModifier, Qt::MetaModifier}) {
        Stroke(QStringLiteral("g"), held);
        Stroke(QStringLiteral("1"), held);
    }
    EXPECT_EQ(Open(), "");
    EXPECT_EQ(Window().lstFonder->currentRow(), 0);
}

TEST_F(TypingTest, APriceThatWasTypedIsGoneWhenAnotherFundIsOpened) {
    StartWith(TenFunds());
    ChooseFund(1);
    Window().txtValue->setFocus();
    Keys("18");
    ChooseFund(5);
    EXPECT_EQ(Price(), "");
    Window().txtValue->setFocus();
    Keys("5,5");
    EXPECT_EQ(Price(), "5,5");
}

TEST_F(TypingTest, APriceThatWasTypedStaysWhenItsFundIsChosenAgain) {
    StartWith(TenFunds());
    ChooseFund(1);
    Window().txtValue->setFocus();
    Keys("18");
    ChooseFund(1);
    EXPECT_EQ(Price(), "18");
}

// ---- A round of prices ----

class RoundTest : public TypingTest {
  protected:
    /// What is shown while the price of each fund is typed, and the prices that are stored then.
    void ExpectEachHasItsPrice() {
        for (int row = 0; row < 10; ++row) {
            EXPECT_EQ(Holding(row, kSenasteKurs), "Senaste : " + PriceOf(row) + ",00");
        }
    }
    std::string PriceOf(int row) { return std::to_string(120 + row); }
    void Count(Qt::Key key) {
        Key(key);
        ++keys;
    }
    int keys = 0;  ///< beside the digits
};

TEST_F(RoundTest, TakesThreeKeysAFundBesideTheDigits) {
    StartWith(TenFunds());
    Key(Qt::Key_F11);
    Key(Qt::Key_F11);  // closed and opened again: no fund is open
    for (int row = 0; row < 10; ++row) {
        if (row > 0) Count(Qt::Key_Down);
        Count(Qt::Key_Return);
        ASSERT_EQ(QApplication::focusWidget(), Window().txtValue);
        Keys(PriceOf(row));
        Count(Qt::Key_Return);
    }
    EXPECT_EQ(keys, 29);
    ExpectEachHasItsPrice();
}

TEST_F(RoundTest, TakesTwoKeysAFundWithoutTheListsEnter) {
    StartWith(TenFunds());
    Count(Qt::Key_Return);
    for (int row = 0; row < 10; ++row) {
        if (row > 0) Count(Qt::Key_Down);
        Keys(PriceOf(row));
        Count(Qt::Key_Return);
    }
    EXPECT_EQ(keys, 20);
    ExpectEachHasItsPrice();
}

TEST_F(RoundTest, GoesOnInThePriceFieldWhileTheListIsClosed) {
    StartWith(TenFunds());
    ChooseFund(0);
    Key(Qt::Key_F11);
    ASSERT_FALSE(Window().panListFonder->isVisible());
    Window().txtValue->setFocus();
    for (int row = 0; row < 10; ++row) {
        if (row > 0) Key(Qt::Key_Down);
        Keys(PriceOf(row));
        Key(Qt::Key_Return);
    }
    ExpectEachHasItsPrice();
}

TEST_F(RoundTest, UpAndDownInTheEmptyPriceFieldOpenTheNeighbours) {
    StartWith(TenFunds());
    ChooseFund(8);
    Key(Qt::Key_Return);
    ASSERT_EQ(QApplication::focusWidget(), Window().txtValue);
    for (const char* next : {"Idegran", "Idegran"}) {
        Key(Qt::Key_Down);
        EXPECT_EQ(Open(), next);
    }
    Key(Qt::Key_Up);
    EXPECT_EQ(Open(), "Hassel");
    EXPECT_EQ(Window().lstFonder->currentRow(), 8);
    EXPECT_EQ(Window().holding->kontoId, 9);
    EXPECT_EQ(QApplication::focusWidget(), Window().txtValue);
}

TEST_F(RoundTest, UpAndDownLeaveAPriceThatIsTypedToItsFund) {
    StartWith(TenFunds());
    ChooseFund(1);
    Keys("18");
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Up}) {
        Key(key);
        EXPECT_EQ(Open(), "Björk");
        EXPECT_EQ(Price(), "18");
    }
}

// ---- Through a minimised window ----

class MinimisedTest : public TypingTest {
  protected:
    void MinimiseAndRestore() {
        QWidget* focused = QApplication::focusWidget();
        Minimise();
        ASSERT_EQ(QApplication::focusWidget(), nullptr);
        Restore();
        EXPECT_EQ(QApplication::focusWidget(), focused);
    }
    DataGrid& Grid() { return *Window().DBGrid; }
    void Go(DataGrid& grid, int row, int column) {
        grid.View().setCurrentIndex(grid.View().model()->index(row, column));
    }
    void OpenGrid(int row) {
        Click(Window().cmdPPMData);
        Grid().setFocus();
        Go(Grid(), row, 0);
    }
};

TEST_F(MinimisedTest, AHalfTypedNewRowGoesOn) {
    StartWith(TenFunds());
    OpenGrid(2);
    GoToNewRow(Grid());
    Keys("Ny fond");
    Key(Qt::Key_Right);
    Keys("123");
    QApplication::processEvents();  // the next empty row has its place before the window goes
    MinimiseAndRestore();
    EXPECT_TRUE(Grid().OnNewRow());
    EXPECT_EQ(Grid().CellText(10, 0), "Ny fond");
    Keys("456");
    Key(Qt::Key_Return);
    EXPECT_EQ(Grid().CellText(10, 1), "123 456");
    outside.dialogs
        .Expect(texts::AskGiveUpRow, Buttons::YesNo, Icon::Question, DefaultButton::Second)
        .Answer(Answer::Yes);
    Key(Qt::Key_Escape);
}

TEST_F(MinimisedTest, AHalfTypedDateIsNotJudged) {
    StartWith(TenFunds());
    OpenGrid(2);
    Go(Grid(), 2, 2);
    Keys("2026-0");
    MinimiseAndRestore();
    Keys("5-04");
    Key(Qt::Key_Return);
    EXPECT_EQ(Grid().CellText(2, 2), "2026-05-04");
}

TEST_F(MinimisedTest, ANoticeStaysWithItsHolding) {
    StartWith(TenFunds());
    OpenGrid(2);
    outside.dialogs
        .Expect(texts::AskNewShares, Buttons::YesNo, Icon::Information, DefaultButton::Second)
        .Answer(Answer::Yes);
    Click(Window().cmdNyAndel);
    Keys("2026-02-16");
    Key(Qt::Key_Return);
    Keys("12");
    MinimiseAndRestore();
    EXPECT_EQ(Caption(Window().txtNyAndel[0]), "Ceder");
    EXPECT_EQ(Caption(Window().txtNyAndel[2]), "2026-02-16");
    EXPECT_EQ(Caption(Window().txtNyAndel[3]), "12");
    EXPECT_EQ(Window().dtaBasData->Position(), 2);
    Key(Qt::Key_Return);
    Keys("80");
    Key(Qt::Key_Return);
    Key(Qt::Key_Return);
    Keys("41");
    Key(Qt::Key_Return);
    Key(Qt::Key_Return);
    EXPECT_EQ(Holding(2, kKursKr), "80");
    EXPECT_EQ(Holding(0, kKursKr), "100");
}

TEST_F(MinimisedTest, AnAccountNameIsStoredInItsOwnRow) {
    StartWith(TenFunds());
    OpenGrid(1);
    Window().txtNamn->setFocus();
    Window().txtNamn->selectAll();
    Keys("Eget");
    MinimiseAndRestore();
    Keys(" konto");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Holding(1, kNamn), "Eget konto");
    EXPECT_EQ(Holding(0, kNamn), "Premiepension");
}

TEST_F(MinimisedTest, AHalfTypedPointGoesOn) {
    StartWith(TenFunds());
    Window().mnuPEdit->trigger();
    Go(*Window().GridPlott, 3, 2);
    Keys("1");
    MinimiseAndRestore();
    Keys("2");
    Key(Qt::Key_Return);
    EXPECT_EQ(Window().GridPlott->CellText(3, 2), "12");
    EXPECT_TRUE(Window().GridPlott->RowTyped());
    Key(Qt::Key_Escape);
}

TEST_F(MinimisedTest, APriceAndANumberOfTheCalculatorGoOn) {
    StartWith(TenFunds());
    ChooseFund(1);
    Window().txtValue->setFocus();
    Keys("17");
    MinimiseAndRestore();
    Keys("5");
    EXPECT_EQ(Price(), "175");

    Window().mnuPEdit->trigger();
    Window().txtprcStart->setFocus();
    Keys("12,");
    MinimiseAndRestore();
    EXPECT_EQ(Caption(Window().txtprcStart), "12,");
    Keys("5");
    EXPECT_EQ(Caption(Window().txtprcStart), "12,5");
}

TEST_F(MinimisedTest, CurvesThatAreBeingChosenStayChosen) {
    StartWith(TenFunds());
    Key(Qt::Key_F11);
    Key(Qt::Key_F12);
    ChooseFund(1);
    ChooseFund(3);
    const std::string chosen = Caption(Window().lblGrafNr);
    ASSERT_NE(chosen, "");
    MinimiseAndRestore();
    EXPECT_EQ(Caption(Window().lblGrafNr), chosen);
    Key(Qt::Key_F12);
    EXPECT_EQ(Window().SelectedCurves, (std::vector<std::int32_t>{2, 4}));
}

TEST_F(MinimisedTest, AHelpTextThatWasClickedAwayDoesNotComeBack) {
    StartWith(TenFunds());
    OpenGrid(1);
    Click(Window().txtGrid);
    ASSERT_FALSE(Window().txtGrid->isVisible());
    MinimiseAndRestore();
    EXPECT_FALSE(Window().txtGrid->isVisible());
    EXPECT_EQ(Grid().CurrentRow(), 1);
}

TEST_F(MinimisedTest, AnOpenFundStaysOpenInEveryPanel) {
    StartWith(TenFunds());
    ChooseFund(1);
    MinimiseAndRestore();
    EXPECT_EQ(Open(), "Björk");
    EXPECT_TRUE(Window().panListFonder->isVisible());
    EXPECT_EQ(Window().dtaBasData->Position(), 1);
}

// ---- When a file is left ----

class LeavingTest : public MinimisedTest {
  protected:
    void ExpectQuestion(const std::string& what, Answer answer) {
        outside.dialogs
            .Expect(
                "Det här är inte sparat:\r\n\r\n" + what + "\r\n\r\nVill du gå vidare utan det ?",
                Buttons::YesNo, Icon::Question, DefaultButton::Second)
            .Answer(answer);
    }
    void TypeHalfANotice() {
        OpenGrid(2);
        outside.dialogs
            .Expect(texts::AskNewShares, Buttons::YesNo, Icon::Information, DefaultButton::Second)
            .Answer(Answer::Yes);
        Click(Window().cmdNyAndel);
        Keys("2026-02-16");
    }
    void TypeHalfARow() {
        OpenGrid(2);
        GoToNewRow(Grid());
        Keys("Ny fond");
    }
};

TEST_F(LeavingTest, ClosingAsksOnceAboutAHalfTypedNotice) {
    StartWith(TenFunds());
    TypeHalfANotice();
    ExpectQuestion("Meddelandet om nya andelar för Ceder", Answer::No);
    CloseWindow();
    EXPECT_TRUE(Window().isVisible());
    EXPECT_EQ(Caption(Window().txtNyAndel[2]), "2026-02-16");
    EXPECT_EQ(QApplication::focusWidget(), Window().txtNyAndel[2]);
    ExpectQuestion("Meddelandet om nya andelar för Ceder", Answer::Yes);
    CloseWindow();
    EXPECT_FALSE(Window().isVisible());
}

TEST_F(LeavingTest, TheDiagramButtonAsksTheSameAboutANotice) {
    StartWith(TenFunds());
    TypeHalfANotice();
    ExpectQuestion("Meddelandet om nya andelar för Ceder", Answer::No);
    Click(Window().cmdPPMData);
    EXPECT_TRUE(Window().panBasData->isVisible());
    EXPECT_EQ(Caption(Window().txtNyAndel[2]), "2026-02-16");
    EXPECT_EQ(QApplication::focusWidget(), Window().txtNyAndel[2]);
    ExpectQuestion("Meddelandet om nya andelar för Ceder", Answer::Yes);
    Click(Window().cmdPPMData);
    EXPECT_FALSE(Window().panBasData->isVisible());
    OpenGrid(2);
    EXPECT_FALSE(Window().fraNyAndel->isVisible());
    CloseWindow();
    EXPECT_FALSE(Window().isVisible());
}

TEST_F(LeavingTest, AMenuThatLeavesTheGridAsksTheSameAboutANotice) {
    StartWith(TenFunds());
    TypeHalfANotice();
    ExpectQuestion("Meddelandet om nya andelar för Ceder", Answer::No);
    Window().mnuPEdit->trigger();
    EXPECT_TRUE(Window().fraNyAndel->isVisible());
    EXPECT_FALSE(Window().panPlottData->isVisible());
}

// The notice's own message says that Esc leads out of it.
TEST_F(LeavingTest, EscGivesANoticeUpWithoutAQuestion) {
    StartWith(TenFunds());
    TypeHalfANotice();
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Window().fraNyAndel->isVisible());
}

TEST_F(LeavingTest, ANoticeThatNothingIsTypedInIsNotAskedAbout) {
    StartWith(TenFunds());
    OpenGrid(2);
    outside.dialogs
        .Expect(texts::AskNewShares, Buttons::YesNo, Icon::Information, DefaultButton::Second)
        .Answer(Answer::Yes);
    Click(Window().cmdNyAndel);
    for (int box = 2; box < 6; ++box) Key(Qt::Key_Return);  // past the computed value
    CloseWindow();
    EXPECT_FALSE(Window().isVisible());
}

TEST_F(LeavingTest, ClosingAsksOnceAboutARowThatCannotBeStored) {
    StartWith(TenFunds());
    TypeHalfARow();
    ExpectQuestion("Raden för Ny fond\r\n    Kurs Kr saknas eller är inte större än 0", Answer::No);
    CloseWindow();
    EXPECT_TRUE(Window().isVisible());
    EXPECT_EQ(Grid().CellText(10, 0), "Ny fond");
    ExpectQuestion("Raden för Ny fond\r\n    Kurs Kr saknas eller är inte större än 0",
                   Answer::Yes);
    CloseWindow();
    EXPECT_FALSE(Window().isVisible());
    Start();
    EXPECT_EQ(Lines().size(), 10U);
    EXPECT_EQ(Faults(), std::vector<std::string>{});
}

TEST_F(LeavingTest, OpeningAnotherFileAsksTheSame) {
    StartWith(TenFunds());
    const auto other = Folder() / "annan.mdb";
    WriteFundFile(other, TwoHoldings());
    TypeHalfARow();
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        outside.dialogs.ExpectFile(FileChoice::Open, fundtexts::OpenTitle).Pick(other.string());
        ExpectQuestion("Raden för Ny fond\r\n    Kurs Kr saknas eller är inte större än 0", answer);
        Window().mnuOpen->trigger();
        EXPECT_EQ(Lines().size(), answer == Answer::No ? 10U : 2U);
    }
}

TEST_F(LeavingTest, ARowAndANoticeAreOneQuestion) {
    StartWith(TenFunds());
    TypeHalfANotice();
    Grid().setFocus();
    Go(Grid(), 2, 4);
    Keys("0");
    ExpectQuestion(
        "Raden för Ceder\r\n    Kurs Kr saknas eller är inte större än 0\r\n\r\n"
        "Meddelandet om nya andelar för Ceder",
        Answer::Yes);
    CloseWindow();
    EXPECT_FALSE(Window().isVisible());
}

TEST_F(LeavingTest, APriceThatIsNotConfirmedIsDropped) {
    StartWith(TenFunds());
    ChooseFund(1);
    Keys("175");
    CloseWindow();
    EXPECT_FALSE(Window().isVisible());
    Start();
    EXPECT_EQ(Holding(1, kSenasteKurs), "Senaste : 110,00");
}

}  // namespace
