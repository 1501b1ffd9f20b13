#include "jet/query/expression.h"

#include "jet/error.h"
#include "jet/query/criterion.h"
#include "jet/query/expressiontokens.h"
#include "jet/table/convert.h"
#include "jet/table/decimal.h"
#include "jet/table/names.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <compare>
#include <ctime>

namespace jet::detail {
namespace {

Date LocalNow() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    if (localtime_r(&now, &local) == nullptr) return {};
    using namespace std::chrono;
    const year_month_day today{year{local.tm_year + 1900},
                               month{static_cast<unsigned>(local.tm_mon + 1)},
                               day{static_cast<unsigned>(local.tm_mday)}};
    const auto days = (sys_days{today} - sys_days{year{1899} / December / 30}).count();
    const int seconds = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
    return {static_cast<double>(days) + seconds / 86400.0};
}

/// "#12/31/2000#" has the month first, whatever the country; "#2000-12-31#" is read as well.
std::optional<Date> DateLiteral(const std::string& text) {
    std::array<std::string, 3> parts;
    std::size_t part = 0, at = 0;
    for (; at < text.size() && text[at] != ' '; ++at) {
        if (text[at] == '/') {
            if (++part == parts.size()) return std::nullopt;
        } else {
            parts[part] += text[at];
        }
    }
    if (part == 0) return ParseDate(text);
    return ParseDate(parts[2] + "-" + parts[0] + "-" + parts[1] + text.substr(at));
}

std::optional<double> NumberOf(const Value& value) {
    try {
        return value.Number();
    } catch (const Error&) {
        return std::nullopt;
    }
}

/// Nothing where one of them is null, or they cannot be compared.
std::partial_ordering Compare(const Value& one, const Value& other) {
    if (one.IsNull() || other.IsNull()) return std::partial_ordering::unordered;
    const auto* text = std::get_if<std::string>(&one.Held());
    const auto* otherText = std::get_if<std::string>(&other.Held());
    if (text != nullptr && otherText != nullptr) return TextKey(*text) <=> TextKey(*otherText);
    const auto number = NumberOf(one), otherNumber = NumberOf(other);
    if (!number || !otherNumber) return std::partial_ordering::unordered;
    // A single's 0.1 is the 0.1 of the text, not the double nearest to the single.
    const auto narrow = [](const Value& value) {
        return std::holds_alternative<float>(value.Held());
    };
    if (narrow(one) != narrow(other)) {
        return static_cast<float>(*number) <=> static_cast<float>(*otherNumber);
    }
    return *number <=> *otherNumber;
}

using Kind = TokenKind;
using Token = ExpressionToken;
using Test = Rule::Test;
using Operand = std::function<Value(const Rule::Fields&)>;

Test Compared(Operand left, const std::string& symbol, Operand right) {
    return [left = std::move(left), right = std::move(right),
            symbol](const Rule::Fields& field) -> std::optional<bool> {
        const std::partial_ordering order = Compare(left(field), right(field));
        if (order == std::partial_ordering::unordered) return std::nullopt;
        if (symbol == "=") return order == 0;
        if (symbol == "<>") return order != 0;
        if (symbol == "<") return order < 0;
        if (symbol == "<=") return order <= 0;
        return symbol == ">" ? order > 0 : order >= 0;
    };
}

Test Not(Test test) {
    return [test = std::move(test)](const Rule::Fields& field) -> std::optional<bool> {
        const auto result = test(field);
        return result ? std::optional(!*result) : std::nullopt;
    };
}

/// The first that is `decisive` decides; else the other, or nothing where one is not known.
Test Joined(Test one, Test other, bool decisive) {
    return [one = std::move(one), other = std::move(other),
            decisive](const Rule::Fields& field) -> std::optional<bool> {
        const auto first = one(field), second = other(field);
        if (first == decisive || second == decisive) return decisive;
        if (!first || !second) return std::nullopt;
        return !decisive;
    };
}

class Parser {
  public:
    Parser(std::string_view text, ExpressionScope scope)
        : tokens_(TokensOf(text)), scope_(std::move(scope)) {}

    Test WholeRule() {
        Test test = Or();
        ExpectEnd();
        return test;
    }
    Value WholeConstant() {
        AcceptSymbol("=");
        const auto constant = Constant();
        if (!constant) NotUnderstood();
        ExpectEnd();
        return *constant;
    }
    const std::vector<std::size_t>& Columns() const { return columns_; }

  private:
    static constexpr std::size_t kMaxDepth = 50, kMaxTerms = 500;

    Test Or() {
        Test test = And();
        while (AcceptWord("or")) test = Joined(std::move(test), And(), true);
        return test;
    }
    Test And() {
        Test test = Negation();
        while (AcceptWord("and")) test = Joined(std::move(test), Negation(), false);
        return test;
    }
    Test Negation() {
        if (++terms_ > kMaxTerms) NotUnderstood();
        return AcceptWord("not") ? Not(Negation()) : Term();
    }
    Test Term() {
        if (Current().text == "(" && Current().kind == Kind::Symbol && !ParenthesisIsOperand()) {
            Take();
            if (++depth_ > kMaxDepth) NotUnderstood();
            Test test = Or();
            --depth_;
            ExpectSymbol(")");
            return test;
        }
        if (BeginsTest()) return TestOf(Own());
        Operand left = TakeOperand();
        if (BeginsTest()) return TestOf(std::move(left));
        // A constant alone is what the own column must be.
        return Compared(Own(), "=", std::move(left));
    }
    /// "(Products.Discontinued) = No": what stands behind the bracket's end is a test of it.
    bool ParenthesisIsOperand() const {
        std::size_t at = next_, open = 0;
        do {
            if (IsSymbol(at, "(")) ++open;
            if (IsSymbol(at, ")")) --open;
            ++at;
        } while (open > 0 && at < tokens_.size());
        return open == 0 && at < tokens_.size() && BeginsTestAt(at);
    }
    bool IsSymbol(std::size_t at, std::string_view symbol) const {
        return at < tokens_.size() && tokens_[at].kind == Kind::Symbol &&
               tokens_[at].text == symbol;
    }
    bool IsWord(std::size_t at, std::string_view word) const {
        return at < tokens_.size() && tokens_[at].kind == Kind::Word &&
               FoldName(tokens_[at].text) == word;
    }
    static bool IsComparison(const Token& token) {
        constexpr std::string_view kComparisons[] = {"=", "<>", "<", "<=", ">", ">="};
        return token.kind == Kind::Symbol &&
               std::ranges::find(kComparisons, token.text) != std::end(kComparisons);
    }
    bool BeginsTestAt(std::size_t at) const {
        if (IsComparison(tokens_[at]) || IsWord(at, "is")) return true;
        const std::size_t word = IsWord(at, "not") ? at + 1 : at;
        return IsWord(word, "between") || IsWord(word, "in");
    }
    bool BeginsTest() const { return BeginsTestAt(next_); }

    Test TestOf(Operand left) {
        if (AcceptWord("is")) {
            const bool no = AcceptWord("not");
            if (!AcceptWord("null")) NotUnderstood();
            return [left = std::move(left), no](const Rule::Fields& field) -> std::optional<bool> {
                return left(field).IsNull() != no;
            };
        }
        const bool no = AcceptWord("not");
        Test test;
        if (AcceptWord("between")) {
            Operand low = TakeOperand();
            if (!AcceptWord("and")) NotUnderstood();
            Test notBelow = Compared(left, ">=", std::move(low));
            test =
                Joined(std::move(notBelow), Compared(std::move(left), "<=", TakeOperand()), false);
        } else if (AcceptWord("in")) {
            ExpectSymbol("(");
            test = Compared(left, "=", TakeOperand());
            while (AcceptSymbol(",")) {
                if (++terms_ > kMaxTerms) NotUnderstood();
                test = Joined(std::move(test), Compared(left, "=", TakeOperand()), true);
            }
            ExpectSymbol(")");
        } else {
            const std::string symbol = Take().text;
            test = Compared(std::move(left), symbol, TakeOperand());
        }
        return no ? Not(std::move(test)) : test;
    }

    Operand Own() {
        if (!scope_.own) NotUnderstood();
        return Field(*scope_.own);
    }
    Operand Field(std::size_t position) {
        columns_.push_back(position);
        return [position](const Rule::Fields& field) { return field(position); };
    }
    Operand TakeOperand() {
        if (AcceptSymbol("(")) {
            if (++depth_ > kMaxDepth) NotUnderstood();
            Operand operand = TakeOperand();
            --depth_;
            ExpectSymbol(")");
            return operand;
        }
        if (const auto constant = Constant()) {
            return [value = *constant](const Rule::Fields&) { return value; };
        }
        return Field(TakeColumn());
    }
    std::size_t TakeColumn() {
        const auto isName = [&] {
            return Current().kind == Kind::Word || Current().kind == Kind::Bracketed;
        };
        if (!isName() || scope_.def == nullptr) NotUnderstood();
        std::string name = Take().text;
        if (AcceptSymbol(".")) {
            const bool known =
                std::any_of(scope_.qualifiers.begin(), scope_.qualifiers.end(),
                            [&](const std::string& allowed) { return SameName(allowed, name); });
            if (!known || !isName()) NotUnderstood();
            name = Take().text;
        }
        const auto position = scope_.def->PositionOf(name);
        if (!position) NotUnderstood();
        return *position;
    }

    std::optional<Value> Constant() {
        const bool negative = IsSymbol(next_, "-") && next_ + 1 < tokens_.size() &&
                              tokens_[next_ + 1].kind == Kind::Number;
        if (negative) Take();
        switch (Current().kind) {
            case Kind::Number: {
                const auto plain = PlainNumber(Take().text);
                if (!plain) NotUnderstood();
                return Value(DoubleOf(*plain) * (negative ? -1 : 1));
            }
            case Kind::Text:
                return Value(Take().text);
            case Kind::Date: {
                const auto date = DateLiteral(Take().text);
                if (!date) NotUnderstood();
                return Value(*date);
            }
            case Kind::Word:
                return NamedConstant();
            default:
                return std::nullopt;
        }
    }
    std::optional<Value> NamedConstant() {
        const std::string word = FoldName(Current().text);
        if (word == "true" || word == "yes" || word == "on") return Take(), Value(true);
        if (word == "false" || word == "no" || word == "off") return Take(), Value(false);
        if (word != "date" && word != "now") return std::nullopt;
        if (!IsSymbol(next_ + 1, "(") || !IsSymbol(next_ + 2, ")")) return std::nullopt;
        next_ += 3;
        const Date now = LocalNow();
        return Value(word == "now" ? now : Date{static_cast<double>(static_cast<int>(now.serial))});
    }

    bool AcceptSymbol(std::string_view symbol) {
        if (!IsSymbol(next_, symbol)) return false;
        Take();
        return true;
    }
    void ExpectSymbol(std::string_view symbol) {
        if (!AcceptSymbol(symbol)) NotUnderstood();
    }
    bool AcceptWord(std::string_view word) {
        if (!IsWord(next_, word)) return false;
        Take();
        return true;
    }
    void ExpectEnd() const {
        if (Current().kind != Kind::End) NotUnderstood();
    }
    const Token& Current() const { return tokens_[next_]; }
    Token Take() {
        if (Current().kind == Kind::End) NotUnderstood();
        return tokens_[next_++];
    }

    std::vector<Token> tokens_;
    ExpressionScope scope_;
    std::vector<std::size_t> columns_;
    std::size_t next_ = 0, depth_ = 0, terms_ = 0;
};

}  // namespace

std::optional<Rule> Rule::Parse(std::string_view text, const ExpressionScope& scope) {
    try {
        Parser parser(text, scope);
        Test test = parser.WholeRule();
        return Rule(std::move(test), parser.Columns());
    } catch (const Error&) {
        return std::nullopt;
    }
}

std::optional<Value> EvaluateDefault(std::string_view text) {
    try {
        return Parser(text, ExpressionScope()).WholeConstant();
    } catch (const Error&) {
        return std::nullopt;
    }
}

}  // namespace jet::detail
