#pragma once

#include <string>

namespace platform {

/// Per-user settings that outlive the program, as strings by application, section and key.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;

    /// The stored value, or `fallback` when there is none or the store cannot be read.
    virtual std::string Get(const std::string& application, const std::string& section,
                            const std::string& key, const std::string& fallback) const = 0;

    /// Stores a value; a store that cannot be written is passed over silently.
    virtual void Put(const std::string& application, const std::string& section,
                     const std::string& key, const std::string& value) = 0;
};

}  // namespace platform
