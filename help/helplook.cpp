#include "help/helplook.h"

#include "widgets/colours.h"

#include <cmath>

namespace helplook {

QPalette Palette() {
    using namespace colours;
    const QColor text = ToQColor(kText), quiet = ToQColor(kQuietText), white = ToQColor(kWhite),
                 background = ToQColor(kBackground), accent = ToQColor(kAccent);
    QPalette palette(text, background, white, quiet, quiet, text, white, white, background);
    palette.setColor(QPalette::AlternateBase, ToQColor(kHelpPanel));
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, white);
    palette.setColor(QPalette::Link, accent);
    palette.setColor(QPalette::ToolTipBase, white);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, quiet);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, ToQColor(kHelpDisabledText));
    palette.setColor(QPalette::Disabled, QPalette::Text, quiet);
    return palette;
}

QString WindowStyle() {
    return Coloured(QStringLiteral(
        "QToolBar { border: 0; border-bottom: 1px solid $border; padding: 5px 8px; spacing: 4px; }"
        "QToolButton { padding: 5px 10px; border: 1px solid transparent; border-radius: 4px; }"
        "QToolButton:hover { background: $panel; border-color: $border; }"
        "QToolButton:pressed { background: $helpPressed; }"
        "QLineEdit { padding: 5px 8px; border: 1px solid $border; border-radius: 4px; background: "
        "$white; }"
        "QLineEdit:focus { border-color: $accent; }"
        "QTreeWidget, QListWidget { background: $helpPanel; padding: 8px 4px; }"
        "QTreeWidget::item { padding: 3px 2px; }"
        "QTreeWidget::item:selected, QListWidget::item:selected { background: $accent; color: "
        "$white; }"
        "QListWidget::item { padding: 6px 4px; border-bottom: 1px solid $separator; }"
        "QSplitter::handle { background: $border; width: 1px; }"));
}

QString PageStyle(double textSize) {
    const auto points = [textSize](int ordinary) {
        return QStringLiteral("%1pt").arg(std::lround(ordinary * textSize));
    };
    return Coloured(
        QStringLiteral(
            "h1 { color: $heading; font-size: %1; margin-top: 4px; margin-bottom: 10px; }"
            "h2 { color: $heading; font-size: %2; margin-top: 20px; margin-bottom: 6px; }"
            "p, li, td, th { font-size: %3; line-height: 135%; }"
            "p.lead { color: $helpLead; font-size: %4; margin-bottom: 12px; }"
            "li { margin-bottom: 5px; }"
            "table { border-collapse: collapse; margin-top: 8px; margin-bottom: 8px; }"
            "th { background-color: $background; text-align: left; }"
            "td { border-bottom: 1px solid $separator; }"
            "table.message { margin-top: 20px; margin-bottom: 4px; }"
            "table.message td { background-color: $helpMessage; color: $text; font-weight: bold; }"
            "table.message td { border: 0; white-space: pre-wrap; }"
            "table.turn td { border: 0; }"
            "a { color: $accent; text-decoration: none; }"
            ".key { background-color: $background; color: $heading; font-weight: bold; }"
            ".message { background-color: $helpMessage; }")
            .arg(points(21), points(13), points(11), points(12)));
}

}  // namespace helplook
