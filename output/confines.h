#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

/// The local mirror. This file: where a crawl may write. What a site sends becomes part of a path,
/// and names are cleaned late, so "../" can appear after every test for it. Only the checks here
/// stop that.
namespace bas_Output {

/// The target folder and the folders of the hosts inside it. When symbolic links are followed, a
/// path in a host's folder must stay in that folder, and any other path must stay in the target
/// folder.
///
/// The target folder's own name loses every "www." when a local path is made, as all names do. The
/// folder with that shortened name counts as the target folder, too.
///
/// All paths are resolved texts.
class Confines {
  public:
    explicit Confines(const std::string& target_folder = "");

    /// The text that the confines were created from.
    const std::string& TargetFolder() const { return target_folder_; }

    /// Whether `folder` is the target folder or lies inside it.
    bool ContainsFolder(const std::string& folder);

    /// Whether `file` lies inside the target folder, also when a symbolic link in its place is
    /// followed.
    bool Contains(const std::string& file);

    /// Whether `file` lies inside the folder called `host`, which holds the pages of that host. A
    /// host called "_SearchData" has none, because that folder belongs to the search extract.
    bool MayWritePage(const std::string& file, std::string_view host);

    /// Whether a crawl may create `folder`: the target folder, one of its parents, or a folder
    /// inside it that does not take a record file's place.
    bool MayCreateFolder(const std::string& folder);

  private:
    std::string LimitOf(std::string_view path) const;
    bool StaysInside(const std::string& path) const;

    std::string target_folder_;
    std::vector<std::string> roots_;
    /// The folders known to lie inside. Following every link on the way to a file would take too
    /// long for every link of a page.
    std::unordered_set<std::string> inside_;
};

}  // namespace bas_Output
