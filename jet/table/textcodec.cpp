#include "jet/table/textcodec.h"

#include "jet/table/codepage.h"

#include <array>

namespace jet::detail {

namespace {

constexpr char32_t kReplacement = 0xFFFD, kMaxCodePoint = 0x10FFFF, kByteOrderMark = 0xFEFF;
constexpr std::size_t kMinCompressedSize = 3;

bool IsSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDFFF;
}
bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

bool IsCompressed(ByteView stored) {
    return stored.size() >= 2 && stored[0] == 0xFF && stored[1] == 0xFE;
}

/// Calls put(unit) for each UTF-16 unit of plain or compressed text.
template <typename Put>
void ForEachUnit(ByteView stored, Put&& put) {
    bool compressed = IsCompressed(stored);
    const bool mayCompress = compressed;
    for (std::size_t at = compressed ? 2 : 0; at < stored.size();) {
        if (compressed) {
            if (stored[at] == 0) {
                compressed = false;
            } else {
                put(static_cast<char16_t>(stored[at]));
            }
            ++at;
        } else if (mayCompress && stored[at] == 0) {
            compressed = true;
            ++at;
        } else if (at + 1 < stored.size()) {
            put(static_cast<char16_t>(stored[at] | stored[at + 1] << 8));
            at += 2;
        } else {
            return;  // half a character
        }
    }
}

void AppendUnit(std::vector<std::uint8_t>& bytes, char32_t unit) {
    bytes.push_back(static_cast<std::uint8_t>(unit));
    bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
}

/// In a code page that is not known only its ASCII half is sure.
std::optional<std::uint8_t> ToByte(std::uint16_t codePage, char32_t character) {
    if (const CodePage* page = FindCodePage(codePage)) return page->ToByte(character);
    if (character < 0x80) return static_cast<std::uint8_t>(character);
    return std::nullopt;
}

[[noreturn]] void ThrowText(std::size_t at, const char* what) {
    throw Error{ErrorNumber::TypeMismatch,
                "text: " + std::string(what) + " at byte " + Decimal(at)};
}

}  // namespace

void AppendUtf8(std::string& text, char32_t character) {
    const auto put = [&](char32_t byte) { text += static_cast<char>(byte); };
    const auto follow = [&](unsigned shift) { put(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0 | character >> 6);
        follow(0);
    } else if (character < 0x10000) {
        put(0xE0 | character >> 12);
        follow(6);
        follow(0);
    } else {
        put(0xF0 | character >> 18);
        follow(12);
        follow(6);
        follow(0);
    }
}

std::optional<char32_t> NextCharacter(std::string_view utf8, std::size_t& position) {
    if (position >= utf8.size()) return std::nullopt;
    const auto first = static_cast<std::uint8_t>(utf8[position]);
    if (first < 0x80) {
        ++position;
        return first;
    }
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || utf8.size() - position < length) return std::nullopt;
    char32_t character = first & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<std::uint8_t>(utf8[position + i]);
        if ((byte & 0xC0) != 0x80) return std::nullopt;
        character = character << 6 | (byte & 0x3F);
    }
    constexpr std::array<char32_t, 5> kMinCodePoint{0, 0, 0x80, 0x800, 0x10000};
    if (character < kMinCodePoint[length] || character > kMaxCodePoint || IsSurrogate(character)) {
        return std::nullopt;
    }
    position += length;
    return character;
}

std::string DecodeText(const TextForm& form, ByteView stored) {
    std::string text;
    text.reserve(stored.size());
    if (form.unit == 1) {
        const CodePage* known = FindCodePage(form.codePage);
        const CodePage& page = known != nullptr ? *known : WesternCodePage();
        for (const std::uint8_t byte : stored) AppendUtf8(text, page.FromByte(byte));
        return text;
    }
    char32_t high = 0;
    ForEachUnit(stored, [&](char16_t unit) {
        if (high != 0 && IsLowSurrogate(unit)) {
            AppendUtf8(text, 0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00U));
            high = 0;
            return;
        }
        if (high != 0) AppendUtf8(text, kReplacement);
        high = IsHighSurrogate(unit) ? unit : 0;
        if (high == 0) AppendUtf8(text, IsLowSurrogate(unit) ? kReplacement : unit);
    });
    if (high != 0) AppendUtf8(text, kReplacement);
    return text;
}

std::vector<std::uint8_t> EncodeText(const TextForm& form, std::string_view utf8) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(utf8.size() * form.unit);
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t start = at;
        const auto character = NextCharacter(utf8, at);
        if (!character) ThrowText(start, "broken UTF-8");
        if (form.unit == 1) {
            const auto byte = ToByte(form.codePage, *character);
            if (!byte) ThrowText(start, "a character that the file's code page lacks");
            bytes.push_back(*byte);
        } else if (*character >= 0x10000) {
            AppendUnit(bytes, 0xD800 + ((*character - 0x10000) >> 10));
            AppendUnit(bytes, 0xDC00 + (*character & 0x3FF));
        } else {
            // At the start it would read as the mark of compressed text.
            if (start == 0 && *character == kByteOrderMark) ThrowText(0, "a byte order mark");
            AppendUnit(bytes, *character);
        }
    }
    return bytes;
}

std::vector<std::uint8_t> EncodeCompressed(const TextForm& form, std::string_view utf8) {
    std::vector<std::uint8_t> plain = EncodeText(form, utf8);
    if (form.unit == 1 || plain.size() / 2 < kMinCompressedSize) return plain;
    for (std::size_t at = 0; at < plain.size(); at += 2) {
        if (plain[at] == 0 || plain[at + 1] != 0) return plain;
    }
    std::vector<std::uint8_t> compressed{0xFF, 0xFE};
    for (std::size_t at = 0; at < plain.size(); at += 2) compressed.push_back(plain[at]);
    return compressed;
}

std::size_t StoredLength(const TextForm& form, ByteView uncompressed) {
    return uncompressed.size() / form.unit;
}

}  // namespace jet::detail
