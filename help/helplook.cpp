#include "help/helplook.h"

#include <QColor>
#include <QRgb>

namespace helplook {

QPalette Palette() {
    constexpr QRgb kPaper = 0xFFFFFFFF, kBackground = 0xFFE4EAED, kText = 0xFF1B2B36,
                   kQuiet = 0xFF536673;
    constexpr QRgb kChosen = 0xFF1F5C7D, kPanel = 0xFFF3F6F8;
    const auto colour = [](QRgb rgb) { return QColor::fromRgb(rgb); };
    QPalette palette(colour(kText), colour(kBackground), colour(kPaper), colour(kQuiet),
                     colour(kQuiet), colour(kText), colour(kPaper), colour(kPaper),
                     colour(kBackground));
    palette.setColor(QPalette::AlternateBase, colour(kPanel));
    palette.setColor(QPalette::Highlight, colour(kChosen));
    palette.setColor(QPalette::HighlightedText, colour(kPaper));
    palette.setColor(QPalette::Link, colour(kChosen));
    palette.setColor(QPalette::ToolTipBase, colour(kPaper));
    palette.setColor(QPalette::ToolTipText, colour(kText));
    palette.setColor(QPalette::PlaceholderText, colour(kQuiet));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor::fromRgb(0xFF9DABB4));
    palette.setColor(QPalette::Disabled, QPalette::Text, colour(kQuiet));
    return palette;
}

QString WindowStyle() {
    return QStringLiteral(
        "QToolBar { border: 0; border-bottom: 1px solid #B4C2CB; padding: 5px 8px; spacing: 4px; }"
        "QToolButton { padding: 5px 10px; border: 1px solid transparent; border-radius: 4px; }"
        "QToolButton:hover { background: #F7F9FA; border-color: #B4C2CB; }"
        "QToolButton:pressed { background: #D3DDE3; }"
        "QLineEdit { padding: 5px 8px; border: 1px solid #B4C2CB; border-radius: 4px; background: "
        "white; }"
        "QLineEdit:focus { border-color: #1F5C7D; }"
        "QTreeWidget, QListWidget { background: #F3F6F8; padding: 8px 4px; }"
        "QTreeWidget::item { padding: 3px 2px; }"
        "QTreeWidget::item:selected, QListWidget::item:selected { background: #1F5C7D; color: "
        "white; }"
        "QListWidget::item { padding: 6px 4px; border-bottom: 1px solid #DCE4E9; }"
        "QSplitter::handle { background: #B4C2CB; width: 1px; }");
}

QString PageStyle() {
    return QStringLiteral(
        "h1 { color: #234256; font-size: 21pt; margin-top: 4px; margin-bottom: 10px; }"
        "h2 { color: #234256; font-size: 13pt; margin-top: 20px; margin-bottom: 6px; }"
        "p, li, td, th { font-size: 11pt; line-height: 135%; }"
        "p.lead { color: #3A5364; font-size: 12pt; margin-bottom: 12px; }"
        "li { margin-bottom: 5px; }"
        "table { border-collapse: collapse; margin-top: 8px; margin-bottom: 8px; }"
        "th { background-color: #E4EAED; text-align: left; }"
        "td { border-bottom: 1px solid #DCE4E9; }"
        "table.message { margin-top: 20px; margin-bottom: 4px; }"
        "table.message td { background-color: #EEF3F6; color: #1B2B36; font-weight: bold; }"
        "table.message td { border: 0; white-space: pre-wrap; }"
        "table.turn td { border: 0; }"
        "a { color: #1F5C7D; text-decoration: none; }"
        ".key { background-color: #E4EAED; color: #234256; font-weight: bold; }"
        ".message { background-color: #EEF3F6; }");
}

}  // namespace helplook
