#pragma once
// The holdings grid and the account fields under it: what is made of a typed cell, what a new
// holding gets, and the deletion of a holding with its points.

#include "app/controller.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

struct CellChange;
struct HoldingRow;
class DataSource;
class EntryField;

class HoldingsGrid : Controller {
  public:
    explicit HoldingsGrid(frmPPM& window);

  private:
    void PrepareGrid();
    void PrepareField(EntryField* field, std::string_view enterKeys);
    void panBasData_Show();
    void panBasData_Hide();

    bool DBGrid_BeforeColEdit(int column);
    void DBGrid_BeforeColUpdate(CellChange& change);
    void DBGrid_AfterColUpdate(int column);
    bool DBGrid_BeforeUpdate();
    bool RefuseRow(std::string_view reason);
    void DBGrid_AfterUpdate(bool isNew);
    bool DBGrid_BeforeDelete();
    void DeleteRowAndPoints();
    void DBGrid_AfterDelete();
    void ShowStoredCurves();

    void dtaBasData_Error(int number);
    void dtaPlott_Error(int number);
    void dtaSQL_Error(int number);
    void ShowSourceError(int number, std::string_view source);

    std::optional<double> TypedNumber(std::size_t position) const;
    void TypeValue();
    void TypeKontoId();
    void CompleteNewHolding();
    void RemoveNewHolding();
    void RefreshList(std::optional<std::int32_t> kontoIdToOpen);
    /// The first row has a curve list in front of its scale, no other row has.
    void WriteCurveList(const std::vector<std::int32_t>& curves);
    std::vector<std::int32_t> ListedCurves();
};
