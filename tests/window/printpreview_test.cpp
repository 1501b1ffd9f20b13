// The report looked at before it is printed, and saved as a PDF file.

#include "platform/qttext.h"
#include "tests/window/windowtest.h"

#include <QAction>
#include <QGroupBox>
#include <QImage>
#include <QMenu>
#include <QProcess>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;

class PrintPreviewTest : public WindowTest {
  protected:
    void SetUp() override {
        QImage grid(1768, 827, QImage::Format_RGB32);
        grid.fill(Qt::white);
        grid.save(ToQt((Folder() / "Grid.dib").string()), "BMP");
        MakeFile(TwoHoldings());
        Start();
    }
    /// All words, line by line.
    static std::string Text(const std::string& pdf) {
        QProcess reader;
        reader.start(QStringLiteral("pdftotext"),
                     {QStringLiteral("-layout"), QStringLiteral("-nopgbrk"), ToQt(pdf),
                      QStringLiteral("-")});
        EXPECT_TRUE(reader.waitForFinished()) << "pdftotext is missing";
        return FromQt(QString::fromUtf8(reader.readAllStandardOutput()).simplified());
    }
    static std::string Contents(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    fs::path Pdf() const { return Folder() / "Vimmels_exempel.pdf"; }
    FileRequest Request() const {
        return {.choice = FileChoice::Save,
                .title = "Spara rapporten som PDF",
                .filter = "PDF-fil|*.pdf",
                .folder = Folder().string(),
                .defaultExtension = "pdf",
                .fileName = "Vimmels_exempel.pdf",
                .askBeforeOverwriting = true};
    }
    void Told(const std::string& path, const std::string& why) {
        outside.dialogs.Expect("PDF-filen sparades inte\r\n\r\n" + path + "\r\n\r\n" + why,
                               Buttons::Ok, Icon::Exclamation);
    }
    std::string Notice() { return Window().staBar->Notice(); }
};

TEST_F(PrintPreviewTest, TheItemsStandBesideTheGivenOne) {
    std::vector<std::string> names;
    for (const QAction* item : Window().mnuArkiv->actions()) names.push_back(FromQt(item->text()));
    const auto print = std::find(names.begin(), names.end(), "Skriv Ut");
    ASSERT_NE(print, names.end());
    EXPECT_EQ(*(print - 1), "Förhandsgranska");
    EXPECT_EQ(*(print + 1), "Spara som PDF...");
}

TEST_F(PrintPreviewTest, ShowsTheVeryPageThatIsPrinted) {
    Window().mnuGranska->trigger();
    ASSERT_EQ(outside.printing.previews.size(), 1U);
    EXPECT_TRUE(outside.printing.files.empty()) << "closing it prints nothing";
    EXPECT_FALSE(Window().panTotal->isVisible());
    Window().mnuPrint->trigger();
    const std::string printed = Text(outside.printing.files.at(0));
    EXPECT_NE(printed.find("Vimmels Asien"), std::string::npos);
    EXPECT_EQ(Text(outside.printing.previews.at(0)), printed);
}

TEST_F(PrintPreviewTest, LeadsToThePrinterAndToAFile) {
    outside.printing.afterPreview = Previewed::Print;
    Window().mnuGranska->trigger();
    EXPECT_EQ(outside.printing.files.size(), 1U);
    outside.printing.afterPreview = Previewed::SaveAsPdf;
    outside.dialogs.ExpectFile(Request()).Pick(Pdf().string());
    Window().mnuGranska->trigger();
    EXPECT_EQ(outside.printing.files.size(), 1U);
    EXPECT_EQ(Text(Pdf().string()), Text(outside.printing.files.at(0)));
}

TEST_F(PrintPreviewTest, TheReportIsSavedAsAFileWithTheProposedName) {
    ChooseFund(0);
    outside.dialogs.ExpectFile(Request()).Pick(Pdf().string());
    Window().mnuPdf->trigger();
    EXPECT_EQ(Notice(), "Rapporten är sparad : Vimmels_exempel.pdf");
    Window().mnuPrint->trigger();
    EXPECT_EQ(Text(Pdf().string()), Text(outside.printing.files.at(0)));
    EXPECT_EQ(Window().focusWidget(), Window().picDiagram);
    outside.clock.Pass(std::chrono::seconds(8));
    EXPECT_EQ(Notice(), "");
}

TEST_F(PrintPreviewTest, AFileThatIsNotWantedOrFailsLeavesWhatWasThere) {
    std::ofstream(Pdf()) << "an earlier one";
    outside.dialogs.ExpectFile(Request()).Cancel();
    Window().mnuPdf->trigger();
    EXPECT_EQ(Contents(Pdf()), "an earlier one");
    EXPECT_EQ(Notice(), "");
    const std::string nowhere = (Folder() / "no" / "a.pdf").string();
    outside.dialogs.ExpectFile(Request()).Pick(nowhere);
    Told(nowhere, "Mappen finns inte.");
    Window().mnuPdf->trigger();
    // The report itself fails before anything is asked.
    fs::remove(Folder() / "Grid.dib");
    outside.dialogs.Expect("Fel i PrintRutinen");
    Window().mnuPdf->trigger();
    outside.dialogs.Expect("Fel i PrintRutinen");
    Window().mnuGranska->trigger();
    EXPECT_EQ(Contents(Pdf()), "an earlier one");
    EXPECT_TRUE(outside.printing.previews.empty());
}

TEST_F(PrintPreviewTest, NeverTakesThePlaceOfAFundFile) {
    const std::string before = Bytes();
    outside.dialogs.ExpectFile(Request()).Pick(SamplePath().string());
    Told(SamplePath().string(), "Så heter en fondfil. Välj ett namn som slutar på .pdf.");
    Window().mnuPdf->trigger();
    EXPECT_TRUE(Bytes() == before);
}

}  // namespace
