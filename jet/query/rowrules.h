#pragma once
// What the columns of a table ask of a row's values, ready to be checked: a value that must be
// there, a text that must not be empty, rules, and the values of a new row that nobody gave.

#include "jet/design.h"
#include "jet/query/expression.h"
#include "jet/table/tabledef.h"
#include "jet/value.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace jet::detail {

class RowRules {
  public:
    /// `def` is looked at as long as the rules live.
    RowRules(const TableDef& def, TableRules rules);

    const TableRules& Texts() const { return texts_; }

    /// The value that a column of a new row has before anybody gives it one; null where the file
    /// says none, or by an expression that is not a constant, Date() or Now().
    Value DefaultOf(std::size_t position) const;

    /// Throws RequiredField, ZeroLength, ValidationRule, and NotSupported where a rule that cannot
    /// be evaluated would have to be. An update is asked for the columns whose value changes, and
    /// for a rule of the whole table; `stored` gives the others' values.
    void CheckInsert(std::span<const Value> values) const;
    void CheckUpdate(std::span<const std::optional<Value>> values,
                     const Rule::Fields& stored) const;

  private:
    struct Checked {
        std::string text;  ///< empty = no rule
        std::string told;  ///< what the file says when it is broken
        std::optional<Rule> rule;
    };
    static Checked Prepare(const std::string& text, const std::string& told,
                           const ExpressionScope& scope);
    void CheckValue(std::size_t position, const Value& value) const;
    void CheckRule(const Checked& checked, const std::string& what,
                   const Rule::Fields& fields) const;

    const TableDef* def_;
    TableRules texts_;
    std::vector<Checked> ofColumns_;
    Checked ofTable_;
};

}  // namespace jet::detail
