// What a screen reader finds: in every state of the window each control has a name of its own, and
// what stands in it is told.

#include "tests/support/spokentree.h"

#include "tests/window/everymode.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>

#include <algorithm>
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

class SpokenTreeTest : public EveryMode {
  protected:
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
    for (const Mode& mode : Modes()) {
        ComeUp();
        mode.reach();
        QApplication::processEvents();
        const SpokenTree tree(Window());
        EXPECT_GT(tree.Nodes().size(), 20U) << mode.name;
        EXPECT_THAT(tree.Nameless(), IsEmpty()) << mode.name;
        EXPECT_THAT(tree.CalledAlike(), IsEmpty()) << mode.name;
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
