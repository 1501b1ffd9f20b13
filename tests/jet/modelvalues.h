#pragma once
// Random values for a model's columns.

#include "jet/database.h"

#include <random>
#include <string>

namespace jet::test {

using Random = std::mt19937;

bool Chance(Random& random, unsigned percent);
/// A place among `count`.
std::size_t Pick(Random& random, std::size_t count);

/// What a column of a table of a file of this version may hold, and now and then what it may not.
Value RandomValue(const TableDesign& table, std::size_t column, int version, Random& random);

}  // namespace jet::test
