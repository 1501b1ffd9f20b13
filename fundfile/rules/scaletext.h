#pragma once
// The scale column: "15/-10", and in the first row of the table "1.2.5./15/-10", with the KontoIds
// of the curves shown together in front.

#include "fundfile/rules/scale.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The scale of a holding that has no other.
inline constexpr std::string_view kDefaultScaleText = "15/-10";

struct ScaleText {
    std::string list;                  ///< the list part as it stands; "" without one
    std::vector<std::int32_t> curves;  ///< the KontoIds in it, in their order
    ScaleRange scale;
    bool operator==(const ScaleText&) const = default;
};

/// Read from the end: the last two parts are top and bottom, the first of those before them is the
/// list. The scale is Normalised, and 15/-10 where there are no numbers; pieces of the list that
/// are no numbers are left out.
ScaleText ParseScaleText(std::string_view column);

/// "45/-30": the column of every row but the first.
std::string ScaleColumn(ScaleRange scale);
/// "1.2./45/-30", "./15/-10": the column of the first row.
std::string FirstScaleColumn(std::span<const std::int32_t> curves, ScaleRange scale);

/// The first row's column with another scale: its curve list stays.
std::string WithScale(std::string_view firstColumn, ScaleRange scale);
/// The first row's column with another curve list: its scale stays.
std::string WithCurves(std::string_view firstColumn, std::span<const std::int32_t> curves);

/// What a row's column must be when rows have come or gone:
/// the first row has a list part and no other has.
std::string AsFirstRow(std::string_view column);
std::string AsOtherRow(std::string_view column);
