#pragma once
// What is made of a typed cell of the holdings grid, what a row must have to be stored, and what
// the log keeps of a deleted one.

#include "fundfile/rules/holding.h"

#include <optional>
#include <string>
#include <string_view>

/// A name of 25 characters or more becomes its first 23 and "..".
std::string CellName(std::string_view typed);

/// A number of more than 5 characters becomes its first 3, a blank and its last 3.
std::string CellFundNumber(std::string_view typed);

/// A typed number as it is stored: without the blanks between its groups of three, nothing as
/// nothing. None when it is no number.
std::optional<std::string> CellNumber(std::string_view typed);

/// A row saved without a fund number gets the summary row's.
std::string FundNumberOrDefault(std::string_view fondNr);

/// VärdeKr: Fondandelar x KursKr, without digits that neither factor has;
/// nothing while one is missing.
std::optional<double> RowValue(std::optional<double> shares, std::optional<double> price);

enum class Missing { Nothing, Name, Price, Date };

/// The first thing that keeps a row from being stored: no name, no price above 0, or no date.
Missing MissingIn(const HoldingRow& row);

/// The log entry of a deleted row; `today` is today's date text.
std::string DeletionEntry(const HoldingRow& row, std::string_view today);
