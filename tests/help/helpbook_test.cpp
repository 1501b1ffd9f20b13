#include "help/helpbook.h"

#include "base/error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

HelpBook Book() {
    return HelpBook(
        {{"kurs", "Varje dag", "Skriva in kursen",
          "<h1>Skriva in kursen</h1><p>Se <a href=\"farg\">färg</a>.</p>"},
         {"farg", "Diagrammet", "Byta färg",
          "<h1>Byta färg</h1>\n<p>Tryck <b>F9</b>.</p><p>Åter till <a href=\"kurs\">kursen</a>"}});
}

std::vector<std::string> Found(const HelpBook& book, std::string_view query) {
    std::vector<std::string> ids;
    for (const auto& hit : book.Search(query)) ids.push_back(book.Pages()[hit.page].id);
    return ids;
}

TEST(HelpBook, ReadsBackWhatItWrites) {
    EXPECT_EQ(HelpBook::Parse(Book().Text()).Pages(), Book().Pages());
}

TEST(HelpBook, RefusesAnythingElse) {
    for (const std::string_view text : {"", "Kvarnbo help 1", "Kvarnbo help 1\n=== a | b\nc",
                                        "Kvarnbo help 1\n=== a | b | c", "<html>", "MZ"}) {
        Skipping skip;
        skip([&] { HelpBook::Parse(text); });
        EXPECT_EQ(skip.Number(), ErrorNumber::ForeignFormat) << text;
    }
}

TEST(HelpBook, FindsPagesByTheirId) {
    EXPECT_EQ(Book().Find("farg"), 1U);
    EXPECT_EQ(Book().Find("nej"), std::nullopt);
}

TEST(HelpBook, NamesBrokenLinks) {
    EXPECT_THAT(Book().BrokenLinks(), IsEmpty());
    const HelpBook broken({{"a", "s", "t", "<a href=\"b\">x</a><a href=\"a\">y</a>"}});
    EXPECT_THAT(broken.BrokenLinks(), ElementsAre("a -> b"));
}

TEST(HelpSearch, PutsPagesWithTheWordInTheirTitleFirst) {
    EXPECT_THAT(Found(Book(), "färg"), ElementsAre("farg", "kurs"));
    EXPECT_THAT(Found(Book(), "kursen"), ElementsAre("kurs", "farg"));
}

TEST(HelpSearch, WantsEveryWordInWhateverCase) {
    EXPECT_THAT(Found(Book(), " FÄRG  åter "), ElementsAre("farg"));
    EXPECT_THAT(Found(Book(), "f9"), ElementsAre("farg"));
    EXPECT_THAT(Found(Book(), "färg saknas"), IsEmpty());
    EXPECT_THAT(Found(Book(), "   "), IsEmpty());
}

TEST(HelpSearch, DoesNotSeeTags) {
    EXPECT_THAT(Found(Book(), "href"), IsEmpty());
    EXPECT_THAT(Found(Book(), "h1"), IsEmpty());
}

TEST(HelpSearch, ShowsTextAroundTheWord) {
    const std::string longText =
        "<h1>T</h1><p>Det första stycket handlar om något helt annat än det sökta. Här står ordet "
        "nålen mitt i en lång "
        "rad som går vidare långt efter att det som söktes har hittats.</p>";
    const HelpBook book({{"a", "s", "T", longText}});
    const std::string extract = book.Search("nålen").front().extract;
    EXPECT_EQ(
        extract,
        "… det sökta. Här står ordet nålen mitt i en lång rad som går vidare långt efter att …");
}

TEST(HelpText, LosesItsTagsAndKeepsItsWords) {
    EXPECT_EQ(PlainHelpText("<p>Tryck <b>F9</b>.</p><p>Sedan\n  &lt;Enter&gt; &amp; klart</p>"),
              "Tryck F9. Sedan <Enter> & klart");
    EXPECT_EQ(PlainHelpText("a<br>b"), "a b");
    EXPECT_EQ(PlainHelpText("a < open"), "a");
    EXPECT_EQ(PlainHelpText(""), "");
}

}  // namespace
