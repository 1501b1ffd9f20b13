#include "jet/verify/tablecheck.h"

#include "jet/index/btree.h"
#include "jet/index/tableindexes.h"
#include "jet/storage/layout.h"
#include "jet/storage/usagemap.h"
#include "jet/table/longvalue.h"
#include "jet/table/rowcodec.h"
#include "jet/table/table.h"
#include "jet/table/tabledef.h"
#include "jet/verify/treecheck.h"
#include "jet/verify/wholeness.h"

#include <algorithm>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <variant>
#include <vector>

namespace jet::detail {
namespace {

class TableCheck {
  public:
    TableCheck(PageFile& file, Report& report, const CatalogTable& table, std::uint64_t& budget)
        : file_(file),
          report_(report),
          name_(table.name),
          store_(file, table.page),
          indexes_(store_),
          longValueBudget_(budget) {
        store_.EditDef().name = table.name;
    }

    void Run() {
        CheckDefinition();
        report_.Try(name_, [&] { CheckDataPages(); });
        report_.Try(name_, [&] { CheckLongValuePages(); });
        report_.Try(name_, [&] { CheckRows(); });
        for (std::size_t i = 0; i < Def().realIndexes.size(); ++i) {
            report_.Try(IndexName(i), [&] { CheckIndex(i); });
        }
    }

  private:
    const TableDef& Def() const { return store_.Def(); }

    std::string IndexName(std::size_t realIndex) const {
        for (const LogicalIndex& logical : Def().logicalIndexes) {
            if (logical.real == realIndex) return name_ + "." + logical.name;
        }
        return name_ + ", index " + Decimal(realIndex);
    }

    void CheckDefinition() {
        constexpr std::size_t kNextOffset = 4;
        std::uint32_t page = Def().page;
        while (page != 0 && report_.Claim(page, "the definition of " + name_)) {
            page = U32(file_.Page(page), kNextOffset, page);
        }
        for (const ColumnDef& column : Def().columns) {
            if (!IsTooLong(file_.Format(), column)) continue;
            report_.Fault(name_ + "." + column.name + ": " + Decimal(column.length) +
                          " bytes, longer than the format allows");
        }
        report_.Try(name_, [&] {
            if (const auto lost = PageBeyondEnd(store_)) report_.Fault(name_ + ": " + *lost);
        });
        report_.Try(name_, [&] { CheckMapPages(file_, report_, Def().ownedMap); });
        report_.Try(name_, [&] { CheckMapPages(file_, report_, Def().freeMap); });
        for (const RealIndex& index : Def().realIndexes) {
            if (!index.map.IsNull()) {
                report_.Try(name_, [&] { CheckMapPages(file_, report_, index.map); });
            }
        }
    }

    void CheckDataPages() {
        const std::vector<std::uint32_t> owned = UsageMap(file_, Def().ownedMap).Pages();
        for (std::uint32_t number : owned) {
            if (!report_.Claim(number, name_)) continue;
            report_.Try(name_, [&] {
                const DataPage page(file_, number);
                if (page.Owner() != Def().page) {
                    report_.Fault(name_ + ": " + PageText(number) + " names another owner");
                    return;
                }
                CheckFreeBytes(page, report_);
                CheckSlots(page);
            });
        }
        for (std::uint32_t number : UsageMap(file_, Def().freeMap).Pages()) {
            if (!std::binary_search(owned.begin(), owned.end(), number)) {
                report_.Fault(name_ + ": " + PageText(number) +
                              " is listed as having room, but is not the table's");
            }
        }
    }

    /// Every moved row has one pointer to it, and every pointer a row.
    void CheckSlots(const DataPage& page) {
        for (std::size_t row = 0; row < page.SlotCount() && row <= kMaxSlot; ++row) {
            const Slot slot = page.At(row);
            const RowPointer where{page.Number(), static_cast<std::uint8_t>(row)};
            if (slot.Deleted()) continue;
            if (slot.Hidden()) moved_.insert(where);
            if (!slot.IsPointer()) continue;
            const RowPointer target =
                RowPointer::FromPacked(U32(page.Bytes(slot), 0, page.Number()));
            if (!pointedTo_.insert(target).second) {
                report_.Fault(name_ + ": two pointers to " + RowText(target));
            }
        }
    }

    void CheckLongValuePages() {
        for (const LongValueMaps& maps : Def().longValueMaps) {
            if (maps.owned.IsNull() || file_.Page(maps.owned.page)[0] != kDataPage) continue;
            const auto position = Def().PositionOfNumber(maps.column);
            if (!position) continue;
            const std::string owner = name_ + "." + Def().columns[*position].name;
            // In old files these pointers may lead to an odd place, which then means that there is
            // no map.
            report_.Try(owner, [&] { CheckLongValueMap(maps, owner); });
        }
    }

    void CheckLongValueMap(const LongValueMaps& maps, const std::string& owner) {
        CheckMapPages(file_, report_, maps.owned);
        if (!maps.freeSpace.IsNull()) CheckMapPages(file_, report_, maps.freeSpace);
        for (std::uint32_t number : UsageMap(file_, maps.owned).Pages()) {
            if (!report_.Claim(number, owner)) continue;
            const DataPage page(file_, number);
            if (page.Owner() != kLongValueOwner) {
                report_.Fault(owner + ": " + PageText(number) + " holds no long values");
            }
            CheckFreeBytes(page, report_);
        }
    }

    void CheckRows() {
        std::uint32_t highest = 0;
        store_.Scan([&](RowPointer where, const RowView& row) {
            rows_.push_back(where.Packed());
            report_.Try(name_ + ", " + RowText(where), [&] { CheckRow(row, highest); });
        });
        for (RowPointer row : moved_) {
            if (!pointedTo_.contains(row))
                report_.Note(name_ + ": nothing leads to " + RowText(row));
        }
        for (RowPointer row : pointedTo_) {
            if (!moved_.contains(row)) {
                report_.Fault(name_ + ": a pointer leads to " + RowText(row) +
                              ", which did not move");
            }
        }
        CheckCount();
        if (highest > Def().autonumber) {
            report_.Note(name_ + ": has given out " + Decimal(Def().autonumber) +
                         ", but the number " + Decimal(highest) + " is used");
        }
    }

    /// System tables have too low a count in files that every program reads, never too high a one.
    void CheckCount() {
        if (rows_.size() != Def().rowCount) {
            const std::string line = name_ + ": says it has " + Decimal(Def().rowCount) +
                                     " rows, but has " + Decimal(rows_.size());
            const bool isFault = Def().type == kUserTable || rows_.size() < Def().rowCount;
            isFault ? report_.Fault(line) : report_.Note(line);
        }
    }

    void CheckRow(const RowView& row, std::uint32_t& highest) {
        for (const ColumnDef& column : Def().columns) {
            if (column.IsLongValue()) {
                CheckLongValue(column, row);
                continue;
            }
            const Value value = DecodeColumn(file_, column, row);
            if (!column.Autonumber() || column.Type() != ColumnType::Long) continue;
            if (const auto* number = std::get_if<std::int32_t>(&value.Held())) {
                if (*number > 0) highest = std::max(highest, static_cast<std::uint32_t>(*number));
            }
        }
    }

    /// Reads a long value whole. What all of them hold together cannot be more than the file does,
    /// so shared pieces are found before they can cost much time.
    void CheckLongValue(const ColumnDef& column, const RowView& row) {
        if (row.IsNull(column)) return;
        const ByteView raw = row.Raw(column);
        constexpr std::size_t kPointerOffset = 4;
        const std::uint32_t first = U32(raw, kPointerOffset, row.Where().page);
        if (first != 0 && !firstPieces_.insert(first).second) {
            report_.Fault(name_ + "." + column.name + ": two rows share " +
                          RowText(RowPointer::FromPacked(first)));
            return;
        }
        const std::uint64_t size = LongValueLength(raw);
        if (size > longValueBudget_) {
            report_.Fault(name_ + "." + column.name + ": long values overlap or are too long");
            return;
        }
        longValueBudget_ -= size;
        const std::size_t got = ReadLongValue(file_, raw).size();
        if (got != size) {
            report_.Fault(name_ + "." + column.name + ": a long value of " + Decimal(size) +
                          " bytes ends after " + Decimal(got));
        }
    }

    // --- indexes and rows ---

    void CheckIndex(std::size_t realIndex) {
        const std::string name = IndexName(realIndex);
        if (!CheckTree(file_, report_, Def(), realIndex, name)) return;
        keys_.clear();
        std::vector<std::uint32_t> order;
        Bytes before;
        const Bytes nulls = AllNullKey(realIndex);
        for (TreeCursor at = indexes_.Tree(realIndex).First(); at.Valid(); at.Next()) {
            const Bytes key(at.Key().begin(), at.Key().end());
            const bool first = order.empty();
            order.push_back(at.Row().Packed());
            if (!keys_.emplace(at.Row().Packed(), key).second) {
                report_.Fault(name + ": has " + RowText(at.Row()) + " twice");
            }
            const bool unique = Def().realIndexes[realIndex].Unique();
            if (unique && !first && key == before && key != nulls) {
                report_.Fault(name + ": is unique, but " + RowText(at.Row()) +
                              " has the key of another row");
            }
            before = key;
        }
        CheckBackward(realIndex, order);
        CheckKeys(realIndex);
    }

    Bytes AllNullKey(std::size_t realIndex) const {
        Bytes key;
        for (const KeyColumn& column : indexes_.Columns(realIndex)) key.push_back(NullKey(column));
        return key;
    }

    void CheckBackward(std::size_t realIndex, const std::vector<std::uint32_t>& order) {
        std::size_t left = order.size();
        for (TreeCursor at = indexes_.Tree(realIndex).Last(); at.Valid(); at.Previous()) {
            if (left == 0 || order[--left] != at.Row().Packed()) {
                report_.Fault(IndexName(realIndex) + ": has other entries backward than forward");
                return;
            }
        }
        if (left != 0) report_.Fault(IndexName(realIndex) + ": has fewer entries backward");
    }

    void CheckKeys(std::size_t realIndex) {
        const std::string name = IndexName(realIndex);
        std::size_t found = 0, unknown = 0;
        store_.Scan([&](RowPointer where, const RowView& row) {
            const TableIndexes::RowKey expected = indexes_.KeyFromRow(realIndex, row);
            const auto entry = keys_.find(where.Packed());
            if (entry != keys_.end()) ++found;
            if (expected.present != (entry != keys_.end())) {
                report_.Fault(name + (expected.present ? ": lacks " : ": should not have ") +
                              RowText(where));
            } else if (expected.present && !expected.key) {
                ++unknown;
            } else if (expected.present && *expected.key != entry->second) {
                report_.Fault(name + ": has another key for " + RowText(where) +
                              " than its values");
            }
        });
        if (found != keys_.size()) {
            report_.Fault(name + ": has " + Decimal(keys_.size() - found) +
                          " entries that lead to no row");
        }
        if (unknown != 0) {
            report_.Note(name + ": " + Decimal(unknown) + " keys in an order that is not known");
        }
    }

    PageFile& file_;
    Report& report_;
    std::string name_;
    TableStore store_;
    TableIndexes indexes_;
    std::uint64_t& longValueBudget_;
    std::set<RowPointer> moved_, pointedTo_;
    std::vector<std::uint32_t> rows_;
    std::unordered_set<std::uint32_t> firstPieces_;
    std::unordered_map<std::uint32_t, Bytes> keys_;
};

}  // namespace

void CheckTable(PageFile& file, Report& report, const CatalogTable& table,
                std::uint64_t& longValueBudget) {
    TableCheck(file, report, table, longValueBudget).Run();
}

}  // namespace jet::detail
