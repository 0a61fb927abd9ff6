#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace bas_General {

/// A list that is edited while other running copies of the program may change its file.
class SharedList {
  public:
    using Lines = std::vector<std::string>;

    /// `path` is the list's file.
    explicit SharedList(std::string path) : path_(std::move(path)) {}

    /// Remembers the file's present contents as known. Call it after reading or writing the file.
    void Know();

    /// `edited` plus, at its end, what others have added to the file since it was last known, and
    /// minus what they have removed; nothing if the file is unchanged or cannot be read.
    std::optional<Lines> WithOthersChanges(const Lines& edited);

  private:
    std::string path_;
    Lines known_;
};

}  // namespace bas_General
