#pragma once
// Where everything of the printed report stands, in centimetres from the paper's upper left corner.
// The curves and the grid under them are drawn by others; here are the texts,
// the lines and the page breaks.

#include "fundfile/rules/holding.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

inline constexpr std::string_view kReportFamily = "Arial";

struct ReportFont {
    double points = 12;
    bool bold = true;
    bool operator==(const ReportFont&) const = default;
};

struct PageText {
    double xCm = 0, yCm = 0;  ///< the text's upper left corner
    std::string text;
    ReportFont font;
    bool operator==(const PageText&) const = default;
};

struct PageLine {
    double x1Cm = 0, y1Cm = 0, x2Cm = 0, y2Cm = 0;
    double widthPoints = 0;
    bool operator==(const PageLine&) const = default;
};

struct PageItems {
    std::vector<PageText> texts;
    std::vector<PageLine> lines;
};

/// The device's sizes. Column 1 is the paper's left edge;
/// every column is as wide as an average character.
class FontMeasure {
  public:
    FontMeasure() = default;
    FontMeasure(const FontMeasure&) = delete;
    FontMeasure& operator=(const FontMeasure&) = delete;
    virtual ~FontMeasure() = default;

    virtual double ColumnCm(ReportFont font, int column) const = 0;
    virtual double LineCm(ReportFont font) const = 0;
    virtual double TextCm(ReportFont font, std::string_view text) const = 0;
};

/// The captions around the diagram, as the window shows them.
struct DiagramCaptions {
    std::array<std::string, 6> scale;  ///< bottom to top
    std::array<std::string, 12> months;
    std::string leftYear, rightYear;
};

struct Report {
    std::string title;  ///< the fund file's name without its extension
    std::string today;  ///< today's date text
    DiagramCaptions diagram;
    std::vector<HoldingRow> holdings;
    std::vector<std::string> totals;  ///< one line per account, as ReportLine makes them
};

struct PaperSize {
    double widthCm = 21.0;
    double heightCm = 29.7;
};

/// The pages of the report; the first has the heading and the diagram. A holding, and an account's
/// totals, are never torn apart by a page break, and a text that would run into the next column
/// ends in "..".
std::vector<PageItems> LayOut(const Report& report, PaperSize paper, const FontMeasure& measure);

/// The largest font in which the holdings' columns fit the paper.
ReportFont TableFont(PaperSize paper, const FontMeasure& measure);
