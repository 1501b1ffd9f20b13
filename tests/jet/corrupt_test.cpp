// Damaged files: whatever the bytes are, the engine answers with Error or with what it could read,
// and a failed change leaves the rest as it was. Run under the sanitizers, which see what does not
// crash by itself.

#include "jet/error.h"
#include "jet/index/tableindexes.h"
#include "jet/query/engine.h"
#include "jet/query/queryplan.h"
#include "jet/table/table.h"
#include "jet/verify/verify.h"
#include "memoryfile.h"

#include <functional>
#include <random>
#include <span>

namespace {

using namespace jet::detail;
using jet::Error;
using jet::ErrorNumber;
using jet::Value;

template <typename Step>
bool Works(Step&& step) {
    try {
        step();
        return true;
    } catch (const Error&) {
        return false;
    }
}

std::optional<RowPointer> FirstRow(const TableStore& table) {
    std::optional<RowPointer> first;
    table.Scan([&](RowPointer where, const RowView&) {
        first = where;
        return false;
    });
    return first;
}

/// Reads all there is, then updates and deletes a row of each table, below the check for soundness.
void UseAll(const std::string& bytes) {
    std::unique_ptr<Engine> engine;
    if (!Works([&] {
            engine = std::make_unique<Engine>(PageFile::FromImage(jettest::ImageOf(bytes)));
        })) {
        return;
    }
    PageFile& file = engine->File();
    Works([&] { Verify(file); });
    for (const CatalogTable& entry : engine->Objects().UserTables()) {
        Works([&] {
            TableStore table(file, entry.page);
            table.Scan([&](RowPointer, const RowView& row) {
                for (const ColumnDef& column : table.Def().columns) {
                    Works([&] { DecodeColumn(file, column, row); });
                }
            });
        });
        Works([&] {
            if (file.ReadOnly()) return;
            TableStore table(file, entry.page);
            TableIndexes indexes(table);
            const auto row = FirstRow(table);
            if (!row) return;
            UndoScope scope(file);
            table.Update(*row, std::vector<std::optional<Value>>(table.Def().columns.size()));
            const std::uint32_t packed = row->Packed();
            indexes.Erase(std::span(&packed, 1));
            table.Delete(*row);
            scope.Commit();
        });
    }
    for (const std::string& query : engine->Objects().QueryNames()) {
        Works([&] { PlanSource(*engine, query); });
    }
}

/// Our own always; other programs' where they are there.
std::vector<std::string> SmallSamples() {
    std::vector<std::string> files;
    for (const char* name :
         {"tom", "liten", "access97", "overflowTestV1997", "overflowTestV2000", "delColTestV1997",
          "indexTestV2000", "queryTestV2000", "testUnicodeCompV2003"}) {
        const jettest::fs::path file = jettest::Sample(name);
        if (!file.empty()) files.push_back(jettest::ReadText(file));
    }
    return files;
}

std::size_t PageSize(const std::string& bytes) {
    return bytes[0x14] == 0 ? 2048 : 4096;
}

TEST(Damage, FlippedBytesAreAnErrorOrReadable) {
    std::mt19937 random(1);
    for (const std::string& sound : SmallSamples()) {
        for (int round = 0; round < 60; ++round) {
            std::string bytes = sound;
            const std::size_t pageSize = PageSize(bytes);
            for (int flip = 0; flip < 4; ++flip) {
                const std::size_t page = 1 + random() % (bytes.size() / pageSize - 1);
                const std::size_t spans[] = {32, 200, 1200, pageSize};
                bytes[page * pageSize + random() % spans[random() % 4]] =
                    static_cast<char>(random());
            }
            UseAll(bytes);
        }
    }
}

TEST(Damage, CutFilesAreAnErrorOrReadable) {
    for (const std::string& sound : SmallSamples()) {
        for (std::size_t part = 0; part <= 24; ++part) {
            UseAll(sound.substr(0, sound.size() * part / 24 + (part % 3)));
        }
    }
}

TEST(Damage, ZeroedPagesAreAnErrorOrReadable) {
    for (const std::string& sound : SmallSamples()) {
        const std::size_t pageSize = PageSize(sound);
        for (std::size_t page = 0; page < sound.size() / pageSize; ++page) {
            std::string bytes = sound;
            std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(page * pageSize), pageSize,
                        '\0');
            UseAll(bytes);
        }
    }
}

TEST(Damage, PagesOutOfPlaceAreAnErrorOrReadable) {
    std::mt19937 random(2);
    for (const std::string& sound : SmallSamples()) {
        const std::size_t pageSize = PageSize(sound), pages = sound.size() / pageSize;
        for (int round = 0; round < 30; ++round) {
            std::string bytes = sound;
            bytes.replace((1 + random() % (pages - 1)) * pageSize, pageSize,
                          sound.substr(random() % pages * pageSize, pageSize));
            UseAll(bytes);
        }
    }
}

TEST(Damage, ATableThatCannotBeReadDoesNotHarmTheUseOfOthers) {
    std::string bytes = jettest::ReadText(jettest::Sample("liten"));
    std::uint32_t page = 0;
    {
        const auto sound = PageFile::FromImage(jettest::ImageOf(bytes));
        page = Catalog(*sound).FindTable("PLOTTDATA")->page;
    }
    bytes[page * std::size_t{4096} + 0x2D] = 99;  // the number of columns
    Engine engine(PageFile::FromImage(jettest::ImageOf(bytes)));
    EXPECT_THROW(engine.Table("PLOTTDATA"), Error);
    EXPECT_THROW(engine.Table("PLOTTDATA"), Error);
    // A failing change looks after all tables in use.
    EXPECT_THROW(engine.Statement([]() -> int {
        throw Error{ErrorNumber::DuplicateKey, "a change that fails"};
    }),
                 Error);
    EXPECT_FALSE(engine.Table("FONDDATA").Rows({}).empty());
}

/// The points of the sample "liten", alone.
class PointsOfAFile : public testing::Test {
  protected:
    PointsOfAFile()
        : file(PageFile::FromImage(jettest::ImageOf(jettest::ReadText(jettest::Sample("liten"))))),
          table(*file, "PLOTTDATA", Catalog(*file).FindTable("PLOTTDATA")->page) {}

    std::size_t RowsOf(std::int32_t holding) {
        const auto& columns = table.Def().columns;
        const auto column = std::find_if(columns.begin(), columns.end(),
                                         [](const ColumnDef& c) { return c.name == "KontoId"; });
        const Criterion criterion(*column, Literal{false, jet::Value(holding).Text()});
        const Condition condition{static_cast<std::size_t>(column - columns.begin()), criterion};
        return table.Rows(std::span(&condition, 1)).size();
    }
    void SpoilAPage() {
        constexpr std::size_t kFreeBytes = 2;
        PutU16(file->EditPage(table.Store().DataPages().front()), kFreeBytes, 1);
    }

    std::unique_ptr<PageFile> file;
    OpenTable table;
};

TEST_F(PointsOfAFile, AreLookedAtOnceWhenTheyAreFirstSearched) {
    RowsOf(1);
    SpoilAPage();
    EXPECT_NO_THROW(table.RequireSoundOnce());
}

TEST_F(PointsOfAFile, AreSearchedAlsoWhenTheyAreUnsound) {
    SpoilAPage();
    EXPECT_GT(RowsOf(1), 0U);
    EXPECT_THROW(table.RequireSoundOnce(), Error);
}

TEST(Damage, ASlotAmongOthersThatLiesAnywhereIsFoundBeforeRowsMove) {
    const auto file = jettest::EmptyFile(kJet4);
    const std::uint32_t page = AllocatePage(*file);
    FormatDataPage(*file, page, 77);
    for (int i = 0; i < 5; ++i) AddRow(*file, page, std::vector<std::uint8_t>(100, 1));
    // The third row's place is moved above the second's; the last row still looks sound by itself.
    const auto second = static_cast<std::uint16_t>(DataPage(*file, page).At(1).start);
    PutU16(file->EditPage(page), kJet4.slots + 2 * 2, static_cast<std::uint16_t>(second + 400));
    PutU16(file->EditPage(page), kJet4.slots + 2 * 3, static_cast<std::uint16_t>(second + 400));
    PutU16(file->EditPage(page), kJet4.slots + 2 * 4, static_cast<std::uint16_t>(second + 300));
    EXPECT_THROW(ReplaceRow(*file, {page, 1}, std::vector<std::uint8_t>(10, 2), 0), Error);
}

TEST(Damage, ARowCountBeyondReasonCostsNoMemory) {
    std::string bytes = jettest::ReadText(jettest::Sample("tom"));
    std::uint32_t page = 0;
    {
        const auto sound = PageFile::FromImage(jettest::ImageOf(bytes));
        page = Catalog(*sound).FindTable("PLOTTDATA")->page;
    }
    for (std::size_t i = 0; i < 4; ++i) bytes[page * std::size_t{4096} + 0x10 + i] = '\xFF';
    Engine engine(PageFile::FromImage(jettest::ImageOf(bytes)));
    EXPECT_TRUE(engine.Table("PLOTTDATA").Rows({}).empty());
}

TEST(Damage, APointerThatLeadsToItselfEnds) {
    const auto file = jettest::EmptyFile(kJet4);
    TableStore table(*file, jettest::AddTable(*file, {{"Nr", jet::ColumnType::Long, 4}}));
    const RowPointer row = table.Insert(std::vector<Value>{std::int32_t{1}});
    std::vector<std::uint8_t> pointer(4, 0);
    PutU32(pointer, 0, row.Packed());
    ReplaceRow(*file, row, pointer, kSlotPointer);
    EXPECT_THROW(table.Read(row), Error);
    EXPECT_THROW(table.Delete(row), Error);
}

TEST(Damage, AChainOfALongValueThatLeadsToItselfEnds) {
    const auto file = jettest::EmptyFile(kJet4);
    TableStore table(*file, jettest::AddTable(*file, {{"Memo", jet::ColumnType::Memo, 0}}));
    const RowPointer row = table.Insert(std::vector<Value>{std::string(5000, 'x')});
    // The descriptor is the row's variable part, behind the two bytes of the column count.
    const RowPointer piece = RowPointer::FromPacked(U32(RowAt(*file, row), 2 + 4));
    PutU32(EditRowAt(*file, piece), 0, piece.Packed());
    PutU32(EditRowAt(*file, row), 2, 20000);
    EXPECT_THROW(table.Field(row, 0), Error);
    table.Delete(row);
    EXPECT_FALSE(table.Exists(row));
}

}  // namespace
