#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace search {

/// Finds the file of a page whose path was recorded in lower case. An exact match comes first, then
/// any name that differs only in the case of A to Z. Large folders are read in steps.
class PageFinder {
  public:
    /// `recorded` is a path relative to `folder`, which may end in "\". `files` must outlive the
    /// finder.
    PageFinder(std::string folder, std::string_view recorded, const platform::Files& files);

    /// Looks at some more names. False when it has finished.
    bool Step();

    /// The path of the file, or "" until it is found. It lies in the folder, even after links have
    /// been followed.
    const std::string& Found() const { return found_; }

  private:
    /// A folder that is searched for one name of the recorded path.
    struct Level {
        std::string folder;
        bool tried_as_recorded = false;
        std::unique_ptr<platform::FolderReader> names = nullptr;
    };

    bool StepInto(std::string path);
    bool LookThrough(Level& level);
    const std::string& Wanted() const { return names_[levels_.size() - 1]; }

    const platform::Files& files_;
    std::string folder_;
    std::vector<std::string> names_;  ///< the parts of the recorded path
    std::vector<Level> levels_;
    std::size_t looked_at_ = 0;
    std::string found_;
};

}  // namespace search
