#pragma once
// The table in which a grid shows its rows: its looks, and what keys do where no cell is edited.

#include "widgets/gridevents.h"
#include "widgets/gridrowheader.h"

#include <QTableView>

class GridCells;
class QKeyEvent;
class RecordSetModel;

class GridTable : public QTableView {
    Q_OBJECT

  public:
    /// All of them outlive the table's use.
    GridTable(RecordSetModel& model, GridCells& cells, const GridEvents& events, SignOfRow signOf,
              QWidget* parent);

    void LayOutRows();
    void LayOutColumns();
    /// As if the key had been pressed here.
    void Stroke(QKeyEvent* key);

  signals:
    void RowsLaidOut();  ///< their height may be another
    void MarkPressed();
    void DeletePressed();
    void EnterPressed();
    void EscapePressed(QKeyEvent* key);

  protected:
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void focusInEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void SetColours();
    bool Passes(int column, const QKeyEvent& event) const;
    void PasteIntoCell(QKeyEvent* event);

    const RecordSetModel& model_;
    GridCells& cells_;
    const GridEvents& events_;
};
