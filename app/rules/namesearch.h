#pragma once
// Finding a fund in the list by the letters of its name.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Letters typed one after another, without a pause between them, are the beginning of one name;
/// one letter typed again and again goes through the names that begin with it.
class NameSearch {
  public:
    /// `milliseconds` is when the letter was typed, on any clock.
    void Type(std::string_view letter, std::uint64_t milliseconds);

    /// The index of the line to go to from the line at `start`, searching on and round from there;
    /// nothing where no name begins like that. Lines are those of the fund list: " 8. Granvassa".
    std::optional<std::size_t> Find(const std::vector<std::string>& lines, std::size_t start) const;

    /// What is typed may still be the name of the line one stands on.
    bool MayStay() const;

  private:
    std::string typed_;          ///< in lower case
    std::string letter_;         ///< the last one
    bool sameLetter_ = true;     ///< all of them are that letter
    std::uint64_t lastKey_ = 0;  ///< when
};
