#include "platform/printing.h"

#include "base/error.h"
#include "platform/dialogs.h"
#include "platform/pagepreview.h"
#include "platform/qttext.h"

#include <QApplication>
#include <QBuffer>
#include <QFontMetricsF>
#include <QMarginsF>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QPen>
#include <QPrinter>

#include <optional>
#include <utility>

namespace {

constexpr double kCmPerInch = 2.54;
constexpr double kPointsPerInch = 72.0;
constexpr int kPdfDotsPerInch = 1200;
constexpr double kA4WidthCm = 21.0, kA4HeightCm = 29.7;

[[noreturn]] void Fail(const char* what) {
    throw Error{kPrinterError, what};
}

}  // namespace

struct PrinterPage::State {
    std::unique_ptr<QPagedPaintDevice> owned;
    QPagedPaintDevice* device = nullptr;
    QPainter painter;  // after the device: it must end before the device goes
    double dotsPerCmX = 1, dotsPerCmY = 1;

    QFontMetricsF Metrics() const { return QFontMetricsF(painter.font(), device); }

    void Check() const {
        const auto* printer = dynamic_cast<const QPrinter*>(device);
        const bool failed = printer != nullptr && (printer->printerState() == QPrinter::Error ||
                                                   printer->printerState() == QPrinter::Aborted);
        if (failed || !painter.isActive()) Fail("the printer does not print");
    }
};

PrinterPage::PrinterPage(std::unique_ptr<QPagedPaintDevice> device) : PrinterPage(*device) {
    state_->owned = std::move(device);
}

PrinterPage::PrinterPage(QPagedPaintDevice& device) : state_(std::make_unique<State>()) {
    state_->device = &device;
    if (!state_->painter.begin(state_->device)) Fail("the printer does not begin");
    state_->dotsPerCmX = state_->device->logicalDpiX() / kCmPerInch;
    state_->dotsPerCmY = state_->device->logicalDpiY() / kCmPerInch;
    state_->painter.setRenderHint(QPainter::Antialiasing);
    state_->painter.setRenderHint(QPainter::SmoothPixmapTransform);
    state_->painter.setPen(Qt::black);
}

PrinterPage::~PrinterPage() {
    if (state_->painter.isActive()) state_->painter.end();
}

double PrinterPage::WidthCm() const {
    const double width = state_->device->width() / state_->dotsPerCmX;
    return width > 0 ? width : kA4WidthCm;
}

double PrinterPage::HeightCm() const {
    const double height = state_->device->height() / state_->dotsPerCmY;
    return height > 0 ? height : kA4HeightCm;
}

double PrinterPage::LineHeightCm() const {
    return state_->Metrics().lineSpacing() / state_->dotsPerCmY;
}

double PrinterPage::TextWidthCm(std::string_view text) const {
    return state_->Metrics().horizontalAdvance(ToQt(text)) / state_->dotsPerCmX;
}

double PrinterPage::ColumnCm(int column) const {
    return (column - 1) * state_->Metrics().averageCharWidth() / state_->dotsPerCmX;
}

void PrinterPage::SetFont(std::string_view family, double points, bool bold) {
    QFont font(ToQt(family));
    font.setPointSizeF(points);
    font.setBold(bold);
    state_->painter.setFont(font);
}

void PrinterPage::PrintAt(double xCm, double yCm, std::string_view text) {
    state_->Check();
    const QFontMetricsF metrics = state_->Metrics();
    const QPointF baseline(xCm * state_->dotsPerCmX, yCm * state_->dotsPerCmY + metrics.ascent());
    state_->painter.drawText(baseline, ToQt(text));
}

void PrinterPage::DrawLine(QPointF fromCm, QPointF toCm, double widthPoints) {
    state_->Check();
    const QTransform toDevice = CentimetresToDevice();
    QPen pen(Qt::black);
    pen.setWidthF(widthPoints / kPointsPerInch * kCmPerInch * state_->dotsPerCmX);
    pen.setCapStyle(Qt::FlatCap);
    state_->painter.save();
    state_->painter.setPen(pen);
    state_->painter.drawLine(toDevice.map(fromCm), toDevice.map(toCm));
    state_->painter.restore();
}

void PrinterPage::DrawPicture(const QImage& picture, QRectF areaCm) {
    state_->Check();
    state_->painter.drawImage(CentimetresToDevice().mapRect(areaCm), picture);
}

void PrinterPage::NewPage() {
    state_->Check();
    if (!state_->device->newPage()) Fail("the printer takes no further page");
}

void PrinterPage::EndDocument() {
    state_->Check();
    if (!state_->painter.end()) Fail("the printer does not end the document");
}

QPainter& PrinterPage::Painter() {
    return state_->painter;
}

QTransform PrinterPage::CentimetresToDevice() const {
    return QTransform::fromScale(state_->dotsPerCmX, state_->dotsPerCmY);
}

std::string PdfDocument(std::string_view documentName, const DrawDocument& draw) {
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&bytes);
        writer.setTitle(ToQt(documentName));
        writer.setResolution(kPdfDotsPerInch);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        PrinterPage page(writer);
        draw(page);
    }
    return bytes.data().toStdString();
}

namespace {

/// Positions count from the paper's corner, not from the printable area's.
void SetUp(QPrinter& printer, std::string_view documentName) {
    printer.setDocName(ToQt(documentName));
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setFullPage(true);
}

}  // namespace

std::unique_ptr<PrinterPage> SystemPrinting::Begin(std::string_view documentName) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    SetUp(*printer, documentName);
    if (!dialogs_.PickPrinter(*printer)) return nullptr;
    printer->setFullPage(true);
    return std::make_unique<PrinterPage>(std::move(printer));
}

Previewed SystemPrinting::Preview(std::string_view documentName, const DrawDocument& draw) {
    QPrinter printer(QPrinter::HighResolution);
    SetUp(printer, documentName);
    PagePreview preview(printer, documentName, QApplication::activeWindow());
    std::optional<Error> failed;
    QObject::connect(&preview, &PagePreview::PaintRequested, [&](QPrinter* pages) {
        // No exception may pass through the toolkit.
        try {
            PrinterPage page(*pages);
            draw(page);
        } catch (const Error& error) {
            failed = error;
        }
    });
    preview.Draw();
    if (failed) throw Error(*failed);
    return preview.Ask();
}
