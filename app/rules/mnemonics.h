#pragma once
// Which letter of each menu entry leads to it from the keyboard.

#include <string>
#include <string_view>
#include <vector>

/// The captions with "&" before a letter that no other entry has: the first letter of a word where
/// one is free, else any letter; before the number of a caption that begins with one and two
/// blanks. A caption that has one already, or no free letter, stays as it is.
std::vector<std::string> WithMnemonics(const std::vector<std::string>& captions);

std::string WithoutMnemonic(std::string_view caption);
