#pragma once

#include <string>

namespace platform {

/// Starting the system's own programs. The argument is passed as one argument, never through a
/// shell.
class ProcessStarter {
  public:
    virtual ~ProcessStarter() = default;

    /// Shows a folder, given as path text, in the system's file manager. False when it cannot be
    /// started.
    virtual bool ExploreFolder(const std::string& folder) = 0;

    /// Opens a file, given as path text, with the program that the system has for its kind. One
    /// that would run as a program is shown in its folder instead. False when nothing could be
    /// started.
    virtual bool OpenFile(const std::string& file) = 0;

    /// Opens an "http://" address in the system's browser. False when it is not one or nothing
    /// could be started.
    virtual bool OpenAddress(const std::string& address) = 0;
};

}  // namespace platform
