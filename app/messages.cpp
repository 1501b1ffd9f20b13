#include "app/messages.h"

#include "platform/dialogs.h"

#include <QScopedValueRollback>

Messages::Messages(Dialogs& dialogs) : dialogs_(dialogs) {}

void Messages::Tell(std::string_view text) {
    if (collected_ != nullptr) {
        collected_->emplace_back(text);
        return;
    }
    dialogs_.Show(Message{.text = std::string(text)});
}

std::vector<std::string> Messages::ToldBy(const std::function<void()>& work) {
    std::vector<std::string> told;
    const QScopedValueRollback collecting(collected_, &told);
    work();
    return told;
}
