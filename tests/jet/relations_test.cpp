// Relations between tables are not followed: what could break one is refused, the rest is allowed.

#include "jet/database.h"
#include "ledger.h"

#include <gmock/gmock.h>

namespace jet::test {
namespace {

class Relations : public testing::TestWithParam<std::string> {
  protected:
    void SetUp() override {
        SKIP_WITHOUT_SAMPLES();
        std::filesystem::copy_file(*Samples() / "mdb-samples" / (GetParam() + ".mdb"), Path());
        std::filesystem::permissions(Path(), std::filesystem::perms::owner_all);
        database = Database::Open(Path());
    }
    std::filesystem::path Path() const { return folder / "file.mdb"; }

    ScratchFolder folder;
    std::shared_ptr<Database> database;
};

TEST_P(Relations, AreShownInTheDesign) {
    int foreign = 0;
    for (const std::string& table : database->TableNames()) {
        for (const IndexDesign& index : database->Describe(table).indexes) foreign += index.foreign;
    }
    EXPECT_GT(foreign, 0);
}

TEST_P(Relations, ForbidADeleteOnTheReferencedSide) {
    int refused = 0;
    for (const char* table : {"Table2", "Table3"}) {
        const auto rows = database->OpenRecordSet(table);
        const std::int32_t before = rows->RecordCount();
        ASSERT_GT(before, 0) << table;
        refused += FailureOf([&] { rows->Delete(); }) == ErrorNumber::RelatedRecords;
        EXPECT_EQ(rows->RecordCount(), before);
    }
    EXPECT_EQ(refused, 2);
    EXPECT_THAT(database->Verify(), testing::IsEmpty());
}

TEST_P(Relations, ForbidAnInsertOnTheReferencingSide) {
    const auto rows = database->OpenRecordSet("Table1");
    rows->AddNew();
    rows->Set("id", 99);
    rows->Set("otherfk1", 1);
    rows->Set("otherfk2", 1);
    EXPECT_EQ(FailureOf([&] { rows->Update(); }), ErrorNumber::RelatedRecords);
}

TEST_P(Relations, ForbidAnotherKeyOnEitherSide) {
    const auto referencing = database->OpenRecordSet("Table1");
    referencing->Edit();
    referencing->Set("otherfk1", 77);
    EXPECT_EQ(FailureOf([&] { referencing->Update(); }), ErrorNumber::RelatedRecords);
    const auto referenced = database->OpenRecordSet("Table2");
    referenced->Edit();
    referenced->Set("id", 77);
    EXPECT_EQ(FailureOf([&] { referenced->Update(); }), ErrorNumber::RelatedRecords);
}

TEST_P(Relations, AllowWhatLeavesTheKeysAlone) {
    const auto referencing = database->OpenRecordSet("Table1");
    referencing->Edit();
    referencing->Set("otherfk1", referencing->Field("otherfk1"));
    referencing->Set("data", "annat");
    referencing->Update();
    EXPECT_EQ(referencing->Field("data").Text(), "annat");
    referencing->Delete();
    const auto referenced = database->OpenRecordSet("Table2");
    referenced->AddNew();
    referenced->Set("id", 500);
    referenced->Update();
    EXPECT_THAT(database->Verify(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Of, Relations, testing::Values("indexTestV1997", "indexTestV2000"),
                         [](const auto& file) { return file.param; });

}  // namespace
}  // namespace jet::test
