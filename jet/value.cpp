#include "jet/value.h"

#include "jet/error.h"
#include "jet/storage/bytes.h"
#include "jet/table/decimal.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>

namespace jet {
namespace {

template <typename... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

constexpr double kLastSerial = 2958466;  // the day after 9999-12-31
constexpr std::int64_t kSecondsOfDay = 86400;

std::string WholeText(std::int32_t value) {
    std::array<char, 16> text;
    const auto [end, problem] = std::to_chars(text.data(), text.data() + text.size(), value);
    return std::string(text.data(), end);
}

std::string Padded(std::int64_t value, std::size_t width) {
    std::string text = WholeText(static_cast<std::int32_t>(value));
    if (text.size() < width) text.insert(0, width - text.size(), '0');
    return text;
}

std::string HexText(std::uint8_t byte) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    return {kDigits[byte >> 4], kDigits[byte & 15]};
}

std::string DateText(Date date) {
    if (!(std::abs(date.serial) < kLastSerial)) return "";
    auto day = static_cast<std::int64_t>(date.serial);
    const double time = std::abs(date.serial - static_cast<double>(day));
    std::int64_t second = std::llround(time * static_cast<double>(kSecondsOfDay));
    if (second == kSecondsOfDay) {
        second = 0;
        ++day;
    }
    using namespace std::chrono;
    const year_month_day civil{sys_days{year{1899} / December / 30} + days{day}};
    const int yearNumber = static_cast<int>(civil.year());
    if (yearNumber < 1 || yearNumber > 9999) return "";
    std::string text = Padded(yearNumber, 4) + "-" + Padded(unsigned{civil.month()}, 2) + "-" +
                       Padded(unsigned{civil.day()}, 2);
    if (second != 0) {
        text += " " + Padded(second / 3600, 2) + ":" + Padded(second / 60 % 60, 2) + ":" +
                Padded(second % 60, 2);
    }
    return text;
}

std::string GuidText(const Guid& guid) {
    std::string text = "{";
    for (std::size_t i = 0; i < guid.bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
        text += HexText(guid.bytes[i]);
    }
    return text + "}";
}

std::string BytesText(const Bytes& bytes) {
    std::string text = "0x";
    for (const std::uint8_t byte : bytes) text += HexText(byte);
    return text;
}

double NumberOfText(const std::string& text) {
    const auto plain = detail::PlainNumber(text);
    if (!plain)
        throw Error{ErrorNumber::TypeMismatch, "text is no number: " + detail::Excerpt(text)};
    return detail::DoubleOf(*plain);
}

}  // namespace

std::string Value::Text() const {
    return std::visit(
        Overloaded{
            [](std::monostate) { return std::string(); },
            [](bool value) { return std::string(value ? "True" : "False"); },
            [](std::uint8_t value) { return WholeText(value); },
            [](std::int16_t value) { return WholeText(value); },
            [](std::int32_t value) { return WholeText(value); },
            [](Currency value) { return detail::WithoutTrailingZeros(detail::FullText(value)); },
            [](float value) { return detail::ShortestText(value); },
            [](double value) { return detail::ShortestText(value); },
            [](Date value) { return DateText(value); },
            [](const std::string& value) { return value; },
            [](const Bytes& value) { return BytesText(value); },
            [](const Guid& value) { return GuidText(value); },
            [](const Numeric& value) {
                return detail::WithoutTrailingZeros(detail::FullText(value));
            },
        },
        held_);
}

double Value::Number() const {
    return std::visit(
        Overloaded{
            [](std::monostate) -> double {
                throw Error{ErrorNumber::InvalidUseOfNull, "number of a null value"};
            },
            [](bool value) { return value ? -1.0 : 0.0; },
            [](Currency value) { return static_cast<double>(value.tenThousandths) / 10000; },
            [](Date value) { return value.serial; },
            [](const std::string& value) { return NumberOfText(value); },
            [](const Bytes&) -> double {
                throw Error{ErrorNumber::TypeMismatch, "number of a binary value"};
            },
            [](const Guid&) -> double {
                throw Error{ErrorNumber::TypeMismatch, "number of a GUID"};
            },
            [](const Numeric& value) { return detail::DoubleOf(detail::FullText(value)); },
            [](auto value) { return static_cast<double>(value); },
        },
        held_);
}

std::int32_t Value::Integer() const {
    const double number = Number();
    const double floor = std::floor(number);
    const double rest = number - floor;
    const bool up = rest > 0.5 || (rest == 0.5 && std::fmod(floor, 2.0) != 0);
    const double whole = up ? floor + 1 : floor;
    // Also false for what is not a number.
    const bool fits = whole >= std::numeric_limits<std::int32_t>::min() &&
                      whole <= std::numeric_limits<std::int32_t>::max();
    if (!fits)
        throw Error{ErrorNumber::Overflow, "no 32-bit whole number: " + detail::Excerpt(Text())};
    return static_cast<std::int32_t>(whole);
}

}  // namespace jet
