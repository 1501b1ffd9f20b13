#pragma once
// Prices that are pasted as a column: which holding each of them is for, and what would become of
// it. Stores nothing.

#include "fundfile/rules/openholding.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct PastedPrice {
    std::string name;                    ///< as pasted; "" where only a price stands in the line
    std::optional<std::size_t> holding;  ///< its place among the holdings
    std::string price;                   ///< "175,10"; as pasted where it is none
    std::string verdict;                 ///< what Enter makes of it, in words
    bool stores = false;                 ///< Enter stores it, or asks first
    bool doubtful = false;
    bool operator==(const PastedPrice&) const = default;
};

/// More than one line, or a name and a price: what one field could not take.
bool IsPriceColumn(std::string_view text);

struct PasteInto {
    std::vector<std::size_t> order;  ///< the holdings that lines without a name are for, one each
    std::int32_t today = 0;
};

/// Each line "name<tab>price", or a price alone; a blank one leaves out the holding that it would
/// be for. A name is the fund's, whatever its case,
/// also where the file keeps it cut; or a fund number. It is for all holdings of that fund.
std::vector<PastedPrice> PastePlan(std::string_view text, std::span<const OpenHolding> holdings,
                                   const PasteInto& into);

/// "Enter sparar 8 kurser. 2 rader sparas inte. Esc ångrar."
std::string PlanText(std::span<const PastedPrice> plan);
