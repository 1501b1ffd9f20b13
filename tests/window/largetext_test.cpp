// The window with the text sizes that desktops are set to, on small and large screens: everything
// fits, or is cut with "..." and whole in its tooltip.

#include "tests/window/windowtest.h"
#include "widgets/datagrid.h"
#include "widgets/shortlabel.h"
#include "widgets/texttable.h"
#include "widgets/titledframe.h"
#include "widgets/valuelabel.h"

#include <QAction>
#include <QApplication>
#include <QFont>
#include <QFontMetrics>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRect>
#include <QSize>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTableView>

#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

struct Desktop {
    QSize screen;
    float textSize;
};

void PrintTo(const Desktop& desktop, std::ostream* out) {
    *out << desktop.screen.width() << 'x' << desktop.screen.height() << " text "
         << desktop.textSize;
}

namespace {

class LargeTextTest : public WindowTest {
  protected:
    void StartOn(const Desktop& desktop) {
        std::vector<TestHolding> holdings = TwoHoldings();
        holdings[0].fond = "Cedervall Nordamerika Tillväxt och Utdelning";
        MakeFile(holdings);
        outside.screen.area = QRect(QPoint(0, 0), desktop.screen);
        outside.screen.textSize = desktop.textSize;
        Start();
    }
    double PointsOf(const QWidget* control) { return control->font().pointSizeF(); }
};

/// Everything that the user can bring up, one after the other.
std::vector<std::pair<std::string, std::function<void(frmPPM&)>>> EveryPanel() {
    const auto escape = [](frmPPM& window) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    };
    const auto after = [escape](Qt::Key key) {
        return [escape, key](frmPPM& window) {
            escape(window);
            QTest::keyClick(window.focusWidget(), key);
        };
    };
    return {
        {"the list", [](frmPPM&) {}},
        {"a fund", [](frmPPM& window) { window.lstFonder->setCurrentRow(1); }},
        {"the curve choice", [](frmPPM& window) { window.mnuKurvor->trigger(); }},
        {"the day's round", after(Qt::Key_F6)},
        {"the overview", after(Qt::Key_F7)},
        {"the short overview", escape},
        {"the totals", [](frmPPM& window) { window.mnuTotal->trigger(); }},
        {"the plot data", [](frmPPM& window) { window.mnuPEdit->trigger(); }},
        {"the holdings",
         [escape](frmPPM& window) {
             escape(window);
             window.cmdPPMData->click();
         }},
    };
}

bool CutsItsText(const QWidget* label) {
    return dynamic_cast<const ValueLabel*>(label) != nullptr ||
           dynamic_cast<const ShortLabel*>(label) != nullptr ||
           qobject_cast<const StatusPanels*>(label->parentWidget()) != nullptr;
}

/// What of a label cannot be read, or "".
std::string Hidden(const QLabel& label) {
    if (label.text().isEmpty() || label.wordWrap()) {
        return label.heightForWidth(label.width()) > label.height() ? "lines" : "";
    }
    // A line's own room over and under its characters may be lost.
    const QRect ink = label.fontMetrics().tightBoundingRect(QStringLiteral("Åg"));
    if (ink.height() > label.contentsRect().height()) return "height";
    const int width = label.fontMetrics().size(Qt::TextShowMnemonic, label.text()).width();
    return !CutsItsText(&label) && width > label.contentsRect().width() + 1 ? "width" : "";
}

std::string Hidden(const QPushButton& button) {
    QStyleOptionButton option;
    option.initFrom(&button);
    const QRect room =
        button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button);
    const QSize needed = button.fontMetrics().size(Qt::TextShowMnemonic, button.text());
    return needed.width() > room.width() || button.fontMetrics().ascent() > room.height()
               ? "caption"
               : "";
}

std::string Hidden(const QLineEdit& field) {
    const QRect ink = field.fontMetrics().tightBoundingRect(QStringLiteral("Åg"));
    return ink.height() > field.contentsRect().height() ? "height" : "";
}

std::string Hidden(const QGroupBox& panel) {
    if (dynamic_cast<const TitledFrame*>(&panel) != nullptr) return "";
    return panel.fontMetrics().horizontalAdvance(panel.title()) > panel.width() ? "title" : "";
}

class EveryDesktop : public LargeTextTest, public testing::WithParamInterface<Desktop> {
  protected:
    template <typename Control>
    void ExpectReadable(const std::string& panel) {
        for (const auto* control : Window().centralWidget()->findChildren<Control*>()) {
            if (!control->isVisible()) continue;
            EXPECT_EQ(Hidden(*control), "")
                << control->objectName().toStdString() << " with " << panel << ": "
                << control->width() << 'x' << control->height();
        }
    }
};

}  // namespace

TEST_P(EveryDesktop, HidesNoText) {
    StartOn(GetParam());
    for (const auto& [panel, show] : EveryPanel()) {
        show(Window());
        QApplication::processEvents();
        ExpectReadable<QLabel>(panel);
        ExpectReadable<QPushButton>(panel);
        ExpectReadable<QLineEdit>(panel);
        ExpectReadable<QGroupBox>(panel);
    }
}

TEST_P(EveryDesktop, KeepsEverythingInItsPanelAndLargeEnough) {
    StartOn(GetParam());
    EXPECT_LE(Window().width(), GetParam().screen.width());
    EXPECT_LE(Window().height(), GetParam().screen.height());
    for (const QWidget* control : Window().centralWidget()->findChildren<QWidget*>()) {
        const QWidget* parent = control->parentWidget();
        EXPECT_GE(PointsOf(control), 7.999) << control->objectName().toStdString();
        if (control->objectName().isEmpty() || parent->objectName().isEmpty()) continue;
        if (control->isWindow() || parent == Window().grdKurser) continue;
        EXPECT_TRUE(parent->rect().contains(control->geometry()))
            << control->objectName().toStdString();
    }
    EXPECT_GT(Window().picDiagram->height(), Window().height() / 4);
    EXPECT_GT(Window().picDiagram->width(), Window().width() / 3);
}

TEST_P(EveryDesktop, CutsNoRowOfAGridInHalf) {
    StartOn(GetParam());
    const auto expectWhole = [](const QTableView& table) {
        if (table.model()->rowCount() * table.rowHeight(0) <= table.viewport()->height()) return;
        const auto whole = [&] { return table.viewport()->height() % table.rowHeight(0) == 0; };
        EXPECT_TRUE(QTest::qWaitFor(whole)) << table.objectName().toStdString();
    };
    Press(Qt::Key_F6);
    QApplication::processEvents();
    expectWhole(*Window().grdKurser);
    Press(Qt::Key_Escape);
    Press(Qt::Key_F7);
    QApplication::processEvents();
    expectWhole(*Window().grdOversikt);
    Window().mnuPEdit->trigger();
    QApplication::processEvents();
    expectWhole(Window().GridPlott->View());
}

INSTANTIATE_TEST_SUITE_P(Screens, EveryDesktop,
                         testing::Values(Desktop{{800, 600}, 1}, Desktop{{800, 600}, 1.5F},
                                         Desktop{{800, 600}, 2}, Desktop{{800, 600}, 3},
                                         Desktop{{1366, 768}, 1}, Desktop{{1366, 768}, 2},
                                         Desktop{{1920, 1080}, 1.5F}, Desktop{{1920, 1080}, 2},
                                         Desktop{{3440, 1440}, 1}, Desktop{{3440, 1440}, 2},
                                         Desktop{{3440, 1440}, 3}));

TEST_F(LargeTextTest, TheDesktopsSizeIsTheGroundAndTheScreensFactorComesOnTop) {
    StartOn({{1440, 1080}, 1.5F});
    EXPECT_NEAR(PointsOf(Window().lblRubrik), 13 * 1.3 * 1.5, 0.01);
    EXPECT_NEAR(PointsOf(Window().cmdFondList), 9 * 1.3 * 1.5, 0.01);
    EXPECT_NEAR(PointsOf(Window().DBGrid), 9 * 1.2 * 1.5, 0.01);
    EXPECT_NEAR(PointsOf(&Window()), 9 * 1.3 * 1.5, 0.01) << "its dialogs are written in this";
}

TEST_F(LargeTextTest, ASmallWindowLetsItGrowByHalf) {
    StartOn({{800, 600}, 2});
    EXPECT_NEAR(PointsOf(Window().lblRubrik), 13 * 1.5, 0.01);
}

TEST_F(LargeTextTest, SmallTextIsNeverUnderEightPoints) {
    StartOn({{800, 600}, 0.5F});
    EXPECT_NEAR(PointsOf(Window().cmdFondList), 8, 0.01);
    EXPECT_NEAR(PointsOf(Window().lblRubrik), 8, 0.01);
}

TEST_F(LargeTextTest, TheDesktopsNewSizeIsTakenOverAtOnce) {
    StartOn({{1440, 1080}, 1});
    Window().cmdPPMData->click();
    outside.screen.textSize = 1.5F;
    QEvent changed(QEvent::ApplicationFontChange);
    QApplication::sendEvent(&Window(), &changed);
    EXPECT_NEAR(PointsOf(Window().lblRubrik), 13 * 1.3 * 1.5, 0.01);
    const QTableView& grid = Window().DBGrid->View();
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return grid.viewport()->height() % grid.rowHeight(0) == 0; }));
}
