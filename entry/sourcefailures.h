#pragma once
// Tells the user that a data source failed in what a grid or a field did with it.

#include "app/controller.h"

#include <string_view>

class DataGrid;

class SourceFailures : Controller {
  public:
    explicit SourceFailures(frmPPM& ppm);

  private:
    void dtaBasData_Error(int number);
    void dtaPlott_Error(int number);
    void dtaSQL_Error(int number);
    bool ShowRefusedCell(int number, DataGrid& grid);
    void ShowSourceError(int number, std::string_view source);
};
