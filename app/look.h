#pragma once
// How the window looks: its palette and its style sheet, of the colours in widgets/colours.h.

#include "base/colour.h"

#include <QPalette>
#include <QString>

class QLabel;
class QListWidget;

namespace look {

/// A light palette of its own, whatever the desktop's is.
QPalette WindowPalette();
QString StyleSheet();
/// The text of the fund list, on its dark background.
void SetTextColour(QListWidget& list, Colour colour);
/// What a label says is to be looked at, or quiet again.
void SetDoubt(QLabel& label, bool doubtful);

}  // namespace look
