#pragma once
// The marked row of a grid and its deletion.

#include "widgets/gridevents.h"

#include <optional>

class DataSource;
class GridCursor;
class GridSelection;
class RecordSetModel;

class GridDeletion {
  public:
    /// All of them outlive it.
    GridDeletion(RecordSetModel& model, GridSelection& selection, GridCursor& cursor,
                 const GridEvents& events);

    std::optional<int> MarkedRow() const;
    void MarkRow();  ///< the current one
    /// Asks, deletes the marked row from `source`, tells. False when nothing was deleted.
    bool DeleteMarkedRow(DataSource& source);

  private:
    void DeleteCurrent(DataSource& source);

    RecordSetModel& model_;
    GridSelection& selection_;
    GridCursor& cursor_;
    const GridEvents& events_;
};
