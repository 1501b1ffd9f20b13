#pragma once
// What is said of a cell of a table: its column with its text, and where it stands.

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

/// "Kurs Kr: 121,50"; "Kurs Kr: tom" of an empty cell. The blanks around a caption are not said.
std::string SpokenCell(std::string_view caption, std::string_view text);

/// "rad 3 av 10", with the row counted from 0; "ny rad" of one behind the last.
std::string SpokenRow(std::int32_t row, std::int32_t rows);

/// The parts that are not empty, one after the other.
std::string SpokenParts(std::initializer_list<std::string_view> parts);
