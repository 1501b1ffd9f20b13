#pragma once
// What the window shows of the holding that is open: labels, headings, captions and status panels.

#include "fundfile/rules/curvecolour.h"
#include "fundfile/rules/holding.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Status panels 2 to 6, and the text that panel 3 keeps in its tag.
struct StatusTexts {
    std::string fund, startPrice, latestPrice, change, value;
    std::string startPriceTag;
    bool operator==(const StatusTexts&) const = default;
};

struct HoldingView {
    std::array<std::string, 10> labels;         ///< lblFraData(0...9)
    std::array<std::string_view, 10> headings;  ///< the small heading over each
    std::string frameCaption;                   ///< fraStartData
    std::string windowCaption;
    std::string colourNumber;      ///< lblColorNr
    std::optional<Colour> colour;  ///< shaPlottColor; none leaves it empty
    StatusTexts status;
    bool operator==(const HoldingView&) const = default;
};

/// The view of a row that was chosen by this line of the fund list. Without saved values the labels
/// show the row as it was bought; with them the saved ones come first and the present
/// ones in the second column.
HoldingView ViewOf(const HoldingRow& row, std::string_view line);

/// The row's stored summary; the empty one where no latest price is known.
StatusTexts StatusOf(const HoldingRow& row);

/// Nothing open.
HoldingView EmptyView();

/// "Startkurs : 12,5".
std::string StartPriceText(std::string_view price);

/// The window's caption after a price was stored.
std::string UpdatedCaption(std::string_view fund, std::int32_t latestDay);
