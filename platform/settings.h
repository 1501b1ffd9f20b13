#pragma once
// Texts that outlive the program, addressed by application, section and key.

#include <string>
#include <string_view>

namespace settings {
inline constexpr std::string_view kApplication = "Kvarnbo";
inline constexpr std::string_view kStartUp = "StartUp";      ///< the one section
inline constexpr std::string_view kStartPath = "StartPath";  ///< the fund file opened at start
inline constexpr std::string_view kStartX = "StartX";        ///< the day step as decimal text
}  // namespace settings

class SettingsStore {
  public:
    SettingsStore() = default;
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;
    virtual ~SettingsStore() = default;

    /// "" when there is no such text; never throws.
    virtual std::string Get(std::string_view application, std::string_view section,
                            std::string_view key) const = 0;

    /// Stored when it returns. Throws PermissionDenied when the store cannot be written.
    virtual void Save(std::string_view application, std::string_view section, std::string_view key,
                      std::string_view text) = 0;
};

/// The user's own store: one ini file per application in the user's configuration folder.
class UserSettings final : public SettingsStore {
  public:
    std::string Get(std::string_view application, std::string_view section,
                    std::string_view key) const override;
    void Save(std::string_view application, std::string_view section, std::string_view key,
              std::string_view text) override;
};
