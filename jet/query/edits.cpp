#include "jet/query/edits.h"

#include "jet/error.h"

#include <algorithm>
#include <map>
#include <unordered_set>

namespace jet::detail {
namespace {

using NewValues = std::span<const std::optional<Value>>;

/// A row's key in a relation; nothing where it refers to nothing, or nothing can refer to it.
using Key = std::optional<std::vector<Value>>;

constexpr std::size_t kMaxCascades = 20;

bool IsAt(const RelationEnd& end, const OpenTable& table) {
    return end.table == table.Def().page;
}

Key KeyIn(const RelationEnd& end, const OpenTable& table, RowPointer row) {
    std::vector<Value> key;
    const RowView view = table.Store().Read(row);
    for (const std::size_t position : end.positions) {
        key.push_back(DecodeColumn(table.Store().File(), table.Def().columns[position], view));
        if (key.back().IsNull()) return std::nullopt;
    }
    return key;
}

Key KeyIn(const RelationEnd& end, std::span<const Value> values) {
    std::vector<Value> key;
    for (const std::size_t position : end.positions) {
        key.push_back(values[position]);
        if (key.back().IsNull()) return std::nullopt;
    }
    return key;
}

std::string Describe(const Relation& relation, const std::vector<Value>& key) {
    std::string text = "relation " + relation.name + ": " + relation.referencing.name +
                       " refers to " + relation.referenced.name + " by ";
    for (std::size_t i = 0; i < key.size(); ++i) {
        text += (i > 0 ? ", " : "") + Excerpt(key[i].Text());
    }
    return text;
}

[[noreturn]] void ThrowFlaw(const Relation& relation) {
    throw Error{ErrorNumber::NotSupported,
                "relation " + relation.name + " cannot be followed: " + relation.flaw};
}

void RequireParent(Engine& engine, const Relation& relation, const Key& key) {
    if (!key) return;
    OpenTable& parents = engine.TableAt(relation.referenced.table);
    if (!parents.RowsWithKey(relation.referenced.index, *key).empty()) return;
    throw Error{ErrorNumber::RelatedRowMissing, Describe(relation, *key) + ", which is not there"};
}

std::vector<std::uint32_t> RowsReferringTo(Engine& engine, const Relation& relation,
                                           const Key& key) {
    if (!key) return {};
    return engine.TableAt(relation.referencing.table).RowsWithKey(relation.referencing.index, *key);
}

bool Touches(const RelationEnd& end, const OpenTable& table, RowPointer row, NewValues values) {
    return std::any_of(end.positions.begin(), end.positions.end(), [&](std::size_t position) {
        return values[position] && *values[position] != table.Store().Field(row, position);
    });
}

/// An update and all that follow from it.
class Update {
  public:
    explicit Update(Engine& engine) : engine_(engine) {}

    void Run(OpenTable& table, RowPointer row, NewValues values) {
        std::vector<Moved> moved;
        std::vector<const Relation*> checked;
        for (const Relation& relation : engine_.Relations()) {
            const bool from = IsAt(relation.referencing, table) &&
                              Touches(relation.referencing, table, row, values);
            const bool to = IsAt(relation.referenced, table) &&
                            Touches(relation.referenced, table, row, values);
            if ((from || to) && !relation.flaw.empty()) ThrowFlaw(relation);
            if (from) checked.push_back(&relation);
            if (to) moved.push_back({&relation, KeyIn(relation.referenced, table, row)});
        }
        CheckRules(table, row, values);
        table.Update(row, values);
        for (const Moved& key : moved) Follow(table, row, key);
        // Afterwards, since the row may refer to itself.
        for (const Relation* relation : checked) {
            RequireParent(engine_, *relation, KeyIn(relation->referencing, table, row));
        }
    }

  private:
    struct Moved {
        const Relation* relation;
        Key before;
    };

    void CheckRules(OpenTable& table, RowPointer row, NewValues values) {
        engine_.RulesOf(table).CheckUpdate(
            values, [&](std::size_t position) { return table.Store().Field(row, position); });
    }

    void Follow(OpenTable& table, RowPointer row, const Moved& moved) {
        const Relation& relation = *moved.relation;
        // Some row still has the key: perhaps this one, whose text changed in letter case alone.
        if (!moved.before) return;
        if (!table.RowsWithKey(relation.referenced.index, *moved.before).empty()) return;
        const auto rows = RowsReferringTo(engine_, relation, moved.before);
        if (rows.empty()) return;
        const Key after = KeyIn(relation.referenced, table, row);
        if (!relation.cascadeUpdates || !after) {
            throw Error{ErrorNumber::RelatedRecords,
                        Describe(relation, *moved.before) + ", which was to change"};
        }
        if (++depth_ > kMaxCascades) {
            throw Error{ErrorNumber::NotSupported,
                        "relation " + relation.name + ": a change that leads on without end"};
        }
        OpenTable& others = engine_.TableAt(relation.referencing.table);
        std::vector<std::optional<Value>> values(others.Def().columns.size());
        for (std::size_t i = 0; i < after->size(); ++i) {
            values[relation.referencing.positions[i]] = (*after)[i];
        }
        for (const std::uint32_t other : rows) Run(others, RowPointer::FromPacked(other), values);
        --depth_;
    }

    Engine& engine_;
    std::size_t depth_ = 0;
};

/// Finds out all rows that go before the first one does.
class Deletion {
  public:
    explicit Deletion(Engine& engine) : engine_(engine) {}

    void Add(OpenTable& table, std::span<const std::uint32_t> rows) {
        Doomed& doomed = doomed_[table.Def().page];
        std::vector<std::uint32_t> added;
        for (const std::uint32_t row : rows) {
            if (doomed.known.insert(row).second) added.push_back(row);
        }
        if (added.empty()) return;
        doomed.rows.insert(doomed.rows.end(), added.begin(), added.end());
        for (const Relation& relation : engine_.Relations()) {
            if (!IsAt(relation.referenced, table)) continue;
            if (!relation.flaw.empty()) ThrowFlaw(relation);
            for (const std::uint32_t row : added) {
                Follow(relation, KeyIn(relation.referenced, table, RowPointer::FromPacked(row)));
            }
        }
    }

    void Run() {
        for (const Forbidding& one : forbidding_) {
            if (doomed_[one.relation->referencing.table].known.contains(one.row)) continue;
            throw Error{ErrorNumber::RelatedRecords,
                        Describe(*one.relation, one.key) + ", which was to be deleted"};
        }
        for (const auto& [page, doomed] : doomed_) engine_.TableAt(page).RequireSoundOnce();
        for (const auto& [page, doomed] : doomed_) engine_.TableAt(page).Delete(doomed.rows);
    }

  private:
    struct Doomed {
        std::vector<std::uint32_t> rows;
        std::unordered_set<std::uint32_t> known;
    };
    /// A row that forbids the deletion unless it goes as well.
    struct Forbidding {
        const Relation* relation;
        std::vector<Value> key;
        std::uint32_t row;
    };

    void Follow(const Relation& relation, const Key& key) {
        const auto rows = RowsReferringTo(engine_, relation, key);
        if (relation.cascadeDeletes) {
            Add(engine_.TableAt(relation.referencing.table), rows);
            return;
        }
        for (const std::uint32_t row : rows) forbidding_.push_back({&relation, *key, row});
    }

    Engine& engine_;
    std::map<std::uint32_t, Doomed> doomed_;
    std::vector<Forbidding> forbidding_;
};

}  // namespace

RowPointer InsertRow(Engine& engine, OpenTable& table, std::vector<Value> values) {
    engine.RulesOf(table).CheckInsert(values);
    std::vector<const Relation*> toItself;
    for (const Relation& relation : engine.Relations()) {
        if (!IsAt(relation.referencing, table)) continue;
        if (!relation.flaw.empty()) ThrowFlaw(relation);
        if (IsAt(relation.referenced, table)) {
            toItself.push_back(&relation);
        } else {
            RequireParent(engine, relation, KeyIn(relation.referencing, values));
        }
    }
    const RowPointer row = table.Insert(std::move(values));
    for (const Relation* relation : toItself) {
        RequireParent(engine, *relation, KeyIn(relation->referencing, table, row));
    }
    return row;
}

void UpdateRow(Engine& engine, OpenTable& table, RowPointer row, NewValues values) {
    Update(engine).Run(table, row, values);
}

void DeleteRows(Engine& engine, OpenTable& table, std::span<const std::uint32_t> rows) {
    const auto& relations = engine.Relations();
    const bool alone = std::none_of(relations.begin(), relations.end(),
                                    [&](const Relation& r) { return IsAt(r.referenced, table); });
    if (alone) {
        table.Delete(rows);
        return;
    }
    Deletion deletion(engine);
    deletion.Add(table, rows);
    deletion.Run();
}

}  // namespace jet::detail
