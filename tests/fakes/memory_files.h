#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "platform/path_text.h"

namespace fakes {

/// A case-sensitive file system in memory. The keys of files and folders are resolved paths, such
/// as "c:\mirror\site.com" ("z:" is the root of a path that begins with "\").
class MemoryFiles : public platform::Files {
  public:
    std::map<std::string, std::string> files;
    std::set<std::string> folders{"c:", "z:", "c:\\program"};

    // Faults that a test can set.
    bool disk_full = false;            ///< nothing can be written or created
    std::set<std::string> refused;     ///< resolved paths that cannot be written or created
    std::set<std::string> read_only;   ///< folders in which nothing can be written or created
    std::set<std::string> unreadable;  ///< files and folders that cannot be opened
    std::function<void(std::string)> on_write;  ///< gets the resolved path before each write
    std::function<void(std::string)> on_look;   ///< gets it before each query or creation
    std::function<void()> on_sweep;             ///< runs before files are deleted by suffix

    /// Sets up a folder with all its parents, or a file in such a folder.
    void Have(std::string_view folder) {
        for (std::string f = Key(folder); folders.insert(f).second;)
            f = Parent(f);
    }
    void Have(std::string_view path, std::string_view contents) {
        Have(Parent(Key(path)));
        files[Key(path)] = contents;
    }
    /// The contents of a file; "(none)" if it does not exist.
    std::string At(std::string_view path) const { return ReadFile(path).value_or("(none)"); }

    std::string ProgramFolder() const override { return "c:\\program"; }

    platform::FileResult CreateFolder(std::string_view path) override {
        Look(path);
        if (platform::FileResult refusal = MayWrite(path); !refusal) return refusal;
        const bool made = !files.contains(Key(path)) && folders.insert(Key(path)).second;
        return {made ? "" : "File exists"};
    }
    std::optional<std::uint64_t> FileLength(std::string_view path) const override {
        Look(path);
        if (folders.contains(Key(path))) return 0;
        const auto file = files.find(Key(path));
        return file == files.end() ? std::nullopt : std::optional(file->second.size());
    }
    bool FolderExists(std::string_view path) const override {
        Look(path);
        return folders.contains(Key(path));
    }

    std::optional<std::string> ReadFile(std::string_view path) const override {
        Look(path);
        const auto file = files.find(Key(path));
        return file == files.end() ? std::nullopt : std::optional(file->second);
    }
    platform::FileResult WriteFile(std::string_view path,
                                   std::initializer_list<std::string_view> parts) override {
        return Write(path, parts, /*append=*/false);
    }
    platform::FileResult AppendFile(std::string_view path,
                                    std::initializer_list<std::string_view> parts) override {
        return Write(path, parts, /*append=*/true);
    }
    bool DeleteFile(std::string_view path) override {
        return !read_only.contains(Parent(Key(path))) && files.erase(Key(path)) > 0;
    }
    void DeleteBySuffix(std::string_view folder, std::string_view suffix) override {
        if (on_sweep) on_sweep();
        std::erase_if(files, [&](const auto& file) {
            return Parent(file.first) == Key(folder) && file.first.ends_with(suffix);
        });
    }
    std::vector<std::string> Subfolders(std::string_view folder) const override {
        std::vector<std::string> names;
        for (const std::string& path : folders) {
            if (path != Key(folder) && Parent(path) == Key(folder)) {
                names.push_back(path.substr(Key(folder).size() + 1));
            }
        }
        return names;
    }
    std::unique_ptr<platform::FileReader> OpenFile(std::string_view path) const override {
        Look(path);
        if (!files.contains(Key(path)) || unreadable.contains(Key(path))) return nullptr;
        return std::make_unique<PartReader>(files, Key(path));
    }
    std::unique_ptr<platform::FolderReader> OpenFolder(std::string_view folder) const override {
        Look(folder);
        if (!folders.contains(Key(folder)) || unreadable.contains(Key(folder))) return nullptr;
        using Kind = platform::FolderReader::Kind;
        auto reader = std::make_unique<Reader>();
        for (const std::string& name : Subfolders(folder))
            reader->entries.push_back({name, Kind::Folder});
        for (const auto& [path, contents] : files) {
            if (Parent(path) == Key(folder))
                reader->entries.push_back({path.substr(Key(folder).size() + 1), Kind::File});
        }
        return reader;
    }
    bool IsInside(std::string_view path, std::string_view folder) const override {
        return !Key(folder).empty() && (Key(path) + "\\").starts_with(Key(folder) + "\\");
    }
    bool IsLink(std::string_view path) const override {
        Look(path);
        return false;
    }

    std::unique_ptr<platform::FolderClaim> ClaimFolder(std::string_view folder) override {
        if (!claimed->insert(Key(folder)).second) return nullptr;
        return std::make_unique<Claim>(claimed, Key(folder));
    }
    /// The claimed folders. A test may add one as if another program had claimed it.
    std::shared_ptr<std::set<std::string>> claimed = std::make_shared<std::set<std::string>>();

  private:
    struct PartReader : platform::FileReader {
        PartReader(const std::map<std::string, std::string>& all, std::string path)
            : files(all), key(std::move(path)) {}
        std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t most) override {
            const auto file = files.find(key);
            if (file == files.end() || offset >= file->second.size()) return 0;
            return file->second.copy(to, most, static_cast<std::size_t>(offset));
        }
        const std::map<std::string, std::string>& files;
        const std::string key;
    };
    struct Reader : platform::FolderReader {
        std::deque<Entry> entries;
        std::optional<Entry> Next() override {
            if (entries.empty()) return std::nullopt;
            Entry entry = entries.front();
            entries.pop_front();
            return entry;
        }
    };

    struct Claim : platform::FolderClaim {
        Claim(std::shared_ptr<std::set<std::string>> all, std::string key)
            : claimed(std::move(all)), folder(std::move(key)) {}
        ~Claim() override { claimed->erase(folder); }
        std::shared_ptr<std::set<std::string>> claimed;
        std::string folder;
    };
    /// "" for an invalid path; no file or folder has this key.
    static std::string Key(std::string_view path) {
        return platform::ResolvePathText(path).value_or("");
    }
    static std::string Parent(const std::string& key) {
        return std::string(platform::ParentOfResolved(key));
    }
    void Look(std::string_view path) const {
        if (on_look) on_look(Key(path));
    }
    platform::FileResult MayWrite(std::string_view path) const {
        const std::string key = Key(path);
        const std::string folder = Parent(key);
        if (key.empty()) return {platform::kNoName};
        if (disk_full) return {"No space left on device"};
        if (!folders.contains(folder)) return {"No such file or directory"};
        if (refused.contains(key) || read_only.contains(folder)) return {"Permission denied"};
        return {key.size() - folder.size() <= 256 ? "" : "File name too long"};
    }
    platform::FileResult Write(std::string_view path, std::initializer_list<std::string_view> parts,
                               bool append) {
        if (on_write) on_write(Key(path));
        if (platform::FileResult refusal = MayWrite(path); !refusal) return refusal;
        if (FolderExists(path)) return {"Is a directory"};
        std::string& contents = files[Key(path)];
        if (!append) contents.clear();
        for (const std::string_view part : parts)
            contents += part;
        return {};
    }
};

}  // namespace fakes
