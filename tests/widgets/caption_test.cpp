#include "platform/caption.h"

#include "widgets/tag.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>

#include <gtest/gtest.h>

namespace {

template <typename Control>
class CaptionOf : public ::testing::Test {};

using Controls = ::testing::Types<QLabel, QPushButton, QCheckBox, QLineEdit, QPlainTextEdit,
                                  QTextEdit, QGroupBox, QMenu, QAction, QMainWindow, QObject>;
TYPED_TEST_SUITE(CaptionOf, Controls);

TYPED_TEST(CaptionOf, IsWrittenAndReadAsUtf8) {
    TypeParam control;
    EXPECT_EQ(Caption(&control), "");
    SetCaption(&control, "  &Räkna på  åäö € ");
    EXPECT_EQ(Caption(&control), "  &Räkna på  åäö € ");
}

TYPED_TEST(CaptionOf, TagIsATextOfItsOwn) {
    TypeParam control;
    EXPECT_EQ(Tag(&control), "");
    SetTag(&control, "idxÅ");
    EXPECT_EQ(Tag(&control), "idxÅ");
    EXPECT_EQ(Caption(&control), "");
}

TEST(Caption, OfAGroupBoxShowsTheAmpersandOfAName) {
    QGroupBox box;

    SetCaption(&box, "Kina & Indien");

    EXPECT_EQ(box.title(), QStringLiteral("Kina && Indien"));
    EXPECT_EQ(Caption(&box), "Kina & Indien");
}

TEST(Caption, OfAWindowIsItsTitle) {
    QMainWindow window;
    SetCaption(&window, "  Kvarnbo  ");
    EXPECT_EQ(window.windowTitle(), QStringLiteral("  Kvarnbo  "));
}

TEST(Caption, OfAControlThatIsMissingIsEmpty) {
    SetCaption(nullptr, "x");
    EXPECT_EQ(Caption(nullptr), "");
}

}  // namespace
