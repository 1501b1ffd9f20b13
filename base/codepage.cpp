#include "base/codepage.h"

#include "base/text.h"
#include "jet/windows1252.h"

#include <algorithm>

namespace {

constexpr char32_t kFirstUpperControl = 0x80;
constexpr char32_t kAfterUpperControls = 0xA0;

char Encode(char32_t c) {
    if (c < kFirstUpperControl || (c >= kAfterUpperControls && c <= 0xFF)) {
        return static_cast<char>(c);
    }
    const auto at =
        std::find(jet::kWindows1252Controls.begin(), jet::kWindows1252Controls.end(), c);
    if (at == jet::kWindows1252Controls.end()) return '?';
    return static_cast<char>(kFirstUpperControl +
                             static_cast<char32_t>(at - jet::kWindows1252Controls.begin()));
}

char32_t Decode(char byte) {
    const char32_t c = static_cast<unsigned char>(byte);
    if (c < kFirstUpperControl || c >= kAfterUpperControls) return c;
    return jet::kWindows1252Controls[c - kFirstUpperControl];
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
