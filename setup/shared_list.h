#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace bas_General {

/// A list that is edited here while other running copies of the program may change its file.
class SharedList {
  public:
    using Lines = std::vector<std::string>;

    /// `path` is the list's file.
    explicit SharedList(std::string path) : path_(std::move(path)) {}

    /// Takes the file as it is now for what this copy knows: it has just been read or written.
    void Know();

    /// `edited` with what others have added to the file since then, at its end, and without what
    /// they have removed; nothing when the file is as it was, or cannot be read.
    std::optional<Lines> WithOthersChanges(const Lines& edited);

  private:
    std::string path_;
    Lines known_;
};

}  // namespace bas_General
