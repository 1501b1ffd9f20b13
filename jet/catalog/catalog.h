#pragma once
// The file's list of objects: tables, linked tables and saved queries by name, and the rows that a
// new table needs.

#include "jet/design.h"
#include "jet/storage/pagefile.h"
#include "jet/table/tabledef.h"
#include "jet/value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jet::detail {

inline constexpr std::uint32_t kTablesContainer = 0x0F000001;

struct CatalogTable {
    std::string name;
    std::uint32_t page = 0;  ///< of its definition
};

/// A saved query over one source, as it is stored; the expressions are texts to parse.
struct SavedQuery {
    struct Output {
        std::string expression, alias;
    };
    struct Order {
        std::string expression;
        bool descending = false;
    };
    std::string name;
    std::string source;      ///< table or query
    std::string alias;       ///< by which its expressions may call the source; "" = none
    bool allColumns = true;  ///< else `outputs`
    std::vector<Output> outputs;
    std::vector<std::string> filters;  ///< all must hold
    std::vector<Order> order;
};

class TableStore;
class RowView;

/// The columns of a system table by name; one that a file lacks reads as null.
class SystemColumns {
  public:
    explicit SystemColumns(const TableStore& table) : table_(&table) {}
    std::optional<std::int32_t> Number(const RowView& row, std::string_view name) const;
    std::string Text(const RowView& row, std::string_view name) const;
    Bytes Binary(const RowView& row, std::string_view name) const;

  private:
    const TableStore* table_;
};

class Catalog {
  public:
    /// Reads the list. Throws NotADatabase when it is damaged.
    explicit Catalog(PageFile& file);

    const std::vector<CatalogTable>& Tables() const { return tables_; }  ///< system tables too
    /// Whether the list has an entry for itself, as that of every file has.
    bool ListsItself() const;
    const std::vector<CatalogTable>& UserTables() const { return userTables_; }  ///< catalog order
    const std::vector<std::string>& LinkedTables() const { return linkedTables_; }
    const std::vector<std::string>& QueryNames() const { return queryNames_; }

    /// A table by name, system tables too. Null when there is none.
    const CatalogTable* FindTable(std::string_view name) const;
    /// The properties of the table whose definition is on that page, as bytes; none where it has
    /// none. Throws NotADatabase when they are lost.
    Bytes PropertiesOf(std::uint32_t page) const;
    bool HasQuery(std::string_view name) const;
    /// All saved queries, with a text for each; of one that cannot be read the text is empty.
    std::vector<QueryDesign> QueryTexts() const;
    /// A saved query that shows rows of one source. Throws TableNotFound when there is none of that
    /// name, NotSupported when it is of another kind (joins, groups, actions ...).
    SavedQuery ReadQuery(std::string_view name) const;
    /// Follows queries that lead to queries, at most 10; the last has a table as its source.
    /// Outermost first.
    std::vector<SavedQuery> ResolveQuery(std::string_view name) const;

  private:
    struct QueryEntry {
        std::string name;
        std::int32_t id = 0;
    };
    void AddTable(std::string name, std::uint32_t page, std::uint32_t flags);
    const QueryEntry* FindQuery(std::string_view name) const;
    std::uint32_t QueriesPage() const;

    PageFile* file_;
    std::vector<CatalogTable> tables_, userTables_;
    std::vector<std::string> linkedTables_, queryNames_;
    std::vector<QueryEntry> queries_;
};

/// A row of MSysObjects, one value for each of `objects.columns` (the definition on page 2).
struct CatalogObject {
    std::uint32_t id = 0, parent = 0;
    std::string name;
    std::int16_t type = 1;
    std::uint32_t flags = 0;
    Bytes owner;
    Date created{};
};
std::vector<Value> ObjectRow(const TableDef& objects, const CatalogObject& object);

/// A row of MSysACEs (the definition on page 3).
struct AccessEntry {
    std::uint32_t object = 0;
    Bytes sid;
    std::uint32_t mask = 0;
    bool inheritable = false;
};
std::vector<Value> AccessRow(const TableDef& entries, const AccessEntry& entry);

}  // namespace jet::detail
