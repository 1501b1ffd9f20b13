// The column at the left: the fund list with its two hints, and the panel with buttons and price
// field under it.

#include "app/furnish.h"
#include "app/furnishing.h"
#include "app/look.h"
#include "app/places.h"
#include "platform/caption.h"
#include "widgets/entryfield.h"
#include "widgets/imagebutton.h"
#include "widgets/tag.h"

#include <QAbstractItemView>
#include <QFrame>
#include <QGroupBox>
#include <QHelpEvent>
#include <QLabel>
#include <QListWidget>
#include <QModelIndex>
#include <QPainter>
#include <QPalette>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <string_view>

namespace {

constexpr QChar kFigureSpace(0x2007);

ImageButton* Image(frmPPM& window, const QString& picture, float left, std::string_view spoken,
                   std::string_view tip) {
    auto* button = PictureButton(window, window.panControl, {left, 1140, 420, 390}, picture);
    Speak(button, spoken);
    Tip(button, tip);
    return button;
}

/// The blank in front of a one-digit number is drawn as wide as a digit, so that the numbers line
/// up. The line that the keys stand on without choosing it has a frame.
class FundLines final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& whole,
               const QModelIndex& index) const override {
        const QStyleOptionViewItem option = InView(whole);
        QStyledItemDelegate::paint(painter, option, index);
        const bool marked = option.state.testFlag(QStyle::State_HasFocus);
        if (!marked || option.state.testFlag(QStyle::State_Selected)) return;
        painter->save();
        painter->setPen(option.palette.color(QPalette::Text));
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
        painter->restore();
    }

    /// A line that is cut stands whole in its tooltip.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        const QString line = index.data().toString();
        const bool cut = sizeHint(option, index).width() > InView(option).rect.width();
        if (event->type() != QEvent::ToolTip || !cut) {
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        }
        QToolTip::showText(event->globalPos(), line, view);
        return true;
    }

  private:
    /// The list makes its lines as wide as the longest one, which no longer needs to be cut then.
    static QStyleOptionViewItem InView(QStyleOptionViewItem option) {
        const auto* list = qobject_cast<const QListWidget*>(option.widget);
        if (list == nullptr) return option;
        const int end = list->viewport()->rect().right() - list->spacing();
        option.rect.setRight(std::min(option.rect.right(), end));
        return option;
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->text.startsWith(u' ')) option->text[0] = kFigureSpace;
    }
};

QLabel* Hint(QWidget* parent, const char* name) {
    auto* label = Named(new QLabel(parent), name);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->hide();
    return label;
}

}  // namespace

void FurnishFundList(frmPPM& window) {
    auto* panel = window.panListFonder =
        Named(new QGroupBox(window.centralWidget()), "panListFonder");
    Placed(window, panel, places::kLeftColumn);
    panel->hide();

    // The hints take room from the list only while they show.
    window.lstFonder = Named(new QListWidget(panel), "lstFonder");
    window.lblGrafNr = Hint(panel, "lblGrafNr");
    window.lblPlottInfo = Hint(panel, "lblPlottInfo");
    auto* column = new QVBoxLayout(panel);
    column->addWidget(window.lstFonder, 1);
    column->addWidget(window.lblGrafNr);
    column->addWidget(window.lblPlottInfo);
    window.layout.AlsoScale([column](const Scaling& scaling) {
        const int side = Pixels(120 * scaling.across);
        column->setContentsMargins(side, Pixels(390 * scaling.down), side,
                                   Pixels(120 * scaling.down));
        column->setSpacing(Pixels(90 * scaling.down));
    });
    window.layout.Letter(window.lstFonder, kTextPoints, Letters::List);
    QListWidget* list = window.lstFonder;
    window.layout.AlsoScale(
        [list](const Scaling& scaling) { list->setSpacing(Pixels(15 * scaling.down) - 1); });
    window.lstFonder->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    window.lstFonder->setItemDelegate(new FundLines(window.lstFonder));
    window.lstFonder->setTextElideMode(Qt::ElideRight);
    window.lstFonder->setUniformItemSizes(true);
    look::SetTextColour(*window.lstFonder, look::kListGreen);
    Speak(window.lstFonder, "Fonder");
    Speak(window.lblGrafNr, "Valda kurvor");
    Speak(window.lblPlottInfo, "Anvisning");
}

void FurnishControlPanel(frmPPM& window) {
    auto* panel = window.panControl = Named(new QFrame(window.centralWidget()), "panControl");
    Placed(window, panel, places::kControls);
    panel->hide();

    window.cmdFondList = Named(new QPushButton(ToQt("Ny Dags&kurs"), panel), "cmdFondList");
    Placed(window, window.cmdFondList, {150, 135, 1575, 405});
    Speak(window.cmdFondList, "Ny dagskurs");
    Tip(window.cmdFondList, "Öppnar eller stänger fondlistan  <F11>");

    window.cmdPPMData = Named(new QPushButton(ToQt("&PPM Data"), panel), "cmdPPMData");
    Placed(window, window.cmdPPMData, {1815, 135, 1575, 405});
    Speak(window.cmdPPMData, "Växla mellan diagram och innehav");
    Tip(window.cmdPPMData, "Växlar mellan diagrammet och innehaven");

    window.txtValue = Named(new EntryField(panel), "txtValue");
    Placed(window, window.txtValue, {1815, 645, 1575, 390}, 10);
    window.txtValue->setAlignment(Qt::AlignRight);
    Speak(window.txtValue, "Dagens kurs i kronor");
    Tip(window.txtValue, "Skriv dagens kurs och tryck <Enter>");
    QLabel* heading = Heading(panel, "Dagens k&urs, kr", window.txtValue);
    Placed(window, heading, {150, 645, 1590, 390});

    window.imgScreen = Named(Image(window, QStringLiteral(":/icons/screen.svg"), 150,
                                   "Rita om diagrammet", "Visar de valda kurvorna igen  <F8>"),
                             "imgScreen");
    window.imgColor = Named(Image(window, QStringLiteral(":/icons/colour.svg"), 660, "Färgknapp",
                                  "Färgknapp  Välj färg till Fondkurva  "),
                            "imgColor");
    window.imgGrafNr = Named(Image(window, QStringLiteral(":/icons/curves.svg"), 1170,
                                   "Diagramknapp", "Diagramknapp  Välj Fonder att visa      "),
                             "imgGrafNr");
    for (ImageButton* button : {window.imgColor, window.imgGrafNr}) {
        SetTag(button, "0");
        button->hide();
    }
}
