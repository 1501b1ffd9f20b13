#pragma once
// Changes the current row of a data source, whole or not at all.

#include "base/error.h"
#include "platform/datasource.h"

/// Runs `change` between Edit and Update. When anything fails, no half-changed row stays behind in
/// the shared record set, and the Error passes on.
template <typename Change>
void EditRow(DataSource& source, const Change& change) try {
    source.Edit();
    change(source);
    source.Update();
} catch (const Error&) {
    Skipping skip;
    skip([&] { source.CancelUpdate(); });
    throw;
}
