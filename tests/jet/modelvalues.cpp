#include "modelvalues.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <vector>

namespace jet::test {

bool Chance(Random& random, unsigned percent) {
    return random() % 100 < percent;
}

std::size_t Pick(Random& random, std::size_t count) {
    return random() % count;
}

namespace {

const std::vector<std::string> kWords = {"Räksmörgås",
                                         "räksmörgås",
                                         "RÄKSMÖRGÅS  ",
                                         "Länsgård Norden",
                                         "249 995",
                                         "999 999",
                                         "x",
                                         "X",
                                         "-",
                                         "",
                                         "PPM Konto",
                                         "O'Brien",
                                         "Älg-Öst",
                                         "à la carte",
                                         "¶¶",
                                         "12,5 %",
                                         "naïve",
                                         "Zürich",
                                         "a.b/c",
                                         "Straße"};
const std::vector<std::string> kCharacters = {
    "a", "b", "c", "d", "e", "f", "G", "H", "i", "j", "k", "L", "m", "n", "o", "p", "R", "s",
    "t", "u", "v", "w", "x", "y", "z", "å", "ä", "ö", "Å", "Ä", "Ö", "é", "ü", "É", "Ü", "ß",
    "æ", "ø", "0", "1", "2", "3", "9", " ", "-", "'", ".", ",", "%", "/", "(", ")", "!", "?",
    "&", "+", "_", "#", "@", ";", ":", "*", "=", "€", "–", "’", "½", "§", "¶", "ñ", "ç"};

std::string Characters(Random& random, std::size_t count) {
    std::string text;
    for (; count > 0; --count) text += kCharacters[Pick(random, kCharacters.size())];
    return text;
}

Bytes RandomBytes(Random& random, std::size_t count) {
    Bytes bytes(count);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    return bytes;
}

/// Short ones mostly, and now and then one of each of the three ways of storing long values.
std::size_t LongValueLength(Random& random) {
    const std::size_t most[] = {30, 30, 60, 200, 2000, 9000};
    return Pick(random, most[Pick(random, std::size(most))] + 1);
}

Guid RandomGuid(Random& random) {
    Guid guid;
    for (std::uint8_t& byte : guid.bytes) byte = static_cast<std::uint8_t>(random());
    return guid;
}

Numeric RandomNumeric(Random& random, const ColumnDesign& design) {
    Numeric numeric;
    numeric.scale = design.scale;
    numeric.magnitude[3] = static_cast<std::uint32_t>(random() % 1000);
    numeric.negative = numeric.magnitude[3] != 0 && Chance(random, 50);
    return numeric;
}

std::string RandomText(const TableDesign& table, std::size_t column, int version, Random& random) {
    const ColumnDesign& design = table.columns[column];
    if (design.type == ColumnType::Memo) return Characters(random, LongValueLength(random));
    const std::size_t size = design.size;
    if (version == 4 && Chance(random, 1)) return "λ";
    if (Chance(random, 35)) {
        std::string word = kWords[Pick(random, kWords.size())];
        if (word.size() <= size) return word;
    }
    const bool longest = table.columns.size() < 30 && Chance(random, 8);
    return Characters(random, longest ? size : Pick(random, std::min<std::size_t>(size, 40) + 1));
}

}  // namespace

Value RandomValue(const TableDesign& table, std::size_t column, int version, Random& random) {
    const ColumnDesign& design = table.columns[column];
    if (design.type == ColumnType::Boolean) return Chance(random, 50);
    if (Chance(random, 8)) return {};
    const auto number = static_cast<std::int32_t>(random() % 200001) - 100000;
    switch (design.type) {
        case ColumnType::Byte:
            return static_cast<std::uint8_t>(random());
        case ColumnType::Integer:
            return static_cast<std::int16_t>(number % 300);
        case ColumnType::Long:
            return Chance(random, 60) ? number % 40 : static_cast<std::int32_t>(random());
        case ColumnType::Currency:
            return Currency{std::int64_t{number} * 1250};
        case ColumnType::Single:
            return static_cast<float>(number) / 8.0F;
        case ColumnType::Double:
            return Chance(random, 50) ? number / 4.0 : number * 1e-7;
        case ColumnType::Date:
            return Date{40000 +
                        static_cast<double>(number - number % 8) / 32};  // quarters of a day
        case ColumnType::Guid:
            return RandomGuid(random);
        case ColumnType::Numeric:
            return RandomNumeric(random, design);
        case ColumnType::Binary:
            return RandomBytes(random, 1 + Pick(random, design.size));
        case ColumnType::Ole:
            return RandomBytes(random, LongValueLength(random));
        default:
            return RandomText(table, column, version, random);
    }
}

}  // namespace jet::test
