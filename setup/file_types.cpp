#include "setup/file_types.h"

#include <algorithm>
#include <iterator>
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

std::string FileTypeOf(const std::string& address) {
    const std::string lowered = text::LowerCase(address);
    const std::size_t dot = lowered.rfind('.');
    const std::string type(dot == lowered.npos ? "" : text::Trim(lowered.substr(dot)));
    const bool plain = std::ranges::all_of(type.begin() + !type.empty(), type.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    });
    return plain && type.size() > 1 ? type : std::string();
}

bool AddFileTypes(const std::vector<std::string>& types) {
    MakeFirstFileTypesFile();
    const auto is_in = [](const std::string& set, const std::string& type) {
        return text::Contains(set, ":" + type + ":");
    };
    const std::string known = LoadFileTypes();
    std::vector<std::string> list = ReadFileTypes();
    std::ranges::remove_copy_if(types, std::back_inserter(list),
                                [&](const std::string& type) { return is_in(known, type); });
    WriteFileTypes(list);
    return std::ranges::all_of(
        types, [&, now = LoadFileTypes()](const std::string& type) { return is_in(now, type); });
}

std::string LoadFileTypes() {
    std::string set;
    for (const std::string& type : ReadFileTypes()) {
        set.append(":").append(text::LowerCase(text::Trim(type))).append(":");
    }
    return set;
}

}  // namespace bas_General
