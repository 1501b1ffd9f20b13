#include "jet/verify/verify.h"

#include "jet/catalog/catalog.h"
#include "jet/storage/datapage.h"
#include "jet/storage/layout.h"
#include "jet/storage/usagemap.h"
#include "jet/table/rowcodec.h"
#include "jet/table/table.h"
#include "jet/table/tabledef.h"
#include "jet/verify/report.h"
#include "jet/verify/tablecheck.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace jet::detail {
namespace {

constexpr std::uint32_t kHeaderPage = 0, kGlobalMapPage = 1;

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
        report.Try(table.name, [&] { CheckTable(file, report, table, longValueBudget); });
    }
    report.Try("the global map", [&] { CheckFreePages(file, report); });
    return std::move(report.findings);
}

}  // namespace jet::detail
