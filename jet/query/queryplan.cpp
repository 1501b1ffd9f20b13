#include "jet/query/queryplan.h"

#include "jet/error.h"
#include "jet/query/sqlparser.h"

#include <algorithm>
#include <numeric>

namespace jet::detail {
namespace {

std::size_t Position(const Engine& engine, const OpenTable& table, std::string_view name) {
    if (const auto position = engine.ColumnPosition(table, name)) return *position;
    throw Error{ErrorNumber::TooFewParameters,
                "table " + table.Design().name + " has no column " + Excerpt(name)};
}

Condition ConditionFor(const Engine& engine, const OpenTable& table, const Comparison& comparison) {
    const std::size_t position = Position(engine, table, comparison.field);
    return {position, Criterion(table.Def().columns[position], comparison.literal)};
}

QueryPlan AllOf(OpenTable& table) {
    QueryPlan plan;
    plan.table = &table;
    plan.fields.resize(table.Def().columns.size());
    std::iota(plan.fields.begin(), plan.fields.end(), std::size_t{0});
    return plan;
}

// A comparison for equality goes by a list of where each value is; any other looks at each row.
void AddFilter(const Engine& engine, const std::string& filter, const std::string& source,
               QueryPlan& plan) {
    try {
        plan.conditions.push_back(
            ConditionFor(engine, *plan.table, ParseSavedCriterion(filter, source)));
        return;
    } catch (const Error& error) {
        if (error.Number() != ErrorNumber::NotSupported) throw;
    }
    auto rule = Rule::Parse(filter, {&plan.table->Def(), {}, {source}});
    if (!rule) {
        throw Error{ErrorNumber::NotSupported, "saved query with expression " + Excerpt(filter)};
    }
    plan.filters.push_back(*std::move(rule));
}

// What one saved query makes of the rows below it.
void Apply(const Engine& engine, const SavedQuery& query, QueryPlan& plan) {
    const std::string& source = query.alias.empty() ? query.source : query.alias;
    for (const std::string& filter : query.filters) AddFilter(engine, filter, source, plan);
    if (!query.order.empty()) plan.order.clear();
    for (const SavedQuery::Order& term : query.order) {
        const std::string name = ParseSavedColumn(term.expression, source);
        plan.order.push_back({Position(engine, *plan.table, name), term.descending});
    }
    if (query.allColumns) return;
    std::vector<std::size_t> fields;
    for (const SavedQuery::Output& output : query.outputs) {
        const std::string name = ParseSavedColumn(output.expression, source);
        if (name == "*") {
            fields.insert(fields.end(), plan.fields.begin(), plan.fields.end());
            continue;
        }
        // Fields go by their columns' names here, so another name for one cannot be honoured.
        if (!output.alias.empty()) {
            throw Error{ErrorNumber::NotSupported,
                        "saved query " + query.name + " renames " + name};
        }
        fields.push_back(Position(engine, *plan.table, name));
    }
    plan.fields = std::move(fields);
}

QueryPlan PlanName(Engine& engine, std::string_view name) {
    const std::string known = engine.Unalias(name);
    if (engine.HasTable(known) || !engine.Objects().HasQuery(known)) {
        return AllOf(engine.Table(known));
    }
    std::vector<SavedQuery> queries = engine.Objects().ResolveQuery(known);
    QueryPlan plan = AllOf(engine.Table(queries.back().source));
    std::for_each(queries.rbegin(), queries.rend(),
                  [&](const SavedQuery& query) { Apply(engine, query, plan); });
    return plan;
}

QueryPlan PlanSelect(Engine& engine, const Select& select) {
    QueryPlan plan = PlanName(engine, select.source);
    if (!select.fields.empty()) {
        std::vector<std::size_t> fields;
        for (const std::string& field : select.fields) {
            fields.push_back(Position(engine, *plan.table, field));
        }
        plan.fields = std::move(fields);
    }
    if (select.where) plan.conditions.push_back(ConditionFor(engine, *plan.table, *select.where));
    if (!select.order.empty()) plan.order.clear();
    for (const OrderTerm& term : select.order) {
        plan.order.push_back({Position(engine, *plan.table, term.field), term.descending});
    }
    return plan;
}

}  // namespace

std::vector<std::uint32_t> QueryPlan::Rows(const Ordering& ordering) const {
    std::vector<std::uint32_t> rows = table->Rows(conditions, ordering);
    if (filters.empty()) return rows;
    std::erase_if(rows, [&](std::uint32_t row) {
        const RowView view = table->Store().Read(RowPointer::FromPacked(row));
        const Rule::Fields valueAt = [&](std::size_t position) {
            return DecodeColumn(table->Store().File(), table->Def().columns[position], view);
        };
        return !std::all_of(filters.begin(), filters.end(),
                            [&](const Rule& filter) { return filter.Holds(valueAt); });
    });
    return rows;
}

QueryPlan PlanSource(Engine& engine, std::string_view source) {
    QueryPlan plan;
    if (IsSelect(source)) {
        const auto statement = ParseStatement(source);
        plan = PlanSelect(engine, std::get<Select>(statement));
    } else {
        plan = PlanName(engine, source);
    }
    if (plan.order.empty()) plan.order = plan.table->NaturalOrder();
    return plan;
}

QueryPlan PlanDelete(Engine& engine, std::string_view sql) {
    const auto statement = ParseStatement(sql);
    const Delete* deletion = std::get_if<Delete>(&statement);
    if (deletion == nullptr) {
        throw Error{ErrorNumber::SyntaxError, "no action to run: " + Excerpt(sql)};
    }
    QueryPlan plan = PlanName(engine, deletion->source);
    if (deletion->where) {
        plan.conditions.push_back(ConditionFor(engine, *plan.table, *deletion->where));
    }
    return plan;
}

Condition PlanCriterion(Engine& engine, OpenTable& table, std::string_view criterion) {
    return ConditionFor(engine, table, ParseCriterion(criterion));
}

}  // namespace jet::detail
