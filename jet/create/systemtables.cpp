#include "jet/create/systemtables.h"

#include "jet/storage/layout.h"
#include "jet/table/tabledef.h"

namespace jet::detail {
namespace {

using enum ColumnType;

constexpr SystemColumn kObjectColumns[] = {
    {"Id", Long},         {"ParentId", Long},   {"Name", Text},        {"Type", Integer},
    {"DateCreate", Date}, {"DateUpdate", Date}, {"Owner", Binary},     {"Flags", Long},
    {"Database", Memo},   {"Connect", Memo},    {"ForeignName", Text}, {"RmtInfoShort", Binary},
    {"RmtInfoLong", Ole}, {"Lv", Ole},          {"LvProp", Ole},       {"LvModule", Ole},
    {"LvExtra", Ole}};
constexpr SystemIndex kObjectIndexes[] = {
    {"ParentIdName", {"ParentId", "Name"}, kIndexUnique, false},
    {"Id", {"Id"}, kIndexUnique, true}};

constexpr SystemColumn kAceColumns[] = {
    {"ObjectId", Long}, {"SID", Binary}, {"ACM", Long}, {"FInheritable", Boolean}};
constexpr SystemIndex kAceIndexes[] = {{"ObjectId", {"ObjectId"}, kIndexRequired, false}};

constexpr SystemColumn kQueryColumns[] = {
    {"ObjectId", Long}, {"Attribute", Byte},  {"Order", Binary}, {"Name1", Text},
    {"Name2", Text},    {"Expression", Memo}, {"Flag", Integer}, {"LvExtra", Long}};
constexpr SystemIndex kQueryIndexes[] = {
    {"ObjectIdAttribute", {"ObjectId", "Attribute", "Order"}, kIndexUnique, true}};

constexpr SystemColumn kRelationshipColumns[] = {{"szRelationship", Text},
                                                 {"grbit", Long},
                                                 {"ccolumn", Long},
                                                 {"icolumn", Long},
                                                 {"szObject", Text},
                                                 {"szColumn", Text},
                                                 {"szReferencedObject", Text},
                                                 {"szReferencedColumn", Text}};
constexpr SystemIndex kRelationshipIndexes[] = {
    {"szRelationship", {"szRelationship"}, kIndexIgnoreNulls, false},
    {"szObject", {"szObject"}, kIndexIgnoreNulls, false},
    {"szReferencedObject", {"szReferencedObject"}, kIndexIgnoreNulls, false}};

constexpr SystemTable kSystemTables[] = {
    {kSystemObjectsPage, "MSysObjects", kObjectColumns, kObjectIndexes},
    {kSystemAcesPage, "MSysACEs", kAceColumns, kAceIndexes},
    {kSystemQueriesPage, "MSysQueries", kQueryColumns, kQueryIndexes},
    {kSystemRelationshipsPage, "MSysRelationships", kRelationshipColumns, kRelationshipIndexes}};

}  // namespace

std::span<const SystemTable> SystemTables() {
    return kSystemTables;
}

}  // namespace jet::detail
