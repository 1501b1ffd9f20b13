#include "platform/typedkey.h"

#include <QKeyEvent>
#include <QList>

namespace {

constexpr char32_t kFirstPrintable = U' ';
constexpr char32_t kDeleteCode = 127;

bool IsCommand(Qt::KeyboardModifiers modifiers) {
    constexpr Qt::KeyboardModifiers kAltGr = Qt::ControlModifier | Qt::AltModifier;
    const Qt::KeyboardModifiers held = modifiers & (kAltGr | Qt::MetaModifier);
    return held != Qt::NoModifier && held != kAltGr;
}

}  // namespace

std::optional<char32_t> TypedCharacter(const QKeyEvent& event) {
    const QList<uint> codes = event.text().toUcs4();
    if (IsCommand(event.modifiers()) || codes.isEmpty()) return std::nullopt;
    const char32_t typed = codes.first();
    if (typed < kFirstPrintable || typed == kDeleteCode) return std::nullopt;
    return typed;
}
