// What a model expects when a row is stored.

#include "model.h"

#include <variant>

namespace jet::test {

/// What the indexes refuse.
std::set<ErrorNumber> ModelTable::KeyErrors(const Row& row, const Row* before) const {
    std::set<ErrorNumber> errors;
    for (std::size_t i = 0; i < design_.indexes.size(); ++i) {
        const IndexDesign& index = design_.indexes[i];
        for (std::size_t column : indexColumns_[i]) {
            const bool flag = design_.columns[column].type == ColumnType::Boolean;
            if ((index.primary || index.required) && row[column].IsNull() && !flag) {
                errors.insert(ErrorNumber::NullKey);
            }
        }
        if (!index.unique) continue;
        const auto key = KeyOf(i, row);
        const bool same = before != nullptr && key == KeyOf(i, *before);
        if (key && !same && state_.keys.contains(i) && state_.keys.at(i).contains(*key)) {
            errors.insert(ErrorNumber::DuplicateKey);
        }
    }
    return errors;
}

/// What the columns refuse.
std::set<ErrorNumber> ModelTable::ColumnErrors(const Row& row, const Row* before) const {
    std::set<ErrorNumber> errors;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const auto* text = std::get_if<std::string>(&row[i].Held());
        const bool changed = before == nullptr || !(row[i] == (*before)[i]);
        const ColumnType type = design_.columns[i].type;
        const bool needed = rules_.columns[i].required && type != ColumnType::Boolean;
        if (changed && needed && row[i].IsNull()) errors.insert(ErrorNumber::RequiredField);
        if (changed && text != nullptr && text->empty() && !rules_.columns[i].allowZeroLength) {
            errors.insert(ErrorNumber::ZeroLength);
        }
        if (text == nullptr || !changed || text->find("λ") == std::string::npos) continue;
        if (version_ == 3) errors.insert(ErrorNumber::TypeMismatch);
        if (version_ == 4 && indexed_.contains(i)) errors.insert(ErrorNumber::CollationUnknown);
    }
    return errors;
}

/// Within what limits the row's bytes lie.
ModelTable::Size ModelTable::SizeOf(const Row& row) const {
    Size size{0, 60};
    for (std::size_t i = 0; i < row.size(); ++i) {
        const ColumnType type = design_.columns[i].type;
        const auto* text = std::get_if<std::string>(&row[i].Held());
        const auto* bytes = std::get_if<Bytes>(&row[i].Held());
        if (text != nullptr && type == ColumnType::Text) {
            size.least += text->size() / 2;
            size.most += 2 * text->size() + 4;
        } else if (type == ColumnType::Binary && bytes != nullptr) {
            size.least += bytes->size();
            size.most += bytes->size() + 2;
        } else if (type == ColumnType::Memo || type == ColumnType::Ole) {
            size.most += 90;
        } else {
            size.most += 18;
        }
    }
    return size;
}

/// The errors that storing `row` must give, by the rules alone.
ModelTable::Outcome ModelTable::Expected(const Row& row, const Row* before) const {
    Outcome outcome{KeyErrors(row, before)};
    outcome.errors.merge(ColumnErrors(row, before));
    const std::size_t largest = version_ == 3 ? 2012 : 4060;
    const Size size = SizeOf(row);
    outcome.certain = size.most <= largest;
    if (size.least > largest) outcome.errors.insert(ErrorNumber::FieldTooLong);
    return outcome;
}

}  // namespace jet::test
