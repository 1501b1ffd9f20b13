#include "widgets/rules/numberplaces.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kReach = 6;         // of a number's height: what is farther away confuses nobody
constexpr double kLeaderRoom = 4;    // times the gap, where leaders need to be seen
constexpr double kMovedShare = 0.5;  // of a height: a number that was moved less still stands there

constexpr double kApart = 16;          // heights between the numbers along one curve
constexpr int kTries = 4;              // places to each side of the one that is tried first
constexpr double kTryStep = 0.75;      // of a number's width
constexpr double kFreeOfOthers = 1.5;  // heights; farther away is no better
constexpr double kGoldenPart = 0.6180339887498949;

double Distance(const CurveExtent& extent, const LabelBox& box) {
    return extent.DistanceTo(box, kReach * box.height);
}

/// Another curve is as near as its own.
bool IsAmbiguous(const LabelBox& box, std::size_t own, std::span<const CurveExtent> extents) {
    const double reach = kReach * box.height;
    const double ownDistance = extents[own].DistanceTo(box, reach);
    for (std::size_t other = 0; other < extents.size(); ++other) {
        if (other == own) continue;
        const double distance = extents[other].DistanceTo(box, reach);
        if (distance <= ownDistance && distance < reach) return true;
    }
    return false;
}

/// Over the end as wished, or beside it where that stands nearer to another curve.
LabelBox Wished(const EndNumber& number, std::span<const CurveExtent> extents, double gap) {
    const LabelBox over{number.end.x + gap, number.top, number.width, number.height};
    if (!IsAmbiguous(over, number.curve, extents)) return over;
    const LabelBox beside{over.left, number.end.y - number.height / 2, over.width, over.height};
    return IsAmbiguous(beside, number.curve, extents) ? over : beside;
}

Leader LeaderOf(const LabelBox& box, Point end) {
    const double x = end.x < box.left      ? box.left
                     : end.x > box.Right() ? box.Right()
                                           : std::clamp(end.x, box.left, box.Right());
    const bool beside = end.x < box.left || end.x > box.Right();
    const double y = beside ? box.top + box.height / 2
                            : (end.y < box.top + box.height / 2 ? box.top : box.Bottom());
    return {{x, y}, end};
}

std::vector<NumberPlace> Placed(std::span<const EndNumber> numbers,
                                std::span<const CurveExtent> extents, const LabelBox& area,
                                double gap) {
    std::vector<LabelBox> wanted;
    for (const EndNumber& number : numbers) wanted.push_back(Wished(number, extents, gap));
    const std::vector<LabelBox> boxes = PlaceLabels(wanted, area);
    std::vector<NumberPlace> places;
    for (std::size_t at = 0; at < numbers.size(); ++at) {
        const std::size_t own = numbers[at].curve;
        NumberPlace place{own, boxes[at], std::nullopt};
        const double further =
            Distance(extents[own], boxes[at]) - Distance(extents[own], wanted[at]);
        if (further > kMovedShare * boxes[at].height || IsAmbiguous(boxes[at], own, extents)) {
            place.leader = LeaderOf(boxes[at], numbers[at].end);
        }
        places.push_back(place);
    }
    return places;
}

bool Overlap(const LabelBox& one, const LabelBox& other) {
    return one.left < other.Right() && other.left < one.Right() && one.top < other.Bottom() &&
           other.top < one.Bottom();
}

bool Within(const LabelBox& box, const LabelBox& area) {
    return box.left >= area.left && box.Right() <= area.Right() && box.top >= area.top &&
           box.Bottom() <= area.Bottom();
}

/// Looks for the freest place on one curve.
class AlongCurve {
  public:
    AlongCurve(std::span<const CurveExtent> extents, std::size_t own, NumberSize size,
               const LabelBox& area)
        : extents_(extents), own_(own), size_(size), area_(area) {}

    std::optional<LabelBox> Near(double target, const std::vector<LabelBox>& taken) const {
        std::optional<LabelBox> best;
        double bestFree = 0;
        for (int number = 0; number <= 2 * kTries; ++number) {
            const int steps = number % 2 == 0 ? number / 2 : -(number + 1) / 2;
            const auto box = At(target + steps * kTryStep * size_.width);
            if (!box || IsTaken(*box, taken)) continue;
            const double free = FreeOfOthers(*box, bestFree);
            if (free <= bestFree) continue;
            bestFree = free;
            best = box;
            if (free >= kFreeOfOthers * size_.height) break;
        }
        return best;
    }

  private:
    /// On the curve, which runs under all of the number.
    std::optional<LabelBox> At(double middle) const {
        const CurveExtent& own = extents_[own_];
        const double half = size_.width / 2;
        const auto height = own.HeightAt(middle);
        if (!height || !own.HeightAt(middle - half) || !own.HeightAt(middle + half)) {
            return std::nullopt;
        }
        const LabelBox box{middle - half, *height - size_.height / 2, size_.width, size_.height};
        return Within(box, area_) ? std::optional(box) : std::nullopt;
    }
    static bool IsTaken(const LabelBox& box, const std::vector<LabelBox>& taken) {
        return std::any_of(taken.begin(), taken.end(),
                           [&](const LabelBox& other) { return Overlap(box, other); });
    }
    /// How far the nearest other curve is; no further searched once it is no better than `best`.
    double FreeOfOthers(const LabelBox& box, double best) const {
        double free = kFreeOfOthers * size_.height;
        for (std::size_t other = 0; other < extents_.size() && free > best; ++other) {
            if (other != own_) free = extents_[other].DistanceTo(box, free);
        }
        return free;
    }

    std::span<const CurveExtent> extents_;
    std::size_t own_;
    NumberSize size_;
    LabelBox area_;
};

}  // namespace

std::vector<NumberPlace> PlaceEndNumbers(std::span<const EndNumber> wishes,
                                         std::span<const CurveExtent> extents, const LabelBox& area,
                                         double gap) {
    std::vector<NumberPlace> places = Placed(wishes, extents, area, gap);
    const bool leads = std::any_of(places.begin(), places.end(), [](const NumberPlace& place) {
        return place.leader.has_value();
    });
    return leads ? Placed(wishes, extents, area, gap * kLeaderRoom) : places;
}

std::vector<NumberPlace> PlaceAlongCurves(std::span<const NumberSize> sizes,
                                          std::span<const CurveExtent> extents,
                                          std::vector<LabelBox> taken, const LabelBox& area) {
    std::vector<NumberPlace> places;
    for (std::size_t curve = 0; curve < extents.size(); ++curve) {
        const NumberSize& size = sizes[curve];
        if (size.width <= 0) continue;
        const AlongCurve along(extents, curve, size, area);
        const double count = std::max(2.0, std::floor(area.width / (kApart * size.height)));
        // Neighbours have their numbers at different places.
        const double shift = std::fmod(static_cast<double>(curve) * kGoldenPart, 1.0);
        for (int part = 0; part < static_cast<int>(count); ++part) {
            const double target = area.left + area.width * (part + 0.1 + 0.8 * shift) / count;
            const auto box = along.Near(target, taken);
            if (!box) continue;
            taken.push_back(*box);
            places.push_back({curve, *box, std::nullopt});
        }
    }
    return places;
}
