#include "forms/system_folder.h"

#include <optional>

#include "platform/path_text.h"
#include "platform/qt/local_text.h"
#include "setup/settings.h"

namespace ui {

QString SystemFolderHint(const std::string& folder) {
    const std::string normalized = bas_General::NormalizeFolder(folder);
    const std::optional<std::string> resolved = platform::ResolvePathText(normalized);
    const std::optional<std::string> system_path = platform::SystemPathOf(normalized);
    if (!resolved || !system_path) return "This computer has no such drive";
    if (system_path->starts_with(*resolved)) return {};
    return "On this computer: " + platform::FromBytes(*system_path);
}

}  // namespace ui
