#include "jet/index/indexsums.h"

#include <cstdint>
#include <cstring>

namespace jet::detail {
namespace {

// Odd numbers without a pattern in their bits: each bit of a word reaches every bit of its product.
constexpr std::uint64_t kFirst = 0x9E3779B97F4A7C15, kSecond = 0xD6E8FEB86659FD93;

std::uint64_t Mixed(std::uint64_t word) {
    word = (word ^ word >> 32) * kFirst;
    word = (word ^ word >> 29) * kSecond;
    return word ^ word >> 32;
}

template <typename Word>
std::uint64_t WordAt(ByteView bytes, std::size_t at) {
    Word word;
    std::memcpy(&word, bytes.data() + at, sizeof word);
    return word;
}

/// In words; the last ones overlap where the length is no multiple of theirs.
std::uint64_t NumberOf(ByteView key) {
    constexpr std::size_t kLong = sizeof(std::uint64_t), kShort = sizeof(std::uint32_t);
    std::uint64_t number = key.size();
    if (key.size() >= kLong) {
        for (std::size_t at = 0; at + kLong <= key.size(); at += kLong) {
            number = Mixed(number + WordAt<std::uint64_t>(key, at));
        }
        return Mixed(number + WordAt<std::uint64_t>(key, key.size() - kLong));
    }
    if (key.size() >= kShort) {
        const std::uint64_t last = WordAt<std::uint32_t>(key, key.size() - kShort);
        return Mixed(number + (WordAt<std::uint32_t>(key, 0) | last << 32));
    }
    for (const std::uint8_t byte : key) number = number << 8 | byte;
    return Mixed(number);
}

/// The same for the same entries, in whatever order they are added.
class EntrySum {
  public:
    void Add(ByteView key, RowPointer row) {
        sum_ += Mixed(NumberOf(key) + row.Packed());
        ++count_;
    }
    bool operator==(const EntrySum&) const = default;

  private:
    std::uint64_t sum_ = 0, count_ = 0;
};

}  // namespace

bool EntriesAddUp(const TableStore& table, const TableIndexes& indexes, std::size_t index) {
    EntrySum due, found;
    Bytes key;
    bool known = true;
    table.Scan([&](RowPointer where, const RowView& row) {
        const auto state = indexes.KeyFromRow(index, row, key);
        if (state == TableIndexes::KeyState::Known) due.Add(key, where);
        known = state != TableIndexes::KeyState::Unknown;
        return known;
    });
    if (!known) return false;
    for (TreeCursor cursor = indexes.Tree(index).First(); cursor.Valid(); cursor.Next()) {
        found.Add(cursor.Key(), cursor.Row());
    }
    return due == found;
}

}  // namespace jet::detail
