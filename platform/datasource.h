#pragma once
// A record set that procedures, grids and bound fields share, with its current row.

#include "jet/database.h"
#include "jet/recordset.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

class QString;

/// `dtaBasData`, `dtaPlott`, `dtaSQL`. One current row for everybody: code that moves it moves the
/// grid. Calls on a source without a record set throw ObjectNotSet (91); the engine's errors pass
/// through. Work that a view starts (a grid, a bound field) has no caller
/// that could catch: views use Guard.
class DataSource : public QObject {
    Q_OBJECT

  public:
    DataSource(std::string name, std::string caption, QObject* parent = nullptr);
    ~DataSource() override;

    const std::string& Name() const;     ///< "dtaBasData"
    const std::string& Caption() const;  ///< "BasData"

    /// Where Refresh opens the record source: the database, already open. Null unbinds.
    void SetDatabase(std::shared_ptr<jet::Database> database);
    /// A table's name or a SELECT text; used from the next Refresh on.
    void SetRecordSource(std::string source);
    /// Gives it a record set that is open already; null detaches (views become empty).
    /// Either way the views are told by Refreshed. SetRecordSource ends the use of a given one.
    void SetRecordSet(std::shared_ptr<jet::RecordSet> records);

    /// Opens the record source anew; the first row becomes current. Rows are read only when
    /// somebody looks. A source that was given a record set requeries that one. When the record
    /// source cannot be opened, the source is left detached, the views are told so,
    /// and the Error passes on.
    void Refresh();
    /// Lets go of record set and database, without closing the database for others; never throws.
    void Close() noexcept;

    bool IsAttached() const;
    jet::RecordSet&
    Records();  ///< for reading; move and edit through the calls below, which tell the views

    bool Empty();
    bool Eof();
    std::int32_t RecordCount();
    std::int32_t Position();
    /// The moves and FindFirst tell CurrentRowChanged only when another row became current.
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void Move(std::int32_t rows);
    void MoveTo(std::int32_t position);
    bool FindFirst(std::string_view criterion);
    jet::Value Field(std::size_t position);
    jet::Value Field(std::string_view name);
    /// AddNew, Edit and Set tell nobody: views follow when the row is stored or given up.
    void AddNew();
    void Edit();
    bool Pending() const;
    void Set(std::size_t position, jet::Value value);
    void Set(std::string_view name, jet::Value value);
    void Update();  ///< tells RowStored, then CurrentRowChanged
    void CancelUpdate();
    void Delete();  ///< tells RowDeleted, then CurrentRowChanged

    /// Update and Delete hand what stores the row to `through`, which runs it together with what
    /// follows from it, whoever asked for it. None: it is run as it is.
    using Through = std::function<void(const std::function<void()>& store)>;
    void StoreThrough(Through through);

    /// Runs `work`; an Error becomes Failed(number, what). True when it went well.
    bool Guard(const std::function<void()>& work);

  signals:
    void Refreshed();          ///< other rows, or none: views start again
    void CurrentRowChanged();  ///< another row, or other values in it after Update
    void RowStored();          ///< after Update; the stored row is current, Position() tells where
    void RowDeleted(int position);  ///< after Delete; where the row was
    void Failed(int number, const QString& what);

  private:
    void Moving(const std::function<void(jet::RecordSet&)>& move);
    void Store(const std::function<void()>& store);

    struct State;
    std::unique_ptr<State> state_;
};
