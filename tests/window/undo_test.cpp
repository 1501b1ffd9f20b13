// Every change of a fund file is taken back, done again, and brought back from its safety copy.

#include "app/texts.h"
#include "entry/texts.h"
#include "fundfile/schema.h"
#include "fundfile/texts.h"
#include "platform/datasource.h"
#include "tests/window/windowtest.h"
#include "widgets/boundfield.h"
#include "widgets/datagrid.h"

#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>

#include <fstream>
#include <functional>
#include <sstream>

namespace {

using namespace schema::holding;

class UndoTest : public WindowTest {
  public:
    using WindowTest::ChooseFund;
    using WindowTest::Click;
    using WindowTest::outside;
    using WindowTest::Press;
    using WindowTest::TypePrice;
    using WindowTest::Window;

    void SetUp() override {
        std::vector<TestHolding> holdings = TwoHoldings();
        holdings.emplace_back().fond = "Tredje & sista";
        MakeFile(holdings);
        SetToday(2026, 11, 16);
        Start();
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
    void Undo() { Key(Qt::Key_Z, Qt::ControlModifier); }
    void Redo() { Key(Qt::Key_Y, Qt::ControlModifier); }
    std::string UndoCaption() { return Caption(Window().mnuAngra); }
    std::string RedoCaption() { return Caption(Window().mnuGorOm); }

    void TypeCell(DataGrid& grid, int row, int column, const std::string& text) {
        grid.setFocus();
        grid.View().setCurrentIndex(grid.View().model()->index(row, column));
        Keys(text);
        Key(Qt::Key_Return);
    }
    void LeaveRow(DataGrid& grid) {
        const int row = grid.CurrentRow() == 0 ? 1 : 0;
        grid.View().setCurrentIndex(grid.View().model()->index(row, 0));
    }
    void DeleteRow(DataGrid& grid, int row) {
        grid.setFocus();
        QHeaderView* header = grid.View().verticalHeader();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          {header->width() / 2, header->sectionViewportPosition(row) + 8});
        Key(Qt::Key_Delete);
    }
    void OpenHoldings() {
        Click(Window().cmdPPMData);
        Window().DBGrid->setFocus();
    }
    void Fill(int box, const std::string& text) {
        Window().txtNyAndel[box]->setFocus();
        Window().txtNyAndel[box]->selectAll();
        Keys(text);
    }
    std::string LogText() {
        std::ifstream file(Folder() / "FonderLogg.txt", std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }
    /// As the window shows it, to the last label.
    std::vector<std::string> Shown() {
        std::vector<std::string> all = Lines();
        for (int panel = 2; panel <= 6; ++panel) all.push_back(Status(panel));
        for (int label = 0; label <= 9; ++label) all.push_back(FraData(label));
        for (const Drawing& drawing : Window().picDiagram->Drawings()) {
            all.push_back(drawing.label);
        }
        for (int place = 1; place <= 6; ++place) {
            all.push_back(Caption(Window().lblVertical[place]));
        }
        all.push_back(std::to_string(Window().dtaPlott->RecordCount()));
        all.push_back(std::to_string(Window().dtaBasData->RecordCount()));
        return all;
    }
};

// ---- Each kind ----

struct Kind {
    const char* name;
    std::function<void(UndoTest&)> change;
    std::string caption;  ///< of the menu item
};

void PrintTo(const Kind& kind, std::ostream* out) {
    *out << kind.name;
}

void DeleteHolding(UndoTest& test);
void TakeNotice(UndoTest& test);
void ChooseColour(UndoTest& test);

const std::vector<Kind>& Kinds();

class EachChange : public UndoTest, public testing::WithParamInterface<Kind> {};

TEST_P(EachChange, IsTakenBackAndDoneAgainByteForByte) {
    ChooseFund(0);
    const std::string before = Bytes();
    GetParam().change(*this);
    const std::string after = Bytes();
    ASSERT_FALSE(after == before) << "nothing was changed";
    EXPECT_EQ(UndoCaption(), "Ångra : " + GetParam().caption);
    EXPECT_EQ(RedoCaption(), "Gör om");
    EXPECT_FALSE(Window().mnuGorOm->isEnabled());
    Window().picDiagram->setFocus();
    Undo();
    EXPECT_TRUE(Bytes() == before);
    EXPECT_TRUE(Faults().empty());
    EXPECT_EQ(UndoCaption(), "Ångra") << "one change, one step";
    EXPECT_FALSE(Window().mnuAngra->isEnabled());
    EXPECT_EQ(RedoCaption(), "Gör om : " + GetParam().caption);
    Redo();
    EXPECT_TRUE(Bytes() == after);
    EXPECT_TRUE(Faults().empty());
    Window().mnuAngra->trigger();
    EXPECT_TRUE(Bytes() == before);
}

TEST_P(EachChange, ShowsTheWindowAnewWhenItIsTakenBack) {
    ChooseFund(0);
    GetParam().change(*this);
    if (Window().panBasData->isVisible()) Click(Window().cmdPPMData);
    Window().picDiagram->setFocus();
    const std::vector<std::string> after = Shown();
    Undo();
    const std::vector<std::string> undone = Shown();
    const bool wentWithIt = !Window().holding;
    Redo();
    if (!wentWithIt) EXPECT_EQ(Shown(), after);
    Undo();
    EXPECT_EQ(Shown(), undone);
    // What it shows is what the file holds.
    const auto holding = Window().holding;
    Start();
    Window().dtaPlott->Refresh();
    if (holding) {
        Window().OpenFund(holding->kontoId);
    } else {
        Press(Qt::Key_F8);
    }
    EXPECT_EQ(Shown(), undone);
}

TEST_P(EachChange, ComesBackFromTheCopyOfTheDay) {
    ChooseFund(0);
    const std::string before = Bytes();
    GetParam().change(*this);
    ASSERT_FALSE(Bytes() == before);
    Window().mnuAterstall->trigger();
    outside.dialogs
        .Expect(std::string(fundtexts::AskRestore) + "2026-11-16" +
                    std::string(fundtexts::RestoreReplaces),
                Buttons::YesNo, Icon::Exclamation, DefaultButton::Second)
        .Answer(Answer::Yes);
    Press(Qt::Key_Return);
    EXPECT_TRUE(Bytes() == before);
    EXPECT_TRUE(Faults().empty());
    EXPECT_FALSE(Window().mnuAngra->isEnabled());
}

const std::vector<Kind>& Kinds() {
    static const std::vector<Kind> kinds = {
        {"price", [](UndoTest& test) { test.TypePrice("163,5"); },
         "kursen 163,50 för Vimmels Asien"},
        {"edited point",
         [](UndoTest& test) {
             test.Window().mnuPEdit->trigger();
             test.TypeCell(*test.Window().GridPlott, 1, 2, "77");
             test.LeaveRow(*test.Window().GridPlott);
         },
         "punkten 2026-10-30 för 249 995"},
        {"deleted point",
         [](UndoTest& test) {
             test.Window().mnuPEdit->trigger();
             test.DeleteRow(*test.Window().GridPlott, 1);
         },
         "borttagen punkt 2026-10-30 för 249 995"},
        {"edited row",
         [](UndoTest& test) {
             test.OpenHoldings();
             test.TypeCell(*test.Window().DBGrid, 0, 0, "Nytt namn");
             test.LeaveRow(*test.Window().DBGrid);
         },
         "raden Nytt namn"},
        {"account's name",
         [](UndoTest& test) {
             test.OpenHoldings();
             test.Window().txtNamn->setFocus();
             test.Window().txtNamn->selectAll();
             test.Keys("Annat");
             test.Window().DBGrid->setFocus();
         },
         "raden Vimmels Asien"},
        {"new holding",
         [](UndoTest& test) {
             test.OpenHoldings();
             DataGrid& grid = *test.Window().DBGrid;
             const int row = grid.View().model()->rowCount() - 1;
             test.TypeCell(grid, row, 0, "Helt ny");
             test.TypeCell(grid, row, 2, "2026-11-01");
             test.TypeCell(grid, row, 3, "5");
             test.TypeCell(grid, row, 4, "20");
             test.LeaveRow(grid);
         },
         "raden Helt ny"},
        {"deleted holding", DeleteHolding, "borttaget innehav Kvarnbo Europa"},
        {"new shares", TakeNotice, "nya andelar för Vimmels Asien"},
        {"colour", ChooseColour, "färgen på Tredje && sista"},
        {"choice of curves",
         [](UndoTest& test) {
             test.Press(Qt::Key_F11);
             test.Press(Qt::Key_F12);
             test.ChooseFund(1);
             test.ChooseFund(2);
             test.Press(Qt::Key_F12);
         },
         "valet av kurvor"},
    };
    return kinds;
}

void DeleteHolding(UndoTest& test) {
    test.OpenHoldings();
    test.outside.dialogs
        .Expect(texts::AskDelete, Buttons::YesNo, Icon::Question, DefaultButton::Second)
        .Answer(Answer::Yes);
    test.DeleteRow(*test.Window().DBGrid, 1);
}

void TakeNotice(UndoTest& test) {
    test.OpenHoldings();
    test.outside.dialogs
        .Expect(texts::AskNewShares, Buttons::YesNo, Icon::Information, DefaultButton::Second)
        .Answer(Answer::Yes);
    test.Click(test.Window().cmdNyAndel);
    test.Fill(2, "2026-02-16");
    test.Fill(3, "12");
    test.Fill(4, "123,45");
    test.Fill(6, "33");
    test.Click(test.Window().cmdNyOk);
}

void ChooseColour(UndoTest& test) {
    test.Press(Qt::Key_F11);  // closes the list; the two picture buttons show
    test.Press(Qt::Key_F9);
    test.ChooseFund(2);
    test.outside.dialogs.ExpectColour(Colour{1, 2, 3});
    test.Press(Qt::Key_Return);
}

INSTANTIATE_TEST_SUITE_P(Changes, EachChange, testing::ValuesIn(Kinds()));

// ---- The rest ----

TEST_F(UndoTest, FiftyPricesAreTakenBackTheLastOneFirst) {
    ChooseFund(0);
    std::vector<std::string> states{Bytes()};
    for (int price = 0; price < 50; ++price) {
        TypePrice(std::to_string(101 + price));
        states.push_back(Bytes());
    }
    Window().picDiagram->setFocus();
    for (int i = 49; i >= 0; --i) {
        Undo();
        ASSERT_TRUE(Bytes() == states[static_cast<std::size_t>(i)]) << i;
    }
    EXPECT_FALSE(Window().mnuAngra->isEnabled());
}

TEST_F(UndoTest, TheStatusBarSaysWhatWasDoneAndALogEntryFollowsTheDeletions) {
    ChooseFund(0);
    TypePrice("163,5");
    Undo();
    EXPECT_EQ(Window().notice, "Ångrat : kursen 163,50 för Vimmels Asien");
    Redo();
    EXPECT_EQ(Window().notice, "Gjort om : kursen 163,50 för Vimmels Asien");
    EXPECT_EQ(LogText(), "");
    DeleteHolding(*this);
    const std::string deleted = LogText();
    Undo();
    EXPECT_EQ(LogText().size() > deleted.size(), true);
    EXPECT_NE(LogText().find("raderingen av Premiepension Kvarnbo Europa\r\n", deleted.size()),
              std::string::npos);
    Redo();
    EXPECT_NE(LogText().find("Gjordes om : raderingen av"), std::string::npos);
}

TEST_F(UndoTest, AFileThatAnotherProgramChangedIsLeftAlone) {
    ChooseFund(0);
    TypePrice("163,5");
    const std::string changed = Bytes() + std::string(4096, 'x');
    std::ofstream(SamplePath(), std::ios::binary) << changed;
    outside.dialogs.Expect(std::string(texts::NotUndone) + std::string(texts::BeforeReason) +
                           std::string(texts::ChangedBehind));
    Undo();
    EXPECT_TRUE(Bytes() == changed);
    EXPECT_EQ(Holding(0, kSenasteKurs), "Senaste : 163,50");
}

TEST_F(UndoTest, AFieldThatIsBeingTypedInTakesBackItsOwnTyping) {
    ChooseFund(0);
    TypePrice("163,5");
    const std::string stored = Bytes();
    Window().txtValue->setFocus();
    Type("17");
    Undo();
    EXPECT_EQ(Caption(Window().txtValue), "");
    EXPECT_TRUE(Bytes() == stored);
    Undo();
    EXPECT_TRUE(Bytes() == stored) << "the keys are still the field's";
    Redo();
    EXPECT_EQ(Caption(Window().txtValue), "17");
    Press(Qt::Key_Return);
    EXPECT_FALSE(Bytes() == stored);
    Window().txtValue->setFocus();
    Undo();
    EXPECT_TRUE(Bytes() == stored) << "nothing is typed there any more";
}

TEST_F(UndoTest, ARowThatIsBeingTypedIsStoredAndThenTakenBack) {
    ChooseFund(0);
    TypePrice("163,5");
    OpenHoldings();
    const std::string before = Bytes();
    TypeCell(*Window().DBGrid, 0, 0, "Halvskrivet");
    EXPECT_TRUE(Bytes() == before);
    Window().mnuAngra->trigger();
    EXPECT_TRUE(Bytes() == before);
    Window().mnuGorOm->trigger();
    EXPECT_EQ(Holding(0, kFond), "Halvskrivet");
}

TEST_F(UndoTest, ATypedNoticeIsAskedAboutFirst) {
    ChooseFund(0);
    TypePrice("163,5");
    const std::string stored = Bytes();
    OpenHoldings();
    outside.dialogs
        .Expect(texts::AskNewShares, Buttons::YesNo, Icon::Information, DefaultButton::Second)
        .Answer(Answer::Yes);
    Click(Window().cmdNyAndel);
    Fill(3, "12");
    outside.dialogs
        .Expect(
            "Det här är inte sparat:\r\n\r\nMeddelandet om nya andelar för Vimmels Asien"
            "\r\n\r\nVill du gå vidare utan det ?",
            Buttons::YesNo, Icon::Question, DefaultButton::Second)
        .Answer(Answer::No);
    Window().mnuAngra->trigger();
    EXPECT_TRUE(Bytes() == stored);
    EXPECT_EQ(Caption(Window().txtNyAndel[3]), "12");
}

TEST_F(UndoTest, TotalsFollow) {
    ChooseFund(0);
    Window().mnuTotal->trigger();
    Window().lstTotal->setCurrentRow(0);
    const std::string before = Window().totals;
    ASSERT_NE(before, "");
    TypePrice("163,5");
    Window().mnuTotal->trigger();
    Window().lstTotal->setCurrentRow(0);
    ASSERT_NE(Window().totals, before);
    Undo();
    EXPECT_EQ(Window().totals, before);
    EXPECT_TRUE(Window().panTotal->isVisible());
}

TEST_F(UndoTest, NothingIsLeftToTakeBackInAnotherFile) {
    ChooseFund(0);
    TypePrice("163,5");
    EXPECT_TRUE(Window().mnuAngra->isEnabled());
    const std::string stored = Bytes();
    Window().OpenFile(Window().CurrentFile);
    EXPECT_FALSE(Window().mnuAngra->isEnabled());
    Window().picDiagram->setFocus();
    Undo();
    EXPECT_TRUE(Bytes() == stored);
}

TEST_F(UndoTest, AnEmptyChangeOrARefusedOneIsNoStep) {
    ChooseFund(0);
    TypePrice("");
    outside.dialogs.Expect(texts::WrongEntry);
    TypePrice("0");
    EXPECT_FALSE(Window().mnuAngra->isEnabled());
    EXPECT_EQ(UndoCaption(), "Ångra");
}

}  // namespace
