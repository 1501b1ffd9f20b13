#pragma once
// A plain picture in memory of what a file's tables hold, changed in step with the file through the
// public interface, and compared with it: through the interface, by Verify, and by another
// program's reader.

#include "jet/database.h"
#include "jet/error.h"
#include "jet/index/indexkey.h"
#include "jet/recordset.h"
#include "modelvalues.h"

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace jet::test {

/// The share of the changes that are asked for (KVARNBO_MODEL_CHANGES),
/// and the seed (KVARNBO_MODEL_SEED).
std::size_t ModelChanges(std::size_t percent);
unsigned ModelSeed();

/// One table: its rows in the record set's order.
class ModelTable {
  public:
    using Row = std::vector<Value>;
    /// What a rollback brings back.
    struct State {
        std::vector<Row> rows;
        std::map<std::size_t, std::set<Bytes>> keys;  ///< of each unique index
        std::optional<std::int32_t> lastNumber;       ///< autonumber, once it is known
    };

    ModelTable(const std::shared_ptr<Database>& file, const std::string& name,
               std::size_t targetRows);

    const std::string& Name() const { return name_; }
    std::size_t RowCount() const { return state_.rows.size(); }
    const State& Now() const { return state_; }

    /// One random change: a row added, edited or deleted, or found.
    void Step(Random& random);
    /// Deletes by a query text all rows with one of the values that a column has.
    void DeleteByQuery(Database& file, Random& random);
    /// Goes back to an earlier state after the file has.
    void Restore(State state);
    /// Looks at the file anew: another record set over the same rows.
    void Attach(const std::shared_ptr<Database>& file);
    /// Finds the rows anew; they come in the table's own order.
    void Requery();
    /// Whether changes elsewhere may change this table's rows.
    bool Related() const { return related_; }
    /// Takes over the rows as they are in the file now, after changes in a related table.
    void Reread();
    /// Compares every value.
    void Check();
    /// Compares with what the other reader prints. Columns in which it prints something else than
    /// the untouched file holds (it has limits of its own) are left out by `Learn`, once.
    void LearnReader(const std::filesystem::path& path);
    void CheckReader(const std::filesystem::path& path) const;
    std::size_t ColumnsLeftOut() const { return leftOut_.size(); }

  private:
    void AddRow(Random& random);
    void EditRow(Random& random);
    void DeleteRow(Random& random);
    void FindRow(Random& random);
    bool SetColumns(Row& row, Random& random);
    void TakeNumbers(Row& row);
    /// Stores the pending row; true when it was stored. Compares the outcome with what had to come.
    bool Store(const Row& row, const Row* before);
    /// What storing a row must come to; not certain where it hangs on a few bytes.
    struct Outcome {
        std::set<ErrorNumber> errors;
        bool certain = true;
    };
    struct Size {
        std::size_t least = 0, most = 0;
    };
    Outcome Expected(const Row& row, const Row* before) const;
    std::set<ErrorNumber> KeyErrors(const Row& row, const Row* before) const;
    std::set<ErrorNumber> ColumnErrors(const Row& row, const Row* before) const;
    Size SizeOf(const Row& row) const;
    bool HasUnknownKey(const Row& row) const;
    std::optional<Bytes> KeyOf(std::size_t index, const Row& row) const;
    void Enter(const Row& row);
    void Leave(const Row& row);
    void CheckRow(std::size_t at);
    void Adopt();
    std::vector<std::vector<std::string>> ReaderRows(const std::filesystem::path& path) const;

    std::string name_;
    TableDesign design_;
    TableRules rules_;
    int version_;
    std::size_t targetRows_;
    std::vector<std::vector<std::size_t>> indexColumns_;
    std::vector<std::vector<detail::KeyColumn>> keyColumns_;
    std::optional<std::size_t> primary_, autonumber_;
    bool related_ = false;
    std::set<std::size_t> indexed_, leftOut_;
    std::shared_ptr<RecordSet> set_;
    State state_;
};

/// A file and the tables of it that are changed.
class ModelFile {
  public:
    ModelFile(std::filesystem::path path, std::size_t targetRows, unsigned seed);
    /// Runs sequences until that many changes were made; stops at the first failed expectation.
    void Run(std::size_t changes);

  private:
    /// The tables of one sequence; they may be one and the same.
    struct Chosen {
        ModelTable& table;
        ModelTable& other;
    };
    std::size_t Sequence();
    void StepsInVain(const Chosen& chosen, std::size_t count, unsigned kind);
    void StepsSpoiled(ModelTable& table, std::size_t count);
    void StepsTogether(const Chosen& chosen, std::size_t count, unsigned kind);
    void Steps(ModelTable& table, std::size_t count);
    void Reopen();
    void CheckEverything(bool allTables);

    std::filesystem::path path_;
    Random random_;
    std::shared_ptr<Database> file_;
    std::vector<ModelTable> tables_;
    std::vector<ModelTable*> touched_;
};

}  // namespace jet::test
