#include "widgets/rules/labelplaces.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace {

using Indexes = std::vector<std::size_t>;

constexpr double kColumnGap = 1.2;  // of a label's width

LabelBox Inside(LabelBox box, const LabelBox& area) {
    box.left = std::max(std::min(box.left, area.Right() - box.width), area.left);
    box.top = std::max(std::min(box.top, area.Bottom() - box.height), area.top);
    return box;
}

/// Labels that stand over each other, and the room across that they take.
struct Group {
    Indexes members;
    double left = 0, right = 0;
    std::size_t columns = 1;
    double columnWidth = 0;
};

double Largest(const std::vector<LabelBox>& boxes, const Indexes& members, double LabelBox::*size) {
    double largest = 0;
    for (const std::size_t index : members) largest = std::max(largest, boxes[index].*size);
    return largest;
}

/// Where most of the labels want to stand.
double MiddleLeft(const std::vector<LabelBox>& boxes, const Indexes& members) {
    std::vector<double> lefts;
    for (const std::size_t index : members) lefts.push_back(boxes[index].left);
    const auto middle = lefts.begin() + static_cast<std::ptrdiff_t>(lefts.size() / 2);
    std::nth_element(lefts.begin(), middle, lefts.end());
    return *middle;
}

/// Labels too many for the area's height get several columns, if it is wide enough for them.
Group GroupOf(const std::vector<LabelBox>& boxes, Indexes members, const LabelBox& area) {
    Group group{std::move(members)};
    group.left = boxes[group.members.front()].left;
    group.right = boxes[group.members.front()].Right();
    for (const std::size_t index : group.members) {
        group.left = std::min(group.left, boxes[index].left);
        group.right = std::max(group.right, boxes[index].Right());
    }
    const double height = Largest(boxes, group.members, &LabelBox::height);
    const auto rows = static_cast<std::size_t>(std::max(1.0, std::floor(area.height / height)));
    const std::size_t columns = (group.members.size() + rows - 1) / rows;
    group.columnWidth = Largest(boxes, group.members, &LabelBox::width) * kColumnGap;
    const double width = static_cast<double>(columns) * group.columnWidth;
    if (columns == 1 || width > area.width) return group;
    group.columns = columns;
    group.left =
        std::max(std::min(MiddleLeft(boxes, group.members), area.Right() - width), area.left);
    group.right = group.left + width;
    return group;
}

/// The labels in groups that do not reach into each other. What is joined may need more columns and
/// reach the next group, so the joining goes on until nothing changes.
std::vector<Group> Groups(const std::vector<LabelBox>& boxes, const LabelBox& area) {
    std::vector<Group> groups;
    for (std::size_t index = 0; index < boxes.size(); ++index) {
        groups.push_back(GroupOf(boxes, {index}, area));
    }
    for (bool joined = true; joined;) {
        joined = false;
        std::stable_sort(groups.begin(), groups.end(), [](const Group& one, const Group& other) {
            return one.left < other.left;
        });
        std::vector<Group> apart;
        for (Group& group : groups) {
            if (apart.empty() || group.left >= apart.back().right) {
                apart.push_back(std::move(group));
                continue;
            }
            Indexes members = std::move(apart.back().members);
            members.insert(members.end(), group.members.begin(), group.members.end());
            apart.back() = GroupOf(boxes, std::move(members), area);
            joined = true;
        }
        groups = std::move(apart);
    }
    return groups;
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

/// Neighbours that overlap join, and a stack stands at the mean of its labels' wishes. The rule is
/// that of pool-adjacent-violators, the algorithm of isotonic regression (Ayer and others, 1955):
/// of all places in this order without overlap it finds the least moved, by the sum of squares.
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
void Spread(std::vector<LabelBox>& boxes, const Group& group, const LabelBox& area) {
    Indexes byTop = group.members;
    std::sort(byTop.begin(), byTop.end());
    std::stable_sort(byTop.begin(), byTop.end(), [&](std::size_t one, std::size_t other) {
        return boxes[one].top < boxes[other].top;
    });
    if (group.columns == 1) return SpreadDown(boxes, byTop, area);
    for (std::size_t column = 0; column < group.columns; ++column) {
        Indexes members;
        for (std::size_t n = column; n < byTop.size(); n += group.columns) {
            members.push_back(byTop[n]);
            boxes[byTop[n]].left = group.left + static_cast<double>(column) * group.columnWidth;
        }
        SpreadDown(boxes, members, area);
    }
}

}  // namespace

std::vector<LabelBox> PlaceLabels(std::span<const LabelBox> wanted, const LabelBox& area) {
    std::vector<LabelBox> boxes;
    for (const LabelBox& box : wanted) boxes.push_back(Inside(box, area));
    for (const Group& group : Groups(boxes, area)) Spread(boxes, group, area);
    return boxes;
}
