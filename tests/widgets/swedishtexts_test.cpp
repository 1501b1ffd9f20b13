#include "platform/swedishtexts.h"

#include "platform/qtdialogs.h"
#include "platform/qttext.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

class SwedishTextsTest : public ::testing::Test {
  protected:
    SwedishTextsTest() {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QCoreApplication::installTranslator(&texts_);
    }
    ~SwedishTextsTest() override { QCoreApplication::removeTranslator(&texts_); }

    static std::set<std::string> Captions(const QWidget& dialog) {
        std::set<std::string> captions;
        for (const QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
            captions.insert(FromQt(button->text().remove(u'&')));
        }
        for (const QLabel* label : dialog.findChildren<QLabel*>()) {
            captions.insert(FromQt(label->text().remove(u'&')));
        }
        for (const QGroupBox* frame : dialog.findChildren<QGroupBox*>()) {
            captions.insert(FromQt(frame->title().remove(u'&')));
        }
        return captions;
    }

    SwedishTexts texts_;
};

TEST_F(SwedishTextsTest, ATextBoxsMenuIsSwedish) {
    QLineEdit field;
    const std::unique_ptr<QMenu> menu(field.createStandardContextMenu());
    std::vector<std::string> captions;
    for (const QAction* action : menu->actions()) {
        if (action->isSeparator()) continue;
        captions.push_back(FromQt(action->text().section(u'\t', 0, 0).remove(u'&')));
    }
    EXPECT_EQ(captions, (std::vector<std::string>{"Ångra", "Gör om", "Klipp ut", "Kopiera",
                                                  "Klistra in", "Ta bort", "Markera allt"}));
}

TEST_F(SwedishTextsTest, TheFileDialogIsSwedish) {
    QFileDialog dialog;
    dialog.show();
    const std::set<std::string> captions = Captions(dialog);
    for (const char* caption : {"Öppna", "Avbryt", "Leta i:", "Filtyp:"}) {
        EXPECT_TRUE(captions.contains(caption)) << caption;
    }
    for (const char* caption : {"Open", "Cancel", "Look in:", "Files of type:"}) {
        EXPECT_FALSE(captions.contains(caption)) << caption;
    }
}

TEST_F(SwedishTextsTest, TheColourDialogIsSwedish) {
    QColorDialog dialog;
    dialog.show();
    EXPECT_EQ(FromQt(dialog.windowTitle()), "Välj färg");
    const std::set<std::string> captions = Captions(dialog);
    for (const char* caption : {"Grundfärger", "Egna färger", "Röd:", "Avbryt"}) {
        EXPECT_TRUE(captions.contains(caption)) << caption;
    }
}

TEST_F(SwedishTextsTest, ThePrintDialogIsSwedish) {
    QPrinter printer;
    QPrintDialog dialog(&printer);
    dialog.show();
    const std::set<std::string> captions = Captions(dialog);
    for (const char* caption : {"Skriv ut", "Skrivare", "Skriv ut allt", "Sidor från", "Sidor"}) {
        EXPECT_TRUE(captions.contains(caption)) << caption;
    }
    for (const char* caption : {"Print", "Printer", "Print all", "Pages from", "Pages"}) {
        EXPECT_FALSE(captions.contains(caption)) << caption;
    }
}

TEST_F(SwedishTextsTest, ThePageSetupIsSwedish) {
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    QPageSetupDialog dialog(&printer);
    dialog.show();
    const std::set<std::string> captions = Captions(dialog);
    for (const char* caption : {"Papper", "Orientering", "Stående", "Sidlayout", "Sidordning:"}) {
        EXPECT_TRUE(captions.contains(caption)) << caption;
    }
    for (const char* caption : {"Paper", "Orientation", "Portrait", "Page Layout"}) {
        EXPECT_FALSE(captions.contains(caption)) << caption;
    }
}

TEST_F(SwedishTextsTest, ATextWithoutTranslationStays) {
    EXPECT_TRUE(texts_.translate("QObject", "Something else", nullptr, -1).isNull());
    EXPECT_EQ(QCoreApplication::translate("QObject", "Something else"),
              QStringLiteral("Something else"));
}

}  // namespace
