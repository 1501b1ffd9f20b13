#include "app/rules/unstored.h"

#include <gtest/gtest.h>

namespace {

TEST(UnstoredQuestion, NamesWhatIsLostAndWhy) {
    EXPECT_EQ(UnstoredQuestion({{"Raden för Granvassa", {"Kurs Kr saknas\r\nFyll i den"}}}),
              "Det här är inte sparat:\r\n\r\nRaden för Granvassa\r\n    Kurs Kr saknas\r\n\r\n"
              "Vill du gå vidare utan det ?");
}

TEST(UnstoredQuestion, IsOneForAllOfThem) {
    EXPECT_EQ(UnstoredQuestion({{"Raden för Granvassa", {"Ett", "Två"}}, {"Punkten", {}}}),
              "Det här är inte sparat:\r\n\r\nRaden för Granvassa\r\n    Ett\r\n    Två\r\n\r\n"
              "Punkten\r\n\r\nVill du gå vidare utan det ?");
}

}  // namespace
