#include "jet/catalog/catalog.h"

#include "jet/catalog/querytext.h"
#include "jet/table/names.h"
#include "jet/table/table.h"

#include <algorithm>

namespace jet::detail {

namespace {

constexpr std::int32_t kLocalTable = 1, kLinkedOdbc = 4, kQuery = 5, kLinkedTable = 6;
constexpr std::uint32_t kPageOfId = 0x00FFFFFF, kNotForUsers = 0x80000002;
constexpr std::size_t kMaxQueryDepth = 10, kMaxQueryRows = 10000;

/// The kind of a table by its definition's first page; a table that cannot be looked at counts as
/// the users', so that opening it says what is wrong.
bool IsUserTable(const PageFile& file, std::uint32_t page) {
    if (page == 0 || page >= file.PageCount()) return true;
    const ByteView bytes = file.Page(page);
    return bytes[0] != kTdefPage || U8(bytes, file.Format().tdefType, page) == kUserTable;
}

std::vector<QueryRow> ReadQueryRows(PageFile& file, std::uint32_t queriesPage, std::int32_t id) {
    const TableStore table(file, queriesPage);
    const SystemColumns columns(table);
    std::vector<QueryRow> rows;
    table.Scan([&](RowPointer, const RowView& row) {
        if (columns.Number(row, "ObjectId") != id) return;
        if (rows.size() >= kMaxQueryRows) ThrowDamaged(queriesPage, 0, "a query without end");
        rows.push_back({.attribute = columns.Number(row, "Attribute").value_or(0),
                        .flag = columns.Number(row, "Flag").value_or(0),
                        .name1 = columns.Text(row, "Name1"),
                        .name2 = columns.Text(row, "Name2"),
                        .expression = columns.Text(row, "Expression"),
                        .order = columns.Binary(row, "Order")});
    });
    // The order of parts of one kind is in their "Order", highest byte first.
    std::stable_sort(rows.begin(), rows.end(), [](const QueryRow& a, const QueryRow& b) {
        return a.attribute != b.attribute ? a.attribute < b.attribute : a.order < b.order;
    });
    return rows;
}

[[noreturn]] void ThrowQuery(const std::string& name, const char* what) {
    throw Error{ErrorNumber::NotSupported, "the saved query " + Excerpt(name) + ": " + what};
}

/// Takes one row into the query; throws for a part that makes it more than rows of one source.
void AddPart(SavedQuery& query, const QueryRow& row) {
    switch (static_cast<Attribute>(row.attribute)) {
        case Attribute::Kind:
            if (row.flag != kSelectQuery) ThrowQuery(query.name, "not a SELECT");
            return;
        case Attribute::Options:
            if ((row.flag & (kQueryDistinct | kQueryTop | kQueryPercent)) != 0) {
                ThrowQuery(query.name, "DISTINCT or TOP");
            }
            query.allColumns = (row.flag & kQueryAllColumns) != 0;
            return;
        case Attribute::Source:
            if (!query.source.empty() || row.name1.empty()) {
                ThrowQuery(query.name, "not over one source");
            }
            query.source = row.name1;
            query.alias = row.name2;
            return;
        case Attribute::Output:
            query.outputs.push_back({row.expression, row.name1});
            return;
        case Attribute::Where:
            query.filters.push_back(row.expression);
            return;
        case Attribute::OrderBy:
            query.order.push_back({row.expression, SameName(row.name1, "D")});
            return;
        case Attribute::Parameter:
            ThrowQuery(query.name, "parameters");
        case Attribute::Join:
        case Attribute::GroupBy:
        case Attribute::Having:
            ThrowQuery(query.name, "a join or groups");
        default:
            return;
    }
}

bool IsStar(const std::string& expression) {
    return !expression.empty() && expression.back() == '*';
}

/// One value for each column of a system table, set by name.
class RowOfValues {
  public:
    explicit RowOfValues(const TableDef& def) : def_(&def), values_(def.columns.size()) {}
    void Set(std::string_view name, Value value) {
        const auto position = def_->PositionOf(name);
        if (!position) {
            throw Error{ErrorNumber::NotADatabase,
                        "a system table has no column " + std::string(name)};
        }
        values_[*position] = std::move(value);
    }
    std::vector<Value> Take() { return std::move(values_); }

  private:
    const TableDef* def_;
    std::vector<Value> values_;
};

Value Signed(std::uint32_t bits) {
    return static_cast<std::int32_t>(bits);
}

}  // namespace

std::optional<std::int32_t> SystemColumns::Number(const RowView& row, std::string_view name) const {
    const ColumnDef* column = table_->Def().FindColumn(name);
    return column == nullptr ? std::nullopt : DecodeLong(*column, row);
}

std::string SystemColumns::Text(const RowView& row, std::string_view name) const {
    const ColumnDef* column = table_->Def().FindColumn(name);
    if (column == nullptr) return {};
    const Value value = DecodeColumn(table_->File(), *column, row);
    const auto* text = std::get_if<std::string>(&value.Held());
    return text == nullptr ? std::string() : *text;
}

Bytes SystemColumns::Binary(const RowView& row, std::string_view name) const {
    const ColumnDef* column = table_->Def().FindColumn(name);
    if (column == nullptr) return {};
    const Value value = DecodeColumn(table_->File(), *column, row);
    const auto* bytes = std::get_if<Bytes>(&value.Held());
    return bytes == nullptr ? Bytes() : *bytes;
}

Catalog::Catalog(PageFile& file) : file_(&file) {
    const TableStore table(file, kSystemObjectsPage);
    const SystemColumns columns(table);
    table.Scan([&](RowPointer, const RowView& row) {
        const std::int32_t type = columns.Number(row, "Type").value_or(0);
        const bool listed =
            type == kLocalTable || type == kLinkedOdbc || type == kQuery || type == kLinkedTable;
        const std::optional<std::int32_t> id = columns.Number(row, "Id");
        if (!listed || !id) return;
        std::string name = columns.Text(row, "Name");
        if (type == kQuery) {
            queryNames_.push_back(name);
            queries_.push_back({std::move(name), *id});
        } else if (type != kLocalTable) {
            linkedTables_.push_back(std::move(name));
        } else {
            AddTable(std::move(name), static_cast<std::uint32_t>(*id) & kPageOfId,
                     static_cast<std::uint32_t>(columns.Number(row, "Flags").value_or(0)));
        }
    });
}

void Catalog::AddTable(std::string name, std::uint32_t page, std::uint32_t flags) {
    if ((flags & kNotForUsers) == 0 && IsUserTable(*file_, page)) {
        userTables_.push_back({name, page});
    }
    tables_.push_back({std::move(name), page});
}

bool Catalog::ListsItself() const {
    return std::any_of(tables_.begin(), tables_.end(),
                       [](const CatalogTable& table) { return table.page == kSystemObjectsPage; });
}

const CatalogTable* Catalog::FindTable(std::string_view name) const {
    const std::string wanted = FoldName(name);
    for (const CatalogTable& table : tables_) {
        if (FoldName(table.name) == wanted) return &table;
    }
    return nullptr;
}

Bytes Catalog::PropertiesOf(std::uint32_t page) const {
    const TableStore table(*file_, kSystemObjectsPage);
    const SystemColumns columns(table);
    Bytes properties;
    table.Scan([&](RowPointer, const RowView& row) {
        const auto id = columns.Number(row, "Id");
        const bool isIt = columns.Number(row, "Type") == kLocalTable && id &&
                          (static_cast<std::uint32_t>(*id) & kPageOfId) == page;
        if (isIt) properties = columns.Binary(row, "LvProp");
        return !isIt;
    });
    return properties;
}

std::vector<QueryDesign> Catalog::QueryTexts() const {
    std::vector<QueryDesign> texts;
    for (const QueryEntry& query : queries_) {
        std::string text;
        try {
            text = QueryText(ReadQueryRows(*file_, QueriesPage(), query.id));
        } catch (const Error& error) {
            if (error.Number() != ErrorNumber::NotADatabase) throw;
        }
        texts.push_back({query.name, std::move(text)});
    }
    return texts;
}

std::uint32_t Catalog::QueriesPage() const {
    const CatalogTable* table = FindTable("MSysQueries");
    return table == nullptr ? kSystemQueriesPage : table->page;
}

const Catalog::QueryEntry* Catalog::FindQuery(std::string_view name) const {
    const std::string wanted = FoldName(name);
    for (const QueryEntry& query : queries_) {
        if (FoldName(query.name) == wanted) return &query;
    }
    return nullptr;
}

bool Catalog::HasQuery(std::string_view name) const {
    return FindQuery(name) != nullptr;
}

SavedQuery Catalog::ReadQuery(std::string_view name) const {
    const QueryEntry* entry = FindQuery(name);
    if (entry == nullptr) {
        throw Error{ErrorNumber::TableNotFound, "no saved query " + Excerpt(name)};
    }
    SavedQuery query;
    query.name = entry->name;
    query.allColumns = false;
    for (const QueryRow& row : ReadQueryRows(*file_, QueriesPage(), entry->id)) AddPart(query, row);
    if (query.source.empty()) ThrowQuery(query.name, "not over one source");
    if (query.outputs.size() == 1 && IsStar(query.outputs.front().expression)) {
        query.allColumns = true;
    }
    if (query.allColumns) query.outputs.clear();
    if (!query.allColumns && query.outputs.empty()) ThrowQuery(query.name, "no columns");
    return query;
}

std::vector<SavedQuery> Catalog::ResolveQuery(std::string_view name) const {
    std::vector<SavedQuery> path{ReadQuery(name)};
    while (FindTable(path.back().source) == nullptr) {
        if (path.size() >= kMaxQueryDepth) ThrowQuery(path.front().name, "too deep");
        path.push_back(ReadQuery(path.back().source));
    }
    return path;
}

std::vector<Value> ObjectRow(const TableDef& objects, const CatalogObject& object) {
    RowOfValues row(objects);
    row.Set("Id", Signed(object.id));
    row.Set("ParentId", Signed(object.parent));
    row.Set("Name", object.name);
    row.Set("Type", object.type);
    row.Set("DateCreate", object.created);
    row.Set("DateUpdate", object.created);
    row.Set("Owner", object.owner);
    row.Set("Flags", Signed(object.flags));
    return row.Take();
}

std::vector<Value> AccessRow(const TableDef& entries, const AccessEntry& entry) {
    RowOfValues row(entries);
    row.Set("ObjectId", Signed(entry.object));
    row.Set("SID", entry.sid);
    row.Set("ACM", Signed(entry.mask));
    row.Set("FInheritable", entry.inheritable);
    return row.Take();
}

}  // namespace jet::detail
