#pragma once
// A table of texts: rows to walk through and to choose, captions to sort by, and room for one field
// that is typed in. Knows nothing of what they mean.

#include <QRect>
#include <QTableView>

#include <memory>
#include <string>
#include <vector>

class QKeyEvent;
class QResizeEvent;
class QShowEvent;
class QWidget;

struct TextColumn {
    std::string caption = {};
    bool number = false;  ///< stands at the right
    int widthShare = 1;
    std::string longest = {};  ///< a text that the column shows whole, as it does its caption
};

/// How a row is drawn. Quiet: in faint letters; Doubted: on amber; Sum: in bold.
enum class RowTone { Plain, Quiet, Doubted, Sum };

struct TextRow {
    std::vector<std::string> cells;
    RowTone tone = RowTone::Plain;
    bool operator==(const TextRow&) const = default;
};

/// Arrows, Home, End and Page keys walk; Enter and a double click choose; the digits 1 to 9 press
/// the caption of that column. A text that does not fit is cut and stands whole in its tooltip.
class TextTable : public QTableView {
    Q_OBJECT

  public:
    explicit TextTable(QWidget* parent = nullptr);
    ~TextTable() override;

    void SetColumns(std::vector<TextColumn> columns);
    /// The current row keeps its number, as far as there are rows.
    void SetRows(std::vector<TextRow> rows);
    const std::vector<TextRow>& Rows() const;
    int CurrentRow() const;  ///< -1: none
    void SetCurrentRow(int row);
    /// The sign in the caption that says what the rows are sorted by; none for -1.
    void ShowOrder(int column, Qt::SortOrder order);
    /// A field that stands over that column of the current row and is typed in.
    void SetField(QWidget* field, int column);
    QRect CellArea(int row, int column) const;  ///< in the viewport
    void LayOutColumns();

  signals:
    void CurrentRowMoved(int row);  ///< by key or mouse
    void RowPressed(int row);       ///< by mouse, the current one again, too
    void Chosen(int row);
    void CaptionPressed(int column);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int across, int down) override;
    void updateGeometries() override;
    void currentChanged(const QModelIndex& current, const QModelIndex& before) override;

  private:
    void Prepare();
    void PlaceField();
    void LayOutRows();
    int NeededWidth(int column) const;
    std::vector<int> ColumnWidths() const;

    class Model;
    std::unique_ptr<Model> model_;
    QWidget* field_ = nullptr;
    int fieldColumn_ = 0;
    bool filling_ = false;
    bool fittingRows_ = false;
};
