#include "jet/create/newfile.h"

#include "jet/catalog/catalog.h"
#include "jet/error.h"
#include "jet/index/tableindexes.h"
#include "jet/storage/header.h"
#include "jet/storage/layout.h"
#include "jet/table/table.h"
#include "jet/table/tabledefbytes.h"
#include "jet/verify/verify.h"
#include "support.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace jet::detail {
namespace {

using test::ReadWith;
using test::ScratchFolder;

constexpr Date kCreated{46000.25};

std::vector<TableDesign> TwoTables() {
    using enum ColumnType;
    return {
        {"FONDDATA",
         {{.name = "KontoId", .type = Long, .autonumber = true},
          {.name = "Namn", .type = Text, .size = 50},
          {.name = "Andel%", .type = Single},
          {.name = "VärdeKr", .type = Currency},
          {.name = "SparadeVärden", .type = Memo},
          {.name = "Köpt", .type = Date},
          {.name = "Aktiv", .type = Boolean},
          {.name = "Bild", .type = Ole},
          {.name = "Nyckel", .type = Guid},
          {.name = "Tal", .type = Numeric, .precision = 18, .scale = 4},
          {.name = "Rå", .type = Binary, .size = 100}},
         {{.name = "PrimaryKey", .columns = {{"KontoId"}}, .primary = true},
          {.name = "Namn", .columns = {{"Namn"}, {"Köpt", true}}, .ignoreNulls = true}}},
        {"PLOTTDATA",
         {{.name = "FondNr", .type = Text, .size = 255},
          {.name = "XCord", .type = Long},
          {.name = "YCord", .type = Long},
          {.name = "KontoId", .type = Long}},
         {{.name = "KontoId", .columns = {{"KontoId"}}}}},
    };
}

Bytes BytesOf(const PageFile& file) {
    Bytes bytes;
    for (std::uint32_t page = 0; page < file.PageCount(); ++page) {
        const ByteView view = file.Page(page);
        bytes.insert(bytes.end(), view.begin(), view.end());
    }
    return bytes;
}

TEST(NewFile, HasTheSameBytesForTheSameDesignAndDate) {
    EXPECT_EQ(BytesOf(*NewFile(TwoTables(), kCreated)), BytesOf(*NewFile(TwoTables(), kCreated)));
    EXPECT_NE(BytesOf(*NewFile(TwoTables(), kCreated)), BytesOf(*NewFile(TwoTables(), {46001.0})));
}

TEST(NewFile, IsSound) {
    const auto file = NewFile(TwoTables(), kCreated);
    const Findings findings = Verify(*file);
    EXPECT_EQ(findings.faults, std::vector<std::string>());
    EXPECT_EQ(findings.notes, std::vector<std::string>());
}

TEST(NewFile, WithoutTablesIsSound) {
    const auto file = NewFile({}, kCreated);
    const Findings findings = Verify(*file);
    EXPECT_EQ(findings.faults, std::vector<std::string>());
    EXPECT_EQ(findings.notes, std::vector<std::string>());
    EXPECT_EQ(file->PageCount(), 19U);
}

TEST(NewFile, HasItsSystemTablesWhereEnginesPutThem) {
    const auto file = NewFile({}, kCreated);
    const auto length = [&](std::uint32_t page) { return U32(file->Page(page), 8); };
    EXPECT_EQ(length(kSystemObjectsPage), 1050U);
    EXPECT_EQ(length(kSystemAcesPage), 335U);
    EXPECT_EQ(length(kSystemQueriesPage), 525U);
    EXPECT_EQ(length(kSystemRelationshipsPage), 813U);
    const Catalog catalog(*file);
    EXPECT_EQ(catalog.FindTable("msysobjects")->page, kSystemObjectsPage);
    EXPECT_EQ(catalog.FindTable("MSysRelationships")->page, kSystemRelationshipsPage);
    EXPECT_TRUE(catalog.UserTables().empty());
}

TEST(NewFile, HasTheHeaderThatItsOwnersNeed) {
    const auto file = NewFile({}, kCreated);
    const ByteView page = file->Page(0);
    Bytes header(page.begin(), page.end());
    MaskHeader(kJet4, header);
    EXPECT_EQ(U32(header, 0x18), 0x100U);
    EXPECT_EQ(U32(header, 0x1C), 0x101U);
    EXPECT_EQ(U32(header, 0x3E), 0U) << "not encoded";
    for (std::size_t at = 0x42; at < 0x6A; at += 4) EXPECT_EQ(U32(header, at), 0xA559U) << at;
    EXPECT_EQ(U16(header, 0x6A), 0x261C);
    EXPECT_EQ(U16(header, 0x6E), 1033);
    EXPECT_EQ(U64(header, 0x72), 0x40E4AB3E3BD3853EU);
    EXPECT_EQ(U16(header, 0xE00), 0x0100) << "a zero there means a crash";
}

TEST(NewFile, SavesDatesThatAreAskedFor) {
    const auto file = NewFile(TwoTables(), kCreated);
    const TableStore objects(*file, kSystemObjectsPage);
    const auto created = *objects.Def().PositionOf("DateCreate");
    std::size_t rows = 0;
    objects.Scan([&](RowPointer where, const RowView&) {
        EXPECT_EQ(objects.Field(where, created), Value(kCreated));
        ++rows;
    });
    EXPECT_EQ(rows, 10U) << "eight of a new file and two tables";
}

TEST(NewFile, IsWhatTheDesignSays) {
    ScratchFolder folder;
    const auto path = folder / "new.mdb";
    NewFile(TwoTables(), kCreated)->SaveAs(path);
    const auto file = PageFile::Open(path);
    const Catalog catalog(*file);
    const TableDef def = ReadTableDef(*file, catalog.FindTable("fonddata")->page);
    ASSERT_EQ(def.columns.size(), 11U);
    EXPECT_TRUE(def.columns[0].Autonumber());
    EXPECT_EQ(def.columns[1].length, 100);
    EXPECT_EQ(def.columns[9].precision, 18);
    EXPECT_EQ(def.columns[9].scale, 4);
    EXPECT_EQ(def.variableCount, 4);
    ASSERT_EQ(def.realIndexes.size(), 2U);
    EXPECT_EQ(def.realIndexes[0].flags, 0x89);
    EXPECT_EQ(def.realIndexes[1].flags, 0x82);
    EXPECT_EQ(def.PrimaryKey()->name, "PrimaryKey");
    EXPECT_TRUE(def.realIndexes[1].columns[1].descending);
}

class CreatedFile : public testing::Test {
  protected:
    void SetUp() override {
        auto file = NewFile(TwoTables(), kCreated);
        Fill(*file);
        ASSERT_EQ(Verify(*file).faults, std::vector<std::string>());
        file->SaveAs(path_);
    }
    static void Fill(PageFile& file) {
        const Catalog catalog(file);
        TableStore store(file, catalog.FindTable("FONDDATA")->page);
        TableIndexes indexes(store);
        for (std::int32_t i = 0; i < 60; ++i) {
            std::vector<Value> row(11);
            row[1] = "Räkan " + std::string(1, static_cast<char>('a' + i % 26));
            row[2] = 12.5F;
            row[3] = Currency{123456};
            row[4] = std::string(static_cast<std::size_t>(i * 200), 'm');
            row[5] = Date{45000.0 + i};
            row[6] = i % 2 == 0;
            store.FillAutonumbers(row);
            const IndexPlan plan = indexes.PlanInsert(row);
            indexes.Apply(plan, store.Insert(row));
        }
    }
    ScratchFolder folder_;
    const std::filesystem::path path_ = folder_ / "new.mdb";
};

TEST_F(CreatedFile, HasItsVersionForOthers) {
    EXPECT_EQ(ReadWith({"mdb-ver", path_}), "JET4\n");
}

TEST_F(CreatedFile, HasItsTablesForOthers) {
    EXPECT_EQ(ReadWith({"mdb-tables", "-1", path_}), "FONDDATA\nPLOTTDATA\n");
}

TEST_F(CreatedFile, HasItsSchemaForOthers) {
    const std::string schema = ReadWith({"mdb-schema", path_});
    for (const char* part :
         {"[KontoId]", "Long Integer", "[Namn]", "Text (50)", "[Andel%]", "Single", "[VärdeKr]",
          "Currency", "[SparadeVärden]", "Memo/Hyperlink (255)", "DateTime", "Boolean", "[Bild]",
          "OLE (255)", "Replication ID", "Numeric (18, 4)", "\t\t\tBinary\n", "[FondNr]",
          "Text (255)"}) {
        EXPECT_NE(schema.find(part), std::string::npos) << part << " in\n" << schema;
    }
    const std::string indexes = ReadWith({"mdb-schema", path_, "postgres"});
    EXPECT_NE(indexes.find("PRIMARY KEY (\"kontoid\")"), std::string::npos) << indexes;
}

TEST_F(CreatedFile, HasItsRowsForOthers) {
    const std::string rows = ReadWith({"mdb-export", "-H", path_, "FONDDATA"});
    EXPECT_EQ(std::count(rows.begin(), rows.end(), '\n'), 60);
    EXPECT_NE(rows.find("\"Räkan a\",12.5,12.3456,"), std::string::npos) << rows.substr(0, 300);
    const std::string json = ReadWith({"mdb-json", path_, "FONDDATA"});
    EXPECT_EQ(std::count(json.begin(), json.end(), '\n'), 60);
    EXPECT_NE(json.find("\"" + std::string(59 * 200, 'm') + "\""), std::string::npos);
    EXPECT_EQ(ReadWith({"mdb-count", path_, "FONDDATA"}), "60\n");
    EXPECT_EQ(ReadWith({"mdb-count", path_, "PLOTTDATA"}), "0\n");
}

TEST_F(CreatedFile, PassesJetcheck) {
    const test::Outcome outcome = test::Run({JETCHECK_PROGRAM, path_});
    EXPECT_EQ(outcome.output, "OK\n");
    EXPECT_EQ(outcome.status, 0);
}

TEST(NewFile, TakesAsManyColumnsAndIndexesAsTheFormatDoes) {
    TableDesign wide{.name = "Bred", .columns = {}, .indexes = {}};
    for (int i = 0; i < 255; ++i) {
        wide.columns.push_back({.name = "Kolumn med ett långt namn " + std::to_string(i),
                                .type = i < 200 ? ColumnType::Memo : ColumnType::Long});
    }
    for (int i = 0; i < 32; ++i) {
        wide.indexes.push_back(
            {.name = "Index " + std::to_string(i), .columns = {{wide.columns[254 - i].name}}});
    }
    const TableDesign designs[] = {wide};
    const auto file = NewFile(designs, kCreated);
    EXPECT_EQ(Verify(*file).faults, std::vector<std::string>());
    const TableDef def = ReadTableDef(*file, Catalog(*file).FindTable("bred")->page);
    EXPECT_EQ(def.columns.size(), 255U);
    EXPECT_EQ(def.realIndexes.size(), 32U);
    ScratchFolder folder;
    file->SaveAs(folder / "wide.mdb");
    EXPECT_EQ(ReadWith({"mdb-tables", "-1", folder / "wide.mdb"}), "Bred\n");
}

struct BadDesign {
    const char* name;
    std::vector<TableDesign> tables;
};

void PrintTo(const BadDesign& design, std::ostream* out) {
    *out << design.name;
}

class ImpossibleDesign : public testing::TestWithParam<BadDesign> {};

TEST_P(ImpossibleDesign, IsRefused) {
    try {
        NewFile(GetParam().tables, kCreated);
        FAIL() << "was accepted";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::InvalidProcedureCall) << error.what();
    }
}

const ColumnDesign kNumber{.name = "Nr", .type = ColumnType::Long};
const ColumnDesign kOle{.name = "Bild", .type = ColumnType::Ole};

TableDesign OneColumn(ColumnDesign column) {
    return {"T", {std::move(column)}, {}};
}
TableDesign Named(std::string name) {
    return {std::move(name), {kNumber}, {}};
}
TableDesign WithIndexes(std::vector<IndexDesign> indexes) {
    return {"T", {kNumber, kOle}, std::move(indexes)};
}

INSTANTIATE_TEST_SUITE_P(
    Designs, ImpossibleDesign,
    testing::Values(
        BadDesign{"no columns", {{"T", {}, {}}}},
        BadDesign{"256 columns", {{"T", std::vector<ColumnDesign>(256, kNumber), {}}}},
        BadDesign{"a column twice", {{"T", {kNumber, {.name = "NR"}}, {}}}},
        BadDesign{"a table twice", {Named("T"), Named("t")}},
        BadDesign{"a system table's name", {Named("msysobjects")}},
        BadDesign{"an empty name", {Named("")}}, BadDesign{"a leading blank", {Named(" T")}},
        BadDesign{"a point in a name", {Named("a.b")}},
        BadDesign{"brackets in a name", {Named("a[b]")}},
        BadDesign{"a control character in a name", {Named("a\tb")}},
        BadDesign{"65 characters in a name", {Named(std::string(65, 'x'))}},
        BadDesign{"broken UTF-8 in a name", {Named("\xC3")}},
        BadDesign{"text without size", {OneColumn({.name = "A", .type = ColumnType::Text})}},
        BadDesign{"text of 256", {OneColumn({.name = "A", .type = ColumnType::Text, .size = 256})}},
        BadDesign{"binary of 511",
                  {OneColumn({.name = "A", .type = ColumnType::Binary, .size = 511})}},
        BadDesign{
            "a text that numbers itself",
            {OneColumn({.name = "A", .type = ColumnType::Text, .size = 9, .autonumber = true})}},
        BadDesign{"two columns that number themselves",
                  {{"T",
                    {{.name = "A", .type = ColumnType::Long, .autonumber = true},
                     {.name = "B", .type = ColumnType::Long, .autonumber = true}},
                    {}}}},
        BadDesign{"numeric without digits",
                  {OneColumn({.name = "A", .type = ColumnType::Numeric})}},
        BadDesign{"an unknown type",
                  {OneColumn({.name = "A", .type = static_cast<ColumnType>(0x0D)})}},
        BadDesign{"an index on nothing", {WithIndexes({{.name = "I", .columns = {}}})}},
        BadDesign{"an index on a missing column",
                  {WithIndexes({{.name = "I", .columns = {{"X"}}}})}},
        BadDesign{"an index on OLE", {WithIndexes({{.name = "I", .columns = {{"Bild"}}}})}},
        BadDesign{"an index on a column twice",
                  {WithIndexes({{.name = "I", .columns = {{"Nr"}, {"nr"}}}})}},
        BadDesign{"an index name twice",
                  {WithIndexes({{.name = "I", .columns = {{"Nr"}}},
                                {.name = "i", .columns = {{"Nr"}}}})}},
        BadDesign{"two primary keys",
                  {WithIndexes({{.name = "I", .columns = {{"Nr"}}, .primary = true},
                                {.name = "J", .columns = {{"Nr"}}, .primary = true}})}},
        BadDesign{"a relation",
                  {WithIndexes({{.name = "I", .columns = {{"Nr"}}, .foreign = true}})}}));

}  // namespace
}  // namespace jet::detail
