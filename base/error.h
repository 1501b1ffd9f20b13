#pragma once
// The one exception type of the program, which is the engine's, and the numbers that the program
// adds to it. Knows no texts for the user.

#include "jet/error.h"

using jet::Error;
using jet::ErrorNumber;

inline constexpr ErrorNumber kDivisionByZero{11};
inline constexpr ErrorNumber kObjectNotSet{91};
inline constexpr ErrorNumber kPrinterError{482};

/// Runs one statement at a time and swallows its `Error`, remembering the number of the last one.
/// A later statement that succeeds leaves the remembered number as it is.
class Skipping {
  public:
    template <typename Statement>
    void operator()(Statement&& statement) {
        try {
            statement();
        } catch (const Error& error) {
            number_ = error.Number();
        }
    }
    ErrorNumber Number() const noexcept { return number_; }

  private:
    ErrorNumber number_ = ErrorNumber::None;
};
