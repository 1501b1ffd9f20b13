#pragma once
// The safety copies: one is made before a day's first change, and the panel that restores one.

#include "app/controller.h"
#include "fundfile/safetycopies.h"
#include "platform/clock.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class SafetyCopies : Controller {
  public:
    explicit SafetyCopies(frmPPM& window);

    /// From here on the open file is copied before the first change of a day.
    void GuardFile();

  private:
    void BeforeStoring(const std::filesystem::path& file);
    void TellOnce();
    void mnuAterstall_Click();
    void lstKopior_Click();
    bool lstKopior_KeyDown(const QEvent& event);
    void cmdAterstall_Click();
    void FillList();
    std::string LineOf(const SafetyCopy& copy) const;
    std::string TextOf(const SafetyCopy& copy) const;
    bool MayRestore(const SafetyCopy& copy);
    void Restore(const SafetyCopy& copy);
    void Complain(const SafetyCopy& copy, const Error& error);

    std::optional<std::int32_t> copiedDay_;
    bool told_ = false;
    std::unique_ptr<Clock::Pause> telling_;
    std::vector<SafetyCopy> listed_;
    FundContent now_;  ///< of the open file, while the panel is open
};
