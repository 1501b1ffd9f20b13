#include "jet/detail/bytes.h"

#include <charconv>

namespace jet::detail {

std::string Decimal(std::uint64_t number) {
    char digits[24];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
    return {digits, end};
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
