#include "app/rules/helppage.h"

namespace {

std::string_view PageOfList(ListUse use) {
    switch (use) {
        case ListUse::Nothing:
        case ListUse::Prices:
            return "kurs";
        case ListUse::Colour:
            return "farg";
        case ListUse::Curves:
            return "valja-kurvor";
    }
    return "kurs";
}

std::string_view PageOfDiagram(const WindowState& state) {
    switch (state.left) {
        case LeftPanel::FundList:
            return PageOfList(state.listUse);
        case LeftPanel::Totals:
            return "summor";
        case LeftPanel::PlotData:
            return "plottdata";
        case LeftPanel::Copies:
            return "kopior";
        case LeftPanel::None:
            return state.holding ? "se-fond" : "diagrammet";
    }
    return "diagrammet";
}

}  // namespace

std::string_view HelpPageFor(const WindowState& state) {
    switch (state.stage) {
        case Stage::Starting:
            return "valkommen";
        case Stage::SharesNotice:
            return "nya-andelar";
        case Stage::Holdings:
            return state.hasHoldings ? "andra-innehav" : "lagg-till";
        case Stage::DayPrices:
            return "dagens-kurser";
        case Stage::Overview:
            return "oversikt";
        case Stage::Import:
            return "importera";
        case Stage::Diagram:
            return state.NoFileReason.empty() ? PageOfDiagram(state) : "oppna-fil";
    }
    return "valkommen";
}
