#include "base/pastedtext.h"

#include "base/daynumber.h"
#include "base/text.h"

#include <cstddef>

namespace {

constexpr std::size_t kGroup = 3;  // digits between two blanks in 12 345 678
constexpr char32_t kMinusSign = U'\u2212';
/// Between groups of digits: blank, no-break, thin and narrow no-break.
constexpr std::u32string_view kBlanks = U" \u00A0\u2009\u202F";
constexpr std::u32string_view kDecimalSigns = U",.";
constexpr std::u32string_view kDigits = U"0123456789";

bool IsIn(std::u32string_view set, char32_t character) {
    return set.find(character) != set.npos;
}

bool IsLineEnd(char32_t character) {
    return character == U'\n' || character == U'\r' || character == U'\u2028';
}

std::size_t CountDigits(std::u32string_view text) {
    std::size_t count = 0;
    while (count < text.size() && IsIn(kDigits, text[count])) ++count;
    return count;
}

std::u32string WithoutBlanksAround(std::u32string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == text.npos) return {};
    return std::u32string(text.substr(first, text.find_last_not_of(kBlanks) + 1 - first));
}

std::u32string FirstLine(std::string_view text) {
    std::u32string line;
    for (const char32_t character : ToCodePoints(text)) {
        if (!IsLineEnd(character)) {
            // Other control characters separate words as a blank does.
            line += character < U' ' ? U' ' : character;
            continue;
        }
        std::u32string trimmed = WithoutBlanksAround(line);
        if (!trimmed.empty()) return trimmed;
        line.clear();
    }
    return WithoutBlanksAround(line);
}

/// Where the number begins: at its first digit, or at a decimal sign that stands before that digit
/// and belongs to no word ("kr.175" is 175, not 0,175).
std::size_t NumberStart(std::u32string_view line) {
    const std::size_t digit = line.find_first_of(kDigits);
    if (digit == line.npos || digit == 0 || !IsIn(kDecimalSigns, line[digit - 1])) return digit;
    const bool afterWord =
        digit > 1 && !IsIn(kBlanks, line[digit - 2]) && !IsIn(U"-+\u2212", line[digit - 2]);
    return afterWord ? digit : digit - 1;
}

bool IsNegative(std::u32string_view before) {
    const std::size_t last = before.find_last_not_of(kBlanks);
    return last != before.npos && (before[last] == U'-' || before[last] == kMinusSign);
}

/// Takes digits off the front of `rest`, or digits in groups of three with one blank between.
std::u32string TakeGroupedDigits(std::u32string_view& rest) {
    std::size_t count = CountDigits(rest);
    std::u32string digits(rest.substr(0, count));
    rest.remove_prefix(count);
    if (digits.empty() || digits.size() > kGroup) return digits;
    while (!rest.empty() && IsIn(kBlanks, rest.front())) {
        count = CountDigits(rest.substr(1));
        if (count != kGroup) break;
        digits += rest.substr(1, count);
        rest.remove_prefix(1 + count);
    }
    return digits;
}

}  // namespace

std::string PastedLine(std::string_view text) {
    return ToUtf8(FirstLine(text));
}

std::optional<std::string> PastedNumber(std::string_view text) {
    const std::u32string line = FirstLine(text);
    const std::size_t start = NumberStart(line);
    if (start == line.npos) return std::nullopt;
    std::u32string_view rest = line;
    std::u32string number = IsNegative(rest.substr(0, start)) ? U"-" : U"";
    rest.remove_prefix(start);
    number += TakeGroupedDigits(rest);
    if (rest.size() > 1 && IsIn(kDecimalSigns, rest[0]) && IsIn(kDigits, rest[1])) {
        const std::size_t decimals = CountDigits(rest.substr(1));
        number += U',';
        number += rest.substr(1, decimals);
        rest.remove_prefix(1 + decimals);
    }
    if (rest.find_first_of(kDigits) != rest.npos) return std::nullopt;
    return ToUtf8(number);
}

std::optional<std::string> PastedDate(std::string_view text) {
    const std::optional<std::int32_t> day = ParseDate(PastedLine(text));
    if (!day) return std::nullopt;
    return FormatDay(*day);
}
