#pragma once
// A second process for tests: one that does a piece of work, one that has a fund file open.

#include "fundfile/fundfile.h"

#include <filesystem>
#include <functional>
#include <string>

namespace testdata {

/// Another process, begun as a copy of this one: make it before a file is opened here, or it would
/// believe that it has that file open itself. It waits until Run lets it work, and ends with that.
class Child {
  public:
    enum class As {
        Ourselves,
        OrdinaryUser
    };  ///< root gives up its rights, so that protection counts
    explicit Child(std::function<std::string()> work, As as = As::Ourselves);
    ~Child() { Run(); }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    std::string Run();  ///< what `work` returns there; "threw ..." for an exception

  private:
    int process_ = -1, toChild_ = -1, fromChild_ = -1;
};

/// Another process that has a fund file open until it is told to close it, or dies.
class OtherCopy {
  public:
    explicit OtherCopy(const std::filesystem::path& path);
    ~OtherCopy();
    OtherCopy(const OtherCopy&) = delete;
    OtherCopy& operator=(const OtherCopy&) = delete;

    WriteRight Right() const { return right_; }
    void Close();  ///< ends the process as a program that is quit
    void Die();    ///< kills it
    int Process() const { return process_; }

  private:
    void Wait();
    int process_ = -1, toChild_ = -1;
    WriteRight right_ = WriteRight::Ours;
};

}  // namespace testdata
