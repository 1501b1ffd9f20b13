#include "diagram/rules/labelplaces.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace {

using Indexes = std::vector<std::size_t>;

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

/// Neighbours that overlap join, and a stack stands at the mean of its labels' wishes.
void SpreadColumn(std::vector<LabelBox>& boxes, Indexes column, const LabelBox& area) {
    std::stable_sort(column.begin(), column.end(), [&](std::size_t one, std::size_t other) {
        return boxes[one].top < boxes[other].top;
    });
    std::vector<Stack> stacks;
    double total = 0;
    for (const std::size_t index : column) {
        stacks.push_back({boxes[index].top, boxes[index].height, boxes[index].top, 1});
        total += boxes[index].height;
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
    const double squeeze = total > area.height ? area.height / total : 1;
    std::size_t next = 0;
    for (const Stack& stack : stacks) {
        double top = stack.top;
        for (std::size_t n = 0; n < stack.count; ++n) {
            LabelBox& box = boxes[column[next++]];
            box.top = top;
            top += box.height * squeeze;
        }
    }
}

}  // namespace

std::vector<LabelBox> PlaceLabels(std::span<const LabelBox> wanted, const LabelBox& area) {
    std::vector<LabelBox> boxes;
    for (const LabelBox& box : wanted) boxes.push_back(Inside(box, area));
    for (const Indexes& column : Columns(boxes)) SpreadColumn(boxes, column, area);
    return boxes;
}
