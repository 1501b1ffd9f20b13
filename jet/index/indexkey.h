#pragma once
// The bytes by which an index orders values: one key column at a time, or a whole key. Knows no
// pages and no rows. A text whose order is not known for certain gives no key;
// nothing is ever guessed.

#include "jet/value.h"

#include <cstdint>
#include <optional>
#include <span>

namespace jet::detail {

/// The sort order of a text column, as far as keys are concerned.
enum class TextOrder : std::uint8_t {
    General97,  ///< the older weights (Jet 3, LCID 1033, code page 1252)
    General,    ///< the newer weights (Jet 4, LCID 1033 version 0)
    Unknown,    ///< any other collation
};

struct KeyColumn {
    ColumnType type = ColumnType::Long;
    bool descending = false;
    TextOrder order = TextOrder::Unknown;  ///< of text and memo columns
};

/// Whether values of this type have a place in an index at all.
bool Indexable(ColumnType type);

/// The key bytes of one value, start byte included. nullopt when they are not known: a text in an
/// unknown order or with a character without a known weight, or a type that has no keys. Null is
/// always known. The value must be of the column's own type; anything else is TypeMismatch.
std::optional<Bytes> EncodeKey(const Value& value, const KeyColumn& column);

/// The whole key: one value for each column, in the index's order.
/// nullopt when any part is not known.
std::optional<Bytes> EncodeKey(std::span<const Value> values, std::span<const KeyColumn> columns);

/// The same, at the end of `key`; false when the bytes are not known, `key` is then of no use.
bool AppendKey(Bytes& key, const Value& value, const KeyColumn& column);
/// The same for a whole number of 32 bits, without any Value: for many rows.
void AppendLongKey(Bytes& key, std::int32_t value, bool descending);

/// The key bytes of a null: the start byte alone.
std::uint8_t NullKey(const KeyColumn& column);

}  // namespace jet::detail
