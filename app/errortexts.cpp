#include "app/errortexts.h"

#include "app/texts.h"
#include "base/error.h"
#include "base/number.h"
#include "fundfile/texts.h"

#include <cstdint>

std::string UntrappedText(const Error& error) {
    return std::string(texts::FailureNumber) +
           PlainText(static_cast<std::int32_t>(error.Number())) + ": " +
           std::string(fundtexts::Explain(error.Number()));
}
