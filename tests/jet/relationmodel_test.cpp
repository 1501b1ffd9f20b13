// Random changes in three related tables, in step with a plain picture of what the
// relations ask for.

#include "jet/database.h"
#include "jet/transaction.h"
#include "ledger.h"
#include "memoryfile.h"
#include "model.h"

#include <gmock/gmock.h>
#include <map>
#include <set>

namespace jet::test {
namespace {

/// Table1 refers to Table2, whose deletions cascade, and to Table3, whose updates do.
struct Picture {
    struct Row {
        std::optional<int> second, third;
        bool operator==(const Row&) const = default;
    };
    std::map<int, Row> first;
    std::set<int> second, third;
    bool operator==(const Picture&) const = default;

    bool ReferToSecond(int id) const {
        return std::ranges::any_of(first, [&](const auto& row) { return row.second.second == id; });
    }
    bool ReferToThird(int id) const {
        return std::ranges::any_of(first, [&](const auto& row) { return row.second.third == id; });
    }
    bool Missing(const Row& row) const {
        return (row.second && !second.contains(*row.second)) ||
               (row.third && !third.contains(*row.third));
    }
};

class RelationModel : public testing::TestWithParam<std::string> {
  protected:
    void SetUp() override {
        SKIP_WITHOUT_SAMPLES();
        path_ = jettest::CopyInto(folder_, *OtherFiles() / "mdb-samples" / (GetParam() + ".mdb"));
        file_ = Database::Open(path_);
        picture_ = Read();
        random_.seed(ModelSeed());
    }

    int Number(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
    std::optional<int> Reference(int below) {
        if (Number(8) == 0) return std::nullopt;
        return Number(below);
    }
    static Value ValueOf(const std::optional<int>& number) {
        return number ? Value(*number) : Value();
    }

    Picture Read() {
        Picture picture;
        const auto numberIn = [](RecordSet& rows, const char* column) -> std::optional<int> {
            const Value value = rows.Field(column);
            return value.IsNull() ? std::nullopt : std::optional(value.Integer());
        };
        const auto first = file_->OpenRecordSet("Table1");
        for (; !first->Eof(); first->MoveNext()) {
            picture.first[first->Field("id").Integer()] = {numberIn(*first, "otherfk1"),
                                                           numberIn(*first, "otherfk2")};
        }
        for (const bool second : {true, false}) {
            const auto rows = file_->OpenRecordSet(second ? "Table2" : "Table3");
            for (; !rows->Eof(); rows->MoveNext()) {
                (second ? picture.second : picture.third).insert(rows->Field("id").Integer());
            }
        }
        return picture;
    }

    /// Does a change in the file, which must fail with one of the errors, or not at all if there is
    /// none. True when it was done.
    bool Agree(const std::set<ErrorNumber>& expected, const std::function<void()>& change) {
        const ErrorNumber got = FailureOf(change);
        EXPECT_TRUE(expected.empty() ? got == ErrorNumber::None : expected.contains(got))
            << static_cast<int>(got);
        return got == ErrorNumber::None;
    }
    std::shared_ptr<RecordSet> At(const std::string& table, int id) {
        auto rows = file_->OpenRecordSet(table);
        EXPECT_TRUE(rows->FindFirst("id = " + std::to_string(id))) << table << " " << id;
        return rows;
    }
    template <typename Rows>
    int AnyOf(const Rows& rows) {
        auto at = rows.begin();
        std::advance(at, Number(static_cast<int>(rows.size())));
        if constexpr (std::is_same_v<Rows, std::set<int>>) {
            return *at;
        } else {
            return at->first;
        }
    }

    void InsertFirst() {
        const int id = Number(kFirst);
        const Picture::Row row{Reference(kSecond), Reference(kThird)};
        std::set<ErrorNumber> errors;
        if (picture_.first.contains(id)) errors.insert(ErrorNumber::DuplicateKey);
        if (picture_.Missing(row)) errors.insert(ErrorNumber::RelatedRowMissing);
        const auto rows = file_->OpenRecordSet("Table1");
        rows->AddNew();
        rows->Set("id", id);
        rows->Set("otherfk1", ValueOf(row.second));
        rows->Set("otherfk2", ValueOf(row.third));
        rows->Set("data", std::string(static_cast<std::size_t>(Number(50)), 'd'));
        if (Agree(errors, [&] { rows->Update(); })) picture_.first[id] = row;
    }
    void ChangeFirst() {
        const int id = AnyOf(picture_.first), newId = Number(3) == 0 ? Number(kFirst) : id;
        const Picture::Row row{Reference(kSecond), Reference(kThird)};
        std::set<ErrorNumber> errors;
        if (newId != id && picture_.first.contains(newId)) errors.insert(ErrorNumber::DuplicateKey);
        if (picture_.Missing(row)) errors.insert(ErrorNumber::RelatedRowMissing);
        const auto rows = At("Table1", id);
        rows->Edit();
        rows->Set("id", newId);
        rows->Set("otherfk1", ValueOf(row.second));
        rows->Set("otherfk2", ValueOf(row.third));
        if (!Agree(errors, [&] { rows->Update(); })) return;
        picture_.first.erase(id);
        picture_.first[newId] = row;
    }
    void InsertReferenced(bool second) {
        std::set<int>& ids = second ? picture_.second : picture_.third;
        const int id = Number(second ? kSecond : kThird);
        std::set<ErrorNumber> errors;
        if (ids.contains(id)) errors.insert(ErrorNumber::DuplicateKey);
        const auto rows = file_->OpenRecordSet(second ? "Table2" : "Table3");
        rows->AddNew();
        rows->Set("id", id);
        if (Agree(errors, [&] { rows->Update(); })) ids.insert(id);
    }
    void DeleteReferenced(bool second) {
        const int id = AnyOf(second ? picture_.second : picture_.third);
        std::set<ErrorNumber> errors;
        if (!second && picture_.ReferToThird(id)) errors.insert(ErrorNumber::RelatedRecords);
        const auto rows = At(second ? "Table2" : "Table3", id);
        if (!Agree(errors, [&] { rows->Delete(); })) return;
        (second ? picture_.second : picture_.third).erase(id);
        if (second)
            std::erase_if(picture_.first, [&](auto& row) { return row.second.second == id; });
    }
    void ChangeReferenced(bool second) {
        std::set<int>& ids = second ? picture_.second : picture_.third;
        const int id = AnyOf(ids), newId = Number(second ? kSecond : kThird);
        std::set<ErrorNumber> errors;
        if (newId != id && ids.contains(newId)) errors.insert(ErrorNumber::DuplicateKey);
        if (newId != id && second && picture_.ReferToSecond(id)) {
            errors.insert(ErrorNumber::RelatedRecords);
        }
        const auto rows = At(second ? "Table2" : "Table3", id);
        rows->Edit();
        rows->Set("id", newId);
        if (!Agree(errors, [&] { rows->Update(); })) return;
        ids.erase(id);
        ids.insert(newId);
        if (second) return;
        for (auto& [key, row] : picture_.first) {
            if (row.third == id) row.third = newId;
        }
    }
    void Step() {
        const int what = Number(100);
        const bool second = Number(2) == 0;
        const bool any = !(second ? picture_.second : picture_.third).empty();
        if (what < 40) return InsertFirst();
        if (what < 60 && !picture_.first.empty()) return ChangeFirst();
        if (what < 70 && !picture_.first.empty()) {
            const int id = AnyOf(picture_.first);
            At("Table1", id)->Delete();
            picture_.first.erase(id);
            return;
        }
        if (what < 84 || !any) return InsertReferenced(second);
        if (what < 90) return DeleteReferenced(second);
        ChangeReferenced(second);
    }
    /// Some steps in one transaction; now and then it is taken back.
    int Sequence() {
        const int steps = 1 + Number(60);
        const Picture before = picture_;
        {
            Transaction transaction(file_);
            for (int step = 0; step < steps && !HasFailure(); ++step) Step();
            if (Number(4) != 0) {
                transaction.Commit();
                return steps;
            }
        }
        picture_ = before;
        return steps;
    }

    static constexpr int kFirst = 400, kSecond = 40, kThird = 40;
    ScratchFolder folder_;
    std::filesystem::path path_;
    std::shared_ptr<Database> file_;
    Picture picture_;
    Random random_;
};

TEST_P(RelationModel, AgreesWithTheFile) {
    const std::size_t changes = ModelChanges(4);
    int sequences = 0;
    for (std::size_t made = 0; made < changes && !HasFailure(); ++sequences) {
        made += static_cast<std::size_t>(Sequence());
        EXPECT_EQ(Read(), picture_);
        if (sequences % 16 == 0) EXPECT_THAT(file_->Verify(), testing::IsEmpty());
        if (sequences % 64 != 0) continue;
        file_->Close();
        file_ = Database::Open(path_);
        EXPECT_EQ(Read(), picture_);
    }
    EXPECT_THAT(file_->Verify(), testing::IsEmpty());
    const std::string rows = ReadWith({"mdb-json", path_, "Table1"});
    EXPECT_EQ(static_cast<std::size_t>(std::count(rows.begin(), rows.end(), '\n')),
              picture_.first.size());
}

INSTANTIATE_TEST_SUITE_P(Of, RelationModel, testing::Values("indexTestV1997", "indexTestV2000"),
                         [](const auto& file) { return file.param; });

}  // namespace
}  // namespace jet::test
