#include "jet/query/ordering.h"

#include "jet/index/indexkey.h"
#include "jet/index/tableindexes.h"

#include <algorithm>
#include <array>

namespace jet::detail {
namespace {

template <typename Key>
struct Keyed {
    Key key;
    std::uint32_t row;
    std::uint32_t place;  // before sorting
};

// Rows are nearly always stored in the order that is asked for; then there is nothing to move.
template <typename Key>
void SortKeyed(std::vector<Keyed<Key>>& keyed, std::vector<std::uint32_t>& rows) {
    const auto before = [](const Keyed<Key>& one, const Keyed<Key>& other) {
        const auto order = one.key <=> other.key;
        return order < 0 || (order == 0 && one.place < other.place);
    };
    if (std::is_sorted(keyed.begin(), keyed.end(), before)) return;
    std::sort(keyed.begin(), keyed.end(), before);
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = keyed[i].row;
}

}  // namespace

Ordering::Ordering(const TableStore& table, const std::vector<OrderColumn>& columns)
    : table_(&table) {
    for (const OrderColumn& column : columns) {
        terms_.push_back({column, NumericKind(table.Def().columns[column.position])});
        if (!terms_.back().number) allNumbers_ = false;
    }
}

void Ordering::Sort(std::vector<std::uint32_t>& rows) const {
    if (terms_.empty() || rows.size() < 2) return;
    if (allNumbers_ && terms_.size() == 1) return SortByNumbers<1>(rows);
    if (allNumbers_ && terms_.size() == 2) return SortByNumbers<2>(rows);
    SortByBytes(rows);
}

template <std::size_t Count>
void Ordering::SortByNumbers(std::vector<std::uint32_t>& rows) const {
    std::vector<Keyed<std::array<std::uint64_t, Count>>> keyed;
    keyed.reserve(rows.size());
    for (const std::uint32_t row : rows) {
        const RowView view = table_->Read(RowPointer::FromPacked(row));
        auto& next = keyed.emplace_back();
        for (std::size_t i = 0; i < Count; ++i) next.key[i] = NumberOf(view, terms_[i]);
        next.row = row;
        next.place = static_cast<std::uint32_t>(keyed.size());
    }
    SortKeyed(keyed, rows);
}

void Ordering::SortByBytes(std::vector<std::uint32_t>& rows) const {
    std::vector<Keyed<Bytes>> keyed;
    keyed.reserve(rows.size());
    for (const std::uint32_t row : rows) {
        const RowView view = table_->Read(RowPointer::FromPacked(row));
        Bytes key;
        for (const Term& term : terms_) AppendBytes(key, view, term);
        keyed.push_back({std::move(key), row, static_cast<std::uint32_t>(keyed.size())});
    }
    SortKeyed(keyed, rows);
}

std::uint64_t Ordering::NumberOf(const RowView& row, const Term& term) const {
    const auto number = NumberKeyOf(table_->File(), Column(term), *term.number, row);
    const std::uint64_t order = number ? OrderOf(*term.number, *number) : 0;
    return term.column.descending ? ~order : order;
}

void Ordering::AppendBytes(Bytes& key, const RowView& row, const Term& term) const {
    const ColumnDef& column = Column(term);
    const bool descending = term.column.descending;
    if (term.number) {
        const std::uint64_t number = NumberOf(row, term);
        for (int shift = 56; shift >= 0; shift -= 8) {
            key.push_back(static_cast<std::uint8_t>(number >> shift));
        }
        return;
    }
    const Value value = DecodeColumn(table_->File(), column, row);
    const auto encoded =
        EncodeKey(value, KeyColumn{column.Type(), descending, TextOrderOf(table_->File(), column)});
    if (encoded) {
        key.insert(key.end(), encoded->begin(), encoded->end());
        return;
    }
    // Ended by 0, which no character of a text is,
    // so that "a" comes before "ab" in the next column too.
    const std::string text = TextKey(value.Text());
    const std::uint8_t mask = descending ? 0xFF : 0;
    key.push_back(static_cast<std::uint8_t>(0x7F ^ mask));
    for (const char c : text)
        key.push_back(static_cast<std::uint8_t>(static_cast<std::uint8_t>(c) ^ mask));
    key.push_back(mask);
}

bool Ordering::Before(std::uint32_t row, std::uint32_t other) const {
    const RowView one = table_->Read(RowPointer::FromPacked(row));
    const RowView two = table_->Read(RowPointer::FromPacked(other));
    for (const Term& term : terms_) {
        const std::uint64_t a = NumberOf(one, term), b = NumberOf(two, term);
        if (a != b) return a < b;
    }
    return row < other;
}

bool Ordering::SameAs(const Ordering& other) const {
    return std::equal(terms_.begin(), terms_.end(), other.terms_.begin(), other.terms_.end(),
                      [](const Term& a, const Term& b) { return a.column == b.column; });
}

bool Ordering::CanSearch(const Criterion& criterion, std::size_t position) const {
    return !terms_.empty() && terms_.front().column.position == position &&
           terms_.front().number == criterion.Kind();
}

std::optional<std::size_t> Ordering::Search(std::span<const std::uint32_t> sorted,
                                            const RowKey& key) const {
    const Term& first = terms_.front();
    const std::uint64_t order = OrderOf(*first.number, key.number);
    const std::uint64_t wanted = first.column.descending ? ~order : order;
    const auto numberOf = [&](std::uint32_t row) {
        return NumberOf(table_->Read(RowPointer::FromPacked(row)), first);
    };
    const auto found = std::partition_point(
        sorted.begin(), sorted.end(), [&](std::uint32_t row) { return numberOf(row) < wanted; });
    if (found == sorted.end() || numberOf(*found) != wanted) return std::nullopt;
    return static_cast<std::size_t>(found - sorted.begin());
}

}  // namespace jet::detail
