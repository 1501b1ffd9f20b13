#pragma once
// The row of a grid that is being typed: when it is stored, and what it is given up by.

#include "widgets/gridevents.h"

#include <functional>

class GridCells;
class QWidget;
class RecordSetModel;

class GridRow {
  public:
    /// All of them outlive it.
    GridRow(RecordSetModel& model, GridCells& cells, const GridEvents& events, QWidget& table);

    bool IsTyped() const;  ///< something is typed that is not stored
    bool MayLeave();       ///< stores; true when another row may become the current one
    bool Store();          ///< true when nothing is left to store; else the grid has the focus
    void Cancel();
    /// The focus goes from one control to another: leaving `grid` leaves its row.
    void FocusMoves(const QWidget& grid, const QWidget* from, const QWidget* to);

  private:
    bool StoreTyped();
    void LeaveOnceThePressIsOver(const QWidget& left, const std::function<void()>& leave);

    RecordSetModel& model_;
    GridCells& cells_;
    const GridEvents& events_;
    QWidget& table_;
    bool storing_ = false;
};
