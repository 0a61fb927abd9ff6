#pragma once

#include "platform/process.h"

namespace platform {

/// Starts the system's file manager and browser: the explorer on Windows, elsewhere the desktop's
/// own opener, found on the PATH.
class QtProcessStarter final : public ProcessStarter {
  public:
    bool ExploreFolder(const std::string& folder) override;
    bool OpenFile(const std::string& file) override;
    bool OpenPage(const std::string& file, const std::string& words) override;
    bool OpenAddress(const std::string& address) override;
};

}  // namespace platform
