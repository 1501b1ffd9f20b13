#pragma once
// Every control of the window under its name. Furnish creates them; the controllers use them.
// A control's objectName is its name here; an element of a control array is `lblMonth_1`.

#include "base/indexed.h"

class QAction;
class QComboBox;
class QFrame;
class QGroupBox;
class QLabel;
class QListWidget;
class QMenu;
class QPushButton;

class BoundField;
class CommonDialog;
class DataGrid;
class DayMarks;
class DataSource;
class DiagramView;
class EntryField;
class GridLine;
class ImageButton;
class LegendView;
class StatusPanels;
class Swatch;
class TextTable;

/// The panels of `staBar` that have a meaning.
namespace statuspanel {
inline constexpr int kFund = 2;
inline constexpr int kStartPrice = 3;  ///< its tag holds the price as text
inline constexpr int kLatestPrice = 4;
inline constexpr int kChange = 5;
inline constexpr int kValue = 6;
}  // namespace statuspanel

struct Controls {
    // Data sources and the dialog that remembers its settings
    DataSource* dtaBasData = nullptr;
    DataSource* dtaPlott = nullptr;
    DataSource* dtaSQL = nullptr;
    CommonDialog* CmDialog = nullptr;

    // Menu Arkiv
    QMenu* mnuArkiv = nullptr;
    QAction* mnuNew = nullptr;
    QAction* mnuOpen = nullptr;
    QAction* mnuSaveAs = nullptr;
    QAction* mnuRadera = nullptr;
    QAction* mnuStartFile = nullptr;
    QAction* mnuAterstall = nullptr;
    QAction* mnuGranska = nullptr;
    QAction* mnuPrint = nullptr;
    QAction* mnuPdf = nullptr;
    QAction* mnuExportera = nullptr;
    QAction* mnuImportera = nullptr;
    Indexed<QAction*, 1, 8> mnuFil;  ///< the fund files that lie near
    QAction* mnuAvbryt = nullptr;
    // Menu Redigera
    QMenu* mnuRedigera = nullptr;
    QAction* mnuAngra = nullptr;
    QAction* mnuGorOm = nullptr;
    QAction* mnuSok = nullptr;
    // Menu Visa
    QMenu* mnuShow = nullptr;
    QAction* mnuDagskurs = nullptr;
    QAction* mnuRita = nullptr;
    QAction* mnuKurvor = nullptr;
    QAction* mnuFarg = nullptr;
    QAction* mnuAll = nullptr;
    QAction* mnuPlus = nullptr;
    QAction* mnuMinus = nullptr;
    QAction* mnuVeckor = nullptr;
    QAction* mnuMonth = nullptr;
    QAction* mnuKurser = nullptr;
    QAction* mnuOversikt = nullptr;
    QAction* mnuTotal = nullptr;
    QAction* mnuPEdit = nullptr;
    QAction* mnuFLogg = nullptr;
    QAction* mnuNotePad = nullptr;
    // Menu Hjälp
    QMenu* mnuHjalp = nullptr;
    QAction* mnuHelp = nullptr;

    // The heading
    QFrame* panRubrik = nullptr;
    QLabel* lblRubrik = nullptr;
    QLabel* lblPanDatum = nullptr;
    QLabel* lblIngenFil = nullptr;  ///< over the picture, while no fund file is open

    // The control column
    QFrame* panControl = nullptr;
    QPushButton* cmdFondList = nullptr;
    QPushButton* cmdPPMData = nullptr;
    EntryField* txtValue = nullptr;
    ImageButton* imgColor = nullptr;
    ImageButton* imgGrafNr = nullptr;
    ImageButton* imgScreen = nullptr;

    // The fund list
    QGroupBox* panListFonder = nullptr;
    QListWidget* lstFonder = nullptr;
    QLabel* lblGrafNr = nullptr;
    QLabel* lblPlottInfo = nullptr;

    // The diagram
    QGroupBox* panDiagram = nullptr;
    DiagramView* picDiagram = nullptr;
    Indexed<GridLine*, 1, 20> Line;  ///< `Line1` to `Line20`, the picture's own
    QLabel* lblXCord = nullptr;
    QLabel* lblYCord = nullptr;
    DayMarks* axlSaknas = nullptr;  ///< on the time axis: days without a price
    Indexed<QLabel*, 1, 12> lblMonth;
    QLabel* lbLeftYear = nullptr;
    QLabel* lblRightYear = nullptr;
    Indexed<QLabel*, 1, 6> lblVertical;
    ImageButton* Image4 = nullptr;
    ImageButton* Image5 = nullptr;

    // The start data of the chosen holding
    QGroupBox* fraStartData = nullptr;
    Indexed<QLabel*, 0, 9> lblFraData;
    Indexed<QLabel*, 0, 9> lblFraHeading;  ///< the small heading over each, which follows the case
    QLabel* lblFraHint = nullptr;          ///< while no holding is chosen
    LegendView* lstLegend = nullptr;       ///< in its place while several curves show
    Swatch* shaPlottColor = nullptr;
    QLabel* lblColorNr = nullptr;
    QLabel* lblForhand = nullptr;  ///< right of the price: what Enter would make of it

    // The holdings panel
    QGroupBox* panBasData = nullptr;
    DataGrid* DBGrid = nullptr;
    BoundField* txtKontoNr = nullptr;
    BoundField* txtPnr = nullptr;
    BoundField* txtNamn = nullptr;
    QLabel* txtGrid = nullptr;
    QPushButton* cmdNyAndel = nullptr;
    QPushButton* cmdNyOk = nullptr;
    QGroupBox* fraNyAndel = nullptr;  ///< the entry row "UppDatera Nya Andelar "
    Indexed<BoundField*, 0, 6> txtNyAndel;
    Indexed<QLabel*, 0, 6> lblNyAndel;  ///< the hint over each box

    // The plot data panel, with the two small calculators
    QGroupBox* panPlottData = nullptr;
    QComboBox* cboSokFond = nullptr;  ///< whose points the grid shows
    EntryField* txtSokDag = nullptr;  ///< the day to look for
    DataGrid* GridPlott = nullptr;
    QLabel* lblPunkt = nullptr;        ///< "2026-11-13 = 20 % =" of the current row
    EntryField* txtPunktKr = nullptr;  ///< the same in kronor, to be mended
    QLabel* lblRecCount = nullptr;
    EntryField* txtprcStart = nullptr;
    EntryField* txtprcNy = nullptr;
    QPushButton* cmdPrc = nullptr;
    QLabel* lblprcSvar = nullptr;
    EntryField* txtTranslate = nullptr;
    QPushButton* cmdTranslate = nullptr;

    // The day's round
    QGroupBox* panKurser = nullptr;
    QComboBox* cboDag = nullptr;  ///< that prices are typed for
    TextTable* grdKurser = nullptr;
    EntryField* txtNyKurs = nullptr;  ///< stands in the table's current row
    QLabel* lblKlara = nullptr;       ///< how many have their price
    QLabel* lblKursBesked = nullptr;  ///< about the price in the field, or the pasted ones

    // Prices from a file, before they are stored
    QGroupBox* panImport = nullptr;
    TextTable* grdImport = nullptr;
    QLabel* lblImport = nullptr;
    QPushButton* cmdImportera = nullptr;
    QPushButton* cmdImportNej = nullptr;

    // The overview of all holdings, and its short form in the left column
    QGroupBox* panOversikt = nullptr;
    TextTable* grdOversikt = nullptr;
    QGroupBox* panKort = nullptr;
    TextTable* grdKort = nullptr;

    // The totals panel
    QGroupBox* panTotal = nullptr;
    QListWidget* lstTotal = nullptr;
    QLabel* lblTotal = nullptr;

    // The safety copies
    QGroupBox* panKopior = nullptr;
    QListWidget* lstKopior = nullptr;
    QLabel* lblKopia = nullptr;
    QPushButton* cmdAterstall = nullptr;

    QGroupBox* fraSlapp = nullptr;  ///< around the window, while a file is held over it
    StatusPanels* staBar = nullptr;
};
