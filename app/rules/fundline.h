#pragma once
// The lines of the fund list, " 1. Name", and the marks that are taken
// from them while curves are chosen.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// A number below 10 has a blank in front, so that one and two digits line up.
std::string FundLine(std::int32_t kontoId, std::string_view name);

/// The KontoId that a line begins with: the whole number before its first ". ". TypeMismatch (13)
/// if there is none.
std::int32_t NumberOfLine(std::string_view line);

/// The mark of a line in the list of chosen curves, up to and with its point: " 1.", "12.", "123.".
std::string CurveMark(std::string_view line);

/// `marks` with the line's mark added at the end, unless the same curve is there already.
std::string AddCurveMark(std::string_view marks, std::string_view line);

/// The KontoIds in a text of marks, in the order chosen; empty pieces are left out.
std::vector<std::int32_t> CurvesOfMarks(std::string_view marks);
