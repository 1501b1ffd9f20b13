#pragma once
// What another program's reader prints of a table, in one form with what a model holds.

#include "jet/value.h"

#include <map>
#include <string>

namespace jet::test {

/// One form for what a value is and for what the reader prints:
/// an empty text and null look alike there.
std::string Plain(const Value& value);
std::string Plain(const std::string& printed, ColumnType type);

/// Reads the lines {"name":value,...} of one table.
class JsonReader {
  public:
    /// `text` outlives it.
    explicit JsonReader(const std::string& text) : text_(text) {}

    bool AtEnd();
    std::map<std::string, std::string> Row();

  private:
    void Take(char wanted);
    std::string Item();
    std::string String();
    /// What stands for the characters behind a backslash.
    std::string Escaped();

    const std::string& text_;
    std::size_t at_ = 0;
};

}  // namespace jet::test
