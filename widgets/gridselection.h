#pragma once
// The current cell of a grid: a cell is left only when its text is taken, a row only when what was
// typed in it is stored.

#include <QItemSelectionModel>

#include <functional>

/// They say whether the current cell, or the current row with its cell, may be left.
struct GridGuards {
    std::function<bool()> leaveCell;
    std::function<bool()> leaveRow;
};

class GridSelection : public QItemSelectionModel {
  public:
    explicit GridSelection(GridGuards guards);

    /// The program moves: nothing is asked.
    void MoveUnasked(const std::function<void()>& move);

    void setCurrentIndex(const QModelIndex& index,
                         QItemSelectionModel::SelectionFlags command) override;
    using QItemSelectionModel::select;
    void select(const QItemSelection& selection,
                QItemSelectionModel::SelectionFlags command) override;

  private:
    GridGuards guards_;
    bool unasked_ = false;
    bool stayed_ = false;  ///< the last move was refused: what would select its target does not
};
