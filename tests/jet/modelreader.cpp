#include "modelreader.h"

#include <charconv>
#include <iterator>
#include <stdexcept>
#include <utility>
#include <variant>

namespace jet::test {
namespace {

std::string WithDigits(double number, int digits) {
    char buffer[64];
    const auto end =
        std::to_chars(buffer, std::end(buffer), number + 0.0, std::chars_format::general, digits);
    return {buffer, end.ptr};
}

std::string WithoutZeros(std::string decimal) {
    if (decimal.find('.') == std::string::npos) return decimal;
    decimal.erase(decimal.find_last_not_of('0') + 1);
    if (decimal.back() == '.') decimal.pop_back();
    return decimal == "-0" ? "0" : decimal;
}

constexpr int kSingleDigits = 6, kDoubleDigits = 10;

void AppendCharacter(std::string& text, unsigned character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | character >> 6);
        text += static_cast<char>(0x80 | (character & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | character >> 12);
        text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    }
}

}  // namespace

std::string Plain(const Value& value) {
    if (value.IsNull()) return "";
    if (const auto* single = std::get_if<float>(&value.Held())) {
        return WithDigits(static_cast<double>(*single), kSingleDigits);
    }
    if (const auto* number = std::get_if<double>(&value.Held())) {
        return WithDigits(*number, kDoubleDigits);
    }
    if (const auto* flag = std::get_if<bool>(&value.Held())) return *flag ? "1" : "0";
    if (std::holds_alternative<Currency>(value.Held()) ||
        std::holds_alternative<Numeric>(value.Held())) {
        return WithoutZeros(value.Text());
    }
    return value.Text();
}

std::string Plain(const std::string& printed, ColumnType type) {
    double number = 0;
    const char* end = printed.data() + printed.size();
    switch (type) {
        case ColumnType::Single:
        case ColumnType::Double:
            if (printed.empty()) return "";
            std::from_chars(printed.data(), end, number);
            return WithDigits(number, type == ColumnType::Single ? kSingleDigits : kDoubleDigits);
        case ColumnType::Currency:
        case ColumnType::Numeric:
            return WithoutZeros(printed);
        case ColumnType::Date:
            return printed.ends_with(" 00:00:00") ? printed.substr(0, printed.size() - 9) : printed;
        default:
            return printed;
    }
}

bool JsonReader::AtEnd() {
    while (at_ < text_.size() && text_[at_] == '\n') ++at_;
    return at_ >= text_.size();
}

std::map<std::string, std::string> JsonReader::Row() {
    std::map<std::string, std::string> row;
    Take('{');
    while (text_[at_] != '}') {
        std::string name = String();
        Take(':');
        row.emplace(std::move(name), Item());
        if (text_[at_] == ',') ++at_;
    }
    Take('}');
    return row;
}

void JsonReader::Take(char wanted) {
    if (at_ >= text_.size() || text_[at_] != wanted) {
        throw std::runtime_error("unreadable line of the other reader at " + text_.substr(at_, 40));
    }
    ++at_;
}

std::string JsonReader::Item() {
    if (text_[at_] == '"') return String();
    if (text_[at_] == '{') {
        at_ = text_.find('}', at_) + 1;
        return "binary";
    }
    const std::size_t begin = at_;
    at_ = text_.find_first_of(",}", at_);
    return text_.substr(begin, at_ - begin);
}

std::string JsonReader::String() {
    Take('"');
    std::string text;
    while (text_.at(at_) != '"') {
        if (text_[at_] == '\\') {
            text += Escaped();
        } else {
            text += text_[at_++];
        }
    }
    Take('"');
    return text;
}

std::string JsonReader::Escaped() {
    const char escaped = text_.at(at_ + 1);
    at_ += 2;
    if (escaped == 'u') {
        unsigned character = 0;
        std::from_chars(&text_.at(at_), &text_.at(at_) + 4, character, 16);
        at_ += 4;
        std::string text;
        AppendCharacter(text, character);
        return text;
    }
    static const std::map<char, char> kControls = {
        {'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'b', '\b'}, {'f', '\f'}};
    const auto control = kControls.find(escaped);
    return {control == kControls.end() ? escaped : control->second};
}

}  // namespace jet::test
