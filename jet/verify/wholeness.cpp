#include "jet/verify/wholeness.h"

#include "jet/error.h"
#include "jet/storage/usagemap.h"

namespace jet::detail {
namespace {

constexpr std::size_t kMaxTextCharacters = 255;

/// Gathers what is missing; the first thing is what is told.
class Inventory {
  public:
    explicit Inventory(PageFile& file) : file_(file) {}

    void Look(const CatalogTable& entry) {
        try {
            const TableStore table(file_, entry.page);
            if (const auto lost = PageBeyondEnd(table)) Miss(entry.name + ": " + *lost);
            Count(entry.name, table);
        } catch (const Error& error) {
            Miss(entry.name + ": " + error.what());
        }
    }

    void Miss(const std::string& what) {
        if (loss_.what.empty()) loss_.what = what;
        found_ = true;
    }

    std::optional<Loss> Result() { return found_ ? std::optional(std::move(loss_)) : std::nullopt; }

  private:
    // The counts of system tables are too low in some files that every program reads; too high is
    // never right.
    void Count(const std::string& name, const TableStore& table) {
        const bool isUsers = table.Def().type == kUserTable;
        const std::uint64_t stated = table.Def().rowCount;
        if (isUsers) loss_.rowsStated += stated;
        const std::uint64_t rows = table.CountRows();
        if (isUsers) loss_.rowsFound += rows;
        if (rows < stated || (isUsers && rows != stated)) {
            Miss(name + ": " + Decimal(rows) + " rows of " + Decimal(stated));
        }
    }

    PageFile& file_;
    Loss loss_;
    bool found_ = false;
};

}  // namespace

std::optional<Loss> FindLoss(PageFile& file, const Catalog& catalog) {
    Inventory inventory(file);
    const std::uint64_t rest = file.ByteCount() % file.Format().pageSize;
    if (rest != 0) inventory.Miss("the file ends " + Decimal(rest) + " bytes into a page");
    if (!catalog.ListsItself()) inventory.Miss("the list of objects does not list itself");
    for (const CatalogTable& table : catalog.Tables()) inventory.Look(table);
    return inventory.Result();
}

std::optional<std::string> PageBeyondEnd(const TableStore& table) {
    const TableDef& def = table.Def();
    PageFile& file = table.File();
    const auto look = [&](RowPointer map, const char* of) -> std::optional<std::string> {
        if (map.IsNull()) return std::nullopt;
        const auto page = UsageMap(file, map).FirstBeyondEnd();
        if (!page) return std::nullopt;
        return "its map of " + std::string(of) + " has page " + Decimal(*page) +
               " of a file with " + Decimal(file.PageCount()) + " pages";
    };
    if (auto lost = look(def.ownedMap, "rows")) return lost;
    for (const RealIndex& index : def.realIndexes) {
        if (auto lost = look(index.map, "an index")) return lost;
    }
    for (const LongValueMaps& maps : def.longValueMaps) {
        if (maps.owned.page >= file.PageCount()) {
            return "its map of long values is on page " + Decimal(maps.owned.page) +
                   " of a file with " + Decimal(file.PageCount()) + " pages";
        }
        if (const auto map = SoundMap(file, maps.owned)) {
            if (auto lost = look(map->Where(), "long values")) return lost;
        }
    }
    return std::nullopt;
}

bool IsTooLong(const Layout& layout, const ColumnDef& column) {
    if (column.Type() != ColumnType::Text && column.Type() != ColumnType::Binary) return false;
    const std::size_t unit = column.Type() == ColumnType::Text ? layout.textUnit : 2;
    return column.length > kMaxTextCharacters * unit;
}

}  // namespace jet::detail
