#include "platform/printing.h"

#include "base/error.h"
#include "platform/qttext.h"
#include "tests/support/fakeplatform.h"

#include <QColor>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QProcess>
#include <QRectF>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

constexpr double kPointsPerCm = 72 / 2.54;

struct Word {
    int page = 0;
    double xCm = 0, yCm = 0;
};

class PrintingTest : public ::testing::Test {
  protected:
    std::unique_ptr<PrinterPage> Page() { return PdfPage(path_, "Sida"); }

    /// Where a word stands in the PDF: the upper left corner of its box.
    Word Find(const char* text) const {
        QProcess reader;
        reader.start(QStringLiteral("pdftotext"),
                     {QStringLiteral("-bbox"), ToQt(path_), QStringLiteral("-")});
        EXPECT_TRUE(reader.waitForFinished()) << "pdftotext is missing";
        const QString html = QString::fromUtf8(reader.readAllStandardOutput());
        Word word;
        for (const QString& line : html.split(u'\n')) {
            if (line.contains(QStringLiteral("<page "))) ++word.page;
            if (!line.contains(QStringLiteral(">") + QString::fromUtf8(text) +
                               QStringLiteral("<"))) {
                continue;
            }
            static const QRegularExpression place(
                QStringLiteral("xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\""));
            const QRegularExpressionMatch match = place.match(line);
            word.xCm = match.captured(1).toDouble() / kPointsPerCm;
            word.yCm = match.captured(2).toDouble() / kPointsPerCm;
            return word;
        }
        ADD_FAILURE() << text << " is not on the page";
        return {};
    }

    QTemporaryDir folder_;
    std::string path_ = FromQt(folder_.filePath(QStringLiteral("sida.pdf")));
};

TEST_F(PrintingTest, APageIsA4) {
    const auto page = Page();
    EXPECT_NEAR(page->WidthCm(), 21.0, 0.05);
    EXPECT_NEAR(page->HeightCm(), 29.7, 0.05);
}

TEST_F(PrintingTest, ATextStandsWhereItIsPut) {
    {
        const auto page = Page();
        page->SetFont("Arial", 16, true);
        page->PrintAt(2.0, 3.0, "Rubrik");
        page->EndDocument();
    }
    const Word word = Find("Rubrik");
    EXPECT_NEAR(word.xCm, 2.0, 0.1);
    EXPECT_NEAR(word.yCm, 3.0, 0.2);
}

TEST_F(PrintingTest, ALineIsAsHighAsItsFont) {
    const auto page = Page();
    page->SetFont("Arial", 10, false);
    EXPECT_NEAR(page->LineHeightCm(), 10 * 1.15 * 2.54 / 72, 0.06);
}

TEST_F(PrintingTest, ColumnsAreAverageCharactersOfTheFont) {
    double expected = 0, second = 0;
    {
        const auto page = Page();
        page->SetFont("Arial", 10, false);
        expected = page->ColumnCm(40);
        second = page->ColumnCm(2);
        page->PrintAt(page->ColumnCm(11), 4, "första");
        page->PrintAt(expected, 4, "andra");
        EXPECT_NEAR(page->ColumnCm(1), 0, 1e-9);
        page->SetFont("Arial", 20, false);
        EXPECT_NEAR(page->ColumnCm(2), 2 * second, 0.02);
    }
    EXPECT_NEAR(expected, 39 * second, 1e-6);
    EXPECT_NEAR(Find("andra").xCm, expected, 0.1);
    EXPECT_NEAR(Find("första").yCm, Find("andra").yCm, 0.01);
}

TEST_F(PrintingTest, ANewPageBeginsAtTheTop) {
    {
        const auto page = Page();
        page->PrintAt(2, 3, "ett");
        page->NewPage();
        page->PrintAt(2, 4, "två");
    }
    EXPECT_EQ(Find("ett").page, 1);
    EXPECT_EQ(Find("två").page, 2);
}

TEST_F(PrintingTest, LinesAndPicturesStandWhereTheyArePut) {
    {
        const auto page = Page();
        QImage red(10, 10, QImage::Format_RGB32);
        red.fill(Qt::red);
        page->DrawPicture(red, {4, 5, 6, 2});
        page->DrawLine({2, 10}, {19, 10}, 3);
        page->Painter().fillRect(page->CentimetresToDevice().mapRect(QRectF(2, 12, 1, 1)),
                                 Qt::blue);
    }
    const QString picture = folder_.filePath(QStringLiteral("sida"));
    ASSERT_EQ(
        QProcess::execute(QStringLiteral("pdftoppm"),
                          {QStringLiteral("-r"), QStringLiteral("127"), QStringLiteral("-png"),
                           QStringLiteral("-singlefile"), ToQt(path_), picture}),
        0);
    const QImage seen(picture + QStringLiteral(".png"));
    const auto at = [&](double xCm, double yCm) {
        return seen.pixelColor(static_cast<int>(xCm * 50), static_cast<int>(yCm * 50));
    };
    EXPECT_GT(at(7, 6).red(), 250);
    EXPECT_LT(at(7, 6).green(), 5);
    EXPECT_EQ(at(3.8, 6), QColor(Qt::white));
    EXPECT_EQ(at(7, 7.2), QColor(Qt::white));
    EXPECT_LT(at(10, 10).lightness(), 100);
    EXPECT_EQ(at(10, 10.2), QColor(Qt::white));
    EXPECT_GT(at(2.5, 12.5).blue(), 250);
    EXPECT_LT(at(2.5, 12.5).red(), 5);
}

TEST_F(PrintingTest, AFileThatCannotBeWrittenIsAPrinterError) {
    try {
        PdfPage(FromQt(folder_.filePath(QStringLiteral("saknas/sida.pdf"))), "Sida");
        ADD_FAILURE();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), kPrinterError);
    }
}

TEST_F(PrintingTest, AfterTheEndNothingMoreIsPrinted) {
    const auto page = Page();
    page->PrintAt(2, 3, "ett");
    page->EndDocument();
    EXPECT_THROW(page->PrintAt(2, 4, "två"), Error);
    EXPECT_THROW(page->NewPage(), Error);
    EXPECT_THROW(page->EndDocument(), Error);
}

TEST_F(PrintingTest, TheDialogsAnswerDecides) {
    struct Refusing final : Dialogs {
        Answer Show(const Message&) override { return Answer::Ok; }
        std::string PickFile(const FileRequest&) override { return ""; }
        std::optional<Colour> PickColour(Colour) override { return std::nullopt; }
        bool PickPrinter(QPrinter& printer) override {
            printer.setOutputFileName(file);
            return accept;
        }
        QString file;
        bool accept = false;
    } dialogs;
    dialogs.file = ToQt(path_);
    SystemPrinting printing(dialogs);
    EXPECT_EQ(printing.Begin("Sida"), nullptr);
    dialogs.accept = true;
    const auto page = printing.Begin("Sida");
    ASSERT_NE(page, nullptr);
    EXPECT_NEAR(page->WidthCm(), 21.0, 0.05);
    page->PrintAt(2, 3, "Rubrik");
    page->EndDocument();
    EXPECT_NEAR(Find("Rubrik").xCm, 2, 0.1);
}

}  // namespace
