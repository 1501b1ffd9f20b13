#include "jet/catalog/querytext.h"

#include "jet/table/names.h"

#include <algorithm>
#include <functional>
#include <set>
#include <vector>

namespace jet::detail {
namespace {

/// By the flag of a query's first row.
enum class QueryKind {
    Select = 1,
    MakeTable = 2,
    Append = 3,
    Update = 4,
    Delete = 5,
    Crosstab = 6,
    Definition = 7,
    PassThrough = 8,
    Union = 9
};
constexpr std::int32_t kLeftJoin = 2, kRightJoin = 3;

std::string Bracketed(const std::string& name) {
    const bool plain = std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
               c == '_' || static_cast<std::uint8_t>(c) >= 0x80;
    });
    return plain ? name : "[" + name + "]";
}

class Writer {
  public:
    explicit Writer(std::span<const QueryRow> rows) : rows_(rows) {
        for (const QueryRow& row : rows_) {
            if (row.Is(Attribute::Kind)) kind_ = &row;
            if (row.Is(Attribute::Options)) options_ = row.flag;
        }
    }

    std::string Text() const {
        switch (kind_ == nullptr ? QueryKind::Select : static_cast<QueryKind>(kind_->flag)) {
            case QueryKind::Definition:
            case QueryKind::PassThrough:
                return kind_->expression.substr(0, kind_->expression.find('\0'));
            case QueryKind::Union:
                return List(Attribute::Source, " UNION ",
                            [](const auto& r) { return r.expression; }) +
                       Order();
            case QueryKind::Update:
                return "UPDATE " + From() + " SET " + List(Attribute::Output, ", ", Assignment) +
                       Where();
            case QueryKind::Delete:
                return "DELETE " + Outputs() + " FROM " + From() + Where();
            case QueryKind::Append:
                return "INSERT INTO " + Bracketed(kind_->name1) + " " + Selection("");
            case QueryKind::MakeTable:
                return Selection(" INTO " + Bracketed(kind_->name1));
            case QueryKind::Select:
            case QueryKind::Crosstab:
                break;
        }
        return Selection("");
    }

  private:
    std::string List(Attribute of, std::string_view separator,
                     const std::function<std::string(const QueryRow&)>& text) const {
        std::string list;
        for (const QueryRow& row : rows_) {
            if (!row.Is(of)) continue;
            if (!list.empty()) list += separator;
            list += text(row);
        }
        return list;
    }
    static std::string Assignment(const QueryRow& row) {
        return (row.name2.empty() ? row.name1 : row.name2) + " = " + row.expression;
    }
    static std::string Output(const QueryRow& row) {
        return row.expression + (row.name1.empty() ? "" : " AS " + Bracketed(row.name1));
    }
    static std::string Expression(const QueryRow& row) { return row.expression; }

    std::string Outputs() const {
        const std::string list = List(Attribute::Output, ", ", Output);
        if ((options_ & kQueryAllColumns) == 0) return list;
        return list.empty() ? "*" : list + ", *";
    }

    std::string Selection(const std::string& into) const {
        std::string text = List(Attribute::Parameter, ", ",
                                [](const QueryRow& row) { return Bracketed(row.name1); });
        if (!text.empty()) text = "PARAMETERS " + text + "; ";
        text += "SELECT ";
        if ((options_ & kQueryDistinct) != 0) text += "DISTINCT ";
        if ((options_ & kQueryDistinctRow) != 0) text += "DISTINCTROW ";
        if ((options_ & kQueryTop) != 0) text += "TOP " + Top();
        return text + Outputs() + into + " FROM " + From() + Where() +
               Clause(" GROUP BY ", Attribute::GroupBy, ", ") +
               Clause(" HAVING ", Attribute::Having, " AND ") + Order();
    }
    std::string Top() const {
        std::string number;
        for (const QueryRow& row : rows_) {
            if (row.Is(Attribute::Options)) number = row.name1;
        }
        return number + ((options_ & kQueryPercent) != 0 ? " PERCENT " : " ");
    }
    std::string Clause(std::string_view word, Attribute of, std::string_view separator) const {
        const std::string list = List(of, separator, Expression);
        return list.empty() ? list : std::string(word) + list;
    }
    std::string Where() const { return Clause(" WHERE ", Attribute::Where, " AND "); }
    std::string Order() const {
        const std::string list = List(Attribute::OrderBy, ", ", [](const QueryRow& row) {
            return row.expression + (SameName(row.name1, "D") ? " DESC" : "");
        });
        return list.empty() ? list : " ORDER BY " + list;
    }

    /// Joined sources inside each other, the others behind commas.
    std::string From() const {
        std::string text;
        std::set<std::string> joined;
        for (const QueryRow& row : rows_) {
            if (!row.Is(Attribute::Join)) continue;
            const std::string word = row.flag == kLeftJoin    ? " LEFT JOIN "
                                     : row.flag == kRightJoin ? " RIGHT JOIN "
                                                              : " INNER JOIN ";
            const std::string on = " ON " + row.expression;
            const bool hasFirst = joined.contains(row.name1),
                       hasSecond = joined.contains(row.name2);
            if (hasFirst != hasSecond) {
                text = "(" + text + ")" + word + Bracketed(hasFirst ? row.name2 : row.name1) + on;
            } else {
                text += (text.empty() ? "" : ", ") + Bracketed(row.name1) + word +
                        Bracketed(row.name2) + on;
            }
            joined.insert({row.name1, row.name2});
        }
        for (const QueryRow& row : rows_) {
            const std::string& called = row.name2.empty() ? row.name1 : row.name2;
            if (!row.Is(Attribute::Source) || joined.contains(called)) continue;
            text += (text.empty() ? "" : ", ") + Bracketed(row.name1) +
                    (row.name2.empty() ? "" : " AS " + Bracketed(row.name2));
        }
        return text;
    }

    std::span<const QueryRow> rows_;
    const QueryRow* kind_ = nullptr;
    std::int32_t options_ = 0;
};

}  // namespace

std::string QueryText(std::span<const QueryRow> rows) {
    return Writer(rows).Text();
}

}  // namespace jet::detail
