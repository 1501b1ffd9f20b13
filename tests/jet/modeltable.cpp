#include "base/error.h"
#include "model.h"

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <iterator>
#include <utility>
#include <variant>

namespace jet::test {
namespace {

using detail::TextOrder;

/// The value to the last bit.
std::string Exactly(const Value& value) {
    if (value.IsNull()) return "null";
    if (const auto* bytes = std::get_if<Bytes>(&value.Held())) {
        return "b" + std::string(bytes->begin(), bytes->end());
    }
    if (const auto* number = std::get_if<double>(&value.Held())) {
        return "d" + std::string(reinterpret_cast<const char*>(number), sizeof *number);
    }
    if (const auto* date = std::get_if<Date>(&value.Held())) {
        return "t" + std::string(reinterpret_cast<const char*>(&date->serial), sizeof date->serial);
    }
    return std::to_string(value.Held().index()) + value.Text();
}

std::string Exactly(const ModelTable::Row& row) {
    std::string text;
    for (const Value& value : row) {
        const std::string part = Exactly(value);
        text += std::to_string(part.size()) + ":" + part;
    }
    return text;
}

}  // namespace

ModelTable::ModelTable(const std::shared_ptr<Database>& file, const std::string& name,
                       std::size_t targetRows)
    : name_(name),
      design_(file->Describe(name)),
      rules_(file->Rules(name)),
      version_(file->Version()),
      targetRows_(targetRows) {
    const TextOrder order = version_ == 3 ? TextOrder::General97 : TextOrder::General;
    for (std::size_t i = 0; i < design_.columns.size(); ++i) {
        if (design_.columns[i].autonumber && design_.columns[i].type == ColumnType::Long) {
            autonumber_ = i;
        }
    }
    for (std::size_t i = 0; i < design_.indexes.size(); ++i) {
        const IndexDesign& index = design_.indexes[i];
        if (index.primary) primary_ = i;
        related_ = related_ || index.foreign;
        auto& columns = indexColumns_.emplace_back();
        auto& keys = keyColumns_.emplace_back();
        for (const IndexColumn& part : index.columns) {
            std::size_t column = 0;
            while (design_.columns[column].name != part.name) ++column;
            columns.push_back(column);
            keys.push_back({design_.columns[column].type, part.descending, order});
            indexed_.insert(column);
        }
    }
    set_ = file->OpenRecordSet(name_);
    Reread();
}

void ModelTable::Reread() {
    set_->Requery();
    state_.rows.clear();
    state_.keys.clear();
    for (std::int32_t at = 0; at < set_->RecordCount(); ++at) {
        Row row;
        for (std::size_t i = 0; i < design_.columns.size(); ++i) row.push_back(set_->At(at, i));
        Enter(row);
        state_.rows.push_back(std::move(row));
    }
}

std::optional<Bytes> ModelTable::KeyOf(std::size_t index, const Row& row) const {
    std::vector<Value> values;
    bool allNull = true;
    for (std::size_t column : indexColumns_[index]) {
        values.push_back(row[column]);
        allNull = allNull && row[column].IsNull();
    }
    if (allNull) return std::nullopt;
    return detail::EncodeKey(values, keyColumns_[index]);
}

void ModelTable::Enter(const Row& row) {
    for (std::size_t i = 0; i < design_.indexes.size(); ++i) {
        if (!design_.indexes[i].unique) continue;
        if (const auto key = KeyOf(i, row)) state_.keys[i].insert(*key);
    }
}

void ModelTable::Leave(const Row& row) {
    for (std::size_t i = 0; i < design_.indexes.size(); ++i) {
        if (!design_.indexes[i].unique) continue;
        if (const auto key = KeyOf(i, row)) state_.keys[i].erase(*key);
    }
}

/// Rows that a file had before may have texts whose keys only their own engine knows. Such a key
/// can be kept or copied whole, but not always be made for new neighbours in the same index.
bool ModelTable::HasUnknownKey(const Row& row) const {
    for (std::size_t i = 0; i < design_.indexes.size(); ++i) {
        std::vector<Value> values;
        for (std::size_t column : indexColumns_[i]) values.push_back(row[column]);
        if (!detail::EncodeKey(values, keyColumns_[i])) return true;
    }
    return false;
}

bool ModelTable::Store(const Row& row, const Row* before) {
    const auto [expected, certain] = Expected(row, before);
    const bool ruled =
        !rules_.validationRule.empty() ||
        std::any_of(rules_.columns.begin(), rules_.columns.end(),
                    [](const ColumnRules& column) { return !column.validationRule.empty(); });
    try {
        set_->Update();
    } catch (const Error& error) {
        const bool allowed =
            expected.contains(error.Number()) ||
            (!certain && error.Number() == ErrorNumber::FieldTooLong) ||
            (HasUnknownKey(row) && error.Number() == ErrorNumber::CollationUnknown) ||
            (related_ && (error.Number() == ErrorNumber::RelatedRecords ||
                          error.Number() == ErrorNumber::RelatedRowMissing)) ||
            (ruled && (error.Number() == ErrorNumber::ValidationRule ||
                       error.Number() == ErrorNumber::NotSupported));
        EXPECT_TRUE(allowed) << name_ << ": " << error.what();
        EXPECT_TRUE(set_->Pending()) << "a row that was not stored stays pending";
        set_->CancelUpdate();
        return false;
    }
    EXPECT_TRUE(expected.empty()) << name_ << ": stored, but had to fail with "
                                  << static_cast<int>(*expected.begin());
    return true;
}

/// False when a value was refused at once.
bool ModelTable::SetColumns(Row& row, Random& random) {
    bool set = true;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const bool counts = design_.columns[i].autonumber;
        if (!counts) row[i] = set_->Field(i);  // its default value
        if (counts && (design_.columns[i].type == ColumnType::Guid || !Chance(random, 5))) continue;
        if (!counts && Chance(random, 10)) continue;
        if (counts) {
            row[i] = state_.lastNumber.value_or(100000) + static_cast<std::int32_t>(random() % 3);
        } else {
            row[i] = RandomValue(design_, i, version_, random);
        }
        try {
            set_->Set(i, row[i]);
        } catch (const Error& error) {
            EXPECT_EQ(version_, 3) << error.what();
            EXPECT_EQ(error.Number(), ErrorNumber::TypeMismatch) << error.what();
            set = false;
        }
    }
    return set;
}

/// The numbers that the new row, the current one, got by itself.
void ModelTable::TakeNumbers(Row& row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (design_.columns[i].autonumber && row[i].IsNull()) {
            row[i] = set_->Field(i);
            EXPECT_FALSE(row[i].IsNull());
            if (i == autonumber_ && state_.lastNumber) {
                EXPECT_EQ(row[i].Integer(), *state_.lastNumber + 1) << name_;
            }
            if (i == autonumber_) state_.lastNumber = row[i].Integer();
        } else if (i == autonumber_ && state_.lastNumber) {
            state_.lastNumber = std::max(*state_.lastNumber, row[i].Integer());
        }
    }
}

void ModelTable::AddRow(Random& random) {
    Row row(design_.columns.size());
    set_->AddNew();
    if (!SetColumns(row, random)) return set_->CancelUpdate();
    // A number that the row gets by itself is not there yet for the rules to look at.
    Row counted = row;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (!design_.columns[i].autonumber || !row[i].IsNull()) continue;
        counted[i] = design_.columns[i].type == ColumnType::Long ? Value(INT32_MIN) : Value(Guid{});
    }
    if (!Store(counted, nullptr)) return;
    EXPECT_EQ(set_->Position(), set_->RecordCount() - 1) << "a new row is the last and current";
    TakeNumbers(row);
    Enter(row);
    state_.rows.push_back(std::move(row));
    CheckRow(state_.rows.size() - 1);
}

void ModelTable::EditRow(Random& random) {
    const std::size_t at = Pick(random, state_.rows.size());
    set_->MoveTo(static_cast<std::int32_t>(at));
    const Row before = state_.rows[at];
    Row row = before;
    set_->Edit();
    for (std::size_t count = 1 + Pick(random, 3); count > 0; --count) {
        const std::size_t i = Pick(random, row.size());
        if (design_.columns[i].autonumber) continue;
        row[i] = RandomValue(design_, i, version_, random);
        try {
            set_->Set(i, row[i]);
        } catch (const Error& error) {
            EXPECT_EQ(version_, 3) << error.what();
            EXPECT_EQ(error.Number(), ErrorNumber::TypeMismatch) << error.what();
            return set_->CancelUpdate();
        }
    }
    if (!Store(row, &before)) return CheckRow(at);
    EXPECT_EQ(set_->Position(), static_cast<std::int32_t>(at)) << "an edited row stays in place";
    Leave(before);
    Enter(row);
    state_.rows[at] = std::move(row);
    CheckRow(at);
}

void ModelTable::DeleteRow(Random& random) {
    const std::size_t at = Pick(random, state_.rows.size());
    set_->MoveTo(static_cast<std::int32_t>(at));
    try {
        set_->Delete();
    } catch (const Error& error) {
        EXPECT_TRUE(related_ && error.Number() == ErrorNumber::RelatedRecords) << error.what();
        return;
    }
    Leave(state_.rows[at]);
    state_.rows.erase(state_.rows.begin() + static_cast<std::ptrdiff_t>(at));
    EXPECT_EQ(set_->RecordCount(), static_cast<std::int32_t>(state_.rows.size()));
    EXPECT_EQ(set_->Position(), state_.rows.empty() ? -1 : static_cast<std::int32_t>(at))
        << "the next row becomes current";
    if (at < state_.rows.size()) CheckRow(at);
}

void ModelTable::FindRow(Random& random) {
    const std::size_t column = Pick(random, design_.columns.size());
    const ColumnType type = design_.columns[column].type;
    if (type != ColumnType::Long && type != ColumnType::Integer) return;
    const Value wanted = state_.rows[Pick(random, state_.rows.size())][column];
    if (wanted.IsNull()) return;
    const auto first = std::find_if(state_.rows.begin(), state_.rows.end(),
                                    [&](const Row& row) { return row[column] == wanted; });
    EXPECT_TRUE(set_->FindFirst("[" + design_.columns[column].name + "] = " + wanted.Text()));
    EXPECT_EQ(set_->Position(), first - state_.rows.begin()) << name_;
}

void ModelTable::Step(Random& random) {
    if (state_.rows.empty()) return AddRow(random);
    const unsigned addPercent = state_.rows.size() < targetRows_ ? 55 : 25;
    const unsigned what = random() % 100;
    if (what < addPercent) return AddRow(random);
    if (what < addPercent + 20) return EditRow(random);
    if (what < 98) return Chance(random, 60) ? DeleteRow(random) : EditRow(random);
    FindRow(random);
}

void ModelTable::DeleteByQuery(Database& file, Random& random) {
    if (state_.rows.empty() || related_) return;
    const std::size_t column = Pick(random, design_.columns.size());
    const Value wanted = state_.rows[Pick(random, state_.rows.size())][column];
    if (design_.columns[column].type != ColumnType::Long || wanted.IsNull()) return;
    const auto matches = [&](const Row& row) { return row[column] == wanted; };
    const auto count = std::count_if(state_.rows.begin(), state_.rows.end(), matches);
    const std::int32_t deleted =
        file.Execute("DELETE * FROM [" + name_ + "] WHERE [" + design_.columns[column].name +
                     "] = " + wanted.Text());
    EXPECT_EQ(deleted, count);
    for (const Row& row : state_.rows) {
        if (matches(row)) Leave(row);
    }
    std::erase_if(state_.rows, matches);
    Requery();
}

void ModelTable::CheckRow(std::size_t at) {
    for (std::size_t i = 0; i < design_.columns.size(); ++i) {
        const Value value = set_->At(static_cast<std::int32_t>(at), i);
        EXPECT_EQ(Exactly(value), Exactly(state_.rows[at][i]))
            << name_ << ", row " << at << ", " << design_.columns[i].name;
    }
}

void ModelTable::Check() {
    ASSERT_EQ(set_->RecordCount(), static_cast<std::int32_t>(state_.rows.size())) << name_;
    for (std::size_t at = 0; at < state_.rows.size(); ++at) {
        CheckRow(at);
        if (testing::Test::HasFailure()) return;
    }
}

void ModelTable::Attach(const std::shared_ptr<Database>& file) {
    EXPECT_EQ(file->StoredRowCount(name_), static_cast<std::int32_t>(state_.rows.size()));
    set_ = file->OpenRecordSet(name_);
    Adopt();
}

void ModelTable::Requery() {
    set_->Requery();
    Adopt();
}

void ModelTable::Restore(State state) {
    state_ = std::move(state);
    Requery();
}

/// Takes over the order of the record set: by the primary key, which the model knows, or as stored,
/// which only the file knows.
void ModelTable::Adopt() {
    if (primary_) {
        std::stable_sort(state_.rows.begin(), state_.rows.end(), [&](const Row& a, const Row& b) {
            return KeyOf(*primary_, a) < KeyOf(*primary_, b);
        });
        return;
    }
    std::multimap<std::string, Row> known;
    for (Row& row : state_.rows) {
        std::string text = Exactly(row);
        known.emplace(std::move(text), std::move(row));
    }
    state_.rows.clear();
    for (std::int32_t at = 0; at < set_->RecordCount(); ++at) {
        Row row;
        for (std::size_t i = 0; i < design_.columns.size(); ++i) row.push_back(set_->At(at, i));
        const auto found = known.find(Exactly(row));
        EXPECT_NE(found, known.end()) << name_ << ": a row that should not be there";
        if (found != known.end()) known.erase(found);
        state_.rows.push_back(std::move(row));
    }
    EXPECT_TRUE(known.empty()) << name_ << ": " << known.size() << " rows are missing";
}

}  // namespace jet::test
