#include "app/rules/fundline.h"

#include "base/number.h"
#include "base/text.h"

#include <algorithm>

namespace {

constexpr std::string_view kNumberEnd = ". ";
constexpr std::string_view kMarkEnd = ".";
constexpr std::int32_t kTwoDigits = 10;

}  // namespace

std::string FundLine(std::int32_t kontoId, std::string_view name) {
    const std::string blank = kontoId < kTwoDigits ? " " : "";
    return blank + PlainText(kontoId) + std::string(kNumberEnd) + std::string(name);
}

std::int32_t NumberOfLine(std::string_view line) {
    return ParseInteger(line.substr(0, line.find(kNumberEnd)));
}

std::string CurveMark(std::string_view line) {
    return std::string(line.substr(0, line.find(kNumberEnd))) + std::string(kMarkEnd);
}

std::string AddCurveMark(std::string_view marks, std::string_view line) {
    const auto chosen = CurvesOfMarks(marks);
    const bool there = std::find(chosen.begin(), chosen.end(), NumberOfLine(line)) != chosen.end();
    return std::string(marks) + (there ? "" : CurveMark(line));
}

std::vector<std::int32_t> CurvesOfMarks(std::string_view marks) {
    std::vector<std::int32_t> curves;
    for (const auto& piece : Split(marks, kMarkEnd)) {
        if (!Trim(piece).empty()) curves.push_back(ParseInteger(piece));
    }
    return curves;
}
