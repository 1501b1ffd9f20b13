#include "widgets/entryfield.h"

#include "base/keyfilter.h"
#include "base/pastedtext.h"
#include "platform/caption.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QColor>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPalette>
#include <QPoint>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <gtest/gtest.h>
#include <string>

namespace {

class EntryFieldTest : public ::testing::Test {
  protected:
    EntryFieldTest() {
        auto* column = new QVBoxLayout(&window_);
        column->addWidget(&field_);
        column->addWidget(&other_);
        window_.show();
        window_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
        field_.setFocus();
    }

    void Type(const char* text) {
        for (const char* c = text; *c != 0; ++c) QTest::keyClick(&field_, *c);
    }
    void Paste(const char* text) {
        Copy(text);
        QTest::keyClick(&field_, Qt::Key_V, Qt::ControlModifier);
    }
    /// A key press with the text that the keyboard gives it.
    void Stroke(Qt::Key key, Qt::KeyboardModifiers held, const QString& text) {
        QKeyEvent press(QEvent::KeyPress, key, held, text);
        QApplication::sendEvent(&field_, &press);
    }
    void Copy(const char* text) { QGuiApplication::clipboard()->setText(QString::fromUtf8(text)); }
    void Compose(const char* text) {
        QInputMethodEvent event;
        event.setCommitString(QString::fromUtf8(text));
        QApplication::sendEvent(&field_, &event);
    }
    std::string Text() const { return Caption(&field_); }
    QColor Pixel(const QWidget& widget) {
        return const_cast<QWidget&>(widget).grab().toImage().pixelColor(widget.width() / 2,
                                                                        widget.height() / 2);
    }

    QWidget window_;
    EntryField field_{&window_};
    EntryField other_{&window_};
};

TEST_F(EntryFieldTest, WithoutAFilterEverythingPasses) {
    Type("a.B,1");
    EXPECT_EQ(Text(), "a.B,1");
}

TEST_F(EntryFieldTest, APointBecomesAComma) {
    field_.SetFilter(kPriceKeys);
    Type("12.5");
    EXPECT_EQ(Text(), "12,5");
}

TEST_F(EntryFieldTest, OtherCharactersAreDiscarded) {
    field_.SetFilter(kPriceKeys);
    Type("a1-2 +3");
    EXPECT_EQ(Text(), "123");
}

TEST_F(EntryFieldTest, AKeyReplacesTheSelection) {
    field_.SetFilter(kPriceKeys);
    Type("123");
    field_.selectAll();
    Type(".");
    EXPECT_EQ(Text(), ",");
}

TEST_F(EntryFieldTest, CursorKeysAndBackspaceWorkBehindAFilter) {
    field_.SetFilter(kPriceKeys);
    Type("123");
    QTest::keyClick(&field_, Qt::Key_Left);
    QTest::keyClick(&field_, Qt::Key_Backspace);
    EXPECT_EQ(Text(), "13");
    QTest::keyClick(&field_, Qt::Key_Home);
    QTest::keyClick(&field_, Qt::Key_Delete);
    EXPECT_EQ(Text(), "3");
}

TEST_F(EntryFieldTest, PastedTextGoesThroughTheFilter) {
    field_.SetFilter(kPriceKeys);
    Paste("ab 12.5\n");
    EXPECT_EQ(Text(), "12,5");
}

TEST_F(EntryFieldTest, OnlyTheFirstLineIsPasted) {
    Paste("\n  Granvassa Ränta \r\nBjörkfonden\n");
    EXPECT_EQ(Text(), "Granvassa Ränta");
}

TEST_F(EntryFieldTest, PastedTextGoesInAsItsOwnFilterLeavesItOrNotAtAll) {
    field_.SetFilter(kPriceKeys);
    field_.SetPasteFilter(PastedNumber);
    for (const char* text : {"1 12,50", "-5", "1,2,3", "kr", ""}) {
        Paste(text);
        EXPECT_EQ(Text(), "") << text;
    }
    Paste("1 234,50 kr");
    EXPECT_EQ(Text(), "1234,50");
}

TEST_F(EntryFieldTest, CopyingAndPastingIsNothingThatAFilterCanDiscard) {
    for (const KeyFilter& filter : {kPriceKeys, kGridKeys, kAccountKeys, kNewSharesKeys}) {
        field_.SetFilter(filter);
        field_.clear();
        Paste("12");
        EXPECT_EQ(Text(), "12");
        field_.selectAll();
        Copy("");
        QTest::keyClick(&field_, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("12"));
        QTest::keyClick(&field_, Qt::Key_X, Qt::ControlModifier);
        EXPECT_EQ(Text(), "");
    }
}

// On a keyboard these keys bring their character along.
TEST_F(EntryFieldTest, KeysWithAltCtrlOrMetaTypeNothing) {
    for (const bool filtered : {false, true}) {
        if (filtered) field_.SetFilter(kPriceKeys);
        for (const auto held : {Qt::AltModifier, Qt::MetaModifier, Qt::ControlModifier}) {
            Stroke(Qt::Key_1, held, QStringLiteral("1"));
            Stroke(Qt::Key_X, held | Qt::ShiftModifier, QStringLiteral("X"));
            Stroke(Qt::Key_Y, held, QStringLiteral("y"));
        }
        EXPECT_EQ(Text(), "");
    }
}

TEST_F(EntryFieldTest, AltGrTypes) {
    Stroke(Qt::Key_At, Qt::GroupSwitchModifier, QStringLiteral("@"));
    Stroke(Qt::Key_BraceLeft, Qt::ControlModifier | Qt::AltModifier, QStringLiteral("{"));
    EXPECT_EQ(Text(), "@{");
}

TEST_F(EntryFieldTest, TheMenusPasteGoesThroughTheFilter) {
    field_.SetFilter(kPriceKeys);
    Copy("x7.5");
    bool found = false;
    QTimer::singleShot(0, &field_, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr) return;
        for (QAction* action : menu->actions()) {
            if (!action->text().endsWith(QStringLiteral("Ctrl+V"))) continue;
            found = true;
            action->trigger();
        }
        menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5),
                            field_.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&field_, &event);
    EXPECT_TRUE(found);
    EXPECT_EQ(Text(), "7,5");
}

TEST_F(EntryFieldTest, ComposedTextGoesThroughTheFilter) {
    field_.SetFilter(kPriceKeys);
    Compose("x1.5");
    EXPECT_EQ(Text(), "1,5");
}

TEST_F(EntryFieldTest, DroppedTextGoesThroughTheFilter) {
    field_.SetFilter(kPriceKeys);
    QMimeData data;
    data.setText(QStringLiteral("x1.5"));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field_, &enter);
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field_, &event);
    EXPECT_EQ(Text(), "1,5");
}

TEST_F(EntryFieldTest, NothingGetsInWhileItIsBlocked) {
    bool blocked = true;
    field_.BlockWhile([&] { return blocked; });
    field_.SetFilter(kPriceKeys);
    Type("1");
    Copy("2");
    QTest::keyClick(&field_, Qt::Key_V, Qt::ControlModifier);
    Compose("3");
    EXPECT_EQ(Text(), "");
    blocked = false;
    Type("4");
    EXPECT_EQ(Text(), "4");
}

TEST_F(EntryFieldTest, EnterIsDiscardedWhileItIsBlocked) {
    int entered = 0;
    field_.BlockWhile([] { return true; });
    field_.SetEnter([&] { ++entered; });
    QTest::keyClick(&field_, Qt::Key_Return);
    EXPECT_EQ(entered, 0);
}

TEST_F(EntryFieldTest, TabLeavesABlockedField) {
    field_.BlockWhile([] { return true; });
    QTest::keyClick(&field_, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &other_);
}

TEST_F(EntryFieldTest, EnterBecomesWhatItIsTold) {
    int entered = 0;
    field_.SetEnter([&] { ++entered; });
    QTest::keyClick(&field_, Qt::Key_Return);
    QTest::keyClick(&field_, Qt::Key_Enter);
    EXPECT_EQ(entered, 2);
    EXPECT_EQ(Text(), "");
}

TEST_F(EntryFieldTest, ASwallowedKeyDoesNothing) {
    field_.Swallow(Qt::Key_Delete);
    Type("12");
    QTest::keyClick(&field_, Qt::Key_Home);
    QTest::keyClick(&field_, Qt::Key_Delete);
    EXPECT_EQ(Text(), "12");
}

TEST_F(EntryFieldTest, ShowsWhereTheTypingGoes) {
    EXPECT_EQ(Pixel(field_), QColor(211, 240, 254));
    EXPECT_EQ(Pixel(other_), QColor(239, 239, 222));
    other_.setFocus();
    EXPECT_EQ(Pixel(field_), QColor(239, 239, 222));
    EXPECT_EQ(Pixel(other_), QColor(211, 240, 254));
}

TEST_F(EntryFieldTest, AFieldThatIsOffLooksIt) {
    other_.setEnabled(false);
    EXPECT_EQ(Pixel(other_), QColor(214, 214, 206));
    other_.setText(QStringLiteral("175"));
    EXPECT_EQ(other_.palette().color(QPalette::Disabled, QPalette::Text), QColor(96, 96, 104));
    other_.setEnabled(true);
    EXPECT_EQ(Pixel(other_), QColor(239, 239, 222));
}

TEST_F(EntryFieldTest, ItsTextIsDarkUnderADarkTheme) {
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    window_.setPalette(dark);
    EXPECT_LT(field_.palette().color(QPalette::Text).lightness(), 60);
    EXPECT_EQ(Pixel(field_), QColor(211, 240, 254));
}

TEST_F(EntryFieldTest, TellsWhenTheFocusComesAndGoes) {
    int entered = 0, left = 0;
    QObject::connect(&field_, &EntryField::Entered, &field_, [&] { ++entered; });
    QObject::connect(&field_, &EntryField::Left, &field_, [&] { ++left; });
    other_.setFocus();
    field_.setFocus();
    EXPECT_EQ(left, 1);
    EXPECT_EQ(entered, 1);
}

}  // namespace
