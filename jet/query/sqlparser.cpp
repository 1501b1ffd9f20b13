#include "jet/query/sqlparser.h"

#include "jet/error.h"
#include "jet/storage/bytes.h"
#include "jet/table/names.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace jet::detail {
namespace {

enum class TokenKind { Name, BracketedName, Number, Text, Symbol, End };

struct Token {
    TokenKind kind = TokenKind::End;
    std::string text;
    std::size_t at = 0;
};

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Every byte of a character beyond ASCII counts as a letter.
bool BeginsName(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
           static_cast<std::uint8_t>(c) >= 0x80;
}
bool ContinuesName(char c) {
    return BeginsName(c) || IsDigit(c) || c == '%';
}

// One of the two is quoted: what follows the place, or at the end all that stands before it.
[[noreturn]] void Fail(std::string_view query, std::size_t at, std::string_view expected) {
    const std::string_view rest = query.substr(at);
    const std::string place =
        rest.empty() ? " at the end of the query: " + Excerpt(query)
                     : " at byte " + Decimal(at) + ", before \"" + Excerpt(rest) + "\"";
    throw Error{ErrorNumber::SyntaxError, "expected " + std::string(expected) + place};
}

class Lexer {
  public:
    explicit Lexer(std::string_view query) : query_(query) {}

    std::vector<Token> Tokens() {
        std::vector<Token> tokens;
        do {
            tokens.push_back(Next());
        } while (tokens.back().kind != TokenKind::End);
        return tokens;
    }

  private:
    Token Next() {
        while (at_ < query_.size() && IsBlank(query_[at_])) ++at_;
        const std::size_t start = at_;
        if (at_ == query_.size()) return {TokenKind::End, "", start};
        const char c = query_[at_];
        if (BeginsName(c))
            return Take(TokenKind::Name, [](char next) { return ContinuesName(next); });
        if (IsDigit(c) || (c == '.' && at_ + 1 < query_.size() && IsDigit(query_[at_ + 1]))) {
            return TakeNumber();
        }
        if (c == '[') return TakeBracketed();
        if (c == '\'' || c == '"') return TakeText(c);
        ++at_;
        return {TokenKind::Symbol, std::string(1, c), start};
    }

    template <typename Belongs>
    Token Take(TokenKind kind, Belongs belongs) {
        const std::size_t start = at_;
        while (at_ < query_.size() && belongs(query_[at_])) ++at_;
        return {kind, std::string(query_.substr(start, at_ - start)), start};
    }

    Token TakeNumber() {
        Token number = Take(TokenKind::Number, [](char c) { return IsDigit(c) || c == '.'; });
        const bool onePoint = std::count(number.text.begin(), number.text.end(), '.') <= 1;
        const bool runsOn = at_ < query_.size() && ContinuesName(query_[at_]);
        if (!onePoint || number.text.back() == '.' || runsOn) Fail(query_, number.at, "a number");
        return number;
    }

    Token TakeBracketed() {
        const std::size_t start = at_++;
        const std::size_t end = query_.find(']', at_);
        if (end == std::string_view::npos || end == at_) Fail(query_, start, "a name in [ ]");
        at_ = end + 1;
        return {TokenKind::BracketedName, std::string(query_.substr(start + 1, end - start - 1)),
                start};
    }

    Token TakeText(char quote) {
        Token text{TokenKind::Text, "", at_++};
        for (;;) {
            const std::size_t end = query_.find(quote, at_);
            if (end == std::string_view::npos) Fail(query_, text.at, "the end of a text");
            text.text += query_.substr(at_, end - at_);
            at_ = end + 1;
            if (at_ == query_.size() || query_[at_] != quote) return text;
            text.text += quote;
            ++at_;
        }
    }

    std::string_view query_;
    std::size_t at_ = 0;
};

bool IsKeyword(std::string_view word) {
    constexpr std::string_view kKeywords[] = {"select", "delete", "from", "where",
                                              "order",  "by",     "asc",  "desc"};
    const std::string folded = FoldName(word);
    return std::find(std::begin(kKeywords), std::end(kKeywords), folded) != std::end(kKeywords);
}

class Parser {
  public:
    Parser(std::string_view query, std::vector<Token> tokens)
        : query_(query), tokens_(std::move(tokens)) {}
    explicit Parser(std::string_view query) : Parser(query, Lexer(query).Tokens()) {}

    std::variant<Select, Delete> Statement() {
        if (AcceptWord("select")) return SelectRest();
        if (AcceptWord("delete")) return DeleteRest();
        Expected("SELECT or DELETE");
    }

    Comparison WholeComparison() {
        Comparison comparison = TakeComparison();
        ExpectEnd();
        return comparison;
    }

    std::string WholeColumn() {
        std::string column = AcceptSymbol('*') ? "*" : TakeName();
        ExpectEnd();
        return column;
    }

  private:
    Select SelectRest() {
        Select select;
        if (!AcceptSymbol('*')) {
            do {
                select.fields.push_back(TakeName());
            } while (AcceptSymbol(','));
        }
        ExpectWord("from");
        select.source = TakeName();
        select.where = AcceptWhere();
        if (AcceptWord("order")) {
            ExpectWord("by");
            do {
                select.order.push_back(TakeOrderTerm());
            } while (AcceptSymbol(','));
        }
        ExpectEnd();
        return select;
    }

    Delete DeleteRest() {
        Delete deletion;
        AcceptSymbol('*');
        ExpectWord("from");
        deletion.source = TakeName();
        deletion.where = AcceptWhere();
        ExpectEnd();
        return deletion;
    }

    std::optional<Comparison> AcceptWhere() {
        if (!AcceptWord("where")) return std::nullopt;
        return TakeComparison();
    }

    Comparison TakeComparison() {
        Comparison comparison;
        comparison.field = TakeName();
        if (!AcceptSymbol('=')) Expected("=");
        comparison.literal = TakeLiteral();
        return comparison;
    }

    OrderTerm TakeOrderTerm() {
        OrderTerm term{TakeName(), false};
        if (!AcceptWord("asc")) term.descending = AcceptWord("desc");
        return term;
    }

    Literal TakeLiteral() {
        if (Current().kind == TokenKind::Text) return {true, Take().text};
        const bool negative = AcceptSymbol('-');
        if (Current().kind != TokenKind::Number) Expected("a number or a text in quotes");
        return {false, (negative ? "-" : "") + Take().text};
    }

    std::string TakeName() {
        const bool isName = Current().kind == TokenKind::BracketedName ||
                            (Current().kind == TokenKind::Name && !IsKeyword(Current().text));
        if (!isName) Expected("a name");
        return Take().text;
    }

    bool AcceptWord(std::string_view word) {
        if (Current().kind != TokenKind::Name || FoldName(Current().text) != word) return false;
        Take();
        return true;
    }
    void ExpectWord(std::string_view word) {
        if (!AcceptWord(word)) Expected(word);
    }
    bool AcceptSymbol(char symbol) {
        if (Current().kind != TokenKind::Symbol || Current().text[0] != symbol) return false;
        Take();
        return true;
    }
    void ExpectEnd() {
        if (Current().kind != TokenKind::End) Expected("the end");
    }

    const Token& Current() const { return tokens_[next_]; }
    Token Take() { return std::move(tokens_[next_++]); }
    [[noreturn]] void Expected(std::string_view what) const { Fail(query_, Current().at, what); }

    std::string_view query_;
    std::vector<Token> tokens_;
    std::size_t next_ = 0;
};

bool IsSymbol(const Token& token, char symbol) {
    return token.kind == TokenKind::Symbol && token.text[0] == symbol;
}

// Parentheses carry no meaning around the parts of one comparison; the source in front of a name
// says nothing new.
Parser SavedParser(std::string_view expression, std::string_view source) {
    std::vector<Token> tokens = Lexer(expression).Tokens();
    std::erase_if(tokens, [](const Token& t) { return IsSymbol(t, '(') || IsSymbol(t, ')'); });
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        const bool qualifies = IsSymbol(tokens[i + 1], '.') && SameName(tokens[i].text, source);
        if (!qualifies) continue;
        const auto first = tokens.begin() + static_cast<std::ptrdiff_t>(i);
        tokens.erase(first, first + 2);
    }
    return {expression, std::move(tokens)};
}

template <typename Parse>
auto SupportedOnly(std::string_view expression, Parse parse) {
    try {
        return parse();
    } catch (const Error&) {
        throw Error{ErrorNumber::NotSupported,
                    "saved query with expression " + Excerpt(expression)};
    }
}

}  // namespace

std::variant<Select, Delete> ParseStatement(std::string_view sql) {
    return Parser(sql).Statement();
}

bool IsSelect(std::string_view source) {
    constexpr std::string_view kSelect = "select";
    const auto first = std::find_if_not(source.begin(), source.end(), IsBlank);
    source.remove_prefix(static_cast<std::size_t>(first - source.begin()));
    if (FoldName(source.substr(0, kSelect.size())) != kSelect) return false;
    source.remove_prefix(kSelect.size());
    return source.empty() || !ContinuesName(source.front());
}

Comparison ParseCriterion(std::string_view criterion) {
    return Parser(criterion).WholeComparison();
}

Comparison ParseSavedCriterion(std::string_view expression, std::string_view source) {
    return SupportedOnly(expression,
                         [&] { return SavedParser(expression, source).WholeComparison(); });
}

std::string ParseSavedColumn(std::string_view expression, std::string_view source) {
    return SupportedOnly(expression, [&] { return SavedParser(expression, source).WholeColumn(); });
}

}  // namespace jet::detail
