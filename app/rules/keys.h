#pragma once
// What a key means for the window as a whole, whatever control has the focus.
// Knows no Qt key codes.

#include <cstdint>

/// Keys that act when they are let go, by their key codes.
enum class FunctionKey : std::int32_t {
    Home = 36,
    Left = 37,
    Right = 39,
    F6 = 117,
    F7 = 118,
    F1 = 112,
    F8 = 119,
    F9 = 120,
    F11 = 122,
    F12 = 123
};

enum class KeyAction {
    None,  ///< the key belongs to the focused control
    ScrollLeft,
    ScrollRight,
    ScrollYearLeft,
    ScrollYearRight,
    ShowMonthsOfStart,
    RedrawFunds,
    ChooseColour,
    EnterPrice,
    DayPrices,
    Overview,
    ChooseCurves,
    ToDiagram,          ///< ResetPanels
    ToDiagramFromPage,  ///< what is typed there is given up first
    ToDiagramFromGrid,  ///< ResetPanels, then the holdings grid is left as well
    ShowHelp,           ///< the page about what is open
    ZoomIn,
    ZoomOut,
};

/// What changes a key's meaning: which controls are visible, and which has the focus.
struct ShownPanels {
    bool holdings = false;      ///< panBasData
    bool plotData = false;      ///< panPlottData
    bool page = false;          ///< panKurser or panOversikt
    bool colourButton = false;  ///< imgColor
    bool curvesButton = false;  ///< imgGrafNr
    bool inPicture = false;     ///< picDiagram has the focus
    bool withShift = false;     ///< Shift is held
};

KeyAction OnKeyUp(FunctionKey key, ShownPanels shown);

/// For a typed character. Every action but None swallows the key.
/// Zooming in works in every view; "-" must be typeable in the grids, so zooming out does not.
KeyAction OnKeyPress(char32_t typed, ShownPanels shown);
