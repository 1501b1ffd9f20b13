#include "app/rules/keys.h"

namespace {

constexpr char32_t kEscape = 27;

bool GridShown(ShownPanels shown) {
    return shown.holdings || shown.plotData;
}

}  // namespace

KeyAction OnKeyUp(FunctionKey key, ShownPanels shown) {
    // The pages are reached from everywhere.
    if (key == FunctionKey::F6) return KeyAction::DayPrices;
    if (key == FunctionKey::F7) return KeyAction::Overview;
    if (GridShown(shown) && key != FunctionKey::F1) return KeyAction::None;
    const bool byYear = shown.inPicture && shown.withShift;
    switch (key) {
        case FunctionKey::Home:
            return shown.inPicture ? KeyAction::ShowMonthsOfStart : KeyAction::None;
        case FunctionKey::Left:
            if (shown.page) return KeyAction::None;
            return byYear ? KeyAction::ScrollYearLeft : KeyAction::ScrollLeft;
        case FunctionKey::Right:
            if (shown.page) return KeyAction::None;
            return byYear ? KeyAction::ScrollYearRight : KeyAction::ScrollRight;
        case FunctionKey::F6:
        case FunctionKey::F7:
            break;
        case FunctionKey::F1:
            return KeyAction::ShowHelp;
        case FunctionKey::F8:
            return KeyAction::RedrawFunds;
        case FunctionKey::F9:
            return shown.colourButton ? KeyAction::ChooseColour : KeyAction::None;
        case FunctionKey::F11:
            return KeyAction::EnterPrice;
        case FunctionKey::F12:
            return shown.curvesButton ? KeyAction::ChooseCurves : KeyAction::None;
    }
    return KeyAction::None;
}

KeyAction OnKeyPress(char32_t typed, ShownPanels shown) {
    if (typed == kEscape) {
        if (shown.holdings) return KeyAction::ToDiagramFromGrid;
        return shown.page ? KeyAction::ToDiagramFromPage : KeyAction::ToDiagram;
    }
    if (typed == U'+') return KeyAction::ZoomIn;
    if (typed == U'-' && !GridShown(shown)) return KeyAction::ZoomOut;
    return KeyAction::None;
}
