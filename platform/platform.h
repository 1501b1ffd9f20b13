#pragma once
// The outside world, as the window sees it. A test hands in its own.

#include <string>

class Clock;
class Dialogs;
class KeyStrokes;
class Printing;
class Programs;
class Screen;
class SettingsStore;

struct Platform {
    Dialogs& dialogs;
    Clock& clock;
    SettingsStore& settings;
    Printing& printing;
    Programs& programs;
    Screen& screen;
    KeyStrokes& keyStrokes;
    /// Where template, sample files, help, log and notes lie;
    /// UTF-8, with or without a separator at its end.
    std::string programFolder;
    /// Where the user keeps what other programs read; UTF-8.
    std::string userFolder;
};
