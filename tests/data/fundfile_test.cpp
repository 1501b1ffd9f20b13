#include "fundfile/fundfile.h"

#include "base/number.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/schema.h"
#include "fundfile/sources.h"
#include "fundfile/texts.h"
#include "tests/data/support.h"

#include <QFile>
#include <QString>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;
using testdata::NumberOf;
using testdata::OtherCopy;

class FundFileTest : public testing::Test {
  protected:
    FundFileTest() { testdata::MakeFundFile(path, 2, 3); }
    ~FundFileTest() override { CloseFundFile(file.database); }

    void Open() { file = OpenFundFile(path); }
    fs::path Lock() const { return fs::path(path) += ".lock"; }
    void EditFirstHolding() const {
        const auto records = file.database->OpenRecordSet(schema::kHoldingsTable);
        records->Edit();
        records->Set("Procent", "9 %");
        records->Update();
    }

    testdata::TemporaryFolder folder;
    fs::path path = folder / "fonder.mdb";
    FundFile file;
};

TEST_F(FundFileTest, OpensUnderTheNamesTheProgramUses) {
    Open();
    EXPECT_EQ(file.right, WriteRight::Ours);
    EXPECT_EQ(file.database->OpenRecordSet("FR_FONDDATA")->RecordCount(), 2);
    EXPECT_EQ(file.database->OpenRecordSet(queries::AllPoints())->RecordCount(), 6);
}

TEST_F(FundFileTest, OpenedTwiceIsOneFile) {
    Open();
    const FundFile again = OpenFundFile(path);
    EXPECT_EQ(again.database.get(), file.database.get());
    EXPECT_EQ(again.right, WriteRight::Ours);
}

TEST_F(FundFileTest, ALinkLeadsToTheSameFileAndLock) {
    fs::create_symlink(path, folder / "lank.mdb");
    Open();
    EXPECT_EQ(OpenFundFile(folder / "lank.mdb").database.get(), file.database.get());
    EXPECT_FALSE(fs::exists(folder / "lank.mdb.lock"));
}

TEST_F(FundFileTest, CloseEndsTheUseForEverybodyAndRemovesTheLock) {
    Open();
    const std::shared_ptr<jet::Database> other = OpenFundFile(path).database;
    EXPECT_TRUE(fs::exists(Lock()));
    CloseFundFile(file.database);
    EXPECT_EQ(file.database, nullptr);
    EXPECT_FALSE(other->IsOpen());
    EXPECT_FALSE(fs::exists(Lock()));
    Open();
    EXPECT_EQ(file.right, WriteRight::Ours);
}

TEST_F(FundFileTest, LettingGoOfTheLastUseRemovesTheLock) {
    Open();
    file = {};
    EXPECT_FALSE(fs::exists(Lock()));
}

TEST_F(FundFileTest, ADatabaseClosedDirectlyDoesNotLockItselfOut) {
    Open();
    const std::shared_ptr<jet::Database> closed = file.database;
    closed->Close();
    Open();
    EXPECT_EQ(file.right, WriteRight::Ours);
    EXPECT_TRUE(file.database->IsOpen());
}

TEST_F(FundFileTest, ClosingNothingIsAllowed) {
    std::shared_ptr<jet::Database> none;
    CloseFundFile(none);
    EXPECT_EQ(none, nullptr);
}

TEST_F(FundFileTest, ASecondCopyIsToldAndReadsOnly) {
    testdata::Child second([this] {
        const FundFile mine = OpenFundFile(path);
        const auto records = mine.database->OpenRecordSet(schema::kHoldingsTable);
        const std::string rows = PlainText(records->RecordCount());
        const ErrorNumber edit = NumberOf([&] {
            records->Edit();
            records->Set("Procent", "9 %");
            records->Update();
        });
        return PlainText(static_cast<std::int32_t>(mine.right)) + " " + rows + " " +
               PlainText(static_cast<std::int32_t>(edit));
    });
    Open();
    EXPECT_EQ(second.Run(), "1 2 3027");  // OtherCopy, both rows, ReadOnly
    EditFirstHolding();                   // the first copy goes on
}

TEST_F(FundFileTest, TheFirstCopyOfTwoKeepsTheRightToWrite) {
    OtherCopy other(path);
    EXPECT_EQ(other.Right(), WriteRight::Ours);
    Open();
    EXPECT_EQ(file.right, WriteRight::OtherCopy);
    EXPECT_TRUE(file.database->ReadOnly());
    EXPECT_EQ(NumberOf([&] { EditFirstHolding(); }), ErrorNumber::ReadOnly);
}

TEST_F(FundFileTest, TheTextSaysWhichProcessHasTheFile) {
    OtherCopy other(path);
    Open();
    EXPECT_NE(file.owner.find("process " + PlainText(std::int32_t{other.Process()})),
              std::string::npos)
        << file.owner;
    EXPECT_NE(fundtexts::Explain(file).find(file.owner), std::string::npos);
}

TEST_F(FundFileTest, TheRightComesBackWhenTheOtherCopyCloses) {
    OtherCopy other(path);
    Open();
    CloseFundFile(file.database);
    other.Close();
    Open();
    EXPECT_EQ(file.right, WriteRight::Ours);
    EditFirstHolding();
}

TEST_F(FundFileTest, TheLockOfADeadCopyIsIgnored) {
    OtherCopy other(path);
    other.Die();
    ASSERT_TRUE(fs::exists(Lock())) << "the dead copy should have left its lock";
    Open();
    EXPECT_EQ(file.right, WriteRight::Ours);
}

TEST_F(FundFileTest, AnOldEmptyLockIsIgnored) {
    testdata::WriteText(Lock(), "");
    fs::last_write_time(Lock(), fs::file_time_type::clock::now() - std::chrono::minutes(1));
    Open();
    EXPECT_EQ(file.right, WriteRight::Ours);
}

TEST_F(FundFileTest, ALockThatIsJustBeingWrittenIsRespected) {
    testdata::WriteText(Lock(), "");
    Open();
    EXPECT_EQ(file.right, WriteRight::OtherCopy);
    EXPECT_EQ(file.owner, "");
}

TEST_F(FundFileTest, TwoNamesOfAFileAreOneFile) {
    const fs::path second = folder / "andra.mdb";
    fs::create_hard_link(path, second);
    Open();
    const FundFile again = OpenFundFile(second);
    EXPECT_EQ(again.database.get(), file.database.get());
    EXPECT_EQ(again.right, WriteRight::Ours);
    EXPECT_FALSE(fs::exists(LockPath(second))) << "one file has one lock";
    EXPECT_EQ(NumberOf([&] { CheckNotInUse(second); }), ErrorNumber::FileInUse);
    EXPECT_EQ(NumberOf([&] { DeleteFundFile(second); }), ErrorNumber::FileInUse);
    EXPECT_TRUE(fs::exists(second));
}

TEST_F(FundFileTest, AFolderWhereTheLockShouldStandIsToldAsThat) {
    fs::create_directory(Lock());
    fs::last_write_time(Lock(), fs::file_time_type::clock::now() - std::chrono::minutes(1));
    Open();
    EXPECT_EQ(file.right, WriteRight::FolderAtLock);
    EXPECT_TRUE(file.database->ReadOnly());
    EXPECT_TRUE(fs::is_directory(Lock()));
}

TEST_F(FundFileTest, TheLockOfAnotherComputerNamesItAndCanBeBroken) {
    testdata::WriteText(Lock(), "4711\nkvarnbo\nHALLA\nffffffffffffffffffffffffffffffff\n\n");
    Open();
    EXPECT_EQ(file.right, WriteRight::OtherComputer);
    EXPECT_EQ(file.owner, "dator HALLA");
    EXPECT_NE(fundtexts::Explain(file).find("dator HALLA"), std::string::npos);
    CloseFundFile(file.database);
    EXPECT_EQ(NumberOf([&] { DeleteFundFile(path); }), ErrorNumber::FileInUse);
    BreakLock(path);
    Open();
    EXPECT_EQ(file.right, WriteRight::Ours);
}

TEST_F(FundFileTest, AnotherProgramsLockBesideTheFileIsNamed) {
    Open();
    EXPECT_EQ(file.foreignLock, "");
    CloseFundFile(file.database);
    testdata::WriteText(folder / "fonder.ldb", "theirs");
    Open();
    EXPECT_EQ(file.foreignLock, "fonder.ldb");
    EXPECT_EQ(file.right, WriteRight::Ours) << "it may be left behind";
}

/// What an ordinary user finds: the right, whether the file can be edited,
/// and what lies in the folder afterwards.
std::string FoundByAUser(const fs::path& path) {
    testdata::Child user(
        [path] {
            const FundFile mine = OpenFundFile(path);
            return PlainText(static_cast<std::int32_t>(mine.right)) + " " + mine.owner +
                   (mine.database->ReadOnly() ? "read only" : "writable");
        },
        testdata::Child::As::OrdinaryUser);
    return user.Run();
}

std::string Right(WriteRight right) {
    return PlainText(static_cast<std::int32_t>(right)) + " ";
}

constexpr fs::perms kReadAndEnter =
    fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec;

TEST_F(FundFileTest, ADeadCopysLockInAProtectedFolderIsToldAsThat) {
    OtherCopy other(path);
    other.Die();
    ASSERT_TRUE(fs::exists(Lock()));
    fs::permissions(path, fs::perms::all);
    fs::permissions(folder.Path(), kReadAndEnter);
    EXPECT_EQ(FoundByAUser(path), Right(WriteRight::StaleLock) + "read only");
    fs::permissions(folder.Path(), fs::perms::owner_all);
}

TEST_F(FundFileTest, SomebodyElsesFileInASharedFolderIsReadOnlyFromTheStart) {
    fs::permissions(path, fs::perms::all);
    fs::permissions(folder.Path(), fs::perms::all | fs::perms::sticky_bit);
    EXPECT_EQ(FoundByAUser(path), Right(WriteRight::OthersFile) + "read only");
    EXPECT_FALSE(fs::exists(Lock()));
    fs::permissions(folder.Path(), fs::perms::all);
    EXPECT_EQ(FoundByAUser(path), Right(WriteRight::Ours) + "writable");
}

TEST_F(FundFileTest, AWriteProtectedFileIsReadOnly) {
    fs::permissions(folder.Path(), fs::perms::all);
    fs::permissions(path, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    testdata::Child user(
        [this] {
            const FundFile mine = OpenFundFile(path);
            return PlainText(static_cast<std::int32_t>(mine.right)) + " " +
                   (mine.database->ReadOnly() ? "read only" : "writable") +
                   (fs::exists(Lock()) ? " locked" : " free");
        },
        testdata::Child::As::OrdinaryUser);
    EXPECT_EQ(user.Run(), "2 read only free");
}

TEST_F(FundFileTest, AFileInAProtectedFolderIsReadOnly) {
    fs::permissions(folder.Path(), fs::perms::owner_read | fs::perms::owner_exec |
                                       fs::perms::others_read | fs::perms::others_exec);
    fs::permissions(path, fs::perms::all);
    testdata::Child user(
        [this] {
            const FundFile mine = OpenFundFile(path);
            return PlainText(static_cast<std::int32_t>(mine.right)) + " " +
                   (mine.database->ReadOnly() ? "read only " : "writable ") +
                   PlainText(mine.database->OpenRecordSet("FONDDATA")->RecordCount());
        },
        testdata::Child::As::OrdinaryUser);
    EXPECT_EQ(user.Run(), "3 read only 2");
    fs::permissions(folder.Path(), fs::perms::owner_all);
}

TEST_F(FundFileTest, AMissingFileIsNotFoundAndLeavesNoLock) {
    EXPECT_EQ(NumberOf([&] { OpenFundFile(folder / "saknas.mdb"); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(NumberOf([&] { OpenFundFile(""); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(testdata::NamesIn(folder.Path()), std::vector<std::string>{"fonder.mdb"});
}

TEST_F(FundFileTest, AFileThatCannotBeOpenedStaysFreeForOthers) {
    testdata::WriteText(folder / "text.mdb", "this is no database at all");
    EXPECT_EQ(NumberOf([&] { OpenFundFile(folder / "text.mdb"); }), ErrorNumber::ForeignFormat);
    EXPECT_FALSE(fs::exists(folder / "text.mdb.lock"));
    EXPECT_EQ(testdata::BytesOf(folder / "text.mdb"), "this is no database at all");
}

TEST_F(FundFileTest, ADatabaseWithoutTheTablesIsNoFundFile) {
    const std::vector<jet::TableDesign> design = NewFundFileDesign();
    jet::Database::Create(folder / "halv.mdb", std::span(design).first(1));
    EXPECT_EQ(NumberOf([&] { OpenFundFile(folder / "halv.mdb"); }), ErrorNumber::TableNotFound);
}

TEST_F(FundFileTest, AFileThatWasCutIsReadOnlyAndSaysHowManyRowsAreThere) {
    testdata::MakeFundFile(path, 3, 900);
    const std::string bytes = testdata::BytesOf(path);
    testdata::WriteText(path, bytes.substr(0, bytes.size() / 4096 * 8 / 10 * 4096));
    Open();
    EXPECT_EQ(file.right, WriteRight::Damaged);
    EXPECT_TRUE(file.database->ReadOnly());
    EXPECT_EQ(file.loss.rowsStated, 2703U);
    EXPECT_LT(file.loss.rowsFound, 2703U);
    EXPECT_GT(file.loss.rowsFound, 1000U);
    EXPECT_EQ(fundtexts::Explain(file),
              "Filen är avklippt eller skadad. " +
                  PlainText(static_cast<std::int64_t>(file.loss.rowsFound)) +
                  " poster finns av 2703.\r\n\r\nDu kan se den men inte ändra något.");
    EXPECT_EQ(NumberOf([&] { EditFirstHolding(); }), ErrorNumber::ReadOnly);
    EXPECT_FALSE(fs::exists(Lock()));
}

TEST_F(FundFileTest, AFileThatLostTheEntryOfATableIsDamagedAndNotAnotherKindOfDatabase) {
    const std::vector<jet::TableDesign> design = NewFundFileDesign();
    jet::Database::Create(path, std::span(design).first(1));
    const std::string bytes = testdata::BytesOf(path);
    testdata::WriteText(path, bytes.substr(0, bytes.size() - 4096));
    EXPECT_EQ(NumberOf([&] { OpenFundFile(path); }), ErrorNumber::NotADatabase);
}

TEST_F(FundFileTest, ATableWithTooFewColumnsIsNoFundFile) {
    std::vector<jet::TableDesign> design = NewFundFileDesign();
    design[0].columns.pop_back();
    jet::Database::Create(folder / "kort.mdb", design);
    EXPECT_EQ(NumberOf([&] { OpenFundFile(folder / "kort.mdb"); }), ErrorNumber::FieldNotFound);
    EXPECT_FALSE(fs::exists(folder / "kort.mdb.lock"));
}

TEST_F(FundFileTest, KontoIdNamesTheFirstColumnWhateverItIsCalled) {
    std::vector<jet::TableDesign> design = NewFundFileDesign();
    design[0].columns[0].name = "Id";
    design[0].indexes[0].columns[0].name = "Id";
    jet::Database::Create(folder / "id.mdb", design);
    FundFile other = OpenFundFile(folder / "id.mdb");
    const auto records = other.database->OpenRecordSet(schema::kHoldingsSource);
    testdata::AddHolding(*records, "Ett");
    testdata::AddHolding(*records, "Två");
    EXPECT_TRUE(records->FindFirst(queries::KontoIdIs(2)));
    EXPECT_EQ(records->Field("KontoId").Integer(), 2);
    EXPECT_EQ(records->Field("Fond").Text(), "Två");
    CloseFundFile(other.database);
}

TEST_F(FundFileTest, ATableOfThatNameIsFrFonddataItself) {
    std::vector<jet::TableDesign> design = NewFundFileDesign();
    design.push_back(design[0]);
    design[2].name = "FR_FONDDATA";
    jet::Database::Create(folder / "fr.mdb", design);
    FundFile other = OpenFundFile(folder / "fr.mdb");
    testdata::AddHolding(*other.database->OpenRecordSet("FR_FONDDATA"), "Egen");
    EXPECT_EQ(other.database->OpenRecordSet("FR_FONDDATA")->RecordCount(), 1);
    EXPECT_EQ(other.database->OpenRecordSet("FONDDATA")->RecordCount(), 0);
    CloseFundFile(other.database);
}

TEST_F(FundFileTest, DeletingAFileRemovesItAndItsLock) {
    DeleteFundFile(path);
    EXPECT_TRUE(testdata::NamesIn(folder.Path()).empty());
}

TEST_F(FundFileTest, TheOpenFileIsNotDeleted) {
    Open();
    EXPECT_EQ(NumberOf([&] { DeleteFundFile(path); }), ErrorNumber::FileInUse);
    EXPECT_TRUE(fs::exists(path));
}

TEST_F(FundFileTest, AFileThatAnotherCopyHasOpenIsNotDeleted) {
    OtherCopy other(path);
    EXPECT_EQ(NumberOf([&] { DeleteFundFile(path); }), ErrorNumber::FileInUse);
    EXPECT_TRUE(fs::exists(path));
    other.Close();
    DeleteFundFile(path);
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(FundFileTest, AMissingFileOrAFolderIsNotDeleted) {
    EXPECT_EQ(NumberOf([&] { DeleteFundFile(""); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(NumberOf([&] { DeleteFundFile(folder / "saknas.mdb"); }), ErrorNumber::FileNotFound);
    fs::create_directory(folder / "mapp");
    EXPECT_EQ(NumberOf([&] { DeleteFundFile(folder / "mapp"); }), ErrorNumber::PermissionDenied);
    EXPECT_TRUE(fs::exists(folder / "mapp"));
}

TEST(FundFileDesign, KeepsEveryDigitThatCanBeTyped) {
    const testdata::TemporaryFolder folder;
    jet::Database::Create(folder / "ny.mdb", NewFundFileDesign());
    FundFile file = OpenFundFile(folder / "ny.mdb");
    const auto records = file.database->OpenRecordSet(schema::kHoldingsSource);
    const std::string longName(255, 'o');
    std::string manyCurves;
    for (std::int32_t kontoId = 1; kontoId <= 300; ++kontoId) {
        manyCurves += PlainText(kontoId) + ".";
    }
    records->AddNew();
    records->Set("Fond", longName);
    records->Set("Fondandelar", "123456789,1234");
    records->Set("KursKr", "98765,4321");
    records->Set("Andel%", "12,75");
    records->Set("Skala", manyCurves + "/15/-10");
    records->Update();
    CloseFundFile(file.database);
    file = OpenFundFile(folder / "ny.mdb");
    const auto stored = file.database->OpenRecordSet(schema::kHoldingsSource);
    EXPECT_EQ(stored->Field("Fond").Text(), longName);
    EXPECT_EQ(stored->Field("Fondandelar").Number(), 123456789.1234);
    EXPECT_EQ(stored->Field("KursKr").Number(), 98765.4321);
    EXPECT_EQ(stored->Field("Andel%").Number(), 12.75);
    EXPECT_EQ(stored->Field("Skala").Text(), manyCurves + "/15/-10");
    EXPECT_EQ(file.database->Verify(), std::vector<std::string>{});
    CloseFundFile(file.database);
}

TEST(FundFileDesign, HasTheColumnsInOrderAKeyAndAnIndexOnThePoints) {
    const std::vector<jet::TableDesign> design = NewFundFileDesign();
    ASSERT_EQ(design.size(), 2U);
    const std::vector<std::string> holdings = {
        "KontoId",   "Fond",      "FondNr",       "BokförtDatum",    "Fondandelar",
        "KursKr",    "VärdeKr",   "Andel%",       "Kontoinnehavare", "Kontonummer",
        "Namn",      "PlottFärg", "SenasteDag",   "SenasteKurs",     "Procent",
        "KursVärde", "Skala",     "SparadeVärden"};
    ASSERT_EQ(design[0].columns.size(), holdings.size());
    for (std::size_t i = 0; i < holdings.size(); ++i) {
        EXPECT_EQ(design[0].columns[i].name, holdings[i]);
    }
    EXPECT_TRUE(design[0].columns[0].autonumber);
    EXPECT_TRUE(design[0].indexes[0].primary);
    EXPECT_EQ(design[1].columns[1].name, "XCord");
    EXPECT_EQ(design[1].indexes[0].columns[0].name, "KontoId");
    EXPECT_FALSE(design[1].indexes[0].unique);
}

/// Every fund file for development, written by other engines.
class SampleFundFile : public testing::TestWithParam<std::string> {
  protected:
    void SetUp() override {
        path = folder / (GetParam() + ".mdb");
        fs::copy_file(samplefiles::FundFile(GetParam()), path);
        fs::permissions(path, fs::perms::owner_all);
    }

    testdata::TemporaryFolder folder;
    fs::path path;
    DataSource holdings{"dtaBasData", "BasData"}, points{"dtaPlott", "Plotting"},
        scratch{"dtaSQL", "SQL"};
};

TEST_P(SampleFundFile, OpensWithAllItsHoldingsAndPoints) {
    FundFile file = OpenAndBind(path, {holdings, points}, queries::AllPointsAfterOpening());
    EXPECT_EQ(file.right, WriteRight::Ours);
    EXPECT_EQ(holdings.RecordCount(),
              static_cast<std::int32_t>(testdata::MdbExport(path, "FONDDATA").size()));
    std::int32_t read = 0;
    for (; !holdings.Empty() && !holdings.Eof(); holdings.MoveNext()) {
        read += static_cast<std::int32_t>(
            testdata::PointsOf(*file.database, KontoIdOf(holdings)).size());
    }
    EXPECT_EQ(read, points.RecordCount());
    EXPECT_EQ(read, static_cast<std::int32_t>(testdata::MdbExport(path, "PLOTTDATA").size()));
    CloseFundFile(file.database);
}

TEST_P(SampleFundFile, KeepsAStoredPriceThatAnotherReaderSees) {
    FundFile file = OpenAndBind(path, {holdings, points}, queries::AllPoints());
    const std::size_t before = testdata::MdbExport(path, "PLOTTDATA").size();
    const std::int32_t kontoId = holdings.Empty() ? 1 : KontoIdOf(holdings);
    for (const std::int32_t percent : {-7, 12}) {
        StoreDayPoint(*file.database->OpenRecordSet(queries::AllPointsOf(kontoId)),
                      {"246 813", {46100, percent}, kontoId});
    }
    const std::vector<std::string> rows = testdata::MdbExport(path, "PLOTTDATA");
    EXPECT_EQ(rows.size(), before + 1);
    EXPECT_EQ(std::count(rows.begin(), rows.end(), "\"246 813\",46100,12," + PlainText(kontoId)),
              1);
    EXPECT_EQ(file.database->Verify(), std::vector<std::string>{});
    CloseFundFile(file.database);
}

INSTANTIATE_TEST_SUITE_P(All, SampleFundFile,
                         testing::Values("liten", "konton", "utan_index", "raderad", "valuta",
                                         "tom", "svensk", "textindex", "access97"),
                         [](const auto& file) { return file.param; });

TEST(SavedQueryNamedFrFonddata, YieldsTheHoldingsEditableInTableOrder) {
    const testdata::TemporaryFolder folder;
    const fs::path path = folder / "konton.mdb";
    fs::copy_file(samplefiles::FundFile("konton"), path);
    fs::permissions(path, fs::perms::owner_all);
    FundFile file = OpenFundFile(path);
    const auto query = file.database->OpenRecordSet("FR_FONDDATA");
    const auto table = file.database->OpenRecordSet("FONDDATA");
    ASSERT_EQ(query->FieldCount(), schema::holding::kColumnCount);
    for (std::size_t column = 0; column < schema::holding::kColumnCount; ++column) {
        EXPECT_EQ(query->Column(column).name, table->Column(column).name);
        EXPECT_EQ(query->At(3, column), table->At(3, column));
    }
    query->MoveTo(3);
    query->Edit();
    query->Set("Procent", "321 %");
    query->Update();
    CloseFundFile(file.database);
    const std::vector<std::string> rows = testdata::MdbExport(path, "FONDDATA");
    EXPECT_EQ(std::count_if(rows.begin(), rows.end(),
                            [](const std::string& row) {
                                return row.find("\"321 %\"") != std::string::npos;
                            }),
              1);
}

TEST(FundFileTexts, EveryReasonForReadingOnlyHasItsOwnText) {
    const auto text = [](WriteRight right) {
        return fundtexts::Explain(FundFile{nullptr, right, {}});
    };
    EXPECT_EQ(text(WriteRight::Ours), "");
    const std::vector<std::string> texts = {
        text(WriteRight::OtherCopy),       text(WriteRight::FileProtected),
        text(WriteRight::FolderProtected), text(WriteRight::CannotLock),
        text(WriteRight::OtherComputer),   text(WriteRight::StaleLock),
        text(WriteRight::FolderAtLock),    text(WriteRight::OthersFile),
        text(WriteRight::Damaged)};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_FALSE(texts[i].empty());
        EXPECT_EQ(std::count(texts.begin(), texts.end(), texts[i]), 1) << texts[i];
    }
}

TEST(FundFileTexts, FilesThatCannotBeOpenedAreToldApart) {
    const std::vector<ErrorNumber> numbers = {
        ErrorNumber::NotADatabase,   ErrorNumber::Encrypted,         ErrorNumber::PasswordProtected,
        ErrorNumber::NewerFormat,    ErrorNumber::ForeignFormat,     ErrorNumber::FileInUse,
        ErrorNumber::ReadOnly,       ErrorNumber::DiskFull,          ErrorNumber::ChangedByOther,
        ErrorNumber::FileNotFound,   ErrorNumber::CollationUnknown,  ErrorNumber::TableNotFound,
        ErrorNumber::FieldNotFound,  ErrorNumber::PermissionDenied,  ErrorNumber::DeviceIo,
        ErrorNumber::RelatedRecords, ErrorNumber::RelatedRowMissing, ErrorNumber::RequiredField,
        ErrorNumber::ZeroLength,     ErrorNumber::ValidationRule};
    const std::string_view general = fundtexts::Explain(ErrorNumber::SyntaxError);
    for (const ErrorNumber number : numbers) {
        const std::string_view text = fundtexts::Explain(number);
        EXPECT_NE(text, general);
        EXPECT_EQ(
            std::count_if(numbers.begin(), numbers.end(),
                          [&](ErrorNumber other) { return fundtexts::Explain(other) == text; }),
            1)
            << text;
    }
}

}  // namespace
