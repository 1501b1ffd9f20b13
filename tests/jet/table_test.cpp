#include "jet/table/table.h"

#include "jet/catalog/catalog.h"
#include "jet/error.h"
#include "jet/table/tabledefbytes.h"
#include "memoryfile.h"
#include "versions.h"

#include <algorithm>
#include <map>
#include <random>

namespace {

using namespace jet::detail;
using jet::ColumnType;
using jet::Error;
using jet::ErrorNumber;
using jet::Value;

class Tables : public testing::TestWithParam<const Layout*> {
  protected:
    void SetUp() override {
        file_ = jettest::EmptyFile(*GetParam());
        const auto text = static_cast<std::uint16_t>(255 * GetParam()->textUnit);
        table_ = std::make_unique<TableStore>(
            *file_, jettest::AddTable(*file_, {{"Nr", ColumnType::Long, 4, kColumnAutonumber},
                                               {"Text", ColumnType::Text, text},
                                               {"Mer", ColumnType::Text, text},
                                               {"Memo", ColumnType::Memo, 0}}));
    }
    std::vector<Value> NewRow(std::string text, std::string memo = {}) const {
        std::vector<Value> values{Value(), std::move(text), Value(), Value()};
        if (!memo.empty()) values[3] = std::move(memo);
        table_->FillAutonumbers(values);
        return values;
    }
    RowPointer Add(std::string text, std::string memo = {}) {
        return table_->Insert(NewRow(std::move(text), std::move(memo)));
    }
    void SetText(RowPointer row, std::string text) {
        std::vector<std::optional<Value>> changes(4);
        changes[1] = std::move(text);
        table_->Update(row, changes);
    }
    std::size_t Count() const {
        std::size_t rows = 0;
        table_->Scan([&](RowPointer, const RowView&) { ++rows; });
        return rows;
    }
    std::unique_ptr<PageFile> file_;
    std::unique_ptr<TableStore> table_;
};

TEST_P(Tables, NumberNewRowsFromOne) {
    EXPECT_EQ(table_->Field(Add("a"), 0), Value(std::int32_t{1}));
    EXPECT_EQ(table_->Field(Add("b"), 0), Value(std::int32_t{2}));
    TableStore again(*file_, table_->Def().page);
    EXPECT_EQ(again.Def().autonumber, 2u);
    EXPECT_EQ(again.Def().rowCount, 2u);
}

TEST_P(Tables, AnExplicitNumberRaisesTheCounterAndALowerOneDoesNot) {
    table_->Insert(std::vector<Value>{std::int32_t{10}, "a", Value(), Value()});
    table_->Insert(std::vector<Value>{std::int32_t{4}, "b", Value(), Value()});
    EXPECT_EQ(table_->Field(Add("c"), 0), Value(std::int32_t{11}));
}

TEST_P(Tables, ARowThatGrowsKeepsItsPointerAndIsSeenOnceInAScan) {
    std::vector<RowPointer> rows;
    for (int i = 0; i < 100; ++i) rows.push_back(Add("kort"));
    for (const RowPointer row : rows) SetText(row, std::string(250, 'l'));
    EXPECT_EQ(Count(), 100u);
    for (const RowPointer row : rows) {
        EXPECT_EQ(table_->Field(row, 1), Value(std::string(250, 'l')));
    }
    for (const RowPointer row : rows) SetText(row, "k");
    EXPECT_EQ(Count(), 100u);
}

TEST_P(Tables, ADeletedRowIsGoneAlsoWhenItHadMoved) {
    std::vector<RowPointer> rows;
    for (int i = 0; i < 60; ++i) rows.push_back(Add("kort"));
    for (const RowPointer row : rows) SetText(row, std::string(250, 'l'));
    for (const RowPointer row : rows) table_->Delete(row);
    EXPECT_EQ(Count(), 0u);
    EXPECT_EQ(table_->Def().rowCount, 0u);
    for (const RowPointer row : rows) {
        EXPECT_FALSE(table_->Exists(row));
        EXPECT_THROW(table_->Read(row), Error);
    }
}

TEST_P(Tables, LoseManyRowsAtOnceMovedOnesAndLongOnesToo) {
    std::vector<RowPointer> rows;
    for (int i = 0; i < 200; ++i)
        rows.push_back(Add("kort", std::string(i % 9 == 0 ? 6000 : 0, 'm')));
    for (std::size_t i = 0; i < rows.size(); i += 5) SetText(rows[i], std::string(250, 'l'));
    std::vector<std::uint32_t> gone;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i % 3 != 0) gone.push_back(rows[i].Packed());
    }
    std::shuffle(gone.begin(), gone.end(), std::mt19937(2));
    table_->Delete(gone);
    EXPECT_EQ(Count(), rows.size() - gone.size());
    EXPECT_EQ(table_->Def().rowCount, rows.size() - gone.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(table_->Exists(rows[i]), i % 3 == 0);
        if (i % 3 != 0) continue;
        EXPECT_EQ(table_->Field(rows[i], 1), Value(i % 5 == 0 ? std::string(250, 'l') : "kort"));
    }
}

TEST_P(Tables, OfPlainRowsLoseManyAtOnce) {
    TableStore plain(*file_, jettest::AddTable(*file_, {{"Nr", ColumnType::Long, 4, 0},
                                                        {"Text", ColumnType::Text, 200}}));
    const auto add = [&](std::int32_t number, std::size_t length) {
        return plain.Insert(std::vector<Value>{number, std::string(length, 't')});
    };
    std::vector<RowPointer> rows;
    for (std::int32_t i = 0; i < 500; ++i) rows.push_back(add(i, 3));
    std::vector<std::optional<Value>> longer(2);
    longer[1] = std::string(90, 'l');
    for (std::size_t i = 0; i < rows.size(); i += 7) plain.Update(rows[i], longer);
    std::vector<std::uint32_t> gone;
    for (std::size_t i = 0; i < rows.size(); i += 2) gone.push_back(rows[i].Packed());
    plain.Delete(gone);
    EXPECT_EQ(plain.Def().rowCount, 250u);
    std::size_t left = 0;
    plain.Scan([&](RowPointer where, const RowView&) {
        ++left;
        EXPECT_EQ(plain.Field(where, 0).Integer() % 2, 1);
    });
    EXPECT_EQ(left, 250u);
    for (const std::uint32_t page : plain.DataPages()) {
        const DataPage content(*file_, page);
        EXPECT_EQ(content.StoredFreeBytes(), content.FreeBytes());
    }
    for (std::int32_t i = 0; i < 100; ++i) add(1000 + i, 3);
    for (const std::uint32_t row : gone) EXPECT_FALSE(plain.Exists(RowPointer::FromPacked(row)));
}

TEST_P(Tables, APointerToADeletedRowNeverLeadsToANewOne) {
    std::vector<RowPointer> rows;
    for (int i = 0; i < 300; ++i) rows.push_back(Add("text"));
    for (const RowPointer row : rows) table_->Delete(row);
    for (int i = 0; i < 300; ++i) Add("ny");
    for (const RowPointer row : rows) EXPECT_FALSE(table_->Exists(row));
}

TEST_P(Tables, PagesEmptiedInAnEarlierSessionAreFilledAgain) {
    for (int round = 0; round < 10; ++round) {
        TableStore session(*file_, table_->Def().page);
        std::vector<RowPointer> rows;
        for (int i = 0; i < 500; ++i) {
            rows.push_back(
                session.Insert(std::vector<Value>{std::int32_t{i}, "text", Value(), Value()}));
        }
        for (const RowPointer row : rows) session.Delete(row);
    }
    const std::size_t pages = table_->DataPages().size();
    TableStore session(*file_, table_->Def().page);
    for (int i = 0; i < 500; ++i) {
        session.Insert(std::vector<Value>{std::int32_t{i}, "text", Value(), Value()});
    }
    EXPECT_EQ(session.DataPages().size(), pages);
}

TEST_P(Tables, AgreeWithAMapThroughManyRandomChanges) {
    std::mt19937 random(5);
    std::map<RowPointer, std::pair<std::string, std::string>> model;
    const auto text = [&](std::size_t most) {
        return std::string(random() % most, static_cast<char>('a' + random() % 26));
    };
    for (int step = 0; step < 4000; ++step) {
        const auto chosen =
            model.empty()
                ? model.end()
                : std::next(model.begin(), static_cast<std::ptrdiff_t>(random() % model.size()));
        const unsigned kind = random() % 4;
        if (chosen == model.end() || kind < 2) {
            const std::string t = text(60), memo = text(step % 10 == 0 ? 7000 : 80);
            model[Add(t, memo)] = {t, memo};
        } else if (kind == 2) {
            std::vector<std::optional<Value>> changes(4);
            chosen->second = {text(255), text(step % 7 == 0 ? 9000 : 90)};
            changes[1] = chosen->second.first;
            changes[3] = chosen->second.second.empty() ? Value() : Value(chosen->second.second);
            table_->Update(chosen->first, changes);
        } else {
            table_->Delete(chosen->first);
            model.erase(chosen);
        }
    }
    ASSERT_EQ(Count(), model.size());
    EXPECT_EQ(table_->Def().rowCount, model.size());
    for (const auto& [row, expected] : model) {
        EXPECT_EQ(table_->Field(row, 1), Value(expected.first));
        EXPECT_EQ(table_->Field(row, 3).Text(), expected.second);
    }
    for (std::uint32_t page = 1; page < file_->PageCount(); ++page) {
        if (file_->Page(page)[0] != kDataPage) continue;
        EXPECT_EQ(DataPage(*file_, page).StoredFreeBytes(), DataPage(*file_, page).FreeBytes());
    }
}

TEST_P(Tables, ARolledBackInsertLeavesNoTrace) {
    Add("a");
    const std::uint32_t pages = file_->PageCount();
    file_->Begin();
    for (int i = 0; i < 500; ++i) Add(std::string(200, 'x'), std::string(5000, 'y'));
    file_->Rollback();
    table_->Reload();
    EXPECT_EQ(file_->PageCount(), pages);
    EXPECT_EQ(Count(), 1u);
    EXPECT_EQ(table_->Field(Add("b"), 0), Value(std::int32_t{2}));
}

TEST_P(Tables, ADefinitionOfManyColumnsTakesSeveralPages) {
    std::vector<jettest::TestColumn> columns;
    for (int i = 0; i < 200; ++i) {
        columns.push_back(
            {"En ganska lång kolumnrubrik " + std::to_string(i), ColumnType::Byte, 1});
    }
    const TableDef def = ReadTableDef(*file_, jettest::AddTable(*file_, columns));
    ASSERT_EQ(def.columns.size(), 200u);
    EXPECT_EQ(def.columns[199].name, "En ganska lång kolumnrubrik 199");
    EXPECT_EQ(def.FindColumn("EN GANSKA LÅNG KOLUMNRUBRIK 7")->number, 7);
}

INSTANTIATE_FOR_BOTH_VERSIONS(Tables);

TEST(Tables, OfSampleFilesHaveTheRowCountsTheySay) {
    for (const auto& path : jet::test::SampleFiles()) {
        const auto file = PageFile::Open(path);
        const Catalog catalog(*file);
        for (const CatalogTable& entry : catalog.UserTables()) {
            const TableStore table(*file, entry.page);
            std::size_t rows = 0;
            table.Scan([&](RowPointer where, const RowView&) {
                ++rows;
                EXPECT_TRUE(table.Exists(where));
            });
            EXPECT_EQ(rows, table.Def().rowCount) << path << " " << entry.name;
        }
    }
}

TEST(Definitions, OfSampleFilesAreBuiltAgainByteForByteInLength) {
    for (const auto& path : jet::test::SampleFiles()) {
        const auto file = PageFile::Open(path);
        const Catalog catalog(*file);
        for (const CatalogTable& entry : catalog.UserTables()) {
            const TableDef def = ReadTableDef(*file, entry.page);
            const auto built = BuildTableDef(file->Format(), file->Header().codePage, def);
            EXPECT_EQ(built.size(), U32(file->Page(entry.page), 8)) << path << " " << entry.name;
        }
    }
}

TEST(Catalog, FindsTablesWhateverTheLetterCase) {
    const auto file = PageFile::Open(jettest::Sample("konton"));
    const Catalog catalog(*file);
    ASSERT_NE(catalog.FindTable("fonddata"), nullptr);
    EXPECT_EQ(catalog.FindTable("fonddata")->name, "FONDDATA");
    EXPECT_EQ(catalog.FindTable("none"), nullptr);
    EXPECT_NE(catalog.FindTable("MSysObjects"), nullptr);
    EXPECT_EQ(catalog.UserTables().size(), 2u);
}

TEST(Catalog, ResolvesASavedQueryOverOneTable) {
    const auto file = PageFile::Open(jettest::Sample("konton"));
    const Catalog catalog(*file);
    ASSERT_TRUE(catalog.HasQuery("fr_fonddata"));
    const auto path = catalog.ResolveQuery("FR_FONDDATA");
    ASSERT_EQ(path.size(), 1u);
    EXPECT_EQ(path[0].source, "FONDDATA");
    EXPECT_TRUE(path[0].allColumns);
    EXPECT_TRUE(path[0].filters.empty());
}

TEST(Catalog, ReadsOrRefusesEverySavedQueryOfTheSamples) {
    SKIP_WITHOUT_SAMPLES();
    std::size_t read = 0, refused = 0;
    for (const auto& path : jet::test::SampleFiles()) {
        const auto file = PageFile::Open(path);
        const Catalog catalog(*file);
        for (const std::string& name : catalog.QueryNames()) {
            try {
                catalog.ReadQuery(name);
                ++read;
            } catch (const Error& error) {
                EXPECT_EQ(error.Number(), ErrorNumber::NotSupported) << name;
                ++refused;
            }
        }
    }
    EXPECT_GT(read, 0u);
    EXPECT_GT(refused, 0u);
}

}  // namespace
