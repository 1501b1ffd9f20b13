#include "jet/index/indexkey.h"

#include "jet/error.h"
#include "jet/index/textweights.h"
#include "jet/table/codepage.h"
#include "jet/table/textcodec.h"

#include <algorithm>
#include <array>
#include <bit>
#include <vector>

namespace jet::detail {
namespace {

constexpr std::uint8_t kValueAscending = 0x7F, kValueDescending = 0x80;
constexpr std::uint8_t kNullAscending = 0x00, kNullDescending = 0xFF;
constexpr std::size_t kKeyCharacters = 255;
constexpr char32_t kBadSequence = 0xFFFFFFFF;  // no character, so without weight

void InvertFrom(Bytes& bytes, std::size_t begin) {
    for (std::size_t i = begin; i < bytes.size(); ++i) {
        bytes[i] = static_cast<std::uint8_t>(~bytes[i]);
    }
}

template <typename Unsigned>
void AppendBigEndian(Bytes& key, Unsigned value) {
    for (std::size_t shift = sizeof(Unsigned) * 8; shift > 0; shift -= 8) {
        key.push_back(static_cast<std::uint8_t>(value >> (shift - 8)));
    }
}

template <typename Signed>
void AppendSigned(Bytes& key, Signed value) {
    using Unsigned = std::make_unsigned_t<Signed>;
    constexpr auto kTop = static_cast<Unsigned>(Unsigned{1} << (sizeof(Unsigned) * 8 - 1));
    AppendBigEndian(key, static_cast<Unsigned>(static_cast<Unsigned>(value) ^ kTop));
}

template <typename Unsigned>
void AppendFloating(Bytes& key, Unsigned bits) {
    constexpr Unsigned kSign = Unsigned{1} << (sizeof(Unsigned) * 8 - 1);
    AppendBigEndian(key, (bits & kSign) != 0 ? static_cast<Unsigned>(~bits) : bits | kSign);
}

/// Blocks of eight bytes, each with a length byte: 9 when more follows.
void AppendBinary(Bytes& key, std::span<const std::uint8_t> data, bool descending) {
    constexpr std::size_t kBlock = 8;
    constexpr std::uint8_t kMoreFollows = 9;
    for (std::size_t at = 0; at < data.size(); at += kBlock) {
        const std::size_t used = std::min(kBlock, data.size() - at);
        const std::size_t begin = key.size();
        key.insert(key.end(), data.begin() + static_cast<std::ptrdiff_t>(at),
                   data.begin() + static_cast<std::ptrdiff_t>(at + used));
        key.resize(begin + kBlock, 0);
        const bool last = at + kBlock >= data.size();
        if (last) key.push_back(static_cast<std::uint8_t>(used));
        if (descending) InvertFrom(key, begin);
        if (!last) key.push_back(kMoreFollows);
    }
}

/// A sign byte and the magnitude. In descending order the sign byte stays and the magnitude turns.
void AppendNumeric(Bytes& key, const Numeric& value, bool descending) {
    key.push_back(value.negative ? 0x00 : 0xFF);
    const std::size_t begin = key.size();
    for (std::uint32_t word : value.magnitude) AppendBigEndian(key, word);
    if (value.negative != descending) InvertFrom(key, begin);
}

/// Its first 255 units of storage, without the blanks at the end.
std::vector<char32_t> KeyCharacters(std::string_view text) {
    std::vector<char32_t> characters;
    std::size_t units = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::optional<char32_t> character = NextCharacter(text, at);
        units += character && *character > 0xFFFF ? 2 : 1;
        if (units > kKeyCharacters) break;
        characters.push_back(character.value_or(kBadSequence));
        if (!character) break;
    }
    while (!characters.empty() && characters.back() == U' ') characters.pop_back();
    return characters;
}

/// Collects nibbles, high one first.
class NibbleWriter {
  public:
    explicit NibbleWriter(Bytes& out) : out_(out) {}
    void Add(std::uint8_t nibble) {
        if (half_) {
            out_.back() = static_cast<std::uint8_t>(out_.back() | nibble);
        } else {
            out_.push_back(static_cast<std::uint8_t>(nibble << 4));
        }
        half_ = !half_;
    }

  private:
    Bytes& out_;
    bool half_ = false;
};

/// Codes of the letters that can carry an accent: only these take a place in the accent part.
bool CanCarryAccent97(std::uint8_t code) {
    constexpr std::array<std::uint8_t, 9> kLetters = {0x60, 0x62, 0x66, 0x6A, 0x70,
                                                      0x72, 0x76, 0x78, 0x7D};
    return std::find(kLetters.begin(), kLetters.end(), code) != kLetters.end();
}

constexpr std::uint8_t kNoAccent = 2;

bool AppendText97(Bytes& key, std::string_view text) {
    std::vector<std::uint8_t> accents;
    std::size_t lastAccented = 0;
    const auto addCode = [&](std::uint8_t code, std::uint8_t accent) {
        key.push_back(code);
        if (!CanCarryAccent97(code)) return;
        accents.push_back(accent != 0 ? accent : kNoAccent);
        if (accent != 0) lastAccented = accents.size();
    };
    for (char32_t character : KeyCharacters(text)) {
        const auto byte = WesternCodePage().ToByte(character);
        if (!byte) return false;
        const Weight97& weight = WeightOf97(*byte);
        addCode(weight.code, weight.accent);
        if (weight.second != 0) addCode(weight.second, 0);
    }
    if (lastAccented == 0) {
        key.push_back(0);
        return true;
    }
    NibbleWriter nibbles(key);
    nibbles.Add(0);
    for (std::size_t i = 0; i < lastAccented; ++i) nibbles.Add(accents[i]);
    nibbles.Add(0);
    return true;
}

bool AppendText(Bytes& key, std::string_view text, bool descending) {
    const std::size_t begin = key.size();
    Bytes accents, ignorables;
    for (char32_t character : KeyCharacters(text)) {
        const Weight* weight = WeightOf(character);
        if (weight == nullptr) return false;
        if (weight->ignorable != 0) {
            AppendBigEndian(ignorables,
                            static_cast<std::uint16_t>(0x8000 | (7 + 4 * accents.size())));
            ignorables.push_back(0x06);
            ignorables.push_back(weight->ignorable);
        } else if (weight->code != 0) {
            key.push_back(weight->code);
            if (weight->second != 0) key.push_back(weight->second);
            accents.push_back(weight->accent != 0 ? weight->accent : kNoAccent);
        }
    }
    while (!accents.empty() && accents.back() <= kNoAccent) accents.pop_back();
    key.push_back(0x01);
    key.insert(key.end(), accents.begin(), accents.end());
    if (!ignorables.empty()) {
        key.insert(key.end(), 3, 0x01);
        key.insert(key.end(), ignorables.begin(), ignorables.end());
    }
    key.push_back(0x00);
    if (descending) {
        InvertFrom(key, begin);
        key.push_back(0x00);
    }
    return true;
}

template <typename Held>
const Held& Get(const Value& value) {
    const Held* held = std::get_if<Held>(&value.Held());
    if (held == nullptr) throw Error{ErrorNumber::TypeMismatch, "index key: value of another type"};
    return *held;
}

/// Appends the bytes after the start byte of a plain type, still ascending. False:
/// not a plain type.
bool AppendPlain(Bytes& key, const Value& value, ColumnType type) {
    switch (type) {
        case ColumnType::Byte:
            key.push_back(Get<std::uint8_t>(value));
            return true;
        case ColumnType::Integer:
            AppendSigned(key, Get<std::int16_t>(value));
            return true;
        case ColumnType::Long:
            AppendSigned(key, Get<std::int32_t>(value));
            return true;
        case ColumnType::Currency:
            AppendSigned(key, Get<Currency>(value).tenThousandths);
            return true;
        case ColumnType::Single:
            AppendFloating(key, std::bit_cast<std::uint32_t>(Get<float>(value)));
            return true;
        case ColumnType::Double:
            AppendFloating(key, std::bit_cast<std::uint64_t>(Get<double>(value)));
            return true;
        case ColumnType::Date:
            AppendFloating(key, std::bit_cast<std::uint64_t>(Get<Date>(value).serial));
            return true;
        default:
            return false;
    }
}

bool AppendTextInOrder(Bytes& key, std::string_view text, const KeyColumn& column) {
    if (column.order == TextOrder::General) return AppendText(key, text, column.descending);
    if (column.order != TextOrder::General97) return false;
    const std::size_t begin = key.size();
    if (!AppendText97(key, text)) return false;
    if (column.descending) InvertFrom(key, begin);
    return true;
}

}  // namespace

bool AppendKey(Bytes& key, const Value& value, const KeyColumn& column) {
    if (column.type == ColumnType::Boolean) {
        const bool yes = !value.IsNull() && Get<bool>(value);
        key.push_back(column.descending ? kValueDescending : kValueAscending);
        key.push_back(yes == column.descending ? 0xFF : 0x00);
        return true;
    }
    if (value.IsNull()) {
        key.push_back(NullKey(column));
        return true;
    }
    key.push_back(column.descending ? kValueDescending : kValueAscending);
    const std::size_t begin = key.size();
    if (AppendPlain(key, value, column.type)) {
        if (column.descending) InvertFrom(key, begin);
        return true;
    }
    switch (column.type) {
        case ColumnType::Guid:
            AppendBinary(key, Get<Guid>(value).bytes, column.descending);
            return true;
        case ColumnType::Binary:
            AppendBinary(key, Get<Bytes>(value), column.descending);
            return true;
        case ColumnType::Numeric:
            AppendNumeric(key, Get<Numeric>(value), column.descending);
            return true;
        case ColumnType::Text:
        case ColumnType::Memo:
            return AppendTextInOrder(key, Get<std::string>(value), column);
        default:
            return false;
    }
}

void AppendLongKey(Bytes& key, std::int32_t value, bool descending) {
    key.push_back(descending ? kValueDescending : kValueAscending);
    AppendSigned(key, descending ? ~value : value);
}

bool Indexable(ColumnType type) {
    return type != ColumnType::Ole && type != ColumnType::LargeBinary;
}

std::uint8_t NullKey(const KeyColumn& column) {
    return column.descending ? kNullDescending : kNullAscending;
}

std::optional<Bytes> EncodeKey(const Value& value, const KeyColumn& column) {
    return EncodeKey(std::span(&value, 1), std::span(&column, 1));
}

std::optional<Bytes> EncodeKey(std::span<const Value> values, std::span<const KeyColumn> columns) {
    if (values.size() != columns.size()) {
        throw Error{ErrorNumber::InvalidProcedureCall, "index key: not one value for each column"};
    }
    constexpr std::size_t kUsualPart = 12;
    Bytes key;
    key.reserve(kUsualPart * columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!AppendKey(key, values[i], columns[i])) return std::nullopt;
    }
    return key;
}

}  // namespace jet::detail
