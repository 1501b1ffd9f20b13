#pragma once
// The holding that is open: what of its row decides which picture, price and summary belong
// together. Read once from the row, and again when the row was stored. Knows no file.

#include "fundfile/rules/holding.h"
#include "fundfile/rules/scale.h"

#include <cstdint>
#include <optional>
#include <string>

/// The three texts of the status bar as the row keeps them, and the day they are of. A holding that
/// never had a price has no day, or "0" as its latest price.
struct HoldingSummary {
    std::optional<std::int32_t> day;
    std::string latestPrice, change, value;
    bool operator==(const HoldingSummary&) const = default;
};

struct OpenHolding {
    std::int32_t kontoId = kFallbackKontoId;
    std::string fondNr, fond, account;
    double startPrice = 0;  ///< that the percentages start from; 0 where there is none
    double shares = 0;      ///< held now; 0 where there are none
    ScaleRange scale;
    HoldingSummary summary;
    bool operator==(const OpenHolding&) const = default;
};

OpenHolding OpenHoldingOf(const HoldingRow& row);
