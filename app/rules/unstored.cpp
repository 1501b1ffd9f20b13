#include "app/rules/unstored.h"

#include "app/rules/texts.h"

#include <string_view>

namespace {

constexpr std::string_view kLineBreak = "\r\n";
constexpr std::string_view kIndent = "    ";

}  // namespace

std::string UnstoredQuestion(const std::vector<Unstored>& all) {
    std::string text(texts::NotStored);
    for (const Unstored& one : all) {
        text += std::string(kLineBreak) + std::string(kLineBreak) + one.what;
        for (const std::string& reason : one.why) {
            // The lines after the first say what to do about it there.
            text += std::string(kLineBreak) + std::string(kIndent);
            text += reason.substr(0, reason.find(kLineBreak));
        }
    }
    return text + std::string(kLineBreak) + std::string(kLineBreak) +
           std::string(texts::GoOnWithoutIt);
}
