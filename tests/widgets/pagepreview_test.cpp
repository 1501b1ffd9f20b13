// The real look at the pages before they are printed.

#include "platform/pagepreview.h"

#include "base/error.h"
#include "platform/printing.h"
#include "platform/qttext.h"
#include "tests/support/fakeplatform.h"

#include <QApplication>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

void DrawTwoPages(PrinterPage& page) {
    page.SetFont("Arial", 16, true);
    page.PrintAt(2, 3, "one");
    page.NewPage();
    page.PrintAt(2, 3, "two");
    page.EndDocument();
}

class PagePreviewTest : public ::testing::Test {
  protected:
    /// Looks at the dialog while it is open, and closes it if nobody else did.
    Previewed Look(const std::function<void(PagePreview&)>& look) {
        bool looked = false;
        QTimer::singleShot(0, &dialogs_timer_, [&] {
            auto* dialog = qobject_cast<PagePreview*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            looked = true;
            look(*dialog);
            if (dialog->isVisible()) dialog->reject();
        });
        const Previewed answer = printing_.Preview("fonder", DrawTwoPages);
        EXPECT_TRUE(looked);
        return answer;
    }
    static QPushButton* Button(const PagePreview& dialog, const char* caption) {
        for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
            if (button->text() == QString::fromUtf8(caption)) return button;
        }
        ADD_FAILURE() << caption;
        return nullptr;
    }
    static std::string Page(const PagePreview& dialog) {
        return FromQt(dialog.findChild<QLabel*>()->text());
    }

    QObject dialogs_timer_;
    ScriptedDialogs dialogs_;
    SystemPrinting printing_{dialogs_};
};

TEST_F(PagePreviewTest, ShowsThePagesInSwedishOnTheScreen) {
    EXPECT_EQ(
        Look([](PagePreview& dialog) {
            EXPECT_EQ(FromQt(dialog.windowTitle()), "Förhandsgranska fonder");
            std::vector<std::string> captions;
            for (const QPushButton* button : dialog.findChildren<QPushButton*>()) {
                captions.push_back(FromQt(button->text()));
                EXPECT_TRUE(button->isVisible());
                EXPECT_TRUE(dialog.rect().contains(button->geometry()));
            }
            EXPECT_EQ(captions, (std::vector<std::string>{"&Förra", "&Nästa", "S&törre", "&Mindre",
                                                          "&Hel sida", "S&kriv ut...",
                                                          "Spara som &PDF...", "&Stäng"}));
            EXPECT_EQ(Page(dialog), "Sida 1 av 2");
            const QRect screen = dialog.screen()->availableGeometry();
            EXPECT_LE(dialog.width(), screen.width());
            EXPECT_LE(dialog.height(), screen.height());
            EXPECT_FALSE(dialog.findChild<QPrintPreviewWidget*>()->accessibleName().isEmpty());
        }),
        Previewed::Closed);
}

TEST_F(PagePreviewTest, FitsASmallScreen) {
    QPrinter printer;
    PagePreview dialog(printer, "fonder");
    EXPECT_LE(dialog.minimumSizeHint().width(), 640);
    EXPECT_LE(dialog.minimumSizeHint().height(), 540);
}

TEST_F(PagePreviewTest, IsReadByKeys) {
    EXPECT_EQ(Look([](PagePreview& dialog) {
                  const auto* view = dialog.findChild<QPrintPreviewWidget*>();
                  QTest::keyClick(&dialog, Qt::Key_PageDown);
                  EXPECT_EQ(Page(dialog), "Sida 2 av 2");
                  QTest::keyClick(&dialog, Qt::Key_PageDown);
                  EXPECT_EQ(view->currentPage(), 2) << "there is no third";
                  EXPECT_FALSE(Button(dialog, "&Nästa")->isEnabled());
                  QTest::keyClick(&dialog, Qt::Key_PageUp);
                  EXPECT_EQ(Page(dialog), "Sida 1 av 2");
                  const double whole = view->zoomFactor();
                  QTest::keyClick(&dialog, Qt::Key_Plus);
                  EXPECT_GT(view->zoomFactor(), whole);
                  QTest::keyClick(&dialog, Qt::Key_Minus);
                  QTest::keyClick(&dialog, Qt::Key_Minus);
                  EXPECT_LT(view->zoomFactor(), whole);
                  QTest::keyClick(&dialog, Qt::Key_0);
                  EXPECT_NEAR(view->zoomFactor(), whole, 0.01);
                  QTest::keyClick(&dialog, Qt::Key_Escape);
                  EXPECT_FALSE(dialog.isVisible());
              }),
              Previewed::Closed);
}

TEST_F(PagePreviewTest, LeadsToThePrinterAndToAFile) {
    EXPECT_EQ(Look([](PagePreview& dialog) {
                  QTest::mouseClick(Button(dialog, "S&kriv ut..."), Qt::LeftButton);
              }),
              Previewed::Print);
    EXPECT_EQ(Look([](PagePreview& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); }),
              Previewed::Print);
    EXPECT_EQ(Look([](PagePreview& dialog) {
                  QTest::keyClick(Button(dialog, "Spara som &PDF..."), Qt::Key_Space);
              }),
              Previewed::SaveAsPdf);
    EXPECT_EQ(Look([](PagePreview& dialog) {
                  QTest::mouseClick(Button(dialog, "&Stäng"), Qt::LeftButton);
              }),
              Previewed::Closed);
}

TEST_F(PagePreviewTest, OfADocumentThatFailsShowsNothingAndTellsWhy) {
    try {
        printing_.Preview("fonder", [](PrinterPage& page) {
            page.PrintAt(2, 3, "one");
            throw Error{ErrorNumber::DiskFull, "in the middle"};
        });
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::DiskFull);
    }
}

}  // namespace
