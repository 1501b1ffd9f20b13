#include "base/daynumber.h"
#include "jet/database.h"
#include "reports/texts.h"
#include "tests/window/windowtest.h"
#include "widgets/imagebutton.h"

#include <QAction>
#include <QByteArray>
#include <QColor>
#include <QFile>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QPointF>
#include <QProcess>
#include <QRectF>
#include <QRegularExpression>
#include <QSizeF>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <tuple>

namespace {

constexpr double kPointsPerCm = 72 / 2.54;

struct Word {
    int page = 1;
    QRectF box;  ///< in centimetres
    QString text;
};

struct Printed {
    std::vector<QSizeF> pages;  ///< in centimetres
    std::vector<Word> words;

    /// All words of one printed line at `y`, in reading order.
    QString LineAt(int page, double yCm) const {
        std::vector<Word> line;
        for (const Word& word : words) {
            if (word.page == page && std::abs(word.box.top() - yCm) < 0.15) line.push_back(word);
        }
        std::sort(line.begin(), line.end(),
                  [](const Word& a, const Word& b) { return a.box.left() < b.box.left(); });
        QStringList texts;
        for (const Word& word : line) texts << word.text;
        return texts.join(QLatin1Char(' '));
    }
    /// Everything, line after line.
    QString Text() const {
        std::vector<Word> sorted = words;
        std::sort(sorted.begin(), sorted.end(), [](const Word& a, const Word& b) {
            const auto place = [](const Word& word) {
                return std::tuple(word.page, std::lround(word.box.bottom() * 10), word.box.left());
            };
            return place(a) < place(b);
        });
        QStringList texts;
        for (const Word& word : sorted) texts << word.text;
        return texts.join(QLatin1Char(' '));
    }
    const Word* Find(const QString& text) const {
        const auto found = std::find_if(words.begin(), words.end(),
                                        [&](const Word& word) { return word.text == text; });
        return found == words.end() ? nullptr : &*found;
    }
};

QByteArray Output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit) {
        ADD_FAILURE() << program.toStdString() << " does not run";
    }
    return process.readAllStandardOutput();
}

Printed Read(const std::string& pdf) {
    const QString html = QString::fromUtf8(Output(
        QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), ToQt(pdf), QStringLiteral("-")}));
    static const QRegularExpression piece(QStringLiteral(
        "<page width=\"([\\d.]+)\" height=\"([\\d.]+)\">|"
        "<word xMin=\"([\\d.-]+)\" yMin=\"([\\d.-]+)\" xMax=\"([\\d.-]+)\" yMax=\"([\\d.-]+)\">"
        "([^<]*)</word>"));
    Printed printed;
    for (auto match = piece.globalMatch(html); match.hasNext();) {
        const auto found = match.next();
        const auto cm = [&](int part) { return found.captured(part).toDouble() / kPointsPerCm; };
        if (!found.captured(1).isEmpty()) {
            printed.pages.emplace_back(cm(1), cm(2));
            continue;
        }
        printed.words.push_back({static_cast<int>(printed.pages.size()),
                                 QRectF(QPointF(cm(3), cm(4)), QPointF(cm(5), cm(6))),
                                 found.captured(7)});
    }
    return printed;
}

class PrintedReportTest : public WindowTest {
  protected:
    PrintedReportTest() { SetToday(2026, 3, 10); }

    /// Holdings on two accounts, all with a year of points, the first `curves` listed together.
    static std::vector<TestHolding> Holdings(int count, int curves) {
        std::vector<TestHolding> holdings;
        std::string list;
        for (int n = 1; n <= curves; ++n) list += std::to_string(n) + ".";
        for (int n = 1; n <= count; ++n) {
            TestHolding holding;
            holding.fond = "Vimmels Globalfond nummer " + std::to_string(n);
            holding.namn = n % 2 == 0 ? "Privat sparande" : "Premiepension";
            holding.kursKr = 100.25 + n;
            holding.vardeKr = 123456.78 + n;
            holding.kursVarde = "135802";
            holding.procent = "10 %";
            holding.senasteKurs = "Senaste : 1110,25";
            holding.skala = n == 1 ? list + "/45/-30" : "45/-30";
            holding.plottFarg = ColourValue(NewCurveColour(n));
            holding.points.clear();
            for (int day = 0; day < 330; ++day) {
                holding.points.push_back({*ParseDate("2025-04-01") + day, (day * n / 40) % 40 - 5});
            }
            holdings.push_back(holding);
        }
        return holdings;
    }
    void StartWith(const std::vector<TestHolding>& holdings, bool withGrid = true) {
        if (withGrid) WriteGrid();
        MakeFile(holdings);
        Start();
    }
    /// A picture of the size that is printed: white with a grey frame.
    void WriteGrid() {
        QImage grid(1768, 827, QImage::Format_RGB32);
        grid.fill(QColor(240, 240, 240));
        ASSERT_TRUE(grid.save(ToQt((Folder() / "Grid.dib").string()), "BMP"));
    }
    Printed Print() {
        Window().mnuPrint->trigger();
        if (outside.printing.files.empty()) {
            ADD_FAILURE() << "nothing was printed";
            return {};
        }
        return Read(outside.printing.files.back());
    }
    /// The first page with 100 dots per centimetre.
    QImage FirstPage() {
        const QString pdf = ToQt(outside.printing.files.back());
        const QString picture = pdf + QStringLiteral(".picture");
        Output(QStringLiteral("pdftoppm"),
               {QStringLiteral("-r"), QStringLiteral("254"), QStringLiteral("-singlefile"),
                QStringLiteral("-png"), pdf, picture});
        return QImage(picture + QStringLiteral(".png"));
    }
    static bool RedNear(const QImage& page, int x, int y) {
        constexpr int kNear = 3;
        for (int across = -kNear; across <= kNear; ++across) {
            for (int down = -kNear; down <= kNear; ++down) {
                const QColor at = page.pixelColor(x + across, y + down);
                if (at.red() > 180 && at.green() < 100 && at.blue() < 100) return true;
            }
        }
        return false;
    }
    std::string Log() {
        std::ifstream file(Folder() / "FonderLogg.txt", std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void ExpectPlainDiagramView() {
        EXPECT_FALSE(Window().panTotal->isVisible());
        EXPECT_EQ(Caption(Window().lblTotal), "");
        EXPECT_EQ(Window().focusWidget(), Window().picDiagram);
    }
};

/// Two words over each other, or one beyond the paper's edge.
void ExpectCleanPages(const Printed& printed) {
    constexpr double margin = 0.5;
    for (std::size_t one = 0; one < printed.words.size(); ++one) {
        const Word& word = printed.words[one];
        const QSizeF paper = printed.pages[static_cast<std::size_t>(word.page - 1)];
        EXPECT_TRUE(QRectF(QPointF(margin, margin),
                           QSizeF(paper.width() - 2 * margin, paper.height() - 2 * margin))
                        .contains(word.box))
            << word.text.toStdString() << " at " << word.box.left() << " " << word.box.top();
        // The boxes are as high as the font; its letters fill the middle of them.
        const double ease = word.box.height() * 0.2;
        const QRectF glyphs = word.box.adjusted(0.01, ease, -0.01, -ease);
        for (std::size_t other = 0; other < one; ++other) {
            const Word& before = printed.words[other];
            if (before.page != word.page) continue;
            const double beforeEase = before.box.height() * 0.2;
            EXPECT_FALSE(
                glyphs.intersects(before.box.adjusted(0.01, beforeEase, -0.01, -beforeEase)))
                << word.text.toStdString() << " over " << before.text.toStdString() << " on page "
                << word.page << " at " << word.box.left() << " " << word.box.top();
        }
    }
}

TEST_F(PrintedReportTest, OneHoldingFitsOnOneCleanPage) {
    StartWith(Holdings(1, 1));
    const Printed printed = Print();
    EXPECT_EQ(printed.pages.size(), 1U);
    ExpectCleanPages(printed);
}

TEST_F(PrintedReportTest, TwelveHoldingsFitOnOneCleanPage) {
    StartWith(Holdings(12, 12));
    const Printed printed = Print();
    EXPECT_EQ(printed.pages.size(), 1U);
    ExpectCleanPages(printed);
}

TEST_F(PrintedReportTest, SixtyHoldingsGoOnOnTheNextPages) {
    StartWith(Holdings(60, 60));
    const Printed printed = Print();
    EXPECT_GT(printed.pages.size(), 1U);
    ExpectCleanPages(printed);
    for (int n = 1; n <= 60; ++n) {
        EXPECT_NE(printed.Find(QStringLiteral("%1.").arg(n)), nullptr) << n;
    }
}

TEST_F(PrintedReportTest, ThePaperIsA4) {
    StartWith(Holdings(1, 1));
    const Printed printed = Print();
    ASSERT_EQ(printed.pages.size(), 1U);
    EXPECT_NEAR(printed.pages[0].width(), 21.0, 0.05);
    EXPECT_NEAR(printed.pages[0].height(), 29.7, 0.05);
}

TEST_F(PrintedReportTest, TheHeadingNamesTheFileAndTheDays) {
    auto holdings = Holdings(2, 2);
    holdings[0].senasteDag = *ParseDate("2026-03-06");
    holdings[1].senasteDag = *ParseDate("2026-03-04");
    StartWith(holdings);
    const Printed printed = Print();
    const Word* title = printed.Find(QStringLiteral("Vimmels_exempel"));
    ASSERT_NE(title, nullptr);
    EXPECT_NEAR(title->box.left(), 2.0, 0.1);
    EXPECT_NEAR(title->box.top(), 3.0, 0.2);
    EXPECT_EQ(printed.LineAt(1, 1.5), ToQt("Tisdag 10 Mars 2026"));
    EXPECT_EQ(printed.LineAt(1, 3.85), ToQt("Fredag 6 Mars 2026 Senaste UppDatering"));
}

TEST_F(PrintedReportTest, TheDiagramsLabelsStandRoundIt) {
    StartWith(Holdings(2, 2));
    const Printed printed = Print();
    const Word* top = printed.Find(QStringLiteral("45"));
    ASSERT_NE(top, nullptr);
    EXPECT_NEAR(top->box.top(), 4.8, 0.25);
    EXPECT_LT(top->box.right(), 3.0);
    const Word* bottom = printed.Find(QStringLiteral("-30"));
    ASSERT_NE(bottom, nullptr);
    EXPECT_NEAR(bottom->box.top(), 11.8, 0.25);
    EXPECT_EQ(printed.LineAt(1, 12.15),
              ToQt("April Maj Juni Juli Aug Sep Okt Nov Dec Jan Feb Mars"));
    const Word* left = printed.Find(QStringLiteral("2025"));
    ASSERT_NE(left, nullptr);
    EXPECT_NEAR(left->box.left(), 3.2, 0.1);
}

TEST_F(PrintedReportTest, AHoldingHasTwoLines) {
    auto holdings = Holdings(1, 1);
    holdings[0].fond = "Rusken Kina";
    holdings[0].kursKr = 101.5;
    holdings[0].vardeKr = 10150;
    holdings[0].senasteKurs = "Senaste : 110,00";
    holdings[0].kursVarde = "11000";
    holdings[0].procent = "8 %";
    StartWith(holdings);
    const QString text = Print().Text();
    EXPECT_TRUE(
        text.contains(ToQt("Premiepension 1. Rusken Kina StartKurs : 101,5 Senaste : 110,00")))
        << text.toStdString();
    EXPECT_TRUE(text.contains(ToQt("Värde vid start : 10150 Kr Värde idag : 11000 8 %")))
        << text.toStdString();
}

TEST_F(PrintedReportTest, AHoldingWithSavedValuesStartsFromThem) {
    auto holdings = Holdings(1, 1);
    holdings[0].sparadeVarden = "2025-04-01¶12,5¶80¶1000¶";
    StartWith(holdings);
    const QString text = Print().Text();
    EXPECT_TRUE(text.contains(ToQt("StartKurs : 80 "))) << text.toStdString();
    EXPECT_TRUE(text.contains(ToQt("Värde vid start : 1000 Kr"))) << text.toStdString();
}

TEST_F(PrintedReportTest, EveryAccountHasItsTotals) {
    StartWith(Holdings(3, 3));
    const QString text = Print().Text();
    EXPECT_TRUE(text.contains(ToQt("Total Summa för konto :"))) << text.toStdString();
    for (const char* account : {"Premiepension Startvärde", "Privat sparande Startvärde"}) {
        EXPECT_TRUE(text.contains(ToQt(account))) << account << ": " << text.toStdString();
    }
    EXPECT_TRUE(text.contains(ToQt("Senaste Totalvärde 271604 kr 10 %"))) << text.toStdString();
}

TEST_F(PrintedReportTest, TheDiagramIsDrawnInLinesOverTheGridPicture) {
    auto holdings = Holdings(1, 1);
    holdings[0].plottFarg = ColourValue({255, 0, 0});
    holdings[0].skala = "1./15/-10";
    holdings[0].points = {{*ParseDate("2025-04-01"), 10}, {*ParseDate("2026-03-31"), 10}};
    StartWith(holdings);
    Print();
    const QImage page = FirstPage();
    ASSERT_FALSE(page.isNull());
    // 100 dots per centimetre: the value 10 stands 9.2 - 10 x 7/25 = 6.4 cm from the top.
    for (const int x : {302, 700, 1200, 1790}) EXPECT_TRUE(RedNear(page, x, 640)) << x;
    EXPECT_FALSE(RedNear(page, 290, 640));
    EXPECT_FALSE(RedNear(page, 1815, 640));
    EXPECT_EQ(page.pixelColor(700, 800), QColor(240, 240, 240)) << "the grid picture lies under it";
    EXPECT_EQ(page.pixelColor(700, 480), QColor(255, 255, 255));

    const QString images =
        QString::fromUtf8(Output(QStringLiteral("pdfimages"),
                                 {QStringLiteral("-list"), ToQt(outside.printing.files.back())}));
    EXPECT_EQ(images.count(QStringLiteral(" image ")), 1) << images.toStdString();
}

TEST_F(PrintedReportTest, PointsBeforeTheTwelveMonthsArePinnedToTheLeftMargin) {
    auto holdings = Holdings(1, 1);
    holdings[0].plottFarg = ColourValue({255, 0, 0});
    holdings[0].skala = "1./15/-10";
    holdings[0].points = {{*ParseDate("2024-04-01"), 0}, {*ParseDate("2025-02-28"), 10}};
    StartWith(holdings);
    Print();
    const QImage page = FirstPage();
    // 100 dots per centimetre: the line stands at 3.0 cm, from 9.2 cm up to 6.4 cm.
    for (const int y : {645, 800, 915}) EXPECT_TRUE(RedNear(page, 300, y)) << y;
    EXPECT_FALSE(RedNear(page, 300, 600));
    for (const int x : {285, 320, 800}) EXPECT_FALSE(RedNear(page, x, 800)) << x;
}

TEST_F(PrintedReportTest, AScaleFrom45ToMinus30IsPrintedAtSevenSeventyFifthsOfACentimetre) {
    auto holdings = Holdings(1, 1);
    holdings[0].plottFarg = ColourValue({255, 0, 0});
    holdings[0].skala = "1./45/-30";
    holdings[0].points = {{*ParseDate("2025-04-01"), 30}, {*ParseDate("2026-03-31"), 30}};
    StartWith(holdings);
    Print();
    const QImage page = FirstPage();
    // 9.2 cm - 30 x 7/75 cm = 6.4 cm from the top.
    EXPECT_TRUE(RedNear(page, 1000, 640));
    EXPECT_FALSE(RedNear(page, 1000, 630));
    EXPECT_FALSE(RedNear(page, 1000, 650));
}

TEST_F(PrintedReportTest, APageOfAnEarlierYearHasTheCurvesNumbers) {
    StartWith(Holdings(2, 2));
    for (int quarter = 0; quarter < 2; ++quarter) Click(Window().Image4);
    Print();
    const Printed printed = Read(outside.printing.files.back());
    for (const char* number : {"1", "2"}) {
        const auto inFrame = [&](const Word& word) {
            const QRectF frame(QPointF(3, 5), QPointF(18.3, 12));
            return word.text == QLatin1String(number) && frame.contains(word.box.center());
        };
        EXPECT_EQ(std::count_if(printed.words.begin(), printed.words.end(), inFrame), 1) << number;
    }
}

TEST_F(PrintedReportTest, ANumberOverACurveHasABrightEdge) {
    auto holdings = Holdings(1, 1);
    holdings[0].plottFarg = ColourValue({255, 0, 0});
    holdings[0].skala = "1./15/-10";
    // A number that stands in a thick bundle of lines.
    holdings[0].points.clear();
    for (int day = 0; day < 240; ++day) {
        holdings[0].points.push_back({*ParseDate("2025-04-01") + day, day % 2 == 0 ? 14 : -9});
    }
    StartWith(holdings);
    const Printed printed = Print();
    const auto number =
        std::find_if(printed.words.begin(), printed.words.end(), [](const Word& word) {
            return word.text == QStringLiteral("1") && word.box.top() > 5 && word.box.top() < 12;
        });
    ASSERT_NE(number, printed.words.end());
    const QImage page = FirstPage();
    int bright = 0;
    const QRect box((number->box.topLeft() * 100).toPoint(),
                    (number->box.bottomRight() * 100).toPoint());
    for (int y = box.top(); y <= box.bottom(); ++y) {
        for (int x = box.left(); x <= box.right(); ++x) {
            if (page.pixelColor(x, y) == QColor(Qt::white)) ++bright;
        }
    }
    EXPECT_GT(bright, 0) << "paper stands round the number, not the grid picture";
}

TEST_F(PrintedReportTest, AnAccountKeptAsASummaryRowHasThePanelsTotals) {
    auto holdings = Holdings(2, 2);
    holdings[1].namn = "Hela kontot";
    holdings[1].fondNr = "999 999";
    holdings[1].kursKr = 203219.5;
    holdings[1].senasteKurs = "Senaste : 123926,50";
    holdings[1].kursVarde = "-";
    holdings[1].procent = "-39 %";
    StartWith(holdings);
    const QString text = Print().Text();
    EXPECT_TRUE(text.contains(ToQt("Hela kontot Startvärde 203219,5 kr"))) << text.toStdString();
    EXPECT_TRUE(text.contains(ToQt("Senaste Totalvärde 123926,5 kr -39 %"))) << text.toStdString();
}

TEST_F(PrintedReportTest, AfterwardsTheDiagramStandsThereAgain) {
    StartWith(Holdings(2, 2));
    Print();
    ExpectPlainDiagramView();
    EXPECT_FALSE(Window().picDiagram->Drawings().empty());
}

TEST_F(PrintedReportTest, AnEmptyFileIsPrintedWithItsHeading) {
    StartWith({});
    const Printed printed = Print();
    EXPECT_EQ(printed.pages.size(), 1U);
    EXPECT_NE(printed.Find(QStringLiteral("Vimmels_exempel")), nullptr);
    ExpectCleanPages(printed);
}

TEST_F(PrintedReportTest, ACancelledPrintDialogPrintsNothingAndSaysNothing) {
    StartWith(Holdings(2, 2));
    outside.printing.cancel = true;
    Window().mnuPrint->trigger();
    EXPECT_TRUE(outside.printing.files.empty());
    ExpectPlainDiagramView();
}

TEST_F(PrintedReportTest, APrinterThatFailsIsToldAndLogged) {
    StartWith(Holdings(2, 2));
    outside.printing.broken = true;
    outside.dialogs.Expect("Fel i PrintRutinen");
    Window().mnuPrint->trigger();
    EXPECT_NE(Log().find("Fel i Printrutinen mnuPrint 482"), std::string::npos) << Log();
    ExpectPlainDiagramView();
}

TEST_F(PrintedReportTest, AnAccountThatCannotBeReadPrintsNothingAndIsNamedInTheLog) {
    auto holdings = Holdings(2, 2);
    holdings[1].namn = "Annas 'pension'";
    StartWith(holdings);
    outside.dialogs.Expect("Fel i PrintRutinen");
    Window().mnuPrint->trigger();
    EXPECT_TRUE(outside.printing.files.empty()) << "no printer was asked for";
    EXPECT_NE(Log().find("Fel i Printrutinen mnuPrint 3075, konto Annas 'pension'"),
              std::string::npos)
        << Log();
    ExpectPlainDiagramView();
}

TEST_F(PrintedReportTest, CurvesThatCannotBeReadPrintNothing) {
    StartWith(Holdings(2, 2));
    // Drawn while it lasted; the points are gone when the page wants them.
    Window().FundDb->Close();
    outside.dialogs.Expect("Fel i PrintRutinen");
    Window().mnuPrint->trigger();
    EXPECT_TRUE(outside.printing.files.empty());
}

TEST_F(PrintedReportTest, AMissingGridPictureEndsTheReport) {
    StartWith(Holdings(2, 2), false);
    outside.dialogs.Expect("Fel i PrintRutinen");
    Window().mnuPrint->trigger();
    EXPECT_TRUE(outside.printing.files.empty());
    EXPECT_NE(Log().find("Fel i Printrutinen mnuPrint 53"), std::string::npos) << Log();
}

}  // namespace
