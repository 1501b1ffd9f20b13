// Enforced relations are followed: a reference must lead to a row, and the rows that refer to a
// changed or deleted one follow it or forbid the change.

#include "jet/catalog/relations.h"

#include "jet/catalog/catalog.h"
#include "jet/database.h"
#include "jet/query/edits.h"
#include "jet/transaction.h"
#include "ledger.h"
#include "memoryfile.h"
#include "relationfile.h"

#include <gmock/gmock.h>

namespace jet::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The values of one column of a table, in its order.
std::vector<std::string> ValuesOf(Database& database, const std::string& table,
                                  std::string_view column) {
    const auto rows = database.OpenRecordSet(table);
    std::vector<std::string> values;
    for (std::int32_t row = 0; row < rows->RecordCount(); ++row) {
        const Value value = rows->At(row, rows->FieldPosition(column));
        values.push_back(value.IsNull() ? "null" : value.Text());
    }
    return values;
}

/// Table1 refers to Table2, whose deletions cascade, and to Table3, whose updates do.
class RelationsOfASample : public testing::TestWithParam<std::string> {
  protected:
    void SetUp() override {
        SKIP_WITHOUT_SAMPLES();
        jettest::CopyInto(folder, *OtherFiles() / "mdb-samples" / (GetParam() + ".mdb"));
        database = Database::Open(folder / (GetParam() + ".mdb"));
    }
    std::shared_ptr<RecordSet> At(const std::string& table, int id) const {
        auto rows = database->OpenRecordSet(table);
        EXPECT_TRUE(rows->FindFirst("id = " + std::to_string(id)));
        return rows;
    }
    ErrorNumber Insert(int id, Value toTable2, Value toTable3) const {
        const auto rows = database->OpenRecordSet("Table1");
        rows->AddNew();
        rows->Set("id", id);
        rows->Set("otherfk1", std::move(toTable2));
        rows->Set("otherfk2", std::move(toTable3));
        return FailureOf([&] { rows->Update(); });
    }
    ErrorNumber Change(const std::string& table, int id, std::string_view column, Value to) const {
        const auto rows = At(table, id);
        rows->Edit();
        rows->Set(column, std::move(to));
        return FailureOf([&] { rows->Update(); });
    }
    std::vector<std::string> Ids(const std::string& table) const {
        return ValuesOf(*database, table, "id");
    }

    ScratchFolder folder;
    std::shared_ptr<Database> database;
};

TEST_P(RelationsOfASample, AreTold) {
    const std::vector<RelationDesign> relations = database->Relations();
    ASSERT_EQ(relations.size(), 2U);
    EXPECT_EQ(
        relations[0],
        (RelationDesign{"Table2Table1", "Table1", {"otherfk1"}, "Table2", {"id"}, false, true}));
    EXPECT_EQ(
        relations[1],
        (RelationDesign{"Table3Table1", "Table1", {"otherfk2"}, "Table3", {"id"}, true, false}));
}

TEST_P(RelationsOfASample, LetInARowThatRefersToRowsThatAreThere) {
    EXPECT_EQ(Insert(50, 2, 12), ErrorNumber::None);
    EXPECT_EQ(Insert(51, Value(), 12), ErrorNumber::None);
    EXPECT_EQ(Insert(52, Value(), Value()), ErrorNumber::None);
    EXPECT_THAT(Ids("Table1"), ElementsAre("0", "1", "2", "3", "50", "51", "52"));
    EXPECT_THAT(database->Verify(), IsEmpty());
}

TEST_P(RelationsOfASample, RefuseARowThatRefersToNothing) {
    EXPECT_EQ(Insert(50, 77, 12), ErrorNumber::RelatedRowMissing);
    EXPECT_EQ(Insert(50, 2, 77), ErrorNumber::RelatedRowMissing);
    EXPECT_EQ(Change("Table1", 3, "otherfk1", 77), ErrorNumber::RelatedRowMissing);
    EXPECT_THAT(ValuesOf(*database, "Table1", "otherfk1"), ElementsAre("0", "1", "1", "2"));
    EXPECT_EQ(Change("Table1", 3, "otherfk1", 0), ErrorNumber::None);
    EXPECT_EQ(Change("Table1", 3, "otherfk2", Value()), ErrorNumber::None);
    EXPECT_THAT(ValuesOf(*database, "Table1", "otherfk1"), ElementsAre("0", "1", "1", "0"));
    EXPECT_THAT(database->Verify(), IsEmpty());
}

TEST_P(RelationsOfASample, TakeTheReferringRowsAlongWhereDeletionsCascade) {
    At("Table2", 1)->Delete();
    EXPECT_THAT(Ids("Table2"), ElementsAre("0", "2"));
    EXPECT_THAT(Ids("Table1"), ElementsAre("0", "3"));
    EXPECT_EQ(database->Execute("DELETE FROM Table2"), 2);
    EXPECT_THAT(Ids("Table1"), IsEmpty());
    EXPECT_THAT(database->Verify(), IsEmpty());
}

TEST_P(RelationsOfASample, RefuseADeletionThatDoesNotCascade) {
    EXPECT_EQ(FailureOf([&] { At("Table3", 11)->Delete(); }), ErrorNumber::RelatedRecords);
    EXPECT_EQ(FailureOf([&] { database->Execute("DELETE FROM Table3"); }),
              ErrorNumber::RelatedRecords);
    EXPECT_THAT(Ids("Table3"), ElementsAre("10", "11", "12", "13"));
    At("Table3", 12)->Delete();  // nothing refers to it
    EXPECT_THAT(Ids("Table3"), ElementsAre("10", "11", "13"));
    EXPECT_THAT(database->Verify(), IsEmpty());
}

TEST_P(RelationsOfASample, ChangeTheReferringRowsWhereUpdatesCascade) {
    EXPECT_EQ(Change("Table3", 11, "id", 99), ErrorNumber::None);
    EXPECT_THAT(ValuesOf(*database, "Table1", "otherfk2"), ElementsAre("10", "99", "99", "13"));
    EXPECT_THAT(database->Verify(), IsEmpty());
}

TEST_P(RelationsOfASample, RefuseAnUpdateThatDoesNotCascade) {
    EXPECT_EQ(Change("Table2", 1, "id", 99), ErrorNumber::RelatedRecords);
    EXPECT_THAT(Ids("Table2"), ElementsAre("0", "1", "2"));
    At("Table1", 3)->Delete();
    EXPECT_EQ(Change("Table2", 2, "id", 99), ErrorNumber::None);  // nothing refers to it any more
    EXPECT_THAT(database->Verify(), IsEmpty());
}

TEST_P(RelationsOfASample, LeaveEverythingAsItWasWhenATransactionIsTakenBack) {
    {
        Transaction transaction(database);
        At("Table2", 1)->Delete();
        EXPECT_EQ(Change("Table3", 10, "id", 98), ErrorNumber::None);
        EXPECT_EQ(Change("Table2", 0, "id", 98), ErrorNumber::RelatedRecords);
        EXPECT_THAT(Ids("Table1"), ElementsAre("0", "3"));
    }
    EXPECT_THAT(Ids("Table1"), ElementsAre("0", "1", "2", "3"));
    EXPECT_THAT(Ids("Table3"), ElementsAre("10", "11", "12", "13"));
    EXPECT_THAT(database->Verify(), IsEmpty());
}

TEST_P(RelationsOfASample, SayWhichRelationItWas) {
    const auto rows = database->OpenRecordSet("Table1");
    rows->AddNew();
    rows->Set("id", 50);
    rows->Set("otherfk1", 77);
    try {
        rows->Update();
        FAIL() << "stored";
    } catch (const Error& error) {
        EXPECT_THAT(error.what(), HasSubstr("Table1 refers to Table2 by 77, which is not there"));
    }
}

INSTANTIATE_TEST_SUITE_P(Of, RelationsOfASample,
                         testing::Values("indexTestV1997", "indexTestV2000"),
                         [](const auto& file) { return file.param; });

/// Fund files in which a saver drew the relation from the points to the holdings.
class RelationOfAFundFile : public testing::TestWithParam<std::string> {
  protected:
    void SetUp() override {
        SKIP_WITHOUT_SAMPLES();
        if (!std::filesystem::exists(*OtherFiles() / "relations"))
            GTEST_SKIP() << "no such samples";
        path = jettest::CopyInto(folder, *OtherFiles() / "relations" / (GetParam() + ".mdb"));
        database = Database::Open(path);
        points = database->OpenRecordSet("PLOTTDATA");
    }
    ErrorNumber AddPoint(int holding) const {
        points->AddNew();
        points->Set("FondNr", "249 995");
        points->Set("XCord", 46200);
        points->Set("YCord", 7);
        points->Set("KontoId", holding);
        return FailureOf([&] { points->Update(); });
    }
    std::size_t RowsOfReader(const std::string& table) const {
        const std::string rows = ReadWith({"mdb-json", path, table});
        return static_cast<std::size_t>(std::count(rows.begin(), rows.end(), '\n'));
    }

    ScratchFolder folder;
    std::filesystem::path path;
    std::shared_ptr<Database> database;
    std::shared_ptr<RecordSet> points;
};

TEST_P(RelationOfAFundFile, TakesAPointOfAHoldingThatIsThere) {
    const std::int32_t before = points->RecordCount();
    EXPECT_EQ(AddPoint(3), ErrorNumber::None);
    EXPECT_EQ(AddPoint(4711), ErrorNumber::RelatedRowMissing);
    points->CancelUpdate();
    EXPECT_EQ(database->OpenRecordSet("PLOTTDATA")->RecordCount(), before + 1);
    EXPECT_THAT(database->Verify(), IsEmpty());
    EXPECT_EQ(RowsOfReader("PLOTTDATA"), static_cast<std::size_t>(before) + 1);
}

TEST_P(RelationOfAFundFile, DeletesAHoldingWithItsPoints) {
    const auto holdings = database->OpenRecordSet("FONDDATA");
    const std::int32_t id = holdings->Field("KontoId").Integer(), all = points->RecordCount();
    const std::string ofThis = "SELECT * FROM PLOTTDATA WHERE KontoId = " + std::to_string(id);
    const std::int32_t own = database->OpenRecordSet(ofThis)->RecordCount();
    ASSERT_GT(own, 0);
    holdings->Delete();
    EXPECT_TRUE(database->OpenRecordSet(ofThis)->Empty());
    EXPECT_EQ(database->OpenRecordSet("PLOTTDATA")->RecordCount(), all - own);
    EXPECT_THAT(database->Verify(), IsEmpty());
    EXPECT_EQ(RowsOfReader("PLOTTDATA"), static_cast<std::size_t>(all - own));
}

INSTANTIATE_TEST_SUITE_P(Of, RelationOfAFundFile, testing::Values("relation", "relation_memo"),
                         [](const auto& file) { return file.param; });

/// Two tables with a number and two references each, related as the test says.
class Related : public testing::Test {
  protected:
    void SetUp() override { CreateRelatable(path_); }

    void Relate(const RelationDesign& relation, Ends ends = Ends::Both) {
        test::Relate(path_, relation, ends);
    }
    Database& Open() {
        if (database_ == nullptr) database_ = Database::Open(path_);
        return *database_;
    }
    ErrorNumber Insert(const std::string& table, Value id, Value one, Value text = {}) {
        const auto rows = Open().OpenRecordSet(table);
        rows->AddNew();
        rows->Set("Id", std::move(id));
        rows->Set("Ref", std::move(one));
        rows->Set("Namn", std::move(text));
        return FailureOf([&] { rows->Update(); });
    }
    ErrorNumber Change(const std::string& table, int id, std::string_view column, Value to) {
        const auto rows = Open().OpenRecordSet(table);
        EXPECT_TRUE(rows->FindFirst("Id = " + std::to_string(id)));
        rows->Edit();
        rows->Set(column, std::move(to));
        return FailureOf([&] { rows->Update(); });
    }
    ErrorNumber Delete(const std::string& table, int id) {
        return FailureOf([&] {
            const std::string sql = "DELETE FROM " + table + " WHERE Id = ";
            Open().Execute(sql + std::to_string(id));
        });
    }
    std::vector<std::string> Values(const std::string& table, std::string_view column) {
        return ValuesOf(Open(), table, column);
    }
    static RelationDesign ToItself(bool cascade) {
        return {"Själv", "A", {"Ref"}, "A", {"Id"}, cascade, cascade};
    }

    ScratchFolder folder_;
    std::filesystem::path path_ = folder_ / "file.mdb";
    std::shared_ptr<Database> database_;
};

TEST_F(Related, ARowMayReferToItself) {
    Relate(ToItself(true));
    EXPECT_EQ(Insert("A", 1, 1), ErrorNumber::None);
    EXPECT_EQ(Insert("A", 2, 1), ErrorNumber::None);
    EXPECT_EQ(Insert("A", 3, 4), ErrorNumber::RelatedRowMissing);
    EXPECT_EQ(Change("A", 1, "Id", 9), ErrorNumber::None);
    EXPECT_THAT(Values("A", "Id"), ElementsAre("2", "9"));
    EXPECT_THAT(Values("A", "Ref"), ElementsAre("9", "9"));
    EXPECT_EQ(Delete("A", 9), ErrorNumber::None);
    EXPECT_THAT(Values("A", "Id"), IsEmpty());
    EXPECT_THAT(Open().Verify(), IsEmpty());
}

TEST_F(Related, AChainOfRowsInOneTableGoesAsAWholeOrNotAtAll) {
    Relate(ToItself(false));
    for (int id = 1; id <= 5; ++id) {
        EXPECT_EQ(Insert("A", id, id == 1 ? Value() : Value(id - 1)), ErrorNumber::None);
    }
    EXPECT_EQ(Delete("A", 2), ErrorNumber::RelatedRecords);
    EXPECT_EQ(Change("A", 2, "Id", 20), ErrorNumber::RelatedRecords);
    EXPECT_EQ(Delete("A", 5), ErrorNumber::None);
    // All of them at once leave nothing that would refer to nothing.
    EXPECT_EQ(Open().Execute("DELETE FROM A"), 4);
    EXPECT_THAT(Open().Verify(), IsEmpty());
}

TEST_F(Related, TwoTablesMayReferToEachOther) {
    Relate({"Fram", "A", {"Ref"}, "B", {"Id"}, true, true});
    Relate({"Åter", "B", {"Ref"}, "A", {"Id"}, true, true});
    EXPECT_EQ(Insert("A", 1, Value()), ErrorNumber::None);
    EXPECT_EQ(Insert("B", 1, 1), ErrorNumber::None);
    EXPECT_EQ(Insert("A", 2, 1), ErrorNumber::None);
    EXPECT_EQ(Change("A", 1, "Ref", 1), ErrorNumber::None);
    EXPECT_EQ(Change("A", 1, "Id", 7), ErrorNumber::None);
    EXPECT_THAT(Values("B", "Ref"), ElementsAre("7"));
    EXPECT_EQ(Delete("A", 7), ErrorNumber::None);
    EXPECT_THAT(Values("A", "Id"), IsEmpty());
    EXPECT_THAT(Values("B", "Id"), IsEmpty());
    EXPECT_THAT(Open().Verify(), IsEmpty());
}

TEST_F(Related, ATextRefersWhateverItsLetterCase) {
    Relate({"Namn", "A", {"Namn"}, "B", {"Namn"}, true, false});
    EXPECT_EQ(Insert("B", 1, Value(), "Åsa"), ErrorNumber::None);
    EXPECT_EQ(Insert("A", 1, Value(), "åSA "), ErrorNumber::None);
    EXPECT_EQ(Insert("A", 2, Value(), "Asa"), ErrorNumber::RelatedRowMissing);
    EXPECT_EQ(Change("B", 1, "Namn", "ÅSA"), ErrorNumber::None);
    EXPECT_THAT(Values("A", "Namn"), ElementsAre("åSA "));
    EXPECT_EQ(Change("B", 1, "Namn", "Örjan"), ErrorNumber::None);
    EXPECT_THAT(Values("A", "Namn"), ElementsAre("Örjan"));
    EXPECT_EQ(Delete("B", 1), ErrorNumber::RelatedRecords);
    EXPECT_THAT(Open().Verify(), IsEmpty());
}

TEST_F(Related, WhatLacksAnIndexAtOneEndIsRefusedBeforeAnythingChanges) {
    for (const Ends ends : {Ends::ReferencingAlone, Ends::ReferencedAlone}) {
        CreateRelatable(path_);
        EXPECT_EQ(Insert("B", 1, Value()), ErrorNumber::None);
        EXPECT_EQ(Insert("A", 1, 1), ErrorNumber::None);
        database_->Close();
        database_.reset();
        Relate({"Halv", "A", {"Ref"}, "B", {"Id"}, true, true}, ends);
        const std::string before = jettest::ReadText(path_);
        EXPECT_EQ(Insert("A", 2, 1), ErrorNumber::NotSupported);
        EXPECT_EQ(Change("A", 1, "Ref", 2), ErrorNumber::NotSupported);
        EXPECT_EQ(Change("B", 1, "Id", 2), ErrorNumber::NotSupported);
        EXPECT_EQ(Delete("B", 1), ErrorNumber::NotSupported);
        EXPECT_EQ(jettest::ReadText(path_), before);
        EXPECT_EQ(Delete("A", 1), ErrorNumber::None);  // breaks nothing
        database_->Close();
        database_.reset();
    }
}

TEST_F(Related, WhatOnlyTheListOfRelationsKnowsIsRefused) {
    ListRelation(path_, {"Lista", "A", {"Ref"}, "B", {"Id"}, false, false});
    EXPECT_EQ(Insert("A", 1, 1), ErrorNumber::NotSupported);
    EXPECT_EQ(Insert("B", 1, Value()), ErrorNumber::None);
    EXPECT_EQ(Delete("B", 1), ErrorNumber::NotSupported);
}

}  // namespace
}  // namespace jet::test
