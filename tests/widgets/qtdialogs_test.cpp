#include "platform/qtdialogs.h"

#include "platform/qttext.h"
#include "platform/swedishtexts.h"
#include "tests/support/spokentree.h"
#include "widgets/speech.h"

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QApplication>
#include <QColor>
#include <QColorDialog>
#include <QCoreApplication>
#include <QDate>
#include <QDateTime>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFont>
#include <QFontMetrics>
#include <QHeaderView>
#include <QIODevice>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QMetaObject>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QSize>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTime>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What a user sees of a message box.
struct Seen {
    std::string title, text;
    std::vector<std::string> buttons;
    std::string defaultButton;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
};

std::string Plain(QString caption) {
    return FromQt(caption.remove(u'&'));
}

class QtDialogsTest : public ::testing::Test {
  protected:
    /// Shows the message, looks at the box and then presses a key in it.
    Answer Show(const Message& message, Qt::Key key) {
        QTimer::singleShot(0, qApp, [this, key] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            seen_.title = FromQt(box->windowTitle());
            seen_.text = FromQt(box->text());
            seen_.icon = box->icon();
            for (QAbstractButton* button : box->buttons()) {
                seen_.buttons.push_back(Plain(button->text()));
            }
            std::sort(seen_.buttons.begin(), seen_.buttons.end());
            seen_.defaultButton = Plain(box->defaultButton()->text());
            EXPECT_TRUE(QTest::qWaitForWindowActive(box));
            QTest::keyClick(box, key);
        });
        return dialogs_.Show(message);
    }

    QtDialogs dialogs_;
    Seen seen_;
};

TEST_F(QtDialogsTest, ABoxHasTheDefaultTitleItsTextAndOneButton) {
    EXPECT_EQ(Show({.text = "Felaktigt Datum\r\nSkall skrivas typ\r\n2000-12-31"}, Qt::Key_Return),
              Answer::Ok);
    EXPECT_EQ(seen_.title, "Kvarnbo");
    EXPECT_EQ(seen_.text, "Felaktigt Datum\nSkall skrivas typ\n2000-12-31");
    EXPECT_EQ(seen_.buttons, std::vector<std::string>{"OK"});
    EXPECT_EQ(seen_.icon, QMessageBox::NoIcon);
}

TEST_F(QtDialogsTest, AreInTheLettersOfTheWindowAndNeverLargerThanTheScreen) {
    QMainWindow window;
    QFont large = window.font();
    large.setPointSizeF(16.5);
    window.setFont(large);
    window.show();
    QApplication::setActiveWindow(&window);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    double points = 0, smaller = 0;
    QSize box, colours;
    QTimer::singleShot(0, qApp, [&] {
        points = QApplication::activeModalWidget()->font().pointSizeF();
        box = QApplication::activeModalWidget()->size();
        static_cast<QDialog*>(QApplication::activeModalWidget())->reject();
    });
    dialogs_.Show({.text = "Klart"});
    EXPECT_NEAR(points, 16.5, 0.01);
    QFont bold = window.font();
    bold.setBold(true);
    EXPECT_GT(box.width(), QFontMetrics(bold).horizontalAdvance(QStringLiteral("Kvarnbo")) + 100);
    large.setPointSizeF(40);
    window.setFont(large);
    QTimer::singleShot(0, qApp, [&] {
        smaller = QApplication::activeModalWidget()->font().pointSizeF();
        colours = QApplication::activeModalWidget()->size();
        static_cast<QDialog*>(QApplication::activeModalWidget())->reject();
    });
    dialogs_.PickColour({1, 2, 3});
    EXPECT_LT(smaller, 40);
    EXPECT_GE(smaller, 8);
    EXPECT_LE(colours.width(), window.screen()->availableSize().width());
    EXPECT_LE(colours.height(), window.screen()->availableSize().height());
}

TEST_F(QtDialogsTest, ThePrintDialogOffersNoPartOfTheReport) {
    QTimer::singleShot(0, qApp, [] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        int ranges = 0;
        for (const QSpinBox* box : dialog->findChildren<QSpinBox*>()) {
            if (box->objectName() == QLatin1String("from") && box->isVisibleTo(dialog)) ++ranges;
        }
        EXPECT_EQ(ranges, 0);
        dialog->reject();
    });
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    EXPECT_FALSE(dialogs_.PickPrinter(printer));
}

TEST_F(QtDialogsTest, AQuestionOffersYesAndNo) {
    const Message question{.text = "Är detta riktigt ?",
                           .buttons = Buttons::YesNo,
                           .icon = Icon::Question,
                           .defaultButton = DefaultButton::Second};
    EXPECT_EQ(Show(question, Qt::Key_Return), Answer::No);
    EXPECT_EQ(seen_.buttons, (std::vector<std::string>{"Ja", "Nej"}));
    EXPECT_EQ(seen_.defaultButton, "Nej");
    EXPECT_EQ(seen_.icon, QMessageBox::Question);
}

TEST_F(QtDialogsTest, TheFirstButtonIsTheDefaultUnlessSaidOtherwise) {
    EXPECT_EQ(Show({.text = "?", .buttons = Buttons::YesNo}, Qt::Key_Return), Answer::Yes);
    EXPECT_EQ(seen_.defaultButton, "Ja");
    EXPECT_EQ(Show({.text = "?", .buttons = Buttons::OkCancel}, Qt::Key_Return), Answer::Ok);
    EXPECT_EQ(seen_.defaultButton, "OK");
}

TEST_F(QtDialogsTest, EscRefuses) {
    EXPECT_EQ(Show({.text = "?", .buttons = Buttons::YesNo}, Qt::Key_Escape), Answer::No);
    EXPECT_EQ(Show({.text = "?", .buttons = Buttons::OkCancel}, Qt::Key_Escape), Answer::Cancel);
    EXPECT_EQ(Show({.text = "?"}, Qt::Key_Escape), Answer::Ok);
}

TEST_F(QtDialogsTest, TheCaptionsLetterAnswers) {
    EXPECT_EQ(Show({.text = "?", .buttons = Buttons::YesNo}, Qt::Key_N), Answer::No);
    EXPECT_EQ(Show({.text = "?", .buttons = Buttons::YesNo, .defaultButton = DefaultButton::Second},
                   Qt::Key_J),
              Answer::Yes);
}

TEST_F(QtDialogsTest, EveryIconIsShown) {
    const std::pair<Icon, QMessageBox::Icon> icons[] = {
        {Icon::Information, QMessageBox::Information},
        {Icon::Question, QMessageBox::Question},
        {Icon::Exclamation, QMessageBox::Warning},
        {Icon::Critical, QMessageBox::Critical}};
    for (const auto& [icon, shown] : icons) {
        Show({.text = "?", .icon = icon}, Qt::Key_Return);
        EXPECT_EQ(seen_.icon, shown);
    }
}

TEST_F(QtDialogsTest, MarkupInATextIsShownAsItIs) {
    Show({.text = "<b>Fond & Co</b>"}, Qt::Key_Return);
    EXPECT_EQ(seen_.text, "<b>Fond & Co</b>");
}

class PickFileTest : public ::testing::Test {
  protected:
    PickFileTest() {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QFile(Path("finns.mdb")).open(QIODevice::WriteOnly);
    }
    QString Path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }
    std::string Pick(FileRequest request, const std::function<void(QFileDialog&)>& use) {
        request.folder = FromQt(folder_.path());
        QTimer::singleShot(0, qApp, [&use] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            use(*dialog);
        });
        return dialogs_.PickFile(request);
    }
    static void Enter(QFileDialog& dialog, const QString& name) {
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
        QMetaObject::invokeMethod(&dialog, "accept");
    }

    QTemporaryDir folder_;
    QtDialogs dialogs_;
};

TEST_F(PickFileTest, ShowsTitleFilterAndFolder) {
    Pick({.choice = FileChoice::Open,
          .title = "      Öppna FondFil",
          .filter = "Access97 mdb|*.mdb"},
         [&](QFileDialog& dialog) {
             EXPECT_EQ(FromQt(dialog.windowTitle()), "      Öppna FondFil");
             EXPECT_EQ(dialog.nameFilters(), QStringList{QStringLiteral("Access97 mdb (*.mdb)")});
             EXPECT_EQ(dialog.directory().path(), folder_.path());
             dialog.reject();
         });
}

TEST_F(PickFileTest, SizeKindAndDayOfTheFilesAreReadableWhole) {
    Pick({.choice = FileChoice::Open, .filter = "Access97 mdb|*.mdb"}, [&](QFileDialog& dialog) {
        auto* files = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
        ASSERT_NE(files, nullptr);
        const char* const texts[] = {"Vimmels_exempel.mdb", "999,99 MiB", "Mapp",
                                     "2026-11-21 10:10:10"};
        for (int column = 0; column < 4; ++column) {
            const QString text = QString::fromUtf8(texts[column]);
            EXPECT_GE(files->columnWidth(column), files->fontMetrics().horizontalAdvance(text))
                << texts[column];
        }
        EXPECT_LE(files->header()->length(), files->viewport()->width());
        dialog.reject();
    });
}

TEST_F(PickFileTest, SizesKindsAndDaysAreSwedishWhateverTheDesktopSpeaks) {
    const QDateTime day(QDate(2026, 11, 21), QTime(9, 5));
    const auto make = [&](const char* name, qint64 bytes) {
        QFile file(Path(name));
        file.open(QIODevice::WriteOnly);
        file.resize(bytes);
        file.setFileTime(day, QFileDevice::FileModificationTime);
    };
    make("a.MDB", 999);
    make("b.mdb", 348160);
    make("c", 1449999);
    QDir(folder_.path()).mkdir(QStringLiteral("d"));
    std::set<std::string> rows;  // the table is sorted some time after it was filled
    Pick({.choice = FileChoice::Open, .filter = "Alla|*"}, [&](QFileDialog& dialog) {
        auto* files = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
        const QAbstractItemModel& model = *files->model();
        ASSERT_TRUE(QTest::qWaitFor([&] { return model.rowCount(files->rootIndex()) == 5; }));
        for (int row = 0; row < 5; ++row) {
            std::string text;
            for (int column = 0; column < 4; ++column) {
                const QModelIndex cell = model.index(row, column, files->rootIndex());
                text += FromQt(cell.data().toString()) + "|";
            }
            // These two are of today.
            const bool today = text.starts_with("d|") || text.starts_with("finns.mdb|");
            rows.insert(today ? text.substr(0, text.find("|20") + 1) : text);
        }
        dialog.reject();
    });
    EXPECT_EQ(rows, (std::set<std::string>{"a.MDB|999 byte|mdb-fil|2026-11-21 09:05|",
                                           "b.mdb|348,2 kB|mdb-fil|2026-11-21 09:05|",
                                           "c|1,4 MB|Fil|2026-11-21 09:05|", "d||Mapp|",
                                           "finns.mdb|0 byte|mdb-fil|"}));
}

TEST_F(PickFileTest, OpenCompletesATypedNameAsSaveDoes) {
    QFile(Path("prov.2026.mdb")).open(QIODevice::WriteOnly);
    for (const bool mustExist : {true, false}) {
        const std::string picked =
            Pick({.choice = FileChoice::Open, .defaultExtension = "mdb", .mustExist = mustExist},
                 [](QFileDialog& dialog) { Enter(dialog, QStringLiteral("prov.2026")); });
        EXPECT_EQ(picked, FromQt(Path("prov.2026.mdb")));
    }
}

TEST_F(PickFileTest, ANameThatLeadsNowhereIsToldAndTheChoiceGoesOn) {
    std::string told;
    const auto answer = [&told] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        told = FromQt(box->text());
        QTimer::singleShot(0, qApp, [] {
            auto* again = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(again, nullptr);
            again->reject();
        });
        box->reject();
    };
    const std::string picked =
        Pick({.choice = FileChoice::Open, .defaultExtension = "mdb", .mustExist = true},
             [&](QFileDialog& dialog) {
                 QTimer::singleShot(0, qApp, answer);
                 Enter(dialog, QStringLiteral("borta"));
             });
    EXPECT_EQ(told, FromQt(Path("borta.mdb")) + "\nFilen finns inte.\nKontrollera filnamnet.");
    EXPECT_EQ(picked, "");
}

TEST_F(PickFileTest, ACancelledChoiceIsEmpty) {
    EXPECT_EQ(Pick({}, [](QFileDialog& dialog) { dialog.reject(); }), "");
}

TEST_F(PickFileTest, GivesTheWholePath) {
    const std::string picked =
        Pick({.choice = FileChoice::Open, .filter = "Access mdb|*.mdb", .mustExist = true},
             [](QFileDialog& dialog) { Enter(dialog, QStringLiteral("finns.mdb")); });
    EXPECT_EQ(picked, FromQt(Path("finns.mdb")));
}

TEST_F(PickFileTest, ANewNameGetsTheDefaultExtension) {
    const std::string picked =
        Pick({.choice = FileChoice::Save, .defaultExtension = "mdb", .askBeforeOverwriting = true},
             [](QFileDialog& dialog) { Enter(dialog, QStringLiteral("ny")); });
    EXPECT_EQ(picked, FromQt(Path("ny.mdb")));
}

TEST_F(PickFileTest, OverwritingIsAskedForOnlyWhenWished) {
    for (const bool wished : {true, false}) {
        bool asked = false;
        Pick(
            {.choice = FileChoice::Save, .defaultExtension = "mdb", .askBeforeOverwriting = wished},
            [&asked](QFileDialog& dialog) {
                QTimer::singleShot(0, &dialog, [&asked, &dialog] {
                    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                    if (box == nullptr) return;
                    asked = true;
                    box->reject();
                    dialog.reject();
                });
                Enter(dialog, QStringLiteral("finns.mdb"));
            });
        EXPECT_EQ(asked, wished);
    }
}

TEST_F(PickFileTest, ADateInANewNameIsNoExtension) {
    const std::string picked =
        Pick({.choice = FileChoice::Save, .defaultExtension = "mdb", .askBeforeOverwriting = true},
             [](QFileDialog& dialog) { Enter(dialog, QStringLiteral("Kopia 2026.11.21")); });
    EXPECT_EQ(picked, FromQt(Path("Kopia 2026.11.21.mdb")));
}

TEST_F(PickFileTest, NoToOverwritingTheCompletedNameGoesBackToTheChoice) {
    QFile(Path("Kopia 2026.11.21.mdb")).open(QIODevice::WriteOnly);
    std::string asked;
    const auto answerNo = [&asked] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        asked = FromQt(box->text());
        QTimer::singleShot(0, qApp, [] {
            auto* again = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(again, nullptr);
            again->reject();
        });
        box->reject();
    };
    const std::string picked =
        Pick({.choice = FileChoice::Save, .defaultExtension = "mdb", .askBeforeOverwriting = true},
             [&](QFileDialog& dialog) {
                 QTimer::singleShot(0, qApp, answerNo);
                 Enter(dialog, QStringLiteral("Kopia 2026.11.21"));
             });
    EXPECT_EQ(asked, "Kopia 2026.11.21.mdb finns redan.\nVill du ersätta den?");
    EXPECT_EQ(picked, "");
}

TEST(PickColour, ShowsTheGivenColourFirstAndGivesTheChosenOne) {
    QtDialogs dialogs;
    QTimer::singleShot(0, qApp, [] {
        auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->currentColor(), QColor(1, 2, 3));
        dialog->setCurrentColor(QColor(4, 5, 6));
        dialog->accept();
    });
    EXPECT_EQ(dialogs.PickColour({1, 2, 3}), (Colour{4, 5, 6}));
}

TEST(PickColour, ACancelledChoiceIsNone) {
    QtDialogs dialogs;
    QTimer::singleShot(0, qApp, [] { QApplication::activeModalWidget()->close(); });
    EXPECT_EQ(dialogs.PickColour({1, 2, 3}), std::nullopt);
}

// ---- What a screen reader finds in them ----

/// What is poor in the dialog that is open, which is then closed.
std::vector<std::string> PoorlySpoken() {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return {"no dialog"};
    std::vector<std::string> findings = SpokenTree(*dialog).Nameless();
    for (std::string& two : SpokenTree(*dialog).CalledAlike()) findings.push_back(std::move(two));
    dialog->reject();
    return findings;
}

TEST_F(QtDialogsTest, TheTableOfFilesSaysItsColumnsInSwedish) {
    QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("Kopior")));
    SwedishTexts texts;
    QCoreApplication::installTranslator(&texts);
    std::vector<std::string> tables, cells;
    QTimer::singleShot(0, qApp, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        const auto look = [&] {
            const SpokenTree tree(*dialog);
            tables = tree.Names(QAccessible::Tree);
            cells = tree.Names(QAccessible::TreeItem);
            for (std::string& cell : tree.Names(QAccessible::Cell)) cells.push_back(cell);
            return std::find(cells.begin(), cells.end(), "Namn: Kopior") != cells.end();
        };
        EXPECT_TRUE(QTest::qWaitFor(look));
        qobject_cast<QDialog*>(dialog)->reject();
    });
    dialogs_.PickFile({.title = "Öppna", .folder = FromQt(folder.path())});
    QCoreApplication::removeTranslator(&texts);
    EXPECT_THAT(tables, ElementsAre("Filer"));
    EXPECT_THAT(cells, Contains("Storlek: -"));
}

TEST_F(QtDialogsTest, NoDialogHasANamelessControl) {
    speech::Install();
    std::vector<std::string> findings{"not looked at"};
    const auto look = [&] { QTimer::singleShot(0, qApp, [&] { findings = PoorlySpoken(); }); };
    look();
    dialogs_.Show({.text = "?", .buttons = Buttons::YesNo, .icon = Icon::Question});
    EXPECT_THAT(findings, IsEmpty()) << "message";
    for (const FileChoice choice : {FileChoice::Open, FileChoice::Save}) {
        look();
        dialogs_.PickFile({.choice = choice, .title = "Öppna", .filter = "Access mdb|*.mdb"});
        EXPECT_THAT(findings, IsEmpty()) << "file";
    }
    look();
    dialogs_.PickColour({255, 0, 0});
    EXPECT_THAT(findings, IsEmpty()) << "colour";
    look();
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    dialogs_.PickPrinter(printer);
    EXPECT_THAT(findings, IsEmpty()) << "printer";
}

}  // namespace
