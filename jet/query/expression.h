#pragma once
// Expressions that a file keeps as text: rules for values, filters of saved queries, default
// values. The simple ones are understood; any other is known not to be, and never guessed.

#include "jet/table/tabledef.h"
#include "jet/value.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace jet::detail {

/// Which columns an expression can speak of, and by which names.
struct ExpressionScope {
    const TableDef* def = nullptr;
    std::optional<std::size_t> own;       ///< the column that "> 0" alone speaks of
    std::vector<std::string> qualifiers;  ///< what may stand before a column's name and a dot
};

/// A condition on one row:
///
///     rule       = and { "Or" and }          and = not { "And" not }      not = [ "Not" ] term
///     term       = "(" rule ")" | [ operand ] test | operand
///     test       = ( "=" | "<>" | "<" | "<=" | ">" | ">=" ) operand | "Is" [ "Not" ] "Null"
///                | [ "Not" ] "Between" operand "And" operand | [ "Not" ] "In" "(" operands ")"
///     operand    = column | number | text | #date# | True | False | Yes | No | Date() | Now()
///
/// A literal alone must be equal to the own column. A comparison with null is neither true nor
/// false. Texts are compared without regard to letter case and blanks at their end.
class Rule {
  public:
    /// Nothing when the text is not of this kind.
    static std::optional<Rule> Parse(std::string_view text, const ExpressionScope& scope);

    /// The positions of the columns that it looks at.
    const std::vector<std::size_t>& Columns() const { return columns_; }
    /// Whether it is true for a row; `field` gives the value at a position.
    using Fields = std::function<Value(std::size_t)>;
    bool Holds(const Fields& field) const { return test_(field) == true; }

    using Test = std::function<std::optional<bool>(const Fields&)>;

  private:
    Rule(Test test, std::vector<std::size_t> columns)
        : test_(std::move(test)), columns_(std::move(columns)) {}
    Test test_;
    std::vector<std::size_t> columns_;
};

/// The value of a constant, or of Date() and Now() at this moment (local time), an equals sign in
/// front or not. Nothing for any other text.
std::optional<Value> EvaluateDefault(std::string_view text);

}  // namespace jet::detail
