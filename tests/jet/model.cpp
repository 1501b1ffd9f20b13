#include "model.h"

#include "base/error.h"
#include "jet/transaction.h"
#include "support.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>

namespace jet::test {
namespace {

using detail::KeyColumn;
using detail::TextOrder;

bool Chance(Random& random, unsigned percent) {
    return random() % 100 < percent;
}

std::size_t Pick(Random& random, std::size_t count) {
    return random() % count;
}

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

// --- what the other reader prints
// --------------------------------------------------------------------------

std::string WithDigits(double number, int digits) {
    char buffer[64];
    const auto end =
        std::to_chars(buffer, std::end(buffer), number + 0.0, std::chars_format::general, digits);
    return {buffer, end.ptr};
}

std::string WithoutZeros(std::string decimal) {
    if (decimal.find('.') == std::string::npos) return decimal;
    decimal.erase(decimal.find_last_not_of('0') + 1);
    if (decimal.back() == '.') decimal.pop_back();
    return decimal == "-0" ? "0" : decimal;
}

constexpr int kSingleDigits = 6, kDoubleDigits = 10;

/// One form for what a value is and for what the reader prints: an empty text and null look alike
/// there.
std::string Plain(const Value& value) {
    if (value.IsNull()) return "";
    if (const auto* single = std::get_if<float>(&value.Held())) {
        return WithDigits(static_cast<double>(*single), kSingleDigits);
    }
    if (const auto* number = std::get_if<double>(&value.Held())) {
        return WithDigits(*number, kDoubleDigits);
    }
    if (const auto* flag = std::get_if<bool>(&value.Held())) return *flag ? "1" : "0";
    if (std::holds_alternative<Currency>(value.Held()) ||
        std::holds_alternative<Numeric>(value.Held())) {
        return WithoutZeros(value.Text());
    }
    return value.Text();
}

std::string Plain(const std::string& printed, ColumnType type) {
    double number = 0;
    const char* end = printed.data() + printed.size();
    switch (type) {
        case ColumnType::Single:
        case ColumnType::Double:
            if (printed.empty()) return "";
            std::from_chars(printed.data(), end, number);
            return WithDigits(number, type == ColumnType::Single ? kSingleDigits : kDoubleDigits);
        case ColumnType::Currency:
        case ColumnType::Numeric:
            return WithoutZeros(printed);
        case ColumnType::Date:
            return printed.ends_with(" 00:00:00") ? printed.substr(0, printed.size() - 9) : printed;
        default:
            return printed;
    }
}

void AppendCharacter(std::string& text, unsigned character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | character >> 6);
        text += static_cast<char>(0x80 | (character & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | character >> 12);
        text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    }
}

/// Reads the lines {"name":value,...} of one table.
class JsonReader {
  public:
    explicit JsonReader(const std::string& text) : text_(text) {}

    bool AtEnd() {
        while (at_ < text_.size() && text_[at_] == '\n') ++at_;
        return at_ >= text_.size();
    }
    std::map<std::string, std::string> Row() {
        std::map<std::string, std::string> row;
        Take('{');
        while (text_[at_] != '}') {
            std::string name = String();
            Take(':');
            row.emplace(std::move(name), Item());
            if (text_[at_] == ',') ++at_;
        }
        Take('}');
        return row;
    }

  private:
    void Take(char wanted) {
        if (at_ >= text_.size() || text_[at_] != wanted) {
            throw std::runtime_error("unreadable line of the other reader at " +
                                     text_.substr(at_, 40));
        }
        ++at_;
    }
    std::string Item() {
        if (text_[at_] == '"') return String();
        if (text_[at_] == '{') {
            at_ = text_.find('}', at_) + 1;
            return "binary";
        }
        const std::size_t begin = at_;
        at_ = text_.find_first_of(",}", at_);
        return text_.substr(begin, at_ - begin);
    }
    std::string String() {
        Take('"');
        std::string text;
        while (text_.at(at_) != '"') {
            if (text_[at_] != '\\') {
                text += text_[at_++];
                continue;
            }
            const char escaped = text_.at(at_ + 1);
            at_ += 2;
            switch (escaped) {
                case 'n':
                    text += '\n';
                    break;
                case 'r':
                    text += '\r';
                    break;
                case 't':
                    text += '\t';
                    break;
                case 'b':
                    text += '\b';
                    break;
                case 'f':
                    text += '\f';
                    break;
                case 'u': {
                    unsigned character = 0;
                    std::from_chars(&text_.at(at_), &text_.at(at_) + 4, character, 16);
                    AppendCharacter(text, character);
                    at_ += 4;
                    break;
                }
                default:
                    text += escaped;
            }
        }
        Take('"');
        return text;
    }

    const std::string& text_;
    std::size_t at_ = 0;
};

const std::vector<std::string> kWords = {"Räksmörgås",
                                         "räksmörgås",
                                         "RÄKSMÖRGÅS  ",
                                         "Länsgård Norden",
                                         "249 995",
                                         "999 999",
                                         "x",
                                         "X",
                                         "-",
                                         "",
                                         "PPM Konto",
                                         "O'Brien",
                                         "Älg-Öst",
                                         "à la carte",
                                         "¶¶",
                                         "12,5 %",
                                         "naïve",
                                         "Zürich",
                                         "a.b/c",
                                         "Straße"};
const std::vector<std::string> kCharacters = {
    "a", "b", "c", "d", "e", "f", "G", "H", "i", "j", "k", "L", "m", "n", "o", "p", "R", "s",
    "t", "u", "v", "w", "x", "y", "z", "å", "ä", "ö", "Å", "Ä", "Ö", "é", "ü", "É", "Ü", "ß",
    "æ", "ø", "0", "1", "2", "3", "9", " ", "-", "'", ".", ",", "%", "/", "(", ")", "!", "?",
    "&", "+", "_", "#", "@", ";", ":", "*", "=", "€", "–", "’", "½", "§", "¶", "ñ", "ç"};

std::string Characters(Random& random, std::size_t count) {
    std::string text;
    for (; count > 0; --count) text += kCharacters[Pick(random, kCharacters.size())];
    return text;
}

Bytes RandomBytes(Random& random, std::size_t count) {
    Bytes bytes(count);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    return bytes;
}

/// Short ones mostly, and now and then one of each of the three ways of storing long values.
std::size_t LongValueLength(Random& random) {
    const std::size_t most[] = {30, 30, 60, 200, 2000, 9000};
    return Pick(random, most[Pick(random, std::size(most))] + 1);
}

}  // namespace

std::size_t ModelChanges(std::size_t percent) {
    std::size_t total = 100000;
    if (const char* wanted = std::getenv("KVARNBO_MODEL_CHANGES")) {
        std::from_chars(wanted, wanted + std::strlen(wanted), total);
    }
    return total * percent / 100;
}

unsigned ModelSeed() {
    unsigned seed = 20260224;
    if (const char* wanted = std::getenv("KVARNBO_MODEL_SEED")) {
        std::from_chars(wanted, wanted + std::strlen(wanted), seed);
    }
    return seed;
}

// --- a table
// -----------------------------------------------------------------------------------------------

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

/// The errors that storing `row` must give, by the rules alone; `certain` is false where it hangs
/// on a few bytes.
std::set<ErrorNumber> ModelTable::Expected(const Row& row, const Row* before, bool& certain) const {
    std::set<ErrorNumber> errors;
    for (std::size_t i = 0; i < design_.indexes.size(); ++i) {
        const IndexDesign& index = design_.indexes[i];
        for (std::size_t column : indexColumns_[i]) {
            const bool flag = design_.columns[column].type == ColumnType::Boolean;
            if ((index.primary || index.required) && row[column].IsNull() && !flag) {
                errors.insert(ErrorNumber::NullKey);
            }
        }
        if (!index.unique) continue;
        const auto key = KeyOf(i, row);
        const bool same = before != nullptr && key == KeyOf(i, *before);
        if (key && !same && state_.keys.contains(i) && state_.keys.at(i).contains(*key)) {
            errors.insert(ErrorNumber::DuplicateKey);
        }
    }
    for (std::size_t i = 0; i < row.size(); ++i) {
        const auto* text = std::get_if<std::string>(&row[i].Held());
        const bool changed = before == nullptr || !(row[i] == (*before)[i]);
        const ColumnType type = design_.columns[i].type;
        const bool needed = rules_.columns[i].required && type != ColumnType::Boolean;
        if (changed && needed && row[i].IsNull()) errors.insert(ErrorNumber::RequiredField);
        if (changed && text != nullptr && text->empty() && !rules_.columns[i].allowZeroLength) {
            errors.insert(ErrorNumber::ZeroLength);
        }
        if (text == nullptr || !changed || text->find("λ") == std::string::npos) continue;
        if (version_ == 3) errors.insert(ErrorNumber::TypeMismatch);
        if (version_ == 4 && indexed_.contains(i)) errors.insert(ErrorNumber::CollationUnknown);
    }
    std::size_t least = 0, most = 60;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const ColumnType type = design_.columns[i].type;
        const auto* text = std::get_if<std::string>(&row[i].Held());
        const auto* bytes = std::get_if<Bytes>(&row[i].Held());
        if (text != nullptr && type == ColumnType::Text) {
            least += text->size() / 2;
            most += 2 * text->size() + 4;
        } else if (type == ColumnType::Binary && bytes != nullptr) {
            least += bytes->size();
            most += bytes->size() + 2;
        } else if (type == ColumnType::Memo || type == ColumnType::Ole) {
            most += 90;
        } else {
            most += 18;
        }
    }
    const std::size_t largest = version_ == 3 ? 2012 : 4060;
    certain = most <= largest;
    if (least > largest) errors.insert(ErrorNumber::FieldTooLong);
    return errors;
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
    bool certain = true;
    const std::set<ErrorNumber> expected = Expected(row, before, certain);
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

void ModelTable::AddRow(Random& random) {
    Row row(design_.columns.size());
    set_->AddNew();
    bool set = true;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const bool counts = design_.columns[i].autonumber;
        if (!counts) row[i] = set_->Field(i);  // its default value
        if (counts && (design_.columns[i].type == ColumnType::Guid || !Chance(random, 5))) continue;
        if (!counts && Chance(random, 10)) continue;
        if (counts) {
            row[i] = state_.lastNumber.value_or(100000) + static_cast<std::int32_t>(random() % 3);
        } else {
            row[i] = RandomValue(i, random);
        }
        try {
            set_->Set(i, row[i]);
        } catch (const Error& error) {
            EXPECT_EQ(version_, 3) << error.what();
            EXPECT_EQ(error.Number(), ErrorNumber::TypeMismatch) << error.what();
            set = false;
        }
    }
    if (!set) return set_->CancelUpdate();
    // A number that the row gets by itself is not there yet for the rules to look at.
    Row counted = row;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (!design_.columns[i].autonumber || !row[i].IsNull()) continue;
        counted[i] = design_.columns[i].type == ColumnType::Long ? Value(INT32_MIN) : Value(Guid{});
    }
    if (!Store(counted, nullptr)) return;
    EXPECT_EQ(set_->Position(), set_->RecordCount() - 1) << "a new row is the last and current";
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
        row[i] = RandomValue(i, random);
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

std::string ModelTable::RandomText(std::size_t column, Random& random) const {
    const ColumnDesign& design = design_.columns[column];
    if (design.type == ColumnType::Memo) return Characters(random, LongValueLength(random));
    const std::size_t size = design.size;
    if (version_ == 4 && Chance(random, 1)) return "λ";
    if (Chance(random, 35)) {
        std::string word = kWords[Pick(random, kWords.size())];
        if (word.size() <= size) return word;
    }
    const bool longest = design_.columns.size() < 30 ? Chance(random, 8) : false;
    return Characters(random, longest ? size : Pick(random, std::min<std::size_t>(size, 40) + 1));
}

Value ModelTable::RandomValue(std::size_t column, Random& random) const {
    const ColumnDesign& design = design_.columns[column];
    if (design.type == ColumnType::Boolean) return Chance(random, 50);
    if (Chance(random, 8)) return {};
    const auto number = static_cast<std::int32_t>(random() % 200001) - 100000;
    switch (design.type) {
        case ColumnType::Byte:
            return static_cast<std::uint8_t>(random());
        case ColumnType::Integer:
            return static_cast<std::int16_t>(number % 300);
        case ColumnType::Long:
            return Chance(random, 60) ? number % 40 : static_cast<std::int32_t>(random());
        case ColumnType::Currency:
            return Currency{std::int64_t{number} * 1250};
        case ColumnType::Single:
            return static_cast<float>(number) / 8.0F;
        case ColumnType::Double:
            return Chance(random, 50) ? number / 4.0 : number * 1e-7;
        case ColumnType::Date:
            return Date{40000 + number / 8 * 0.25};
        case ColumnType::Guid: {
            Guid guid;
            for (std::uint8_t& byte : guid.bytes) byte = static_cast<std::uint8_t>(random());
            return guid;
        }
        case ColumnType::Numeric: {
            Numeric numeric;
            numeric.scale = design.scale;
            numeric.magnitude[3] = static_cast<std::uint32_t>(random() % 1000);
            numeric.negative = numeric.magnitude[3] != 0 && Chance(random, 50);
            return numeric;
        }
        case ColumnType::Binary:
            return RandomBytes(random, 1 + Pick(random, design.size));
        case ColumnType::Ole:
            return RandomBytes(random, LongValueLength(random));
        default:
            return RandomText(column, random);
    }
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

std::vector<std::vector<std::string>> ModelTable::ReaderRows(
    const std::filesystem::path& path) const {
    constexpr const char* kFormat = "%Y-%m-%d %H:%M:%S";
    const std::string text = ReadWith({"mdb-json", "-D", kFormat, "-T", kFormat, path, name_});
    std::vector<std::vector<std::string>> rows;
    for (JsonReader reader(text); !reader.AtEnd();) {
        const auto printed = reader.Row();
        auto& row = rows.emplace_back();
        for (const ColumnDesign& column : design_.columns) {
            const auto found = printed.find(column.name);
            row.push_back(found == printed.end() ? "" : Plain(found->second, column.type));
        }
    }
    return rows;
}

void ModelTable::LearnReader(const std::filesystem::path& path) {
    const auto rows = ReaderRows(path);
    for (std::size_t i = 0; i < design_.columns.size(); ++i) {
        std::multiset<std::string> printed, held;
        for (const auto& row : rows) printed.insert(row[i]);
        for (const Row& row : state_.rows) held.insert(Plain(row[i]));
        const ColumnType type = design_.columns[i].type;
        const bool bytes = type == ColumnType::Binary || type == ColumnType::Ole ||
                           type == ColumnType::Guid || type == ColumnType::LargeBinary;
        if (bytes || printed != held) leftOut_.insert(i);
    }
}

void ModelTable::CheckReader(const std::filesystem::path& path) const {
    std::multiset<std::string> printed, held;
    for (const auto& row : ReaderRows(path)) {
        std::string text;
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (!leftOut_.contains(i)) text += row[i] + "|";
        }
        printed.insert(std::move(text));
    }
    for (const Row& row : state_.rows) {
        std::string text;
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (!leftOut_.contains(i)) text += Plain(row[i]) + "|";
        }
        held.insert(std::move(text));
    }
    std::vector<std::string> missing, unknown;
    std::set_difference(held.begin(), held.end(), printed.begin(), printed.end(),
                        std::back_inserter(missing));
    std::set_difference(printed.begin(), printed.end(), held.begin(), held.end(),
                        std::back_inserter(unknown));
    EXPECT_TRUE(missing.empty()) << name_ << ": the other reader does not show " << missing.front();
    EXPECT_TRUE(unknown.empty()) << name_ << ": only the other reader shows " << unknown.front();
}

// --- a file
// ------------------------------------------------------------------------------------------------

ModelFile::ModelFile(std::filesystem::path path, std::size_t targetRows, unsigned seed)
    : path_(std::move(path)), random_(seed), file_(Database::Open(path_)) {
    for (const std::string& name : file_->TableNames()) {
        tables_.emplace_back(file_, name, targetRows);
        tables_.back().LearnReader(path_);
    }
}

void ModelFile::Run(std::size_t changes) {
    for (std::size_t made = 0; made < changes && !testing::Test::HasFailure();) made += Sequence();
    if (!testing::Test::HasFailure()) Reopen();
    CheckEverything(true);
}

void ModelFile::Steps(ModelTable& table, std::size_t count) {
    if (std::find(touched_.begin(), touched_.end(), &table) == touched_.end()) {
        touched_.push_back(&table);
        if (table.Related()) table.Reread();
    }
    for (; count > 0 && !testing::Test::HasFailure(); --count) table.Step(random_);
}

std::size_t ModelFile::Sequence() {
    touched_.clear();
    ModelTable& table = tables_[Pick(random_, tables_.size())];
    ModelTable& other = tables_[Pick(random_, tables_.size())];
    const std::size_t most = std::min<std::size_t>(2 * table.RowCount() + 40, 900);
    std::size_t count = 20 + Pick(random_, most);
    const unsigned kind = random_() % 100;
    if (kind < 12) {
        count = 1 + count % 12;  // each stored for itself
        Steps(table, count);
    } else if (kind < 27) {
        const ModelTable::State before = table.Now(), otherBefore = other.Now();
        {
            Transaction transaction(file_);
            Steps(table, count);
            if (&other != &table) Steps(other, 10);
            if (kind < 20) table.DeleteByQuery(*file_, random_);
        }
        table.Restore(before);
        if (&other != &table) other.Restore(otherBefore);
    } else if (kind < 30) {
        const ModelTable::State before = table.Now();
        {
            Transaction outer(file_);
            Steps(table, count);
            { const Transaction inner(file_); }
            EXPECT_THROW(outer.Commit(), Error) << "a transaction in it was rolled back";
        }
        table.Restore(before);
    } else {
        Transaction transaction(file_);
        Steps(table, count);
        {
            Transaction inner(file_);
            if (&other != &table) Steps(other, 10);
            inner.Commit();
        }
        if (kind < 45) table.DeleteByQuery(*file_, random_);
        transaction.Commit();
    }
    // What followed from a change in one table to another is other tests' business.
    for (ModelTable& each : tables_) {
        if (each.Related()) each.Reread();
    }
    if (Chance(random_, 25)) Reopen();
    CheckEverything(false);
    return count;
}

void ModelFile::Reopen() {
    file_->Close();
    file_ = Database::Open(path_);
    for (ModelTable& table : tables_) table.Attach(file_);
}

void ModelFile::CheckEverything(bool allTables) {
    EXPECT_EQ(file_->Verify(), std::vector<std::string>());
    for (ModelTable& table : tables_) {
        const bool touched = std::find(touched_.begin(), touched_.end(), &table) != touched_.end();
        if (testing::Test::HasFailure() || (!touched && !allTables)) continue;
        table.Check();
        table.CheckReader(path_);
    }
}

}  // namespace jet::test
