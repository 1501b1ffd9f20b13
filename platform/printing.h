#pragma once
// A printed page in centimetres: texts, lines, pictures, more pages.

#include <QFont>
#include <QImage>
#include <QPointF>
#include <QRectF>
#include <QTransform>

#include <memory>
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

class Printing {
  public:
    Printing() = default;
    Printing(const Printing&) = delete;
    Printing& operator=(const Printing&) = delete;
    virtual ~Printing() = default;

    /// Asks for the printer and begins an A4 page; null when the user cancelled.
    /// Throws Error PrinterError.
    virtual std::unique_ptr<PrinterPage> Begin(std::string_view documentName) = 0;
};

/// The system's print dialog; it offers printing to a PDF file too.
class SystemPrinting final : public Printing {
  public:
    explicit SystemPrinting(Dialogs& dialogs) : dialogs_(dialogs) {}
    std::unique_ptr<PrinterPage> Begin(std::string_view documentName) override;

  private:
    Dialogs& dialogs_;
};
