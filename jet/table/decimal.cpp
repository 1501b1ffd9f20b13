#include "jet/table/decimal.h"

#include "jet/error.h"
#include "jet/storage/bytes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace jet::detail {
namespace {

constexpr int kMaxDigits = 28;
constexpr std::uint8_t kCurrencyScale = 4;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t SkipDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && IsDigit(text[at])) ++at;
    return at;
}

// digits [point digits] [e [sign] digits], with a digit on at least one side of the point.
bool IsUnsignedNumber(std::string_view text) {
    const std::size_t point = SkipDigits(text, 0);
    std::size_t end = point;
    std::size_t digits = point;
    if (end < text.size() && text[end] == '.') {
        end = SkipDigits(text, point + 1);
        digits += end - point - 1;
    }
    if (digits == 0) return false;
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        ++end;
        if (end < text.size() && (text[end] == '-' || text[end] == '+')) ++end;
        const std::size_t exponent = SkipDigits(text, end);
        if (exponent == end) return false;
        end = exponent;
    }
    return end == text.size();
}

template <typename Number>
Number Read(std::string_view plain) {
    Number value = 0;
    const auto [end, problem] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (problem == std::errc::result_out_of_range) {
        // Both ends of the range report the same; a number too small to hold is zero.
        const std::size_t exponent = plain.find_first_of("eE");
        const bool tiny = (exponent != std::string_view::npos && exponent + 1 < plain.size() &&
                           plain[exponent + 1] == '-') ||
                          plain.starts_with("0.0") || plain.starts_with("-0.0") ||
                          plain.starts_with(".0") || plain.starts_with("-.0");
        if (tiny) return 0;
        throw Error{ErrorNumber::Overflow, "number out of range: " + Excerpt(plain)};
    }
    return value;
}

template <typename Number>
std::string Shortest(Number value) {
    if (!std::isfinite(value)) return "";
    const Number size = std::abs(value);
    const bool positional = size == 0 || (size >= Number(1e-7) && size < Number(1e16));
    std::array<char, 64> text;
    const auto [end, problem] =
        std::to_chars(text.data(), text.data() + text.size(), value,
                      positional ? std::chars_format::fixed : std::chars_format::scientific);
    return std::string(text.data(), problem == std::errc{} ? end : text.data());
}

std::string DigitsOf(std::array<std::uint32_t, 4> magnitude) {
    std::string digits;
    while (magnitude != std::array<std::uint32_t, 4>{}) {
        std::uint64_t rest = 0;
        for (std::uint32_t& word : magnitude) {
            const std::uint64_t part = rest << 32 | word;
            word = static_cast<std::uint32_t>(part / 10);
            rest = part % 10;
        }
        digits.push_back(static_cast<char>('0' + rest));
    }
    std::reverse(digits.begin(), digits.end());
    return digits.empty() ? "0" : digits;
}

std::array<std::uint32_t, 4> MagnitudeOf(std::string_view digits) {
    std::array<std::uint32_t, 4> magnitude{};
    for (const char digit : digits) {
        std::uint64_t carry = static_cast<std::uint64_t>(digit - '0');
        for (auto word = magnitude.rbegin(); word != magnitude.rend(); ++word) {
            const std::uint64_t part = std::uint64_t{*word} * 10 + carry;
            *word = static_cast<std::uint32_t>(part);
            carry = part >> 32;
        }
    }
    return magnitude;
}

std::string WithPoint(std::string digits, std::size_t scale, bool negative) {
    if (digits.size() <= scale) digits.insert(0, scale + 1 - digits.size(), '0');
    if (scale > 0) digits.insert(digits.size() - scale, 1, '.');
    return negative ? "-" + digits : digits;
}

// The digits of a plain number without its point, and how many of them are decimals (less than
// none: zeros follow).
struct Parts {
    std::string digits;
    long decimals = 0;
};

Parts PartsOf(std::string_view number) {
    Parts parts;
    const std::size_t e = number.find_first_of("eE");
    const std::string_view mantissa = number.substr(0, e);
    const std::size_t point = mantissa.find('.');
    if (point != std::string_view::npos) {
        parts.decimals = static_cast<long>(mantissa.size() - point - 1);
    }
    for (const char c : mantissa) {
        if (IsDigit(c)) parts.digits.push_back(c);
    }
    parts.digits.erase(0, std::min(parts.digits.find_first_not_of('0'), parts.digits.size()));
    if (e == std::string_view::npos) return parts;
    std::string_view exponentText = number.substr(e + 1);
    if (exponentText.starts_with('+')) exponentText.remove_prefix(1);
    long exponent = 0;
    const auto [end, problem] =
        std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
    constexpr long kFar = 100000;
    if (problem != std::errc{}) exponent = exponentText.starts_with('-') ? -kFar : kFar;
    parts.decimals -= std::clamp(exponent, -kFar, kFar);
    return parts;
}

void AddOne(std::string& digits) {
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return;
        }
        *digit = '0';
    }
    digits.insert(digits.begin(), '1');
}

void DropDigits(std::string& digits, std::size_t count) {
    if (count > digits.size()) {
        digits.clear();
        return;
    }
    const std::string dropped = digits.substr(digits.size() - count);
    digits.resize(digits.size() - count);
    const bool odd = !digits.empty() && (digits.back() - '0') % 2 == 1;
    const std::string half = "5" + std::string(count - 1, '0');
    if (dropped > half || (dropped == half && odd)) AddOne(digits);
}

}  // namespace

std::optional<std::string> PlainNumber(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return std::nullopt;
    text = text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
    if (text.starts_with('+')) text.remove_prefix(1);
    const bool negative = text.starts_with('-');
    std::string number(negative ? text.substr(1) : text);
    std::replace(number.begin(), number.end(), ',', '.');
    if (!IsUnsignedNumber(number)) return std::nullopt;
    if (negative) number.insert(0, 1, '-');
    return number;
}

double DoubleOf(std::string_view plain) {
    return Read<double>(plain);
}
float SingleOf(std::string_view plain) {
    return Read<float>(plain);
}

std::string ShortestText(float value) {
    return Shortest(value);
}
std::string ShortestText(double value) {
    return Shortest(value);
}

std::string FullText(const Numeric& value) {
    return WithPoint(DigitsOf(value.magnitude), value.scale, value.negative);
}

std::string FullText(Currency value) {
    const bool negative = value.tenThousandths < 0;
    // Negated as unsigned, so that the smallest amount has a magnitude too.
    const auto bits = static_cast<std::uint64_t>(value.tenThousandths);
    const std::uint64_t size = negative ? 0 - bits : bits;
    std::array<char, 24> text;
    const auto [end, problem] = std::to_chars(text.data(), text.data() + text.size(), size);
    return WithPoint(std::string(text.data(), end), kCurrencyScale, negative);
}

std::string WithoutTrailingZeros(std::string text) {
    if (text.find('.') == std::string::npos) return text;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text;
}

Numeric ToNumeric(std::string_view plain, std::uint8_t scale) {
    const bool negative = plain.starts_with('-');
    Parts parts = PartsOf(negative ? plain.substr(1) : plain);
    const long surplus = parts.decimals - scale;
    if (surplus > 0) {
        DropDigits(parts.digits, static_cast<std::size_t>(surplus));
    } else if (!parts.digits.empty()) {
        if (-surplus > kMaxDigits) {
            throw Error{ErrorNumber::Overflow, "number out of range: " + Excerpt(plain)};
        }
        parts.digits.append(static_cast<std::size_t>(-surplus), '0');
    }
    if (parts.digits.size() > kMaxDigits) {
        throw Error{ErrorNumber::Overflow, "number out of range: " + Excerpt(plain)};
    }
    Numeric value;
    value.magnitude = MagnitudeOf(parts.digits);
    value.negative = negative && value.magnitude != std::array<std::uint32_t, 4>{};
    value.scale = scale;
    return value;
}

Currency ToCurrency(std::string_view plain) {
    const Numeric value = ToNumeric(plain, kCurrencyScale);
    const std::uint64_t size = std::uint64_t{value.magnitude[2]} << 32 | value.magnitude[3];
    const std::uint64_t largest =
        static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()) +
        (value.negative ? 1 : 0);
    if (value.magnitude[0] != 0 || value.magnitude[1] != 0 || size > largest) {
        throw Error{ErrorNumber::Overflow, "amount out of range: " + Excerpt(plain)};
    }
    return Currency{static_cast<std::int64_t>(value.negative ? 0 - size : size)};
}

int DigitCount(const Numeric& value) {
    const std::string digits = DigitsOf(value.magnitude);
    return digits == "0" ? 0 : static_cast<int>(digits.size());
}

}  // namespace jet::detail
