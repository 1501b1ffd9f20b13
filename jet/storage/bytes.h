#pragma once
// Bounds-checked little-endian (and, for index entries, big-endian) access to bytes of a file.
// A place outside the span throws NotADatabase naming page and offset.

#include "jet/error.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

namespace jet::detail {

using ByteView = std::span<const std::uint8_t>;
using ByteSpan = std::span<std::uint8_t>;

/// For error texts when the bytes are not (or no longer known to be) a page.
inline constexpr std::uint32_t kNoPage = 0xFFFFFFFF;

/// A decimal number for error texts.
std::string Decimal(std::uint64_t number);

/// At most 200 characters of a text that somebody wrote, for error texts.
std::string Excerpt(std::string_view utf8);

/// Throws NotADatabase: "page 7: text (at 4103)".
[[noreturn]] void ThrowDamaged(std::uint32_t page, std::size_t offset, std::string_view what);
[[noreturn]] void ThrowOutside(std::uint32_t page, std::size_t offset, std::size_t size,
                               std::size_t available);

inline void CheckRange(std::size_t available, std::size_t offset, std::size_t size,
                       std::uint32_t page = kNoPage) {
    if (offset > available || available - offset < size) [[unlikely]] {
        ThrowOutside(page, offset, size, available);
    }
}

/// A part of the bytes, checked.
inline ByteView Part(ByteView bytes, std::size_t offset, std::size_t size,
                     std::uint32_t page = kNoPage) {
    CheckRange(bytes.size(), offset, size, page);
    return bytes.subspan(offset, size);
}
inline ByteSpan Part(ByteSpan bytes, std::size_t offset, std::size_t size,
                     std::uint32_t page = kNoPage) {
    CheckRange(bytes.size(), offset, size, page);
    return bytes.subspan(offset, size);
}

/// `count` bytes (1 to 8) as an unsigned number, lowest byte first.
inline std::uint64_t LittleEndian(ByteView bytes, std::size_t offset, std::size_t count,
                                  std::uint32_t page = kNoPage) {
    CheckRange(bytes.size(), offset, count, page);
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < count; ++i) {
        number |= static_cast<std::uint64_t>(bytes[offset + i]) << (8 * i);
    }
    return number;
}
/// The same, highest byte first.
inline std::uint64_t BigEndian(ByteView bytes, std::size_t offset, std::size_t count,
                               std::uint32_t page = kNoPage) {
    CheckRange(bytes.size(), offset, count, page);
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < count; ++i) number = number << 8 | bytes[offset + i];
    return number;
}

/// One that counts bytes or entries of a page: `size` is at most 4.
inline std::size_t SizeAt(ByteView bytes, std::size_t offset, std::size_t size,
                          std::uint32_t page = kNoPage) {
    return static_cast<std::size_t>(LittleEndian(bytes, offset, size, page));
}

inline std::uint8_t U8(ByteView bytes, std::size_t offset, std::uint32_t page = kNoPage) {
    CheckRange(bytes.size(), offset, 1, page);
    return bytes[offset];
}
inline std::uint16_t U16(ByteView bytes, std::size_t offset, std::uint32_t page = kNoPage) {
    return static_cast<std::uint16_t>(LittleEndian(bytes, offset, 2, page));
}
inline std::uint32_t U32(ByteView bytes, std::size_t offset, std::uint32_t page = kNoPage) {
    return static_cast<std::uint32_t>(LittleEndian(bytes, offset, 4, page));
}
inline std::uint64_t U64(ByteView bytes, std::size_t offset, std::uint32_t page = kNoPage) {
    CheckRange(bytes.size(), offset, sizeof(std::uint64_t), page);
    if constexpr (std::endian::native == std::endian::little) {
        std::uint64_t number = 0;
        std::memcpy(&number, &bytes[offset], sizeof number);
        return number;
    } else {
        return LittleEndian(bytes, offset, sizeof(std::uint64_t), page);
    }
}
inline std::int16_t I16(ByteView bytes, std::size_t offset, std::uint32_t page = kNoPage) {
    return static_cast<std::int16_t>(U16(bytes, offset, page));
}
inline std::int32_t I32(ByteView bytes, std::size_t offset, std::uint32_t page = kNoPage) {
    return static_cast<std::int32_t>(U32(bytes, offset, page));
}
inline std::int64_t I64(ByteView bytes, std::size_t offset, std::uint32_t page = kNoPage) {
    return static_cast<std::int64_t>(U64(bytes, offset, page));
}
inline float F32(ByteView bytes, std::size_t offset, std::uint32_t page = kNoPage) {
    return std::bit_cast<float>(U32(bytes, offset, page));
}
inline double F64(ByteView bytes, std::size_t offset, std::uint32_t page = kNoPage) {
    return std::bit_cast<double>(U64(bytes, offset, page));
}
inline std::uint32_t U24BE(ByteView bytes, std::size_t offset, std::uint32_t page = kNoPage) {
    return static_cast<std::uint32_t>(BigEndian(bytes, offset, 3, page));
}
inline std::uint32_t U32BE(ByteView bytes, std::size_t offset, std::uint32_t page = kNoPage) {
    return static_cast<std::uint32_t>(BigEndian(bytes, offset, 4, page));
}

/// Writes the lowest `count` bytes (1 to 8) of a number, lowest byte first.
inline void PutLittleEndian(ByteSpan bytes, std::size_t offset, std::uint64_t number,
                            std::size_t count) {
    CheckRange(bytes.size(), offset, count);
    for (std::size_t i = 0; i < count; ++i) {
        bytes[offset + i] = static_cast<std::uint8_t>(number >> (8 * i));
    }
}
/// The same, highest byte first.
inline void PutBigEndian(ByteSpan bytes, std::size_t offset, std::uint64_t number,
                         std::size_t count) {
    CheckRange(bytes.size(), offset, count);
    for (std::size_t i = 0; i < count; ++i) {
        bytes[offset + i] = static_cast<std::uint8_t>(number >> (8 * (count - 1 - i)));
    }
}

inline void PutU8(ByteSpan bytes, std::size_t offset, std::uint8_t number) {
    PutLittleEndian(bytes, offset, number, 1);
}
inline void PutU16(ByteSpan bytes, std::size_t offset, std::uint16_t number) {
    PutLittleEndian(bytes, offset, number, 2);
}
inline void PutU32(ByteSpan bytes, std::size_t offset, std::uint32_t number) {
    PutLittleEndian(bytes, offset, number, 4);
}
inline void PutU64(ByteSpan bytes, std::size_t offset, std::uint64_t number) {
    CheckRange(bytes.size(), offset, sizeof number);
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(&bytes[offset], &number, sizeof number);
    } else {
        PutLittleEndian(bytes, offset, number, sizeof number);
    }
}
inline void PutF64(ByteSpan bytes, std::size_t offset, double number) {
    PutU64(bytes, offset, std::bit_cast<std::uint64_t>(number));
}
inline void PutU32BE(ByteSpan bytes, std::size_t offset, std::uint32_t number) {
    PutBigEndian(bytes, offset, number, 4);
}
/// Copies `source` to `offset`; the two must not overlap.
inline void PutBytes(ByteSpan bytes, std::size_t offset, ByteView source) {
    CheckRange(bytes.size(), offset, source.size());
    for (std::size_t i = 0; i < source.size(); ++i) bytes[offset + i] = source[i];
}

/// Where a row is: its page and its slot there. In the file: page << 8 | row.
struct RowPointer {
    std::uint32_t page = 0;
    std::uint8_t row = 0;
    auto operator<=>(const RowPointer&) const = default;

    bool IsNull() const { return page == 0 && row == 0; }
    std::uint32_t Packed() const { return page << 8 | row; }
    static RowPointer FromPacked(std::uint32_t packed) {
        return {packed >> 8, static_cast<std::uint8_t>(packed)};
    }
};

}  // namespace jet::detail
