#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"

/// The local mirror. This file: what an earlier crawl has left of a site.
namespace bas_Output {

/// The folder that a crawl into `target_folder` saves the pages of `host` in, as a resolved text;
/// nothing where that is no folder of its own directly in there.
std::optional<std::string> HostFolder(const std::string& target_folder, const std::string& host);

/// Walks through the folder of a host in small steps and counts what is in it. No symbolic link is
/// followed: what lies behind one is not the copy's.
class CopySurvey {
  public:
    /// What becomes of the placeholders on the way.
    enum class Placeholders { Count, Remove };

    /// `host_folder` is what `HostFolder` gave.
    CopySurvey(const std::string& host_folder, Placeholders placeholders);

    /// Opens one folder, or looks at one thing in it. False when nothing is left to look at.
    bool Step();

    /// Files that are no placeholders.
    std::int64_t Files() const { return files_; }
    /// Placeholders that are there; when they are removed, those that stayed.
    std::int64_t Unfinished() const { return unfinished_; }
    std::int64_t Removed() const { return removed_; }

  private:
    void LookAt(const platform::FolderReader::Entry& entry);
    void MeetPlaceholder(const std::string& path);

    std::string host_folder_;
    Placeholders placeholders_;
    std::vector<std::string> folders_;  ///< still to be opened
    std::string folder_;                ///< the one that is being read
    std::unique_ptr<platform::FolderReader> reader_;
    std::int64_t files_ = 0;
    std::int64_t unfinished_ = 0;
    std::int64_t removed_ = 0;
};

}  // namespace bas_Output
