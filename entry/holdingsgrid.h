#pragma once
// The holdings grid and the account fields under it: what is made of a typed cell,
// and what a new holding gets.

#include "app/controller.h"

#include <cstddef>
#include <optional>
#include <string_view>

struct CellChange;
struct HoldingRow;
class EntryField;

class HoldingsGrid : Controller {
  public:
    explicit HoldingsGrid(frmPPM& ppm);

  private:
    void PrepareGrid();
    void PrepareField(EntryField* field, std::string_view enterKeys);
    void TellTooLong(std::string_view reason, int maxLength);
    bool StoreAccountFields();
    void panBasData_Show();
    void panBasData_Hide();

    bool DBGrid_BeforeColEdit(int column);
    void DBGrid_BeforeColUpdate(CellChange& change);
    void TakeDate(CellChange& change);
    void TakeNumber(CellChange& change);
    void RefuseCell(CellChange& change, std::string_view reason);
    void DBGrid_AfterColUpdate(int column);
    bool DBGrid_BeforeUpdate();
    HoldingRow TypedRow() const;
    bool RefuseRow(std::string_view reason, int column);
    void DBGrid_AfterUpdate(bool isNew);

    std::optional<double> TypedNumber(std::size_t position) const;
    void TypeValue();
    void TypeKontoId();
    void CompleteNewHolding();
};
