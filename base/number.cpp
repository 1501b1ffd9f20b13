#include "base/number.h"

#include "base/error.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

constexpr std::size_t kGroup = 3;  // digits between two blanks in 12 345 678

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

[[noreturn]] void FailMismatch(std::string_view text) {
    throw Error{ErrorNumber::TypeMismatch, "not a number: \"" + std::string(text) + "\""};
}

[[noreturn]] void FailOverflow(std::string_view text) {
    throw Error{ErrorNumber::Overflow, "number out of range: \"" + std::string(text) + "\""};
}

/// Takes `prefix` off the front of `text` if it stands there.
bool Take(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix)) return false;
    text.remove_prefix(prefix.size());
    return true;
}

/// Blank, tab, line ends, no-break space, narrow no-break space, thin space.
bool TakeBlank(std::string_view& text) {
    constexpr std::array<std::string_view, 7> kBlanks = {
        " ", "\t", "\r", "\n", "\xC2\xA0", "\xE2\x80\xAF", "\xE2\x80\x89"};
    for (const auto blank : kBlanks) {
        if (Take(text, blank)) return true;
    }
    return false;
}

std::string TakeDigits(std::string_view& text) {
    std::size_t count = 0;
    while (count < text.size() && IsDigit(text[count])) ++count;
    std::string digits(text.substr(0, count));
    text.remove_prefix(count);
    return digits;
}

/// Digits, or digits in groups of three with a blank between. Leaves the text at what follows.
std::string TakeGroupedDigits(std::string_view& text) {
    std::string digits = TakeDigits(text);
    if (digits.empty() || digits.size() > kGroup) return digits;
    for (;;) {
        std::string_view rest = text;
        if (!TakeBlank(rest)) return digits;
        const std::string group = TakeDigits(rest);
        if (group.size() != kGroup) return digits;
        digits += group;
        text = rest;
    }
}

/// What a number's text says, in the form that from_chars reads.
struct Spelling {
    std::string text;       ///< "-12.5e3"
    bool belowOne = false;  ///< out of range then means too small to tell from 0
};

Spelling Spell(std::string_view whole) {
    std::string_view text = whole;
    while (TakeBlank(text)) {
    }
    Spelling spelling;
    if (Take(text, "-") || Take(text, "\xE2\x88\x92")) {
        spelling.text = "-";
    } else {
        Take(text, "+");
    }
    const std::string before = TakeGroupedDigits(text);
    std::string after;
    if (Take(text, ",") || Take(text, ".")) after = TakeDigits(text);
    if (before.empty() && after.empty()) FailMismatch(whole);
    spelling.text += before.empty() ? "0" : before;
    if (!after.empty()) spelling.text += "." + after;
    spelling.belowOne = before.find_first_not_of('0') == std::string::npos;

    if (Take(text, "e") || Take(text, "E")) {
        const bool small = Take(text, "-");
        if (!small) Take(text, "+");
        const std::string exponent = TakeDigits(text);
        if (exponent.empty()) FailMismatch(whole);
        spelling.text += (small ? "e-" : "e") + exponent;
        spelling.belowOne = small;
    }
    while (TakeBlank(text)) {
    }
    if (!text.empty()) FailMismatch(whole);
    return spelling;
}

template <typename Number>
Number Parse(std::string_view whole) {
    const Spelling spelling = Spell(whole);
    const char* const end = spelling.text.data() + spelling.text.size();
    Number value = 0;
    const auto result = std::from_chars(spelling.text.data(), end, value);
    if (result.ec == std::errc::result_out_of_range) {
        if (spelling.belowOne) return 0;
        FailOverflow(whole);
    }
    if (result.ec != std::errc() || result.ptr != end) FailMismatch(whole);
    return value;
}

/// The shortest decimal of a value: its significant digits,
/// and how many of them stand before the point.
struct Decimal {
    bool negative = false;
    std::string digits;
    int pointAt = 0;
};

template <typename Number>
Decimal ToDecimal(Number value) {
    if (!std::isfinite(value)) throw Error{ErrorNumber::Overflow, "no text for infinity or NaN"};
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::scientific);
    std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
    Decimal decimal;
    decimal.negative = Take(text, "-");
    decimal.digits = TakeDigits(text);
    if (Take(text, ".")) decimal.digits += TakeDigits(text);
    Take(text, "e");
    Take(text, "+");
    int exponent = 0;
    std::from_chars(text.data(), text.data() + text.size(), exponent);
    decimal.pointAt = exponent + 1;
    if (decimal.digits.find_first_not_of('0') == std::string::npos) return {};
    return decimal;
}

std::string Write(const Decimal& decimal, char sign) {
    if (decimal.digits.empty()) return "0";
    std::string whole, part;
    const int size = static_cast<int>(decimal.digits.size());
    for (int i = 0; i < decimal.pointAt; ++i) {
        whole += i < size ? decimal.digits[static_cast<std::size_t>(i)] : '0';
    }
    for (int i = decimal.pointAt; i < size; ++i) {
        part += i < 0 ? '0' : decimal.digits[static_cast<std::size_t>(i)];
    }
    std::string text = decimal.negative ? "-" : "";
    text += whole.empty() ? "0" : whole;
    if (!part.empty()) text += sign + part;
    return text;
}

/// Keeps `decimals` digits after the point, rounding halves away from zero.
Decimal RoundDecimal(Decimal decimal, int decimals) {
    const int kept = decimal.pointAt + decimals;
    if (kept < 0) return {};
    if (kept >= static_cast<int>(decimal.digits.size())) return decimal;
    const bool up = decimal.digits[static_cast<std::size_t>(kept)] >= '5';
    decimal.digits.resize(static_cast<std::size_t>(kept));
    if (!up) return decimal;
    std::size_t i = decimal.digits.size();
    while (i > 0 && decimal.digits[i - 1] == '9') decimal.digits[--i] = '0';
    if (i > 0) {
        ++decimal.digits[i - 1];
    } else {
        decimal.digits.insert(decimal.digits.begin(), '1');
        ++decimal.pointAt;
    }
    return decimal;
}

template <typename Number>
std::string WriteFixed(Number value, int decimals) {
    Decimal decimal = RoundDecimal(ToDecimal(value), decimals);
    if (decimal.digits.find_first_not_of('0') == std::string::npos) {
        decimal = {false, "0", 1};
    }
    const int places = decimal.pointAt + decimals;
    const auto wanted = static_cast<std::size_t>(places);
    if (decimal.digits.size() < wanted) decimal.digits.resize(wanted, '0');
    return Write(decimal, ',');
}

template <typename Integer>
std::string WriteInteger(Integer value) {
    std::array<char, 24> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return std::string(buffer.data(), end.ptr);
}

std::int32_t Narrow(std::int64_t value) {
    if (value < std::numeric_limits<std::int32_t>::min() ||
        value > std::numeric_limits<std::int32_t>::max()) {
        FailOverflow(WriteInteger(value));
    }
    return static_cast<std::int32_t>(value);
}

}  // namespace

float ParseSingle(std::string_view text) {
    return Parse<float>(text);
}

double ParseDouble(std::string_view text) {
    return Parse<double>(text);
}

std::int32_t ParseInteger(std::string_view text) {
    return RoundHalfEven(ParseDouble(text));
}

double LeadingNumber(std::string_view text) {
    while (TakeBlank(text)) {
    }
    std::string number = Take(text, "-") ? "-" : "";
    if (number.empty()) Take(text, "+");
    const std::string before = TakeDigits(text);
    const std::string after = Take(text, ".") ? TakeDigits(text) : "";
    if (before.empty() && after.empty()) return 0;
    return ParseDouble(number + before + "." + after);
}

std::string PlainText(float value) {
    return Write(ToDecimal(value), ',');
}

std::string PlainText(double value) {
    return Write(ToDecimal(value), ',');
}

std::string PlainText(std::int32_t value) {
    return WriteInteger(value);
}

std::string PlainText(std::int64_t value) {
    return WriteInteger(value);
}

std::string PointText(float value) {
    return Write(ToDecimal(value), '.');
}

double WidenSingle(float value) {
    return ParseDouble(PointText(value));
}

std::string Fixed(float value, int decimals) {
    return WriteFixed(value, decimals);
}

std::string Fixed(double value, int decimals) {
    return WriteFixed(value, decimals);
}

std::int32_t RoundHalfEven(float value) {
    return RoundHalfEven(static_cast<double>(value));
}

std::int32_t RoundHalfEven(double value) {
    constexpr double kLimit = 2147483648.0;
    if (!(value > -kLimit - 1 && value < kLimit)) {  // also true for NaN
        throw Error{ErrorNumber::Overflow, "a rounded value does not fit 32 bits"};
    }
    const double below = std::floor(value);
    const double rest = value - below;
    const bool odd = std::fmod(below, 2.0) != 0.0;
    const bool up = rest > 0.5 || (rest == 0.5 && odd);
    return Narrow(static_cast<std::int64_t>(below) + (up ? 1 : 0));
}
