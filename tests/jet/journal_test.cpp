// Steps taken back and done again: byte for byte, in memory and on the disk.

#include "jet/journal.h"

#include "jet/files.h"
#include "jet/transaction.h"
#include "ledger.h"
#include "tests/jet/memoryfile.h"

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <memory>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace jet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Journals : public Ledger {
  protected:
    std::string Bytes() const { return jettest::ReadText(Path()); }
    std::vector<std::string> Days() { return Texts("Punkter", "XCord"); }
    void AddPoints(int count) {
        Transaction together(database);
        for (int i = 0; i < count; ++i) AddPoint(i, i, 1);
        together.Commit();
    }
};

std::string NameOf(const std::optional<JournalNote>& note) {
    return note ? note->name : "none";
}

TEST_F(Journals, KeepNothingUntilTheyAreAskedFor) {
    AddPoint(1, 0, 1);
    Journal journal(database);
    EXPECT_EQ(NameOf(journal.NextUndo()), "none");
    EXPECT_EQ(FailureOf([&] { journal.Undo(); }), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(FailureOf([&] { journal.Redo(); }), ErrorNumber::NoCurrentRecord);
}

TEST_F(Journals, TakeBackTheLastChangeFirstAndDoItAgain) {
    Journal journal(database);
    const std::string none = Bytes();
    AddPoint(1, 0, 1);
    const std::string one = Bytes();
    AddPoint(2, 0, 1);
    const std::string two = Bytes();
    journal.Undo();
    EXPECT_TRUE(Bytes() == one);
    EXPECT_THAT(Days(), ElementsAre("1"));
    journal.Undo();
    EXPECT_TRUE(Bytes() == none);
    EXPECT_THAT(Days(), IsEmpty());
    EXPECT_EQ(NameOf(journal.NextUndo()), "none");
    journal.Redo();
    EXPECT_TRUE(Bytes() == one);
    journal.Redo();
    EXPECT_TRUE(Bytes() == two);
    EXPECT_THAT(Days(), ElementsAre("1", "2"));
    EXPECT_EQ(NameOf(journal.NextRedo()), "none");
}

TEST_F(Journals, GiveBackTheLengthThatTheFileHad) {
    Journal journal(database);
    const std::string before = Bytes();
    AddPoints(3000);
    const std::string after = Bytes();
    ASSERT_GT(after.size(), before.size());
    journal.Undo();
    EXPECT_TRUE(Bytes() == before);
    EXPECT_THAT(database->Verify(), IsEmpty());
    journal.Redo();
    EXPECT_TRUE(Bytes() == after);
    EXPECT_THAT(database->Verify(), IsEmpty());
    journal.Undo();
    // Growing again, over what was cut off.
    AddPoints(2000);
    EXPECT_THAT(database->Verify(), IsEmpty());
    Reopen();
    EXPECT_EQ(Days().size(), 2000U);
    EXPECT_THAT(database->Verify(), IsEmpty());
}

TEST_F(Journals, NameEachStepAndJoinTheStoresBetweenBeginAndEnd) {
    Journal journal(database);
    const std::string before = Bytes();
    journal.Begin({"a holding", "logged"});
    AddHolding(1, "Ett");
    AddPoint(1, 0, 1);
    AddPoints(500);
    journal.End();
    EXPECT_EQ(journal.NextUndo(), (JournalNote{"a holding", "logged"}));
    AddPoint(7, 0, 1);
    EXPECT_EQ(journal.NextUndo(), JournalNote{});
    journal.Undo();
    EXPECT_EQ(NameOf(journal.NextUndo()), "a holding");
    const std::string joined = Bytes();
    journal.Undo();
    EXPECT_TRUE(Bytes() == before);
    EXPECT_EQ(NameOf(journal.NextRedo()), "a holding");
    journal.Redo();
    EXPECT_TRUE(Bytes() == joined);
    EXPECT_THAT(database->Verify(), IsEmpty());
}

TEST_F(Journals, ContinueTheLastStep) {
    Journal journal(database);
    const std::string before = Bytes();
    journal.Begin({"first", ""});
    AddPoint(1, 0, 1);
    journal.End();
    journal.Continue();
    AddPoint(2, 0, 1);
    journal.End();
    AddPoint(3, 0, 1);
    journal.Undo();
    EXPECT_EQ(NameOf(journal.NextUndo()), "first");
    EXPECT_THAT(Days(), ElementsAre("1", "2"));
    journal.Undo();
    EXPECT_TRUE(Bytes() == before);
    journal.Continue();
    AddPoint(4, 0, 1);
    journal.End();
    EXPECT_EQ(NameOf(journal.NextUndo()), "") << "nothing to continue";
}

TEST_F(Journals, LeaveNoStepWhereNothingWasStored) {
    Journal journal(database);
    journal.Begin({"nothing", ""});
    { const Transaction takenBack(database); }
    {
        const Transaction takenBack(database);
        AddPoint(1, 0, 1);
    }
    journal.End();
    EXPECT_EQ(NameOf(journal.NextUndo()), "none");
}

TEST_F(Journals, ForgetWhatWasTakenBackAtTheNextChange) {
    Journal journal(database);
    AddPoint(1, 0, 1);
    journal.Undo();
    AddPoint(2, 0, 1);
    EXPECT_EQ(NameOf(journal.NextRedo()), "none");
    EXPECT_EQ(FailureOf([&] { journal.Redo(); }), ErrorNumber::NoCurrentRecord);
    EXPECT_THAT(Days(), ElementsAre("2"));
}

TEST_F(Journals, RefuseAFileThatAnotherProgramChanged) {
    Journal journal(database);
    AddPoint(1, 0, 1);
    const std::string changed = Bytes() + std::string(4096, 'x');
    jettest::WriteText(Path(), changed);
    EXPECT_EQ(FailureOf([&] { journal.Undo(); }), ErrorNumber::ChangedByOther);
    EXPECT_TRUE(Bytes() == changed);
    EXPECT_THAT(Days(), ElementsAre("1"));
    EXPECT_EQ(NameOf(journal.NextUndo()), "") << "the step is still there";
    EXPECT_EQ(NameOf(journal.NextRedo()), "none");
}

TEST_F(Journals, TakeNothingBackInsideATransaction) {
    Journal journal(database);
    AddPoint(1, 0, 1);
    Transaction open(database);
    EXPECT_EQ(FailureOf([&] { journal.Undo(); }), ErrorNumber::InvalidProcedureCall);
    open.Commit();
    EXPECT_THAT(Days(), ElementsAre("1"));
    journal.Undo();
    EXPECT_THAT(Days(), IsEmpty());
}

TEST_F(Journals, EndWithTheFile) {
    Journal journal(database);
    AddPoint(1, 0, 1);
    database->Close();
    EXPECT_EQ(NameOf(journal.NextUndo()), "none");
    EXPECT_EQ(FailureOf([&] { journal.Undo(); }), ErrorNumber::ObjectClosed);
    journal.End();
    database = Database::Open(Path());
}

TEST_F(Journals, ForgetTheOldestStepsBeyondTheirLimits) {
    Journal journal(database, {.steps = 3, .bytes = 1 << 20});
    for (int day = 1; day <= 5; ++day) AddPoint(day, 0, 1);
    for (int i = 0; i < 3; ++i) journal.Undo();
    EXPECT_EQ(NameOf(journal.NextUndo()), "none");
    EXPECT_THAT(Days(), ElementsAre("1", "2"));
}

TEST_F(Journals, NeverHoldMoreBytesThanTheirLimit) {
    constexpr std::size_t kPage = 4096;
    Journal journal(database, {.steps = 100, .bytes = 2 * kPage});
    AddPoints(3000);
    database->Execute("DELETE FROM Punkter");
    EXPECT_EQ(NameOf(journal.NextUndo()), "none") << "one step alone is too large";
    EXPECT_THAT(database->Verify(), IsEmpty());
}

TEST_F(Journals, HoldFiftyPricesWithinTheOrdinaryLimits) {
    Journal journal(database);
    AddPoints(2000);
    const std::string before = Bytes();
    for (int day = 0; day < 60; ++day) AddPoint(5000 + day, 1, 1);
    for (int day = 0; day < 60; ++day) journal.Undo();
    EXPECT_TRUE(Bytes() == before);
}

TEST_F(Journals, AreOneForAFile) {
    Journal one(database);
    Journal other(database);
    AddPoint(1, 0, 1);
    other.Undo();
    EXPECT_EQ(NameOf(one.NextUndo()), "none");
    EXPECT_EQ(NameOf(one.NextRedo()), "");
}

// ---- Any change ----

/// Random changes of both tables of a ledger.
class RandomChanges : public Journals, public testing::WithParamInterface<unsigned> {
  protected:
    void Change() {
        switch (Upto(6)) {
            case 0:
                return AddHoldingWithText();
            case 1:
                return AddPoints(1 + Upto(400));
            case 2:
                return EditAHolding();
            case 3:
                database->Execute("DELETE FROM Punkter WHERE XCord = " + std::to_string(Upto(400)));
                return;
            case 4:
                return DeleteAHolding();
            default:
                return AddPoint(Upto(400), Upto(100), 1 + Upto(5));
        }
    }
    int Upto(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

  private:
    std::string Text() { return std::string(static_cast<std::size_t>(Upto(9000)), 'a'); }
    void AddHoldingWithText() {
        const auto holdings = Open("Innehav");
        holdings->AddNew();
        holdings->Set("Namn", "Innehav " + std::to_string(Upto(1000)));
        holdings->Set("Text", Text());
        holdings->Update();
    }
    void EditAHolding() {
        const auto holdings = Open("Innehav");
        if (holdings->Empty()) return;
        holdings->MoveTo(Upto(holdings->RecordCount()));
        holdings->Edit();
        holdings->Set("Text", Text());
        holdings->Set("Namn", "Nytt namn");
        holdings->Update();
    }
    void DeleteAHolding() {
        const auto holdings = Open("Innehav");
        if (holdings->Empty()) return;
        Transaction together(database);
        holdings->MoveTo(Upto(holdings->RecordCount()));
        holdings->Delete();
        database->Execute("DELETE FROM Punkter WHERE KontoId = 1");
        together.Commit();
    }

    std::mt19937 random_{GetParam()};
};

TEST_P(RandomChanges, AreTakenBackToTheSamePagesAndDoneAgain) {
    Journal journal(database);
    std::vector<std::string> states{Bytes()};  // of the steps that are done
    std::vector<std::string> undone;
    for (int turn = 0; turn < 120; ++turn) {
        const int what = Upto(5);
        if (what == 0 && states.size() > 1) {
            journal.Undo();
            undone.push_back(states.back());
            states.pop_back();
        } else if (what == 1 && !undone.empty()) {
            journal.Redo();
            states.push_back(undone.back());
            undone.pop_back();
        } else {
            Change();
            if (Bytes() == states.back()) continue;  // nothing fitted the condition
            states.push_back(Bytes());
            undone.clear();
        }
        ASSERT_TRUE(Bytes() == states.back()) << "turn " << turn;
        ASSERT_THAT(database->Verify(), IsEmpty()) << "turn " << turn;
    }
    while (states.size() > 1) {
        journal.Undo();
        states.pop_back();
        ASSERT_TRUE(Bytes() == states.back());
    }
    ASSERT_THAT(database->Verify(), IsEmpty());
    AddPoints(50);
    Reopen();
    EXPECT_THAT(database->Verify(), IsEmpty());
    EXPECT_EQ(Days().size(), 50U);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomChanges, testing::Range(1U, 7U));

TEST(JournalOfAnOlderFile, TakesBackAChangeOfEverySample) {
    for (const auto& sample : SampleFiles()) {
        const ScratchFolder folder;
        const auto path = jettest::CopyInto(folder, sample);
        const std::string before = jettest::ReadText(path);
        const auto database = Database::Open(path);
        if (database->ReadOnly() || !database->HasSource("PLOTTDATA")) continue;
        Journal journal(database);
        const auto faults = database->Verify();
        database->Execute("DELETE FROM PLOTTDATA");
        if (!journal.NextUndo()) continue;  // it had no points
        EXPECT_FALSE(jettest::ReadText(path) == before) << sample;
        journal.Undo();
        EXPECT_TRUE(jettest::ReadText(path) == before) << sample;
        EXPECT_EQ(database->Verify(), faults) << sample;
        database->Close();
    }
}

// ---- Before a store ----

TEST_F(Journals, AreNotNeededForACallBeforeEachStore) {
    std::vector<std::string> seen;
    database->CallBeforeStoring([&] { seen.push_back(Bytes()); });
    const std::string none = Bytes();
    Days();
    { const Transaction takenBack(database); }
    EXPECT_THAT(seen, IsEmpty());
    AddPoint(1, 0, 1);
    const std::string one = Bytes();
    AddPoint(2, 0, 1);
    EXPECT_THAT(seen, ElementsAre(none, one));
}

TEST_F(Journals, LetACallBeforeAStoreFail) {
    database->CallBeforeStoring([] { throw std::runtime_error("no room"); });
    AddPoint(1, 0, 1);
    EXPECT_THAT(Days(), ElementsAre("1"));
    database->CallBeforeStoring({});
    AddPoint(2, 0, 1);
    Reopen();
    EXPECT_THAT(Days(), ElementsAre("1", "2"));
}

TEST_F(Journals, LetACallBeforeAStoreCopyTheFile) {
    const auto copy = folder / "copy.mdb";
    database->CallBeforeStoring([&] { CopyFile(Path(), copy); });
    for (int day = 0; day < 5; ++day) {
        const std::string before = Bytes();
        AddPoint(day, 0, 1);
        EXPECT_TRUE(jettest::ReadText(copy) == before);
    }
    EXPECT_THAT(database->Verify(), IsEmpty());
}

}  // namespace
}  // namespace jet::test
