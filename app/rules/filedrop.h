#pragma once
// What becomes of files that are dragged over the window.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

enum class DropVerdict { Opens, NoFundFile, Several };

/// `paths` has nothing in the place of what is no file of this computer.
DropVerdict JudgeDrop(const std::vector<std::optional<std::string>>& paths);

/// What the status bar says of it; "" for one that opens.
std::string_view DropText(DropVerdict verdict);
