#pragma once

#include <map>
#include <string>
#include <tuple>

#include "platform/settings_store.h"

namespace platform {

/// Settings that are lost when the program ends, for runs that must not change the stored ones.
class MemorySettingsStore final : public SettingsStore {
  public:
    std::string Get(const std::string& application, const std::string& section,
                    const std::string& key, const std::string& fallback) const override {
        const auto value = values_.find({application, section, key});
        return value == values_.end() ? fallback : value->second;
    }

    void Put(const std::string& application, const std::string& section, const std::string& key,
             const std::string& value) override {
        values_[{application, section, key}] = value;
    }

  private:
    std::map<std::tuple<std::string, std::string, std::string>, std::string> values_;
};

}  // namespace platform
