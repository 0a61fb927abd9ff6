#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

/// The local mirror. This file: where a crawl may write. What a site says becomes part of a path,
/// and names are cleaned late, so that "../" can appear after every test for it; what is decided
/// here is the only thing that stops it.
namespace bas_Output {

/// The target folder, and in it the folders of the hosts. What lies in the folder of one host must
/// also lie in it when symbolic links are followed; what lies beside those folders, in the target
/// folder.
///
/// The target folder's own name loses every "www." on the way to a local path, as all names do; the
/// folder of that shortened name counts as the target folder too.
///
/// All paths are resolved texts.
class Confines {
  public:
    explicit Confines(const std::string& target_folder = "");

    /// The text that these confines were made from.
    const std::string& TargetFolder() const { return target_folder_; }

    /// Whether `folder` is the target folder or lies in it.
    bool ContainsFolder(const std::string& folder);

    /// Whether `file` lies in the target folder, also when it is itself a symbolic link.
    bool Contains(const std::string& file);

    /// Whether `file` lies in the folder that the pages of a host have, whose name is `host`.
    bool MayWritePage(const std::string& file, std::string_view host);

    /// Whether a crawl may make `folder`: one in the target folder that takes no record file's
    /// name, or one of the target folder's own parents.
    bool MayCreateFolder(const std::string& folder);

  private:
    std::string LimitOf(std::string_view path) const;
    bool StaysInside(const std::string& path) const;

    std::string target_folder_;
    std::vector<std::string> roots_;
    /// The folders known to lie inside. To follow every link on the way to a file takes too long
    /// for every link of a page.
    std::unordered_set<std::string> inside_;
};

}  // namespace bas_Output
