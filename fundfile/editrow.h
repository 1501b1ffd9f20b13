#pragma once
// Changes the current row of a data source or record set, whole or not at all.

#include "base/error.h"

/// Runs `change` between Edit and Update. When anything fails, no half-changed row stays behind in
/// the shared record set, and the Error passes on.
template <typename Rows, typename Change>
void EditRow(Rows& source, const Change& change) try {
    source.Edit();
    change(source);
    source.Update();
} catch (const Error&) {
    Skipping skip;
    skip([&] { source.CancelUpdate(); });
    throw;
}
