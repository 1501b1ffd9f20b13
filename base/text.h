#pragma once
// Counting and cutting UTF-8 text by character, not by byte. A byte that is not valid UTF-8 counts
// as one character of its own, so any text can be cut and nothing is lost.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

std::size_t Length(std::string_view text);
/// The first (last) `count` characters; the whole text if it has fewer.
std::string Left(std::string_view text, std::size_t count);
std::string Right(std::string_view text, std::size_t count);
/// From the character at 0-based `start` on, at most `count` characters.
std::string Mid(std::string_view text, std::size_t start,
                std::size_t count = std::string_view::npos);

/// The pieces between the separators, empty ones included: always one more than there are
/// separators. The separator must not be empty.
std::vector<std::string> Split(std::string_view text, std::string_view separator);
std::string Join(const std::vector<std::string>& pieces, std::string_view separator);

/// Without leading and trailing blanks; other white space stays.
std::string Trim(std::string_view text);

/// The first letter of every word in upper case, all others in lower case, å ä ö and é included.
std::string ProperCase(std::string_view text);

/// Every letter in lower case, å ä ö and é included.
std::string LowerCase(std::string_view text);

/// The characters as code points, and back. A byte that is not valid UTF-8 becomes U+FFFD.
std::u32string ToCodePoints(std::string_view text);
std::string ToUtf8(std::u32string_view codePoints);
