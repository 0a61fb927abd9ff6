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

/// How a change to the files went.
struct FileResult {
    std::string why_not;  ///< in the system's words where it has any; "" when all went well

    explicit operator bool() const { return why_not.empty(); }
};

/// Why a path is refused that the system never gets to see.
inline constexpr char kNoName[] = "not a name that this system allows";

/// Reads what is in a folder one after the other: a large folder holds up nobody.
class FolderReader {
  public:
    enum class Kind { File, Folder, Link };  ///< a link is one, whatever it leads to
    struct Entry {
        std::string name;
        Kind kind;
    };
    virtual ~FolderReader() = default;

    /// The next one, in any order; nothing at the end and on a fault. Whether it gives what comes
    /// or goes meanwhile is left open; it never gives one thing twice.
    virtual std::optional<Entry> Next() = 0;
};

/// Reads any part of a file, which may grow meanwhile.
class FileReader {
  public:
    virtual ~FileReader() = default;

    /// Reads up to `most` bytes from `offset` on into `to` and returns how many there were; 0 at
    /// the end and on a fault.
    virtual std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t most) = 0;
};

/// A folder is being filled by this process while this lives.
class FolderClaim {
  public:
    virtual ~FolderClaim() = default;
};

/// The system's files, named by the program's own path text: "\" separates, "c:" is the user's home
/// folder where the system knows no drives, "z:" and a leading "\" are its root. "." and ".." are
/// resolved in the text, clamped at the root, before the system sees the path. A path that holds a
/// NUL, or a name that the system would take for something else, is a fault. Pipes and devices are
/// no files: none is opened, so nobody waits for one. A fault is the returned value, never an
/// exception.
class Files {
  public:
    virtual ~Files() = default;

    /// The folder that the program keeps its own lists in, without a final "\".
    virtual std::string ProgramFolder() const = 0;

    /// Creates exactly this folder. A fault also when it exists already.
    virtual FileResult CreateFolder(std::string_view path) = 0;

    /// The length of a file in bytes, 0 for a folder; nothing when neither is there.
    virtual std::optional<std::uint64_t> FileLength(std::string_view path) const = 0;

    virtual bool FolderExists(std::string_view path) const = 0;

    /// Nothing on a fault, also when the file is larger than the memory.
    virtual std::optional<std::string> ReadFile(std::string_view path) const = 0;

    /// The same for a file of at most `longest` bytes; nothing when it is longer.
    virtual std::optional<std::string> ReadShortFile(std::string_view path,
                                                     std::uint64_t longest) const {
        const auto length = FileLength(path);
        return length && *length <= longest ? ReadFile(path) : std::nullopt;
    }

    /// Reads a file part by part; null when it cannot be opened.
    virtual std::unique_ptr<FileReader> OpenFile(std::string_view path) const = 0;

    /// Makes the file consist of `parts`, one after the other, whatever was there before. It is
    /// whole or untouched: on a fault (a full disk, say) the old file stays, and no new one is
    /// left.
    virtual FileResult WriteFile(std::string_view path,
                                 std::initializer_list<std::string_view> parts) = 0;

    /// Adds `parts` at the file's end, one after the other, creating it when missing. A fault adds
    /// nothing.
    virtual FileResult AppendFile(std::string_view path,
                                  std::initializer_list<std::string_view> parts) = 0;

    /// The same where nothing is yet, not even a symbolic link. False also when something is.
    virtual bool WriteNewFile(std::string_view path,
                              std::initializer_list<std::string_view> parts) {
        return !FileLength(path) && AppendFile(path, parts);
    }

    virtual bool DeleteFile(std::string_view path) = 0;

    /// Deletes every file in `folder` whose name ends in `suffix`, which is ASCII (case as the
    /// system compares names).
    virtual void DeleteBySuffix(std::string_view folder, std::string_view suffix) = 0;

    /// The names of the folders directly in `folder`, sorted; none that path text cannot hold.
    virtual std::vector<std::string> Subfolders(std::string_view folder) const = 0;

    /// Reads what is in `folder`, but for names that path text cannot hold; null when it cannot be
    /// opened.
    virtual std::unique_ptr<FolderReader> OpenFolder(std::string_view folder) const = 0;

    /// Whether `path`, with "." and ".." resolved and symbolic links followed, lies in `folder` or
    /// is it. The parts of both that do not exist yet count as they are written.
    virtual bool IsInside(std::string_view path, std::string_view folder) const = 0;

    /// Whether `path` itself is a symbolic link, whatever it leads to.
    virtual bool IsLink(std::string_view path) const = 0;

    /// Claims a folder, by whatever path, until the claim is deleted or the process has ended. Null
    /// while another claim to it lives, in this process or any other. Nothing of this is seen in
    /// the folder. Where the system keeps no such claims (some network drives), all get theirs.
    virtual std::unique_ptr<FolderClaim> ClaimFolder(std::string_view folder) = 0;
};

}  // namespace platform
