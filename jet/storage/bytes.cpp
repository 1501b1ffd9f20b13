#include "jet/storage/bytes.h"

#include <charconv>

namespace jet::detail {

std::string Decimal(std::uint64_t number) {
    char digits[24];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
    return {digits, end};
}

std::string Excerpt(std::string_view utf8) {
    constexpr std::size_t kMaxCharacters = 200;
    std::size_t characters = 0;
    for (std::size_t at = 0; at < utf8.size(); ++at) {
        const bool begins = (static_cast<std::uint8_t>(utf8[at]) & 0xC0U) != 0x80U;
        if (begins && characters++ == kMaxCharacters)
            return std::string(utf8.substr(0, at)) + "...";
    }
    return std::string(utf8);
}

void ThrowDamaged(std::uint32_t page, std::size_t offset, std::string_view what) {
    std::string text = page == kNoPage ? std::string("stored bytes") : "page " + Decimal(page);
    text.append(": ").append(what).append(" (at ").append(Decimal(offset)).append(")");
    throw Error{ErrorNumber::NotADatabase, text};
}

void ThrowOutside(std::uint32_t page, std::size_t offset, std::size_t size, std::size_t available) {
    ThrowDamaged(page, offset,
                 Decimal(size) + " bytes wanted, past the end at " + Decimal(available));
}

}  // namespace jet::detail
