#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"

/// The local mirror. This file: what an earlier crawl has left of a site.
namespace bas_Output {

/// The folder in which a crawl into `target_folder` saves the pages of `host`, as resolved text;
/// nothing if that is not a folder directly inside it.
std::optional<std::string> HostFolder(const std::string& target_folder, const std::string& host);

/// Walks through the folder of a host in small steps and counts its files. Follows no symbolic
/// links: what they lead to does not belong to the copy.
class CopySurvey {
  public:
    /// What to do with placeholders.
    enum class Placeholders { Count, Remove };

    /// `host_folder` is a result of `HostFolder`.
    CopySurvey(const std::string& host_folder, Placeholders placeholders);

    /// Opens one folder or examines one entry. False when finished.
    bool Step();

    /// The number of files that are not placeholders.
    std::int64_t Files() const { return files_; }
    /// The number of placeholders; when removing, of those that could not be removed.
    std::int64_t Unfinished() const { return unfinished_; }
    std::int64_t Removed() const { return removed_; }

  private:
    void LookAt(const platform::FolderReader::Entry& entry);
    void MeetPlaceholder(const std::string& path);

    std::string host_folder_;
    Placeholders placeholders_;
    std::vector<std::string> folders_;  ///< still to be opened
    std::string folder_;                ///< the one being read
    std::unique_ptr<platform::FolderReader> reader_;
    std::int64_t files_ = 0;
    std::int64_t unfinished_ = 0;
    std::int64_t removed_ = 0;
};

}  // namespace bas_Output
