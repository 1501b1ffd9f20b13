#include "fundfile/newfiles.h"

#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/schema.h"
#include "fundfile/sources.h"
#include "tests/data/support.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using testdata::NumberOf;
using testdata::OtherCopy;
using Names = std::vector<std::string>;

class NewFilesTest : public testing::Test {
  protected:
    NewFilesTest() {
        jet::Database::Create(templateFile, NewFundFileDesign());
        testdata::MakeFundFile(source, 3, 5);
        file = OpenAndBind(source, {holdings, points}, queries::AllPoints());
        fs::create_directory(out);
    }
    ~NewFilesTest() override { CloseFundFile(file.database); }

    void Save() { SaveCopy(holdings, points.Records(), templateFile, target); }

    testdata::TemporaryFolder folder;
    fs::path templateFile = folder / "Db0.dat", source = folder / "a.mdb", out = folder / "ut";
    fs::path target = out / "kopia.mdb";
    DataSource holdings{"dtaBasData", "BasData"}, points{"dtaPlott", "Plotting"};
    FundFile file;
};

TEST_F(NewFilesTest, ANewFileIsTheTemplate) {
    CreateFundFile(templateFile, target);
    EXPECT_EQ(testdata::BytesOf(target), testdata::BytesOf(templateFile));
    EXPECT_EQ(testdata::NamesIn(out), Names{"kopia.mdb"});
}

TEST_F(NewFilesTest, ANewFileReplacesAnOldOne) {
    testdata::WriteText(target, "old");
    CreateFundFile(templateFile, target);
    EXPECT_EQ(testdata::BytesOf(target), testdata::BytesOf(templateFile));
}

TEST_F(NewFilesTest, ANewFileOfAProtectedTemplateCanBeWritten) {
    fs::permissions(templateFile, fs::perms::owner_read);
    CreateFundFile(templateFile, target);
    EXPECT_NE(fs::status(target).permissions() & fs::perms::owner_write, fs::perms::none);
}

TEST_F(NewFilesTest, WithoutATemplateNothingIsMade) {
    fs::remove(templateFile);
    EXPECT_EQ(NumberOf([&] { CreateFundFile(templateFile, target); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(NumberOf([&] { Save(); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(testdata::NamesIn(out), Names{});
}

TEST_F(NewFilesTest, WithoutAFolderNothingIsMade) {
    fs::remove(out);
    EXPECT_EQ(NumberOf([&] { CreateFundFile(templateFile, target); }), ErrorNumber::PathNotFound);
    EXPECT_EQ(NumberOf([&] { Save(); }), ErrorNumber::PathNotFound);
}

TEST_F(NewFilesTest, AFolderIsNotReplacedByAFile) {
    fs::create_directory(target);
    EXPECT_EQ(NumberOf([&] { CreateFundFile(templateFile, target); }),
              ErrorNumber::PermissionDenied);
    EXPECT_TRUE(fs::is_directory(target));
    EXPECT_EQ(testdata::NamesIn(out), Names{"kopia.mdb"});
}

TEST_F(NewFilesTest, AProtectedFolderIsToldAndStaysAsItWas) {
    CloseFundFile(file.database);
    fs::permissions(out, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                             fs::perms::others_exec);
    fs::permissions(folder.Path(),
                    fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
    testdata::Child user(
        [&] {
            const ErrorNumber number = NumberOf([&] { CreateFundFile(templateFile, target); });
            return std::to_string(static_cast<int>(number));
        },
        testdata::Child::As::OrdinaryUser);
    EXPECT_EQ(user.Run(), "70");
    fs::permissions(out, fs::perms::owner_all);
    EXPECT_EQ(testdata::NamesIn(out), Names{});
}

TEST_F(NewFilesTest, TheOpenFileIsNeverReplaced) {
    EXPECT_EQ(NumberOf([&] { CreateFundFile(templateFile, source); }), ErrorNumber::FileInUse);
    EXPECT_EQ(NumberOf([&] { SaveCopy(holdings, points.Records(), templateFile, source); }),
              ErrorNumber::FileInUse);
    EXPECT_EQ(holdings.RecordCount(), 3);
    EXPECT_EQ(testdata::MdbExport(source, "FONDDATA").size(), 3U);
}

TEST_F(NewFilesTest, AFileThatAnotherCopyHasOpenIsNotReplaced) {
    CreateFundFile(templateFile, target);
    OtherCopy other(target);
    EXPECT_EQ(NumberOf([&] { Save(); }), ErrorNumber::FileInUse);
    EXPECT_EQ(NumberOf([&] { CreateFundFile(templateFile, target); }), ErrorNumber::FileInUse);
}

TEST_F(NewFilesTest, ACopyHoldsTheSameRows) {
    Save();
    EXPECT_EQ(testdata::MdbExport(target, "FONDDATA"), testdata::MdbExport(source, "FONDDATA"));
    EXPECT_EQ(testdata::MdbExport(target, "PLOTTDATA"), testdata::MdbExport(source, "PLOTTDATA"));
    EXPECT_EQ(testdata::NamesIn(out), Names{"kopia.mdb"});
}

TEST_F(NewFilesTest, ACopyIsSoundAndGoesOnCountingIdentities) {
    holdings.MoveTo(1);
    holdings.Delete();  // leaves a gap that the copy keeps
    holdings.Refresh();
    Save();
    FundFile copy = OpenFundFile(target);
    EXPECT_EQ(copy.database->Verify(), Names{});
    const auto records = copy.database->OpenRecordSet(schema::kHoldingsSource);
    records->MoveLast();
    EXPECT_EQ(records->Field(0).Integer(), 3);
    testdata::AddHolding(*records, "Ny");
    EXPECT_EQ(records->Field(0).Integer(), 4);
    CloseFundFile(copy.database);
}

TEST_F(NewFilesTest, TheSavedValuesAreNotCopied) {
    holdings.Edit();
    holdings.Set(schema::holding::kSparadeVarden, "2023-05-04¶1¶2¶3¶");
    holdings.Update();
    Save();
    FundFile copy = OpenFundFile(target);
    EXPECT_EQ(copy.database->OpenRecordSet("FONDDATA")->Field("SparadeVärden").Text(), "x");
    CloseFundFile(copy.database);
    EXPECT_EQ(holdings.Field("SparadeVärden").Text(), "2023-05-04¶1¶2¶3¶");
}

TEST_F(NewFilesTest, SavingACopyMovesNoCurrentRow) {
    holdings.MoveTo(2);
    points.MoveTo(7);
    Save();
    EXPECT_EQ(holdings.Position(), 2);
    EXPECT_EQ(points.Position(), 7);
    EXPECT_TRUE(file.database->IsOpen());
}

TEST_F(NewFilesTest, ASecondNameOfTheOpenFileIsNeverReplaced) {
    fs::create_hard_link(source, out / "andra.mdb");
    EXPECT_EQ(
        NumberOf([&] { SaveCopy(holdings, points.Records(), templateFile, out / "andra.mdb"); }),
        ErrorNumber::FileInUse);
}

TEST_F(NewFilesTest, AnotherFileTakesThePlaceOfTheOpenOne) {
    CreateFundFile(templateFile, target);
    const std::shared_ptr<jet::Database> former = file.database;
    const FundFile other =
        OpenInPlaceOf(file.database, target, {holdings, points}, queries::AllPoints());
    EXPECT_FALSE(former->IsOpen());
    EXPECT_EQ(file.database, nullptr);
    EXPECT_EQ(holdings.RecordCount(), 0);
    EXPECT_FALSE(fs::exists(LockPath(source)));
    file = other;
}

TEST_F(NewFilesTest, AFileThatCannotBeOpenedLeavesTheOpenOneAsItWas) {
    testdata::WriteText(target, "no database");
    holdings.MoveTo(1);
    EXPECT_EQ(NumberOf([&] {
                  OpenInPlaceOf(file.database, target, {holdings, points}, queries::AllPoints());
              }),
              ErrorNumber::ForeignFormat);
    ASSERT_NE(file.database, nullptr);
    EXPECT_TRUE(file.database->IsOpen());
    EXPECT_EQ(holdings.Position(), 1);
    EXPECT_EQ(points.RecordCount(), 15);
    EXPECT_TRUE(fs::exists(LockPath(source)));
}

TEST_F(NewFilesTest, TheOpenFileIsReadAnewWhenItIsOpenedOnceMore) {
    CreateFundFile(templateFile, target);
    fs::copy_file(target, source, fs::copy_options::overwrite_existing);  // by another program
    const FundFile again =
        OpenInPlaceOf(file.database, source, {holdings, points}, queries::AllPoints());
    EXPECT_EQ(holdings.RecordCount(), 0);
    EXPECT_EQ(again.right, WriteRight::Ours);
    file = again;
}

TEST_F(NewFilesTest, AnOpenFileThatIsDamagedMeanwhileIsLetGo) {
    testdata::WriteText(source, "no database any more");
    EXPECT_EQ(NumberOf([&] {
                  OpenInPlaceOf(file.database, source, {holdings, points}, queries::AllPoints());
              }),
              ErrorNumber::ForeignFormat);
    EXPECT_EQ(file.database, nullptr);
    EXPECT_FALSE(holdings.IsAttached());
    EXPECT_FALSE(points.IsAttached());
}

TEST_F(NewFilesTest, AnEmptyFileIsCopiedToo) {
    CloseFundFile(file.database);
    fs::copy_file(templateFile, folder / "tom.mdb");
    file = OpenAndBind(folder / "tom.mdb", {holdings, points}, queries::AllPoints());
    Save();
    EXPECT_EQ(testdata::MdbExport(target, "FONDDATA").size(), 0U);
    EXPECT_EQ(testdata::MdbExport(target, "PLOTTDATA").size(), 0U);
}

TEST_F(NewFilesTest, AFailingCopyLeavesTheOldFileWhole) {
    testdata::WriteText(target, "what the user had there");
    std::vector<jet::TableDesign> narrow = NewFundFileDesign();
    narrow[0].columns[schema::holding::kFond].size = 2;  // "Fond 1" does not fit
    fs::remove(templateFile);
    jet::Database::Create(templateFile, narrow);
    EXPECT_EQ(NumberOf([&] { Save(); }), ErrorNumber::FieldTooLong);
    EXPECT_EQ(testdata::BytesOf(target), "what the user had there");
    EXPECT_EQ(testdata::NamesIn(out), Names{"kopia.mdb"});
}

/// Files that other engines wrote come out of a copy with the same content.
class CopyOfSample : public testing::TestWithParam<std::string> {};

TEST_P(CopyOfSample, HoldsTheSamePointsAndHoldings) {
    const testdata::TemporaryFolder folder;
    const fs::path source = folder / "a.mdb", target = folder / "b.mdb";
    fs::copy_file(samplefiles::FundFile(GetParam()), source);
    fs::permissions(source, fs::perms::owner_all);
    jet::Database::Create(folder / "Db0.dat", NewFundFileDesign());
    DataSource holdings("dtaBasData", "BasData"), points("dtaPlott", "Plotting");
    FundFile file = OpenAndBind(source, {holdings, points}, queries::AllPoints());
    SaveCopy(holdings, points.Records(), folder / "Db0.dat", target);
    std::vector<HoldingRow> before = ReadHoldings(holdings);
    CloseFundFile(file.database);
    file = OpenAndBind(target, {holdings, points}, queries::AllPoints());
    std::vector<HoldingRow> after = ReadHoldings(holdings);
    std::sort(before.begin(), before.end(),
              [](const auto& a, const auto& b) { return a.kontoId < b.kontoId; });
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t row = 0; row < after.size(); ++row) {
        before[row].sparadeVarden = "x";
        EXPECT_EQ(after[row], before[row]) << after[row].fond;
    }
    EXPECT_EQ(file.database->Verify(), Names{});
    CloseFundFile(file.database);
    std::vector<std::string> rows = testdata::MdbExport(source, "PLOTTDATA");
    std::vector<std::string> copied = testdata::MdbExport(target, "PLOTTDATA");
    std::sort(rows.begin(), rows.end());
    std::sort(copied.begin(), copied.end());
    EXPECT_EQ(copied, rows);
}

INSTANTIATE_TEST_SUITE_P(All, CopyOfSample,
                         testing::Values("liten", "konton", "utan_index", "raderad", "valuta",
                                         "tom", "svensk", "textindex", "access97"),
                         [](const auto& file) { return file.param; });

}  // namespace
