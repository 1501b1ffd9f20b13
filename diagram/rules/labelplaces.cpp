#include "diagram/rules/labelplaces.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

namespace {

using Indexes = std::vector<std::size_t>;

constexpr double kColumnGap = 1.2;  // of a label's width

LabelBox Inside(LabelBox box, const LabelBox& area) {
    box.left = std::max(std::min(box.left, area.Right() - box.width), area.left);
    box.top = std::max(std::min(box.top, area.Bottom() - box.height), area.top);
    return box;
}

/// The labels in groups whose horizontal extents overlap, directly or through others.
std::vector<Indexes> Columns(const std::vector<LabelBox>& boxes) {
    Indexes byLeft(boxes.size());
    std::iota(byLeft.begin(), byLeft.end(), std::size_t{0});
    std::stable_sort(byLeft.begin(), byLeft.end(), [&](std::size_t one, std::size_t other) {
        return boxes[one].left < boxes[other].left;
    });
    std::vector<Indexes> columns;
    double right = 0;
    for (const std::size_t index : byLeft) {
        if (columns.empty() || boxes[index].left >= right) {
            columns.emplace_back();
            right = boxes[index].Right();
        }
        columns.back().push_back(index);
        right = std::max(right, boxes[index].Right());
    }
    return columns;
}

/// Labels that touch each other and move as one.
struct Stack {
    double top = 0, height = 0;
    double wantedSum = 0;  ///< of the tops that its labels' wishes would give the stack
    std::size_t count = 0;
    double Bottom() const { return top + height; }
};

void Settle(Stack& stack, const LabelBox& area) {
    const double wished = stack.wantedSum / static_cast<double>(stack.count);
    stack.top = std::max(std::min(wished, area.Bottom() - stack.height), area.top);
}

double TotalHeight(const std::vector<LabelBox>& boxes, const Indexes& column) {
    double total = 0;
    for (const std::size_t index : column) total += boxes[index].height;
    return total;
}

/// Neighbours that overlap join, and a stack stands at the mean of its labels' wishes.
void SpreadDown(std::vector<LabelBox>& boxes, const Indexes& byTop, const LabelBox& area) {
    std::vector<Stack> stacks;
    for (const std::size_t index : byTop) {
        stacks.push_back({boxes[index].top, boxes[index].height, boxes[index].top, 1});
        while (stacks.size() > 1 && stacks[stacks.size() - 2].Bottom() > stacks.back().top) {
            const Stack lower = stacks.back();
            stacks.pop_back();
            Stack& upper = stacks.back();
            upper.wantedSum += lower.wantedSum - static_cast<double>(lower.count) * upper.height;
            upper.height += lower.height;
            upper.count += lower.count;
            Settle(upper, area);
        }
    }
    const double squeeze = std::min(1.0, area.height / TotalHeight(boxes, byTop));
    std::size_t next = 0;
    for (const Stack& stack : stacks) {
        double top = stack.top;
        for (std::size_t n = 0; n < stack.count; ++n) {
            LabelBox& box = boxes[byTop[next++]];
            box.top = top;
            top += box.height * squeeze;
        }
    }
}

/// Labels that are too many for one column stand in several, in turn.
void SpreadColumn(std::vector<LabelBox>& boxes, Indexes byTop, const LabelBox& area) {
    std::stable_sort(byTop.begin(), byTop.end(), [&](std::size_t one, std::size_t other) {
        return boxes[one].top < boxes[other].top;
    });
    double width = 0, left = area.Right();
    for (const std::size_t index : byTop) {
        width = std::max(width, boxes[index].width * kColumnGap);
        left = std::min(left, boxes[index].left);
    }
    const double columns = std::ceil(TotalHeight(boxes, byTop) / area.height);
    if (columns <= 1 || columns * width > area.width) return SpreadDown(boxes, byTop, area);

    left = std::max(std::min(left, area.Right() - columns * width), area.left);
    const auto count = static_cast<std::size_t>(columns);
    for (std::size_t column = 0; column < count; ++column) {
        Indexes members;
        for (std::size_t n = column; n < byTop.size(); n += count) members.push_back(byTop[n]);
        for (const std::size_t index : members) {
            boxes[index].left = left + static_cast<double>(column) * width;
        }
        SpreadDown(boxes, members, area);
    }
}

}  // namespace

std::vector<LabelBox> PlaceLabels(std::span<const LabelBox> wanted, const LabelBox& area) {
    std::vector<LabelBox> boxes;
    for (const LabelBox& box : wanted) boxes.push_back(Inside(box, area));
    for (const Indexes& column : Columns(boxes)) SpreadColumn(boxes, column, area);
    return boxes;
}
