#include "jet/create/designs.h"

#include "jet/create/systemtables.h"
#include "jet/error.h"
#include "jet/index/indexkey.h"
#include "jet/storage/layout.h"
#include "jet/table/names.h"
#include "jet/table/textcodec.h"

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jet::detail {
namespace {

const Layout& kLayout = kJet4;
constexpr std::size_t kMaxColumns = 255, kMaxIndexes = 32, kMaxIndexColumns = 10;
constexpr std::size_t kMaxNameLength = 64;

[[noreturn]] void Refuse(const std::string& what) {
    throw Error{ErrorNumber::InvalidProcedureCall, "table design: " + what};
}

void CheckName(std::string_view name, std::string_view kind) {
    std::size_t units = 0;
    bool sound = !name.empty() && name.front() != ' ';
    for (std::size_t at = 0; sound && at < name.size();) {
        const auto character = NextCharacter(name, at);
        sound = character && *character >= U' ' &&
                std::u32string_view(U".![]`").find(*character) == std::u32string_view::npos;
        units += sound && *character > 0xFFFF ? 2 : 1;
    }
    if (!sound || units > kMaxNameLength) {
        Refuse("\"" + std::string(name) + "\" cannot be the name of " + std::string(kind));
    }
}

void CheckNew(std::set<std::string>& names, std::string_view name) {
    if (!names.insert(FoldName(name)).second) Refuse("\"" + std::string(name) + "\" twice");
}

/// Bytes that a value takes: of text and binary the most it may take.
std::uint16_t LengthOf(const ColumnDesign& column) {
    switch (column.type) {
        case ColumnType::Boolean:
        case ColumnType::Byte:
            return 1;
        case ColumnType::Integer:
            return 2;
        case ColumnType::Long:
        case ColumnType::Single:
            return 4;
        case ColumnType::Currency:
        case ColumnType::Double:
        case ColumnType::Date:
            return 8;
        case ColumnType::Guid:
            return 16;
        case ColumnType::Numeric:
            return 17;
        case ColumnType::Text:
            return static_cast<std::uint16_t>(2 * column.size);
        case ColumnType::Binary:
            return column.size;
        case ColumnType::Memo:
        case ColumnType::Ole:
            return 0;
        default:
            Refuse(column.name + " has a type that new tables cannot have");
    }
}

void CheckColumn(const ColumnDesign& column) {
    CheckName(column.name, "a column");
    const bool text = column.type == ColumnType::Text, binary = column.type == ColumnType::Binary;
    if ((text && (column.size == 0 || column.size > kMaxTextLength)) ||
        (binary && (column.size == 0 || column.size > kMaxBinarySize))) {
        Refuse("the size of " + column.name);
    }
    const bool countable = column.type == ColumnType::Long || column.type == ColumnType::Guid;
    if (column.autonumber && !countable) Refuse(column.name + " cannot number itself");
    constexpr std::uint8_t kMaxDigits = 28;
    const bool digits =
        column.precision >= 1 && column.precision <= kMaxDigits && column.scale <= column.precision;
    if (column.type == ColumnType::Numeric && !digits) Refuse("the digits of " + column.name);
}

bool IsVariable(ColumnType type) {
    return type == ColumnType::Text || type == ColumnType::Binary || type == ColumnType::Memo ||
           type == ColumnType::Ole;
}

bool IsNumber(ColumnType type) {
    return type == ColumnType::Boolean || type == ColumnType::Numeric ||
           (type >= ColumnType::Byte && type <= ColumnType::Date);
}

std::vector<ColumnDef> ColumnsOf(const TableDesign& design) {
    std::vector<ColumnDef> columns;
    std::set<std::string> names;
    std::uint16_t variables = 0, fixedEnd = 0;
    for (const ColumnDesign& wanted : design.columns) {
        CheckColumn(wanted);
        CheckNew(names, wanted.name);
        ColumnDef column;
        column.name = wanted.name;
        column.typeCode = static_cast<std::uint8_t>(wanted.type);
        column.number = column.ordinal = static_cast<std::uint16_t>(columns.size());
        column.variableNumber = variables;
        column.length = LengthOf(wanted);
        column.flags = kColumnUpdatable;
        if (!IsNumber(wanted.type)) column.collation = kGeneralCollation;
        if (wanted.type == ColumnType::Numeric) {
            column.precision = wanted.precision;
            column.scale = wanted.scale;
        }
        if (column.IsText()) column.extra = kExtraCompressed;
        if (IsVariable(wanted.type)) {
            ++variables;
        } else {
            column.flags |= kColumnFixed;
            if (wanted.type != ColumnType::Boolean) {
                column.fixedOffset = fixedEnd;
                fixedEnd = static_cast<std::uint16_t>(fixedEnd + column.length);
            }
        }
        if (wanted.autonumber) {
            column.flags |=
                wanted.type == ColumnType::Guid ? kColumnGuidAutonumber : kColumnAutonumber;
        }
        columns.push_back(std::move(column));
    }
    if (columns.empty() || columns.size() > kMaxColumns) Refuse("the number of columns");
    if (std::count_if(columns.begin(), columns.end(), [](const ColumnDef& column) {
            return column.Type() == ColumnType::Long && column.Autonumber();
        }) > 1) {
        Refuse("two columns that number themselves");
    }
    if (fixedEnd + 4U * variables + columns.size() / 8 + 8 > kLayout.largestRow) {
        Refuse("rows would not fit on a page");
    }
    return columns;
}

RealIndex RealIndexOf(const IndexDesign& wanted, const TableDef& def) {
    RealIndex index;
    index.flags = kLayout.realFlagAlways;
    if (wanted.unique || wanted.primary) index.flags |= kIndexUnique;
    if (wanted.required || wanted.primary) index.flags |= kIndexRequired;
    if (wanted.ignoreNulls && !wanted.primary) index.flags |= kIndexIgnoreNulls;
    std::set<std::string> names;
    for (const IndexColumn& part : wanted.columns) {
        const auto position = def.PositionOf(part.name);
        if (!position || !Indexable(def.columns[*position].Type())) {
            Refuse("\"" + part.name + "\" cannot be in an index");
        }
        CheckNew(names, part.name);
        index.columns.push_back({def.columns[*position].number, *position, part.descending});
    }
    if (index.columns.empty() || index.columns.size() > kMaxIndexColumns) {
        Refuse("the number of columns of the index " + wanted.name);
    }
    return index;
}

}  // namespace

TableDef DefinitionOf(const TableDesign& design) {
    TableDef def;
    def.name = design.name;
    def.columns = ColumnsOf(design);
    def.maxColumns = static_cast<std::uint16_t>(def.columns.size());
    def.variableCount = static_cast<std::uint16_t>(
        std::count_if(def.columns.begin(), def.columns.end(),
                      [](const ColumnDef& column) { return !column.Fixed(); }));
    std::set<std::string> names;
    bool primarySeen = false;
    for (const IndexDesign& wanted : design.indexes) {
        CheckName(wanted.name, "an index");
        CheckNew(names, wanted.name);
        if (wanted.foreign) Refuse("relations cannot be designed");
        if (wanted.primary && std::exchange(primarySeen, true)) Refuse("two primary keys");
        LogicalIndex logical;
        logical.name = wanted.name;
        logical.number = logical.real = static_cast<std::uint32_t>(def.realIndexes.size());
        logical.kind = wanted.primary ? IndexKind::Primary : IndexKind::Normal;
        def.realIndexes.push_back(RealIndexOf(wanted, def));
        def.logicalIndexes.push_back(std::move(logical));
    }
    if (def.realIndexes.size() > kMaxIndexes) Refuse("more than 32 indexes");
    return def;
}

void CheckTableNames(std::span<const TableDesign> tables) {
    std::set<std::string> names;
    for (const SystemTable& table : SystemTables()) CheckNew(names, std::string(table.name));
    for (const TableDesign& table : tables) {
        CheckName(table.name, "a table");
        CheckNew(names, table.name);
    }
}

}  // namespace jet::detail
