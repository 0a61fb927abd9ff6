#pragma once

#include <string>
#include <string_view>

/// The system's rules for paths, as needed by path_text.cpp.
namespace platform {

constexpr bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

/// Whether `path` begins with a letter and ":".
bool HasDrive(std::string_view path);

/// Whether the system has the drive at the start of a resolved text.
bool IsOnDrive(std::string_view resolved);

/// The folder that a path without a drive is relative to, as resolved text; "" if there is none.
std::string BaseOf(std::string_view path);

}  // namespace platform
