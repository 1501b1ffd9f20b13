#include "app/messages.h"

#include "tests/support/fakeplatform.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

TEST(Messages, AreBoxesOrTheCallersWhileItCollectsThem) {
    ScriptedDialogs dialogs;
    Messages messages(dialogs);
    dialogs.Expect("before");
    messages.Tell("before");
    const std::vector<std::string> told = messages.ToldBy([&] {
        messages.Tell("one");
        const std::vector<std::string> inner = messages.ToldBy([&] { messages.Tell("inner"); });
        EXPECT_EQ(inner, std::vector<std::string>{"inner"});
        messages.Tell("two");
    });
    EXPECT_EQ(told, (std::vector<std::string>{"one", "two"}));
    dialogs.Expect("after");
    messages.Tell("after");
}

}  // namespace
