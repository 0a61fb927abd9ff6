#pragma once

#include "platform/services.h"
#include "platform/system_files.h"
#include "tests/fakes/fake_system.h"
#include "tests/fakes/temp_folder.h"

namespace fakes {

/// An in-memory system with real files in a temporary folder. It is installed as long as it exists.
struct DiskSystem {
    DiskSystem() { platform::InstallSystem(&services_); }
    DiskSystem(const DiskSystem&) = delete;
    DiskSystem& operator=(const DiskSystem&) = delete;

    TempFolder folder;
    FakeSystem fake;
    platform::SystemFiles files{folder.SystemPath().string()};

  private:
    platform::Services services_{platform::System().events,
                                 files,
                                 fake.settings,
                                 fake.page_text,
                                 fake.processes,
                                 fake.boxes};
};

}  // namespace fakes
