#pragma once
// The cell of a grid that is being edited: opens a field over it, takes the text over when the cell
// is left, and says with which key it was left.

#include "widgets/gridevents.h"

#include <QPointer>
#include <QStyledItemDelegate>

class EntryField;
class QAbstractItemView;
class QHelpEvent;
class QKeyEvent;
class RecordSetModel;

/// How a cell was opened: what is typed replaces its text, or its text is edited.
enum class CellOpening { Typing, Editing };

class GridCells : public QStyledItemDelegate {
    Q_OBJECT

  public:
    /// Both outlive the cells.
    GridCells(const RecordSetModel& model, const GridEvents& events);

    QWidget* Editor() const;  ///< null while no cell is edited
    void OpenedBy(CellOpening opening);
    /// Takes over what was typed and closes. False when the cell may not be left: it has the focus,
    /// with what was typed, unless that was rewritten.
    bool Finish();
    bool GiveUp();  ///< closes, the cell keeps its text; false when none was open

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    /// A text that is cut stands whole in its tooltip.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

  signals:
    void Typed();                 ///< the open cell has a text of its own
    void LeftBy(QKeyEvent* key);  ///< the cell is closed; what the key does is still to be done

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool LeavesCell(const EntryField& editor, const QKeyEvent& key) const;

    const RecordSetModel& model_;
    const GridEvents& events_;
    mutable QPointer<QWidget> editor_;
    mutable CellChange taken_;  ///< what the cell made of the text that was taken over last
    bool finishing_ = false;
    CellOpening opening_ = CellOpening::Editing;
};
