#include "jet/recordset.h"

#include "jet/transaction.h"
#include "ledger.h"

#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <random>

namespace jet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EmptyRecordSet : public Ledger {};

TEST_F(EmptyRecordSet, HasNoPositionAndStandsAtBothEnds) {
    const auto points = Open("Punkter");
    EXPECT_TRUE(points->Empty());
    EXPECT_EQ(points->RecordCount(), 0);
    EXPECT_EQ(points->Position(), -1);
    EXPECT_TRUE(points->Eof());
    EXPECT_TRUE(points->Bof());
}

TEST_F(EmptyRecordSet, RefusesTheFirstAndTheLastRow) {
    const auto points = Open("Punkter");
    EXPECT_EQ(FailureOf([&] { points->MoveFirst(); }), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(FailureOf([&] { points->MoveLast(); }), ErrorNumber::NoCurrentRecord);
}

TEST_F(EmptyRecordSet, MovesNowhereWithoutComplaint) {
    const auto points = Open("Punkter");
    points->MoveNext();
    points->MovePrevious();
    points->Move(5);
    points->MoveTo(3);
    EXPECT_EQ(points->Position(), -1);
}

TEST_F(EmptyRecordSet, HasNoFieldsToReadEditOrDelete) {
    const auto points = Open("Punkter");
    EXPECT_EQ(FailureOf([&] { points->Field(0); }), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(FailureOf([&] { points->Edit(); }), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(FailureOf([&] { points->Delete(); }), ErrorNumber::NoCurrentRecord);
    EXPECT_FALSE(points->Pending());
}

TEST_F(EmptyRecordSet, FindsNothing) {
    const auto points = Open("Punkter");
    EXPECT_FALSE(points->FindFirst("KontoId = 1"));
    EXPECT_THAT(points->Integers({0, 1}), IsEmpty());
}

class ThreeRows : public Ledger {
  protected:
    ThreeRows() {
        AddPoint(101, 1, 7);
        AddPoint(102, 2, 7);
        AddPoint(103, 3, 7);
        points = Open("SELECT XCord,YCord FROM Punkter");
    }
    std::int32_t Day() { return points->Field("XCord").Integer(); }
    std::shared_ptr<RecordSet> points;
};

TEST_F(ThreeRows, OpenOnTheFirst) {
    EXPECT_EQ(points->Position(), 0);
    EXPECT_EQ(Day(), 101);
    EXPECT_FALSE(points->Bof());
    EXPECT_FALSE(points->Eof());
}

TEST_F(ThreeRows, AreWalkedToTheEnd) {
    std::vector<std::int32_t> days;
    for (; !points->Eof(); points->MoveNext()) days.push_back(Day());
    EXPECT_THAT(days, ElementsAre(101, 102, 103));
    EXPECT_EQ(points->Position(), 3);
    EXPECT_EQ(FailureOf([&] { Day(); }), ErrorNumber::NoCurrentRecord);
}

TEST_F(ThreeRows, StayAtTheEndWhenMovedOn) {
    points->MoveLast();
    points->Move(10);
    EXPECT_EQ(points->Position(), 3);
    points->MoveNext();
    EXPECT_EQ(points->Position(), 3);
    points->MovePrevious();
    EXPECT_EQ(Day(), 103);
}

TEST_F(ThreeRows, StayBeforeTheFirstWhenMovedBack) {
    points->Move(-10);
    EXPECT_TRUE(points->Bof());
    EXPECT_EQ(points->Position(), -1);
    EXPECT_EQ(FailureOf([&] { Day(); }), ErrorNumber::NoCurrentRecord);
    points->MoveNext();
    EXPECT_EQ(Day(), 101);
}

TEST_F(ThreeRows, AreReachedByPosition) {
    points->MoveTo(2);
    EXPECT_EQ(Day(), 103);
    points->MoveTo(99);
    EXPECT_TRUE(points->Eof());
    points->MoveTo(-99);
    EXPECT_TRUE(points->Bof());
}

TEST_F(ThreeRows, AreReadWithoutMoving) {
    EXPECT_EQ(points->At(2, 1), Value(std::int32_t{3}));
    EXPECT_EQ(points->Position(), 0);
    EXPECT_EQ(FailureOf([&] { points->At(3, 0); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([&] { points->At(-1, 0); }), ErrorNumber::SubscriptOutOfRange);
}

TEST_F(ThreeRows, HaveTheFieldsThatWereAskedForInThatOrder) {
    const auto turned = Open("SELECT YCord,KontoId,XCord FROM Punkter");
    EXPECT_EQ(turned->FieldCount(), 3U);
    EXPECT_EQ(turned->Column(2).name, "XCord");
    EXPECT_EQ(turned->Field(0), Value(std::int32_t{1}));
    EXPECT_EQ(turned->FieldPosition("xcord"), 2U);
}

TEST_F(ThreeRows, HaveNoOtherFields) {
    EXPECT_EQ(FailureOf([&] { points->Field(2); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([&] { points->Column(2); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([&] { points->Field("KontoId"); }), ErrorNumber::FieldNotFound);
    EXPECT_EQ(FailureOf([&] { points->Field("Saldo"); }), ErrorNumber::FieldNotFound);
}

TEST_F(ThreeRows, AreFoundByTheirValue) {
    EXPECT_TRUE(points->FindFirst("XCord = 102"));
    EXPECT_EQ(points->Position(), 1);
    EXPECT_TRUE(points->FindFirst("KontoId = 7"));
    EXPECT_EQ(points->Position(), 0);
}

TEST_F(ThreeRows, KeepTheCurrentOneWhenNothingIsFound) {
    points->MoveLast();
    EXPECT_FALSE(points->FindFirst("XCord = 999"));
    EXPECT_FALSE(points->FindFirst("XCord = 102.5"));
    EXPECT_EQ(Day(), 103);
}

TEST_F(ThreeRows, RefuseACriterionTheyDoNotUnderstand) {
    EXPECT_EQ(FailureOf([&] { points->FindFirst("XCord > 5"); }), ErrorNumber::SyntaxError);
    EXPECT_EQ(FailureOf([&] { points->FindFirst("Saldo = 5"); }), ErrorNumber::TooFewParameters);
    EXPECT_EQ(FailureOf([&] { points->FindFirst("XCord = 'x'"); }), ErrorNumber::TypeMismatch);
}

TEST_F(ThreeRows, GiveTheirWholeNumbersInOnePass) {
    points->MoveLast();
    EXPECT_THAT(points->Integers({1, 0}),
                ElementsAre(ElementsAre(1, 101), ElementsAre(2, 102), ElementsAre(3, 103)));
    EXPECT_EQ(points->Position(), 2);
    EXPECT_EQ(FailureOf([&] { points->Integers({5}); }), ErrorNumber::SubscriptOutOfRange);
}

TEST_F(ThreeRows, ShowAnEditMadeElsewhereAtOnce) {
    const auto other = Open("Punkter");
    other->Edit();
    other->Set("YCord", 55);
    other->Update();
    EXPECT_EQ(points->Field("YCord"), Value(std::int32_t{55}));
}

TEST_F(ThreeRows, ShowARowAddedElsewhereAfterRequery) {
    EXPECT_EQ(points->RecordCount(), 3);
    AddPoint(104, 4, 7);
    EXPECT_EQ(points->RecordCount(), 3);
    points->MoveLast();
    points->Requery();
    EXPECT_EQ(points->RecordCount(), 4);
    EXPECT_EQ(points->Position(), 0);
}

TEST_F(ThreeRows, SayThatARowDeletedElsewhereIsGone) {
    EXPECT_EQ(Day(), 101);
    EXPECT_EQ(database->Execute("DELETE FROM Punkter WHERE XCord = 101"), 1);
    EXPECT_EQ(FailureOf([&] { Day(); }), ErrorNumber::RecordDeleted);
    EXPECT_EQ(FailureOf([&] { points->Edit(); }), ErrorNumber::RecordDeleted);
    EXPECT_EQ(FailureOf([&] { points->Delete(); }), ErrorNumber::RecordDeleted);
    EXPECT_EQ(FailureOf([&] { points->Integers({0}); }), ErrorNumber::RecordDeleted);
    EXPECT_TRUE(points->FindFirst("XCord = 103"));
    EXPECT_EQ(points->Position(), 2);
}

class Editing : public ThreeRows {};

TEST_F(Editing, ShowsTheNewValueBeforeItIsStored) {
    points->Edit();
    points->Set("YCord", 20);
    EXPECT_TRUE(points->Pending());
    EXPECT_EQ(points->Field("YCord"), Value(std::int32_t{20}));
    EXPECT_EQ(points->Field("XCord"), Value(std::int32_t{101}));
    EXPECT_EQ(points->At(0, 1), Value(std::int32_t{1}));
}

TEST_F(Editing, KeepsTheRowCurrentAndInPlace) {
    points->MoveTo(1);
    points->Edit();
    points->Set("XCord", 1);
    points->Update();
    EXPECT_EQ(points->Position(), 1);
    EXPECT_EQ(Day(), 1);
    EXPECT_FALSE(points->Pending());
    Reopen();
    EXPECT_THAT(Texts("Punkter", "XCord"), ElementsAre("101", "1", "103"));
}

TEST_F(Editing, IsForgottenByCancelUpdate) {
    points->Edit();
    points->Set("YCord", 20);
    points->CancelUpdate();
    EXPECT_FALSE(points->Pending());
    EXPECT_EQ(points->Field("YCord"), Value(std::int32_t{1}));
}

TEST_F(Editing, IsForgottenByAnyMove) {
    const std::vector<std::function<void()>> moves = {
        [&] { points->MoveFirst(); }, [&] { points->MoveLast(); },
        [&] { points->MoveNext(); },  [&] { points->MovePrevious(); },
        [&] { points->Move(0); },     [&] { points->MoveTo(0); },
        [&] { points->Requery(); },   [&] { points->FindFirst("XCord = 102"); }};
    for (const auto& move : moves) {
        points->MoveFirst();
        points->Edit();
        points->Set("YCord", 20);
        move();
        EXPECT_FALSE(points->Pending());
    }
    EXPECT_THAT(Texts("Punkter", "YCord"), ElementsAre("1", "2", "3"));
}

TEST_F(Editing, NeedsAnOpenRow) {
    EXPECT_EQ(FailureOf([&] { points->Set("YCord", 20); }), ErrorNumber::NoPendingRow);
    EXPECT_EQ(FailureOf([&] { points->Update(); }), ErrorNumber::NoPendingRow);
    EXPECT_EQ(FailureOf([&] { points->CancelUpdate(); }), ErrorNumber::None);
}

TEST_F(Editing, RefusesAValueOfAnotherKindAndStaysPending) {
    points->Edit();
    EXPECT_EQ(FailureOf([&] { points->Set("YCord", "tolv"); }), ErrorNumber::TypeMismatch);
    EXPECT_EQ(FailureOf([&] { points->Set("YCord", 1e12); }), ErrorNumber::Overflow);
    EXPECT_EQ(FailureOf([&] { points->Set(9, 1); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_TRUE(points->Pending());
    points->Set("YCord", "12");
    points->Update();
    EXPECT_EQ(points->Field("YCord"), Value(std::int32_t{12}));
}

TEST_F(Editing, MovesTheRowBetweenTheHoldings) {
    EXPECT_EQ(Open("SELECT XCord FROM Punkter WHERE KontoId = 7")->RecordCount(), 3);
    const auto all = Open("Punkter");
    all->Edit();
    all->Set("KontoId", 8);
    all->Update();
    EXPECT_THAT(Texts("SELECT XCord FROM Punkter WHERE KontoId = 7", "XCord"),
                ElementsAre("102", "103"));
    EXPECT_THAT(Texts("SELECT XCord FROM Punkter WHERE KontoId = 8", "XCord"), ElementsAre("101"));
    EXPECT_THAT(database->Verify(), IsEmpty());
}

class Adding : public ThreeRows {};

TEST_F(Adding, BeginsWithNulls) {
    points->AddNew();
    EXPECT_TRUE(points->Pending());
    EXPECT_TRUE(points->Field("XCord").IsNull());
    const auto holdings = Open("Innehav");
    holdings->AddNew();
    EXPECT_EQ(holdings->Field("Aktiv"), Value(false));
}

TEST_F(Adding, MakesTheNewRowCurrentAndLast) {
    points->AddNew();
    points->Set("XCord", 50);
    points->Update();
    EXPECT_EQ(Day(), 50);
    EXPECT_EQ(points->Position(), 3);
    EXPECT_EQ(points->RecordCount(), 4);
}

TEST_F(Adding, MakesTheNewRowLastInASortedSetToo) {
    const auto sorted = Open("SELECT * FROM Punkter ORDER BY XCord");
    sorted->AddNew();
    sorted->Set("XCord", 50);
    sorted->Update();
    EXPECT_EQ(sorted->Field("XCord"), Value(std::int32_t{50}));
    EXPECT_EQ(sorted->Position(), 3);
    EXPECT_TRUE(sorted->FindFirst("XCord = 101"));
    EXPECT_EQ(sorted->Position(), 0);
    sorted->Requery();
    EXPECT_EQ(sorted->Field("XCord"), Value(std::int32_t{50}));
}

TEST_F(Adding, WorksTwiceBeforeAnyRowIsLookedAt) {
    for (const std::int32_t day : {51, 52}) {
        points->AddNew();
        points->Set("XCord", day);
        points->Update();
        EXPECT_EQ(Day(), day);
    }
    EXPECT_EQ(points->Position(), 4);
    points->MoveFirst();
    EXPECT_EQ(Day(), 101);
}

TEST_F(Adding, KeepsARowThatItsOwnQueryWouldNotFind) {
    const auto seventh = Open("SELECT * FROM Punkter WHERE KontoId = 7");
    seventh->AddNew();
    seventh->Set("KontoId", 8);
    seventh->Update();
    EXPECT_EQ(seventh->RecordCount(), 4);
    seventh->Requery();
    EXPECT_EQ(seventh->RecordCount(), 3);
}

TEST_F(Adding, CanBeFollowedByAnEditOfTheNewRow) {
    points->AddNew();
    points->Set("XCord", 50);
    points->Update();
    points->Edit();
    points->Set("XCord", 60);
    points->Update();
    EXPECT_EQ(Day(), 60);
    EXPECT_EQ(points->RecordCount(), 4);
}

TEST_F(Adding, IsNotARowThatCouldBeDeleted) {
    points->AddNew();
    EXPECT_EQ(FailureOf([&] { points->Delete(); }), ErrorNumber::NoCurrentRecord);
}

TEST_F(Adding, GivesAutonumbersOneAfterAnother) {
    const auto holdings = Open("Innehav");
    for (const char* name : {"Ett", "Två"}) {
        holdings->AddNew();
        holdings->Set("Namn", name);
        holdings->Update();
    }
    EXPECT_THAT(Texts("Innehav", "Id"), ElementsAre("1", "2"));
}

TEST_F(Adding, GoesOnAfterAnAutonumberThatWasSet) {
    AddHolding(40, "Fyrtio");
    const auto holdings = Open("Innehav");
    holdings->AddNew();
    holdings->Update();
    EXPECT_EQ(holdings->Field("Id"), Value(std::int32_t{41}));
}

TEST_F(Adding, RefusesASecondRowWithTheSameKeyAndStaysPending) {
    AddHolding(5, "Fem");
    const auto holdings = Open("Innehav");
    holdings->AddNew();
    holdings->Set("Id", 5);
    EXPECT_EQ(FailureOf([&] { holdings->Update(); }), ErrorNumber::DuplicateKey);
    EXPECT_TRUE(holdings->Pending());
    holdings->Set("Id", 6);
    holdings->Update();
    EXPECT_THAT(Texts("Innehav", "Id"), ElementsAre("5", "6"));
    EXPECT_THAT(database->Verify(), IsEmpty());
}

class Deleting : public ThreeRows {};

TEST_F(Deleting, MakesTheNextRowCurrent) {
    points->MoveTo(1);
    points->Delete();
    EXPECT_EQ(Day(), 103);
    EXPECT_EQ(points->Position(), 1);
    EXPECT_EQ(points->RecordCount(), 2);
}

TEST_F(Deleting, OfTheLastRowEndsAtTheEnd) {
    points->MoveLast();
    points->Delete();
    EXPECT_TRUE(points->Eof());
    EXPECT_FALSE(points->Empty());
}

TEST_F(Deleting, OfEveryRowLeavesAnEmptySet) {
    while (!points->Empty()) points->Delete();
    EXPECT_TRUE(points->Eof());
    EXPECT_EQ(points->Position(), -1);
    Reopen();
    EXPECT_EQ(database->StoredRowCount("Punkter"), 0);
    EXPECT_THAT(database->Verify(), IsEmpty());
}

TEST_F(Deleting, OfARowJustAddedEndsAtTheEnd) {
    points->AddNew();
    points->Set("XCord", 50);
    points->Update();
    points->Delete();
    EXPECT_TRUE(points->Eof());
    EXPECT_EQ(points->RecordCount(), 3);
}

class Order : public Ledger {};

TEST_F(Order, IsThePrimaryKeysWhereAQueryGivesNone) {
    AddHolding(9, "Nio");
    AddHolding(3, "Tre");
    AddHolding(-2, "Minus två");
    EXPECT_THAT(Texts("Innehav", "Id"), ElementsAre("-2", "3", "9"));
    EXPECT_THAT(Texts("SELECT Namn FROM Innehav", "Namn"), ElementsAre("Minus två", "Tre", "Nio"));
}

TEST_F(Order, IsTheStoredOneWithoutAPrimaryKey) {
    for (const std::int32_t day : {5, 1, 3}) AddPoint(day, 0, 1);
    EXPECT_THAT(Texts("Punkter", "XCord"), ElementsAre("5", "1", "3"));
}

TEST_F(Order, MayBeByMoreThanOneColumnAndDownwards) {
    AddPoint(1, 5, 1);
    AddPoint(2, 5, 2);
    AddPoint(3, 4, 3);
    EXPECT_THAT(Texts("SELECT * FROM Punkter ORDER BY YCord,XCord DESC", "XCord"),
                ElementsAre("3", "2", "1"));
    EXPECT_THAT(Texts("SELECT * FROM Punkter ORDER BY YCord DESC,XCord", "XCord"),
                ElementsAre("1", "2", "3"));
    EXPECT_THAT(Texts("SELECT * FROM Punkter ORDER BY YCord,KontoId,XCord", "XCord"),
                ElementsAre("3", "1", "2"));
}

TEST_F(Order, PutsNullsFirstAndNegativeNumbersBeforePositiveOnes) {
    for (const std::int32_t day : {5, -1, 0}) AddPoint(day, 0, 1);
    const auto points = Open("Punkter");
    points->AddNew();
    points->Update();
    EXPECT_THAT(Texts("SELECT XCord FROM Punkter ORDER BY XCord", "XCord"),
                ElementsAre("", "-1", "0", "5"));
    EXPECT_THAT(Texts("SELECT XCord FROM Punkter ORDER BY XCord DESC", "XCord"),
                ElementsAre("5", "0", "-1", ""));
}

TEST_F(Order, OfTextsIgnoresLetterCase) {
    for (const char* name : {"b", "A", "a", "C"})
        AddHolding(static_cast<std::int32_t>(*name), name);
    EXPECT_THAT(Texts("SELECT Namn FROM Innehav ORDER BY Namn", "Namn"),
                ElementsAre("A", "a", "b", "C"));
}

TEST_F(Order, OfSinglesAndDatesIsBySize) {
    const auto holdings = Open("Innehav");
    const std::vector<std::pair<const char*, double>> rows = {
        {"b", -1.5}, {"d", 100}, {"a", -20.25}, {"c", 0.5}};
    for (const auto& [name, number] : rows) {
        holdings->AddNew();
        holdings->Set("Namn", name);
        holdings->Set("Kurs", number);
        holdings->Set("Dag", number);
        holdings->Update();
    }
    EXPECT_THAT(Texts("SELECT Namn FROM Innehav ORDER BY Kurs", "Namn"),
                ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(Texts("SELECT Namn FROM Innehav ORDER BY Dag DESC", "Namn"),
                ElementsAre("d", "c", "b", "a"));
}

class Where : public Ledger {};

TEST_F(Where, ComparesTextsWithoutLetterCaseAndBlanksAtTheEnd) {
    AddHolding(1, "Åsas Konto  ");
    AddHolding(2, "åsas konto");
    AddHolding(3, " Åsas konto");
    AddHolding(4, "Asas konto");
    EXPECT_THAT(Texts("SELECT Id FROM Innehav WHERE Namn = 'ÅSAS KONTO'", "Id"),
                ElementsAre("1", "2"));
    EXPECT_THAT(Texts("SELECT Id FROM Innehav WHERE namn = ' åsas konto   '", "Id"),
                ElementsAre("3"));
}

TEST_F(Where, FindsANameWithAnApostropheWhenItIsDoubled) {
    AddHolding(1, "O'Brien");
    EXPECT_EQ(FailureOf([&] { Open("SELECT Id FROM Innehav WHERE Namn = 'O'Brien'"); }),
              ErrorNumber::SyntaxError);
    EXPECT_THAT(Texts("SELECT Id FROM Innehav WHERE Namn = 'O''Brien'", "Id"), ElementsAre("1"));
}

TEST_F(Where, NeverFindsNull) {
    const auto holdings = Open("Innehav");
    holdings->AddNew();
    holdings->Update();
    EXPECT_TRUE(Open("SELECT Id FROM Innehav WHERE Namn = ''")->Empty());
    EXPECT_TRUE(Open("SELECT Id FROM Innehav WHERE Kurs = 0")->Empty());
}

TEST_F(Where, ComparesNumbersInTheColumnsOwnType) {
    const auto holdings = Open("Innehav");
    holdings->AddNew();
    holdings->Set("Kurs", "12,34");
    holdings->Set("Andel%", "0,1");
    holdings->Set("Aktiv", true);
    holdings->Set("Dag", "2000-01-01");
    holdings->Set("Namn", " 7,50");
    holdings->Update();
    for (const char* match :
         {"Kurs = 12.34", "Andel% = 0.1", "[Andel%]=.10", "Aktiv = -1", "Aktiv = 1", "Dag = 36526",
          "Dag = '2000-01-01'", "Id = 1", "Id = 1.0", "Id = '1'", "Namn = 7.5", "namn = ' 7,50'"}) {
        EXPECT_EQ(Open(std::string("SELECT Id FROM Innehav WHERE ") + match)->RecordCount(), 1)
            << match;
    }
    for (const char* miss : {"Kurs = 12.35", "Aktiv = 0", "Id = 1.5", "Id = 99999999999",
                             "Namn = '7,50'", "Dag = '2000-01-02'"}) {
        EXPECT_EQ(Open(std::string("SELECT Id FROM Innehav WHERE ") + miss)->RecordCount(), 0)
            << miss;
    }
    EXPECT_EQ(FailureOf([&] { Open("SELECT Id FROM Innehav WHERE Dag = 'igår'"); }),
              ErrorNumber::TypeMismatch);
}

TEST_F(Where, FindsWhatCameAndWentSinceTheColumnWasFirstAskedFor) {
    const std::string query = "SELECT XCord FROM Punkter WHERE KontoId = 7";
    AddPoint(1, 0, 7);
    EXPECT_THAT(Texts(query, "XCord"), ElementsAre("1"));
    AddPoint(2, 0, 7);
    AddPoint(3, 0, 8);
    EXPECT_THAT(Texts(query, "XCord"), ElementsAre("1", "2"));
    database->Execute("DELETE FROM Punkter WHERE XCord = 1");
    EXPECT_THAT(Texts(query, "XCord"), ElementsAre("2"));
    {
        const Transaction transaction(database);
        AddPoint(4, 0, 7);
        EXPECT_THAT(Texts(query, "XCord"), ElementsAre("2", "4"));
    }
    EXPECT_THAT(Texts(query, "XCord"), ElementsAre("2"));
}

TEST_F(Where, KnowsMemosByAllTheirLetters) {
    const auto holdings = Open("Innehav");
    const std::string longText(3000, 'x');
    for (const char* end : {"a", "b"}) {
        holdings->AddNew();
        holdings->Set("Text", longText + end);
        holdings->Update();
    }
    EXPECT_THAT(Texts("SELECT Id FROM Innehav WHERE Text = '" + longText + "B'", "Id"),
                ElementsAre("2"));
}

TEST_F(Where, UnknownNamesAreToldApart) {
    EXPECT_EQ(FailureOf([&] { Open("Saldo"); }), ErrorNumber::TableNotFound);
    EXPECT_EQ(FailureOf([&] { Open("SELECT * FROM Saldo"); }), ErrorNumber::TableNotFound);
    EXPECT_EQ(FailureOf([&] { Open("MSysObjects"); }), ErrorNumber::TableNotFound);
    EXPECT_EQ(FailureOf([&] { Open("SELECT Saldo FROM Innehav"); }), ErrorNumber::TooFewParameters);
    EXPECT_EQ(FailureOf([&] { Open("SELECT Id FROM Innehav WHERE Saldo = 1"); }),
              ErrorNumber::TooFewParameters);
    EXPECT_EQ(FailureOf([&] { Open("SELECT Id FROM Innehav ORDER BY Saldo"); }),
              ErrorNumber::TooFewParameters);
}

/// Rows of one value are kept in the order in which they were asked for last. Whatever changes,
/// they must be what a look at all rows gives.
class RememberedOrder : public Ledger {
  protected:
    using Numbers = std::vector<std::array<std::int32_t, 2>>;
    Numbers Of(std::int32_t holding, const std::string& order) {
        return Open("SELECT XCord,YCord FROM Punkter WHERE KontoId = " + Value(holding).Text() +
                    order)
            ->Integers({0, 1});
    }
    Numbers Expected(std::int32_t holding, std::size_t by) {
        Numbers rows;
        for (const auto& row : Open("SELECT XCord,YCord,KontoId FROM Punkter")->Integers({0, 1, 2}))
            if (row[2] == holding) rows.push_back({row[0], row[1]});
        std::stable_sort(rows.begin(), rows.end(),
                         [by](const auto& a, const auto& b) { return a[by] < b[by]; });
        return rows;
    }
    void ExpectAll() {
        for (const std::int32_t holding : {1, 2, 3}) {
            EXPECT_EQ(Of(holding, " ORDER BY XCord"), Expected(holding, 0));
            EXPECT_EQ(Of(holding, " ORDER BY YCord"), Expected(holding, 1));
            EXPECT_EQ(Of(holding, "").size(), Expected(holding, 0).size());
        }
    }
    void ChangeOne(std::mt19937& random) {
        const auto points = Open("Punkter");
        const auto number = [&](std::uint32_t below) {
            return static_cast<std::int32_t>(random() % below);
        };
        if (points->Empty() || random() % 3 == 0)
            return AddPoint(number(9), number(4), 1 + number(3));
        points->MoveTo(number(static_cast<std::uint32_t>(points->RecordCount())));
        if (random() % 3 == 0) return points->Delete();
        points->Edit();
        points->Set(random() % 2 == 0 ? "XCord" : "YCord", number(9));
        if (random() % 4 == 0) points->Set("KontoId", 1 + number(3));
        points->Update();
    }
};

TEST_F(RememberedOrder, FollowsEveryChange) {
    const Transaction quick(database);  // nothing need reach the disk
    std::mt19937 random(5);
    for (int step = 0; step < 300; ++step) {
        ChangeOne(random);
        ExpectAll();
    }
}

TEST_F(RememberedOrder, IsForgottenWhenATransactionIsTakenBack) {
    AddPoint(2, 1, 1);
    AddPoint(1, 2, 1);
    ExpectAll();
    {
        const Transaction taken(database);
        AddPoint(0, 3, 1);
        ExpectAll();
    }
    ExpectAll();
}

TEST_F(RememberedOrder, LeavesUnorderedRowsAsTheyAreStored) {
    for (const std::int32_t day : {3, 1, 2}) AddPoint(day, 0, 1);
    EXPECT_THAT(Of(1, " ORDER BY XCord"),
                ElementsAre(ElementsAre(1, 0), ElementsAre(2, 0), ElementsAre(3, 0)));
    EXPECT_THAT(Of(1, ""), ElementsAre(ElementsAre(3, 0), ElementsAre(1, 0), ElementsAre(2, 0)));
}

class BulkReading : public Ledger {};

TEST_F(BulkReading, RoundsWhateverTypeTheColumnHas) {
    const auto holdings = Open("Innehav");
    holdings->AddNew();
    holdings->Set("Kurs", 2.5);
    holdings->Set("Andel%", -1.5);
    holdings->Set("Dag", 36526.75);
    holdings->Set("Namn", "12,5");
    holdings->Set("Aktiv", true);
    holdings->Update();
    EXPECT_THAT(Open("Innehav")->Integers({0, 1, 2, 3, 4, 5}),
                ElementsAre(ElementsAre(1, 12, 2, -2, 36527, -1)));
}

TEST_F(BulkReading, FailsAsReadingOneValueDoes) {
    AddHolding(1, "Namn");
    EXPECT_EQ(FailureOf([&] { Open("Innehav")->Integers({1}); }), ErrorNumber::TypeMismatch);
    EXPECT_EQ(FailureOf([&] { Open("Innehav")->Integers({2}); }), ErrorNumber::InvalidUseOfNull);
    const auto points = Open("Punkter");
    points->AddNew();
    points->Update();
    EXPECT_EQ(FailureOf([&] { points->Integers({1}); }), ErrorNumber::InvalidUseOfNull);
}

}  // namespace
}  // namespace jet::test
