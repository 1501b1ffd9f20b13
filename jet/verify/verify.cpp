#include "jet/verify/verify.h"

#include "jet/catalog/catalog.h"
#include "jet/error.h"
#include "jet/index/btree.h"
#include "jet/index/indexpage.h"
#include "jet/index/tableindexes.h"
#include "jet/storage/datapage.h"
#include "jet/storage/layout.h"
#include "jet/storage/usagemap.h"
#include "jet/table/longvalue.h"
#include "jet/table/rowcodec.h"
#include "jet/table/table.h"
#include "jet/table/tabledef.h"
#include "jet/verify/wholeness.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <unordered_map>
#include <unordered_set>

namespace jet::detail {
namespace {

constexpr std::size_t kMaxFaults = 1000;
constexpr std::size_t kMaxDepth = 20;
constexpr std::uint32_t kHeaderPage = 0, kGlobalMapPage = 1;

std::string PageText(std::uint32_t page) {
    return "page " + Decimal(page);
}
std::string RowText(RowPointer row) {
    return "row " + Decimal(row.page) + "/" + Decimal(row.row);
}

/// Collects the lines, and which object each page belongs to.
class Report {
  public:
    explicit Report(PageFile& file) : owners_(file.PageCount()) {}

    void Fault(const std::string& line) {
        if (findings.faults.size() < kMaxFaults) findings.faults.push_back(line);
    }
    void Note(const std::string& line) {
        if (findings.notes.size() < kMaxFaults) findings.notes.push_back(line);
    }
    /// Runs one part of the check; what it throws is a fault.
    template <typename Part>
    void Try(const std::string& what, Part&& part) {
        try {
            part();
        } catch (const Error& error) {
            Fault(what + ": " + error.what());
        }
    }
    /// False, and a fault, when the page is another object's or is no page of the file.
    bool Claim(std::uint32_t page, const std::string& owner) {
        if (page >= owners_.size()) {
            Fault(owner + ": " + PageText(page) + " is not in the file");
            return false;
        }
        if (!owners_[page].empty()) {
            Fault(PageText(page) + " belongs to " + owners_[page] + " and to " + owner);
            return false;
        }
        owners_[page] = owner;
        return true;
    }
    /// Pages of maps are shared by many maps.
    void ClaimMapPage(std::uint32_t page) {
        static const std::string kMaps = "usage maps";
        if (page < owners_.size() && owners_[page] == kMaps) return;
        Claim(page, kMaps);
    }
    const std::string& OwnerOf(std::uint32_t page) const { return owners_[page]; }

    Findings findings;

  private:
    std::vector<std::string> owners_;
};

void CheckMapPages(const PageFile& file, Report& report, RowPointer map) {
    report.ClaimMapPage(map.page);
    const ByteView row = RowAt(file, map);
    if (U8(row, 0, map.page) == 0) return;
    for (std::size_t at = 1; at + 4 <= row.size(); at += 4) {
        const std::uint32_t page = U32(row, at, map.page);
        if (page == 0 || page >= file.PageCount()) continue;
        if (U8(file.Page(page), 0, page) != kMapPage) {
            report.Fault(PageText(page) + ": a usage map refers to it, but it holds none");
        }
        report.Claim(page, "the usage map " + RowText(map));
    }
}

void CheckFreeBytes(const DataPage& page, Report& report) {
    if (page.StoredFreeBytes() == page.FreeBytes()) return;
    report.Fault(PageText(page.Number()) + ": says " + Decimal(page.StoredFreeBytes()) +
                 " bytes are free, but " + Decimal(page.FreeBytes()) + " are");
}

// --- index trees
// -------------------------------------------------------------------------------------------

/// Walks the nodes of one tree and checks its shape; the order of all entries is checked by the
/// cursors.
class TreeCheck {
  public:
    TreeCheck(PageFile& file, Report& report, const TableDef& def, std::size_t realIndex,
              std::string name)
        : file_(file),
          report_(report),
          def_(def),
          index_(def.realIndexes[realIndex]),
          name_(std::move(name)) {}

    /// False when the tree is not fit to be walked.
    bool Run() {
        const std::size_t before = report_.findings.faults.size();
        Check(index_.root, 0, std::nullopt);
        CheckLeafChain();
        CheckMap();
        return report_.findings.faults.size() == before;
    }

  private:
    void Fault(std::uint32_t page, const std::string& what) {
        report_.Fault(name_ + ", " + PageText(page) + ": " + what);
    }

    /// The last entry below a page; none when nothing is known of it.
    std::optional<Bytes> Check(std::uint32_t number, std::size_t depth,
                               const std::optional<Bytes>& stated) {
        if (depth == kMaxDepth) {
            Fault(number, "too deep");
            return std::nullopt;
        }
        if (!report_.Claim(number, name_)) return std::nullopt;
        pages_.insert(number);
        const IndexPage page = IndexPage::Read(file_, number);
        if (page.table != def_.page) Fault(number, "names another table");
        if (IndexPage::StatedFreeBytes(file_, number) != IndexPage::FreeBytes(file_, number)) {
            Fault(number, "states a wrong number of free bytes");
        }
        std::optional<Bytes> last;
        if (page.IsLeaf()) {
            leaves_.push_back(number);
            if (page.Count() > 0) last = page.Entry(page.Count() - 1);
            if (page.Count() == 0 && depth > 0) Fault(number, "an empty leaf below a node");
        } else {
            last = CheckChildren(page, number, depth);
        }
        if (stated && last && *stated != *last) {
            Fault(number, "the node above states another last entry");
        }
        return last;
    }

    std::optional<Bytes> CheckChildren(const IndexPage& page, std::uint32_t number,
                                       std::size_t depth) {
        if (page.ChildCount() == 0) Fault(number, "a node without children");
        std::optional<Bytes> last;
        for (std::size_t i = 0; i < page.ChildCount(); ++i) {
            std::optional<Bytes> stated;
            if (i < page.Count()) stated = page.Entry(i);
            last = Check(page.Child(i), depth + 1, stated);
        }
        return last;
    }

    void CheckLeafChain() {
        for (std::size_t i = 0; i < leaves_.size(); ++i) {
            const IndexPage leaf = IndexPage::Read(file_, leaves_[i]);
            const std::uint32_t previous = i > 0 ? leaves_[i - 1] : 0;
            const std::uint32_t next = i + 1 < leaves_.size() ? leaves_[i + 1] : 0;
            if (leaf.previous != previous || leaf.next != next) {
                Fault(leaves_[i], "the links between the leaves are wrong");
            }
        }
    }

    void CheckMap() {
        if (index_.map.IsNull()) return;
        const std::vector<std::uint32_t> mapped = UsageMap(file_, index_.map).Pages();
        for (std::uint32_t page : pages_) {
            if (!std::binary_search(mapped.begin(), mapped.end(), page)) {
                Fault(page, "is not in the index's map");
            }
        }
        // Some writers free an emptied page and leave it in the map.
        for (std::uint32_t page : mapped) {
            if (pages_.contains(page)) continue;
            const std::string line =
                name_ + ": its map has " + PageText(page) + ", the tree has not";
            IsFree(file_, page) ? report_.Note(line) : report_.Fault(line);
        }
    }

    PageFile& file_;
    Report& report_;
    const TableDef& def_;
    const RealIndex& index_;
    std::string name_;
    std::set<std::uint32_t> pages_;
    std::vector<std::uint32_t> leaves_;
};

// --- tables
// ------------------------------------------------------------------------------------------------

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
        TreeCheck tree(file_, report_, Def(), realIndex, name);
        if (!tree.Run()) return;
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

/// Every table of the catalog, system tables too: by name and page.
std::vector<CatalogTable> AllTables(PageFile& file, Report& report) {
    constexpr std::int16_t kTableType = 1;
    constexpr std::uint32_t kPageMask = 0x00FFFFFF;
    std::vector<CatalogTable> tables;
    const TableStore objects(file, kSystemObjectsPage);
    const ColumnDef* id = objects.Def().FindColumn("Id");
    const ColumnDef* name = objects.Def().FindColumn("Name");
    const ColumnDef* type = objects.Def().FindColumn("Type");
    if (id == nullptr || name == nullptr || type == nullptr) {
        report.Fault("the catalog lacks the columns Id, Name or Type");
        return tables;
    }
    std::set<std::uint32_t> seen;
    objects.Scan([&](RowPointer, const RowView& row) {
        const Value kind = DecodeColumn(file, *type, row);
        if (!std::holds_alternative<std::int16_t>(kind.Held()) || kind != Value(kTableType)) return;
        const Value page = DecodeColumn(file, *id, row);
        const auto* number = std::get_if<std::int32_t>(&page.Held());
        const Value called = DecodeColumn(file, *name, row);
        const auto* text = std::get_if<std::string>(&called.Held());
        CatalogTable table{text != nullptr ? *text : "a table without a name", 0};
        if (number != nullptr) table.page = static_cast<std::uint32_t>(*number) & kPageMask;
        if (!seen.insert(table.page).second) {
            report.Fault(table.name + ": another table has the same definition");
            return;
        }
        tables.push_back(std::move(table));
    });
    return tables;
}

/// What no part of the file says about itself: that it is all there.
void CheckEnds(const PageFile& file, const std::vector<CatalogTable>& tables, Report& report) {
    const std::uint64_t rest = file.ByteCount() % file.Format().pageSize;
    if (rest != 0) report.Fault("the file ends " + Decimal(rest) + " bytes into a page");
    const bool listed = std::any_of(tables.begin(), tables.end(), [](const CatalogTable& table) {
        return table.page == kSystemObjectsPage;
    });
    if (!listed) report.Fault("the catalog does not list itself: it was emptied");
}

void CheckGlobalMap(PageFile& file, Report& report) {
    report.Claim(kHeaderPage, "the header");
    CheckMapPages(file, report, {kGlobalMapPage, 0});
    CheckMapPages(file, report, {kGlobalMapPage, 1});
    CheckFreeBytes(DataPage(file, kGlobalMapPage), report);
}

void CheckFreePages(PageFile& file, Report& report) {
    std::size_t unused = 0;
    const std::vector<std::uint32_t> free = UsageMap::Global(file).Pages();
    for (std::uint32_t page : free) {
        if (!report.OwnerOf(page).empty()) {
            report.Fault(PageText(page) + " is marked free, but belongs to " +
                         report.OwnerOf(page));
        }
    }
    for (std::uint32_t page = 0; page < file.PageCount(); ++page) {
        const bool isFree = std::binary_search(free.begin(), free.end(), page);
        if (!isFree && report.OwnerOf(page).empty()) ++unused;
    }
    if (unused != 0) report.Note(Decimal(unused) + " pages belong to nothing and are not free");
}

}  // namespace

Findings Verify(PageFile& file) {
    Report report(file);
    report.Try("the global map", [&] { CheckGlobalMap(file, report); });
    std::vector<CatalogTable> tables;
    report.Try("the catalog", [&] { tables = AllTables(file, report); });
    CheckEnds(file, tables, report);
    // Long values may have been written more than once before a file is compacted, never more than
    // it holds.
    std::uint64_t longValueBudget = file.ByteCount();
    for (const CatalogTable& table : tables) {
        report.Try(table.name, [&] { TableCheck(file, report, table, longValueBudget).Run(); });
    }
    report.Try("the global map", [&] { CheckFreePages(file, report); });
    return std::move(report.findings);
}

}  // namespace jet::detail
