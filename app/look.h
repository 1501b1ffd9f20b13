#pragma once
// Colours of the window. Both colours of every pair are given, so that no desktop theme can make
// text unreadable.

#include <QPalette>
#include <QRgb>
#include <QString>

class QLabel;
class QListWidget;

namespace look {

inline constexpr QRgb kBackground = 0xFFE4EAED;
inline constexpr QRgb kBackgroundThread = 0xFFDDE4E8;
inline constexpr QRgb kPanel = 0xFFF7F9FA;
inline constexpr QRgb kText = 0xFF1B2B36;
inline constexpr QRgb kQuietText = 0xFF536673;
inline constexpr QRgb kAccent = 0xFF1F5C7D;
inline constexpr QRgb kListBackground = 0xFF1C2E3A;
inline constexpr QRgb kListChosen = 0xFF3A647C;
inline constexpr QRgb kListGreen = 0xFF80FF80;   ///< the list while prices are typed
inline constexpr QRgb kListCurves = 0xFFFFE08A;  ///< the list while curves are chosen

inline constexpr QRgb kDoubt = 0xFFFFD98A;  ///< amber, under dark text

/// A light palette of its own, whatever the desktop's is.
QPalette WindowPalette();
QString StyleSheet();
/// The text of the fund list, on its dark ground.
void SetTextColour(QListWidget& list, QRgb colour);
/// What a label says is to be looked at, or quiet again.
void SetDoubt(QLabel& label, bool doubtful);

}  // namespace look
