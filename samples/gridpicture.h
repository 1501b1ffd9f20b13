#pragma once
// The diagram's grid as a picture for the printed page: twelve months across, five bands up.

#include <cstdint>
#include <vector>

/// The bytes of a bitmap file of 14.965 x 7 cm at 300 dots per inch.
std::vector<std::uint8_t> GridPicture();
