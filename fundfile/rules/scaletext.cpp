#include "fundfile/rules/scaletext.h"

#include "base/error.h"
#include "base/number.h"
#include "base/text.h"

#include <optional>

namespace {

constexpr std::string_view kPartSeparator = "/";
constexpr std::string_view kCurveEnd = ".";
constexpr std::size_t kScaleParts = 2;

std::optional<std::int32_t> Whole(std::string_view text) {
    std::optional<std::int32_t> number;
    Skipping skip;
    skip([&] { number = ParseInteger(text); });
    return number;
}

std::vector<std::int32_t> Curves(std::string_view list) {
    std::vector<std::int32_t> curves;
    for (const auto& piece : Split(list, kCurveEnd)) {
        if (const auto kontoId = Whole(piece)) curves.push_back(*kontoId);
    }
    return curves;
}

ScaleRange Scale(std::string_view top, std::string_view bottom) {
    const auto above = Whole(top);
    const auto below = Whole(bottom);
    if (!above || !below) return {};
    return Normalised({*above, *below});
}

std::string FirstRow(std::string_view list, ScaleRange scale) {
    return std::string(list.empty() ? kCurveEnd : list) + std::string(kPartSeparator) +
           ScaleColumn(scale);
}

}  // namespace

ScaleText ParseScaleText(std::string_view column) {
    const auto parts = Split(column, kPartSeparator);
    ScaleText text;
    if (parts.size() < kScaleParts) return text;
    text.scale = Scale(parts[parts.size() - 2], parts[parts.size() - 1]);
    if (parts.size() > kScaleParts) text.list = parts.front();
    text.curves = Curves(text.list);
    return text;
}

std::string ScaleColumn(ScaleRange scale) {
    return PlainText(scale.top) + std::string(kPartSeparator) + PlainText(scale.bottom);
}

std::string FirstScaleColumn(std::span<const std::int32_t> curves, ScaleRange scale) {
    std::string list;
    for (const std::int32_t kontoId : curves) list += PlainText(kontoId) + std::string(kCurveEnd);
    return FirstRow(list, scale);
}

std::string WithScale(std::string_view firstColumn, ScaleRange scale) {
    return FirstRow(ParseScaleText(firstColumn).list, scale);
}

std::string WithCurves(std::string_view firstColumn, std::span<const std::int32_t> curves) {
    return FirstScaleColumn(curves, ParseScaleText(firstColumn).scale);
}

std::string AsFirstRow(std::string_view column) {
    const ScaleText text = ParseScaleText(column);
    return FirstRow(text.list, text.scale);
}

std::string AsOtherRow(std::string_view column) {
    return ScaleColumn(ParseScaleText(column).scale);
}
