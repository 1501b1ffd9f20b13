#pragma once
// The help file: pages of rich text under sections, as one text. Knows no window.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct HelpPage {
    std::string id;  ///< what links name
    std::string section;
    std::string title;
    std::string html;
    bool operator==(const HelpPage&) const = default;
};

/// A page that a search found, and a piece of its text around the first place.
struct HelpHit {
    std::size_t page = 0;
    std::string extract;
};

class HelpBook {
  public:
    explicit HelpBook(std::vector<HelpPage> pages) : pages_(std::move(pages)) {}

    /// Throws ForeignFormat for a text that is no help file.
    static HelpBook Parse(std::string_view text);
    std::string Text() const;

    const std::vector<HelpPage>& Pages() const { return pages_; }
    std::optional<std::size_t> Find(std::string_view id) const;

    /// The pages that hold every word of the query in whatever case,
    /// those with a word in the title first.
    std::vector<HelpHit> Search(std::string_view query) const;

    /// Every link to a page that is not there, "page -> link".
    std::vector<std::string> BrokenLinks() const;

  private:
    std::vector<HelpPage> pages_;
};

/// The words of a query in lower case.
std::vector<std::string> QueryWords(std::string_view query);

/// Rich text without its tags, every run of white space as one blank.
std::string PlainHelpText(std::string_view html);
