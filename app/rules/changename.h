#pragma once
// What a change of the fund file is called where it can be taken back.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct ChangeName {
    std::string name;  ///< "kursen 190,32 för Asp"
    std::string log;   ///< what the log says of it; "" for a change without an entry
};

ChangeName PriceChange(std::string_view price, std::string_view fond);
ChangeName RowChange(std::string_view fond);
/// Deletions are in the log, and so is what becomes of them.
ChangeName HoldingDeletionChange(std::string_view account, std::string_view fond);
ChangeName SharesChange(std::string_view fond);
ChangeName ColourChange(std::string_view fond);
ChangeName CurvesChange();
ChangeName ImportChange(std::string_view file);
/// A point without a day has none in its name.
ChangeName PointChange(std::optional<std::int32_t> day, std::string_view fondNr);
ChangeName PointDeletionChange(std::optional<std::int32_t> day, std::string_view fondNr);
