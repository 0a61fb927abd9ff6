#include "platform/system_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <functional>

#include "platform/path_text.h"

namespace platform {

namespace {

/// An open file, closed when it goes.
class OpenFile {
  public:
    /// Never waits for whoever is at the other end of a pipe or device that has the file's name.
    OpenFile(const std::string& path, int flags)
        : descriptor_(open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666)) {}
    ~OpenFile() { Close(); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool IsOpen() const { return descriptor_ >= 0; }
    int Descriptor() const { return descriptor_; }

    /// The length of an open regular file; nothing for anything else.
    std::optional<std::uint64_t> Length() const {
        struct stat status;
        if (!IsOpen() || fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode)) {
            return std::nullopt;
        }
        return static_cast<std::uint64_t>(status.st_size);
    }

    /// Some systems tell only here that the disk was full.
    bool Close() {
        if (!IsOpen()) return false;
        const int descriptor = descriptor_;
        descriptor_ = -1;
        return close(descriptor) == 0;
    }

    /// One after the other: they may be too large for a copy that holds them all.
    bool WriteAll(std::initializer_list<std::string_view> parts) const {
        return std::all_of(parts.begin(), parts.end(),
                           [this](std::string_view part) { return WriteAll(part); });
    }

    bool WriteAll(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t written = write(descriptor_, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            if (written <= 0) return false;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return true;
    }

    /// Reads to the end, also when the file has grown or shrunk since its length was asked.
    std::optional<std::string> ReadAll(std::size_t length) const {
        std::string bytes;
        std::size_t filled = 0;
        try {
            bytes.resize(length + 1);
            while (true) {
                const ssize_t count =
                    read(descriptor_, bytes.data() + filled, bytes.size() - filled);
                if (count < 0 && errno == EINTR) continue;
                if (count < 0) return std::nullopt;
                if (count == 0) break;
                filled += static_cast<std::size_t>(count);
                if (filled == bytes.size()) bytes.resize(2 * bytes.size());
            }
        } catch (const std::exception&) {  // larger than the memory
            return std::nullopt;
        }
        bytes.resize(filled);
        return bytes;
    }

  private:
    int descriptor_;
};

std::optional<struct stat> StatusOf(const std::optional<std::string>& system_path) {
    struct stat status;
    if (!system_path || stat(system_path->c_str(), &status) != 0) return std::nullopt;
    return status;
}

/// What is in a folder, without itself and its parent, as far as `wanted` says so.
std::vector<std::string> NamesIn(const std::string& system_folder,
                                 const std::function<bool(const dirent&)>& wanted) {
    std::vector<std::string> names;
    DIR* folder = opendir(system_folder.c_str());
    if (folder == nullptr) return names;
    while (const dirent* entry = readdir(folder)) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != ".." && wanted(*entry)) names.emplace_back(name);
    }
    closedir(folder);
    return names;
}

bool IsLinkOnSystem(const std::string& system_path) {
    struct stat status;
    return lstat(system_path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

/// Where `system_path` leads when every symbolic link on the way is followed; what does not exist
/// yet counts as it is written. Nothing when that cannot be known: a link to nowhere, for one,
/// leads wherever a write through it would go.
std::optional<std::string> FollowLinks(std::string system_path) {
    std::string missing;
    char followed[PATH_MAX];
    while (realpath(system_path.c_str(), followed) == nullptr) {
        if (errno != ENOENT && errno != ENOTDIR) return std::nullopt;
        if (IsLinkOnSystem(system_path)) return std::nullopt;
        const std::size_t cut = system_path.rfind('/');
        missing.insert(0, system_path, cut);
        system_path.resize(cut);
        if (system_path.empty()) return missing;
    }
    return std::string_view(followed) == "/" ? missing : followed + missing;
}

/// Writes a file that must not exist yet, and leaves none on a fault; `errno` tells why.
bool WriteNewFile(const std::string& system_path, std::initializer_list<std::string_view> parts) {
    OpenFile file(system_path, O_WRONLY | O_CREAT | O_EXCL);
    if (!file.IsOpen()) return false;
    const bool written = file.WriteAll(parts);
    if (file.Close() && written) return true;
    const int reason = errno;
    unlink(system_path.c_str());
    errno = reason;
    return false;
}

/// A name for the file that is written in the target's place and takes its name when it is whole.
/// The sweep of the placeholders takes such a file along, should the program be killed in between.
std::string TemporaryBeside(const std::string& system_path) {
    static unsigned count = 0;
    const std::string name =
        "~vantorin" + std::to_string(getpid()) + "-" + std::to_string(++count) + ".tmp";
    return system_path.substr(0, system_path.rfind('/') + 1) + name;
}

}  // namespace

SystemFiles::SystemFiles(const std::string& program_folder)
    : program_folder_(PathTextOf(program_folder)) {
    while (program_folder_.ends_with('\\')) {
        program_folder_.pop_back();
    }
}

bool SystemFiles::CreateFolder(std::string_view path) {
    const auto system_path = SystemPathOf(path);
    return system_path && mkdir(system_path->c_str(), 0777) == 0;
}

std::optional<std::uint64_t> SystemFiles::FileLength(std::string_view path) const {
    const auto status = StatusOf(SystemPathOf(path));
    if (!status) return std::nullopt;
    return S_ISDIR(status->st_mode) ? 0 : static_cast<std::uint64_t>(status->st_size);
}

bool SystemFiles::FolderExists(std::string_view path) const {
    const auto status = StatusOf(SystemPathOf(path));
    return status && S_ISDIR(status->st_mode);
}

std::optional<std::string> SystemFiles::ReadFile(std::string_view path) const {
    const auto system_path = SystemPathOf(path);
    if (!system_path) return std::nullopt;
    const OpenFile file(*system_path, O_RDONLY);
    const auto length = file.Length();
    return length ? file.ReadAll(static_cast<std::size_t>(*length)) : std::nullopt;
}

bool SystemFiles::WriteFile(std::string_view path, std::initializer_list<std::string_view> parts) {
    const auto system_path = SystemPathOf(path);
    if (!system_path) return false;
    std::string temporary = TemporaryBeside(*system_path);
    while (!WriteNewFile(temporary, parts)) {
        if (errno != EEXIST) return false;
        temporary = TemporaryBeside(*system_path);
    }
    if (std::rename(temporary.c_str(), system_path->c_str()) == 0) return true;
    unlink(temporary.c_str());
    return false;
}

bool SystemFiles::AppendFile(std::string_view path, std::initializer_list<std::string_view> parts) {
    const auto system_path = SystemPathOf(path);
    if (!system_path) return false;
    const OpenFile file(*system_path, O_WRONLY | O_APPEND);
    if (!file.IsOpen() && errno == ENOENT) {
        return WriteNewFile(*system_path, parts);
    }
    const auto length = file.Length();
    if (!length) return false;
    if (file.WriteAll(parts)) return true;
    // Were this to fail too, nothing more could be done about the part that was written.
    [[maybe_unused]] const int result = ftruncate(file.Descriptor(), static_cast<off_t>(*length));
    return false;
}

bool SystemFiles::DeleteFile(std::string_view path) {
    const auto system_path = SystemPathOf(path);
    return system_path && unlink(system_path->c_str()) == 0;
}

void SystemFiles::DeleteBySuffix(std::string_view folder, std::string_view suffix) {
    const auto system_folder = SystemPathOf(folder);
    if (!system_folder) return;
    // Collected first: a folder that changes while it is read may show a name twice or never.
    const std::vector<std::string> names = NamesIn(*system_folder, [suffix](const dirent& entry) {
        return std::string_view(entry.d_name).ends_with(suffix);
    });
    for (const std::string& name : names) {
        unlink((*system_folder + "/" + name).c_str());
    }
}

std::vector<std::string> SystemFiles::Subfolders(std::string_view folder) const {
    const auto system_folder = SystemPathOf(folder);
    if (!system_folder) return {};
    std::vector<std::string> names = NamesIn(*system_folder, [&system_folder](const dirent& entry) {
        // A name with the separator of path texts cannot be told in one.
        const std::string name = entry.d_name;
        const auto status = StatusOf(*system_folder + "/" + name);
        return name.find('\\') == std::string::npos && status && S_ISDIR(status->st_mode);
    });
    std::sort(names.begin(), names.end());
    return names;
}

bool SystemFiles::IsInside(std::string_view path, std::string_view folder) const {
    const auto system_path = SystemPathOf(path);
    const auto system_folder = SystemPathOf(folder);
    if (!system_path || !system_folder) return false;
    const auto inner = FollowLinks(*system_path);
    const auto outer = FollowLinks(*system_folder);
    return inner && outer && (*inner + "/").starts_with(*outer + "/");
}

bool SystemFiles::IsLink(std::string_view path) const {
    const auto system_path = SystemPathOf(path);
    return system_path && IsLinkOnSystem(*system_path);
}

}  // namespace platform
