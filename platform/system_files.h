#pragma once

#include <string>

#include "platform/files.h"

namespace platform {

/// The files of the machine that the program runs on.
class SystemFiles : public Files {
  public:
    /// `program_folder` is a system path.
    explicit SystemFiles(const std::string& program_folder);

    std::string ProgramFolder() const override { return program_folder_; }
    FileResult CreateFolder(std::string_view path) override;
    std::optional<std::uint64_t> FileLength(std::string_view path) const override;
    bool FolderExists(std::string_view path) const override;
    std::optional<std::string> ReadFile(std::string_view path) const override;
    std::optional<std::string> ReadShortFile(std::string_view path,
                                             std::uint64_t longest) const override;
    FileResult WriteFile(std::string_view path,
                         std::initializer_list<std::string_view> parts) override;
    FileResult AppendFile(std::string_view path,
                          std::initializer_list<std::string_view> parts) override;
    std::unique_ptr<FileReader> OpenFile(std::string_view path) const override;
    bool WriteNewFile(std::string_view path,
                      std::initializer_list<std::string_view> parts) override;
    bool DeleteFile(std::string_view path) override;
    void DeleteBySuffix(std::string_view folder, std::string_view suffix) override;
    std::vector<std::string> Subfolders(std::string_view folder) const override;
    std::unique_ptr<FolderReader> OpenFolder(std::string_view folder) const override;
    bool IsInside(std::string_view path, std::string_view folder) const override;
    bool IsLink(std::string_view path) const override;
    std::unique_ptr<FolderClaim> ClaimFolder(std::string_view folder) override;

  private:
    std::string program_folder_;  // as path text
};

}  // namespace platform
