#pragma once
// A grid bound to a data source: it shows its rows, follows and moves its current row, and lets the
// user add, change and delete rows. Knows nothing of what the columns mean.

#include "widgets/gridevents.h"
#include "widgets/recordsetmodel.h"

#include <QFrame>

#include <memory>
#include <optional>
#include <string>
#include <vector>

class DataSource;
class KeyStrokes;
class QEvent;
class QHideEvent;
class QKeyEvent;
class QPaintEvent;
class QShowEvent;
class QTableView;

/// Keys: arrows move, typing or F2 edits, Enter goes to the next cell or stores the row behind the
/// last one, Esc gives up the cell, then the row; Shift+Space or Ctrl+Space marks the row as a
/// click on its left edge does, Delete deletes the marked row. Tab goes through the cells of a row
/// that is typed, and on to the next control. As soon as a new row is typed the next empty one
/// stands under it. Leaving a typed row stores it: by another row, another control, or StoreRow.
class DataGrid : public QFrame {
    Q_OBJECT
    Q_PROPERTY(QString caption READ GridCaption WRITE SetGridCaption)

  public:
    explicit DataGrid(QWidget* parent = nullptr);
    ~DataGrid() override;

    void SetDataSource(DataSource* source);
    void SetColumns(std::vector<GridColumn> columns);
    void SetKeyStrokes(KeyStrokes& keyStrokes);
    QString GridCaption() const;
    void SetGridCaption(const QString& caption);

    GridEvents events;

    int CurrentRow() const;     ///< -1: none
    int CurrentColumn() const;  ///< -1: none
    void SetCurrentColumn(int column);
    std::string ColumnCaption(int column) const;
    std::string CellText(int row, int column) const;
    bool OnNewRow() const;

    bool RowTyped() const;       ///< something is typed that is not stored
    bool RowIsComplete() const;  ///< false when storing it would be refused
    /// The row being typed or, where nothing is typed, the current row:
    /// what it would hold when stored.
    std::string TypedText(const std::string& field) const;
    void TypeText(const std::string& field, std::string text);
    bool StoreRow();  ///< true when nothing is left to store; else the grid has the focus
    /// While the data source tells why the row is not stored: the column that cannot hold its text.
    std::optional<int> RefusedColumn() const;
    void CancelRow();
    bool GiveUpCell();  ///< what is typed in the open cell; false when none is open

    std::optional<int> MarkedRow() const;
    void MarkRow();  ///< the current one
    /// Asks, deletes the marked row, tells. False when nothing was deleted.
    bool DeleteMarkedRow();

    QTableView& View() const;  ///< the table that shows the rows

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void ConnectParts();
    void LayOutWholeRows();
    void RowHeaderPressed(int row);
    void LeaveCellByEnter();
    void GiveUpRow(QKeyEvent* key);

    struct Parts;
    std::unique_ptr<Parts> parts_;
};
