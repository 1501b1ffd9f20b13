// Prints what an Access-format file holds as JSON lines: first the names of its tables, then for
// each table its design and its rows. The rows' lines are sorted, so that two files with the same
// rows print the same.

#include "base/error.h"
#include "base/tooloptions.h"
#include "jet/catalog/catalog.h"
#include "jet/storage/pagefile.h"
#include "jet/table/rowcodec.h"
#include "jet/table/table.h"
#include "jettools/jsontext.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr const char* kUsage =
    "usage: jetdump FILE\n"
    "Prints the tables, indexes and rows of an Access-format file as JSON lines.\n";

using jet::ColumnType;
using jet::detail::ColumnDef;
using jet::detail::IndexKind;
using jet::detail::LogicalIndex;
using jet::detail::PageFile;
using jet::detail::RealIndex;
using jet::detail::RowPointer;
using jet::detail::RowView;
using jet::detail::TableDef;
using jet::detail::TableStore;

void AppendNumber(std::string& out, std::int64_t number) {
    char digits[24];
    out.append(digits, std::to_chars(std::begin(digits), std::end(digits), number).ptr);
}

void AppendFlag(std::string& out, std::string_view name, bool value) {
    out.append(",\"").append(name).append(value ? "\":true" : "\":false");
}

std::string_view TypeName(ColumnType type) {
    switch (type) {
        case ColumnType::Boolean:
            return "BOOL";
        case ColumnType::Byte:
            return "BYTE";
        case ColumnType::Integer:
            return "INT";
        case ColumnType::Long:
            return "LONG";
        case ColumnType::Currency:
            return "MONEY";
        case ColumnType::Single:
            return "FLOAT";
        case ColumnType::Double:
            return "DOUBLE";
        case ColumnType::Date:
            return "DATETIME";
        case ColumnType::Text:
            return "TEXT";
        case ColumnType::Ole:
            return "OLE";
        case ColumnType::Memo:
            return "MEMO";
        case ColumnType::Guid:
            return "GUID";
        case ColumnType::Numeric:
            return "NUMERIC";
        case ColumnType::Binary:
        case ColumnType::LargeBinary:
            break;
    }
    return "BINARY";
}

std::size_t SizeOf(const PageFile& file, const ColumnDef& column) {
    switch (column.Type()) {
        case ColumnType::Boolean:
        case ColumnType::Memo:
        case ColumnType::Ole:
            return 0;
        case ColumnType::Text:
            return column.length / file.Format().textUnit;
        default:
            return column.length;
    }
}

template <typename Items, typename Append>
void AppendList(std::string& out, const Items& items, Append&& append) {
    out += '[';
    bool first = true;
    for (const auto& item : items) {
        if (!first) out += ',';
        first = false;
        append(item);
    }
    out += ']';
}

void AppendNames(std::string& out, std::vector<std::string> names) {
    std::sort(names.begin(), names.end());
    AppendList(out, names, [&](const std::string& name) { AppendText(out, name); });
}

void AppendColumn(std::string& out, const PageFile& file, const ColumnDef& column) {
    out += "{\"name\":";
    AppendText(out, column.name);
    out.append(",\"type\":\"").append(TypeName(column.Type())).append("\",\"size\":");
    AppendNumber(out, static_cast<std::int64_t>(SizeOf(file, column)));
    if (column.Type() == ColumnType::Numeric) {
        out += ",\"precision\":";
        AppendNumber(out, column.precision);
        out += ",\"scale\":";
        AppendNumber(out, column.scale);
    }
    AppendFlag(out, "auto", column.Autonumber());
    out += '}';
}

void AppendIndex(std::string& out, const TableDef& def, const LogicalIndex& index) {
    const RealIndex& real = def.realIndexes.at(index.real);
    out += "{\"name\":";
    AppendText(out, index.name);
    AppendFlag(out, "primary", index.kind == IndexKind::Primary);
    AppendFlag(out, "unique", real.Unique());
    AppendFlag(out, "ignoreNulls", real.IgnoreNulls());
    AppendFlag(out, "required", real.Required());
    AppendFlag(out, "foreign", index.kind == IndexKind::Foreign);
    out += ",\"columns\":";
    AppendList(out, real.columns, [&](const jet::detail::IndexColumnDef& column) {
        out += '[';
        AppendText(out, def.columns[column.position].name);
        out += column.descending ? ",\"desc\"]" : ",\"asc\"]";
    });
    out += '}';
}

void AppendDesign(std::string& out, const PageFile& file, const TableDef& def) {
    out += "{\"table\":";
    AppendText(out, def.name);
    out += ",\"rows\":";
    AppendNumber(out, def.rowCount);
    out += ",\"columns\":";
    AppendList(out, def.columns, [&](const ColumnDef& column) { AppendColumn(out, file, column); });
    out += ",\"indexes\":";
    std::vector<LogicalIndex> indexes = def.logicalIndexes;
    std::sort(indexes.begin(), indexes.end(),
              [](const LogicalIndex& a, const LogicalIndex& b) { return a.name < b.name; });
    AppendList(out, indexes, [&](const LogicalIndex& index) { AppendIndex(out, def, index); });
    out += "}\n";
}

/// Whole numbers, the bulk of most files, without a Value.
bool IsWholeNumber(const ColumnDef& column) {
    return column.Type() == ColumnType::Byte || column.Type() == ColumnType::Integer ||
           column.Type() == ColumnType::Long;
}

void AppendField(std::string& out, const PageFile& file, const ColumnDef& column,
                 const RowView& row) {
    if (!IsWholeNumber(column)) {
        AppendValue(out, DecodeColumn(file, column, row));
        return;
    }
    if (const auto number = DecodeLong(column, row)) {
        AppendNumber(out, *number);
    } else {
        out += "null";
    }
}

/// All rows as lines in one text, then put in order.
std::string SortedRows(const TableStore& table) {
    std::string text;
    std::vector<std::size_t> ends{0};
    table.Scan([&](RowPointer, const RowView& row) {
        AppendList(text, table.Def().columns,
                   [&](const ColumnDef& column) { AppendField(text, table.File(), column, row); });
        text += '\n';
        ends.push_back(text.size());
    });
    std::vector<std::string_view> lines;
    lines.reserve(ends.size());
    for (std::size_t i = 0; i + 1 < ends.size(); ++i) {
        lines.push_back(std::string_view(text).substr(ends[i], ends[i + 1] - ends[i]));
    }
    // The line's end is no part of the comparison; it is lower than every byte within a line.
    std::sort(lines.begin(), lines.end());
    std::string sorted;
    sorted.reserve(text.size());
    for (const std::string_view line : lines) sorted += line;
    return sorted;
}

void Print(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
}

void Dump(const char* path) {
    const auto file = PageFile::Open(path);
    const jet::detail::Catalog catalog(*file);
    std::vector<jet::detail::CatalogTable> tables = catalog.UserTables();
    std::sort(tables.begin(), tables.end(),
              [](const auto& a, const auto& b) { return a.name < b.name; });
    std::vector<std::string> names;
    names.reserve(tables.size());
    for (const auto& table : tables) names.push_back(table.name);

    std::string out = "{\"jet\":";
    AppendNumber(out, file->Format().version);
    out += ",\"tables\":";
    AppendNames(out, names);
    out += ",\"linked\":";
    AppendNames(out, catalog.LinkedTables());
    Print(out + "}\n");
    for (const auto& entry : tables) {
        TableStore table(*file, entry.page);
        table.EditDef().name = entry.name;
        std::string design;
        AppendDesign(design, *file, table.Def());
        Print(design);
        Print(SortedRows(table));
    }
}

}  // namespace

int main(int argc, char** argv) try {
    if (argc != 2) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    if (const auto status = Answered("jetdump", argv[1], kUsage)) return *status;
    Dump(argv[1]);
    return std::fflush(stdout) == 0 ? 0 : 1;
} catch (const std::exception& error) {
    std::fputs("jetdump: ", stderr);
    std::fputs(error.what(), stderr);
    std::fputs("\n", stderr);
    return 1;
}
