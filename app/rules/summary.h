#pragma once
// The open holding's summary after a new price.

#include <cstdint>
#include <string>
#include <string_view>

/// The change in whole percent, reckoned in double precision, halves to even. DivisionByZero (11)
/// for a start price of 0, Overflow (6) where the percentage does not fit.
std::int32_t ChangeSinceStart(float startPrice, float newPrice);

/// "5 %".
std::string ChangeText(std::int32_t percent);

/// What status panel 6 shows: the value of the shares in whole kronor, or "-" for a summary row.
/// `sharesCaption` is the caption that shows the number of shares; an empty one counts as no
/// shares.
std::string CurrentValueText(std::string_view fondNr, std::string_view sharesCaption,
                             float newPrice);

/// The number of shares stands in lblFraData(7) where there are saved values, else in
/// lblFraData(2).
std::string_view SharesCaption(std::string_view label7, std::string_view label2);

/// The window's caption after a price was stored.
std::string UpdatedCaption(std::string_view fund, std::int32_t latestDay);
