#include "entry/rules/fundnames.h"

#include "base/text.h"
#include "entry/rules/cells.h"

#include <algorithm>
#include <iterator>

namespace {

const std::vector<std::size_t> kNobody;

std::string WithoutBlanks(std::string_view text) {
    std::string number(text);
    std::erase(number, ' ');
    return number;
}

const std::vector<std::size_t>& In(
    const std::map<std::string, std::vector<std::size_t>, std::less<>>& all,
    const std::string& key) {
    const auto found = key.empty() ? all.end() : all.find(key);
    return found == all.end() ? kNobody : found->second;
}

}  // namespace

FundNames::FundNames(std::span<const OpenHolding> holdings) {
    for (std::size_t i = 0; i < holdings.size(); ++i) {
        names_[LowerCase(holdings[i].fond)].push_back(i);
        numbers_[WithoutBlanks(holdings[i].fondNr)].push_back(i);
    }
}

const std::vector<std::size_t>& FundNames::WithName(std::string_view name) const {
    return In(names_, LowerCase(CellName(name)));
}

const std::vector<std::size_t>& FundNames::WithNumber(std::string_view number) const {
    return In(numbers_, WithoutBlanks(number));
}

std::vector<std::size_t> FundNames::With(std::string_view nameOrNumber) const {
    const auto &byName = WithName(nameOrNumber), &byNumber = WithNumber(nameOrNumber);
    std::vector<std::size_t> both;
    std::set_union(byName.begin(), byName.end(), byNumber.begin(), byNumber.end(),
                   std::back_inserter(both));
    return both;
}

std::vector<std::size_t> FundNames::With(std::string_view number, std::string_view name) const {
    const bool noNumber = WithoutBlanks(number) == WithoutBlanks(kSummaryFondNr);
    const auto& byNumber = noNumber ? kNobody : WithNumber(number);
    const auto& byName = WithName(name);
    if (byNumber.empty()) return byName;
    std::vector<std::size_t> both;
    std::set_intersection(byNumber.begin(), byNumber.end(), byName.begin(), byName.end(),
                          std::back_inserter(both));
    return both.empty() ? byNumber : both;
}
