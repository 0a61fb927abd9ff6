#pragma once

#include <QString>
#include <string>

namespace ui {

/// A hint with the system's path of a typed or chosen folder, or that there is no such drive; "" if
/// the path is the same text.
QString SystemFolderHint(const std::string& folder);

}  // namespace ui
