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
#include "fundfile/rules/listedfiles.h"
#include "fundfile/texts.h"
#include "jet/database.h"
#include "platform/datasource.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/printing.h"
#include "platform/qttext.h"
#include "platform/wholefile.h"
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

/// All is read before a printer is asked for: a report that fails prints no half page, and a file
/// of an earlier one stays as it is.
struct PrintedReport::Prepared {
    QImage grid;
    ::Report report;
};

PrintedReport::PrintedReport(frmPPM& ppm) : Controller(ppm) {
    On(window.mnuGranska, &QAction::triggered, [this] { Make(&PrintedReport::Preview); });
    On(window.mnuPrint, &QAction::triggered, [this] { Make(&PrintedReport::Print); });
    On(window.mnuPdf, &QAction::triggered, [this] { Make(&PrintedReport::SaveAsPdf); });
}

void PrintedReport::Make(Deliver deliver) {
    if (!window.LeaveHoldingsGrid()) return;
    receipt_.clear();
    try {
        if (const std::optional<Prepared> prepared = Prepare()) (this->*deliver)(*prepared);
    } catch (const Error& error) {
        Report(texts::PrintFailed, texts::PrintFailedLog, error);
    }
    window.Put(AfterPrinting(window.State()));
    if (!receipt_.empty()) window.ShowReceipt(receipt_);
}

std::optional<PrintedReport::Prepared> PrintedReport::Prepare() {
    window.FillAccountList();
    Prepared prepared{GridPicture(window.AppFolder), Contents()};
    auto totals = Totals();
    if (!totals) return std::nullopt;
    prepared.report.totals = std::move(*totals);
    ForEachChosenCurve(window, [](std::span<const CurvePoint>, const ShownCurve&) {});
    return prepared;
}

void PrintedReport::Draw(const Prepared& prepared, PrinterPage& page) {
    const std::vector<PageItems> pages =
        LayOut(prepared.report, {page.WidthCm(), page.HeightCm()}, PageMeasure(page));
    page.DrawPicture(prepared.grid, DiagramAreaCm());
    page.SetFont(kReportFamily, kCurveFont.points, kCurveFont.bold);
    window.PrintCurves(page);
    for (std::size_t number = 0; number < pages.size(); ++number) {
        if (number > 0) page.NewPage();
        PrintItems(page, pages[number]);
    }
    page.EndDocument();
}

void PrintedReport::Print(const Prepared& prepared) {
    if (const auto page = window.platform.printing.Begin(Title())) Draw(prepared, *page);
}

void PrintedReport::Preview(const Prepared& prepared) {
    const auto draw = [&](PrinterPage& page) { Draw(prepared, page); };
    switch (window.platform.printing.Preview(Title(), draw)) {
        case Previewed::Closed:
            return;
        case Previewed::Print:
            return Print(prepared);
        case Previewed::SaveAsPdf:
            return SaveAsPdf(prepared);
    }
}

void PrintedReport::SaveAsPdf(const Prepared& prepared) {
    const std::string path = PickPdf();
    if (path.empty()) return;
    const std::string bytes =
        PdfDocument(Title(), [&](PrinterPage& page) { Draw(prepared, page); });
    const std::string name = std::filesystem::path(path).filename().string();
    std::string_view why = IsFundFileName(name) ? texts::IsFundFilesName : "";
    try {
        if (why.empty()) WriteWholeFile(path, bytes);
    } catch (const Error& error) {
        why = fundtexts::Explain(error.Number());
    }
    if (why.empty()) {
        receipt_ = std::string(texts::PdfSaved) + name;
        return;
    }
    window.platform.dialogs.Show(
        {.text = fundtexts::Failure(texts::PdfNotSaved, path, why), .icon = Icon::Exclamation});
}

/// Proposes what the print dialog proposes for its PDF file.
std::string PrintedReport::PickPdf() {
    return window.platform.dialogs.PickFile({.choice = FileChoice::Save,
                                             .title = std::string(texts::PdfTitle),
                                             .filter = std::string(texts::PdfFiles),
                                             .folder = window.platform.userFolder,
                                             .defaultExtension = "pdf",
                                             .fileName = Title() + ".pdf",
                                             .askBeforeOverwriting = true});
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
