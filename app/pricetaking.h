#pragma once
// A typed price on its one road into the file, whoever has it typed: read, judged, asked about,
// stored, shown.

#include "fundfile/rules/openholding.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

struct PriceToTake {
    OpenHolding holding;
    std::string typed;
    std::int32_t day = 0;  ///< a day number
    /// Gets the price as "0.00" before anything is asked about it. May be empty.
    std::function<void(const std::string& price)> show = {};
};

enum class PriceFate {
    Stored,
    Refused,  ///< no price, or the user took it back: what was typed is to be cleared
    Failed,   ///< the file would not take it: what was typed stays
};

struct TakenPrice {
    PriceFate fate = PriceFate::Refused;
    std::optional<OpenHolding> stored = {};  ///< the holding as its row is now
    std::int32_t percent = 0;                ///< of the stored point
};
