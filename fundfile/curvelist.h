#pragma once
// The list of the curves that are drawn together: it stands in front of the first row's scale.

#include <cstdint>
#include <vector>

class DataSource;

/// Without moving; empty where there is no row.
std::vector<std::int32_t> ListedCurves(DataSource& holdings);
/// Gives the first row the list and takes it from all others,
/// which rows that came or went make necessary.
void WriteCurveList(DataSource& holdings, const std::vector<std::int32_t>& curves);
