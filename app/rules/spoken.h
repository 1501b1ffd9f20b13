#pragma once
// What is said of the window's pictures to those who do not see them.

#include "app/rules/windowstate.h"
#include "base/colour.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The curves with their latest prices, their months and the scale; of a picture without a curve
/// `hint`, which says what to do about it.
std::string SpokenPicture(const WindowState& state, std::string_view hint);

/// "Dagar utan kurs: 12 november, 13 november"; "" where there are none.
std::string SpokenMissingDays(const std::vector<std::int32_t>& days);

/// "Kurvans färg: mörkblå"; "" without a curve.
std::string SpokenColour(std::optional<Colour> colour);

/// "Kursen 175,10 för Asp är sparad: 82 %".
std::string SpokenStoredPrice(std::string_view price, std::string_view fond, std::int32_t percent);
