#pragma once
// A printed page in centimetres: texts, lines, pictures, more pages.

#include <QFont>
#include <QImage>
#include <QPointF>
#include <QRectF>
#include <QTransform>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

class Dialogs;
class QPagedPaintDevice;
class QPainter;

/// Positions and lengths are centimetres from the paper's upper left corner, at a text its upper
/// left corner. Every call throws Error PrinterError when the device fails.
class PrinterPage {
  public:
    /// Begins the document on `device` (a printer, a PDF file).
    explicit PrinterPage(std::unique_ptr<QPagedPaintDevice> device);
    /// The same on a device of somebody else's, which outlives the page.
    explicit PrinterPage(QPagedPaintDevice& device);
    PrinterPage(const PrinterPage&) = delete;
    PrinterPage& operator=(const PrinterPage&) = delete;
    ~PrinterPage();  ///< ends the document if nobody did

    double WidthCm() const;
    double HeightCm() const;
    double LineHeightCm() const;  ///< of the current font
    double TextWidthCm(std::string_view text) const;
    /// Where a print column begins: column 1 is the left edge, and every column is as wide as an
    /// average character of the current font.
    double ColumnCm(int column) const;

    void SetFont(std::string_view family, double points, bool bold);
    void PrintAt(double xCm, double yCm, std::string_view text);
    /// Width in points; 0 is the thinnest line the device has.
    void DrawLine(QPointF fromCm, QPointF toCm, double widthPoints);
    void DrawPicture(const QImage& picture, QRectF areaCm);
    void NewPage();
    void EndDocument();

    /// For drawings that come with a painter of their own: the page's painter and the way from
    /// centimetres to it.
    QPainter& Painter();
    QTransform CentimetresToDevice() const;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

/// Draws a whole document, from its first page to its end. May throw Error.
using DrawDocument = std::function<void(PrinterPage&)>;

/// The bytes of a PDF file with that document on A4 pages. Throws what `draw` throws.
std::string PdfDocument(std::string_view documentName, const DrawDocument& draw);

/// What the user wants after a look at the pages.
enum class Previewed { Closed, Print, SaveAsPdf };

class Printing {
  public:
    Printing() = default;
    Printing(const Printing&) = delete;
    Printing& operator=(const Printing&) = delete;
    virtual ~Printing() = default;

    /// Asks for the printer and begins an A4 page; null when the user cancelled.
    /// Throws Error PrinterError.
    virtual std::unique_ptr<PrinterPage> Begin(std::string_view documentName) = 0;
    /// Shows the document as Begin's page would have it. Throws what `draw` throws, and shows
    /// nothing then.
    virtual Previewed Preview(std::string_view documentName, const DrawDocument& draw) = 0;
};

/// The system's print dialog; it offers printing to a PDF file too.
class SystemPrinting final : public Printing {
  public:
    explicit SystemPrinting(Dialogs& dialogs) : dialogs_(dialogs) {}
    std::unique_ptr<PrinterPage> Begin(std::string_view documentName) override;
    Previewed Preview(std::string_view documentName, const DrawDocument& draw) override;

  private:
    Dialogs& dialogs_;
};
