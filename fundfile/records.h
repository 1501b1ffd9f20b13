#pragma once
// Points and holdings between the file's records and the program's own types, whatever numeric or
// text types the file's columns have. Decides nothing about them.

#include "fundfile/rules/holding.h"
#include "fundfile/rules/point.h"
#include "jet/database.h"
#include "platform/datasource.h"

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

/// A holding's identity as its first column holds it; kFallbackKontoId where that is no number.
std::int32_t KontoIdOf(const jet::Value& firstColumn);
/// That of the current holding.
std::int32_t KontoIdOf(DataSource& holdings);

/// The current row as typed values: a pending one while it is edited. A column that holds something
/// else than its kind (a text that is no number, a date that is none) reads as empty.
HoldingRow ReadHolding(DataSource& holdings);
HoldingRow ReadHolding(jet::RecordSet& holdings);
/// All rows in record order, without moving.
std::vector<HoldingRow> ReadHoldings(DataSource& holdings);
std::vector<HoldingRow> ReadHoldings(jet::RecordSet& holdings);

/// The points of a record set whose first two columns are XCord and YCord, in its order. Points
/// without a day or a value are left out.
std::vector<CurvePoint> ReadPoints(jet::RecordSet& dayAndValue);
/// Only the values, in stored order.
std::vector<std::int32_t> ReadValues(jet::Database& database, std::int32_t kontoId);

/// Every holding's points by its KontoId, in the order in which they are stored: one pass over the
/// table. Points without a day, a value or a holding are left out.
std::map<std::int32_t, std::vector<CurvePoint>> ReadPointsByHolding(jet::Database& database);

bool HasPoints(jet::Database& database, std::int32_t kontoId);

struct NewPoint {
    std::string fondNr;
    CurvePoint point;
    std::int32_t kontoId = 0;
};

/// Adds a row to the record set of all points. Refreshing the source is the caller's.
void AddPoint(DataSource& points, const NewPoint& point);

/// Puts the point in place of every one of that day in a series, which is all points of its
/// holding; true when there was one. Several updates: joined by the caller's Transaction.
/// Refreshing a source is the caller's.
bool StoreDayPoint(jet::RecordSet& series, const NewPoint& point);
/// The same for several points, each of another day.
bool StoreDayPoints(jet::RecordSet& series, std::span<const NewPoint> points);

/// The number of points deleted. Refreshing a source is the caller's.
std::int32_t DeletePointsOf(jet::Database& database, std::int32_t kontoId);
