// The viewer through its own window, with the help file that the build made.

#include "help/helpwindow.h"

#include "app/rules/helppage.h"
#include "base/text.h"
#include "base/version.h"
#include "fundfile/texts.h"
#include "help/openhelp.h"
#include "platform/qttext.h"
#include "tests/support/spokentree.h"

#include <QAction>
#include <QApplication>
#include <QColor>
#include <QFile>
#include <QFont>
#include <QIODevice>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <QTreeWidget>
#include <QUrl>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

class HelpWindowTest : public ::testing::Test {
  protected:
    HelpWindowTest() {
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    template <typename Control>
    Control& Find(const char* name) {
        return *window.findChild<Control*>(QString::fromLatin1(name));
    }
    std::string PageText() { return FromQt(Find<QTextBrowser>("page").toPlainText()); }
    void Type(const char* text) {
        QTest::keyClicks(&Find<QLineEdit>("search"), QString::fromUtf8(text));
    }

    HelpWindow window{OpenHelp(HELP_FILE)};
};

TEST_F(HelpWindowTest, BeginsWithTheFirstPage) {
    EXPECT_EQ(window.CurrentPage(), "valkommen");
    EXPECT_THAT(PageText(), HasSubstr("Välkommen till Kvarnbo"));
    EXPECT_FALSE(Find<QAction>("back").isEnabled());
    EXPECT_FALSE(Find<QAction>("forward").isEnabled());
}

TEST_F(HelpWindowTest, HasNoNamelessControlForAScreenReader) {
    EXPECT_THAT(SpokenTree(window).Nameless(), IsEmpty());
    EXPECT_THAT(SpokenTree(window).CalledAlike(), IsEmpty());
    Type("kurs");
    EXPECT_THAT(SpokenTree(window).Nameless(), IsEmpty());
    EXPECT_THAT(SpokenTree(window).CalledAlike(), IsEmpty());
    for (const QScrollBar* bar : Find<QTextBrowser>("page").findChildren<QScrollBar*>()) {
        EXPECT_NE(bar->accessibleName(), QString()) << bar->orientation();
    }
}

TEST_F(HelpWindowTest, ListsEveryPageUnderItsSection) {
    const HelpBook book = OpenHelp(HELP_FILE);
    int pages = 0;
    auto& contents = Find<QTreeWidget>("contents");
    for (int i = 0; i < contents.topLevelItemCount(); ++i) {
        EXPECT_GT(contents.topLevelItem(i)->childCount(), 0);
        pages += contents.topLevelItem(i)->childCount();
    }
    EXPECT_EQ(pages, static_cast<int>(book.Pages().size()));
}

TEST_F(HelpWindowTest, OpensThePageThatIsClickedInTheContents) {
    auto& contents = Find<QTreeWidget>("contents");
    QTreeWidgetItem* item = contents.topLevelItem(0)->child(1);
    QTest::mouseClick(contents.viewport(), Qt::LeftButton, {},
                      contents.visualItemRect(item).center());
    EXPECT_EQ(window.CurrentPage(), "fonstret");
}

TEST_F(HelpWindowTest, GoesBackAndForwardWithTheKeys) {
    window.ShowPage("kurs");
    window.ShowPage("farg");
    QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(window.CurrentPage(), "kurs");
    QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(window.CurrentPage(), "valkommen");
    QTest::keyClick(&window, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(window.CurrentPage(), "kurs");
}

TEST_F(HelpWindowTest, ForgetsWhatLayAheadWhenANewPageIsOpened) {
    window.ShowPage("kurs");
    window.ShowPage("farg");
    Find<QAction>("back").trigger();
    window.ShowPage("zooma");
    EXPECT_FALSE(Find<QAction>("forward").isEnabled());
    Find<QAction>("back").trigger();
    EXPECT_EQ(window.CurrentPage(), "kurs");
}

TEST_F(HelpWindowTest, FollowsLinks) {
    emit Find<QTextBrowser>("page").anchorClicked(QUrl(QStringLiteral("kurs")));
    EXPECT_EQ(window.CurrentPage(), "kurs");
    emit Find<QTextBrowser>("page").anchorClicked(QUrl(QStringLiteral("finnsinte")));
    EXPECT_EQ(window.CurrentPage(), "kurs");
}

TEST_F(HelpWindowTest, MarksTheOpenPageInTheContents) {
    window.ShowPage("zooma");
    EXPECT_EQ(FromQt(Find<QTreeWidget>("contents").currentItem()->text(0)), "Zooma procentskalan");
}

TEST_F(HelpWindowTest, FindsPagesAndOpensTheFirstOnEnter) {
    Type("dagnummer");
    auto& hits = Find<QListWidget>("hits");
    EXPECT_TRUE(hits.isVisible());
    EXPECT_FALSE(Find<QTreeWidget>("contents").isVisible());
    ASSERT_GT(hits.count(), 2);
    QTest::keyClick(&Find<QLineEdit>("search"), Qt::Key_Return);
    EXPECT_EQ(window.CurrentPage(), "dagnummer");
    EXPECT_GE(Find<QTextBrowser>("page").extraSelections().size(), 2);
}

TEST_F(HelpWindowTest, SaysWhenNothingIsFound) {
    Type("qqqq");
    auto& hits = Find<QListWidget>("hits");
    ASSERT_EQ(hits.count(), 1);
    EXPECT_THAT(FromQt(hits.item(0)->text()), HasSubstr("Inget hittades"));
    QTest::keyClick(&Find<QLineEdit>("search"), Qt::Key_Return);
    EXPECT_EQ(window.CurrentPage(), "valkommen");
}

TEST_F(HelpWindowTest, ShowsTheContentsAgainAfterEscape) {
    Type("kurs");
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(Find<QLineEdit>("search").text().isEmpty());
    EXPECT_TRUE(Find<QTreeWidget>("contents").isVisible());
    EXPECT_TRUE(Find<QTextBrowser>("page").extraSelections().isEmpty());
}

TEST_F(HelpWindowTest, EnlargesTheText) {
    auto& page = Find<QTextBrowser>("page");
    const int before = page.font().pointSize();
    QTest::keyClick(&window, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(page.font().pointSize(), before + 1);
    QTest::keyClick(&window, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(page.font().pointSize(), before);
}

TEST_F(HelpWindowTest, IsNoLargerThanTheScreen) {
    EXPECT_LE(window.width(), window.screen()->availableSize().width());
    EXPECT_LE(window.height(), window.screen()->availableSize().height());
    EXPECT_LE(window.minimumSizeHint().width(), 800);
    EXPECT_LE(window.minimumSizeHint().height(), 560);
}

TEST_F(HelpWindowTest, IsWrittenInTheDesktopsTextSize) {
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(18);
    QApplication::setFont(large);
    HelpWindow other{OpenHelp(HELP_FILE)};
    other.ShowPage("meddelanden-kurs");
    const auto* page = other.findChild<QTextBrowser*>(QStringLiteral("page"));
    ASSERT_NE(page, nullptr);
    const QTextCursor text = page->document()->find(QStringLiteral("Texten är inget tal"));
    EXPECT_EQ(text.charFormat().fontPointSize(), 22);
    EXPECT_LE(other.minimumSizeHint().width(), 800);
    QApplication::setFont(before);
}

TEST_F(HelpWindowTest, DressesThePage) {
    window.ShowPage("meddelanden-kurs");
    const QTextDocument& document = *Find<QTextBrowser>("page").document();
    QTextCursor text = document.find(QStringLiteral("Texten är inget tal"));
    EXPECT_EQ(text.charFormat().fontPointSize(), 11);
    QTextCursor message = document.find(QStringLiteral("Felaktig inmatning"));
    EXPECT_EQ(message.charFormat().fontWeight(), static_cast<int>(QFont::Bold));
    ASSERT_NE(message.currentTable(), nullptr);
    const QTextTableCell cell = message.currentTable()->cellAt(message);
    EXPECT_EQ(cell.format().background().color(), QColor(0xEE, 0xF3, 0xF6));
}

TEST(HelpFile, IsReportedWhenItIsMissing) {
    const HelpWindow window(OpenHelp("/nowhere/Kvarnbo.hlp"));
    const auto* page = window.findChild<QTextBrowser*>(QStringLiteral("page"));
    EXPECT_THAT(FromQt(page->toPlainText()), HasSubstr("Hjälpfilen kunde inte läsas"));
    EXPECT_THAT(FromQt(page->toPlainText()), HasSubstr("/nowhere/Kvarnbo.hlp"));
}

TEST(HelpFile, IsReportedWhenItIsNoHelpFile) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("annat.hlp"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("MZ");
    file.close();
    EXPECT_EQ(OpenHelp(FromQt(path)).Pages().front().id, "fel");
}

class HelpContents : public ::testing::Test {
  protected:
    /// All pages' words, in one line.
    static std::string AllText() {
        std::string all;
        const HelpBook book = OpenHelp(HELP_FILE);
        for (const auto& page : book.Pages()) all += PlainHelpText(page.html) + " ";
        return all;
    }
};

TEST_F(HelpContents, HoldsNoBrokenLink) {
    EXPECT_THAT(OpenHelp(HELP_FILE).BrokenLinks(), IsEmpty());
}

TEST_F(HelpContents, ExplainsEveryMessage) {
    const std::string all = AllText();
    for (const char* message : {"Vill du Öppna med den Nya filen ?",
                                "Du håller på att ta bort en Fondfil !",
                                "Är detta riktigt ?",
                                "kommer att raderas !",
                                "Filen Raderades Inte",
                                "Filen är Öppen",
                                "Kontrollera din inmatning !",
                                "mer än 200 % ökning ?",
                                "Mer än 1000 % ökning",
                                "Ej tillåtet",
                                "Felaktig inmatning",
                                "Detta fält är låst",
                                "Felaktigt Datum",
                                "Skall skrivas typ",
                                "2000-12-31",
                                "Datum Felaktigt ifyllt",
                                "Du håller på att ta bort en post !",
                                "Du får inte radera sista posten",
                                "Lösning: Öppna någon annan Fil",
                                "Eventuellt Radera denna",
                                "Talet är för stort för fältet.",
                                "Värdet passar inte i fältet.",
                                "i dtaBasData",
                                "i dtaPlott",
                                "i dtaSQL",
                                "Den här funktionen skall du bara använda",
                                "när du fått meddeland om Nya Andelar för",
                                "Fond som redan finns här ovan",
                                "Dessa meddelande kommer normalt i Februari",
                                "Nya Fonder skriver du direkt i boxen ovan",
                                "Vill du ändra Datum, Andelar, Kurs Kr, Andel% ?",
                                "Alla Fält på denna rad skall vara ifyllda",
                                "Ok och <Esc> tar dig ur denna Funktion",
                                "Fel i Plottingrutinen",
                                "Gör omstart på programmet",
                                "Fel i PrintPlotta",
                                "Fel i SQLPlott",
                                "Fel i PrintRutinen",
                                "Fondens namn saknas",
                                "Fyll i kolumnen Fond, eller tryck <Esc>",
                                "Kurs Kr saknas eller är inte större än 0",
                                "Datum, Andelar, Kurs Kr och Andel % är inte rätt ifyllda",
                                "Den nya filen skapades inte",
                                "Filen öppnades inte",
                                "Filen sparades inte",
                                "Filen är mallen som nya fondfiler görs av.",
                                "Kunde inte hitta fil NotePad.exe",
                                "Kunde inte hitta fil WinHelp32.exe"}) {
        EXPECT_THAT(all, HasSubstr(message));
    }
}

TEST_F(HelpContents, ExplainsEveryCauseThatTheProgramGives) {
    const std::string all = AllText();
    for (int number = 0; number < 4000; ++number) {
        EXPECT_THAT(all,
                    HasSubstr(std::string(fundtexts::Explain(static_cast<ErrorNumber>(number)))));
    }
}

TEST_F(HelpContents, ExplainsEveryKey) {
    const HelpBook book = OpenHelp(HELP_FILE);
    const std::string keys = PlainHelpText(book.Pages()[book.Find("tangenter").value()].html);
    for (const char* key :
         {"F1",     "Home",   "Skift+Vänsterpil", "Ctrl+Vänsterpil", "F8",    "F9",     "F11",
          "F12",    "Esc",    "Vänsterpil",       "Högerpil",        "Enter", "Delete", "Tab",
          "Ctrl+C", "Ctrl+V", "Backsteg",         "Alt+A",           "Alt+V", "Alt+H"}) {
        EXPECT_THAT(keys, HasSubstr(key));
    }
}

TEST_F(HelpContents, HasEveryPageThatF1Opens) {
    const HelpBook book = OpenHelp(HELP_FILE);
    for (const auto stage :
         {Stage::Starting, Stage::Diagram, Stage::Holdings, Stage::SharesNotice}) {
        for (const auto left :
             {LeftPanel::None, LeftPanel::FundList, LeftPanel::Totals, LeftPanel::PlotData}) {
            for (const auto use :
                 {ListUse::Nothing, ListUse::Prices, ListUse::Colour, ListUse::Curves}) {
                for (const bool has : {false, true}) {
                    WindowState state;
                    state.stage = stage;
                    state.left = left;
                    state.listUse = use;
                    state.hasHoldings = has;
                    if (has) state.holding.emplace();
                    EXPECT_TRUE(book.Find(HelpPageFor(state))) << HelpPageFor(state);
                    state.NoFileReason = "gone";
                    EXPECT_TRUE(book.Find(HelpPageFor(state))) << HelpPageFor(state);
                }
            }
        }
    }
}

TEST(HelpPlace, IsTheFileAndThePageBehindTheMark) {
    EXPECT_EQ(HelpPlaceOf("/a b/Kvarnbo.hlp#kurs").path, "/a b/Kvarnbo.hlp");
    EXPECT_EQ(HelpPlaceOf("/a b/Kvarnbo.hlp#kurs").page, "kurs");
    EXPECT_EQ(HelpPlaceOf("/a b/Kvarnbo.hlp").path, "/a b/Kvarnbo.hlp");
    EXPECT_EQ(HelpPlaceOf("/a b/Kvarnbo.hlp").page, "");
    QTemporaryDir folder;
    const std::string own = FromQt(folder.filePath(QStringLiteral("a#b.hlp")));
    QFile file(ToQt(own));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(HelpPlaceOf(own).path, own) << "a name with the mark in it";
    EXPECT_EQ(HelpPlaceOf(own + "#kurs").path, own);
    EXPECT_EQ(HelpPlaceOf(own + "#kurs").page, "kurs");
}

TEST_F(HelpContents, IsFoundByTheWordsASaverWouldUse) {
    const HelpBook book = OpenHelp(HELP_FILE);
    const auto first = [&](std::string_view query) {
        const auto hits = book.Search(query);
        return hits.empty() ? std::string() : book.Pages()[hits.front().page].id;
    };
    EXPECT_EQ(first("pris"), "kurs");
    EXPECT_EQ(first("ångra"), "ratta-kurs");
    EXPECT_EQ(first("säkerhetskopia"), "spara-som");
    EXPECT_EQ(first("ny dator"), "trygghet");
    EXPECT_EQ(first("uppgifter ligger"), "trygghet");
}

TEST_F(HelpContents, NamesItsVersion) {
    const HelpBook book = OpenHelp(HELP_FILE);
    const std::string welcome = PlainHelpText(book.Pages()[book.Find("valkommen").value()].html);
    EXPECT_THAT(welcome, HasSubstr("Kvarnbo " + std::string(Version()) + "."));
}

TEST_F(HelpContents, ExplainsEveryErrorNumberOfTheFile) {
    const HelpBook book = OpenHelp(HELP_FILE);
    const std::string numbers = PlainHelpText(book.Pages()[book.Find("felnummer").value()].html);
    for (const char* number :
         {"5",    "6",    "9",    "11",   "13",   "53",   "57",   "61",   "70",
          "75",   "76",   "91",   "94",   "482",  "3010", "3020", "3021", "3022",
          "3027", "3031", "3049", "3058", "3061", "3075", "3078", "3112", "3163",
          "3167", "3197", "3200", "3251", "3265", "3274", "3343", "3420", "3800"}) {
        EXPECT_THAT(" " + numbers, ::testing::ContainsRegex(std::string("[ ,]") + number + "[ ,]"));
    }
}

}  // namespace
