#pragma once
// The lines of the day's round, as the open fund file has them.

#include "entry/rules/dayround.h"

#include <span>
#include <vector>

namespace jet {
class Database;
}

/// All holdings in the order of their rows, with all their points. What `former` lines know of the
/// prices before this round, these know too.
std::vector<RoundLine> ReadRoundLines(jet::Database& database, std::span<const RoundLine> former);
