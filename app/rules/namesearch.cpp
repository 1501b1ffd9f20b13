#include "app/rules/namesearch.h"

#include "base/text.h"

namespace {

constexpr std::uint64_t kPause = 1000;  // milliseconds; after it a new name is begun
constexpr std::string_view kNumberEnd = ". ";

std::string NameOf(const std::string& line) {
    const std::size_t end = line.find(kNumberEnd);
    return LowerCase(end == line.npos ? line : line.substr(end + kNumberEnd.size()));
}

}  // namespace

void NameSearch::Type(std::string_view letter, std::uint64_t milliseconds) {
    const std::string lower = LowerCase(letter);
    if (milliseconds - lastKey_ > kPause) typed_.clear();
    lastKey_ = milliseconds;
    sameLetter_ = typed_.empty() || (sameLetter_ && lower == letter_);
    letter_ = lower;
    typed_ += lower;
}

bool NameSearch::MayStay() const {
    return !sameLetter_;
}

std::optional<std::size_t> NameSearch::Find(const std::vector<std::string>& lines,
                                            std::size_t start) const {
    for (const std::string& wanted : {typed_, sameLetter_ ? letter_ : typed_}) {
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const std::size_t at = (start + i) % lines.size();
            if (!wanted.empty() && NameOf(lines[at]).starts_with(wanted)) return at;
        }
    }
    return std::nullopt;
}
