#pragma once
// The yearly notice of new shares: what its boxes must hold and what is stored from them.

#include "fundfile/rules/holding.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The texts of the boxes 0 to 6: name, number, date, shares, price, value, share in percent.
using NoticeBoxes = std::array<std::string, 7>;

/// The first of the boxes 2 to 6 that is empty.
std::optional<std::size_t> EmptyBox(const NoticeBoxes& boxes);

/// What box 5 shows when it gets the focus: shares x price as "0.00"; nothing while one of them is
/// empty. TypeMismatch (13) if one is no number.
std::optional<std::string> ValueBoxText(std::string_view sharesBox, std::string_view priceBox);

/// What a notice writes over the row. The shares are rounded to the four
/// decimals they are shown with.
struct Notice {
    std::int32_t day = 0;
    double shares = 0;
    double price = 0;
    std::int32_t percent = 0;
    bool operator==(const Notice&) const = default;
};

/// TypeMismatch (13) if a box that must be a number, or the date, is not;
/// Overflow (6) if it is too large.
Notice ReadNotice(const NoticeBoxes& boxes);

/// What the saved-values column becomes: the present values if it is "x". Otherwise nothing is kept
/// and the column stays as it is.
std::optional<std::string> ValuesToSave(const HoldingRow& row);
