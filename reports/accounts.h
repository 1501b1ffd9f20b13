#pragma once
// The accounts of the open fund file.

#include <string>
#include <vector>

class DataSource;

/// Their names, as DistinctAccounts orders them. The first holding becomes the current one.
std::vector<std::string> AccountNames(DataSource& holdings);
