#include "help/helpbook.h"

#include "base/error.h"
#include "base/text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr std::string_view kFirstLine = "Kvarnbo help 1";
constexpr std::string_view kPageMark = "=== ";
constexpr std::string_view kFieldEnd = " | ";
constexpr std::size_t kExtractLength = 90;
constexpr std::size_t kExtractLead = 30;

struct Entity {
    std::string_view name, character;
};
constexpr Entity kEntities[] = {
    {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&nbsp;", " "}, {"&amp;", "&"}};

[[noreturn]] void FailFormat(const std::string& why) {
    throw Error{ErrorNumber::ForeignFormat, "help file: " + why};
}

HelpPage PageOf(std::string_view block) {
    const std::size_t end = block.find('\n');
    const auto fields = Split(block.substr(0, end), kFieldEnd);
    constexpr std::size_t kFields = 3;
    if (fields.size() != kFields || end == std::string_view::npos) {
        FailFormat("a page begins with \"" + std::string(block.substr(0, end)) + "\"");
    }
    return {fields[0], fields[1], fields[2], std::string(block.substr(end + 1))};
}

bool IsSpace(char c) {
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

/// A tag inside a line: what it surrounds belongs to the words beside it.
bool IsInline(std::string_view tag) {
    constexpr std::string_view kInline[] = {"<b>", "</b>", "<a ", "</a>", "<span ", "</span>"};
    return std::any_of(std::begin(kInline), std::end(kInline),
                       [&](auto name) { return tag.starts_with(name); });
}

void AddBlank(std::string& text) {
    if (!text.empty() && text.back() != ' ') text += ' ';
}

std::string WithoutTags(std::string_view html) {
    std::string text;
    while (!html.empty()) {
        const std::size_t end = html.front() == '<' ? std::min(html.find('>'), html.size() - 1) : 0;
        const std::string_view piece = html.substr(0, end + 1);
        const bool tag = piece.size() > 1;
        if (tag ? !IsInline(piece) : IsSpace(piece.front())) AddBlank(text);
        if (!tag && !IsSpace(piece.front())) text += piece;
        html.remove_prefix(piece.size());
    }
    return Trim(text);
}

/// A piece of the text around the first of the words in it, cut between words.
std::string Extract(const std::string& text, const std::vector<std::string>& words) {
    // Lower case keeps every letter's length in bytes,
    // so places in one text are places in the other.
    const std::string lower = LowerCase(text);
    std::size_t found = std::string::npos;
    for (const auto& word : words) found = std::min(found, lower.find(word));
    if (found == std::string::npos) found = 0;
    const std::size_t blank =
        found > kExtractLead ? text.find(' ', found - kExtractLead) : std::string::npos;
    const std::size_t start = blank < found ? blank + 1 : found > kExtractLead ? found : 0;
    std::size_t end = text.size();
    if (start + kExtractLength < end) {
        end = std::max(text.rfind(' ', start + kExtractLength), start);
    }
    return (start > 0 ? "… " : "") + text.substr(start, end - start) +
           (end < text.size() ? " …" : "");
}

bool HoldsAll(const std::string& text, const std::vector<std::string>& words) {
    return std::all_of(words.begin(), words.end(),
                       [&](const auto& word) { return text.find(word) != std::string::npos; });
}

bool HoldsAny(const std::string& text, const std::vector<std::string>& words) {
    return std::any_of(words.begin(), words.end(),
                       [&](const auto& word) { return text.find(word) != std::string::npos; });
}

}  // namespace

HelpBook HelpBook::Parse(std::string_view text) {
    const std::string start = std::string(kFirstLine) + "\n" + std::string(kPageMark);
    if (!text.starts_with(start)) FailFormat("it does not begin like one");
    text.remove_prefix(start.size());
    std::vector<HelpPage> pages;
    for (const auto& block : Split(text, "\n" + std::string(kPageMark))) {
        pages.push_back(PageOf(block));
    }
    return HelpBook(std::move(pages));
}

std::string HelpBook::Text() const {
    std::string text(kFirstLine);
    for (const auto& page : pages_) {
        text += "\n" + std::string(kPageMark) + page.id + std::string(kFieldEnd) + page.section +
                std::string(kFieldEnd) + page.title + "\n" + page.html;
    }
    return text;
}

std::optional<std::size_t> HelpBook::Find(std::string_view id) const {
    const auto at =
        std::find_if(pages_.begin(), pages_.end(), [&](const auto& page) { return page.id == id; });
    if (at == pages_.end()) return std::nullopt;
    return static_cast<std::size_t>(at - pages_.begin());
}

std::vector<HelpHit> HelpBook::Search(std::string_view query) const {
    const auto words = QueryWords(query);
    std::vector<HelpHit> inTitle, inText;
    for (std::size_t i = 0; i < pages_.size() && !words.empty(); ++i) {
        const std::string text = PlainHelpText(pages_[i].html);
        const std::string title = LowerCase(pages_[i].title);
        if (!HoldsAll(title + " " + LowerCase(text), words)) continue;
        auto& hits = HoldsAny(title, words) ? inTitle : inText;
        // The text begins with its own title, which the list shows anyway.
        const bool repeats = text.starts_with(pages_[i].title);
        hits.push_back(
            {i, Extract(repeats ? Trim(text.substr(pages_[i].title.size())) : text, words)});
    }
    inTitle.insert(inTitle.end(), inText.begin(), inText.end());
    return inTitle;
}

std::vector<std::string> HelpBook::BrokenLinks() const {
    constexpr std::string_view kLink = "href=\"";
    std::vector<std::string> broken;
    for (const auto& page : pages_) {
        for (std::size_t at = page.html.find(kLink); at != std::string::npos;
             at = page.html.find(kLink, at)) {
            at += kLink.size();
            const std::string id = page.html.substr(at, page.html.find('"', at) - at);
            if (!Find(id)) broken.push_back(page.id + " -> " + id);
        }
    }
    return broken;
}

std::vector<std::string> QueryWords(std::string_view query) {
    std::vector<std::string> words;
    for (const auto& word : Split(LowerCase(query), " ")) {
        if (!word.empty()) words.push_back(word);
    }
    return words;
}

std::string PlainHelpText(std::string_view html) {
    std::string text = WithoutTags(html);
    for (const auto& entity : kEntities) text = Join(Split(text, entity.name), entity.character);
    return text;
}
