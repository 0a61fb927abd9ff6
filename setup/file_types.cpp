#include "setup/file_types.h"

#include "platform/services.h"
#include "setup/list_file.h"
#include "text/text.h"

namespace bas_General {

namespace {

std::string ListFolder() {
    return platform::System().files.ProgramFolder() + "\\temp";
}

std::string ListFile() {
    return ListFolder() + "\\filetypes.txt";
}

}  // namespace

std::vector<std::string> DefaultFileTypes() {
    return {".htm", ".html", ".php", ".asp", ".txt", ".gif",
            ".jpg", ".jpeg", ".png", ".pdf", ".zip", ".css"};
}

void WriteFileTypes(const std::vector<std::string>& types) {
    platform::System().files.WriteFile(ListFile(), {JoinListFile(types)});
}

std::vector<std::string> ReadFileTypes() {
    return SplitListFile(platform::System().files.ReadFile(ListFile()).value_or(""));
}

bool MakeFirstFileTypesFile() {
    platform::System().files.CreateFolder(ListFolder());
    if (platform::System().files.FileLength(ListFile())) return false;
    WriteFileTypes(DefaultFileTypes());
    return true;
}

std::string LoadFileTypes() {
    std::string set;
    for (const std::string& type : ReadFileTypes()) {
        set.append(":").append(text::LowerCase(text::Trim(type))).append(":");
    }
    return set;
}

}  // namespace bas_General
