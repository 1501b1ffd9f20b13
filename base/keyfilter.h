#pragma once
// Which typed characters pass into an entry field, and what becomes of them.
// Knows no keyboard and no field.

#include <optional>
#include <string_view>

/// One field's filter of the characters that key presses type. The keys that erase, confirm, copy
/// and paste type none: they are every field's.
struct KeyFilter {
    std::u32string_view allowed;     ///< these pass
    bool pointBecomesComma = false;  ///< "." passes as ","

    /// What is typed in place of `typed`; nothing if it is dropped.
    std::optional<char32_t> operator()(char32_t typed) const;
};

/// The day's price.
inline constexpr KeyFilter kPriceKeys{U",0123456789", true};
/// The columns of the holdings grid after the first.
inline constexpr KeyFilter kGridKeys{U" ,-0123456789", true};
/// Account number and personal identity number.
inline constexpr KeyFilter kAccountKeys{U",-.0123456789", false};
/// The boxes of a new shares notice.
inline constexpr KeyFilter kNewSharesKeys{U",-0123456789", true};
/// Start and new value of the percent calculator.
inline constexpr KeyFilter kPercentKeys{U",0123456789", true};
