#pragma once
// The rows of a query or table, one of them current; rows are added, edited and deleted through it.

#include "jet/design.h"
#include "jet/value.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

namespace jet {

/// Holds which rows belong to it, not their contents: values are read from the file's pages when
/// asked for, so an edit made elsewhere shows at once; rows added elsewhere show after Requery.
/// Which rows belong is found out at the first call that needs it (moving, counting, finding), so
/// opening and AddNew cost nothing.
///
/// Order: ORDER BY where given; else the primary key of the table; else the stored order.
///
/// It keeps its Database alive and is used on that one's thread. Every call but Pending throws
/// ObjectClosed after the database was closed, NotADatabase where the file is found to be damaged,
/// and std::bad_alloc when memory runs out; calls that need the current row throw RecordDeleted
/// when it is gone. After a transaction was taken back, call Requery before anything else.
class RecordSet {
  public:
    RecordSet(const RecordSet&) = delete;
    RecordSet& operator=(const RecordSet&) = delete;
    virtual ~RecordSet() = default;

    /// The fields that the query chose, in its order; known also after Close.
    virtual std::size_t FieldCount() const = 0;
    /// The design of a field's column; valid as long as the record set. Throws SubscriptOutOfRange.
    virtual const ColumnDesign& Column(std::size_t position) const = 0;
    /// The position of a field by name, letter case ignored. Throws FieldNotFound.
    virtual std::size_t FieldPosition(std::string_view name) const = 0;

    virtual bool Empty() = 0;
    /// The rows that belong to the set, those that were added through it included.
    virtual std::int32_t RecordCount() = 0;
    /// 0 for the first row, RecordCount() at the end, -1 before the first row or without rows.
    virtual std::int32_t Position() = 0;
    virtual bool Eof() = 0;  ///< after the last row, or without rows
    virtual bool Bof() = 0;  ///< before the first row, or without rows

    /// A record set stands on its first row when it is opened. On an empty one MoveFirst and
    /// MoveLast throw NoCurrentRecord. Move goes `rows` forward (negative: back) and stops at the
    /// end or before the first; MoveTo does the same with a position as Position tells it.
    virtual void MoveFirst() = 0;
    virtual void MoveLast() = 0;
    virtual void MoveNext() = 0;
    virtual void MovePrevious() = 0;
    virtual void Move(std::int32_t rows) = 0;
    virtual void MoveTo(std::int32_t position) = 0;

    /// Moves to the first row for which `criterion` ("Id = 5": a column, a comparison and a
    /// literal, as in a WHERE; see SQL.md) holds. False when there is none: the current row stays.
    /// In a set that is ordered by that column it searches by halves, else it reads row after row.
    /// Throws SyntaxError, TooFewParameters, TypeMismatch.
    virtual bool FindFirst(std::string_view criterion) = 0;

    /// The current row's value, or the pending one while a row is being edited or added.
    /// Throws NoCurrentRecord, SubscriptOutOfRange (position) or FieldNotFound (name). The value is
    /// a copy; a memo or OLE value is read whole.
    virtual Value Field(std::size_t position) = 0;
    virtual Value Field(std::string_view name) = 0;
    /// The stored value in row `row` (0-based) without moving there. For views of many rows. Throws
    /// SubscriptOutOfRange for either number, RecordDeleted.
    virtual Value At(std::int32_t row, std::size_t position) = 0;

    /// Visits all rows in order without moving, with the columns at `positions` as whole numbers:
    /// what Field(position).Integer() would give, and throwing what it would throw, but at the
    /// speed of a plain loop. The span that `visit` gets is valid during that call only. `visit`
    /// must not change the file.
    using IntegerVisitor = std::function<void(std::span<const std::int32_t>)>;
    virtual void VisitIntegers(std::span<const std::size_t> positions,
                               const IntegerVisitor& visit) = 0;

    /// The same as a list: `records->Integers({0, 1})` gives two numbers for each row.
    template <std::size_t Count>
    std::vector<std::array<std::int32_t, Count>> Integers(const std::size_t (&positions)[Count]);

    /// AddNew and Edit begin a pending row; Set changes it; Update stores it (durable when it
    /// returns, or when the enclosing Transaction commits); CancelUpdate forgets it. Moving forgets
    /// it too. After Update of a new row that row is current and the last one; an edited row stays
    /// current and in place. Set converts to the column's type (a text that is a number or date is
    /// read) and throws TypeMismatch, Overflow or FieldTooLong; Update throws DuplicateKey,
    /// NullKey, ReadOnly, CollationUnknown, DiskFull, DeviceIo, ChangedByOther and then nothing was
    /// stored; the row stays pending.
    ///
    /// A new row begins with the columns' default values where the file has them as constants,
    /// Date() or Now(). What the file asks of values is kept: Update throws RequiredField,
    /// ZeroLength, ValidationRule, RelatedRowMissing (it refers to a row that is not there),
    /// RelatedRecords (other rows refer to this one; Delete too), and NotSupported where a rule or
    /// relation is of a kind that cannot be followed.
    virtual void AddNew() = 0;
    virtual void Edit() = 0;
    virtual bool Pending() const = 0;  ///< a row is being edited or added
    /// Whether a text column takes an empty text; where it does not,
    /// null stands for one. Throws SubscriptOutOfRange.
    virtual bool AllowsEmptyText([[maybe_unused]] std::size_t position) const { return true; }
    virtual void Set(std::size_t position, Value value) = 0;
    virtual void Set(std::string_view name, Value value) = 0;
    virtual void Update() = 0;
    virtual void CancelUpdate() = 0;

    /// Deletes the current row, and by relations that say so the rows that refer to it; the next
    /// one becomes current (at the end: Eof). Stored as Update stores. Throws NoCurrentRecord, also
    /// while a new row is pending, and what Update throws.
    virtual void Delete() = 0;

    /// Finds the rows anew; the first one becomes current.
    virtual void Requery() = 0;

  protected:
    RecordSet() = default;
};

template <std::size_t Count>
std::vector<std::array<std::int32_t, Count>> RecordSet::Integers(
    const std::size_t (&positions)[Count]) {
    std::vector<std::array<std::int32_t, Count>> rows;
    VisitIntegers(positions, [&](std::span<const std::int32_t> row) {
        std::copy_n(row.begin(), Count, rows.emplace_back().begin());
    });
    return rows;
}

}  // namespace jet
