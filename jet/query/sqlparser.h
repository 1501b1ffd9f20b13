#pragma once
// Query texts -> what they ask for. Knows the dialect of SQL.md and nothing of tables: names are
// not looked up here. Anything outside the dialect throws SyntaxError.

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace jet::detail {

/// A constant in a query: a number in the form that std::from_chars reads, or a text.
struct Literal {
    bool isText = false;
    std::string value;
    bool operator==(const Literal&) const = default;
};

struct Comparison {
    std::string field;
    Literal literal;
    bool operator==(const Comparison&) const = default;
};

struct OrderTerm {
    std::string field;
    bool descending = false;
    bool operator==(const OrderTerm&) const = default;
};

struct Select {
    std::vector<std::string> fields;  ///< none = all
    std::string source;
    std::optional<Comparison> where;
    std::vector<OrderTerm> order;
    bool operator==(const Select&) const = default;
};

struct Delete {
    std::string source;
    std::optional<Comparison> where;
    bool operator==(const Delete&) const = default;
};

std::variant<Select, Delete> ParseStatement(std::string_view sql);

/// Whether a text begins as a SELECT does; anything else that is not one is the name of a source.
bool IsSelect(std::string_view source);

/// "KontoId = 5"
Comparison ParseCriterion(std::string_view criterion);

/// Expressions of saved queries say a little more: brackets around parts, and the source in front
/// of a column's name. They throw NotSupported where a query text would be a syntax error.
Comparison ParseSavedCriterion(std::string_view expression, std::string_view source);
/// A column's name, or "*".
std::string ParseSavedColumn(std::string_view expression, std::string_view source);

}  // namespace jet::detail
