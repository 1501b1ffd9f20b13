#include "app/look.h"

#include <QColor>
#include <QLabel>
#include <QListWidget>
#include <QRgb>

namespace look {

QPalette WindowPalette() {
    QPalette palette;
    const QColor quiet = QColor::fromRgb(0x8A, 0x99, 0xA3);
    palette.setColor(QPalette::WindowText, QColor(kText));
    palette.setColor(QPalette::Text, QColor(kText));
    palette.setColor(QPalette::ButtonText, QColor(kText));
    palette.setColor(QPalette::Window, QColor(kPanel));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor::fromRgb(0xEF, 0xF4, 0xF6));
    palette.setColor(QPalette::Button, QColor(kPanel));
    palette.setColor(QPalette::Highlight, QColor(kAccent));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor(kQuietText));
    palette.setColor(QPalette::ToolTipBase, QColor::fromRgb(0xFF, 0xFB, 0xE6));
    palette.setColor(QPalette::ToolTipText, QColor(kText));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, quiet);
    }
    return palette;
}

QString StyleSheet() {
    return QStringLiteral(R"(
QMenuBar { background: #F7F9FA; color: #1B2B36; border-bottom: 1px solid #B4C2CB; }
QMenuBar::item { background: transparent; }
QMenuBar::item:selected { background: #D3E4EE; }
QMenuBar::item:disabled { color: #8A99A3; }
QMenu { background: #FFFFFF; color: #1B2B36; border: 1px solid #B4C2CB; padding: 4px 0; }
QMenu::item { padding: 4px 28px 4px 18px; }
QMenu::item:selected { background: #D3E4EE; color: #12202A; }
QMenu::item:disabled { color: #8A99A3; }
QMenu::separator { height: 1px; background: #DCE4E9; margin: 4px 8px; }
QToolTip { background: #FFFBE6; color: #1B2B36; border: 1px solid #B4C2CB; padding: 2px; }
QFrame#panRubrik { background: #234256; border-radius: 4px; }
QFrame#panRubrik QLabel { color: #FFFFFF; background: transparent; }
QFrame#panRubrik QLabel#lblPanDatum { color: #CFDEE7; }
QFrame#panControl { background: #F7F9FA; border: 1px solid #B4C2CB; border-radius: 4px; }
QWidget#client QGroupBox { background: #F7F9FA; color: #1F4A63; border: 1px solid #B4C2CB;
                           border-radius: 4px; margin: 0; padding: 0; }
QWidget#client QGroupBox::title { subcontrol-origin: border; subcontrol-position: top left;
                                  left: 9px; top: 5px; color: #1F4A63; background: transparent; }
QPushButton { background: #FFFFFF; color: #1B2B36; border: 1px solid #9DB0BC; border-radius: 4px;
              padding: 1px 8px; }
QPushButton:hover { background: #EAF3F8; border-color: #1F5C7D; }
QPushButton:pressed { background: #D3E4EE; }
QPushButton:focus { border: 2px solid #1F5C7D; padding: 0 7px; outline: none; }
QWidget#client QPushButton { padding: 1px 2px; }
QWidget#client QPushButton:focus { padding: 0 1px; }
QPushButton:disabled { background: #EEF2F4; color: #8A99A3; border-color: #CDD7DD; }
QToolButton { background: #FFFFFF; border: 1px solid #9DB0BC; border-radius: 4px; }
QToolButton:hover { background: #EAF3F8; border-color: #1F5C7D; }
QToolButton:pressed { background: #D3E4EE; }
QToolButton:focus { border: 2px solid #1F5C7D; outline: none; }
QListWidget#lstFonder { background: #1C2E3A; padding: 3px 2px; border: 1px solid #12202A; border-radius: 3px; }
QTableView { selection-background-color: #1F5C7D; selection-color: #FFFFFF; }
StatusPanels { background: #F7F9FA; border-top: 1px solid #B4C2CB; }
StatusPanels QLabel { color: #1B2B36; border: none; border-left: 1px solid #CDD7DD; padding: 0 5px; }
StatusPanels QLabel#notice { background: #FFFBE6; }
QListWidget#lstLegend { background: transparent; border: none; }
QLabel#lblIngenFil { background: #FFFFFF; border: 1px solid #B4C2CB; border-radius: 4px; padding: 10px; }
QListWidget#lstTotal, QListWidget#lstKopior { background: #FFFFFF; color: #1B2B36; padding: 3px 2px;
                       selection-background-color: #1F5C7D; selection-color: #FFFFFF; border: 1px solid #B4C2CB;
                       border-radius: 3px; }
)");
}

void SetDoubt(QLabel& label, bool doubtful) {
    if (label.autoFillBackground() == doubtful) return;
    QPalette palette = label.palette();
    palette.setColor(QPalette::Window, QColor(kDoubt));
    palette.setColor(QPalette::WindowText, QColor(doubtful ? kText : kQuietText));
    label.setPalette(palette);
    label.setAutoFillBackground(doubtful);
}

void SetTextColour(QListWidget& list, QRgb colour) {
    QPalette palette = list.palette();
    palette.setColor(QPalette::Base, QColor(kListBackground));
    palette.setColor(QPalette::Text, QColor(colour));
    palette.setColor(QPalette::Highlight, QColor(kListChosen));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    list.setPalette(palette);
}

}  // namespace look
