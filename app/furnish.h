#pragma once
// Creates the controls: their places on the design size, captions, tooltips, tags, tab order and
// looks. One function and one file for each panel; none of them knows what its controls are for.

class frmPPM;

void Furnish(frmPPM& window);  ///< all of the following, in this order

void FurnishDataSources(frmPPM& window);
void FurnishMenus(frmPPM& window);
void FurnishHeading(frmPPM& window);        ///< panRubrik
void FurnishFundList(frmPPM& window);       ///< panListFonder
void FurnishControlPanel(frmPPM& window);   ///< panControl
void FurnishDiagram(frmPPM& window);        ///< panDiagram
void FurnishStartData(frmPPM& window);      ///< fraStartData
void FurnishHoldings(frmPPM& window);       ///< panBasData
void FurnishPlotData(frmPPM& window);       ///< panPlottData
void FurnishTotals(frmPPM& window);         ///< panTotal
void FurnishCopies(frmPPM& window);         ///< panKopior
void FurnishShortOverview(frmPPM& window);  ///< panKort
void FurnishOverview(frmPPM& window);       ///< panOversikt
void FurnishDayPrices(frmPPM& window);      ///< panKurser
void FurnishImport(frmPPM& window);         ///< panImport
void FurnishStatusBar(frmPPM& window);      ///< staBar
void FurnishDropFrame(frmPPM& window);      ///< fraSlapp
void FurnishTabOrder(frmPPM& window);
void FurnishContextMenus(frmPPM& window);  ///< what the menus offer, where it is needed
