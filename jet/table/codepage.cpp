#include "jet/table/codepage.h"

#include "jet/storage/bytes.h"
#include "jet/windows1252.h"

#include <algorithm>
#include <iconv.h>
#include <map>
#include <memory>
#include <string>

namespace jet::detail {

namespace {

constexpr std::uint16_t kWestern = 1252, kThai = 874, kFirstWindows = 1250, kLastWindows = 1258;
constexpr char16_t kPrivate = 0xF700;

CodePage MakeWestern() {
    std::array<char16_t, 256> characters{};
    for (unsigned byte = 0; byte < 256; ++byte) characters[byte] = static_cast<char16_t>(byte);
    std::copy(kWindows1252Controls.begin(), kWindows1252Controls.end(), characters.begin() + 0x80);
    return CodePage(characters);
}

/// One byte, converted on its own: some converters hold a letter back until they know whether an
/// accent follows, so the second call lets it go.
char16_t Convert(iconv_t converter, unsigned number) {
    std::array<char, 1> byte{static_cast<char>(number)};
    std::array<unsigned char, 8> units{};
    char* in = byte.data();
    char* out = reinterpret_cast<char*>(units.data());
    std::size_t inLeft = byte.size(), outLeft = units.size();
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    const bool known =
        iconv(converter, &in, &inLeft, &out, &outLeft) != static_cast<std::size_t>(-1);
    iconv(converter, nullptr, nullptr, &out, &outLeft);
    if (known && units.size() - outLeft == 2) {
        return static_cast<char16_t>(units[0] | units[1] << 8);
    }
    return static_cast<char16_t>(number < 0xA0 ? number : kPrivate + number);
}

std::unique_ptr<const CodePage> Load(std::uint16_t number) {
    const std::string name = "CP" + Decimal(number);
    const iconv_t converter = iconv_open("UTF-16LE", name.c_str());
    // iconv_open tells its failure by this value. NOLINTNEXTLINE(performance-no-int-to-ptr)
    if (converter == reinterpret_cast<iconv_t>(-1)) return nullptr;
    std::array<char16_t, 256> characters{};
    for (unsigned byte = 0; byte < 256; ++byte) characters[byte] = Convert(converter, byte);
    iconv_close(converter);
    return std::make_unique<const CodePage>(characters);
}

}  // namespace

std::optional<std::uint8_t> CodePage::ToByte(char32_t character) const {
    if (character < characters_.size() && characters_[character] == character) {
        return static_cast<std::uint8_t>(character);
    }
    const auto found = std::find(characters_.begin(), characters_.end(), character);
    if (found == characters_.end()) return std::nullopt;
    return static_cast<std::uint8_t>(found - characters_.begin());
}

const CodePage& WesternCodePage() {
    static const CodePage western = MakeWestern();
    return western;
}

const CodePage* FindCodePage(std::uint16_t number) {
    if (number == kWestern) return &WesternCodePage();
    if (number != kThai && (number < kFirstWindows || number > kLastWindows)) return nullptr;
    static std::map<std::uint16_t, std::unique_ptr<const CodePage>> loaded;
    const auto [place, isNew] = loaded.try_emplace(number);
    if (isNew) place->second = Load(number);
    return place->second.get();
}

}  // namespace jet::detail
