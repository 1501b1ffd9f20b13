#include "app/errortexts.h"
#include "base/error.h"
#include "entry/texts.h"
#include "fundfile/fundfile.h"
#include "fundfile/schema.h"
#include "jet/database.h"
#include "platform/datasource.h"
#include "tests/window/windowtest.h"
#include "widgets/boundfield.h"
#include "widgets/datagrid.h"
#include "widgets/imagebutton.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QMenuBar>
#include <QTableView>

#include <fstream>
#include <sstream>
#include <utility>

namespace {

using namespace schema::holding;

enum Column { Fond, FondNr, Datum, Andelar, Kurs, Varde, Andel };
constexpr std::int32_t k2026_01_02 = 46024;

class HoldingsGridTest : public WindowTest {
  protected:
    void StartWith(const std::vector<TestHolding>& holdings) {
        MakeFile(holdings);
        Start();
        OpenGrid();
    }
    void OpenGrid() {
        Click(Window().cmdPPMData);
        ASSERT_TRUE(Window().panBasData->isVisible());
        Window().DBGrid->setFocus();
    }
    DataGrid& Grid() { return *Window().DBGrid; }
    void Go(int row, int column) {
        Grid().View().setCurrentIndex(Grid().View().model()->index(row, column));
    }
    void GoToNewRow() { WindowTest::GoToNewRow(Grid()); }
    /// Real keys, wherever the focus is: the cell's editor has it while a cell is typed.
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
    void TypeCell(int row, int column, const std::string& text) {
        Go(row, column);
        Keys(text);
        Key(Qt::Key_Return);
    }
    /// On the last row, cell after cell; the row is not left.
    void TypeNewRow(const std::vector<std::string>& cells) {
        GoToNewRow();
        for (std::size_t i = 0; i < cells.size(); ++i) {
            Go(Grid().CurrentRow(), static_cast<int>(i));
            if (cells[i].empty()) continue;
            Keys(cells[i]);
            Key(Qt::Key_Return);
        }
    }
    void MarkRow(int row) {
        QHeaderView* header = Grid().View().verticalHeader();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          {header->width() / 2, header->sectionViewportPosition(row) + 8});
        ASSERT_EQ(Grid().MarkedRow(), row);
    }
    void DeleteRow(int row) {
        MarkRow(row);
        Key(Qt::Key_Delete);
    }
    void ExpectDeleteQuestion(Answer answer) {
        outside.dialogs
            .Expect(texts::AskDelete, Buttons::YesNo, Icon::Question, DefaultButton::Second)
            .Answer(answer);
    }
    std::string Cell(int row, int column) { return Grid().CellText(row, column); }
    int StoredRows() { return Window().FundDb->OpenRecordSet("FONDDATA")->RecordCount(); }
    std::string LogText() const {
        std::ifstream file(Folder() / "FonderLogg.txt", std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }
};

std::vector<TestHolding> ThreeHoldings() {
    std::vector<TestHolding> three(3);
    three[0].skala = "1.2./15/-10";
    three[1].fond = "Rusken Kina";
    three[1].skala = "45/-30";
    three[2].fond = "Tredje";
    return three;
}

// ---- The panel ----

TEST_F(HoldingsGridTest, ShowsTheHoldingsInSevenColumns) {
    StartWith(TwoHoldings());
    const QAbstractItemModel& model = *Grid().View().model();
    std::vector<std::string> captions;
    for (int i = 0; i < model.columnCount(); ++i) {
        captions.push_back(FromQt(model.headerData(i, Qt::Horizontal).toString()));
    }
    EXPECT_EQ(captions,
              (std::vector<std::string>{"          Fond", "Fond Nr", "Datum", "Fondandelar",
                                        "Kurs Kr  ", "Värde Kr   ", "Andel %"}));
    EXPECT_EQ(Cell(0, FondNr), "249 995");
    EXPECT_EQ(Cell(0, Datum), "2026-01-02");
    EXPECT_EQ(Cell(0, Andelar), "10,0000");
    EXPECT_EQ(Cell(0, Varde), "1000,00");
    EXPECT_EQ(Cell(2, Fond), "");
}

TEST_F(HoldingsGridTest, TheHelpTextIsTakenAwayByAClickAndComesBackWithTheGrid) {
    StartWith(TwoHoldings());
    EXPECT_TRUE(Window().txtGrid->isVisible());
    EXPECT_EQ(Window().txtGrid->toolTip(), ToQt("Klick tar bort denna info  "));
    Click(Window().txtGrid);
    EXPECT_FALSE(Window().txtGrid->isVisible());
    Click(Window().cmdPPMData);
    Click(Window().cmdPPMData);
    EXPECT_TRUE(Window().txtGrid->isVisible());
}

TEST_F(HoldingsGridTest, TheAccountFieldsSayWhatTheyAreFor) {
    StartWith(TwoHoldings());
    EXPECT_EQ(FromQt(Window().txtKontoNr->toolTip()), "Ej Obligatorisk uppgift  ");
    EXPECT_EQ(FromQt(Window().txtPnr->toolTip()), "Ej Obligatorisk uppgift  ");
    EXPECT_EQ(FromQt(Window().txtNamn->toolTip()),
              "Det här fältet bör du alltid fylla i. Obs du måste marker en rad ovan    ");
    EXPECT_EQ(Caption(Window().panBasData), "PPM Start Data");
}

// ---- Keys ----

TEST_F(HoldingsGridTest, EnterInANumericColumnMovesOneCellToTheRight) {
    StartWith(TwoHoldings());
    for (const int column : {FondNr, Datum, Andelar, Kurs, Varde}) {
        Go(0, column);
        Key(Qt::Key_Return);
        EXPECT_EQ(Grid().CurrentColumn(), column + 1);
    }
}

TEST_F(HoldingsGridTest, EnterWhileTypingANumberMovesOneCellToTheRight) {
    StartWith(TwoHoldings());
    TypeCell(0, Andelar, "12");
    EXPECT_EQ(Grid().CurrentColumn(), Kurs);
}

TEST_F(HoldingsGridTest, EnterInTheNameGoesToTheNextCell) {
    StartWith(TwoHoldings());
    TypeCell(0, Fond, "Nytt namn");
    EXPECT_EQ(Grid().CurrentColumn(), FondNr);
    EXPECT_EQ(Cell(0, Fond), "Nytt namn");
}

TEST_F(HoldingsGridTest, APointBecomesACommaInANumericColumn) {
    StartWith(TwoHoldings());
    TypeCell(0, Kurs, "12.5");
    EXPECT_EQ(Cell(0, Kurs), "12,5");
}

TEST_F(HoldingsGridTest, LettersAreDiscardedInANumericColumn) {
    StartWith(TwoHoldings());
    TypeCell(0, Kurs, "a1b2");
    EXPECT_EQ(Cell(0, Kurs), "12");
}

TEST_F(HoldingsGridTest, BlankAndMinusPassInANumericColumn) {
    StartWith(TwoHoldings());
    TypeCell(0, FondNr, "1-2 3");
    EXPECT_EQ(Cell(0, FondNr), "1-2 3");
}

TEST_F(HoldingsGridTest, ANameTakesEveryKeyButTheZoomKey) {
    StartWith(TwoHoldings());
    TypeCell(0, Fond, "A-Fond. Åäö (B)");
    EXPECT_EQ(Cell(0, Fond), "A-Fond. Åäö (B)");
}

// ---- Cells ----

struct NameCase {
    std::string typed, expected;
};

void PrintTo(const NameCase& tested, std::ostream* out) {
    *out << "\"" << tested.typed << "\"";
}

class NameCells : public HoldingsGridTest, public ::testing::WithParamInterface<NameCase> {};

TEST_P(NameCells, AreCutAt25Characters) {
    StartWith(TwoHoldings());
    TypeCell(0, Fond, GetParam().typed);
    EXPECT_EQ(Cell(0, Fond), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    All, NameCells,
    ::testing::Values(NameCase{"abcdefghijklmnopqrstuvwx", "abcdefghijklmnopqrstuvwx"},
                      NameCase{"abcdefghijklmnopqrstuvwxy", "abcdefghijklmnopqrstuvw.."}));

class NumberCells : public HoldingsGridTest, public ::testing::WithParamInterface<NameCase> {};

TEST_P(NumberCells, AreWrittenInTwoGroupsWhenTheyAreLong) {
    StartWith(TwoHoldings());
    TypeCell(0, FondNr, GetParam().typed);
    EXPECT_EQ(Cell(0, FondNr), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(All, NumberCells,
                         ::testing::Values(NameCase{"12345", "12345"},
                                           NameCase{"2468024", "246 024"},
                                           NameCase{"249996", "249 996"},
                                           NameCase{"249 996", "249 996"}));

class DateCells : public HoldingsGridTest, public ::testing::WithParamInterface<NameCase> {};

TEST_P(DateCells, AreReadInEveryForm) {
    StartWith(TwoHoldings());
    TypeCell(0, Datum, GetParam().typed);
    EXPECT_EQ(Cell(0, Datum), GetParam().expected);
    Key(Qt::Key_Down);
    EXPECT_EQ(Holding(0, kBokfortDatum), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(All, DateCells,
                         ::testing::Values(NameCase{"2000-12-31", "2000-12-31"},
                                           NameCase{"01-12-31", "2001-12-31"},
                                           NameCase{"01/12/31", "2001-12-31"},
                                           NameCase{"2001-2-3", "2001-02-03"}));

TEST_F(HoldingsGridTest, AnInvalidDateIsClearedWithAMessage) {
    StartWith(TwoHoldings());
    outside.dialogs.Expect("Felaktigt Datum\r\nSkall skrivas typ\r\n2000-12-31");
    TypeCell(0, Datum, "2026-02-30");
    EXPECT_EQ(Cell(0, Datum), "");
    EXPECT_EQ(Grid().CurrentColumn(), Datum);
    EXPECT_TRUE(Grid().View().hasFocus());
    TypeCell(0, Datum, "2026-02-28");
    Key(Qt::Key_Down);
    EXPECT_EQ(Holding(0, kBokfortDatum), "2026-02-28");
}

TEST_F(HoldingsGridTest, AThousandsBlankIsTakenOutOfANumber) {
    StartWith(TwoHoldings());
    for (const Column column : {Andelar, Kurs, Andel}) TypeCell(0, column, "1 234,5");
    EXPECT_EQ(Cell(0, Andelar), "1234,5000");
    EXPECT_EQ(Holding(0, kFondandelar), "1234.5");
    EXPECT_EQ(Holding(0, kKursKr), "1234.5");
    EXPECT_TRUE(Faults().empty());
}

struct RefusedNumber {
    Column column;
    std::string typed, message, kept;
};

void PrintTo(const RefusedNumber& tested, std::ostream* out) {
    *out << "\"" << tested.typed << "\"";
}

class RefusedNumbers : public HoldingsGridTest,
                       public ::testing::WithParamInterface<RefusedNumber> {};

TEST_P(RefusedNumbers, StayInTheCellAndTheMessageNamesTheColumn) {
    const RefusedNumber& tested = GetParam();
    StartWith(TwoHoldings());
    Go(0, tested.column);
    Keys(tested.typed);
    outside.dialogs.Expect(tested.message);
    Key(Qt::Key_Return);
    EXPECT_EQ(Grid().CurrentColumn(), tested.column);
    auto* cell = qobject_cast<EntryField*>(QApplication::focusWidget());
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(FromQt(cell->text()), tested.typed);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Cell(0, tested.column), tested.kept);
    EXPECT_FALSE(Grid().RowTyped());
}
INSTANTIATE_TEST_SUITE_P(
    All, RefusedNumbers,
    ::testing::Values(
        RefusedNumber{Andelar, "1 12,50",
                      "Fondandelar: \"1 12,50\" är inget tal\r\nSkriv till exempel 1234,50",
                      "10,0000"},
        RefusedNumber{Kurs, "1,2,3",
                      "Kurs Kr: \"1,2,3\" är inget tal\r\nSkriv till exempel 1234,50", "100"},
        RefusedNumber{Andel, "5-", "Andel %: \"5-\" är inget tal\r\nSkriv till exempel 1234,50",
                      "50"},
        RefusedNumber{Andelar, "-4", "Fondandelar får inte vara mindre än 0", "10,0000"}));

TEST_F(HoldingsGridTest, TheValueIsLocked) {
    StartWith(TwoHoldings());
    outside.dialogs.Expect("Detta fält är låst");
    Go(0, Varde);
    Keys("5");
    EXPECT_EQ(Cell(0, Varde), "1000,00");
}

TEST_F(HoldingsGridTest, TheValueFollowsSharesAndPriceAtOnce) {
    StartWith(TwoHoldings());
    TypeCell(0, Andelar, "3");
    EXPECT_EQ(Cell(0, Varde), "300");
    TypeCell(0, Kurs, "0.5");
    EXPECT_EQ(Cell(0, Varde), "1,5");
}

// ---- An old row ----

TEST_F(HoldingsGridTest, AnEditedRowKeepsItsLatestPriceTextsAndScale) {
    StartWith(ThreeHoldings());
    TypeCell(1, Kurs, "50");
    Key(Qt::Key_Down);
    EXPECT_EQ(Holding(1, kKursKr), "50");
    EXPECT_EQ(Holding(1, kVardeKr), "500");
    EXPECT_EQ(Holding(1, kSenasteKurs), "Senaste : 110,00");
    EXPECT_EQ(Holding(1, kProcent), "10 %");
    EXPECT_EQ(Holding(1, kSkala), "45/-30");
    EXPECT_EQ(Holding(1, kSparadeVarden), "x");
    EXPECT_EQ(PointsOf(2).size(), 2U);
}

TEST_F(HoldingsGridTest, ANewNameShowsInTheList) {
    StartWith(TwoHoldings());
    TypeCell(1, Fond, "Omdöpt");
    Key(Qt::Key_Up);
    ASSERT_EQ(Lines().size(), 2U);
    EXPECT_EQ(Lines()[1], " 2. Omdöpt");
}

TEST_F(HoldingsGridTest, AnOldRowWithoutDateIsNotStored) {
    StartWith(TwoHoldings());
    TypeCell(0, Fond, "Nytt");
    Go(0, Datum);
    outside.dialogs.Expect(texts::WrongDate);
    Key(Qt::Key_Backspace);
    Key(Qt::Key_Return);
    outside.dialogs.Expect("Datum Felaktigt ifyllt");
    Key(Qt::Key_Down);
    EXPECT_EQ(Grid().CurrentRow(), 0);
    EXPECT_EQ(Cell(0, Fond), "Nytt");
    EXPECT_EQ(Holding(0, kBokfortDatum), "2026-01-02");
    EXPECT_EQ(StoredRows(), 2);
}

TEST_F(HoldingsGridTest, ACopiedNameIsPastedIntoItsCell) {
    StartWith(TwoHoldings());
    Go(1, Fond);
    QGuiApplication::clipboard()->setText(QStringLiteral("Inklistrad fond"));
    Key(Qt::Key_V, Qt::ControlModifier);
    Key(Qt::Key_Up);
    EXPECT_EQ(Holding(1, kFond), "Inklistrad fond");
}

TEST_F(HoldingsGridTest, APastedNumberBecomesWhatWouldBeTyped) {
    StartWith(TwoHoldings());
    Go(1, Kurs);
    QGuiApplication::clipboard()->setText(QStringLiteral("1 234,50 kr\n2 000,00 kr"));
    Key(Qt::Key_V, Qt::ControlModifier);
    Key(Qt::Key_Up);
    EXPECT_EQ(Holding(1, kKursKr), "1234.5");
}

TEST_F(HoldingsGridTest, WhatIsNoNumberIsNotPastedIntoANumericColumn) {
    StartWith(TwoHoldings());
    Go(1, Kurs);
    QGuiApplication::clipboard()->setText(QStringLiteral("1 12,50"));
    Key(Qt::Key_V, Qt::ControlModifier);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Cell(1, Kurs), "50");
    EXPECT_FALSE(Grid().RowTyped());
}

TEST_F(HoldingsGridTest, ACellIsCopied) {
    StartWith(TwoHoldings());
    Go(1, Kurs);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("50"));
}

// ---- A new row ----

TEST_F(HoldingsGridTest, ANewHoldingGetsItsColumnsAndItsFirstPoint) {
    SetToday(2026, 11, 16);
    StartWith(TwoHoldings());
    TypeNewRow({"Nykomling", "123456", "2026-03-02", "4", "25.5"});
    EXPECT_EQ(StoredRows(), 2);
    TypeCell(2, Andel, "10");
    ASSERT_EQ(StoredRows(), 3);
    EXPECT_EQ(Holding(2, kFond), "Nykomling");
    EXPECT_EQ(Holding(2, kFondNr), "123 456");
    EXPECT_EQ(Holding(2, kBokfortDatum), "2026-03-02");
    EXPECT_EQ(Holding(2, kVardeKr), "102");
    EXPECT_EQ(Holding(2, kSenasteDag), "46342");
    EXPECT_EQ(Holding(2, kSenasteKurs), "Senaste : 25,5");
    EXPECT_EQ(Holding(2, kSkala), "15/-10");
    EXPECT_EQ(Holding(2, kSparadeVarden), "x");
    const std::vector<CurvePoint> points = PointsOf(3);
    ASSERT_EQ(points.size(), 1U);
    EXPECT_EQ(points[0].day, 46083);
    EXPECT_EQ(points[0].value, 0);
    EXPECT_TRUE(Faults().empty());
}

TEST_F(HoldingsGridTest, ANewHoldingShowsItsPriceInTheStatusBar) {
    StartWith(TwoHoldings());
    TypeNewRow({"Nykomling", "123456", "2026-03-02", "4", "25.5"});
    Key(Qt::Key_Up);
    EXPECT_EQ(Status(3), "Startkurs : 25,5");
    EXPECT_EQ(Status(4), "Senaste : 25,5");
}

TEST_F(HoldingsGridTest, ANewHoldingIsListedAndDrawnAtOnce) {
    StartWith(TwoHoldings());
    TypeNewRow({"Nykomling", "123456", "2026-03-02", "4", "25"});
    Key(Qt::Key_Up);
    ASSERT_EQ(Lines().size(), 3U);
    EXPECT_EQ(Lines()[2], " 3. Nykomling");
    EXPECT_EQ(Window().SelectedCurves, std::vector<std::int32_t>{3});
    const auto drawings = Window().picDiagram->Drawings();
    ASSERT_EQ(drawings.size(), 1U);
    EXPECT_EQ(drawings[0].label, "3");
    EXPECT_TRUE(drawings[0].line.empty());
    // One above the point of 0 % on the booking day, 2026-03-02.
    EXPECT_EQ(drawings[0].labelAt, (Point{46083.0 - Window().WindowStartDay, 1}));
}

TEST_F(HoldingsGridTest, AfterANewHoldingTheRowThatWasGoneToIsCurrent) {
    StartWith(TwoHoldings());
    TypeNewRow({"Nykomling", "123456", "2026-03-02", "4", "25"});
    Key(Qt::Key_Up);
    EXPECT_EQ(Grid().CurrentRow(), 1);
    EXPECT_EQ(Window().dtaBasData->Position(), 1);
}

TEST_F(HoldingsGridTest, ANewHoldingWithoutNumberGets999999) {
    StartWith(TwoHoldings());
    TypeNewRow({"Nykomling", "", "2026-03-02", "4", "25"});
    Key(Qt::Key_Up);
    EXPECT_EQ(Holding(2, kFondNr), "999 999");
}

TEST_F(HoldingsGridTest, ANewHoldingWithoutSharesHasNoValue) {
    StartWith(TwoHoldings());
    TypeNewRow({"Nykomling", "", "2026-03-02", "", "25"});
    Key(Qt::Key_Up);
    ASSERT_EQ(StoredRows(), 3);
    EXPECT_EQ(Holding(2, kVardeKr), "");
}

TEST_F(HoldingsGridTest, ANewHoldingWithoutDateStaysTypedWithTheCursorInTheDate) {
    StartWith(TwoHoldings());
    TypeNewRow({"Nykomling", "123456", "", "4", "25"});
    outside.dialogs.Expect("Datum Felaktigt ifyllt").Meanwhile([&] {
        EXPECT_EQ(StoredRows(), 2) << "an incomplete row in the file while the message stands";
    });
    Key(Qt::Key_Up);
    EXPECT_EQ(StoredRows(), 2);
    EXPECT_EQ(Lines().size(), 2U);
    EXPECT_EQ(Grid().CurrentRow(), 2);
    EXPECT_EQ(Grid().CurrentColumn(), Datum);
    EXPECT_EQ(Cell(2, Fond), "Nykomling");
    EXPECT_EQ(Cell(2, Kurs), "25");
    Keys("2026-03-02");
    Key(Qt::Key_Down);
    ASSERT_EQ(StoredRows(), 3);
    EXPECT_EQ(Holding(2, kBokfortDatum), "2026-03-02");
    EXPECT_EQ(PointsOf(3).size(), 1U);
}

TEST_F(HoldingsGridTest, TwoHoldingsOfANewFileAreTypedOneUnderTheOther) {
    StartWith({});
    for (const char* text : {"Första", "123456", "2026-03-02", "4", "25"}) {
        Keys(text);
        Key(Qt::Key_Return);
    }
    Key(Qt::Key_Down);
    ASSERT_EQ(StoredRows(), 1);
    EXPECT_TRUE(Grid().View().hasFocus());
    for (const char* text : {"Andra", "123457", "2026-03-03", "5", "26", "", "10"}) {
        Keys(text);
        Key(Qt::Key_Return);
    }
    ASSERT_EQ(StoredRows(), 2);
    EXPECT_EQ(Holding(0, kFond), "Första");
    EXPECT_EQ(Holding(1, kFond), "Andra");
    EXPECT_EQ(Holding(1, kKursKr), "26");
    EXPECT_TRUE(Grid().OnNewRow());
    EXPECT_TRUE(Grid().View().hasFocus());
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Window().panBasData->isVisible());
    EXPECT_EQ(Lines(), (std::vector<std::string>{" 1. Första", " 2. Andra"}));
    EXPECT_TRUE(Faults().empty());
}

TEST_F(HoldingsGridTest, ANewHoldingWithoutNameStaysForCorrection) {
    StartWith(TwoHoldings());
    TypeNewRow({"", "123456", "2026-03-02", "4", "25"});
    outside.dialogs.Expect(texts::NameMissing);
    Key(Qt::Key_Up);
    EXPECT_TRUE(Grid().OnNewRow());
    EXPECT_EQ(Cell(2, Kurs), "25");
    EXPECT_EQ(StoredRows(), 2);
    TypeCell(2, Fond, "Nykomling");
    Key(Qt::Key_Up);
    EXPECT_EQ(StoredRows(), 3);
}

TEST_F(HoldingsGridTest, ARowToCorrectKeepsTheFocusInTheGrid) {
    StartWith(TwoHoldings());
    TypeNewRow({"Nykomling", "123456", "2026-03-02", "4"});
    outside.dialogs.Expect(texts::PriceMissing);
    Window().txtNamn->setFocus();
    EXPECT_TRUE(Grid().View().hasFocus());
    TypeCell(2, Kurs, "25");
    Window().txtNamn->setFocus();
    EXPECT_EQ(StoredRows(), 3);
    EXPECT_TRUE(Window().txtNamn->hasFocus());
}

TEST_F(HoldingsGridTest, AMenuOpensInTheMiddleOfARow) {
    StartWith(TwoHoldings());
    TypeNewRow({"Nykomling"});
    Window().menuBar()->setFocus(Qt::MenuBarFocusReason);
    EXPECT_TRUE(Window().menuBar()->hasFocus());
    Grid().setFocus();
    EXPECT_EQ(Cell(2, Fond), "Nykomling");
    EXPECT_EQ(StoredRows(), 2);
}

class PricesNotAboveZero : public HoldingsGridTest,
                           public ::testing::WithParamInterface<const char*> {};

TEST_P(PricesNotAboveZero, KeepANewHoldingForCorrection) {
    StartWith(TwoHoldings());
    TypeNewRow({"Nykomling", "123456", "2026-03-02", "4", GetParam()});
    outside.dialogs.Expect(texts::PriceMissing);
    Key(Qt::Key_Up);
    EXPECT_TRUE(Grid().OnNewRow());
    EXPECT_EQ(Cell(2, Fond), "Nykomling");
    EXPECT_EQ(StoredRows(), 2);
}
INSTANTIATE_TEST_SUITE_P(All, PricesNotAboveZero, ::testing::Values("", "0", "-5"));

TEST_F(HoldingsGridTest, TheFirstHoldingOfAnEmptyFileCarriesAListPart) {
    StartWith({});
    EXPECT_FALSE(Window().cmdNyAndel->isEnabled());
    TypeNewRow({"Första", "123456", "2026-03-02", "4", "25"});
    EXPECT_TRUE(Grid().StoreRow());
    ASSERT_EQ(StoredRows(), 1);
    EXPECT_EQ(Holding(0, kSkala), "./15/-10");
    EXPECT_TRUE(Window().cmdNyAndel->isEnabled());
    EXPECT_EQ(PointsOf(1).size(), 1U);
}

TEST_F(HoldingsGridTest, ANewHoldingHasAColourOfItsOwn) {
    StartWith(TwoHoldings());
    TypeNewRow({"Nykomling", "123456", "2026-03-02", "4", "25"});
    EXPECT_TRUE(Grid().StoreRow());
    EXPECT_NE(Holding(2, kPlottFarg), "");
    EXPECT_NE(Holding(2, kPlottFarg), Holding(1, kPlottFarg));
}

TEST_F(HoldingsGridTest, AHoldingThatHasPointsAlreadyGetsNoOther) {
    // A file with points that no row owns: the next identity finds them.
    MakeFile(TwoHoldings());
    Start();
    DataSource& points = *Window().dtaPlott;
    points.AddNew();
    points.Set(0, "123 456");
    points.Set(1, 46000);
    points.Set(2, 7);
    points.Set(3, 3);
    points.Update();
    OpenGrid();
    TypeNewRow({"Nykomling", "123456", "2026-03-02", "4", "25"});
    EXPECT_TRUE(Grid().StoreRow());
    ASSERT_EQ(PointsOf(3).size(), 1U);
    EXPECT_EQ(PointsOf(3)[0].value, 7);
}

TEST_F(HoldingsGridTest, WhereTheIdentityDoesNotCountByItselfTheNextOneIsTaken) {
    std::vector<jet::TableDesign> design = NewFundFileDesign();
    ASSERT_EQ(design[0].name, "FONDDATA");
    design[0].columns[kKontoId].autonumber = false;
    jet::Database::Create(SamplePath(), design);
    {
        const auto file = jet::Database::Open(SamplePath());
        const auto rows = file->OpenRecordSet("FONDDATA");
        rows->AddNew();
        rows->Set(kKontoId, 41);
        rows->Set(kFond, "Gammal");
        rows->Set(kKursKr, 10.0);
        rows->Set(kSkala, "./15/-10");
        rows->Update();
        file->Close();
    }
    Start();
    OpenGrid();
    TypeNewRow({"Nykomling", "123456", "2026-03-02", "4", "25"});
    EXPECT_TRUE(Grid().StoreRow());
    ASSERT_EQ(StoredRows(), 2);
    EXPECT_EQ(Holding(1, kKontoId), "42");
    EXPECT_EQ(PointsOf(42).size(), 1U);
}

// ---- Leaving the grid ----

TEST_F(HoldingsGridTest, GoingBackToTheDiagramStoresTheRow) {
    StartWith(TwoHoldings());
    TypeCell(0, Kurs, "50");
    Click(Window().cmdPPMData);
    EXPECT_FALSE(Window().panBasData->isVisible());
    EXPECT_EQ(Holding(0, kKursKr), "50");
}

TEST_F(HoldingsGridTest, ARowThatIsNotCompleteKeepsTheGridOpen) {
    StartWith(TwoHoldings());
    TypeNewRow({"Nykomling"});
    outside.dialogs.Expect(texts::PriceMissing);
    Click(Window().cmdPPMData);
    EXPECT_TRUE(Window().panBasData->isVisible());
    EXPECT_EQ(Cell(2, Fond), "Nykomling");
}

constexpr std::string_view kAskGiveUpRow =
    "Raden är inte färdig och kan inte sparas\r\n\r\nVill du lämna den utan att spara ?";

TEST_F(HoldingsGridTest, EscGivesUpAnIncompleteRowOnlyAfterAQuestion) {
    StartWith(TwoHoldings());
    TypeNewRow({"Nykomling"});
    outside.dialogs.Expect(kAskGiveUpRow, Buttons::YesNo, Icon::Question, DefaultButton::Second)
        .Answer(Answer::No);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(Window().panBasData->isVisible());
    EXPECT_TRUE(Grid().View().hasFocus());
    EXPECT_EQ(Cell(2, Fond), "Nykomling");
    outside.dialogs.Expect(kAskGiveUpRow, Buttons::YesNo, Icon::Question, DefaultButton::Second)
        .Answer(Answer::Yes);
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Window().panBasData->isVisible());
    EXPECT_EQ(StoredRows(), 2);
}

TEST_F(HoldingsGridTest, EscStoresACompleteRow) {
    StartWith(TwoHoldings());
    TypeNewRow({"Nykomling", "123456", "2026-03-02", "4", "25"});
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Window().panBasData->isVisible());
    ASSERT_EQ(StoredRows(), 3);
    EXPECT_EQ(Holding(2, kFond), "Nykomling");
}

TEST_F(HoldingsGridTest, EscWhileTypingACellGivesUpTheCellFirst) {
    StartWith(TwoHoldings());
    Go(0, Kurs);
    Keys("5");
    Key(Qt::Key_Escape);
    EXPECT_TRUE(Window().panBasData->isVisible());
    EXPECT_EQ(Cell(0, Kurs), "100");
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Window().panBasData->isVisible());
    EXPECT_EQ(Holding(0, kKursKr), "100");
}

TEST_F(HoldingsGridTest, ClosingTheWindowStoresTheRow) {
    StartWith(TwoHoldings());
    TypeCell(0, Kurs, "50");
    CloseWindow();
    const auto file = jet::Database::Open(SamplePath());
    EXPECT_EQ(file->OpenRecordSet("FONDDATA")->At(0, kKursKr).Text(), "50");
    file->Close();
}

TEST_F(HoldingsGridTest, ClosingTheWindowStoresTheAccountField) {
    StartWith(TwoHoldings());
    Window().txtNamn->setFocus();
    Window().txtNamn->selectAll();
    Keys("Eget konto");
    CloseWindow();
    const auto file = jet::Database::Open(SamplePath());
    EXPECT_EQ(file->OpenRecordSet("FONDDATA")->At(0, kNamn).Text(), "Eget konto");
    file->Close();
}

TEST_F(HoldingsGridTest, EscGivesUpWhatIsTypedInAnAccountField) {
    StartWith(TwoHoldings());
    Window().txtNamn->setFocus();
    Window().txtNamn->selectAll();
    Keys("Eget konto");
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Window().panBasData->isVisible());
    EXPECT_EQ(Holding(0, kNamn), "Premiepension");
}

TEST_F(HoldingsGridTest, NoPriceIsTypedUnderTheGrid) {
    MakeFile(TwoHoldings());
    Start();
    ChooseFund(0);
    Window().txtValue->setFocus();
    OpenGrid();
    EXPECT_FALSE(Window().txtValue->isEnabled());
    Click(Window().txtValue);
    EXPECT_FALSE(Window().txtValue->hasFocus());
    Click(Window().cmdPPMData);
    EXPECT_TRUE(Window().txtValue->isEnabled());
}

TEST_F(HoldingsGridTest, OpensOnTheOpenHoldingsRowMarked) {
    MakeFile(ThreeHoldings());
    Start();
    ChooseFund(2);
    OpenGrid();
    EXPECT_EQ(Grid().CurrentRow(), 2);
    EXPECT_EQ(Grid().MarkedRow(), 2);
    EXPECT_EQ(Window().dtaBasData->Position(), 2);
}

TEST_F(HoldingsGridTest, ScrollsToTheOpenHoldingsRow) {
    MakeFile(std::vector<TestHolding>(40));
    Start();
    Window().lstFonder->setCurrentRow(35);
    OpenGrid();
    QApplication::processEvents();
    const QTableView& view = Grid().View();
    const QRect cell = view.visualRect(view.currentIndex());
    EXPECT_EQ(Grid().CurrentRow(), 35);
    EXPECT_TRUE(view.viewport()->rect().contains(cell))
        << cell.y() << " of " << view.viewport()->height();
}

struct Command {
    const char* name;
    void (*run)(frmPPM& window);
};

void PrintTo(const Command& tested, std::ostream* out) {
    *out << tested.name;
}

class CommandsDuringTyping : public HoldingsGridTest,
                             public ::testing::WithParamInterface<Command> {
  protected:
    void SetUp() override { StartWith(TwoHoldings()); }
};

TEST_P(CommandsDuringTyping, StoreTheRowAndGoBackToTheDiagram) {
    TypeCell(1, Kurs, "60");
    GetParam().run(Window());
    EXPECT_EQ(Holding(1, kKursKr), "60");
    EXPECT_FALSE(Window().panBasData->isVisible());
}

TEST_P(CommandsDuringTyping, WaitUntilTheRowIsComplete) {
    TypeNewRow({"Nykomling"});
    outside.dialogs.Expect(texts::PriceMissing);
    GetParam().run(Window());
    EXPECT_TRUE(Window().panBasData->isVisible());
    EXPECT_EQ(Cell(2, Fond), "Nykomling");
    EXPECT_FALSE(Window().panTotal->isVisible());
    EXPECT_TRUE(outside.printing.files.empty());
}

INSTANTIATE_TEST_SUITE_P(
    All, CommandsDuringTyping,
    ::testing::Values(Command{"Screen",
                              [](frmPPM& window) {
                                  QTest::mouseClick(window.imgScreen, Qt::LeftButton);
                              }},
                      Command{"AllCurves", [](frmPPM& window) { window.mnuAll->trigger(); }},
                      Command{"Totals", [](frmPPM& window) { window.mnuTotal->trigger(); }},
                      Command{"PlotData", [](frmPPM& window) { window.mnuPEdit->trigger(); }}),
    [](const auto& parameter) { return parameter.param.name; });

TEST_F(HoldingsGridTest, PrintingStoresTheRowThatIsTyped) {
    StartWith(TwoHoldings());
    TypeCell(1, Kurs, "60");
    QImage(8, 8, QImage::Format_RGB32).save(ToQt((Folder() / "Grid.dib").string()), "BMP");
    Window().mnuPrint->trigger();
    EXPECT_EQ(Holding(1, kKursKr), "60");
    EXPECT_EQ(outside.printing.files.size(), 1U);
}

TEST_F(HoldingsGridTest, PrintingWaitsUntilTheRowIsComplete) {
    StartWith(TwoHoldings());
    TypeNewRow({"Nykomling"});
    outside.dialogs.Expect(texts::PriceMissing);
    Window().mnuPrint->trigger();
    EXPECT_TRUE(outside.printing.files.empty());
    EXPECT_EQ(Cell(2, Fond), "Nykomling");
}

TEST_F(HoldingsGridTest, TheOpenHoldingIsCurrentAgainBehindTheGrid) {
    MakeFile(ThreeHoldings());
    Start();
    ChooseFund(2);
    OpenGrid();
    Go(1, Fond);
    Click(Window().cmdPPMData);
    EXPECT_EQ(Window().dtaBasData->Position(), 2);
    TypePrice("120");
    EXPECT_EQ(PointsOf(2).size(), 2U);
    EXPECT_EQ(PointsOf(3).size(), 3U);
}

// ---- Account fields ----

TEST_F(HoldingsGridTest, TheAccountFieldsShowAndStoreTheCurrentRow) {
    StartWith(TwoHoldings());
    Go(1, Fond);
    EXPECT_EQ(Caption(Window().txtNamn), "Premiepension");
    Window().txtNamn->setFocus();
    Window().txtNamn->selectAll();
    Keys("Eget konto");
    Key(Qt::Key_Return);
    EXPECT_EQ(Holding(1, kNamn), "Eget konto");
    EXPECT_EQ(Holding(0, kNamn), "Premiepension");
}

TEST_F(HoldingsGridTest, AnAccountFieldThatIsGoneToIsTypedOverAfterARowIsStoredToo) {
    StartWith(TwoHoldings());
    TypeCell(1, Fond, "Omdöpt");
    Window().txtNamn->setFocus(Qt::TabFocusReason);
    ASSERT_EQ(Holding(1, kFond), "Omdöpt");
    Keys("Nytt");
    Key(Qt::Key_Return);
    EXPECT_EQ(Holding(1, kNamn), "Nytt");
}

TEST_F(HoldingsGridTest, ANewAccountNameShowsInTheFundPanel) {
    MakeFile(TwoHoldings());
    Start();
    ChooseFund(1);
    OpenGrid();
    Go(1, Fond);
    Window().txtNamn->setFocus();
    Window().txtNamn->selectAll();
    Keys("Barnens konto");
    Key(Qt::Key_Return);
    EXPECT_EQ(Holding(1, kNamn), "Barnens konto");
    EXPECT_EQ(Caption(Window().fraStartData), "StartData  2. Kvarnbo Europa  Barnens konto");
    EXPECT_EQ(Grid().CurrentRow(), 1);
}

TEST_F(HoldingsGridTest, AccountNumbersTakeDigitsCommaMinusAndPoint) {
    StartWith(TwoHoldings());
    for (BoundField* field : {Window().txtKontoNr, Window().txtPnr}) {
        field->setFocus();
        field->selectAll();
        Keys("a1-2,3. 4");
        EXPECT_EQ(Caption(field), "1-2,3.4");
    }
}

TEST_F(HoldingsGridTest, EnterGoesFromFieldToField) {
    StartWith(TwoHoldings());
    Window().txtKontoNr->setFocus();
    Key(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), Window().txtPnr);
    Key(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), Window().txtNamn);
    Key(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), Window().cmdNyAndel);
}

TEST_F(HoldingsGridTest, TheAccountFieldsAreEmptyOnTheRowForNewData) {
    StartWith(TwoHoldings());
    GoToNewRow();
    EXPECT_EQ(Caption(Window().txtNamn), "");
    Window().txtNamn->setFocus();
    Keys("x");
    EXPECT_EQ(Caption(Window().txtNamn), "");
}

TEST_F(HoldingsGridTest, GoingToAnAccountFieldStoresTheNewRowFirst) {
    StartWith(TwoHoldings());
    TypeNewRow({"Nykomling", "123456", "2026-03-02", "4", "25"});
    Window().txtNamn->setFocus();
    Keys("Nytt konto");
    Key(Qt::Key_Return);
    ASSERT_EQ(StoredRows(), 3);
    EXPECT_EQ(Holding(2, kNamn), "Nytt konto");
}

TEST_F(HoldingsGridTest, AnAccountNameThatIsTooLongIsToldAndStaysInItsField) {
    StartWith(TwoHoldings());
    const int room = Window().dtaBasData->Records().Column(kNamn).size;
    ASSERT_GT(room, 0);
    const std::string longName(static_cast<std::size_t>(room) + 1, 'x');
    const std::string told =
        "Namnet på kontot är för långt\r\nHögst " + std::to_string(room) + " tecken";
    Window().txtNamn->setFocus();
    Window().txtNamn->selectAll();
    Keys(longName);
    outside.dialogs.Expect(told);
    Key(Qt::Key_Tab);
    QApplication::processEvents();
    EXPECT_TRUE(Window().txtNamn->hasFocus());
    EXPECT_EQ(Caption(Window().txtNamn), longName);
    outside.dialogs.Expect(told);
    Go(1, Fond);
    EXPECT_EQ(Grid().CurrentRow(), 0) << "another row would show its own name in the field";
    outside.dialogs.Expect(told);
    Click(Window().cmdPPMData);
    EXPECT_TRUE(Window().panBasData->isVisible());
    Key(Qt::Key_Backspace);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Holding(0, kNamn), longName.substr(1));
}

// ---- Deleting ----

TEST_F(HoldingsGridTest, DeletingAHoldingRemovesItsPointsAndNoOthers) {
    StartWith(ThreeHoldings());
    ExpectDeleteQuestion(Answer::Yes);
    DeleteRow(1);
    ASSERT_EQ(StoredRows(), 2);
    EXPECT_EQ(Holding(1, kFond), "Tredje");
    EXPECT_TRUE(PointsOf(2).empty());
    EXPECT_EQ(PointsOf(1).size(), 2U);
    EXPECT_EQ(PointsOf(3).size(), 2U);
    EXPECT_EQ(Lines(), (std::vector<std::string>{" 1. Vimmels Asien", " 3. Tredje"}));
    EXPECT_EQ(Tag(Window().DBGrid), "");
    EXPECT_TRUE(Faults().empty());
}

TEST_F(HoldingsGridTest, NoKeepsTheHolding) {
    StartWith(ThreeHoldings());
    ExpectDeleteQuestion(Answer::No);
    DeleteRow(1);
    EXPECT_EQ(StoredRows(), 3);
    EXPECT_EQ(PointsOf(2).size(), 2U);
    EXPECT_EQ(LogText(), "");
    EXPECT_EQ(Tag(Window().DBGrid), "");
}

TEST_F(HoldingsGridTest, TheRowsIdentityIsInTheTagWhileItIsBeingDeleted) {
    StartWith(ThreeHoldings());
    std::string tag;
    outside.dialogs.Expect(texts::AskDelete, Buttons::YesNo, Icon::Question, DefaultButton::Second)
        .Answer(Answer::No)
        .Meanwhile([&] { tag = Tag(Window().DBGrid); });
    DeleteRow(2);
    EXPECT_EQ(tag, "3");
}

TEST_F(HoldingsGridTest, NoKeepsWhatIsTypedInTheRow) {
    StartWith(TwoHoldings());
    TypeCell(1, Kurs, "77");
    MarkRow(1);
    ExpectDeleteQuestion(Answer::No);
    Key(Qt::Key_Delete);
    EXPECT_EQ(Cell(1, Kurs), "77");
    Key(Qt::Key_Up);
    EXPECT_EQ(Holding(1, kKursKr), "77");
}

TEST_F(HoldingsGridTest, ARowIsDeletedWithWhatIsTypedInIt) {
    StartWith(TwoHoldings());
    TypeCell(1, Kurs, "77");
    MarkRow(1);
    ExpectDeleteQuestion(Answer::Yes);
    Key(Qt::Key_Delete);
    EXPECT_EQ(StoredRows(), 1);
    EXPECT_FALSE(Grid().RowTyped());
    EXPECT_EQ(Holding(0, kFond), "Vimmels Asien");
    EXPECT_TRUE(Faults().empty());
}

TEST_F(HoldingsGridTest, TheLastHoldingIsNeverDeleted) {
    StartWith({TestHolding{}});
    ExpectDeleteQuestion(Answer::Yes);
    outside.dialogs.Expect(
        "Du får inte radera sista posten\r\nLösning: Öppna någon annan Fil\r\n"
        "Eventuellt     Radera denna\r\n\r\n");
    DeleteRow(0);
    EXPECT_EQ(StoredRows(), 1);
    EXPECT_EQ(LogText(), "");
}

TEST_F(HoldingsGridTest, ADeletionIsLogged) {
    SetToday(2026, 11, 16);
    StartWith(ThreeHoldings());
    ExpectDeleteQuestion(Answer::Yes);
    DeleteRow(1);
    EXPECT_EQ(LogText(),
              "26-11-16\r\n"
              "M\xE5ndag 16 November 2026\r\n"
              "Raderades : Premiepension Rusken Kina\r\n"
              "249 995       2026-01-02  \r\n"
              "10  a' 100  kr     1000,00  kr\r\n");
}

TEST_F(HoldingsGridTest, ALogThatCannotBeWrittenStopsTheDeletion) {
    StartWith(ThreeHoldings());
    std::filesystem::create_directory(Folder() / "FonderLogg.txt");
    ExpectDeleteQuestion(Answer::Yes);
    outside.dialogs.Expect(UntrappedText(Error{ErrorNumber::PermissionDenied, ""}));
    DeleteRow(1);
    EXPECT_EQ(StoredRows(), 3);
    EXPECT_EQ(PointsOf(2).size(), 2U);
    EXPECT_EQ(Tag(Window().DBGrid), "");
}

TEST_F(HoldingsGridTest, AfterTheFirstRowIsDeletedTheNextOneCarriesTheCurveList) {
    StartWith(ThreeHoldings());
    ExpectDeleteQuestion(Answer::Yes);
    DeleteRow(0);
    EXPECT_EQ(Holding(0, kSkala), "2./45/-30");
    EXPECT_EQ(Holding(1, kSkala), "15/-10");
}

TEST_F(HoldingsGridTest, DeletingTheOpenHoldingClearsThePanel) {
    MakeFile(ThreeHoldings());
    Start();
    ChooseFund(1);
    OpenGrid();
    ExpectDeleteQuestion(Answer::Yes);
    DeleteRow(1);
    EXPECT_EQ(FraData(0), "");
    EXPECT_TRUE(Window().panBasData->isVisible());
    EXPECT_EQ(Window().SelectedCurves, std::vector<std::int32_t>{1});
}

TEST_F(HoldingsGridTest, ADeletionIsCarriedOutInTheOpenFileWhateverTheStartFileIs) {
    StartWith(ThreeHoldings());
    Window().CurrentFile = (Folder() / "Rusken_Kina.mdb").string();
    ExpectDeleteQuestion(Answer::Yes);
    DeleteRow(1);
    EXPECT_TRUE(PointsOf(2).empty());
    EXPECT_FALSE(std::filesystem::exists(Folder() / "Rusken_Kina.mdb"));
}

TEST_F(HoldingsGridTest, WithTheKeyboardAlone) {
    StartWith(ThreeHoldings());
    Go(0, Fond);
    Key(Qt::Key_Down);
    Key(Qt::Key_Space, Qt::ShiftModifier);
    ExpectDeleteQuestion(Answer::Yes);
    Key(Qt::Key_Delete);
    EXPECT_EQ(StoredRows(), 2);
    Key(Qt::Key_Down);
    Keys("Fjärde");
    Key(Qt::Key_Right);
    Keys("123456");
    Key(Qt::Key_Return);
    Keys("2026-03-02");
    Key(Qt::Key_Return);
    Keys("4");
    Key(Qt::Key_Return);
    Keys("25");
    Key(Qt::Key_Up);
    ASSERT_EQ(StoredRows(), 3);
    EXPECT_EQ(Holding(2, kFond), "Fjärde");
}

// ---- Data sources that fail ----

TEST_F(HoldingsGridTest, AFailingDataSourceShowsNumberAndName) {
    StartWith(TwoHoldings());
    const std::pair<DataSource*, const char*> sources[] = {
        {Window().dtaBasData, "61  i dtaBasData"},
        {Window().dtaPlott, "61  i dtaPlott"},
        {Window().dtaSQL, "61  i dtaSQL"}};
    for (const auto& [source, text] : sources) {
        outside.dialogs.Expect(text);
        source->Guard([] { throw Error{ErrorNumber::DiskFull, "full"}; });
    }
}

}  // namespace
