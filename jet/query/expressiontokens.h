#pragma once
// The words of an expression that a file keeps as text. Knows no grammar.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jet::detail {

enum class TokenKind : std::uint8_t { Word, Bracketed, Number, Text, Date, Symbol, End };

struct ExpressionToken {
    TokenKind kind = TokenKind::End;
    std::string text;  ///< without its quotes, brackets or number signs
};

/// The last one is the end. Throws what NotUnderstood throws for a quote or bracket without an end.
std::vector<ExpressionToken> TokensOf(std::string_view text);

/// Throws NotSupported: the expression is not of the kind that is evaluated.
[[noreturn]] void NotUnderstood();

}  // namespace jet::detail
