#include "jet/storage/header.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jet::detail {
namespace {

constexpr std::size_t kMaskStart = 0x18;
constexpr std::size_t kSignature = 0x04, kVersion = 0x14, kGlobalMap = 0x18, kSecondMap = 0x1C,
                      kObjects = 0x20, kCodePage = 0x3C, kKey = 0x3E, kPassword = 0x42,
                      kEndMark = 0x98, kVersionText = 0x9C;
constexpr std::uint32_t kStart = 0x00000100, kEndMarkValue = 1620;
constexpr std::uint16_t kNoCommit = 0x0100;
constexpr std::string_view kSignatureText = "Standard Jet DB", kVersionTextValue = "4.0";
constexpr RowPointer kGlobalMapRow{1, 0}, kSecondMapRow{1, 1};
constexpr std::uint32_t kObjectTables = 4;

/// The key stream that hides the header's fields: RC4 of a fixed four-byte key.
std::array<std::uint8_t, 128> MaskBytes() {
    constexpr std::array<std::uint8_t, 4> kMaskKey{0xC7, 0xDA, 0x39, 0x6B};
    std::array<std::uint8_t, 256> state{};
    for (std::size_t i = 0; i < state.size(); ++i) state[i] = static_cast<std::uint8_t>(i);
    std::uint8_t j = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        j = static_cast<std::uint8_t>(j + state[i] + kMaskKey[i % kMaskKey.size()]);
        std::swap(state[i], state[j]);
    }
    std::array<std::uint8_t, 128> stream{};
    std::uint8_t i = 0;
    j = 0;
    for (std::uint8_t& byte : stream) {
        i = static_cast<std::uint8_t>(i + 1);
        j = static_cast<std::uint8_t>(j + state[i]);
        std::swap(state[i], state[j]);
        byte = state[static_cast<std::uint8_t>(state[i] + state[j])];
    }
    return stream;
}

/// The whole days of the creation date, with which the password is mixed.
std::uint32_t WholeDays(double date) {
    constexpr double kLimit = 2147483647.0;
    if (!std::isfinite(date) || std::fabs(date) > kLimit) return 0;
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(date));
}

bool HasPassword(const Layout& layout, ByteView header) {
    const std::uint32_t day =
        layout.passwordMixedWithDate ? WholeDays(F64(header, layout.creationDate, 0)) : 0;
    for (std::size_t at = 0; at < layout.passwordSize; at += 4) {
        if (U32(header, kPassword + at, 0) != day) return true;
    }
    return false;
}

}  // namespace

void ThrowHeader(ErrorNumber number, const char* what) {
    throw Error{number, std::string("file header: ") + what};
}

void MaskHeader(const Layout& layout, ByteSpan page) {
    static const std::array<std::uint8_t, 128> kMask = MaskBytes();
    const ByteSpan masked = Part(page, kMaskStart, layout.maskedEnd - kMaskStart, 0);
    for (std::size_t i = 0; i < masked.size(); ++i) masked[i] ^= kMask[i];
}

const Layout& LayoutOf(const FileImage& image) {
    if (image.Size() < kVersion + 4) ThrowHeader(ErrorNumber::ForeignFormat, "too short");
    const ByteView start{image.At(0), kVersion + 4};
    const auto signature = [&](std::string_view text) {
        return std::equal(text.begin(), text.end(), start.begin() + kSignature,
                          [](char c, std::uint8_t b) { return static_cast<std::uint8_t>(c) == b; });
    };
    if (signature("Standard ACE DB")) ThrowHeader(ErrorNumber::NewerFormat, "a later format");
    if (!signature(kSignatureText)) {
        ThrowHeader(ErrorNumber::ForeignFormat, "the signature of another kind of file");
    }
    if (U32(start, 0) != kStart) ThrowHeader(ErrorNumber::NotADatabase, "damaged start");
    const std::uint32_t version = U32(start, kVersion);
    for (const Layout* layout : {&kJet3, &kJet4}) {
        if (version == layout->formatByte) return *layout;
    }
    constexpr std::uint32_t kMaxVersion = 0xFF;
    ThrowHeader(version <= kMaxVersion ? ErrorNumber::NewerFormat : ErrorNumber::NotADatabase,
                "unknown format version");
}

FileHeader DecodeHeader(const Layout& layout, ByteView page) {
    std::vector<std::uint8_t> header(page.begin(), page.end());
    MaskHeader(layout, header);
    if (U32(header, kKey) != 0) ThrowHeader(ErrorNumber::Encrypted, "the pages are encoded");
    if (U32(header, kGlobalMap) != kGlobalMapRow.Packed() ||
        U32(header, kObjects) != kSystemObjectsPage) {
        ThrowHeader(ErrorNumber::NotADatabase, "the places of maps and tables are damaged");
    }
    if (HasPassword(layout, header)) {
        ThrowHeader(ErrorNumber::PasswordProtected, "a password is set");
    }
    const bool hasVersion = layout.textUnit != 1;
    return {.collation = U16(header, layout.collation),
            .collationVersion = hasVersion ? U16(header, layout.collation + 2) : std::uint16_t{0},
            .codePage = U16(header, kCodePage),
            .buildNumber = U16(header, layout.buildNumber),
            .created = layout.creationDate == 0 ? 0 : F64(header, layout.creationDate)};
}

void EncodeHeader(const FileHeader& header, ByteSpan page) {
    const Layout& layout = kJet4;
    PutU32(page, 0, kStart);
    std::memcpy(&page[kSignature], kSignatureText.data(), kSignatureText.size());
    PutU32(page, kVersion, layout.formatByte);
    PutU32(page, kGlobalMap, kGlobalMapRow.Packed());
    PutU32(page, kSecondMap, kSecondMapRow.Packed());
    for (std::uint32_t i = 0; i < kObjectTables; ++i) {
        PutU32(page, kObjects + sizeof(std::uint32_t) * i, kSystemObjectsPage + i);
    }
    PutU16(page, kCodePage, header.codePage);
    for (std::size_t at = 0; at < layout.passwordSize; at += sizeof(std::uint32_t)) {
        PutU32(page, kPassword + at, WholeDays(header.created));
    }
    PutU16(page, layout.buildNumber, header.buildNumber);
    PutU16(page, layout.collation, header.collation);
    PutU16(page, layout.collation + 2, header.collationVersion);
    PutF64(page, layout.creationDate, header.created);
    PutU32(page, kEndMark, kEndMarkValue);
    std::memcpy(&page[kVersionText], kVersionTextValue.data(), kVersionTextValue.size());
    for (std::size_t at = layout.commitArea; at < layout.pageSize; at += sizeof(kNoCommit)) {
        PutU16(page, at, kNoCommit);
    }
    MaskHeader(layout, page);
}

}  // namespace jet::detail
