#include "app/rules/mnemonics.h"

#include "base/text.h"

#include <cstddef>
#include <optional>

namespace {

constexpr char32_t kMark = U'&';

char32_t Upper(char32_t letter) {
    if (letter >= U'a' && letter <= U'z') return letter - U'a' + U'A';
    if (letter >= U'à' && letter <= U'þ') return letter - U'à' + U'À';
    return letter;
}

bool IsLetter(char32_t letter) {
    const char32_t upper = Upper(letter);
    return (upper >= U'A' && upper <= U'Z') || (upper >= U'À' && upper <= U'Þ');
}

/// The mark before a letter to press; two marks stand for one that is shown.
std::size_t FindMark(const std::u32string& caption) {
    for (std::size_t at = 0; at + 1 < caption.size(); ++at) {
        if (caption[at] != kMark) continue;
        if (caption[at + 1] != kMark) return at;
        ++at;
    }
    return std::u32string::npos;
}

/// "1  A file".
bool IsNumbered(const std::u32string& caption) {
    return caption.size() > 2 && caption[0] >= U'1' && caption[0] <= U'9' && caption[1] == U' ' &&
           caption[2] == U' ';
}

std::optional<std::size_t> FreePlace(const std::u32string& caption, const std::u32string& taken) {
    if (IsNumbered(caption)) return 0;
    const auto isFree = [&](std::size_t at) {
        return IsLetter(caption[at]) && taken.find(Upper(caption[at])) == std::u32string::npos;
    };
    for (std::size_t at = 0; at < caption.size(); ++at) {
        const bool beginsWord = at == 0 || !IsLetter(caption[at - 1]);
        if (beginsWord && isFree(at)) return at;
    }
    for (std::size_t at = 0; at < caption.size(); ++at) {
        if (isFree(at)) return at;
    }
    return std::nullopt;
}

}  // namespace

std::vector<std::string> WithMnemonics(const std::vector<std::string>& captions) {
    std::u32string taken;
    std::vector<std::u32string> marked;
    for (const std::string& caption : captions) {
        marked.push_back(ToCodePoints(caption));
        const std::size_t mark = FindMark(marked.back());
        if (mark == std::u32string::npos) continue;
        taken += Upper(marked.back()[mark + 1]);
    }
    std::vector<std::string> result;
    for (std::u32string& caption : marked) {
        if (FindMark(caption) == std::u32string::npos) {
            if (const auto at = FreePlace(caption, taken)) {
                taken += Upper(caption[*at]);
                caption.insert(*at, 1, kMark);
            }
        }
        result.push_back(ToUtf8(caption));
    }
    return result;
}

std::string WithoutMnemonic(std::string_view caption) {
    std::u32string plain = ToCodePoints(caption);
    if (const std::size_t mark = FindMark(plain); mark != std::u32string::npos)
        plain.erase(mark, 1);
    return ToUtf8(plain);
}
