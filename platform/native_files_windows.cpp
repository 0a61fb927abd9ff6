#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/native_files.h"
#include "platform/path_text.h"

namespace platform::native {

namespace {

/// Converts from the system's ANSI code page; nothing for bytes that are invalid in it.
std::optional<Path> Widened(std::string_view text) {
    Path wide(text.size(), L'\0');
    const int size = static_cast<int>(text.size());
    const int length =
        MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, text.data(), size, wide.data(), size);
    if (length == 0) return std::nullopt;
    wide.resize(static_cast<std::size_t>(length));
    return wide;
}

/// Whether this name means a device to the system and to other programs, as it does with any
/// extension: "con", "nul.txt", "com1".
bool IsDevice(PathView name) {
    Path stem(name.substr(0, name.find(L'.')));
    stem.resize(stem.find_last_not_of(L' ') + 1);
    // The numbers 1 to 9 are equivalent, and so are the superscripts 1, 2 and 3.
    if (stem.size() == 4 && PathView(L"23456789\xB9\xB2\xB3").find(stem[3]) != PathView::npos) {
        stem[3] = L'1';
    }
    constexpr std::array<PathView, 8> kDevices = {L"con",    L"prn",     L"aux",  L"nul",
                                                  L"conin$", L"conout$", L"com1", L"lpt1"};
    return std::any_of(kDevices.begin(), kDevices.end(),
                       [&stem](PathView device) { return IsSameName(stem, device); });
}

/// Whether every program takes `name` as the name of this file. The text after a ":" would be a
/// stream of another file, "<" and ">" are wildcards, too, and most programs drop trailing dots and
/// blanks and then find another file.
bool IsPlainName(PathView name) {
    return name.find_first_of(L"<>:\"|?*") == PathView::npos && !name.ends_with(L'.') &&
           !name.ends_with(L' ') && !IsDevice(name) &&
           std::none_of(name.begin(), name.end(), [](wchar_t c) { return c < L' '; });
}

struct CloseHandleOf {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using OpenedFile = std::unique_ptr<void, CloseHandleOf>;
using Mutex = std::unique_ptr<void, CloseHandleOf>;

/// A mutex named after the folder. Nobody waits for it; its existence is the claim. The system
/// deletes it with the last process that holds it.
class FolderMutex : public FolderClaim {
  public:
    explicit FolderMutex(Mutex mutex) : mutex_(std::move(mutex)) {}

  private:
    Mutex mutex_;
};

/// Opens a file or folder for queries and follows links; null with `errno` ENOENT if it does not
/// exist.
OpenedFile OpenToAsk(const Path& path) {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE handle = CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle != INVALID_HANDLE_VALUE) return OpenedFile(handle);
    const DWORD error = GetLastError();
    errno = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ? ENOENT : EIO;
    return nullptr;
}

bool IsFolder(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

}  // namespace

std::optional<Path> PathOf(std::string_view path_text) {
    const std::optional<std::string> resolved = ResolvePathText(path_text);
    if (!resolved) return std::nullopt;
    // With this prefix a path may be longer than 260 characters, and the system does not
    // reinterpret it.
    Path path = L"\\\\?\\";
    path.append({static_cast<wchar_t>(resolved->front()), L':'});
    // Convert name by name: in some code pages "\" can be the second byte of a character.
    std::string_view rest = std::string_view(*resolved).substr(2);
    while (!rest.empty()) {
        rest.remove_prefix(1);
        const std::size_t length = std::min(rest.find('\\'), rest.size());
        const std::optional<Path> name = Widened(rest.substr(0, length));
        if (!name || !IsPlainName(*name)) return std::nullopt;
        path.append(L"\\").append(*name);
        rest.remove_prefix(length);
    }
    if (path.ends_with(L':')) path += L'\\';
    return path;
}

std::optional<std::string> TextOf(const Path& name) {
    const int size = static_cast<int>(name.size());
    std::string text(4 * name.size(), '\0');
    const int length = WideCharToMultiByte(CP_ACP, 0, name.data(), size, text.data(),
                                           static_cast<int>(text.size()), nullptr, nullptr);
    text.resize(static_cast<std::size_t>(length));
    // A character that the code page lacks would come back as another one.
    return IsPlainName(name) && Widened(text) == name ? std::optional(text) : std::nullopt;
}

bool IsSameName(PathView a, PathView b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                                static_cast<int>(b.size()), TRUE) == CSTR_EQUAL;
}

std::optional<Status> StatusOf(const Path& path) {
    const OpenedFile file = OpenToAsk(path);
    BY_HANDLE_FILE_INFORMATION status;
    if (!file || !GetFileInformationByHandle(file.get(), &status)) return std::nullopt;
    const bool is_folder = IsFolder(status.dwFileAttributes);
    return Status{is_folder, !is_folder,
                  (std::uint64_t{status.nFileSizeHigh} << 32) + status.nFileSizeLow};
}

bool IsLink(const Path& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES &&
           (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

std::optional<Path> FinalPath(const Path& path) {
    const bool is_drive = path.ends_with(L':');
    const OpenedFile file = OpenToAsk(is_drive ? path + L"\\" : path);
    Path followed(32768, L'\0');
    const auto size = static_cast<DWORD>(followed.size());
    const DWORD length = file ? GetFinalPathNameByHandleW(file.get(), followed.data(), size, 0) : 0;
    // Some systems cannot do this for a long path; ENOENT makes the caller continue with the parent
    // folder. A drive has no parent.
    if (file || is_drive) errno = is_drive ? EIO : ENOENT;
    if (length == 0 || length >= size) return std::nullopt;
    followed.resize(length);
    if (followed.ends_with(L'\\')) followed.pop_back();
    return followed;
}

std::FILE* Open(const Path& path, const char* mode) {
    // The system's C library does not know the mode "x".
    const int flags = mode[0] == 'r' ? _O_RDONLY
                      : mode[0] == 'a'
                          ? _O_WRONLY | _O_APPEND
                          : _O_WRONLY | _O_CREAT | (mode[2] == 'x' ? _O_EXCL : _O_TRUNC);
    const int file = _wopen(path.c_str(), flags | _O_BINARY, _S_IREAD | _S_IWRITE);
    return file < 0 ? nullptr : _fdopen(file, std::string(mode, 2).c_str());
}

bool Seek(std::FILE* file, std::uint64_t offset) {
    return _fseeki64(file, static_cast<long long>(offset), SEEK_SET) == 0;
}

bool MakeFolder(const Path& path) {
    return CreateDirectoryW(path.c_str(), nullptr) != 0;
}

std::string WhyItFailed() {
    // The C library's calls are built on the system's and leave their error code here, too.
    const DWORD error = GetLastError();
    std::array<char, 512> words{};
    const DWORD length =
        FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                       0, words.data(), static_cast<DWORD>(words.size()), nullptr);
    std::string text(words.data(), length);
    text.resize(text.find_last_not_of(".\r\n ") + 1);
    return text.empty() ? "error " + std::to_string(error) : text;
}

bool Unlink(const Path& path) {
    return DeleteFileW(path.c_str()) != 0;
}

struct FolderEntries::State {
    HANDLE search;
    WIN32_FIND_DATAW entry;
    bool any;  ///< `entry` has not been returned yet
};

FolderEntries::FolderEntries(const Path& folder) {
    State state{};
    const Path all = folder + (folder.ends_with(L'\\') ? L"*" : L"\\*");
    state.search = FindFirstFileW(all.c_str(), &state.entry);
    state.any = true;
    if (state.search != INVALID_HANDLE_VALUE) state_ = std::make_unique<State>(state);
}

FolderEntries::~FolderEntries() {
    if (state_ != nullptr) FindClose(state_->search);
}

std::optional<Entry> FolderEntries::Next() {
    while (state_ != nullptr && state_->any) {
        const Path name = state_->entry.cFileName;
        const DWORD attributes = state_->entry.dwFileAttributes;
        state_->any = FindNextFileW(state_->search, &state_->entry) != 0;
        if (name != L"." && name != L"..") {
            return Entry{name, IsFolder(attributes),
                         (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0};
        }
    }
    return std::nullopt;
}

std::unique_ptr<FolderClaim> ClaimFolder(const Path& folder) {
    Path place = FinalPath(folder).value_or(folder);
    CharUpperBuffW(place.data(), static_cast<DWORD>(place.size()));
    // A path may be too long for a mutex name, and "\" has a special meaning in one.
    const std::wstring name =
        L"Global\\Vantorin fills " + std::to_wstring(std::hash<Path>{}(place));
    Mutex mutex(CreateMutexW(nullptr, FALSE, name.c_str()));
    const DWORD error = GetLastError();
    // Another user's mutex may exist even though we may not open it.
    if (error == ERROR_ALREADY_EXISTS || error == ERROR_ACCESS_DENIED) return nullptr;
    return std::make_unique<FolderMutex>(std::move(mutex));
}

}  // namespace platform::native
