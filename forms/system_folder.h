#pragma once

#include <QString>
#include <string>

namespace ui {

/// Where the system has a folder that was typed or chosen; "" where it says so in the same words.
QString SystemFolderHint(const std::string& folder);

}  // namespace ui
