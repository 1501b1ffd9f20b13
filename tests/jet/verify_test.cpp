#include "jet/verify/verify.h"

#include "jet/catalog/catalog.h"
#include "jet/create/newfile.h"
#include "jet/error.h"
#include "jet/index/btree.h"
#include "jet/index/tableindexes.h"
#include "jet/storage/datapage.h"
#include "jet/storage/layout.h"
#include "jet/storage/usagemap.h"
#include "jet/table/table.h"
#include "jet/table/tabledefbytes.h"
#include "jet/table/textcodec.h"
#include "support.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>

namespace jet::detail {
namespace {

class SampleFile : public testing::TestWithParam<std::filesystem::path> {};

/// Some character of the text has no key of its own in that order.
bool HasCharacterWithoutKey(const std::string& text, TextOrder order) {
    const auto continues = [&](std::size_t i) {
        return i < text.size() && (static_cast<unsigned char>(text[i]) & 0xC0U) == 0x80U;
    };
    for (std::size_t begin = 0, end = 0; begin < text.size(); begin = end) {
        for (end = begin + 1; continues(end);) ++end;
        const KeyColumn column{ColumnType::Text, false, order};
        if (!EncodeKey(text.substr(begin, end - begin), column)) return true;
    }
    return false;
}

INSTANTIATE_TEST_SUITE_P(Files, SampleFile, testing::ValuesIn(test::SampleFiles()),
                         [](const auto& tested) { return tested.param.stem().string(); });

TEST(SampleFiles, AreThere) {
    EXPECT_GE(test::SampleFiles().size(), test::OtherFiles() ? 20U : 9U);
}

TEST_P(SampleFile, IsSound) {
    const auto file = PageFile::Open(GetParam());
    EXPECT_EQ(Verify(*file).faults, std::vector<std::string>());
}

TEST_P(SampleFile, PassesJetcheck) {
    EXPECT_EQ(test::Run({JETCHECK_PROGRAM, GetParam()}).output, "OK\n");
}

/// A key may be unknown only where a text has a character without weight, or another sort order.
TEST_P(SampleFile, HasTheKeysThatItsValuesGive) {
    const auto file = PageFile::Open(GetParam());
    const Catalog catalog(*file);
    std::vector<CatalogTable> tables = catalog.UserTables();
    tables.push_back({"MSysObjects", kSystemObjectsPage});
    for (const CatalogTable& table : tables) {
        const TableStore store(*file, table.page);
        TableStore copy(*file, table.page);
        const TableIndexes indexes(copy);
        for (std::size_t i = 0; i < store.Def().realIndexes.size(); ++i) {
            std::map<RowPointer, Bytes> keys;
            for (TreeCursor at = indexes.Tree(i).First(); at.Valid(); at.Next()) {
                keys.emplace(at.Row(), Bytes(at.Key().begin(), at.Key().end()));
            }
            store.Scan([&](RowPointer where, const RowView& row) {
                const TableIndexes::RowKey key = indexes.KeyFromRow(i, row);
                ASSERT_EQ(key.present, keys.contains(where)) << table.name;
                if (key.key) {
                    EXPECT_EQ(*key.key, keys[where]) << table.name;
                }
                if (!key.present || key.key) return;
                const auto& parts = store.Def().realIndexes[i].columns;
                EXPECT_TRUE(std::any_of(parts.begin(), parts.end(), [&](const auto& part) {
                    const ColumnDef& column = store.Def().columns[part.position];
                    if (!column.IsText()) return false;
                    const Value text = DecodeColumn(*file, column, row);
                    const auto order = TextOrderOf(*file, column);
                    return !text.IsNull() && HasCharacterWithoutKey(text.Text(), order);
                })) << table.name;
            });
        }
    }
}

// --- faults that are put into a sound file
// -----------------------------------------------------------------

class FaultyFile : public testing::Test {
  protected:
    FaultyFile() {
        const TableDesign designs[] = {
            {"Rader",
             {{.name = "Nr", .type = ColumnType::Long, .autonumber = true},
              {.name = "Namn", .type = ColumnType::Text, .size = 100},
              {.name = "Memo", .type = ColumnType::Memo}},
             {{.name = "PrimaryKey", .columns = {{"Nr"}}, .primary = true},
              {.name = "Namn", .columns = {{"Namn"}}}}}};
        file_ = NewFile(designs, {46000});
        table_ = Catalog(*file_).FindTable("Rader")->page;
        TableStore store(*file_, table_);
        TableIndexes indexes(store);
        for (int i = 0; i < 1500; ++i) {
            std::vector<Value> row = {Value(), "namn " + std::to_string(i % 100),
                                      std::string(static_cast<std::size_t>(i % 300 * 10), 'm')};
            store.FillAutonumbers(row);
            const IndexPlan plan = indexes.PlanInsert(row);
            rows_.push_back(store.Insert(row));
            indexes.Apply(plan, rows_.back());
        }
        // One row moves to an overflow place.
        store.Update(rows_[3], std::vector<std::optional<Value>>{
                                   std::nullopt, Value(std::string(100, 'n')), std::nullopt});
        BTree(*file_, table_, Index(1)).EraseByRowPointer(rows_[3]);
        BTree(*file_, table_, Index(1))
            .Insert(*indexes.KeyFromRow(1, store.Read(rows_[3])).key, rows_[3]);
    }

    RealIndex Index(std::size_t i) { return ReadTableDef(*file_, table_).realIndexes[i]; }
    BTree Tree(std::size_t i) { return {*file_, table_, Index(i)}; }
    Bytes KeyOfRow(std::size_t index, RowPointer row) {
        TableStore store(*file_, table_);
        return *TableIndexes(store).KeyFromRow(index, store.Read(row)).key;
    }
    std::uint32_t FirstDataPage() { return TableStore(*file_, table_).DataPages().front(); }
    std::uint32_t SomeLeaf() { return IndexPage::Read(*file_, Index(0).root).Child(0); }

    /// One of the faults contains each of the texts.
    void ExpectFault(const std::vector<std::string>& texts) {
        const std::vector<std::string> faults = Verify(*file_).faults;
        EXPECT_TRUE(std::any_of(faults.begin(), faults.end(), [&](const std::string& fault) {
            return std::all_of(texts.begin(), texts.end(), [&](const std::string& text) {
                return fault.find(text) != std::string::npos;
            });
        })) << testing::PrintToString(faults);
    }

    std::unique_ptr<PageFile> file_;
    std::uint32_t table_ = 0;
    std::vector<RowPointer> rows_;
};

TEST_F(FaultyFile, IsSoundAtFirst) {
    EXPECT_EQ(Verify(*file_).faults, std::vector<std::string>());
    EXPECT_EQ(Verify(*file_).notes, std::vector<std::string>());
}

TEST_F(FaultyFile, WithWrongFreeBytesOnADataPage) {
    PutU16(file_->EditPage(FirstDataPage()), 2, 7);
    ExpectFault({"page " + std::to_string(FirstDataPage()), "says 7 bytes are free"});
}

TEST_F(FaultyFile, WithWrongFreeBytesOnAnIndexPage) {
    PutU16(file_->EditPage(SomeLeaf()), 2, 7);
    ExpectFault({"Rader.PrimaryKey", "wrong number of free bytes"});
}

TEST_F(FaultyFile, WithARowThatAnIndexLacks) {
    Tree(0).EraseByRowPointer(rows_[5]);
    ExpectFault({"Rader.PrimaryKey: lacks row"});
}

TEST_F(FaultyFile, WithAnIndexEntryThatLeadsToNoRow) {
    Tree(1).Insert(KeyOfRow(1, rows_[0]), {rows_[0].page, 250});
    ExpectFault({"Rader.Namn: has 1 entries that lead to no row"});
}

TEST_F(FaultyFile, WithAKeyThatTheValuesDoNotGive) {
    Tree(1).EraseByRowPointer(rows_[7]);
    Tree(1).Insert(KeyOfRow(1, rows_[8]), rows_[7]);
    ExpectFault({"Rader.Namn: has another key"});
}

TEST_F(FaultyFile, WithOneKeyTwiceInAUniqueIndex) {
    Tree(0).EraseByRowPointer(rows_[7]);
    Tree(0).Insert(KeyOfRow(0, rows_[8]), rows_[7]);
    ExpectFault({"Rader.PrimaryKey: is unique"});
}

TEST_F(FaultyFile, WithOneRowTwiceInAnIndex) {
    Tree(1).Insert(KeyOfRow(1, rows_[8]), rows_[7]);
    ExpectFault({"Rader.Namn", "twice"});
}

TEST_F(FaultyFile, WithABrokenLinkBetweenLeaves) {
    const std::uint32_t leaf = SomeLeaf();
    IndexPage content = IndexPage::Read(*file_, leaf);
    content.next = 0;
    content.Write(*file_, leaf);
    ExpectFault({"the links between the leaves are wrong"});
}

TEST_F(FaultyFile, WithANodeThatStatesAnotherLastEntry) {
    const std::uint32_t root = Index(0).root;
    IndexPage content = IndexPage::Read(*file_, root);
    Bytes entry = content.Entry(0);
    entry.back() ^= 1;
    content.ReplaceKey(0, entry);
    content.Write(*file_, root);
    ExpectFault({"the node above states another last entry"});
}

TEST_F(FaultyFile, WithAnIndexPageMissingInItsMap) {
    UsageMap(*file_, Index(0).map).Remove(SomeLeaf());
    ExpectFault({"Rader.PrimaryKey", "is not in the index's map"});
}

TEST_F(FaultyFile, WithAForeignPageInAnIndexMap) {
    UsageMap(*file_, Index(0).map).Add(FirstDataPage());
    ExpectFault({"Rader.PrimaryKey", "its map has page"});
}

TEST_F(FaultyFile, WithAUsedPageMarkedFree) {
    UsageMap::Global(*file_).Add(FirstDataPage());
    ExpectFault({"is marked free, but belongs to Rader"});
}

TEST_F(FaultyFile, WithAPageOwnedTwice) {
    const std::uint32_t page = TableStore(*file_, kSystemObjectsPage).DataPages().front();
    UsageMap(*file_, ReadTableDef(*file_, table_).ownedMap).Add(page);
    ExpectFault({"page " + std::to_string(page), "belongs to MSysObjects and to Rader"});
}

TEST_F(FaultyFile, WithARoomyPageThatIsNotTheTables) {
    const std::uint32_t page = TableStore(*file_, kSystemObjectsPage).DataPages().front();
    UsageMap(*file_, ReadTableDef(*file_, table_).freeMap).Add(page);
    ExpectFault({"listed as having room"});
}

TEST_F(FaultyFile, WithAWrongRowCount) {
    TableDef def = ReadTableDef(*file_, table_);
    StoreRowCount(*file_, def, 1501);
    ExpectFault({"Rader: says it has 1501 rows, but has 1500"});
}

TEST_F(FaultyFile, WithACatalogEntryThatLeadsToNoDefinition) {
    PutU8(file_->EditPage(table_), 0, kDataPage);
    ExpectFault({"Rader"});
}

TEST_F(FaultyFile, WithASlotPastThePagesEnd) {
    PutU16(file_->EditPage(FirstDataPage()), kJet4.slots, 0x0FFF & 0x1FFF);
    PutU16(file_->EditPage(FirstDataPage()), kJet4.slots + 2, 0x1FFF);
    ExpectFault({"page " + std::to_string(FirstDataPage())});
}

TEST_F(FaultyFile, WithALongValueThatEndsEarly) {
    TableStore store(*file_, table_);
    const ColumnDef& memo = store.Def().columns[2];
    const RowPointer row = rows_.back();
    const RowView view = store.Read(row);
    const auto at = static_cast<std::size_t>(view.Raw(memo).data() - RowAt(*file_, row).data());
    ByteSpan bytes = EditRowAt(*file_, row);
    PutU32(bytes, at, U32(bytes, at) + 5000);
    EXPECT_FALSE(Verify(*file_).faults.empty());
}

TEST_F(FaultyFile, WithTwoRowsThatShareALongValue) {
    TableStore store(*file_, table_);
    const ColumnDef& memo = store.Def().columns[2];
    const auto place = [&](RowPointer row) {
        const RowView view = store.Read(row);
        return static_cast<std::size_t>(view.Raw(memo).data() - RowAt(*file_, row).data());
    };
    const RowPointer a = rows_[290], b = rows_[291];
    const Bytes descriptor(store.Read(a).Raw(memo).begin(), store.Read(a).Raw(memo).end());
    PutBytes(EditRowAt(*file_, b), place(b), descriptor);
    ExpectFault({"Rader.Memo: two rows share row"});
}

TEST_F(FaultyFile, WithTwoPointersToOneMovedRow) {
    // A second slot is made to point where the first moved row is.
    const DataPage page(*file_, rows_[3].page);
    ASSERT_TRUE(page.At(rows_[3].row).IsPointer());
    const Bytes pointer(page.Row(rows_[3].row).begin(), page.Row(rows_[3].row).begin() + 4);
    ReplaceRow(*file_, rows_[4], pointer, kSlotPointer);
    ExpectFault({"two pointers to row"});
}

TEST_F(FaultyFile, MakesJetcheckPrintTheFirstFaultAndFail) {
    test::ScratchFolder folder;
    TableDef def = ReadTableDef(*file_, table_);
    StoreRowCount(*file_, def, 1501);
    file_->SaveAs(folder / "faulty.mdb");
    const test::Outcome outcome = test::Run({JETCHECK_PROGRAM, folder / "faulty.mdb"});
    EXPECT_EQ(outcome.output, "Rader: says it has 1501 rows, but has 1500\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(Jetcheck, SaysWhyAFileCannotBeOpened) {
    test::ScratchFolder folder;
    std::ofstream(folder / "none.mdb") << "not a database";
    const test::Outcome outcome = test::Run({JETCHECK_PROGRAM, folder / "none.mdb"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.output, "OK\n");
    EXPECT_FALSE(outcome.output.empty());
}

TEST(Jetcheck, WantsOneFile) {
    EXPECT_EQ(test::Run({JETCHECK_PROGRAM}).status, 2);
    EXPECT_EQ(test::Run({JETCHECK_PROGRAM, "a", "b"}).status, 2);
}

/// Any one byte of a file may be wrong: the check ends with lines or with an Error,
/// and changes nothing.
TEST_F(FaultyFile, WithAnyByteChangedIsCheckedToTheEnd) {
    std::uint32_t state = 12345;
    const auto random = [&] { return state = state * 1664525 + 1013904223, state >> 8; };
    for (int i = 0; i < 400; ++i) {
        const std::uint32_t page = random() % file_->PageCount();
        const std::size_t offset = random() % (random() % 2 == 0 ? 64 : kJet4.pageSize);
        const auto value = static_cast<std::uint8_t>(random());
        const std::uint8_t before = file_->Page(page)[offset];
        PutU8(file_->EditPage(page), offset, value);
        EXPECT_NO_THROW(Verify(*file_)) << page << " " << offset;
        PutU8(file_->EditPage(page), offset, before);
    }
    EXPECT_EQ(Verify(*file_).faults, std::vector<std::string>());
}

}  // namespace
}  // namespace jet::detail
