#pragma once
// What the window tells the user in boxes with one button and no icon.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

class Dialogs;

class Messages {
  public:
    /// `dialogs` outlives it.
    explicit Messages(Dialogs& dialogs);

    void Tell(std::string_view text);
    /// Runs `work` and returns what it tells, in its order, in place of showing it.
    std::vector<std::string> ToldBy(const std::function<void()>& work);

  private:
    Dialogs& dialogs_;
    std::vector<std::string>* collected_ = nullptr;  ///< while ToldBy runs
};
