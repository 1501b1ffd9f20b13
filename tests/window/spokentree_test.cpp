// What a screen reader finds: in every state of the window each control has a name of its own, and
// what stands in it is told.

#include "tests/support/spokentree.h"

#include "entry/texts.h"
#include "tests/window/windowtest.h"
#include "widgets/datagrid.h"
#include "widgets/imagebutton.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QKeySequence>
#include <QLabel>
#include <QTableView>

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <string>
#include <string_view>
#include <vector>

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class SpokenTreeTest : public WindowTest {
  protected:
    SpokenTreeTest() {
        SetToday(2026, 3, 10);  // the window starts on 1 April 2025
        std::vector<TestHolding> holdings = TwoHoldings();
        holdings[0].points = {{45849, 4}, {45949, 8}, {46049, 6}};
        MakeFile(holdings);
        Start();
    }

    void TypeForFirst(const std::string& text) {
        ChooseFund(0);
        Window().txtValue->setFocus();
        Type(text);
    }
    void EnterInList() {
        ChooseFund(0);
        PressIn(Window().lstFonder, Qt::Key_Return);
    }
    void ChooseBy(Qt::Key key) {
        Press(Qt::Key_F11);
        Press(key);
    }
    void CollectTwo() {
        ChooseBy(Qt::Key_F12);
        ChooseFund(0);
        ChooseFund(1);
    }
    void ShowTotals() {
        Window().mnuTotal->trigger();
        Window().lstTotal->setCurrentRow(0);
        PressIn(Window().lstTotal, Qt::Key_Space);
    }
    void ShowCopies() {
        ChooseFund(0);
        TypePrice("101");
        Window().mnuAterstall->trigger();
    }
    void OpenNotice() {
        Click(Window().cmdPPMData);
        outside.dialogs
            .Expect(texts::AskNewShares, Buttons::YesNo, Icon::Information, DefaultButton::Second)
            .Answer(Answer::Yes);
        Click(Window().cmdNyAndel);
    }
    void EditCell() {
        Click(Window().cmdPPMData);
        QTableView& view = Window().DBGrid->View();
        view.setFocus();
        view.setCurrentIndex(view.model()->index(1, 0));
        QTest::keyClick(&view, Qt::Key_F2);
    }
    void PasteColumn() {
        Press(Qt::Key_F6);
        QGuiApplication::clipboard()->setText(QStringLiteral("111\n112"));
        QTest::keySequence(Window().txtNyKurs, QKeySequence::Paste);
    }
    std::vector<std::string> Labels() {
        return SpokenTree(Window()).Names(QAccessible::StaticText);
    }
    std::string News() {
        const auto* herald = Window().staBar->findChild<QWidget*>(QStringLiteral("herald"));
        return herald == nullptr ? "" : FromQt(herald->accessibleName());
    }
    SpokenNode Node(const std::string& name) {
        const SpokenTree tree(Window());
        const auto& nodes = tree.Nodes();
        const auto found = std::find_if(nodes.begin(), nodes.end(), [&](const SpokenNode& node) {
            return node.name.find(name) != std::string::npos;
        });
        return found == nodes.end() ? SpokenNode{} : *found;
    }
};

}  // namespace

TEST_F(SpokenTreeTest, HasNoNamelessControlInAnyStateAndNoTwoOfOneName) {
    const struct {
        std::string_view state;
        std::function<void()> reach;
    } rows[] = {
        {"list of prices", [] {}},
        {"price typed", [this] { TypeForFirst("1"); }},
        {"after Enter in the list", [this] { EnterInList(); }},
        {"diagram with buttons", [this] { Press(Qt::Key_F11); }},
        {"diagram", [this] { Press(Qt::Key_Escape); }},
        {"colour", [this] { ChooseBy(Qt::Key_F9); }},
        {"curves", [this] { ChooseBy(Qt::Key_F12); }},
        {"curves chosen", [this] { CollectTwo(); }},
        {"totals", [this] { ShowTotals(); }},
        {"plot data", [this] { Window().mnuPEdit->trigger(); }},
        {"safety copies", [this] { ShowCopies(); }},
        {"day's prices", [this] { Press(Qt::Key_F6); }},
        {"pasted prices", [this] { PasteColumn(); }},
        {"overview", [this] { Press(Qt::Key_F7); }},
        {"holdings", [this] { Click(Window().cmdPPMData); }},
        {"a cell of the holdings", [this] { EditCell(); }},
        {"notice of new shares", [this] { OpenNotice(); }},
    };
    for (const auto& row : rows) {
        Start();
        row.reach();
        QApplication::processEvents();
        const SpokenTree tree(Window());
        EXPECT_GT(tree.Nodes().size(), 20U) << row.state;
        EXPECT_THAT(tree.Nameless(), IsEmpty()) << row.state;
        EXPECT_THAT(tree.CalledAlike(), IsEmpty()) << row.state;
    }
}

TEST_F(SpokenTreeTest, LabelsSayTheirHeadingAndWhatStandsInThem) {
    EXPECT_THAT(Labels(), Contains("Månad: April"));
    EXPECT_THAT(Labels(), Contains("År till vänster: 2025"));
    EXPECT_THAT(Labels(), Contains("Dagens datum: Tisdag 10 Mars 2026"));
    EXPECT_THAT(Labels(), Contains("Du arbetar med Vimmels_exempel"));
    EXPECT_THAT(Labels(), Not(Contains(StartsWith("Datum vid hårkorset"))))
        << "nothing is measured";
    ChooseFund(0);
    EXPECT_THAT(Labels(), Contains("Datum: 2026-01-02")) << "its heading is another label";
    EXPECT_THAT(Labels(), Not(Contains("Datum")));
    EXPECT_THAT(Labels(), Contains("Startkurs : 100"));
    EXPECT_THAT(Labels(), Contains("Ändring: 10 %"));
    ShowTotals();
    EXPECT_THAT(Labels(), Contains(StartsWith("Kontots summor: ")));
}

TEST_F(SpokenTreeTest, ThePicturesAreToldInWords) {
    const SpokenNode chart = Node("Diagram");
    EXPECT_EQ(chart.role, QAccessible::Chart);
    EXPECT_THAT(chart.description, StartsWith("2 kurvor från april 2025 till mars 2026, skala "));
    EXPECT_EQ(Node("Kurvans färg").name, "") << "no holding is open";
    ChooseFund(0);
    EXPECT_THAT(Node("Diagram").description, StartsWith("1 kurva från april 2025"));
    EXPECT_EQ(Node("Kurvans färg").name, "Kurvans färg: röd");
    EXPECT_EQ(Node("Dagar utan kurs").role, QAccessible::Graphic);
}

TEST_F(SpokenTreeTest, LinesOfTheFundListSayWhatIsToBeSeenOfThem) {
    const auto lines = [this] {
        return SpokenTree(*Window().lstFonder).Names(QAccessible::ListItem);
    };
    EXPECT_THAT(lines(), ElementsAre("1. Vimmels Asien, 10 %", "2. Kvarnbo Europa, 10 %"));
    ChooseBy(Qt::Key_F12);
    ChooseBy(Qt::Key_F12);
    CollectTwo();
    EXPECT_THAT(lines(), Contains(HasSubstr(", vald")));
}

TEST_F(SpokenTreeTest, CellsSayTheirColumnAndRow) {
    Click(Window().cmdPPMData);
    EXPECT_EQ(Node("Fond: Kvarnbo Europa").description, "rad 2 av 2");
    EXPECT_EQ(Node("Kurs Kr: 100").description, "Vimmels Asien, rad 1 av 2");
    EXPECT_EQ(Node("Fond: tom").description, "ny rad");
    EXPECT_THAT(Node("Värde Kr").role, QAccessible::ColumnHeader);
    EXPECT_THAT(Node("Värde Kr: ").description, HasSubstr("låst"));
    EXPECT_EQ(Node("rad 2 av 2").role, QAccessible::RowHeader);
    Click(Window().cmdPPMData);
    EditCell();
    const SpokenNode editor = Node("Fond, rad 2 av 2");
    EXPECT_EQ(editor.role, QAccessible::EditableText) << "it is in the tree while it is open";
}

TEST_F(SpokenTreeTest, PagesSayTheirRowsAndWhatTheyAreSortedBy) {
    Press(Qt::Key_F7);
    EXPECT_EQ(Node("Nr: 2").description.substr(0, 21), "Fond: Kvarnbo Europa,");
    EXPECT_THAT(Node("Nr: 2").description, HasSubstr(", rad 2 av "));
    EXPECT_EQ(Node("Fond: Kvarnbo Europa").description.substr(0, 9), "rad 2 av ");
    EXPECT_EQ(Node("Nr, sorterad stigande").role, QAccessible::ColumnHeader);
    Press(Qt::Key_2);
    Press(Qt::Key_2);
    EXPECT_EQ(Node("Fond, sorterad fallande").role, QAccessible::ColumnHeader);
    Press(Qt::Key_F6);
    EXPECT_EQ(Node("Ny kurs för Vimmels Asien").role, QAccessible::EditableText);
}

TEST_F(SpokenTreeTest, AFieldAndItsHeadingKnowEachOther) {
    OpenNotice();
    for (const char* name : {"Nytt Datum", "Ny Kurs Kr"}) {
        const SpokenTree tree(Window());
        const auto labels = tree.Names(QAccessible::StaticText);
        EXPECT_THAT(labels, Contains(name));
        EXPECT_THAT(tree.Names(QAccessible::EditableText), Contains(name));
    }
    for (QLabel* heading : Window().lblNyAndel) {
        auto* spoken = QAccessible::queryAccessibleInterface(heading);
        const auto named = spoken->relations(QAccessible::Labelled);
        ASSERT_EQ(named.size(), 1);
        EXPECT_EQ(named.first().first->text(QAccessible::Name), heading->text());
    }
}

TEST_F(SpokenTreeTest, PartsFollowEachOtherAsTheyAreRead) {
    Press(Qt::Key_F6);
    std::vector<std::string> parts;
    const SpokenTree tree(Window());
    for (const SpokenNode& node : tree.Nodes()) {
        if (node.parts.size() == 3 && node.parts.back().starts_with("Dagens kurser")) {
            parts.push_back(node.name.substr(0, node.name.find(':')));
        }
    }
    EXPECT_THAT(parts, ElementsAre("Så långt har du kommit", "Dag", "2026-03-10  tisdag, idag",
                                   "Dagens kurser", StartsWith("Ny kurs för ")));
}

TEST_F(SpokenTreeTest, AStoredPriceIsSaid) {
    ChooseFund(0);
    TypePrice("101");
    EXPECT_EQ(News(), "Kursen 101,00 för Vimmels Asien är sparad: 1 %");
    Window().mnuAngra->trigger();
    EXPECT_EQ(News(), Window().notice) << "what the status bar tells is said, too";
    Press(Qt::Key_F6);
    Type("102");
    Press(Qt::Key_Return);
    EXPECT_EQ(News(), "Kursen 102,00 för Vimmels Asien är sparad: 2 %");
}

TEST_F(SpokenTreeTest, PanelsAreCalledByTheirTitles) {
    const auto frames = [this] { return SpokenTree(Window()).Names(QAccessible::Grouping); };
    EXPECT_THAT(frames(), ElementsAre("Rubrik", "Ny DagsKurs för...", StartsWith("Mätning :"),
                                      "Kurs och knappar", "StartData"));
    EnterInList();
    EXPECT_THAT(frames(), Contains("Fondlista")) << "its title is empty";
    Window().mnuPEdit->trigger();
    EXPECT_THAT(frames(), Contains("Plottdata"));
}

TEST_F(SpokenTreeTest, TheNoteAboutAPriceIsReadAfterTheFundsData) {
    TypeForFirst("1");
    const std::vector<std::string> labels = Labels();
    const auto at = [&](const char* begin) {
        return std::find_if(labels.begin(), labels.end(),
                            [&](const std::string& label) { return label.starts_with(begin); });
    };
    EXPECT_LT(at("Fond Nr: "), at("Andel %: "));
    EXPECT_LT(at("Andel %: "), at("Besked om kursen: "));
    EXPECT_NE(at("Besked om kursen: "), labels.end());
}
