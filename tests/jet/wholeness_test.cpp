// Files that lack a part: cut at the border of a page or anywhere, with pages lost in the middle,
// with a wrong count. They are read-only, say how much is there,
// and never show one row's value as another's.

#include "jet/catalog/catalog.h"
#include "jet/database.h"
#include "jet/query/opentable.h"
#include "jet/table/longvalue.h"
#include "jet/table/tabledefbytes.h"
#include "jet/transaction.h"
#include "jet/verify/verify.h"
#include "ledger.h"
#include "memoryfile.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <set>

namespace jet::test {
namespace {

using namespace detail;
namespace fs = std::filesystem;

/// A row as texts, one for each value; nothing when a value of it could not be read.
std::optional<std::string> RowText(RecordSet& records, std::int32_t row) {
    try {
        std::string text;
        for (std::size_t i = 0; i < records.FieldCount(); ++i) {
            const Value value = records.At(row, i);
            text += (value.IsNull() ? "-" : "+") + value.Text() + "|";
        }
        return text;
    } catch (const Error&) {
        return std::nullopt;
    }
}

struct Contents {
    std::map<std::string, std::multiset<std::string>> tables;
    std::uint64_t rows = 0;
};

Contents Read(Database& database) {
    Contents contents;
    for (const std::string& table : database.TableNames()) {
        if (FailureOf([&] { database.OpenRecordSet(table)->RecordCount(); }) != ErrorNumber::None) {
            continue;
        }
        const auto records = database.OpenRecordSet(table);
        auto& rows = contents.tables[table];
        for (std::int32_t row = 0; row < records->RecordCount(); ++row) {
            ++contents.rows;
            if (auto text = RowText(*records, row)) rows.insert(*std::move(text));
        }
    }
    return contents;
}

/// Every row that was read is one of the whole file's.
void ExpectPartOf(const Contents& whole, const Contents& part, const std::string& what) {
    for (const auto& [table, rows] : part.tables) {
        const auto known = whole.tables.find(table);
        ASSERT_NE(known, whole.tables.end()) << what << " " << table;
        for (const std::string& row : rows) {
            ASSERT_TRUE(known->second.contains(row)) << what << " " << table << ": " << row;
        }
    }
}

/// New rows and a long value where the table takes them.
void WriteSomething(Database& database) {
    constexpr int kRows = 12;
    for (const std::string& table : database.TableNames()) {
        const auto rows = database.OpenRecordSet(table);
        const auto columns = database.Describe(table).columns;
        for (int row = 0; row < kRows; ++row) {
            FailureOf([&] {
                rows->AddNew();
                for (std::size_t i = 0; i < columns.size(); ++i) {
                    if (columns[i].autonumber) continue;
                    if (columns[i].type == ColumnType::Long) rows->Set(i, 700000 + row);
                    if (columns[i].type == ColumnType::Text) rows->Set(i, std::string(1, 'q'));
                    if (columns[i].type == ColumnType::Memo) rows->Set(i, std::string(5000, 'm'));
                }
                rows->Update();
            });
        }
    }
}

class Cut : public testing::TestWithParam<fs::path> {
  protected:
    void SetUp() override { source_ = jettest::CopyInto(folder_, GetParam()); }

    /// Cuts the file after so many pages and looks at what is left of it.
    void CheckCutAt(std::uint64_t pages, std::size_t pageSize, const Contents& whole) {
        const std::string what = GetParam().stem().string() + " after page " + Decimal(pages);
        const fs::path path = folder_ / "cut.mdb";
        jettest::WriteText(path, jettest::ReadText(source_).substr(0, pages * pageSize));
        std::shared_ptr<Database> database;
        const ErrorNumber failure = FailureOf([&] { database = Database::Open(path); });
        if (failure != ErrorNumber::None) {
            ASSERT_EQ(failure, ErrorNumber::NotADatabase) << what;
            ++unreadable_;
            return;
        }
        const Contents part = Read(*database);
        ExpectPartOf(whole, part, what);
        if (!database->LostPart()) {
            // Only pages that nothing used are gone.
            EXPECT_EQ(part.tables, whole.tables) << what;
            EXPECT_THAT(database->Verify(), testing::IsEmpty()) << what;
            ++whole_;
            return;
        }
        ++lacking_;
        EXPECT_TRUE(database->ReadOnly()) << what;
        EXPECT_FALSE(database->LostPart()->what.empty()) << what;
        EXPECT_LE(database->LostPart()->rowsFound, database->LostPart()->rowsStated) << what;
        EXPECT_THAT(database->Verify(), testing::Not(testing::IsEmpty())) << what;
        ExpectRefused(*database, what);
    }

    static void ExpectRefused(Database& database, const std::string& what) {
        for (const auto& [table, rows] : Read(database).tables) {
            const auto records = database.OpenRecordSet(table);
            if (records->Empty()) continue;
            EXPECT_EQ(FailureOf([&] { records->Delete(); }), ErrorNumber::ReadOnly)
                << what << " " << table;
            return;
        }
    }

    void CheckEveryTenth() {
        const auto database = Database::Open(source_);
        ASSERT_FALSE(database->LostPart()) << database->LostPart()->what;
        const Contents whole = Read(*database);
        const std::size_t pageSize = database->Version() == 3 ? 2048 : 4096;
        database->Close();
        const std::uint64_t pages = fs::file_size(source_) / pageSize;
        for (std::uint64_t tenth = 1; tenth < 10; ++tenth) {
            CheckCutAt(std::max<std::uint64_t>(pages * tenth / 10, 1), pageSize, whole);
        }
        EXPECT_GT(lacking_ + unreadable_, 0);
    }

    ScratchFolder folder_;
    fs::path source_;
    int unreadable_ = 0, lacking_ = 0, whole_ = 0;
};

TEST_P(Cut, AtEveryTenthIsReadOnlyOrUnreadable) {
    CheckEveryTenth();
}

TEST_P(Cut, AtEveryTenthAfterAWriteIsReadOnlyOrUnreadable) {
    const auto database = Database::Open(source_);
    WriteSomething(*database);
    EXPECT_THAT(database->Verify(), testing::IsEmpty());
    database->Close();
    CheckEveryTenth();
}

INSTANTIATE_TEST_SUITE_P(Of, Cut, testing::ValuesIn(SampleFiles()),
                         [](const auto& tested) { return tested.param.stem().string(); });

/// A created file with a table of rows and memos.
class Wholeness : public testing::Test {
  protected:
    void SetUp() override {
        IndexDesign key{"PrimaryKey", {{"Nr"}}};
        key.primary = true;
        const TableDesign table{
            "Rader", {{"Nr", ColumnType::Long}, {"Not", ColumnType::Memo}}, {key}};
        Database::Create(path_, std::span(&table, 1), Date{46000});
        const auto database = Database::Open(path_);
        Transaction whole(database);
        const auto rows = database->OpenRecordSet("Rader");
        for (int row = 0; row < kRows; ++row) {
            rows->AddNew();
            rows->Set("Nr", row);
            rows->Set("Not", std::string(100 + static_cast<std::size_t>(row % 5), 'a'));
            rows->Update();
        }
        whole.Commit();
        database->Close();
    }

    /// Changes the closed file's pages below every check.
    template <typename Edit>
    void Damage(Edit&& edit) {
        const auto file = PageFile::Open(path_);
        edit(*file, Catalog(*file).FindTable("Rader")->page);
        file->SaveAs(path_);
    }

    static constexpr int kRows = 400;
    ScratchFolder folder_;
    fs::path path_ = folder_ / "file.mdb";
};

TEST_F(Wholeness, OfASoundFileIsNotInDoubt) {
    const auto database = Database::Open(path_);
    EXPECT_FALSE(database->LostPart());
    EXPECT_FALSE(database->ReadOnly());
}

TEST_F(Wholeness, AWrongRowCountIsToldAndReadOnly) {
    Damage([](PageFile& file, std::uint32_t page) {
        PutU32(file.EditPage(page), file.Format().tdefRowCount, kRows + 7);
    });
    const auto database = Database::Open(path_);
    ASSERT_TRUE(database->LostPart());
    EXPECT_EQ(database->LostPart()->rowsFound, 400U);
    EXPECT_EQ(database->LostPart()->rowsStated, 407U);
    EXPECT_TRUE(database->ReadOnly());
    EXPECT_THAT(database->Verify(), testing::Contains(testing::HasSubstr("says it has 407 rows")));
}

TEST_F(Wholeness, APageOfRowsThatWasWipedIsToldAndReadOnly) {
    Damage([](PageFile& file, std::uint32_t page) {
        const std::uint32_t rows = TableStore(file, page).DataPages().front();
        const ByteSpan bytes = file.EditPage(rows);
        std::fill(bytes.begin(), bytes.end(), std::uint8_t{0});
    });
    const auto database = Database::Open(path_);
    ASSERT_TRUE(database->LostPart());
    EXPECT_LT(database->LostPart()->rowsFound, 400U);
    EXPECT_EQ(database->LostPart()->rowsStated, 400U);
    EXPECT_GT(database->OpenRecordSet("Rader")->RecordCount(), 0);
}

TEST_F(Wholeness, ARestOfAPageAtTheEndIsToldAndReadOnly) {
    const std::string bytes = jettest::ReadText(path_);
    jettest::WriteText(path_, bytes.substr(0, bytes.size() - 1000));
    const auto database = Database::Open(path_);
    ASSERT_TRUE(database->LostPart());
    EXPECT_THAT(database->LostPart()->what, testing::HasSubstr("3096 bytes into a page"));
    EXPECT_THAT(database->Verify(), testing::Contains(testing::HasSubstr("bytes into a page")));
}

TEST_F(Wholeness, AnEmptiedCatalogIsDamagedAndNotAFileWithoutTables) {
    Damage([](PageFile& file, std::uint32_t) {
        TableStore objects(file, kSystemObjectsPage);
        std::vector<std::uint32_t> rows;
        objects.Scan([&](RowPointer where, const RowView&) { rows.push_back(where.Packed()); });
        objects.Delete(rows);
    });
    const auto database = Database::Open(path_);
    EXPECT_TRUE(database->LostPart());
    EXPECT_EQ(FailureOf([&] { database->OpenRecordSet("Rader"); }), ErrorNumber::NotADatabase);
    EXPECT_THAT(database->Verify(), testing::Contains(testing::HasSubstr("it was emptied")));
}

TEST_F(Wholeness, ATextColumnLongerThanTheFormatAllowsIsAFault) {
    const auto file =
        PageFile::FromImage(jettest::ImageOf(jettest::ReadText(jettest::Sample("liten"))));
    const std::uint32_t page = Catalog(*file).FindTable("PLOTTDATA")->page;
    const Layout& layout = file->Format();
    const TableDef def = ReadTableDef(*file, page);
    // The descriptors come right behind the header and the counts of the indexes, a text first.
    ASSERT_EQ(def.columns.front().Type(), ColumnType::Text);
    const std::size_t column = layout.tdefHeader + layout.indexCountsSize * def.realIndexes.size();
    PutU16(file->EditPage(page), column + layout.columnLength, 1024);
    EXPECT_THAT(Verify(*file).faults,
                testing::Contains(testing::HasSubstr("longer than the format allows")));
}

/// Gives the first row the stored memo of the second, as where lost pages were given out again.
void PointToOther(PageFile& file, std::uint32_t page, int from, int to) {
    constexpr std::size_t kPlaceInDescriptor = 4, kDescriptorSize = 12;
    const TableStore table(file, page);
    std::vector<RowPointer> rows;
    table.Scan([&](RowPointer where, const RowView&) { rows.push_back(where); });
    const auto rawOf = [&](int row) {
        const ByteView raw =
            table.Read(rows[static_cast<std::size_t>(row)]).Raw(table.Def().columns[1]);
        return std::vector<std::uint8_t>(raw.begin(), raw.end());
    };
    const std::vector<std::uint8_t> mine = rawOf(from), other = rawOf(to);
    ASSERT_EQ(mine.size(), kDescriptorSize);
    const ByteSpan row = EditRowAt(file, rows[static_cast<std::size_t>(from)]);
    const auto at = std::search(row.begin(), row.end(), mine.begin(), mine.end());
    ASSERT_NE(at, row.end());
    std::copy(other.begin() + kPlaceInDescriptor, other.end(), at + kPlaceInDescriptor);
}

TEST_F(Wholeness, ALongValueThatBecameAnothersIsAnError) {
    Damage([](PageFile& file, std::uint32_t page) { PointToOther(file, page, 0, 1); });
    const auto database = Database::Open(path_);
    const auto rows = database->OpenRecordSet("Rader");
    EXPECT_EQ(FailureOf([&] { rows->At(0, 1); }), ErrorNumber::NotADatabase);
    EXPECT_EQ(rows->At(1, 1).Text().size(), 101U);
    EXPECT_THAT(database->Verify(), testing::Not(testing::IsEmpty()));
}

TEST_F(Wholeness, NoWriteGoesIntoATableWithALongValueThatTwoRowsShare) {
    Damage([](PageFile& file, std::uint32_t page) { PointToOther(file, page, 0, 5); });
    const auto database = Database::Open(path_);
    const auto rows = database->OpenRecordSet("Rader");
    rows->Edit();
    rows->Set("Not", std::string(3000, 'b'));
    EXPECT_EQ(FailureOf([&] { rows->Update(); }), ErrorNumber::NotADatabase);
    EXPECT_EQ(rows->At(5, 1).Text(), std::string(100, 'a'));
}

TEST_F(Wholeness, ADeletedPieceOfALongValueIsAnError) {
    Damage([](PageFile& file, std::uint32_t page) {
        const TableStore table(file, page);
        std::vector<RowPointer> pieces;
        table.Scan([&](RowPointer, const RowView& row) {
            pieces = PiecesOf(file, row.Raw(table.Def().columns[1]));
            return false;
        });
        DeleteRow(file, pieces.front());
    });
    const auto rows = Database::Open(path_)->OpenRecordSet("Rader");
    EXPECT_EQ(FailureOf([&] { rows->At(0, 1); }), ErrorNumber::NotADatabase);
}

}  // namespace
}  // namespace jet::test
