#include "widgets/shortlabel.h"

#include <QFontMetrics>
#include <QImage>
#include <QString>

#include <gtest/gtest.h>

namespace {

TEST(ShortLabel, ShowsTheFirstLettersOfANameThatWouldTouchTheNext) {
    ShortLabel label;
    label.setText(QStringLiteral("April"));
    const QFontMetrics metrics(label.font(), &label);
    const int whole = metrics.horizontalAdvance(QStringLiteral("April "));
    label.resize(whole, 20);
    EXPECT_EQ(label.ShownText(), QStringLiteral("April"));
    const QImage wide = label.grab().toImage();
    label.resize(whole - 1, 20);
    EXPECT_EQ(label.ShownText(), QStringLiteral("Apr"));
    EXPECT_EQ(label.text(), QStringLiteral("April")) << "what is told stays whole";
    EXPECT_NE(label.grab().toImage(), wide);
}

TEST(ShortLabel, ShowsItsFirstLetterWhereThreeAreCut) {
    ShortLabel label;
    label.setText(QStringLiteral("Maj"));
    const QFontMetrics metrics(label.font(), &label);
    const int name = metrics.horizontalAdvance(QStringLiteral("Maj"));
    label.resize(name + 1, 20);
    EXPECT_EQ(label.ShownText(), QStringLiteral("Maj"));
    label.resize(name, 20);
    EXPECT_EQ(label.ShownText(), QStringLiteral("M"));
}

}  // namespace
