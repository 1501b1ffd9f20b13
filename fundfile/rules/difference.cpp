#include "fundfile/rules/difference.h"

#include "base/number.h"
#include "fundfile/rules/texts.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr std::size_t kMaxNames = 6;

const HoldingRow* Find(const std::vector<HoldingRow>& rows, std::int32_t kontoId) {
    const auto found = std::find_if(rows.begin(), rows.end(), [kontoId](const HoldingRow& row) {
        return row.kontoId == kontoId;
    });
    return found == rows.end() ? nullptr : &*found;
}

std::vector<std::string> NamesOfThoseNotIn(const std::vector<HoldingRow>& others,
                                           const std::vector<HoldingRow>& rows) {
    std::vector<std::string> names;
    for (const HoldingRow& row : rows) {
        if (Find(others, row.kontoId) == nullptr) names.push_back(row.fond);
    }
    return names;
}

std::int32_t Count(const std::vector<std::int32_t>& values) {
    return static_cast<std::int32_t>(values.size());
}

using Points = decltype(FundContent::points);

/// How many more there are in `rows` than in `others`, day by day.
std::int32_t PointsBeyond(const Points& others, const Points& rows) {
    std::int32_t more = 0;
    for (const auto& [day, values] : rows) {
        const auto other = others.find(day);
        const std::int32_t present = other == others.end() ? 0 : Count(other->second);
        more += std::max(0, Count(values) - present);
    }
    return more;
}

std::int32_t PointsWithOtherValues(const Points& copy, const Points& now) {
    std::int32_t changed = 0;
    for (const auto& [day, values] : copy) {
        const auto other = now.find(day);
        if (other == now.end() || other->second.size() != values.size()) continue;
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (values[i] != other->second[i]) ++changed;
        }
    }
    return changed;
}

void AddNames(std::string& text, std::string_view what, const std::vector<std::string>& names) {
    if (names.empty()) return;
    text += std::string(what) + PlainText(static_cast<std::int32_t>(names.size())) +
            std::string(texts::BeforeNames);
    for (std::size_t i = 0; i < std::min(names.size(), kMaxNames); ++i) {
        if (i > 0) text += ", ";
        text += names[i];
    }
    if (names.size() > kMaxNames) text += std::string(texts::AndMore);
    text += '\n';
}

void AddCount(std::string& text, std::string_view what, std::int32_t count) {
    if (count > 0) text += std::string(what) + PlainText(count) + '\n';
}

}  // namespace

Difference DifferenceOf(const FundContent& copy, const FundContent& now) {
    Difference difference;
    difference.missing = NamesOfThoseNotIn(copy.holdings, now.holdings);
    difference.extra = NamesOfThoseNotIn(now.holdings, copy.holdings);
    for (const HoldingRow& row : now.holdings) {
        const HoldingRow* before = Find(copy.holdings, row.kontoId);
        if (before != nullptr && *before != row) difference.changed.push_back(row.fond);
    }
    difference.missingPoints = PointsBeyond(copy.points, now.points);
    difference.extraPoints = PointsBeyond(now.points, copy.points);
    difference.changedPoints = PointsWithOtherValues(copy.points, now.points);
    return difference;
}

std::string DifferenceText(const Difference& difference) {
    if (difference == Difference{}) return std::string(texts::CopyIsLikeNow);
    std::string text;
    AddNames(text, texts::HoldingsMissing, difference.missing);
    AddNames(text, texts::HoldingsExtra, difference.extra);
    AddNames(text, texts::HoldingsChanged, difference.changed);
    AddCount(text, texts::PointsMissing, difference.missingPoints);
    AddCount(text, texts::PointsExtra, difference.extraPoints);
    AddCount(text, texts::PointsChanged, difference.changedPoints);
    text.pop_back();
    return text;
}
