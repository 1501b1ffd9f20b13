#pragma once
// A query with its names looked up: which table, which columns, which rows, in which order.

#include "jet/query/engine.h"
#include "jet/query/expression.h"
#include "jet/query/opentable.h"
#include "jet/query/ordering.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace jet::detail {

struct QueryPlan {
    OpenTable* table = nullptr;         ///< lives as long as its Engine
    std::vector<std::size_t> fields;    ///< positions in TableDef::columns
    std::vector<Condition> conditions;  ///< all must hold
    std::vector<Rule> filters;          ///< and all of these
    std::vector<OrderColumn> order;     ///< none = stored order

    /// Packed pointers of the plan's rows, in that order.
    std::vector<std::uint32_t> Rows(const Ordering& ordering) const;
};

/// For a SELECT text, or the name of a table or saved query. Throws SyntaxError, TableNotFound,
/// TooFewParameters (a name that is no column), TypeMismatch, NotSupported.
QueryPlan PlanSource(Engine& engine, std::string_view source);

/// For a DELETE text; fields and order stay empty.
QueryPlan PlanDelete(Engine& engine, std::string_view sql);

/// For "field = literal" on rows of `table`.
Condition PlanCriterion(Engine& engine, OpenTable& table, std::string_view criterion);

}  // namespace jet::detail
