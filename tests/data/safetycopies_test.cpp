#include "fundfile/safetycopies.h"

#include "base/daynumber.h"
#include "fundfile/schema.h"
#include "tests/data/support.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using testdata::NumberOf;
using Names = std::vector<std::string>;

class SafetyCopyTest : public testing::Test {
  protected:
    SafetyCopyTest() { testdata::MakeFundFile(file, 2, 3); }

    std::int32_t Day(const std::string& date) const { return ParseDate(date).value(); }
    void Change(const std::string& name) const {
        FundFile opened = OpenFundFile(file);
        testdata::AddHolding(*opened.database->OpenRecordSet(schema::kHoldingsTable), name);
        CloseFundFile(opened.database);
    }

    testdata::TemporaryFolder folder;
    fs::path file = folder / "a.mdb", copies = folder / "Kopior";
};

TEST_F(SafetyCopyTest, OfTheDayIsTheFileAsItWasFirst) {
    const std::string before = testdata::BytesOf(file);
    MakeCopyOfDay(file, Day("2026-11-22"));
    Change("Ny");
    MakeCopyOfDay(file, Day("2026-11-22"));
    EXPECT_EQ(testdata::NamesIn(copies), Names{"a 2026-11-22.mdb"});
    EXPECT_EQ(testdata::BytesOf(copies / "a 2026-11-22.mdb"), before);
}

TEST_F(SafetyCopyTest, FurtherOnesOfADayAreNumberedAndTheNewestComesFirst) {
    MakeCopyOfDay(file, Day("2026-11-20"));
    MakeCopyOfDay(file, Day("2026-11-22"));
    EXPECT_EQ(MakeFurtherCopy(file, Day("2026-11-22")).name.number, 2);
    EXPECT_EQ(MakeFurtherCopy(file, Day("2026-11-22")).path, copies / "a 2026-11-22 nr 3.mdb");
    Names names;
    for (const SafetyCopy& copy : SafetyCopiesOf(file)) {
        names.push_back(copy.path.filename().string());
    }
    EXPECT_EQ(names, (Names{"a 2026-11-22 nr 3.mdb", "a 2026-11-22 nr 2.mdb", "a 2026-11-22.mdb",
                            "a 2026-11-20.mdb"}));
}

TEST_F(SafetyCopyTest, GoesWhenItIsTooOldAndLeavesOtherFilesAlone) {
    MakeCopyOfDay(file, Day("2020-01-01"));
    MakeFurtherCopy(file, Day("2020-01-01"));
    testdata::WriteText(copies / "a 2020-01-01 min egen.mdb", "mine");
    testdata::WriteText(copies / "b 2020-01-01.mdb", "another's");
    for (int day = 10; day < 20; ++day) {
        MakeCopyOfDay(file, Day("2026-11-" + std::to_string(day)));
        EXPECT_EQ(fs::exists(copies / "a 2020-01-01.mdb"), day < 19) << day;
    }
    EXPECT_FALSE(fs::exists(copies / "a 2020-01-01 nr 2.mdb"));
    EXPECT_TRUE(fs::exists(copies / "a 2020-01-01 min egen.mdb"));
    EXPECT_TRUE(fs::exists(copies / "b 2020-01-01.mdb"));
    EXPECT_EQ(SafetyCopiesOf(file).size(), 10U);
}

TEST_F(SafetyCopyTest, CannotBeMadeWhereAFileHasTheFoldersName) {
    testdata::WriteText(copies, "in the way");
    EXPECT_NE(NumberOf([&] { MakeCopyOfDay(file, Day("2026-11-22")); }), ErrorNumber::None);
    EXPECT_TRUE(SafetyCopiesOf(file).empty());
    EXPECT_EQ(testdata::BytesOf(copies), "in the way");
}

TEST_F(SafetyCopyTest, IsRestoredByteForByte) {
    const std::string before = testdata::BytesOf(file);
    const SafetyCopy copy = MakeFurtherCopy(file, Day("2026-11-22"));
    Change("Ny");
    FundFile opened = OpenFundFile(file);
    RestoreFundFile(*opened.database, copy.path);
    EXPECT_FALSE(opened.database->IsOpen());
    EXPECT_EQ(testdata::BytesOf(file), before);
    opened = OpenFundFile(file);
    EXPECT_EQ(opened.right, WriteRight::Ours);
    CloseFundFile(opened.database);
    EXPECT_EQ(testdata::NamesIn(folder.Path()), (Names{"Kopior", "a.mdb"}));
}

TEST_F(SafetyCopyTest, ThatIsDamagedIsNotRestored) {
    const SafetyCopy copy = MakeFurtherCopy(file, Day("2026-11-22"));
    const std::string bytes = testdata::BytesOf(copy.path);
    for (const std::string& damaged :
         {std::string("no database"), bytes.substr(0, bytes.size() / 2), std::string()}) {
        testdata::WriteText(copy.path, damaged);
        FundFile opened = OpenFundFile(file);
        EXPECT_NE(NumberOf([&] { RestoreFundFile(*opened.database, copy.path); }),
                  ErrorNumber::None);
        EXPECT_TRUE(opened.database->IsOpen());
        EXPECT_EQ(testdata::BytesOf(file), bytes);
        CloseFundFile(opened.database);
    }
}

TEST_F(SafetyCopyTest, DiffersByWhatWasChangedSince) {
    const SafetyCopy copy = MakeFurtherCopy(file, Day("2026-11-22"));
    Change("Ny");
    const auto then = LoadFundFileCopy(copy.path);
    const auto now = LoadFundFileCopy(file);
    EXPECT_EQ(DifferenceOf(ContentOf(*then), ContentOf(*now)),
              (Difference{{"Ny"}, {}, {}, 0, 0, 0}));
    EXPECT_EQ(ContentOf(*then).holdings.size(), 2U);
    EXPECT_EQ(ContentOf(*then).points.size(), 6U);
}

}  // namespace
