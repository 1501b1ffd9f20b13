#pragma once
// A table of an open file: its rows with every index, what queries need to find them, and the
// checks before a write.

#include "jet/design.h"
#include "jet/index/tableindexes.h"
#include "jet/query/criterion.h"
#include "jet/query/lookup.h"
#include "jet/query/ordering.h"
#include "jet/table/table.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace jet::detail {

/// A comparison with a column of the table at hand.
struct Condition {
    std::size_t position = 0;  ///< in TableDef::columns
    Criterion criterion;
};

/// Edits stand inside PageFile::Begin and Commit; when one throws,
/// roll back and call AfterRollback.
class OpenTable {
  public:
    OpenTable(PageFile& file, const std::string& name, std::uint32_t page);
    OpenTable(const OpenTable&) = delete;
    OpenTable& operator=(const OpenTable&) = delete;

    const TableStore& Store() const { return store_; }
    const TableDef& Def() const { return store_.Def(); }
    const TableDesign& Design() const { return design_; }

    /// Packed pointers of the rows for which all conditions hold, in that order.
    std::vector<std::uint32_t> Rows(std::span<const Condition> conditions, const Ordering& order);
    /// The same in stored order.
    std::vector<std::uint32_t> Rows(std::span<const Condition> conditions);
    /// The order of rows where a query gives none: the primary key's, or no order.
    std::vector<OrderColumn> NaturalOrder() const;

    /// The rows that have these values in the columns of an index, as the index compares them;
    /// where it cannot (an unknown sort order), without regard to letter case and
    /// blanks at the end.
    std::vector<std::uint32_t> RowsWithKey(std::size_t realIndex, std::span<const Value> values);

    // Of this table alone: what relations to others ask for is in edits.h.
    RowPointer Insert(std::vector<Value> values);
    void Update(RowPointer row, std::span<const std::optional<Value>> values);
    void Delete(std::span<const std::uint32_t> rows);  ///< packed pointers
    void AfterRollback() noexcept;
    /// The check before the first write, and before its indexes are trusted; done already where
    /// rows were looked for by a value. Throws NotADatabase.
    void RequireSoundOnce();

    /// Counts up with every change of a row.
    std::uint64_t Version() const { return version_; }

  private:
    std::vector<std::uint32_t> MatchingRows(std::span<const Condition> conditions);
    Lookup& LookupFor(const Condition& condition);
    void LookWhileReading();

    TableStore store_;
    TableIndexes indexes_;
    TableDesign design_;
    std::map<std::pair<std::size_t, KeyKind>, Lookup> lookups_;
    std::uint64_t version_ = 0;
    bool sound_ = false, lookedAt_ = false;
};

/// The design that a definition describes.
TableDesign DesignOf(const PageFile& file, const TableDef& def, const std::string& name);

}  // namespace jet::detail
