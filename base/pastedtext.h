#pragma once
// What a copied text becomes when it is pasted into a field of one kind. Knows no clipboard and no
// field; which characters pass there is the key filter's to say.

#include <optional>
#include <string>
#include <string_view>

/// The first line that is not blank, without the blanks around it; a tab in it becomes a blank.
std::string PastedLine(std::string_view text);

/// The one number in the first line as it would be typed: "1 234.50 kr" becomes "1234,50". Words
/// around it fall away, its sign stays. Nothing where there is no number, or where more digits than
/// one number's stand there: "1 12,50", "1,234.50", "12x3" and "2026-11-20" have no reading that
/// might not be ten times the one that was meant.
std::optional<std::string> PastedNumber(std::string_view text);

/// The date in the first line as "yyyy-mm-dd"; nothing if it is no date.
std::optional<std::string> PastedDate(std::string_view text);
