#include "widgets/entryfield.h"

#include "base/keyfilter.h"
#include "platform/caption.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QColor>
#include <QGuiApplication>
#include <QInputMethodEvent>
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
    Copy("ab 12.5\n");
    QTest::keyClick(&field_, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Text(), "12,5");
}

TEST_F(EntryFieldTest, PastingIsAKeyThatAFilterCanDiscard) {
    field_.SetFilter(kPercentKeys);
    Copy("12");
    QTest::keyClick(&field_, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Text(), "");
}

TEST_F(EntryFieldTest, CopyingWorksWhereTheFilterLetsItThrough) {
    field_.SetFilter(kPercentKeys);
    Type("12");
    field_.selectAll();
    Copy("");
    QTest::keyClick(&field_, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("12"));
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
