#pragma once
// Which holdings a name or a fund number from outside is for.

#include "fundfile/rules/openholding.h"

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Of the holdings that it was made from, by their places among them.
class FundNames {
  public:
    FundNames() = default;
    explicit FundNames(std::span<const OpenHolding> holdings);

    /// Whatever its case, also where the file keeps the name cut.
    const std::vector<std::size_t>& WithName(std::string_view name) const;
    /// Whatever blanks it has. A number that stands for none names nobody.
    const std::vector<std::size_t>& WithNumber(std::string_view number) const;
    /// Either, in the order of the holdings.
    std::vector<std::size_t> With(std::string_view nameOrNumber) const;
    /// A number says more than a name; where funds share it, the name tells them apart.
    std::vector<std::size_t> With(std::string_view number, std::string_view name) const;

  private:
    std::map<std::string, std::vector<std::size_t>, std::less<>> names_, numbers_;
};
