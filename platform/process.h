#pragma once

#include <string>

namespace platform {

/// Starts the system's own programs. Each gets a single argument, never through a shell.
class ProcessStarter {
  public:
    virtual ~ProcessStarter() = default;

    /// Shows a folder, given as path text, in the system's file manager. False if that cannot be
    /// started.
    virtual bool ExploreFolder(const std::string& folder) = 0;

    /// Opens a file, given as path text, with the program that the system has for its type. If
    /// opening it would run it as a program, shows its folder instead. False if nothing could be
    /// started.
    virtual bool OpenFile(const std::string& file) = 0;

    /// Opens a page as `OpenFile` does. The browser scrolls to the first occurrence of `words` if
    /// the desktop and the browser support that. "" opens the page at its beginning.
    virtual bool OpenPage(const std::string& file, const std::string& words) = 0;

    /// Opens an "http://" address in the system's browser. False if it is not one or if nothing
    /// could be started.
    virtual bool OpenAddress(const std::string& address) = 0;
};

}  // namespace platform
