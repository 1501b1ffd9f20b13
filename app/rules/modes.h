#pragma once
// What each event does to what the window shows. Every way out of a mode ends all of it: the list's
// use, what was collected, the buttons it blocked.
// Before the start-up pause has ended only its end changes anything.

#include "app/rules/windowstate.h"

#include <cstdint>
#include <vector>

WindowState AfterPause(WindowState state);   ///< the start-up pause has ended
WindowState AfterEscape(WindowState state);  ///< the plain diagram, whatever covers it

// Buttons and their keys
WindowState AfterFundListButton(WindowState state);  ///< `cmdFondList`, F11
WindowState AfterColourButton(WindowState state);    ///< `imgColor`, F9
WindowState AfterCurvesButton(WindowState state);    ///< `imgGrafNr`, F12
WindowState AfterScreenButton(WindowState state);    ///< `imgScreen`, F8
WindowState AfterGridSwitch(WindowState state);      ///< `cmdPPMData`
WindowState AfterScroll(WindowState state);          ///< `Image4`, `Image5`, the arrow keys

// Pages, by key or menu
WindowState AfterDayPricesKey(WindowState state);  ///< F6; there it hides what is done, or shows it
WindowState AfterDayPriceTyped(WindowState state, std::int32_t kontoId, TypedDayPrice typed);
WindowState AfterDayPriceGone(WindowState state, std::int32_t kontoId);  ///< stored or given up
WindowState AfterDayChosen(WindowState state, std::int32_t day);  ///< that prices are typed for
WindowState AfterPasteShown(WindowState state, PriceNote note);
WindowState AfterPasteEnded(WindowState state);

WindowState AfterImportShown(WindowState state, ImportPage page);

WindowState AfterOverviewKey(WindowState state);  ///< F7; there it leads back
WindowState AfterOverviewSorted(WindowState state, int column);
WindowState AfterOverviewChosen(WindowState state);  ///< a holding, which is to be opened

// Menu
WindowState AfterTotalsMenu(WindowState state);
WindowState AfterPlotDataMenu(WindowState state);
WindowState AfterAllCurvesMenu(WindowState state);
WindowState AfterCopiesMenu(WindowState state);
/// Something was taken back or done again: what was being chosen or told is of another file.
WindowState AfterReplay(WindowState state);
WindowState AfterPrinting(WindowState state);
/// `hasHoldings` is the opened file's.
WindowState AfterFileOpened(WindowState state);
WindowState AfterFileLost(WindowState state);  ///< none is open any more

// The fund list and the price field
WindowState AfterLineChosen(WindowState state, std::int32_t kontoId);
WindowState AfterEnterInList(WindowState state);
WindowState AfterPriceFocus(WindowState state);
WindowState AfterPriceTyped(WindowState state, PriceNote note);  ///< about what stands there now
WindowState WithKeysInPrice(WindowState state);  ///< if it can be reached: a price is begun
WindowState WithKeysInList(WindowState state);   ///< if it is open: after a price, for the next

// The curves in the picture
WindowState AfterCurvesDrawn(WindowState state, std::vector<ShownCurve> curves);
WindowState AfterCurveLit(WindowState state, LitCurve lit);  ///< pointed at; only one that is there
WindowState AfterLightOut(WindowState state);
/// A menu item chooses curves or a colour: as the button, which comes to be seen.
WindowState AfterChoiceMenu(WindowState state);
WindowState AfterLineTakenAway(WindowState state, std::int32_t kontoId);  ///< from a choice

// The notice of new shares
WindowState AfterNoticeOpened(WindowState state);
WindowState AfterNoticeClosed(WindowState state);

// Steps that several events share
WindowState AfterPanelsReset(WindowState state);  ///< no panel beside the diagram
WindowState AfterGridLeft(WindowState state);     ///< the diagram, if the holdings grid covers it
WindowState AfterCoverLeft(WindowState state);    ///< the diagram, whatever covers it
WindowState AfterHoldingClosed(WindowState state);
WindowState AfterDaysMissed(WindowState state, std::vector<std::int32_t> days);
WindowState AfterHoldingOpened(WindowState state, OpenHolding holding, HoldingView view);
/// `stored` is the open holding as its row is now.
WindowState AfterPriceStored(WindowState state, OpenHolding stored);
