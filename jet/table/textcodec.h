#pragma once
// Stored text <-> UTF-8: code page bytes (Jet 3), UTF-16 plain or compressed (Jet 4).

#include "jet/storage/bytes.h"
#include "jet/storage/layout.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jet::detail {

/// How a file stores text.
struct TextForm {
    std::size_t unit = 2;  ///< Layout::textUnit
    std::uint16_t codePage = 1252;
};

/// Stored bytes as UTF-8. Never fails: a lone surrogate becomes U+FFFD, an odd last byte is
/// dropped, and a code page that is not known is read as windows-1252.
std::string DecodeText(const TextForm& form, ByteView stored);

/// UTF-8 as stored bytes, never compressed. Throws TypeMismatch for a character that the file
/// cannot hold (outside its code page; broken UTF-8; U+FEFF in front).
std::vector<std::uint8_t> EncodeText(const TextForm& form, std::string_view utf8);
/// The same, compressed where that is shorter and customary (3 characters or
/// more, all U+0001..U+00FF).
std::vector<std::uint8_t> EncodeCompressed(const TextForm& form, std::string_view utf8);

/// Characters as the column's declared length counts them: UTF-16 units or code page bytes.
std::size_t StoredLength(const TextForm& form, ByteView uncompressed);

/// Reads one character of UTF-8 and moves `position` past it; nothing for broken UTF-8.
std::optional<char32_t> NextCharacter(std::string_view utf8, std::size_t& position);
void AppendUtf8(std::string& text, char32_t character);

}  // namespace jet::detail
