#pragma once
// What each state of the window shows: the table that Panels carries out.
// A field is the control of that name.

#include "app/rules/windowstate.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct Shown {
    struct Visible {
        bool panRubrik = false, panControl = false, panDiagram = false, fraStartData = false;
        bool lblIngenFil = false;
        bool panListFonder = false, panTotal = false, panPlottData = false, panBasData = false;
        bool panKopior = false;
        bool imgColor = false, imgGrafNr = false;
        bool lblGrafNr = false, lblPlottInfo = false;
        bool lblColorNr = false, lblFraHint = false, lblForhand = false, lstLegend = false;
        bool cmdNyAndel = false, txtGrid = false;
        bool fraNyAndel = false, cmdNyOk = false, txtNyAndel = false;
        bool lblTotal = false;
        bool panKurser = false, txtNyKurs = false;
        bool panOversikt = false, panKort = false;
        bool fraSlapp = false, panImport = false;
        bool operator==(const Visible&) const = default;
    };
    struct Enabled {
        bool mnuArkiv = false, mnuRedigera = false, mnuShow = false, mnuPrint = false;
        bool mnuAterstall = false, cmdAterstall = false, mnuAngra = false, mnuGorOm = false;
        bool cboDag = false;
        bool mnuExportera = false, mnuImportera = false, cmdImportera = false;
        bool cmdFondList = false, cmdNyAndel = false, txtValue = false, picDiagram = false;
        bool operator==(const Enabled&) const = default;
    };
    struct Captions {
        std::string frmPPM, lblRubrik, lblPanDatum;
        std::string lblIngenFil;
        std::string panListFonder, lblGrafNr, lblPlottInfo;
        std::string cmdPPMData, mnuVeckor, mnuMonth;
        std::string lblTotal, lblXCord, lblYCord;
        std::string lblKopia, mnuAngra, mnuGorOm;
        std::string lblForhand;  ///< of a price while it is typed
        std::string panKurser, lblKlara, lblKursBesked;
        std::string panImport, lblImport;
        std::string lblRecCount;  ///< "" before anything was counted: it is left alone
        std::string picDiagram;   ///< said in it while it has no curve: what to do
        // To those who do not see it: of picDiagram, axlSaknas and shaPlottColor ("" where there is
        // nothing in them), and what has just happened.
        std::string spoken, missingDays, curveColour, news;
        std::string staBar;  ///< over all of its panels; "" where they are to be seen
        bool operator==(const Captions&) const = default;
    };
    struct Tags {
        std::string panListFonder, imgGrafNr, imgColor, GridPlott, DBGrid, CmDialog;
        bool operator==(const Tags&) const = default;
    };

    /// The curve that stands out, and where a note is at it: days from the left edge and percent.
    struct Lit {
        std::int32_t kontoId = 0;
        std::optional<CurvePoint> at{};
        std::string title{}, note{};
        bool operator==(const Lit&) const = default;
    };

    /// Of the menu, while there is such a file.
    struct FileItem {
        std::string caption, path;
        bool checked = false;
        bool operator==(const FileItem&) const = default;
    };

    Visible visible;
    Enabled enabled;
    Captions captions;
    Tags tags;
    ListUse listColour = ListUse::Prices;   ///< of the list's lines: Curves or Prices
    bool priceDoubted = false;              ///< the colour of `lblForhand`
    bool roundDoubted = false;              ///< of `lblKursBesked`
    std::vector<std::int32_t> missingDays;  ///< counted from the first day of the months shown
    HoldingView view;                       ///< of the fund panel and the status bar
    Focus focus = Focus::Stays;
    TypedPrice typedPrice = TypedPrice::Stays;
    std::vector<ShownCurve> legend;  ///< what lstLegend lists while it is visible
    std::optional<Lit> lit;
    std::vector<FileItem> files;        ///< mnuFil, counted from 1
    std::optional<std::int32_t> today;  ///< marked in picDiagram: days from its left edge
    bool operator==(const Shown&) const = default;
};

Shown ShownBy(const WindowState& state);
