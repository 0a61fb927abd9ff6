#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"

/// What system_files.cpp needs of the system and every system does in a way of its own. Faults are
/// returned values, and no name is converted through a locale.
namespace platform::native {

/// A path or a name as the system's own calls take it.
using Path = std::filesystem::path::string_type;
using PathView = std::basic_string_view<Path::value_type>;

/// The path of the place that a path text names; nothing where there is none, and for a name that
/// the system would take for something else (a device, a stream of another file).
std::optional<Path> PathOf(std::string_view path_text);

/// A file's name as path text; nothing for one that path text cannot hold.
std::optional<std::string> TextOf(const Path& name);

/// Whether the system takes both for one name.
bool IsSameName(PathView a, PathView b);

struct Status {
    bool is_folder;
    bool is_file;  ///< neither for a pipe or a device
    std::uint64_t length;
};

/// Of what is there when links are followed. Nothing on a fault; `errno` is ENOENT or ENOTDIR when
/// nothing is there.
std::optional<Status> StatusOf(const Path& path);

/// Whether the path itself is a symbolic link, whatever it leads to.
bool IsLink(const Path& path);

/// Where the path leads when every link on the way is followed. Nothing on a fault; `errno` is
/// ENOENT or ENOTDIR when nothing is there. A root is given, and may be taken, without a separator.
std::optional<Path> FinalPath(const Path& path);

/// As std::fopen does, with `mode` "rb", "ab", "wb" or "wbx". The last makes a file that must not
/// be there; `errno` is EEXIST when it is.
std::FILE* Open(const Path& path, const char* mode);

/// Moves to `offset` bytes from the beginning.
bool Seek(std::FILE* file, std::uint64_t offset);

bool MakeFolder(const Path& path);

/// The system's words for why the last call of its own failed; never "".
std::string WhyItFailed();

/// Deletes a file, no folder.
bool Unlink(const Path& path);

struct Entry {
    Path name;
    bool is_folder;  ///< also for a link that leads to one
    bool is_link;
};

/// What is in a folder, itself and its parent aside, one after the other.
class FolderEntries {
  public:
    explicit FolderEntries(const Path& folder);
    ~FolderEntries();
    FolderEntries(const FolderEntries&) = delete;
    FolderEntries& operator=(const FolderEntries&) = delete;

    bool IsOpen() const { return state_ != nullptr; }

    /// Nothing at the end, and on a fault.
    std::optional<Entry> Next();

  private:
    struct State;
    std::unique_ptr<State> state_;
};

/// A claim to a folder as `Files::ClaimFolder` says.
std::unique_ptr<FolderClaim> ClaimFolder(const Path& folder);

}  // namespace platform::native
