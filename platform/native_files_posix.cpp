#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <system_error>
#include <utility>

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

bool Seek(std::FILE* file, std::uint64_t offset) {
    return fseeko(file, static_cast<off_t>(offset), SEEK_SET) == 0;
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

struct FolderEntries::State {
    std::filesystem::directory_iterator entry;
};

FolderEntries::FolderEntries(const Path& folder) {
    std::error_code error;
    std::filesystem::directory_iterator first(folder, error);
    if (!error) state_ = std::make_unique<State>(State{std::move(first)});
}

FolderEntries::~FolderEntries() = default;

std::optional<Entry> FolderEntries::Next() {
    if (state_ == nullptr || state_->entry == std::filesystem::directory_iterator())
        return std::nullopt;
    std::error_code error;
    const std::filesystem::directory_entry& entry = *state_->entry;
    Entry found{entry.path().filename(), entry.is_directory(error), entry.is_symlink(error)};
    state_->entry.increment(error);
    return found;
}

namespace {

/// A lock on the folder itself. The system releases it when the process ends, however that happens.
class FolderLock : public FolderClaim {
  public:
    explicit FolderLock(int folder) : folder_(folder) {}
    ~FolderLock() override { close(folder_); }

  private:
    int folder_;
};

}  // namespace

std::unique_ptr<FolderClaim> ClaimFolder(const Path& folder) {
    const int opened = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (opened < 0) return std::make_unique<FolderClaim>();
    const bool taken = flock(opened, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    auto claim = std::make_unique<FolderLock>(opened);
    return taken ? nullptr : std::move(claim);
}

}  // namespace platform::native
