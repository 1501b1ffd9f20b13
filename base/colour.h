#pragma once
// A colour, wherever it goes: into the fund file, onto the screen, onto the page.

#include <cstdint>

struct Colour {
    std::uint8_t red = 0, green = 0, blue = 0;
    bool operator==(const Colour&) const = default;
};
