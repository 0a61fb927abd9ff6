#pragma once

#include <string>

namespace platform {

/// Per-user settings that persist, stored as strings by application, section and key.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;

    /// The stored value, or `fallback` if there is none or the store cannot be read.
    virtual std::string Get(const std::string& application, const std::string& section,
                            const std::string& key, const std::string& fallback) const = 0;

    /// Stores a value. If the store cannot be written, nothing happens.
    virtual void Put(const std::string& application, const std::string& section,
                     const std::string& key, const std::string& value) = 0;
};

}  // namespace platform
