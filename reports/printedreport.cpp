#include "reports/printedreport.h"

#include "app/chosencurves.h"
#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "app/rules/timewindow.h"
#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/rules/holding.h"
#include "jet/database.h"
#include "platform/datasource.h"
#include "platform/platform.h"
#include "platform/printing.h"
#include "platform/qttext.h"
#include "reports/accounts.h"
#include "reports/rules/totals.h"
#include "reports/texts.h"
#include "widgets/diagramview.h"
#include "widgets/rules/stroke.h"

#include <QAction>
#include <QImage>
#include <QRectF>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>
#include <utility>

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

QImage GridPicture(const std::string& folder) {
    const std::string path = folder + std::string(kGridPicture);
    const QImage grid(ToQt(path), "BMP");
    if (grid.isNull()) throw Error{ErrorNumber::FileNotFound, "no grid picture: " + path};
    return grid;
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
    // All is read before a printer is asked for: a report that fails prints no half page, and a
    // file of an earlier one stays as it is.
    const QImage grid = GridPicture(window.AppFolder);
    ::Report report = Contents();
    auto totals = Totals();
    if (!totals) return;
    report.totals = std::move(*totals);
    ForEachChosenCurve(window, [](std::span<const CurvePoint>, const ShownCurve&) {});

    const auto page = window.platform.printing.Begin(Title());
    if (!page) return;
    const std::vector<PageItems> pages =
        LayOut(report, {page->WidthCm(), page->HeightCm()}, PageMeasure(*page));
    page->DrawPicture(grid, DiagramAreaCm());
    page->SetFont(kReportFamily, kCurveFont.points, kCurveFont.bold);
    window.PrintCurves(*page);
    for (std::size_t number = 0; number < pages.size(); ++number) {
        if (number > 0) page->NewPage();
        PrintItems(*page, pages[number]);
    }
    page->EndDocument();
}

/// What the page says beside curves and totals: the window's own labels, and all holdings.
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
    return report;
}

std::optional<std::vector<std::string>> PrintedReport::Totals() {
    std::vector<std::string> totals;
    for (const std::string& account : AccountNames(*window.dtaBasData)) {
        try {
            totals.push_back(TotalsOf(account));
        } catch (const Error& error) {
            ReportAccount(account, error);
            return std::nullopt;
        }
    }
    return totals;
}

std::string PrintedReport::TotalsOf(const std::string& account) {
    if (window.FundDb) {
        const auto rows = window.FundDb->OpenRecordSet(queries::TotalsOf(account));
        const auto text = [&](std::size_t position) { return rows->Field(position).Text(); };
        if (!rows->Eof() && text(0) == kSummaryFondNr) {
            const TotalsRow summary{text(0), text(1), text(2), text(3), text(4), text(5)};
            return ReportLine(account, PanelTotals({&summary, 1}));
        }
    }
    return window.BuildAccountTotals(account);
}

/// Names the account in the log: one that cannot be read is found by it.
void PrintedReport::ReportAccount(const std::string& account, const Error& error) {
    Tell(texts::PrintFailed);
    Skipping skip;
    skip([&] {
        window.WriteLogEntry(std::string(texts::PrintFailedLog) +
                             PlainText(static_cast<std::int32_t>(error.Number())) +
                             std::string(texts::PrintFailedAccountLog) + account);
    });
}

std::string PrintedReport::Title() const {
    return std::filesystem::path(window.CurrentFile).stem().string();
}
