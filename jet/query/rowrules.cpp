#include "jet/query/rowrules.h"

#include "jet/error.h"
#include "jet/storage/bytes.h"

#include <utility>

namespace jet::detail {

RowRules::Checked RowRules::Prepare(const std::string& text, const std::string& told,
                                    const ExpressionScope& scope) {
    if (text.empty()) return {};
    return {text, told, Rule::Parse(text, scope)};
}

RowRules::RowRules(const TableDef& def, TableRules rules) : def_(&def), texts_(std::move(rules)) {
    for (std::size_t i = 0; i < texts_.columns.size(); ++i) {
        const ColumnRules& column = texts_.columns[i];
        ofColumns_.push_back(
            Prepare(column.validationRule, column.validationText, {&def, i, {def.name}}));
    }
    ofTable_ = Prepare(texts_.validationRule, texts_.validationText, {&def, {}, {def.name}});
}

Value RowRules::DefaultOf(std::size_t position) const {
    const std::string& text = texts_.columns[position].defaultValue;
    if (text.empty() || def_->columns[position].Autonumber()) return {};
    return EvaluateDefault(text).value_or(Value());
}

void RowRules::CheckValue(std::size_t position, const Value& value) const {
    const ColumnDef& column = def_->columns[position];
    const ColumnRules& rules = texts_.columns[position];
    if (value.IsNull() && rules.required && !column.Autonumber() &&
        column.Type() != ColumnType::Boolean) {
        throw Error{ErrorNumber::RequiredField,
                    def_->name + "." + column.name + " must have a value"};
    }
    const auto* text = std::get_if<std::string>(&value.Held());
    if (text != nullptr && text->empty() && column.IsText() && !rules.allowZeroLength) {
        throw Error{ErrorNumber::ZeroLength,
                    def_->name + "." + column.name + " must not be an empty text"};
    }
}

void RowRules::CheckRule(const Checked& checked, const std::string& what,
                         const Rule::Fields& fields) const {
    if (checked.text.empty()) return;
    if (!checked.rule) {
        throw Error{ErrorNumber::NotSupported,
                    what + ": its rule cannot be evaluated: " + Excerpt(checked.text)};
    }
    if (checked.rule->Holds(fields)) return;
    throw Error{ErrorNumber::ValidationRule,
                what + ": against its rule " + Excerpt(checked.text) +
                    (checked.told.empty() ? "" : " (" + Excerpt(checked.told) + ")")};
}

void RowRules::CheckInsert(std::span<const Value> values) const {
    const Rule::Fields fields = [&](std::size_t position) { return values[position]; };
    for (std::size_t i = 0; i < values.size(); ++i) {
        CheckValue(i, values[i]);
        CheckRule(ofColumns_[i], def_->name + "." + def_->columns[i].name, fields);
    }
    CheckRule(ofTable_, def_->name, fields);
}

void RowRules::CheckUpdate(std::span<const std::optional<Value>> values,
                           const Rule::Fields& stored) const {
    const Rule::Fields fields = [&](std::size_t position) {
        return values[position] ? *values[position] : stored(position);
    };
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!values[i] || *values[i] == stored(i)) continue;
        CheckValue(i, *values[i]);
        CheckRule(ofColumns_[i], def_->name + "." + def_->columns[i].name, fields);
    }
    CheckRule(ofTable_, def_->name, fields);
}

}  // namespace jet::detail
