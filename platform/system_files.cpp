#include "platform/system_files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <limits>
#include <memory>
#include <system_error>

#include "platform/native_files.h"
#include "platform/path_text.h"

namespace platform {

namespace {

using native::Path;
constexpr auto kSeparator = std::filesystem::path::preferred_separator;

FileResult Fault() {
    return {native::WhyItFailed()};
}

/// Writes one part after the other, because a copy of all of them might not fit into memory. Closes
/// the file, because some systems report a full disk only then.
FileResult WriteAndClose(std::FILE* file, std::initializer_list<std::string_view> parts) {
    // This buffer passes a page to the system in one piece. Otherwise the library would first ask
    // the system for the best buffer size.
    std::array<char, 64 * 1024> buffer;
    std::setvbuf(file, buffer.data(), _IOFBF, buffer.size());
    const bool written = std::all_of(parts.begin(), parts.end(), [file](std::string_view part) {
        return std::fwrite(part.data(), 1, part.size(), file) == part.size();
    });
    FileResult result = written ? FileResult() : Fault();
    if (std::fclose(file) != 0 && result) result = Fault();
    return result;
}

/// Fills the new file that `native::Open` has returned. Leaves no file behind on a fault.
FileResult FillNewFile(const Path& path, std::FILE* file,
                       std::initializer_list<std::string_view> parts) {
    if (file == nullptr) return Fault();
    FileResult result = WriteAndClose(file, parts);
    if (!result) native::Unlink(path);
    return result;
}

/// Opens for appending. With "a+b" the library does not ask the system for the file's end first;
/// "ab" is for a file that may not be read.
std::FILE* OpenToAppend(const Path& path) {
    std::FILE* const file = native::Open(path, "a+b");
    return file != nullptr ? file : native::Open(path, "ab");
}

/// The name of the file that is written first and renamed to `path` when complete. It ends in
/// ".tmp", so a sweep of the folder also removes one that could not be deleted.
Path TemporaryBeside(const Path& path, int number) {
    const std::string name = "~vantorin" + std::to_string(number) + ".tmp";
    return path.substr(0, path.rfind(kSeparator) + 1).append(name.begin(), name.end());
}

/// The path with every link followed; what does not exist yet is taken as written. Nothing if the
/// target is unknown, as with a dangling link: a write through that would create a file somewhere
/// else.
std::optional<Path> FollowLinks(std::string_view path_text) {
    std::optional<Path> path = native::PathOf(path_text);
    Path missing;
    while (path) {
        if (const auto followed = native::FinalPath(*path)) return *followed + missing;
        if ((errno != ENOENT && errno != ENOTDIR) || native::IsLink(*path)) return std::nullopt;
        const std::size_t cut = path->rfind(kSeparator);
        missing.insert(0, *path, cut);
        path->resize(cut);
    }
    return std::nullopt;
}

class SystemFileReader : public FileReader {
  public:
    explicit SystemFileReader(std::FILE* file) : file_(file, std::fclose) {
        std::setvbuf(file, nullptr, _IONBF, 0);
    }

    std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t most) override {
        if (!native::Seek(file_.get(), offset)) return 0;
        return std::fread(to, 1, most, file_.get());
    }

  private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

class SystemFolderReader : public FolderReader {
  public:
    explicit SystemFolderReader(const Path& folder) : entries_(folder) {}

    bool IsOpen() const { return entries_.IsOpen(); }

    std::optional<Entry> Next() override {
        while (const auto entry = entries_.Next()) {
            if (const auto name = native::TextOf(entry->name)) {
                return Entry{*name, entry->is_link     ? Kind::Link
                                    : entry->is_folder ? Kind::Folder
                                                       : Kind::File};
            }
        }
        return std::nullopt;
    }

  private:
    native::FolderEntries entries_;
};

std::optional<native::Status> StatusOf(std::string_view path_text) {
    const auto path = native::PathOf(path_text);
    return path ? native::StatusOf(*path) : std::nullopt;
}

}  // namespace

SystemFiles::SystemFiles(const std::string& program_folder)
    : program_folder_(PathTextOf(program_folder)) {
    while (program_folder_.ends_with('\\')) {
        program_folder_.pop_back();
    }
}

FileResult SystemFiles::CreateFolder(std::string_view path) {
    const auto native_path = native::PathOf(path);
    if (!native_path) return {kNoName};
    return native::MakeFolder(*native_path) ? FileResult() : Fault();
}

std::optional<std::uint64_t> SystemFiles::FileLength(std::string_view path) const {
    auto status = StatusOf(path);
    // Unless the system says that nothing is there, ask again: it may have been busy with the file.
    if (!status && errno != ENOENT && errno != ENOTDIR) status = StatusOf(path);
    if (!status) return std::nullopt;
    return status->is_folder ? 0 : status->length;
}

bool SystemFiles::FolderExists(std::string_view path) const {
    const auto status = StatusOf(path);
    return status && status->is_folder;
}

std::optional<std::string> SystemFiles::ReadFile(std::string_view path) const {
    return ReadShortFile(path, std::numeric_limits<std::uint64_t>::max());
}

std::optional<std::string> SystemFiles::ReadShortFile(std::string_view path,
                                                      std::uint64_t longest) const {
    const auto native_path = native::PathOf(path);
    const auto status = native_path ? native::StatusOf(*native_path) : std::nullopt;
    if (!status || !status->is_file || status->length > longest) return std::nullopt;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(native::Open(*native_path, "rb"),
                                                               std::fclose);
    if (file == nullptr) return std::nullopt;

    std::string bytes;
    try {
        bytes.resize(status->length);
    } catch (const std::exception&) {  // does not fit into memory
        return std::nullopt;
    }
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    if (std::ferror(file.get()) != 0) return std::nullopt;
    return bytes;
}

std::unique_ptr<FileReader> SystemFiles::OpenFile(std::string_view path) const {
    const auto native_path = native::PathOf(path);
    const auto status = native_path ? native::StatusOf(*native_path) : std::nullopt;
    if (!status || !status->is_file) return nullptr;
    std::FILE* const file = native::Open(*native_path, "rb");
    return file == nullptr ? nullptr : std::make_unique<SystemFileReader>(file);
}

FileResult SystemFiles::WriteFile(std::string_view path,
                                  std::initializer_list<std::string_view> parts) {
    const auto native_path = native::PathOf(path);
    if (!native_path) return {kNoName};
    Path temporary;
    std::FILE* file = nullptr;
    int number = 0;
    do {
        temporary = TemporaryBeside(*native_path, number++);
        file = native::Open(temporary, "wbx");
    } while (file == nullptr && errno == EEXIST);
    if (FileResult result = FillNewFile(temporary, file, parts); !result) return result;

    std::error_code error;
    std::filesystem::rename(temporary, *native_path, error);
    if (!error) return {};
    native::Unlink(temporary);
    return {error.message()};
}

FileResult SystemFiles::AppendFile(std::string_view path,
                                   std::initializer_list<std::string_view> parts) {
    const auto native_path = native::PathOf(path);
    if (!native_path) return {kNoName};
    const auto status = native::StatusOf(*native_path);
    if (!status) return FillNewFile(*native_path, native::Open(*native_path, "wbx"), parts);
    if (!status->is_file) return {"not a regular file"};
    std::FILE* const file = OpenToAppend(*native_path);
    if (file == nullptr) return Fault();
    FileResult result = WriteAndClose(file, parts);
    if (result) return result;
    // If this fails, too, the part that was written stays.
    std::error_code error;
    std::filesystem::resize_file(*native_path, status->length, error);
    return result;
}

bool SystemFiles::WriteNewFile(std::string_view path,
                               std::initializer_list<std::string_view> parts) {
    const auto native_path = native::PathOf(path);
    return native_path && FillNewFile(*native_path, native::Open(*native_path, "wbx"), parts);
}

bool SystemFiles::DeleteFile(std::string_view path) {
    const auto native_path = native::PathOf(path);
    return native_path && native::Unlink(*native_path);
}

void SystemFiles::DeleteBySuffix(std::string_view folder, std::string_view suffix) {
    const auto native_folder = native::PathOf(folder);
    if (!native_folder) return;
    const Path ending(suffix.begin(), suffix.end());
    native::FolderEntries entries(*native_folder);
    while (const auto entry = entries.Next()) {
        const Path& name = entry->name;
        if (!entry->is_folder && name.size() >= ending.size() &&
            native::IsSameName(name.substr(name.size() - ending.size()), ending)) {
            native::Unlink(*native_folder + kSeparator + name);
        }
    }
}

std::vector<std::string> SystemFiles::Subfolders(std::string_view folder) const {
    const auto native_folder = native::PathOf(folder);
    if (!native_folder) return {};
    std::vector<std::string> names;
    native::FolderEntries entries(*native_folder);
    while (const auto entry = entries.Next()) {
        if (!entry->is_folder) continue;
        if (const auto text = native::TextOf(entry->name)) names.push_back(*text);
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::unique_ptr<FolderReader> SystemFiles::OpenFolder(std::string_view folder) const {
    const auto native_folder = native::PathOf(folder);
    if (!native_folder) return nullptr;
    auto reader = std::make_unique<SystemFolderReader>(*native_folder);
    return reader->IsOpen() ? std::move(reader) : nullptr;
}

bool SystemFiles::IsInside(std::string_view path, std::string_view folder) const {
    const auto inner = FollowLinks(path);
    const auto outer = FollowLinks(folder);
    if (!inner || !outer || inner->size() < outer->size()) return false;
    return native::IsSameName(inner->substr(0, outer->size()), *outer) &&
           (inner->size() == outer->size() || (*inner)[outer->size()] == kSeparator);
}

bool SystemFiles::IsLink(std::string_view path) const {
    const auto native_path = native::PathOf(path);
    return native_path && native::IsLink(*native_path);
}

std::unique_ptr<FolderClaim> SystemFiles::ClaimFolder(std::string_view folder) {
    const auto native_folder = native::PathOf(folder);
    return native_folder ? native::ClaimFolder(*native_folder) : std::make_unique<FolderClaim>();
}

}  // namespace platform
