#pragma once
// The one question about what cannot be stored when a file is left.

#include <string>
#include <vector>

/// Something typed that is not in the file.
struct Unstored {
    std::string what;              ///< "Raden för Granvassa"
    std::vector<std::string> why;  ///< what the user would be told about it; its first lines count
};

/// Names each of them with its reasons, and asks whether to go on without.
std::string UnstoredQuestion(const std::vector<Unstored>& all);
