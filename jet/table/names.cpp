#include "jet/table/names.h"

#include "jet/table/textcodec.h"

namespace jet::detail {

namespace {

bool Between(char32_t character, char32_t first, char32_t last) {
    return character >= first && character <= last;
}

/// Latin Extended-A comes in pairs, capital first; in two stretches the capitals are odd.
char32_t FoldExtendedLatin(char32_t character) {
    if (character == 0x0130 || character == 0x0138 || character == 0x0149 || character == 0x017F) {
        return character;
    }
    if (character == 0x0178) return 0x00FF;
    const bool capitalsAreOdd =
        Between(character, 0x0139, 0x0148) || Between(character, 0x0179, 0x017E);
    const bool isOdd = (character & 1U) != 0;
    return isOdd == capitalsAreOdd ? character + 1 : character;
}

char32_t Fold(char32_t character) {
    if (Between(character, U'A', U'Z')) return character + 0x20;
    if (character < 0xC0) return character;
    if (Between(character, 0xC0, 0xDE) && character != 0xD7) return character + 0x20;
    if (Between(character, 0x0100, 0x017F)) return FoldExtendedLatin(character);
    if (Between(character, 0x0391, 0x03A9) && character != 0x03A2) return character + 0x20;
    if (Between(character, 0x0410, 0x042F)) return character + 0x20;
    if (Between(character, 0x0400, 0x040F)) return character + 0x50;
    return character;
}

}  // namespace

std::string FoldName(std::string_view utf8) {
    std::string folded;
    folded.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t start = at;
        if (const auto character = NextCharacter(utf8, at)) {
            AppendUtf8(folded, Fold(*character));
        } else {
            at = start + 1;
            folded += utf8[start];
        }
    }
    return folded;
}

bool SameName(std::string_view left, std::string_view right) {
    return left == right || FoldName(left) == FoldName(right);
}

}  // namespace jet::detail
