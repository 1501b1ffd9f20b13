#pragma once
// What a key press types, apart from where it goes.

#include <optional>

class QKeyEvent;

/// The character that a key press types. Nothing for the keys that move, erase or confirm, and
/// nothing with Alt, Ctrl or Meta held: those are commands. AltGr types, also where it comes as
/// Ctrl with Alt.
std::optional<char32_t> TypedCharacter(const QKeyEvent& event);
