#include "entry/rules/pricecheck.h"

#include "base/error.h"
#include "base/number.h"
#include "base/text.h"

#include <cstddef>
#include <limits>

namespace {

constexpr char32_t kMinusSign = U'\u2212';
constexpr std::u32string_view kDigits = U"0123456789";
constexpr std::u32string_view kDigitsPointsSigns = U"0123456789,.-\u2212";
/// Between groups of digits: no-break, thin and narrow no-break.
constexpr std::u32string_view kWideBlanks = U"\u00A0\u2009\u202F";

constexpr std::int32_t kAskAbove = 200;
constexpr std::int32_t kRefuseAbove = 1000;

}  // namespace

std::optional<double> ReadPrice(std::string_view text) {
    double price = 0;
    Skipping skip;
    skip([&] { price = ParseDouble(text); });
    // The percentage is reckoned in single precision: a price that is 0 or too large there is none.
    if (price > double{std::numeric_limits<float>::max()}) return std::nullopt;
    if (static_cast<float>(price) <= 0) return std::nullopt;
    return price;
}

std::string PastedPrice(std::string_view text) {
    const std::u32string characters = ToCodePoints(text);
    const std::size_t first = characters.find_first_of(kDigitsPointsSigns);
    const std::size_t last = characters.find_last_of(kDigits);
    std::u32string price;
    for (std::size_t i = first; last != characters.npos && i <= last; ++i) {
        const char32_t character = characters[i];
        if (character <= U' ' || kWideBlanks.find(character) != kWideBlanks.npos) continue;
        if (character == U'.') {
            price += U',';
        } else {
            price += character == kMinusSign ? U'-' : character;
        }
    }
    return ToUtf8(price);
}

Verdict Judge(std::int32_t percent) {
    if (percent > kRefuseAbove) return Verdict::AskThenRefuse;
    return percent > kAskAbove ? Verdict::AskFirst : Verdict::Accept;
}
