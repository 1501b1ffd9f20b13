#pragma once
// SHA-256, by which a dump tells long binary values apart.

#include <cstdint>
#include <span>
#include <string>

/// The digest as 64 small hexadecimal digits.
std::string Sha256(std::span<const std::uint8_t> bytes);
