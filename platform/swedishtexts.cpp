#include "platform/swedishtexts.h"

#include "platform/qttext.h"
#include "platform/texts.h"

#include <algorithm>
#include <string_view>

QString SwedishTexts::translate(const char* /*context*/, const char* sourceText,
                                const char* /*disambiguation*/, int /*count*/) const {
    if (sourceText == nullptr) return {};
    const std::string_view source(sourceText);
    const auto& all = texts::dialogs::Toolkit;
    const auto found = std::find_if(std::begin(all), std::end(all),
                                    [source](const auto& one) { return one.english == source; });
    return found == std::end(all) ? QString() : ToQt(found->swedish);
}
