#pragma once
// The row of a grid that is being typed: when it is stored, and what it is given up by.

#include "widgets/gridevents.h"

class GridCells;
class QWidget;
class RecordSetModel;

class GridRow {
  public:
    /// All of them outlive it.
    GridRow(RecordSetModel& model, GridCells& cells, const GridEvents& events);

    bool IsTyped() const;  ///< something is typed that is not stored
    bool Store();          ///< true when nothing is left to store
    void Cancel();
    /// The focus goes from one control to another: leaving `grid` leaves its row.
    void FocusMoves(const QWidget& grid, const QWidget* from, const QWidget* to);

  private:
    bool StoreTyped();

    RecordSetModel& model_;
    GridCells& cells_;
    const GridEvents& events_;
    bool storing_ = false;
};
