#include "app/rules/spoken.h"

#include "app/rules/daystep.h"
#include "app/rules/texts.h"
#include "base/daynumber.h"
#include "base/number.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <iterator>

namespace {

constexpr std::chrono::months kToLastMonth{11};

std::string MonthText(std::chrono::year_month month) {
    return std::string(MonthName(static_cast<unsigned>(month.month()))) + " " +
           PlainText(static_cast<std::int32_t>(static_cast<int>(month.year())));
}

std::string Months(const WindowState& state) {
    if (state.WindowStartDay < kFirstDay || state.WindowStartDay > kLastDay) return "";
    const std::chrono::year_month_day first = DateOf(state.WindowStartDay);
    const std::chrono::year_month from = first.year() / first.month();
    return std::string(texts::FromMonth) + MonthText(from) + std::string(texts::ToMonth) +
           MonthText(from + kToLastMonth);
}

std::string_view Steps(const WindowState& state) {
    if (state.DayStep == daystep::kWeek) return texts::ByWeeks;
    return state.DayStep == daystep::kMonth ? texts::ByMonths : "";
}

std::string CurveText(const ShownCurve& curve) {
    std::string text = PlainText(curve.kontoId) + ". " + curve.name;
    if (!curve.latest.empty()) text += ", " + curve.latest + " kr";
    if (!curve.change.empty()) text += ", " + curve.change;
    return text;
}

struct Hue {
    int until;  ///< degrees
    std::string_view name;
};
constexpr std::array kHues = {
    Hue{16, texts::Red},     Hue{45, texts::Orange},     Hue{70, texts::Yellow},
    Hue{160, texts::Green},  Hue{200, texts::Turquoise}, Hue{255, texts::Blue},
    Hue{300, texts::Purple}, Hue{345, texts::Pink},      Hue{361, texts::Red}};

int HueOf(Colour colour, int highest, int spread) {
    const int red = colour.red, green = colour.green, blue = colour.blue;
    int hue = 0;
    if (highest == red) {
        hue = 60 * (green - blue) / spread;
    } else if (highest == green) {
        hue = 120 + 60 * (blue - red) / spread;
    } else {
        hue = 240 + 60 * (red - green) / spread;
    }
    return hue < 0 ? hue + 360 : hue;
}

std::string ColourName(Colour colour) {
    constexpr int kGreySpread = 25, kDark = 190, kLight = 340, kBlack = 60, kWhite = 480;
    const auto [lowest, highest] = std::minmax({colour.red, colour.green, colour.blue});
    const int light = int{lowest} + int{highest};  // 0 to 510
    const int spread = int{highest} - int{lowest};
    if (light < kBlack) return std::string(texts::Black);
    if (light > kWhite) return std::string(texts::White);
    const std::string_view shade =
        light < kDark ? texts::Dark : (light > kLight ? texts::Light : "");
    if (spread < kGreySpread) return std::string(shade) + std::string(texts::Grey);
    const int hue = HueOf(colour, highest, spread);
    const auto found = std::find_if(kHues.begin(), std::prev(kHues.end()),
                                    [hue](const Hue& one) { return hue < one.until; });
    if (light < kDark && found->name == texts::Orange) return std::string(texts::Brown);
    return std::string(shade) + std::string(found->name);
}

}  // namespace

std::string SpokenPicture(const WindowState& state, std::string_view hint) {
    if (state.curves.empty()) return std::string(hint.empty() ? texts::NoCurves : hint);
    const bool one = state.curves.size() == 1;
    const auto count = static_cast<std::int32_t>(state.curves.size());
    std::string text = PlainText(count) + std::string(one ? texts::OneCurve : texts::Curves);
    text += Months(state) + std::string(Steps(state)) + std::string(texts::ScaleFrom) +
            PlainText(state.drawnScale.bottom) + std::string(texts::ScaleTo) +
            PlainText(state.drawnScale.top) + " %";
    for (const ShownCurve& curve : state.curves) text += ". " + CurveText(curve);
    return text;
}

std::string SpokenMissingDays(const std::vector<std::int32_t>& days) {
    std::string text;
    for (const std::int32_t day : days) {
        const std::chrono::year_month_day date = DateOf(day);
        const auto number = static_cast<std::int32_t>(static_cast<unsigned>(date.day()));
        text += (text.empty() ? std::string(texts::DaysMissing) : ", ") + PlainText(number) + " " +
                std::string(MonthName(static_cast<unsigned>(date.month())));
    }
    return text;
}

std::string SpokenColour(std::optional<Colour> colour) {
    return colour ? std::string(texts::CurveColourIs) + ColourName(*colour) : "";
}

std::string SpokenStoredPrice(std::string_view price, std::string_view fond, std::int32_t percent) {
    return std::string(texts::StoredPrice) + std::string(price) + std::string(texts::ForFund) +
           std::string(fond) + std::string(texts::IsStored) + PlainText(percent) + " %";
}
