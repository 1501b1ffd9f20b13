#include "app/errortexts.h"

#include "app/texts.h"
#include "base/error.h"
#include "base/number.h"

std::string UntrappedText(const Error& error) {
    const auto number = static_cast<std::int32_t>(error.Number());
    std::string text = std::string(texts::FailureNumber) + PlainText(number) + ": ";
    for (const texts::Failure& failure : texts::kFailures) {
        if (failure.number == error.Number()) return text + std::string(failure.text);
    }
    return text + error.what();
}
