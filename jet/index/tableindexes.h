#pragma once
// All indexes of one table, kept in step with its rows: what keys a row has, whether it may have
// them, and the entries. Where the sort order of a text is not known, this is where it is decided
// what can still be done.

#include "jet/index/btree.h"
#include "jet/index/indexkey.h"
#include "jet/table/table.h"
#include "jet/value.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <utility>
#include <vector>

namespace jet::detail {

/// What an insert or an update does to the indexes. Made and checked before anything changes.
struct IndexPlan {
    struct Change {
        std::size_t index = 0;        ///< position in TableDef::realIndexes
        bool erase = false;           ///< the row has an entry that goes away
        std::optional<Bytes> oldKey;  ///< of that entry; none = not known, look for the row pointer
        std::optional<Bytes> newKey;  ///< none = no new entry
    };
    std::vector<Change> changes;
};

/// Lives as long as its table is open: it remembers what it found out about unknown sort orders,
/// which stays true whatever rows come and go. After a rollback of the file nothing need be told.
///
///   insert:  plan = PlanInsert(values);         row = store.Insert(values);   Apply(plan, row);
///   update:  plan = PlanUpdate(row, values);    store.Update(row, values);    Apply(plan, row);
///   delete:  Erase(rows);                       store.Delete(rows);
class TableIndexes {
  public:
    explicit TableIndexes(TableStore& table);

    /// Throws NullKey, DuplicateKey, CollationUnknown, FieldTooLong; changes nothing. `values` has
    /// one for each column, of the column's own type, autonumbers filled in.
    IndexPlan PlanInsert(std::span<const Value> values);
    /// The same for a row that gets new values where there are some. Indexes whose columns stay
    /// equal are left alone.
    IndexPlan PlanUpdate(RowPointer row, std::span<const std::optional<Value>> values);
    /// Makes the entries; counts distinct keys.
    void Apply(const IndexPlan& plan, RowPointer row);
    /// Takes the entries of rows away, given as packed pointers. The rows must still be there.
    void Erase(std::span<const std::uint32_t> rows);

    /// The columns of an index as the key encoder wants them.
    const std::vector<KeyColumn>& Columns(std::size_t realIndex) const {
        return columns_[realIndex];
    }
    BTree Tree(std::size_t realIndex) const;

    /// The key that the row has in an index by its values, where that can be computed.
    struct RowKey {
        bool present = true;  ///< false: all columns are null and the index leaves such rows out
        std::optional<Bytes> key;
    };
    RowKey KeyFromRow(std::size_t realIndex, const RowView& row) const;
    /// The same into a buffer, whose bytes are the key when it is known: for many rows.
    enum class KeyState : std::uint8_t { Absent, Known, Unknown };
    KeyState KeyFromRow(std::size_t realIndex, const RowView& row, Bytes& into) const;

  private:
    struct BytesBelow {
        bool operator()(const Bytes& a, const Bytes& b) const { return EntryBelow(a, b); }
    };
    /// What the rows tell about the keys of an index that cannot all be computed.
    struct Evidence {
        bool general = false;  ///< there are keys, and each is what the order "General" gives
        std::set<std::pair<std::size_t, char32_t>> characters;  ///< that occur in them, by column
        std::map<Bytes, Bytes, BytesBelow>
            known;  ///< the uncomputable columns' values -> their part of a key
    };
    /// Key bytes column by column; none = not known.
    using Parts = std::vector<std::optional<Bytes>>;

    std::vector<Value> KeyValues(std::size_t realIndex, std::span<const Value> values) const;
    std::vector<Value> KeyValues(std::size_t realIndex, const RowView& row) const;
    RowKey KeyFromValues(std::size_t realIndex, std::span<const Value> keyValues) const;
    Parts PartsOf(std::size_t realIndex, std::span<const Value> keyValues) const;
    bool SameKey(std::size_t realIndex, std::span<const Value> a, std::span<const Value> b) const;
    std::optional<Bytes> CheckedKey(std::size_t realIndex, std::span<const Value> keyValues,
                                    RowPointer self);
    Bytes KnownOrProvenKey(std::size_t realIndex, std::span<const Value> keyValues);
    const Evidence& EvidenceOf(std::size_t realIndex);
    void Learn(Evidence& evidence, std::size_t realIndex, std::span<const Value> keyValues,
               ByteView key) const;
    std::vector<KeyColumn> AsGeneral(std::size_t realIndex) const;
    void EraseEntry(std::size_t realIndex, const std::optional<Bytes>& key, RowPointer row);

    TableStore* table_;
    std::vector<std::vector<KeyColumn>> columns_;
    std::map<std::size_t, Evidence> evidence_;
};

/// The sort order of a column's keys.
TextOrder TextOrderOf(const PageFile& file, const ColumnDef& column);

}  // namespace jet::detail
