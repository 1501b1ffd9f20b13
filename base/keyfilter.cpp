#include "base/keyfilter.h"

std::optional<char32_t> KeyFilter::operator()(char32_t typed) const {
    if (typed == U'.' && pointBecomesComma) return U',';
    if (allowed.find(typed) == std::u32string_view::npos) return std::nullopt;
    return typed;
}
