#pragma once
// What a column of an Access-format file can hold: one value of any column type, its text and its
// number. Plain values: copies are independent of the file that they come from, and any thread may
// use its own.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace jet {

enum class ColumnType : std::uint8_t {
    Boolean = 0x01,
    Byte = 0x02,
    Integer = 0x03,
    Long = 0x04,
    Currency = 0x05,
    Single = 0x06,
    Double = 0x07,
    Date = 0x08,
    Binary = 0x09,
    Text = 0x0A,
    Ole = 0x0B,
    Memo = 0x0C,
    Guid = 0x0F,
    Numeric = 0x10,
    LargeBinary = 0x11,
};

/// An amount in ten-thousandths.
struct Currency {
    std::int64_t tenThousandths = 0;
    auto operator<=>(const Currency&) const = default;
};

/// Days since 1899-12-30, of no time zone; the fraction is the time of day, counted forward also
/// before day 0. Stored dates are those of the years 100 to 9999.
struct Date {
    double serial = 0;
    auto operator<=>(const Date&) const = default;
};

/// 16 bytes in the order in which they are shown.
struct Guid {
    std::array<std::uint8_t, 16> bytes{};
    auto operator<=>(const Guid&) const = default;
};

/// A decimal of up to 28 digits: sign, 128-bit magnitude (most significant word first), decimals.
struct Numeric {
    bool negative = false;
    std::array<std::uint32_t, 4> magnitude{};
    std::uint8_t scale = 0;
    bool operator==(const Numeric&) const = default;
};

using Bytes = std::vector<std::uint8_t>;

/// A column's value, or null. Text is UTF-8.
class Value {
  public:
    using Variant = std::variant<std::monostate, bool, std::uint8_t, std::int16_t, std::int32_t,
                                 Currency, float, double, Date, std::string, Bytes, Guid, Numeric>;

    Value() = default;  ///< null
    Value(bool value) : held_(value) {}
    Value(std::uint8_t value) : held_(value) {}
    Value(std::int16_t value) : held_(value) {}
    Value(std::int32_t value) : held_(value) {}
    Value(Currency value) : held_(value) {}
    Value(float value) : held_(value) {}
    Value(double value) : held_(value) {}
    Value(Date value) : held_(value) {}
    Value(std::string value) : held_(std::move(value)) {}
    Value(std::string_view value) : held_(std::string(value)) {}
    Value(const char* value) : held_(std::string(value)) {}
    Value(Bytes value) : held_(std::move(value)) {}
    Value(Guid value) : held_(value) {}
    Value(Numeric value) : held_(value) {}

    bool IsNull() const noexcept { return std::holds_alternative<std::monostate>(held_); }
    /// What it holds, for std::get and std::visit; as long as the value lives and is not assigned.
    const Variant& Held() const noexcept { return held_; }

    /// The value as plain text: "" for null, decimals with a point and no noise digits (a single
    /// shows the fewest digits that read back to the same single), true/false as "True"/"False", a
    /// date as "yyyy-mm-dd" with " hh:mm:ss" after it when there is a time of day. Infinities, what
    /// is not a number and dates outside the years 1 to 9999 show as "". A GUID is "{...}" in
    /// capitals, bytes are "0x" and two capital digits each. Throws std::bad_alloc alone.
    std::string Text() const;

    /// The value as a number: of a numeric type directly, a date as its serial, true as -1, a text
    /// if the whole of it is a number (point or comma as decimal sign). Throws InvalidUseOfNull
    /// (94) for null and TypeMismatch (13) for anything else.
    double Number() const;

    /// Number() as a 32-bit whole number, halves to even. Throws Overflow (6) outside its range.
    std::int32_t Integer() const;

    bool operator==(const Value&) const = default;

  private:
    Variant held_;
};

}  // namespace jet
