#include <windows.h>
// windows.h renames whatever is called so.
#undef DeleteFile

#include <algorithm>
#include <array>
#include <cstddef>
#include <exception>
#include <functional>
#include <utility>

#include "platform/path_text.h"
#include "platform/system_files.h"

namespace platform {

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t kLargestTransfer = std::size_t{1} << 26;

/// An open file, closed when it goes.
class OpenFile {
  public:
    OpenFile(const std::string& path, DWORD access, DWORD creation, DWORD flags = 0)
        : handle_(CreateFileA(path.c_str(), access, kShareAll, nullptr, creation, flags, nullptr)) {
    }
    ~OpenFile() { Close(); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Handle() const { return handle_; }

    /// The length of an open file; nothing for a device ("con", for one) and for a folder.
    std::optional<std::uint64_t> Length() const {
        LARGE_INTEGER length;
        if (!IsOpen() || GetFileType(handle_) != FILE_TYPE_DISK ||
            !GetFileSizeEx(handle_, &length)) {
            return std::nullopt;
        }
        return static_cast<std::uint64_t>(length.QuadPart);
    }

    bool Close() {
        if (!IsOpen()) return false;
        return CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE)) != 0;
    }

    bool MoveTo(std::uint64_t position) const {
        LARGE_INTEGER distance;
        distance.QuadPart = static_cast<LONGLONG>(position);
        return SetFilePointerEx(handle_, distance, nullptr, FILE_BEGIN) != 0;
    }

    /// One after the other: they may be too large for a copy that holds them all.
    bool WriteAll(std::initializer_list<std::string_view> parts) const {
        return std::all_of(parts.begin(), parts.end(),
                           [this](std::string_view part) { return WriteAll(part); });
    }

    bool WriteAll(std::string_view bytes) const {
        while (!bytes.empty()) {
            DWORD written = 0;
            const auto size = static_cast<DWORD>(std::min(bytes.size(), kLargestTransfer));
            if (!::WriteFile(handle_, bytes.data(), size, &written, nullptr) || written == 0) {
                return false;
            }
            bytes.remove_prefix(written);
        }
        return true;
    }

    /// Reads `length` bytes, or to the end where that comes earlier.
    std::optional<std::string> ReadAll(std::uint64_t length) const {
        std::string bytes;
        try {
            bytes.resize(length);
        } catch (const std::exception&) {  // larger than the memory
            return std::nullopt;
        }
        std::size_t filled = 0;
        while (filled < bytes.size()) {
            DWORD count = 0;
            const auto size = static_cast<DWORD>(std::min(bytes.size() - filled, kLargestTransfer));
            if (!::ReadFile(handle_, bytes.data() + filled, size, &count, nullptr)) {
                return std::nullopt;
            }
            if (count == 0) break;
            filled += count;
        }
        bytes.resize(filled);
        return bytes;
    }

  private:
    HANDLE handle_;
};

std::optional<WIN32_FILE_ATTRIBUTE_DATA> StatusOf(const std::optional<std::string>& system_path) {
    WIN32_FILE_ATTRIBUTE_DATA status;
    if (!system_path ||
        !GetFileAttributesExA(system_path->c_str(), GetFileExInfoStandard, &status)) {
        return std::nullopt;
    }
    return status;
}

bool IsFolder(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// What is in a folder, without itself and its parent, as far as `wanted` says so.
std::vector<std::string> NamesIn(const std::string& system_folder,
                                 const std::function<bool(const WIN32_FIND_DATAA&)>& wanted) {
    std::vector<std::string> names;
    WIN32_FIND_DATAA entry;
    const HANDLE search = FindFirstFileA((system_folder + "\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        const std::string_view name = entry.cFileName;
        if (name != "." && name != ".." && wanted(entry)) names.emplace_back(name);
    } while (FindNextFileA(search, &entry));
    FindClose(search);
    return names;
}

/// In the form in which the system compares names.
std::string Folded(std::string_view name) {
    std::string folded(name);
    CharLowerBuffA(folded.data(), static_cast<DWORD>(folded.size()));
    return folded;
}

bool IsLinkOnSystem(const std::string& system_path) {
    const auto status = StatusOf(system_path);
    return status && (status->dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

/// Where an existing file or folder really lies.
std::optional<std::string> FinalPath(const std::string& system_path) {
    const OpenFile file(system_path, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    if (!file.IsOpen()) return std::nullopt;
    std::array<char, 32768> buffer;
    const DWORD length = GetFinalPathNameByHandleA(file.Handle(), buffer.data(),
                                                   static_cast<DWORD>(buffer.size()), 0);
    if (length == 0 || length >= buffer.size()) return std::nullopt;
    std::string path(buffer.data(), length);
    while (path.ends_with('\\')) {
        path.pop_back();
    }
    return path;
}

/// Where `system_path` leads when every link on the way is followed; what does not exist yet counts
/// as it is written. Nothing when that cannot be known: a link to nowhere, for one, leads wherever
/// a write through it would go.
std::optional<std::string> FollowLinks(std::string system_path) {
    std::string missing;
    while (true) {
        if (const auto followed = FinalPath(system_path)) return Folded(*followed + missing);
        const std::size_t cut = system_path.rfind('\\');
        // A root keeps its "\", without which it would be some current folder.
        if (IsLinkOnSystem(system_path) || cut == std::string::npos ||
            cut + 1 == system_path.size()) {
            return std::nullopt;
        }
        missing.insert(0, system_path, cut);
        system_path.resize(system_path.find('\\') == cut ? cut + 1 : cut);
    }
}

/// Writes a file that must not exist yet, and leaves none on a fault.
bool WriteNewFile(const std::string& system_path, std::initializer_list<std::string_view> parts) {
    OpenFile file(system_path, GENERIC_WRITE, CREATE_NEW);
    if (!file.Length()) return false;
    const bool written = file.WriteAll(parts);
    if (file.Close() && written) return true;
    DeleteFileA(system_path.c_str());
    return false;
}

/// A free name in the same folder. The sweep of the placeholders takes such a file along, should
/// the program be killed before it is renamed.
std::string TemporaryBeside(const std::string& system_path) {
    static unsigned count = 0;
    const std::string folder = system_path.substr(0, system_path.rfind('\\') + 1);
    std::string path;
    do {
        path = folder + "~vantorin" + std::to_string(GetCurrentProcessId()) + "-" +
               std::to_string(++count) + ".tmp";
    } while (StatusOf(path));
    return path;
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
    return system_path && CreateDirectoryA(system_path->c_str(), nullptr);
}

std::optional<std::uint64_t> SystemFiles::FileLength(std::string_view path) const {
    const auto status = StatusOf(SystemPathOf(path));
    if (!status) return std::nullopt;
    if (IsFolder(status->dwFileAttributes)) return 0;
    return (std::uint64_t{status->nFileSizeHigh} << 32) + status->nFileSizeLow;
}

bool SystemFiles::FolderExists(std::string_view path) const {
    const auto status = StatusOf(SystemPathOf(path));
    return status && IsFolder(status->dwFileAttributes);
}

std::optional<std::string> SystemFiles::ReadFile(std::string_view path) const {
    const auto system_path = SystemPathOf(path);
    if (!system_path) return std::nullopt;
    const OpenFile file(*system_path, GENERIC_READ, OPEN_EXISTING);
    const auto length = file.Length();
    return length ? file.ReadAll(*length) : std::nullopt;
}

bool SystemFiles::WriteFile(std::string_view path, std::initializer_list<std::string_view> parts) {
    const auto system_path = SystemPathOf(path);
    if (!system_path) return false;
    const std::string temporary = TemporaryBeside(*system_path);
    if (!WriteNewFile(temporary, parts)) return false;
    if (MoveFileExA(temporary.c_str(), system_path->c_str(), MOVEFILE_REPLACE_EXISTING))
        return true;
    DeleteFileA(temporary.c_str());
    return false;
}

bool SystemFiles::AppendFile(std::string_view path, std::initializer_list<std::string_view> parts) {
    const auto system_path = SystemPathOf(path);
    if (!system_path) return false;
    const OpenFile file(*system_path, GENERIC_WRITE, OPEN_EXISTING);
    if (!file.IsOpen() && GetLastError() == ERROR_FILE_NOT_FOUND) {
        return WriteNewFile(*system_path, parts);
    }
    const auto length = file.Length();
    if (!length || !file.MoveTo(*length)) return false;
    if (file.WriteAll(parts)) return true;
    // Were this to fail too, nothing more could be done about the part that was written.
    if (file.MoveTo(*length)) SetEndOfFile(file.Handle());
    return false;
}

bool SystemFiles::DeleteFile(std::string_view path) {
    const auto system_path = SystemPathOf(path);
    return system_path && DeleteFileA(system_path->c_str());
}

void SystemFiles::DeleteBySuffix(std::string_view folder, std::string_view suffix) {
    const auto system_folder = SystemPathOf(folder);
    if (!system_folder) return;
    // Collected first: a folder that changes while it is read may show a name twice or never.
    const std::string folded_suffix = Folded(suffix);
    const auto names = NamesIn(*system_folder, [&folded_suffix](const WIN32_FIND_DATAA& entry) {
        return Folded(entry.cFileName).ends_with(folded_suffix);
    });
    for (const std::string& name : names) {
        DeleteFileA((*system_folder + "\\" + name).c_str());
    }
}

std::vector<std::string> SystemFiles::Subfolders(std::string_view folder) const {
    const auto system_folder = SystemPathOf(folder);
    if (!system_folder) return {};
    auto names = NamesIn(*system_folder, [](const WIN32_FIND_DATAA& entry) {
        return IsFolder(entry.dwFileAttributes);
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
    return inner && outer && (*inner + "\\").starts_with(*outer + "\\");
}

bool SystemFiles::IsLink(std::string_view path) const {
    const auto system_path = SystemPathOf(path);
    return system_path && IsLinkOnSystem(*system_path);
}

}  // namespace platform
