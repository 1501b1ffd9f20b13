#include "jet/catalog/properties.h"

#include "jet/table/names.h"

#include <algorithm>
#include <string>
#include <vector>

namespace jet::detail {
namespace {

constexpr std::uint16_t kNames = 0x80, kOfTable = 0, kOfColumn = 1;
constexpr std::size_t kMagic = 4, kChunkHeader = 6, kEntryHeader = 8;
constexpr std::uint8_t kBoolean = 1, kText = 10, kMemo = 12;

/// The bytes from their start to their end, each part with its length in front.
class Reader {
  public:
    Reader(ByteView bytes, const TextForm& form, const TableDef& def)
        : bytes_(bytes), form_(form), def_(def) {
        rules_.columns.resize(def.columns.size());
    }

    TableRules Read() {
        for (std::size_t at = kMagic; at < bytes_.size();) {
            const std::size_t size = U32(bytes_, at);
            if (size < kChunkHeader) ThrowDamaged(kNoPage, at, "properties without a length");
            const ByteView chunk = Part(bytes_, at, size);
            const std::uint16_t kind = U16(chunk, 4);
            if (kind == kNames) ReadNames(chunk.subspan(kChunkHeader));
            if (kind == kOfTable || kind == kOfColumn) {
                ReadOwner(chunk.subspan(kChunkHeader), kind == kOfColumn);
            }
            at += size;
        }
        return std::move(rules_);
    }

  private:
    void ReadNames(ByteView chunk) {
        for (std::size_t at = 0; at < chunk.size();) {
            const std::size_t size = U16(chunk, at);
            names_.push_back(DecodeText(form_, Part(chunk, at + 2, size)));
            at += 2 + size;
        }
    }

    /// The name of the column, then its properties: length, flag, type, name, length of the value.
    void ReadOwner(ByteView chunk, bool isColumn) {
        const std::size_t header = U32(chunk, 0);
        ColumnRules* rules = &ofTable_;
        if (isColumn) {
            const std::string owner = DecodeText(form_, Part(chunk, 6, U16(chunk, 4)));
            const auto position = def_.PositionOf(owner);
            if (!position) return;  // of a column that was deleted
            rules = &rules_.columns[*position];
        }
        for (std::size_t at = header; at < chunk.size();) {
            const std::size_t size = U16(chunk, at);
            if (size < kEntryHeader) ThrowDamaged(kNoPage, at, "a property without a length");
            const ByteView entry = Part(chunk, at, size);
            const std::size_t name = U16(entry, 4);
            if (name >= names_.size()) ThrowDamaged(kNoPage, at, "a property without a name");
            Take(*rules, names_[name], U8(entry, 3), Part(entry, kEntryHeader, U16(entry, 6)));
            at += size;
        }
        rules_.validationRule = ofTable_.validationRule;
        rules_.validationText = ofTable_.validationText;
    }

    void Take(ColumnRules& rules, const std::string& name, std::uint8_t type, ByteView value) {
        if (type == kBoolean && !value.empty()) {
            if (SameName(name, "Required")) rules.required = value[0] != 0;
            if (SameName(name, "AllowZeroLength")) rules.allowZeroLength = value[0] != 0;
        }
        if (type != kText && type != kMemo) return;
        const std::string text = DecodeText(form_, value);
        if (SameName(name, "DefaultValue")) rules.defaultValue = text;
        if (SameName(name, "ValidationRule")) rules.validationRule = text;
        if (SameName(name, "ValidationText")) rules.validationText = text;
    }

    ByteView bytes_;
    TextForm form_;
    const TableDef& def_;
    std::vector<std::string> names_;
    TableRules rules_;
    ColumnRules ofTable_;
};

}  // namespace

TableRules ReadRules(ByteView properties, const TextForm& form, const TableDef& def) {
    return Reader(properties, form, def).Read();
}

}  // namespace jet::detail
