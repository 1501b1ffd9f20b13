#include "base/text.h"

namespace {

constexpr char32_t kReplacement = 0xFFFD;

struct Character {
    char32_t codePoint = 0;
    std::size_t bytes = 0;
};

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// The character that the text begins with; an invalid byte stands for itself.
Character First(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    if (lead < 0x80) return {lead, 1};
    const std::size_t bytes = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < bytes) return {kReplacement, 1};
    char32_t codePoint = lead & (0x7FU >> bytes);
    for (std::size_t i = 1; i < bytes; ++i) {
        if (!IsContinuation(text[i])) return {kReplacement, 1};
        codePoint = (codePoint << 6U) | (static_cast<unsigned char>(text[i]) & 0x3FU);
    }
    constexpr char32_t kMinCodePoint[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    if (codePoint < kMinCodePoint[bytes] || codePoint > 0x10FFFF || surrogate) {
        return {kReplacement, 1};
    }
    return {codePoint, bytes};
}

/// The byte at which the character with this index begins; the text's end if there are fewer.
std::size_t ByteOf(std::string_view text, std::size_t index) {
    std::size_t byte = 0;
    for (; index > 0 && byte < text.size(); --index) byte += First(text.substr(byte)).bytes;
    return byte;
}

void Append(std::string& text, char32_t c) {
    const auto byte = [&text](char32_t value) { text += static_cast<char>(value); };
    if (c < 0x80) {
        byte(c);
    } else if (c < 0x800) {
        byte(0xC0U | (c >> 6U));
        byte(0x80U | (c & 0x3FU));
    } else if (c < 0x10000) {
        byte(0xE0U | (c >> 12U));
        byte(0x80U | ((c >> 6U) & 0x3FU));
        byte(0x80U | (c & 0x3FU));
    } else {
        byte(0xF0U | (c >> 18U));
        byte(0x80U | ((c >> 12U) & 0x3FU));
        byte(0x80U | ((c >> 6U) & 0x3FU));
        byte(0x80U | (c & 0x3FU));
    }
}

// Latin letters up to U+00FF: all that names in this program's texts are written with.
bool IsUpper(char32_t c) {
    return (c >= U'A' && c <= U'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7);
}

bool IsLower(char32_t c) {
    return (c >= U'a' && c <= U'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7);
}

constexpr char32_t kCaseDistance = 0x20;

}  // namespace

std::size_t Length(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count) text.remove_prefix(First(text).bytes);
    return count;
}

std::string Left(std::string_view text, std::size_t count) {
    return std::string(text.substr(0, ByteOf(text, count)));
}

std::string Right(std::string_view text, std::size_t count) {
    const std::size_t length = Length(text);
    return Mid(text, length > count ? length - count : 0);
}

std::string Mid(std::string_view text, std::size_t start, std::size_t count) {
    return Left(text.substr(ByteOf(text, start)), count);
}

std::vector<std::string> Split(std::string_view text, std::string_view separator) {
    std::vector<std::string> pieces;
    for (;;) {
        const std::size_t at = text.find(separator);
        pieces.emplace_back(text.substr(0, at));
        if (at == std::string_view::npos) return pieces;
        text.remove_prefix(at + separator.size());
    }
}

std::string Join(const std::vector<std::string>& pieces, std::string_view separator) {
    std::string text;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0) text += separator;
        text += pieces[i];
    }
    return text;
}

std::string Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return "";
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string ProperCase(std::string_view text) {
    std::u32string result = ToCodePoints(text);
    bool inWord = false;
    for (char32_t& c : result) {
        if (!inWord && IsLower(c)) {
            c -= kCaseDistance;
        } else if (inWord && IsUpper(c)) {
            c += kCaseDistance;
        }
        inWord = c != U' ' && c != U'\t' && c != U'\r' && c != U'\n';
    }
    return ToUtf8(result);
}

std::string LowerCase(std::string_view text) {
    std::u32string result = ToCodePoints(text);
    for (char32_t& c : result) {
        if (IsUpper(c)) c += kCaseDistance;
    }
    return ToUtf8(result);
}

std::u32string ToCodePoints(std::string_view text) {
    std::u32string codePoints;
    while (!text.empty()) {
        const Character first = First(text);
        codePoints += first.codePoint;
        text.remove_prefix(first.bytes);
    }
    return codePoints;
}

std::string ToUtf8(std::u32string_view codePoints) {
    std::string text;
    for (const char32_t c : codePoints) Append(text, c);
    return text;
}
