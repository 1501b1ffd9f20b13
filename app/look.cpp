#include "app/look.h"

#include "widgets/colours.h"

#include <QLabel>
#include <QListWidget>

namespace look {

QPalette WindowPalette() {
    using namespace colours;
    QPalette palette;
    const auto set = [&palette](QPalette::ColorRole role, Colour colour) {
        palette.setColor(role, ToQColor(colour));
    };
    set(QPalette::WindowText, kText);
    set(QPalette::Text, kText);
    set(QPalette::ButtonText, kText);
    set(QPalette::Window, kPanel);
    set(QPalette::Base, kWhite);
    set(QPalette::AlternateBase, kAlternateRow);
    set(QPalette::Button, kPanel);
    set(QPalette::Highlight, kAccent);
    set(QPalette::HighlightedText, kWhite);
    set(QPalette::PlaceholderText, kQuietText);
    set(QPalette::ToolTipBase, kNotice);
    set(QPalette::ToolTipText, kText);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, ToQColor(kDisabledText));
    }
    return palette;
}

namespace {

// What has a name is called by it, not by what it stands in: for that the style would look through
// all that stands around each of its kind, and a window has many labels and scroll bars.

/// Menus and the surfaces that others stand on.
QString SurfaceStyle() {
    return QStringLiteral(R"(
QMenuBar { background: $panel; color: $text; border-bottom: 1px solid $border; }
QMenuBar::item { background: transparent; }
QMenuBar::item:selected { background: $pressed; }
QMenuBar::item:disabled { color: $disabledText; }
QMenu { background: $white; color: $text; border: 1px solid $border; padding: 4px 0; }
QMenu::item { padding: 4px 28px 4px 18px; }
QMenu::item:selected { background: $pressed; color: $pressedText; }
QMenu::item:disabled { color: $disabledText; }
QMenu::separator { height: 1px; background: $separator; margin: 4px 8px; }
QToolTip { background: $notice; color: $text; border: 1px solid $border; padding: 2px; }
QFrame#panRubrik { background: $heading; border-radius: 4px; }
QLabel#lblRubrik { color: $white; background: transparent; }
QLabel#lblPanDatum { color: $headingDate; background: transparent; }
QFrame#panControl { background: $panel; border: 1px solid $border; border-radius: 4px; }
QWidget#client QGroupBox { background: $panel; color: $title; border: 1px solid $border;
                           border-radius: 4px; margin: 0; padding: 0; }
QWidget#client QGroupBox::title { subcontrol-origin: border; subcontrol-position: top left;
                                  left: 9px; top: 5px; color: $title; background: transparent; }
QWidget#client QGroupBox#fraSlapp { background: transparent; border: 3px solid $accent; }
StatusPanels { background: $panel; border-top: 1px solid $border; }
QLabel#panel, QLabel#notice { color: $text; border: none; border-left: 1px solid $disabledBorder; padding: 0 5px; }
QLabel#notice { background: $notice; }
QLabel#lblIngenFil { background: $white; border: 1px solid $border; border-radius: 4px; padding: 10px; }
)");
}

QString ButtonStyle() {
    return QStringLiteral(R"(
QPushButton { background: $white; color: $text; border: 1px solid $buttonBorder; border-radius: 4px;
              padding: 1px 8px; }
QPushButton:hover { background: $hover; border-color: $accent; }
QPushButton:pressed { background: $pressed; }
QPushButton:focus { border: 2px solid $accent; padding: 0 7px; outline: none; }
QWidget#client QPushButton { padding: 1px 2px; }
QWidget#client QPushButton:focus { padding: 0 1px; }
QPushButton:disabled { background: $disabledButton; color: $disabledText; border-color: $disabledBorder; }
QToolButton { background: $white; border: 1px solid $buttonBorder; border-radius: 4px; }
QToolButton:hover { background: $hover; border-color: $accent; }
QToolButton:pressed { background: $pressed; }
QToolButton:focus { border: 2px solid $accent; outline: none; }
)");
}

/// Lists, tables and grids.
QString ListStyle() {
    return QStringLiteral(R"(
QListWidget#lstFonder { background: $listBackground; padding: 3px 2px; border: 1px solid $listBorder; border-radius: 3px; }
QListWidget#lstFonder:focus { padding: 2px 1px; border: 2px solid $listFocus; }
QScrollBar#lstFonderBar { background: $listBackground; width: 12px; border: none; }
QScrollBar#lstFonderBar::handle { background: $listHandle; border-radius: 3px; min-height: 24px; margin: 2px; }
QScrollBar#lstFonderBar::add-line, QScrollBar#lstFonderBar::sub-line { height: 0; }
QScrollBar#lstFonderBar::add-page, QScrollBar#lstFonderBar::sub-page { background: $listBackground; }
QTableView { selection-background-color: $accent; selection-color: $white; }
TextTable { background: $white; alternate-background-color: $alternateRow; color: $text;
            border: 2px solid $border; }
TextTable:focus { border-color: $accent; }
TextTable EntryField { background: $field; color: $fieldText; border: none; }
TextTable EntryField:focus { background: $fieldFocused; }
QListWidget#lstLegend { background: $panel; border: none; }
QListWidget#lstTotal, QListWidget#lstKopior { background: $white; color: $text; padding: 3px 2px;
                       selection-background-color: $accent; selection-color: $white; border: 1px solid $border;
                       border-radius: 3px; }
QListWidget#lstTotal:focus, QListWidget#lstKopior:focus { padding: 2px 1px; border: 2px solid $accent; }
)");
}

}  // namespace

QString StyleSheet() {
    return Coloured(SurfaceStyle() + ButtonStyle() + ListStyle());
}

void SetDoubt(QLabel& label, bool doubtful) {
    if (label.autoFillBackground() == doubtful) return;
    QPalette palette = label.palette();
    palette.setColor(QPalette::Window, ToQColor(colours::kDoubt));
    palette.setColor(QPalette::WindowText,
                     ToQColor(doubtful ? colours::kText : colours::kQuietText));
    label.setPalette(palette);
    label.setAutoFillBackground(doubtful);
}

void SetTextColour(QListWidget& list, Colour colour) {
    QPalette palette = list.palette();
    palette.setColor(QPalette::Base, ToQColor(colours::kListBackground));
    palette.setColor(QPalette::Text, ToQColor(colour));
    palette.setColor(QPalette::Highlight, ToQColor(colours::kListChosen));
    palette.setColor(QPalette::HighlightedText, ToQColor(colours::kWhite));
    list.setPalette(palette);
}

}  // namespace look
