#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <system_error>

#include "platform/native_files.h"
#include "platform/path_text.h"

namespace platform::native {

std::optional<Path> PathOf(std::string_view path_text) {
    return SystemPathOf(path_text);
}

std::optional<std::string> TextOf(const Path& name) {
    return name.find('\\') == Path::npos ? std::optional(name) : std::nullopt;
}

bool IsSameName(PathView a, PathView b) {
    return a == b;
}

std::optional<Status> StatusOf(const Path& path) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0) return std::nullopt;
    return Status{S_ISDIR(status.st_mode), S_ISREG(status.st_mode),
                  static_cast<std::uint64_t>(status.st_size)};
}

bool IsLink(const Path& path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

std::optional<Path> FinalPath(const Path& path) {
    const std::unique_ptr<char, decltype(&std::free)> followed(
        realpath(path.empty() ? "/" : path.c_str(), nullptr), std::free);
    if (followed == nullptr) return std::nullopt;
    return std::string_view(followed.get()) == "/" ? Path() : Path(followed.get());
}

std::FILE* Open(const Path& path, const char* mode) {
    return std::fopen(path.c_str(), mode);
}

bool MakeFolder(const Path& path) {
    return mkdir(path.c_str(), 0777) == 0;
}

std::string WhyItFailed() {
    return std::generic_category().message(errno);
}

bool Unlink(const Path& path) {
    return unlink(path.c_str()) == 0;
}

std::vector<Entry> EntriesOf(const Path& folder) {
    std::vector<Entry> entries;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        entries.push_back({entry->path().filename(), entry->is_directory(error)});
    }
    return entries;
}

}  // namespace platform::native
