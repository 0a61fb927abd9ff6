#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The result of a change to the files.
struct FileResult {
    std::string why_not;  ///< the system's message if it has one; "" on success

    explicit operator bool() const { return why_not.empty(); }
};

/// The reason given for a path that is refused without asking the system.
inline constexpr char kNoName[] = "not a name that this system allows";

/// Reads the entries of a folder one by one, so that a large folder does not delay other events.
class FolderReader {
  public:
    enum class Kind { File, Folder, Link };  ///< a symbolic link is a Link, whatever it leads to
    struct Entry {
        std::string name;
        Kind kind;
    };
    virtual ~FolderReader() = default;

    /// The next entry, in any order; nothing at the end or on a fault. An entry that is created or
    /// deleted meanwhile may be missing. No entry is returned twice.
    virtual std::optional<Entry> Next() = 0;
};

/// Reads any part of a file. The file may grow meanwhile.
class FileReader {
  public:
    virtual ~FileReader() = default;

    /// Reads up to `most` bytes at `offset` into `to` and returns their number; 0 at the end or on
    /// a fault.
    virtual std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t most) = 0;
};

/// A claim to a folder, which lasts as long as this object.
class FolderClaim {
  public:
    virtual ~FolderClaim() = default;
};

/// The system's files, named by the program's own path text: "\" separates names; "c:" is the
/// user's home folder if the system has no drives; "z:" and a leading "\" are then the root. "."
/// and ".." are resolved in the text, clamped at the root, before the system sees the path. A path
/// that contains a NUL, or a name with a special meaning to the system, is a fault. Pipes and
/// devices are not files and are never opened, because opening one may block. Faults are returned
/// values, never exceptions.
class Files {
  public:
    virtual ~Files() = default;

    /// The folder that holds the program's own lists, without a final "\".
    virtual std::string ProgramFolder() const = 0;

    /// Creates this folder, but not its parents. An existing folder is a fault.
    virtual FileResult CreateFolder(std::string_view path) = 0;

    /// The length of a file in bytes; 0 for a folder; nothing if neither exists.
    virtual std::optional<std::uint64_t> FileLength(std::string_view path) const = 0;

    virtual bool FolderExists(std::string_view path) const = 0;

    /// The file's contents; nothing on a fault, for example if the file does not fit into memory.
    virtual std::optional<std::string> ReadFile(std::string_view path) const = 0;

    /// The same, but nothing if the file is longer than `longest` bytes.
    virtual std::optional<std::string> ReadShortFile(std::string_view path,
                                                     std::uint64_t longest) const {
        const auto length = FileLength(path);
        return length && *length <= longest ? ReadFile(path) : std::nullopt;
    }

    /// Opens a file for reading in parts; null if it cannot be opened.
    virtual std::unique_ptr<FileReader> OpenFile(std::string_view path) const = 0;

    /// Replaces the file's contents by `parts`, in order, or creates the file. All or nothing: on a
    /// fault, such as a full disk, an old file stays unchanged and no new one is left behind.
    virtual FileResult WriteFile(std::string_view path,
                                 std::initializer_list<std::string_view> parts) = 0;

    /// Appends `parts`, in order, and creates the file if it is missing. On a fault nothing is
    /// added.
    virtual FileResult AppendFile(std::string_view path,
                                  std::initializer_list<std::string_view> parts) = 0;

    /// The same for a file that must not exist. False if anything has that name, even a symbolic
    /// link, or on a fault.
    virtual bool WriteNewFile(std::string_view path,
                              std::initializer_list<std::string_view> parts) {
        return !FileLength(path) && AppendFile(path, parts);
    }

    virtual bool DeleteFile(std::string_view path) = 0;

    /// Deletes every file in `folder` whose name ends with `suffix`, which is ASCII. Compares case
    /// as the system does.
    virtual void DeleteBySuffix(std::string_view folder, std::string_view suffix) = 0;

    /// The names of the folders directly in `folder`, sorted. Omits names that path text cannot
    /// express.
    virtual std::vector<std::string> Subfolders(std::string_view folder) const = 0;

    /// Opens `folder` to read its entries, except those whose names path text cannot express; null
    /// if it cannot be opened.
    virtual std::unique_ptr<FolderReader> OpenFolder(std::string_view folder) const = 0;

    /// Whether `path`, with "." and ".." resolved and symbolic links followed, is `folder` or lies
    /// inside it. Parts of either that do not exist yet are taken as written.
    virtual bool IsInside(std::string_view path, std::string_view folder) const = 0;

    /// Whether `path` itself is a symbolic link, whatever it leads to.
    virtual bool IsLink(std::string_view path) const = 0;

    /// Claims a folder until the claim is deleted or the process ends. Null while another claim to
    /// the same folder exists, in any process and by any path. A claim leaves no trace in the
    /// folder. If the system cannot keep the claim, as on some network drives, every claim
    /// succeeds.
    virtual std::unique_ptr<FolderClaim> ClaimFolder(std::string_view folder) = 0;
};

}  // namespace platform
