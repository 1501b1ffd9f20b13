#include "entry/rules/newshares.h"

#include "base/error.h"

#include <gtest/gtest.h>
#include <optional>

namespace {

const NoticeBoxes kFilled = {"", "", "2006-02-24", "10,12346", "123,4567", "1249,79", "12,5"};

TEST(NewShares, NeedsBoxesTwoToSix) {
    EXPECT_EQ(EmptyBox(kFilled), std::nullopt);
    for (std::size_t box = 2; box <= 6; ++box) {
        NoticeBoxes boxes = kFilled;
        boxes[box].clear();
        EXPECT_EQ(EmptyBox(boxes), box);
    }
    EXPECT_EQ(EmptyBox(NoticeBoxes{}), 2U);
}

TEST(NewShares, FillsTheValueFromSharesAndPrice) {
    EXPECT_EQ(ValueBoxText("10", "123,4567"), "1234,57");
    EXPECT_EQ(ValueBoxText("10,5", "2"), "21,00");
}

TEST(NewShares, FillsNoValueWhileOneBoxIsEmpty) {
    EXPECT_EQ(ValueBoxText("", "123,4567"), std::nullopt);
    EXPECT_EQ(ValueBoxText("10", ""), std::nullopt);
}

TEST(NewShares, ValueOfATextIsATypeMismatch) {
    Skipping skip;
    skip([] { ValueBoxText("-", "2"); });
    EXPECT_EQ(skip.Number(), ErrorNumber::TypeMismatch);
}

TEST(NewShares, ValueTooLargeOverflows) {
    Skipping skip;
    skip([] { ValueBoxText("1e300", "1e300"); });
    EXPECT_EQ(skip.Number(), ErrorNumber::Overflow);
}

TEST(NewShares, StoresFourDecimalsOfTheSharesAndAWholePercentage) {
    EXPECT_EQ(ReadNotice(kFilled), (Notice{38772, 10.1235, 123.4567, 12}));
}

// Single precision would make 1234.5677 and 524288 of them.
TEST(NewShares, LosesNoDigitOfWhatIsTyped) {
    NoticeBoxes boxes = kFilled;
    boxes[3] = "1234,5678";
    boxes[4] = "524287,99";
    const Notice notice = ReadNotice(boxes);
    EXPECT_EQ(notice.shares, 1234.5678);
    EXPECT_EQ(notice.price, 524287.99);
    EXPECT_EQ(ValueBoxText(boxes[3], boxes[4]), "647269070,38");
}

TEST(NewShares, StoresNothingOfWhatIsNoNumber) {
    for (const std::size_t box : {2U, 3U, 4U, 6U}) {
        for (const char* text : {"-", "abc", "1,2,3"}) {
            NoticeBoxes boxes = kFilled;
            boxes[box] = text;
            Skipping skip;
            skip([&] { ReadNotice(boxes); });
            EXPECT_EQ(skip.Number(), ErrorNumber::TypeMismatch) << box << " " << text;
        }
    }
}

TEST(NewShares, KeepsTheOldValuesOnlyOverTheMarker) {
    HoldingRow row;
    row.bokfortDatum = 38772;
    row.fondandelar = 10;
    row.kursKr = 12.5;
    row.vardeKr = 125;
    row.sparadeVarden = "x";
    EXPECT_EQ(ValuesToSave(row), "2006-02-24¶10¶12,5¶125¶");
    for (const char* column : {"", "X", "2006-02-24¶10¶12,5¶125¶"}) {
        row.sparadeVarden = column;
        EXPECT_EQ(ValuesToSave(row), std::nullopt) << column;
    }
}

}  // namespace
