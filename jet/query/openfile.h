#pragma once
// An open file's engine for those who share it, until one of them closes the file.

#include "jet/query/engine.h"

#include <filesystem>
#include <memory>

namespace jet::detail {

class OpenFile {
  public:
    explicit OpenFile(std::unique_ptr<Engine> engine);

    bool IsOpen() const noexcept { return engine_ != nullptr; }
    const std::filesystem::path& Path() const noexcept { return path_; }
    /// Throws ObjectClosed after Close.
    Engine& Get() const;
    /// What was not committed is lost.
    void Close() noexcept { engine_.reset(); }

  private:
    std::filesystem::path path_;
    std::unique_ptr<Engine> engine_;
};

}  // namespace jet::detail
