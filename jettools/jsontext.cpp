#include "jettools/jsontext.h"

#include "jettools/sha256.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <variant>

namespace {

constexpr std::string_view kSmallDigits = "0123456789abcdef", kLargeDigits = "0123456789ABCDEF";
constexpr std::size_t kMaxShownBinarySize = 256;

void AppendHex(std::string& out, std::uint8_t byte, std::string_view digits) {
    out += digits[byte >> 4U];
    out += digits[byte & 0x0FU];
}

void AppendWhole(std::string& out, std::int64_t number) {
    char digits[24];
    out.append(digits, std::to_chars(std::begin(digits), std::end(digits), number).ptr);
}

void AppendPadded(std::string& out, std::int64_t number, std::size_t width) {
    std::string digits;
    AppendWhole(digits, number);
    if (digits.size() < width) out.append(width - digits.size(), '0');
    out += digits;
}

/// A whole number's digits with the point `decimals` digits from the end.
void AppendScaled(std::string& out, bool negative, std::string digits, std::size_t decimals) {
    if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
    out += '"';
    if (negative && digits.find_first_not_of('0') != std::string::npos) out += '-';
    out.append(digits, 0, digits.size() - decimals);
    if (decimals > 0) out.append(".").append(digits, digits.size() - decimals);
    out += '"';
}

/// A number taken apart: the digits that tell it from all others, the first in front of the point,
/// and the power of ten.
struct Scientific {
    bool negative = false;
    std::string digits;
    int exponent = 0;
};

template <typename Float>
Scientific TakenApart(Float number) {
    char buffer[40];
    const auto end =
        std::to_chars(std::begin(buffer), std::end(buffer), number, std::chars_format::scientific)
            .ptr;
    std::string_view text(buffer, static_cast<std::size_t>(end - buffer));  // "-d.ddde+NN"
    Scientific parts;
    parts.negative = text.front() == '-';
    if (parts.negative) text.remove_prefix(1);
    const std::size_t mark = text.find('e');
    for (const char c : text.substr(0, mark)) {
        if (c != '.') parts.digits += c;
    }
    std::string_view power = text.substr(mark + 1);
    if (power.front() == '+') power.remove_prefix(1);
    std::from_chars(power.data(), power.data() + power.size(), parts.exponent);
    return parts;
}

template <typename Float>
void AppendFloating(std::string& out, Float number) {
    if (!std::isfinite(number)) {
        out += "null";
        return;
    }
    const auto [negative, digits, exponent] = TakenApart(number);
    if (negative) out += '-';
    if (number == 0) {
        out += '0';
        return;
    }
    constexpr int kMinPositionalExponent = -7, kMaxPositionalExponent = 20;
    if (exponent < kMinPositionalExponent || exponent > kMaxPositionalExponent) {
        out += digits.front();
        if (digits.size() > 1) out.append(".").append(digits, 1);
        out.append(exponent < 0 ? "e-" : "e+");
        AppendWhole(out, std::abs(exponent));
        return;
    }
    if (exponent < 0) {
        out.append("0.").append(static_cast<std::size_t>(-exponent - 1), '0').append(digits);
        return;
    }
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= whole) {
        out.append(digits).append(whole - digits.size(), '0');
        return;
    }
    out.append(digits, 0, whole).append(".").append(digits, whole);
}

void AppendBinary(std::string& out, const jet::Bytes& bytes) {
    if (bytes.size() > kMaxShownBinarySize) {
        out += "{\"bytes\":";
        AppendWhole(out, static_cast<std::int64_t>(bytes.size()));
        out.append(",\"sha256\":\"").append(Sha256(bytes)).append("\"}");
        return;
    }
    out += "\"0x";
    for (const std::uint8_t byte : bytes) AppendHex(out, byte, kSmallDigits);
    out += '"';
}

void AppendGuid(std::string& out, const jet::Guid& guid) {
    out += "\"{";
    for (std::size_t i = 0; i < guid.bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) out += '-';
        AppendHex(out, guid.bytes[i], kLargeDigits);
    }
    out += "}\"";
}

/// The digits of a 128-bit magnitude, by repeated division by ten.
std::string DigitsOf(std::array<std::uint32_t, 4> magnitude) {
    std::string digits;
    while (std::any_of(magnitude.begin(), magnitude.end(), [](auto word) { return word != 0; })) {
        std::uint64_t rest = 0;
        for (std::uint32_t& word : magnitude) {
            rest = rest << 32U | word;
            word = static_cast<std::uint32_t>(rest / 10);
            rest %= 10;
        }
        digits += static_cast<char>('0' + rest);
    }
    if (digits.empty()) digits = "0";
    std::reverse(digits.begin(), digits.end());
    return digits;
}

void AppendCurrency(std::string& out, jet::Currency amount) {
    const bool negative = amount.tenThousandths < 0;
    const auto bits = static_cast<std::uint64_t>(amount.tenThousandths);
    const std::uint64_t magnitude = negative ? ~bits + 1 : bits;
    char digits[24];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), magnitude).ptr;
    AppendScaled(out, negative, {digits, end}, 4);
}

}  // namespace

void AppendText(std::string& out, std::string_view text) {
    out += '"';
    for (const char c : text) {
        const auto byte = static_cast<std::uint8_t>(c);
        if (c == '"' || c == '\\') {
            out.append("\\") += c;
        } else if (byte >= 0x20) {
            out += c;
        } else if (c == '\n') {
            out += "\\n";
        } else if (c == '\r') {
            out += "\\r";
        } else if (c == '\t') {
            out += "\\t";
        } else {
            out += "\\u00";
            AppendHex(out, byte, kSmallDigits);
        }
    }
    out += '"';
}

namespace {

void AppendDate(std::string& out, jet::Date date) {
    constexpr double kEnd = 2958466, kStart = -693594;  // years 1 to 9999
    constexpr double kSecondsPerDay = 86400;
    if (!(date.serial > kStart && date.serial < kEnd)) {
        out += "null";
        return;
    }
    const double day = std::trunc(date.serial);
    const auto seconds =
        static_cast<std::int64_t>(std::round(std::fabs(date.serial - day) * kSecondsPerDay));
    const auto second = std::chrono::sys_days(std::chrono::year(1899) / 12 / 30) +
                        std::chrono::days(static_cast<int>(day)) + std::chrono::seconds(seconds);
    const auto midnight = std::chrono::floor<std::chrono::days>(second);
    const std::chrono::year_month_day civil(midnight);
    const std::chrono::hh_mm_ss time(second - midnight);
    out += '"';
    AppendPadded(out, static_cast<int>(civil.year()), 4);
    out += '-';
    AppendPadded(out, static_cast<unsigned>(civil.month()), 2);
    out += '-';
    AppendPadded(out, static_cast<unsigned>(civil.day()), 2);
    out += 'T';
    AppendPadded(out, time.hours().count(), 2);
    out += ':';
    AppendPadded(out, time.minutes().count(), 2);
    out += ':';
    AppendPadded(out, time.seconds().count(), 2);
    out += '"';
}

struct Appender {
    std::string& out;
    void operator()(std::monostate) const { out += "null"; }
    void operator()(bool value) const { out += value ? "true" : "false"; }
    void operator()(std::uint8_t value) const { AppendWhole(out, value); }
    void operator()(std::int16_t value) const { AppendWhole(out, value); }
    void operator()(std::int32_t value) const { AppendWhole(out, value); }
    void operator()(jet::Currency value) const { AppendCurrency(out, value); }
    void operator()(float value) const { AppendFloating(out, value); }
    void operator()(double value) const { AppendFloating(out, value); }
    void operator()(jet::Date value) const { AppendDate(out, value); }
    void operator()(const std::string& value) const { AppendText(out, value); }
    void operator()(const jet::Bytes& value) const { AppendBinary(out, value); }
    void operator()(const jet::Guid& value) const { AppendGuid(out, value); }
    void operator()(const jet::Numeric& value) const {
        AppendScaled(out, value.negative, DigitsOf(value.magnitude), value.scale);
    }
};

}  // namespace

void AppendValue(std::string& out, const jet::Value& value) {
    std::visit(Appender{out}, value.Held());
}
