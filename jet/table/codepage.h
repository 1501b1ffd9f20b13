#pragma once
// The single-byte ANSI code pages in which Jet 3 files keep their texts.

#include <array>
#include <cstdint>
#include <optional>

namespace jet::detail {

/// What the 256 bytes of one code page mean. Every byte has a character of its own, so that stored
/// text survives reading and writing: a byte without a meaning is the control character of the same
/// number below A0, a private one (U+F700 + byte) above.
class CodePage {
  public:
    explicit CodePage(const std::array<char16_t, 256>& characters) : characters_(characters) {}

    char16_t FromByte(std::uint8_t byte) const { return characters_[byte]; }
    /// Nothing for a character that the code page lacks.
    std::optional<std::uint8_t> ToByte(char32_t character) const;

  private:
    std::array<char16_t, 256> characters_;
};

/// Windows-1252, Western Europe.
const CodePage& WesternCodePage();
/// The code page of that number (874, 1250 to 1258); null for all others. Lives as long as the
/// program. All but 1252 come from the C library, and are null too where it does not know them.
const CodePage* FindCodePage(std::uint16_t number);

}  // namespace jet::detail
