#include "jet/index/tableindexes.h"

#include "jet/catalog/catalog.h"
#include "jet/create/newfile.h"
#include "jet/error.h"
#include "jet/storage/layout.h"
#include "jet/verify/verify.h"

#include <gtest/gtest.h>
#include <span>

namespace jet::detail {
namespace {

constexpr std::uint16_t kSwedish = 1053;

/// A table with a number, a text, a second text and a note, and the indexes that a test wants.
class TableIndexesTest : public testing::Test {
  protected:
    void Make(std::vector<IndexDesign> indexes) {
        const TableDesign designs[] = {{"T",
                                        {{.name = "Nr", .type = ColumnType::Long},
                                         {.name = "Namn", .type = ColumnType::Text, .size = 100},
                                         {.name = "Ort", .type = ColumnType::Text, .size = 100},
                                         {.name = "Not", .type = ColumnType::Memo},
                                         {.name = "Vikt", .type = ColumnType::Double}},
                                        std::move(indexes)}};
        file_ = NewFile(designs, {46000});
        page_ = Catalog(*file_).FindTable("T")->page;
        Reopen();
    }
    void Reopen() {
        indexes_.reset();
        store_ = std::make_unique<TableStore>(*file_, page_);
        store_->EditDef().name = "T";
        indexes_ = std::make_unique<TableIndexes>(*store_);
    }
    /// Gives a column another sort order, as a file from elsewhere has it.
    void SetCollation(std::size_t column, std::uint16_t lcid) {
        const Layout& layout = file_->Format();
        const std::size_t at = layout.tdefHeader +
                               store_->Def().realIndexes.size() * layout.indexCountsSize +
                               column * layout.columnSize + layout.columnLcid;
        PutU16(file_->EditPage(page_), at, lcid);
        Reopen();
        ASSERT_EQ(store_->Def().columns[column].collation, lcid);
    }

    RowPointer Add(Value number, Value name, Value place = {}, Value weight = {}) {
        const std::vector<Value> row = {std::move(number), std::move(name), std::move(place),
                                        Value(), std::move(weight)};
        const IndexPlan plan = indexes_->PlanInsert(row);
        const RowPointer where = store_->Insert(row);
        indexes_->Apply(plan, where);
        return where;
    }
    void Change(RowPointer row, std::size_t column, Value value) {
        std::vector<std::optional<Value>> values(store_->Def().columns.size());
        values[column] = std::move(value);
        const IndexPlan plan = indexes_->PlanUpdate(row, values);
        store_->Update(row, values);
        indexes_->Apply(plan, row);
    }
    void Remove(RowPointer row) {
        const std::uint32_t packed = row.Packed();
        indexes_->Erase(std::span(&packed, 1));
        store_->Delete(row);
    }

    Bytes AllPages() const {
        Bytes all;
        for (std::uint32_t number = 0; number < file_->PageCount(); ++number) {
            const ByteView page = file_->Page(number);
            all.insert(all.end(), page.begin(), page.end());
        }
        return all;
    }

    template <typename Work>
    ErrorNumber NumberOf(Work&& work) {
        const Bytes before = AllPages();
        try {
            work();
        } catch (const Error& error) {
            EXPECT_TRUE(AllPages() == before) << "changed the file before it refused";
            return error.Number();
        }
        return ErrorNumber::None;
    }
    Bytes KeyOf(std::size_t index, RowPointer row) {
        for (TreeCursor at = indexes_->Tree(index).First(); at.Valid(); at.Next()) {
            if (at.Row() == row) return {at.Key().begin(), at.Key().end()};
        }
        return {};
    }
    /// Puts other key bytes in the place of the row's,
    /// as an engine that knows the sort order would.
    void Rekey(std::size_t index, RowPointer row, const Bytes& key) {
        indexes_->Tree(index).EraseByRowPointer(row);
        indexes_->Tree(index).Insert(key, row);
    }
    void ExpectSound() { EXPECT_EQ(Verify(*file_).faults, std::vector<std::string>()); }

    std::unique_ptr<PageFile> file_;
    std::uint32_t page_ = 0;
    std::unique_ptr<TableStore> store_;
    std::unique_ptr<TableIndexes> indexes_;
};

const IndexDesign kPrimaryNumber{.name = "PrimaryKey", .columns = {{"Nr"}}, .primary = true};
const IndexDesign kName{.name = "Namn", .columns = {{"Namn"}}};

TEST_F(TableIndexesTest, FollowInsertsUpdatesAndDeletes) {
    Make({kPrimaryNumber, kName, {.name = "Vikt", .columns = {{"Vikt", true}}}});
    std::vector<RowPointer> rows;
    for (std::int32_t i = 0; i < 800; ++i) {
        rows.push_back(Add(i, "namn " + std::to_string(i % 37), "ort", i * 0.5));
    }
    for (std::size_t i = 0; i < rows.size(); i += 2) Change(rows[i], 1, "Ålänning");
    for (std::size_t i = 0; i < rows.size(); i += 3) Change(rows[i], 0, 10000 + int(i));
    for (std::size_t i = 0; i < rows.size(); i += 5) Remove(rows[i]);
    ExpectSound();
}

TEST_F(TableIndexesTest, CountDistinctKeysUpwardOnly) {
    Make({kName});
    Add(1, "a");
    const RowPointer row = Add(2, "b");
    Add(3, "B ");
    EXPECT_EQ(store_->Def().realIndexes[0].distinctKeys, 2U);
    Remove(row);
    EXPECT_EQ(store_->Def().realIndexes[0].distinctKeys, 2U);
    Change(Add(4, "c"), 1, "d");
    EXPECT_EQ(store_->Def().realIndexes[0].distinctKeys, 4U);
}

TEST_F(TableIndexesTest, RefuseANullInAPrimaryKey) {
    Make({kPrimaryNumber});
    EXPECT_EQ(NumberOf([&] { Add(Value(), "a"); }), ErrorNumber::NullKey);
    const RowPointer row = Add(1, "a");
    EXPECT_EQ(NumberOf([&] { Change(row, 0, Value()); }), ErrorNumber::NullKey);
}

TEST_F(TableIndexesTest, RefuseASecondRowWithAUniqueKey) {
    Make({kPrimaryNumber, {.name = "U", .columns = {{"Namn"}}, .unique = true}});
    Add(1, "Abc");
    const RowPointer second = Add(2, "abd");
    EXPECT_EQ(NumberOf([&] { Add(1, "x"); }), ErrorNumber::DuplicateKey);
    EXPECT_EQ(NumberOf([&] { Add(3, "aBC "); }), ErrorNumber::DuplicateKey);
    EXPECT_EQ(NumberOf([&] { Change(second, 1, "ABC"); }), ErrorNumber::DuplicateKey);
    EXPECT_EQ(NumberOf([&] { Change(second, 1, "ABD"); }), ErrorNumber::None);
    ExpectSound();
}

TEST_F(TableIndexesTest, LetNullsRepeatInAUniqueIndex) {
    Make({{.name = "U", .columns = {{"Namn"}}, .unique = true}});
    Add(1, Value());
    EXPECT_EQ(NumberOf([&] { Add(2, Value()); }), ErrorNumber::None);
    ExpectSound();
}

TEST_F(TableIndexesTest, TreatANullInAPartOfAUniqueKeyAsAValue) {
    Make({{.name = "U", .columns = {{"Nr"}, {"Namn"}}, .unique = true}});
    Add(1, Value());
    EXPECT_EQ(NumberOf([&] { Add(1, Value()); }), ErrorNumber::DuplicateKey);
    EXPECT_EQ(NumberOf([&] { Add(2, Value()); }), ErrorNumber::None);
}

TEST_F(TableIndexesTest, LeaveOutRowsWithoutAnyKeyWhereNullsAreIgnored) {
    Make({{.name = "I", .columns = {{"Nr"}, {"Namn"}}, .ignoreNulls = true}});
    const RowPointer none = Add(Value(), Value());
    const RowPointer half = Add(Value(), "a");
    EXPECT_EQ(KeyOf(0, none), Bytes());
    EXPECT_NE(KeyOf(0, half), Bytes());
    Change(none, 0, 5);
    EXPECT_NE(KeyOf(0, none), Bytes());
    Change(half, 1, Value());
    EXPECT_EQ(KeyOf(0, half), Bytes());
    Remove(half);
    Remove(none);
    ExpectSound();
}

TEST_F(TableIndexesTest, NoticeThatMinusZeroHasAnotherKeyThanZero) {
    Make({{.name = "Vikt", .columns = {{"Vikt"}}}});
    const RowPointer row = Add(1, "a", Value(), 0.0);
    Change(row, 4, -0.0);
    ExpectSound();
}

TEST_F(TableIndexesTest, OrderRowsByTheirColumnsInTurn) {
    Make({{.name = "I", .columns = {{"Nr"}, {"Namn"}}}});
    const RowPointer second = Add(7, "b"), first = Add(7, "A"), third = Add(8, "a");
    std::vector<RowPointer> rows;
    for (TreeCursor at = indexes_->Tree(0).First(); at.Valid(); at.Next()) rows.push_back(at.Row());
    EXPECT_EQ(rows, (std::vector<RowPointer>{first, second, third}));
}

TEST_F(TableIndexesTest, RefuseATextWithACharacterWithoutWeight) {
    Make({kName});
    EXPECT_EQ(NumberOf([&] { Add(1, "αβγ"); }), ErrorNumber::CollationUnknown);
    EXPECT_EQ(NumberOf([&] { Add(1, "abc"); }), ErrorNumber::None);
    ExpectSound();
}

TEST_F(TableIndexesTest, EraseARowWhoseEntryFollowsAnotherRule) {
    Make({kName});
    Add(1, "a");
    const RowPointer row = Add(2, "b");
    Rekey(0, row, Bytes{0x7F, 0x99, 0x01, 0x00});
    Remove(row);
    ExpectSound();
}

// --- a sort order that is not known
// ------------------------------------------------------------------------

/// Rows keyed in the order "General", in a column that says its order is another.
class UnknownOrder : public TableIndexesTest {
  protected:
    void MakeSwedish(std::vector<IndexDesign> indexes = {kName}) {
        Make(std::move(indexes));
        ab_ = Add(1, "ab", "Lund");
        cd_ = Add(2, "cd", "Ystad");
        SetCollation(1, kSwedish);
    }
    RowPointer ab_, cd_;
};

TEST_F(UnknownOrder, TakesANull) {
    MakeSwedish();
    EXPECT_EQ(NumberOf([&] { Add(3, Value()); }), ErrorNumber::None);
    EXPECT_EQ(NumberOf([&] { Change(ab_, 1, Value()); }), ErrorNumber::None);
    ExpectSound();
}

TEST_F(UnknownOrder, TakesWhatItsOwnKeysProve) {
    MakeSwedish();
    EXPECT_EQ(NumberOf([&] { Add(3, "bad"); }), ErrorNumber::None);
    EXPECT_EQ(KeyOf(0, Add(4, "dab")),
              EncodeKey("dab", {ColumnType::Text, false, TextOrder::General}));
}

TEST_F(UnknownOrder, RefusesACharacterThatNoKeyShows) {
    MakeSwedish();
    EXPECT_EQ(NumberOf([&] { Add(3, "abe"); }), ErrorNumber::CollationUnknown);
    EXPECT_EQ(NumberOf([&] { Add(3, "AB"); }), ErrorNumber::CollationUnknown)
        << "another letter case is another character";
    EXPECT_EQ(NumberOf([&] { Change(ab_, 1, "ö"); }), ErrorNumber::CollationUnknown);
}

TEST_F(UnknownOrder, RefusesAnyTextInAnEmptyTable) {
    Make({kName});
    SetCollation(1, kSwedish);
    EXPECT_EQ(NumberOf([&] { Add(1, "a"); }), ErrorNumber::CollationUnknown);
    EXPECT_EQ(NumberOf([&] { Add(1, ""); }), ErrorNumber::CollationUnknown);
    EXPECT_EQ(NumberOf([&] { Add(1, Value()); }), ErrorNumber::None);
}

TEST_F(UnknownOrder, CopiesTheKeyOfAnEqualTextWhenKeysFollowAnotherRule) {
    MakeSwedish();
    const Bytes foreign{0x7F, 0x21, 0x22, 0x01, 0x00};
    Rekey(0, cd_, foreign);
    EXPECT_EQ(KeyOf(0, Add(3, "cd")), foreign);
    EXPECT_EQ(NumberOf([&] { Add(4, "dc"); }), ErrorNumber::CollationUnknown);
    EXPECT_EQ(NumberOf([&] { Add(4, "cd "); }), ErrorNumber::CollationUnknown)
        << "equal means the same characters";
}

TEST_F(UnknownOrder, KeepsWhatItLearntWhenTheRowIsGone) {
    MakeSwedish();
    const Bytes foreign{0x7F, 0x21, 0x22, 0x01, 0x00};
    Rekey(0, cd_, foreign);
    Remove(Add(3, "cd"));
    Remove(cd_);
    EXPECT_EQ(KeyOf(0, Add(4, "cd")), foreign);
}

TEST_F(UnknownOrder, CopiesOnlyTheUnknownPartOfAKey) {
    MakeSwedish({{.name = "I", .columns = {{"Nr"}, {"Namn"}, {"Ort"}}}});
    Bytes key = KeyOf(0, cd_);
    const Bytes text = *EncodeKey("cd", {ColumnType::Text, false, TextOrder::General});
    const Bytes foreign{0x7F, 0x21, 0x22, 0x01, 0x00};
    const auto at = std::search(key.begin(), key.end(), text.begin(), text.end());
    ASSERT_NE(at, key.end());
    key.insert(key.erase(at, at + static_cast<std::ptrdiff_t>(text.size())), foreign.begin(),
               foreign.end());
    Rekey(0, cd_, key);
    Bytes expected = *EncodeKey(std::int32_t{77}, {ColumnType::Long, false, TextOrder::Unknown});
    expected.insert(expected.end(), foreign.begin(), foreign.end());
    const Bytes place = *EncodeKey("Malmö", {ColumnType::Text, false, TextOrder::General});
    expected.insert(expected.end(), place.begin(), place.end());
    EXPECT_EQ(KeyOf(0, Add(77, "cd", "Malmö")), expected);
}

TEST_F(UnknownOrder, LetsRowsGo) {
    MakeSwedish();
    Rekey(0, cd_, Bytes{0x7F, 0x21, 0x22, 0x01, 0x00});
    Remove(cd_);
    Remove(ab_);
    ExpectSound();
}

TEST_F(UnknownOrder, DoesNotMindWhatHappensInOtherColumns) {
    MakeSwedish();
    EXPECT_EQ(NumberOf([&] { Change(ab_, 0, 99); }), ErrorNumber::None);
    EXPECT_EQ(NumberOf([&] { Change(ab_, 2, "Göteborg"); }), ErrorNumber::None);
    EXPECT_EQ(NumberOf([&] { Change(ab_, 1, "ab"); }), ErrorNumber::None) << "the same text";
    ExpectSound();
}

TEST_F(UnknownOrder, StaysUniqueWithCopiedKeys) {
    MakeSwedish({{.name = "U", .columns = {{"Namn"}}, .unique = true}});
    EXPECT_EQ(NumberOf([&] { Add(3, "ab"); }), ErrorNumber::DuplicateKey);
}

}  // namespace
}  // namespace jet::detail
