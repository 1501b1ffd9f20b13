#include "fundfile/rules/holding.h"

#include "base/daynumber.h"
#include "base/number.h"

std::string ShownNumber(std::optional<double> number) {
    return number ? PlainText(*number) : "";
}

std::string ShownDay(std::optional<std::int32_t> day) {
    return day ? FormatDay(*day) : "";
}
