#include "widgets/rules/spokencell.h"

#include "base/number.h"
#include "base/text.h"
#include "widgets/rules/texts.h"

std::string SpokenCell(std::string_view caption, std::string_view text) {
    const std::string column = Trim(caption);
    const std::string content = Trim(text);
    const std::string said = content.empty() ? std::string(texts::EmptyCell) : content;
    return column.empty() ? said : column + ": " + said;
}

std::string SpokenRow(std::int32_t row, std::int32_t rows) {
    if (row >= rows) return std::string(texts::NewRow);
    return std::string(texts::Row) + PlainText(row + 1) + std::string(texts::OfRows) +
           PlainText(rows);
}

std::string SpokenParts(std::initializer_list<std::string_view> parts) {
    std::string all;
    for (const std::string_view part : parts) {
        if (part.empty()) continue;
        if (!all.empty()) all += ", ";
        all += part;
    }
    return all;
}
