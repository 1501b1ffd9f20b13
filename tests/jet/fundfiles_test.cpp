// Edits on copies of real fund files: our own reading, our own check, and an independent reader
// must all show what was asked for, and nothing else may have changed.

#include "jet/database.h"
#include "jet/transaction.h"
#include "ledger.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <gmock/gmock.h>
#include <map>
#include <sstream>

namespace jet::test {
namespace {

using testing::IsEmpty;

constexpr std::size_t kKontoId = 0, kFond = 1, kFondNr = 2, kBooked = 3, kPrice = 5, kAccount = 10,
                      kLatest = 13, kPercent = 14;

/// A row as its columns' texts, "" for null.
using Row = std::vector<std::string>;

std::vector<Row> RowsOf(Database& database, std::string_view source) {
    std::vector<Row> rows;
    const auto records = database.OpenRecordSet(source);
    for (; !records->Eof(); records->MoveNext()) {
        Row& row = rows.emplace_back();
        for (std::size_t i = 0; i < records->FieldCount(); ++i)
            row.push_back(records->Field(i).Text());
    }
    return rows;
}

/// One line of mdb-json: a flat object. Strings lose their quotes and escapes.
std::map<std::string, std::string> ParseObject(std::string_view line) {
    std::map<std::string, std::string> object;
    std::size_t at = 1;
    const auto string = [&] {
        std::string text;
        for (++at; line[at] != '"'; ++at) {
            if (line[at] != '\\') {
                text += line[at];
            } else if (line[++at] == 'u') {
                int code = 0;
                std::from_chars(line.data() + at + 1, line.data() + at + 5, code, 16);
                text += static_cast<char>(code);
                at += 4;
            } else {
                text += line[at];
            }
        }
        ++at;
        return text;
    };
    while (at < line.size() && line[at] == '"') {
        const std::string name = string();
        ++at;
        if (line[at] == '"') {
            object[name] = string();
        } else {
            const std::size_t end = line.find_first_of(",}", at);
            object[name] = line.substr(at, end - at);
            at = end;
        }
        ++at;
    }
    return object;
}

std::vector<Row> IndependentRows(const std::filesystem::path& file, const TableDesign& table) {
    std::istringstream output(ReadWith({"mdb-json", "-T", "%Y-%m-%d", file.string(), table.name}));
    std::vector<Row> rows;
    for (std::string line; std::getline(output, line);) {
        const auto object = ParseObject(line);
        Row& row = rows.emplace_back();
        for (const ColumnDesign& column : table.columns) {
            const auto found = object.find(column.name);
            row.push_back(found == object.end() ? "" : found->second);
        }
    }
    return rows;
}

double NumberOf(const std::string& text) {
    double number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

bool IsNumber(ColumnType type) {
    return type != ColumnType::Text && type != ColumnType::Memo && type != ColumnType::Date;
}

// The other reader prints singles with eight digits.
bool SameText(ColumnType type, const std::string& ours, const std::string& theirs) {
    if (!IsNumber(type) || ours.empty() || theirs.empty()) return ours == theirs;
    return std::abs(NumberOf(ours) - NumberOf(theirs)) <= 1e-7 * std::abs(NumberOf(ours));
}

void ExpectSameRows(const TableDesign& table, std::vector<Row> ours, std::vector<Row> theirs,
                    const std::vector<std::size_t>& key) {
    ASSERT_EQ(ours.size(), theirs.size()) << table.name;
    const auto byKey = [&](const Row& one, const Row& other) {
        for (const std::size_t column : key) {
            const double a = NumberOf(one[column]), b = NumberOf(other[column]);
            if (a != b) return a < b;
        }
        return false;
    };
    std::sort(ours.begin(), ours.end(), byKey);
    std::sort(theirs.begin(), theirs.end(), byKey);
    for (std::size_t i = 0; i < ours.size(); ++i) {
        for (std::size_t c = 0; c < table.columns.size(); ++c) {
            ASSERT_TRUE(SameText(table.columns[c].type, ours[i][c], theirs[i][c]))
                << table.name << " row " << i << " " << table.columns[c].name << ": " << ours[i][c]
                << " / " << theirs[i][c];
        }
    }
}

class FundFile : public testing::TestWithParam<std::string> {
  protected:
    void SetUp() override {
        std::filesystem::copy_file(samplefiles::FundFile(GetParam()), Path());
        std::filesystem::permissions(Path(), std::filesystem::perms::owner_all);
        Open();
    }
    void Open() {
        if (database) database->Close();
        database = Database::Open(Path());
        ASSERT_FALSE(database->ReadOnly());
    }
    std::filesystem::path Path() const { return folder / "file.mdb"; }

    std::shared_ptr<RecordSet> Holdings() { return database->OpenRecordSet("FONDDATA"); }
    std::shared_ptr<RecordSet> Points() {
        return database->OpenRecordSet("SELECT* FROM  PLOTTDATA  ORDER BY KontoId,XCord");
    }
    std::int32_t NewHolding() {
        std::int32_t highest = 0;
        for (const auto& [id] : Holdings()->Integers({kKontoId})) highest = std::max(highest, id);
        return highest + 1;
    }

    void AddHolding(std::int32_t id) {
        const auto holdings = Holdings();
        holdings->AddNew();
        holdings->Set(kKontoId, id);
        holdings->Set(kFond, "Åre-fond'n Östra");
        holdings->Set(kFondNr, "249 995");
        holdings->Set(kBooked, "2026-02-25");
        holdings->Set(kPrice, "12,5");
        holdings->Set(kAccount, "PPM Konto");
        holdings->Update();
    }
    void AddPoints(std::int32_t id, std::int32_t count) {
        const auto points = database->OpenRecordSet("PLOTTDATA");
        for (std::int32_t i = 0; i < count; ++i) {
            points->AddNew();
            points->Set(0, "249 995");
            points->Set(1, 46078 + i);
            points->Set(2, i % 50 - 20);
            points->Set(3, id);
            points->Update();
        }
    }

    /// Everything at once: our check, our rows from the disk against `holdings` and `points`,
    /// theirs against ours.
    void ExpectFile(const std::vector<Row>& holdings, const std::vector<Row>& points) {
        EXPECT_THAT(database->Verify(), IsEmpty());
        Open();
        const TableDesign holdingTable = database->Describe("FONDDATA");
        const TableDesign pointTable = database->Describe("PLOTTDATA");
        ExpectSameRows(holdingTable, RowsOf(*database, "FONDDATA"), holdings, {0});
        ExpectSameRows(pointTable, RowsOf(*database, "PLOTTDATA"), points, {3, 1});
        ExpectSameRows(holdingTable, IndependentRows(Path(), holdingTable), holdings, {0});
        ExpectSameRows(pointTable, IndependentRows(Path(), pointTable), points, {3, 1});
        EXPECT_EQ(static_cast<std::size_t>(database->StoredRowCount("FONDDATA")), holdings.size());
        EXPECT_EQ(static_cast<std::size_t>(database->StoredRowCount("PLOTTDATA")), points.size());
        EXPECT_THAT(database->Verify(), IsEmpty());
    }

    ScratchFolder folder;
    std::shared_ptr<Database> database;
};

TEST_P(FundFile, ReadsAsTheOtherReaderDoes) {
    ExpectFile(RowsOf(*database, "FONDDATA"), RowsOf(*database, "PLOTTDATA"));
}

TEST_P(FundFile, TakesANewHoldingWithPoints) {
    const std::int32_t id = NewHolding();
    std::vector<Row> holdings = RowsOf(*database, "FONDDATA");
    std::vector<Row> points = RowsOf(*database, "PLOTTDATA");
    Transaction transaction(database);
    AddHolding(id);
    AddPoints(id, 700);
    transaction.Commit();

    Row row(18);
    row[kKontoId] = std::to_string(id);
    row[kFond] = "Åre-fond'n Östra";
    row[kFondNr] = "249 995";
    row[kBooked] = "2026-02-25";
    row[kPrice] = "12.5";
    row[kAccount] = "PPM Konto";
    holdings.push_back(row);
    for (int i = 0; i < 700; ++i) {
        points.push_back({"249 995", std::to_string(46078 + i), std::to_string(i % 50 - 20),
                          std::to_string(id)});
    }
    ExpectFile(holdings, points);
}

TEST_P(FundFile, TakesLongerTextsAndOtherNumbers) {
    std::vector<Row> holdings = RowsOf(*database, "FONDDATA");
    std::vector<Row> points = RowsOf(*database, "SELECT* FROM  PLOTTDATA  ORDER BY KontoId,XCord");
    const auto records = Holdings();
    for (std::size_t i = 0; i < holdings.size(); ++i, records->MoveNext()) {
        records->Edit();
        records->Set(kLatest, "Senaste : 1234567,89 som är längre");
        records->Set(kPercent, "1000 %");
        records->Set(kPrice, 0.5f);
        records->Update();
        holdings[i][kLatest] = "Senaste : 1234567,89 som är längre";
        holdings[i][kPercent] = "1000 %";
        holdings[i][kPrice] = "0.5";
    }
    Transaction transaction(database);
    const auto series = Points();
    for (std::size_t i = 0; i < points.size() && i < 400; ++i, series->MoveNext()) {
        series->Edit();
        series->Set(2, static_cast<std::int32_t>(i) - 200);
        series->Update();
        points[i][2] = std::to_string(static_cast<int>(i) - 200);
    }
    transaction.Commit();
    ExpectFile(holdings, points);
}

TEST_P(FundFile, MovesPointsToAnotherHolding) {
    std::vector<Row> holdings = RowsOf(*database, "FONDDATA");
    std::vector<Row> points = RowsOf(*database, "SELECT* FROM  PLOTTDATA  ORDER BY KontoId,XCord");
    Transaction transaction(database);
    const auto series = Points();
    for (std::size_t i = 0; i < points.size(); ++i, series->MoveNext()) {
        if (i % 3 != 0) continue;
        series->Edit();
        series->Set(1, static_cast<std::int32_t>(i) + 1);
        series->Set(3, 999);
        series->Update();
        points[i][1] = std::to_string(i + 1);
        points[i][3] = "999";
    }
    transaction.Commit();
    ExpectFile(holdings, points);
}

TEST_P(FundFile, LosesAHoldingWithItsPoints) {
    std::vector<Row> holdings = RowsOf(*database, "FONDDATA");
    std::vector<Row> points = RowsOf(*database, "PLOTTDATA");
    if (holdings.empty()) return ExpectFile(holdings, points);
    const auto records = Holdings();
    records->Move(static_cast<std::int32_t>(holdings.size() / 2));
    const std::string id = records->Field(kKontoId).Text();
    records->Delete();
    const auto sameId = [&](const std::string& text) { return NumberOf(text) == NumberOf(id); };
    std::erase_if(holdings, [&](const Row& row) { return sameId(row[kKontoId]); });
    const std::size_t gone = std::erase_if(points, [&](const Row& row) { return sameId(row[3]); });
    EXPECT_EQ(database->Execute("DELETE *  FROM  PLOTTDATA WHERE KontoId = " + id),
              static_cast<std::int32_t>(gone));
    ExpectFile(holdings, points);
}

TEST_P(FundFile, LosesEveryRow) {
    database->Execute("DELETE FROM PLOTTDATA");
    database->Execute("DELETE FROM FONDDATA");
    ExpectFile({}, {});
}

TEST_P(FundFile, IsAsItWasWhenEverythingIsTakenBack) {
    const std::vector<Row> holdings = RowsOf(*database, "FONDDATA");
    const std::vector<Row> points = RowsOf(*database, "PLOTTDATA");
    {
        const Transaction transaction(database);
        const std::int32_t id = NewHolding();
        AddHolding(id);
        AddPoints(id, 50);
        database->Execute("DELETE FROM FONDDATA");
    }
    EXPECT_EQ(RowsOf(*database, "FONDDATA"), holdings);
    EXPECT_EQ(RowsOf(*database, "PLOTTDATA"), points);
    ExpectFile(holdings, points);
}

INSTANTIATE_TEST_SUITE_P(Of, FundFile,
                         testing::Values("access97", "konton", "liten", "raderad", "svensk",
                                         "textindex", "tom", "utan_index", "valuta"),
                         [](const auto& file) { return file.param; });

TEST(FundFiles, KeepAForeignTableByteForByte) {
    const ScratchFolder folder;
    const std::filesystem::path path = folder / "valuta.mdb";
    std::filesystem::copy_file(samplefiles::FundFile("valuta"), path);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    const std::string before = ReadWith({"mdb-json", path.string(), "Anteckningar"});
    {
        const auto database = Database::Open(path);
        database->Execute("DELETE FROM PLOTTDATA WHERE KontoId = 3");
        const auto holdings = database->OpenRecordSet("FONDDATA");
        holdings->Edit();
        holdings->Set(kAccount, "Ett annat konto");
        holdings->Update();
        EXPECT_THAT(database->Verify(), IsEmpty());
    }
    EXPECT_EQ(ReadWith({"mdb-json", path.string(), "Anteckningar"}), before);
    EXPECT_FALSE(before.empty());
}

TEST(FundFiles, KeepTheirOwnCodePage) {
    const ScratchFolder folder;
    const std::filesystem::path path = folder / "polsk.mdb";
    std::filesystem::copy_file(samplefiles::FundFile("access97"), path);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    {
        // 1252 becomes 1250: the header is masked, so its bytes are turned, not set.
        constexpr std::streamoff kCodePage = 0x3C;
        std::fstream bytes(path, std::ios::in | std::ios::out | std::ios::binary);
        const char turned = static_cast<char>(bytes.seekg(kCodePage).get() ^ 0xE4 ^ 0xE2);
        bytes.seekp(kCodePage).put(turned);
    }
    {
        const auto database = Database::Open(path);
        const auto holdings = database->OpenRecordSet("FONDDATA");
        holdings->Edit();
        holdings->Set(kAccount, "Łódź 97");
        holdings->Update();
        EXPECT_EQ(holdings->Field(kAccount).Text(), "Łódź 97");
        holdings->Edit();
        EXPECT_THROW(
            {
                holdings->Set(kAccount, "Ån");
                holdings->Update();
            },
            Error);
        EXPECT_THAT(database->Verify(), IsEmpty());
    }
    EXPECT_THAT(ReadWith({"env", "MDB_JET3_CHARSET=CP1250", "mdb-json", path.string(), "FONDDATA"}),
                testing::HasSubstr("Łódź 97"));
}

TEST(FundFiles, OpenASavedQueryAsItsTable) {
    const auto database = Database::Open(samplefiles::FundFile("konton"));
    EXPECT_TRUE(database->HasSource("FR_FONDDATA"));
    EXPECT_EQ(RowsOf(*database, "FR_FONDDATA"), RowsOf(*database, "FONDDATA"));
    EXPECT_EQ(RowsOf(*database, "SELECT Namn FROM fr_fonddata WHERE KontoId = 3").size(), 1U);
}

TEST(FundFiles, FindAccountsWithBlanksAndInOtherLetterCase) {
    const auto database = Database::Open(samplefiles::FundFile("valuta"));
    const std::size_t exact =
        RowsOf(*database, "SELECT * FROM FONDDATA WHERE Namn = 'PPM Konto'").size();
    EXPECT_GT(exact, 1U);
    EXPECT_EQ(RowsOf(*database, "SELECT * FROM FONDDATA WHERE namn = 'ppm konto   '").size(),
              exact);
}

}  // namespace
}  // namespace jet::test
