#pragma once
// What each character weighs in the sort order "General", in the older (Jet 3) and the newer form
// (Jet 4). Only the numbers; how they become a key is in indexkey.

#include <cstdint>

namespace jet::detail {

/// Jet 3: one or two code bytes (0 = no second), and an accent nibble (0 = none).
struct Weight97 {
    std::uint8_t code = 0, second = 0, accent = 0;
};

/// Jet 4: one or two code bytes and an accent byte (0 = none), or the code of an ignorable
/// character. All zero: the character leaves no trace in a key.
struct Weight {
    std::uint8_t code = 0, second = 0, accent = 0, ignorable = 0;
};

const Weight97& WeightOf97(std::uint8_t codePageByte);

/// nullptr for a character whose weight is not known.
const Weight* WeightOf(char32_t character);

}  // namespace jet::detail
