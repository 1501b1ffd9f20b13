#include "base/codepage.h"

#include "base/text.h"

#include <algorithm>
#include <array>

namespace {

// Bytes 0x80 to 0x9F; all others are their own code points.
constexpr std::array<char32_t, 32> kUpperControls = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
constexpr char32_t kFirstUpperControl = 0x80;
constexpr char32_t kAfterUpperControls = 0xA0;

char Encode(char32_t c) {
    if (c < kFirstUpperControl || (c >= kAfterUpperControls && c <= 0xFF))
        return static_cast<char>(c);
    const auto at = std::find(kUpperControls.begin(), kUpperControls.end(), c);
    if (at == kUpperControls.end()) return '?';
    return static_cast<char>(kFirstUpperControl +
                             static_cast<char32_t>(at - kUpperControls.begin()));
}

char32_t Decode(char byte) {
    const char32_t c = static_cast<unsigned char>(byte);
    if (c < kFirstUpperControl || c >= kAfterUpperControls) return c;
    return kUpperControls[c - kFirstUpperControl];
}

}  // namespace

std::string EncodeCp1252(std::string_view utf8) {
    std::string bytes;
    for (const char32_t c : ToCodePoints(utf8)) bytes += Encode(c);
    return bytes;
}

std::string DecodeCp1252(std::string_view bytes) {
    std::u32string codePoints;
    for (const char byte : bytes) codePoints += Decode(byte);
    return ToUtf8(codePoints);
}
