#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <system_error>

#include "platform/path_text.h"

namespace fakes {

/// An empty folder on the system's disk; the destructor deletes it.
class TempFolder {
  public:
    TempFolder() {
        std::random_device random;
        do {
            system_path_ =
                std::filesystem::temp_directory_path() / ("vantorin-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(system_path_));
    }
    ~TempFolder() {
        std::error_code error;
        std::filesystem::remove_all(system_path_, error);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& SystemPath() const { return system_path_; }
    /// As path text, without a final "\".
    std::string Text() const { return platform::PathTextOf(system_path_.string()); }

  private:
    std::filesystem::path system_path_;
};

}  // namespace fakes
