#pragma once

#include "platform/settings_store.h"

namespace platform {

/// The user's settings in the system's usual place: the registry on Windows, elsewhere a file in
/// the user's configuration folder.
class QtSettingsStore final : public SettingsStore {
  public:
    std::string Get(const std::string& application, const std::string& section,
                    const std::string& key, const std::string& fallback) const override;
    void Put(const std::string& application, const std::string& section, const std::string& key,
             const std::string& value) override;
};

}  // namespace platform
