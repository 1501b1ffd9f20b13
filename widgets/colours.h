#pragma once
// Every colour of the windows, by name. Both colours of every pair are given, so that no desktop
// theme can make text unreadable.

#include "base/colour.h"
#include "fundfile/rules/curvecolour.h"

#include <QColor>
#include <QString>

namespace colours {

/// As style sheets write it: 0xRRGGBB.
constexpr Colour Hex(std::uint32_t rgb) {
    return {static_cast<std::uint8_t>(rgb >> 16U), static_cast<std::uint8_t>(rgb >> 8U),
            static_cast<std::uint8_t>(rgb)};
}

// Surfaces and their texts
inline constexpr Colour kWhite = Hex(0xFFFFFF);
inline constexpr Colour kBackground = Hex(0xE4EAED);
inline constexpr Colour kBackgroundThread = Hex(0xDDE4E8);
inline constexpr Colour kPanel = Hex(0xF7F9FA);
inline constexpr Colour kAlternateRow = Hex(0xEFF4F6);
inline constexpr Colour kText = Hex(0x1B2B36);
inline constexpr Colour kQuietText = Hex(0x536673);
inline constexpr Colour kDisabledText = Hex(0x8A99A3);
inline constexpr Colour kTitle = Hex(0x1F4A63);
inline constexpr Colour kHeading = Hex(0x234256);
inline constexpr Colour kHeadingDate = Hex(0xCFDEE7);
inline constexpr Colour kNotice = Hex(0xFFFBE6);
inline constexpr Colour kDoubt = Hex(0xFFD98A);  ///< amber, under dark text

// Borders, buttons and what is chosen
inline constexpr Colour kAccent = Hex(0x1F5C7D);
inline constexpr Colour kBorder = Hex(0xB4C2CB);
inline constexpr Colour kSeparator = Hex(0xDCE4E9);
inline constexpr Colour kButtonBorder = Hex(0x6E818D);  ///< of buttons and fields
inline constexpr Colour kHover = Hex(0xEAF3F8);
inline constexpr Colour kPressed = Hex(0xD3E4EE);
inline constexpr Colour kPressedText = Hex(0x12202A);
inline constexpr Colour kDisabledButton = Hex(0xEEF2F4);
inline constexpr Colour kDisabledBorder = Hex(0xCDD7DD);

// The fund list
inline constexpr Colour kListBackground = Hex(0x14232D);
inline constexpr Colour kListBorder = Hex(0x12202A);
inline constexpr Colour kListChosen = Hex(0x46778F);
inline constexpr Colour kListFocus = Hex(0x8FD0F5);   ///< around it while it has the focus
inline constexpr Colour kListHandle = Hex(0x8FA9B8);  ///< of its scroll bar
inline constexpr Colour kListGreen = Hex(0x80FF80);   ///< its lines while prices are typed
inline constexpr Colour kListCurves = Hex(0xFFE08A);  ///< its lines while curves are chosen

// Entry fields: a dark desktop theme would put light text on these light backgrounds
inline constexpr Colour kFieldFocused{211, 240, 254};
inline constexpr Colour kField{239, 239, 222};
inline constexpr Colour kFieldOff{214, 214, 206};  ///< where nothing may be typed
inline constexpr Colour kFieldText{16, 16, 32};
inline constexpr Colour kFieldQuietText{96, 96, 104};

// The diagram, on kDiagramBackground
inline constexpr Colour kGridPen{226, 229, 224};
inline constexpr Colour kZeroPen{146, 154, 148};
inline constexpr Colour kFramePen{168, 176, 170};
inline constexpr Colour kCrossHairPen{0, 128, 0};
inline constexpr Colour kDayPen{143, 178, 200};
inline constexpr Colour kDayMark{176, 74, 0};  ///< a day with points, in the scroll strip

// The help viewer
inline constexpr Colour kHelpPanel = Hex(0xF3F6F8);
inline constexpr Colour kHelpLead = Hex(0x3A5364);
inline constexpr Colour kHelpMessage = Hex(0xEEF3F6);
inline constexpr Colour kHelpPressed = Hex(0xD3DDE3);
inline constexpr Colour kHelpDisabledText = Hex(0x9DABB4);
inline constexpr Colour kHelpFound = Hex(0xFFE08A);  ///< under the words that were searched for

}  // namespace colours

QColor ToQColor(Colour colour);

/// A style sheet in which colours stand by their names: "$panel" is colours::kPanel. Asserts that
/// there is a colour of every name.
QString Coloured(const QString& styleSheet);
