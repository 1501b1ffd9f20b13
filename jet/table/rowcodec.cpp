#include "jet/table/rowcodec.h"

#include "jet/table/longvalue.h"

#include <algorithm>
#include <cmath>

namespace jet::detail {

namespace {

constexpr std::size_t kMinRowSize = 4;  ///< room for an overflow pointer in its place
constexpr std::uint8_t kNegative = 0x80, kNoJump = 0xFF;
constexpr std::size_t kGuidSize = 16, kNumericSize = 17, kMaxTextSize = 255;

[[noreturn]] void ThrowField(ErrorNumber number, const ColumnDef& column, const char* what) {
    throw Error{number, "column " + column.name + ": " + what};
}

template <typename T>
const T& Get(const ColumnDef& column, const Value& value) {
    const T* held = std::get_if<T>(&value.Held());
    if (held == nullptr) {
        ThrowField(ErrorNumber::TypeMismatch, column, "a value of another type");
    }
    return *held;
}

/// A stored GUID's first three groups are numbers with the lowest byte first;
/// shown, the highest is.
std::array<std::uint8_t, kGuidSize> SwapGuid(ByteView bytes) {
    constexpr std::array<std::uint8_t, kGuidSize> kFrom{3, 2, 1,  0,  5,  4,  7,  6,
                                                        8, 9, 10, 11, 12, 13, 14, 15};
    CheckRange(bytes.size(), 0, kGuidSize);
    std::array<std::uint8_t, kGuidSize> swapped{};
    for (std::size_t i = 0; i < kGuidSize; ++i) swapped[i] = bytes[kFrom[i]];
    return swapped;
}

Numeric DecodeNumeric(const ColumnDef& column, ByteView raw) {
    Numeric numeric{.negative = U8(raw, 0) != 0, .magnitude = {}, .scale = column.scale};
    for (std::size_t i = 0; i < numeric.magnitude.size(); ++i) {
        numeric.magnitude[i] = U32(raw, 1 + 4 * i);
    }
    return numeric;
}

std::vector<std::uint8_t> EncodeNumeric(const ColumnDef& column, const Numeric& numeric) {
    if (numeric.scale != column.scale) {
        ThrowField(ErrorNumber::TypeMismatch, column, "another number of decimals");
    }
    std::vector<std::uint8_t> bytes(kNumericSize, 0);
    PutU8(bytes, 0, numeric.negative ? kNegative : std::uint8_t{0});
    for (std::size_t i = 0; i < numeric.magnitude.size(); ++i) {
        PutU32(bytes, 1 + 4 * i, numeric.magnitude[i]);
    }
    return bytes;
}

std::vector<std::uint8_t> Number(std::uint64_t bits, std::size_t size) {
    std::vector<std::uint8_t> bytes(size, 0);
    PutLittleEndian(bytes, 0, bits, size);
    return bytes;
}

std::vector<std::uint8_t> EncodeTextColumn(const TextForm& form, const ColumnDef& column,
                                           const std::string& text) {
    std::vector<std::uint8_t> plain = EncodeText(form, text);
    if (StoredLength(form, plain) >
        std::min<std::size_t>(column.length / form.unit, kMaxTextSize)) {
        ThrowField(ErrorNumber::FieldTooLong, column, "a text longer than the column");
    }
    if (column.Fixed()) {
        while (plain.size() + form.unit <= column.length) {
            plain.push_back(' ');
            if (form.unit > 1) plain.push_back(0);
        }
        return plain;
    }
    const bool compress = (column.extra & kExtraCompressed) != 0;
    return compress ? EncodeCompressed(form, text) : plain;
}

std::vector<std::uint8_t> EncodeBinaryColumn(const ColumnDef& column, const Bytes& bytes) {
    if (column.length > 0 && bytes.size() > column.length) {
        ThrowField(ErrorNumber::FieldTooLong, column, "more bytes than the column holds");
    }
    return bytes;
}

std::vector<std::uint8_t> EncodeNotNull(PageFile& file, const TableDef& def,
                                        const ColumnDef& column, const Value& value) {
    switch (column.Type()) {
        case ColumnType::Byte:
            return {Get<std::uint8_t>(column, value)};
        case ColumnType::Integer:
            return Number(static_cast<std::uint16_t>(Get<std::int16_t>(column, value)), 2);
        case ColumnType::Long:
            return Number(static_cast<std::uint32_t>(Get<std::int32_t>(column, value)), 4);
        case ColumnType::Currency:
            return Number(static_cast<std::uint64_t>(Get<Currency>(column, value).tenThousandths),
                          8);
        case ColumnType::Single:
            return Number(std::bit_cast<std::uint32_t>(Get<float>(column, value)), 4);
        case ColumnType::Double:
            return Number(std::bit_cast<std::uint64_t>(Get<double>(column, value)), 8);
        case ColumnType::Date:
            return Number(std::bit_cast<std::uint64_t>(Get<Date>(column, value).serial), 8);
        case ColumnType::Binary:
        case ColumnType::LargeBinary:
            return EncodeBinaryColumn(column, Get<Bytes>(column, value));
        case ColumnType::Text:
            return EncodeTextColumn(TextFormOf(file), column, Get<std::string>(column, value));
        case ColumnType::Ole:
            return WriteLongValue(file, def, column, Get<Bytes>(column, value));
        case ColumnType::Memo:
            return WriteLongValue(file, def, column,
                                  EncodeText(TextFormOf(file), Get<std::string>(column, value)));
        case ColumnType::Guid: {
            const auto bytes = SwapGuid(Get<Guid>(column, value).bytes);
            return {bytes.begin(), bytes.end()};
        }
        case ColumnType::Numeric:
            return EncodeNumeric(column, Get<Numeric>(column, value));
        case ColumnType::Boolean:
            break;
    }
    ThrowField(ErrorNumber::NotSupported, column, "a type that is not written");
}

/// Puts a row together from its parts.
class RowBuilder {
  public:
    RowBuilder(const Layout& layout, const TableDef& def, std::span<const StoredColumn> columns)
        : layout_(layout), def_(def), columns_(columns) {}

    std::vector<std::uint8_t> Build() {
        row_.resize(layout_.rowCountSize, 0);
        PutLittleEndian(row_, 0, def_.maxColumns, layout_.rowCountSize);
        AddFixed();
        if (def_.variableCount > 0) AddVariable();
        const std::size_t mask = MaskSize(def_.maxColumns);
        if (def_.variableCount == 0 && row_.size() + mask < kMinRowSize) {
            row_.resize(kMinRowSize - mask, 0);
        }
        AddMask(mask);
        if (row_.size() > layout_.largestRow) {
            throw Error{ErrorNumber::FieldTooLong,
                        "a row of " + Decimal(row_.size()) + " bytes, more than a page takes"};
        }
        return std::move(row_);
    }

  private:
    void AddFixed() {
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const ColumnDef& column = def_.columns[i];
            if (!column.Fixed() || column.Type() == ColumnType::Boolean) continue;
            const std::size_t start = layout_.rowCountSize + column.fixedOffset;
            if (row_.size() < start + column.length) row_.resize(start + column.length, 0);
            if (!columns_[i].notNull) continue;
            if (columns_[i].bytes.size() != column.length) {
                ThrowField(ErrorNumber::NotADatabase, column, "not as long as its type");
            }
            PutBytes(row_, start, columns_[i].bytes);
        }
    }
    void AddVariable() {
        // One entry more than columns: the last is where the data ends.
        std::vector<std::size_t> offsets(std::size_t{def_.variableCount} + 1, 0);
        for (std::size_t variable = 0; variable < def_.variableCount; ++variable) {
            offsets[variable] = row_.size();
            const StoredColumn* column = FindVariable(variable);
            if (column != nullptr) {
                row_.insert(row_.end(), column->bytes.begin(), column->bytes.end());
            }
        }
        offsets[def_.variableCount] = row_.size();
        if (row_.size() > layout_.largestRow) return;  // refused at the end
        for (auto offset = offsets.rbegin(); offset != offsets.rend(); ++offset) {
            AddNumber(layout_.jumpTable ? *offset % kBytesPerJump : *offset);
        }
        if (layout_.jumpTable) AddJumps(offsets);
        AddNumber(def_.variableCount);
    }
    const StoredColumn* FindVariable(std::size_t variable) const {
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const ColumnDef& column = def_.columns[i];
            if (!column.Fixed() && column.variableNumber == variable && columns_[i].notNull) {
                return &columns_[i];
            }
        }
        return nullptr;
    }
    /// Jump j is the first entry whose offset needs j + 1 times 256 added; highest jump first in
    /// the row.
    void AddJumps(const std::vector<std::size_t>& offsets) {
        const std::size_t others = row_.size() + 1 + MaskSize(def_.maxColumns);
        std::size_t jumps = 0;
        while ((others + jumps - 1) / kBytesPerJump != jumps) ++jumps;
        for (std::size_t jump = jumps; jump-- > 0;) {
            const auto reached = std::find_if(
                offsets.begin(), offsets.end(),
                [&](std::size_t offset) { return offset >= kBytesPerJump * (jump + 1); });
            row_.push_back(reached == offsets.end()
                               ? kNoJump
                               : static_cast<std::uint8_t>(reached - offsets.begin()));
        }
    }
    void AddMask(std::size_t size) {
        const std::size_t start = row_.size();
        row_.resize(start + size, 0);
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const std::uint16_t number = def_.columns[i].number;
            if (!columns_[i].notNull) continue;
            row_[start + number / 8U] |= static_cast<std::uint8_t>(1U << (number % 8U));
        }
    }
    void AddNumber(std::size_t number) {
        row_.resize(row_.size() + layout_.rowCountSize, 0);
        PutLittleEndian(row_, row_.size() - layout_.rowCountSize, number, layout_.rowCountSize);
    }

    const Layout& layout_;
    const TableDef& def_;
    std::span<const StoredColumn> columns_;
    std::vector<std::uint8_t> row_;
};

}  // namespace

ByteView RowView::RawVariable(const ColumnDef& column) const {
    const std::size_t start = VariableOffset(column.variableNumber);
    const std::size_t end = VariableOffset(std::size_t{column.variableNumber} + 1);
    if (start > end || end > fixedEnd_) {
        ThrowDamaged(where_.page, where_.row, "a variable column outside its row");
    }
    return row_.subspan(start, end - start);
}

/// Entry `entry` of the variable table; the entry behind the last column is where the data ends.
std::size_t RowView::VariableOffset(std::size_t entry) const {
    const std::size_t unit = layout_->rowCountSize;
    std::size_t offset = Entry(row_, entries_ - entry * unit, unit);
    for (std::size_t jump = 0; jump < jumps_ && row_[jumpStart_ - jump] <= entry; ++jump) {
        offset += kBytesPerJump;
    }
    return offset;
}

TextForm TextFormOf(const PageFile& file) {
    return {file.Format().textUnit, file.Header().codePage};
}

Value DecodeColumn(const PageFile& file, const ColumnDef& column, const RowView& row) {
    if (column.Type() == ColumnType::Boolean) return row.Bit(column);
    if (row.IsNull(column)) return {};
    return DecodeValue(file, column, row.Raw(column));
}

Value DecodeValue(const PageFile& file, const ColumnDef& column, ByteView raw) {
    switch (column.Type()) {
        case ColumnType::Byte:
            return U8(raw, 0);
        case ColumnType::Integer:
            return I16(raw, 0);
        case ColumnType::Long:
            return I32(raw, 0);
        case ColumnType::Currency:
            return Currency{I64(raw, 0)};
        case ColumnType::Single:
            return F32(raw, 0);
        case ColumnType::Double:
            return F64(raw, 0);
        case ColumnType::Date:
            return Date{F64(raw, 0)};
        case ColumnType::Text:
            return DecodeText(TextFormOf(file), raw);
        case ColumnType::Memo:
            return DecodeText(TextFormOf(file), ReadLongValue(file, raw));
        case ColumnType::Ole:
            return ReadLongValue(file, raw);
        case ColumnType::Guid:
            return Guid{SwapGuid(raw)};
        case ColumnType::Numeric:
            return DecodeNumeric(column, raw);
        case ColumnType::Boolean:
        case ColumnType::Binary:
        case ColumnType::LargeBinary:
            break;
    }
    return Bytes(raw.begin(), raw.end());
}

void RequireInRange(const Value& value, std::string_view column) {
    constexpr double kFirst = -657434, kPastLast = 2958466;  // the years 100 to 9999
    bool inRange = true;
    if (const float* single = std::get_if<float>(&value.Held())) inRange = std::isfinite(*single);
    if (const double* number = std::get_if<double>(&value.Held())) inRange = std::isfinite(*number);
    if (const Date* date = std::get_if<Date>(&value.Held())) {
        // Before day 0 the fraction counts forward: the first day is that of the whole number.
        inRange = date->serial > kFirst - 1 && date->serial < kPastLast;
    }
    if (inRange) return;
    throw Error{ErrorNumber::Overflow,
                "column " + std::string(column) + ": not a number, or out of any range"};
}

StoredColumn EncodeValue(PageFile& file, const TableDef& def, const ColumnDef& column,
                         const Value& value) {
    if (column.Type() == ColumnType::Boolean) {
        return {!value.IsNull() && Get<bool>(column, value), {}};
    }
    if (value.IsNull()) return {};
    RequireInRange(value, column.name);
    return {true, EncodeNotNull(file, def, column, value)};
}

std::vector<std::uint8_t> BuildRow(const Layout& layout, const TableDef& def,
                                   std::span<const StoredColumn> columns) {
    return RowBuilder(layout, def, columns).Build();
}

}  // namespace jet::detail
