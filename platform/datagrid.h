#pragma once
// A grid bound to a data source: it shows its rows, follows and moves its current row, and lets the
// user add, change and delete rows. Knows nothing of what the columns mean.

#include "platform/recordsetmodel.h"

#include <QFrame>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class DataSource;
class KeyStrokes;
class QHideEvent;
class QLabel;
class QShowEvent;
class QTableView;

/// What a cell is about to become.
struct CellChange {
    int column = 0;
    std::string oldText = {};
    std::string text = {};  ///< may be rewritten
    bool cancel = false;    ///< true: the cell keeps its old text
};

/// Called in the order in which they stand here. An empty one is not called; a `bool` answer of
/// false forbids.
struct GridEvents {
    std::function<bool(int column)> beforeCellEdit;
    std::function<void(CellChange&)> beforeCellStore;
    std::function<void(int column)> afterCellStore;
    std::function<bool()>
        beforeRowStore;  ///< the row is still typed: ask TypedText, complete with TypeText
    std::function<void(bool isNew)> afterRowStore;
    std::function<bool()> beforeRowDelete;  ///< the row is the data source's current one
    std::function<void()> deleteRow;        ///< takes the place of the data source's plain Delete
    std::function<void()> afterRowDelete;
    std::function<void()> rowOrColumnChanged;
};

/// Keys: arrows move, typing or F2 edits, Esc gives up the cell, then the row; Shift+Space or
/// Ctrl+Space marks the row as a click on its left edge does, Delete deletes the marked row, Tab
/// goes on to the next control. Leaving a typed row stores it: by another row, another control, or
/// StoreRow.
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
    std::string CellText(int row, int column) const;
    bool OnNewRow() const;
    void MoveToNewRow();

    bool RowTyped() const;  ///< something is typed that is not stored
    /// The row being typed or, where nothing is typed, the current row: what it would hold when
    /// stored.
    std::string TypedText(const std::string& field) const;
    void TypeText(const std::string& field, std::string text);
    bool StoreRow();  ///< true when nothing is left to store
    void CancelRow();

    std::optional<int> MarkedRow() const;
    void MarkRow();  ///< the current one
    /// Asks, deletes the marked row, tells. False when nothing was deleted.
    bool DeleteMarkedRow();

    QTableView& View() const;  ///< the table that shows the rows

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    class CellDelegate;
    class GuardedSelection;
    class RowHeader;
    class Table;
    struct State;

    void SetUpTable();
    void ForwardEnter(int column);
    void LeaveWithFocus(QWidget* from, QWidget* to);

    std::unique_ptr<State> state_;
};
