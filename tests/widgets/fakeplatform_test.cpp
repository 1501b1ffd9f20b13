// The doubles themselves: a script that lets a wrong question through
// would make other tests worthless.
#include "tests/support/fakeplatform.h"

#include "base/error.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <chrono>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace {

using std::chrono::milliseconds;

TEST(ScriptedDialogs, AnswersTheExpectedQuestion) {
    ScriptedDialogs dialogs;
    dialogs.Expect("Är detta riktigt ?", Buttons::YesNo, Icon::Question).Answer(Answer::Yes);
    EXPECT_EQ(
        dialogs.Show(
            {.text = "Är detta riktigt ?", .buttons = Buttons::YesNo, .icon = Icon::Question}),
        Answer::Yes);
}

TEST(ScriptedDialogs, AnUnexpectedQuestionFails) {
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDialogs dialogs;
            dialogs.Show({.text = "Oväntat"});
        },
        "Oväntat");
}

TEST(ScriptedDialogs, AnUnaskedQuestionFails) {
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDialogs dialogs;
            dialogs.Expect("Aldrig");
        },
        "never asked");
}

TEST(ScriptedDialogs, AnotherTextButtonIconOrDefaultFails) {
    const Message asked{.text = "a", .buttons = Buttons::YesNo, .icon = Icon::Question};
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDialogs dialogs;
            dialogs.Expect("b", Buttons::YesNo, Icon::Question);
            dialogs.Show(asked);
        },
        "b");
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDialogs dialogs;
            dialogs.Expect("a", Buttons::OkCancel, Icon::Question);
            dialogs.Show(asked);
        },
        "OK/Cancel");
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDialogs dialogs;
            dialogs.Expect("a", Buttons::YesNo, Icon::Exclamation);
            dialogs.Show(asked);
        },
        "exclamation");
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDialogs dialogs;
            dialogs.Expect("a", Buttons::YesNo, Icon::Question, DefaultButton::Second);
            dialogs.Show(asked);
        },
        "second");
}

TEST(ScriptedDialogs, LooksWhileTheBoxIsOpen) {
    ScriptedDialogs dialogs;
    bool looked = false;
    dialogs.Expect("a").Meanwhile([&] { looked = true; });
    dialogs.Show({.text = "a"});
    EXPECT_TRUE(looked);
}

TEST(ScriptedDialogs, KeepTheOrder) {
    ScriptedDialogs dialogs;
    dialogs.ExpectFile(FileChoice::Open, "Öppna").Pick("/tmp/a.mdb");
    dialogs.Expect("a", Buttons::OkCancel).Answer(Answer::Cancel);
    EXPECT_EQ(dialogs.PickFile({.choice = FileChoice::Open, .title = "Öppna"}), "/tmp/a.mdb");
    EXPECT_EQ(dialogs.Show({.text = "a", .buttons = Buttons::OkCancel}), Answer::Cancel);
}

TEST(FixedClock, TicksOnceWhenThePauseIsOver) {
    FixedClock clock;
    int ticks = 0;
    const auto pause = clock.After(milliseconds(3000), [&] { ++ticks; });
    clock.Pass(milliseconds(2999));
    EXPECT_EQ(ticks, 0);
    EXPECT_EQ(clock.Running(), std::vector<milliseconds>{milliseconds(1)});
    clock.Pass(milliseconds(1));
    EXPECT_EQ(ticks, 1);
    clock.Pass(milliseconds(10'000));
    EXPECT_EQ(ticks, 1);
}

TEST(FixedClock, APauseThatIsGoneDoesNotTick) {
    FixedClock clock;
    int ticks = 0;
    clock.After(milliseconds(10), [&] { ++ticks; }).reset();
    clock.Pass(milliseconds(10));
    EXPECT_EQ(ticks, 0);
}

TEST(FixedClock, PausesTickInTheirOrder) {
    FixedClock clock;
    std::string order;
    const auto late = clock.After(milliseconds(20), [&] { order += "late"; });
    const auto early = clock.After(milliseconds(10), [&] { order += "early "; });
    clock.Pass(milliseconds(30));
    EXPECT_EQ(order, "early late");
}

TEST(SystemClock, TicksOnTheEventLoop) {
    SystemClock clock;
    bool ticked = false;
    const auto pause = clock.After(milliseconds(0), [&] { ticked = true; });
    EXPECT_FALSE(ticked);
    while (!ticked) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_TRUE(clock.Today().ok());
}

TEST(MemorySettings, KeepTextsByTheirWholeAddress) {
    MemorySettings settings;
    settings.Save("Kvarnbo", "StartUp", "StartX", "7");
    EXPECT_EQ(settings.Get("Kvarnbo", "StartUp", "StartX"), "7");
    EXPECT_EQ(settings.Get("Kvarnbo", "StartUp", "StartPath"), "");
    settings.broken = true;
    EXPECT_THROW(settings.Save("Kvarnbo", "StartUp", "StartX", "1"), Error);
}

TEST(PdfPrinting, CanBeCancelledAndBroken) {
    PdfPrinting printing;
    printing.cancel = true;
    EXPECT_EQ(printing.Begin("x"), nullptr);
    printing.cancel = false;
    printing.broken = true;
    EXPECT_THROW(printing.Begin("x"), Error);
    printing.broken = false;
    EXPECT_NE(printing.Begin("x"), nullptr);
    EXPECT_EQ(printing.files.size(), 1U);
}

}  // namespace
