#pragma once
// The holdings grid and the account fields under it: what is made of a typed cell, and what a new
// holding gets.

#include "app/controller.h"

#include <cstddef>
#include <optional>
#include <string_view>

struct CellChange;
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

    std::optional<double> TypedNumber(std::size_t position) const;
    void TypeValue();
    void TypeKontoId();
    void CompleteNewHolding();
    void RemoveNewHolding();
};
