#pragma once
// The current cell of a grid: a row is left only when what was typed in it is stored.

#include <QItemSelectionModel>

#include <functional>

class GridSelection : public QItemSelectionModel {
  public:
    /// `leaveRow` says whether the current row may be left.
    explicit GridSelection(std::function<bool()> leaveRow);

    /// The program moves: nothing is asked.
    void MoveUnasked(const std::function<void()>& move);

    void setCurrentIndex(const QModelIndex& index,
                         QItemSelectionModel::SelectionFlags command) override;
    using QItemSelectionModel::select;
    void select(const QItemSelection& selection,
                QItemSelectionModel::SelectionFlags command) override;

  private:
    std::function<bool()> leaveRow_;
    bool unasked_ = false;
    bool stayed_ = false;  ///< the last move was refused: what would select its target does not
};
