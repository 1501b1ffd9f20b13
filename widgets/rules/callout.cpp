#include "widgets/rules/callout.h"

#include <algorithm>

LabelBox CalloutPlace(Point at, double width, double height, const LabelBox& area, double gap) {
    LabelBox box{at.x + gap, at.y - gap - height, width, height};
    if (box.Right() > area.Right()) box.left = at.x - gap - width;
    if (box.top < area.top) box.top = at.y + gap;
    box.left = std::max(std::min(box.left, area.Right() - width), area.left);
    box.top = std::max(std::min(box.top, area.Bottom() - height), area.top);
    return box;
}
