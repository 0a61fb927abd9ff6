#pragma once

#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/message_box.h"
#include "platform/page_text.h"
#include "platform/process.h"
#include "platform/settings_store.h"

namespace platform {

/// The system as the program sees it: one of each, for the life of the process.
struct Services {
    EventLoop& events;
    Files& files;
    SettingsStore& settings;
    PageText& page_text;
    ProcessStarter& processes;
    MessageBoxes& boxes;
};

/// The services in use. Installed before anything else runs.
const Services& System();

/// Makes `services` the ones in use; they must outlive their use. Null takes them away.
void InstallSystem(const Services* services);

}  // namespace platform
