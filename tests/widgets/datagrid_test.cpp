#include "widgets/datagrid.h"

#include "base/keyfilter.h"
#include "platform/caption.h"
#include "platform/datasource.h"
#include "platform/keystrokes.h"
#include "platform/qttext.h"
#include "tests/support/memoryrecords.h"
#include "widgets/colours.h"

#include <QApplication>
#include <QColor>
#include <QFont>
#include <QHeaderView>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QModelIndexList>
#include <QPalette>
#include <QPoint>
#include <QRect>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using jet::ColumnType;

std::vector<jet::ColumnDesign> Columns() {
    return {{.name = "Fond", .type = ColumnType::Text, .size = 50},
            {.name = "Andelar", .type = ColumnType::Single},
            {.name = "Dag", .type = ColumnType::Long},
            {.name = "Summa", .type = ColumnType::Double},
            {.name = "Gömd", .type = ColumnType::Text, .size = 50}};
}

MemoryRecords::Row Row(const char* name, float shares, std::int32_t day, double sum) {
    return {jet::Value(name), jet::Value(shares), jet::Value(day), jet::Value(sum), jet::Value()};
}

class GridTest : public ::testing::Test {
  protected:
    enum { kName, kShares, kDay, kSum };

    GridTest() {
        auto* column = new QVBoxLayout(&window_);
        column->addWidget(&grid_);
        column->addWidget(&other_);
        grid_.SetKeyStrokes(keyStrokes_);
        grid_.SetColumns(
            {{.caption = "Fond", .field = "Fond", .widthShare = 3},
             {.caption = "Andelar",
              .field = "Andelar",
              .decimals = 4,
              .filter = kGridKeys,
              .enterKeys = "{RIGHT}"},
             {.caption = "Dag", .field = "Dag", .filter = kGridKeys, .enterKeys = "{RIGHT}"},
             {.caption = "Summa",
              .field = "Summa",
              .locked = true,
              .decimals = 2,
              .filter = kGridKeys,
              .enterKeys = "{RIGHT}"}});
        QObject::connect(&source_, &DataSource::Failed, &source_,
                         [this](int number) { failures_.push_back(number); });
        Give({Row("Ett", 1.5F, 100, 10.125), Row("Två", 2, 200, 20), Row("Tre", 3, 300, 30)});
        grid_.SetDataSource(&source_);
        window_.resize(500, 300);
        window_.show();
        window_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
        grid_.setFocus();
    }

    void Give(std::vector<MemoryRecords::Row> rows) {
        records_ = std::make_shared<MemoryRecords>(Columns(), std::move(rows));
        source_.SetRecordSet(records_);
    }
    QTableView& View() { return grid_.View(); }
    void Go(int row, int column) { View().setCurrentIndex(View().model()->index(row, column)); }
    void GoToNewRow() { Go(View().model()->rowCount() - 1, 0); }
    /// To the widget that has the focus: the table, or the cell's editor.
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void Type(const char* text) {
        for (const QChar character : QString::fromUtf8(text)) {
            QTest::keyClick(QApplication::focusWidget(), character.toLatin1());
        }
    }
    bool Editing() const {
        return qobject_cast<EntryField*>(QApplication::focusWidget()) != nullptr;
    }
    std::string Editor() const {
        const auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        return editor == nullptr ? "(no editor)" : FromQt(editor->text());
    }
    std::pair<int, int> Cell() const { return {grid_.CurrentRow(), grid_.CurrentColumn()}; }
    std::string Stored(std::size_t row, std::size_t field) const {
        return records_->Rows().at(row).at(field).Text();
    }
    void ClickRowHeader(int row) {
        QHeaderView* header = View().verticalHeader();
        const QPoint at(header->width() / 2,
                        header->sectionViewportPosition(row) + header->sectionSize(row) / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    }
    QPoint CellCentre(int row, int column) {
        return View().visualRect(View().model()->index(row, column)).center();
    }
    void DoubleClick(int row, int column) {
        const QPoint at = CellCentre(row, column);
        QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, at);
        QTest::mouseDClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, at);
        // The toolkit's own double click leaves the button down. The cell's field, or a box over
        // it, must not see it come up.
        QTest::mouseRelease(&other_, Qt::LeftButton);
    }

    QWidget window_;
    DataGrid grid_{&window_};
    QLineEdit other_{&window_};
    DataSource source_{"dtaTest", "Test"};
    std::shared_ptr<MemoryRecords> records_;
    FocusKeyStrokes keyStrokes_;
    std::vector<int> failures_;
};

// ---- What it shows ----

TEST_F(GridTest, ShowsTheRowsAndAnEmptyLastOne) {
    ASSERT_EQ(View().model()->rowCount(), 4);
    EXPECT_EQ(grid_.CellText(1, kName), "Två");
    EXPECT_EQ(grid_.CellText(3, kName), "");
    EXPECT_EQ(grid_.CellText(3, kShares), "");
}

TEST_F(GridTest, ShowsNumbersWithCommaAndItsOwnDecimals) {
    EXPECT_EQ(grid_.CellText(0, kShares), "1,5000");
    EXPECT_EQ(grid_.CellText(0, kDay), "100");
    EXPECT_EQ(grid_.CellText(1, kSum), "20,00");
}

TEST_F(GridTest, ShowsDatesAsYearMonthDay) {
    EXPECT_EQ(ShownText(jet::Value(jet::Date{36891})), "2000-12-31");
}

TEST_F(GridTest, HasItsColumnCaptions) {
    EXPECT_EQ(View().model()->headerData(kShares, Qt::Horizontal), QStringLiteral("Andelar"));
}

TEST_F(GridTest, WithoutARecordSetItHasNoRows) {
    source_.SetRecordSet(nullptr);
    EXPECT_EQ(View().model()->rowCount(), 0);
    Type("x");
    EXPECT_FALSE(Editing());
}

TEST_F(GridTest, AnEmptyRecordSetHasOnlyTheRowForNewData) {
    Give({});
    EXPECT_EQ(View().model()->rowCount(), 1);
    EXPECT_TRUE(grid_.OnNewRow());
}

TEST_F(GridTest, ACellThatCannotBeReadIsEmptyWithoutAMessage) {
    records_->readFails = ErrorNumber::RecordDeleted;
    window_.grab();
    EXPECT_EQ(grid_.CellText(0, kName), "");
    EXPECT_TRUE(failures_.empty());
}

TEST_F(GridTest, AColumnThatTheRecordSetLacksIsEmpty) {
    grid_.SetColumns({{.caption = "Saknas", .field = "Saknas"}});
    EXPECT_EQ(grid_.CellText(0, 0), "");
    EXPECT_TRUE(failures_.empty());
}

TEST_F(GridTest, ReadsOnlyTheCellsThatShow) {
    std::vector<MemoryRecords::Row> rows(500'000, Row("Fond", 1, 1, 1));
    Give(std::move(rows));
    window_.grab();
    EXPECT_EQ(View().model()->rowCount(), 500'001);
    EXPECT_LT(records_->cellsRead, 2'000);
    View().scrollToBottom();
    window_.grab();
    EXPECT_LT(records_->cellsRead, 4'000);
}

TEST_F(GridTest, WhileHiddenItReadsNothing) {
    grid_.hide();
    Give({Row("Ny", 1, 1, 1)});
    source_.Refresh();
    EXPECT_EQ(records_->cellsRead, 0);
    grid_.show();
    EXPECT_EQ(grid_.CellText(0, kName), "Ny");
}

// ---- The current row ----

TEST_F(GridTest, MovingInTheGridMovesTheDataSource) {
    Key(Qt::Key_Down);
    EXPECT_EQ(source_.Position(), 1);
}

TEST_F(GridTest, MovingTheDataSourceMovesTheGrid) {
    Go(0, kDay);
    source_.MoveTo(2);
    EXPECT_EQ(Cell(), std::pair(2, static_cast<int>(kDay)));
}

TEST_F(GridTest, TheEmptyLastRowIsTheDataSourcesEnd) {
    GoToNewRow();
    EXPECT_TRUE(source_.Eof());
    EXPECT_TRUE(grid_.OnNewRow());
}

TEST_F(GridTest, ARefreshKeepsTheColumnAndFollowsTheRow) {
    Go(2, kDay);
    source_.Refresh();
    EXPECT_EQ(Cell(), std::pair(0, static_cast<int>(kDay)));
}

TEST_F(GridTest, TellsEveryChangeOfRowOrColumn) {
    std::vector<std::pair<int, int>> told;
    grid_.events.rowOrColumnChanged = [&] { told.push_back(Cell()); };
    Key(Qt::Key_Right);
    Key(Qt::Key_Down);
    const std::vector<std::pair<int, int>> expected{{0, 1}, {1, 1}};
    EXPECT_EQ(told, expected);
}

TEST_F(GridTest, AClickChoosesItsCell) {
    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, CellCentre(1, kDay));
    EXPECT_EQ(Cell(), std::pair(1, static_cast<int>(kDay)));
    EXPECT_EQ(source_.Position(), 1);
}

TEST_F(GridTest, TabGoesOnToTheNextControl) {
    Key(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &other_);
}

// ---- Editing a cell ----

TEST_F(GridTest, TypingReplacesTheCell) {
    Go(1, kDay);
    Type("7");
    EXPECT_EQ(Editor(), "7");
    Type("5");
    EXPECT_EQ(Editor(), "75");
}

TEST_F(GridTest, F2EditsTheCellAsItStands) {
    Go(1, kDay);
    Key(Qt::Key_F2);
    EXPECT_EQ(Editor(), "200");
}

TEST_F(GridTest, ADoubleClickEdits) {
    DoubleClick(1, kDay);
    EXPECT_EQ(Editor(), "200");
}

TEST_F(GridTest, AFilteredCharacterDoesNotOpenTheCell) {
    Go(1, kDay);
    Type("a");
    EXPECT_FALSE(Editing());
}

TEST_F(GridTest, APointBecomesACommaAlsoAsTheFirstCharacter) {
    Go(1, kShares);
    Type(".5.");
    EXPECT_EQ(Editor(), ",5,");
}

TEST_F(GridTest, AColumnWithoutFilterTakesEverything) {
    Go(1, kName);
    Type("a.+B");
    EXPECT_EQ(Editor(), "a.+B");
}

TEST_F(GridTest, BackspaceOpensTheCellEmpty) {
    Go(1, kDay);
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Editor(), "");
}

TEST_F(GridTest, EnterBecomesTheColumnsKeyStrokeAndMovesRight) {
    Go(1, kShares);
    Type("7");
    Key(Qt::Key_Return);
    EXPECT_EQ(Cell(), std::pair(1, static_cast<int>(kDay)));
    EXPECT_FALSE(Editing());
    EXPECT_EQ(grid_.CellText(1, kShares), "7");
}

TEST_F(GridTest, EnterMovesRightFromACellThatIsNotEditedToo) {
    Go(1, kShares);
    Key(Qt::Key_Enter);
    EXPECT_EQ(Cell(), std::pair(1, static_cast<int>(kDay)));
}

TEST_F(GridTest, EnterMovesRightOutOfATextWhoseStartTheCursorIsAt) {
    Go(1, kShares);
    Key(Qt::Key_F2);
    Key(Qt::Key_Home);
    Key(Qt::Key_Return);
    EXPECT_EQ(Cell(), std::pair(1, static_cast<int>(kDay)));
}

TEST_F(GridTest, EnterInAColumnWithoutKeyStrokeMovesRightByItself) {
    Go(1, kName);
    Type("Ny");
    Key(Qt::Key_Return);
    EXPECT_EQ(Cell(), std::pair(1, static_cast<int>(kShares)));
    EXPECT_FALSE(Editing());
    EXPECT_EQ(grid_.CellText(1, kName), "Ny");
    EXPECT_EQ(Stored(1, kName), "Två");
}

TEST_F(GridTest, EnterInTheLastColumnStays) {
    Go(1, kSum);
    Key(Qt::Key_Return);
    EXPECT_EQ(Cell(), std::pair(1, static_cast<int>(kSum)));
}

TEST_F(GridTest, EnterInTheLastColumnStoresARowThatIsTyped) {
    Go(1, kDay);
    Type("7");
    Key(Qt::Key_Return);
    Key(Qt::Key_Return);
    EXPECT_EQ(Stored(1, kDay), "7");
    EXPECT_EQ(Cell(), std::pair(2, static_cast<int>(kName)));
}

TEST_F(GridTest, TabGoesThroughTheCellsOfARowThatIsTyped) {
    Go(1, kName);
    Type("Ny");
    for (const int column : {kShares, kDay, kSum}) {
        Key(Qt::Key_Tab);
        EXPECT_EQ(Cell(), std::pair(1, column));
        EXPECT_TRUE(View().hasFocus());
    }
    EXPECT_EQ(Stored(1, kName), "Två");
    Key(Qt::Key_Tab);
    EXPECT_TRUE(other_.hasFocus());
    EXPECT_EQ(Stored(1, kName), "Ny");
}

TEST_F(GridTest, ShiftAndTabGoBackThroughThem) {
    Go(1, kDay);
    Type("7");
    for (const int column : {kShares, kName}) {
        Key(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(Cell(), std::pair(1, column));
    }
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(other_.hasFocus());
    EXPECT_EQ(Stored(1, kDay), "7");
}

TEST_F(GridTest, AnArrowLeavesACellThatWasOpenedByTyping) {
    Go(1, kShares);
    Type("7");
    Key(Qt::Key_Left);
    EXPECT_EQ(Cell(), std::pair(1, static_cast<int>(kName)));
    EXPECT_EQ(grid_.CellText(1, kShares), "7");
}

TEST_F(GridTest, AnArrowMovesTheCursorInACellThatWasOpenedByF2) {
    Go(1, kDay);
    Key(Qt::Key_F2);
    Key(Qt::Key_Home);
    Key(Qt::Key_Right);
    Type("9");
    EXPECT_EQ(Editor(), "2900");
}

TEST_F(GridTest, EscGivesUpTheCellAndThenTheRow) {
    Go(1, kDay);
    Type("7");
    Key(Qt::Key_Right);
    Go(1, kName);
    Type("Ny");
    Key(Qt::Key_Escape);
    EXPECT_EQ(grid_.CellText(1, kName), "Två");
    EXPECT_EQ(grid_.CellText(1, kDay), "7");
    EXPECT_TRUE(grid_.RowTyped());
    Key(Qt::Key_Escape);
    EXPECT_EQ(grid_.CellText(1, kDay), "200");
    EXPECT_FALSE(grid_.RowTyped());
    EXPECT_EQ(Stored(1, kDay), "200");
}

TEST_F(GridTest, ALockedColumnIsNotEdited) {
    Go(1, kSum);
    Type("5");
    EXPECT_FALSE(Editing());
    Key(Qt::Key_F2);
    EXPECT_FALSE(Editing());
}

TEST_F(GridTest, TellsBeforeAnEditAlsoInALockedColumn) {
    std::vector<int> told;
    grid_.events.beforeCellEdit = [&](int column) {
        told.push_back(column);
        return true;
    };
    Go(1, kSum);
    Type("5");
    Key(Qt::Key_F2);
    DoubleClick(1, kSum);
    EXPECT_EQ(told, (std::vector<int>{kSum, kSum, kSum}));
}

TEST_F(GridTest, AnEditCanBeForbidden) {
    grid_.events.beforeCellEdit = [](int) { return false; };
    Go(1, kDay);
    Type("5");
    EXPECT_FALSE(Editing());
}

TEST_F(GridTest, ACellsTextCanBeRewrittenBeforeItIsStored) {
    CellChange seen;
    grid_.events.beforeCellStore = [&](CellChange& change) {
        seen = change;
        change.text = "8";
    };
    Go(1, kDay);
    Type("7");
    Key(Qt::Key_Return);
    EXPECT_EQ(seen.column, kDay);
    EXPECT_EQ(seen.oldText, "200");
    EXPECT_EQ(seen.text, "7");
    EXPECT_EQ(grid_.CellText(1, kDay), "8");
}

TEST_F(GridTest, ACellsTextCanBeRefused) {
    grid_.events.beforeCellStore = [](CellChange& change) { change.cancel = true; };
    Go(1, kDay);
    Type("7");
    Key(Qt::Key_Return);
    EXPECT_EQ(grid_.CellText(1, kDay), "200");
    EXPECT_FALSE(grid_.RowTyped());
}

/// Says no to every text, in a box that the desktop shows and that is closed as soon as it stands.
class RefusingGridTest : public GridTest {
  protected:
    RefusingGridTest() {
        grid_.events.beforeCellStore = [this](CellChange& change) {
            change.stay = change.cancel = true;
            ++told_;
            QMessageBox box(&window_);
            QTimer::singleShot(0, &box, [&box] { box.accept(); });
            box.exec();
            // A window manager does it.
            window_.activateWindow();
        };
        Go(1, kDay);
        Type("7");
    }
    void ExpectTypingGoesOn() {
        EXPECT_EQ(told_, 1);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
        EXPECT_EQ(Cell(), std::pair(1, static_cast<int>(kDay)));
        EXPECT_EQ(Editor(), "7");
        grid_.events.beforeCellStore = {};
        Type("5");
        Key(Qt::Key_Down);
        EXPECT_EQ(Stored(1, kDay), "75");
        EXPECT_EQ(FromQt(other_.text()), "");
    }

    int told_ = 0;
};

TEST_F(RefusingGridTest, KeysStayInTheCell) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Down, Qt::Key_Left}) {
        told_ = 0;
        Key(key);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
        EXPECT_EQ(told_, 1);
        EXPECT_EQ(Cell(), std::pair(1, static_cast<int>(kDay)));
        EXPECT_EQ(Editor(), "7");
    }
    told_ = 1;
    ExpectTypingGoesOn();
}

TEST_F(RefusingGridTest, AClickOnAnotherCellStays) {
    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, CellCentre(1, kName));
    ExpectTypingGoesOn();
}

TEST_F(RefusingGridTest, AClickOnAnotherRowStays) {
    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, CellCentre(0, kDay));
    ExpectTypingGoesOn();
}

TEST_F(RefusingGridTest, AnotherControlStays) {
    other_.setFocus();
    ExpectTypingGoesOn();
}

TEST_F(RefusingGridTest, StoringStays) {
    EXPECT_FALSE(grid_.StoreRow());
    ExpectTypingGoesOn();
}

TEST_F(RefusingGridTest, EscGivesTheCellUp) {
    Key(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    EXPECT_TRUE(grid_.GiveUpCell());
    EXPECT_FALSE(grid_.RowTyped());
    EXPECT_EQ(grid_.CellText(1, kDay), "200");
}

TEST_F(GridTest, ACellWhoseTextIsTakenAwayStaysCurrent) {
    grid_.events.beforeCellStore = [](CellChange& change) {
        change.text = "";
        change.stay = true;
    };
    Go(1, kDay);
    Type("7");
    Key(Qt::Key_Return);
    EXPECT_EQ(grid_.CellText(1, kDay), "");
    EXPECT_EQ(Cell(), std::pair(1, static_cast<int>(kDay)));
    EXPECT_TRUE(View().hasFocus());
}

TEST_F(GridTest, AWindowThatComesOverItLeavesTheCellOpen) {
    Go(1, kDay);
    Type("7");
    QWidget over;
    over.show();
    over.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&over));
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    EXPECT_EQ(Editor(), "7");
    EXPECT_FALSE(grid_.RowTyped());
}

TEST_F(GridTest, ACellLeftAsItWasIsNoChange) {
    int stores = 0;
    grid_.events.beforeCellStore = [&](CellChange&) { ++stores; };
    Go(1, kDay);
    Key(Qt::Key_F2);
    Key(Qt::Key_Return);
    EXPECT_EQ(stores, 0);
    EXPECT_FALSE(grid_.RowTyped());
}

TEST_F(GridTest, TellsAfterACellWasStored) {
    std::vector<int> told;
    grid_.events.afterCellStore = [&](int column) {
        told.push_back(column);
        grid_.TypeText("Summa", "99");
    };
    Go(1, kDay);
    Type("7");
    Key(Qt::Key_Return);
    EXPECT_EQ(told, std::vector<int>{kDay});
    EXPECT_EQ(grid_.CellText(1, kSum), "99");
}

// ---- Storing a row ----

TEST_F(GridTest, ARowIsStoredWhenItIsLeftAndNotBefore) {
    Go(1, kDay);
    Type("7");
    Key(Qt::Key_Return);
    EXPECT_EQ(Stored(1, kDay), "200");
    Key(Qt::Key_Down);
    EXPECT_EQ(Stored(1, kDay), "7");
    EXPECT_EQ(source_.Position(), 2);
    EXPECT_FALSE(grid_.RowTyped());
}

TEST_F(GridTest, DownStoresTheCellAndTheRowWhileTyping) {
    Go(1, kDay);
    Type("7");
    Key(Qt::Key_Down);
    EXPECT_EQ(Stored(1, kDay), "7");
    EXPECT_EQ(Cell(), std::pair(2, static_cast<int>(kDay)));
}

TEST_F(GridTest, AClickOnAnotherRowStores) {
    Go(1, kDay);
    Type("7");
    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, CellCentre(0, kName));
    EXPECT_EQ(Stored(1, kDay), "7");
    EXPECT_EQ(Cell(), std::pair(0, static_cast<int>(kName)));
}

TEST_F(GridTest, AnotherControlStores) {
    Go(1, kDay);
    Type("7");
    other_.setFocus();
    EXPECT_EQ(Stored(1, kDay), "7");
}

TEST_F(GridTest, ANewRowIsAddedWhenItIsLeft) {
    GoToNewRow();
    Type("Fyra");
    Key(Qt::Key_Return);
    EXPECT_EQ(records_->Rows().size(), 3U);
    Key(Qt::Key_Up);
    ASSERT_EQ(records_->Rows().size(), 4U);
    EXPECT_EQ(Stored(3, kName), "Fyra");
    EXPECT_EQ(View().model()->rowCount(), 5);
    EXPECT_EQ(grid_.CellText(3, kName), "Fyra");
    EXPECT_EQ(grid_.CellText(4, kName), "");
    EXPECT_EQ(Cell(), std::pair(2, static_cast<int>(kShares)));
}

TEST_F(GridTest, TwoNewRowsInARow) {
    GoToNewRow();
    Type("Fyra");
    Key(Qt::Key_Down);
    EXPECT_EQ(grid_.CurrentRow(), 4);
    Type("Fem");
    Key(Qt::Key_Up);
    ASSERT_EQ(records_->Rows().size(), 5U);
    EXPECT_EQ(Stored(3, kName), "Fyra");
    EXPECT_EQ(Stored(4, kName), "Fem");
}

TEST_F(GridTest, TheNextEmptyRowStandsUnderANewRowThatIsTyped) {
    GoToNewRow();
    Type("Fyra");
    EXPECT_EQ(View().model()->rowCount(), 5);
    EXPECT_EQ(Editor(), "Fyra");
    EXPECT_TRUE(grid_.GiveUpCell());
    EXPECT_EQ(View().model()->rowCount(), 4);
    Type("Fyra");
    Key(Qt::Key_Return);
    EXPECT_EQ(View().model()->rowCount(), 5);
    EXPECT_EQ(grid_.CellText(4, kName), "");
    grid_.CancelRow();
    EXPECT_EQ(View().model()->rowCount(), 4);
}

TEST_F(GridTest, DownStoresANewRowAndBeginsTheNextOne) {
    Give({});
    Type("Ett");
    Key(Qt::Key_Return);
    Type("5");
    Key(Qt::Key_Down);
    ASSERT_EQ(records_->Rows().size(), 1U);
    EXPECT_EQ(Stored(0, kShares), "5");
    EXPECT_EQ(Cell(), std::pair(1, static_cast<int>(kName)));
    EXPECT_TRUE(grid_.OnNewRow());
}

TEST_F(GridTest, AnEmptyCellIsStoredAsNothing) {
    Go(1, kDay);
    Key(Qt::Key_Backspace);
    Key(Qt::Key_Down);
    EXPECT_TRUE(records_->Rows()[1][kDay].IsNull());
}

TEST_F(GridTest, BeforeARowIsStoredItCanBeCompleted) {
    grid_.events.beforeRowStore = [&] {
        grid_.TypeText("Gömd", "lagt till " + grid_.TypedText("Fond"));
        return true;
    };
    GoToNewRow();
    Type("Fyra");
    Key(Qt::Key_Up);
    EXPECT_EQ(Stored(3, 4), "lagt till Fyra");
}

TEST_F(GridTest, ARowThatMayNotBeStoredStaysTypedAndCurrent) {
    grid_.events.beforeRowStore = [] { return false; };
    Go(1, kDay);
    Type("7");
    Key(Qt::Key_Down);
    EXPECT_EQ(Cell(), std::pair(1, static_cast<int>(kDay)));
    EXPECT_EQ(grid_.CellText(1, kDay), "7");
    EXPECT_EQ(Stored(1, kDay), "200");
    EXPECT_EQ(source_.Position(), 1);
}

TEST_F(GridTest, AClickElsewhereDoesNotLeaveARowThatMayNotBeStored) {
    grid_.events.beforeRowStore = [] { return false; };
    Go(1, kDay);
    Type("7");
    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, CellCentre(2, kName));
    EXPECT_EQ(grid_.CurrentRow(), 1);
    const QModelIndexList selected = View().selectionModel()->selectedIndexes();
    ASSERT_EQ(selected.size(), 1);
    EXPECT_EQ(selected.first().row(), 1);
}

TEST_F(GridTest, ARowThatCannotBeStoredStaysTypedAndTheFailureIsTold) {
    records_->updateFails = ErrorNumber::DiskFull;
    Go(1, kDay);
    Type("7");
    Key(Qt::Key_Down);
    EXPECT_EQ(failures_, std::vector<int>{61});
    EXPECT_EQ(grid_.CellText(1, kDay), "7");
    EXPECT_EQ(grid_.CurrentRow(), 1);
    EXPECT_FALSE(source_.Pending());
    records_->updateFails.reset();
    Key(Qt::Key_Down);
    EXPECT_EQ(Stored(1, kDay), "7");
}

TEST_F(GridTest, ATextThatIsNoNumberStaysTypedAndTheFailureIsTold) {
    Go(1, kShares);
    Type("1,2,3");
    Key(Qt::Key_Down);
    EXPECT_EQ(failures_, std::vector<int>{13});
    EXPECT_EQ(grid_.CellText(1, kShares), "1,2,3");
    EXPECT_EQ(Stored(1, kShares), "2");
}

TEST_F(GridTest, TheColumnThatCannotHoldItsTextIsKnownWhileTheFailureIsTold) {
    std::vector<std::optional<int>> refused;
    QObject::connect(&source_, &DataSource::Failed, &source_,
                     [&](int) { refused.push_back(grid_.RefusedColumn()); });
    Go(1, kDay);
    Type("3000000000");
    Key(Qt::Key_Down);
    Type("7");
    records_->updateFails = ErrorNumber::DiskFull;
    Key(Qt::Key_Down);
    EXPECT_EQ(refused, (std::vector<std::optional<int>>{kDay, std::nullopt}));
    EXPECT_EQ(grid_.RefusedColumn(), std::nullopt);
    EXPECT_EQ(failures_, (std::vector<int>{6, 61}));
    EXPECT_EQ(Stored(1, kDay), "200");
}

TEST_F(GridTest, ANewRowThatCannotBeStoredStaysTyped) {
    records_->updateFails = ErrorNumber::ReadOnly;
    GoToNewRow();
    Type("Fyra");
    Key(Qt::Key_Up);
    EXPECT_EQ(failures_, std::vector<int>{3027});
    EXPECT_EQ(Cell(), std::pair(3, static_cast<int>(kName)));
    EXPECT_EQ(grid_.CellText(3, kName), "Fyra");
    EXPECT_EQ(View().model()->rowCount(), 5);
}

TEST_F(GridTest, TellsWhetherTheStoredRowIsNew) {
    std::vector<bool> told;
    grid_.events.afterRowStore = [&](bool isNew) { told.push_back(isNew); };
    Go(1, kDay);
    Type("7");
    Key(Qt::Key_Down);
    GoToNewRow();
    Type("Fyra");
    Key(Qt::Key_Up);
    EXPECT_EQ(told, (std::vector<bool>{false, true}));
}

TEST_F(GridTest, WhatRunsAfterARowIsStoredMayChangeItAgain) {
    grid_.events.afterRowStore = [&](bool) {
        source_.Edit();
        source_.Set("Gömd", "efteråt");
        source_.Update();
    };
    GoToNewRow();
    Type("Fyra");
    Key(Qt::Key_Up);
    EXPECT_EQ(Stored(3, 4), "efteråt");
    EXPECT_EQ(grid_.CurrentRow(), 2);
    EXPECT_EQ(View().model()->rowCount(), 5);
}

TEST_F(GridTest, WhatRunsAfterARowIsStoredMayTakeItAwayAgain) {
    grid_.events.afterRowStore = [&](bool) {
        source_.Delete();
        source_.Refresh();
    };
    GoToNewRow();
    Type("Fyra");
    Key(Qt::Key_Up);
    EXPECT_EQ(records_->Rows().size(), 3U);
    EXPECT_EQ(View().model()->rowCount(), 4);
    EXPECT_EQ(grid_.CurrentRow(), 2);
    EXPECT_EQ(source_.Position(), 2);
}

TEST_F(GridTest, ACancelledRowLeavesNothing) {
    GoToNewRow();
    Type("Fyra");
    grid_.CancelRow();
    EXPECT_FALSE(Editing());
    EXPECT_EQ(grid_.CellText(3, kName), "");
    Key(Qt::Key_Up);
    EXPECT_EQ(records_->Rows().size(), 3U);
}

TEST_F(GridTest, RowsStoredByOthersShowAtOnce) {
    source_.AddNew();
    source_.Set("Fond", "Fyra");
    source_.Update();
    EXPECT_EQ(View().model()->rowCount(), 5);
    EXPECT_EQ(grid_.CellText(3, kName), "Fyra");
    EXPECT_EQ(grid_.CurrentRow(), 3);
}

TEST_F(GridTest, ARefreshForgetsWhatWasTyped) {
    Go(1, kDay);
    Type("7");
    Key(Qt::Key_Return);
    source_.Refresh();
    EXPECT_FALSE(grid_.RowTyped());
    EXPECT_EQ(grid_.CellText(1, kDay), "200");
}

// ---- Marking and deleting ----

TEST_F(GridTest, AClickAtTheFarLeftMarksTheRow) {
    ClickRowHeader(1);
    EXPECT_EQ(grid_.MarkedRow(), 1);
    EXPECT_EQ(source_.Position(), 1);
}

TEST_F(GridTest, MovingOnTakesTheMarkAway) {
    ClickRowHeader(1);
    Key(Qt::Key_Right);
    EXPECT_EQ(grid_.MarkedRow(), std::nullopt);
}

TEST_F(GridTest, ShiftAndSpaceMarkTheCurrentRow) {
    Go(2, kDay);
    Key(Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(grid_.MarkedRow(), 2);
}

TEST_F(GridTest, ControlAndSpaceMarkTheCurrentRow) {
    Go(2, kDay);
    Key(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(grid_.MarkedRow(), 2);
}

TEST_F(GridTest, DeleteWithoutAMarkDeletesNothing) {
    Key(Qt::Key_Delete);
    EXPECT_EQ(records_->Rows().size(), 3U);
}

TEST_F(GridTest, DeleteDeletesTheMarkedRow) {
    ClickRowHeader(1);
    Key(Qt::Key_Delete);
    ASSERT_EQ(records_->Rows().size(), 2U);
    EXPECT_EQ(Stored(1, kName), "Tre");
    EXPECT_EQ(View().model()->rowCount(), 3);
    EXPECT_EQ(grid_.CurrentRow(), 1);
    EXPECT_EQ(source_.Position(), 1);
    EXPECT_EQ(grid_.MarkedRow(), std::nullopt);
}

TEST_F(GridTest, DeletingTheLastRowLeavesTheOneBeforeCurrent) {
    ClickRowHeader(2);
    Key(Qt::Key_Delete);
    EXPECT_EQ(grid_.CurrentRow(), 1);
    EXPECT_EQ(source_.Position(), 1);
}

TEST_F(GridTest, DeletingTheOnlyRowLeavesTheRowForNewData) {
    Give({Row("Ett", 1, 1, 1)});
    ClickRowHeader(0);
    Key(Qt::Key_Delete);
    EXPECT_EQ(View().model()->rowCount(), 1);
    EXPECT_TRUE(grid_.OnNewRow());
}

TEST_F(GridTest, TheRowForNewDataIsNotDeleted) {
    int asked = 0;
    grid_.events.beforeRowDelete = [&] {
        ++asked;
        return true;
    };
    ClickRowHeader(3);
    Key(Qt::Key_Delete);
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(records_->Rows().size(), 3U);
}

TEST_F(GridTest, ADeletionCanBeForbidden) {
    bool after = false;
    grid_.events.beforeRowDelete = [] { return false; };
    grid_.events.afterRowDelete = [&] { after = true; };
    ClickRowHeader(1);
    Key(Qt::Key_Delete);
    EXPECT_EQ(records_->Rows().size(), 3U);
    EXPECT_FALSE(after);
}

TEST_F(GridTest, ADeletionIsAskedForOnItsRowAndToldAfterIt) {
    std::vector<std::string> told;
    grid_.events.beforeRowDelete = [&] {
        told.push_back("before " + source_.Field("Fond").Text());
        return true;
    };
    grid_.events.afterRowDelete = [&] {
        told.push_back(std::to_string(records_->Rows().size()) + " left");
    };
    ClickRowHeader(1);
    Key(Qt::Key_Delete);
    EXPECT_EQ(told, (std::vector<std::string>{"before Två", "2 left"}));
}

TEST_F(GridTest, ADeletionCanBeCarriedOutByOthers) {
    grid_.events.deleteRow = [&] { source_.Delete(); };
    ClickRowHeader(0);
    EXPECT_TRUE(grid_.DeleteMarkedRow());
    EXPECT_EQ(Stored(0, kName), "Två");
}

TEST_F(GridTest, ADeletionThatFailsIsToldAndNothingFollows) {
    bool after = false;
    grid_.events.afterRowDelete = [&] { after = true; };
    records_->deleteFails = ErrorNumber::ReadOnly;
    ClickRowHeader(1);
    Key(Qt::Key_Delete);
    EXPECT_EQ(failures_, std::vector<int>{3027});
    EXPECT_FALSE(after);
    EXPECT_EQ(View().model()->rowCount(), 4);
}

TEST_F(GridTest, DeletingARowThatIsTypedForgetsTheTyping) {
    Go(1, kDay);
    Type("7");
    Key(Qt::Key_Return);
    Key(Qt::Key_Space, Qt::ShiftModifier);
    Key(Qt::Key_Delete);
    EXPECT_EQ(records_->Rows().size(), 2U);
    EXPECT_FALSE(grid_.RowTyped());
    EXPECT_EQ(grid_.CellText(1, kName), "Tre");
}

// ---- Its looks ----

TEST_F(GridTest, TheColumnsFillItsWidth) {
    int width = 0;
    for (int column = 0; column < 4; ++column) width += View().columnWidth(column);
    EXPECT_EQ(width, View().viewport()->width());
    EXPECT_GT(View().columnWidth(kName), View().columnWidth(kDay));
}

TEST_F(GridTest, TheCaptionStandsAboveTheGrid) {
    grid_.SetGridCaption(QStringLiteral("Rubrik"));
    EXPECT_EQ(Caption(&grid_), "Rubrik");
    EXPECT_EQ(View().accessibleName(), QStringLiteral("Rubrik"));
}

TEST_F(GridTest, TheCellBeingTypedHasTheFocusColour) {
    Go(1, kDay);
    Type("7");
    const QImage cell = QApplication::focusWidget()->grab().toImage();
    EXPECT_EQ(cell.pixelColor(cell.width() / 3, cell.height() / 2), QColor(211, 240, 254));
}

TEST_F(GridTest, ItsTextIsDarkOnLightUnderADarkTheme) {
    QPalette dark(Qt::white, QColor(40, 40, 40));
    dark.setColor(QPalette::Base, QColor(20, 20, 20));
    window_.setPalette(dark);
    EXPECT_LT(View().palette().color(QPalette::Text).lightness(), 60);
    const QImage seen = View().viewport()->grab().toImage();
    const QRect cell = View().visualRect(View().model()->index(1, kName));
    EXPECT_GT(seen.pixelColor(cell.right() - 6, cell.center().y()).lightness(), 200);
}

TEST_F(GridTest, ItsRowsGrowWithTheFont) {
    const int before = View().rowHeight(0);
    QFont large = grid_.font();
    large.setPointSizeF(large.pointSizeF() * 2);
    grid_.setFont(large);
    EXPECT_GT(View().rowHeight(0), before * 3 / 2);
}

TEST_F(GridTest, ItsLastRowIsNotCut) {
    const auto expectWholeRows = [this] {
        QApplication::processEvents();
        EXPECT_EQ(View().viewport()->height() % View().rowHeight(0), 0);
        EXPECT_GT(View().height() + View().rowHeight(0), grid_.height() - 2 * grid_.frameWidth())
            << "more than one row is missing";
    };
    for (const int height : {300, 311, 322, 200}) {
        window_.resize(500, height);
        expectWholeRows();
    }
}

TEST_F(GridTest, ItsLastRowIsNotCutWhenTheFontChangesWhileItIsUp) {
    for (const double size : {1.5, 0.8, 2.1}) {
        QFont other = grid_.font();
        other.setPointSizeF(9 * size);
        grid_.setFont(other);
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return View().viewport()->height() % View().rowHeight(0) == 0;
        })) << size;
    }
}

TEST_F(GridTest, ItsHeadingsStandAsWhatStandsUnderThem) {
    for (int column = 0; column < View().model()->columnCount(); ++column) {
        const QVariant cell = View().model()->index(0, column).data(Qt::TextAlignmentRole);
        EXPECT_EQ(View().model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole), cell)
            << column;
    }
    EXPECT_TRUE(View().model()->headerData(kShares, Qt::Horizontal, Qt::TextAlignmentRole).toInt() &
                Qt::AlignRight);
}

TEST_F(GridTest, ItsFrameShowsWhetherItHasTheKeys) {
    View().setFocus();
    QApplication::processEvents();
    EXPECT_EQ(grid_.grab().toImage().pixelColor(0, 20), ToQColor(colours::kAccent));
    View().clearFocus();
    QApplication::processEvents();
    EXPECT_EQ(grid_.grab().toImage().pixelColor(0, 20), ToQColor(colours::kBorder));
}

TEST_F(GridTest, TheFarLeftShowsTheCurrentRow) {
    const auto dark = [&](int row) {
        QHeaderView* header = View().verticalHeader();
        const QImage image = header->viewport()->grab().toImage();
        const int top = header->sectionViewportPosition(row);
        const QColor background = image.pixelColor(3, top + 4);
        int other = 0;
        for (int y = top + 4; y < top + header->sectionSize(row) - 4; ++y) {
            for (int x = 4; x < image.width() - 4; ++x) {
                if (std::abs(image.pixelColor(x, y).lightness() - background.lightness()) > 60)
                    ++other;
            }
        }
        return other;
    };
    Go(1, kDay);
    EXPECT_GT(dark(1), 20);
    EXPECT_EQ(dark(0), 0);
    EXPECT_GT(dark(3), 5) << "the row for new data has its star";
}

}  // namespace
