#pragma once
// The marks that procedures leave in controls' tags and captions, spoken in words.
// The only place that knows their literals.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct Controls;

class Markers {
  public:
    explicit Markers(Controls& controls) : controls_(controls) {}

    // panListFonder: which view the zoom commands serve
    bool SingleFundShown() const;
    void ShowSingleFund();
    void ShowSeveralCurves();

    // CmDialog and panListFonder: the start file is being chosen
    bool ChoosingStartFile() const;
    void StartChoosingStartFile();
    void StopChoosingStartFile();  ///< the view's mark is as it was before

    // imgGrafNr and imgColor: one mode at most is on
    bool CollectingCurves() const;
    void StartCollectingCurves();
    void StopCollectingCurves();
    bool ChoosingColour() const;
    void StartChoosingColour();
    void StopChoosingColour();

    // lblFraData(0): a holding is chosen
    bool HoldingChosen() const;

    // Status panel 3: the open holding's start price. Throws TypeMismatch when its text is no
    // number.
    float StartPrice() const;
    std::string StartPriceText() const;
    void SetStartPrice(std::string_view text);

    // GridPlott: rows stored while a day's point is being stored do not redraw the diagram
    bool GridRedraws() const;
    void HoldGridRedraw();
    void LetGridRedraw();

    // DBGrid: the KontoId of the row that is being deleted
    std::optional<std::int32_t> RowBeingDeleted() const;
    void SetRowBeingDeleted(std::int32_t kontoId);
    void ForgetRowBeingDeleted();

  private:
    Controls& controls_;
    std::string viewBeforeStartFile_;
};
