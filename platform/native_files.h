#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"

/// What system_files.cpp needs from the system and what each system does differently. Faults are
/// returned values. No name is converted through a locale.
namespace platform::native {

/// A path or name in the form that the system's calls take.
using Path = std::filesystem::path::string_type;
using PathView = std::basic_string_view<Path::value_type>;

/// The system path for a path text; nothing if there is none or if a name in it means something
/// else to the system (a device, a stream of another file).
std::optional<Path> PathOf(std::string_view path_text);

/// A file's name as path text; nothing if path text cannot express it.
std::optional<std::string> TextOf(const Path& name);

/// Whether the system treats both as the same name.
bool IsSameName(PathView a, PathView b);

struct Status {
    bool is_folder;
    bool is_file;  ///< a pipe or device is neither file nor folder
    std::uint64_t length;
};

/// The status of what `path` leads to when links are followed. Nothing on a fault; `errno` is
/// ENOENT or ENOTDIR if nothing exists there.
std::optional<Status> StatusOf(const Path& path);

/// Whether the path itself is a symbolic link, whatever it leads to.
bool IsLink(const Path& path);

/// The path with every link followed. Nothing on a fault; `errno` is ENOENT or ENOTDIR if nothing
/// exists there. A root is returned, and accepted, without its separator.
std::optional<Path> FinalPath(const Path& path);

/// Like std::fopen. `mode` is "rb", "ab", "a+b", "wb" or "wbx". "wbx" creates a file that must not
/// exist yet; otherwise `errno` is EEXIST.
std::FILE* Open(const Path& path, const char* mode);

/// Moves to `offset` bytes from the file's start.
bool Seek(std::FILE* file, std::uint64_t offset);

bool MakeFolder(const Path& path);

/// The system's message about its last failed call; never "".
std::string WhyItFailed();

/// Deletes a file, but never a folder.
bool Unlink(const Path& path);

struct Entry {
    Path name;
    bool is_folder;  ///< also true for a link to a folder
    bool is_link;
};

/// The entries of a folder, except "." and "..".
class FolderEntries {
  public:
    explicit FolderEntries(const Path& folder);
    ~FolderEntries();
    FolderEntries(const FolderEntries&) = delete;
    FolderEntries& operator=(const FolderEntries&) = delete;

    bool IsOpen() const { return state_ != nullptr; }

    /// The next entry; nothing at the end or on a fault.
    std::optional<Entry> Next();

  private:
    struct State;
    std::unique_ptr<State> state_;
};

/// Claims a folder as described at `Files::ClaimFolder`.
std::unique_ptr<FolderClaim> ClaimFolder(const Path& folder);

}  // namespace platform::native
