#pragma once
// A data source as an item model, with an empty last row for new data; while a new row is typed the
// next empty one stands under it. Reads only the cells somebody looks at.

#include "jet/value.h"
#include "widgets/entryfield.h"

#include <QAbstractTableModel>
#include <QPointer>
#include <QVariant>

#include <map>
#include <optional>
#include <string>
#include <vector>

class DataSource;

struct GridColumn {
    std::string caption = {};
    std::string field = {};  ///< the column's name in the record set
    bool locked = false;
    int decimals = -1;            ///< shown with so many; -1: as many as there are
    CharacterFilter filter = {};  ///< what may be typed; none: everything
    TextFilter pasteFilter = {};  ///< what a pasted text becomes; none: what may be typed of it
    std::string enterKeys = {};   ///< key strokes that Enter becomes; "": Enter moves on itself
    int widthShare = 1;
};

/// A value as the user reads and types it: decimal comma, dates as yyyy-mm-dd. `decimals` -1: as
/// many as there are.
std::string ShownText(const jet::Value& value, int decimals = -1);

/// The row being typed lives here, as texts, until it is stored.
class RecordSetModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    explicit RecordSetModel(QObject* parent = nullptr);

    void SetDataSource(DataSource* source);
    void SetColumns(std::vector<GridColumn> columns);
    const std::vector<GridColumn>& Columns() const;
    /// While asleep it has no rows and asks the data source nothing; waking starts again.
    void SetAwake(bool awake);
    void Reload();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    bool IsNewRow(int row) const;         ///< the empty last row, or the new one being typed
    std::optional<int> TypedRow() const;  ///< the row that has typed cells not yet stored
    /// What was typed into a field of the row being typed; none where nothing was.
    std::optional<std::string> Typed(const std::string& field) const;
    /// A cell of the new row has a text that is not taken over yet: the row counts as typed only
    /// when it is, but the next empty row stands under it already.
    void SetNewRowBegun(bool begun);
    /// As if the user had typed it; any field of the record set, shown or not.
    void Type(int row, const std::string& field, std::string text);
    std::string TextAt(int row, const std::string& field) const;  ///< typed, else stored
    /// Adds or edits the row; false when it could not be stored: it stays typed,
    /// the data source has reported.
    bool Store();
    void Forget();
    /// While the data source tells why the row is not stored: the column that cannot hold its text.
    std::optional<int> RefusedColumn() const;

  private:
    struct Typing {
        int row = 0;
        std::map<std::string, std::string> texts;
    };
    void FindRows();
    bool NewRowTyped() const;
    std::string RowName(int row) const;
    std::string Spoken(const QModelIndex& cell, int role) const;
    void UpdateSecondEmptyRow();
    std::optional<std::size_t> Position(const std::string& field) const;
    QVariant Alignment(std::size_t column) const;
    std::string StoredText(int row, std::optional<std::size_t> position, int decimals) const;
    void WriteTyping(const Typing& typing);
    void Write(const std::string& field, const std::string& text);
    void ShowRow(int row);
    void RowStored(int position);
    void RowDeleted(int position);

    QPointer<DataSource> source_;
    std::vector<GridColumn> columns_;
    std::vector<std::optional<std::size_t>> positions_;  ///< of the columns in the record set
    std::optional<Typing> typing_;
    int storedRows_ = -1;  ///< -1: no record set, no rows at all
    bool newRowBegun_ = false;
    bool secondEmptyRow_ = false;
    bool awake_ = false;
    bool writing_ = false;
    std::optional<std::string> refusedField_;
};
