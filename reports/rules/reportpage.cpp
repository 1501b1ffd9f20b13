#include "reports/rules/reportpage.h"

#include "app/rules/holdingview.h"
#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"
#include "base/text.h"
#include "fundfile/rules/savedvalues.h"
#include "reports/rules/texts.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <utility>

namespace {

constexpr ReportFont kTitleFont{16, true};
constexpr ReportFont kUpdateFont{10, true};
constexpr ReportFont kLabelFont{12, true};
constexpr ReportFont kPageNumberFont{10, false};

constexpr double kLeftCm = 2.0;
constexpr double kTitleTopCm = 3.0;
constexpr double kTodayLeftCm = 12.8;
constexpr double kTodayTopCm = 1.5;
constexpr double kUpdateTopCm = 3.85;
constexpr double kRuleWidthPoints = 1.5;

constexpr double kScaleRightCm = 2.85;
constexpr double kScaleTopCm = 4.8;
constexpr double kScaleStepCm = 1.4;
constexpr double kMonthTopCm = 12.1;
constexpr std::array<double, 12> kMonthLeftCm = {3.2,  4.4,  5.6,  7.0,  8.2,  9.4,
                                                 10.8, 12.0, 13.2, 14.6, 15.8, 17.0};
constexpr double kYearTopCm = 12.7;
constexpr double kLeftYearCm = 3.2;
constexpr double kRightYearCm = 16.9;

constexpr double kTableTopCm = 13.7;
constexpr double kNextPageTopCm = 2.6;
constexpr double kNextPageHeadingCm = 1.5;
constexpr double kBottomMarginCm = 1.5;
constexpr double kRightMarginCm = 1.0;
constexpr double kHoldingGap = 0.4;  // of a line, between two holdings
constexpr int kLastColumn = 112;     // the latest price begins at 92 and is about 20 characters

/// A piece of a table line and the column it begins at.
struct Piece {
    int column = 1;
    std::string text;
};
using TableLine = std::vector<Piece>;

std::string Text(std::string_view text) {
    return std::string(text);
}

/// The amount as a whole number; a text that is no number stands as it is.
std::string Whole(const std::string& amount) {
    std::string whole = amount.empty() ? PlainText(0) : amount;
    Skipping skip;
    skip([&] { whole = PlainText(ParseInteger(amount)); });
    return whole;
}

std::array<TableLine, 2> HoldingLines(const HoldingRow& row) {
    const auto saved = ParseSavedValues(row.sparadeVarden);
    const StatusTexts status = StatusOf(row);
    const std::string price = saved ? saved->price : ShownNumber(row.kursKr);
    const std::string value = saved ? saved->value : ShownNumber(row.vardeKr);
    return {
        TableLine{{11, row.namn},
                  {40, PlainText(row.kontoId) + "."},
                  {45, row.fond},
                  {71, Text(texts::ReportStartPrice) + price},
                  {92, status.latestPrice}},
        TableLine{{11, Text(texts::ReportStartValue) + Whole(value) + Text(texts::ReportStartUnit)},
                  {45, Text(texts::ReportCurrentValue) + status.value},
                  {96, status.change}}};
}

/// The five parts after the account's name, which may itself hold the separator.
std::array<TableLine, 2> TotalsLines(const std::string& line) {
    auto parts = Split(line, texts::ReportSeparator);
    constexpr std::size_t kParts = 6;
    if (parts.size() < kParts) {
        throw Error{ErrorNumber::SubscriptOutOfRange, "a line of totals: " + line};
    }
    const auto name = parts.end() - (kParts - 1);
    const std::vector<std::string> values(name, parts.end());
    parts.erase(name, parts.end());
    return {TableLine{{10, Join(parts, texts::ReportSeparator)}, {39, values[0]}, {66, values[1]}},
            TableLine{{39, values[2]}, {66, values[3]}, {82, values[4]}}};
}

std::optional<std::int32_t> LatestDay(std::span<const HoldingRow> holdings) {
    std::optional<std::int32_t> latest;
    for (const auto& row : holdings) latest = std::max(latest, row.senasteDag);
    return latest;
}

/// Fills pages from above, beginning a new one where the next block does not fit.
class Pages {
  public:
    Pages(const Report& report, PaperSize paper, const FontMeasure& measure)
        : report_(report), paper_(paper), measure_(measure), font_(TableFont(paper, measure)) {
        pages_.emplace_back();
        AddHeading();
        AddDiagramCaptions();
    }

    void AddHoldings() {
        for (const auto& row : report_.holdings) {
            Reserve(2 + kHoldingGap);
            for (const auto& line : HoldingLines(row)) AddLine(line);
            Skip(kHoldingGap);
        }
    }

    void AddTotals() {
        if (report_.totals.empty()) return;
        Skip(1);
        Reserve(5);  // the heading, an empty line and the first account stay together
        AddLine({{10, Text(texts::ReportTotals)}});
        Skip(1);
        for (const auto& account : report_.totals) {
            Reserve(3);
            for (const auto& line : TotalsLines(account)) AddLine(line);
            Skip(1);
        }
    }

    std::vector<PageItems> Take() { return std::move(pages_); }

  private:
    void Add(double xCm, double yCm, std::string text, ReportFont font) {
        if (!text.empty()) pages_.back().texts.push_back({xCm, yCm, std::move(text), font});
    }

    void AddHeading() {
        const double room = paper_.widthCm - kRightMarginCm - kLeftCm;
        Add(kLeftCm, kTitleTopCm, Fitted(report_.title, room, kTitleFont), kTitleFont);
        Add(kTodayLeftCm, kTodayTopCm, report_.today, kLabelFont);
        if (const auto day = LatestDay(report_.holdings)) {
            const std::string date = DateText(*day);
            const double width = measure_.TextCm(kUpdateFont, date + " ");
            Add(kLeftCm, kUpdateTopCm, date, kUpdateFont);
            Add(kLeftCm + width, kUpdateTopCm, Text(texts::ReportUpdated), kUpdateFont);
        }
        const double right = paper_.widthCm;
        pages_.back().lines = {{1.7, 4.6, right - 1.7, 4.6, kRuleWidthPoints},
                               {1.8, 4.7, right - 1.8, 4.7, kRuleWidthPoints}};
    }

    void AddDiagramCaptions() {
        const DiagramCaptions& diagram = report_.diagram;
        for (std::size_t i = 0; i < diagram.scale.size(); ++i) {
            const bool top = i + 1 == diagram.scale.size();
            std::string label = diagram.scale[i];
            if (top && !label.empty()) label += texts::ReportScaleUnit;
            const auto stepsDown = static_cast<double>(diagram.scale.size() - 1 - i);
            Add(kScaleRightCm - measure_.TextCm(kLabelFont, label),
                kScaleTopCm + stepsDown * kScaleStepCm, label, kLabelFont);
        }
        for (std::size_t i = 0; i < diagram.months.size(); ++i) {
            Add(kMonthLeftCm[i], kMonthTopCm, diagram.months[i], kLabelFont);
        }
        Add(kLeftYearCm, kYearTopCm, diagram.leftYear, kLabelFont);
        Add(kRightYearCm, kYearTopCm, diagram.rightYear, kLabelFont);
    }

    void Skip(double lines) { yCm_ += lines * measure_.LineCm(font_); }

    /// Goes on on a new page if so many lines do not fit on this one.
    void Reserve(double lines) {
        const double bottom = paper_.heightCm - kBottomMarginCm;
        if (yCm_ + lines * measure_.LineCm(font_) <= bottom) return;
        pages_.emplace_back();
        yCm_ = kNextPageTopCm;
        const std::string number = PlainText(static_cast<std::int64_t>(pages_.size()));
        const double numberLeft =
            paper_.widthCm - kLeftCm - measure_.TextCm(kPageNumberFont, number);
        const double room = numberLeft - kLeftCm - measure_.TextCm(kPageNumberFont, " ");
        Add(kLeftCm, kNextPageHeadingCm, Fitted(report_.title, room, kPageNumberFont),
            kPageNumberFont);
        Add(numberLeft, kNextPageHeadingCm, number, kPageNumberFont);
    }

    void AddLine(const TableLine& line) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            const double left = measure_.ColumnCm(font_, line[i].column);
            const bool last = i + 1 == line.size();
            const double right =
                last ? paper_.widthCm - kRightMarginCm
                     : measure_.ColumnCm(font_, line[i + 1].column) - measure_.TextCm(font_, " ");
            Add(left, yCm_, Fitted(line[i].text, right - left, font_), font_);
        }
        Skip(1);
    }

    std::string Fitted(const std::string& text, double widthCm, ReportFont font) const {
        if (measure_.TextCm(font, text) <= widthCm) return text;
        std::string shorter = text;
        do {
            shorter = Left(shorter, Length(shorter) - 1);
        } while (!shorter.empty() && measure_.TextCm(font, shorter + "..") > widthCm);
        return shorter + "..";
    }

    const Report& report_;
    PaperSize paper_;
    const FontMeasure& measure_;
    ReportFont font_;
    std::vector<PageItems> pages_;
    double yCm_ = kTableTopCm;
};

}  // namespace

std::vector<PageItems> LayOut(const Report& report, PaperSize paper, const FontMeasure& measure) {
    Pages pages(report, paper, measure);
    pages.AddHoldings();
    pages.AddTotals();
    return pages.Take();
}

ReportFont TableFont(PaperSize paper, const FontMeasure& measure) {
    constexpr std::array<double, 4> kSizes = {9, 8, 7, 6};
    for (const double points : kSizes) {
        const ReportFont font{points, false};
        if (measure.ColumnCm(font, kLastColumn) <= paper.widthCm - kRightMarginCm) return font;
    }
    return {kSizes.back(), false};
}
