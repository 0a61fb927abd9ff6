#include "setup/file_types.h"

#include <algorithm>
#include <string_view>

#include "platform/services.h"
#include "setup/list_file.h"
#include "text/text.h"

namespace bas_General {

namespace {

std::string ListFolder() {
    return platform::System().files.ProgramFolder() + "\\temp";
}

bool CanBeAType(std::string_view entry) {
    const std::string_view type = text::Trim(entry);
    return type.size() > 1 && type.front() == '.' &&
           std::all_of(type.begin() + 1, type.end(),
                       [](char c) { return c > ' ' && c <= '~' && c != '.'; });
}

}  // namespace

std::string FileTypesFile() {
    return ListFolder() + "\\filetypes.txt";
}

std::vector<std::string> DefaultFileTypes() {
    return {".htm", ".html", ".php", ".asp", ".txt", ".gif",
            ".jpg", ".jpeg", ".png", ".pdf", ".zip", ".css"};
}

void WriteFileTypes(const std::vector<std::string>& types) {
    platform::System().files.WriteFile(FileTypesFile(), {JoinListFile(types)});
}

std::vector<std::string> ReadFileTypes() {
    return SplitListFile(platform::System().files.ReadFile(FileTypesFile()).value_or(""));
}

bool MakeFirstFileTypesFile() {
    platform::System().files.CreateFolder(ListFolder());
    if (platform::System().files.FileLength(FileTypesFile())) return false;
    WriteFileTypes(DefaultFileTypes());
    return true;
}

bool AnyFileTypeKnown() {
    const std::vector<std::string> types = ReadFileTypes();
    return std::any_of(types.begin(), types.end(), CanBeAType);
}

std::string LoadFileTypes() {
    std::string set;
    for (const std::string& type : ReadFileTypes()) {
        set.append(":").append(text::LowerCase(text::Trim(type))).append(":");
    }
    return set;
}

}  // namespace bas_General
