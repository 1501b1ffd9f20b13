#pragma once
// Turns a value into one that a column of a given type can hold, as a record set's Set does.

#include "jet/design.h"
#include "jet/value.h"

#include <optional>
#include <string_view>

namespace jet::detail {

/// `value` as a value of the column's own type. Numbers are rounded half to even, a text that is a
/// number, a date or "True"/"False" is read, and every value has a text. Null stays null, but a
/// Boolean column holds false instead. Throws TypeMismatch when the value is nothing of that kind,
/// Overflow, FieldTooLong, and NotSupported for a type that cannot be written.
Value ConvertTo(const Value& value, const ColumnDesign& column);

/// "2000-12-31", "00-12-31", "00/12/31", with " hh:mm" or " hh:mm:ss" after it or not. A year of
/// two digits is one of 1930 to 2029.
std::optional<Date> ParseDate(std::string_view text);

/// "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}", the braces may be missing.
std::optional<Guid> ParseGuid(std::string_view text);

/// How many UTF-16 units the text takes: what a text column's size counts.
std::size_t Utf16Length(std::string_view utf8);

}  // namespace jet::detail
