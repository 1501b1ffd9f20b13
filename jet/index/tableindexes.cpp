#include "jet/index/tableindexes.h"

#include "jet/error.h"
#include "jet/storage/layout.h"
#include "jet/table/rowcodec.h"
#include "jet/table/textcodec.h"

#include <algorithm>
#include <unordered_map>

namespace jet::detail {
namespace {

constexpr std::uint16_t kLatinCodePage = 1252;
constexpr char32_t kReplacement = 0xFFFD;
constexpr RowPointer kNoRow{};

TextOrder GeneralOf(const Layout& layout) {
    return layout.textUnit == 1 ? TextOrder::General97 : TextOrder::General;
}

bool AllNull(std::span<const Value> values) {
    return std::all_of(values.begin(), values.end(), [](const Value& v) { return v.IsNull(); });
}

void AppendSized(Bytes& to, std::uint8_t mark, ByteView bytes) {
    to.push_back(mark);
    for (std::size_t shift = 0; shift < 32; shift += 8) {
        to.push_back(static_cast<std::uint8_t>(bytes.size() >> shift));
    }
    to.insert(to.end(), bytes.begin(), bytes.end());
}

/// The stored form of a value that has no computable key: a text, or a type without keys.
Bytes Identity(const Value& value) {
    if (const auto* bytes = std::get_if<Bytes>(&value.Held())) return *bytes;
    const auto& text = std::get<std::string>(value.Held());
    return {text.begin(), text.end()};
}

/// Its characters; nothing when some of the stored ones could not be shown.
std::optional<std::vector<char32_t>> WholeCharacters(const Value& value) {
    std::vector<char32_t> characters;
    const auto* text = std::get_if<std::string>(&value.Held());
    if (text == nullptr) return characters;
    for (std::size_t at = 0; at < text->size();) {
        const auto character = NextCharacter(*text, at);
        if (!character || *character == kReplacement) return std::nullopt;
        characters.push_back(*character);
    }
    return characters;
}

/// The columns from the first to the last without a known key,
/// as a key for looking their bytes up again.
struct Gap {
    Bytes before, after;  ///< key bytes of the columns outside
    Bytes identity;       ///< the values inside
    bool whole = true;    ///< every text inside was read without loss
};

Gap GapOf(std::span<const std::optional<Bytes>> parts, std::span<const Value> values) {
    const auto unknown = [](const auto& part) { return !part.has_value(); };
    const auto first =
        static_cast<std::size_t>(std::find_if(parts.begin(), parts.end(), unknown) - parts.begin());
    const auto last =
        parts.size() - static_cast<std::size_t>(
                           std::find_if(parts.rbegin(), parts.rend(), unknown) - parts.rbegin());
    Gap gap;
    gap.identity = {static_cast<std::uint8_t>(first), static_cast<std::uint8_t>(last)};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i >= first && i < last) {
            AppendSized(gap.identity, parts[i] ? 1 : 2, parts[i] ? *parts[i] : Identity(values[i]));
            gap.whole = gap.whole && WholeCharacters(values[i]).has_value();
        } else {
            Bytes& side = i < first ? gap.before : gap.after;
            side.insert(side.end(), parts[i]->begin(), parts[i]->end());
        }
    }
    return gap;
}

}  // namespace

TextOrder TextOrderOf(const PageFile& file, const ColumnDef& column) {
    const bool general = column.collation == kGeneralCollation && column.collationVersion == 0;
    const bool latin = file.Format().textUnit != 1 || file.Header().codePage == kLatinCodePage;
    return general && latin ? GeneralOf(file.Format()) : TextOrder::Unknown;
}

TableIndexes::TableIndexes(TableStore& table) : table_(&table) {
    for (const RealIndex& index : table.Def().realIndexes) {
        std::vector<KeyColumn>& columns = columns_.emplace_back();
        for (const IndexColumnDef& part : index.columns) {
            const ColumnDef& column = table.Def().columns.at(part.position);
            columns.push_back({column.Type(), part.descending, TextOrderOf(table.File(), column)});
        }
    }
}

BTree TableIndexes::Tree(std::size_t realIndex) const {
    const TableDef& def = table_->Def();
    return {table_->File(), def.page, def.realIndexes.at(realIndex)};
}

std::vector<Value> TableIndexes::KeyValues(std::size_t realIndex,
                                           std::span<const Value> values) const {
    std::vector<Value> keyValues;
    const TableDef& def = table_->Def();
    for (const IndexColumnDef& part : def.realIndexes[realIndex].columns) {
        const bool flag = def.columns[part.position].Type() == ColumnType::Boolean;
        const Value& value = values[part.position];
        keyValues.push_back(flag && value.IsNull() ? Value(false) : value);
    }
    return keyValues;
}

std::vector<Value> TableIndexes::KeyValues(std::size_t realIndex, const RowView& row) const {
    std::vector<Value> keyValues;
    const TableDef& def = table_->Def();
    for (const IndexColumnDef& part : def.realIndexes[realIndex].columns) {
        keyValues.push_back(DecodeColumn(table_->File(), def.columns[part.position], row));
    }
    return keyValues;
}

TableIndexes::RowKey TableIndexes::KeyFromValues(std::size_t realIndex,
                                                 std::span<const Value> keyValues) const {
    if (table_->Def().realIndexes[realIndex].IgnoreNulls() && AllNull(keyValues)) {
        return {false, std::nullopt};
    }
    return {true, EncodeKey(keyValues, columns_[realIndex])};
}

TableIndexes::RowKey TableIndexes::KeyFromRow(std::size_t realIndex, const RowView& row) const {
    return KeyFromValues(realIndex, KeyValues(realIndex, row));
}

TableIndexes::KeyState TableIndexes::KeyFromRow(std::size_t realIndex, const RowView& row,
                                                Bytes& into) const {
    const TableDef& def = table_->Def();
    const RealIndex& index = def.realIndexes[realIndex];
    into.clear();
    bool known = true, allNull = true;
    for (std::size_t i = 0; i < index.columns.size(); ++i) {
        const ColumnDef& column = def.columns[index.columns[i].position];
        const KeyColumn& form = columns_[realIndex][i];
        if (form.type == ColumnType::Long) {
            const auto number = DecodeLong(column, row);
            if (number) {
                AppendLongKey(into, *number, form.descending);
            } else {
                into.push_back(NullKey(form));
            }
            allNull = allNull && !number;
            continue;
        }
        const Value value = DecodeColumn(table_->File(), column, row);
        known = AppendKey(into, value, form) && known;
        allNull = allNull && value.IsNull();
    }
    if (allNull && index.IgnoreNulls()) return KeyState::Absent;
    return known ? KeyState::Known : KeyState::Unknown;
}

TableIndexes::Parts TableIndexes::PartsOf(std::size_t realIndex,
                                          std::span<const Value> keyValues) const {
    Parts parts;
    for (std::size_t i = 0; i < keyValues.size(); ++i) {
        parts.push_back(EncodeKey(keyValues[i], columns_[realIndex][i]));
    }
    return parts;
}

/// Whether two rows have the same key for certain: equal key bytes, or equal values where bytes are
/// not known.
bool TableIndexes::SameKey(std::size_t realIndex, std::span<const Value> a,
                           std::span<const Value> b) const {
    const Parts partsA = PartsOf(realIndex, a), partsB = PartsOf(realIndex, b);
    for (std::size_t i = 0; i < a.size(); ++i) {
        const bool known = partsA[i] && partsB[i];
        if (known ? *partsA[i] != *partsB[i] : !(a[i] == b[i])) return false;
    }
    return true;
}

/// The key a row would have, once it is certain that it may; nothing where it has no entry.
std::optional<Bytes> TableIndexes::CheckedKey(std::size_t realIndex,
                                              std::span<const Value> keyValues, RowPointer self) {
    const TableDef& def = table_->Def();
    const RealIndex& index = def.realIndexes[realIndex];
    const LogicalIndex* primary = def.PrimaryKey();
    const bool required = index.Required() || (primary != nullptr && primary->real == realIndex);
    for (std::size_t i = 0; required && i < keyValues.size(); ++i) {
        if (!keyValues[i].IsNull()) continue;
        throw Error{ErrorNumber::NullKey, def.name + ": null in the required index column " +
                                              def.columns[index.columns[i].position].name};
    }
    if (index.IgnoreNulls() && AllNull(keyValues)) return std::nullopt;
    Bytes key = KnownOrProvenKey(realIndex, keyValues);
    if (index.Unique() && !AllNull(keyValues) && Tree(realIndex).ContainsOther(key, self)) {
        throw Error{ErrorNumber::DuplicateKey,
                    def.name + ": the unique index on " +
                        def.columns[index.columns.front().position].name + " has this key already"};
    }
    return key;
}

/// The same columns, as if every sort order were the one that is known.
std::vector<KeyColumn> TableIndexes::AsGeneral(std::size_t realIndex) const {
    std::vector<KeyColumn> columns = columns_[realIndex];
    for (KeyColumn& column : columns) column.order = GeneralOf(table_->File().Format());
    return columns;
}

/// Of values whose sort order is not known, only what rows of this index prove: a key that a row
/// with the same values has, or the known order where all keys agree with it and show each
/// of the characters.
Bytes TableIndexes::KnownOrProvenKey(std::size_t realIndex, std::span<const Value> keyValues) {
    if (auto key = EncodeKey(keyValues, columns_[realIndex])) return *std::move(key);
    const Evidence& evidence = EvidenceOf(realIndex);
    const Parts parts = PartsOf(realIndex, keyValues);
    const Gap gap = GapOf(parts, keyValues);
    if (const auto found = evidence.known.find(gap.identity); found != evidence.known.end()) {
        Bytes key = gap.before;
        key.insert(key.end(), found->second.begin(), found->second.end());
        key.insert(key.end(), gap.after.begin(), gap.after.end());
        return key;
    }
    bool proven = evidence.general && gap.whole;
    for (std::size_t i = 0; proven && i < parts.size(); ++i) {
        if (parts[i]) continue;
        const auto characters = WholeCharacters(keyValues[i]).value_or(std::vector<char32_t>());
        for (char32_t character : characters) {
            proven = proven && evidence.characters.contains({i, character});
        }
    }
    if (proven) {
        if (auto key = EncodeKey(keyValues, AsGeneral(realIndex))) return *std::move(key);
    }
    const TableDef& def = table_->Def();
    const std::size_t column = def.realIndexes[realIndex].columns[gap.identity.front()].position;
    throw Error{ErrorNumber::CollationUnknown,
                def.name + "." + def.columns[column].name + ": the sort order of its index (" +
                    Decimal(def.columns[column].collation) + ") is not known for this value"};
}

const TableIndexes::Evidence& TableIndexes::EvidenceOf(std::size_t realIndex) {
    if (const auto found = evidence_.find(realIndex); found != evidence_.end()) {
        return found->second;
    }
    std::unordered_map<std::uint32_t, Bytes> keys;
    for (TreeCursor at = Tree(realIndex).First(); at.Valid(); at.Next()) {
        keys.emplace(at.Row().Packed(), Bytes(at.Key().begin(), at.Key().end()));
    }
    Evidence evidence;
    evidence.general = !keys.empty();
    table_->Scan([&](RowPointer where, const RowView& row) {
        const auto found = keys.find(where.Packed());
        if (found != keys.end()) {
            Learn(evidence, realIndex, KeyValues(realIndex, row), found->second);
        }
    });
    return evidence_.emplace(realIndex, std::move(evidence)).first->second;
}

void TableIndexes::Learn(Evidence& evidence, std::size_t realIndex,
                         std::span<const Value> keyValues, ByteView key) const {
    const auto general = EncodeKey(keyValues, AsGeneral(realIndex));
    evidence.general = evidence.general && general &&
                       std::equal(general->begin(), general->end(), key.begin(), key.end());
    for (std::size_t i = 0; evidence.general && i < keyValues.size(); ++i) {
        const auto characters = WholeCharacters(keyValues[i]).value_or(std::vector<char32_t>());
        for (char32_t character : characters) {
            evidence.characters.emplace(i, character);
        }
    }
    const Parts parts = PartsOf(realIndex, keyValues);
    if (std::all_of(parts.begin(), parts.end(), [](const auto& p) { return p.has_value(); }))
        return;
    const Gap gap = GapOf(parts, keyValues);
    const std::size_t outside = gap.before.size() + gap.after.size();
    const bool fits = gap.whole && key.size() >= outside &&
                      std::equal(gap.before.begin(), gap.before.end(), key.begin()) &&
                      std::equal(gap.after.rbegin(), gap.after.rend(), key.rbegin());
    if (!fits) return;
    const ByteView inside = key.subspan(gap.before.size(), key.size() - outside);
    evidence.known.emplace(gap.identity, Bytes(inside.begin(), inside.end()));
}

IndexPlan TableIndexes::PlanInsert(std::span<const Value> values) {
    IndexPlan plan;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        auto key = CheckedKey(i, KeyValues(i, values), kNoRow);
        if (key) plan.changes.push_back({i, false, std::nullopt, std::move(key)});
    }
    return plan;
}

IndexPlan TableIndexes::PlanUpdate(RowPointer row, std::span<const std::optional<Value>> values) {
    IndexPlan plan;
    const RowView old = table_->Read(row);
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const auto& parts = table_->Def().realIndexes[i].columns;
        const bool touched = std::any_of(parts.begin(), parts.end(), [&](const auto& part) {
            return values[part.position].has_value();
        });
        if (!touched) continue;
        const std::vector<Value> before = KeyValues(i, old);
        std::vector<Value> after = before;
        for (std::size_t k = 0; k < parts.size(); ++k) {
            const auto& value = values[parts[k].position];
            if (!value) continue;
            const bool flag = columns_[i][k].type == ColumnType::Boolean;
            after[k] = flag && value->IsNull() ? Value(false) : *value;
        }
        if (SameKey(i, before, after)) continue;
        RowKey oldKey = KeyFromValues(i, before);
        plan.changes.push_back(
            {i, oldKey.present, std::move(oldKey.key), CheckedKey(i, after, row)});
    }
    return plan;
}

void TableIndexes::Apply(const IndexPlan& plan, RowPointer row) {
    for (const IndexPlan::Change& change : plan.changes) {
        if (change.erase) EraseEntry(change.index, change.oldKey, row);
        if (!change.newKey || !Tree(change.index).Insert(*change.newKey, row)) continue;
        TableDef& def = table_->EditDef();
        StoreDistinctKeys(table_->File(), def, change.index,
                          def.realIndexes[change.index].distinctKeys + 1);
    }
}

void TableIndexes::Erase(std::span<const std::uint32_t> rows) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        BTree tree = Tree(i);
        std::vector<Bytes> entries;
        std::vector<RowPointer> unknown;
        Bytes key;
        for (const std::uint32_t packed : rows) {
            const RowPointer row = RowPointer::FromPacked(packed);
            const KeyState state = KeyFromRow(i, table_->Read(row), key);
            if (state == KeyState::Known) entries.push_back(MakeEntry(key, row));
            if (state == KeyState::Unknown) unknown.push_back(row);
        }
        for (const Bytes& missing : tree.EraseAll(std::move(entries))) {
            unknown.push_back(RowOf(missing));
        }
        for (const RowPointer row : unknown) tree.EraseByRowPointer(row);
    }
}

/// Another engine may have made the entry by a rule of its own;
/// the row pointer names it all the same.
void TableIndexes::EraseEntry(std::size_t realIndex, const std::optional<Bytes>& key,
                              RowPointer row) {
    BTree tree = Tree(realIndex);
    if (key && tree.Erase(*key, row)) return;
    tree.EraseByRowPointer(row);
}

}  // namespace jet::detail
