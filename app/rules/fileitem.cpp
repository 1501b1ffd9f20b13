#include "app/rules/fileitem.h"

#include "base/number.h"
#include "base/text.h"

#include <cstddef>

namespace {

constexpr std::size_t kMaxLetters = 40;
constexpr std::size_t kEndLetters = 15;
constexpr std::string_view kCut = "…";
constexpr char32_t kDelete = 0x7F;
constexpr char32_t kFirstAfterControls = 0xA0;

bool IsControl(char32_t letter) {
    return letter < U' ' || (letter >= kDelete && letter < kFirstAfterControls);
}

}  // namespace

std::string FileItemCaption(std::int32_t number, std::string_view name) {
    std::string caption = PlainText(number) + "  ";
    for (const char letter : name) {
        caption += letter;
        if (letter == '&') caption += letter;
    }
    return caption;
}

std::string FileItemName(std::string_view path) {
    const std::string_view file = path.substr(path.find_last_of('/') + 1);
    std::u32string letters = ToCodePoints(file.substr(0, file.rfind('.')));
    for (char32_t& letter : letters) {
        if (IsControl(letter)) letter = U' ';
    }
    const std::string name = ToUtf8(letters);
    if (Length(name) <= kMaxLetters) return name;
    return Left(name, kMaxLetters - kEndLetters - 1) + std::string(kCut) + Right(name, kEndLetters);
}
