#pragma once
// The query texts, one function each. Their doubled and trailing blanks belong to the texts.

#include <cstdint>
#include <string>
#include <string_view>

namespace queries {

std::string AllPoints();                        ///< for `dtaPlott` at start
std::string AllPointsAfterOpening();            ///< for `dtaPlott` when another file was opened
std::string AllPointsOf(std::int32_t kontoId);  ///< for `dtaPlott`: those of one holding
std::string PointsOf(std::int32_t kontoId);     ///< XCord, YCord, in day order
std::string PointsWithHolding();                ///< XCord, YCord, KontoId of all
std::string ValuesOf(std::int32_t kontoId);     ///< YCord
std::string FondNrOfPointsOf(std::int32_t kontoId);  ///< has rows if the holding has points
std::string DeletePointsOf(std::int32_t kontoId);    ///< an action for jet::Database::Execute

/// The name goes in as it stands: an apostrophe in it breaks the text,
/// and running it is a syntax error.
std::string TotalsOf(std::string_view accountName);

/// Criteria for FindFirst.
std::string KontoIdIs(std::int32_t kontoId);
std::string XCordIs(std::int32_t day);

}  // namespace queries
