#pragma once

#include <string>
#include <string_view>

/// What path_text.cpp needs to know of the system's own rules for paths.
namespace platform {

constexpr bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

/// Whether `path` begins with a letter and ":".
bool HasDrive(std::string_view path);

/// Whether the system has the drive that a resolved text begins with.
bool IsOnDrive(std::string_view resolved);

/// What a path without a drive is taken from, as a resolved text; "" when it leads nowhere.
std::string BaseOf(std::string_view path);

}  // namespace platform
