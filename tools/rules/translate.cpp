#include "tools/rules/translate.h"

#include "base/daynumber.h"
#include "base/number.h"

std::string Translated(std::string_view text) {
    if (const auto day = ParseDate(text)) return PlainText(*day);
    return FormatDay(ParseInteger(text));
}
