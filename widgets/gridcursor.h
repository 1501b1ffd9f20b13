#pragma once
// Keeps the current cell of a grid and the current row of its data source together: whoever moves,
// the other one follows.

#include <QObject>
#include <QPointer>

class DataSource;
class GridSelection;
class GridTable;
class QModelIndex;
class RecordSetModel;

class GridCursor : public QObject {
    Q_OBJECT

  public:
    GridCursor(GridTable& table, RecordSetModel& model, GridSelection& selection);

    void SetDataSource(DataSource* source);

    int Row() const;     ///< -1: none
    int Column() const;  ///< -1: none
    void SetColumn(int column);
    void MoveSource(int row);

    /// While rows come or go the current row means nothing;
    /// afterwards the grid goes where the data source is.
    void RowsBeginToChange();
    void RowsHaveChanged();

  signals:
    void Moved();  ///< another current cell, and the data source's row with it

  private:
    void Show(int row);
    void Follow();
    void FollowTable(const QModelIndex& current);

    GridTable& table_;
    RecordSetModel& model_;
    GridSelection& selection_;
    QPointer<DataSource> source_;
    int column_ = 0;  ///< the last current one, kept over a refresh
    bool rowsChange_ = false;
};
