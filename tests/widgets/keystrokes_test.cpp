#include "platform/keystrokes.h"

#include "base/error.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

class KeyStrokesTest : public ::testing::Test {
  protected:
    KeyStrokesTest() {
        auto* column = new QVBoxLayout(&window_);
        column->addWidget(&first_);
        column->addWidget(&second_);
        window_.show();
        window_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
        first_.setFocus();
    }
    QWidget window_;
    QLineEdit first_{&window_};
    QLineEdit second_{&window_};
    FocusKeyStrokes keys_;
};

TEST_F(KeyStrokesTest, CharactersAreTypedIntoTheFocusedControl) {
    keys_.Send("Ab 1å");
    EXPECT_EQ(first_.text(), QStringLiteral("Ab 1å"));
    EXPECT_EQ(second_.text(), QString());
}

TEST_F(KeyStrokesTest, TabMovesTheFocus) {
    keys_.Send("{TAB}");
    EXPECT_EQ(QApplication::focusWidget(), &second_);
}

TEST_F(KeyStrokesTest, WhatFollowsATabGoesToTheNextControl) {
    keys_.Send("1{TAB}2");
    EXPECT_EQ(first_.text(), QStringLiteral("1"));
    EXPECT_EQ(second_.text(), QStringLiteral("2"));
}

TEST_F(KeyStrokesTest, NamedKeysDoWhatTheirKeysDo) {
    keys_.Send("123{LEFT}{BACKSPACE}{RIGHT}4");
    EXPECT_EQ(first_.text(), QStringLiteral("134"));
}

TEST_F(KeyStrokesTest, AnUnknownNameIsErrorFive) {
    try {
        keys_.Send("{NONE}");
        ADD_FAILURE();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::InvalidProcedureCall);
    }
}

TEST_F(KeyStrokesTest, WithoutAFocusedControlNothingHappens) {
    window_.hide();
    keys_.Send("1");
    EXPECT_EQ(first_.text(), QString());
}

}  // namespace
