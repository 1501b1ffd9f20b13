#include "reports/printedreport.h"

#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "app/rules/timewindow.h"
#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"
#include "fundfile/records.h"
#include "platform/caption.h"
#include "platform/datasource.h"
#include "platform/platform.h"
#include "platform/printing.h"
#include "reports/texts.h"
#include "widgets/diagramview.h"
#include "widgets/rules/stroke.h"

#include <QAction>
#include <QImage>
#include <QListWidget>
#include <QRectF>

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace {

constexpr std::string_view kGridPicture = "Grid.dib";
constexpr ReportFont kCurveFont{8, false};

/// The sizes of the page's own fonts.
class PageMeasure final : public FontMeasure {
  public:
    explicit PageMeasure(PrinterPage& page) : page_(page) {}

    double ColumnCm(ReportFont font, int column) const override {
        return In(font).ColumnCm(column);
    }
    double LineCm(ReportFont font) const override { return In(font).LineHeightCm(); }
    double TextCm(ReportFont font, std::string_view text) const override {
        return In(font).TextWidthCm(text);
    }

  private:
    PrinterPage& In(ReportFont font) const {
        page_.SetFont(kReportFamily, font.points, font.bold);
        return page_;
    }

    PrinterPage& page_;
};

/// The whole twelve months wide and the whole scale high.
QRectF DiagramAreaCm() {
    constexpr double kTopCm = 5.0;
    return {onpage::kLeftCm, kTopCm, onpage::kCmPerDay * DiagramView::kDays, onpage::kHeightCm};
}

void PrintItems(PrinterPage& page, const PageItems& items) {
    for (const PageLine& line : items.lines) {
        page.DrawLine({line.x1Cm, line.y1Cm}, {line.x2Cm, line.y2Cm}, line.widthPoints);
    }
    for (const PageText& text : items.texts) {
        page.SetFont(kReportFamily, text.font.points, text.font.bold);
        page.PrintAt(text.xCm, text.yCm, text.text);
    }
}

}  // namespace

PrintedReport::PrintedReport(frmPPM& ppm) : Controller(ppm) {
    On(window.mnuPrint, &QAction::triggered, this, &PrintedReport::mnuPrint_Click);
}

void PrintedReport::mnuPrint_Click() {
    if (!window.LeaveHoldingsGrid()) return;
    try {
        PrintReport();
    } catch (const Error& error) {
        Report(texts::PrintFailed, texts::PrintFailedLog, error);
    }
    window.Put(AfterPrinting(window.State()));
}

void PrintedReport::PrintReport() {
    window.FillAccountList();
    const auto page = window.platform.printing.Begin(Title());
    if (!page) return;
    const std::vector<PageItems> pages =
        LayOut(Contents(), {page->WidthCm(), page->HeightCm()}, PageMeasure(*page));
    PrintDiagram(*page);
    for (std::size_t number = 0; number < pages.size(); ++number) {
        if (number > 0) page->NewPage();
        PrintItems(*page, pages[number]);
    }
    page->EndDocument();
}

void PrintedReport::PrintDiagram(PrinterPage& page) {
    const std::string path = window.AppFolder + std::string(kGridPicture);
    const QImage grid(ToQt(path), "BMP");
    if (grid.isNull()) throw Error{ErrorNumber::FileNotFound, "no grid picture: " + path};
    page.DrawPicture(grid, DiagramAreaCm());
    page.SetFont(kReportFamily, kCurveFont.points, kCurveFont.bold);
    window.PrintCurves(page);
}

::Report PrintedReport::Contents() {
    ::Report report;
    report.title = Title();
    report.today = DateText(window.TodayDay);
    const std::vector<std::int32_t> scale = ScaleLabels(window.drawnScale);
    std::transform(scale.begin(), scale.end(), report.diagram.scale.begin(),
                   [](std::int32_t value) { return PlainText(value); });
    const WindowLabels labels = LabelsOf(window.WindowStartDay, window.MonthNames);
    std::copy(labels.months.begin(), labels.months.end(), report.diagram.months.begin());
    report.diagram.leftYear = labels.leftYear;
    report.diagram.rightYear = labels.rightYear;
    if (window.dtaBasData->IsAttached()) report.holdings = ReadHoldings(*window.dtaBasData);
    report.totals = Totals();
    return report;
}

std::vector<std::string> PrintedReport::Totals() {
    std::vector<std::string> totals;
    totals.reserve(static_cast<std::size_t>(window.lstTotal->count()));
    for (int i = 0; i < window.lstTotal->count(); ++i) {
        totals.push_back(window.BuildAccountTotals(FromQt(window.lstTotal->item(i)->text())));
    }
    return totals;
}

std::string PrintedReport::Title() const {
    return std::filesystem::path(window.CurrentFile).stem().string();
}
