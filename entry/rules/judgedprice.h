#pragma once
// What would become of a price that came from outside: the checks of a typed one, in words.

#include "fundfile/rules/openholding.h"
#include "fundfile/rules/summary.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct JudgedPrice {
    std::string text = {};               ///< "175,10"; as it came where it is none
    std::string verdict = {};            ///< in words
    std::optional<DayPrice> price = {};  ///< as it would be stored; nothing where it cannot be
    bool stores = false;                 ///< it is stored, or asked about first
    bool asks = false;                   ///< more than 200 % up
    bool doubtful = false;               ///< refused, asked about, or far from the price before it
};

/// `before` is the price that its change is measured from.
JudgedPrice JudgeForeignPrice(const std::string& text, const OpenHolding& holding, std::int32_t day,
                              std::optional<double> before);

/// "Sparas inte: " and the reason.
std::string NotStoredText(std::string_view why);
