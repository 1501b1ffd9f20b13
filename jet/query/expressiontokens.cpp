#include "jet/query/expressiontokens.h"

#include "jet/error.h"

namespace jet::detail {
namespace {

using Kind = TokenKind;
using Token = ExpressionToken;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool BelongsToWord(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || IsDigit(c) ||
           static_cast<std::uint8_t>(c) >= 0x80;
}

class Lexer {
  public:
    explicit Lexer(std::string_view text) : text_(text) {}

    std::vector<Token> Tokens() {
        std::vector<Token> tokens;
        do {
            tokens.push_back(Next());
        } while (tokens.back().kind != Kind::End);
        return tokens;
    }

  private:
    Token Next() {
        while (at_ < text_.size() && (text_[at_] == ' ' || (text_[at_] >= 9 && text_[at_] <= 13))) {
            ++at_;
        }
        if (at_ == text_.size()) return {};
        const char c = text_[at_];
        if (c == '[') return Until(Kind::Bracketed, ']');
        if (c == '#') return Until(Kind::Date, '#');
        if (c == '"' || c == '\'') return Quoted(c);
        if (IsDigit(c) || (c == '.' && at_ + 1 < text_.size() && IsDigit(text_[at_ + 1]))) {
            return While(Kind::Number, [](char d) { return IsDigit(d) || d == '.'; });
        }
        if (BelongsToWord(c)) return While(Kind::Word, BelongsToWord);
        for (const std::string_view symbol : {"<>", "<=", ">="}) {
            if (text_.substr(at_, 2) != symbol) continue;
            at_ += 2;
            return {Kind::Symbol, std::string(symbol)};
        }
        ++at_;
        return {Kind::Symbol, std::string(1, c)};
    }
    template <typename Belongs>
    Token While(Kind kind, Belongs belongs) {
        const std::size_t start = at_;
        while (at_ < text_.size() && belongs(text_[at_])) ++at_;
        return {kind, std::string(text_.substr(start, at_ - start))};
    }
    Token Until(Kind kind, char end) {
        const std::size_t start = at_ + 1, stop = text_.find(end, start);
        if (stop == std::string_view::npos) NotUnderstood();
        at_ = stop + 1;
        return {kind, std::string(text_.substr(start, stop - start))};
    }
    Token Quoted(char quote) {
        Token token{Kind::Text, ""};
        ++at_;
        for (;;) {
            const std::size_t end = text_.find(quote, at_);
            if (end == std::string_view::npos) NotUnderstood();
            token.text += text_.substr(at_, end - at_);
            at_ = end + 1;
            if (at_ == text_.size() || text_[at_] != quote) return token;
            token.text += quote;
            ++at_;
        }
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace

void NotUnderstood() {
    throw Error{ErrorNumber::NotSupported, "an expression that is not understood"};
}

std::vector<ExpressionToken> TokensOf(std::string_view text) {
    return Lexer(text).Tokens();
}

}  // namespace jet::detail
